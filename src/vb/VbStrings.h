// SPDX-License-Identifier: MIT
// VB runtime subset: string functions (Trim, LTrim, RTrim, InStr).
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

#include <QString>

namespace VemoGridLib::vb {

/// The compare argument of `InStr` and the comparison mode of a combo box's list.
enum CompareMethod : int {
    vbBinaryCompare = 0,
    vbTextCompare = 1,
};

/// `Trim`: removes U+0020 spaces only, at both ends; tabs, line breaks and U+00A0 stay.
VEMOGRIDLIB_EXPORT QString Trim(const QString& text);
/// `Trim` as a view into `text`, for callers that read a million cells and copy none.
VEMOGRIDLIB_EXPORT QStringView TrimmedView(QStringView text);
/// `LTrim`: removes leading U+0020 spaces only.
VEMOGRIDLIB_EXPORT QString LTrim(const QString& text);
/// `RTrim`: removes trailing U+0020 spaces only.
VEMOGRIDLIB_EXPORT QString RTrim(const QString& text);

/// `InStr(start, s1, s2, compare)`: 1-based position of s2 in s1 at or after `start`, or 0.
/// s1 empty gives 0, s2 empty gives `start`, start past the end gives 0; start < 1 throws
/// VemoError 5. Text compare ignores case and full/half width.
VEMOGRIDLIB_EXPORT int InStr(int start, const QString& s1, const QString& s2,
                             CompareMethod compare = vbBinaryCompare);
/// `InStr(s1, s2)`: binary compare from position 1.
VEMOGRIDLIB_EXPORT int InStr(const QString& s1, const QString& s2);

} // namespace VemoGridLib::vb
