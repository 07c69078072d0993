// VB runtime subset, date side: serials, DateSerial, IsDate/CDate, DateAdd, DateDiff, Weekday
// (vb-semantics.md §1, §9, §13, §16). Every row is a vector or example of that note.
#include <VemoGridLib/VbDateTime.h>
#include <VemoGridLib/VemoError.h>

#include "VemoTestSupport.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace VemoGridLib;
using namespace VemoGridLib::vb;
using VemoTest::dt;
using VemoTest::errorNumberOf;

namespace {

int thisYear()
{
    return QDate::currentDate().year();
}

} // namespace

class tst_VbDateTime : public QObject
{
    Q_OBJECT

private slots:
    void serialRoundTrip_data();
    void serialRoundTrip();
    void serialToDate_data();
    void serialToDate();
    void serialRange_data();
    void serialRange();
    void dateSerial_data();
    void dateSerial();
    void dateSerialErrors();
    void isDate_data();
    void isDate();
    void cdateOfNoDateIsTypeMismatch();
    void dateAdd_data();
    void dateAdd();
    void dateAddErrors_data();
    void dateAddErrors();
    void dateDiff_data();
    void dateDiff();
    void dateDiffUnknownInterval();
    void weekday_data();
    void weekday();
    void weekdayInvalidFirstDay();
    void specExamples();
};

// §1: serial 0 = 1899-12-30, no Excel 1900-02-29, negative serials keep |fraction| as the time.
void tst_VbDateTime::serialRoundTrip_data()
{
    QTest::addColumn<QDateTime>("date");
    QTest::addColumn<double>("serial");

    QTest::newRow("1899-12-30 = 0") << dt(1899, 12, 30) << 0.0;
    QTest::newRow("1899-12-31 = 1") << dt(1899, 12, 31) << 1.0;
    QTest::newRow("1900-01-01 = 2") << dt(1900, 1, 1) << 2.0;
    QTest::newRow("1900-01-30 = 31") << dt(1900, 1, 30) << 31.0;
    QTest::newRow("1900-01-31 = 32") << dt(1900, 1, 31) << 32.0;
    QTest::newRow("1900-02-28 = 60") << dt(1900, 2, 28) << 60.0;
    QTest::newRow("1900-03-01 = 61") << dt(1900, 3, 1) << 61.0;
    QTest::newRow("1900-01-01 12:36 = 2.525") << dt(1900, 1, 1, 12, 36) << 2.525;
    QTest::newRow("12:00 = 0.5") << dt(1899, 12, 30, 12) << 0.5;
    QTest::newRow("06:00 = 0.25") << dt(1899, 12, 30, 6) << 0.25;
    QTest::newRow("1899-12-25 06:00 = -5.25") << dt(1899, 12, 25, 6) << -5.25;
    QTest::newRow("1899-12-26 = -4") << dt(1899, 12, 26) << -4.0;
    QTest::newRow("0100-01-01 = -657434") << dt(100, 1, 1) << -657434.0;
    QTest::newRow("9999-12-31 = 2958465") << dt(9999, 12, 31) << 2958465.0;
    QTest::newRow("2024-02-01 = 45323") << dt(2024, 2, 1) << 45323.0;
}

void tst_VbDateTime::serialRoundTrip()
{
    QFETCH(QDateTime, date);
    QFETCH(double, serial);
    QVERIFY2(std::fabs(DateToSerial(date) - serial) < 1e-9,
             qPrintable(QString::number(DateToSerial(date), 'g', 17)));
    const QDateTime back = SerialToDate(serial);
    QCOMPARE(back, date);
    QCOMPARE(back.timeSpec(), Qt::UTC);
}

