// SPDX-License-Identifier: MIT
#include "common/Twips.h"

#include <QGuiApplication>
#include <QPaintDevice>
#include <QScreen>

#include <algorithm>
#include <limits>

namespace VemoGridLib {
namespace {

constexpr qint64 TwipsPerInch = 1440;
/// The dpi of the reference Windows display, used when nothing better is known.
constexpr int FallbackDpi = 96;

enum class Axis { X, Y };

int logicalDpi(const QPaintDevice* device, Axis axis)
{
    // A null QImage reports 0 dpi; it falls through to the screen like no device at all.
    if (device) {
        const int dpi = axis == Axis::X ? device->logicalDpiX() : device->logicalDpiY();
        if (dpi > 0)
            return dpi;
    }
    // Rounded as QWidget rounds its screen's dpi, so a widget and no device agree.
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        const int dpi =
            qRound(axis == Axis::X ? screen->logicalDotsPerInchX() : screen->logicalDotsPerInchY());
        if (dpi > 0)
            return dpi;
    }
    return FallbackDpi;
}

/// numerator / denominator (denominator > 0) rounded to nearest, halves away from zero, so
/// that negative lengths convert as the mirror image of positive ones; saturated to int.
int roundedQuotient(qint64 numerator, qint64 denominator)
{
    const qint64 half = denominator / 2;
    const qint64 quotient = (numerator >= 0 ? numerator + half : numerator - half) / denominator;
    return int(std::clamp<qint64>(quotient, std::numeric_limits<int>::min(),
                                  std::numeric_limits<int>::max()));
}

int twipsToPixels(int twips, const QPaintDevice* device, Axis axis)
{
    return twipsToPixelsAtDpi(twips, logicalDpi(device, axis));
}

int pixelsToTwips(int pixels, const QPaintDevice* device, Axis axis)
{
    return pixelsToTwipsAtDpi(pixels, logicalDpi(device, axis));
}

} // namespace

int twipsToPixelsAtDpi(int twips, int dpi)
{
    return roundedQuotient(qint64(twips) * dpi, TwipsPerInch);
}

int pixelsToTwipsAtDpi(int pixels, int dpi)
{
    return roundedQuotient(qint64(pixels) * TwipsPerInch, dpi);
}

int twipsToPixelsX(int twips, const QPaintDevice* device)
{
    return twipsToPixels(twips, device, Axis::X);
}

int twipsToPixelsY(int twips, const QPaintDevice* device)
{
    return twipsToPixels(twips, device, Axis::Y);
}

int pixelsToTwipsX(int pixels, const QPaintDevice* device)
{
    return pixelsToTwips(pixels, device, Axis::X);
}

int pixelsToTwipsY(int pixels, const QPaintDevice* device)
{
    return pixelsToTwips(pixels, device, Axis::Y);
}

double twipsPerPixelX(const QPaintDevice* device)
{
    return double(TwipsPerInch) / logicalDpi(device, Axis::X);
}

double twipsPerPixelY(const QPaintDevice* device)
{
    return double(TwipsPerInch) / logicalDpi(device, Axis::Y);
}

} // namespace VemoGridLib
