// VB runtime subset, date side of Format and CStr(date) (vb-semantics.md §11, §12, §15, §16).
// Every row is a vector or worked example of that note; zh-CN names are the unconfirmed
// choices documented in VbDateFormat.cpp.
#include <VemoGridLib/VbDateTime.h>
#include <VemoGridLib/VbFormat.h>
#include "vb/VbFormat_p.h"

#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;
using namespace VemoGridLib::vb;
using VemoTest::dt;

namespace {

// §11's reference value: serial 2.525 = 1900-01-01 12:36:00, a Monday.
QDateTime reference()
{
    return dt(1900, 1, 1, 12, 36);
}

} // namespace

class tst_VbDateFormat : public QObject
{
    Q_OBJECT

private slots:
    void tokens_data();
    void tokens();
    void namedFormats_data();
    void namedFormats();
    void cstr_data();
    void cstr();
    void emptyFormatIsCStr();
    void specExamples_data();
    void specExamples();
    void dateFormatDispatch_data();
    void dateFormatDispatch();
    void numberAndTextFormatsOfADate_data();
    void numberAndTextFormatsOfADate();

private:
    static void addFormatColumns();
    static void checkFormat();
};

// Columns and check shared by the tables of a date, a format, a locale and the text.
void tst_VbDateFormat::addFormatColumns()
{
    QTest::addColumn<QDateTime>("value");
    QTest::addColumn<QString>("format");
    QTest::addColumn<VbLocale>("locale");
    QTest::addColumn<QString>("text");
}

void tst_VbDateFormat::checkFormat()
{
    QFETCH(QDateTime, value);
    QFETCH(QString, format);
    QFETCH(VbLocale, locale);
    QFETCH(QString, text);
    QCOMPARE(Format(value, format, locale), text);
}

