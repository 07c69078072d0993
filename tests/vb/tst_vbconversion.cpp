// VB runtime number conversions: vb-semantics.md §3–§8 and the spec examples of §16.
// Rows named "... (unconfirmed)" follow the documented model where the doc has no Windows vector.
#include <VemoGridLib/VbConversion.h>
#include <VemoGridLib/VemoError.h>

#include "VemoTestSupport.h"

#include <QTest>

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

using namespace VemoGridLib;
using namespace VemoGridLib::vb;
using VemoTest::errorNumberOf;

namespace {

constexpr int NoError = 0;
constexpr int InvalidCall = VemoError::InvalidProcedureCall;
constexpr int Overflow = VemoError::Overflow;
constexpr int TypeMismatch = VemoError::TypeMismatch;

// Exact comparison (QCOMPARE on doubles is fuzzy), with both values in the message.
bool sameDouble(double actual, double expected)
{
    return actual == expected || (std::isnan(actual) && std::isnan(expected));
}

QByteArray describe(double actual, double expected)
{
    return QByteArray("actual ") + QByteArray::number(actual, 'g', 17) + ", expected " +
           QByteArray::number(expected, 'g', 17);
}

} // namespace

class tst_VbConversion : public QObject
{
    Q_OBJECT

private slots:
    void readPlainDecimalAgreesWithCDbl_data();
    void readPlainDecimalAgreesWithCDbl();
    void readPlainDecimalRoundsAsFromChars();
    void numericValueIsIsNumericAndCDbl_data();
    void numericValueIsIsNumericAndCDbl();
    void cstr_data();
    void cstr();
    void scanner_data();
    void scanner();
    void val_data();
    void val();
    void round_data();
    void round();
    void roundThenCStr_data();
    void roundThenCStr();
    void clng_data();
    void clng();
    void clngText_data();
    void clngText();
    void cint_data();
    void cint();
    void cbool_data();
    void cbool();
    void specExamples();
};

void tst_VbConversion::readPlainDecimalAgreesWithCDbl_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("plain");
    const std::pair<const char*, bool> rows[] = {
        {"0", true},
        {"-0", true},
        {"12", true},
        {" 3.50 ", true},
        {"+7", true},
        {"1,234.50", true},
        {"1,2,3", true},
        {"1,", true},
        {"5.", true},
        {".5", true},
        {"-1,234", true},
        {"\t42\r", true},
        {"0.1", true},
        {"123456789012345678901234567890", true},
        {"", false},
        {" ", false},
        {",5", false},
        {".", false},
        {"-", false},
        {"1.2.3", false},
        {"1.2,3", false},
        {"1e5", false},
        {"$5", false},
        {"(5)", false},
        {"5-", false},
        {"&H10", false},
        {"abc", false},
        {"1 2", false},
        {"--1", false},
        // Around the exact-digits way: 2^53 - 1 and 2^53 + 1 digits, 22 and 23 places after
        // the point, more digits than a double holds.
        {"9007199254740991", true},
        {"9007199254740993", true},
        {"0.0000000000000000000001", true},
        {"0.00000000000000000000001", true},
        {"1.0000000000000000000001", true},
        {"0.12345678901234567890", true},
        {"-999,999,999.99", true},
        {"-.000", true},
    };
    for (const auto& [text, plain] : rows)
        QTest::newRow(text) << QString::fromUtf8(text) << plain;
}

void tst_VbConversion::readPlainDecimalAgreesWithCDbl()
{
    // The fast reader may decline a numeric text (an exponent, a currency sign), but what it
    // reads must be exactly what the scanner reads.
    QFETCH(QString, text);
    QFETCH(bool, plain);
    double value = 0;
    QCOMPARE(ReadPlainDecimal(text, value), plain);
    if (!plain)
        return;
    QVERIFY(IsNumeric(text, VbLocale::EnUS));
    const double scanned = CDbl(text, VbLocale::EnUS);
    QCOMPARE(value, scanned);
    QCOMPARE(std::signbit(value), std::signbit(scanned));
}