// §1: the time is |fraction| rounded to the nearest second; -0.25 and 0.25 are the same time.
void tst_VbDateTime::serialToDate_data()
{
    QTest::addColumn<double>("serial");
    QTest::addColumn<QDateTime>("date");

    QTest::newRow("-0.25") << -0.25 << dt(1899, 12, 30, 6);
    QTest::newRow("0.25") << 0.25 << dt(1899, 12, 30, 6);
    QTest::newRow("-5.25") << -5.25 << dt(1899, 12, 25, 6);
    QTest::newRow("-4.0") << -4.0 << dt(1899, 12, 26);
    QTest::newRow("29221.9888884444 rounds to 23:44:00")
        << 29221.9888884444 << dt(1980, 1, 1, 23, 44, 0);
    QTest::newRow("29221.7508765432 rounds to 18:01:16")
        << 29221.7508765432 << dt(1980, 1, 1, 18, 1, 16);
    QTest::newRow("39697.11 = 2008-09-06 02:38:24") << 39697.11 << dt(2008, 9, 6, 2, 38, 24);
    QTest::newRow("just below midnight rolls into the next day") << 2.99999999 << dt(1900, 1, 2);
}

void tst_VbDateTime::serialToDate()
{
    QFETCH(double, serial);
    QFETCH(QDateTime, date);
    QCOMPARE(SerialToDate(serial), date);
}

// §1: valid range −657434 (0100-01-01) … 2958465 (9999-12-31); outside → error 6.
void tst_VbDateTime::serialRange_data()
{
    QTest::addColumn<double>("serial");
    QTest::addColumn<int>("error");

    QTest::newRow("-657434") << -657434.0 << 0;
    QTest::newRow("-657434.5 (0100-01-01 12:00)") << -657434.5 << 0;
    QTest::newRow("2958465.5") << 2958465.5 << 0;
    QTest::newRow("-657435") << -657435.0 << 6;
    QTest::newRow("2958466") << 2958466.0 << 6;
    QTest::newRow("1e10") << 1e10 << 6;
    QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN() << 6;
}

void tst_VbDateTime::serialRange()
{
    QFETCH(double, serial);
    QFETCH(int, error);
    QCOMPARE(errorNumberOf([&] { SerialToDate(serial); }), error);
}

// §1: building a date from parts rolls over like DateSerial.
void tst_VbDateTime::dateSerial_data()
{
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("day");
    QTest::addColumn<QDateTime>("date");

    QTest::newRow("1980-1-0 = 1979-12-31") << 1980 << 1 << 0 << dt(1979, 12, 31);
    QTest::newRow("1980-13-1 = 1981-01-01") << 1980 << 13 << 1 << dt(1981, 1, 1);
    QTest::newRow("1980-1--1 = 1979-12-30") << 1980 << 1 << -1 << dt(1979, 12, 30);
    QTest::newRow("2024-3-0 = 2024-02-29") << 2024 << 3 << 0 << dt(2024, 2, 29);
    QTest::newRow("2024-2-30 = 2024-03-01") << 2024 << 2 << 30 << dt(2024, 3, 1);
    QTest::newRow("2024-0-1 = 2023-12-01") << 2024 << 0 << 1 << dt(2023, 12, 1);
    QTest::newRow("2024--1-1 = 2023-11-01") << 2024 << -1 << 1 << dt(2023, 11, 1);
    QTest::newRow("2024-25-1 = 2026-01-01") << 2024 << 25 << 1 << dt(2026, 1, 1);
    QTest::newRow("1900-1-31") << 1900 << 1 << 31 << dt(1900, 1, 31);
    QTest::newRow("1900-1-400") << 1900 << 1 << 400 << dt(1901, 2, 4);
    // Two-digit years follow the same window as CDate (§9): 00–49 → 20xx, 50–99 → 19xx.
    QTest::newRow("24-2-3 = 2024-02-03") << 24 << 2 << 3 << dt(2024, 2, 3);
    QTest::newRow("99-13-1 = 2000-01-01") << 99 << 13 << 1 << dt(2000, 1, 1);
    QTest::newRow("100-1-1 stays year 100") << 100 << 1 << 1 << dt(100, 1, 1);
}