void tst_VbDateFormat::tokens_data()
{
    addFormatColumns();

    const VbLocale en = VbLocale::EnUS, zh = VbLocale::ZhCN;
    const QDateTime v = reference();
    auto both = [&v](const char* format, const QString& text) {
        QTest::addRow("%s (en-US)", format)
            << v << QString::fromUtf8(format) << VbLocale::EnUS << text;
        QTest::addRow("%s (zh-CN)", format)
            << v << QString::fromUtf8(format) << VbLocale::ZhCN << text;
    };

    // The §11 token table for 2.525; numeric tokens are the same in both locales.
    both("d", "1");
    both("dd", "01");
    both("w", "2");
    both("ww", "1");
    both("m", "1");
    both("mm", "01");
    both("q", "1");
    both("y", "1");
    both("yy", "00");
    both("yyyy", "1900");
    both("yyy", "001");
    both("h", "12");
    both("hh", "12");
    both("n", "36");
    both("nn", "36");
    both("s", "0");
    both("ss", "00");
    both("A/P", "P");
    both("a/p", "p");
    // Minute vs month: only m/mm right after an hour token (blanks and ':' between), once.
    both("hh:mm :ss:mm", "12:36 :00:01");
    both("mm :ss:mm", "01 :00:01");
    both("dd :mm:nn", "01 :01:36");
    both("h:m", "12:36");
    both("hh mm", "12 36");
    both("hh :mm", "12 :36");
    both("h :m", "12 :36");
    both("hh-mm", "12-01");
    // Letter case does not matter.
    both("MM", "01");
    both("Hh", "12");
    both("Nn", "36");
    both("Ss", "00");
    both("YYYY", "1900");
    both("D/M/YY", "1/1/00");
    // Runs longer than a token start a new one.
    both("yyyyy", "19001");
    both("qq", "11");
    // Separators and literals.
    both("yyyy/mm/dd", "1900/01/01");
    both("hh:nn:ss", "12:36:00");
    both("yyyy-mm-dd", "1900-01-01");
    both("\\d\\m d", "dm 1");
    both("\"yyyy\" yyyy", "yyyy 1900");
    both("yyyy0#%", "19000#%");
    both("d;yyyy", "1"); // only the first section
    both("\"unterminated yyyy", "unterminated yyyy");

    // Locale names (§15: zh-CN unconfirmed).
    QTest::newRow("ddd (en-US)") << v << "ddd" << en << "Mon";
    QTest::newRow("dddd (en-US)") << v << "dddd" << en << "Monday";
    QTest::newRow("mmm (en-US)") << v << "mmm" << en << "Jan";
    QTest::newRow("mmmm (en-US)") << v << "mmmm" << en << "January";
    QTest::newRow("MMMM (en-US)") << v << "MMMM" << en << "January";
    QTest::newRow("ddddd (en-US)") << v << "ddddd" << en << "1/1/1900";
    QTest::newRow("dddddd (en-US)") << v << "dddddd" << en << "Monday, January 01, 1900";
    QTest::newRow("AM/PM (en-US)") << v << "AM/PM" << en << "PM";
    QTest::newRow("am/pm (en-US)") << v << "am/pm" << en << "pm";
    QTest::newRow("AMPM (en-US)") << v << "AMPM" << en << "PM";
    QTest::newRow("hh:mmm (en-US)") << v << "hh:mmm" << en << "12:Jan";
    QTest::newRow("ddddddd (en-US)") << v << "ddddddd" << en << "Monday, January 01, 19001";
    QTest::newRow("ddd (zh-CN)") << v << "ddd" << zh << QStringLiteral("星期一");
    QTest::newRow("dddd (zh-CN)") << v << "dddd" << zh << QStringLiteral("星期一");
    QTest::newRow("mmm (zh-CN)") << v << "mmm" << zh << QStringLiteral("1月");
    QTest::newRow("mmmm (zh-CN)") << v << "mmmm" << zh << QStringLiteral("一月");
    QTest::newRow("ddddd (zh-CN)") << v << "ddddd" << zh << "1900/1/1";
    QTest::newRow("dddddd (zh-CN)") << v << "dddddd" << zh << QStringLiteral("1900年1月1日");
    QTest::newRow("AM/PM (zh-CN)") << v << "AM/PM" << zh << QStringLiteral("下午");
    QTest::newRow("am/pm (zh-CN)") << v << "am/pm" << zh << QStringLiteral("下午");
    QTest::newRow("AMPM (zh-CN)") << v << "AMPM" << zh << QStringLiteral("下午");
    QTest::newRow("hh:mmm (zh-CN)") << v << "hh:mmm" << zh << QStringLiteral("12:1月");
    QTest::newRow("ddddddd (zh-CN)") << v << "ddddddd" << zh << QStringLiteral("1900年1月1日1");
    QTest::newRow("yyyy年m月d日 (zh-CN)")
        << v << QStringLiteral("yyyy年m月d日") << zh << QStringLiteral("1900年1月1日");
    QTest::newRow("mmmm 2000-02-01 (en-US)") << dt(2000, 2, 1) << "mmmm" << en << "February";
    QTest::newRow("mmmm 2000-02-01 (zh-CN)")
        << dt(2000, 2, 1) << "mmmm" << zh << QStringLiteral("二月");
    QTest::newRow("dddd all days") << dt(2024, 2, 4) << "dddd ddd" << en << "Sunday Sun";
    QTest::newRow("mmmm December") << dt(2024, 12, 4) << "mmmm mmm" << en << "December Dec";
    QTest::newRow("dddd Saturday (zh-CN)")
        << dt(2024, 2, 3) << "dddd" << zh << QStringLiteral("星期六");
    QTest::newRow("mmm December (zh-CN)")
        << dt(2024, 12, 4) << "mmmm mmm" << zh << QStringLiteral("十二月 12月");

    // Hours: 24-hour unless an AM/PM token is present; case of AM/PM as written.
    QTest::newRow("h at 00:36 with AM/PM") << dt(1900, 1, 1, 0, 36) << "h AM/PM" << en << "12 AM";
    QTest::newRow("hh at 13:05") << dt(2024, 2, 3, 13, 5) << "hh:nn" << en << "13:05";
    QTest::newRow("h at 13:05 with a/p") << dt(2024, 2, 3, 13, 5) << "h:nn a/p" << en << "1:05 p";
    QTest::newRow("hh at 01:05 with AM/PM")
        << dt(2024, 2, 3, 1, 5) << "hh:nn AM/PM" << en << "01:05 AM";
    QTest::newRow("h at 00:00 24-hour") << dt(2024, 2, 3) << "h:nn" << en << "0:00";
    QTest::newRow("Am/Pm as written") << dt(2024, 2, 3, 1, 5) << "Am/Pm" << en << "Am";
    QTest::newRow("A/P in zh-CN stays a letter") << dt(2024, 2, 3, 1, 5) << "A/P" << zh << "A";
    QTest::newRow("AM/PM morning (zh-CN)")
        << dt(2024, 2, 3, 1, 5) << "h AM/PM" << zh << QStringLiteral("1 上午");

    // w with Sunday first: serial 0 (a Saturday) is 7.
    QTest::newRow("w serial 0") << dt(1899, 12, 30) << "w" << en << "7";
    QTest::newRow("w Sunday") << dt(2010, 12, 19) << "w" << en << "1";
    // ww: weeks start on Sunday, the week holding 1 January is week 1.
    QTest::newRow("ww Saturday 1900-01-06") << dt(1900, 1, 6) << "ww" << en << "1";
    QTest::newRow("ww Sunday 1900-01-07") << dt(1900, 1, 7) << "ww" << en << "2";
    QTest::newRow("ww 2024-12-31") << dt(2024, 12, 31) << "ww" << en << "53";
    QTest::newRow("ww 2023-01-01 (a Sunday)") << dt(2023, 1, 1) << "ww" << en << "1";
    QTest::newRow("ww 2022-12-31 (a Saturday)") << dt(2022, 12, 31) << "ww" << en << "53";
    QTest::newRow("q 2024-11-05") << dt(2024, 11, 5) << "q" << en << "4";
    QTest::newRow("y 2024-12-31") << dt(2024, 12, 31) << "y" << en << "366";
    QTest::newRow("yy 2009") << dt(2009, 6, 1) << "yy" << en << "09";
    QTest::newRow("milliseconds round to the second")
        << QDateTime(QDate(2024, 2, 3), QTime(23, 59, 59, 500), Qt::UTC) << "yyyy-mm-dd hh:nn:ss"
        << en << "2024-02-04 00:00:00";

    // §11 spec formats (both locales, numeric tokens only).
    both("yyyymmddHhNnSs", "19000101123600");
    QTest::newRow("2024-02-03 yyyy-mm-dd") << dt(2024, 2, 3) << "yyyy-mm-dd" << en << "2024-02-03";
    QTest::newRow("2024-02-03 yyyy-MM-dd") << dt(2024, 2, 3) << "yyyy-MM-dd" << zh << "2024-02-03";
    QTest::newRow("2024-02-15 yyyy-mm") << dt(2024, 2, 15) << "yyyy-mm" << en << "2024-02";
    QTest::newRow("2024-01-05 yyyymmddHhNnSs")
        << dt(2024, 1, 5) << "yyyymmddHhNnSs" << en << "20240105000000";
    QTest::newRow("2023-12-31 13:05:09 yyyymmddHhNnSs")
        << dt(2023, 12, 31, 13, 5, 9) << "yyyymmddHhNnSs" << zh << "20231231130509";

    // §12: the serial 39697.11 (2008-09-06 02:38:24).
    QTest::newRow("39697.11 hh:mm") << dt(2008, 9, 6, 2, 38, 24) << "hh:mm" << en << "02:38";
    QTest::newRow("39697.11 mm-dd-yy")
        << dt(2008, 9, 6, 2, 38, 24) << "mm-dd-yy" << en << "09-06-08";
}

