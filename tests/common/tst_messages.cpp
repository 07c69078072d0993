// SPDX-License-Identifier: MIT
// The message shown for an id follows the system locale at each call; handlers can be replaced.
#include <VemoGridLib/Messages.h>

#include "MessageRecorder.h"
#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;
using namespace Qt::StringLiterals;
using VemoTest::MessageRecorder;

Q_DECLARE_METATYPE(VemoGridLib::MessageId)
Q_DECLARE_METATYPE(VemoGridLib::Message)

class tst_Messages : public QObject
{
    Q_OBJECT

private slots:
    void messageByLocale_data()
    {
        QTest::addColumn<QByteArray>("lang");
        QTest::addColumn<MessageId>("id");
        QTest::addColumn<Message>("message");
        const auto info = MessageIcon::Information;
        QTest::newRow("zh_CN") << QByteArray("zh_CN.UTF-8") << MessageId::RefusedEmptyLine
                               << Message{u"不允许添加空行!"_s, u"提示"_s, info};
        QTest::newRow("zh_TW") << QByteArray("zh_TW.UTF-8") << MessageId::RefusedEmptyLine
                               << Message{u"不允許添加空行!"_s, u"提示"_s, info};
        QTest::newRow("zh_HK is English")
            << QByteArray("zh_HK.UTF-8") << MessageId::RefusedEmptyLine
            << Message{u"Do not allow add a null line!"_s, u"PROMPT"_s, info};
        QTest::newRow("English operator has no title")
            << QByteArray("en_GB.UTF-8") << MessageId::BadOperator
            << Message{u"Operator ERROR"_s, QString(), MessageIcon::Critical};
    }
    void messageByLocale()
    {
        QFETCH(QByteArray, lang);
        QFETCH(MessageId, id);
        QFETCH(Message, message);
        MessageRecorder recorder;
        const VemoTest::ScopedLocale locale(lang);
        showMessage(id);
        QCOMPARE(recorder.messages, QList<Message>{message});
    }

    void handlersCanBeReplaced()
    {
        // Under QCoreApplication the default box has nowhere to show and returns at once.
        showMessage(MessageId::BadOperator);
        int calls = 0;
        const MessageHandler original = setMessageHandler([&calls](const Message&) { ++calls; });
        showMessage(Message{u"x"_s, QString(), MessageIcon::Information});
        setMessageHandler({});
        showMessage(Message{u"y"_s, QString(), MessageIcon::Information});
        QCOMPARE(calls, 1);
        setMessageHandler(original);
        const ShellOpenHandler previous =
            setShellOpenHandler([](const QString& target) { return target.startsWith(u"http"); });
        QVERIFY(shellOpen(u"http://example.com/invoice/7"_s));
        QVERIFY(!shellOpen(u"C:\\invoice.txt"_s));
        setShellOpenHandler(previous);
    }
};

QTEST_GUILESS_MAIN(tst_Messages)
#include "tst_messages.moc"
