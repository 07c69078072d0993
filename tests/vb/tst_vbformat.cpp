// Format on numbers and texts: vb-semantics.md §5, §10, §12, the spec rows of §16, and the
// dispatch of date formats to the date side. Windows vectors come from §10/§12 and from the
// recorded expectations the doc cites; rows named "... (unconfirmed)" or "(model)" follow the
// documented model where there is no Windows vector.
#include <VemoGridLib/VbConversion.h>
#include <VemoGridLib/VbFormat.h>

#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;
using namespace VemoGridLib::vb;

class tst_VbFormat : public QObject
{
    Q_OBJECT

private slots:
    void generalForm_data();
    void generalForm();
    void sections_data();
    void sections();
    void digits_data();
    void digits();
    void rounding_data();
    void rounding();
    void separators_data();
    void separators();
    void scientific_data();
    void scientific();
    void literals_data();
    void literals();
    void namedFormats_data();
    void namedFormats();
    void textFormats_data();
    void textFormats();
    void numericText_data();
    void numericText();
    void dateDispatch_data();
    void dateDispatch();
    void specExamples();

private:
    static void addNumberColumns();
    static void checkNumber();
};

void tst_VbFormat::addNumberColumns()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");
}

void tst_VbFormat::checkNumber()
{
    QFETCH(double, value);
    QFETCH(QString, format);
    QFETCH(QString, expected);
    QCOMPARE(Format(value, format, VbLocale::EnUS), expected);
    QCOMPARE(Format(value, format, VbLocale::ZhCN), expected);
}

void tst_VbFormat::generalForm_data()
{
    addNumberColumns();
    QTest::newRow("empty, 1") << 1.0 << ""
                              << "1";
    QTest::newRow("empty, 0") << 0.0 << ""
                              << "0";
    QTest::newRow("empty, 0.1 + 0.2") << 0.1 + 0.2 << ""
                                      << "0.3";
    QTest::newRow("empty, 1e15") << 1e15 << ""
                                 << "1E+15";
    QTest::newRow("General Number, 1") << 1.0 << "General Number"
                                       << "1";
    QTest::newRow("General Number, 0") << 0.0 << "General Number"
                                       << "0";
    QTest::newRow("General Number, 1234567.5") << 1234567.5 << "General Number"
                                               << "1234567.5";
    QTest::newRow("General Number, -0.5") << -0.5 << "General Number"
                                          << "-0.5";
}

void tst_VbFormat::generalForm()
{
    checkNumber();
    QCOMPARE(Format(0.1 + 0.2), QStringLiteral("0.3"));
}

void tst_VbFormat::sections_data()
{
    addNumberColumns();
    const QString posNeg = QStringLiteral("\"pos\";\"neg\"");
    const QString posNegZero = QStringLiteral("\"pos\";\"neg\";\"zero\"");
    QTest::newRow("one section, negative gets a minus") << -1.57 << "0.00"
                                                        << "-1.57";
    QTest::newRow("one section #.##") << -1.57 << "#.##"
                                      << "-1.57";
    QTest::newRow("one section .#") << -0.1 << ".#"
                                    << "-.1";
    QTest::newRow("two sections, positive") << 1.0 << "#;-#"
                                            << "1";
    QTest::newRow("two sections, negative has no automatic minus") << -1.0 << "#;-#"
                                                                   << "-1";
    QTest::newRow("two sections, negative without minus") << -1.0 << "#;(#)"
                                                          << "(1)";
    QTest::newRow("pos;neg, 1") << 1.0 << posNeg << "pos";
    QTest::newRow("pos;neg, 0 uses the first") << 0.0 << posNeg << "pos";
    QTest::newRow("pos;neg, -1") << -1.0 << posNeg << "neg";
    QTest::newRow("pos;neg;zero, 1") << 1.0 << posNegZero << "pos";
    QTest::newRow("pos;neg;zero, 0") << 0.0 << posNegZero << "zero";
    QTest::newRow("pos;neg;zero, -1") << -1.0 << posNegZero << "neg";
    QTest::newRow("four sections, 0") << 0.0 << "0;(0);\"zero\";\"null\""
                                      << "zero";
    QTest::newRow("negative zero is zero") << -0.0 << posNegZero << "zero";
    QTest::newRow("empty negative section falls back with minus (model)") << -5.0 << "0;;\"zero\""
                                                                          << "-5";
    QTest::newRow("empty zero section falls back (model)") << 0.0 << "0.0;-0.0;"
                                                           << "0.0";
    QTest::newRow("section chosen before rounding (unconfirmed)") << -0.001 << "0.00"
                                                                  << "-0.00";
    QTest::newRow("negative section before rounding (model)") << -0.001 << "0.00;(0.00)"
                                                              << "(0.00)";
    QTest::newRow("small positive is not zero (model)") << 0.001 << "0;-0;\"zero\""
                                                        << "0";
    QTest::newRow("semicolon in quotes does not split") << -1.0 << "\"a;b\"0"
                                                        << "-a;b1";
    QTest::newRow("escaped semicolon does not split") << -1.0 << "0\\;"
                                                      << "-1;";
}

