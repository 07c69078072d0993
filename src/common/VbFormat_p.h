// Internal seam between the number side of Format (VbFormat.cpp) and its date side
// (VbDateFormat.cpp). Not installed; exported only so the tests can check it directly.
#pragma once

#include "common/VbLocale.h"
#include "common/VemoGridLibExport.h"

#include <QDateTime>
#include <QString>

namespace VemoGridLib::vb::detail {

/// True when the format (all its sections) is a date format: a named date format ("General
/// Date", "Long Date", "Medium Date", "Short Date", "Long Time", "Medium Time", "Short Time") or
/// a format whose first section holds a date token (d, m, y, h, n, s, w, q, AM/PM outside quotes
/// and escapes).
VEMOGRIDLIB_EXPORT bool isDateFormat(const QString& format);

/// Formats a date with a date format (§11); named date formats included.
VEMOGRIDLIB_EXPORT QString formatDateTime(const QDateTime& value, const QString& format,
                                          VbLocale locale);

} // namespace VemoGridLib::vb::detail
