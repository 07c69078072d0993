// SPDX-License-Identifier: MIT
// Internal seam between the number side of Format (VbFormat.cpp, VbFormatSyntax.cpp) and its
// date side (VbDateFormat.cpp). Not installed; exported only so the tests can check it directly.
#pragma once

#include "vb/VbLocale.h"
#include "common/VemoGridLibExport.h"

#include <QDateTime>
#include <QString>

namespace VemoGridLib::vb::detail {

/// True when the format is a date format: a named date format ("General Date", "Long Date",
/// "Medium Date", "Short Date", "Long Time", "Medium Time", "Short Time", any case) or one
/// whose first section's first typed token is a date token (formatKind() is Date).
VEMOGRIDLIB_EXPORT bool isDateFormat(const QString& format);

/// True when `format` is the name of a date format (date side).
bool isNamedDateFormat(const QString& format);

/// True when a date token starts at `pos`: one of the letters d m y w q h n s in any case, or
/// AM/PM, AMPM, A/P (date side).
bool startsDateToken(const QString& format, qsizetype pos);

/// The date format in the codes of a spreadsheet's number formats (XLSX): named formats and
/// the locale's short and long dates spelt out, minutes as "m" (the spreadsheet reads "m" next to
/// an hour or second as minutes, as the date side does after an hour), literals quoted. Tokens
/// with no spreadsheet code (weekday and week numbers, quarter, day of the year) are left out;
/// "General Date" and the empty format give the locale's short date and long time.
QString spreadsheetDateFormat(const QString& format, VbLocale locale);

/// Formats a date with a date format; named date formats included.
VEMOGRIDLIB_EXPORT QString formatDateTime(const QDateTime& value, const QString& format,
                                          VbLocale locale);

} // namespace VemoGridLib::vb::detail
