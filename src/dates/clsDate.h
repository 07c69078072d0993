// Part 3.1: the Chinese lunar calendar engine behind the month calendar's lunar texts.
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

#include <QString>

#include <memory>

namespace VemoGridLib {

/// Part 3.1: converts a Gregorian date to the Chinese lunar calendar and gives the texts the
/// month calendar (Part 3.2) prints under a day: lunar month and day names, the solar term and
/// the festival of the day. It keeps the last converted date as its state.
///
/// Supported dates run from 1900-01-30 (lunar 1900, month 1, day 0, as the Part has it) to
/// 2100-12-31; the Part's tables for 1900..2049 are extended with the rows for 2050..2100.
/// The text set (simplified or traditional Chinese) follows `languageIndex()` (Part 1.12).
class VEMOGRIDLIB_EXPORT clsDate
{
public:
    /// Part 3.1 "State and lifecycle": fills the tables in the text set of the system locale
    /// and leaves the state zero.
    clsDate();
    /// Releases the tables and the state.
    ~clsDate();
    /// One instance per calendar (Part 3.1); it is neither copied nor moved.
    Q_DISABLE_COPY_MOVE(clsDate)

    /// Part 3.1 `sInitDate`: converts the Gregorian date and stores it with its lunar date.
    /// Throws VemoError 13 for a date that does not exist and VemoError 9 for a date outside
    /// 1900-01-30..2100-12-31; the state is then unchanged.
    void sInitDate(int year, int month, int day);

    /// Part 3.1 "Data model": the lunar year, numbered as the Gregorian year it begins in.
    int lYear() const;
    /// Part 3.1 `lMonth`: the lunar month 1..12.
    int lMonth() const;
    /// Part 3.1 `lDay`: the lunar day 1..30 (0 for 1900-01-30).
    int lDay() const;
    /// Part 3.1 `IsLeap`: true when the lunar month is the year's intercalary month.
    bool IsLeap() const;

    /// Part 3.1 `lSolarTerm`: the name of the solar term falling on the Gregorian day, else "".
    QString lSolarTerm() const;

    /// Part 3.1 `lHoliday`: the festival of the day ("除夕" included), else "". On the 29th of
    /// a 30-day twelfth month it returns "" and leaves the instance on the following day, as
    /// the Part requires; call sInitDate again before reading other members.
    QString lHoliday();

    /// Part 3.1 `CMonthStr`: the lunar month name, "正月".."腊月" (11 is "寒月"); "月" above 12.
    /// Throws VemoError 5 below 1.
    QString CMonthStr(int month) const;

    /// Part 3.1 `CDayStr`: the lunar day name, "初一".."三十"; "" for 0, "卅一" for 31.
    /// Throws VemoError 9 for a negative day or one above 49.
    QString CDayStr(int day) const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace VemoGridLib
