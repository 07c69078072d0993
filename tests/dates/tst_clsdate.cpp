// Part 3.1: the lunar calendar engine clsDate.
#include <VemoGridLib/clsDate.h>

#include <VemoGridLib/VemoError.h>

#include "VemoTestSupport.h"
#include <QDate>

#include <QTest>

#include <optional>

using namespace VemoGridLib;
using namespace Qt::StringLiterals;
using VemoTest::errorNumberOf;
using VemoTest::ScopedLocale;

namespace {

struct LunarDate
{
    int year = 0;
    int month = 0;
    int day = 0;
    bool isLeap = false;

    bool operator==(const LunarDate&) const = default;
};

LunarDate lunarDateOf(const clsDate& engine)
{
    return {engine.lYear(), engine.lMonth(), engine.lDay(), engine.IsLeap()};
}

void initDate(clsDate& engine, const QDate& date)
{
    engine.sInitDate(date.year(), date.month(), date.day());
}

// A lunar month follows another: the leap month after the ordinary month of its number, the
// next ordinary month, or the first month of the next year after the twelfth.
bool isNextLunarMonth(const LunarDate& previous, const LunarDate& current)
{
    if (current.day != 1 || (previous.day != 29 && previous.day != 30))
        return false;
    if (!previous.isLeap && current.isLeap)
        return current.year == previous.year && current.month == previous.month;
    if (current.isLeap)
        return false;
    if (previous.month == 12)
        return current.year == previous.year + 1 && current.month == 1;
    return current.year == previous.year && current.month == previous.month + 1;
}

bool isNextLunarDay(const LunarDate& previous, const LunarDate& current)
{
    return current.year == previous.year && current.month == previous.month &&
           current.isLeap == previous.isLeap && current.day == previous.day + 1;
}

} // namespace

class TestClsDate : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void firstLunarNewYear();
    void dayBeforeFirstNewYearIsDayZero();
    void leapEighthMonthOf1900();
    void lunarDates_data();
    void lunarDates();
    void lunarNewYearsOfExtension_data();
    void lunarNewYearsOfExtension();

    void solarTerm_data();
    void solarTerm();
    void everyTermIsTriedOnEveryDay();
    void solarTermBeforeFirstInitRaises5();

    void festivals_data();
    void festivals();
    void newYearsEveOnThe29th();
    void newYearsEveOnThe30th();
    void the29thOfA30DayTwelfthMonthMovesTheState();

    void dayNames_data();
    void dayNames();
    void dayNamesOutsideTheTablesRaise9_data();
    void dayNamesOutsideTheTablesRaise9();
    void monthNames_data();
    void monthNames();
    void monthNamesBelowOneRaise5_data();
    void monthNamesBelowOneRaise5();

    void traditionalTextSet();
    void tablesFollowTheLocaleOfConstruction();

    void rejectedDates_data();
    void rejectedDates();

    void fullRangeWalk();

private:
    std::optional<ScopedLocale> m_simplified;
};

void TestClsDate::initTestCase()
{
    m_simplified.emplace("zh_CN.UTF-8");
}

void TestClsDate::cleanupTestCase()
{
    m_simplified.reset();
}

void TestClsDate::firstLunarNewYear()
{
    clsDate engine;
    engine.sInitDate(1900, 1, 31);
    QCOMPARE(lunarDateOf(engine), (LunarDate{1900, 1, 1, false}));
}

void TestClsDate::dayBeforeFirstNewYearIsDayZero()
{
    clsDate engine;
    engine.sInitDate(1900, 1, 30);
    QCOMPARE(lunarDateOf(engine), (LunarDate{1900, 1, 0, false}));
    QCOMPARE(engine.CDayStr(engine.lDay()), QString());
}

void TestClsDate::leapEighthMonthOf1900()
{
    clsDate engine;
    engine.sInitDate(1900, 9, 23);
    QCOMPARE(lunarDateOf(engine), (LunarDate{1900, 8, 30, false}));
    const QDate firstLeapDay(1900, 9, 24);
    for (int day = 1; day <= 29; ++day) {
        initDate(engine, firstLeapDay.addDays(day - 1));
        QCOMPARE(lunarDateOf(engine), (LunarDate{1900, 8, day, true}));
    }
    initDate(engine, firstLeapDay.addDays(29));
    QCOMPARE(lunarDateOf(engine), (LunarDate{1900, 9, 1, false}));
}