void tst_VbDateTime::dateSerial()
{
    QFETCH(int, year);
    QFETCH(int, month);
    QFETCH(int, day);
    QFETCH(QDateTime, date);
    const QDateTime result = DateSerial(year, month, day);
    QCOMPARE(result, date);
    QCOMPARE(result.timeSpec(), Qt::UTC);
}

void tst_VbDateTime::dateSerialErrors()
{
    QCOMPARE(errorNumberOf([] { DateSerial(100, 1, 0); }), 5);
    QCOMPARE(errorNumberOf([] { DateSerial(9999, 13, 1); }), 5);
    QCOMPARE(errorNumberOf([] { DateSerial(10000, 1, 1); }), 5);
    QCOMPARE(errorNumberOf([] { DateSerial(-1, 1, 1); }), 5);
}

// §9, every row and quoted example, with §15's locale differences.
void tst_VbDateTime::isDate_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<VbLocale>("locale");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QDateTime>("date");

    const VbLocale en = VbLocale::EnUS, zh = VbLocale::ZhCN;
    const int year = thisYear();
    auto both = [](const char* name, const QString& text, bool valid, const QDateTime& date) {
        QTest::addRow("%s (en-US)", name) << text << VbLocale::EnUS << valid << date;
        QTest::addRow("%s (zh-CN)", name) << text << VbLocale::ZhCN << valid << date;
    };
    auto noDate = [&both](const char* name, const QString& text) {
        both(name, text, false, QDateTime());
    };

    // Time only: needs ':' / '.' or AM/PM; the day is serial 0.
    both("1 am", "1 am", true, dt(1899, 12, 30, 1));
    both("1am", "1am", true, dt(1899, 12, 30, 1));
    both("2.5 is 02:05", "2.5", true, dt(1899, 12, 30, 2, 5));
    both("0.1", "0.1", true, dt(1899, 12, 30, 0, 1));
    both("0.40", "0.40", true, dt(1899, 12, 30, 0, 40));
    both("3:5", "3:5", true, dt(1899, 12, 30, 3, 5));
    both("0:20", "0:20", true, dt(1899, 12, 30, 0, 20));
    both("0.1.0", "0.1.0", true, dt(1899, 12, 30, 0, 1, 0));
    both("13:00 AM ignores AM", "13:00 AM", true, dt(1899, 12, 30, 13));
    both("13:00 A", "13:00 A", true, dt(1899, 12, 30, 13));
    both("12:59 AM", "12:59 AM", true, dt(1899, 12, 30, 0, 59));
    both("12:59 a", "12:59 a", true, dt(1899, 12, 30, 0, 59));
    both("00:00 AM", "00:00 AM", true, dt(1899, 12, 30));
    both("1:30 pm", "1:30 pm", true, dt(1899, 12, 30, 13, 30));
    both("12:00 PM", "12:00 PM", true, dt(1899, 12, 30, 12));
    noDate("0:60", "0:60");
    noDate("24:00", "24:00");
    noDate("24.00", "24.00");
    noDate("0.60", "0.60");
    noDate("fractional seconds", "1:02:03.5");
    noDate("1:02:03:04", "1:02:03:04");

    // One bare number is never a date.
    noDate("0", "0");
    noDate("1", "1");
    noDate("2024", "2024");
    noDate("0.", "0.");
    noDate(".0", ".0");
    noDate("-1.1", "-1.1");
    noDate("0.0", "0.0");
    noDate("True", "True");
    noDate("False", "False");

    // Three numbers: locale order first, then the orders that give a valid date.
    both("1970-1-13", "1970-1-13", true, dt(1970, 1, 13));
    both("2020-01-11", "2020-01-11", true, dt(2020, 1, 11));
    both("13-1-1970 swaps day and month", "13-1-1970", true, dt(1970, 1, 13));
    both("1/2/1970", "1/2/1970", true, dt(1970, 1, 2));
    noDate("2 32 3", "2 32 3");
    QTest::newRow("10/11/12 (en-US M/D/Y)") << "10/11/12" << en << true << dt(2012, 10, 11);
    QTest::newRow("10/11/12 (zh-CN Y/M/D)") << "10/11/12" << zh << true << dt(2010, 11, 12);

    // Two numbers: month/day of the current year, or month/year.
    both("1 2", "1 2", true, dt(year, 1, 2));
    both("14 1", "14 1", true, dt(year, 1, 14));
    both("30 2", "30 2", true, dt(2030, 2, 1));

    // Two-digit years: 00–49 → 2000–2049, 50–99 → 1950–1999.
    both("1/2/00", "1/2/00", true, dt(2000, 1, 2));
    both("1/2/49", "1/2/49", true, dt(2049, 1, 2));
    both("1/2/50", "1/2/50", true, dt(1950, 1, 2));
    both("1/2/99", "1/2/99", true, dt(1999, 1, 2));

    // Month names.
    both("2 Jan 1970", "2 Jan 1970", true, dt(1970, 1, 2));
    both("2-Jan-1970", "2-Jan-1970", true, dt(1970, 1, 2));
    both("2 January, 1970", "2 January, 1970", true, dt(1970, 1, 2));
    both("January 2, 1970", "January 2, 1970", true, dt(1970, 1, 2));
    both("jan 2 1970 (any case)", "jan 2 1970", true, dt(1970, 1, 2));
    QTest::newRow("2024 一月 5 (zh-CN)")
        << QStringLiteral("2024 一月 5") << zh << true << dt(2024, 1, 5);
    QTest::newRow("十二月 25, 2024 (zh-CN)")
        << QStringLiteral("十二月 25, 2024") << zh << true << dt(2024, 12, 25);
    QTest::newRow("2024 1月 5 (zh-CN)")
        << QStringLiteral("2024 1月 5") << zh << true << dt(2024, 1, 5);
    QTest::newRow("1月5 (zh-CN)") << QStringLiteral("1月5") << zh << true << dt(year, 1, 5);
    QTest::newRow("一月 is no month in en-US")
        << QStringLiteral("2024 一月 5") << en << false << QDateTime();
    QTest::newRow("13月 is no month")
        << QStringLiteral("2024 13月 5") << zh << false << QDateTime();
    QTest::newRow("two month names") << "Jan Feb 2024" << en << false << QDateTime();

    // '.' is a time separator in both locales.
    noDate("02.01.1970", "02.01.1970");

    // Full texts, and the ideographic space between date and time.
    both("6/30/2011 01:20:34 PM", "6/30/2011 01:20:34 PM", true, dt(2011, 6, 30, 13, 20, 34));
    both("2013-05-14 02:04:12", "2013-05-14 02:04:12", true, dt(2013, 5, 14, 2, 4, 12));
    both("U+3000 between date and time", QStringLiteral("2024-2-3\u300012:00"), true,
         dt(2024, 2, 3, 12));
    QTest::newRow("1:00 下午 (zh-CN)")
        << QStringLiteral("1:00 下午") << zh << true << dt(1899, 12, 30, 13);
    noDate("time glued to the date", "2024-2-3-12:00");

    // The §9 table of texts the spec uses.
    both("2024-2-3", "2024-2-3", true, dt(2024, 2, 3));
    both("2024/2/3", "2024/2/3", true, dt(2024, 2, 3));
    both("2024-02-5", "2024-02-5", true, dt(2024, 2, 5));
    both("1900/1/31", "1900/1/31", true, dt(1900, 1, 31));
    noDate("2024/2/30", "2024/2/30");
    noDate("2023/2/29", "2023/2/29");
    both("surrounding blanks", " 2024-2-5 ", true, dt(2024, 2, 5));
    noDate("abc", "abc");
    noDate("empty", "");
    noDate("blank", " ");
    noDate("trailing separator", "2024-02-");
    noDate("doubled separator", "2024--2-3");
}

