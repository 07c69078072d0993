// SPDX-License-Identifier: MIT
// The lunar calendar engine clsDate: lunar dates against a reference table and over a walk of
// every supported day, solar terms, festivals, the Chinese names and refused dates.
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/clsDate.h>

#include "VemoTestSupport.h"

#include <QDate>
#include <QTest>

using namespace VemoGridLib;
using namespace Qt::StringLiterals;
using VemoTest::errorNumberOf;
using VemoTest::ScopedLocale;

namespace {

/// The engine's lunar date as "year-month-day", with " leap" in a leap month.
QString lunarOf(clsDate& engine, const QDate& date)
{
    engine.sInitDate(date.year(), date.month(), date.day());
    return u"%1-%2-%3%4"_s.arg(engine.lYear())
        .arg(engine.lMonth())
        .arg(engine.lDay())
        .arg(engine.IsLeap() ? u" leap"_s : QString());
}

} // namespace

class tst_ClsDate : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_simplified.emplace("zh_CN.UTF-8"); }
    void cleanupTestCase() { m_simplified.reset(); }

    // Lunar dates recorded from the reference tables (ICU's Chinese calendar differs where a note
    // gives it), then solar terms and festivals: a null entry is not checked.
    void lunarDates_data()
    {
        QTest::addColumn<QDate>("date");
        QTest::addColumn<QString>("lunar");
        QTest::addColumn<QString>("term");
        QTest::addColumn<QString>("festival");
        const char* const rows[][5] = {
            {"1900-01-30", "1900-1-0", "the day before the first new year"},
            {"1900-01-31", "1900-1-1", "first new year"},
            {"1900-09-23", "1900-8-30", "before leap 8"},
            {"1900-09-24", "1900-8-1 leap", "leap 8 begins"},
            {"1900-10-23", "1900-9-1", "month 9 after leap 8"},
            {"1917-03-23", "1917-2-1 leap", "ICU: 3/1"},
            {"1933-07-22", "1933-6-1", "ICU: leap 5/30"},
            {"1954-02-03", "1954-1-1", "ICU: 1953/12/30"},
            {"1987-07-26", "1987-6-1 leap", "ICU: leap 7"},
            {"2000-02-04", "1999-12-29", "eve on a 29th"},
            {"2020-05-23", "2020-4-1 leap", "leap 4 begins"},
            {"2033-08-25", "2033-7-1 leap", "ICU: 8/1"},
            {"2033-12-22", "2033-11-1", "ICU: leap 11"},
            {"2049-12-31", "2049-12-7", "end of the first table"},
            {"2050-01-23", "2050-1-1", "new year of the second table"},
            {"2099-03-22", "2099-2-1 leap", "leap 2 begins"},
            {"2100-02-08", "2099-12-30", "eve on a 30th"},
            {"2100-12-31", "2100-12-1", "last supported day"},
            // The engine's terms come from a formula in whole minutes, not always the astronomical
            // day; an instant on midnight belongs to the new day.
            {"2024-08-22", nullptr, "astronomical 处暑", "", ""},
            {"2024-08-23", nullptr, "formula 处暑", "处暑", ""},
            {"1910-02-05", nullptr, "立春 at 00:00", "立春", ""},
            {"2100-12-22", nullptr, "2100 冬至", "冬至", ""},
            {"2024-02-24", nullptr, "元宵", "", "元宵"},
            {"2025-01-27", nullptr, "12th month 28th", "", ""},
            // The leap flag is not looked at: leap months get their number's festivals too.
            {"1900-10-08", nullptr, "leap 8/15", "", "中秋"},
            {"2009-06-27", nullptr, "leap 5/5", "", "端午"},
        };
        for (const auto& row : rows)
            QTest::addRow("%s %s", row[0], row[2])
                << QDate::fromString(QString::fromLatin1(row[0]), Qt::ISODate)
                << QString::fromUtf8(row[1]) << QString::fromUtf8(row[3])
                << QString::fromUtf8(row[4]);
    }

    void lunarDates()
    {
        QFETCH(QDate, date);
        QFETCH(QString, lunar);
        QFETCH(QString, term);
        QFETCH(QString, festival);
        clsDate engine;
        const QString actual = lunarOf(engine, date);
        QCOMPARE(lunar.isNull() ? actual : lunar, actual);
        QCOMPARE(term.isNull() ? QString() : engine.lSolarTerm(), term);
        QCOMPARE(festival.isNull() ? QString() : engine.lHoliday(), festival);
        QCOMPARE(lunarOf(engine, date), actual);
    }

    // Every day follows on from the one before (a leap month after the month of its number), and
    // only the last day of every lunar year is New Year's Eve.
    void fullRangeWalk()
    {
        clsDate engine;
        engine.sInitDate(1900, 1, 31);
        int year = 1900, month = 1, day = 1, eves = 0;
        bool leap = false, eve = false;
        for (QDate date(1900, 2, 1); date <= QDate(2100, 12, 31); date = date.addDays(1)) {
            engine.sInitDate(date.year(), date.month(), date.day());
            const bool newMonth = engine.lDay() == 1 && (day == 29 || day == 30);
            const bool follows = engine.lDay() == day + 1
                                     ? engine.lMonth() == month && engine.IsLeap() == leap
                                 : !newMonth       ? false
                                 : engine.IsLeap() ? !leap && engine.lMonth() == month
                                 : month == 12 ? engine.lYear() == year + 1 && engine.lMonth() == 1
                                               : engine.lMonth() == month + 1;
            const bool newYear = engine.lMonth() == 1 && engine.lDay() == 1 && !engine.IsLeap();
            if (!follows || newYear != eve || (engine.lYear() != year) != newYear)
                QFAIL(qPrintable(u"the lunar date does not follow on at "_s + date.toString()));
            year = engine.lYear();
            month = engine.lMonth();
            day = engine.lDay();
            leap = engine.IsLeap();
            eve = engine.lHoliday() == u"除夕"_s;
            eves += eve;
        }
        QCOMPARE(eves, 200);
    }

    // Looking for the eve moves the engine on a day, and back only when that day is a new year:
    // the 29th of a 30-day twelfth month is left on the 30th.
    void newYearsEve()
    {
        clsDate engine;
        QCOMPARE(lunarOf(engine, QDate(2025, 1, 28)), u"2024-12-29"_s);
        QCOMPARE(engine.lHoliday(), u"除夕"_s);
        QCOMPARE(engine.lDay(), 29);
        QCOMPARE(lunarOf(engine, QDate(2024, 2, 8)), u"2023-12-29"_s);
        QCOMPARE(engine.lHoliday(), QString());
        QCOMPARE(engine.lDay(), 30);
        QCOMPARE(engine.lHoliday(), u"除夕"_s);
    }

    void namesAndRefusals()
    {
        clsDate engine;
        // Before the first sInitDate the date is VB's day 0, and finding its term fails.
        QCOMPARE(errorNumberOf([&] { engine.lSolarTerm(); }),
                 qint32(VemoError::InvalidProcedureCall));
        QStringList days;
        for (int day : {0, 10, 11, 20, 21, 30, 31, 39, 40})
            days << engine.CDayStr(day);
        QCOMPARE(days.join('/'), u"/初十/十一/二十/廿一/三十/卅一/卅九/\u3000日"_s);
        QCOMPARE(engine.CMonthStr(11) + engine.CMonthStr(12) + engine.CMonthStr(13),
                 u"寒月腊月月"_s);
        QCOMPARE(errorNumberOf([&] { engine.CDayStr(50); }),
                 qint32(VemoError::SubscriptOutOfRange));
        QCOMPARE(errorNumberOf([&] { engine.CMonthStr(0); }),
                 qint32(VemoError::InvalidProcedureCall));

        // A refused date leaves the engine's date as it was.
        const QString before = lunarOf(engine, QDate(2024, 3, 5));
        const QList<std::pair<QList<int>, qint32>> refused = {
            {{2023, 2, 29}, VemoError::TypeMismatch},
            {{2024, 1, 0}, VemoError::TypeMismatch},
            {{1900, 1, 29}, VemoError::SubscriptOutOfRange},
            {{2101, 1, 1}, VemoError::SubscriptOutOfRange},
        };
        for (const auto& [date, error] : refused) {
            QCOMPARE(errorNumberOf([&] { engine.sInitDate(date[0], date[1], date[2]); }), error);
            QCOMPARE(u"%1-%2-%3"_s.arg(engine.lYear()).arg(engine.lMonth()).arg(engine.lDay()),
                     before);
            QCOMPARE(engine.lSolarTerm(), u"惊蛰"_s);
        }
    }

    // The term and festival tables are chosen at construction, the member texts at each call.
    void traditionalTexts()
    {
        clsDate simplified;
        lunarOf(simplified, QDate(2024, 3, 5));
        const ScopedLocale traditional("zh_TW.UTF-8");
        QCOMPARE(simplified.lSolarTerm(), u"惊蛰"_s);
        QCOMPARE(simplified.CMonthStr(12), u"臘月"_s);

        clsDate engine;
        QStringList terms;
        for (QDate date(2024, 1, 1); date.year() == 2024; date = date.addDays(1)) {
            lunarOf(engine, date);
            if (!engine.lSolarTerm().isEmpty())
                terms << engine.lSolarTerm();
        }
        QCOMPARE(terms.size(), 24);
        QCOMPARE(terms.mid(4, 4), QStringList({u"驚蟄"_s, u"春分"_s, u"清明"_s, u"穀雨"_s}));
        for (const auto& [date, festival] :
             {std::pair(QDate(2024, 2, 10), u"春節"_s), std::pair(QDate(2024, 10, 11), u"重陽"_s),
              std::pair(QDate(2025, 1, 7), u"臘八"_s)}) {
            lunarOf(engine, date);
            QCOMPARE(engine.lHoliday(), festival);
        }
    }

private:
    std::optional<ScopedLocale> m_simplified;
};

QTEST_GUILESS_MAIN(tst_ClsDate)
#include "tst_clsdate.moc"
