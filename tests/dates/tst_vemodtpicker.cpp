// SPDX-License-Identifier: MIT
// VemoDTPicker: the date text and its validation, the typed characters, opening the calendar,
// its keys and clicks, closing it, its window on the screen and the saved settings.
#include <VemoGridLib/Column.h>
#include <VemoGridLib/MemoryPropertyBag.h>
#include <VemoGridLib/VemoArrow.h>
#include <VemoGridLib/VemoCalendar.h>
#include <VemoGridLib/VemoDTPicker.h>

#include "RecordingReceiver.h"
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
        for (const auto& [key, modifiers] : keys)
            QTest::keyClick(field(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
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
        form->show();
        form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form));
        host = PickerHost();
        host.picker = picker;
        picker->setEventReceiver(&host);
        field()->setFocus();
    }
    void cleanup() { delete form; }

    void validate_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<bool>("valid");
        QTest::newRow("blanks around a short date") << " 2024-2-5 "
                                                    << ""
                                                    << "2024-02-05" << true;
        QTest::newRow("column format") << "2024-2-5"
                                       << "yyyy/mm/dd"
                                       << "2024/02/05" << true;
        QTest::newRow("blanks only") << "   "
                                     << ""
                                     << "" << false;
        QTest::newRow("no date, trimmed") << " abc"
                                          << ""
                                          << "abc" << false;
        QTest::newRow("no such day") << "2023-02-29"
                                     << ""
                                     << "2023-02-29" << false;
    }

    void validate()
    {
        QFETCH(QString, text);
        QFETCH(QString, format);
        QFETCH(QString, shown);
        QFETCH(bool, valid);
        Column column;
        column.setFormatString(format);
        picker->setColumn(&column);
        picker->setText(text);
        host.log.clear();
        QCOMPARE(picker->Validate(), valid);
        QCOMPARE(picker->Text(), shown);
        QCOMPARE(host.log, QStringList()); // writing back is no user's change
    }

    void value_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QVariant>("read");
        const QVariant day = VemoTest::dt(2024, 2, 5);
        QTest::newRow("null") << QVariant() << "" << QVariant();
        QTest::newRow("QDate") << QVariant(QDate(2024, 2, 5)) << "2024-02-05" << day;
        QTest::newRow("date and time")
            << QVariant(VemoTest::dt(2024, 2, 5, 13)) << "2024-02-05" << day;
        QTest::newRow("date text") << QVariant("2024/2/5") << "2024-02-05" << day;
        QTest::newRow("no date text") << QVariant("abc") << "" << QVariant();
        QTest::newRow("number") << QVariant(45000) << "" << QVariant();
    }

    void value()
    {
        QFETCH(QVariant, value);
        QFETCH(QString, shown);
        QFETCH(QVariant, read);
        picker->setText("2000-01-01");
        host.log.clear();
        picker->setValue(value);
        QCOMPARE(picker->Text(), shown);
        QCOMPARE(picker->Value(), read);
        QCOMPARE(host.log, QStringList()); // no Change for a value set by program
    }

    void typedCharacters_data()
    {
        QTest::addColumn<bool>("inputMethod");
        QTest::newRow("keys") << false;
        QTest::newRow("input method") << true;
    }

    void typedCharacters()
    {
        QFETCH(bool, inputMethod);
        const QString typed = "2a0-b/x4";
        if (inputMethod) {
            QInputMethodEvent event;
            event.setCommitString(typed);
            QApplication::sendEvent(field(), &event);
        } else {
            QTest::keyClicks(field(), typed);
        }
        QCOMPARE(picker->Text(), QString("20-/4"));
        QCOMPARE(host.log.filter("KeyPress").size(), typed.size()); // the receiver saw all
        QTest::keyClick(field(), Qt::Key_Backspace);
        QCOMPARE(picker->Text(), QString("20-/"));
    }

    void opening_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("how");
        QTest::addColumn<QDate>("shown"); // invalid: stays closed
        const QDate today = QDate::currentDate();
        QTest::newRow("F4") << "2024-02-10"
                            << "F4" << QDate(2024, 2, 10);
        QTest::newRow("button, empty text") << ""
                                            << "button" << today;
        QTest::newRow("Alt+Down, no date") << "12-"
                                           << "Alt+Down" << today;
        QTest::newRow("Alt+Down zeroed by the receiver") << "2024-02-10"
                                                         << "zeroed" << QDate();
        QTest::newRow("disabled") << "2024-02-10"
                                  << "disabled" << QDate();
    }

    void opening()
    {
        QFETCH(QString, text);
        QFETCH(QString, how);
        QFETCH(QDate, shown);
        picker->setText(text);
        picker->setSelectColor(0xFF00);
        picker->setBackColor(0xEEEEEE);
        picker->setEnabled(how != "disabled");
        host.log.clear();
        if (how == "F4")
            QTest::keyClick(field(), Qt::Key_F4);
        else if (how == "button")
            QTest::mouseClick(picker->findChild<VemoArrow*>(), Qt::LeftButton);
        else if (how == "disabled")
            picker->BeginDropDown();
        else {
            if (how == "zeroed")
                host.onKeyDown = [](short& code) {
                    code = 0;
                };
            QTest::keyClick(field(), Qt::Key_Down, Qt::AltModifier);
        }
        QCOMPARE(picker->IsDropDown(), shown.isValid());
        QCOMPARE(reports(), shown.isValid() ? QStringList{"BeforeDropDown"} : QStringList());
        QCOMPARE(picker->Text(), text); // the opening keys are swallowed
        if (!shown.isValid())
            return;
        QCOMPARE(picker->calendar()->Value(), shown);
        QCOMPARE(picker->calendar()->SelectColor(), OleColor(0xFF00));
        QCOMPARE(picker->calendar()->BackColor(), OleColor(0xEEEEEE));
    }

    void openKeys_data()
    {
        QTest::addColumn<KeyList>("keys");
        QTest::addColumn<QDate>("date");
        QTest::addColumn<QStringList>("reported"); // non-empty: the date was chosen
        const int ctrl = Qt::ControlModifier;
        const auto row = [](const char* name, KeyList keys, QDate date, QStringList chosen = {}) {
            QTest::newRow(name) << keys << date << chosen;
        };
        row("Up", {{Qt::Key_Up, 0}}, QDate(2024, 2, 3));
        row("Down", {{Qt::Key_Down, 0}}, QDate(2024, 2, 17));
        row("Left", {{Qt::Key_Left, 0}}, QDate(2024, 2, 9));
        row("Right", {{Qt::Key_Right, 0}}, QDate(2024, 2, 11));
        row("PageUp", {{Qt::Key_PageUp, 0}}, QDate(2024, 1, 10));
        row("PageDown", {{Qt::Key_PageDown, 0}}, QDate(2024, 3, 10));
        row("Ctrl+PageUp", {{Qt::Key_PageUp, ctrl}}, QDate(2023, 2, 10));
        row("Ctrl+PageDown", {{Qt::Key_PageDown, ctrl}}, QDate(2025, 2, 10));
        row("Home", {{Qt::Key_Home, 0}}, QDate(2024, 2, 1));
        row("End of a leap February", {{Qt::Key_End, 0}}, QDate(2024, 2, 29));
        row("Right, Enter chooses", {{Qt::Key_Right, 0}, {Qt::Key_Return, 0}}, QDate(2024, 2, 11),
            {"Change", "CellComboClick 2024-02-11"});
        row("Esc closes", {{Qt::Key_Escape, 0}}, QDate(2024, 2, 10), {});
    }

    void openKeys()
    {
        QFETCH(KeyList, keys);
        QFETCH(QDate, date);
        QFETCH(QStringList, reported);
        picker->setValue(QDate(2024, 2, 10));
        field()->setCursorPosition(4);
        QTest::keyClick(field(), Qt::Key_F4);
        host.log.clear();
        press(keys);
        QCOMPARE(picker->calendar()->Value(), date);
        QCOMPARE(reports(), reported);
        const bool chosen = !reported.isEmpty();
        QCOMPARE(picker->IsDropDown(), chosen ? false : keys.last().first != Qt::Key_Escape);
        QCOMPARE(picker->Text(), chosen ? date.toString(Qt::ISODate) : QString("2024-02-10"));
        QCOMPARE(picker->SelLength(), chosen ? 10 : 0);
        if (!chosen)
            QCOMPARE(field()->cursorPosition(), 4); // the keys were swallowed
    }

    void closedKeysReachText_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("cursor");
        QTest::newRow("Home") << int(Qt::Key_Home) << 0;
        QTest::newRow("Left") << int(Qt::Key_Left) << 3;
        QTest::newRow("Enter") << int(Qt::Key_Return) << 4;
    }

    void closedKeysReachText()
    {
        QFETCH(int, key);
        QFETCH(int, cursor);
        picker->setText("2024-02-10");
        field()->setCursorPosition(4);
        host.log.clear();
        QTest::keyClick(field(), Qt::Key(key));
        QCOMPARE(field()->cursorPosition(), cursor);
        QCOMPARE(reports(), QStringList());
        QVERIFY(!picker->IsDropDown());
    }

    void calendarClickChooses()
    {
        Column column;
        column.setFormatString("dd/mm/yyyy");
        picker->setColumn(&column);
        picker->setValue(QDate(2024, 2, 10));
        picker->BeginDropDown();
        host.log.clear();
        VemoCalendar* const calendar = picker->calendar();
        QTest::mouseClick(calendar, Qt::LeftButton, {}, calendar->rect().center());
        const QString chosen = calendar->Value().toString("dd/MM/yyyy");
        QCOMPARE(picker->Text(), chosen);
        QCOMPARE(reports(), (QStringList{"Change", "CellComboClick " + chosen}));
        QVERIFY(!picker->IsDropDown());
    }

    void closing_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<QStringList>("reported");
        QTest::newRow("focus leaves") << "focus" << QStringList{"ExitLocus"};
        QTest::newRow("outside click") << "outside" << QStringList{"ExitLocus"};
        QTest::newRow("drop button") << "button" << QStringList();
        QTest::newRow("another window active") << "activate" << QStringList{"ExitLocus"};
    }

    void closing()
    {
        QFETCH(QString, how);
        QFETCH(QStringList, reported);
        auto* const button = picker->findChild<VemoArrow*>();
        QTest::mouseClick(button, Qt::LeftButton);
        QCoreApplication::processEvents(); // offscreen activates the shown calendar window
        QVERIFY(picker->IsDropDown());
        QVERIFY(field()->hasFocus());
        host.log.clear();
        if (how == "focus")
            other->setFocus();
        else if (how == "outside")
            QTest::mouseClick(other, Qt::LeftButton);
        else if (how == "button")
            QTest::mouseClick(button, Qt::LeftButton);
        QWidget another;
        if (how == "activate") {
            another.show();
            another.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&another));
        }
        QVERIFY(!picker->IsDropDown());
        QCOMPARE(reports().filter(QRegularExpression("^(?!Mouse|Click)")), reported);
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
        picker->BeginDropDown();
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
