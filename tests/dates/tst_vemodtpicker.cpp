// SPDX-License-Identifier: MIT
// VemoDTPicker: the date text, typing, the calendar's keys, clicks, closing and placement, and
// the saved settings.
#include <VemoGridLib/Column.h>
#include <VemoGridLib/MemoryPropertyBag.h>
#include <VemoGridLib/Twips.h>
#include <VemoGridLib/VemoArrow.h>
#include <VemoGridLib/VemoCalendar.h>
#include <VemoGridLib/VemoDTPicker.h>

#include "RecordingReceiver.h"
#include "ShownWindow.h"
#include "VemoTestSupport.h"

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>

using namespace VemoGridLib;

using KeyList = QList<QPair<int, int>>; // key, modifiers

/// Also logs whether the calendar was open at BeforeDropDown, and the chosen date's text.
struct PickerHost : VemoTest::RecordingReceiver
{
    QPointer<VemoDTPicker> picker;
    void BeforeDropDown() override
    {
        log << (picker->IsDropDown() ? "BeforeDropDown while open" : "BeforeDropDown");
    }
    void CellComboClick(const QString& value) override { log << "CellComboClick " + value; }
};

class tst_VemoDTPicker : public QObject
{
    Q_OBJECT

    QPointer<QWidget> form;
    QPointer<VemoDTPicker> picker;
    QPointer<QLineEdit> other;
    PickerHost host;

