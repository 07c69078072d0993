// SPDX-License-Identifier: MIT
// VemoTextBox driven through its text field as a user types: the numeric key filter, the range
// check and number form of Validate, Value and the Change reports.
#include <VemoGridLib/Column.h>
#include <VemoGridLib/VemoTextBox.h>

#include "RecordingReceiver.h"
#include "VemoTestSupport.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>

using namespace VemoGridLib;

namespace {

constexpr int NoColumn = -1;
constexpr int KeepKeyAscii = 1 << 16;

/// A shown editor over a column of `type` (none for NoColumn), reporting to `host`.
struct Editor
{
    VemoGridLib::Column column;
    VemoTest::RecordingReceiver host;
    VemoTextBox box;
    QLineEdit* input = box.findChild<QLineEdit*>(u"txtInput"_qs);

    explicit Editor(int type, QWidget* parent = nullptr)
        : box(parent)
    {
        if (type != NoColumn) {
            column.setColType(VemoGridColType(type));
            box.setColumn(&column);
        }
        box.setEventReceiver(&host);
        box.show();
        input->setFocus();
    }
};

} // namespace

class tst_VemoTextBox : public QObject
{
    Q_OBJECT

private slots:
    void keyFilter_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("becomes");      // the receiver's KeyAscii, KeepKeyAscii: untouched
        QTest::addColumn<QString>("expected"); // the text "12" after the key
        const int none = Qt::NoModifier, ctrl = Qt::ControlModifier, shift = Qt::ShiftModifier;
        const auto row = [](const char* name, int type, int key, int modifiers,
                            const QString& typed, const QString& expected,
                            int becomes = KeepKeyAscii) {
            QTest::newRow(name) << type << key << modifiers << typed << becomes << expected;
        };
        row("text, letter", eTextBox, Qt::Key_A, none, u"a"_qs, u"12a"_qs);
        row("no column, comma", NoColumn, Qt::Key_Comma, none, u","_qs, u"12,"_qs);
        row("numeric, letter", eNumeric, Qt::Key_A, none, u"a"_qs, u"12"_qs);
        row("currency, digit", eCurrency, Qt::Key_5, none, u"5"_qs, u"125"_qs);
        row("long, minus", eLong, Qt::Key_Minus, none, u"-"_qs, u"12-"_qs);
        row("long, point", eLong, Qt::Key_Period, none, u"."_qs, u"12."_qs);
        row("numeric, backspace", eNumeric, Qt::Key_Backspace, none, u"\b"_qs, u"1"_qs);
        row("numeric, shift+letter", eNumeric, Qt::Key_A, shift, u"A"_qs, u"12"_qs);
        row("numeric, ctrl+v pastes", eNumeric, Qt::Key_V, ctrl, u"\x16"_qs, u"12x,y"_qs);
        row("numeric, ctrl+shift+v", eNumeric, Qt::Key_V, ctrl | shift, u"\x16"_qs, u"12"_qs);
        // A key without a key code, right after a Ctrl combination, is filtered all the same.
        row("numeric, key without code", eNumeric, Qt::Key_Eacute, none, u"é"_qs, u"12"_qs);
        row("text, zeroed by the host", eTextBox, Qt::Key_A, none, u"a"_qs, u"12"_qs, 0);
        row("text, replaced above U+7FFF", eTextBox, Qt::Key_A, none, u"a"_qs, u"12ｱ"_qs, -143);
        row("numeric, replaced by a letter", eNumeric, Qt::Key_5, none, u"5"_qs, u"12"_qs, 'a');
        // Key 0: `typed` is committed by an input method, which sends no key presses.
        row("numeric, input method", eNumeric, 0, none, u"３4a,5"_qs, u"1245"_qs);
        row("text, input method", eTextBox, 0, none, u"中文"_qs, u"12中文"_qs);
    }

    void keyFilter()
    {
        QFETCH(int, type);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(QString, typed);
        QFETCH(int, becomes);
        QGuiApplication::clipboard()->setText(u"x,y"_qs);
        Editor editor(type);
        editor.box.setText(u"12"_qs);
        QTest::keyClick(editor.input, Qt::Key_End, Qt::ControlModifier);
        if (becomes != KeepKeyAscii)
            editor.host.onKeyPress = [becomes](short& ascii) {
                ascii = short(becomes);
            };
        if (key == 0) {
            QInputMethodEvent commit;
            commit.setCommitString(typed);
            QApplication::sendEvent(editor.input, &commit);
        } else {
            QTest::sendKeyEvent(QTest::Click, editor.input, Qt::Key(key), typed,
                                Qt::KeyboardModifiers(modifiers));
        }
        QTEST(editor.box.Text(), "expected");
    }

    void validate_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("decimals"); // -1: the type's own
        QTest::addColumn<double>("minValue");
        QTest::addColumn<double>("maxValue");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* name, int type, const QString& text, bool valid,
                            const QString& expected, int decimals = -1, double min = -1e16,
                            double max = 1e16) {
            QTest::newRow(name) << type << decimals << min << max << text << valid << expected;
        };
        row("long, half to even", eLong, u"2.5"_qs, true, u"2"_qs);
        row("2 places, 1.005", eNumeric, u"1.005"_qs, true, u"1"_qs, 2);
        row("2 places, -.5", eNumeric, u"-.5"_qs, true, u"-0.5"_qs, 2);
        row("currency", eCurrency, u"1234.5"_qs, true, u"1,234.50"_qs);
        row("currency, blanks", eCurrency, u" 12 "_qs, true, u"12.00"_qs);
        row("numeric, tab kept by trim", eNumeric, u"12\t"_qs, true, u"12"_qs);
        row("numeric, trailing minus", eNumeric, u"5-"_qs, true, u"5"_qs);
        row("numeric, blank", eNumeric, u"   "_qs, true, QString());
        row("at MaxValue", eNumeric, u"100"_qs, true, u"100"_qs, -1, -5, 100);
        row("beyond MaxValue", eNumeric, u"101"_qs, false, u"101"_qs, -1, -5, 100);
        row("at MinValue", eNumeric, u"-5"_qs, true, u"-5"_qs, -1, -5, 100);
        row("beyond MinValue", eNumeric, u"-6"_qs, false, u"-6"_qs, -1, -5, 100);
        row("comma ends the range check", eCurrency, u"1,500"_qs, true, u"1,500.00"_qs, -1, 0,
            1000);
        row("numeric, letters", eNumeric, u"abc"_qs, false, u"abc"_qs);
        row("text column", eTextBox, u" a b "_qs, true, u"a b"_qs);
    }

    void validate()
    {
        QFETCH(int, type);
        QFETCH(int, decimals);
        QFETCH(double, minValue);
        QFETCH(double, maxValue);
        QFETCH(QString, text);
        Editor editor(type);
        if (decimals >= 0)
            editor.column.setDecimalLength(qint16(decimals));
        editor.column.setMinValue(minValue);
        editor.column.setMaxValue(maxValue);
        editor.box.setText(text);
        QTEST(editor.box.Validate(), "valid");
        QTEST(editor.box.Text(), "expected");
    }

    void wholeNumberOutsideLongOverflows()
    {
        Editor editor(eLong);
        editor.box.setText(u"3000000000"_qs);
        QCOMPARE(VemoTest::errorNumberOf([&] { editor.box.Validate(); }), 6);
    }

    void value_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("showZero");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QVariant>("readBack");
        const auto row = [](const char* name, int type, bool showZero, const QVariant& value,
                            const QString& text, const QVariant& readBack) {
            QTest::newRow(name) << type << showZero << value << text << readBack;
        };
        row("text, abc", eTextBox, false, u"abc"_qs, u"0"_qs, 0.0);
        row("text, 12abc", eTextBox, false, u"12abc"_qs, u"12"_qs, 12.0);
        row("no column", NoColumn, true, u"7.5"_qs, u"7.5"_qs, 7.5);
        row("empty", eNumeric, false, QVariant(), QString(), QVariant());
        row("empty, ShowZero", eNumeric, true, u""_qs, u"0"_qs, 0.0);
        row("currency, ShowZero", eCurrency, true, QVariant(), u"0.00"_qs, 0.0);
        row("currency", eCurrency, false, 1234.5, u"1,234.50"_qs, 1234.5);
        row("long", eLong, false, 2.5, u"2"_qs, 2.0);
    }

    void value()
    {
        QFETCH(int, type);
        QFETCH(bool, showZero);
        QFETCH(QVariant, value);
        Editor editor(type);
        editor.column.setShowZero(showZero);
        editor.box.setValue(value);
        QTEST(editor.box.Text(), "text");
        QTEST(editor.box.Value(), "readBack");
        QVERIFY(editor.host.log.isEmpty());
    }

    void changeOnlyOnceArmed()
    {
        Editor editor(eTextBox);
        QTest::keyClicks(editor.input, u"a"_qs);
        editor.box.setValue(5);
        QCOMPARE(editor.host.log.count(u"Change"_qs), 0);
        editor.box.setText(u"x"_qs);
        QTest::keyClicks(editor.input, u"y"_qs);
        QInputMethodEvent commit(u"zhong"_qs, {});
        commit.setCommitString(u"中文"_qs);
        QApplication::sendEvent(editor.input, &commit);
        QCOMPARE(editor.box.Text(), u"xy中文"_qs);
        QCOMPARE(editor.host.log.count(u"Change"_qs), 3);
        editor.box.setValue(u"7"_qs);
        QCOMPARE(editor.host.log.count(u"Change"_qs), 3);
    }

    void withoutReceiver()
    {
        Editor editor(eNumeric);
        editor.box.setEventReceiver(nullptr);
        editor.box.setValue(1);
        QTest::keyClicks(editor.input, u"2a"_qs);
        QTest::mouseDClick(editor.input, Qt::LeftButton);
        QVERIFY(editor.box.Validate());
        QCOMPARE(editor.box.Text(), u"12"_qs);
        QVERIFY(editor.host.log.isEmpty());
    }

    void generalAlignmentShowsRight()
    {
        Editor editor(eTextBox);
        editor.box.setAlignment(General);
        QCOMPARE(editor.box.Alignment(), int(RightJustify));
    }
};

QTEST_MAIN(tst_VemoTextBox)
#include "tst_vemotextbox.moc"
