// Qt key and mouse events → VB key codes, KeyAscii and the Shift and Button masks.
#include <VemoGridLib/VbKeys.h>

#include <QKeyEvent>
#include <QTest>

using namespace VemoGridLib;
using namespace Qt::StringLiterals;

namespace {

constexpr Qt::KeyboardModifiers None = Qt::NoModifier;
constexpr Qt::KeyboardModifiers Keypad = Qt::KeypadModifier;
constexpr Qt::KeyboardModifiers Shift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers Control = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers Alt = Qt::AltModifier;

/// "Shift+Alt" for bits 0b101 of the names {"Shift", "Ctrl", "Alt"}; "none" for 0.
QByteArray rowName(int bits, std::initializer_list<const char*> names)
{
    QByteArrayList held;
    for (int bit = 0; const char* name : names)
        if (bits & (1 << bit++))
            held << name;
    return held.isEmpty() ? QByteArray("none") : held.join('+');
}

} // namespace

class TestVbKeys : public QObject
{
    Q_OBJECT

private slots:
    void keyCode_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<short>("keyCode");
        const auto row = [](const char* name, int key, Qt::KeyboardModifiers modifiers,
                            short keyCode) {
            QTest::newRow(name) << key << modifiers << keyCode;
        };
        row("Backspace", Qt::Key_Backspace, None, 8);
        row("Tab", Qt::Key_Tab, None, 9);
        row("Backtab", Qt::Key_Backtab, Shift, 9);
        row("Clear", Qt::Key_Clear, Keypad, 12);
        row("Return", Qt::Key_Return, None, 13);
        row("keypad Enter", Qt::Key_Enter, Keypad, 13);
        row("Shift", Qt::Key_Shift, Shift, 16);
        row("Control", Qt::Key_Control, Control, 17);
        row("Alt", Qt::Key_Alt, Alt, 18);
        row("AltGr", Qt::Key_AltGr, None, 18);
        row("Pause", Qt::Key_Pause, None, 19);
        row("Caps Lock", Qt::Key_CapsLock, None, 20);
        row("Escape", Qt::Key_Escape, None, 27);
        row("Space", Qt::Key_Space, None, 32);
        row("Page Up", Qt::Key_PageUp, None, 33);
        row("Page Down", Qt::Key_PageDown, None, 34);
        row("End", Qt::Key_End, None, 35);
        row("Home", Qt::Key_Home, None, 36);
        row("Left", Qt::Key_Left, None, 37);
        row("Up", Qt::Key_Up, None, 38);
        row("Alt+Up", Qt::Key_Up, Alt, 38);
        row("Right", Qt::Key_Right, None, 39);
        row("Down", Qt::Key_Down, None, 40);
        row("keypad Down (NumLock off)", Qt::Key_Down, Keypad, 40);
        row("Select", Qt::Key_Select, None, 41);
        row("Printer", Qt::Key_Printer, None, 42);
        row("Execute", Qt::Key_Execute, None, 43);
        row("Print Screen", Qt::Key_Print, None, 44);
        row("SysReq", Qt::Key_SysReq, Alt, 44);
        row("Insert", Qt::Key_Insert, None, 45);
        row("Delete", Qt::Key_Delete, None, 46);
        row("keypad Delete", Qt::Key_Delete, Keypad, 46);
        row("Help", Qt::Key_Help, None, 47);
        row("0", Qt::Key_0, None, 48);
        row("5", Qt::Key_5, None, 53);
        row("9", Qt::Key_9, None, 57);
        row(") is 0", Qt::Key_ParenRight, Shift, 48);
        row("! is 1", Qt::Key_Exclam, Shift, 49);
        row("@ is 2", Qt::Key_At, Shift, 50);
        row("# is 3", Qt::Key_NumberSign, Shift, 51);
        row("$ is 4", Qt::Key_Dollar, Shift, 52);
        row("% is 5", Qt::Key_Percent, Shift, 53);
        row("^ is 6", Qt::Key_AsciiCircum, Shift, 54);
        row("& is 7", Qt::Key_Ampersand, Shift, 55);
        row("* is 8", Qt::Key_Asterisk, Shift, 56);
        row("( is 9", Qt::Key_ParenLeft, Shift, 57);
        row("A", Qt::Key_A, None, 65);
        row("Shift+A", Qt::Key_A, Shift, 65);
        row("Ctrl+C", Qt::Key_C, Control, 67);
        row("Z", Qt::Key_Z, None, 90);
        row("lower-case a", 'a', None, 65);
        row("lower-case z", 'z', None, 90);
        row("keypad 0", Qt::Key_0, Keypad, 96);
        row("keypad 7", Qt::Key_7, Keypad, 103);
        row("keypad 9", Qt::Key_9, Keypad, 105);
        row("keypad *", Qt::Key_Asterisk, Keypad, 106);
        row("keypad +", Qt::Key_Plus, Keypad, 107);
        row("keypad -", Qt::Key_Minus, Keypad, 109);
        row("keypad .", Qt::Key_Period, Keypad, 110);
        row("keypad , (decimal comma)", Qt::Key_Comma, Keypad, 110);
        row("keypad /", Qt::Key_Slash, Keypad, 111);
        row("F1", Qt::Key_F1, None, 112);
        row("F12", Qt::Key_F12, None, 123);
        row("F16", Qt::Key_F16, None, 127);
        row("F24", Qt::Key_F24, None, 135);
        row("F25 has no code", Qt::Key_F25, None, 0);
        row("Num Lock", Qt::Key_NumLock, None, 144);
        row("Scroll Lock", Qt::Key_ScrollLock, None, 145);
        row(";", Qt::Key_Semicolon, None, 186);
        row(":", Qt::Key_Colon, Shift, 186);
        row("=", Qt::Key_Equal, None, 187);
        row("+ (main block)", Qt::Key_Plus, Shift, 187);
        row(",", Qt::Key_Comma, None, 188);
        row("<", Qt::Key_Less, Shift, 188);
        row("- (main block)", Qt::Key_Minus, None, 189);
        row("_", Qt::Key_Underscore, Shift, 189);
        row(". (main block)", Qt::Key_Period, None, 190);
        row(">", Qt::Key_Greater, Shift, 190);
        row("/ (main block)", Qt::Key_Slash, None, 191);
        row("?", Qt::Key_Question, Shift, 191);
        row("`", Qt::Key_QuoteLeft, None, 192);
        row("~", Qt::Key_AsciiTilde, Shift, 192);
        row("[", Qt::Key_BracketLeft, None, 219);
        row("{", Qt::Key_BraceLeft, Shift, 219);
        row("\\", Qt::Key_Backslash, None, 220);
        row("|", Qt::Key_Bar, Shift, 220);
        row("]", Qt::Key_BracketRight, None, 221);
        row("}", Qt::Key_BraceRight, Shift, 221);
        row("'", Qt::Key_Apostrophe, None, 222);
        row("\"", Qt::Key_QuoteDbl, Shift, 222);
        row("Meta is unknown", Qt::Key_Meta, None, 0);
        row("context menu key is unknown", Qt::Key_Menu, None, 0);
        row("a-umlaut is unknown", Qt::Key_Adiaeresis, None, 0);
        row("Key_unknown", Qt::Key_unknown, None, 0);
    }
    void keyCode()
    {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(short, keyCode);
        const QKeyEvent press(QEvent::KeyPress, key, modifiers);
        const QKeyEvent release(QEvent::KeyRelease, key, modifiers);
        QCOMPARE(vbKeyCode(&press), keyCode);
        QCOMPARE(vbKeyCode(&release), keyCode);
        QCOMPARE(vbKeyCode(key, modifiers), keyCode);
    }

    void namedConstants_data()
    {
        QTest::addColumn<short>("constant");
        QTest::addColumn<short>("value");
        QTest::newRow("vbKeyReturn") << vbKeyReturn << short(13);
        QTest::newRow("vbKeyUp") << vbKeyUp << short(38);
        QTest::newRow("vbKeyMenu") << vbKeyMenu << short(18);
        QTest::newRow("vbKeyDelete") << vbKeyDelete << short(46);
        QTest::newRow("vbKey7") << vbKey7 << short(55);
        QTest::newRow("vbKeyM") << vbKeyM << short(77);
        QTest::newRow("vbKeyNumpad3") << vbKeyNumpad3 << short(99);
        QTest::newRow("vbKeySeparator") << vbKeySeparator << short(108);
        QTest::newRow("vbKeyF10") << vbKeyF10 << short(121);
        QTest::newRow("vbKeyNumlock") << vbKeyNumlock << short(144);
        QTest::newRow("vbKeyOem7") << vbKeyOem7 << short(222);
    }
    void namedConstants()
    {
        QFETCH(short, constant);
        QFETCH(short, value);
        QCOMPARE(constant, value);
    }

    void synthesisedKeys_data()
    {
        QTest::addColumn<short>("keyCode");
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::newRow("Up") << vbKeyUp << int(Qt::Key_Up) << None;
        QTest::newRow("Down") << vbKeyDown << int(Qt::Key_Down) << None;
        QTest::newRow("Return") << vbKeyReturn << int(Qt::Key_Return) << None;
        QTest::newRow("Tab") << vbKeyTab << int(Qt::Key_Tab) << None;
        QTest::newRow("Menu is Alt") << vbKeyMenu << int(Qt::Key_Alt) << None;
        QTest::newRow("Snapshot") << vbKeySnapshot << int(Qt::Key_Print) << None;
        QTest::newRow("1") << vbKey1 << int(Qt::Key_1) << None;
        QTest::newRow("Q") << vbKeyQ << int(Qt::Key_Q) << None;
        QTest::newRow("numpad 4") << vbKeyNumpad4 << int(Qt::Key_4) << Keypad;
        QTest::newRow("decimal") << vbKeyDecimal << int(Qt::Key_Period) << Keypad;
        QTest::newRow("F12") << vbKeyF12 << int(Qt::Key_F12) << None;
        QTest::newRow("F24") << short(135) << int(Qt::Key_F24) << None;
        QTest::newRow("OEM plus") << vbKeyOemPlus << int(Qt::Key_Equal) << None;
        QTest::newRow("0 is no key") << short(0) << int(Qt::Key_unknown) << None;
        QTest::newRow("separator is no key") << vbKeySeparator << int(Qt::Key_unknown) << None;
        QTest::newRow("136 is no key") << short(136) << int(Qt::Key_unknown) << None;
        QTest::newRow("-1 is no key") << short(-1) << int(Qt::Key_unknown) << None;
    }
    void synthesisedKeys()
    {
        QFETCH(short, keyCode);
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        const QKeyCombination combination = qtKeyFromVbKeyCode(keyCode);
        QCOMPARE(int(combination.key()), key);
        QCOMPARE(combination.keyboardModifiers(), modifiers);
    }

    void everyCodeRoundTrips()
    {
        int mapped = 0;
        for (int code = 1; code < 256; ++code) {
            const QKeyCombination combination = qtKeyFromVbKeyCode(short(code));
            if (combination.key() == Qt::Key_unknown)
                continue;
            ++mapped;
            const QKeyEvent event(QEvent::KeyPress, combination.key(),
                                  combination.keyboardModifiers());
            QCOMPARE(vbKeyCode(&event), short(code));
        }
        // 8 9 12 13 16..20 27 32..57 65..90 96..107 109..135 144 145 186..192 219..222
        QCOMPARE(mapped, 2 + 1 + 1 + 5 + 1 + 26 + 26 + 12 + 27 + 2 + 7 + 4);
    }

    void shiftMask_data()
    {
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<short>("mask");
        for (int bits = 0; bits < 8; ++bits) {
            Qt::KeyboardModifiers modifiers;
            modifiers.setFlag(Qt::ShiftModifier, bits & 1);
            modifiers.setFlag(Qt::ControlModifier, bits & 2);
            modifiers.setFlag(Qt::AltModifier, bits & 4);
            const QByteArray name = rowName(bits, {"Shift", "Ctrl", "Alt"});
            QTest::newRow(name.constData()) << modifiers << short(bits);
            QTest::newRow(name + " + Meta + Keypad")
                << (modifiers | Qt::MetaModifier | Qt::KeypadModifier) << short(bits);
        }
    }
    void shiftMask()
    {
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(short, mask);
        QCOMPARE(vbShiftMask(modifiers), mask);
    }

    void buttonMask_data()
    {
        QTest::addColumn<Qt::MouseButtons>("buttons");
        QTest::addColumn<short>("mask");
        for (int bits = 0; bits < 8; ++bits) {
            Qt::MouseButtons buttons;
            buttons.setFlag(Qt::LeftButton, bits & 1);
            buttons.setFlag(Qt::RightButton, bits & 2);
            buttons.setFlag(Qt::MiddleButton, bits & 4);
            const QByteArray name = rowName(bits, {"left", "right", "middle"});
            QTest::newRow(name.constData()) << buttons << short(bits);
            QTest::newRow(name + " + Back + Forward")
                << (buttons | Qt::BackButton | Qt::ForwardButton) << short(bits);
        }
    }
    void buttonMask()
    {
        QFETCH(Qt::MouseButtons, buttons);
        QFETCH(short, mask);
        QCOMPARE(vbButtonMask(buttons), mask);
    }

    void button_data()
    {
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::addColumn<short>("vb");
        QTest::newRow("left") << Qt::LeftButton << short(1);
        QTest::newRow("right") << Qt::RightButton << short(2);
        QTest::newRow("middle") << Qt::MiddleButton << short(4);
        QTest::newRow("back") << Qt::BackButton << short(0);
        QTest::newRow("none") << Qt::NoButton << short(0);
    }
    void button()
    {
        QFETCH(Qt::MouseButton, button);
        QFETCH(short, vb);
        QCOMPARE(vbButton(button), vb);
    }

    void keyAscii_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("text");
        QTest::addColumn<short>("keyAscii");
        const auto row = [](const char* name, int key, Qt::KeyboardModifiers modifiers,
                            const QString& text, short keyAscii) {
            QTest::newRow(name) << key << modifiers << text << keyAscii;
        };
        row("a", Qt::Key_A, None, "a", 97);
        row("Shift+A", Qt::Key_A, Shift, "A", 65);
        row("digit 5", Qt::Key_5, None, "5", 53);
        row("keypad 5", Qt::Key_5, Keypad, "5", 53);
        row("minus", Qt::Key_Minus, None, "-", 45);
        row("point", Qt::Key_Period, None, ".", 46);
        row("comma", Qt::Key_Comma, None, ",", 44);
        row("space", Qt::Key_Space, None, " ", 32);
        row("grave accent", Qt::Key_QuoteLeft, None, "`", 96);
        row("Return", Qt::Key_Return, None, "\r", 13);
        row("Return without text", Qt::Key_Return, None, "", 13);
        row("keypad Enter", Qt::Key_Enter, Keypad, "\n", 13);
        row("Backspace", Qt::Key_Backspace, None, "\b", 8);
        row("Escape", Qt::Key_Escape, None, "", 27);
        row("Tab", Qt::Key_Tab, None, "\t", 9);
        row("Shift+Tab", Qt::Key_Backtab, Shift, "", 9);
        row("Ctrl+A", Qt::Key_A, Control, "\x01", 1);
        row("Ctrl+A without text", Qt::Key_A, Control, "", 1);
        row("Ctrl+lower-case a", 'a', Control, "", 1);
        row("Ctrl+Shift+Z", Qt::Key_Z, Control | Shift, "", 26);
        row("Ctrl+[", Qt::Key_BracketLeft, Control, "", 27);
        row("Ctrl+\\", Qt::Key_Backslash, Control, "", 28);
        row("Ctrl+]", Qt::Key_BracketRight, Control, "", 29);
        row("Ctrl+Return", Qt::Key_Return, Control, "\r", 10);
        row("Ctrl+Backspace", Qt::Key_Backspace, Control, "", 127);
        row("Ctrl+Space", Qt::Key_Space, Control, " ", 32);
        row("Ctrl+1 types nothing", Qt::Key_1, Control, "1", 0);
        row("Ctrl+Up", Qt::Key_Up, Control, "", 0);
        row("Alt+A is a system key", Qt::Key_A, Alt, "a", 0);
        row("Alt+Return", Qt::Key_Return, Alt, "\r", 0);
        row("AltGr as Ctrl+Alt+Q", Qt::Key_Q, Control | Alt, "@", 64);
        row("Up", Qt::Key_Up, None, "", 0);
        row("F1", Qt::Key_F1, None, "", 0);
        row("Delete with DEL text", Qt::Key_Delete, None, "\x7f", 0);
        row("Insert", Qt::Key_Insert, None, "", 0);
        row("Shift alone", Qt::Key_Shift, Shift, "", 0);
        row("Chinese", Qt::Key_unknown, None, u"中"_s, 20013);
        row("Chinese, two characters", Qt::Key_unknown, None, u"中文"_s, 20013);
        row("halfwidth katakana is negative", Qt::Key_unknown, None, u"\uFF71"_s, -143);
        row("emoji gives its high surrogate", Qt::Key_unknown, None, u"\U0001F600"_s,
            short(0xD83D));
        row("e-acute", Qt::Key_Eacute, None, u"é"_s, 233);
    }
    void keyAscii()
    {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QString, text);
        QFETCH(short, keyAscii);
        const QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QCOMPARE(vbKeyAscii(&event), keyAscii);
    }

    void keyAsciiChar_data()
    {
        QTest::addColumn<short>("keyAscii");
        QTest::addColumn<QChar>("character");
        QTest::newRow("0") << short(0) << QChar(0);
        QTest::newRow("A") << short(65) << QChar(u'A');
        QTest::newRow("Backspace") << short(8) << QChar(u'\b');
        QTest::newRow("Chinese") << short(20013) << QChar(u'中');
        QTest::newRow("negative") << short(-143) << QChar(u'\uFF71');
    }
    void keyAsciiChar()
    {
        QFETCH(short, keyAscii);
        QFETCH(QChar, character);
        QCOMPARE(VemoGridLib::keyAsciiChar(keyAscii), character);
        const QKeyEvent event(QEvent::KeyPress, Qt::Key_unknown, None, QString(character));
        if (keyAscii >= 32)
            QCOMPARE(vbKeyAscii(&event), keyAscii);
    }
};

QTEST_MAIN(TestVbKeys)
#include "tst_vbkeys.moc"
