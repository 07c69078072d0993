// SPDX-License-Identifier: MIT
// The user-facing messages in three text sets, shown through a replaceable handler;
// and the shell "Open" verb, likewise replaceable.
#pragma once

#include <VemoGridLib/VemoEnums.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QString>

#include <functional>

namespace VemoGridLib {

/// The icon of a message box (VB's vbInformation and vbCritical).
enum class MessageIcon {
    Information,
    Critical,
};

/// One message as shown: its text, its title (empty = the host application's default title)
/// and its icon. The button is always OK.
struct Message
{
    QString text;
    QString title;
    MessageIcon icon = MessageIcon::Information;

    friend bool operator==(const Message&, const Message&) = default;
};

/// The messages of the grid.
enum class MessageId {
    RefusedEmptyLine, ///< AddItem refused: "Do not allow add a null line!"
    BadOperator,      ///< AutoCalcOPE set to no + - * /: "Operator ERROR"
};

/// The text set of `id` for language `language`.
VEMOGRIDLIB_EXPORT Message messageText(MessageId id, LanguageIndex language);

/// The text set of `id` chosen by the language index: 0 selects Simplified Chinese, otherwise
/// the index is read a second time and 1 selects Traditional Chinese, anything else English.
VEMOGRIDLIB_EXPORT Message localizedMessage(MessageId id);

/// Shows a message box; the default handler runs a modal QMessageBox with an OK button.
using MessageHandler = std::function<void(const Message&)>;
/// Shows `message` through the installed handler.
VEMOGRIDLIB_EXPORT void showMessage(const Message& message);
/// Shows the localized text of `id` through the installed handler.
VEMOGRIDLIB_EXPORT void showMessage(MessageId id);
/// Installs `handler` (an empty one restores the default) and returns the previous one, so a
/// test can record messages instead of blocking on a dialog.
VEMOGRIDLIB_EXPORT MessageHandler setMessageHandler(MessageHandler handler);

/// Opens a link or document with the shell's "Open" verb (hyperlink cells); the default
/// handler is QDesktopServices::openUrl. Returns whether the handler reported success.
using ShellOpenHandler = std::function<bool(const QString& target)>;
/// Opens `target` through the installed handler.
VEMOGRIDLIB_EXPORT bool shellOpen(const QString& target);
/// Installs `handler` (an empty one restores the default) and returns the previous one.
VEMOGRIDLIB_EXPORT ShellOpenHandler setShellOpenHandler(ShellOpenHandler handler);

} // namespace VemoGridLib
