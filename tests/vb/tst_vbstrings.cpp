// SPDX-License-Identifier: MIT
// Trim and its one-sided forms (spaces only), InStr in binary and text compare.
#include <VemoGridLib/VbStrings.h>

#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;
using namespace VemoGridLib::vb;
using namespace Qt::StringLiterals;

class tst_VbStrings : public QObject
{
    Q_OBJECT

private slots:
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
        row("text full-width upper vs lower", 1, u"x\uFF41", u"\uFF21", text, 2);
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
        if (start == 1 && compare == vbBinaryCompare)
            QCOMPARE(InStr(s1, s2), position);
    }
};

QTEST_GUILESS_MAIN(tst_VbStrings)
#include "tst_vbstrings.moc"
