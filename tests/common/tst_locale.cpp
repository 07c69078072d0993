// SPDX-License-Identifier: MIT
// The locale variables: which one wins, the LCID, language, messages and ANSI code page.
#include <VemoGridLib/Locale.h>
#include <VemoGridLib/Messages.h>

#include "MessageRecorder.h"
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
        QTest::addColumn<QByteArray>("variables"); // LC_ALL|LC_MESSAGES|LANG
        QTest::addColumn<quint32>("lcid");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("message"); // text|title of RefusedEmptyLine
        const auto row = [](const char* variables, quint32 lcid, LanguageIndex index,
                            const QString& message = u"Do not allow add a null line!|PROMPT"_s) {
            QTest::newRow(variables) << QByteArray(variables) << lcid << int(index) << message;
        };
        row("||zh_CN.UTF-8@stroke", 2052, SimplifiedChinese, u"不允许添加空行!|提示"_s);
        row("||zh-HK", 3076, English);
        row("||fr_CA.UTF-8", 1036, English); // the language alone
        row("zh_TW.Big5|en_US.UTF-8|zh_CN.UTF-8", 1028, TraditionalChinese,
            u"不允許添加空行!|提示"_s);
        row("|zh_CN.GB18030|en_US.UTF-8", 2052, SimplifiedChinese, u"不允许添加空行!|提示"_s);
        row("C||zh_CN.UTF-8", 1033, English);
        row("||", 1033, English);
    }
    void systemLocale()
    {
        QFETCH(QByteArray, variables);
        const QList<QByteArray> v = variables.split('|');
        const VemoTest::ScopedLocale environment(v[0], v[1], v[2]);
        QTEST(systemDefaultLcid(), "lcid");
        QTEST(int(languageIndex()), "index");
        VemoTest::MessageRecorder recorder;
        showMessage(MessageId::RefusedEmptyLine);
        const Message m = recorder.messages.value(0);
        QCOMPARE(m.icon, MessageIcon::Information);
        QTEST(m.text + u'|' + m.title, "message");
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
    }
    void toAnsiCodePage()
    {
        QFETCH(QByteArray, lang);
        QFETCH(QString, text);
        const VemoTest::ScopedLocale environment(lang);
        QTEST(VemoGridLib::toAnsiCodePage(text), "bytes");
    }

    void handlersCanBeReplaced()
    {
        VemoTest::MessageRecorder recorder;
        const VemoTest::ScopedLocale environment("en_GB.UTF-8");
        showMessage(MessageId::BadOperator); // English has no title here
        QCOMPARE(recorder.messages,
                 QList<Message>({{u"Operator ERROR"_s, {}, MessageIcon::Critical}}));
        // Under QCoreApplication the default box has nowhere to show and returns at once.
        const MessageHandler original = setMessageHandler({});
        showMessage(MessageId::BadOperator);
        setMessageHandler(original);
        const ShellOpenHandler previous =
            setShellOpenHandler([](const QString& target) { return target.startsWith(u"http"); });
        QVERIFY(shellOpen(u"http://example.com/invoice/7"_s) && !shellOpen(u"C:\\invoice.txt"_s));
        setShellOpenHandler(previous);
    }
};

QTEST_GUILESS_MAIN(tst_Locale)
#include "tst_locale.moc"
