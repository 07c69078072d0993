// SPDX-License-Identifier: MIT
// Conversions: IsNumeric/CDbl, the fast decimal reader, Val, CBool, CStr, Round/CLng/CInt;
// Trim and InStr.
#include <VemoGridLib/VbConversion.h>
#include <VemoGridLib/VbStrings.h>

#include "VemoTestSupport.h"

#include <QTest>

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>

using namespace VemoGridLib;
using namespace VemoGridLib::vb;
using namespace Qt::StringLiterals;

namespace {
constexpr VbLocale En = VbLocale::EnUS, Zh = VbLocale::ZhCN;
// Expected results: a number, one of these errors, or Skip where no result is recorded.
constexpr double Mismatch = -13e300, Overflow = -6e300, Invalid = -5e300;
const double Skip = std::numeric_limits<double>::quiet_NaN();

template <typename Call>
void check(Call call, double expected)
{
    if (std::isnan(expected))
        return;
    double actual = Skip;
    const int error = VemoTest::errorNumberOf([&] { actual = double(call()); });
    if (expected < -1e300)
        QCOMPARE(error, qRound(-expected / 1e300));
    else
        QCOMPARE(std::bit_cast<quint64>(actual), std::bit_cast<quint64>(expected));
}

} // namespace

class tst_VbConversion : public QObject
{
    Q_OBJECT

private slots:
    void readers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<VbLocale>("locale");
        QTest::addColumn<double>("cdbl");
        QTest::addColumn<double>("val");
        QTest::addColumn<double>("cbool");
        const auto row = [](const char16_t* text, VbLocale locale, double cdbl, double val,
                            double cbool = Skip) {
            const QString t = QString::fromUtf16(text);
            QTest::addRow("%s %s", qPrintable(t), locale == En ? "en" : "zh")
                << t << locale << cdbl << val << cbool;
        };
        row(u"\u00A0\t12\r\n", En, 12, Skip);
        row(u"1 500", En, Mismatch, 1500);
        row(u"5-", En, -5, 5);
        row(u"(5)", En, -5, 0);
        row(u"1,00,0,,", En, 1000, 1);
        row(u"1.2.3", En, Mismatch, 1.2);
        row(u"1e", En, Mismatch, 1);
        row(u"1d2", En, Mismatch, 100);
        row(u"1e400", En, Overflow, Overflow, Overflow);
        row(u"$-11$$", En, -11, 0);
        row(u"&HFFFF", En, -1, -1);
        row(u"&HFFFF&", En, Mismatch, 65535);
        row(u"&H10000", En, 65536, Skip);
        row(u"$&ha", En, Mismatch, 0);
        row(u"&H100000000", En, Overflow, Skip);
        row(u"50.5%", En, Mismatch, Mismatch);
        row(u"$5", Zh, Mismatch, 0);
        row(u"", En, Mismatch, 0, Mismatch);
        row(u"&", En, Mismatch, 0);
        row(u"fALSE", En, Mismatch, 0, 0);
        row(u"#TRUE#", En, Mismatch, 0, 1);
        row(u"#False#", En, Mismatch, 0, Mismatch);
        row(u"\uFFE55", Zh, 5, Skip);
        row(u"-9,007,199,254,740,993", En, -9007199254740993.0, Skip);
        row(u"-.000", En, -0.0, Skip);
    }
    void readers()
    {
        QFETCH(QString, text);
        QFETCH(VbLocale, locale);
        QFETCH(double, cdbl);
        QFETCH(double, val);
        QFETCH(double, cbool);
        check([&] { return CDbl(text, locale); }, cdbl);
        check([&] { return Val(text); }, val);
        check([&] { return CBool(text, locale); }, cbool);
        if (QTest::currentTestFailed())
            return;
        QCOMPARE(IsNumeric(text, locale), cdbl > -1e300);
        QCOMPARE(NumericValue(text, locale).value_or(Mismatch), cdbl > -1e300 ? cdbl : Mismatch);
        double plain = 0; // the fast reader may decline a text, never misread one
        if (ReadPlainDecimal(text, plain))
            QCOMPARE(std::bit_cast<quint64>(plain), std::bit_cast<quint64>(cdbl));
    }

    void readPlainDecimalRoundsAsFromChars() // random decimals read as std::from_chars does
    {
        std::mt19937_64 random(20261121);
        for (int i = 0; i < 20000; ++i) {
            std::string ascii = random() % 2 ? "-" : "";
            const int digits = int(random() % 19) + 1, point = int(random() % (digits + 1));
            for (int d = 0; d < digits; ++d)
                ascii += (d == point && point > 0 ? "." : "") + std::string(1, '0' + random() % 10);
            double expected = 0, value = 0;
            std::from_chars(ascii.data(), ascii.data() + ascii.size(), expected);
            QVERIFY2(ReadPlainDecimal(QString::fromStdString(ascii), value) &&
                         std::bit_cast<quint64>(value) == std::bit_cast<quint64>(expected),
                     ascii.c_str());
        }
    }

    void cstr_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("1e15 goes scientific") << 1e15 << "1E+15";
        QTest::newRow("rounded to 15 digits") << 1234.567890123456789 << "1234.56789012346";
        QTest::newRow("smaller goes scientific") << 5.6789e-12 << "5.6789E-12";
        QTest::newRow("three exponent digits") << -1.25e100 << "-1.25E+100";
        QTest::newRow("negative zero") << -0.0 << "0";
        QTest::newRow("infinity") << std::numeric_limits<double>::infinity() << "1.#INF";
    }
    void cstr()
    {
        QFETCH(double, value);
        QTEST(CStr(value), "text");
    }

    void rounding_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<double>("round");
        QTest::addColumn<double>("clng");
        QTest::addColumn<double>("cint");
        QTest::newRow("2.5") << 2.5 << 0 << 2.0 << 2.0 << 2.0;
        QTest::newRow("-0.5") << -0.5 << 0 << -0.0 << 0.0 << 0.0;
        QTest::newRow("2 x 1.005, 2") << 2 * 1.005 << 2 << 2.01 << 2.0 << 2.0;
        QTest::newRow("2.675, 2") << 2.675 << 2 << 2.68 << 3.0 << 3.0;
        QTest::newRow("1e300, 10") << 1e300 << 10 << 1e300 << Overflow << Overflow;
        QTest::newRow("negative decimals") << 1.5 << -1 << Invalid << 2.0 << 2.0;
        QTest::newRow("32767.5") << 32767.5 << 0 << 32768.0 << 32768.0 << Overflow;
        QTest::newRow("2147483647.5") << 2147483647.5 << 0 << 2147483648.0 << Overflow << Overflow;
        QTest::newRow("NaN") << Skip << 0 << Skip << Overflow << Overflow;
    }
    void rounding()
    {
        QFETCH(double, value);
        QFETCH(int, decimals);
        QFETCH(double, round);
        QFETCH(double, clng);
        QFETCH(double, cint);
        check([&] { return Round(value, decimals); }, round);
        check([&] { return CLng(value); }, clng);
        check([&] { return CInt(value); }, cint);
        check([&] { return CLng(CStr(value), En); }, std::isnan(value) ? Skip : clng);
    }

    void trim()
    {
        const QString text = u" \t1\u00A0 a  "_s; // only U+0020 spaces go
        QCOMPARE(Trim(text), u"\t1\u00A0 a"_s);
        QCOMPARE(TrimmedView(text), u"\t1\u00A0 a"_s);
        QCOMPARE(LTrim(text), u"\t1\u00A0 a  "_s);
        QCOMPARE(RTrim(text), u" \t1\u00A0 a"_s);
        QCOMPARE(Trim(u"   "_s), QString());
    }

    void inStr_data()
    {
        QTest::addColumn<int>("start");
        QTest::addColumn<QString>("s1");
        QTest::addColumn<QString>("s2");
        QTest::addColumn<CompareMethod>("compare");
        QTest::addColumn<int>("position"); // -1: error 5
        const auto row = [](const char* name, int start, const char16_t* s1, const char16_t* s2,
                            CompareMethod compare, int position) {
            QTest::newRow(name) << start << QString::fromUtf16(s1) << QString::fromUtf16(s2)
                                << compare << position;
        };
        const CompareMethod binary = vbBinaryCompare, text = vbTextCompare;
        row("binary P", 1, u"XXpXXpXXPXXP", u"P", binary, 9);
        row("text P from 4", 4, u"XXpXXpXXPXXP", u"P", text, 6);
        row("s1 empty", 1, u"", u"a", binary, 0);
        row("start past the end", 4, u"abc", u"c", binary, 0);
        row("s2 empty gives start", 3, u"abc", u"", binary, 3);
        row("s2 empty beyond the end", 5, u"abc", u"", binary, 0);
        row("start 0", 0, u"abc", u"a", binary, -1);
        row("half-width katakana with voiced mark", 1, u"\uFF76\uFF9E\uFF77\uFF9E", u"\u30AE", text,
            3);
        row("precomposed needle, combining text", 1, u"cafe\u0301", u"\u00E9", text, 4);
        row("base letter misses an accented one", 1, u"caf\u00E9", u"e", text, 0);
        row("after a character that folds longer", 1, u"stra\u00DFe!", u"!", text, 7);
        row("after a surrogate pair", 1, u"\U0001F600A", u"a", text, 3);
    }
    void inStr()
    {
        QFETCH(int, start);
        QFETCH(QString, s1);
        QFETCH(QString, s2);
        QFETCH(CompareMethod, compare);
        QFETCH(int, position);
        int actual = 0;
        const int error = VemoTest::errorNumberOf([&] { actual = InStr(start, s1, s2, compare); });
        QCOMPARE(position < 0 ? error : actual, position < 0 ? 5 : position);
    }
};

QTEST_GUILESS_MAIN(tst_VbConversion)
#include "tst_vbconversion.moc"