void tst_VbDateFormat::tokens()
{
    checkFormat();
}

// Named date formats, both locales; names are case-insensitive.
void tst_VbDateFormat::namedFormats_data()
{
    addFormatColumns();

    const VbLocale en = VbLocale::EnUS, zh = VbLocale::ZhCN;
    const QDateTime v = reference();
    const QDateTime morning = dt(2024, 2, 3, 1, 5, 9);

    QTest::newRow("General Date (en-US)") << v << "General Date" << en << "1/1/1900 12:36:00 PM";
    QTest::newRow("Long Date (en-US)") << v << "Long Date" << en << "Monday, January 01, 1900";
    QTest::newRow("Medium Date (en-US)") << v << "Medium Date" << en << "01-Jan-00";
    QTest::newRow("Short Date (en-US)") << v << "Short Date" << en << "1/1/1900";
    QTest::newRow("Long Time (en-US)") << v << "Long Time" << en << "12:36:00 PM";
    QTest::newRow("Medium Time (en-US)") << v << "Medium Time" << en << "12:36 PM";
    QTest::newRow("Short Time (en-US)") << v << "Short Time" << en << "12:36";
    QTest::newRow("Long Time morning (en-US)") << morning << "Long Time" << en << "1:05:09 AM";
    QTest::newRow("Medium Time morning (en-US)") << morning << "Medium Time" << en << "01:05 AM";
    QTest::newRow("Short Time morning (en-US)") << morning << "Short Time" << en << "01:05";
    QTest::newRow("short date (any case)") << v << "short date" << en << "1/1/1900";
    QTest::newRow("LONG TIME (any case)") << v << "LONG TIME" << en << "12:36:00 PM";

    QTest::newRow("General Date (zh-CN)") << v << "General Date" << zh << "1900/1/1 12:36:00";
    QTest::newRow("Long Date (zh-CN)") << v << "Long Date" << zh << QStringLiteral("1900年1月1日");
    QTest::newRow("Medium Date (zh-CN)") << v << "Medium Date" << zh << "00-01-01";
    QTest::newRow("Short Date (zh-CN)") << v << "Short Date" << zh << "1900/1/1";
    QTest::newRow("Long Time (zh-CN)") << v << "Long Time" << zh << "12:36:00";
    QTest::newRow("Medium Time (zh-CN)")
        << v << "Medium Time" << zh << QStringLiteral("12:36 下午");
    QTest::newRow("Short Time (zh-CN)") << v << "Short Time" << zh << "12:36";
    QTest::newRow("Long Time morning (zh-CN)") << morning << "Long Time" << zh << "1:05:09";
}

