// SPDX-License-Identifier: MIT
// FlexGrid driven by the mouse and the keyboard.
#include "FlexTestSupport.h"

#include <QKeySequence>

using namespace VemoGridLib;
using namespace VemoTest;

namespace {

const QStringList KeyMove = {"KeyDown",   "LeaveCell",    "SelChange",
                             "EnterCell", "RowColChange", "KeyUp"};

/// A pointer move with no button held, as the mouse-tracking viewport receives it.
void hover(FlexGrid& grid, QPoint pos)
{
    QMouseEvent event(QEvent::MouseMove, pos, grid.viewport()->mapToGlobal(pos), Qt::NoButton,
                      Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(grid.viewport(), &event);
}

} // namespace

class tst_FlexGridInput : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(pinFontAndDpi()); }
    void init();
    void cleanup();
    void clicks_data();
    void clicks();
    void dragSelectsAndScrolls();
    void keys_data();
    void keys();
    void resizing_data();
    void resizing();

private:
    std::unique_ptr<Scene> m_scene;
    FlexGrid* m_grid = nullptr;
    std::unique_ptr<EventLog> m_log;
};

void tst_FlexGridInput::init()
{
    // 8 rows and 4 columns leave empty space right of and below the cells.
    m_scene = showGrid(8, 4, true);
    QVERIFY(m_scene);
    m_grid = m_scene->grid;
    m_log = std::make_unique<EventLog>(*m_grid);
}

void tst_FlexGridInput::cleanup()
{
    m_log.reset();
    m_scene.reset();
}

void tst_FlexGridInput::clicks_data()
{
    QTest::addColumn<QString>("setup");
    QTest::addColumn<QPoint>("cell");       // (col, row) clicked at its centre
    QTest::addColumn<QPoint>("nudge");      // pixels off the centre; shift held when x is 1
    QTest::addColumn<QList<int>>("cursor"); // Row, Col, RowSel, ColSel afterwards
    QTest::addColumn<QStringList>("events");

    const QStringList click = {"MouseDown", "MouseUp", "Click"};
    const QStringList move =
        QStringList{"LeaveCell", "SelChange", "EnterCell", "RowColChange"} + click;
    const auto add = [](const char* name, const char* setup, QPoint cell, QPoint nudge,
                        const QList<int>& cursor, const QStringList& events) {
        QTest::newRow(name) << setup << cell << nudge << cursor << events;
    };
    add("current cell", "Row=3 Col=2", {2, 3}, {}, {3, 2, 3, 2}, click);
    add("shift extends the selection", "Row=2 Col=2", {3, 5}, {1, 0}, {2, 2, 5, 3},
        {"MouseDown", "SelChange", "MouseUp", "Click"});
    add("below the last row", "", {2, 7}, {0, 30}, {7, 2, 7, 2}, move);
    add("right of the last column", "", {3, 2}, {60, 0}, {2, 3, 2, 3}, move);
    add("header without data rows", "Rows=1", {2, 0}, {}, {0, 1, 0, 1}, click);
    // 60 rows scrolled to TopRow 5, so that TopRow and FixedRows differ.
    const char* big = "Rows=60 Row=3 Col=2 TopRow=5";
    const char* small = "Rows=60 Row=3 Col=2 TopRow=5 AllowBigSelection=false";
    add("column header, small", small, {3, 0}, {}, {5, 3, 5, 3}, move);
    add("row header, small", small, {0, 7}, {}, {7, 1, 7, 1}, move);
    add("corner", big, {0, 0}, {}, {1, 1, 59, 3}, move);
    add("corner, small", small, {0, 0}, {}, {5, 1, 5, 1}, move);
}

void tst_FlexGridInput::clicks()
{
    QFETCH(QString, setup);
    QFETCH(QPoint, cell);
    QFETCH(QPoint, nudge);
    run(*m_grid, setup);
    m_log->clear();
    const bool shift = nudge == QPoint(1, 0);
    const QPoint pos = cellRect(*m_grid, cell.y(), cell.x()).center() + nudge;

    hover(*m_grid, pos);
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton,
                      shift ? Qt::ShiftModifier : Qt::NoModifier, pos);

    QTEST(cursorOf(*m_grid), "cursor");
    QTEST(m_log->names, "events");
    QCOMPARE(QPoint(m_grid->MouseCol(), m_grid->MouseRow()), cell);
}

