// SPDX-License-Identifier: MIT
// VB key codes, KeyAscii and the shift and button masks of VB's key and mouse events, from Qt's.
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

#include <QChar>
#include <QKeyCombination>
#include <Qt>

class QKeyEvent;

namespace VemoGridLib {

// VB's KeyCodeConstants: the `KeyCode` of the KeyDown/KeyUp events (grid keyboard and the
// cell editors), equal to the Windows virtual-key codes.

inline constexpr short vbKeyBack = 8;      ///< Backspace
inline constexpr short vbKeyTab = 9;       ///< Tab (also Shift+Tab)
inline constexpr short vbKeyClear = 12;    ///< Clear (keypad 5 with NumLock off)
inline constexpr short vbKeyReturn = 13;   ///< Enter, main block or keypad (moves to the next cell)
inline constexpr short vbKeyShift = 16;    ///< Shift
inline constexpr short vbKeyControl = 17;  ///< Ctrl
inline constexpr short vbKeyMenu = 18;     ///< Alt (Windows calls it the menu key)
inline constexpr short vbKeyPause = 19;    ///< Pause
inline constexpr short vbKeyCapital = 20;  ///< Caps Lock
inline constexpr short vbKeyEscape = 27;   ///< Esc
inline constexpr short vbKeySpace = 32;    ///< Space (toggles a check box)
inline constexpr short vbKeyPageUp = 33;   ///< Page Up
inline constexpr short vbKeyPageDown = 34; ///< Page Down
inline constexpr short vbKeyEnd = 35;      ///< End
inline constexpr short vbKeyHome = 36;     ///< Home
inline constexpr short vbKeyLeft = 37;     ///< Left arrow
inline constexpr short vbKeyUp = 38;       ///< Up arrow (Alt+Up step-scrolls the grid)
inline constexpr short vbKeyRight = 39;    ///< Right arrow
inline constexpr short vbKeyDown = 40;     ///< Down arrow (Alt+Down step-scrolls the grid)
inline constexpr short vbKeySelect = 41;   ///< Select
inline constexpr short vbKeyPrint = 42;    ///< Print (the printer key, not Print Screen)
inline constexpr short vbKeyExecute = 43;  ///< Execute
inline constexpr short vbKeySnapshot = 44; ///< Print Screen
inline constexpr short vbKeyInsert = 45;   ///< Insert
inline constexpr short vbKeyDelete = 46;   ///< Delete
inline constexpr short vbKeyHelp = 47;     ///< Help
inline constexpr short vbKey0 = 48; ///< the 0 key of the main block (also its shifted character)
inline constexpr short vbKey1 = 49; ///< the 1 key of the main block (also its shifted character)
inline constexpr short vbKey2 = 50; ///< the 2 key of the main block (also its shifted character)
inline constexpr short vbKey3 = 51; ///< the 3 key of the main block (also its shifted character)
inline constexpr short vbKey4 = 52; ///< the 4 key of the main block (also its shifted character)
inline constexpr short vbKey5 = 53; ///< the 5 key of the main block (also its shifted character)
inline constexpr short vbKey6 = 54; ///< the 6 key of the main block (also its shifted character)
inline constexpr short vbKey7 = 55; ///< the 7 key of the main block (also its shifted character)
inline constexpr short vbKey8 = 56; ///< the 8 key of the main block (also its shifted character)
inline constexpr short vbKey9 = 57; ///< the 9 key of the main block (also its shifted character)
inline constexpr short vbKeyA = 65; ///< the A key, upper or lower case
inline constexpr short vbKeyB = 66; ///< the B key, upper or lower case
inline constexpr short vbKeyC = 67; ///< the C key, upper or lower case
inline constexpr short vbKeyD = 68; ///< the D key, upper or lower case
inline constexpr short vbKeyE = 69; ///< the E key, upper or lower case
inline constexpr short vbKeyF = 70; ///< the F key, upper or lower case
inline constexpr short vbKeyG = 71; ///< the G key, upper or lower case
inline constexpr short vbKeyH = 72; ///< the H key, upper or lower case
inline constexpr short vbKeyI = 73; ///< the I key, upper or lower case
inline constexpr short vbKeyJ = 74; ///< the J key, upper or lower case
inline constexpr short vbKeyK = 75; ///< the K key, upper or lower case
inline constexpr short vbKeyL = 76; ///< the L key, upper or lower case
inline constexpr short vbKeyM = 77; ///< the M key, upper or lower case
inline constexpr short vbKeyN = 78; ///< the N key, upper or lower case
inline constexpr short vbKeyO = 79; ///< the O key, upper or lower case
inline constexpr short vbKeyP = 80; ///< the P key, upper or lower case
inline constexpr short vbKeyQ = 81; ///< the Q key, upper or lower case
inline constexpr short vbKeyR = 82; ///< the R key, upper or lower case
inline constexpr short vbKeyS = 83; ///< the S key, upper or lower case
inline constexpr short vbKeyT = 84; ///< the T key, upper or lower case
inline constexpr short vbKeyU = 85; ///< the U key, upper or lower case
inline constexpr short vbKeyV = 86; ///< the V key, upper or lower case
inline constexpr short vbKeyW = 87; ///< the W key, upper or lower case
inline constexpr short vbKeyX = 88; ///< the X key, upper or lower case
inline constexpr short vbKeyY = 89; ///< the Y key, upper or lower case
inline constexpr short vbKeyZ = 90; ///< the Z key, upper or lower case
inline constexpr short vbKeyNumpad0 = 96;     ///< keypad 0 with NumLock on
inline constexpr short vbKeyNumpad1 = 97;     ///< keypad 1 with NumLock on
inline constexpr short vbKeyNumpad2 = 98;     ///< keypad 2 with NumLock on
inline constexpr short vbKeyNumpad3 = 99;     ///< keypad 3 with NumLock on
inline constexpr short vbKeyNumpad4 = 100;    ///< keypad 4 with NumLock on
inline constexpr short vbKeyNumpad5 = 101;    ///< keypad 5 with NumLock on
inline constexpr short vbKeyNumpad6 = 102;    ///< keypad 6 with NumLock on
inline constexpr short vbKeyNumpad7 = 103;    ///< keypad 7 with NumLock on
inline constexpr short vbKeyNumpad8 = 104;    ///< keypad 8 with NumLock on
inline constexpr short vbKeyNumpad9 = 105;    ///< keypad 9 with NumLock on
inline constexpr short vbKeyMultiply = 106;   ///< keypad *
inline constexpr short vbKeyAdd = 107;        ///< keypad +
inline constexpr short vbKeySeparator = 108;  ///< keypad separator; never produced, see vbKeyCode()
inline constexpr short vbKeySubtract = 109;   ///< keypad -
inline constexpr short vbKeyDecimal = 110;    ///< keypad decimal point, '.' or ','
inline constexpr short vbKeyDivide = 111;     ///< keypad /
inline constexpr short vbKeyF1 = 112;         ///< F1
inline constexpr short vbKeyF2 = 113;         ///< F2
inline constexpr short vbKeyF3 = 114;         ///< F3
inline constexpr short vbKeyF4 = 115;         ///< F4
inline constexpr short vbKeyF5 = 116;         ///< F5
inline constexpr short vbKeyF6 = 117;         ///< F6
inline constexpr short vbKeyF7 = 118;         ///< F7
inline constexpr short vbKeyF8 = 119;         ///< F8
inline constexpr short vbKeyF9 = 120;         ///< F9
inline constexpr short vbKeyF10 = 121;        ///< F10
inline constexpr short vbKeyF11 = 122;        ///< F11
inline constexpr short vbKeyF12 = 123;        ///< F12
inline constexpr short vbKeyF13 = 124;        ///< F13
inline constexpr short vbKeyF14 = 125;        ///< F14
inline constexpr short vbKeyF15 = 126;        ///< F15
inline constexpr short vbKeyF16 = 127;        ///< F16
inline constexpr short vbKeyNumlock = 144;    ///< Num Lock
inline constexpr short vbKeyScrollLock = 145; ///< Scroll Lock

// The punctuation keys of a US keyboard have no VB constant; these are Windows's VK_OEM_* codes.

inline constexpr short vbKeyOem1 = 186;      ///< ; and :
inline constexpr short vbKeyOemPlus = 187;   ///< = and +
inline constexpr short vbKeyOemComma = 188;  ///< , and <
inline constexpr short vbKeyOemMinus = 189;  ///< - and _
inline constexpr short vbKeyOemPeriod = 190; ///< . and >
inline constexpr short vbKeyOem2 = 191;      ///< / and ?
inline constexpr short vbKeyOem3 = 192;      ///< ` and ~
inline constexpr short vbKeyOem4 = 219;      ///< [ and {
inline constexpr short vbKeyOem5 = 220;      ///< \ and |
inline constexpr short vbKeyOem6 = 221;      ///< ] and }
inline constexpr short vbKeyOem7 = 222;      ///< ' and "

/// The VB key code of a Qt key (KeyDown/KeyUp of the grid and the editors), as Windows reports
/// the physical key on a US layout: a letter key gives its upper-case code whatever the case of
/// `qtKey`; a shifted character gives its unshifted key's code (Key_Exclam → 49, Key_Colon → 186,
/// Key_Plus → 187); with Qt::KeypadModifier the digits and operators give the numpad codes
/// 96..111 (Key_Comma too gives vbKeyDecimal, as the one decimal key does on Windows), while
/// the keypad's navigation keys (NumLock off) and Enter give the ordinary codes. Key_Backtab
/// gives vbKeyTab, Key_AltGr vbKeyMenu, F1..F24 112..135. Any other key gives 0.
VEMOGRIDLIB_EXPORT short vbKeyCode(int qtKey, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// vbKeyCode() of a key press or release event's key and modifiers.
VEMOGRIDLIB_EXPORT short vbKeyCode(const QKeyEvent* event);

/// A Qt key that vbKeyCode() maps to `keyCode`, with Qt::KeypadModifier for the numpad codes,
/// for synthesising keystrokes (wheel scrolling and the combo's arrow button):
/// `QKeyEvent(QEvent::KeyPress, c.key(), c.keyboardModifiers())`. Shifted characters are not
/// produced (49 gives Key_1). A code no key maps to (0, 108, ...) gives Qt::Key_unknown.
VEMOGRIDLIB_EXPORT QKeyCombination qtKeyFromVbKeyCode(short keyCode);

/// The `Shift` argument of the key and mouse events: 1 Shift + 2 Ctrl + 4 Alt, as
/// held (the grid step-scrolls on Shift = 4). Meta and the keypad flag are not part of it.
VEMOGRIDLIB_EXPORT short vbShiftMask(Qt::KeyboardModifiers modifiers);

/// The `Button` argument of MouseMove: 1 left + 2 right +
/// 4 middle, as held.
VEMOGRIDLIB_EXPORT short vbButtonMask(Qt::MouseButtons buttons);
/// The `Button` of MouseDown/MouseUp: the one button pressed or released (QMouseEvent::button()),
/// 0 for a button VB does not report (back, forward, ...).
VEMOGRIDLIB_EXPORT short vbButton(Qt::MouseButton button);

/// The `KeyAscii` of the KeyPress event (grid and editors; numeric editors filter on it), as
/// Windows generates the character of a key press, or 0 when the key types none (arrows,
/// F-keys, Delete, Alt combinations, which Windows sends as system keys):
/// - Return and keypad Enter 13, Backspace 8, Esc 27, Tab and Shift+Tab 9;
/// - with Ctrl and without Alt: Ctrl+A..Ctrl+Z 1..26, Ctrl+[ 27, Ctrl+\ 28, Ctrl+] 29,
///   Ctrl+Enter 10, Ctrl+Backspace 127, Ctrl+Space 32, any other key 0;
/// - otherwise the first UTF-16 unit of the event's text (Ctrl+Alt included, as AltGr), 0 for
///   none or a control character. VB6 gave the ANSI code (a negative 16-bit value for a
///   Chinese character); this is the Unicode code unit, reinterpreted as signed, so a unit
///   above 0x7FFF is negative too (中 gives 20013, ｱ U+FF71 gives -143). A character outside
///   the BMP yields its high surrogate: an editor inserting the key's text when KeyAscii comes
///   back unchanged keeps it whole.
VEMOGRIDLIB_EXPORT short vbKeyAscii(const QKeyEvent* event);

/// The character of a KeyAscii value after a receiver may have changed it (the
/// editor types what KeyAscii holds): the UTF-16 unit it stands for, QChar(0) for 0.
constexpr QChar keyAsciiChar(short keyAscii)
{
    return QChar(char16_t(quint16(keyAscii)));
}

} // namespace VemoGridLib