void tst_VbFormat::sections()
{
    checkNumber();
}

void tst_VbFormat::digits_data()
{
    addNumberColumns();
    QTest::newRow("00, 1") << 1.0 << "00"
                           << "01";
    QTest::newRow("00, 0") << 0.0 << "00"
                           << "00";
    QTest::newRow("#000, 17") << 17.0 << "#000"
                              << "017";
    QTest::newRow("0##, 100") << 100.0 << "0##"
                              << "100";
    QTest::newRow("#, 1") << 1.0 << "#"
                          << "1";
    QTest::newRow("#, 0") << 0.0 << "#"
                          << "";
    QTest::newRow("##, 0") << 0.0 << "##"
                           << "";
    QTest::newRow("#.#, 1") << 1.0 << "#.#"
                            << "1.";
    QTest::newRow("#.#, 0") << 0.0 << "#.#"
                            << ".";
    QTest::newRow("0, 0") << 0.0 << "0"
                          << "0";
    QTest::newRow("0.0, 1") << 1.0 << "0.0"
                            << "1.0";
    QTest::newRow("0.0, 0") << 0.0 << "0.0"
                            << "0.0";
    QTest::newRow("#00000000") << 1.0 << "#00000000"
                               << "00000001";
    QTest::newRow("000###") << 1.0 << "000###"
                            << "000001";
    QTest::newRow("#00##00#0") << 1.0 << "#00##00#0"
                               << "00000001";
    QTest::newRow("#0, 17") << 17.0 << "#0"
                            << "17";
    QTest::newRow("#0, 4711") << 4711.0 << "#0"
                              << "4711";
    QTest::newRow("#00, 17") << 17.0 << "#00"
                             << "17";
    QTest::newRow("integer part never truncated") << 123456.0 << "0"
                                                  << "123456";
    QTest::newRow("#0.00, 17") << 17.0 << "#0.00"
                               << "17.00";
    QTest::newRow("#0000.00, 17") << 17.0 << "#0000.00"
                                  << "0017.00";
    QTest::newRow("#.00, 17") << 17.0 << "#.00"
                              << "17.00";
    QTest::newRow("#.00, 1.7") << 1.7 << "#.00"
                               << "1.70";
    QTest::newRow("#.00, 0.17 has no leading zero") << 0.17 << "#.00"
                                                    << ".17";
    QTest::newRow("0#.0#0#0#0#0, 1.23456789") << 1.23456789 << "0#.0#0#0#0#0"
                                              << "01.234567890";
    QTest::newRow("0#.0#0#0#0#0, 1.2") << 1.2 << "0#.0#0#0#0#0"
                                       << "01.200000000";
    QTest::newRow("#0.#0#0#0#0#, 9.87654321") << 9.87654321 << "#0.#0#0#0#0#"
                                              << "9.87654321";
    QTest::newRow("#0.#0#0#0#0#, 9.8") << 9.8 << "#0.#0#0#0#0#"
                                       << "9.80000000";
    QTest::newRow("#0.#0#0#0#0#0, 0.00000008") << 0.00000008 << "#0.#0#0#0#0#0"
                                               << "0.0000000800";
    QTest::newRow("#0.##########, 0.00010705") << 0.00010705 << "#0.##########"
                                               << "0.00010705";
    QTest::newRow("digits beyond the 15th are zeros (unconfirmed)") << 12345678901234567.0 << "0"
                                                                    << "12345678901234600";
}

void tst_VbFormat::digits()
{
    checkNumber();
}

