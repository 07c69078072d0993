// Part 1.12 (locale and language index) and the ANSI code page of Part 1.8.
#include <VemoGridLib/Locale.h>
#include <VemoGridLib/VbLocale.h>

#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;

class tst_Locale : public QObject
{
    Q_OBJECT

private slots:
    void systemLocale_data();
    void systemLocale();
    void readOnEveryCall();
    void lcidFromLocaleName_data();
    void lcidFromLocaleName();
    void userLocaleIsKeptApart();
    void toAnsiCodePage_data();
    void toAnsiCodePage();
    void toAnsiCodePageFollowsSystemLocale();
};

void tst_Locale::systemLocale_data()
{
    QTest::addColumn<QByteArray>("lcAll");
    QTest::addColumn<QByteArray>("lcMessages");
    QTest::addColumn<QByteArray>("lang");
    QTest::addColumn<quint32>("lcid");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("codePage");

    QTest::newRow("2052 zh_CN") << QByteArray() << QByteArray() << QByteArray("zh_CN.UTF-8")
                                << 2052u << 0 << 936;
    QTest::newRow("1028 zh_TW") << QByteArray() << QByteArray() << QByteArray("zh_TW.UTF-8")
                                << 1028u << 1 << 950;
    QTest::newRow("1033 en_US") << QByteArray() << QByteArray() << QByteArray("en_US.UTF-8")
                                << 1033u << 2 << 1252;
    QTest::newRow("2057 en_GB") << QByteArray() << QByteArray() << QByteArray("en_GB.UTF-8")
                                << 2057u << 2 << 1252;
    QTest::newRow("3076 zh_HK is English")
        << QByteArray() << QByteArray() << QByteArray("zh_HK.UTF-8") << 3076u << 2 << 1252;
    QTest::newRow("LC_ALL wins") << QByteArray("zh_TW.Big5") << QByteArray("en_US.UTF-8")
                                 << QByteArray("zh_CN.UTF-8") << 1028u << 1 << 950;
    QTest::newRow("LC_MESSAGES before LANG") << QByteArray() << QByteArray("zh_CN.GB18030")
                                             << QByteArray("en_US.UTF-8") << 2052u << 0 << 936;
    QTest::newRow("nothing set") << QByteArray() << QByteArray() << QByteArray() << 1033u << 2
                                 << 1252;
    QTest::newRow("C locale") << QByteArray("C") << QByteArray() << QByteArray("zh_CN.UTF-8")
                              << 1033u << 2 << 1252;
    QTest::newRow("modifier ignored")
        << QByteArray() << QByteArray() << QByteArray("zh_CN.UTF-8@stroke") << 2052u << 0 << 936;
}

void tst_Locale::systemLocale()
{
    QFETCH(QByteArray, lcAll);
    QFETCH(QByteArray, lcMessages);
    QFETCH(QByteArray, lang);
    const VemoTest::ScopedLocale environment(lcAll, lcMessages, lang);

    QTEST(systemDefaultLcid(), "lcid");
    QTEST(int(languageIndex()), "index");
    QTEST(ansiCodePage(), "codePage");
}

void tst_Locale::readOnEveryCall()
{
    const VemoTest::ScopedLocale environment({}, {}, "zh_CN.UTF-8");
    QCOMPARE(languageIndex(), SimplifiedChinese);
    VemoTest::ScopedLocale::set("LANG", "zh_TW.UTF-8");
    QCOMPARE(languageIndex(), TraditionalChinese);
    VemoTest::ScopedLocale::set("LANG", "en_GB.UTF-8");
    QCOMPARE(languageIndex(), English);
}

void tst_Locale::lcidFromLocaleName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<quint32>("lcid");

    QTest::newRow("zh_SG") << "zh_SG.UTF-8" << 4100u;
    QTest::newRow("ja_JP") << "ja_JP.eucJP" << 1041u;
    QTest::newRow("de_DE euro") << "de_DE@euro" << 1031u;
    QTest::newRow("bare zh") << "zh" << 2052u;
    QTest::newRow("dash form") << "zh-TW" << 1028u;
    QTest::newRow("language only fallback") << "fr_CA.UTF-8" << 1036u;
    QTest::newRow("unknown") << "xx_YY" << 1033u;
    QTest::newRow("POSIX") << "POSIX" << 1033u;
}

void tst_Locale::lcidFromLocaleName()
{
    QFETCH(QString, name);
    QTEST(VemoGridLib::lcidFromLocaleName(name), "lcid");
}

void tst_Locale::userLocaleIsKeptApart()
{
    const VemoTest::ScopedLocale environment({}, "zh_TW.UTF-8", "en_US.UTF-8");
    QCOMPARE(vb::userLocale(), vb::VbLocale::EnUS);
    VemoTest::ScopedLocale::set("LC_TIME", "zh_CN.UTF-8");
    QCOMPARE(vb::userLocale(), vb::VbLocale::ZhCN);
    QCOMPARE(languageIndex(), TraditionalChinese);
    QCOMPARE(userDefaultLcid(), 2052u);
}

void tst_Locale::toAnsiCodePage_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("codePage");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("ascii") << "Qty 12" << 1252 << QByteArray("Qty 12");
    QTest::newRow("cp1252 e acute") << QString::fromUtf8("café") << 1252 << QByteArray("caf\xE9");
    QTest::newRow("cp1252 euro") << QString::fromUtf8("€5") << 1252
                                 << QByteArray("\x80"
                                               "5");
    QTest::newRow("cp1252 lacks Chinese") << QString::fromUtf8("a中b") << 1252 << QByteArray("a?b");
    QTest::newRow("gbk") << QString::fromUtf8("中文") << 936 << QByteArray("\xD6\xD0\xCE\xC4");
    QTest::newRow("gbk lacks emoji") << QString::fromUtf8("中😀") << 936 << QByteArray("\xD6\xD0?");
    QTest::newRow("big5") << QString::fromUtf8("中") << 950 << QByteArray("\xA4\xA4");
    QTest::newRow("big5 traditional")
        << QString::fromUtf8("運算") << 950 << QByteArray("\xB9\x42\xBA\xE2");
    QTest::newRow("empty") << QString() << 936 << QByteArray();
}

void tst_Locale::toAnsiCodePage()
{
    QFETCH(QString, text);
    QFETCH(int, codePage);
    QTEST(VemoGridLib::toAnsiCodePage(text, codePage), "bytes");
}

void tst_Locale::toAnsiCodePageFollowsSystemLocale()
{
    const VemoTest::ScopedLocale environment({}, {}, "zh_CN.UTF-8");
    QCOMPARE(VemoGridLib::toAnsiCodePage(QString::fromUtf8("中")), QByteArray("\xD6\xD0"));
    VemoTest::ScopedLocale::set("LANG", "en_US.UTF-8");
    QCOMPARE(VemoGridLib::toAnsiCodePage(QString::fromUtf8("中")), QByteArray("?"));
}

QTEST_GUILESS_MAIN(tst_Locale)
#include "tst_locale.moc"