// Expectations agree with ICU's Chinese calendar unless the note gives ICU's answer; where they
// differ, the Part's LunarInfo table (or the 2050..2100 rows) is the authority.
void TestClsDate::lunarDates_data()
{
    struct Row
    {
        int year, month, day;
        int lunarYear, lunarMonth, lunarDay;
        bool isLeap;
        const char* note;
    };
    static const Row rows[] = {
        {1900, 1, 31, 1900, 1, 1, false, "first lunar new year"},
        {1900, 2, 14, 1900, 1, 15, false, "元宵"},
        {1900, 9, 23, 1900, 8, 30, false, "8/30 before leap 8"},
        {1900, 9, 24, 1900, 8, 1, true, "leap 8 begins"},
        {1900, 10, 22, 1900, 8, 29, true, "leap 8 ends"},
        {1900, 10, 23, 1900, 9, 1, false, "month 9 after leap 8"},
        {1901, 2, 18, 1900, 12, 30, false, "除夕 on a 30th"},
        {1901, 2, 19, 1901, 1, 1, false, "new year"},
        {1911, 10, 10, 1911, 8, 19, false, "Wuchang uprising"},
        {1912, 2, 18, 1912, 1, 1, false, "new year"},
        {1917, 3, 23, 1917, 2, 1, true, "leap 2; ICU: 3/1"},
        {1917, 4, 21, 1917, 3, 1, false, "month 3; ICU: leap 3"},
        {1929, 2, 10, 1929, 1, 1, false, "new year"},
        {1933, 7, 22, 1933, 6, 1, false, "month 6; ICU: leap 5/30"},
        {1949, 1, 29, 1949, 1, 1, false, "new year"},
        {1949, 10, 1, 1949, 8, 10, false, "8/10"},
        {1950, 2, 16, 1949, 12, 30, false, "除夕 on a 30th"},
        {1950, 2, 17, 1950, 1, 1, false, "new year"},
        {1954, 2, 3, 1954, 1, 1, false, "new year; ICU: 1953/12/30"},
        {1966, 5, 16, 1966, 3, 26, true, "leap 3"},
        {1970, 2, 6, 1970, 1, 1, false, "new year"},
        {1976, 9, 9, 1976, 8, 16, false, "8/16"},
        {1984, 2, 2, 1984, 1, 1, false, "new year"},
        {1987, 7, 26, 1987, 6, 1, true, "leap 6; ICU: 7/1 (leap 7)"},
        {1997, 7, 1, 1997, 5, 27, false, "5/27"},
        {2000, 1, 1, 1999, 11, 25, false, "11/25"},
        {2000, 2, 4, 1999, 12, 29, false, "除夕 on a 29th"},
        {2000, 2, 5, 2000, 1, 1, false, "new year"},
        {2001, 1, 24, 2001, 1, 1, false, "new year"},
        {2001, 5, 23, 2001, 4, 1, true, "leap 4 begins"},
        {2001, 6, 21, 2001, 5, 1, false, "month 5 after leap 4"},
        {2004, 3, 21, 2004, 2, 1, true, "leap 2 begins"},
        {2006, 8, 24, 2006, 7, 1, true, "leap 7 begins"},
        {2008, 2, 7, 2008, 1, 1, false, "new year"},
        {2008, 8, 8, 2008, 7, 8, false, "7/8"},
        {2009, 6, 27, 2009, 5, 5, true, "leap 5/5"},
        {2012, 5, 21, 2012, 4, 1, true, "leap 4 begins"},
        {2014, 10, 24, 2014, 9, 1, true, "leap 9 begins"},
        {2017, 7, 23, 2017, 6, 1, true, "leap 6 begins"},
        {2020, 1, 24, 2019, 12, 30, false, "除夕 on a 30th"},
        {2020, 1, 25, 2020, 1, 1, false, "new year"},
        {2020, 5, 22, 2020, 4, 30, false, "4/30 before leap 4"},
        {2020, 5, 23, 2020, 4, 1, true, "leap 4 begins"},
        {2020, 6, 21, 2020, 5, 1, false, "month 5 after leap 4"},
        {2023, 1, 22, 2023, 1, 1, false, "new year"},
        {2023, 3, 22, 2023, 2, 1, true, "leap 2 begins"},
        {2023, 4, 20, 2023, 3, 1, false, "month 3 after leap 2"},
        {2024, 2, 9, 2023, 12, 30, false, "除夕 on a 30th"},
        {2024, 2, 10, 2024, 1, 1, false, "new year"},
        {2024, 9, 17, 2024, 8, 15, false, "中秋"},
        {2025, 1, 28, 2024, 12, 29, false, "除夕 on a 29th"},
        {2025, 1, 29, 2025, 1, 1, false, "new year"},
        {2025, 7, 25, 2025, 6, 1, true, "leap 6 begins"},
        {2025, 8, 23, 2025, 7, 1, false, "month 7 after leap 6"},
        {2028, 6, 23, 2028, 5, 1, true, "leap 5 begins"},
        {2031, 4, 22, 2031, 3, 1, true, "leap 3 begins"},
        {2033, 8, 25, 2033, 7, 1, true, "leap 7; ICU: 8/1"},
        {2033, 12, 22, 2033, 11, 1, false, "month 11; ICU: leap 11"},
        {2034, 2, 19, 2034, 1, 1, false, "new year"},
        {2047, 5, 25, 2047, 5, 1, false, "month 5 after leap 5"},
        {2049, 2, 2, 2049, 1, 1, false, "new year"},
        {2049, 12, 31, 2049, 12, 7, false, "end of the Part's range"},
        {2050, 1, 22, 2049, 12, 29, false, "除夕 on a 29th"},
        {2050, 1, 23, 2050, 1, 1, false, "new year"},
        {2050, 4, 21, 2050, 3, 1, true, "leap 3 begins"},
        {2052, 9, 23, 2052, 8, 1, true, "leap 8 begins"},
        {2055, 7, 25, 2055, 6, 2, true, "leap 6"},
        {2058, 5, 22, 2058, 4, 1, true, "leap 4 begins"},
        {2061, 4, 21, 2061, 3, 2, true, "leap 3"},
        {2066, 6, 22, 2066, 5, 30, false, "5/30 before leap 5"},
        {2069, 5, 23, 2069, 4, 3, true, "leap 4"},
        {2071, 9, 24, 2071, 8, 1, true, "leap 8 begins"},
        {2077, 5, 22, 2077, 4, 1, true, "leap 4 begins"},
        {2080, 4, 20, 2080, 3, 1, true, "leap 3 begins"},
        {2082, 8, 25, 2082, 7, 2, true, "leap 7"},
        {2090, 9, 23, 2090, 8, 30, false, "8/30 before leap 8"},
        {2099, 3, 22, 2099, 2, 1, true, "leap 2 begins"},
        {2100, 2, 8, 2099, 12, 30, false, "除夕 on a 30th"},
        {2100, 2, 9, 2100, 1, 1, false, "last new year"},
        {2100, 12, 31, 2100, 12, 1, false, "last supported day"},
    };
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("lunarYear");
    QTest::addColumn<int>("lunarMonth");
    QTest::addColumn<int>("lunarDay");
    QTest::addColumn<bool>("isLeap");
    for (const Row& row : rows) {
        const QDate date(row.year, row.month, row.day);
        QTest::addRow("%s %s", qPrintable(date.toString(Qt::ISODate)), row.note)
            << date << row.lunarYear << row.lunarMonth << row.lunarDay << row.isLeap;
    }
}