void tst_VbDateFormat::namedFormats()
{
    checkFormat();
}

// CStr(date): the date alone at midnight, the time alone on day 0 (serial 0 itself included).
void tst_VbDateFormat::cstr_data()
{
    QTest::addColumn<QDateTime>("value");
    QTest::addColumn<VbLocale>("locale");
    QTest::addColumn<QString>("text");

    const VbLocale en = VbLocale::EnUS, zh = VbLocale::ZhCN;
    QTest::newRow("date (en-US)") << dt(2024, 2, 3) << en << "2/3/2024";
    QTest::newRow("time (en-US)") << dt(1899, 12, 30, 13, 5, 9) << en << "1:05:09 PM";
    QTest::newRow("both (en-US)") << dt(2024, 2, 3, 13, 5, 9) << en << "2/3/2024 1:05:09 PM";
    QTest::newRow("serial 0 (en-US)") << dt(1899, 12, 30) << en << "12:00:00 AM";
    QTest::newRow("noon (en-US)") << dt(2024, 12, 25, 12) << en << "12/25/2024 12:00:00 PM";
    QTest::newRow("null is serial 0 (en-US)") << QDateTime() << en << "12:00:00 AM";
    QTest::newRow("date (zh-CN)") << dt(2024, 2, 3) << zh << "2024/2/3";
    QTest::newRow("time (zh-CN)") << dt(1899, 12, 30, 13, 5, 9) << zh << "13:05:09";
    QTest::newRow("both (zh-CN)") << dt(2024, 2, 3, 13, 5, 9) << zh << "2024/2/3 13:05:09";
    QTest::newRow("serial 0 (zh-CN)") << dt(1899, 12, 30) << zh << "0:00:00";
    QTest::newRow("morning (zh-CN)") << dt(2024, 12, 25, 1, 2, 3) << zh << "2024/12/25 1:02:03";
}

void tst_VbDateFormat::cstr()
{
    QFETCH(QDateTime, value);
    QFETCH(VbLocale, locale);
    QFETCH(QString, text);
    QCOMPARE(CStr(value, locale), text);
}

void tst_VbDateFormat::emptyFormatIsCStr()
{
    for (VbLocale locale : {VbLocale::EnUS, VbLocale::ZhCN}) {
        for (const QDateTime& v : {reference(), dt(2024, 2, 3), dt(1899, 12, 30, 13, 5, 9)}) {
            QCOMPARE(Format(v, QString(), locale), CStr(v, locale));
            QCOMPARE(Format(v, QStringLiteral(""), locale), CStr(v, locale));
            QCOMPARE(Format(v, QStringLiteral("General Date"), locale), CStr(v, locale));
        }
    }
}

