// SPDX-License-Identifier: MIT
// VemoComboBox: searching while typing, the open list's keys, clicks and window, the combo's
// own events standing alone, and its saved settings.
#include <VemoGridLib/Column.h>
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/MemoryPropertyBag.h>
#include <VemoGridLib/VemoArrow.h>
#include <VemoGridLib/VemoComboBox.h>

#include "RecordingReceiver.h"
#include "ShownWindow.h"
#include "flexgrid/FlexGridHosting_p.h"

#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QStandardItemModel>
#include <QTest>

using namespace VemoGridLib;

/// The reports other than key reports.
QStringList listReports(const QStringList& log)
{
    return log.filter(QRegularExpression("^(?!Key)"));
}

class tst_VemoComboBox : public QObject
{
    Q_OBJECT

    QPointer<QWidget> form;
    QPointer<VemoComboBox> combo;
    QPointer<QLineEdit> other;
    VemoTest::RecordingReceiver host;

    QLineEdit* field() { return combo->findChild<QLineEdit*>("txtInput"); }
    FlexGrid* grid() { return combo->list(); }
    void addItems(const QStringList& items)
    {
        for (const QString& item : items)
            combo->AddItem(item);
    }
    // The centre of list row `row` on the list's viewport.
    QPoint rowPoint(int row)
    {
        const QRect cell = FlexGridHosting(grid()).cellRect(row, 0);
        return cell.center() - grid()->viewport()->pos();
    }

private slots:
    void init()
    {
        form = new QWidget;
        form->resize(300, 100);
        combo = new VemoComboBox(form);
        combo->setGeometry(10, 10, 200, 24);
        other = new QLineEdit(form);
        other->setGeometry(10, 50, 100, 24);
        QVERIFY(VemoTest::showActive(*form));
        combo->setEventReceiver(&host);
        field()->setFocus();
        host = VemoTest::RecordingReceiver();
    }
    void cleanup() { delete form; }

    void search_data()
    {
        QTest::addColumn<int>("compareMode");
        QTest::addColumn<int>("selectCol");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("found");
        QTest::newRow("text: apr") << 1 << 0 << "apr" << 1;
        QTest::newRow("text: full width") << 1 << 0 << "ＡＰ" << 0;
        QTest::newRow("text: e does not start é") << 1 << 0 << "e" << -1;
        QTest::newRow("text: é") << 1 << 0 << "É" << 2;
        QTest::newRow("binary: A") << 0 << 0 << "A" << 0;
        QTest::newRow("binary: a") << 0 << 0 << "a" << 1;
        QTest::newRow("binary: full width") << 0 << 0 << "ＡＰ" << -1;
        QTest::newRow("second column") << 0 << 1 << "o" << 1;
        QTest::newRow("select col beyond cols") << 1 << 2 << "a" << -1;
        QTest::newRow("empty text") << 1 << 0 << "" << -1;
    }

    void search()
    {
        QFETCH(int, compareMode);
        QFETCH(int, selectCol);
        QFETCH(QString, typed);
        QFETCH(int, found);
        addItems({"Apple\tred", "apricot\torange", "\u00e9cole\tblue"});
        combo->listColumn()->setCompareMode(vb::CompareMethod(compareMode));
        combo->setSelectCol(qint16(selectCol));
        QTest::keyClick(field(), Qt::Key_Q);
        QCOMPARE(listReports(host.log), QStringList{"Change"}); // a closed list is not searched
        combo->DropDown();
        QTest::keyClick(field(), Qt::Key_Backspace);
        for (const QChar typedChar : typed) // QTest::keyClicks knows ASCII only
            QTest::sendKeyEvent(QTest::Click, field(), Qt::Key_unknown, typedChar, {});
        const QString last = listReports(host.log).last();
        QCOMPARE(last, found >= 0 ? QString("CellComboSelect %1").arg(found) : QString("Change"));
        QCOMPARE(grid()->Row(), found >= 0 ? found + 1 : 1);
    }

    void keys_data()
    {
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<QStringList>("reports");
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("topRow");
        QTest::addColumn<bool>("open");
        const int up = Qt::Key_Up, down = Qt::Key_Down;
        const auto row = [](const char* name, QList<int> keys, QStringList reports, int row,
                            int topRow, bool open = true) {
            QTest::newRow(name) << keys << reports << row << topRow << open;
        };
        const QString s1 = "CellComboSelect 1", s2 = "CellComboSelect 2", s4 = "CellComboSelect 4";
        row("up on the first row", {up}, {}, 1, 1);
        row("down, up", {down, up}, {s1, "CellComboSelect 0"}, 1, 1);
        row("down past the last row", {down, down, down, down, down},
            {s1, s2, "CellComboSelect 3", s4, s4}, 5, 3);
        row("page down", {Qt::Key_PageDown}, {s2}, 3, 3);
        row("enter commits", {down, Qt::Key_Return}, {s1, "Change", "CellComboClick"}, 2, 1, false);
        row("esc closes", {Qt::Key_Escape}, {}, 1, 1, false);
    }