void tst_VbDateTime::isDate()
{
    QFETCH(QString, text);
    QFETCH(VbLocale, locale);
    QFETCH(bool, valid);
    QFETCH(QDateTime, date);

    QCOMPARE(IsDate(text, locale), valid);
    if (valid) {
        const QDateTime result = CDate(text, locale);
        QCOMPARE(result, date);
        QCOMPARE(result.timeSpec(), Qt::UTC);
    } else {
        QCOMPARE(errorNumberOf([&] { CDate(text, locale); }), 13);
    }
}

void tst_VbDateTime::cdateOfNoDateIsTypeMismatch()
{
    try {
        CDate(QStringLiteral("abc"), VbLocale::EnUS);
        QFAIL("CDate(\"abc\") did not throw");
    } catch (const VemoError& e) {
        QCOMPARE(e.number(), qint32(VemoError::TypeMismatch));
        QCOMPARE(e.description(), QStringLiteral("Type mismatch"));
    }
}

// §13 DateAdd, and the spec's solar terms (Part 4: 1900-01-06 02:05 plus round(minutes)).
void tst_VbDateTime::dateAdd_data()
{
    QTest::addColumn<QString>("interval");
    QTest::addColumn<double>("number");
    QTest::addColumn<QDateTime>("date");
    QTest::addColumn<QDateTime>("result");

    QTest::newRow("31-Jan-95 + 1 m") << "m" << 1.0 << dt(1995, 1, 31) << dt(1995, 2, 28);
    QTest::newRow("31-Jan-96 + 1 m") << "m" << 1.0 << dt(1996, 1, 31) << dt(1996, 2, 29);
    QTest::newRow("29-Feb-2024 + 1 yyyy") << "yyyy" << 1.0 << dt(2024, 2, 29) << dt(2025, 2, 28);
    QTest::newRow("30-Nov-2024 + 1 q") << "q" << 1.0 << dt(2024, 11, 30) << dt(2025, 2, 28);
    QTest::newRow("m keeps the time")
        << "m" << 1.0 << dt(2024, 1, 31, 13, 5, 9) << dt(2024, 2, 29, 13, 5, 9);
    QTest::newRow("-13 m") << "m" << -13.0 << dt(2024, 3, 31) << dt(2023, 2, 28);
    QTest::newRow("M (case-insensitive)") << "M" << 1.0 << dt(2024, 2, 15) << dt(2024, 3, 15);
    QTest::newRow("YYYY") << "YYYY" << -1.0 << dt(2024, 2, 15) << dt(2023, 2, 15);
    QTest::newRow("d") << "d" << 1.0 << dt(2024, 2, 28) << dt(2024, 2, 29);
    QTest::newRow("y adds days") << "y" << 2.0 << dt(2024, 2, 28) << dt(2024, 3, 1);
    QTest::newRow("w adds days") << "w" << 1.0 << dt(2024, 12, 31) << dt(2025, 1, 1);
    QTest::newRow("ww adds weeks") << "ww" << 2.0 << dt(2024, 2, 1) << dt(2024, 2, 15);
    QTest::newRow("d -7 (Value - 7)") << "d" << -7.0 << dt(2024, 3, 5) << dt(2024, 2, 27);
    QTest::newRow("h across midnight")
        << "h" << 1.0 << dt(2024, 2, 1, 23, 30) << dt(2024, 2, 2, 0, 30);
    QTest::newRow("n 61 rolls into the next hour")
        << "n" << 61.0 << dt(2024, 2, 1, 10) << dt(2024, 2, 1, 11, 1);
    QTest::newRow("s") << "s" << -1.0 << dt(2024, 2, 1) << dt(2024, 1, 31, 23, 59, 59);
    QTest::newRow("H") << "H" << 24.0 << dt(2024, 2, 1, 5) << dt(2024, 2, 2, 5);
    // The count is rounded to a whole number first, halves to even.
    QTest::newRow("n 0.5 → 0") << "n" << 0.5 << dt(2024, 2, 1, 10) << dt(2024, 2, 1, 10);
    QTest::newRow("n 1.5 → 2") << "n" << 1.5 << dt(2024, 2, 1, 10) << dt(2024, 2, 1, 10, 2);
    QTest::newRow("n 2.5 → 2") << "n" << 2.5 << dt(2024, 2, 1, 10) << dt(2024, 2, 1, 10, 2);
    QTest::newRow("n -2.5 → -2") << "n" << -2.5 << dt(2024, 2, 1, 10) << dt(2024, 2, 1, 9, 58);
    QTest::newRow("d 1.6 → 2") << "d" << 1.6 << dt(2024, 2, 1) << dt(2024, 2, 3);
    QTest::newRow("m 0.4 → 0") << "m" << 0.4 << dt(2024, 1, 31) << dt(2024, 1, 31);

    // Solar terms: DateAdd("n", (y − 1900) × 525948.76 + T, #1900-01-06 02:05#).
    const QDateTime base = dt(1900, 1, 6, 2, 5);
    QTest::newRow("1900 小寒") << "n" << 0.0 << base << base;
    QTest::newRow("2024 小寒 (T 0)")
        << "n" << (2024 - 1900) * 525948.76 + 0 << base << dt(2024, 1, 6, 2, 51);
    QTest::newRow("2024 立春 (T 42467)")
        << "n" << (2024 - 1900) * 525948.76 + 42467 << base << dt(2024, 2, 4, 14, 38);
    QTest::newRow("2024 清明 (T 128867)")
        << "n" << (2024 - 1900) * 525948.76 + 128867 << base << dt(2024, 4, 4, 14, 38);
    QTest::newRow("2024 夏至 (T 240693)")
        << "n" << (2024 - 1900) * 525948.76 + 240693 << base << dt(2024, 6, 21, 6, 24);
    QTest::newRow("2024 冬至 (T 504758)")
        << "n" << (2024 - 1900) * 525948.76 + 504758 << base << dt(2024, 12, 21, 15, 29);
    QTest::newRow("2000 春分 (T 107014)")
        << "n" << (2000 - 1900) * 525948.76 + 107014 << base << dt(2000, 3, 20, 14, 55);
    QTest::newRow("2049 冬至 (T 504758)")
        << "n" << (2049 - 1900) * 525948.76 + 504758 << base << dt(2049, 12, 21, 16, 48);
}

