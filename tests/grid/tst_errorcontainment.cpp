// SPDX-License-Identifier: MIT
// Errors stay on the library's side of Qt: a property written through the meta-object system
// refuses a bad value with a warning, and an error raised by a directly connected event
// handler ends that event without leaving the event loop; direct C++ calls still throw.
#include "VemoGridTestSupport.h"

#include <VemoGridLib/Column.h>
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/VemoGrid.h>

#include <QApplication>
#include <QRegularExpression>
#include <QTest>
#include <QWheelEvent>

using namespace VemoGridLib;

class tst_ErrorContainment : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void refusedPropertyWrite_data()
    {
        QTest::addColumn<QString>("write"); // object property value
        for (const char* write :
             {"Flex SelectionMode 7", "Flex Rows -1", "Flex FixedRows 5", "Flex Row 99",
              "Vemo Cols -2", "Vemo GridLines 9", "Vemo SelectionMode 3", "Column DecimalLength 3"})
            QTest::newRow(write) << QString::fromLatin1(write);
    }

    void refusedPropertyWrite()
    {
        QFETCH(QString, write);
        const QStringList parts = write.split(u' ');
        VemoGrid grid;
        grid.setCols(3);
        grid.setRows(4);
        grid.setColType(1, eCurrency); // DecimalLength is refused on a currency column
        QObject* const object = parts[0] == u"Flex"   ? static_cast<QObject*>(grid.hostedGrid())
                                : parts[0] == u"Vemo" ? static_cast<QObject*>(&grid)
                                                      : grid.Column(1);
        const QByteArray property = parts[1].toLatin1();
        const QVariant before = object->property(property);
        QTest::ignoreMessage(
            QtWarningMsg,
            QRegularExpression(u"property %1 refused the value %2 "_qs.arg(parts[1], parts[2])));
        // The write reached the property: moc reports no refusal, the warning does.
        QVERIFY(object->setProperty(property, parts[2].toInt()));
        QCOMPARE(object->property(property), before);
    }

    void throwingHandler_data()
    {
        QTest::addColumn<QString>("event");
        QTest::addColumn<QString>("where");
        // EnterCell comes after the grid moved: the move stands, the key's work ends there.
        for (const auto& [event, where] : {std::pair("KeyDown", "VemoGrid KeyDown"),
                                           {"EnterCell", "VemoGrid KeyDown"},
                                           {"MouseDown", "VemoGrid mouse event"},
                                           {"Click", "VemoGrid Click"},
                                           {"Scroll", "VemoGrid Scroll"}})
            QTest::newRow(event) << QString::fromLatin1(event) << QString::fromLatin1(where);
    }

    void throwingHandler()
    {
        QFETCH(QString, event);
        QFETCH(QString, where);
        const auto grid = VemoTest::shownGrid();
        QVERIFY(grid);
        VemoGrid& g = *grid;
        g.setCols(4);
        g.setRows(60);
        FlexGrid& flex = *g.hostedGrid();
        const int topRow = flex.TopRow();
        // The handler tries a row that is not there, as a faulty host handler might.
        bool refusing = true;
        const auto refuse = [&] {
            if (refusing)
                g.setRow(99);
        };
        connect(&g, &VemoGrid::KeyDown, &g,
                [&](short&, short&) { event == u"KeyDown" ? refuse() : void(); });
        connect(&g, &VemoGrid::EnterCell, &g,
                [&](int&, int&, QString&) { event == u"EnterCell" ? refuse() : void(); });
        connect(&g, &VemoGrid::MouseDown, &g,
                [&](short&, short&, float&, float&) { event == u"MouseDown" ? refuse() : void(); });
        connect(&g, &VemoGrid::Click, &g, [&] { event == u"Click" ? refuse() : void(); });
        connect(&g, &VemoGrid::Scroll, &g, [&] { event == u"Scroll" ? refuse() : void(); });
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^%1: error 30009: "_qs.arg(where)));
        if (event.startsWith(u'K') || event.startsWith(u'E')) {
            QTest::keyClick(&flex, Qt::Key_Down);
        } else if (event != u"Scroll") {
            VemoTest::clickCell(g, 3, 2);
        } else {
            const QPointF at(20, 40);
            QWheelEvent wheel(at, flex.viewport()->mapToGlobal(at), {}, QPoint(0, -120),
                              Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(flex.viewport(), &wheel);
            QVERIFY(flex.TopRow() > topRow);
        }
        refusing = false;
        QCOMPARE(flex.RowSel(), flex.Row());
        QVERIFY(flex.Row() >= flex.FixedRows() && flex.Row() < flex.Rows());
        // The grid goes on working: keys navigate, clicks select.
        const int row = flex.Row();
        QTest::keyClick(&flex, Qt::Key_Down);
        QCOMPARE(flex.Row(), row + 1);
        VemoTest::clickCell(g, flex.TopRow() + 2, 3);
        QCOMPARE(flex.Row() * 10 + flex.Col(), (flex.TopRow() + 2) * 10 + 3);
    }

    void directCallsThrow()
    {
        VemoGrid grid;
        QVERIFY_THROWS_EXCEPTION(VemoError, grid.hostedGrid()->setSelectionMode(7));
        // The grid's Row refuses before its leave-cell step: no LeaveCell for a cell not left.
        int leaves = 0;
        connect(&grid, &VemoGrid::LeaveCell, this, [&] { ++leaves; });
        QVERIFY_THROWS_EXCEPTION(VemoError, grid.setRow(99));
        QCOMPARE(leaves, 0);
        grid.setColType(1, eLong);
        QVERIFY_THROWS_EXCEPTION(VemoError, grid.Column(1)->setDecimalLength(3));
    }
};

QTEST_MAIN(tst_ErrorContainment)
#include "tst_errorcontainment.moc"
