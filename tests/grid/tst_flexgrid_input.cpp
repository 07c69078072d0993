// FlexGrid driven by the mouse, the wheel, the keyboard and the scroll bars (flexgrid-reference.md
// §6, §7, §12, §14 item 12, §15 "Keyboard" and "Header click").
#include <VemoGridLib/VbKeys.h>
#include <VemoGridLib/FlexEnums.h>
#include <VemoGridLib/FlexGrid.h>

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <memory>

using namespace VemoGridLib;

namespace {

constexpr int TwipsPerPixel = 15; // the offscreen platform's 96 dpi
constexpr int RowHeightTwips = 300;
constexpr int ColWidthTwips = 1050;
constexpr QSize GridSize(500, 260);

const QStringList ClickOnNewCell = {"LeaveCell", "SelChange", "EnterCell", "RowColChange",
                                    "MouseDown", "MouseUp",   "Click"};
const QStringList KeyMove = {"KeyDown",   "LeaveCell",    "SelChange",
                             "EnterCell", "RowColChange", "KeyUp"};
const QStringList KeyWithoutMove = {"KeyDown", "KeyUp"};

int px(int twips)
{
    return twips / TwipsPerPixel;
}

/// The cell's rectangle in viewport pixels, from the public geometry.
QRect cellRect(const FlexGrid& grid, int row, int col)
{
    return QRect(px(grid.ColPos(col)), px(grid.RowPos(row)), px(grid.ColWidth(col)),
                 px(grid.RowHeight(row)));
}

QPoint centerOf(const FlexGrid& grid, int row, int col)
{
    return cellRect(grid, row, col).center();
}

/// The rows from TopRow on that fit wholly in the viewport.
int fullyVisibleRows(const FlexGrid& grid)
{
    const int bottom = grid.viewport()->height() * TwipsPerPixel;
    int count = 0;
    for (int r = grid.TopRow(); r < grid.Rows() && grid.RowPos(r) + grid.RowHeight(r) <= bottom;
         ++r)
        ++count;
    return count;
}

/// QTest presses and releases the modifier keys around a key, as a keyboard does; the grid
/// reports those keys too, and the logs leave them out.
bool isModifierKey(short keyCode)
{
    return keyCode == vbKeyShift || keyCode == vbKeyControl || keyCode == vbKeyMenu;
}

void sendWheel(FlexGrid& grid, QPoint angleDelta)
{
    const QPointF pos = grid.viewport()->rect().center();
    QWheelEvent event(pos, grid.viewport()->mapToGlobal(pos), QPoint(), angleDelta, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(grid.viewport(), &event);
}

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
    void initTestCase();
    void init();
    void cleanup();

    void clickOnDataCellMovesThere_data();
    void clickOnDataCellMovesThere();
    void clickOnCurrentCellFiresNoCellEvents();
    void dragExtendsSelectionAndReportsAtRelease();
    void dragBackToItsStartReportsNothing();
    void dragBelowTheViewportScrolls();
    void dragHeldBelowTheViewportKeepsScrolling();
    void shiftClickExtendsFromCurrentCell();
    void headerClick_data();
    void headerClick();
    void headerClickWithoutDataRowsMovesNothing();
    void pointerPastLastCellIsClamped_data();
    void pointerPastLastCellIsClamped();
    void mouseDownReportsButtonShiftAndTwips_data();
    void mouseDownReportsButtonShiftAndTwips();
    void mouseMoveReportsHeldButtons();
    void doubleClickOrder();

    void navigationKeys_data();
    void navigationKeys();
    void shiftArrowsExtendSelection();
    void pageKeysMoveAndScrollByAPage();
    void downPastTheBottomScrollsIntoView();
    void keyDownSettingZeroCancelsMove();
    void keyDownHandlerMovingTheCellGetsNoSecondMove();
    void keyPressReceivesKeyAscii_data();
    void keyPressReceivesKeyAscii();
    void keyUpReportsCodeAndShift();

    void wheelScrollsWithoutMovingTheCell_data();
    void wheelScrollsWithoutMovingTheCell();
    void horizontalWheelScrollsColumns();
    void scrollBarMovesTopRowByWholeRows_data();
    void scrollBarMovesTopRowByWholeRows();
    void scrollTrackDecidesWhenTheThumbScrolls_data();
    void scrollTrackDecidesWhenTheThumbScrolls();
    void noScrollingInADirectionWithoutABar_data();
    void noScrollingInADirectionWithoutABar();

    void columnResize_data();
    void columnResize();
    void rowResize_data();
    void rowResize();
    void resizeZoneShowsSplitCursor();
    void mousePointerCursor_data();
    void mousePointerCursor();

private:
    /// Rows × Cols with texts "r,c", FixedRows/FixedCols 1, every row 20 px and column 70 px.
    void fill(int rows, int cols);
    void record();
    void clickCell(int row, int col, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    std::unique_ptr<FlexGrid> m_grid;
    QStringList m_log;
};

void tst_FlexGridInput::initTestCase()
{
    QApplication::setFont(QFont("DejaVu Sans", 9));
}

void tst_FlexGridInput::init()
{
    m_log.clear();
    m_grid = std::make_unique<FlexGrid>();
    fill(10, 6);
    m_grid->resize(GridSize);
    m_grid->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_grid.get()));
    record();
}

void tst_FlexGridInput::cleanup()
{
    m_grid.reset();
}

