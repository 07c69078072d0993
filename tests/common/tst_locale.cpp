// SPDX-License-Identifier: MIT
// The locale variables: which one wins, the LCID and language it names, ANSI code pages.
#include <VemoGridLib/Locale.h>
#include <VemoGridLib/VbLocale.h>

#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;
using namespace Qt::StringLiterals;

class tst_Locale : public QObject
{
    Q_OBJECT

private slots:
    void systemLocale_data()
    {
        QTest::addColumn<QByteArray>("lcAll");
        QTest::addColumn<QByteArray>("lcMessages");
        QTest::addColumn<QByteArray>("lang");
        QTest::addColumn<quint32>("lcid");
        QTest::addColumn<int>("index");
        const auto row = [](const char* lcAll, const char* lcMessages, const char* lang,
                            quint32 lcid, LanguageIndex index) {
            QTest::addRow("%s|%s|%s", lcAll, lcMessages, lang)
                << QByteArray(lcAll) << QByteArray(lcMessages) << QByteArray(lang) << lcid
                << int(index);
        };
        row("", "", "zh_CN.UTF-8@stroke", 2052, SimplifiedChinese);
        row("", "", "zh_TW.UTF-8", 1028, TraditionalChinese);
        row("", "", "zh-HK", 3076, English);
        row("", "", "fr_CA.UTF-8", 1036, English); // the language alone
        row("zh_TW.Big5", "en_US.UTF-8", "zh_CN.UTF-8", 1028, TraditionalChinese);
        row("", "zh_CN.GB18030", "en_US.UTF-8", 2052, SimplifiedChinese);
        row("C", "", "zh_CN.UTF-8", 1033, English);
        row("", "", "", 1033, English);
    }
    void systemLocale()
    {
        QFETCH(QByteArray, lcAll);
        QFETCH(QByteArray, lcMessages);
        QFETCH(QByteArray, lang);
        const VemoTest::ScopedLocale environment(lcAll, lcMessages, lang);
        QTEST(systemDefaultLcid(), "lcid");
        QTEST(int(languageIndex()), "index");
    }

    void userLocaleReadsLcTime()
    {
        const VemoTest::ScopedLocale environment({}, "zh_TW.UTF-8", "en_US.UTF-8");
        QCOMPARE(vb::userLocale(), vb::VbLocale::EnUS);
        VemoTest::ScopedLocale::set("LC_TIME", "zh_CN.UTF-8");
        QCOMPARE(vb::userLocale(), vb::VbLocale::ZhCN);
    }

    // The system locale's code page; a character it lacks becomes '?'.
    void toAnsiCodePage_data()
    {
        QTest::addColumn<QByteArray>("lang");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("1252") << QByteArray("en_US.UTF-8") << u"€a中"_s << QByteArray("\x80\x61?");
        QTest::newRow("ascii") << QByteArray("zh_TW.UTF-8") << u"Qty 12"_s << QByteArray("Qty 12");
        QTest::newRow("936") << QByteArray("zh_CN.UTF-8") << u"中😀"_s << QByteArray("\xD6\xD0?");
        QTest::newRow("950") << QByteArray("zh_TW.UTF-8") << u"運算"_s
                             << QByteArray("\xB9\x42\xBA\xE2");
    }
    void toAnsiCodePage()
    {
        QFETCH(QByteArray, lang);
        QFETCH(QString, text);
        const VemoTest::ScopedLocale environment(lang);
        QTEST(VemoGridLib::toAnsiCodePage(text), "bytes");
    }
};

QTEST_GUILESS_MAIN(tst_Locale)
#include "tst_locale.moc"