void TestClsDate::lunarDates()
{
    QFETCH(QDate, date);
    QFETCH(int, lunarYear);
    QFETCH(int, lunarMonth);
    QFETCH(int, lunarDay);
    QFETCH(bool, isLeap);
    clsDate engine;
    initDate(engine, date);
    QCOMPARE(engine.lYear(), lunarYear);
    QCOMPARE(engine.lMonth(), lunarMonth);
    QCOMPARE(engine.lDay(), lunarDay);
    QCOMPARE(engine.IsLeap(), isLeap);
}

// The lunar new years of lunarinfo-2050-2100.tsv, re-typed: the algorithm must land on them.
void TestClsDate::lunarNewYearsOfExtension_data()
{
    struct Row
    {
        int year, month, day;
    };
    static const Row rows[] = {
        {2050, 1, 23}, {2051, 2, 11}, {2052, 2, 1},  {2053, 2, 19}, {2054, 2, 8},  {2055, 1, 28},
        {2056, 2, 15}, {2057, 2, 4},  {2058, 1, 24}, {2059, 2, 12}, {2060, 2, 2},  {2061, 1, 21},
        {2062, 2, 9},  {2063, 1, 29}, {2064, 2, 17}, {2065, 2, 5},  {2066, 1, 26}, {2067, 2, 14},
        {2068, 2, 3},  {2069, 1, 23}, {2070, 2, 11}, {2071, 1, 31}, {2072, 2, 19}, {2073, 2, 7},
        {2074, 1, 27}, {2075, 2, 15}, {2076, 2, 5},  {2077, 1, 24}, {2078, 2, 12}, {2079, 2, 2},
        {2080, 1, 22}, {2081, 2, 9},  {2082, 1, 29}, {2083, 2, 17}, {2084, 2, 6},  {2085, 1, 26},
        {2086, 2, 14}, {2087, 2, 3},  {2088, 1, 24}, {2089, 2, 10}, {2090, 1, 30}, {2091, 2, 18},
        {2092, 2, 7},  {2093, 1, 27}, {2094, 2, 15}, {2095, 2, 5},  {2096, 1, 25}, {2097, 2, 12},
        {2098, 2, 1},  {2099, 1, 21}, {2100, 2, 9},
    };
    QTest::addColumn<QDate>("newYear");
    for (const Row& row : rows)
        QTest::newRow(QByteArray::number(row.year)) << QDate(row.year, row.month, row.day);
}