void tst_FlexGridInput::fill(int rows, int cols)
{
    m_grid->setRows(rows);
    m_grid->setCols(cols);
    for (int r = 0; r < rows; ++r) {
        m_grid->setRowHeight(r, RowHeightTwips);
        for (int c = 0; c < cols; ++c)
            m_grid->setTextMatrix(r, c, QStringLiteral("%1,%2").arg(r).arg(c));
    }
    for (int c = 0; c < cols; ++c)
        m_grid->setColWidth(c, ColWidthTwips);
    // The scroll area shows or hides its bars from the event loop.
    QCoreApplication::processEvents();
}

void tst_FlexGridInput::record()
{
    FlexGrid* const grid = m_grid.get();
    QStringList* const log = &m_log;
    const auto logs = [log](const char* name) {
        return [log, name] {
            log->append(name);
        };
    };
    connect(grid, &FlexGrid::LeaveCell, grid, logs("LeaveCell"));
    connect(grid, &FlexGrid::EnterCell, grid, logs("EnterCell"));
    connect(grid, &FlexGrid::RowColChange, grid, logs("RowColChange"));
    connect(grid, &FlexGrid::SelChange, grid, logs("SelChange"));
    connect(grid, &FlexGrid::Scroll, grid, logs("Scroll"));
    connect(grid, &FlexGrid::Click, grid, logs("Click"));
    connect(grid, &FlexGrid::DblClick, grid, logs("DblClick"));
    connect(grid, &FlexGrid::MouseDown, grid,
            [log](short, short, float, float) { log->append("MouseDown"); });
    connect(grid, &FlexGrid::MouseUp, grid,
            [log](short, short, float, float) { log->append("MouseUp"); });
    connect(grid, &FlexGrid::KeyDown, grid, [log](short& keyCode, short&) {
        if (!isModifierKey(keyCode))
            log->append("KeyDown");
    });
    connect(grid, &FlexGrid::KeyPress, grid, [log](short&) { log->append("KeyPress"); });
    connect(grid, &FlexGrid::KeyUp, grid, [log](short& keyCode, short&) {
        if (!isModifierKey(keyCode))
            log->append("KeyUp");
    });
}

void tst_FlexGridInput::clickCell(int row, int col, Qt::KeyboardModifiers modifiers)
{
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, modifiers, centerOf(*m_grid, row, col));
}

// ---- mouse ----------------------------------------------------------------------------------

void tst_FlexGridInput::clickOnDataCellMovesThere_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::newRow("inside") << 3 << 2;
    QTest::newRow("same row") << 1 << 4;
    QTest::newRow("last cell") << 9 << 5;
}

void tst_FlexGridInput::clickOnDataCellMovesThere()
{
    QFETCH(int, row);
    QFETCH(int, col);
    clickCell(row, col);
    QCOMPARE(m_grid->Row(), row);
    QCOMPARE(m_grid->Col(), col);
    QCOMPARE(m_grid->RowSel(), row);
    QCOMPARE(m_grid->ColSel(), col);
    QCOMPARE(m_log, ClickOnNewCell);
}

void tst_FlexGridInput::clickOnCurrentCellFiresNoCellEvents()
{
    clickCell(4, 3);
    m_log.clear();
    clickCell(4, 3);
    QCOMPARE(m_log, QStringList({"MouseDown", "MouseUp", "Click"}));
    QCOMPARE(m_grid->Row(), 4);
    QCOMPARE(m_grid->Col(), 3);
}

void tst_FlexGridInput::dragExtendsSelectionAndReportsAtRelease()
{
    QWidget* const viewport = m_grid->viewport();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, centerOf(*m_grid, 2, 2));
    QCOMPARE(m_log.count("SelChange"), 1);
    m_log.clear();
    QTest::mouseMove(viewport, centerOf(*m_grid, 3, 3));
    QTest::mouseMove(viewport, centerOf(*m_grid, 4, 3));
    QCOMPARE(m_grid->RowSel(), 4); // live while dragging
    QCOMPARE(m_grid->ColSel(), 3);
    QVERIFY(m_log.isEmpty());
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, centerOf(*m_grid, 4, 3));
    QCOMPARE(m_log, QStringList({"SelChange", "MouseUp", "Click"}));
    QCOMPARE(m_grid->Row(), 2);
    QCOMPARE(m_grid->Col(), 2);
    QCOMPARE(m_grid->RowSel(), 4);
    QCOMPARE(m_grid->ColSel(), 3);
}

void tst_FlexGridInput::dragBackToItsStartReportsNothing()
{
    QWidget* const viewport = m_grid->viewport();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, centerOf(*m_grid, 2, 2));
    QTest::mouseMove(viewport, centerOf(*m_grid, 5, 4));
    QTest::mouseMove(viewport, centerOf(*m_grid, 2, 2));
    m_log.clear();
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, centerOf(*m_grid, 2, 2));
    QCOMPARE(m_log, QStringList({"MouseUp", "Click"}));
    QCOMPARE(m_grid->RowSel(), 2);
    QCOMPARE(m_grid->ColSel(), 2);
}

