// SPDX-License-Identifier: MIT
// The look one cell may carry on its own: colours, font, alignment, picture, text style.
#pragma once

#include "common/OleColor.h"
#include "common/VemoGridLibExport.h"

#include <QPixmap>
#include <QString>

#include <cstdint>

namespace VemoGridLib {

/// The Cell* formatting of one FlexGrid cell. Every member has an "unset" value that
/// lets the grid-wide or column setting show through; a cell with every member unset is the
/// default look. Most cells share a few looks, so FlexCellStore keeps each distinct look once.
struct VEMOGRIDLIB_EXPORT FlexCellFormat
{
    /// `CellBackColor`; 0 = the grid's (or the fixed cells') background.
    OleColor backColor = 0;
    /// `CellForeColor`; 0 = the grid's (or the fixed cells') text colour.
    OleColor foreColor = 0;
    /// `CellAlignment` 0–9; −1 = the column's alignment.
    std::int8_t alignment = -1;
    /// `CellPictureAlignment` 0–8.
    std::int8_t pictureAlignment = 0;
    /// `CellTextStyle` 0–4; −1 = `TextStyle` / `TextStyleFixed`.
    std::int8_t textStyle = -1;
    /// `CellFontBold`, `CellFontItalic`, `CellFontUnderline`: −1 = the grid font's, else 0 / 1.
    std::int8_t bold = -1;
    std::int8_t italic = -1;
    std::int8_t underline = -1;
    /// `CellFontSize` in points; 0 = the grid font's.
    float fontSize = 0;
    /// `CellFontWidth` in points; 0 = normal width.
    float fontWidth = 0;
    /// `CellFontName`; empty = the grid font's.
    QString fontName;
    /// `CellPicture`; null = none.
    QPixmap picture;

    /// True when every member is unset (the look of a never-formatted cell).
    bool isDefault() const;
};

/// Equal when every member is; pictures are the same when their `QPixmap::cacheKey()` is.
VEMOGRIDLIB_EXPORT bool operator==(const FlexCellFormat& a, const FlexCellFormat& b);
inline bool operator!=(const FlexCellFormat& a, const FlexCellFormat& b)
{
    return !(a == b);
}

/// A hash over every member; pictures are compared and hashed by `QPixmap::cacheKey()`.
VEMOGRIDLIB_EXPORT size_t qHash(const FlexCellFormat& format, size_t seed = 0) noexcept;

} // namespace VemoGridLib