void TestClsDate::lunarNewYearsOfExtension()
{
    QFETCH(QDate, newYear);
    clsDate engine;
    initDate(engine, newYear);
    QCOMPARE(lunarDateOf(engine), (LunarDate{newYear.year(), 1, 1, false}));
    QCOMPARE(engine.lHoliday(), u"春节"_s);
    initDate(engine, newYear.addDays(-1));
    QCOMPARE(engine.lYear(), newYear.year() - 1);
    QCOMPARE(engine.lMonth(), 12);
    QCOMPARE(engine.lHoliday(), u"除夕"_s);
}

// Expectations come from the Part's formula (instants in whole minutes after
// 1900-01-06 02:05), which is not the astronomical answer on every day.
void TestClsDate::solarTerm_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("term");
    QTest::newRow("1900 立春") << QDate(1900, 2, 4) << u"立春"_s;
    QTest::newRow("1900 雨水") << QDate(1900, 2, 19) << u"雨水"_s;
    QTest::newRow("1901 小寒") << QDate(1901, 1, 6) << u"小寒"_s;
    QTest::newRow("1999 冬至") << QDate(1999, 12, 22) << u"冬至"_s;
    QTest::newRow("2000 春分") << QDate(2000, 3, 20) << u"春分"_s;
    QTest::newRow("2024 立春") << QDate(2024, 2, 4) << u"立春"_s;
    QTest::newRow("2024 day after 立春") << QDate(2024, 2, 5) << QString();
    QTest::newRow("2024 day before 惊蛰") << QDate(2024, 3, 4) << QString();
    QTest::newRow("2024 惊蛰") << QDate(2024, 3, 5) << u"惊蛰"_s;
    QTest::newRow("2024 谷雨") << QDate(2024, 4, 19) << u"谷雨"_s;
    QTest::newRow("2024 冬至") << QDate(2024, 12, 21) << u"冬至"_s;
    // Astronomically 处暑 2024 is on 08-22 (18:55 Beijing time); the formula gives 08-23 00:04.
    QTest::newRow("2024-08-22 astronomical 处暑") << QDate(2024, 8, 22) << QString();
    QTest::newRow("2024-08-23 formula 处暑") << QDate(2024, 8, 23) << u"处暑"_s;
    // The formula's instants land exactly on midnight here; midnight belongs to the new day.
    QTest::newRow("1910 立春 at 00:00") << QDate(1910, 2, 5) << u"立春"_s;
    QTest::newRow("1910 day before 立春") << QDate(1910, 2, 4) << QString();
    QTest::newRow("1910 清明 at 00:00") << QDate(1910, 4, 6) << u"清明"_s;
    QTest::newRow("2049 冬至") << QDate(2049, 12, 21) << u"冬至"_s;
    QTest::newRow("2100 冬至") << QDate(2100, 12, 22) << u"冬至"_s;
}

