// SPDX-License-Identifier: MIT
// Format of numbers, texts and dates: sections, digits, rounding, grouping, scientific forms,
// literals, named formats, text placeholders, numeric texts, date tokens and CStr(date).
#include "vb/VbFormat_p.h"
#include <VemoGridLib/VbDateTime.h>
#include <VemoGridLib/VbFormat.h>

#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;
using namespace VemoGridLib::vb;
using namespace Qt::StringLiterals;
using VemoTest::dt;

namespace {
constexpr int En = 1, Zh = 2, Both = 3;

} // namespace

class tst_VbFormat : public QObject
{
    Q_OBJECT

private slots:
    // A number is formatted in both locales; a date in `locales`, also as its day serial when
    // the format is a date format; a text in `locales`, numeric ones as the number.
    void format_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("format");
        QTest::addColumn<int>("locales");
        QTest::addColumn<QString>("text");
        const auto row = [](const QVariant& value, const char16_t* format, const char16_t* text,
                            int locales = En) {
            const QString f = QString::fromUtf16(format);
            QTest::addRow("%s %s %d", qPrintable(value.toString()), qPrintable(f), locales)
                << value << f << locales << QString::fromUtf16(text);
        };
        row(0.1 + 0.2, u"", u"0.3");
        row(-0.0, u"\"pos\";\"neg\";\"zero\"", u"zero");
        row(-5, u"0;;\"zero\"", u"-5");
        row(-0.001, u"0.00;(0.00)", u"(0.00)");
        row(-1, u"\"a;b\"0\\;", u"-a;b1;");
        row(12345678901234567.0, u"0", u"12345678901234600");
        row(0.00099, u"#.##", u".");
        row(1.005, u"0.00", u"1.01"); // half away from zero on the decimal text
        row(1234567, u"#,##0, \"K\"", u"1,235 K");
        row(5, u",0", u",5");
        row(450.0001e+43, u"#000.0000e+0", u"4500.0010e+42");
        row(3.0401e-13, u"#####.####e-0%", u"30401.e-15%");
        row(9.996, u"0.00E+00", u"1.00E+01");
        row(0, u"0.00E+00", u"0.00E+00");
        row(1, u"##abcdefghijklmnopqrstuvwxyz", u"1abcdefghijklmnopqrstuvwxyz");
        row(-5, u"$#,##0.00", u"-$5.00");
        row(5, u"0\"ab", u"5ab");
        row(1, u"<&>&", u"1");
        row(u"abc"_s, u"!@@@@@", u"abc  ");
        row(u"5551234567"_s, u"(@@@) @@@-@@@@", u"(555) 123-4567");
        row(u"stra\u00DFe"_s, u">", u"STRA\u00DFE");
        row(u""_s, u"@;\"empty\"", u"empty");
        row(u"1e400"_s, u"0", u"1e400");
        row(u" 12 "_s, u"", u" 12 ");
        row(u"-1"_s, u"Currency", u"($1.00)");
        row(u"-1"_s, u"Currency", u"-\u00A51.00", Zh);
        row(u"39697.11"_s, u"mm-dd-yy", u"09-06-08");
        row(u"2024-2-3"_s, u"yyyymmddHhNnSs", u"20240203000000");
        row(u"1e10"_s, u"yyyy", u"1e10");
        const QDateTime ref = dt(1900, 1, 1, 12, 36); // serial 2.525, a Monday
        row(ref, u"d dd w ww q y yy yyy yyyy", u"1 01 2 1 1 1 00 001 1900", Both);
        row(ref, u"d \\d\\m \"yyyy\" 0#%;yyyy", u"1 dm yyyy 0#%", Both);
        row(ref, u"\"open yyyy", u"open yyyy", Both);
        // m/mm is the minute right after an hour token, once; blanks and ':' between are fine.
        row(ref, u"hh:mm :ss:mm", u"12:36 :00:01", Both);
        row(ref, u"dd :mm:nn", u"01 :01:36", Both);
        row(ref, u"hh :mm", u"12 :36", Both);
        row(ref, u"hh-mm", u"12-01", Both);
        row(ref, u"hh:mmm", u"12:Jan");
        row(dt(2024, 12, 7), u"dddd ddd mmmm mmm", u"星期六 星期六 十二月 12月", Zh);
        row(ref, u"ddddd|dddddd", u"1/1/1900|Monday, January 01, 1900");
        row(dt(2024, 2, 3, 0, 36), u"h AM/PM am/pm Am/Pm AMPM a/p", u"12 AM am Am AM a");
        row(dt(2024, 2, 3, 13, 5), u"h AM/PM AMPM A/P", u"1 下午 下午 P", Zh);
        row(QDateTime(QDate(2024, 2, 3), QTime(23, 59, 59, 500), Qt::UTC), u"yyyy-mm-dd hh:nn:ss",
            u"2024-02-04 00:00:00");
        row(ref, u"0.00;yyyy", u"2.53"); // a number format shows the serial
        row(dt(2024, 2, 3, 12), u"@@@@@@@@@@@@@@@@@@@@@", u" 2/3/2024 12:00:00 PM");
        row(dt(2024, 2, 3, 1, 5, 9), u"SHORT TIME", u"01:05");
        row(dt(2024, 2, 3, 13, 5, 9), u"general date", u"2024/2/3 13:05:09", Zh);
        row(dt(2024, 2, 3), u"", u"2/3/2024"); // the general date: no time at midnight
        row(dt(1899, 12, 30, 13, 5, 9), u"", u"1:05:09 PM"); // and no date on day 0
        row(dt(1899, 12, 30), u"", u"0:00:00", Zh);
    }
    void format()
    {
        QFETCH(QVariant, value);
        QFETCH(QString, format);
        QFETCH(int, locales);
        for (const VbLocale locale : {VbLocale::EnUS, VbLocale::ZhCN}) {
            if (value.typeId() == QMetaType::QString && locales & (1 << int(locale))) {
                QTEST(Format(value.toString(), format, locale), "text");
            } else if (value.typeId() == QMetaType::QDateTime && locales & (1 << int(locale))) {
                const QDateTime date = value.toDateTime();
                QTEST(Format(date, format, locale), "text");
                if (format.isEmpty() || format.startsWith(u"general", Qt::CaseInsensitive))
                    QTEST(CStr(date, locale), "text");
                if (detail::isDateFormat(format))
                    QTEST(Format(DateToSerial(date), format, locale), "text");
            } else if (value.typeId() != QMetaType::QString &&
                       value.typeId() != QMetaType::QDateTime) {
                QTEST(Format(value.toDouble(), format, locale), "text");
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_VbFormat)
#include "tst_vbformat.moc"
