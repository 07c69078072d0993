// SPDX-License-Identifier: MIT
// Internal: the syntax all of Format's grammars (number, date, text) share: sections,
// quoted and escaped literals, named number formats, and which grammar a format belongs to.
// Not installed.
#pragma once

#include "vb/VbLocale.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace VemoGridLib::vb::detail {

/// A literal of a format: a "quoted" run (an unclosed quote runs to the end) or a \x escape.
struct FormatLiteral
{
    QString text;  ///< what it prints
    qsizetype end; ///< the index just past it
};

/// The literal that starts at `pos`, or nothing when `pos` holds no '"' or '\'.
std::optional<FormatLiteral> literalAt(const QString& format, qsizetype pos);

/// The ';'-separated sections of a format; a ';' inside a literal does not split.
QStringList formatSections(const QString& format);

/// The user-defined format a named number format stands for ("Standard" is "#,##0.00",
/// "General Number" the empty format), or nothing when `format` names none.
std::optional<QString> namedNumberFormat(const QString& format, VbLocale locale);

/// A literal as a spreadsheet's number format (XLSX) writes it: quoted, a quote escaped.
QString spreadsheetLiteral(const QString& text);

/// A number format in a spreadsheet's codes: a named format spelt out, the digit, separator,
/// percent, exponent and sign codes as they are (the two languages share them), every other
/// character a quoted literal. "General Number" and the empty format give the empty format.
QString spreadsheetNumberFormat(const QString& format, VbLocale locale);

/// The grammar of a format: a named number or date format says it by its name; otherwise the
/// first typed token of the first section decides, outside literals: a digit placeholder or
/// point (Number), a date token (Date), a text token @ & < > ! (Text), or none (Literal).
enum class FormatKind {
    Literal,
    Number,
    Date,
    Text,
};
FormatKind formatKind(const QString& format);

} // namespace VemoGridLib::vb::detail
