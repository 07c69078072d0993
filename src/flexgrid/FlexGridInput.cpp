// SPDX-License-Identifier: MIT
// FlexGrid's mouse, wheel and keyboard handling: cell moves, selection drags, resizing, events.
#include "flexgrid/FlexGrid_p.h"

#include "common/Twips.h"
#include "common/VbKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace VemoGridLib {

namespace {

using Drag = FlexGridPrivate::Drag;

/// How far from a grid line, in pixels, a press in the fixed area resizes instead of selecting.
constexpr int ResizeGripPx = 3;
/// A wheel notch, in QWheelEvent::angleDelta units.
constexpr int WheelNotch = 120;

constexpr short ShiftMask = 1;
constexpr short CtrlMask = 2;
constexpr short AltMask = 4;

/// What a selecting drag extends. It lives in FlexGridPrivate::dragIndex while the drag runs,
/// as a resize drag keeps its row or column index there.
enum class SelectSpan : int { Cells, Columns, Rows, All };

struct Cell
{
    int row;
    int col;
};

/// Where a left press puts the current cell and the selection corner, and what a drag from
/// there extends.
struct PressTarget
{
    Cell current;
    Cell corner;
    SelectSpan span;
};

/// A grid line under the pointer that a press would drag.
struct ResizeGrip
{
    Drag kind = Drag::None;
    int index = -1;
};

using MouseSignal = void (FlexGrid::*)(short, short, float, float);

// ---- rows and columns alike -------------------------------------------------------------------

int countAlong(const FlexGridPrivate& d, Qt::Orientation along)
{
    return along == Qt::Vertical ? d.store.rowCount() : d.store.colCount();
}

int fixedAlong(const FlexGridPrivate& d, Qt::Orientation along)
{
    return along == Qt::Vertical ? d.fixedRows : d.fixedCols;
}

int sizePxAlong(const FlexGridPrivate& d, Qt::Orientation along, int index)
{
    return along == Qt::Vertical ? d.rowHeightPx(index) : d.colWidthPx(index);
}

int startPxAlong(const FlexGridPrivate& d, Qt::Orientation along, int index)
{
    return along == Qt::Vertical ? d.rowTopPx(index) : d.colLeftPx(index);
}

int firstScrolledAlong(const FlexGridPrivate& d, Qt::Orientation along)
{
    return along == Qt::Vertical ? d.topRow : d.leftCol;
}

int viewportExtentAlong(const FlexGridPrivate& d, Qt::Orientation along)
{
    const QSize size = d.q->viewport()->size();
    return along == Qt::Vertical ? size.height() : size.width();
}

bool scrollAlong(FlexGridPrivate& d, Qt::Orientation along, int first)
{
    return along == Qt::Vertical ? d.scrollToRow(first) : d.scrollToCol(first);
}

/// The nearest non-hidden data row or column from `start` on (`start` included) in `direction`.
/// Only the end the search moves away from is clamped, so a search from a fixed row or column
/// never turns back.
std::optional<int> shownFrom(const FlexGridPrivate& d, Qt::Orientation along, int start,
                             int direction)
{
    const int first = fixedAlong(d, along);
    const int last = countAlong(d, along) - 1;
    for (int i = direction > 0 ? std::max(start, first) : std::min(start, last);
         i >= first && i <= last; i += direction) {
        if (sizePxAlong(d, along, i) > 0)
            return i;
    }
    return std::nullopt;
}

/// The data row or column `steps` shown ones away from `from`; stops at the last one reached.
int stepShown(const FlexGridPrivate& d, Qt::Orientation along, int from, int direction, int steps)
{
    int reached = from;
    for (; steps > 0; --steps) {
        const std::optional<int> next = shownFrom(d, along, reached + direction, direction);
        if (!next)
            break;
        reached = *next;
    }
    return reached;
}

/// How many shown data rows or columns fit wholly in the viewport from TopRow / LeftCol on;
/// at least 1, so paging always moves.
int pageSize(const FlexGridPrivate& d, Qt::Orientation along)
{
    const int extent = viewportExtentAlong(d, along);
    const int count = countAlong(d, along);
    int index = firstScrolledAlong(d, along);
    int end = index < count ? startPxAlong(d, along, index) : extent;
    int shown = 0;
    for (; index < count; ++index) {
        const int size = sizePxAlong(d, along, index);
        end += size;
        if (end > extent)
            break;
        if (size > 0)
            ++shown;
    }
    return std::max(1, shown);
}

// ---- mouse ----------------------------------------------------------------------------------

bool hasDataCells(const FlexGridPrivate& d)
{
    return d.store.rowCount() > d.fixedRows && d.store.colCount() > d.fixedCols;
}

Cell cellAt(const FlexGridPrivate& d, QPoint pos)
{
    return {d.rowAtPx(pos.y()), d.colAtPx(pos.x())};
}

QPoint clampedToViewport(const FlexGridPrivate& d, QPoint pos)
{
    const QSize size = d.q->viewport()->size();
    return {std::clamp(pos.x(), 0, std::max(0, size.width() - 1)),
            std::clamp(pos.y(), 0, std::max(0, size.height() - 1))};
}

/// The row or column (fixed ones, then the scrolled ones in view) whose right or bottom grid
/// line lies within the grip of `px`, nearest first; -1 when none. Hidden ones are passed over:
/// they were hidden by code and stay so.
int gripIndexAlong(const FlexGridPrivate& d, Qt::Orientation along, int px)
{
    const int last = along == Qt::Vertical ? d.lastVisibleRow() : d.lastVisibleCol();
    int best = -1;
    int bestDistance = ResizeGripPx + 1;
    const auto consider = [&](int index) {
        const int size = sizePxAlong(d, along, index);
        if (size == 0)
            return;
        const int distance = std::abs(px - (startPxAlong(d, along, index) + size - 1));
        if (distance < bestDistance) {
            best = index;
            bestDistance = distance;
        }
    };
    const int fixed = std::min(fixedAlong(d, along), countAlong(d, along));
    for (int index = 0; index < fixed; ++index)
        consider(index);
    for (int index = firstScrolledAlong(d, along); index <= last; ++index)
        consider(index);
    return best;
}

/// Column lines are dragged inside the fixed rows, row lines inside the fixed columns.
ResizeGrip resizeGripAt(const FlexGridPrivate& d, QPoint pos)
{
    if ((d.allowUserResizing & Flex::flexResizeColumns) && pos.y() >= 0 &&
        pos.y() < d.fixedRowsHeightPx()) {
        if (const int col = gripIndexAlong(d, Qt::Horizontal, pos.x()); col >= 0)
            return {Drag::ResizeCol, col};
    }
    if ((d.allowUserResizing & Flex::flexResizeRows) && pos.x() >= 0 &&
        pos.x() < d.fixedColsWidthPx()) {
        if (const int row = gripIndexAlong(d, Qt::Vertical, pos.y()); row >= 0)
            return {Drag::ResizeRow, row};
    }
    return {};
}

/// A data cell becomes current; a header cell moves the current cell into the data area,
/// selecting its whole column or row with AllowBigSelection.
PressTarget pressTarget(const FlexGridPrivate& d, Cell hit)
{
    const int lastRow = d.store.rowCount() - 1;
    const int lastCol = d.store.colCount() - 1;
    const bool inFixedRows = hit.row < d.fixedRows;
    const bool inFixedCols = hit.col < d.fixedCols;
    if (inFixedRows && inFixedCols) {
        if (d.allowBigSelection)
            return {{d.fixedRows, d.fixedCols}, {lastRow, lastCol}, SelectSpan::All};
        return {{d.topRow, d.leftCol}, {d.topRow, d.leftCol}, SelectSpan::Cells};
    }
    if (inFixedRows) {
        if (d.allowBigSelection)
            return {{d.fixedRows, hit.col}, {lastRow, hit.col}, SelectSpan::Columns};
        return {{d.topRow, hit.col}, {d.topRow, hit.col}, SelectSpan::Cells};
    }
    if (inFixedCols) {
        if (d.allowBigSelection)
            return {{hit.row, d.fixedCols}, {hit.row, lastCol}, SelectSpan::Rows};
        return {{hit.row, d.leftCol}, {hit.row, d.leftCol}, SelectSpan::Cells};
    }
    return {hit, hit, SelectSpan::Cells};
}

/// The selection corner a drag of `span` reaches over `hit`; over the fixed cells it stops at
/// the first scrolled row or column.
Cell dragCorner(const FlexGridPrivate& d, Cell hit, SelectSpan span)
{
    const int row = hit.row < d.fixedRows ? d.topRow : hit.row;
    const int col = hit.col < d.fixedCols ? d.leftCol : hit.col;
    const int lastRow = d.store.rowCount() - 1;
    const int lastCol = d.store.colCount() - 1;
    switch (span) {
    case SelectSpan::Columns:
        return {lastRow, col};
    case SelectSpan::Rows:
        return {row, lastCol};
    case SelectSpan::All:
        return {lastRow, lastCol};
    case SelectSpan::Cells:
        break;
    }
    return {row, col};
}

/// Interval of the steps a selecting drag scrolls while the pointer rests outside the cells.
constexpr int DragScrollIntervalMs = 50;

bool isOutsideScrolledCells(const FlexGridPrivate& d, QPoint pos)
{
    return pos.y() >= d.q->viewport()->height() || pos.y() < d.fixedRowsHeightPx() ||
           pos.x() >= d.q->viewport()->width() || pos.x() < d.fixedColsWidthPx();
}

/// While a drag is outside the data area, each pointer move and each tick of the drag-scroll
/// timer scrolls one shown row or column toward it.
void autoScrollToward(FlexGridPrivate& d, QPoint pos, SelectSpan span)
{
    if (span == SelectSpan::Cells || span == SelectSpan::Rows) {
        if (pos.y() >= d.q->viewport()->height())
            d.scrollToRow(stepShown(d, Qt::Vertical, d.topRow, 1, 1));
        else if (pos.y() < d.fixedRowsHeightPx())
            d.scrollToRow(stepShown(d, Qt::Vertical, d.topRow, -1, 1));
    }
    if (span == SelectSpan::Cells || span == SelectSpan::Columns) {
        if (pos.x() >= d.q->viewport()->width())
            d.scrollToCol(stepShown(d, Qt::Horizontal, d.leftCol, 1, 1));
        else if (pos.x() < d.fixedColsWidthPx())
            d.scrollToCol(stepShown(d, Qt::Horizontal, d.leftCol, -1, 1));
    }
}

void startSelecting(FlexGridPrivate& d, SelectSpan span)
{
    d.drag = Drag::Select;
    d.dragIndex = int(span);
}

void startResizing(FlexGridPrivate& d, ResizeGrip grip, QPoint pos)
{
    d.drag = grip.kind;
    d.dragIndex = grip.index;
    const bool columns = grip.kind == Drag::ResizeCol;
    d.dragOriginPx = columns ? pos.x() : pos.y();
    d.dragStartSizePx = columns ? d.colWidthPx(grip.index) : d.rowHeightPx(grip.index);
}

/// A left press: a resize drag on a grip, otherwise the current cell moves (or, with Shift, the
/// selection grows from it) and a selecting drag begins.
void beginLeftPress(FlexGridPrivate& d, QPoint pos, bool extend)
{
    d.pressedInside = true;
    if (const ResizeGrip grip = resizeGripAt(d, pos); grip.kind != Drag::None) {
        startResizing(d, grip, pos);
        return;
    }
    if (!hasDataCells(d))
        return;
    const PressTarget target = pressTarget(d, cellAt(d, pos));
    if (extend) {
        d.dragStartRowSel = d.rowSel;
        d.dragStartColSel = d.colSel;
        d.setSelection(target.corner.row, target.corner.col, true);
    } else {
        d.moveCurrent(target.current.row, target.current.col, target.corner.row, target.corner.col);
        d.dragStartRowSel = d.rowSel;
        d.dragStartColSel = d.colSel;
    }
    startSelecting(d, target.span);
}

void extendSelectionTo(FlexGridPrivate& d, QPoint pos)
{
    const auto span = SelectSpan(d.dragIndex);
    if (span == SelectSpan::All || !hasDataCells(d))
        return;
    autoScrollToward(d, pos, span);
    if (isOutsideScrolledCells(d, pos))
        d.dragScrollTimer.start(DragScrollIntervalMs, d.q);
    else
        d.dragScrollTimer.stop();
    const Cell corner = dragCorner(d, cellAt(d, clampedToViewport(d, pos)), span);
    d.setSelection(corner.row, corner.col, true);
}

void resizeTo(FlexGridPrivate& d, QPoint pos)
{
    const bool columns = d.drag == Drag::ResizeCol;
    if (d.dragIndex >= countAlong(d, columns ? Qt::Horizontal : Qt::Vertical))
        return; // a handler removed the line being dragged
    const int px = std::max(0, d.dragStartSizePx + (columns ? pos.x() : pos.y()) - d.dragOriginPx);
    if (columns && px != d.colWidthPx(d.dragIndex))
        d.q->setColWidth(d.dragIndex, d.pxToTwipsX(px));
    else if (!columns && px != d.rowHeightPx(d.dragIndex))
        d.q->setRowHeight(d.dragIndex, d.pxToTwipsY(px));
}

/// Ends any drag; a selecting one reports its new selection once, now, as the drag ends.
void finishDrag(FlexGridPrivate& d)
{
    const bool selecting = d.drag == Drag::Select;
    d.dragScrollTimer.stop();
    d.drag = Drag::None;
    d.dragIndex = -1;
    if (selecting && (d.rowSel != d.dragStartRowSel || d.colSel != d.dragStartColSel))
        Q_EMIT d.q->SelChange();
}

void raiseMouseEvent(FlexGridPrivate& d, MouseSignal signal, short button, const QMouseEvent* event)
{
    const QWidget* viewport = d.q->viewport();
    const float x = float(event->position().x() * twipsPerPixelX(viewport));
    const float y = float(event->position().y() * twipsPerPixelY(viewport));
    Q_EMIT(d.q->*signal)(button, vbShiftMask(event->modifiers()), x, y);
}

Qt::CursorShape pointerShape(int mousePointer)
{
    switch (mousePointer) {
    case Flex::flexCross:
        return Qt::CrossCursor;
    case Flex::flexIBeam:
        return Qt::IBeamCursor;
    case Flex::flexSize:
    case Flex::flexSizeAll:
        return Qt::SizeAllCursor;
    case Flex::flexSizeNESW:
        return Qt::SizeBDiagCursor;
    case Flex::flexSizeNS:
        return Qt::SizeVerCursor;
    case Flex::flexSizeNWSE:
        return Qt::SizeFDiagCursor;
    case Flex::flexSizeEW:
        return Qt::SizeHorCursor;
    case Flex::flexUpArrow:
        return Qt::UpArrowCursor;
    case Flex::flexHourglass:
        return Qt::WaitCursor;
    case Flex::flexNoDrop:
        return Qt::ForbiddenCursor;
    case Flex::flexArrowHourGlass:
        return Qt::BusyCursor;
    case Flex::flexArrowQuestion:
        return Qt::WhatsThisCursor;
    default:
        return Qt::ArrowCursor; // flexArrow, and flexIcon, which Qt has no shape for
    }
}

// ---- wheel ----------------------------------------------------------------------------------

/// Scrolls by the wheel's lines (3 by default) a notch, at most one page; the delta's sign is
/// Qt's: positive turns toward the start. Deltas below a line's share are dropped.
bool wheelAlong(FlexGridPrivate& d, Qt::Orientation along, int delta)
{
    const int lines = std::min(QApplication::wheelScrollLines(), pageSize(d, along));
    const int steps = delta * lines / WheelNotch;
    if (steps == 0)
        return false;
    const int first =
        stepShown(d, along, firstScrolledAlong(d, along), steps > 0 ? -1 : 1, std::abs(steps));
    return scrollAlong(d, along, first);
}

// ---- keyboard -------------------------------------------------------------------------------

/// Where a navigation key takes `from` (the current cell, or the selection corner with Shift);
/// nothing for keys the grid does not navigate with.
std::optional<Cell> keyTarget(const FlexGridPrivate& d, short keyCode, bool ctrl, Cell from)
{
    switch (keyCode) {
    case vbKeyUp:
        return Cell{stepShown(d, Qt::Vertical, from.row, -1, 1), from.col};
    case vbKeyDown:
        return Cell{stepShown(d, Qt::Vertical, from.row, 1, 1), from.col};
    case vbKeyLeft:
        return Cell{from.row, stepShown(d, Qt::Horizontal, from.col, -1, 1)};
    case vbKeyRight:
        return Cell{from.row, stepShown(d, Qt::Horizontal, from.col, 1, 1)};
    case vbKeyPageUp:
        return Cell{stepShown(d, Qt::Vertical, from.row, -1, pageSize(d, Qt::Vertical)), from.col};
    case vbKeyPageDown:
        return Cell{stepShown(d, Qt::Vertical, from.row, 1, pageSize(d, Qt::Vertical)), from.col};
    case vbKeyHome:
        return Cell{ctrl ? shownFrom(d, Qt::Vertical, 0, 1).value_or(from.row) : from.row,
                    shownFrom(d, Qt::Horizontal, 0, 1).value_or(from.col)};
    case vbKeyEnd:
        return Cell{ctrl ? shownFrom(d, Qt::Vertical, d.store.rowCount() - 1, -1).value_or(from.row)
                         : from.row,
                    shownFrom(d, Qt::Horizontal, d.store.colCount() - 1, -1).value_or(from.col)};
    default:
        return std::nullopt;
    }
}

/// Page keys turn the view by a page as the cell moves, so the cell keeps its place on screen.
void scrollForPageKey(FlexGridPrivate& d, short keyCode)
{
    if (keyCode != vbKeyPageUp && keyCode != vbKeyPageDown)
        return;
    const int direction = keyCode == vbKeyPageDown ? 1 : -1;
    d.scrollToRow(stepShown(d, Qt::Vertical, d.topRow, direction, pageSize(d, Qt::Vertical)));
}

/// The grid's own reaction to a navigation key; false when it has none. Alt combinations
/// are system keys on Windows, which the grid does not navigate with.
bool navigate(FlexGridPrivate& d, short keyCode, short shift)
{
    if ((shift & AltMask) || !hasDataCells(d))
        return false;
    const bool extend = shift & ShiftMask;
    const Cell from = extend ? Cell{d.rowSel, d.colSel} : Cell{d.row, d.col};
    const std::optional<Cell> to = keyTarget(d, keyCode, shift & CtrlMask, from);
    if (!to)
        return false;
    if (extend)
        d.setSelection(to->row, to->col);
    else
        d.moveCurrent(to->row, to->col, to->row, to->col);
    scrollForPageKey(d, keyCode);
    d.ensureVisible(to->row, to->col);
    return true;
}

} // namespace