void tst_VbConversion::numericValueIsIsNumericAndCDbl_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"12", " -3.5 ", "(5)", "$5", "5-", "1,234", "&H10", "1e3", "1e999",
                             "-1e999", "abc", "", " ", "1.2.3", "n/a"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void tst_VbConversion::numericValueIsIsNumericAndCDbl()
{
    QFETCH(QString, text);
    const std::optional<double> value = NumericValue(text, VbLocale::EnUS);
    QCOMPARE(value.has_value(), IsNumeric(text, VbLocale::EnUS));
    if (value) {
        QCOMPARE(*value, CDbl(text, VbLocale::EnUS));
    } else {
        // Not numeric or out of range: CDbl raises 13 or 6 where NumericValue gives none.
        try {
            CDbl(text, VbLocale::EnUS);
            QFAIL("CDbl read a number that NumericValue refused");
        } catch (const VemoError& error) {
            QVERIFY(error.number() == 13 || error.number() == 6);
        }
    }
}

void tst_VbConversion::readPlainDecimalRoundsAsFromChars()
{
    // Random plain decimals of 1 to 19 digits with the point anywhere: every one must read to
    // the very double that the correctly rounding std::from_chars reads.
    std::mt19937_64 random(20261121);
    std::uniform_int_distribution<int> digitCount(1, 19);
    std::uniform_int_distribution<int> digit(0, 9);
    for (int i = 0; i < 50000; ++i) {
        const int digits = digitCount(random);
        const int point = std::uniform_int_distribution<int>(0, digits)(random);
        std::string ascii = random() % 2 ? "-" : "";
        for (int d = 0; d < digits; ++d) {
            if (d == point && point > 0)
                ascii += '.';
            ascii += char('0' + digit(random));
        }
        double expected = 0;
        std::from_chars(ascii.data(), ascii.data() + ascii.size(), expected);
        double value = 0;
        QVERIFY2(ReadPlainDecimal(QString::fromStdString(ascii), value), ascii.c_str());
        QVERIFY2(std::bit_cast<quint64>(value) == std::bit_cast<quint64>(expected), ascii.c_str());
    }
}

void tst_VbConversion::cstr_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("expected");

    // §5 table
    QTest::newRow("999999999999999") << 999999999999999.0 << "999999999999999";
    QTest::newRow("1e15") << 1e15 << "1E+15";
    QTest::newRow("1.2e15") << 1.2e15 << "1.2E+15";
    QTest::newRow("1e16 (MaxValue)") << 1e16 << "1E+16";
    QTest::newRow("pi") << 3.141592653589793 << "3.14159265358979";
    QTest::newRow("1234.567890123456789") << 1234.567890123456789 << "1234.56789012346";
    QTest::newRow("5.6789e-11") << 5.6789e-11 << "0.000000000056789";
    QTest::newRow("5.6789e-12") << 5.6789e-12 << "5.6789E-12";
    QTest::newRow("0.1 + 0.2") << 0.1 + 0.2 << "0.3";
    QTest::newRow("1/3") << 1.0 / 3.0 << "0.333333333333333";
    QTest::newRow("2 x 1.005") << 2 * 1.005 << "2.01";
    // §5 leading zero, signs, negative zero
    QTest::newRow("0.5") << 0.5 << "0.5";
    QTest::newRow("0.05") << 0.05 << "0.05";
    QTest::newRow("-0.5") << -0.5 << "-0.5";
    QTest::newRow("negative zero") << -0.0 << "0";
    QTest::newRow("zero") << 0.0 << "0";
    // Derived from the same rules
    QTest::newRow("integer") << 12.0 << "12";
    QTest::newRow("trailing zeros of an integer") << 100.0 << "100";
    QTest::newRow("negative fraction") << -1234.5 << "-1234.5";
    QTest::newRow("1e14 stays fixed") << 1e14 << "100000000000000";
    QTest::newRow("-1e16") << -1e16 << "-1E+16";
    QTest::newRow("three exponent digits") << 1e100 << "1E+100";
    QTest::newRow("tiny") << 1e-100 << "1E-100";
    QTest::newRow("rounded to 15 digits") << 123456789012345.6 << "123456789012346";
    QTest::newRow("rounding reaches 1e15") << 999999999999999.9 << "1E+15";
    QTest::newRow("15 decimals fixed (unconfirmed)") << 1e-15 << "0.000000000000001";
    QTest::newRow("16 decimals scientific (unconfirmed)") << 1.5e-15 << "1.5E-15";
    QTest::newRow("scientific mantissa with fraction") << -1.25e20 << "-1.25E+20";
}

