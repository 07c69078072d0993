// Part 1.12: the message texts in the three sets, chosen by the system locale, and the
// replaceable message and shell handlers.
#include <VemoGridLib/Messages.h>

#include "MessageRecorder.h"
#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;
using VemoTest::MessageRecorder;

Q_DECLARE_METATYPE(VemoGridLib::MessageId)
Q_DECLARE_METATYPE(VemoGridLib::MessageIcon)

class tst_Messages : public QObject
{
    Q_OBJECT

private slots:
    void messageByLocale_data();
    void messageByLocale();
    void languageIsReadAtEachMessage();
    void defaultHandlerWithoutGuiDoesNotBlock();
    void emptyHandlerRestoresDefault();
    void shellOpenGoesThroughHandler();
};

void tst_Messages::messageByLocale_data()
{
    QTest::addColumn<QByteArray>("lang");
    QTest::addColumn<MessageId>("id");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");
    QTest::addColumn<MessageIcon>("icon");

    const auto empty = MessageId::RefusedEmptyLine;
    const auto op = MessageId::BadOperator;
    const auto info = MessageIcon::Information;
    const auto critical = MessageIcon::Critical;
    const QString zhTitle = QString::fromUtf8("提示");

    QTest::newRow("2052 empty line") << QByteArray("zh_CN.UTF-8") << empty
                                     << QString::fromUtf8("不允许添加空行!") << zhTitle << info;
    QTest::newRow("1028 empty line") << QByteArray("zh_TW.UTF-8") << empty
                                     << QString::fromUtf8("不允許添加空行!") << zhTitle << info;
    QTest::newRow("1033 empty line")
        << QByteArray("en_US.UTF-8") << empty << "Do not allow add a null line!"
        << "PROMPT" << info;
    QTest::newRow("2057 empty line")
        << QByteArray("en_GB.UTF-8") << empty << "Do not allow add a null line!"
        << "PROMPT" << info;
    QTest::newRow("3076 empty line")
        << QByteArray("zh_HK.UTF-8") << empty << "Do not allow add a null line!"
        << "PROMPT" << info;
    QTest::newRow("2052 operator") << QByteArray("zh_CN.UTF-8") << op
                                   << QString::fromUtf8("运算符错误!") << zhTitle << critical;
    QTest::newRow("1028 operator") << QByteArray("zh_TW.UTF-8") << op
                                   << QString::fromUtf8("運算符錯誤!") << zhTitle << critical;
    QTest::newRow("1033 operator has no title")
        << QByteArray("en_US.UTF-8") << op << "Operator ERROR" << QString() << critical;
    QTest::newRow("3076 operator")
        << QByteArray("zh_HK.UTF-8") << op << "Operator ERROR" << QString() << critical;
}

void tst_Messages::messageByLocale()
{
    QFETCH(QByteArray, lang);
    QFETCH(MessageId, id);
    QFETCH(QString, text);
    QFETCH(QString, title);
    QFETCH(MessageIcon, icon);
    const VemoTest::ScopedLocale locale(lang);

    MessageRecorder recorder;
    showMessage(id);

    QCOMPARE(recorder.messages.size(), 1);
    QCOMPARE(recorder.messages.first().text, text);
    QCOMPARE(recorder.messages.first().title, title);
    QCOMPARE(recorder.messages.first().icon, icon);
}

void tst_Messages::languageIsReadAtEachMessage()
{
    MessageRecorder recorder;
    const VemoTest::ScopedLocale locale("zh_CN.UTF-8");
    showMessage(MessageId::RefusedEmptyLine);
    VemoTest::ScopedLocale::set("LANG", "en_US.UTF-8");
    showMessage(MessageId::RefusedEmptyLine);

    QCOMPARE(recorder.messages.size(), 2);
    QCOMPARE(recorder.messages.at(0).text, QString::fromUtf8("不允许添加空行!"));
    QCOMPARE(recorder.messages.at(1).text, QStringLiteral("Do not allow add a null line!"));
}

void tst_Messages::defaultHandlerWithoutGuiDoesNotBlock()
{
    // This test runs under QCoreApplication: the default box has nowhere to show and returns.
    showMessage(MessageId::BadOperator);
    QVERIFY(!QCoreApplication::instance()->inherits("QApplication"));
}

void tst_Messages::emptyHandlerRestoresDefault()
{
    int calls = 0;
    const MessageHandler original = setMessageHandler([&calls](const Message&) { ++calls; });
    showMessage(Message{QStringLiteral("x"), QString(), MessageIcon::Information});
    QCOMPARE(calls, 1);

    const MessageHandler recorder = setMessageHandler({});
    QVERIFY(bool(recorder));
    showMessage(Message{QStringLiteral("y"), QString(), MessageIcon::Information});
    QCOMPARE(calls, 1);
    setMessageHandler(original);
}

void tst_Messages::shellOpenGoesThroughHandler()
{
    QStringList opened;
    const ShellOpenHandler previous = setShellOpenHandler([&opened](const QString& target) {
        opened.append(target);
        return target.startsWith(QLatin1String("http"));
    });
    QVERIFY(shellOpen(QStringLiteral("http://example.com/invoice/7")));
    QVERIFY(!shellOpen(QStringLiteral("C:\\no such file.txt")));
    setShellOpenHandler(previous);

    QCOMPARE(opened, QStringList({QStringLiteral("http://example.com/invoice/7"),
                                  QStringLiteral("C:\\no such file.txt")}));
}

QTEST_GUILESS_MAIN(tst_Messages)
#include "tst_messages.moc"