void TestClsDate::solarTerm()
{
    QFETCH(QDate, date);
    QFETCH(QString, term);
    clsDate engine;
    initDate(engine, date);
    QCOMPARE(engine.lSolarTerm(), term);
}

// Every day tries all 24 terms, so each term turns up once, in table order, over a year.
void TestClsDate::everyTermIsTriedOnEveryDay()
{
    const QStringList expected = {
        u"小寒"_s, u"大寒"_s, u"立春"_s, u"雨水"_s, u"惊蛰"_s, u"春分"_s, u"清明"_s, u"谷雨"_s,
        u"立夏"_s, u"小满"_s, u"芒种"_s, u"夏至"_s, u"小暑"_s, u"大暑"_s, u"立秋"_s, u"处暑"_s,
        u"白露"_s, u"秋分"_s, u"寒露"_s, u"霜降"_s, u"立冬"_s, u"小雪"_s, u"大雪"_s, u"冬至"_s,
    };
    clsDate engine;
    QStringList found;
    for (QDate date(2024, 1, 1); date.year() == 2024; date = date.addDays(1)) {
        initDate(engine, date);
        const QString term = engine.lSolarTerm();
        if (!term.isEmpty())
            found << term;
    }
    QCOMPARE(found, expected);
}

// Before the first sInitDate the Gregorian date is serial 0 of year 0: VB's DateAdd would
// have to go back to year 0 and refuses with error 5.
void TestClsDate::solarTermBeforeFirstInitRaises5()
{
    const clsDate engine;
    QCOMPARE(errorNumberOf([&] { engine.lSolarTerm(); }), qint32(VemoError::InvalidProcedureCall));
}

void TestClsDate::festivals_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("festival");
    QTest::newRow("春节 1900") << QDate(1900, 1, 31) << u"春节"_s;
    QTest::newRow("春节 2024") << QDate(2024, 2, 10) << u"春节"_s;
    QTest::newRow("元宵") << QDate(2024, 2, 24) << u"元宵"_s;
    QTest::newRow("端午") << QDate(2024, 6, 10) << u"端午"_s;
    QTest::newRow("七夕") << QDate(2024, 8, 10) << u"七夕"_s;
    QTest::newRow("中元") << QDate(2024, 8, 18) << u"中元"_s;
    QTest::newRow("中秋") << QDate(2024, 9, 17) << u"中秋"_s;
    QTest::newRow("重阳") << QDate(2024, 10, 11) << u"重阳"_s;
    QTest::newRow("腊八") << QDate(2025, 1, 7) << u"腊八"_s;
    QTest::newRow("小年") << QDate(2025, 1, 23) << u"小年"_s;
    QTest::newRow("plain day") << QDate(2025, 1, 22) << QString();
    QTest::newRow("12th month 28th") << QDate(2025, 1, 27) << QString();
    // The leap flag is not looked at: leap months get their number's festivals too.
    QTest::newRow("leap 8/15 of 1900") << QDate(1900, 10, 8) << u"中秋"_s;
    QTest::newRow("leap 5/5 of 2009") << QDate(2009, 6, 27) << u"端午"_s;
    QTest::newRow("leap 7/7 of 2006") << QDate(2006, 8, 30) << u"七夕"_s;
    QTest::newRow("leap 7/15 of 2006") << QDate(2006, 9, 7) << u"中元"_s;
}