void tst_VbConversion::cstr()
{
    QFETCH(double, value);
    QFETCH(QString, expected);
    QCOMPARE(CStr(value), expected);
}

void tst_VbConversion::scanner_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<VbLocale>("locale");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("error"); // what CDbl throws; IsNumeric is true exactly when none

    const VbLocale en = VbLocale::EnUS;
    const VbLocale zh = VbLocale::ZhCN;

    // surrounding white
    QTest::newRow("spaces around") << " 12 " << en << 12.0 << NoError;
    QTest::newRow("leading tab") << "\t0" << en << 0.0 << NoError;
    QTest::newRow("NBSP around") << "\u00A012\u00A0" << en << 12.0 << NoError;
    QTest::newRow("LF VT FF CR around") << "\n\v\f\r12\r\n" << en << 12.0 << NoError;
    QTest::newRow("trailing tab") << "12\t" << en << 12.0 << NoError;
    QTest::newRow("trailing white") << "0 " << en << 0.0 << NoError;
    // white inside
    QTest::newRow("blank in digits") << "1 000" << en << 0.0 << TypeMismatch;
    QTest::newRow("blank before exponent") << "1 e1" << en << 0.0 << TypeMismatch;
    // signs
    QTest::newRow("leading minus") << "-0.51" << en << -0.51 << NoError;
    QTest::newRow("trailing minus") << "5-" << en << -5.0 << NoError;
    QTest::newRow("trailing plus") << "5+" << en << 5.0 << NoError;
    QTest::newRow("white after leading sign") << "+ 0" << en << 0.0 << NoError;
    QTest::newRow("minus blank digits") << "- 5" << en << -5.0 << NoError;
    QTest::newRow("leading and trailing sign") << "-5-" << en << 0.0 << TypeMismatch;
    QTest::newRow("two leading signs") << "+ +0" << en << 0.0 << TypeMismatch;
    QTest::newRow("plus minus") << "+-5" << en << 0.0 << TypeMismatch;
    QTest::newRow("double minus") << "--5" << en << 0.0 << TypeMismatch;
    QTest::newRow("minus alone") << "-" << en << 0.0 << TypeMismatch;
    QTest::newRow("minus between digits") << "1-2" << en << 0.0 << TypeMismatch;
    // parentheses
    QTest::newRow("parentheses") << "(5)" << en << -5.0 << NoError;
    QTest::newRow("empty parentheses") << "()" << en << 0.0 << TypeMismatch;
    QTest::newRow("open parenthesis only") << "(5" << en << 0.0 << TypeMismatch;
    QTest::newRow("close parenthesis only") << "5)" << en << 0.0 << TypeMismatch;
    // thousands separators
    QTest::newRow("1,000") << "1,000" << en << 1000.0 << NoError;
    QTest::newRow("1,,000") << "1,,000" << en << 1000.0 << NoError;
    QTest::newRow("1,00,0,,") << "1,00,0,," << en << 1000.0 << NoError;
    QTest::newRow("1,") << "1," << en << 1.0 << NoError;
    QTest::newRow(",1,000") << ",1,000" << en << 0.0 << TypeMismatch;
    QTest::newRow("6,90") << "6,90" << en << 690.0 << NoError;
    QTest::newRow("1,500") << "1,500" << en << 1500.0 << NoError;
    QTest::newRow("separator after point") << "1.000,5" << en << 0.0 << TypeMismatch;
    // decimal point
    QTest::newRow("1.") << "1." << en << 1.0 << NoError;
    QTest::newRow(".2") << ".2" << en << 0.2 << NoError;
    QTest::newRow(".") << "." << en << 0.0 << TypeMismatch;
    QTest::newRow("1..1") << "1..1" << en << 0.0 << TypeMismatch;
    QTest::newRow("1.1.") << "1.1." << en << 0.0 << TypeMismatch;
    QTest::newRow("1.2.3") << "1.2.3" << en << 0.0 << TypeMismatch;
    // exponent
    QTest::newRow("1e1") << "1e1" << en << 10.0 << NoError;
    QTest::newRow("1e-1") << "1e-1" << en << 0.1 << NoError;
    QTest::newRow("1e+01") << "1e+01" << en << 10.0 << NoError;
    QTest::newRow("1.5e20") << "1.5e20" << en << 1.5e20 << NoError;
    QTest::newRow("upper E") << "2E3" << en << 2000.0 << NoError;
    QTest::newRow("exponent without digits") << "1e" << en << 0.0 << TypeMismatch;
    QTest::newRow("D exponent (unconfirmed, rejected as Wine)")
        << "1d2" << en << 0.0 << TypeMismatch;
    QTest::newRow("beyond Double") << "1e400" << en << 0.0 << Overflow;
    QTest::newRow("below Double is 0 (unconfirmed)") << "1e-400" << en << 0.0 << NoError;
    // currency symbol
    QTest::newRow("$11") << "$11" << en << 11.0 << NoError;
    QTest::newRow("-$11") << "-$11" << en << -11.0 << NoError;
    QTest::newRow("$-11") << "$-11" << en << -11.0 << NoError;
    QTest::newRow("$11$$") << "$11$$" << en << 11.0 << NoError;
    QTest::newRow("$ alone") << "$" << en << 0.0 << TypeMismatch;
    QTest::newRow("$$11") << "$$11" << en << 0.0 << TypeMismatch;
    QTest::newRow("pound") << "1\u00A3" << en << 0.0 << TypeMismatch;
    QTest::newRow("yen under en-US") << "\u00A55" << en << 0.0 << TypeMismatch;
    // hex / octal
    QTest::newRow("&HF800") << "&HF800" << en << -2048.0 << NoError;
    QTest::newRow("&o777") << "&o777" << en << 511.0 << NoError;
    QTest::newRow("&HFFFF is an Integer") << "&HFFFF" << en << -1.0 << NoError;
    QTest::newRow("&H10000 is a Long") << "&H10000" << en << 65536.0 << NoError;
    QTest::newRow("&HFFFFFFFF") << "&HFFFFFFFF" << en << -1.0 << NoError;
    QTest::newRow("&H7FFFFFFF") << "&H7FFFFFFF" << en << 2147483647.0 << NoError;
    QTest::newRow("&O177777 is an Integer") << "&O177777" << en << -1.0 << NoError;
    QTest::newRow("&ha") << "&ha" << en << 10.0 << NoError;
    QTest::newRow("$&ha: no currency before a radix prefix") << "$&ha" << en << 0.0 << TypeMismatch;
    QTest::newRow("$&O17") << "$&O17" << en << 0.0 << TypeMismatch;
    QTest::newRow("$12") << "$12" << en << 12.0 << NoError;
    QTest::newRow("hex beyond 32 bits") << "&H100000000" << en << 0.0 << Overflow;
    QTest::newRow("&H without digits") << "&H" << en << 0.0 << TypeMismatch;
    QTest::newRow("&H bad digit") << "&HG" << en << 0.0 << TypeMismatch;
    QTest::newRow("octal 8") << "&O8" << en << 0.0 << TypeMismatch;
    QTest::newRow("0x0 is not hex") << "0x0" << en << 0.0 << TypeMismatch;
    QTest::newRow("leading 0 is not octal") << "0100" << en << 100.0 << NoError;
    // whole text, empty, other digits
    QTest::newRow("12abc") << "12abc" << en << 0.0 << TypeMismatch;
    QTest::newRow("empty") << "" << en << 0.0 << TypeMismatch;
    QTest::newRow("blank") << " " << en << 0.0 << TypeMismatch;
    QTest::newRow("Arabic-Indic digit") << "\u0660" << en << 0.0 << TypeMismatch;
    QTest::newRow("full-width digits (unconfirmed)") << "\uFF11\uFF12" << en << 0.0 << TypeMismatch;
    // zh-CN: only the currency symbol differs
    QTest::newRow("zh $5") << "$5" << zh << 0.0 << TypeMismatch;
    QTest::newRow("zh yen U+00A5") << "\u00A55" << zh << 5.0 << NoError;
    QTest::newRow("zh full-width yen") << "\uFFE55" << zh << 5.0 << NoError;
    QTest::newRow("zh -yen") << "-\u00A55" << zh << -5.0 << NoError;
    QTest::newRow("zh 1,500") << "1,500" << zh << 1500.0 << NoError;
    QTest::newRow("zh 0.51") << "0.51" << zh << 0.51 << NoError;
}