void tst_VbFormat::rounding_data()
{
    addNumberColumns();
    QTest::newRow("#0, 1.7") << 1.7 << "#0"
                             << "2";
    QTest::newRow("#0.000000, 9.9999999") << 9.9999999 << "#0.000000"
                                          << "10.000000";
    QTest::newRow("#.#, 0.099") << 0.099 << "#.#"
                                << ".1";
    QTest::newRow("#.##, 0.0999") << 0.0999 << "#.##"
                                  << ".1";
    QTest::newRow("#.##, 0.099") << 0.099 << "#.##"
                                 << ".1";
    QTest::newRow("#.##, 0.0099") << 0.0099 << "#.##"
                                  << ".01";
    QTest::newRow("#.##, 0.0049") << 0.0049 << "#.##"
                                  << ".";
    QTest::newRow("#.##, 0.0094") << 0.0094 << "#.##"
                                  << ".01";
    QTest::newRow("#.##, 0.00099") << 0.00099 << "#.##"
                                   << ".";
    QTest::newRow("#.##, 0.0995") << 0.0995 << "#.##"
                                  << ".1";
    QTest::newRow("#.##, 8.0995") << 8.0995 << "#.##"
                                  << "8.1";
    QTest::newRow("#.##, 0.0994") << 0.0994 << "#.##"
                                  << ".1";
    QTest::newRow("#.###, 0.0995") << 0.0995 << "#.###"
                                   << ".1";
    QTest::newRow("half up 2.5 (unconfirmed)") << 2.5 << "0"
                                               << "3";
    QTest::newRow("half up 0.125 (unconfirmed)") << 0.125 << "0.00"
                                                 << "0.13";
    QTest::newRow("decimal form 1.005 (unconfirmed)") << 1.005 << "0.00"
                                                      << "1.01";
    QTest::newRow("half away from zero -2.5 (unconfirmed)") << -2.5 << "0"
                                                            << "-3";
    QTest::newRow("0.5 rounds up") << 0.5 << "0"
                                   << "1";
    QTest::newRow("0.4 rounds to 0") << 0.4 << "#"
                                     << "";
}

void tst_VbFormat::rounding()
{
    checkNumber();
}

void tst_VbFormat::separators_data()
{
    addNumberColumns();
    QTest::newRow("#,###,###,###, 100000") << 100000.0 << "#,###,###,###"
                                           << "100,000";
    QTest::newRow("0,000,000,000, 1") << 1.0 << "0,000,000,000"
                                      << "0,000,000,001";
    QTest::newRow("#,#.#, 123456789") << 123456789.0 << "#,#.#"
                                      << "123,456,789.";
    QTest::newRow("###, ###, ###") << 123456789.0 << "###, ###, ###"
                                   << "123, 456, 789";
    QTest::newRow("#,##0.00, 1") << 1.0 << "#,##0.00"
                                 << "1.00";
    // §10 worked values for the spec's "#,##0.00"
    QTest::newRow("#,##0.00, 1234.5") << 1234.5 << "#,##0.00"
                                      << "1,234.50";
    QTest::newRow("#,##0.00, -1234.5") << -1234.5 << "#,##0.00"
                                       << "-1,234.50";
    QTest::newRow("#,##0.00, 0") << 0.0 << "#,##0.00"
                                 << "0.00";
    QTest::newRow("#,##0.00, 2.01") << 2.01 << "#,##0.00"
                                    << "2.01";
    QTest::newRow("#,##0.00, 0.005 (unconfirmed)") << 0.005 << "#,##0.00"
                                                   << "0.01";
    QTest::newRow("#,##0.00, 1e16") << 1e16 << "#,##0.00"
                                    << "10,000,000,000,000,000.00";
    QTest::newRow("#,##0, 999") << 999.0 << "#,##0"
                                << "999";
    QTest::newRow("#,##0, 1000") << 1000.0 << "#,##0"
                                 << "1,000";
    QTest::newRow("#,##0, -1234567") << -1234567.0 << "#,##0"
                                     << "-1,234,567";
    // ',' before the point or at the end of the integer part divides by 1000 [D]
    QTest::newRow("##0,, scales by a million") << 100000000.0 << "##0,,"
                                               << "100";
    QTest::newRow("##0,, below a million") << 999999.0 << "##0,,"
                                           << "1";
    QTest::newRow("#,##0, groups and scales") << 1234567.0 << "#,##0,"
                                              << "1,235";
    QTest::newRow("0,.00 scales") << 1234567.0 << "0,.00"
                                  << "1234.57";
    QTest::newRow("scaling comma before a literal") << 1234567.0 << "#,##0, \"K\""
                                                    << "1,235 K";
    QTest::newRow("comma before any placeholder is literal (model)") << 5.0 << ",0"
                                                                     << ",5";
    // '%' multiplies by 100
    QTest::newRow("0%") << 0.5 << "0%"
                        << "50%";
    QTest::newRow("0.0%, 0.0115") << 0.0115 << "0.0%"
                                  << "1.2%";
    QTest::newRow("0.00%, -0.25") << -0.25 << "0.00%"
                                  << "-25.00%";
}