void tst_FlexGridInput::dragBelowTheViewportScrolls()
{
    fill(60, 6);
    QWidget* const viewport = m_grid->viewport();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, centerOf(*m_grid, 2, 2));
    m_log.clear();
    QTest::mouseMove(viewport, QPoint(centerOf(*m_grid, 2, 2).x(), viewport->height() + 10));
    QCOMPARE(m_grid->TopRow(), 2);
    QCOMPARE(m_log, QStringList({"Scroll"}));
    // The selection reaches the row at the viewport's bottom edge.
    const int bottomTwips = (viewport->height() - 1) * TwipsPerPixel;
    const int rowSel = m_grid->RowSel();
    QVERIFY(m_grid->RowPos(rowSel) <= bottomTwips);
    QVERIFY(m_grid->RowPos(rowSel) + m_grid->RowHeight(rowSel) > bottomTwips);
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier,
                        QPoint(centerOf(*m_grid, 2, 2).x(), viewport->height() + 10));
    QCOMPARE(m_grid->Row(), 2);
    QCOMPARE(m_log.count("SelChange"), 1);
    QVERIFY(!m_log.contains("Click")); // released outside the control
}

void tst_FlexGridInput::dragHeldBelowTheViewportKeepsScrolling()
{
    fill(60, 6);
    QWidget* const viewport = m_grid->viewport();
    const QPoint below(centerOf(*m_grid, 2, 2).x(), viewport->height() + 10);
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, centerOf(*m_grid, 2, 2));
    QTest::mouseMove(viewport, below);
    const int topAfterMove = m_grid->TopRow();
    // The pointer rests: the drag-scroll timer goes on stepping row by row.
    QTRY_VERIFY_WITH_TIMEOUT(m_grid->TopRow() >= topAfterMove + 3, 2000);
    QVERIFY(m_grid->RowSel() >= m_grid->TopRow());
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, below);
    const int topAfterRelease = m_grid->TopRow();
    QTest::qWait(200);
    QCOMPARE(m_grid->TopRow(), topAfterRelease);
}

void tst_FlexGridInput::shiftClickExtendsFromCurrentCell()
{
    m_grid->setRow(2);
    m_grid->setCol(2);
    QSignalSpy mouseDown(m_grid.get(), &FlexGrid::MouseDown);
    m_log.clear();
    clickCell(5, 4, Qt::ShiftModifier);
    QCOMPARE(m_grid->Row(), 2);
    QCOMPARE(m_grid->Col(), 2);
    QCOMPARE(m_grid->RowSel(), 5);
    QCOMPARE(m_grid->ColSel(), 4);
    QCOMPARE(m_log, QStringList({"MouseDown", "SelChange", "MouseUp", "Click"}));
    QCOMPARE(mouseDown.at(0).at(1).value<short>(), short(1));
}

void tst_FlexGridInput::headerClick_data()
{
    QTest::addColumn<bool>("bigSelection");
    QTest::addColumn<int>("hitRow");
    QTest::addColumn<int>("hitCol");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<int>("rowSel");
    QTest::addColumn<int>("colSel");
    // 60 rows scrolled to TopRow 5, so TopRow and FixedRows differ.
    QTest::newRow("column header, big") << true << 0 << 3 << 1 << 3 << 59 << 3;
    QTest::newRow("column header, not big") << false << 0 << 3 << 5 << 3 << 5 << 3;
    QTest::newRow("row header, big") << true << 7 << 0 << 7 << 1 << 7 << 5;
    QTest::newRow("row header, not big") << false << 7 << 0 << 7 << 1 << 7 << 1;
    QTest::newRow("corner, big") << true << 0 << 0 << 1 << 1 << 59 << 5;
    QTest::newRow("corner, not big") << false << 0 << 0 << 5 << 1 << 5 << 1;
}

void tst_FlexGridInput::headerClick()
{
    QFETCH(bool, bigSelection);
    QFETCH(int, hitRow);
    QFETCH(int, hitCol);
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(int, rowSel);
    QFETCH(int, colSel);
    fill(60, 6);
    m_grid->setAllowBigSelection(bigSelection);
    m_grid->setRow(3);
    m_grid->setCol(2);
    m_grid->setTopRow(5);
    QCOMPARE(m_grid->TopRow(), 5);
    m_log.clear();
    clickCell(hitRow, hitCol);
    QCOMPARE(m_grid->Row(), row);
    QCOMPARE(m_grid->Col(), col);
    QCOMPARE(m_grid->RowSel(), rowSel);
    QCOMPARE(m_grid->ColSel(), colSel);
    QCOMPARE(m_log, ClickOnNewCell);
    QCOMPARE(m_grid->MouseRow(), hitRow);
    QCOMPARE(m_grid->MouseCol(), hitCol);
}

void tst_FlexGridInput::headerClickWithoutDataRowsMovesNothing()
{
    m_grid->setRows(1);
    m_log.clear();
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, Qt::NoModifier, centerOf(*m_grid, 0, 2));
    QCOMPARE(m_log, QStringList({"MouseDown", "MouseUp", "Click"}));
}

void tst_FlexGridInput::pointerPastLastCellIsClamped_data()
{
    QTest::addColumn<QPoint>("pos");
    QTest::addColumn<int>("mouseRow");
    QTest::addColumn<int>("mouseCol");
    // 10 rows of 20 px and 6 columns of 70 px leave empty space right of and below the cells.
    QTest::newRow("below the last row") << QPoint(150, 230) << 9 << 2;
    QTest::newRow("right of the last column") << QPoint(470, 50) << 2 << 5;
    QTest::newRow("past both") << QPoint(470, 230) << 9 << 5;
}

void tst_FlexGridInput::pointerPastLastCellIsClamped()
{
    QFETCH(QPoint, pos);
    QFETCH(int, mouseRow);
    QFETCH(int, mouseCol);
    hover(*m_grid, pos);
    QCOMPARE(m_grid->MouseRow(), mouseRow);
    QCOMPARE(m_grid->MouseCol(), mouseCol);
    // A click there is a click on the clamped cell.
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
    QCOMPARE(m_grid->Row(), mouseRow);
    QCOMPARE(m_grid->Col(), mouseCol);
    QCOMPARE(m_log, ClickOnNewCell);
}