void tst_VbConversion::scanner()
{
    QFETCH(QString, text);
    QFETCH(VbLocale, locale);
    QFETCH(double, value);
    QFETCH(int, error);

    QCOMPARE(IsNumeric(text, locale), error == NoError);
    double actual = 0;
    QCOMPARE(errorNumberOf([&] { actual = CDbl(text, locale); }), error);
    if (error == NoError)
        QVERIFY2(sameDouble(actual, value), describe(actual, value));
}

void tst_VbConversion::val_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("error");

    // rule 1: blanks, tabs and line feeds removed anywhere
    QTest::newRow(" 2 45 7") << " 2 45 7" << 2457.0 << NoError;
    QTest::newRow("1615 198th Street") << "    1615 198th Street N.E." << 1615198.0 << NoError;
    QTest::newRow("1 500") << "1 500" << 1500.0 << NoError;
    QTest::newRow("tab and line feed removed") << "1\t2\n3" << 123.0 << NoError;
    QTest::newRow("carriage return stops") << "1\r2" << 1.0 << NoError;
    QTest::newRow("trailing tab") << "12\t" << 12.0 << NoError;
    // rules 2-3
    QTest::newRow("24 and 57") << "24 and 57" << 24.0 << NoError;
    QTest::newRow("12abc") << "12abc" << 12.0 << NoError;
    QTest::newRow("abc") << "abc" << 0.0 << NoError;
    QTest::newRow("empty") << "" << 0.0 << NoError;
    QTest::newRow("comma stops") << "1,500" << 1.0 << NoError;
    QTest::newRow("$5") << "$5" << 0.0 << NoError;
    QTest::newRow("1.2.3") << "1.2.3" << 1.2 << NoError;
    QTest::newRow(".5") << ".5" << 0.5 << NoError;
    QTest::newRow("-.5") << "-.5" << -0.5 << NoError;
    QTest::newRow("point alone") << "." << 0.0 << NoError;
    QTest::newRow("5- reads +5") << "5-" << 5.0 << NoError;
    QTest::newRow("(5) reads 0") << "(5)" << 0.0 << NoError;
    // rule 4: radix prefixes
    QTest::newRow("&HFFFF") << "&HFFFF" << -1.0 << NoError;
    QTest::newRow("&HFFFF& (unconfirmed)") << "&HFFFF&" << 65535.0 << NoError;
    QTest::newRow("&H10") << "&H10" << 16.0 << NoError;
    QTest::newRow("&h1F lower case") << "&h1F" << 31.0 << NoError;
    QTest::newRow("&O17") << "&O17" << 15.0 << NoError;
    QTest::newRow("&H12345 is a Long") << "&H12345" << 74565.0 << NoError;
    QTest::newRow("&H stops at a bad digit") << "&H1G" << 1.0 << NoError;
    QTest::newRow("& alone") << "&" << 0.0 << NoError;
    // rule 5: exponent (unconfirmed)
    QTest::newRow("1e3 (unconfirmed)") << "1e3" << 1000.0 << NoError;
    QTest::newRow("1d3 (unconfirmed)") << "1d3" << 1000.0 << NoError;
    QTest::newRow("exponent without digits") << "1e" << 1.0 << NoError;
    QTest::newRow("exponent sign without digits") << "1e+" << 1.0 << NoError;
    // rule 6: type suffix
    QTest::newRow("50%") << "50%" << 50.0 << NoError;
    QTest::newRow("50.5%") << "50.5%" << 0.0 << TypeMismatch;
    QTest::newRow("beyond Double (unconfirmed)") << "1e999" << 0.0 << Overflow;
    // rule 7 (unconfirmed)
    QTest::newRow("+5") << "+5" << 5.0 << NoError;
    QTest::newRow("- 5") << "- 5" << -5.0 << NoError;
    QTest::newRow("--5") << "--5" << 0.0 << NoError;
}