void tst_VbFormat::separators()
{
    checkNumber();
}

void tst_VbFormat::scientific_data()
{
    addNumberColumns();
    QTest::newRow("0.0000E-000, 1.7") << 1.7 << "0.0000E-000"
                                      << "1.7000E000";
    QTest::newRow("0.0000e-1, 1.7") << 1.7 << "0.0000e-1"
                                    << "1.7000e01";
    QTest::newRow("#0.000000000000e-000, 86.936849") << 86.936849 << "#0.000000000000e-000"
                                                     << "86.936849000000e000";
    QTest::newRow("0.0000E+000, 1.73245") << 1.73245 << "0.0000E+000"
                                          << "1.7325E+000";
    QTest::newRow("0.0000e+0#, 1.7") << 1.7 << "0.0000e+0#"
                                     << "1.7000e+0";
    QTest::newRow("0.0000E+0, 100.0001") << 100.0001 << "0.0000E+0"
                                         << "1.0000E+2";
    QTest::newRow("0.0000e+1, 1000001") << 1000001.0 << "0.0000e+1"
                                        << "1.0000e+61";
    QTest::newRow("0.0000e+0, 100.0001e+25") << 100.0001e+25 << "0.0000e+0"
                                             << "1.0000e+27";
    QTest::newRow("#000.0000e+0, 450.0001e+43") << 450.0001e+43 << "#000.0000e+0"
                                                << "4500.0010e+42";
    QTest::newRow("##00.0000e-0, 0.0001e-11") << 0.0001e-11 << "##00.0000e-0"
                                              << "1000.0000e-18";
    QTest::newRow("0000.0000e-0, 0.0317e-11") << 0.0317e-11 << "0000.0000e-0"
                                              << "3170.0000e-16";
    QTest::newRow("00##.0000e-0, 0.0021e-11") << 0.0021e-11 << "00##.0000e-0"
                                              << "2100.0000e-17";
    QTest::newRow("##00.0000e-0, 1.0001e-27") << 1.0001e-27 << "##00.0000e-0"
                                              << "1000.1000e-30";
    QTest::newRow(".0000E+0, 47.11") << 47.11 << ".0000E+0"
                                     << ".4711E+2";
    QTest::newRow("#####.####e-0%, 3.0401e-13") << 3.0401e-13 << "#####.####e-0%"
                                                << "30401.e-15%";
    QTest::newRow("0.00E+00, 0") << 0.0 << "0.00E+00"
                                 << "0.00E+00";
    QTest::newRow("0.00E+00, -1234.5") << -1234.5 << "0.00E+00"
                                       << "-1.23E+03";
    QTest::newRow("0.00E+00, rounding carries into the exponent") << 9.996 << "0.00E+00"
                                                                  << "1.00E+01";
    QTest::newRow("0.00E-00, negative exponent") << 0.00012345 << "0.00E-00"
                                                 << "1.23E-04";
}

void tst_VbFormat::scientific()
{
    checkNumber();
}