void tst_FlexGridInput::mouseDownReportsButtonShiftAndTwips_data()
{
    QTest::addColumn<Qt::MouseButton>("qtButton");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<short>("button");
    QTest::addColumn<short>("shift");
    QTest::addColumn<bool>("moves");
    QTest::newRow("left") << Qt::LeftButton << Qt::KeyboardModifiers() << short(1) << short(0)
                          << true;
    QTest::newRow("left with ctrl") << Qt::LeftButton << Qt::KeyboardModifiers(Qt::ControlModifier)
                                    << short(1) << short(2) << true;
    QTest::newRow("left with alt")
        << Qt::LeftButton << Qt::KeyboardModifiers(Qt::AltModifier) << short(1) << short(4) << true;
    QTest::newRow("right") << Qt::RightButton << Qt::KeyboardModifiers() << short(2) << short(0)
                           << false;
    QTest::newRow("middle") << Qt::MiddleButton << Qt::KeyboardModifiers() << short(4) << short(0)
                            << false;
}

void tst_FlexGridInput::mouseDownReportsButtonShiftAndTwips()
{
    QFETCH(Qt::MouseButton, qtButton);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(short, button);
    QFETCH(short, shift);
    QFETCH(bool, moves);
    QSignalSpy mouseDown(m_grid.get(), &FlexGrid::MouseDown);
    QSignalSpy mouseUp(m_grid.get(), &FlexGrid::MouseUp);
    const QPoint pos(160, 75); // inside cell (3, 2)
    QTest::mouseClick(m_grid->viewport(), qtButton, modifiers, pos);
    QCOMPARE(mouseDown.count(), 1);
    QCOMPARE(mouseDown.at(0).at(0).value<short>(), button);
    QCOMPARE(mouseDown.at(0).at(1).value<short>(), shift);
    QCOMPARE(mouseDown.at(0).at(2).toFloat(), float(pos.x() * TwipsPerPixel));
    QCOMPARE(mouseDown.at(0).at(3).toFloat(), float(pos.y() * TwipsPerPixel));
    QCOMPARE(mouseUp.count(), 1);
    QCOMPARE(mouseUp.at(0).at(0).value<short>(), button);
    // Only the left button moves the current cell and clicks.
    QCOMPARE(m_grid->Row(), moves ? 3 : 1);
    QCOMPARE(m_grid->Col(), moves ? 2 : 1);
    QCOMPARE(m_log.contains("Click"), moves);
}

void tst_FlexGridInput::mouseMoveReportsHeldButtons()
{
    QSignalSpy mouseMove(m_grid.get(), &FlexGrid::MouseMove);
    hover(*m_grid, QPoint(100, 40));
    QTest::mousePress(m_grid->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 40));
    QTest::mouseMove(m_grid->viewport(), QPoint(110, 70));
    QTest::mouseRelease(m_grid->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(110, 70));
    QCOMPARE(mouseMove.count(), 2);
    QCOMPARE(mouseMove.at(0).at(0).value<short>(), short(0));
    QCOMPARE(mouseMove.at(0).at(2).toFloat(), 1500.0f);
    QCOMPARE(mouseMove.at(0).at(3).toFloat(), 600.0f);
    QCOMPARE(mouseMove.at(1).at(0).value<short>(), short(1));
    QCOMPARE(mouseMove.at(1).at(2).toFloat(), 1650.0f);
    QCOMPARE(mouseMove.at(1).at(3).toFloat(), 1050.0f);
}

void tst_FlexGridInput::doubleClickOrder()
{
    // Qt's sequence for a double click: press, release, double click, release.
    QWidget* const viewport = m_grid->viewport();
    const QPoint pos = centerOf(*m_grid, 3, 2);
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, pos);
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, pos);
    QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, pos);
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, pos);
    QCOMPARE(m_log, ClickOnNewCell + QStringList({"DblClick", "MouseUp"}));
}

// ---- keyboard -------------------------------------------------------------------------------

