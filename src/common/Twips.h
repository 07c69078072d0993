// SPDX-License-Identifier: MIT
// Twips (1/1440 inch), VB's unit of positions and sizes, and device pixels.
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

class QPaintDevice;

namespace VemoGridLib {

// Every conversion uses the logical dpi of `device` (QPaintDevice::logicalDpiX/Y) when one is
// given and it reports a dpi; otherwise the primary screen's logical dpi; without a screen,
// 96. So at 96 dpi a pixel is 15 twips, at 120 dpi 12, at 144 dpi 10.

/// Horizontal twips → pixels (column widths, ColPos, CellLeft/CellWidth of the hosted grid,
/// editor placement over a VemoGrid cell): twips × dpi / 1440 rounded to the nearest pixel,
/// halves away from zero, so the result is sign-symmetric (−7 twips → 0 px like 7 at 96 dpi).
/// Callers handle markers such as a column width of −1 before converting.
VEMOGRIDLIB_EXPORT int twipsToPixelsX(int twips, const QPaintDevice* device = nullptr);
/// Vertical twips → pixels (row heights, RowPos, CellTop/CellHeight), rounded as twipsToPixelsX.
VEMOGRIDLIB_EXPORT int twipsToPixelsY(int twips, const QPaintDevice* device = nullptr);

/// Horizontal pixels → twips (reading back a width, placing a date editor's drop-down):
/// pixels × 1440 / dpi rounded as twipsToPixelsX. At every dpi that divides 1440 (96, 120, 144)
/// this is an exact multiple, and at any dpi up to 1440 twipsToPixelsX undoes it. A result
/// beyond the int range saturates.
VEMOGRIDLIB_EXPORT int pixelsToTwipsX(int pixels, const QPaintDevice* device = nullptr);
/// Vertical pixels → twips, as pixelsToTwipsX.
VEMOGRIDLIB_EXPORT int pixelsToTwipsY(int pixels, const QPaintDevice* device = nullptr);

/// Twips → pixels at a known dpi, rounded as twipsToPixelsX: for callers that convert often and
/// keep their device's dpi (FlexGrid's row and column geometry).
VEMOGRIDLIB_EXPORT int twipsToPixelsAtDpi(int twips, int dpi);
/// Pixels → twips at a known dpi (> 0), rounded as pixelsToTwipsX.
VEMOGRIDLIB_EXPORT int pixelsToTwipsAtDpi(int pixels, int dpi);

/// VB's `TwipsPerPixelX`: 1440 / dpi, unrounded, for the fractional twips of mouse events
/// (`MouseDown` X is a Single in twips) and other real-valued conversions.
VEMOGRIDLIB_EXPORT double twipsPerPixelX(const QPaintDevice* device = nullptr);
/// VB's `TwipsPerPixelY`: 1440 / vertical dpi, unrounded.
VEMOGRIDLIB_EXPORT double twipsPerPixelY(const QPaintDevice* device = nullptr);

} // namespace VemoGridLib
