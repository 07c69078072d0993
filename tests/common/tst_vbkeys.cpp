// SPDX-License-Identifier: MIT
// Qt key and mouse events to VB key codes, KeyAscii and back.
#include <VemoGridLib/VbKeys.h>

#include <QKeyEvent>
#include <QTest>

using namespace VemoGridLib;
using namespace Qt::StringLiterals;

namespace {
constexpr Qt::KeyboardModifier None = Qt::NoModifier, Keypad = Qt::KeypadModifier,
                               Shift = Qt::ShiftModifier, Control = Qt::ControlModifier,
                               Alt = Qt::AltModifier;

} // namespace

class TestVbKeys : public QObject
{
    Q_OBJECT

private slots:
    void keyEvents_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("text");
        QTest::addColumn<short>("keyCode");
        QTest::addColumn<short>("keyAscii");
        const auto row = [](const char* name, int key, Qt::KeyboardModifiers modifiers,
                            const QString& text, short keyCode, short keyAscii) {
            QTest::newRow(name) << key << modifiers << text << keyCode << keyAscii;
        };
        row("Ctrl+lower-case a", 'a', Control, "", 65, 1);
        row("keypad Enter with LF text", Qt::Key_Enter, Keypad, "\n", 13, 13);
        row("Backtab", Qt::Key_Backtab, Shift, "", 9, 9);
        row("shifted ( is the 9 key", Qt::Key_ParenLeft, Shift, "(", 57, 40);
        row("keypad decimal comma", Qt::Key_Comma, Keypad, ",", 110, 44);
        row("Backspace", Qt::Key_Backspace, None, "\b", 8, 8);
        row("Escape without text", Qt::Key_Escape, None, "", 27, 27);
        row("Ctrl+Shift+Z", Qt::Key_Z, Control | Shift, "", 90, 26);
        row("Ctrl+[", Qt::Key_BracketLeft, Control, "", 219, 27);
        row("Ctrl+Space", Qt::Key_Space, Control, " ", 32, 32);
        row("Ctrl+Return is LF", Qt::Key_Return, Control, "\r", 13, 10);
        row("Ctrl+Backspace is DEL", Qt::Key_Backspace, Control, "", 8, 127);
        row("Alt+A is a system key", Qt::Key_A, Alt, "a", 65, 0);
        row("AltGr as Ctrl+Alt+Q", Qt::Key_Q, Control | Alt, "@", 81, 64);
        row("Delete with DEL text", Qt::Key_Delete, None, "\x7f", 46, 0);
        row("Chinese, first character", Qt::Key_unknown, None, u"中文"_s, 0, 20013);
        row("halfwidth katakana is negative", Qt::Key_unknown, None, u"\uFF71"_s, 0, -143);
    }
    void keyEvents()
    {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QString, text);
        QFETCH(short, keyAscii);
        const QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QTEST(vbKeyCode(&event), "keyCode");
        QCOMPARE(vbKeyAscii(&event), keyAscii);
        if (keyAscii >= 32 && !text.isEmpty())
            QCOMPARE(keyAsciiChar(keyAscii), text.front());
    }

    void everyCodeRoundTrips()
    {
        int mapped = 0;
        for (int code = -1; code < 256; ++code) {
            const QKeyCombination combination = qtKeyFromVbKeyCode(short(code));
            if (combination.key() == Qt::Key_unknown)
                continue;
            ++mapped;
            QCOMPARE(vbKeyCode(combination.key(), combination.keyboardModifiers()), short(code));
        }
        // 8 9 12 13 16..20 27 32..57 65..90 96..107 109..135 144 145 186..192 219..222
        QCOMPARE(mapped, 2 + 1 + 1 + 5 + 1 + 26 + 26 + 12 + 27 + 2 + 7 + 4);
    }
};

QTEST_MAIN(TestVbKeys)
#include "tst_vbkeys.moc"
