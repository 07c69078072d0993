// SPDX-License-Identifier: MIT
// VemoGrid's editing session driven as a user drives it: the column's editor, committing with
// the grid's events, the move keys, Esc, links, step scrolling, editor placement.
#include <VemoGridLib/CellEditor.h>
#include <VemoGridLib/Column.h>
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/Messages.h>
#include <VemoGridLib/VemoGrid.h>

#include "MessageRecorder.h"
#include "VemoGridTestSupport.h"

#include <QDialog>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

using namespace VemoGridLib;
using namespace VemoTest;

namespace {

/// The shown editor of `grid`, or none.
CellEditor* openEditor(const VemoGrid& grid)
{
    for (CellEditor* editor : grid.findChildren<CellEditor*>()) {
        if (editor->isVisible())
            return editor;
    }
    return nullptr;
}

QWidget* focused()
{
    return QApplication::focusWidget();
}

void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(focused(), Qt::Key(key), modifiers);
}

void wheel(QWidget* target, QPoint delta, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QWheelEvent event(QPointF(10, 10), target->mapToGlobal(QPointF(10, 10)), QPoint(), delta,
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &event);
}

/// The cell of the current position as "row,col".
QString current(const VemoGrid& grid)
{
    return QStringLiteral("%1,%2").arg(grid.Row()).arg(grid.Col());
}

} // namespace

class tst_VemoGridEditing : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<MessageRecorder> m_messages;
    std::unique_ptr<VemoGrid> m_grid;
    QStringList m_events;

    /// A shown, active grid of `format` whose events are recorded in m_events.
    VemoGrid& makeGrid(const QString& format, int dataRows = 3)
    {
        m_grid = shownGrid(format, dataRows);
        if (!m_grid || (m_grid->activateWindow(), !QTest::qWaitForWindowActive(m_grid.get())))
            qFatal("the grid was not shown active");
        VemoGrid* const g = m_grid.get();
        connect(g, &VemoGrid::LeaveCell, this, [this] { m_events << "LeaveCell"; });
        connect(g, &VemoGrid::EnterCell, this, [this] { m_events << "EnterCell"; });
        connect(g, &VemoGrid::Change, this, [this] { m_events << "Change"; });
        connect(g, &VemoGrid::CellChanged, this,
                [this](int r, int c) { m_events << QString("CellChanged %1,%2").arg(r).arg(c); });
        connect(g, &VemoGrid::ValidateError, this,
                [this](int, int, const QString& v) { m_events << "ValidateError " + v; });
        connect(g, &VemoGrid::BeforeChange, this,
                [this](int, int, bool&, QString& v) { m_events << "BeforeChange " + v; });
        return *g;
    }