void FlexGridPrivate::mousePress(QMouseEvent* event)
{
    mousePos = event->position().toPoint();
    if (event->button() == Qt::LeftButton)
        beginLeftPress(*this, mousePos, event->modifiers().testFlag(Qt::ShiftModifier));
    if (const short button = vbButton(event->button()); button != 0)
        raiseMouseEvent(*this, &FlexGrid::MouseDown, button, event);
    updateCursor();
}

void FlexGridPrivate::mouseMove(QMouseEvent* event)
{
    mousePos = event->position().toPoint();
    if (drag != Drag::None && !event->buttons().testFlag(Qt::LeftButton))
        finishDrag(*this); // the release went elsewhere (a popup took the mouse)
    if (drag == Drag::Select)
        extendSelectionTo(*this, mousePos);
    else if (drag == Drag::ResizeCol || drag == Drag::ResizeRow)
        resizeTo(*this, mousePos);
    raiseMouseEvent(*this, &FlexGrid::MouseMove, vbButtonMask(event->buttons()), event);
    updateCursor();
}

void FlexGridPrivate::mouseRelease(QMouseEvent* event)
{
    mousePos = event->position().toPoint();
    bool click = false;
    if (event->button() == Qt::LeftButton) {
        // A resize ends without Click: VemoGrid sorts on a header Click.
        click = pressedInside && drag != Drag::ResizeCol && drag != Drag::ResizeRow &&
                q->viewport()->rect().contains(mousePos);
        pressedInside = false;
        finishDrag(*this);
    }
    if (const short button = vbButton(event->button()); button != 0)
        raiseMouseEvent(*this, &FlexGrid::MouseUp, button, event);
    if (click)
        Q_EMIT q->Click();
    updateCursor();
}