void tst_VbConversion::val()
{
    QFETCH(QString, text);
    QFETCH(double, value);
    QFETCH(int, error);

    double actual = 0;
    QCOMPARE(errorNumberOf([&] { actual = Val(text); }), error);
    if (error == NoError)
        QVERIFY2(sameDouble(actual, value), describe(actual, value));
}

void tst_VbConversion::round_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<double>("expected");
    QTest::addColumn<int>("error");

    QTest::newRow("0.5") << 0.5 << 0 << 0.0 << NoError;
    QTest::newRow("1.5") << 1.5 << 0 << 2.0 << NoError;
    QTest::newRow("2.5") << 2.5 << 0 << 2.0 << NoError;
    QTest::newRow("-0.5") << -0.5 << 0 << 0.0 << NoError;
    QTest::newRow("-1.5") << -1.5 << 0 << -2.0 << NoError;
    QTest::newRow("0.12345, 4") << 0.12345 << 4 << 0.1234 << NoError;
    QTest::newRow("0.12355, 4") << 0.12355 << 4 << 0.1236 << NoError;
    QTest::newRow("0.12365, 4") << 0.12365 << 4 << 0.1236 << NoError;
    QTest::newRow("0.00005, 4") << 0.00005 << 4 << 0.0 << NoError;
    QTest::newRow("1.605, 2") << 1.605 << 2 << 1.6 << NoError;
    QTest::newRow("1.005, 2") << 1.005 << 2 << 1.0 << NoError;
    QTest::newRow("2.675, 2") << 2.675 << 2 << 2.68 << NoError;
    QTest::newRow("1.125, 2") << 1.125 << 2 << 1.12 << NoError;
    QTest::newRow("0.125, 2") << 0.125 << 2 << 0.12 << NoError;
    QTest::newRow("2 x 1.005, 2") << 2 * 1.005 << 2 << 2.01 << NoError;
    QTest::newRow("1.015, 2 (unconfirmed)") << 1.015 << 2 << 1.01 << NoError;
    QTest::newRow("0.5, 2") << 0.5 << 2 << 0.5 << NoError;
    QTest::newRow("1, 2") << 1.0 << 2 << 1.0 << NoError;
    QTest::newRow("huge value unchanged") << 1e300 << 10 << 1e300 << NoError;
    QTest::newRow("negative decimals") << 1.5 << -1 << 0.0 << InvalidCall;
}