private slots:
    void initTestCase() { pinFont(); }
    void init()
    {
        m_messages = std::make_unique<MessageRecorder>();
        m_events.clear();
    }
    void cleanup()
    {
        m_grid.reset();
        m_messages.reset();
    }

    void clickOpensTheColumnsEditor_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("editor"); // none: the focus stays with the grid
        const auto row = [](const char* name, int type, const char* editor,
                            const char* text = "12") {
            QTest::newRow(name) << type << text << editor;
        };
        row("text", eTextBox, "VemoTextBox1");
        row("check box", eCheckBox, "VemoCheckBox1");
        row("button", eButton, "VemoBtnTxt1");
        row("combo box", eComboBox, "VemoComboBox1");
        row("date", eCalendar, "VemoDTPicker1", "2024-02-10");
        // A link opens through the shell and shows the link pointer; blanks are edited.
        row("hyperlink", ehyperlink, "", "https://example.org/");
        row("hyperlink, blanks only", ehyperlink, "VemoTextBox1", "   ");
    }
    void clickOpensTheColumnsEditor()
    {
        QFETCH(int, type);
        QFETCH(QString, text);
        QFETCH(QString, editor);
        VemoGrid& g = makeGrid(QStringLiteral("|A|B"));
        g.setColType(2, VemoGridColType(type));
        g.hostedGrid()->setColWidth(2, 1200);
        g.setTextMatrix(2, 2, text);
        QStringList opened;
        const ShellOpenHandler previous = setShellOpenHandler([&](const QString& target) {
            opened << target;
            return true;
        });
        clickCell(g, 2, 2);
        setShellOpenHandler(previous);
        QVERIFY(!m_events.contains("Change")); // loading an editor is no change by the user
        QCOMPARE(opened,
                 type == ehyperlink && editor.isEmpty() ? QStringList{text} : QStringList{});
        // From the fixed corner, wherever an earlier test left the pointer.
        QTest::mouseMove(g.hostedGrid()->viewport(), QPoint(1, 1));
        QTest::mouseMove(g.hostedGrid()->viewport(), cellRect(g, 2, 2).center());
        QCOMPARE(g.hostedGrid()->MousePointer(), opened.isEmpty() ? 0 : 99);
        CellEditor* const shown = openEditor(g);
        QCOMPARE(shown ? shown->objectName() : QString(), editor);
        if (!shown) {
            QCOMPARE(focused(), g.hostedGrid());
            return;
        }
        const QRect cell = cellRect(g, 2, 2).translated(g.hostedGrid()->viewport()->pos());
        QCOMPARE(shown->geometry(), cell.adjusted(0, 0, -1, -1));
        QVERIFY(shown->isAncestorOf(focused()) || focused() == shown);
        if (shown->hasTextField()) {
            QCOMPARE(shown->Text(), text);
            QCOMPARE(shown->SelLength(), text.size());
        }
        // The right edge is a button column's button.
        QList<QPoint> clicks;
        connect(&g, &VemoGrid::BtnClick, this, [&](int& r, int& c) { clicks << QPoint(c, r); });
        QTest::mouseClick(shown, Qt::LeftButton, {}, QPoint(shown->width() - 3, 5));
        QCOMPARE(clicks, type == eButton ? QList<QPoint>{QPoint(2, 2)} : QList<QPoint>{});
    }

    void typingAndEnterCommit_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("typed"); // "\x1b" is Esc
        QTest::addColumn<bool>("cancel");   // what BeforeChange answers; it also rewrites the text
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("events");
        const auto row = [](const char* name, int type, const char* typed, const char* stored,
                            const char* events, bool cancel = false) {
            QTest::newRow(name) << type << typed << cancel << stored << events;
        };
        const char* const unchanged = "LeaveCell; EnterCell";
        row("text", eTextBox, "abc", "abc",
            "LeaveCell; BeforeChange abc; CellChanged 1,1; EnterCell");
        row("unchanged text: no change events", eTextBox, "7", "7", unchanged);
        row("BeforeChange cancels", eTextBox, "abc", "7", "LeaveCell; BeforeChange abc; EnterCell",
            true);
        row("Esc puts back the cell's text", eTextBox, "abc\x1b", "7", unchanged);
        row("typing goes on after Esc", eTextBox, "abc\x1bx", "x",
            "LeaveCell; BeforeChange x; CellChanged 1,1; EnterCell");
        row("numeric keeps letters and commas out", eNumeric, "1x2,5", "125",
            "LeaveCell; BeforeChange 125; CellChanged 1,1; EnterCell");
        row("currency formats", eCurrency, "1234.5", "1,234.50",
            "LeaveCell; BeforeChange 1234.5; CellChanged 1,1; EnterCell");
        row("above MaxValue is rejected", eNumeric, "5000.5", "7",
            "LeaveCell; ValidateError 5000.5; EnterCell");
        // Space toggles a check box: the grid stores the checked marker.
        row("check box", eCheckBox, " ", ".",
            "Change; LeaveCell; BeforeChange .; CellChanged 1,1; EnterCell");
    }
    void typingAndEnterCommit()
    {
        QFETCH(int, type);
        QFETCH(QString, typed);
        QFETCH(bool, cancel);
        VemoGrid& g = makeGrid(QStringLiteral("|A|B"));
        g.setColType(1, VemoGridColType(type));
        g.Column(1)->setMaxValue(5000);
        g.setTextMatrix(1, 1, QStringLiteral("7"));
        connect(&g, &VemoGrid::BeforeChange, this, [&](int, int, bool& c, QString& v) {
            c = cancel;
            v = QStringLiteral("rewritten");
        });
        clickCell(g, 1, 1);
        m_events.clear();
        QTest::keyClicks(focused(), typed);
        press(Qt::Key_Return);
        QTEST(g.hostedGrid()->TextMatrix(1, 1), "stored");
        QTEST(m_events.join(u"; "_qs), "events");
        QCOMPARE(current(g), QStringLiteral("1,2"));
        QCOMPARE(openEditor(g)->objectName(), QStringLiteral("VemoTextBox1"));
    }

    void moveKeysSkipWhatCannotBeEntered_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<QString>("to");
        const auto row = [](const char* name, const char* from, QList<int> keys, const char* to,
                            const char* typed = "") {
            QTest::newRow(name) << from << typed << keys << to;
        };
        // Column 2 is locked, 3 narrow, 5 numbered; row 3 is hidden.
        row("Right skips locked and narrow", "1,1", {Qt::Key_Right}, "1,4");
        row("Right at the last enterable stays", "1,4", {Qt::Key_Right}, "1,4");
        row("Left skips back", "1,4", {Qt::Key_Left}, "1,1");
        row("Left at the first stays", "1,1", {Qt::Key_Left}, "1,1");
        row("Enter wraps to the next row", "1,4", {Qt::Key_Return}, "2,1");
        row("Down skips a hidden row", "2,1", {Qt::Key_Down}, "4,1");
        row("Up skips a hidden row", "4,4", {Qt::Key_Up}, "2,4");
        row("Up stops at the first data row", "1,1", {Qt::Key_Up}, "1,1");
        row("Enter in the last cell adds a row", "4,4", {Qt::Key_Return}, "5,1");
        // In typed text Left and Right move the caret; Right at its end moves on and commits.
        row("Left moves the caret", "1,4", {Qt::Key_Left}, "1,4", "ab");
        row("Right short of the end", "1,1", {Qt::Key_Left, Qt::Key_Right}, "1,1", "ab");
        row("Right at the end", "1,1", {Qt::Key_Left, Qt::Key_Right, Qt::Key_Right}, "1,4", "ab");
    }
    void moveKeysSkipWhatCannotBeEntered()
    {
        QFETCH(QString, from);
        QFETCH(QString, typed);
        QFETCH(QList<int>, keys);
        QFETCH(QString, to);
        VemoGrid& g = makeGrid(QStringLiteral("|A|Locked|N|D|No"), 4);
        g.Column(2)->setLocked(true);
        g.setCOLWIDTH(3, 15);
        g.Column(5)->setAutoAdd(true);
        g.setRowHeight(3, 0);
        g.setTextMatrix(4, 4, QStringLiteral("x")); // the last row is not empty
        g.setNullLine(false);
        const int row = from.section(',', 0, 0).toInt(), col = from.section(',', 1, 1).toInt();
        clickCell(g, row, col);
        QCOMPARE(current(g), from);
        QTest::keyClicks(focused(), typed);
        for (const int key : keys)
            press(key);
        QCOMPARE(current(g), to);
        QVERIFY(openEditor(g));
        QCOMPARE(g.Rows(), to == QStringLiteral("5,1") ? 6 : 5);
        if (!typed.isEmpty())
            QCOMPARE(g.TextMatrix(row, col), to == from ? QString() : typed);
    }

    void enterAtTheEndFollowsAutoGrowAndNullLine_data()
    {
        QTest::addColumn<bool>("autoGrow");
        QTest::addColumn<bool>("nullLine");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("rows");
        QTest::addColumn<QString>("stored");
        QTest::newRow("empty row, NullLine on") << true << true << "" << 3 << "";
        QTest::newRow("empty row, NullLine off") << true << false << "" << 2 << "";
        QTest::newRow("just typed counts, NullLine off") << true << false << "x" << 3 << "x";
        QTest::newRow("AutoGrow off: the edit goes on") << false << true << "x" << 2 << "";
    }
    void enterAtTheEndFollowsAutoGrowAndNullLine()
    {
        QFETCH(bool, autoGrow);
        QFETCH(bool, nullLine);
        QFETCH(QString, typed);
        QFETCH(int, rows);
        VemoGrid& g = makeGrid(QStringLiteral("|A"), 1);
        g.setAutoGrow(autoGrow);
        g.setNullLine(nullLine);
        clickCell(g, 1, 1);
        QTest::keyClicks(focused(), typed);
        press(Qt::Key_Return);
        QCOMPARE(g.Rows(), rows);
        QTEST(g.TextMatrix(1, 1), "stored");
        QCOMPARE(g.Row(), rows - 1);
        QCOMPARE(openEditor(g)->Text(), rows == 3 ? QString() : typed);
    }

    void focusLeavingTheEditorCommitsOnce()
    {
        VemoGrid& g = makeGrid(QStringLiteral("|A|B"));
        QLineEdit elsewhere(&g);
        elsewhere.setGeometry(600, 300, 80, 20);
        elsewhere.show();
        clickCell(g, 1, 1);
        QTest::keyClicks(focused(), QStringLiteral("x"));
        m_events.clear();
        elsewhere.setFocus();
        QCOMPARE(g.TextMatrix(1, 1), QStringLiteral("x"));
        QCOMPARE(m_events, (QStringList{"LeaveCell", "BeforeChange x", "CellChanged 1,1"}));
        QCOMPARE(focused(), &elsewhere);
        QVERIFY(!openEditor(g));
        m_events.clear();
        clickCell(g, 2, 1); // the cell was left already: no second LeaveCell
        QCOMPARE(m_events, QStringList{"EnterCell"});
    }

    void editorMouseReportsAreInGridTwips()
    {
        VemoGrid& g = makeGrid(QStringLiteral("|A|B"));
        clickCell(g, 2, 2);
        QPointF reported;
        connect(&g, &VemoGrid::MouseDown, this,
                [&](short&, short&, float& x, float& y) { reported = QPointF(x, y); });
        QWidget* const field = openEditor(g)->findChild<QLineEdit*>(QStringLiteral("txtInput"));
        QTest::mousePress(field, Qt::LeftButton, {}, QPoint(4, 3));
        const QPoint at = field->mapTo(&g, QPoint(4, 3));
        QCOMPARE(reported, QPointF(at.x() * 15, at.y() * 15));
    }

    void stepScrolling_data()
    {
        QTest::addColumn<int>("scrollType");
        QTest::addColumn<QList<int>>("wheelDeltas");
        QTest::addColumn<QList<int>>("topRows");
        const auto row = [](const char* name, int type, QList<int> deltas, QList<int> tops) {
            QTest::newRow(name) << type << deltas << tops;
        };
        // A wheel notch of -120 steps down by ScrollNum; fine deltas do nothing.
        row("notches down", VemoScrollAuto, {-120, -120}, {4, 7});
        row("notch up stops at the fixed rows", VemoScrollVertical, {-120, 120, 120}, {4, 1, 1});
        row("fine deltas do not scroll", VemoScrollAuto, {-60, -119, 240}, {1, 1, 1});
        row("horizontal without a horizontal bar", VemoScrollHorizontal, {-120}, {1});
        row("ScrollNone leaves the wheel to the grid", VemoScrollNone, {-120}, {4});
    }
    void stepScrolling()
    {
        QFETCH(int, scrollType);
        QFETCH(QList<int>, wheelDeltas);
        QFETCH(QList<int>, topRows);
        VemoGrid& g = makeGrid(QStringLiteral("|A|B"), 40);
        g.setScrollType(VemoGridScrollType(scrollType));
        clickCell(g, 1, 1);
        QList<int> seen;
        for (const int delta : wheelDeltas) {
            wheel(g.hostedGrid()->viewport(), QPoint(0, delta));
            seen << g.TopRow();
        }
        QCOMPARE(seen, topRows);
        if (scrollType != VemoScrollNone && topRows.last() > 1)
            QCOMPARE(g.Row(), topRows.last());
    }

    void stepScrollingStopsForGoodAtTheEnd()
    {
        VemoGrid& g = makeGrid(QStringLiteral("|A|B"), 20);
        g.setScrollNum(5);
        clickCell(g, 1, 1);
        QList<int> tops;
        for (int i = 0; i < 5; ++i) {
            press(Qt::Key_Down, Qt::AltModifier);
            tops << g.TopRow();
        }
        const int end = tops.last();
        QVERIFY(end > 1 && end < 20);
        QCOMPARE(tops[3], end); // at the end, Down steps do nothing any more
        wheel(focused(), QPoint(0, -120), Qt::ControlModifier);
        QCOMPARE(g.TopRow(), end);
        press(Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(g.TopRow(), end - 5);
    }

    void editorNeverFloatsOverTheWrongCell()
    {
        VemoGrid& g = makeGrid(QStringLiteral("|A|B|C"), 20);
        const auto openAt = [&](int row, int col, const QString& typed) {
            clickCell(g, row, col);
            QTest::keyClicks(focused(), typed);
            return openEditor(g);
        };
        // A column to the left grows: the editor moves with its cell.
        CellEditor* editor = openAt(2, 2, QStringLiteral("v"));
        g.setCOLWIDTH(1, 1800);
        QCOMPARE(editor->geometry().left(),
                 cellRect(g, 2, 2).left() + g.hostedGrid()->viewport()->x());
        // Row operations, sorting and scrolling commit it first; it is then hidden or shown
        // again over the current cell. After SortOnCol not even Enter commits it.
        const std::vector<std::pair<std::function<void()>, bool>> ends = {
            {[&] { g.RemoveItem(1); }, true}, {[&] { g.Sort(2); }, true},
            {[&] { g.setTopRow(5); }, true},  {[&] { g.AddItem(QString()); }, true},
            {[&] { g.SortOnCol(2); }, false},
        };
        for (std::size_t i = 0; i < ends.size(); ++i) {
            g.setTopRow(1);
            const QString typed = QStringLiteral("w%1").arg(i);
            openAt(2, 2, typed);
            ends[i].first();
            if (!ends[i].second)
                press(Qt::Key_Return);
            QVERIFY2(columnTexts(g, 2).contains(typed) == ends[i].second, qPrintable(typed));
            if (CellEditor* const shown = openEditor(g); shown && ends[i].second) {
                QCOMPARE(shown->Text(), g.TextMatrix(g.Row(), g.Col()));
                QCOMPARE(shown->geometry().topLeft(), cellRect(g, g.Row(), g.Col()).topLeft() +
                                                          g.hostedGrid()->viewport()->pos());
            }
        }
    }

    void autoCalculationRunsOnLeavingAnOperand()
    {
        VemoGrid& g = makeGrid(QStringLiteral("|Qty|Price|Amount"));
        for (const int col : {1, 2, 3})
            g.setColType(col, eNumeric);
        g.setAutoCalc1(1);
        g.setAutoCalc2(2);
        g.setAutoCalcRES(3);
        g.setAutoCalcOPE(QStringLiteral("*"));
        clickCell(g, 1, 1);
        QTest::keyClicks(focused(), QStringLiteral("3"));
        press(Qt::Key_Return);
        QTest::keyClicks(focused(), QStringLiteral("2.5"));
        press(Qt::Key_Return);
        QCOMPARE(g.TextMatrix(1, 3), QStringLiteral("7.5"));
    }

    void comboColumnPicksAListRow()
    {
        VemoGrid& g = makeGrid(QStringLiteral("|Code|Name"), 40);
        g.setColType(1, eComboBox);
        for (const char* item : {"A01\tApple", "B02\tBanana", "B03\tBlueberry"})
            g.Column(1)->AddItem(QLatin1String(item));
        QStringList seen;
        connect(&g, &VemoGrid::BeforeDropDown, this, [&] { seen << "BeforeDropDown"; });
        connect(&g, &VemoGrid::CellComboSelect, this, [&](int index, const QString& value) {
            seen << QStringLiteral("Select %1 %2").arg(index).arg(value.section('\t', 0, 0));
        });
        connect(&g, &VemoGrid::CellComboClick, this, [&](int row, int& col, QString& value) {
            seen << QStringLiteral("Click %1,%2").arg(row).arg(col);
            g.setTextMatrix(row, 2, value.section('\t', 1, 1)); // the name beside the code
        });
        clickCell(g, 1, 1);
        press(Qt::Key_Down, Qt::AltModifier); // in a grid, Alt+Down scrolls: the list stays shut
        QCOMPARE(g.TopRow(), 4);
        QVERIFY(!openEditor(g));
        g.setTopRow(1);
        clickCell(g, 1, 1);
        press(Qt::Key_F4);
        QTest::keyClicks(focused(), QStringLiteral("B0"));
        press(Qt::Key_Down);
        press(Qt::Key_Return); // takes the row over; the edit goes on
        QCOMPARE(current(g), QStringLiteral("1,1"));
        press(Qt::Key_Return); // stores the cell and moves on
        QCOMPARE(g.TextMatrix(1, 1), QStringLiteral("B03"));
        QCOMPARE(g.TextMatrix(1, 2), QStringLiteral("Blueberry"));
        QCOMPARE(current(g), QStringLiteral("1,2"));
        QCOMPARE(seen, (QStringList{"BeforeDropDown", "Select 1 B02", "Select 1 B02",
                                    "Select 2 B03", "Click 1,1"}));
    }

    void dateColumnEditsThroughThePicker()
    {
        VemoGrid& g = makeGrid(QStringLiteral("|Date|B"));
        g.setColType(1, eCalendar);
        g.setLunarCalendar(true);
        QStringList chosen;
        connect(&g, &VemoGrid::CellComboClick, this, [&](int row, int& col, QString& value) {
            chosen << QString("%1,%2 %3").arg(row).arg(col).arg(value);
        });
        // Picked from the calendar: F4, a day to the right, Enter takes it, Enter stores it.
        g.setTextMatrix(1, 1, QStringLiteral("2024-02-05"));
        clickCell(g, 1, 1);
        press(Qt::Key_F4);
        auto* const calendar = g.findChild<QWidget*>(QStringLiteral("CC"));
        QVERIFY(calendar && calendar->isVisible());
        QVERIFY(calendar->property("LunarCalendar").toBool());
        press(Qt::Key_Right);
        press(Qt::Key_Return);
        QCOMPARE(chosen, QStringList{"1,1 2024-02-06"});
        QCOMPARE(current(g), QStringLiteral("1,1"));
        press(Qt::Key_Return);
        QCOMPARE(g.TextMatrix(1, 1), QStringLiteral("2024-02-06"));
        QCOMPARE(current(g), QStringLiteral("1,2"));
    }

    void btnClickHandlerWritesTheCell_data()
    {
        QTest::addColumn<bool>("dialog");
        QTest::newRow("directly") << false;
        QTest::newRow("after a modal dialog") << true; // it takes the focus: a commit first
    }
    void btnClickHandlerWritesTheCell()
    {
        QFETCH(bool, dialog);
        VemoGrid& g = makeGrid(QStringLiteral("|Notes|B"));
        g.setColType(1, eButton);
        connect(&g, &VemoGrid::BtnClick, this, [&](int& row, int& col) {
            QDialog box(&g);
            QTimer::singleShot(0, &box, &QDialog::accept);
            if (dialog)
                box.exec();
            g.setTextMatrix(row, col, QStringLiteral("from the handler"));
        });
        clickCell(g, 1, 1);
        QTest::keyClicks(focused(), QStringLiteral("typed"));
        CellEditor* const editor = openEditor(g);
        QTest::mouseClick(editor, Qt::LeftButton, {}, QPoint(editor->width() - 3, 5));
        g.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&g));
        QVERIFY(g.isAncestorOf(focused()));
        press(Qt::Key_Return);
        QCOMPARE(g.TextMatrix(1, 1), QStringLiteral("from the handler"));
    }

    void randomInputKeepsEveryCellValid()
    {
        // Whatever a user types and clicks, a numeric cell holds nothing but a number's characters.
        VemoGrid& g = makeGrid(QStringLiteral("|Text|Qty|Price|Amount|Paid"), 4);
        for (const int col : {2, 3, 4})
            g.setColType(col, eNumeric);
        g.setColType(5, eCheckBox);
        g.Column(2)->setMaxValue(1000);
        g.setAutoCalc1(2);
        g.setAutoCalc2(3);
        g.setAutoCalcRES(4);
        g.setAutoCalcOPE(QStringLiteral("/"));
        const QList<int> keys = {Qt::Key_Return, Qt::Key_Left,  Qt::Key_Right,  Qt::Key_Up,
                                 Qt::Key_Down,   Qt::Key_Space, Qt::Key_Escape, Qt::Key_Backspace,
                                 Qt::Key_Tab,    Qt::Key_Minus, Qt::Key_Period, Qt::Key_Comma};
        QRandomGenerator random(20261124);
        for (int step = 0; step < 600; ++step) {
            const int choice = random.bounded(10);
            if (choice == 0)
                clickCell(g, 1 + random.bounded(g.Rows() - 1), 1 + random.bounded(5));
            else if (choice < 4)
                QTest::keyClick(focused(), char('0' + random.bounded(10)));
            else if (choice == 4)
                QTest::keyClick(focused(), char('a' + random.bounded(26)));
            else if (choice == 5)
                QTest::keyClick(focused(), Qt::Key_Down, Qt::AltModifier);
            else
                QTest::keyClick(focused(), Qt::Key(keys[random.bounded(keys.size())]));
            if (!g.isAncestorOf(focused()))
                g.setFocus();
            for (int r = 1; r < g.Rows(); ++r) {
                for (const int c : {2, 3}) {
                    const QString text = g.TextMatrix(r, c);
                    QVERIFY2(text.isEmpty() || !text.contains(QRegularExpression("[^0-9.,-]")),
                             qPrintable(QStringLiteral("step %1: %2").arg(step).arg(text)));
                }
            }
        }
    }
};

QTEST_MAIN(tst_VemoGridEditing)
#include "tst_vemogrid_editing.moc"
