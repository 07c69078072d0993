// SPDX-License-Identifier: MIT
// The text-compare folding of the string functions, for callers that fold once and compare many
// times.
#pragma once

#include <QString>

namespace VemoGridLib::vb {

/// `text` as text compare sees it: case-folded and compatibility-decomposed, so "A", "a", "Ａ"
/// and "ａ" all become "a". A folded needle that starts a folded text may still end inside one
/// of the text's characters (the "e" of a folded "é"); `InStr` with `vbTextCompare` decides such
/// a candidate.
QString foldForTextCompare(const QString& text);

} // namespace VemoGridLib::vb