void tst_FlexGridInput::navigationKeys_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QPoint>("from"); // (col, row)
    QTest::addColumn<int>("hiddenRow");
    QTest::addColumn<int>("hiddenCol");
    QTest::addColumn<QPoint>("to");
    const Qt::KeyboardModifiers none;
    const Qt::KeyboardModifiers ctrl(Qt::ControlModifier);
    QTest::newRow("down") << Qt::Key_Down << none << QPoint(2, 2) << -1 << -1 << QPoint(2, 3);
    QTest::newRow("up") << Qt::Key_Up << none << QPoint(2, 2) << -1 << -1 << QPoint(2, 1);
    QTest::newRow("right") << Qt::Key_Right << none << QPoint(2, 2) << -1 << -1 << QPoint(3, 2);
    QTest::newRow("left") << Qt::Key_Left << none << QPoint(2, 2) << -1 << -1 << QPoint(1, 2);
    QTest::newRow("up at the top")
        << Qt::Key_Up << none << QPoint(2, 1) << -1 << -1 << QPoint(2, 1);
    QTest::newRow("down at the bottom")
        << Qt::Key_Down << none << QPoint(2, 9) << -1 << -1 << QPoint(2, 9);
    QTest::newRow("left at the left edge")
        << Qt::Key_Left << none << QPoint(1, 2) << -1 << -1 << QPoint(1, 2);
    QTest::newRow("right at the right edge")
        << Qt::Key_Right << none << QPoint(5, 2) << -1 << -1 << QPoint(5, 2);
    QTest::newRow("down over a hidden row")
        << Qt::Key_Down << none << QPoint(2, 2) << 3 << -1 << QPoint(2, 4);
    QTest::newRow("up over a hidden row")
        << Qt::Key_Up << none << QPoint(2, 4) << 3 << -1 << QPoint(2, 2);
    QTest::newRow("down onto a hidden last row")
        << Qt::Key_Down << none << QPoint(2, 8) << 9 << -1 << QPoint(2, 8);
    QTest::newRow("right over a hidden column")
        << Qt::Key_Right << none << QPoint(2, 2) << -1 << 3 << QPoint(4, 2);
    QTest::newRow("left over a hidden column")
        << Qt::Key_Left << none << QPoint(4, 2) << -1 << 3 << QPoint(2, 2);
    QTest::newRow("home") << Qt::Key_Home << none << QPoint(4, 4) << -1 << -1 << QPoint(1, 4);
    QTest::newRow("home, first column hidden")
        << Qt::Key_Home << none << QPoint(4, 4) << -1 << 1 << QPoint(2, 4);
    QTest::newRow("end") << Qt::Key_End << none << QPoint(2, 4) << -1 << -1 << QPoint(5, 4);
    QTest::newRow("ctrl+home") << Qt::Key_Home << ctrl << QPoint(4, 4) << -1 << -1 << QPoint(1, 1);
    QTest::newRow("ctrl+end") << Qt::Key_End << ctrl << QPoint(2, 4) << -1 << -1 << QPoint(5, 9);
    QTest::newRow("ctrl+end, last row hidden")
        << Qt::Key_End << ctrl << QPoint(2, 4) << 9 << -1 << QPoint(5, 8);
    QTest::newRow("alt+down is not navigation")
        << Qt::Key_Down << Qt::KeyboardModifiers(Qt::AltModifier) << QPoint(2, 2) << -1 << -1
        << QPoint(2, 2);
}

void tst_FlexGridInput::navigationKeys()
{
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QPoint, from);
    QFETCH(int, hiddenRow);
    QFETCH(int, hiddenCol);
    QFETCH(QPoint, to);
    if (hiddenRow >= 0)
        m_grid->setRowHeight(hiddenRow, 0);
    if (hiddenCol >= 0)
        m_grid->setColWidth(hiddenCol, 0);
    m_grid->setRow(from.y());
    m_grid->setCol(from.x());
    m_log.clear();
    QTest::keyClick(m_grid.get(), key, modifiers);
    QCOMPARE(m_grid->Row(), to.y());
    QCOMPARE(m_grid->Col(), to.x());
    QCOMPARE(m_grid->RowSel(), to.y());
    QCOMPARE(m_grid->ColSel(), to.x());
    QCOMPARE(m_log, to == from ? KeyWithoutMove : KeyMove);
}

