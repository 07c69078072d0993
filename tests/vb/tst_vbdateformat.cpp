// SPDX-License-Identifier: MIT
// Format of a date: the tokens, minute or month for m/mm, named date formats, CStr(date), and
// which formats count as date formats.
#include "vb/VbFormat_p.h"
#include <VemoGridLib/VbDateTime.h>
#include <VemoGridLib/VbFormat.h>

#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;
using namespace VemoGridLib::vb;
using VemoTest::dt;

namespace {
constexpr VbLocale En = VbLocale::EnUS, Zh = VbLocale::ZhCN;
// Serial 2.525: 1900-01-01 12:36:00, a Monday.
const QDateTime Ref = dt(1900, 1, 1, 12, 36);

void row(const QDateTime& value, const char16_t* format, VbLocale locale, const char16_t* text)
{
    const QString f = QString::fromUtf16(format);
    QTest::addRow("%s %s", qPrintable(f), locale == En ? "en" : "zh")
        << value << f << locale << QString::fromUtf16(text);
}

// Numeric tokens come out the same in both locales.
void both(const char16_t* format, const char16_t* text)
{
    row(Ref, format, En, text);
    row(Ref, format, Zh, text);
}

} // namespace

class tst_VbDateFormat : public QObject
{
    Q_OBJECT

private slots:
    void tokens_data()
    {
        QTest::addColumn<QDateTime>("value");
        QTest::addColumn<QString>("format");
        QTest::addColumn<VbLocale>("locale");
        QTest::addColumn<QString>("text");
        both(u"d dd w ww q y yy yyy yyyy", u"1 01 2 1 1 1 00 001 1900");
        both(u"YYYY-MM-Dd Hh:Nn:Ss", u"1900-01-01 12:36:00");
        both(u"yyyyy qq", u"19001 11");
        both(u"d \\d\\m \"yyyy\" 0#%;yyyy", u"1 dm yyyy 0#%");
        both(u"\"open yyyy", u"open yyyy");
        // m/mm is the minute right after an hour token, once; blanks and ':' between are fine.
        both(u"h:m", u"12:36");
        both(u"hh:mm :ss:mm", u"12:36 :00:01");
        both(u"mm :ss:mm", u"01 :00:01");
        both(u"dd :mm:nn", u"01 :01:36");
        both(u"hh :mm", u"12 :36");
        both(u"h :m", u"12 :36");
        both(u"hh-mm", u"12-01");
        row(Ref, u"hh:mmm", En, u"12:Jan");
        row(Ref, u"dddd ddd mmmm mmm", En, u"Monday Mon January Jan");
        row(dt(2024, 12, 7), u"dddd ddd mmmm mmm", Zh, u"星期六 星期六 十二月 12月");
        row(Ref, u"ddddd|dddddd", En, u"1/1/1900|Monday, January 01, 1900");
        row(Ref, u"ddddd|dddddd", Zh, u"1900/1/1|1900年1月1日");
        row(Ref, u"yyyy年m月d日", Zh, u"1900年1月1日");
        // Hours are on the 12-hour clock once the format has any AM/PM token.
        row(dt(2024, 2, 3, 0, 36), u"h AM/PM am/pm Am/Pm AMPM a/p", En, u"12 AM am Am AM a");
        row(dt(2024, 2, 3, 13, 5), u"h AM/PM AMPM A/P", Zh, u"1 下午 下午 P");
        row(dt(2024, 2, 3, 1, 5), u"h:nn", En, u"1:05");
        row(dt(1899, 12, 30), u"w", En, u"7");
        row(dt(1900, 1, 7), u"ww", En, u"2");
        row(dt(2024, 12, 31), u"ww y", En, u"53 366");
        row(QDateTime(QDate(2024, 2, 3), QTime(23, 59, 59, 500), Qt::UTC), u"yyyy-mm-dd hh:nn:ss",
            En, u"2024-02-04 00:00:00");
        // A number format shows the day serial, a text format the general text.
        row(dt(2024, 2, 3, 12), u"#,##0.00", En, u"45,325.50");
        row(Ref, u"\"yyyy\"0", En, u"yyyy3");
        row(Ref, u"0.00;yyyy", En, u"2.53");
        row(dt(2024, 2, 3, 12), u"@@@@@@@@@@@@@@@@@@@@@", En, u" 2/3/2024 12:00:00 PM");
        // Named formats, any letter case; CStr is the general date: no time at midnight, no
        // date on day 0.
        const QDateTime morning = dt(2024, 2, 3, 1, 5, 9);
        row(Ref, u"Medium Date", En, u"01-Jan-00");
        row(Ref, u"Medium Date", Zh, u"00-01-01");
        row(morning, u"Long Time", En, u"1:05:09 AM");
        row(morning, u"Long Time", Zh, u"1:05:09");
        row(morning, u"Medium Time", En, u"01:05 AM");
        row(Ref, u"Medium Time", Zh, u"12:36 下午");
        row(morning, u"SHORT TIME", En, u"01:05");
        row(dt(2024, 12, 25, 12), u"", En, u"12/25/2024 12:00:00 PM");
        row(dt(2024, 2, 3, 13, 5, 9), u"general date", Zh, u"2024/2/3 13:05:09");
        row(dt(2024, 2, 3), u"", En, u"2/3/2024");
        row(dt(1899, 12, 30, 13, 5, 9), u"", En, u"1:05:09 PM");
        row(dt(1899, 12, 30), u"", Zh, u"0:00:00");
    }
    void tokens()
    {
        QFETCH(QDateTime, value);
        QFETCH(QString, format);
        QFETCH(VbLocale, locale);
        QTEST(Format(value, format, locale), "text");
        if (format.isEmpty() || format.startsWith(u"general", Qt::CaseInsensitive))
            QTEST(CStr(value, locale), "text");
        if (detail::isDateFormat(format)) // a number is taken as a day serial
            QTEST(Format(DateToSerial(value), format, locale), "text");
    }
};

QTEST_APPLESS_MAIN(tst_VbDateFormat)
#include "tst_vbdateformat.moc"
