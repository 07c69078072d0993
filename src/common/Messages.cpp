// SPDX-License-Identifier: MIT
#include "common/Messages.h"

#include "common/Locale.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QUrl>

namespace VemoGridLib {

namespace {

// The message texts, indexed by MessageId and then by LanguageIndex; kept character for
// character, misspellings included, so hosts that compare them keep working. The English operator
// message has no title of its own.
struct MessageTexts
{
    const char16_t* text[3];
    const char16_t* title[3];
    MessageIcon icon;
};

constexpr MessageTexts Texts[] = {
    {{u"不允许添加空行!", u"不允許添加空行!", u"Do not allow add a null line!"},
     {u"提示", u"提示", u"PROMPT"},
     MessageIcon::Information},
    {{u"运算符错误!", u"運算符錯誤!", u"Operator ERROR"},
     {u"提示", u"提示", u""},
     MessageIcon::Critical},
};

void showMessageBox(const Message& message)
{
    // Without a QApplication there is no screen to show a box on; the call is then a no-op.
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return;
    const QString title =
        message.title.isEmpty() ? QApplication::applicationDisplayName() : message.title;
    QMessageBox box(message.icon == MessageIcon::Critical ? QMessageBox::Critical
                                                          : QMessageBox::Information,
                    title, message.text, QMessageBox::Ok, QApplication::activeWindow());
    box.exec();
}

bool openWithDesktopServices(const QString& target)
{
    return QDesktopServices::openUrl(QUrl::fromUserInput(target));
}

// The two replaceable handlers (message box, shell open): the library's only process-wide state.
MessageHandler& installedMessageHandler()
{
    static MessageHandler handler = showMessageBox;
    return handler;
}

ShellOpenHandler& installedShellOpenHandler()
{
    static ShellOpenHandler handler = openWithDesktopServices;
    return handler;
}

} // namespace

Message messageText(MessageId id, LanguageIndex language)
{
    const MessageTexts& texts = Texts[int(id)];
    return {QString::fromUtf16(texts.text[language]), QString::fromUtf16(texts.title[language]),
            texts.icon};
}

Message localizedMessage(MessageId id)
{
    // The language index is read anew for each comparison: it follows the environment per call.
    if (languageIndex() == SimplifiedChinese)
        return messageText(id, SimplifiedChinese);
    return messageText(id, languageIndex() == TraditionalChinese ? TraditionalChinese : English);
}

void showMessage(const Message& message)
{
    installedMessageHandler()(message);
}

void showMessage(MessageId id)
{
    showMessage(localizedMessage(id));
}

MessageHandler setMessageHandler(MessageHandler handler)
{
    MessageHandler previous = std::move(installedMessageHandler());
    installedMessageHandler() = handler ? std::move(handler) : MessageHandler(showMessageBox);
    return previous;
}

bool shellOpen(const QString& target)
{
    return installedShellOpenHandler()(target);
}

ShellOpenHandler setShellOpenHandler(ShellOpenHandler handler)
{
    ShellOpenHandler previous = std::move(installedShellOpenHandler());
    installedShellOpenHandler() =
        handler ? std::move(handler) : ShellOpenHandler(openWithDesktopServices);
    return previous;
}

} // namespace VemoGridLib