void tst_VbFormat::literals_data()
{
    addNumberColumns();
    QTest::newRow("backslashes, 1") << 1.0 << "00\\c\\o\\p\\y"
                                    << "01copy";
    QTest::newRow("backslashes, 0") << 0.0 << "00\\c\\o\\p\\y"
                                    << "00copy";
    QTest::newRow("letters after a number format") << 1.0 << "##abcdefghijklmnopqrstuvwxyz"
                                                   << "1abcdefghijklmnopqrstuvwxyz";
    QTest::newRow("1#####0000") << 1.0 << "1#####0000"
                                << "10001";
    QTest::newRow("#3, 17") << 17.0 << "#3"
                            << "173";
    QTest::newRow("#33, 17") << 17.0 << "#33"
                             << "1733";
    QTest::newRow("#3.33, 17") << 17.0 << "#3.33"
                               << "173.33";
    QTest::newRow("#3333.33, 17") << 17.0 << "#3333.33"
                                  << "173333.33";
    QTest::newRow("#.33, 17") << 17.0 << "#.33"
                              << "17.33";
    QTest::newRow("#.33, 0.17") << 0.17 << "#.33"
                                << ".33";
    QTest::newRow("#.33, 1.7") << 1.7 << "#.33"
                               << "2.33";
    QTest::newRow("#3, 1.7") << 1.7 << "#3"
                             << "23";
    QTest::newRow("quoted text") << 5.0 << "0\" units\""
                                 << "5 units";
    QTest::newRow("dash, plus, dollar, parentheses, blank are literal") << 5.0 << "-+$() 0"
                                                                        << "-+$() 5";
    QTest::newRow("automatic minus goes first (model)") << -5.0 << "$#,##0.00"
                                                        << "-$5.00";
    QTest::newRow("literal between integer digits") << 1234567.0 << "000-0000"
                                                    << "123-4567";
    QTest::newRow("second point is literal") << 1.5 << "0.0.0"
                                             << "1.5.0";
    QTest::newRow("E without sign is literal") << 5.0 << "0E"
                                               << "5E";
    QTest::newRow("unterminated quote") << 5.0 << "0\"ab"
                                        << "5ab";
    QTest::newRow("a number through a text format") << 1.0 << "<&>&"
                                                    << "1";
}

void tst_VbFormat::literals()
{
    checkNumber();
}

void tst_VbFormat::namedFormats_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("format");
    QTest::addColumn<VbLocale>("locale");
    QTest::addColumn<QString>("expected");

    const VbLocale en = VbLocale::EnUS;
    const VbLocale zh = VbLocale::ZhCN;

    QTest::newRow("Percent, 1") << 1.0 << "Percent" << en << "100.00%";
    QTest::newRow("Percent, 0") << 0.0 << "Percent" << en << "0.00%";
    QTest::newRow("Standard, 1") << 1.0 << "Standard" << en << "1.00";
    QTest::newRow("Standard, 0") << 0.0 << "Standard" << en << "0.00";
    QTest::newRow("Standard, 1234567.891") << 1234567.891 << "Standard" << en << "1,234,567.89";
    QTest::newRow("Scientific, 1") << 1.0 << "Scientific" << en << "1.00E+00";
    QTest::newRow("Scientific, 0") << 0.0 << "Scientific" << en << "0.00E+00";
    QTest::newRow("Scientific, 1234.5") << 1234.5 << "Scientific" << en << "1.23E+03";
    QTest::newRow("Fixed, 1") << 1.0 << "Fixed" << en << "1.00";
    QTest::newRow("Fixed, -1234.5") << -1234.5 << "Fixed" << en << "-1234.50";
    QTest::newRow("Fixed, 0.125") << 0.125 << "Fixed" << en << "0.13";
    QTest::newRow("True/False, 1") << 1.0 << "True/False" << en << "True";
    QTest::newRow("True/False, 0") << 0.0 << "True/False" << en << "False";
    QTest::newRow("True/False, -1") << -1.0 << "True/False" << en << "True";
    QTest::newRow("On/Off, 1") << 1.0 << "On/Off" << en << "On";
    QTest::newRow("On/Off, 0") << 0.0 << "On/Off" << en << "Off";
    QTest::newRow("Yes/No, 1") << 1.0 << "Yes/No" << en << "Yes";
    QTest::newRow("Yes/No, 0") << 0.0 << "Yes/No" << en << "No";
    QTest::newRow("Yes/No, 0.5") << 0.5 << "Yes/No" << en << "Yes";
    QTest::newRow("name in any case") << 1.0 << "standard" << en << "1.00";
    QTest::newRow("zh True/False stays English (unconfirmed)")
        << 1.0 << "True/False" << zh << "True";
    // Currency: the locale's symbol; en-US negatives in parentheses, zh-CN with a minus
    QTest::newRow("Currency en 1234.5") << 1234.5 << "Currency" << en << "$1,234.50";
    QTest::newRow("Currency en -1") << -1.0 << "Currency" << en << "($1.00)";
    QTest::newRow("Currency en 0") << 0.0 << "Currency" << en << "$0.00";
    QTest::newRow("Currency zh 1234.5") << 1234.5 << "Currency" << zh << "\u00A51,234.50";
    QTest::newRow("Currency zh -1") << -1.0 << "Currency" << zh << "-\u00A51.00";
    QTest::newRow("Standard is the same in zh") << 1234.5 << "Standard" << zh << "1,234.50";
}

