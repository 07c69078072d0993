// VB runtime string functions: Trim/LTrim/RTrim (vb-semantics.md §2) and InStr (§14).
// Rows named "... (unconfirmed)" follow the documented model where the doc has no vector.
#include <VemoGridLib/VbStrings.h>
#include <VemoGridLib/VemoError.h>

#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;
using namespace VemoGridLib::vb;
using VemoTest::errorNumberOf;

namespace {

constexpr int NoError = 0;

} // namespace

class tst_VbStrings : public QObject
{
    Q_OBJECT

private slots:
    void trim_data();
    void trim();
    void inStr_data();
    void inStr();
    void inStrWithoutStart_data();
    void inStrWithoutStart();
};

void tst_VbStrings::trim_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("trimmed");
    QTest::addColumn<QString>("leftTrimmed");
    QTest::addColumn<QString>("rightTrimmed");

    QTest::newRow("spaces both ends") << " 12 "
                                      << "12"
                                      << "12 "
                                      << " 12";
    QTest::newRow("inner spaces kept") << "  a b  "
                                       << "a b"
                                       << "a b  "
                                       << "  a b";
    QTest::newRow("tab stays") << "\t12"
                               << "\t12"
                               << "\t12"
                               << "\t12";
    QTest::newRow("trailing tab stays") << "12\t"
                                        << "12\t"
                                        << "12\t"
                                        << "12\t";
    QTest::newRow("CR LF stay") << "\r\n12\r\n"
                                << "\r\n12\r\n"
                                << "\r\n12\r\n"
                                << "\r\n12\r\n";
    QTest::newRow("NBSP stays") << "\u00A012\u00A0"
                                << "\u00A012\u00A0"
                                << "\u00A012\u00A0"
                                << "\u00A012\u00A0";
    QTest::newRow("ideographic space stays (unconfirmed)") << "\u300012\u3000"
                                                           << "\u300012\u3000"
                                                           << "\u300012\u3000"
                                                           << "\u300012\u3000";
    QTest::newRow("spaces outside a tab") << " \t12 "
                                          << "\t12"
                                          << "\t12 "
                                          << " \t12";
    QTest::newRow("only spaces") << "   "
                                 << ""
                                 << ""
                                 << "";
    QTest::newRow("empty") << ""
                           << ""
                           << ""
                           << "";
}

void tst_VbStrings::trim()
{
    QFETCH(QString, text);
    QFETCH(QString, trimmed);
    QFETCH(QString, leftTrimmed);
    QFETCH(QString, rightTrimmed);

    QCOMPARE(Trim(text), trimmed);
    QCOMPARE(LTrim(text), leftTrimmed);
    QCOMPARE(RTrim(text), rightTrimmed);
}

