// SPDX-License-Identifier: MIT
// VB runtime subset: number conversions (CStr, IsNumeric/CDbl, Val, Round, CLng/CInt, CBool).
#pragma once

#include <VemoGridLib/VbLocale.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QString>

#include <optional>

namespace VemoGridLib::vb {

/// The general number form of a Double (`CStr`, `Format(x)`): at most 15 significant digits,
/// trailing zeros dropped, "E+15" notation from 1e15 up and for very small magnitudes.
VEMOGRIDLIB_EXPORT QString CStr(double value);

/// True when `CDbl(text)` would succeed: the locale number scanner (surrounding white,
/// leading or trailing sign, parentheses, thousands separators, one point, exponent, currency
/// symbol, &H/&O), the whole text consumed.
VEMOGRIDLIB_EXPORT bool IsNumeric(const QString& text, VbLocale locale = userLocale());

/// `CDbl`: the value read by the locale number scanner; throws VemoError 13 (Type mismatch)
/// when the text is not numeric, 6 (Overflow) beyond the Double range.
VEMOGRIDLIB_EXPORT double CDbl(const QString& text, VbLocale locale = userLocale());

/// `IsNumeric` and `CDbl` in one step, without an exception: the value, or none where `CDbl`
/// would throw. Plain decimals are read by `ReadPlainDecimal`, without the full scanner; for the
/// callers that read many cells (sorting, export, auto-calculation).
VEMOGRIDLIB_EXPORT std::optional<double> NumericValue(QStringView text,
                                                      VbLocale locale = userLocale());

/// The value `CDbl` reads from a plain decimal — scanner white around, one leading sign, digits
/// with thousands separators after the first digit, one point, fraction digits — without the
/// full scanner, for the callers that read a million cells. False for any other text, which
/// may still be numeric (an exponent, a currency symbol, parentheses): ask `CDbl` then.
VEMOGRIDLIB_EXPORT bool ReadPlainDecimal(QStringView text, double& value);

/// `Val`: blanks, tabs and line feeds removed anywhere, then the longest number at the start
/// (sign, digits, one '.', exponent, &H/&O prefixes); nothing read gives 0. Locale-independent.
/// Throws VemoError 13 for a '%' suffix after a fraction ("50.5%").
VEMOGRIDLIB_EXPORT double Val(const QString& text);

/// `Round(x, n)`: half to even on the binary product x·10ⁿ. Throws VemoError 5 for n < 0.
VEMOGRIDLIB_EXPORT double Round(double value, int decimals = 0);

/// `CLng`: round half to even, then throw VemoError 6 (Overflow) outside the Long range.
VEMOGRIDLIB_EXPORT qint32 CLng(double value);
/// `CLng` of a text: scanned as by CDbl (error 13 when not numeric), then as CLng(double).
VEMOGRIDLIB_EXPORT qint32 CLng(const QString& text, VbLocale locale = userLocale());
/// `CInt`: as CLng with the range −32768..32767.
VEMOGRIDLIB_EXPORT qint16 CInt(double value);

/// `CBool` of a text: "True"/"False" in any case, "#TRUE#"/"#FALSE#", numeric text ≠ 0;
/// anything else throws VemoError 13.
VEMOGRIDLIB_EXPORT bool CBool(const QString& text, VbLocale locale = userLocale());

} // namespace VemoGridLib::vb