void FlexGridPrivate::mouseDoubleClick(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        mousePress(event); // VB reports DblClick for the left button only
        return;
    }
    mousePos = event->position().toPoint();
    // VB's order is MouseDown, MouseUp, Click, DblClick, MouseUp: the second release that Qt
    // sends after this event must report MouseUp without a second Click.
    pressedInside = false;
    Q_EMIT q->DblClick();
}

void FlexGridPrivate::dragScrollTick()
{
    if (drag == Drag::Select)
        extendSelectionTo(*this, mousePos);
    else
        dragScrollTimer.stop();
}

void FlexGridPrivate::wheel(QWheelEvent* event)
{
    const QPoint delta = event->angleDelta();
    const bool scrolledRows = wheelAlong(*this, Qt::Vertical, delta.y());
    const bool scrolledCols = wheelAlong(*this, Qt::Horizontal, delta.x());
    // An unused wheel goes on to the parent, as QAbstractScrollArea's does.
    event->setAccepted(scrolledRows || scrolledCols);
}

void FlexGridPrivate::keyPress(QKeyEvent* event)
{
    short keyCode = vbKeyCode(event);
    short shift = vbShiftMask(event->modifiers());
    bool consumed = false;
    if (keyCode != 0) {
        const quint64 movesBefore = cellMoves;
        Q_EMIT q->KeyDown(keyCode, shift);
        const bool handlerMoved = cellMoves != movesBefore;
        // A KeyDown handler that moved the current cell itself gets no second move from the grid.
        consumed = keyCode == 0 || handlerMoved || navigate(*this, keyCode, shift);
    }
    if (short keyAscii = vbKeyAscii(event); keyAscii != 0) {
        Q_EMIT q->KeyPress(keyAscii);
        consumed = consumed || keyAscii == 0;
    }
    // Keys nobody used travel on to the parent (a dialog's Esc and Enter), as in item views.
    event->setAccepted(consumed);
}

void FlexGridPrivate::keyRelease(QKeyEvent* event)
{
    short keyCode = vbKeyCode(event);
    // Windows repeats only the key-down of a held key; Qt repeats the release too.
    if (keyCode == 0 || event->isAutoRepeat()) {
        event->ignore();
        return;
    }
    short shift = vbShiftMask(event->modifiers());
    Q_EMIT q->KeyUp(keyCode, shift);
    event->setAccepted(keyCode == 0);
}

void FlexGridPrivate::updateCursor()
{
    QWidget* const viewport = q->viewport();
    const Drag zone = drag == Drag::ResizeCol || drag == Drag::ResizeRow
                          ? drag
                          : resizeGripAt(*this, mousePos).kind;
    if (zone == Drag::ResizeCol)
        viewport->setCursor(Qt::SplitHCursor);
    else if (zone == Drag::ResizeRow)
        viewport->setCursor(Qt::SplitVCursor);
    else if (mousePointer == Flex::flexCustom)
        viewport->setCursor(mouseIcon);
    else if (mousePointer == Flex::flexDefault)
        viewport->unsetCursor();
    else
        viewport->setCursor(pointerShape(mousePointer));
}

} // namespace VemoGridLib
