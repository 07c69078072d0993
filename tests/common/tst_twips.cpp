// Twips ↔ pixels at pinned dpi: rounding, sign symmetry, round trips, the device fallbacks.
#include <VemoGridLib/Twips.h>

#include <QGuiApplication>
#include <QImage>
#include <QScreen>
#include <QTest>

#include <limits>

using namespace VemoGridLib;

namespace {

/// A paint device whose logical dpi is `dpiX` × `dpiY` (QImage stores dots per metre).
QImage deviceWithDpi(int dpiX, int dpiY)
{
    QImage image(1, 1, QImage::Format_RGB32);
    image.setDotsPerMeterX(qRound(dpiX / 0.0254));
    image.setDotsPerMeterY(qRound(dpiY / 0.0254));
    return image;
}

} // namespace

class TestTwips : public QObject
{
    Q_OBJECT

private slots:
    void pinnedDevices_data()
    {
        QTest::addColumn<int>("dpi");
        for (const int dpi : {72, 96, 110, 120, 144, 192})
            QTest::addRow("%d dpi", dpi) << dpi;
    }
    void pinnedDevices()
    {
        QFETCH(int, dpi);
        const QImage device = deviceWithDpi(dpi, dpi);
        QCOMPARE(device.logicalDpiX(), dpi);
        QCOMPARE(device.logicalDpiY(), dpi);
    }

    void twipsToPixels_data()
    {
        QTest::addColumn<int>("dpi");
        QTest::addColumn<int>("twips");
        QTest::addColumn<int>("pixels");
        QTest::newRow("96: zero") << 96 << 0 << 0;
        QTest::newRow("96: one pixel") << 96 << 15 << 1;
        QTest::newRow("96: an inch") << 96 << 1440 << 96;
        QTest::newRow("96: 7 rounds down") << 96 << 7 << 0;
        QTest::newRow("96: 8 rounds up") << 96 << 8 << 1;
        QTest::newRow("96: 22 rounds down") << 96 << 22 << 1;
        QTest::newRow("96: 23 rounds up") << 96 << 23 << 2;
        QTest::newRow("96: default column 960") << 96 << 960 << 64;
        QTest::newRow("96: -1 marker") << 96 << -1 << 0;
        QTest::newRow("96: -7") << 96 << -7 << 0;
        QTest::newRow("96: -8") << 96 << -8 << -1;
        QTest::newRow("96: -15") << 96 << -15 << -1;
        QTest::newRow("96: -23") << 96 << -23 << -2;
        QTest::newRow("96: int max") << 96 << std::numeric_limits<int>::max() << 143165576;
        QTest::newRow("96: int min") << 96 << std::numeric_limits<int>::min() << -143165577;
        QTest::newRow("120: one pixel") << 120 << 12 << 1;
        QTest::newRow("120: half rounds away from zero") << 120 << 6 << 1;
        QTest::newRow("120: 5") << 120 << 5 << 0;
        QTest::newRow("120: -6") << 120 << -6 << -1;
        QTest::newRow("120: an inch") << 120 << 1440 << 120;
        QTest::newRow("120: 15 twips") << 120 << 15 << 1;
        QTest::newRow("144: one pixel") << 144 << 10 << 1;
        QTest::newRow("144: 4") << 144 << 4 << 0;
        QTest::newRow("144: half") << 144 << 5 << 1;
        QTest::newRow("144: 15 twips") << 144 << 15 << 2;
        QTest::newRow("144: -15 twips") << 144 << -15 << -2;
        QTest::newRow("144: an inch") << 144 << 1440 << 144;
    }
    void twipsToPixels()
    {
        QFETCH(int, dpi);
        QFETCH(int, twips);
        QFETCH(int, pixels);
        // The other axis has another dpi, so reading the wrong one shows.
        const QImage wide = deviceWithDpi(dpi, 72);
        const QImage tall = deviceWithDpi(72, dpi);
        QCOMPARE(twipsToPixelsX(twips, &wide), pixels);
        QCOMPARE(twipsToPixelsY(twips, &tall), pixels);
        QCOMPARE(twipsToPixelsAtDpi(twips, dpi), pixels);
    }