void tst_VbDateTime::dateAdd()
{
    QFETCH(QString, interval);
    QFETCH(double, number);
    QFETCH(QDateTime, date);
    QFETCH(QDateTime, result);
    const QDateTime got = DateAdd(interval, number, date);
    QCOMPARE(got, result);
    QCOMPARE(got.timeSpec(), Qt::UTC);
}

void tst_VbDateTime::dateAddErrors_data()
{
    QTest::addColumn<QString>("interval");
    QTest::addColumn<double>("number");
    QTest::addColumn<QDateTime>("date");

    QTest::newRow("unknown interval") << "x" << 1.0 << dt(2024, 2, 1);
    QTest::newRow("empty interval") << "" << 1.0 << dt(2024, 2, 1);
    QTest::newRow("before year 100 by days") << "d" << -1.0 << dt(100, 1, 1);
    QTest::newRow("before year 100 by months") << "m" << -1.0 << dt(100, 1, 31);
    QTest::newRow("after 9999 by seconds") << "s" << 1.0 << dt(9999, 12, 31, 23, 59, 59);
    QTest::newRow("after 9999 by years") << "yyyy" << 1.0 << dt(9999, 1, 1);
    QTest::newRow("huge count") << "n" << 1e300 << dt(2024, 2, 1);
}

