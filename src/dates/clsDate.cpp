// SPDX-License-Identifier: MIT
// The Chinese lunar calendar engine.
#include "dates/clsDate.h"

#include "common/Locale.h"
#include "common/VemoError.h"
#include "dates/LunarTables_p.h"

#include <QDate>
#include <QStringView>

#include <array>
#include <cmath>

namespace VemoGridLib {

namespace {

struct Festival
{
    int month;
    int day;
    int holidayFlag; // carried with each festival entry; nothing reads it
    QStringView name;
};

// The name tables in one text set; an instance picks its set once, at construction.
struct TableTexts
{
    std::array<QStringView, 24> solarTermNames;
    std::array<QStringView, 11> dayDigitNames;
    std::array<QStringView, 5> dayTensNames;
    std::array<Festival, 9> festivals;
};

// The literal texts inside lHoliday, CMonthStr and CDayStr; the set is picked at each call.
struct MemberTexts
{
    QStringView newYearsEve;
    QStringView monthDigits;
    QStringView monthSuffix;
    QStringView tenthDay;
    QStringView twentiethDay;
    QStringView thirtiethDay;
};

constexpr TableTexts SimplifiedTableTexts{
    {u"小寒", u"大寒", u"立春", u"雨水", u"惊蛰", u"春分", u"清明", u"谷雨",
     u"立夏", u"小满", u"芒种", u"夏至", u"小暑", u"大暑", u"立秋", u"处暑",
     u"白露", u"秋分", u"寒露", u"霜降", u"立冬", u"小雪", u"大雪", u"冬至"},
    {u"日", u"一", u"二", u"三", u"四", u"五", u"六", u"七", u"八", u"九", u"十"},
    {u"初", u"十", u"廿", u"卅", u"\u3000"},
    {{{1, 1, 1, u"春节"},
      {1, 15, 0, u"元宵"},
      {5, 5, 0, u"端午"},
      {7, 7, 0, u"七夕"},
      {7, 15, 0, u"中元"},
      {8, 15, 0, u"中秋"},
      {9, 9, 0, u"重阳"},
      {12, 8, 0, u"腊八"},
      {12, 24, 0, u"小年"}}},
};

constexpr TableTexts TraditionalTableTexts{
    {u"小寒", u"大寒", u"立春", u"雨水", u"驚蟄", u"春分", u"清明", u"穀雨",
     u"立夏", u"小滿", u"芒種", u"夏至", u"小暑", u"大暑", u"立秋", u"處暑",
     u"白露", u"秋分", u"寒露", u"霜降", u"立冬", u"小雪", u"大雪", u"冬至"},
    {u"日", u"一", u"二", u"三", u"四", u"五", u"六", u"七", u"八", u"九", u"十"},
    {u"初", u"十", u"廿", u"卅", u"\u3000"},
    {{{1, 1, 1, u"春節"},
      {1, 15, 0, u"元宵"},
      {5, 5, 0, u"端午"},
      {7, 7, 0, u"七夕"},
      {7, 15, 0, u"中元"},
      {8, 15, 0, u"中秋"},
      {9, 9, 0, u"重陽"},
      {12, 8, 0, u"臘八"},
      {12, 24, 0, u"小年"}}},
};

constexpr MemberTexts SimplifiedMemberTexts{
    u"除夕", u"正二三四五六七八九十寒腊", u"月", u"初十", u"二十", u"三十",
};

constexpr MemberTexts TraditionalMemberTexts{
    u"除夕", u"正二三四五六七八九十寒臘", u"月", u"初十", u"二十", u"三十",
};

const TableTexts& tableTextsOfLocale()
{
    return languageIndex() == TraditionalChinese ? TraditionalTableTexts : SimplifiedTableTexts;
}

const MemberTexts& memberTextsOfLocale()
{
    return languageIndex() == TraditionalChinese ? TraditionalMemberTexts : SimplifiedMemberTexts;
}

// VB day serials count from 1899-12-30, which is Julian day 2415019.
constexpr qint64 JulianDayOfSerialZero = 2415019;
// sInitDate counts days after 1900-01-30 (serial 31) so that 1900-01-31 gives offset 1.
constexpr qint64 OffsetBaseSerial = 31;
constexpr qint64 MinutesPerDay = 1440;
// The first 小寒 of the tables, 1900-01-06 02:05, in minutes after serial 0.
constexpr qint64 SolarTermEpochMinutes = 7 * MinutesPerDay + 2 * 60 + 5;
constexpr double MinutesPerSolarYear = 525948.76;
// VB's DateAdd refuses results before 0100-01-01 with error 5.
constexpr qint64 FirstDateAddSerial = -657434;

qint64 serialOf(const QDate& date)
{
    return date.toJulianDay() - JulianDayOfSerialZero;
}

// 1900-01-30 is the tables' offset-0 edge case (lunar day 0); the tables end with lunar
// 2100, which runs into January 2101, so the whole Gregorian year 2100 converts.
bool isSupportedDate(const QDate& date)
{
    return date >= QDate(1900, 1, 30) && date <= QDate(2100, 12, 31);
}

qint64 floorDiv(qint64 numerator, qint64 denominator)
{
    const qint64 quotient = numerator / denominator;
    return (numerator % denominator != 0 && numerator < 0) ? quotient - 1 : quotient;
}

// Every table access checks its index, like a VB array does.
template <typename Table>
auto checkedAt(const Table& table, qint64 index)
{
    if (index < 0 || index >= qint64(table.size()))
        throw VemoError::subscriptOutOfRange();
    return table[std::size_t(index)];
}

bool TestBit(quint32 value, int bit)
{
    if (bit < 0 || bit > 31)
        return false;
    return (value & (quint32(1) << bit)) != 0;
}

quint32 LunarInfoOf(int year)
{
    return checkedAt(LunarTables::LunarInfo, year - LunarTables::FirstYear);
}

int LunarYearDays(int year)
{
    return checkedAt(LunarTables::LunarYearLength, year - LunarTables::FirstYear);
}

// Month m is the bit 0x10000 >> m, i.e. bit 16 − m.
int LunarMonthDays(int year, int month)
{
    return TestBit(LunarInfoOf(year), 16 - month) ? 30 : 29;
}

int LeapMonthOf(int year)
{
    return int(LunarInfoOf(year) & 0xFu);
}

int LeapMonthDays(int year)
{
    if (LeapMonthOf(year) == 0)
        return 0;
    return TestBit(LunarInfoOf(year), 16) ? 30 : 29;
}

struct LunarDate
{
    int year = 0;
    int month = 0;
    int day = 0;
    bool isLeap = false;
};

// The lunar year, month and day of the day count after 1900-01-30, walking year and month lengths.
LunarDate lunarDateOfOffset(qint64 offset)
{
    LunarDate lunar;
    int year = LunarTables::FirstYear;
    int yearLength = 0;
    for (; year <= LunarTables::LastYear; ++year) {
        yearLength = LunarYearDays(year);
        offset -= yearLength;
        if (offset < 1)
            break;
    }
    offset += yearLength;
    lunar.year = year;

    const int leap = LeapMonthOf(year);
    int month = 1;
    int monthLength = 0;
    while (month <= 12) {
        // The leap month comes right after the ordinary month of the same number.
        if (leap > 0 && month == leap + 1 && !lunar.isLeap) {
            lunar.isLeap = true;
            --month;
            monthLength = LeapMonthDays(year);
        } else {
            lunar.isLeap = false;
            monthLength = LunarMonthDays(year, month);
        }
        offset -= monthLength;
        if (offset < 1)
            break;
        ++month;
    }
    lunar.month = month;
    lunar.day = int(offset + monthLength);
    return lunar;
}

// The calendar day on which the formula puts solar term `term` of `gregorianYear`.
qint64 solarTermSerial(int gregorianYear, int term)
{
    const double minutes =
        double(gregorianYear - 1900) * MinutesPerSolarYear + LunarTables::SolarTermMinutes[term];
    // VB's DateAdd rounds a fractional count to whole minutes first; halves go to even.
    const qint64 instant = SolarTermEpochMinutes + qint64(std::nearbyint(minutes));
    const qint64 serial = floorDiv(instant, MinutesPerDay);
    if (serial < FirstDateAddSerial)
        throw VemoError::invalidProcedureCall();
    return serial;
}

} // namespace

struct clsDate::Private
{
    explicit Private(const TableTexts& tableTexts)
        : texts(tableTexts)
    {}