void tst_VbConversion::round()
{
    QFETCH(double, value);
    QFETCH(int, decimals);
    QFETCH(double, expected);
    QFETCH(int, error);

    double actual = 0;
    QCOMPARE(errorNumberOf([&] { actual = Round(value, decimals); }), error);
    if (error == NoError)
        QVERIFY2(sameDouble(actual, expected), describe(actual, expected));
}

void tst_VbConversion::roundThenCStr_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    // §6 and spec Part 2.2, DecimalLength 2, no format: CStr(Round(Val(text), 2))
    QTest::newRow("0.5") << "0.5"
                         << "0.5";
    QTest::newRow("1") << "1"
                       << "1";
    QTest::newRow("1.005") << "1.005"
                           << "1";
    QTest::newRow("1.125") << "1.125"
                           << "1.12";
}

void tst_VbConversion::roundThenCStr()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(CStr(Round(Val(text), 2)), expected);
}

void tst_VbConversion::clng_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<qint32>("expected");
    QTest::addColumn<int>("error");

    QTest::newRow("0.5") << 0.5 << 0 << NoError;
    QTest::newRow("1.5") << 1.5 << 2 << NoError;
    QTest::newRow("-0.5") << -0.5 << 0 << NoError;
    QTest::newRow("-1.5") << -1.5 << -2 << NoError;
    QTest::newRow("0.6") << 0.6 << 1 << NoError;
    QTest::newRow("-0.6") << -0.6 << -1 << NoError;
    QTest::newRow("2147483647.49") << 2147483647.49 << 2147483647 << NoError;
    QTest::newRow("2147483647.5") << 2147483647.5 << 0 << Overflow;
    QTest::newRow("-2147483648.5") << -2147483648.5 << qint32(-2147483647 - 1) << NoError;
    QTest::newRow("-2147483648.51") << -2147483648.51 << 0 << Overflow;
    QTest::newRow("2147483648") << 2147483648.0 << 0 << Overflow;
    QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN() << 0 << Overflow;
}

