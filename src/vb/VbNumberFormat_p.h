// SPDX-License-Identifier: MIT
// Internal: the decimal digit form shared by CStr and Format, and the number side of Format
// with user-defined number formats. Not installed.
#pragma once

#include <QString>

#include <string>

namespace VemoGridLib::vb::detail {

/// A non-negative number as decimal digits: value = 0.d1d2d3... × 10^pointPos.
/// `digits` has no leading or trailing zeros; it is empty for zero.
struct DecimalDigits
{
    std::string digits;
    int pointPos = 0;

    bool isZero() const { return digits.empty(); }
    /// The digits before the decimal point, without leading zeros ("" below 1).
    std::string integerDigits() const;
    /// The digits after the decimal point, leading zeros included, no trailing zeros.
    std::string fractionDigits() const;
    /// Keeps the first `keep` significant digits, rounding half away from zero.
    void roundToSignificant(int keep);
    /// Rounds half away from zero to `decimals` digits after the point.
    void roundToDecimals(int decimals) { roundToSignificant(pointPos + decimals); }
};

/// The 15-significant-digit decimal form of |value|: VB's numbers are read and printed
/// through it, so binary noise beyond the 15th digit never shows.
DecimalDigits decimalDigits(double value);

/// Formats a number with a user-defined number format: up to four sections, 0 # . , %
/// E+ E- e+ e-, literals; rounding half away from zero on the 15-digit decimal form.
QString formatNumber(double value, const QString& format);

} // namespace VemoGridLib::vb::detail