    QLineEdit* field() { return picker->findChild<QLineEdit*>("txtInput"); }
    QStringList reports() { return host.log.filter(QRegularExpression("^(?!Key)")); }
    void press(const KeyList& keys)
    {
        VemoCalendar* const calendar = picker->calendar();
        const QPoint day(twipsToPixelsX(1400, calendar), twipsToPixelsY(950, calendar));
        for (const auto& [key, modifiers] : keys) {
            if (key == Qt::Key_unknown)
                QTest::mouseClick(calendar, Qt::LeftButton, {}, day);
            else if (key == Qt::Key_Menu)
                QTest::mouseClick(picker->findChild<VemoArrow*>(), Qt::LeftButton);
            else
                QTest::keyClick(field(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        }
    }

private slots:
    void init()
    {
        form = new QWidget;
        form->resize(300, 100);
        picker = new VemoDTPicker(form);
        picker->setGeometry(10, 10, 150, 24);
        other = new QLineEdit(form);
        other->setGeometry(10, 50, 100, 24);
        QVERIFY(VemoTest::showActive(*form));
        host = PickerHost();
        host.picker = picker;
        picker->setEventReceiver(&host);
        field()->setFocus();
    }
    void cleanup() { delete form; }

    void dateText_data()
    {
        QTest::addColumn<bool>("validate"); // else setValue(input), then Value()
        QTest::addColumn<QVariant>("input");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QVariant>("result");
        const auto row = [](const char* name, bool validate, QVariant input, QString shown,
                            QVariant result, QString format = {}) {
            QTest::newRow(name) << validate << input << format << shown << result;
        };
        const QVariant day = VemoTest::dt(2024, 2, 5);
        row("Validate: blanks around a short date", true, " 2024-2-5 ", "2024-02-05", true);
        row("Validate: column format", true, "2024-2-5", "2024/02/05", true, "yyyy/mm/dd");
        row("Validate: blanks only", true, "   ", "", false);
        row("Validate: no date, trimmed", true, " abc", "abc", false);
        row("Validate: no such day", true, "2023-02-29", "2023-02-29", false);
        row("Value: null", false, QVariant(), "", QVariant());
        row("Value: QDate", false, QDate(2024, 2, 5), "2024-02-05", day);
        row("Value: date and time", false, VemoTest::dt(2024, 2, 5, 13), "2024-02-05", day);
        row("Value: date text", false, "2024/2/5", "2024-02-05", day);
        row("Value: no date text", false, "abc", "", QVariant());
        row("Value: number", false, 45000, "", QVariant());
    }

    void dateText()
    {
        QFETCH(bool, validate);
        QFETCH(QVariant, input);
        QFETCH(QString, format);
        QFETCH(QVariant, result);
        Column column;
        column.setFormatString(format);
        picker->setColumn(&column);
        picker->setText(validate ? input.toString() : "2000-01-01");
        host.log.clear();
        if (validate) {
            QCOMPARE(QVariant(picker->Validate()), result);
        } else {
            picker->setValue(input);
            QCOMPARE(picker->Value(), result);
        }
        QTEST(picker->Text(), "shown");
        QCOMPARE(host.log, QStringList()); // neither is a user's change
    }

    void typedCharacters()
    {
        const QString typed = "2a0-b/x4";
        QTest::keyClicks(field(), typed);
        QCOMPARE(picker->Text(), QString("20-/4"));
        QCOMPARE(host.log.filter("KeyPress").size(), typed.size()); // the receiver saw all
        QTest::keyClick(field(), Qt::Key_Backspace);
        QInputMethodEvent event;
        event.setCommitString("7z/");
        QApplication::sendEvent(field(), &event);
        QCOMPARE(picker->Text(), QString("20-/7/"));
    }

    void keys_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<KeyList>("keys");
        QTest::addColumn<QDate>("date"); // the calendar's; invalid: not checked
        QTest::addColumn<bool>("open");
        QTest::addColumn<int>("cursor"); // when nothing was chosen
        QTest::addColumn<QStringList>("reported");
        const int ctrl = Qt::ControlModifier, f4 = Qt::Key_F4;
        const QStringList opened{"BeforeDropDown"};
        const auto row = [&](const char* name, KeyList keys, QDate date, bool open = true,
                             QStringList reported = {}) {
            QTest::newRow(name) << "2024-02-10" << KeyList{{f4, 0}} + keys << date << open << 4
                                << opened + reported;
        };
        const QDate today = QDate::currentDate();
        // Key_Menu clicks the drop button; Key_unknown clicks the calendar at 1400, 950 twips.
        QTest::newRow("button on an empty text: today")
            << "" << KeyList{{Qt::Key_Menu, 0}} << today << true << 0 << opened;
        QTest::newRow("Alt+Down on no date: today")
            << "12-" << KeyList{{Qt::Key_Down, Qt::AltModifier}} << today << true << 3 << opened;
        const KeyList closedKeys{
            {Qt::Key_Home, 0}, {Qt::Key_Right, 0}, {Qt::Key_Down, 0}, {Qt::Key_Return, 0}};
        QTest::newRow("closed: keys reach the text")
            << "2024-02-10" << closedKeys << QDate() << false << 1 << QStringList();
        row("F4 opens on the text's date", {}, QDate(2024, 2, 10));
        row("F4 again closes", {{f4, 0}}, QDate(2024, 2, 10), false);
        row("Up, Right", {{Qt::Key_Up, 0}, {Qt::Key_Right, 0}}, QDate(2024, 2, 4));
        row("Down, Left", {{Qt::Key_Down, 0}, {Qt::Key_Left, 0}}, QDate(2024, 2, 16));
        row("PageUp, Ctrl+PageDown", {{Qt::Key_PageUp, 0}, {Qt::Key_PageDown, ctrl}},
            QDate(2025, 1, 10));
        row("PageDown, Ctrl+PageUp", {{Qt::Key_PageDown, 0}, {Qt::Key_PageUp, ctrl}},
            QDate(2023, 3, 10));
        row("Home", {{Qt::Key_Home, 0}}, QDate(2024, 2, 1));
        row("End of a leap February", {{Qt::Key_End, 0}}, QDate(2024, 2, 29));
        row("Esc closes", {{Qt::Key_Escape, 0}}, QDate(2024, 2, 10), false);
        row("Right, Enter chooses", {{Qt::Key_Right, 0}, {Qt::Key_Return, 0}}, QDate(2024, 2, 11),
            false, {"Change", "CellComboClick 2024-02-11"});
        row("a click chooses the Wednesday of the second row", {{Qt::Key_unknown, 0}},
            QDate(2024, 2, 7), false, {"Change", "CellComboClick 2024-02-07"});
    }

    void keys()
    {
        QFETCH(QString, text);
        QFETCH(KeyList, keys);
        QFETCH(QDate, date);
        QFETCH(bool, open);
        QFETCH(int, cursor);
        QFETCH(QStringList, reported);
        picker->setText(text);
        field()->setCursorPosition(4);
        host.log.clear();
        press(keys);
        QCOMPARE(reports(), reported); // BeforeDropDown came while the calendar was closed
        QCOMPARE(picker->IsDropDown(), open);
        if (date.isValid())
            QCOMPARE(picker->calendar()->Value(), date);
        const QString chosen = reported.value(reported.size() - 1).section("CellComboClick ", 1);
        QCOMPARE(picker->Text(), chosen.isEmpty() ? text : chosen);
        if (chosen.isEmpty())
            QCOMPARE(field()->cursorPosition(), cursor); // the calendar's keys were swallowed
        else
            QCOMPARE(picker->SelLength(), chosen.size());
    }

    void closing_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<QStringList>("reported");
        QTest::newRow("focus leaves") << "focus" << QStringList{"ExitLocus"};
        QTest::newRow("press outside, focus kept") << "outside" << QStringList();
        QTest::newRow("drop button") << "button" << QStringList();
        QTest::newRow("another window active") << "activate" << QStringList();
    }

