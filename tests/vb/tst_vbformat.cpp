// SPDX-License-Identifier: MIT
// Format of numbers and texts: sections, digit placeholders, rounding, grouping and scaling,
// scientific forms, literals, named formats, text placeholders, numeric texts.
#include <VemoGridLib/VbFormat.h>

#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;
using namespace VemoGridLib::vb;

namespace {
constexpr VbLocale En = VbLocale::EnUS, Zh = VbLocale::ZhCN;

} // namespace

class tst_VbFormat : public QObject
{
    Q_OBJECT

private slots:
    // Number formats other than Currency give the same text in both locales.
    void numbers_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("text");
        const auto row = [](double value, const char16_t* format, const char16_t* text) {
            const QString f = QString::fromUtf16(format);
            QTest::addRow("%s %.17g", qPrintable(f), value)
                << value << f << QString::fromUtf16(text);
        };
        row(0.1 + 0.2, u"", u"0.3");
        row(1e15, u"General Number", u"1E+15");
        row(-1, u"#;(#)", u"(1)");
        row(-0.0, u"\"pos\";\"neg\";\"zero\"", u"zero");
        row(0, u"0;(0);\"zero\";\"null\"", u"zero");
        row(-5, u"0;;\"zero\"", u"-5");
        row(0, u"0.0;-0.0;", u"0.0");
        row(-0.001, u"0.00;(0.00)", u"(0.00)");
        row(-1, u"\"a;b\"0\\;", u"-a;b1;");
        // Digits: '0' always shows, '#' only significant ones; the integer part is never cut.
        row(0, u"#.#", u".");
        row(1, u"#00##00#0", u"00000001");
        row(0.17, u"#.00", u".17");
        row(0.00000008, u"#0.#0#0#0#0#0", u"0.0000000800");
        row(12345678901234567.0, u"0", u"12345678901234600");
        // Rounding is half away from zero on the decimal text, and carries.
        row(9.9999999, u"#0.000000", u"10.000000");
        row(0.00099, u"#.##", u".");
        row(1.005, u"0.00", u"1.01");
        row(-2.5, u"0", u"-3");
        // ',' groups; before the point or at the end it divides by 1000.
        row(123456789, u"#,#.#", u"123,456,789.");
        row(999999, u"##0,,", u"1");
        row(1234567, u"#,##0, \"K\"", u"1,235 K");
        row(5, u",0", u",5");
        row(0.0115, u"0.0%", u"1.2%");
        // Scientific forms.
        row(1.7, u"0.0000e-1", u"1.7000e01");
        row(1.7, u"0.0000e+0#", u"1.7000e+0");
        row(450.0001e+43, u"#000.0000e+0", u"4500.0010e+42");
        row(47.11, u".0000E+0", u".4711E+2");
        row(3.0401e-13, u"#####.####e-0%", u"30401.e-15%");
        row(9.996, u"0.00E+00", u"1.00E+01");
        row(0, u"0.00E+00", u"0.00E+00");
        // Literals.
        row(0, u"00\\c\\o\\p\\y", u"00copy");
        row(1, u"##abcdefghijklmnopqrstuvwxyz", u"1abcdefghijklmnopqrstuvwxyz");
        row(1.7, u"#3.33", u"23.33");
        row(-5, u"$#,##0.00", u"-$5.00");
        row(1234567, u"000-0000", u"123-4567");
        row(1.5, u"0.0.0", u"1.5.0");
        row(5, u"0\"ab", u"5ab");
        row(1, u"<&>&", u"1");
        // Named formats, any letter case.
        row(1234567.891, u"standard", u"1,234,567.89");
        row(-1234.5, u"Fixed", u"-1234.50");
        row(1234.5, u"Scientific", u"1.23E+03");
        row(-1, u"True/False", u"True");
        row(0.5, u"Yes/No", u"Yes");
    }
    void numbers()
    {
        QFETCH(double, value);
        QFETCH(QString, format);
        QTEST(Format(value, format, En), "text");
        QTEST(Format(value, format, Zh), "text");
    }

    // Texts: numeric ones are formatted as numbers, the others through the text placeholders.
    void texts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("format");
        QTest::addColumn<VbLocale>("locale");
        QTest::addColumn<QString>("result");
        const auto row = [](const char16_t* text, const char16_t* format, VbLocale locale,
                            const char16_t* result) {
            const QString t = QString::fromUtf16(text), f = QString::fromUtf16(format);
            QTest::addRow("%s %s %s", qPrintable(t), qPrintable(f), locale == En ? "en" : "zh")
                << t << f << locale << QString::fromUtf16(result);
        };
        row(u"testing", u"\\x@\\x@", En, u"xtxesting");
        row(u"testing", u"@\\x@@@@@@@", En, u" xtesting");
        row(u"abc", u"!@@@@@", En, u"abc  ");
        row(u"5551234567", u"(@@@) @@@-@@@@", En, u"(555) 123-4567");
        row(u"stra\u00DFe", u">", En, u"STRA\u00DFE");
        row(u"", u"@;\"empty\"", En, u"empty");
        row(u"6,90", u"###,##0.00", En, u"690.00");
        row(u"1e400", u"0", En, u"1e400");
        row(u" 12 ", u"", En, u" 12 ");
        row(u"$5", u"0.00", Zh, u"$5");
        row(u"\u00A55", u"0.00", Zh, u"5.00");
        row(u"1234.5", u"Currency", En, u"$1,234.50");
        row(u"-1", u"Currency", En, u"($1.00)");
        row(u"-1", u"Currency", Zh, u"-\u00A51.00");
        row(u"5-", u"0;(0)", En, u"(5)");
        row(u"1,000", u"General Number", En, u"1000");
        row(u"12", u">&", En, u"12");
        row(u"39697.11", u"mm-dd-yy", En, u"09-06-08");
        row(u"2024-2-3", u"yyyymmddHhNnSs", En, u"20240203000000");
        row(u"abc", u"yyyy-mm-dd", En, u"abc");
        row(u"1e10", u"yyyy", En, u"1e10");
    }
    void texts()
    {
        QFETCH(QString, text);
        QFETCH(QString, format);
        QFETCH(VbLocale, locale);
        QTEST(Format(text, format, locale), "result");
    }
};

QTEST_GUILESS_MAIN(tst_VbFormat)
#include "tst_vbformat.moc"