void TestClsDate::festivals()
{
    QFETCH(QDate, date);
    QFETCH(QString, festival);
    clsDate engine;
    initDate(engine, date);
    const LunarDate before = lunarDateOf(engine);
    QCOMPARE(engine.lHoliday(), festival);
    QCOMPARE(lunarDateOf(engine), before);
}

void TestClsDate::newYearsEveOnThe29th()
{
    clsDate engine;
    engine.sInitDate(2025, 1, 28);
    QCOMPARE(lunarDateOf(engine), (LunarDate{2024, 12, 29, false}));
    QCOMPARE(engine.lHoliday(), u"除夕"_s);
    QCOMPARE(lunarDateOf(engine), (LunarDate{2024, 12, 29, false}));
}

void TestClsDate::newYearsEveOnThe30th()
{
    clsDate engine;
    engine.sInitDate(2024, 2, 9);
    QCOMPARE(lunarDateOf(engine), (LunarDate{2023, 12, 30, false}));
    QCOMPARE(engine.lHoliday(), u"除夕"_s);
    QCOMPARE(lunarDateOf(engine), (LunarDate{2023, 12, 30, false}));
    QCOMPARE(engine.lSolarTerm(), QString());
}

// The Part's asymmetry: no restore when the next day is still in the same lunar year.
void TestClsDate::the29thOfA30DayTwelfthMonthMovesTheState()
{
    clsDate engine;
    engine.sInitDate(2024, 2, 8);
    QCOMPARE(lunarDateOf(engine), (LunarDate{2023, 12, 29, false}));
    QCOMPARE(engine.lHoliday(), QString());
    QCOMPARE(lunarDateOf(engine), (LunarDate{2023, 12, 30, false}));
    QCOMPARE(engine.lHoliday(), u"除夕"_s);
    QCOMPARE(lunarDateOf(engine), (LunarDate{2023, 12, 30, false}));
}

void TestClsDate::dayNames_data()
{
    QTest::addColumn<int>("day");
    QTest::addColumn<QString>("name");
    const QStringList names = {
        QString(), u"初一"_s, u"初二"_s, u"初三"_s, u"初四"_s, u"初五"_s, u"初六"_s, u"初七"_s,
        u"初八"_s, u"初九"_s, u"初十"_s, u"十一"_s, u"十二"_s, u"十三"_s, u"十四"_s, u"十五"_s,
        u"十六"_s, u"十七"_s, u"十八"_s, u"十九"_s, u"二十"_s, u"廿一"_s, u"廿二"_s, u"廿三"_s,
        u"廿四"_s, u"廿五"_s, u"廿六"_s, u"廿七"_s, u"廿八"_s, u"廿九"_s, u"三十"_s, u"卅一"_s,
    };
    for (int day = 0; day < names.size(); ++day)
        QTest::newRow(QByteArray::number(day)) << day << names.at(day);
    QTest::newRow("39") << 39 << u"卅九"_s;
    // Index 4 of DayTensNames is one ideographic space; 40 has digit index 0, "日".
    QTest::newRow("40") << 40 << u"\u3000日"_s;
    QTest::newRow("49") << 49 << u"\u3000九"_s;
}

void TestClsDate::dayNames()
{
    QFETCH(int, day);
    QFETCH(QString, name);
    const clsDate engine;
    QCOMPARE(engine.CDayStr(day), name);
}

void TestClsDate::dayNamesOutsideTheTablesRaise9_data()
{
    QTest::addColumn<int>("day");
    QTest::newRow("-1") << -1;
    QTest::newRow("-10") << -10;
    QTest::newRow("-15") << -15;
    QTest::newRow("50") << 50;
    QTest::newRow("100") << 100;
}

void TestClsDate::dayNamesOutsideTheTablesRaise9()
{
    QFETCH(int, day);
    const clsDate engine;
    QCOMPARE(errorNumberOf([&] { engine.CDayStr(day); }), qint32(VemoError::SubscriptOutOfRange));
}