    void pixelsToTwips_data()
    {
        QTest::addColumn<int>("dpi");
        QTest::addColumn<int>("pixels");
        QTest::addColumn<int>("twips");
        QTest::newRow("96: zero") << 96 << 0 << 0;
        QTest::newRow("96: one") << 96 << 1 << 15;
        QTest::newRow("96: -1") << 96 << -1 << -15;
        QTest::newRow("96: 100") << 96 << 100 << 1500;
        QTest::newRow("120: one") << 120 << 1 << 12;
        QTest::newRow("120: -3") << 120 << -3 << -36;
        QTest::newRow("144: one") << 144 << 1 << 10;
        QTest::newRow("72: one") << 72 << 1 << 20;
        QTest::newRow("110: one rounds down") << 110 << 1 << 13;
        QTest::newRow("110: 3 rounds down") << 110 << 3 << 39;
        QTest::newRow("110: 6 rounds up") << 110 << 6 << 79;
        QTest::newRow("110: -6 rounds away") << 110 << -6 << -79;
        QTest::newRow("96: saturates")
            << 96 << std::numeric_limits<int>::max() << std::numeric_limits<int>::max();
        QTest::newRow("96: saturates below")
            << 96 << std::numeric_limits<int>::min() << std::numeric_limits<int>::min();
    }
    void pixelsToTwips()
    {
        QFETCH(int, dpi);
        QFETCH(int, pixels);
        QFETCH(int, twips);
        const QImage wide = deviceWithDpi(dpi, 72);
        const QImage tall = deviceWithDpi(72, dpi);
        QCOMPARE(pixelsToTwipsX(pixels, &wide), twips);
        QCOMPARE(pixelsToTwipsY(pixels, &tall), twips);
        QCOMPARE(pixelsToTwipsAtDpi(pixels, dpi), twips);
    }

    void roundTrips_data()
    {
        QTest::addColumn<int>("dpi");
        for (const int dpi : {72, 96, 110, 120, 144, 192})
            QTest::addRow("%d dpi", dpi) << dpi;
    }
    void roundTrips()
    {
        QFETCH(int, dpi);
        const QImage device = deviceWithDpi(dpi, dpi);
        for (int pixels = -2000; pixels <= 2000; ++pixels) {
            QCOMPARE(twipsToPixelsX(pixelsToTwipsX(pixels, &device), &device), pixels);
            QCOMPARE(twipsToPixelsY(pixelsToTwipsY(pixels, &device), &device), pixels);
            if (1440 % dpi == 0)
                QCOMPARE(pixelsToTwipsX(pixels, &device), pixels * (1440 / dpi));
        }
    }

    void twipsPerPixel_data()
    {
        QTest::addColumn<int>("dpiX");
        QTest::addColumn<int>("dpiY");
        QTest::addColumn<double>("perPixelX");
        QTest::addColumn<double>("perPixelY");
        QTest::newRow("96 x 96") << 96 << 96 << 15.0 << 15.0;
        QTest::newRow("120 x 144") << 120 << 144 << 12.0 << 10.0;
        QTest::newRow("110 x 72") << 110 << 72 << 1440.0 / 110 << 20.0;
    }
    void twipsPerPixel()
    {
        QFETCH(int, dpiX);
        QFETCH(int, dpiY);
        QFETCH(double, perPixelX);
        QFETCH(double, perPixelY);
        const QImage device = deviceWithDpi(dpiX, dpiY);
        QCOMPARE(twipsPerPixelX(&device), perPixelX);
        QCOMPARE(twipsPerPixelY(&device), perPixelY);
    }

    void withoutDpiTheScreenCounts_data()
    {
        QTest::addColumn<bool>("nullImage");
        QTest::newRow("no device") << false;
        QTest::newRow("null image reports 0 dpi") << true;
    }
    void withoutDpiTheScreenCounts()
    {
        QFETCH(bool, nullImage);
        const QImage null;
        const QPaintDevice* device = nullImage ? &null : nullptr;
        const QScreen* screen = QGuiApplication::primaryScreen();
        QVERIFY(screen);
        const int dpiX = qRound(screen->logicalDotsPerInchX());
        const int dpiY = qRound(screen->logicalDotsPerInchY());
        QCOMPARE(twipsToPixelsX(1440, device), dpiX);
        QCOMPARE(twipsToPixelsY(2880, device), 2 * dpiY);
        QCOMPARE(pixelsToTwipsX(dpiX, device), 1440);
        QCOMPARE(pixelsToTwipsY(dpiY, device), 1440);
        QCOMPARE(twipsPerPixelX(device), 1440.0 / dpiX);
        QCOMPARE(twipsPerPixelY(device), 1440.0 / dpiY);
    }
};

QTEST_MAIN(TestTwips)
#include "tst_twips.moc"
