// SPDX-License-Identifier: MIT
// The Chinese lunar calendar engine behind the month calendar's lunar texts.
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

#include <QString>

#include <memory>

namespace VemoGridLib {

/// Converts a Gregorian date to the Chinese lunar calendar and gives the texts the
/// month calendar prints under a day: lunar month and day names, the solar term and
/// the festival of the day. It keeps the last converted date as its state.
///
/// Supported dates run from 1900-01-30 (lunar 1900, month 1, day 0, as the tables have it) to
/// 2100-12-31.
/// The text set (simplified or traditional Chinese) follows `languageIndex()`.
class VEMOGRIDLIB_EXPORT clsDate
{
public:
    /// Fills the tables in the text set of the system locale
    /// and leaves the state zero.
    clsDate();
    /// Releases the tables and the state.
    ~clsDate();
    /// One instance per calendar; it is neither copied nor moved.
    Q_DISABLE_COPY_MOVE(clsDate)

    /// `sInitDate`: converts the Gregorian date and stores it with its lunar date.
    /// Throws VemoError 13 for a date that does not exist and VemoError 9 for a date outside
    /// 1900-01-30..2100-12-31; the state is then unchanged.
    void sInitDate(int year, int month, int day);

    /// The lunar year, numbered as the Gregorian year it begins in.
    int lYear() const;
    /// The lunar month 1..12.
    int lMonth() const;
    /// The lunar day 1..30 (0 for 1900-01-30).
    int lDay() const;
    /// True when the lunar month is the year's intercalary month.
    bool IsLeap() const;

    /// The name of the solar term falling on the Gregorian day, else "".
    QString lSolarTerm() const;

    /// The festival of the day ("除夕" included), else "". On the 29th of
    /// a 30-day twelfth month it returns "" and deliberately leaves the instance on the following
    /// day, kept for compatibility; call sInitDate again before reading other members.
    QString lHoliday();

    /// The lunar month name, "正月".."腊月" (11 is "寒月"); "月" above 12.
    /// Throws VemoError 5 below 1.
    QString CMonthStr(int month) const;

    /// The lunar day name, "初一".."三十"; "" for 0, "卅一" for 31.
    /// Throws VemoError 9 for a negative day or one above 49.
    QString CDayStr(int day) const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace VemoGridLib