void TestClsDate::monthNames_data()
{
    QTest::addColumn<int>("month");
    QTest::addColumn<QString>("name");
    const QStringList names = {
        u"正月"_s, u"二月"_s, u"三月"_s, u"四月"_s, u"五月"_s, u"六月"_s,
        u"七月"_s, u"八月"_s, u"九月"_s, u"十月"_s, u"寒月"_s, u"腊月"_s,
    };
    for (int month = 1; month <= names.size(); ++month)
        QTest::newRow(QByteArray::number(month)) << month << names.at(month - 1);
    QTest::newRow("13") << 13 << u"月"_s;
    QTest::newRow("100") << 100 << u"月"_s;
}

void TestClsDate::monthNames()
{
    QFETCH(int, month);
    QFETCH(QString, name);
    const clsDate engine;
    QCOMPARE(engine.CMonthStr(month), name);
}

void TestClsDate::monthNamesBelowOneRaise5_data()
{
    QTest::addColumn<int>("month");
    QTest::newRow("0") << 0;
    QTest::newRow("-1") << -1;
}

void TestClsDate::monthNamesBelowOneRaise5()
{
    QFETCH(int, month);
    const clsDate engine;
    QCOMPARE(errorNumberOf([&] { engine.CMonthStr(month); }),
             qint32(VemoError::InvalidProcedureCall));
}

void TestClsDate::traditionalTextSet()
{
    const ScopedLocale traditional("zh_TW.UTF-8");
    clsDate engine;

    const QStringList expectedTerms = {
        u"小寒"_s, u"大寒"_s, u"立春"_s, u"雨水"_s, u"驚蟄"_s, u"春分"_s, u"清明"_s, u"穀雨"_s,
        u"立夏"_s, u"小滿"_s, u"芒種"_s, u"夏至"_s, u"小暑"_s, u"大暑"_s, u"立秋"_s, u"處暑"_s,
        u"白露"_s, u"秋分"_s, u"寒露"_s, u"霜降"_s, u"立冬"_s, u"小雪"_s, u"大雪"_s, u"冬至"_s,
    };
    QStringList terms;
    for (QDate date(2024, 1, 1); date.year() == 2024; date = date.addDays(1)) {
        initDate(engine, date);
        const QString term = engine.lSolarTerm();
        if (!term.isEmpty())
            terms << term;
    }
    QCOMPARE(terms, expectedTerms);

    const QList<std::pair<QDate, QString>> festivals = {
        {QDate(2024, 2, 10), u"春節"_s},  {QDate(2024, 2, 24), u"元宵"_s},
        {QDate(2024, 6, 10), u"端午"_s},  {QDate(2024, 8, 10), u"七夕"_s},
        {QDate(2024, 8, 18), u"中元"_s},  {QDate(2024, 9, 17), u"中秋"_s},
        {QDate(2024, 10, 11), u"重陽"_s}, {QDate(2025, 1, 7), u"臘八"_s},
        {QDate(2025, 1, 23), u"小年"_s},  {QDate(2025, 1, 28), u"除夕"_s},
    };
    for (const auto& [date, festival] : festivals) {
        initDate(engine, date);
        QCOMPARE(engine.lHoliday(), festival);
    }

    QCOMPARE(engine.CMonthStr(1), u"正月"_s);
    QCOMPARE(engine.CMonthStr(11), u"寒月"_s);
    QCOMPARE(engine.CMonthStr(12), u"臘月"_s);
    QCOMPARE(engine.CDayStr(1), u"初一"_s);
    QCOMPARE(engine.CDayStr(10), u"初十"_s);
    QCOMPARE(engine.CDayStr(21), u"廿一"_s);
    QCOMPARE(engine.CDayStr(31), u"卅一"_s);
}

