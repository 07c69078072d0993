// SPDX-License-Identifier: MIT
// Unit conversions: OLE colours (RGB byte order, RGB()'s range, system colours read from a
// palette, invalid values) and twips to pixels.
#include <VemoGridLib/OleColor.h>
#include <VemoGridLib/Twips.h>

#include "VemoTestSupport.h"

#include <QGuiApplication>
#include <QImage>
#include <QScreen>
#include <QTest>

#include <limits>

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

    // Twips to pixels and back: rounding half away from zero, the device's own axis, the
    // screen when a device has no dpi.
    void twips_data()
    {
        QTest::addColumn<int>("dpi");
        QTest::addColumn<int>("twips");
        QTest::addColumn<int>("pixels");
        QTest::addColumn<int>("backToTwips");
        QTest::newRow("96: 8 rounds up") << 96 << 8 << 1 << 15;
        QTest::newRow("96: int max")
            << 96 << std::numeric_limits<int>::max() << 143165576 << 2147483640;
        QTest::newRow("144: half rounds away from zero") << 144 << 5 << 1 << 10;
        QTest::newRow("144: -15") << 144 << -15 << -2 << -20;
        QTest::newRow("110: twips per pixel not whole") << 110 << 79 << 6 << 79;
    }
    void twips()
    {
        QFETCH(int, dpi);
        QFETCH(int, twips);
        QFETCH(int, pixels);
        // The other axis has another dpi, so reading the wrong one shows.
        QImage wide(1, 1, QImage::Format_RGB32), tall = wide;
        wide.setDotsPerMeterX(qRound(dpi / 0.0254));
        wide.setDotsPerMeterY(qRound(72 / 0.0254));
        tall.setDotsPerMeterX(qRound(72 / 0.0254));
        tall.setDotsPerMeterY(qRound(dpi / 0.0254));
        QTEST(twipsToPixelsX(twips, &wide), "pixels");
        QTEST(twipsToPixelsY(twips, &tall), "pixels");
        QTEST(pixelsToTwipsX(pixels, &wide), "backToTwips");
        QTEST(pixelsToTwipsY(pixels, &tall), "backToTwips");
    }

    void twipsWithoutDpiTheScreenCounts()
    {
        const QImage null; // reports 0 dpi
        const QScreen* screen = QGuiApplication::primaryScreen();
        QCOMPARE(twipsToPixelsX(1440, nullptr), qRound(screen->logicalDotsPerInchX()));
        QCOMPARE(pixelsToTwipsY(qRound(screen->logicalDotsPerInchY()), &null), 1440);
    }
};

QTEST_MAIN(TestOleColor)
#include "tst_olecolor.moc"