void tst_VbFormat::namedFormats()
{
    QFETCH(double, value);
    QFETCH(QString, format);
    QFETCH(VbLocale, locale);
    QFETCH(QString, expected);
    QCOMPARE(Format(value, format, locale), expected);
}

void tst_VbFormat::textFormats_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");

    const QString testing = QStringLiteral("testing");
    QTest::newRow("empty format") << testing << ""
                                  << "testing";
    QTest::newRow("@") << testing << "@"
                       << "testing";
    QTest::newRow("&") << testing << "&"
                       << "testing";
    QTest::newRow("\\x@\\x@") << testing << "\\x@\\x@"
                              << "xtxesting";
    QTest::newRow("\\x&\\x&") << testing << "\\x&\\x&"
                              << "xtxesting";
    QTest::newRow("@\\x") << testing << "@\\x"
                          << "txesting";
    QTest::newRow("@@@@@@@@") << testing << "@@@@@@@@"
                              << " testing";
    QTest::newRow("@\\x@@@@@@@") << testing << "@\\x@@@@@@@"
                                 << " xtesting";
    QTest::newRow("&&&&&&&&") << testing << "&&&&&&&&"
                              << "testing";
    QTest::newRow("!&&&&&&&") << testing << "!&&&&&&&"
                              << "testing";
    QTest::newRow("&&&&&&&!") << testing << "&&&&&&&!"
                              << "testing";
    QTest::newRow(">&&") << testing << ">&&"
                         << "TESTING";
    QTest::newRow("<&&") << testing << "<&&"
                         << "testing";
    QTest::newRow("<&>&") << testing << "<&>&"
                          << "testing";
    QTest::newRow("! fills left to right") << "abc"
                                           << "!@@@@@"
                                           << "abc  ";
    QTest::newRow("right-aligned by default") << "abc"
                                              << "@@@@@"
                                              << "  abc";
    QTest::newRow("phone number") << "5551234567"
                                  << "(@@@) @@@-@@@@"
                                  << "(555) 123-4567";
    QTest::newRow("> alone") << "Hello"
                             << ">"
                             << "HELLO";
    QTest::newRow("< alone") << "HeLLo"
                             << "<"
                             << "hello";
    QTest::newRow("case keeps the length") << "stra\u00DFe"
                                           << ">"
                                           << "STRA\u00DFE";
    QTest::newRow("second section for an empty text") << ""
                                                      << "@;\"empty\""
                                                      << "empty";
    QTest::newRow("first section for a text") << "a"
                                              << "@;\"empty\""
                                              << "a";
}

void tst_VbFormat::textFormats()
{
    QFETCH(QString, text);
    QFETCH(QString, format);
    QFETCH(QString, expected);
    QCOMPARE(Format(text, format, VbLocale::EnUS), expected);
}