    void closing()
    {
        QFETCH(QString, how);
        QFETCH(QStringList, reported);
        auto* const button = picker->findChild<VemoArrow*>();
        QWidget* const focused = how == "activate" ? other.data() : field();
        focused->setFocus();
        QTest::mouseClick(button, Qt::LeftButton);
        QCoreApplication::processEvents(); // offscreen activates the shown calendar window
        QVERIFY(picker->IsDropDown());
        QCOMPARE(QApplication::focusWidget(), focused);
        host.log.clear();
        if (how == "focus")
            other->setFocus();
        else if (how == "outside")
            QTest::mouseClick(form, Qt::LeftButton, {}, QPoint(250, 80));
        else if (how == "button")
            QTest::mouseClick(button, Qt::LeftButton);
        QWidget another;
        if (how == "activate")
            QVERIFY(VemoTest::showActive(another));
        QVERIFY(!picker->IsDropDown());
        QCOMPARE(reports(), reported);
    }

    void placement_data()
    {
        QTest::addColumn<bool>("nearBottom");
        QTest::newRow("below the control") << false;
        QTest::newRow("above near the screen bottom") << true;
    }

    void placement()
    {
        QFETCH(bool, nearBottom);
        const QRect screen = form->screen()->availableGeometry();
        form->move(screen.left() + 20, nearBottom ? screen.bottom() - 60 : screen.top() + 20);
        picker->setSelectColor(0xFF00);
        picker->BeginDropDown();
        QCOMPARE(picker->calendar()->SelectColor(), OleColor(0xFF00));
        QCOMPARE(picker->calendar()->BackColor(), picker->BackColor());
        const QRect drop = picker->calendar()->window()->geometry();
        const QRect control(picker->mapToGlobal(QPoint(0, 0)), picker->size());
        QCOMPARE(drop.size(), picker->calendar()->size());
        QCOMPARE(nearBottom ? drop.bottom() + 1 : drop.top(),
                 nearBottom ? control.top() : control.bottom() + 1);
        QCOMPARE(drop.left(), control.left());
    }

    void savedSettingsRoundTrip()
    {
        MemoryPropertyBag fresh;
        picker->WriteProperties(fresh);
        QCOMPARE(fresh.names(), QStringList{"Font"});
        QStringList changed;
        connect(picker, &VemoDTPicker::PropertyChanged,
                [&](const QString& name) { changed << name; });
        picker->setSelectColor(0xFF0000);
        picker->setLunarCalendar(true);
        picker->setLocked(true);
        picker->setEnabled(false);
        QCOMPARE(changed, (QStringList{"SelectColor", "LunarCalendar", "Locked", "Enabled"}));
        MemoryPropertyBag bag;
        picker->WriteProperties(bag);
        VemoDTPicker loaded;
        loaded.ReadProperties(bag);
        MemoryPropertyBag again;
        loaded.WriteProperties(again);
        QCOMPARE(again.toJson(), bag.toJson());
    }
};

QTEST_MAIN(tst_VemoDTPicker)
#include "tst_vemodtpicker.moc"