    void keys()
    {
        QFETCH(QList<int>, keys);
        QFETCH(int, row);
        QFETCH(bool, open);
        addItems({"v1\tone", "v2\ttwo", "v3\tthree", "v4\tfour", "v5\tfive"});
        combo->setVisibleRows(3);
        QTest::keyClick(field(), Qt::Key_F4);
        QVERIFY(combo->IsDropDown());
        host.log.clear();
        for (const int key : keys)
            QTest::keyClick(field(), Qt::Key(key));
        QTEST(listReports(host.log), "reports");
        QCOMPARE(grid()->Row(), row);
        QTEST(grid()->TopRow(), "topRow");
        QCOMPARE(combo->IsDropDown(), open);
        QCOMPARE(combo->Text(), open || row == 1 ? QString() : QString("v%1").arg(row));
    }

    void clickCommits_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<int>("selectCol");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("reports");
        QTest::newRow("value taken")
            << "val\tdesc" << 0 << "val" << QStringList{"Change", "CellComboClick"};
        QTest::newRow("empty value keeps the text")
            << "\tdesc" << 0 << "zz" << QStringList{"CellComboClick"};
        QTest::newRow("select col beyond cols")
            << "val\tdesc" << 2 << "zz" << QStringList{"CellComboClick"};
    }

    void clickCommits()
    {
        QFETCH(QString, item);
        QFETCH(int, selectCol);
        QFETCH(QString, text);
        combo->AddItem(item);
        combo->setSelectCol(qint16(selectCol));
        combo->DropDown();
        QTest::keyClicks(field(), "zz");
        host.log.clear();
        QTest::mouseClick(grid()->viewport(), Qt::LeftButton, {}, rowPoint(1));
        QTEST(listReports(host.log), "reports");
        QVERIFY(!combo->IsDropDown());
        QCOMPARE(combo->Text(), text);
        QCOMPARE(combo->SelLength(), text.size());
    }

    void rowTextKeepsTrailingTab()
    {
        combo->setListHeader("h1\th2\th3");
        combo->AddItem("a\tb");
        combo->DropDown();
        QCOMPARE(combo->Cols(), 3);
        QCOMPARE(combo->RowText(1), QString("a\tb\t"));
        QCOMPARE(combo->RowText(2), QString());
    }

    void hotTracking_data()
    {
        QTest::addColumn<bool>("tracking");
        QTest::addColumn<int>("over");
        QTest::addColumn<QStringList>("reports");
        QTest::newRow("data row") << true << 2 << QStringList{"CellComboSelect 1"};
        QTest::newRow("header row") << true << 0 << QStringList();
        QTest::newRow("tracking off") << false << 2 << QStringList();
    }

    void hotTracking()
    {
        QFETCH(bool, tracking);
        QFETCH(int, over);
        QFETCH(QStringList, reports);
        addItems({"a", "b", "c"});
        combo->setHotTracking(tracking);
        combo->DropDown();
        host.log.clear();
        QMouseEvent move(QEvent::MouseMove, rowPoint(over), QPointF(), Qt::NoButton, {}, {});
        QApplication::sendEvent(grid()->viewport(), &move);
        QCOMPARE(host.log, reports);
        QCOMPARE(grid()->Row(), reports.isEmpty() ? 1 : over);
    }

    void standaloneRaisesOwnEvents_data()
    {
        QTest::addColumn<bool>("hosted");
        QTest::newRow("standalone") << false;
        QTest::newRow("hosted") << true;
    }

    void standaloneRaisesOwnEvents()
    {
        QFETCH(bool, hosted);
        auto* const own = new VemoComboBox(form);
        own->setGeometry(10, 80, 200, 24);
        own->show();
        own->AddItem("apple");
        if (hosted)
            own->setEventReceiver(&host);
        QStringList raised;
        connect(own, &VemoComboBox::BeforeDropDown, [&] { raised << "BeforeDropDown"; });
        connect(own, &VemoComboBox::Change, [&] { raised << "Change"; });
        connect(own, &VemoComboBox::CellComboSelect,
                [&](int index, const QString& value) { raised << QString::number(index) + value; });
        own->DropDown();
        own->findChild<QLineEdit*>("txtInput")->setText("a");
        const QStringList raisedAlone{"BeforeDropDown", "Change", "0apple"};
        QCOMPARE(raised, hosted ? QStringList() : raisedAlone);
        const QStringList reported{"BeforeDropDown", "Change", "CellComboSelect 0"};
        QCOMPARE(host.log, hosted ? reported : QStringList());
    }

    void listCloses_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("outside click") << "outside";
        QTest::newRow("drop button") << "button";
        QTest::newRow("combo hidden") << "hide";
        QTest::newRow("its window moves") << "move";
        QTest::newRow("another window active") << "activate";
    }

    void listCloses()
    {
        QFETCH(QString, how);
        combo->AddItem("a");
        auto* const button = combo->findChild<VemoArrow*>();
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(combo->IsDropDown());
        QVERIFY(field()->hasFocus()); // the list window takes no focus
        QTest::mouseClick(grid()->viewport(), Qt::LeftButton, {}, rowPoint(0));
        QCoreApplication::processEvents(); // offscreen activates the shown list window
        QVERIFY(combo->IsDropDown()); // a press inside the list and its activation leave it open
        QWidget another;
        if (how == "activate")
            QVERIFY(VemoTest::showActive(another));
        else if (how == "outside")
            QTest::mouseClick(other, Qt::LeftButton);
        else if (how == "button")
            QTest::mouseClick(button, Qt::LeftButton);
        else if (how == "move") {
            form->move(form->pos() + QPoint(5, 5));
            QCoreApplication::processEvents();
        } else
            combo->hide();
        QVERIFY(!combo->IsDropDown());
    }

    void hundredThousandItems()
    {
        for (int i = 0; i < 100000; ++i)
            combo->AddItem(QString("item%1\tname %1\t%2").arg(i).arg(i * 3));
        combo->listColumn()->setCompareMode(vb::vbTextCompare);
        combo->DropDown();
        QCOMPARE(combo->Rows(), 100001);
        QTest::keyClicks(field(), "ITEM99999");
        QCOMPARE(listReports(host.log).last(), QString("CellComboSelect 99999"));
        QCOMPARE(combo->RowText(100000), QString("item99999\tname 99999\t299997"));
        QVERIFY(grid()->RowIsVisible(100000));
    }

    void dataSourceFillsList_data()
    {
        QTest::addColumn<QString>("listHeader");
        QTest::addColumn<QString>("header");
        QTest::newRow("model header") << ""
                                      << "Code\tName";
        QTest::newRow("list header") << "C\tN"
                                     << "C\tN";
    }

    void dataSourceFillsList()
    {
        QFETCH(QString, listHeader);
        QStandardItemModel model(2, 2);
        model.setHorizontalHeaderLabels({"Code", "Name"});
        for (int i = 0; i < 4; ++i)
            model.setItem(i / 2, i % 2, new QStandardItem(QString("%1%2").arg(i / 2).arg(i % 2)));
        combo->AddItem("ignored");
        combo->setDataSource(&model);
        combo->setListHeader(listHeader);
        combo->DropDown();
        QCOMPARE(combo->Rows(), 3);
        QTEST(combo->RowText(0), "header");
        QCOMPARE(combo->RowText(2), QString("10\t11"));
    }

    void savedPropertiesRoundTrip()
    {
        MemoryPropertyBag fresh;
        combo->WriteProperties(fresh);
        QCOMPARE(fresh.names(), QStringList{"Font"});
        QStringList changed;
        connect(combo, &VemoComboBox::PropertyChanged,
                [&](const QString& name) { changed << name; });
        combo->setValue("chosen");
        combo->setListWidth(3000);
        combo->setVisibleRows(5);
        combo->setSelectCol(1);
        combo->setHotTracking(false);
        combo->setLocked(true);
        combo->setBorderStyle(0);
        QVERIFY(combo->setProperty("MousePointer", 2));
        combo->setProperty("MousePointer", 50); // refused, stays 2
        QCOMPARE(changed, (QStringList{"ListWidth", "VisibleRows", "SelectCol", "HotTracking",
                                       "Locked", "BorderStyle", "MousePointer"}));
        MemoryPropertyBag bag;
        combo->WriteProperties(bag);
        QCOMPARE(bag.names(),
                 (QStringList{"BorderStyle", "Font", "Text", "ListWidth", "VisibleRows", "Locked",
                              "SelectCol", "HotTracking", "MousePointer"}));
        VemoComboBox loaded;
        loaded.ReadProperties(bag);
        MemoryPropertyBag again;
        loaded.WriteProperties(again);
        QCOMPARE(again.toJson(), bag.toJson());
    }
};

QTEST_MAIN(tst_VemoComboBox)
#include "tst_vemocombobox.moc"
