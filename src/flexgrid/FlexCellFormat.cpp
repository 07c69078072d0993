// SPDX-License-Identifier: MIT
#include "flexgrid/FlexCellFormat_p.h"

#include <QHashFunctions>

namespace VemoGridLib {

bool FlexCellFormat::isDefault() const
{
    return *this == FlexCellFormat();
}

bool operator==(const FlexCellFormat& a, const FlexCellFormat& b)
{
    return a.backColor == b.backColor && a.foreColor == b.foreColor && a.alignment == b.alignment &&
           a.pictureAlignment == b.pictureAlignment && a.textStyle == b.textStyle &&
           a.bold == b.bold && a.italic == b.italic && a.underline == b.underline &&
           a.fontSize == b.fontSize && a.fontWidth == b.fontWidth && a.fontName == b.fontName &&
           a.picture.cacheKey() == b.picture.cacheKey();
}

size_t qHash(const FlexCellFormat& f, size_t seed) noexcept
{
    QtPrivate::QHashCombine combine;
    seed = combine(seed, f.backColor);
    seed = combine(seed, f.foreColor);
    seed = combine(seed, (f.alignment & 0xff) | (f.pictureAlignment & 0xff) << 8 |
                             (f.textStyle & 0xff) << 16 | (f.bold & 0x3) << 24 |
                             (f.italic & 0x3) << 26 | (f.underline & 0x3) << 28);
    seed = combine(seed, f.fontSize);
    seed = combine(seed, f.fontWidth);
    seed = combine(seed, f.fontName);
    return combine(seed, f.picture.cacheKey());
}

} // namespace VemoGridLib