void tst_VbDateTime::dateAddErrors()
{
    QFETCH(QString, interval);
    QFETCH(double, number);
    QFETCH(QDateTime, date);
    QCOMPARE(errorNumberOf([&] { DateAdd(interval, number, date); }), 5);
}

// §13 DateDiff: calendar units count boundaries crossed; times are ignored for days.
void tst_VbDateTime::dateDiff_data()
{
    QTest::addColumn<QString>("interval");
    QTest::addColumn<QDateTime>("date1");
    QTest::addColumn<QDateTime>("date2");
    QTest::addColumn<qint64>("diff");

    QTest::newRow("d 23:59 → 00:01 = 1")
        << "d" << dt(2024, 2, 1, 23, 59) << dt(2024, 2, 2, 0, 1) << qint64(1);
    QTest::newRow("d Feb 2024 = 29") << "d" << dt(2024, 2, 1) << dt(2024, 3, 1) << qint64(29);
    QTest::newRow("d backwards = -29") << "d" << dt(2024, 3, 1) << dt(2024, 2, 1) << qint64(-29);
    QTest::newRow("d same day, times differ")
        << "d" << dt(2024, 2, 1, 0, 1) << dt(2024, 2, 1, 23, 59) << qint64(0);
    QTest::newRow("D (case-insensitive)") << "D" << dt(2024, 2, 1) << dt(2024, 2, 3) << qint64(2);
    QTest::newRow("y counts days") << "y" << dt(2024, 2, 1) << dt(2024, 2, 3) << qint64(2);
    QTest::newRow("yyyy 12-31 → 01-01 = 1")
        << "yyyy" << dt(2023, 12, 31) << dt(2024, 1, 1) << qint64(1);
    QTest::newRow("yyyy same year = 0")
        << "yyyy" << dt(2024, 1, 1) << dt(2024, 12, 31) << qint64(0);
    QTest::newRow("q 03-31 → 04-01 = 1") << "q" << dt(2024, 3, 31) << dt(2024, 4, 1) << qint64(1);
    QTest::newRow("q across a year = 2") << "q" << dt(2023, 12, 1) << dt(2024, 4, 1) << qint64(2);
    QTest::newRow("m 01-31 → 02-01 = 1") << "m" << dt(2024, 1, 31) << dt(2024, 2, 1) << qint64(1);
    QTest::newRow("m backwards over a year")
        << "m" << dt(2024, 2, 1) << dt(2023, 1, 31) << qint64(-13);
    QTest::newRow("ww Sat → Sun = 1") << "ww" << dt(2024, 2, 3) << dt(2024, 2, 4) << qint64(1);
    QTest::newRow("ww Sun → Sat = 0") << "ww" << dt(2024, 2, 4) << dt(2024, 2, 10) << qint64(0);
    QTest::newRow("ww Sun → Sun = 1") << "ww" << dt(2024, 2, 4) << dt(2024, 2, 11) << qint64(1);
    QTest::newRow("ww backwards") << "ww" << dt(2024, 2, 11) << dt(2024, 2, 3) << qint64(-2);
    QTest::newRow("w 6 days = 0") << "w" << dt(2024, 2, 1) << dt(2024, 2, 7) << qint64(0);
    QTest::newRow("w 7 days = 1") << "w" << dt(2024, 2, 1) << dt(2024, 2, 8) << qint64(1);
    QTest::newRow("w -6 days = 0") << "w" << dt(2024, 2, 7) << dt(2024, 2, 1) << qint64(0);
    QTest::newRow("w -7 days = -1") << "w" << dt(2024, 2, 8) << dt(2024, 2, 1) << qint64(-1);
    QTest::newRow("h 1:59 → 2:01 = 1")
        << "h" << dt(2024, 2, 1, 1, 59) << dt(2024, 2, 1, 2, 1) << qint64(1);
    QTest::newRow("h across midnight = 2")
        << "h" << dt(2024, 2, 1, 23) << dt(2024, 2, 2, 1) << qint64(2);
    QTest::newRow("n 10:00:59 → 10:01:00 = 1")
        << "n" << dt(2024, 2, 1, 10, 0, 59) << dt(2024, 2, 1, 10, 1, 0) << qint64(1);
    QTest::newRow("n backwards") << "n" << dt(2024, 2, 1, 10, 1) << dt(2024, 2, 1, 9, 59, 59)
                                 << qint64(-2);
    QTest::newRow("s one day") << "s" << dt(2024, 2, 1) << dt(2024, 2, 2) << qint64(86400);
}