// Tables 4–7 are chosen at construction; the member texts at each call.
void TestClsDate::tablesFollowTheLocaleOfConstruction()
{
    clsDate engine;
    engine.sInitDate(2024, 3, 5);
    {
        const ScopedLocale traditional("zh_TW.UTF-8");
        QCOMPARE(engine.lSolarTerm(), u"惊蛰"_s);
        QCOMPARE(engine.CMonthStr(12), u"臘月"_s);
        engine.sInitDate(2025, 1, 7);
        QCOMPARE(engine.lHoliday(), u"腊八"_s);
    }
    QCOMPARE(engine.CMonthStr(12), u"腊月"_s);
}

void TestClsDate::rejectedDates_data()
{
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("day");
    QTest::addColumn<qint32>("error");
    const qint32 typeMismatch = VemoError::TypeMismatch;
    const qint32 outOfRange = VemoError::SubscriptOutOfRange;
    QTest::newRow("2023-02-29") << 2023 << 2 << 29 << typeMismatch;
    QTest::newRow("2024-04-31") << 2024 << 4 << 31 << typeMismatch;
    QTest::newRow("2024-13-01") << 2024 << 13 << 1 << typeMismatch;
    QTest::newRow("2024-00-10") << 2024 << 0 << 10 << typeMismatch;
    QTest::newRow("2024-01-00") << 2024 << 1 << 0 << typeMismatch;
    QTest::newRow("1900-02-29") << 1900 << 2 << 29 << typeMismatch;
    QTest::newRow("1900-01-29") << 1900 << 1 << 29 << outOfRange;
    QTest::newRow("1899-12-31") << 1899 << 12 << 31 << outOfRange;
    QTest::newRow("1000-06-01") << 1000 << 6 << 1 << outOfRange;
    QTest::newRow("2101-01-01") << 2101 << 1 << 1 << outOfRange;
    QTest::newRow("9999-12-31") << 9999 << 12 << 31 << outOfRange;
}

void TestClsDate::rejectedDates()
{
    QFETCH(int, year);
    QFETCH(int, month);
    QFETCH(int, day);
    QFETCH(qint32, error);
    clsDate engine;
    engine.sInitDate(2024, 3, 5);
    QCOMPARE(errorNumberOf([&] { engine.sInitDate(year, month, day); }), error);
    QCOMPARE(lunarDateOf(engine), (LunarDate{2024, 1, 25, false}));
    QCOMPARE(engine.lSolarTerm(), u"惊蛰"_s);
}

// Every supported day: the lunar date moves on by one day or starts the next month after a
// 29- or 30-day month, and the last day of every lunar year is 除夕. lSolarTerm is left out
// to keep the walk fast.
void TestClsDate::fullRangeWalk()
{
    clsDate engine;
    engine.sInitDate(1900, 1, 31);
    LunarDate previous = lunarDateOf(engine);
    bool previousWasEve = false;
    int newYears = 0;
    int eves = 0;
    int daysInLunarYear = 1;
    for (QDate date(1900, 2, 1); date <= QDate(2100, 12, 31); date = date.addDays(1)) {
        initDate(engine, date);
        const LunarDate current = lunarDateOf(engine);
        if (!isNextLunarDay(previous, current) && !isNextLunarMonth(previous, current))
            QFAIL(qPrintable(u"lunar date does not follow on at "_s + date.toString(Qt::ISODate)));
        const bool isNewYear = current.month == 1 && current.day == 1 && !current.isLeap;
        if (isNewYear != previousWasEve)
            QFAIL(qPrintable(u"除夕 does not precede the new year at "_s +
                             date.toString(Qt::ISODate)));
        if (isNewYear) {
            ++newYears;
            QVERIFY(daysInLunarYear >= 353 && daysInLunarYear <= 385);
            daysInLunarYear = 0;
        }
        ++daysInLunarYear;
        previousWasEve = engine.lHoliday() == u"除夕"_s;
        if (previousWasEve) {
            ++eves;
            QCOMPARE(lunarDateOf(engine), current);
        }
        previous = current;
    }
    QCOMPARE(newYears, 200);
    QCOMPARE(eves, 200);
    QCOMPARE(previous, (LunarDate{2100, 12, 1, false}));
}

QTEST_GUILESS_MAIN(TestClsDate)
#include "tst_clsdate.moc"
