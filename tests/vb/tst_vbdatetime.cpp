// SPDX-License-Identifier: MIT
// Dates: serials, DateSerial, IsDate/CDate in both locales, DateAdd, DateDiff, Weekday.
#include <VemoGridLib/VbDateTime.h>

#include "VemoTestSupport.h"

#include <QTest>

#include <functional>

using namespace VemoGridLib;
using namespace VemoGridLib::vb;
using VemoTest::dt;

Q_DECLARE_METATYPE(std::function<QVariant()>)

namespace {
// What `call` returns, or the number of the error it raises.
template <typename Call>
QVariant outcome(Call call)
{
    QVariant result;
    if (const int error = VemoTest::errorNumberOf([&] { result = QVariant::fromValue(call()); }))
        return error;
    return result;
}

} // namespace

class tst_VbDateTime : public QObject
{
    Q_OBJECT

private slots:
    // Serial 0 is 1899-12-30 with no 1900-02-29; a negative serial's |fraction| is the time.
    void calls_data()
    {
        QTest::addColumn<std::function<QVariant()>>("call");
        QTest::addColumn<QVariant>("result"); // an int is the error raised
#define CALL(expression, result)                                                                   \
    QTest::newRow(#expression) << std::function([] { return outcome([] { return expression; }); }) \
                               << QVariant(result)
        CALL(SerialToDate(2.525), dt(1900, 1, 1, 12, 36));
        CALL(SerialToDate(-5.25), dt(1899, 12, 25, 6));
        CALL(SerialToDate(-657434.5), dt(100, 1, 1, 12));
        CALL(SerialToDate(29221.7508765432), dt(1980, 1, 1, 18, 1, 16));
        CALL(SerialToDate(-657435.0), 6);
        CALL(SerialToDate(2958466.0), 6);
        CALL(int(SerialToDate(2.525).timeSpec()), int(Qt::UTC));
        CALL(DateSerial(2024, 3, 0), dt(2024, 2, 29));
        CALL(DateSerial(99, 13, -1), dt(1999, 12, 30));
        CALL(DateSerial(100, 1, 0), 5);
        CALL(DateSerial(9999, 13, 1), 5);
        CALL(Weekday(dt(1899, 12, 30)), 7);
        CALL(Weekday(dt(1899, 12, 25, 6)), 2);
        CALL(Weekday(dt(2024, 2, 1), 8), 5);
#undef CALL
    }
    void calls()
    {
        QFETCH(std::function<QVariant()>, call);
        QTEST(call(), "result");
    }

    void isDate_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<VbLocale>("locale");
        QTest::addColumn<QVariant>("date"); // 13: no date
        const auto row = [](const char16_t* text, VbLocale locale, const QVariant& date) {
            const QString t = QString::fromUtf16(text);
            QTest::addRow("%s %s", qPrintable(t), locale == VbLocale::EnUS ? "en" : "zh")
                << t << locale << date;
        };
        const auto both = [&row](const char16_t* text, const QVariant& date) {
            row(text, VbLocale::EnUS, date);
            row(text, VbLocale::ZhCN, date);
        };
        const int year = QDate::currentDate().year();
        both(u"1am", dt(1899, 12, 30, 1));
        both(u"13:00 AM", dt(1899, 12, 30, 13));
        both(u"12:59 a", dt(1899, 12, 30, 0, 59));
        both(u"0:60", 13);
        both(u"2024", 13);
        both(u"13-1-1970", dt(1970, 1, 13));
        row(u"10/11/12", VbLocale::EnUS, dt(2012, 10, 11));
        row(u"10/11/12", VbLocale::ZhCN, dt(2010, 11, 12));
        both(u"14 1", dt(year, 1, 14));
        both(u"30 2", dt(2030, 2, 1));
        row(u"十二月 25, 2024", VbLocale::ZhCN, dt(2024, 12, 25));
        row(u"1月5", VbLocale::ZhCN, dt(year, 1, 5));
        row(u"2024 一月 5", VbLocale::EnUS, 13);
        both(u"6/30/2011 01:20:34 PM", dt(2011, 6, 30, 13, 20, 34));
        both(u"2024-2-3\u300012:00", dt(2024, 2, 3, 12));
        row(u"1:00 下午", VbLocale::ZhCN, dt(1899, 12, 30, 13));
        both(u" 2024-02-5 ", dt(2024, 2, 5));
    }
    void isDate()
    {
        QFETCH(QString, text);
        QFETCH(VbLocale, locale);
        QFETCH(QVariant, date);
        QCOMPARE(IsDate(text, locale), date != QVariant(13));
        QCOMPARE(outcome([&] { return CDate(text, locale); }), date);
    }

    // DateAdd with a count, DateDiff with a second date (counting the boundaries crossed).
    void intervals_data()
    {
        QTest::addColumn<QString>("interval");
        QTest::addColumn<QDateTime>("date");
        QTest::addColumn<QVariant>("operand");
        QTest::addColumn<QVariant>("result");
        const QDateTime noon = dt(2024, 1, 31, 12);
        const auto row = [](const char* interval, const QDateTime& date, const QVariant& operand,
                            const QVariant& result) {
            QTest::addRow("%s %s %s", interval, qPrintable(date.toString(Qt::ISODate)),
                          qPrintable(operand.toString()))
                << QString::fromLatin1(interval) << date << operand << result;
        };
        row("M", dt(2024, 3, 31), -13, dt(2023, 2, 28));
        row("ww", noon, 2, dt(2024, 2, 14, 12));
        row("n", noon, 2.5, dt(2024, 1, 31, 12, 2));
        row("d", noon, 1.6, dt(2024, 2, 2, 12));
        // A solar term: the minutes since 1900-01-06 02:05 for the winter solstice of 2024.
        row("n", dt(1900, 1, 6, 2, 5), 124 * 525948.76 + 504758, dt(2024, 12, 21, 15, 29));
        row("x", noon, 1, 5);
        row("d", dt(100, 1, 1), -1, 5);
        row("n", noon, 1e300, 5);
        row("yyyy", dt(9999, 1, 1), 1, 5);
        row("d", dt(2024, 2, 1, 23, 59), dt(2024, 2, 2, 0, 1), qint64(1));
        row("y", dt(2024, 3, 1), dt(2024, 2, 1), qint64(-29));
        row("q", dt(2023, 12, 1), dt(2024, 4, 1), qint64(2));
        row("ww", dt(2024, 2, 11), dt(2024, 2, 3), qint64(-2));
        row("w", dt(2024, 2, 8), dt(2024, 2, 1), qint64(-1));
        row("n", dt(2024, 2, 1, 10, 1), dt(2024, 2, 1, 9, 59, 59), qint64(-2));
        row("h", dt(2024, 2, 1, 23), dt(2024, 2, 2, 1), qint64(2));
        row("s", dt(2024, 2, 1), dt(2024, 2, 2), qint64(86400));
        row("mm", dt(2024, 2, 1), dt(2024, 2, 2), 5);
    }
    void intervals()
    {
        QFETCH(QString, interval);
        QFETCH(QDateTime, date);
        QFETCH(QVariant, operand);
        if (operand.typeId() == QMetaType::QDateTime)
            QTEST(outcome([&] { return DateDiff(interval, date, operand.toDateTime()); }),
                  "result");
        else
            QTEST(outcome([&] { return DateAdd(interval, operand.toDouble(), date); }), "result");
    }
};

QTEST_APPLESS_MAIN(tst_VbDateTime)
#include "tst_vbdatetime.moc"