void tst_FlexGridInput::dragSelectsAndScrolls()
{
    // SelChange waits for the release; below the viewport the grid keeps scrolling.
    fill(*m_grid, 60, 4, true);
    QVERIFY(setViewport(*m_grid, Viewport));
    QWidget* const viewport = m_grid->viewport();
    const QPoint start = cellRect(*m_grid, 2, 2).center();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, start);
    m_log->clear();
    QTest::mouseMove(viewport, cellRect(*m_grid, 4, 3).center());
    QCOMPARE(cursorOf(*m_grid), QList<int>({2, 2, 4, 3}));
    QCOMPARE(m_log->names, QStringList());
    QTest::mouseMove(viewport, start);
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, start);
    QCOMPARE(m_log->names, QStringList({"MouseUp", "Click"}));

    const QPoint below(start.x(), viewport->height() + 10);
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, start);
    m_log->clear();
    QTest::mouseMove(viewport, below);
    QCOMPARE(m_grid->TopRow(), 2);
    QCOMPARE(m_log->names, QStringList({"Scroll"}));
    QCOMPARE(m_grid->RowSel(), 1 + VisibleRows);
    QTRY_VERIFY_WITH_TIMEOUT(m_grid->TopRow() >= 5, 2000);
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, below);
    const int top = m_grid->TopRow();
    QTest::qWait(200);
    QCOMPARE(m_grid->TopRow(), top);
    QCOMPARE(m_grid->Row(), 2);
    QCOMPARE(m_log->names.count("SelChange"), 1);
    QVERIFY(!m_log->names.contains("Click")); // released outside the control
}

void tst_FlexGridInput::keys_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("setup");     // on 8 rows and 4 columns, one fixed row and column
    QTest::addColumn<QList<int>>("cursor"); // Row, Col, RowSel, ColSel afterwards
    const auto add = [](const char* key, const char* setup, const QList<int>& cursor) {
        QTest::addRow("%s %s", key, setup) << key << setup << cursor;
    };
    add("Left", "Row=2 Col=2", {2, 1, 2, 1});
    add("Up", "Row=1 Col=2", {1, 2, 1, 2});
    add("Down", "RowHeight(3,0) Row=2 Col=2", {4, 2, 4, 2});
    add("Right", "ColWidth(2,0) Row=2 Col=1", {2, 3, 2, 3});
    add("Home", "ColWidth(1,0) Row=4 Col=3", {4, 2, 4, 2});
    add("End", "Row=4 Col=1", {4, 3, 4, 3});
    add("PgDown", "Row=2 Col=2", {7, 2, 7, 2});
    add("PgUp", "Row=6 Col=2", {1, 2, 1, 2});
    add("Ctrl+Home", "Row=4 Col=3", {1, 1, 1, 1});
    add("Ctrl+End", "RowHeight(7,0) Row=4 Col=1", {6, 3, 6, 3});
    add("Alt+Down", "Row=2 Col=2", {2, 2, 2, 2});
    add("Shift+Down", "Row=2 Col=2 RowSel=3", {2, 2, 4, 2});
    add("Shift+Right", "Row=2 Col=2", {2, 2, 2, 3});
}

void tst_FlexGridInput::keys()
{
    QFETCH(QString, key);
    QFETCH(QString, setup);
    QFETCH(QList<int>, cursor);
    run(*m_grid, setup);
    const QList<int> before = cursorOf(*m_grid);
    m_log->clear();
    const QKeyCombination combination = QKeySequence::fromString(key)[0];

    QTest::keyClick(m_grid, combination.key(), combination.keyboardModifiers());

    QCOMPARE(cursorOf(*m_grid), cursor);
    const QStringList events = cursor.mid(0, 2) != before.mid(0, 2) ? KeyMove
                               : cursor != before ? QStringList{"KeyDown", "SelChange", "KeyUp"}
                                                  : QStringList{"KeyDown", "KeyUp"};
    QCOMPARE(m_log->names, events);
}

void tst_FlexGridInput::resizing_data()
{
    QTest::addColumn<int>("allowUserResizing");
    QTest::addColumn<bool>("column"); // the line right of column 2's header, or below row 3's
    QTest::addColumn<int>("drag");
    QTest::addColumn<int>("size");
    const auto add = [](const char* name, int allow, bool column, int drag, int size) {
        QTest::newRow(name) << allow << column << drag << size;
    };
    add("columns, down to zero", 1, true, -100, 0);
    add("none", 0, true, 30, ColTwips);
    add("rows", 2, false, 10, RowTwips + 150);
    add("columns only, row", 1, false, 10, RowTwips);
}

void tst_FlexGridInput::resizing()
{
    QFETCH(int, allowUserResizing);
    QFETCH(bool, column);
    QFETCH(int, drag);
    QFETCH(int, size);
    m_grid->setAllowUserResizing(allowUserResizing);
    QWidget* const viewport = m_grid->viewport();
    const QRect header = column ? cellRect(*m_grid, 0, 2) : cellRect(*m_grid, 3, 0);
    const QPoint line = column ? QPoint(header.right(), header.center().y())
                               : QPoint(header.center().x(), header.bottom());
    const QPoint target = line + (column ? QPoint(drag, 0) : QPoint(0, drag));
    hover(*m_grid, line);
    const bool grip = size != (column ? ColTwips : RowTwips);
    QCOMPARE(viewport->cursor().shape(), !grip    ? Qt::ArrowCursor
                                         : column ? Qt::SplitHCursor
                                                  : Qt::SplitVCursor);
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, line);
    QTest::mouseMove(viewport, target);
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, target);
    QCOMPARE(column ? m_grid->ColWidth(2) : m_grid->RowHeight(3), size);
    // A resize is no header click: the cell stays and no Click follows.
    QCOMPARE(m_log->names.contains("Click"), !grip);
}

QTEST_MAIN(tst_FlexGridInput)
#include "tst_flexgrid_input.moc"