void tst_VbStrings::inStr_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<QString>("s1");
    QTest::addColumn<QString>("s2");
    QTest::addColumn<CompareMethod>("compare");
    QTest::addColumn<int>("expected");
    QTest::addColumn<int>("error");

    const CompareMethod binary = vbBinaryCompare;
    const CompareMethod text = vbTextCompare;
    const QString xp = QStringLiteral("XXpXXpXXPXXP");

    // §14 documented examples
    QTest::newRow("binary P") << 1 << xp << "P" << binary << 9 << NoError;
    QTest::newRow("text P from 4") << 4 << xp << "P" << text << 6 << NoError;
    QTest::newRow("text p from 1") << 1 << xp << "p" << text << 3 << NoError;
    // special cases
    QTest::newRow("s1 empty") << 1 << ""
                              << "a" << binary << 0 << NoError;
    QTest::newRow("both empty") << 1 << ""
                                << "" << binary << 0 << NoError;
    QTest::newRow("s2 empty gives start") << 3 << "abc"
                                          << "" << binary << 3 << NoError;
    QTest::newRow("s2 empty just past the end (unconfirmed)") << 4 << "abc"
                                                              << "" << binary << 4 << NoError;
    QTest::newRow("s2 empty beyond the end (unconfirmed)") << 5 << "abc"
                                                           << "" << binary << 0 << NoError;
    QTest::newRow("start past the end") << 4 << "abc"
                                        << "c" << binary << 0 << NoError;
    QTest::newRow("start 0 (unconfirmed)")
        << 0 << "abc"
        << "a" << binary << 0 << int(VemoError::InvalidProcedureCall);
    QTest::newRow("start negative (unconfirmed)")
        << -1 << "abc"
        << "a" << binary << 0 << int(VemoError::InvalidProcedureCall);
    // binary compare: exact code units
    QTest::newRow("not found") << 1 << "abc"
                               << "d" << binary << 0 << NoError;
    QTest::newRow("first of two") << 1 << "abcabc"
                                  << "bc" << binary << 2 << NoError;
    QTest::newRow("from start") << 3 << "abcabc"
                                << "bc" << binary << 5 << NoError;
    QTest::newRow("at start") << 2 << "abcabc"
                              << "bc" << binary << 2 << NoError;
    QTest::newRow("binary case counts") << 1 << "ABC"
                                        << "b" << binary << 0 << NoError;
    QTest::newRow("binary width counts") << 1 << "\uFF21\uFF22\uFF23"
                                         << "B" << binary << 0 << NoError;
    // text compare: case and width ignored, positions in the original s1
    QTest::newRow("text case") << 1 << "ABC"
                               << "b" << text << 2 << NoError;
    QTest::newRow("text full-width in s1") << 1 << "\uFF21\uFF22\uFF23"
                                           << "b" << text << 2 << NoError;
    QTest::newRow("text full-width in s2") << 1 << "abc"
                                           << "\uFF22" << text << 2 << NoError;
    QTest::newRow("text full-width upper vs lower") << 1 << "x\uFF41"
                                                    << "\uFF21" << text << 2 << NoError;
    QTest::newRow("half-width katakana with voiced mark") << 1 << "\uFF76\uFF9E\uFF77\uFF9E"
                                                          << "\u30AE" << text << 3 << NoError;
    QTest::newRow("full-width katakana in half-width text") << 1 << "x\uFF76\uFF9E"
                                                            << "\u30AC" << text << 2 << NoError;
    QTest::newRow("precomposed needle, combining text") << 1 << "cafe\u0301"
                                                        << "\u00E9" << text << 4 << NoError;
    QTest::newRow("base letter does not match an accented one") << 1 << "caf\u00E9"
                                                                << "e" << text << 0 << NoError;
    QTest::newRow("position after a character that folds longer") << 1 << "stra\u00DFe!"
                                                                  << "!" << text << 7 << NoError;
    QTest::newRow("position after a surrogate pair") << 1 << "\U0001F600A"
                                                     << "a" << text << 3 << NoError;
    QTest::newRow("text start skips earlier match") << 2 << "aXa"
                                                    << "A" << text << 3 << NoError;
}

void tst_VbStrings::inStr()
{
    QFETCH(int, start);
    QFETCH(QString, s1);
    QFETCH(QString, s2);
    QFETCH(CompareMethod, compare);
    QFETCH(int, expected);
    QFETCH(int, error);

    int actual = 0;
    QCOMPARE(errorNumberOf([&] { actual = InStr(start, s1, s2, compare); }), error);
    if (error == NoError)
        QCOMPARE(actual, expected);
}

void tst_VbStrings::inStrWithoutStart_data()
{
    QTest::addColumn<QString>("s1");
    QTest::addColumn<QString>("s2");
    QTest::addColumn<int>("expected");

    QTest::newRow("documented") << "XXpXXpXXPXXP"
                                << "P" << 9;
    QTest::newRow("binary is the default") << "abc"
                                           << "B" << 0;
    QTest::newRow("s2 empty gives 1") << "abc"
                                      << "" << 1;
    QTest::newRow("s1 empty gives 0") << ""
                                      << "a" << 0;
}

void tst_VbStrings::inStrWithoutStart()
{
    QFETCH(QString, s1);
    QFETCH(QString, s2);
    QFETCH(int, expected);
    QCOMPARE(InStr(s1, s2), expected);
}

QTEST_GUILESS_MAIN(tst_VbStrings)
#include "tst_vbstrings.moc"