    const TableTexts& texts;
    // The Gregorian date is kept apart from the serial on purpose: before the
    // first sInitDate the year is 0 and the serial 0, which are not the same day.
    QDate gregorian;
    qint64 serial = 0;
    LunarDate lunar;
};

clsDate::clsDate()
    : d(std::make_unique<Private>(tableTextsOfLocale()))
{}

clsDate::~clsDate() = default;

void clsDate::sInitDate(int year, int month, int day)
{
    const QDate date(year, month, day);
    if (!date.isValid())
        throw VemoError::typeMismatch();
    if (!isSupportedDate(date))
        throw VemoError::subscriptOutOfRange();
    const qint64 serial = serialOf(date);
    const LunarDate lunar = lunarDateOfOffset(serial - OffsetBaseSerial);

    d->gregorian = date;
    d->serial = serial;
    d->lunar = lunar;
}

int clsDate::lYear() const
{
    return d->lunar.year;
}

int clsDate::lMonth() const
{
    return d->lunar.month;
}

int clsDate::lDay() const
{
    return d->lunar.day;
}

bool clsDate::IsLeap() const
{
    return d->lunar.isLeap;
}

QString clsDate::lSolarTerm() const
{
    for (int term = 0; term < int(LunarTables::SolarTermMinutes.size()); ++term) {
        if (solarTermSerial(d->gregorian.year(), term) == d->serial)
            return d->texts.solarTermNames[std::size_t(term)].toString();
    }
    return {};
}

QString clsDate::lHoliday()
{
    if (d->lunar.month == 12 && (d->lunar.day == 29 || d->lunar.day == 30)) {
        const int keptLunarYear = d->lunar.year;
        const QDate today = d->gregorian;
        const QDate tomorrow = today.addDays(1);
        sInitDate(tomorrow.year(), tomorrow.month(), tomorrow.day());
        if (d->lunar.year != keptLunarYear + 1)
            return {}; // deliberately left on the following day; callers reinitialise
        sInitDate(today.year(), today.month(), today.day());
        return memberTextsOfLocale().newYearsEve.toString();
    }
    for (const Festival& festival : d->texts.festivals) {
        if (festival.month == d->lunar.month && festival.day == d->lunar.day)
            return festival.name.toString();
    }
    return {};
}

QString clsDate::CMonthStr(int month) const
{
    // VB's Mid raises error 5 for a start below 1 and gives "" past the end of the text.
    if (month < 1)
        throw VemoError::invalidProcedureCall();
    const MemberTexts& texts = memberTextsOfLocale();
    QString name;
    if (month <= texts.monthDigits.size())
        name = texts.monthDigits.sliced(month - 1, 1).toString();
    name += texts.monthSuffix;
    return name;
}

QString clsDate::CDayStr(int day) const
{
    const MemberTexts& texts = memberTextsOfLocale();
    switch (day) {
    case 0:
        return {};
    case 10:
        return texts.tenthDay.toString();
    case 20:
        return texts.twentiethDay.toString();
    case 30:
        return texts.thirtiethDay.toString();
    default:
        break;
    }
    QString name = checkedAt(d->texts.dayTensNames, day / 10).toString();
    name += checkedAt(d->texts.dayDigitNames, day % 10);
    return name;
}

} // namespace VemoGridLib
