// SPDX-License-Identifier: MIT
// VemoArrow: its saved settings against their defaults, the arrow and face it draws, and its
// own mouse events.
#include <VemoGridLib/MemoryPropertyBag.h>
#include <VemoGridLib/VemoArrow.h>

#include <QApplication>
#include <QEnterEvent>
#include <QMetaProperty>
#include <QScreen>
#include <QTest>

using namespace VemoGridLib;

class tst_VemoArrow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCOMPARE(QGuiApplication::primaryScreen()->logicalDotsPerInch(), 96); }

    void savedProperties_data()
    {
        QTest::addColumn<QVariantMap>("settings");
        QTest::addColumn<QStringList>("saved");
        // Enabled is saved against false, so an enabled arrow always writes it.
        QTest::newRow("new") << QVariantMap() << QStringList{"Enabled"};
        QTest::newRow("disabled") << QVariantMap{{"Enabled", false}} << QStringList();
        QTest::newRow("all changed")
            << QVariantMap{{"ForeColor", 0x80000012u}, {"BorderStyle", 1},   {"Appearance", 0},
                           {"Direction", 3},           {"BackColor", 0xFFu}, {"BorderColor", 0u},
                           {"HoverColor", 0x123456u}}
            << QStringList{"ForeColor", "Enabled",   "BorderStyle", "Appearance",
                           "Direction", "BackColor", "BorderColor", "HoverColor"};
    }

    void savedProperties()
    {
        QFETCH(QVariantMap, settings);
        QFETCH(QStringList, saved);
        VemoArrow source;
        for (auto it = settings.cbegin(); it != settings.cend(); ++it)
            QVERIFY(source.setProperty(qPrintable(it.key()), it.value()));
        MemoryPropertyBag bag;
        source.WriteProperties(bag);
        QCOMPARE(bag.names(), saved);
        // Through the saved form, so the values come back in their saved types.
        const MemoryPropertyBag loaded = MemoryPropertyBag::fromJson(bag.toJson());
        VemoArrow restored;
        restored.ReadProperties(loaded);
        const QMetaObject& meta = VemoArrow::staticMetaObject;
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
            const QMetaProperty property = meta.property(i);
            QCOMPARE(property.read(&restored), property.read(&source));
        }
    }

    void drawingAndMouse()
    {
        VemoArrow arrow;
        arrow.resize(17, 17);
        arrow.show();
        QVERIFY(QTest::qWaitForWindowExposed(&arrow));
        QStringList events;
        connect(&arrow, &VemoArrow::MouseDown, this,
                [&](short& button, short&, float& x, float& y) {
                    events << QString("MouseDown %1 %2 %3").arg(button).arg(x).arg(y);
                });
        connect(&arrow, &VemoArrow::Click, this, [&] { events << "Click"; });
        // The offscreen pointer may rest on the arrow: start from a face without hover.
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(&arrow, &leave);
        const QImage up = arrow.grab().toImage();
        arrow.setDirection(VemoArrow::ArrowDown);
        const QImage down = arrow.grab().toImage();
        QVERIFY(down != up);
        QEnterEvent enter(QPointF(8, 8), QPointF(8, 8), arrow.mapToGlobal(QPointF(8, 8)));
        QApplication::sendEvent(&arrow, &enter);
        const QImage hover = arrow.grab().toImage();
        QVERIFY(hover != down);
        QTest::mousePress(&arrow, Qt::LeftButton, {}, QPoint(2, 3));
        const QImage pressed = arrow.grab().toImage();
        QVERIFY(pressed != hover);
        // Released outside: no Click. Twips at 96 dpi: 15 a pixel.
        QTest::mouseRelease(&arrow, Qt::LeftButton, {}, QPoint(40, 3));
        QTest::mouseClick(&arrow, Qt::LeftButton, {}, QPoint(2, 3));
        QCOMPARE(events.join(','), "MouseDown 1 30 45,MouseDown 1 30 45,Click");
        // The border line is drawn in BorderColor on the edge only.
        arrow.setBorderStyle(1);
        arrow.setBorderColor(0x0000FF);
        const QImage bordered = arrow.grab().toImage();
        QCOMPARE(bordered.pixelColor(0, 8), QColor(Qt::red));
        QVERIFY(bordered.pixelColor(8, 1) != QColor(Qt::red));
    }
};

QTEST_MAIN(tst_VemoArrow)
#include "tst_vemoarrow.moc"
