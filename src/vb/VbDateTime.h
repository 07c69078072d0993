// SPDX-License-Identifier: MIT
// VB runtime subset: date values and date functions.
#pragma once

#include <VemoGridLib/VbLocale.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QDateTime>
#include <QString>

namespace VemoGridLib::vb {

/// A VB Date is carried as a QDateTime in Qt::UTC (a plain wall-clock value, no time zone or
/// daylight saving); every function below reads only the date() and time() of its arguments.

/// The day serial of a date: whole days since 1899-12-30 plus the time as a fraction
/// (1899-12-31 is 1, 1900-01-30 is 31).
VEMOGRIDLIB_EXPORT double DateToSerial(const QDateTime& date);
/// The date of a day serial; the day is the integer part truncated toward zero and the time is
/// |fraction| rounded to the nearest second. Throws VemoError 6 outside −657434..2958465.
VEMOGRIDLIB_EXPORT QDateTime SerialToDate(double serial);

/// `DateSerial(y, m, d)` with VB's roll-over (month 13, day 0, day −1 ...).
VEMOGRIDLIB_EXPORT QDateTime DateSerial(int year, int month, int day);

/// `IsDate(text)`: true exactly when CDate(text) succeeds.
VEMOGRIDLIB_EXPORT bool IsDate(const QString& text, VbLocale locale = userLocale());
/// `CDate(text)` with VB's lenient date parser; throws VemoError 13 when the text is no date.
VEMOGRIDLIB_EXPORT QDateTime CDate(const QString& text, VbLocale locale = userLocale());

/// `DateAdd(interval, number, date)`: "yyyy", "q", "m" clamp the day to the month;
/// "y", "d", "w" add days, "ww" weeks, "h", "n", "s" time. The number is rounded to a whole
/// number first (half to even). Throws VemoError 5 for an unknown interval or a result before
/// year 100.
VEMOGRIDLIB_EXPORT QDateTime DateAdd(const QString& interval, double number, const QDateTime& date);

/// `DateDiff(interval, date1, date2)`: for "d" the calendar days from date1 to date2
/// (midnights crossed, times ignored), negative when date2 is earlier. Also "yyyy", "q", "m",
/// "ww", "w", "h", "n", "s". Throws VemoError 5 for an unknown interval.
VEMOGRIDLIB_EXPORT qint64 DateDiff(const QString& interval, const QDateTime& date1,
                                   const QDateTime& date2);

/// `Weekday(date)`: 1 Sunday .. 7 Saturday, whatever the locale; `firstDayOfWeek`
/// 1 (Sunday) .. 7 (Saturday) shifts the count as VB's optional argument does.
VEMOGRIDLIB_EXPORT int Weekday(const QDateTime& date, int firstDayOfWeek = 1);

/// `CStr(date)`: en-US "2/3/2024", "1:05:09 PM", "2/3/2024 1:05:09 PM"; zh-CN "2024/2/3",
/// "13:05:09"; a date with no time prints the date only, serial 0 with a time the time only.
VEMOGRIDLIB_EXPORT QString CStr(const QDateTime& date, VbLocale locale = userLocale());

} // namespace VemoGridLib::vb
