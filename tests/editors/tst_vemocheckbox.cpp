// SPDX-License-Identifier: MIT
// VemoCheckBox: toggling by key and click as the receiver leaves the input, the text and
// Boolean forms of the state, and which picture shows.
#include <VemoGridLib/VemoCheckBox.h>

#include "RecordingReceiver.h"
#include "ShownWindow.h"
#include "VemoTestSupport.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

using namespace VemoGridLib;

class tst_VemoCheckBox : public QObject
{
    Q_OBJECT

    QPointer<VemoCheckBox> box;
    VemoTest::RecordingReceiver host;

    QLabel* picture(const char* name) { return box->findChild<QLabel*>(QLatin1String(name)); }

private slots:
    void initTestCase() { QCOMPARE(QGuiApplication::primaryScreen()->logicalDotsPerInch(), 96); }

    void init()
    {
        host = VemoTest::RecordingReceiver();
        box = new VemoCheckBox;
        box->setEventReceiver(&host);
        box->resize(40, 20);
        box->show();
        QVERIFY(QTest::qWaitForWindowExposed(box));
    }
    void cleanup() { delete box; }

    void toggling_data()
    {
        QTest::addColumn<QString>("input");
        QTest::addColumn<bool>("locked");
        QTest::addColumn<QString>("receiver"); // what it does to KeyCode or Button
        QTest::addColumn<QString>("log");
        // At 96 dpi a pixel is 15 twips; a picture's point is relative to the picture.
        const auto row = [](const char* name, const char* input, bool locked, const char* receiver,
                            const QString& log) {
            QTest::newRow(name) << input << locked << receiver << log;
        };
        const QString space = "KeyDown 32 0,%1KeyPress 32,KeyUp 32 0";
        const QString left = "MouseDown 1 0 30 45,%1MouseUp 1 0 30 45";
        row("Space", "Space", false, "", space.arg("Change,"));
        row("Ctrl+Space", "Ctrl+Space", false, "", "KeyDown 32 2,Change,KeyPress 32,KeyUp 32 2");
        row("left", "left", false, "", left.arg("Change,"));
        row("right", "right", false, "", "MouseDown 2 0 30 45,MouseUp 2 0 30 45");
        row("picture", "picture", false, "", "MouseDown 1 0 15 30,Change,MouseUp 1 0 15 30");
        row("locked Space", "Space", true, "", space.arg(""));
        row("locked left", "left", true, "", left.arg(""));
        row("KeyCode zeroed", "Space", false, "zero", space.arg(""));
        row("right made left", "right", false, "left",
            "MouseDown 2 0 30 45,Change,MouseUp 2 0 30 45");
        // The host moved the editor to another cell: the key was the old cell's.
        row("re-targeted Space", "Space", false, "re-target", "KeyDown 32 0,KeyUp 32 0");
    }

    void toggling()
    {
        QFETCH(QString, input);
        QFETCH(bool, locked);
        QFETCH(QString, receiver);
        QFETCH(QString, log);
        box->setLocked(locked);
        if (receiver == "zero" || receiver == "left")
            host.onKeyDown = host.onMouseDown = [receiver](short& value) {
                value = receiver == "left";
            };
        else if (receiver == "re-target")
            host.onKeyDown = [this](short&) {
                box->setColumn(nullptr);
            };
        if (input.endsWith("Space"))
            QTest::keyClick(box, Qt::Key_Space,
                            input.startsWith("Ctrl") ? Qt::ControlModifier : Qt::NoModifier);
        else if (input == "picture")
            QTest::mouseClick(picture("imgUnchecked"), Qt::LeftButton, {}, QPoint(1, 2));
        else
            QTest::mouseClick(box, input == "left" ? Qt::LeftButton : Qt::RightButton, {},
                              QPoint(2, 3));
        QCOMPARE(host.log.join(','), log);
        QCOMPARE(box->Value().toBool(), host.log.contains("Change"));
    }

    void textAndValue_data()
    {
        QTest::addColumn<bool>("byText");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("text"); // "!" when the assignment is refused
        QTest::newRow("text .") << true << QVariant(".") << ".";
        QTest::newRow("text 1") << true << QVariant("1") << "`";
        QTest::newRow("value 0") << false << QVariant(0) << "`";
        QTest::newRow("value -0.5") << false << QVariant(-0.5) << ".";
        QTest::newRow("value True") << false << QVariant("True") << ".";
        QTest::newRow("value Null") << false << QVariant() << "`";
        QTest::newRow("value abc") << false << QVariant("abc") << "!";
        QTest::newRow("value .") << false << QVariant(".") << "!";
    }

    void textAndValue()
    {
        QFETCH(bool, byText);
        QFETCH(QVariant, value);
        QFETCH(QString, text);
        const bool refused = text == "!";
        // Start from the other state, so that an assignment that changes nothing shows.
        box->setValue(refused || text != ".");
        const qint32 error = VemoTest::errorNumberOf(
            [&] { byText ? box->setText(value.toString()) : box->setValue(value); });
        QCOMPARE(error, refused ? 13 : 0);
        QCOMPARE(box->Text(), refused ? QString(".") : text);
        QCOMPARE(box->Value(), QVariant(box->Text() == "."));
        QVERIFY(host.log.isEmpty());
    }

    void oneChangePerToggleAndPictures()
    {
        box->setValue(true);
        for (int toggle = 1; toggle <= 3; ++toggle) {
            toggle == 2 ? QTest::mouseClick(box, Qt::LeftButton)
                        : QTest::keyClick(box, Qt::Key_Space);
            QCOMPARE(host.log.count("Change"), toggle);
            const bool checked = toggle % 2 == 0;
            QCOMPARE(box->Value().toBool(), checked);
            QCOMPARE(picture("imgChecked")->isVisible(), checked);
            QCOMPARE(picture("imgUnchecked")->isVisible(), !checked);
        }
        box->resize(61, 30);
        for (const char* name : {"imgChecked", "imgUnchecked"})
            QCOMPARE(picture(name)->geometry(), QRect(24, 8, 13, 13));
    }

    void focusLossIsNoExitLocus()
    {
        QWidget form; // owns the box from here on
        box->setParent(&form);
        QLineEdit other(&form);
        other.move(0, 30);
        QVERIFY(VemoTest::showActive(form));
        box->setFocus();
        QSignalSpy lost(box, &CellEditor::LostFocus);
        other.setFocus();
        QCOMPARE(lost.count(), 1);
        QVERIFY(host.log.isEmpty());
    }
};

QTEST_MAIN(tst_VemoCheckBox)
#include "tst_vemocheckbox.moc"
