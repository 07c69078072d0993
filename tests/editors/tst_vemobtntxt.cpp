// SPDX-License-Identifier: MIT
// VemoBtnTxt: the strip left for the button, the press and its ButtonClick, the focus that a
// press leaves in the text field, and the Change reports.
#include <VemoGridLib/VemoBtnTxt.h>

#include "RecordingReceiver.h"
#include "ShownWindow.h"

#include <QLineEdit>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QThread>

using namespace VemoGridLib;

class tst_VemoBtnTxt : public QObject
{
    Q_OBJECT

    // A form that takes the focus itself, as a grid under the editor does.
    QPointer<QWidget> form;
    QPointer<VemoBtnTxt> editor;
    QPointer<QLineEdit> other;
    VemoTest::RecordingReceiver host;

    QLineEdit* field() { return editor->findChild<QLineEdit*>("txtInput"); }
    QPoint strip() { return QPoint(editor->width() - 5, editor->height() / 2); }

private slots:
    void initTestCase() { QCOMPARE(QGuiApplication::primaryScreen()->logicalDotsPerInch(), 96); }

    void init()
    {
        form = new QWidget;
        form->setFocusPolicy(Qt::StrongFocus);
        form->resize(300, 100);
        editor = new VemoBtnTxt(form);
        editor->setGeometry(10, 10, 200, 24);
        other = new QLineEdit(form);
        other->setGeometry(10, 50, 100, 24);
        QVERIFY(VemoTest::showActive(*form));
        editor->setEventReceiver(&host);
        field()->setFocus();
        host = VemoTest::RecordingReceiver();
    }
    void cleanup() { delete form; }

    void fieldLeavesTheStrip_data()
    {
        QTest::addColumn<int>("borderStyle");
        QTest::addColumn<int>("fieldWidth");
        // 200 px are 3000 twips; 2750 and 2700 twips are 183.3 and 180 px.
        QTest::newRow("no border") << 0 << 183;
        QTest::newRow("fixed single") << 1 << 180;
    }

    void fieldLeavesTheStrip()
    {
        QFETCH(int, borderStyle);
        QFETCH(int, fieldWidth);
        editor->setBorderStyle(borderStyle);
        editor->repaint();
        QCOMPARE(field()->geometry(), QRect(0, 0, fieldWidth, 24));
        editor->resize(100, 30);
        QCOMPARE(field()->geometry(), QRect(0, 0, fieldWidth - 100, 30));
    }

    void press_data()
    {
        QTest::addColumn<bool>("slowHandler");
        QTest::addColumn<bool>("pressedUntilRelease");
        QTest::newRow("quick handler") << false << true;
        QTest::newRow("handler blocks") << true << false;
    }

    void press()
    {
        QFETCH(bool, slowHandler);
        QFETCH(bool, pressedUntilRelease);
        if (slowHandler)
            host.onButtonClick = [] {
                QThread::msleep(250);
            };
        const QImage raised = editor->grab().toImage();
        QTest::mousePress(editor, Qt::LeftButton, {}, strip());
        QCOMPARE(editor->buttonPressed(), pressedUntilRelease);
        QCOMPARE(editor->grab().toImage() != raised, pressedUntilRelease);
        QTest::mouseRelease(editor, Qt::LeftButton, {}, strip());
        QVERIFY(!editor->buttonPressed());
        QCOMPARE(editor->grab().toImage(), raised);
        QCOMPARE(host.log, QStringList{"ButtonClick"});
        QCOMPARE(QApplication::focusWidget(), field());
    }

    void exitLocus_data()
    {
        QTest::addColumn<bool>("toStrip");
        QTest::addColumn<int>("exitLoci");
        QTest::newRow("to the strip") << true << 0;
        QTest::newRow("to another widget") << false << 1;
    }

    void exitLocus()
    {
        QFETCH(bool, toStrip);
        QFETCH(int, exitLoci);
        if (toStrip)
            QTest::mouseClick(editor, Qt::LeftButton, {}, strip());
        else
            QTest::mouseClick(other, Qt::LeftButton);
        QCOMPARE(host.log.count("ExitLocus"), exitLoci);
        QCOMPARE(QApplication::focusWidget() == field(), toStrip);
    }

    void changeReports()
    {
        QTest::keyClicks(field(), "a,");
        QCOMPARE(host.log.join(','), "KeyDown 65 0,KeyPress 97,Change,KeyUp 65 0,"
                                     "KeyDown 188 0,KeyPress 44,Change,KeyUp 188 0");
        QCOMPARE(editor->Text(), "a,");
        host.log.clear();
        editor->setValue(12.5);
        QCOMPARE(editor->Value(), QVariant("12.5"));
        QVERIFY(host.log.isEmpty());
        editor->setText("b");
        QCOMPARE(host.log, QStringList{"Change"});
    }
};

QTEST_MAIN(tst_VemoBtnTxt)
#include "tst_vemobtntxt.moc"