void tst_VbFormat::numericText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<VbLocale>("locale");
    QTest::addColumn<QString>("expected");

    const VbLocale en = VbLocale::EnUS;
    const VbLocale zh = VbLocale::ZhCN;

    QTest::newRow("6,90 is 690") << "6,90"
                                 << "###,##0.00" << en << "690.00";
    QTest::newRow("thousands separators") << "1,234.5"
                                          << "#,##0.00" << en << "1,234.50";
    QTest::newRow("not numeric comes back") << "abc"
                                            << "0.00" << en << "abc";
    QTest::newRow("12abc comes back") << "12abc"
                                      << "0" << en << "12abc";
    QTest::newRow("empty comes back") << ""
                                      << "0.00" << en << "";
    QTest::newRow("overflow comes back") << "1e400"
                                         << "0" << en << "1e400";
    QTest::newRow("empty format returns the text verbatim") << " 12 "
                                                            << "" << en << " 12 ";
    QTest::newRow("en $5") << "$5"
                           << "0.00" << en << "5.00";
    QTest::newRow("zh $5 is not numeric") << "$5"
                                          << "0.00" << zh << "$5";
    QTest::newRow("zh yen 5") << "\u00A55"
                              << "0.00" << zh << "5.00";
    QTest::newRow("trailing minus") << "5-"
                                    << "0.0" << en << "-5.0";
    QTest::newRow("two sections") << "-3"
                                  << "0;(0)" << en << "(3)";
    QTest::newRow("named Percent") << "0.5"
                                   << "Percent" << en << "50.00%";
    QTest::newRow("named Standard, not numeric") << "abc"
                                                 << "Standard" << en << "abc";
    QTest::newRow("General Number normalises a number (model)") << "1,000"
                                                                << "General Number" << en << "1000";
    QTest::newRow("number through a text format") << "12"
                                                  << ">&" << en << "12";
}

void tst_VbFormat::numericText()
{
    QFETCH(QString, text);
    QFETCH(QString, format);
    QFETCH(VbLocale, locale);
    QFETCH(QString, expected);
    QCOMPARE(Format(text, format, locale), expected);
}

void tst_VbFormat::dateDispatch_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("serial");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");

    // `text` empty: format the number `serial`; otherwise format the text.
    QTest::newRow("2.525 hh:mm") << "" << 2.525 << "hh:mm"
                                 << "12:36";
    QTest::newRow("2.525 dd mm yyyy hh:mm:ss") << "" << 2.525 << "dd mm yyyy hh:mm:ss"
                                               << "01 01 1900 12:36:00";
    QTest::newRow("39697.11 hh:mm") << "" << 39697.11 << "hh:mm"
                                    << "02:38";
    QTest::newRow("text 39697.11 hh:mm") << "39697.11" << 0.0 << "hh:mm"
                                         << "02:38";
    QTest::newRow("text 39697.11 mm-dd-yy") << "39697.11" << 0.0 << "mm-dd-yy"
                                            << "09-06-08";
    QTest::newRow("text abc (unconfirmed)") << "abc" << 0.0 << "yyyy-mm-dd"
                                            << "abc";
    QTest::newRow("text 2024-2-3") << "2024-2-3" << 0.0 << "yyyy-mm-dd"
                                   << "2024-02-03";
    QTest::newRow("text serial out of range comes back") << "1e10" << 0.0 << "yyyy"
                                                         << "1e10";
}

void tst_VbFormat::dateDispatch()
{
    QFETCH(QString, text);
    QFETCH(double, serial);
    QFETCH(QString, format);
    QFETCH(QString, expected);
    const QString actual = text.isEmpty() ? Format(serial, format, VbLocale::EnUS)
                                          : Format(text, format, VbLocale::EnUS);
    QCOMPARE(actual, expected);
}

// §16 rows that go through Format.
void tst_VbFormat::specExamples()
{
    const VbLocale en = VbLocale::EnUS;
    // Part 2.2, eCurrency "#,##0.00": commas stripped, then Val
    const QString typed = QStringLiteral("1,234.5");
    QCOMPARE(Format(Val(QString(typed).remove(u',')), QStringLiteral("#,##0.00"), en),
             QStringLiteral("1,234.50"));
    // Part 1.7: "*" of 2 and 1.005, eCurrency
    QCOMPARE(Format(Round(2 * 1.005, 2), QStringLiteral("#,##0.00"), en), QStringLiteral("2.01"));
    // Part 1.6, date sort key
    QCOMPARE(Format(QStringLiteral("2024-01-05"), QStringLiteral("yyyymmddHhNnSs"), en),
             QStringLiteral("20240105000000"));
    QCOMPARE(Format(QStringLiteral("2023-12-31"), QStringLiteral("yyyymmddHhNnSs"), en),
             QStringLiteral("20231231000000"));
    // §17.1: Format rounds half away from zero where Round goes to even
    QCOMPARE(Format(2.5, QStringLiteral("0"), en), QStringLiteral("3"));
    QCOMPARE(Round(2.5), 2.0);
}

QTEST_GUILESS_MAIN(tst_VbFormat)
#include "tst_vbformat.moc"