void tst_VbDateTime::dateDiff()
{
    QFETCH(QString, interval);
    QFETCH(QDateTime, date1);
    QFETCH(QDateTime, date2);
    QFETCH(qint64, diff);
    QCOMPARE(DateDiff(interval, date1, date2), diff);
}

void tst_VbDateTime::dateDiffUnknownInterval()
{
    QCOMPARE(errorNumberOf([] { DateDiff(QStringLiteral("x"), dt(2024, 2, 1), dt(2024, 2, 2)); }),
             5);
    QCOMPARE(errorNumberOf([] { DateDiff(QStringLiteral("mm"), dt(2024, 2, 1), dt(2024, 2, 2)); }),
             5);
}

// §13 Weekday: 1 Sunday .. 7 Saturday whatever the locale; §11's w vector for firstdayofweek.
void tst_VbDateTime::weekday_data()
{
    QTest::addColumn<QDateTime>("date");
    QTest::addColumn<int>("firstDayOfWeek");
    QTest::addColumn<int>("weekday");

    QTest::newRow("serial 0 → 7") << dt(1899, 12, 30) << 1 << 7;
    QTest::newRow("1980-01-01 → 3") << dt(1980, 1, 1) << 1 << 3;
    QTest::newRow("2010-12-19 → 1") << dt(2010, 12, 19) << 1 << 1;
    QTest::newRow("2024-02-01 → 5") << dt(2024, 2, 1) << 1 << 5;
    QTest::newRow("1900-01-01 12:36 → 2") << dt(1900, 1, 1, 12, 36) << 1 << 2;
    QTest::newRow("serial 0, Monday first → 6") << dt(1899, 12, 30) << 2 << 6;
    QTest::newRow("serial 0, Friday first → 2") << dt(1899, 12, 30) << 6 << 2;
    QTest::newRow("serial 0, Saturday first → 1") << dt(1899, 12, 30) << 7 << 1;
    QTest::newRow("negative serial -5.25 (Monday)") << dt(1899, 12, 25, 6) << 1 << 2;
}

