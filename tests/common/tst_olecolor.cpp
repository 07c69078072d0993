// SPDX-License-Identifier: MIT
// OLE colours: RGB byte order, RGB()'s range, system colours read from a palette, invalid values.
#include <VemoGridLib/OleColor.h>

#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;

class TestOleColor : public QObject
{
    Q_OBJECT

private slots:
    void toAndFromQColor_data()
    {
        QTest::addColumn<OleColor>("ole");
        QTest::addColumn<QColor>("color");
        QTest::newRow("&HCEB2AD") << OleColor(0xCEB2AD) << QColor(0xAD, 0xB2, 0xCE);
        QTest::newRow("RGB() caps at 255") << rgb(300, 256, 1000) << QColor(Qt::white);
        QTest::newRow("alpha dropped") << OleColor(255) << QColor(255, 0, 0, 128);
        QTest::newRow("hsv converted") << OleColor(0xFF0000) << QColor::fromHsv(240, 255, 255);
    }
    void toAndFromQColor()
    {
        QFETCH(OleColor, ole);
        QFETCH(QColor, color);
        QCOMPARE(fromQColor(color), ole);
        QCOMPARE(toQColor(ole).rgb(), color.toRgb().rgb());
    }

    // Each (group, role) of the palette has its own colour, so a wrong slot shows.
    void systemColors_data()
    {
        QTest::addColumn<QPalette::ColorGroup>("current");
        QTest::addColumn<OleColor>("ole");
        QTest::addColumn<QPalette::ColorGroup>("group");
        QTest::addColumn<QPalette::ColorRole>("role");
        const auto active = QPalette::Active, inactive = QPalette::Inactive;
        QTest::newRow("window background is Base")
            << active << vbWindowBackground << active << QPalette::Base;
        QTest::newRow("follows the current group")
            << inactive << vbButtonFace << inactive << QPalette::Button;
        QTest::newRow("gray text is always disabled")
            << inactive << vbGrayText << QPalette::Disabled << QPalette::Text;
        QTest::newRow("inactive title is always inactive")
            << QPalette::Disabled << vbInactiveTitleBar << inactive << QPalette::Highlight;
    }
    void systemColors()
    {
        QFETCH(QPalette::ColorGroup, current);
        QFETCH(OleColor, ole);
        QFETCH(QPalette::ColorGroup, group);
        QFETCH(QPalette::ColorRole, role);
        QPalette palette;
        for (int g = QPalette::Active; g <= QPalette::Inactive; ++g)
            for (int r = 0; r < QPalette::NColorRoles; ++r)
                palette.setColor(QPalette::ColorGroup(g), QPalette::ColorRole(r),
                                 QColor(10 + 10 * r, 50 + 60 * g, 200));
        palette.setCurrentColorGroup(current);
        QVERIFY(isSystemColor(ole));
        QCOMPARE(toQColor(ole, palette), palette.color(group, role));
    }

    // Unused or out-of-table system indexes and palette forms are no colour; RGB() refuses -1.
    void invalidValues()
    {
        for (const OleColor ole : {0x80000019u, 0x8000001Fu, 0x01000005u, 0x40000000u})
            QVERIFY(!toQColor(ole).isValid());
        QCOMPARE(VemoTest::errorNumberOf([] { rgb(0, -1, 0); }), VemoError::InvalidProcedureCall);
    }
};

QTEST_MAIN(TestOleColor)
#include "tst_olecolor.moc"