void tst_FlexGridInput::shiftArrowsExtendSelection()
{
    m_grid->setRow(2);
    m_grid->setCol(2);
    m_log.clear();
    QTest::keyClick(m_grid.get(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(m_grid.get(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(m_grid.get(), Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(m_grid->Row(), 2);
    QCOMPARE(m_grid->Col(), 2);
    QCOMPARE(m_grid->RowSel(), 4);
    QCOMPARE(m_grid->ColSel(), 3);
    const QStringList extend = {"KeyDown", "SelChange", "KeyUp"};
    QCOMPARE(m_log, extend + extend + extend);
    // A plain arrow moves from the current cell and collapses the selection.
    QTest::keyClick(m_grid.get(), Qt::Key_Down);
    QCOMPARE(m_grid->Row(), 3);
    QCOMPARE(m_grid->RowSel(), 3);
    QCOMPARE(m_grid->ColSel(), 2);
}

void tst_FlexGridInput::pageKeysMoveAndScrollByAPage()
{
    fill(60, 6);
    const int page = fullyVisibleRows(*m_grid);
    QVERIFY(page > 3);
    m_log.clear();
    QTest::keyClick(m_grid.get(), Qt::Key_PageDown);
    QCOMPARE(m_grid->Row(), 1 + page);
    QCOMPARE(m_grid->TopRow(), 1 + page);
    QCOMPARE(m_log, QStringList({"KeyDown", "LeaveCell", "SelChange", "EnterCell", "RowColChange",
                                 "Scroll", "KeyUp"}));
    QTest::keyClick(m_grid.get(), Qt::Key_Down);
    QTest::keyClick(m_grid.get(), Qt::Key_PageUp);
    QCOMPARE(m_grid->Row(), 2);
    QCOMPARE(m_grid->TopRow(), 1);
    // At the end the cell stops at the last row and TopRow at its largest value.
    for (int i = 0; i < 60 / page + 1; ++i)
        QTest::keyClick(m_grid.get(), Qt::Key_PageDown);
    QCOMPARE(m_grid->Row(), 59);
    QVERIFY(m_grid->RowIsVisible(59));
    QCOMPARE(m_grid->TopRow(), 60 - fullyVisibleRows(*m_grid));
}

void tst_FlexGridInput::downPastTheBottomScrollsIntoView()
{
    fill(60, 6);
    const int lastWhole = fullyVisibleRows(*m_grid); // TopRow is 1
    m_grid->setRow(lastWhole);
    m_log.clear();
    QTest::keyClick(m_grid.get(), Qt::Key_Down);
    QCOMPARE(m_grid->Row(), lastWhole + 1);
    QVERIFY(m_grid->TopRow() > 1);
    const int bottom = m_grid->viewport()->height() * TwipsPerPixel;
    QVERIFY(m_grid->RowPos(lastWhole + 1) + m_grid->RowHeight(lastWhole + 1) <= bottom);
    QCOMPARE(m_log, QStringList({"KeyDown", "LeaveCell", "SelChange", "EnterCell", "RowColChange",
                                 "Scroll", "KeyUp"}));
}

void tst_FlexGridInput::keyDownSettingZeroCancelsMove()
{
    connect(m_grid.get(), &FlexGrid::KeyDown, m_grid.get(),
            [](short& keyCode, short&) { keyCode = 0; });
    m_grid->setRow(2);
    m_log.clear();
    QTest::keyClick(m_grid.get(), Qt::Key_Down);
    QCOMPARE(m_grid->Row(), 2);
    QCOMPARE(m_log, KeyWithoutMove);
}

void tst_FlexGridInput::keyDownHandlerMovingTheCellGetsNoSecondMove()
{
    FlexGrid* const grid = m_grid.get();
    connect(grid, &FlexGrid::KeyDown, grid, [grid](short& keyCode, short&) {
        if (keyCode == vbKeyDown)
            grid->setRow(grid->Row() + 1);
    });
    m_grid->setRow(2);
    m_grid->setCol(2);
    m_log.clear();
    QTest::keyClick(grid, Qt::Key_Down);
    QCOMPARE(grid->Row(), 3);
    QCOMPARE(m_log, QStringList({"KeyDown", "LeaveCell", "SelChange", "EnterCell", "RowColChange",
                                 "KeyUp"}));
    // A handler that does not move leaves the grid its own move.
    QTest::keyClick(grid, Qt::Key_Right);
    QCOMPARE(grid->Col(), 3);
}

void tst_FlexGridInput::keyPressReceivesKeyAscii_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<short>("keyCode");
    QTest::addColumn<short>("keyAscii");
    const Qt::KeyboardModifiers none;
    QTest::newRow("a") << Qt::Key_A << "a" << none << vbKeyA << short('a');
    QTest::newRow("shift+a") << Qt::Key_A << "A" << Qt::KeyboardModifiers(Qt::ShiftModifier)
                             << vbKeyA << short('A');
    QTest::newRow("5") << Qt::Key_5 << "5" << none << vbKey5 << short('5');
    QTest::newRow("enter") << Qt::Key_Return << "\r" << none << vbKeyReturn << short(13);
    QTest::newRow("backspace") << Qt::Key_Backspace << "\b" << none << vbKeyBack << short(8);
    QTest::newRow("escape") << Qt::Key_Escape << "\x1b" << none << vbKeyEscape << short(27);
}

void tst_FlexGridInput::keyPressReceivesKeyAscii()
{
    QFETCH(Qt::Key, key);
    QFETCH(QString, text);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(short, keyCode);
    QFETCH(short, keyAscii);
    QList<short> keyCodes;
    QList<short> keyAsciis;
    const QObject receiver;
    connect(m_grid.get(), &FlexGrid::KeyDown, &receiver, [&keyCodes](short& code, short&) {
        if (!isModifierKey(code))
            keyCodes.append(code);
    });
    connect(m_grid.get(), &FlexGrid::KeyPress, &receiver,
            [&keyAsciis](short& ascii) { keyAsciis.append(ascii); });
    QTest::sendKeyEvent(QTest::Click, m_grid.get(), key, text, modifiers);
    QCOMPARE(keyCodes, QList<short>({keyCode}));
    QCOMPARE(keyAsciis, QList<short>({keyAscii}));
    QCOMPARE(m_log, QStringList({"KeyDown", "KeyPress", "KeyUp"}));
    QCOMPARE(m_grid->Row(), 1); // no built-in reaction to these keys
}

void tst_FlexGridInput::keyUpReportsCodeAndShift()
{
    QList<QPair<short, short>> keyUps;
    const QObject receiver;
    connect(m_grid.get(), &FlexGrid::KeyUp, &receiver, [&keyUps](short& code, short& shift) {
        if (!isModifierKey(code))
            keyUps.append({code, shift});
    });
    QTest::keyClick(m_grid.get(), Qt::Key_Down);
    QTest::keyClick(m_grid.get(), Qt::Key_F2, Qt::ShiftModifier | Qt::ControlModifier);
    const QList<QPair<short, short>> expected = {{vbKeyDown, short(0)}, {vbKeyF2, short(3)}};
    QCOMPARE(keyUps, expected);
}

// ---- wheel and scroll bars ------------------------------------------------------------------

void tst_FlexGridInput::wheelScrollsWithoutMovingTheCell_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("step");
    QTest::newRow("three rows a notch") << GridSize.height() << 3;
    // 20 px header + two whole rows of 20 px: a page is fewer than three rows.
    QTest::newRow("one page when fewer fit") << 2 + 20 + 2 * 20 + 10 << 2;
}

void tst_FlexGridInput::wheelScrollsWithoutMovingTheCell()
{
    QFETCH(int, height);
    QFETCH(int, step);
    fill(60, 6);
    m_grid->resize(GridSize.width(), height);
    m_grid->setRow(2);
    m_log.clear();
    sendWheel(*m_grid, QPoint(0, -120));
    QCOMPARE(m_grid->TopRow(), 1 + step);
    sendWheel(*m_grid, QPoint(0, -240));
    QCOMPARE(m_grid->TopRow(), 1 + 3 * step);
    sendWheel(*m_grid, QPoint(0, 120));
    QCOMPARE(m_grid->TopRow(), 1 + 2 * step);
    QCOMPARE(m_log, QStringList({"Scroll", "Scroll", "Scroll"}));
    QCOMPARE(m_grid->Row(), 2);
}

void tst_FlexGridInput::horizontalWheelScrollsColumns()
{
    fill(10, 30);
    m_log.clear();
    sendWheel(*m_grid, QPoint(-120, 0));
    QCOMPARE(m_grid->LeftCol(), 4);
    QCOMPARE(m_grid->TopRow(), 1);
    QCOMPARE(m_grid->Col(), 1);
    QCOMPARE(m_log, QStringList({"Scroll"}));
    // Nothing left to scroll: no Scroll.
    sendWheel(*m_grid, QPoint(0, -120));
    QCOMPARE(m_log, QStringList({"Scroll"}));
}

void tst_FlexGridInput::scrollBarMovesTopRowByWholeRows_data()
{
    QTest::addColumn<int>("action"); // QAbstractSlider::SliderAction, or -1 for setValue(7)
    QTest::newRow("line down") << int(QAbstractSlider::SliderSingleStepAdd);
    QTest::newRow("page down") << int(QAbstractSlider::SliderPageStepAdd);
    QTest::newRow("set value") << -1;
}

void tst_FlexGridInput::scrollBarMovesTopRowByWholeRows()
{
    QFETCH(int, action);
    fill(60, 6);
    // The bars follow the data on the next pass of the event loop.
    QCoreApplication::processEvents();
    QScrollBar* const bar = m_grid->verticalScrollBar();
    QVERIFY(bar->isVisible());
    m_log.clear();
    if (action < 0)
        bar->setValue(7);
    else
        bar->triggerAction(QAbstractSlider::SliderAction(action));
    const int expected = action == QAbstractSlider::SliderSingleStepAdd ? 2
                         : action == QAbstractSlider::SliderPageStepAdd ? 1 + bar->pageStep()
                                                                        : 7;
    QCOMPARE(m_grid->TopRow(), expected);
    QCOMPARE(bar->value(), expected);
    // Whole rows: the first scrolled row starts right under the fixed row.
    QCOMPARE(m_grid->RowPos(expected), RowHeightTwips);
    QCOMPARE(m_log, QStringList({"Scroll"}));
    QCOMPARE(m_grid->Row(), 1);
}

void tst_FlexGridInput::scrollTrackDecidesWhenTheThumbScrolls_data()
{
    QTest::addColumn<bool>("track");
    QTest::newRow("ScrollTrack false: on release") << false;
    QTest::newRow("ScrollTrack true: while dragging") << true;
}

void tst_FlexGridInput::scrollTrackDecidesWhenTheThumbScrolls()
{
    QFETCH(bool, track);
    fill(60, 6);
    m_grid->setScrollTrack(track);
    QScrollBar* const bar = m_grid->verticalScrollBar();
    m_log.clear();
    bar->setSliderDown(true);
    bar->setSliderPosition(6);
    bar->setSliderPosition(10);
    QCOMPARE(m_grid->TopRow(), track ? 10 : 1);
    bar->setSliderDown(false);
    QCOMPARE(m_grid->TopRow(), 10);
    QCOMPARE(m_log, track ? QStringList({"Scroll", "Scroll"}) : QStringList({"Scroll"}));
}

void tst_FlexGridInput::noScrollingInADirectionWithoutABar_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("wheel") << false;
    QTest::newRow("down past the bottom") << true;
}

void tst_FlexGridInput::noScrollingInADirectionWithoutABar()
{
    // §7 ScrollBars (D): without a bar in a direction nothing scrolls that way, even when keys
    // move the current cell out of view.
    QFETCH(bool, byKey);
    fill(60, 6);
    m_grid->setScrollBars(Flex::flexScrollBarHorizontal);
    const int lastWhole = fullyVisibleRows(*m_grid);
    m_grid->setRow(lastWhole);
    m_log.clear();
    if (byKey)
        QTest::keyClick(m_grid.get(), Qt::Key_Down);
    else
        sendWheel(*m_grid, QPoint(0, -120));
    QCOMPARE(m_grid->Row(), byKey ? lastWhole + 1 : lastWhole);
    QCOMPARE(m_grid->TopRow(), 1);
    QVERIFY(!m_log.contains("Scroll"));
}

// ---- resizing and pointers ------------------------------------------------------------------

void tst_FlexGridInput::columnResize_data()
{
    QTest::addColumn<int>("allowUserResizing");
    QTest::addColumn<int>("dx");
    QTest::addColumn<int>("width");
    QTest::newRow("columns, wider") << int(Flex::flexResizeColumns) << 30 << ColWidthTwips + 450;
    QTest::newRow("both, narrower") << int(Flex::flexResizeBoth) << -20 << ColWidthTwips - 300;
    QTest::newRow("columns, down to zero") << int(Flex::flexResizeColumns) << -100 << 0;
    QTest::newRow("none") << int(Flex::flexResizeNone) << 30 << ColWidthTwips;
    QTest::newRow("rows only") << int(Flex::flexResizeRows) << 30 << ColWidthTwips;
}

void tst_FlexGridInput::columnResize()
{
    QFETCH(int, allowUserResizing);
    QFETCH(int, dx);
    QFETCH(int, width);
    m_grid->setAllowUserResizing(allowUserResizing);
    QWidget* const viewport = m_grid->viewport();
    const QRect header = cellRect(*m_grid, 0, 2);
    const QPoint line(header.right(), header.center().y());
    const QPoint target = line + QPoint(dx, 0);
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, line);
    QTest::mouseMove(viewport, target);
    QCOMPARE(m_grid->ColWidth(2), width); // live while dragging
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, target);
    QCOMPARE(m_grid->ColWidth(2), width);
    if (width != ColWidthTwips) {
        // A resize is no header click: the cell stays and no Click follows.
        QCOMPARE(m_log, QStringList({"MouseDown", "MouseUp"}));
        QCOMPARE(m_grid->Row(), 1);
        QCOMPARE(m_grid->Col(), 1);
    } else {
        QCOMPARE(m_log.last(), QStringLiteral("Click"));
    }
}