void tst_VbDateTime::weekday()
{
    QFETCH(QDateTime, date);
    QFETCH(int, firstDayOfWeek);
    QFETCH(int, weekday);
    QCOMPARE(Weekday(date, firstDayOfWeek), weekday);
}

void tst_VbDateTime::weekdayInvalidFirstDay()
{
    QCOMPARE(errorNumberOf([] { Weekday(dt(2024, 2, 1), 8); }), 5);
    QCOMPARE(errorNumberOf([] { Weekday(dt(2024, 2, 1), -1); }), 5);
}

// §16: the spec's own worked examples that use the date functions.
void tst_VbDateTime::specExamples()
{
    for (VbLocale locale : {VbLocale::EnUS, VbLocale::ZhCN}) {
        // Part 3.1: sInitDate(1900, 1, 31) → CDate("1900/1/31") = serial 32, offset 1.
        const QDateTime init = CDate(QStringLiteral("1900/1/31"), locale);
        QCOMPARE(DateToSerial(init), 32.0);
        QCOMPARE(DateToSerial(init) - 31, 1.0);

        // Part 3.2: month data for 2024-02-15: first = CDate("2024-02" & "-01").
        const QDateTime first = CDate(QStringLiteral("2024-02") + QStringLiteral("-01"), locale);
        QCOMPARE(first, dt(2024, 2, 1));
        QCOMPARE(DateDiff(QStringLiteral("d"), first, DateAdd(QStringLiteral("m"), 1, first)),
                 qint64(29));
        QCOMPARE(Weekday(first), 5);

        // Part 3.3: Validate trims " 2024-2-5 " and accepts it.
        QVERIFY(IsDate(QStringLiteral(" 2024-2-5 "), locale));
        QCOMPARE(CDate(QStringLiteral("2024-2-5"), locale), dt(2024, 2, 5));

        // Part 1.5: "abc" stores nothing.
        QVERIFY(!IsDate(QStringLiteral("abc"), locale));
    }
}

QTEST_APPLESS_MAIN(tst_VbDateTime)

#include "tst_vbdatetime.moc"
