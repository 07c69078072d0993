// SPDX-License-Identifier: MIT
#include "common/VbKeys.h"

#include <QKeyEvent>

#include <algorithm>
#include <optional>
#include <span>

namespace VemoGridLib {
namespace {

struct KeyPair
{
    int qtKey;
    short keyCode;
};

/// Keys with one code each, in the direction code → key too: the first pair of a code is the
/// key qtKeyFromVbKeyCode() synthesises.
constexpr KeyPair NamedKeys[] = {
    {Qt::Key_Backspace, vbKeyBack},
    {Qt::Key_Tab, vbKeyTab},
    {Qt::Key_Clear, vbKeyClear},
    {Qt::Key_Return, vbKeyReturn},
    {Qt::Key_Shift, vbKeyShift},
    {Qt::Key_Control, vbKeyControl},
    {Qt::Key_Alt, vbKeyMenu},
    {Qt::Key_Pause, vbKeyPause},
    {Qt::Key_CapsLock, vbKeyCapital},
    {Qt::Key_Escape, vbKeyEscape},
    {Qt::Key_Space, vbKeySpace},
    {Qt::Key_PageUp, vbKeyPageUp},
    {Qt::Key_PageDown, vbKeyPageDown},
    {Qt::Key_End, vbKeyEnd},
    {Qt::Key_Home, vbKeyHome},
    {Qt::Key_Left, vbKeyLeft},
    {Qt::Key_Up, vbKeyUp},
    {Qt::Key_Right, vbKeyRight},
    {Qt::Key_Down, vbKeyDown},
    {Qt::Key_Select, vbKeySelect},
    {Qt::Key_Printer, vbKeyPrint},
    {Qt::Key_Execute, vbKeyExecute},
    {Qt::Key_Print, vbKeySnapshot},
    {Qt::Key_Insert, vbKeyInsert},
    {Qt::Key_Delete, vbKeyDelete},
    {Qt::Key_Help, vbKeyHelp},
    {Qt::Key_NumLock, vbKeyNumlock},
    {Qt::Key_ScrollLock, vbKeyScrollLock},
    {Qt::Key_Semicolon, vbKeyOem1},
    {Qt::Key_Equal, vbKeyOemPlus},
    {Qt::Key_Comma, vbKeyOemComma},
    {Qt::Key_Minus, vbKeyOemMinus},
    {Qt::Key_Period, vbKeyOemPeriod},
    {Qt::Key_Slash, vbKeyOem2},
    {Qt::Key_QuoteLeft, vbKeyOem3},
    {Qt::Key_BracketLeft, vbKeyOem4},
    {Qt::Key_Backslash, vbKeyOem5},
    {Qt::Key_BracketRight, vbKeyOem6},
    {Qt::Key_Apostrophe, vbKeyOem7},
};

/// Keys reported by what they produce rather than which key it is: Qt names the shifted
/// character of a US layout, Windows the key, so each gives its unshifted key's code. Also the
/// second keys of a code (keypad Enter, Shift+Tab, Alt+Print Screen, AltGr).
constexpr KeyPair AliasKeys[] = {
    {Qt::Key_ParenRight, vbKey0},
    {Qt::Key_Exclam, vbKey1},
    {Qt::Key_At, vbKey2},
    {Qt::Key_NumberSign, vbKey3},
    {Qt::Key_Dollar, vbKey4},
    {Qt::Key_Percent, vbKey5},
    {Qt::Key_AsciiCircum, vbKey6},
    {Qt::Key_Ampersand, vbKey7},
    {Qt::Key_Asterisk, vbKey8},
    {Qt::Key_ParenLeft, vbKey9},
    {Qt::Key_Colon, vbKeyOem1},
    {Qt::Key_Plus, vbKeyOemPlus},
    {Qt::Key_Less, vbKeyOemComma},
    {Qt::Key_Underscore, vbKeyOemMinus},
    {Qt::Key_Greater, vbKeyOemPeriod},
    {Qt::Key_Question, vbKeyOem2},
    {Qt::Key_AsciiTilde, vbKeyOem3},
    {Qt::Key_BraceLeft, vbKeyOem4},
    {Qt::Key_Bar, vbKeyOem5},
    {Qt::Key_BraceRight, vbKeyOem6},
    {Qt::Key_QuoteDbl, vbKeyOem7},
    {Qt::Key_Enter, vbKeyReturn},
    {Qt::Key_Backtab, vbKeyTab},
    {Qt::Key_SysReq, vbKeySnapshot},
    {Qt::Key_AltGr, vbKeyMenu},
};

/// Operators that have their own codes on the keypad (Qt::KeypadModifier set). Keypad keys not
/// listed here (navigation with NumLock off, Enter) are the same keys as in the main block.
constexpr KeyPair KeypadKeys[] = {
    {Qt::Key_Asterisk, vbKeyMultiply}, {Qt::Key_Plus, vbKeyAdd},     {Qt::Key_Minus, vbKeySubtract},
    {Qt::Key_Period, vbKeyDecimal},    {Qt::Key_Slash, vbKeyDivide}, {Qt::Key_Comma, vbKeyDecimal},
};

/// The highest function key Windows has a code for.
constexpr int LastFunctionKey = Qt::Key_F24;

std::optional<short> lookUp(std::span<const KeyPair> table, int qtKey)
{
    const auto found = std::ranges::find(table, qtKey, &KeyPair::qtKey);
    if (found == table.end())
        return std::nullopt;
    return found->keyCode;
}

std::optional<int> qtKeyOf(std::span<const KeyPair> table, short keyCode)
{
    const auto found = std::ranges::find(table, keyCode, &KeyPair::keyCode);
    if (found == table.end())
        return std::nullopt;
    return found->qtKey;
}

bool between(int value, int first, int last)
{
    return value >= first && value <= last;
}

/// The control character Windows generates for Ctrl+key (without Alt), or 0.
short controlCharacter(int qtKey)
{
    if (between(qtKey, Qt::Key_A, Qt::Key_Z))
        return short(qtKey - Qt::Key_A + 1);
    if (between(qtKey, 'a', 'z'))
        return short(qtKey - 'a' + 1);
    switch (qtKey) {
    case Qt::Key_BracketLeft:
        return 27;
    case Qt::Key_Backslash:
        return 28;
    case Qt::Key_BracketRight:
        return 29;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 10; // line feed
    case Qt::Key_Backspace:
        return 127;
    case Qt::Key_Space:
        return 32;
    default:
        return 0;
    }
}

} // namespace

short vbKeyCode(int qtKey, Qt::KeyboardModifiers modifiers)
{
    if (modifiers.testFlag(Qt::KeypadModifier)) {
        if (between(qtKey, Qt::Key_0, Qt::Key_9))
            return short(vbKeyNumpad0 + (qtKey - Qt::Key_0));
        if (const auto code = lookUp(KeypadKeys, qtKey))
            return *code;
    }
    if (between(qtKey, Qt::Key_0, Qt::Key_9) || between(qtKey, Qt::Key_A, Qt::Key_Z))
        return short(qtKey); // Qt's codes of these keys are their ASCII, as Windows's are
    // Not Qt::Key values, but a hand-made event may carry the typed lower-case letter.
    if (between(qtKey, 'a', 'z'))
        return short(qtKey - 'a' + 'A');
    if (between(qtKey, Qt::Key_F1, LastFunctionKey))
        return short(vbKeyF1 + (qtKey - Qt::Key_F1));
    if (const auto code = lookUp(NamedKeys, qtKey))
        return *code;
    return lookUp(AliasKeys, qtKey).value_or(0);
}

short vbKeyCode(const QKeyEvent* event)
{
    return vbKeyCode(event->key(), event->modifiers());
}

QKeyCombination qtKeyFromVbKeyCode(short keyCode)
{
    if (between(keyCode, vbKey0, vbKey9) || between(keyCode, vbKeyA, vbKeyZ))
        return Qt::Key(keyCode);
    if (between(keyCode, vbKeyNumpad0, vbKeyNumpad9))
        return QKeyCombination(Qt::KeypadModifier, Qt::Key(Qt::Key_0 + (keyCode - vbKeyNumpad0)));
    if (between(keyCode, vbKeyF1, vbKeyF1 + (LastFunctionKey - Qt::Key_F1)))
        return Qt::Key(Qt::Key_F1 + (keyCode - vbKeyF1));
    if (const auto key = qtKeyOf(KeypadKeys, keyCode))
        return QKeyCombination(Qt::KeypadModifier, Qt::Key(*key));
    return Qt::Key(qtKeyOf(NamedKeys, keyCode).value_or(Qt::Key_unknown));
}

short vbShiftMask(Qt::KeyboardModifiers modifiers)
{
    return short((modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) |
                 (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) |
                 (modifiers.testFlag(Qt::AltModifier) ? 4 : 0));
}

short vbButtonMask(Qt::MouseButtons buttons)
{
    return short((buttons.testFlag(Qt::LeftButton) ? 1 : 0) |
                 (buttons.testFlag(Qt::RightButton) ? 2 : 0) |
                 (buttons.testFlag(Qt::MiddleButton) ? 4 : 0));
}

short vbButton(Qt::MouseButton button)
{
    return vbButtonMask(button);
}

short vbKeyAscii(const QKeyEvent* event)
{
    const int key = event->key();
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    const bool control = modifiers.testFlag(Qt::ControlModifier);
    const bool alt = modifiers.testFlag(Qt::AltModifier);
    // Windows sends Alt+key as a system key, which raises no KeyPress; Ctrl+Alt is AltGr there.
    if (alt && !control)
        return 0;
    if (control && !alt)
        return controlCharacter(key);
    // Platforms disagree on the text of these keys (xcb gives "\r" for keypad Enter, some none).
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return vbKeyReturn;
    case Qt::Key_Backspace:
        return vbKeyBack;
    case Qt::Key_Escape:
        return vbKeyEscape;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return vbKeyTab;
    default:
        break;
    }
    const QString text = event->text();
    if (text.isEmpty())
        return 0;
    // Other control characters (Delete's DEL on xcb) are not typed characters on Windows.
    const char16_t unit = text.front().unicode();
    if (unit < u' ' || unit == u'\x7f')
        return 0;
    return short(unit);
}

} // namespace VemoGridLib