void tst_FlexGridInput::rowResize_data()
{
    QTest::addColumn<int>("allowUserResizing");
    QTest::addColumn<int>("height");
    QTest::newRow("rows") << int(Flex::flexResizeRows) << RowHeightTwips + 150;
    QTest::newRow("both") << int(Flex::flexResizeBoth) << RowHeightTwips + 150;
    QTest::newRow("columns only") << int(Flex::flexResizeColumns) << RowHeightTwips;
}

void tst_FlexGridInput::rowResize()
{
    QFETCH(int, allowUserResizing);
    QFETCH(int, height);
    m_grid->setAllowUserResizing(allowUserResizing);
    QWidget* const viewport = m_grid->viewport();
    const QRect rowHeader = cellRect(*m_grid, 3, 0);
    const QPoint line(rowHeader.center().x(), rowHeader.bottom());
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, line);
    QTest::mouseMove(viewport, line + QPoint(0, 10));
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, line + QPoint(0, 10));
    QCOMPARE(m_grid->RowHeight(3), height);
    // Without a row grip the press is a click on the row header, which moves the cell.
    QCOMPARE(m_grid->Row(), height == RowHeightTwips ? 3 : 1);
}

void tst_FlexGridInput::resizeZoneShowsSplitCursor()
{
    QWidget* const viewport = m_grid->viewport();
    const QRect header = cellRect(*m_grid, 0, 2);
    const QRect rowHeader = cellRect(*m_grid, 3, 0);
    const QPoint columnLine(header.right() + 1, header.center().y());
    const QPoint rowLine(rowHeader.center().x(), rowHeader.bottom() - 1);
    hover(*m_grid, columnLine);
    QCOMPARE(viewport->cursor().shape(), Qt::ArrowCursor);
    m_grid->setAllowUserResizing(Flex::flexResizeBoth);
    hover(*m_grid, columnLine);
    QCOMPARE(viewport->cursor().shape(), Qt::SplitHCursor);
    hover(*m_grid, rowLine);
    QCOMPARE(viewport->cursor().shape(), Qt::SplitVCursor);
    hover(*m_grid, centerOf(*m_grid, 3, 3));
    QCOMPARE(viewport->cursor().shape(), Qt::ArrowCursor);
    // Lines in the data area are no grips.
    hover(*m_grid, QPoint(header.right(), centerOf(*m_grid, 3, 2).y()));
    QCOMPARE(viewport->cursor().shape(), Qt::ArrowCursor);
}

