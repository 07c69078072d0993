// OLE colour values: RGB byte order, the system colour table, invalid values, RGB().
#include <VemoGridLib/OleColor.h>

#include <QTest>

using namespace VemoGridLib;

class TestOleColor : public QObject
{
    Q_OBJECT

private:
    /// A palette in which every (group, role) pair has its own colour, so a lookup in the wrong
    /// group or role shows.
    static QPalette distinctPalette()
    {
        QPalette palette;
        for (int group = QPalette::Active; group <= QPalette::Inactive; ++group)
            for (int role = 0; role < QPalette::NColorRoles; ++role)
                palette.setColor(QPalette::ColorGroup(group), QPalette::ColorRole(role),
                                 QColor(10 + 10 * role, 50 + 60 * group, 200));
        palette.setCurrentColorGroup(QPalette::Active);
        return palette;
    }

private slots:
    void rgbValues_data()
    {
        QTest::addColumn<OleColor>("ole");
        QTest::addColumn<QColor>("color");
        QTest::newRow("255 is red") << OleColor(255) << QColor(255, 0, 0);
        QTest::newRow("0xFF00 is green") << OleColor(0xFF00) << QColor(0, 255, 0);
        QTest::newRow("0xFF0000 is blue") << OleColor(0xFF0000) << QColor(0, 0, 255);
        QTest::newRow("black") << OleColor(0) << QColor(0, 0, 0);
        QTest::newRow("white") << OleColor(0xFFFFFF) << QColor(255, 255, 255);
        QTest::newRow("BackColorSel &HCEB2AD") << OleColor(0xCEB2AD) << QColor(0xAD, 0xB2, 0xCE);
        QTest::newRow("GridColorFixed &HC0C0C0") << OleColor(0xC0C0C0) << QColor(192, 192, 192);
        QTest::newRow("0x123456") << OleColor(0x123456) << QColor(0x56, 0x34, 0x12);
    }
    void rgbValues()
    {
        QFETCH(OleColor, ole);
        QFETCH(QColor, color);
        QCOMPARE(toQColor(ole, distinctPalette()), color);
        QCOMPARE(fromQColor(color), ole);
        QVERIFY(!isSystemColor(ole));
    }

    void fromQColorDropsAlphaAndConverts_data()
    {
        QTest::addColumn<QColor>("color");
        QTest::addColumn<OleColor>("ole");
        QTest::newRow("half transparent red") << QColor(255, 0, 0, 128) << OleColor(255);
        QTest::newRow("transparent") << QColor(Qt::transparent) << OleColor(0);
        QTest::newRow("hsv blue") << QColor::fromHsv(240, 255, 255) << OleColor(0xFF0000);
        QTest::newRow("invalid") << QColor() << OleColor(0);
    }
    void fromQColorDropsAlphaAndConverts()
    {
        QFETCH(QColor, color);
        QFETCH(OleColor, ole);
        QCOMPARE(fromQColor(color), ole);
    }

    void vbRgb_data()
    {
        QTest::addColumn<int>("red");
        QTest::addColumn<int>("green");
        QTest::addColumn<int>("blue");
        QTest::addColumn<OleColor>("ole");
        QTest::newRow("RGB(255,0,0)") << 255 << 0 << 0 << OleColor(255);
        QTest::newRow("RGB(0,0,255)") << 0 << 0 << 255 << OleColor(0xFF0000);
        QTest::newRow("RGB(173,178,206)") << 173 << 178 << 206 << OleColor(0xCEB2AD);
        QTest::newRow("above 255 counts as 255") << 300 << 256 << 1000 << OleColor(0xFFFFFF);
    }
    void vbRgb()
    {
        QFETCH(int, red);
        QFETCH(int, green);
        QFETCH(int, blue);
        QFETCH(OleColor, ole);
        QCOMPARE(rgb(red, green, blue), ole);
        QCOMPARE(toQColor(rgb(red, green, blue)),
                 QColor(std::min(red, 255), std::min(green, 255), std::min(blue, 255)));
    }

    void vbRgbNegativeIsError5_data()
    {
        QTest::addColumn<int>("red");
        QTest::addColumn<int>("green");
        QTest::addColumn<int>("blue");
        QTest::newRow("red") << -1 << 0 << 0;
        QTest::newRow("green") << 0 << -1 << 0;
        QTest::newRow("blue") << 0 << 0 << -256;
    }
    void vbRgbNegativeIsError5()
    {
        QFETCH(int, red);
        QFETCH(int, green);
        QFETCH(int, blue);
        try {
            rgb(red, green, blue);
            QFAIL("no error raised");
        } catch (const VemoError& error) {
            QCOMPARE(error.number(), qint32(VemoError::InvalidProcedureCall));
        }
    }

