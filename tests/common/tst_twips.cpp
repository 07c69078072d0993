// SPDX-License-Identifier: MIT
// Twips to pixels and back: rounding half away from zero, the device's own axis, the screen
// when a device has no dpi.
#include <VemoGridLib/Twips.h>

#include <QGuiApplication>
#include <QImage>
#include <QScreen>
#include <QTest>

#include <limits>

using namespace VemoGridLib;

class TestTwips : public QObject
{
    Q_OBJECT

private slots:
    void conversions_data()
    {
        QTest::addColumn<int>("dpi");
        QTest::addColumn<int>("twips");
        QTest::addColumn<int>("pixels");
        QTest::addColumn<int>("backToTwips");
        QTest::newRow("96: 8 rounds up") << 96 << 8 << 1 << 15;
        QTest::newRow("96: -8 mirrors") << 96 << -8 << -1 << -15;
        QTest::newRow("96: int max")
            << 96 << std::numeric_limits<int>::max() << 143165576 << 2147483640;
        QTest::newRow("144: half rounds away from zero") << 144 << 5 << 1 << 10;
        QTest::newRow("144: -15") << 144 << -15 << -2 << -20;
        QTest::newRow("110: twips per pixel not whole") << 110 << 79 << 6 << 79;
    }
    void conversions()
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
        QCOMPARE(twipsPerPixelX(&wide), 1440.0 / dpi);
        QCOMPARE(twipsPerPixelY(&tall), 1440.0 / dpi);
    }

    void withoutDpiTheScreenCounts()
    {
        const QImage null; // reports 0 dpi
        const QScreen* screen = QGuiApplication::primaryScreen();
        QCOMPARE(twipsToPixelsX(1440, nullptr), qRound(screen->logicalDotsPerInchX()));
        QCOMPARE(pixelsToTwipsY(qRound(screen->logicalDotsPerInchY()), &null), 1440);
    }
};

QTEST_MAIN(TestTwips)
#include "tst_twips.moc"