void tst_FlexGridInput::mousePointerCursor_data()
{
    QTest::addColumn<int>("pointer");
    QTest::addColumn<Qt::CursorShape>("shape");
    QTest::newRow("default") << 0 << Qt::ArrowCursor;
    QTest::newRow("arrow") << 1 << Qt::ArrowCursor;
    QTest::newRow("cross") << 2 << Qt::CrossCursor;
    QTest::newRow("i-beam") << 3 << Qt::IBeamCursor;
    QTest::newRow("size") << 5 << Qt::SizeAllCursor;
    QTest::newRow("size NE-SW") << 6 << Qt::SizeBDiagCursor;
    QTest::newRow("size N-S") << 7 << Qt::SizeVerCursor;
    QTest::newRow("size NW-SE") << 8 << Qt::SizeFDiagCursor;
    QTest::newRow("size E-W") << 9 << Qt::SizeHorCursor;
    QTest::newRow("up arrow") << 10 << Qt::UpArrowCursor;
    QTest::newRow("hourglass") << 11 << Qt::WaitCursor;
    QTest::newRow("no drop") << 12 << Qt::ForbiddenCursor;
    QTest::newRow("arrow and hourglass") << 13 << Qt::BusyCursor;
    QTest::newRow("arrow and question") << 14 << Qt::WhatsThisCursor;
    QTest::newRow("size all") << 15 << Qt::SizeAllCursor;
    QTest::newRow("custom") << 99 << Qt::PointingHandCursor;
}

void tst_FlexGridInput::mousePointerCursor()
{
    QFETCH(int, pointer);
    QFETCH(Qt::CursorShape, shape);
    m_grid->setMouseIcon(QCursor(Qt::PointingHandCursor));
    m_grid->setMousePointer(Flex::flexHourglass);
    m_grid->setMousePointer(pointer);
    QCOMPARE(m_grid->viewport()->cursor().shape(), shape);
    hover(*m_grid, centerOf(*m_grid, 2, 2));
    QCOMPARE(m_grid->viewport()->cursor().shape(), shape);
}

QTEST_MAIN(tst_FlexGridInput)
#include "tst_flexgrid_input.moc"