void tst_VbConversion::clng()
{
    QFETCH(double, value);
    QFETCH(qint32, expected);
    QFETCH(int, error);

    qint32 actual = 0;
    QCOMPARE(errorNumberOf([&] { actual = CLng(value); }), error);
    if (error == NoError)
        QCOMPARE(actual, expected);
}

void tst_VbConversion::clngText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint32>("expected");
    QTest::addColumn<int>("error");

    QTest::newRow("1.5") << "1.5" << 2 << NoError;
    QTest::newRow("-0.5") << "-0.5" << 0 << NoError;
    QTest::newRow("2147483648") << "2147483648" << 0 << Overflow;
    QTest::newRow("abc") << "abc" << 0 << TypeMismatch;
    QTest::newRow("empty") << "" << 0 << TypeMismatch;
    // spec Part 2.2 step 4 (DecimalLength 0)
    QTest::newRow("2.5") << "2.5" << 2 << NoError;
    QTest::newRow("3.5") << "3.5" << 4 << NoError;
    QTest::newRow("-2.5") << "-2.5" << -2 << NoError;
    QTest::newRow("3000000000") << "3000000000" << 0 << Overflow;
    // through the scanner
    QTest::newRow("1,500") << "1,500" << 1500 << NoError;
    QTest::newRow("&HFFFF") << "&HFFFF" << -1 << NoError;
    QTest::newRow("(5)") << "(5)" << -5 << NoError;
}

void tst_VbConversion::clngText()
{
    QFETCH(QString, text);
    QFETCH(qint32, expected);
    QFETCH(int, error);

    qint32 actual = 0;
    QCOMPARE(errorNumberOf([&] { actual = CLng(text, VbLocale::EnUS); }), error);
    if (error == NoError)
        QCOMPARE(actual, expected);
}

void tst_VbConversion::cint_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<qint16>("expected");
    QTest::addColumn<int>("error");

    QTest::newRow("0.5") << 0.5 << qint16(0) << NoError;
    QTest::newRow("1.5") << 1.5 << qint16(2) << NoError;
    QTest::newRow("2.5") << 2.5 << qint16(2) << NoError;
    QTest::newRow("-1.5") << -1.5 << qint16(-2) << NoError;
    QTest::newRow("32767.49") << 32767.49 << qint16(32767) << NoError;
    QTest::newRow("32767.5") << 32767.5 << qint16(0) << Overflow;
    QTest::newRow("-32768.5") << -32768.5 << qint16(-32768) << NoError;
    QTest::newRow("-32768.51") << -32768.51 << qint16(0) << Overflow;
    QTest::newRow("32768") << 32768.0 << qint16(0) << Overflow;
}

void tst_VbConversion::cint()
{
    QFETCH(double, value);
    QFETCH(qint16, expected);
    QFETCH(int, error);

    qint16 actual = 0;
    QCOMPARE(errorNumberOf([&] { actual = CInt(value); }), error);
    if (error == NoError)
        QCOMPARE(actual, expected);
}