    void systemColors_data()
    {
        QTest::addColumn<OleColor>("ole");
        QTest::addColumn<QPalette::ColorGroup>("group");
        QTest::addColumn<QPalette::ColorRole>("role");
        const auto active = QPalette::Active;
        const auto inactive = QPalette::Inactive;
        QTest::newRow("0 scroll bars") << vbScrollBars << active << QPalette::Midlight;
        QTest::newRow("1 desktop") << vbDesktop << active << QPalette::Dark;
        QTest::newRow("2 active title") << vbActiveTitleBar << active << QPalette::Highlight;
        QTest::newRow("3 inactive title") << vbInactiveTitleBar << inactive << QPalette::Highlight;
        QTest::newRow("4 menu") << vbMenuBar << active << QPalette::Window;
        QTest::newRow("5 window background") << vbWindowBackground << active << QPalette::Base;
        QTest::newRow("6 window frame") << vbWindowFrame << active << QPalette::Shadow;
        QTest::newRow("7 menu text (ForeColorFixed)")
            << vbMenuText << active << QPalette::WindowText;
        QTest::newRow("8 window text (ForeColor)") << vbWindowText << active << QPalette::Text;
        QTest::newRow("9 title bar text") << vbTitleBarText << active << QPalette::HighlightedText;
        QTest::newRow("10 active border") << vbActiveBorder << active << QPalette::Button;
        QTest::newRow("11 inactive border") << vbInactiveBorder << inactive << QPalette::Button;
        QTest::newRow("12 application workspace")
            << vbApplicationWorkspace << active << QPalette::Dark;
        QTest::newRow("13 highlight (BackColorSel)")
            << vbHighlight << active << QPalette::Highlight;
        QTest::newRow("14 highlight text (ForeColorSel)")
            << vbHighlightText << active << QPalette::HighlightedText;
        QTest::newRow("15 button face (BackColorFixed)")
            << vbButtonFace << active << QPalette::Button;
        QTest::newRow("16 button shadow") << vbButtonShadow << active << QPalette::Dark;
        QTest::newRow("17 gray text") << vbGrayText << QPalette::Disabled << QPalette::Text;
        QTest::newRow("18 button text") << vbButtonText << active << QPalette::ButtonText;
        QTest::newRow("19 inactive caption text")
            << vbInactiveCaptionText << inactive << QPalette::HighlightedText;
        QTest::newRow("20 3D highlight") << vb3DHighlight << active << QPalette::Light;
        QTest::newRow("21 3D dark shadow") << vb3DDKShadow << active << QPalette::Shadow;
        QTest::newRow("22 3D light") << vb3DLight << active << QPalette::Midlight;
        QTest::newRow("23 info text") << vbInfoText << active << QPalette::ToolTipText;
        QTest::newRow("24 info background") << vbInfoBackground << active << QPalette::ToolTipBase;
        QTest::newRow("26 hot light") << vbHotLight << active << QPalette::Link;
        QTest::newRow("27 gradient active")
            << vbGradientActiveCaption << active << QPalette::Highlight;
        QTest::newRow("28 gradient inactive")
            << vbGradientInactiveCaption << inactive << QPalette::Highlight;
        QTest::newRow("29 menu highlight") << vbMenuHighlight << active << QPalette::Highlight;
        QTest::newRow("30 flat menu bar") << vbMenuBarFlat << active << QPalette::Window;
    }
    void systemColors()
    {
        QFETCH(OleColor, ole);
        QFETCH(QPalette::ColorGroup, group);
        QFETCH(QPalette::ColorRole, role);
        const QPalette palette = distinctPalette();
        QVERIFY(isSystemColor(ole));
        const QColor color = toQColor(ole, palette);
        QVERIFY(color.isValid());
        QCOMPARE(color, palette.color(group, role));
    }

    void systemColorsFollowTheCurrentGroup_data()
    {
        QTest::addColumn<QPalette::ColorGroup>("current");
        QTest::addColumn<OleColor>("ole");
        QTest::addColumn<QPalette::ColorGroup>("group");
        QTest::addColumn<QPalette::ColorRole>("role");
        QTest::newRow("disabled window text")
            << QPalette::Disabled << vbWindowText << QPalette::Disabled << QPalette::Text;
        QTest::newRow("inactive button face")
            << QPalette::Inactive << vbButtonFace << QPalette::Inactive << QPalette::Button;
        QTest::newRow("gray text stays disabled")
            << QPalette::Inactive << vbGrayText << QPalette::Disabled << QPalette::Text;
        QTest::newRow("inactive title stays inactive") << QPalette::Disabled << vbInactiveTitleBar
                                                       << QPalette::Inactive << QPalette::Highlight;
    }
    void systemColorsFollowTheCurrentGroup()
    {
        QFETCH(QPalette::ColorGroup, current);
        QFETCH(OleColor, ole);
        QFETCH(QPalette::ColorGroup, group);
        QFETCH(QPalette::ColorRole, role);
        QPalette palette = distinctPalette();
        palette.setCurrentColorGroup(current);
        QCOMPARE(toQColor(ole, palette), palette.color(group, role));
    }

    void vbAliases()
    {
        QCOMPARE(vb3DFace, OleColor(0x8000000F));
        QCOMPARE(vb3DShadow, OleColor(0x80000010));
    }

    void invalidValues_data()
    {
        QTest::addColumn<OleColor>("ole");
        QTest::addColumn<bool>("system");
        QTest::newRow("system index 25") << OleColor(0x80000019) << true;
        QTest::newRow("system index 31") << OleColor(0x8000001F) << true;
        QTest::newRow("system index 0x1005") << OleColor(0x80001005) << true;
        QTest::newRow("bit 24 in a system colour") << OleColor(0x81000005) << true;
        QTest::newRow("all bits") << OleColor(0xFFFFFFFF) << true;
        QTest::newRow("palette index form") << OleColor(0x01000005) << false;
        QTest::newRow("palette rgb form") << OleColor(0x020000FF) << false;
        QTest::newRow("bit 30") << OleColor(0x40000000) << false;
    }
    void invalidValues()
    {
        QFETCH(OleColor, ole);
        QFETCH(bool, system);
        QCOMPARE(isSystemColor(ole), system);
        QVERIFY(!toQColor(ole, distinctPalette()).isValid());
    }

    void defaultPaletteIsTheApplications()
    {
        QCOMPARE(toQColor(vbWindowBackground), QGuiApplication::palette().color(QPalette::Base));
        QCOMPARE(toQColor(vbHighlight), QGuiApplication::palette().color(QPalette::Highlight));
    }
};

QTEST_MAIN(TestOleColor)
#include "tst_olecolor.moc"
