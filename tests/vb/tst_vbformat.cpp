// SPDX-License-Identifier: MIT
// Format of numbers and texts: sections, digit placeholders, rounding, grouping and scaling,
// scientific forms, literals, named formats, text placeholders, numeric texts.
#include <VemoGridLib/VbFormat.h>

#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;
using namespace VemoGridLib::vb;
using namespace Qt::StringLiterals;

namespace {
constexpr VbLocale En = VbLocale::EnUS, Zh = VbLocale::ZhCN;

} // namespace

class tst_VbFormat : public QObject
{
    Q_OBJECT

private slots:
    // A number is formatted in both locales (only Currency differs); a numeric text as the
    // number, any other through the text placeholders.
    void format_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("format");
        QTest::addColumn<VbLocale>("locale");
        QTest::addColumn<QString>("text");
        const auto row = [](const QVariant& value, const char16_t* format, const char16_t* text,
                            VbLocale locale = En) {
            const QString f = QString::fromUtf16(format);
            QTest::addRow("%s %s%s", qPrintable(value.toString()), qPrintable(f),
                          locale == Zh ? " zh" : "")
                << value << f << locale << QString::fromUtf16(text);
        };
        row(0.1 + 0.2, u"", u"0.3");
        row(1e15, u"General Number", u"1E+15");
        row(-1, u"#;(#)", u"(1)");
        row(-0.0, u"\"pos\";\"neg\";\"zero\"", u"zero");
        row(-5, u"0;;\"zero\"", u"-5");
        row(0, u"0.0;-0.0;", u"0.0");
        row(-0.001, u"0.00;(0.00)", u"(0.00)");
        row(-1, u"\"a;b\"0\\;", u"-a;b1;");
        // Digits: '0' always shows, '#' only significant ones; the integer part is never cut.
        row(0, u"#.#", u".");
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
        row(450.0001e+43, u"#000.0000e+0", u"4500.0010e+42");
        row(3.0401e-13, u"#####.####e-0%", u"30401.e-15%");
        row(9.996, u"0.00E+00", u"1.00E+01");
        row(0, u"0.00E+00", u"0.00E+00");
        // Literals.
        row(0, u"00\\c\\o\\p\\y", u"00copy");
        row(1, u"##abcdefghijklmnopqrstuvwxyz", u"1abcdefghijklmnopqrstuvwxyz");
        row(1.7, u"#3.33", u"23.33");
        row(-5, u"$#,##0.00", u"-$5.00");
        row(1.5, u"0.0.0", u"1.5.0");
        row(5, u"0\"ab", u"5ab");
        row(1, u"<&>&", u"1");
        // Named formats, any letter case.
        row(1234567.891, u"standard", u"1,234,567.89");
        row(1234.5, u"Scientific", u"1.23E+03");
        row(-1, u"True/False", u"True");
        row(0.5, u"Yes/No", u"Yes");
        // Texts.
        row(u"testing"_s, u"\\x@\\x@", u"xtxesting");
        row(u"abc"_s, u"!@@@@@", u"abc  ");
        row(u"5551234567"_s, u"(@@@) @@@-@@@@", u"(555) 123-4567");
        row(u"stra\u00DFe"_s, u">", u"STRA\u00DFE");
        row(u""_s, u"@;\"empty\"", u"empty");
        row(u"6,90"_s, u"###,##0.00", u"690.00");
        row(u"1e400"_s, u"0", u"1e400");
        row(u" 12 "_s, u"", u" 12 ");
        row(u"$5"_s, u"0.00", u"$5", Zh);
        row(u"\u00A55"_s, u"0.00", u"5.00", Zh);
        row(u"1234.5"_s, u"Currency", u"$1,234.50");
        row(u"-1"_s, u"Currency", u"($1.00)");
        row(u"-1"_s, u"Currency", u"-\u00A51.00", Zh);
        row(u"5-"_s, u"0;(0)", u"(5)");
        row(u"1,000"_s, u"General Number", u"1000");
        row(u"39697.11"_s, u"mm-dd-yy", u"09-06-08");
        row(u"2024-2-3"_s, u"yyyymmddHhNnSs", u"20240203000000");
        row(u"abc"_s, u"yyyy-mm-dd", u"abc");
        row(u"1e10"_s, u"yyyy", u"1e10");
    }
    void format()
    {
        QFETCH(QVariant, value);
        QFETCH(QString, format);
        QFETCH(VbLocale, locale);
        if (value.typeId() == QMetaType::QString) {
            QTEST(Format(value.toString(), format, locale), "text");
        } else {
            QTEST(Format(value.toDouble(), format, En), "text");
            QTEST(Format(value.toDouble(), format, Zh), "text");
        }
    }
};

QTEST_GUILESS_MAIN(tst_VbFormat)
#include "tst_vbformat.moc"