void tst_VbConversion::cbool_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<VbLocale>("locale");
    QTest::addColumn<bool>("expected");
    QTest::addColumn<int>("error");

    const VbLocale en = VbLocale::EnUS;
    const VbLocale zh = VbLocale::ZhCN;

    QTest::newRow("True") << "True" << en << true << NoError;
    QTest::newRow("true") << "true" << en << true << NoError;
    QTest::newRow("TRUE") << "TRUE" << en << true << NoError;
    QTest::newRow("tRuE") << "tRuE" << en << true << NoError;
    QTest::newRow("False") << "False" << en << false << NoError;
    QTest::newRow("fALSE") << "fALSE" << en << false << NoError;
    QTest::newRow("zh True") << "True" << zh << true << NoError;
    QTest::newRow("zh false") << "false" << zh << false << NoError;
    QTest::newRow("#TRUE#") << "#TRUE#" << en << true << NoError;
    QTest::newRow("#FALSE#") << "#FALSE#" << en << false << NoError;
    QTest::newRow("#False#") << "#False#" << en << false << TypeMismatch;
    QTest::newRow("#true#") << "#true#" << en << false << TypeMismatch;
    QTest::newRow("0") << "0" << en << false << NoError;
    QTest::newRow("-1") << "-1" << en << true << NoError;
    QTest::newRow("+1") << "+1" << en << true << NoError;
    QTest::newRow("0.1") << "0.1" << en << true << NoError;
    QTest::newRow("0.0") << "0.0" << en << false << NoError;
    QTest::newRow("zh yen 0") << "\u00A50" << zh << false << NoError;
    QTest::newRow("Yes") << "Yes" << en << false << TypeMismatch;
    QTest::newRow("yes") << "yes" << en << false << TypeMismatch;
    QTest::newRow("On") << "On" << en << false << TypeMismatch;
    QTest::newRow("empty") << "" << en << false << TypeMismatch;
    QTest::newRow("abc") << "abc" << en << false << TypeMismatch;
    QTest::newRow("beyond Double") << "1e400" << en << false << Overflow;
}

void tst_VbConversion::cbool()
{
    QFETCH(QString, text);
    QFETCH(VbLocale, locale);
    QFETCH(bool, expected);
    QFETCH(int, error);

    bool actual = false;
    QCOMPARE(errorNumberOf([&] { actual = CBool(text, locale); }), error);
    if (error == NoError)
        QCOMPARE(actual, expected);
}

// §16 rows on conversions, and the §4/§17 contrasts between the scanner and Val.
void tst_VbConversion::specExamples()
{
    // Part 2.2, eLong, DecimalLength 0
    QCOMPARE(CStr(CLng(QStringLiteral("1.5"), VbLocale::EnUS)), QStringLiteral("2"));
    QCOMPARE(CStr(CLng(QStringLiteral("2.5"), VbLocale::EnUS)), QStringLiteral("2"));
    QCOMPARE(CStr(CLng(QStringLiteral("-2.5"), VbLocale::EnUS)), QStringLiteral("-2"));
    // Part 2.2, Validate range check: numeric, but range-checked as Val = 1
    QVERIFY(IsNumeric(QStringLiteral("1,500"), VbLocale::EnUS));
    QCOMPARE(Val(QStringLiteral("1,500")), 1.0);
    // Part 2.2, Value let: CStr(Val(x))
    QCOMPARE(CStr(Val(QStringLiteral("12abc"))), QStringLiteral("12"));
    QCOMPARE(CStr(Val(QStringLiteral("abc"))), QStringLiteral("0"));
    // Part 1.7, DecimalLength 0
    QCOMPARE(CStr(0.1 + 0.2), QStringLiteral("0.3"));
    // Part 1.5, check box texts
    QCOMPARE(CBool(QStringLiteral("-1"), VbLocale::EnUS), true);
    QCOMPARE(CBool(QStringLiteral("False"), VbLocale::EnUS), false);
    // §17.1: Round is banker's
    QCOMPARE(Round(2.5), 2.0);
    // §17.2: scanner and Val read different languages
    QCOMPARE(CDbl(QStringLiteral("5-"), VbLocale::EnUS), -5.0);
    QCOMPARE(Val(QStringLiteral("5-")), 5.0);
    QCOMPARE(CDbl(QStringLiteral("$5"), VbLocale::EnUS), 5.0);
    QCOMPARE(Val(QStringLiteral("$5")), 0.0);
    QVERIFY(!IsNumeric(QStringLiteral("1 500"), VbLocale::EnUS));
    QCOMPARE(Val(QStringLiteral("1 500")), 1500.0);
    // Part 2.2: Validate's trim keeps a tab, which both readers accept
    QVERIFY(IsNumeric(QStringLiteral("12\t"), VbLocale::ZhCN));
    QCOMPARE(Val(QStringLiteral("12\t")), 12.0);
}

QTEST_GUILESS_MAIN(tst_VbConversion)
#include "tst_vbconversion.moc"