// §16: the spec's worked examples (date column, sort key, Validate), through CDate and Format.
void tst_VbDateFormat::specExamples_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("result");

    QTest::newRow("Part 1.5 date column") << "2024-2-3"
                                          << "yyyy-mm-dd"
                                          << "2024-02-03";
    QTest::newRow("Part 1.6 sort key 2024-01-05") << "2024-01-05"
                                                  << "yyyymmddHhNnSs"
                                                  << "20240105000000";
    QTest::newRow("Part 1.6 sort key 2023-12-31") << "2023-12-31"
                                                  << "yyyymmddHhNnSs"
                                                  << "20231231000000";
    QTest::newRow("Part 3.3 Validate") << " 2024-2-5 "
                                       << "yyyy-mm-dd"
                                       << "2024-02-05";
    QTest::newRow("Part 3.1 sInitDate") << "1900/1/31"
                                        << "yyyy-mm-dd"
                                        << "1900-01-31";
}

void tst_VbDateFormat::specExamples()
{
    QFETCH(QString, text);
    QFETCH(QString, format);
    QFETCH(QString, result);
    for (VbLocale locale : {VbLocale::EnUS, VbLocale::ZhCN}) {
        QVERIFY(IsDate(text, locale));
        QCOMPARE(Format(CDate(text, locale), format, locale), result);
    }
}

// detail::isDateFormat: named date formats, or a first section whose first placeholder is a date
// token. Number formats, whose letters are literals ("##abc"), and the named number formats are
// not. For a date format, Format(number, fmt) takes the number as a day serial.
void tst_VbDateFormat::dateFormatDispatch_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("isDate");

    for (const char* f : {"yyyy-mm-dd",  "yyyymmddHhNnSs",
                          "d",           "m",
                          "y",           "h",
                          "n",           "s",
                          "w",           "q",
                          "ww",          "AM/PM",
                          "a/p",         "ampm",
                          "Hh:Nn",       "\"at\" hh",
                          "\\0d",        "General Date",
                          "Long Date",   "Medium Date",
                          "Short Date",  "long time",
                          "Medium Time", "SHORT TIME",
                          "yyyy;0.00"})
        QTest::addRow("%s", f) << QString::fromLatin1(f) << true;
    for (const char* f : {"#,##0.00", "0.0E+00",    "0.00e+00",   "0",      "#",
                          "##abc",    "0 days",     "\"yyyy\"0",  "\\d0",   "0.00;yyyy",
                          "Standard", "Yes/No",     "True/False", "On/Off", "General Number",
                          "Percent",  "Scientific", "Currency",   "Fixed",  "@@@",
                          ">&&",      "",           "0%"})
        QTest::addRow("%s", f) << QString::fromLatin1(f) << false;
}

void tst_VbDateFormat::dateFormatDispatch()
{
    QFETCH(QString, format);
    QFETCH(bool, isDate);
    QCOMPARE(detail::isDateFormat(format), isDate);
    if (isDate)
        QCOMPARE(Format(reference(), format, VbLocale::EnUS),
                 Format(2.525, format, VbLocale::EnUS));
}

// A number format shows a date as its day serial, a text format as its general text.
void tst_VbDateFormat::numberAndTextFormatsOfADate_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");

    QTest::newRow("0.00") << "0.00"
                          << "45325.50";
    QTest::newRow("Standard") << "Standard"
                              << "45,325.50";
    QTest::newRow("#") << "#"
                       << "45326";
    QTest::newRow("text placeholders") << "@@@@@@@@@@@@@@@@@@@@@"
                                       << " 2/3/2024 12:00:00 PM";
    QTest::newRow("upper case") << ">"
                                << "2/3/2024 12:00:00 PM";
}

void tst_VbDateFormat::numberAndTextFormatsOfADate()
{
    QFETCH(QString, format);
    QTEST(Format(dt(2024, 2, 3, 12, 0), format, VbLocale::EnUS), "text");
}

QTEST_APPLESS_MAIN(tst_VbDateFormat)

#include "tst_vbdateformat.moc"
