// SPDX-License-Identifier: MIT
// FlexGrid's geometry, scrolling and hit-testing. Rows and columns
// are laid out on demand from TopRow/LeftCol, so no member here costs more than the rows or
// columns it walks over; nothing keeps per-row positions.
#include "flexgrid/FlexGrid.h"
#include "flexgrid/FlexGrid_p.h"

#include "common/ErrorGuard.h"
#include "common/Twips.h"

#include <QFontMetrics>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace VemoGridLib {

// ---- private: pixels
// -----------------------------------------------------------------------------

void FlexGridPrivate::refreshMetrics()
{
    dpiX = q->logicalDpiX() > 0 ? q->logicalDpiX() : 96;
    dpiY = q->logicalDpiY() > 0 ? q->logicalDpiY() : 96;
    // A line of the taller of the two fonts plus room for the grid line and a margin: 240 twips
    // for 8-point MS Sans Serif.
    const int textHeight =
        std::max(QFontMetrics(q->font()).height(), QFontMetrics(fixedFont()).height());
    defaultRowHeight = textHeight + 3;
}

int FlexGridPrivate::twipsToPxX(int twips) const
{
    return twipsToPixelsAtDpi(twips, dpiX);
}

int FlexGridPrivate::twipsToPxY(int twips) const
{
    return twipsToPixelsAtDpi(twips, dpiY);
}

int FlexGridPrivate::pxToTwipsX(int px) const
{
    return pixelsToTwipsAtDpi(px, dpiX);
}

int FlexGridPrivate::pxToTwipsY(int px) const
{
    return pixelsToTwipsAtDpi(px, dpiY);
}

int FlexGridPrivate::defaultRowHeightPx() const
{
    return defaultRowHeight;
}

int FlexGridPrivate::defaultColWidthPx() const
{
    return 4 * defaultRowHeightPx();
}

int FlexGridPrivate::rowHeightPx(int r) const
{
    const int twips = store.rowHeight(r);
    if (twips == 0)
        return 0;
    const int px = twips < 0 ? defaultRowHeightPx() : twipsToPxY(twips);
    return std::max(px, twipsToPxY(rowHeightMin));
}

int FlexGridPrivate::colWidthPx(int c) const
{
    const int twips = store.colWidth(c);
    if (twips == 0)
        return 0;
    return twips < 0 ? defaultColWidthPx() : twipsToPxX(twips);
}

int FlexGridPrivate::fixedRowsHeightPx() const
{
    int height = 0;
    for (int r = 0; r < std::min(fixedRows, store.rowCount()); ++r)
        height += rowHeightPx(r);
    return height;
}

int FlexGridPrivate::fixedColsWidthPx() const
{
    int width = 0;
    for (int c = 0; c < std::min(fixedCols, store.colCount()); ++c)
        width += colWidthPx(c);
    return width;
}

int FlexGridPrivate::rowTopPx(int r) const
{
    if (r < fixedRows) {
        int y = 0;
        for (int i = 0; i < r; ++i)
            y += rowHeightPx(i);
        return y;
    }
    int y = fixedRowsHeightPx();
    if (r >= topRow) {
        for (int i = topRow; i < r; ++i)
            y += rowHeightPx(i);
    } else {
        for (int i = r; i < topRow; ++i)
            y -= rowHeightPx(i);
    }
    return y;
}

int FlexGridPrivate::colLeftPx(int c) const
{
    if (c < fixedCols) {
        int x = 0;
        for (int i = 0; i < c; ++i)
            x += colWidthPx(i);
        return x;
    }
    int x = fixedColsWidthPx();
    if (c >= leftCol) {
        for (int i = leftCol; i < c; ++i)
            x += colWidthPx(i);
    } else {
        for (int i = c; i < leftCol; ++i)
            x -= colWidthPx(i);
    }
    return x;
}

QRect FlexGridPrivate::cellRectPx(int r, int c) const
{
    return QRect(colLeftPx(c), rowTopPx(r), colWidthPx(c), rowHeightPx(r));
}

namespace {

/// The index under `pos` when the fixed indices come first and the scrolled ones from `first`;
/// before everything 0, past the end the last index (MouseRow/MouseCol clamp, never −1).
template <typename Extent>
int indexAt(int pos, int fixed, int first, int count, Extent extent)
{
    if (count <= 0 || pos < 0)
        return 0;
    int edge = 0;
    for (int i = 0; i < std::min(fixed, count); ++i) {
        edge += extent(i);
        if (pos < edge)
            return i;
    }
    for (int i = std::max(first, fixed); i < count; ++i) {
        edge += extent(i);
        if (pos < edge)
            return i;
    }
    return count - 1;
}

/// The last index whose leading edge lies inside `viewportExtent`, walking from `first`.
template <typename Extent>
int lastVisibleIndex(int fixedExtent, int viewportExtent, int first, int count, Extent extent)
{
    int edge = fixedExtent;
    int last = first - 1;
    for (int i = first; i < count && edge < viewportExtent; ++i) {
        edge += extent(i);
        last = i;
    }
    return last;
}

/// The largest first index whose indices up to the end still fill the viewport.
template <typename Extent>
int maxFirstIndex(int fixedExtent, int viewportExtent, int fixed, int count, Extent extent)
{
    const int available = viewportExtent - fixedExtent;
    int used = 0;
    int first = count;
    while (first > fixed) {
        const int size = extent(first - 1);
        if (used + size > available && used > 0)
            break;
        used += size;
        --first;
    }
    return std::max(fixed, std::min(first, count - 1));
}

} // namespace

int FlexGridPrivate::rowAtPx(int y) const
{
    return indexAt(y, fixedRows, topRow, store.rowCount(),
                   [this](int r) { return rowHeightPx(r); });
}

int FlexGridPrivate::colAtPx(int x) const
{
    return indexAt(x, fixedCols, leftCol, store.colCount(),
                   [this](int c) { return colWidthPx(c); });
}

int FlexGridPrivate::lastVisibleRow() const
{
    return lastVisibleIndex(fixedRowsHeightPx(), q->viewport()->height(), topRow, store.rowCount(),
                            [this](int r) { return rowHeightPx(r); });
}

int FlexGridPrivate::lastVisibleCol() const
{
    return lastVisibleIndex(fixedColsWidthPx(), q->viewport()->width(), leftCol, store.colCount(),
                            [this](int c) { return colWidthPx(c); });
}

int FlexGridPrivate::maxTopRow() const
{
    return maxFirstIndex(fixedRowsHeightPx(), q->viewport()->height(), fixedRows, store.rowCount(),
                         [this](int r) { return rowHeightPx(r); });
}

int FlexGridPrivate::maxLeftCol() const
{
    return maxFirstIndex(fixedColsWidthPx(), q->viewport()->width(), fixedCols, store.colCount(),
                         [this](int c) { return colWidthPx(c); });
}

// ---- private: scrolling
// ----------------------------------------------------------------------------

bool FlexGridPrivate::scrollTo(int top, int left)
{
    // In a direction without a scroll bar nothing scrolls, not even to follow the cursor.
    if (!(scrollBars & Flex::flexScrollBarVertical))
        top = topRow;
    if (!(scrollBars & Flex::flexScrollBarHorizontal))
        left = leftCol;
    const int newTop = std::clamp(top, fixedRows, std::max(fixedRows, maxTopRow()));
    const int newLeft = std::clamp(left, fixedCols, std::max(fixedCols, maxLeftCol()));
    if (newTop == topRow && newLeft == leftCol)
        return false;
    topRow = newTop;
    leftCol = newLeft;
    updateScrollBars();
    requestRepaint();
    Q_EMIT q->Scroll();
    return true;
}

bool FlexGridPrivate::scrollToRow(int r)
{
    return scrollTo(r, leftCol);
}

bool FlexGridPrivate::scrollToCol(int c)
{
    return scrollTo(topRow, c);
}

void FlexGridPrivate::scrollFromBars()
{
    if (syncingScrollBars)
        return;
    const bool vertical = scrollBars & Flex::flexScrollBarVertical;
    const bool horizontal = scrollBars & Flex::flexScrollBarHorizontal;
    scrollTo(vertical ? q->verticalScrollBar()->value() : topRow,
             horizontal ? q->horizontalScrollBar()->value() : leftCol);
}

namespace {

/// The first index that shows `target` whole when the indices up to it are laid out backwards
/// from the far edge of the viewport.
template <typename Extent>
int firstShowingWhole(int target, int fixed, int available, Extent extent)
{
    int used = extent(target);
    int first = target;
    while (first > fixed && used + extent(first - 1) <= available) {
        used += extent(first - 1);
        --first;
    }
    return first;
}

} // namespace

void FlexGridPrivate::ensureVisible(int r, int c)
{
    int top = topRow;
    if (r >= fixedRows && r < store.rowCount()) {
        const int available = q->viewport()->height() - fixedRowsHeightPx();
        if (r < topRow)
            top = r;
        else if (rowTopPx(r) + rowHeightPx(r) > q->viewport()->height())
            top = firstShowingWhole(r, fixedRows, available,
                                    [this](int i) { return rowHeightPx(i); });
    }
    int left = leftCol;
    if (c >= fixedCols && c < store.colCount()) {
        const int available = q->viewport()->width() - fixedColsWidthPx();
        if (c < leftCol)
            left = c;
        else if (colLeftPx(c) + colWidthPx(c) > q->viewport()->width())
            left =
                firstShowingWhole(c, fixedCols, available, [this](int i) { return colWidthPx(i); });
    }
    scrollTo(top, left);
}

int FlexGridPrivate::pageDownTopRow() const
{
    const int viewportHeight = q->viewport()->height();
    int bottom = fixedRowsHeightPx();
    int r = topRow;
    while (r < store.rowCount() && bottom + rowHeightPx(r) <= viewportHeight)
        bottom += rowHeightPx(r++);
    return std::max(r, topRow + 1);
}

int FlexGridPrivate::pageUpTopRow() const
{
    if (topRow <= fixedRows)
        return topRow;
    const int available = q->viewport()->height() - fixedRowsHeightPx();
    return firstShowingWhole(topRow - 1, fixedRows, available,
                             [this](int i) { return rowHeightPx(i); });
}

void FlexGridPrivate::updateScrollBars()
{
    // With Redraw off nothing is shown, bars included; setRedraw(true) brings them up to date.
    if (!redraw || scrollBarSyncQueued)
        return;
    // A changed range makes the scroll area post an event; bulk work (rows added one by one)
    // would post one per row. The bars follow once per pass of the event loop instead, the way
    // Qt's item views lay themselves out.
    scrollBarSyncQueued = true;
    QMetaObject::invokeMethod(
        q,
        [this] {
            scrollBarSyncQueued = false;
            catchingErrors("FlexGrid scroll bars", [this] { syncScrollBars(); });
        },
        Qt::QueuedConnection);
}

void FlexGridPrivate::syncScrollBars()
{
    // The bars' signals stay connected: the scroll area shows and hides a bar on rangeChanged.
    // Only the value's feedback into scrollFromBars is held back.
    const QScopedValueRollback<bool> syncing(syncingScrollBars, true);
    const auto configure = [](QScrollBar* bar, int minimum, int maximum, int value, int page) {
        bar->setRange(minimum, std::max(minimum, maximum));
        bar->setPageStep(std::max(1, page));
        bar->setSingleStep(1);
        bar->setValue(value);
    };
    const bool vertical = scrollBars & Flex::flexScrollBarVertical;
    const bool horizontal = scrollBars & Flex::flexScrollBarHorizontal;
    // Setting a policy re-lays the children out even when it is unchanged.
    const Qt::ScrollBarPolicy verticalPolicy =
        vertical ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    if (q->verticalScrollBarPolicy() != verticalPolicy)
        q->setVerticalScrollBarPolicy(verticalPolicy);
    const Qt::ScrollBarPolicy horizontalPolicy =
        horizontal ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    if (q->horizontalScrollBarPolicy() != horizontalPolicy)
        q->setHorizontalScrollBarPolicy(horizontalPolicy);
    configure(q->verticalScrollBar(), fixedRows, maxTopRow(), topRow, lastVisibleRow() - topRow);
    configure(q->horizontalScrollBar(), fixedCols, maxLeftCol(), leftCol,
              lastVisibleCol() - leftCol);
}

void FlexGridPrivate::relayout()
{
    if (!scrollTo(topRow, leftCol))
        updateScrollBars();
    requestRepaint();
    if (cellEventSink)
        cellEventSink->hostedLayoutChanged();
}

void FlexGridPrivate::requestRepaint()
{
    if (redraw)
        q->viewport()->update();
}

// ---- public geometry, scrolling and hit-testing members
// -----------------------------------------------------------------------------

int FlexGrid::ColWidth(int col) const
{
    d->checkCol(col);
    return d->store.colWidth(col);
}

void FlexGrid::setColWidth(int col, int twips)
{
    if (twips < -1)
        FlexGridPrivate::raise(Flex::flexerrBadColWidth);
    if (col == -1) {
        for (int c = 0; c < Cols(); ++c)
            d->store.setColWidth(c, twips);
    } else {
        d->checkCol(col);
        d->store.setColWidth(col, twips);
    }
    d->relayout();
}

int FlexGrid::RowHeight(int row) const
{
    d->checkRow(row);
    const int twips = d->store.rowHeight(row);
    return twips >= 0 ? twips : d->pxToTwipsY(d->rowHeightPx(row));
}

void FlexGrid::setRowHeight(int row, int twips)
{
    if (twips < -1)
        FlexGridPrivate::raise(Flex::flexerrBadRowHeight);
    d->checkRow(row);
    d->store.setRowHeight(row, twips);
    d->relayout();
}

int FlexGrid::RowHeightMin() const
{
    return d->rowHeightMin;
}

void FlexGrid::setRowHeightMin(int twips)
{
    if (twips < 0)
        FlexGridPrivate::raise(Flex::flexerrBadRowHeight);
    d->rowHeightMin = twips;
    d->relayout();
}

int FlexGrid::TopRow() const
{
    return d->topRow;
}

void FlexGrid::setTopRow(int row)
{
    d->checkRow(row);
    if (d->scrollBars & Flex::flexScrollBarVertical)
        d->scrollToRow(row);
}

int FlexGrid::LeftCol() const
{
    return d->leftCol;
}

void FlexGrid::setLeftCol(int col)
{
    d->checkCol(col);
    if (d->scrollBars & Flex::flexScrollBarHorizontal)
        d->scrollToCol(col);
}

int FlexGrid::ColPos(int col) const
{
    d->checkCol(col);
    return d->pxToTwipsX(d->colLeftPx(col));
}

int FlexGrid::RowPos(int row) const
{
    d->checkRow(row);
    return d->pxToTwipsY(d->rowTopPx(row));
}

bool FlexGrid::ColIsVisible(int col) const
{
    d->checkCol(col);
    if (d->colWidthPx(col) == 0 || (col >= d->fixedCols && col < d->leftCol))
        return false;
    return d->colLeftPx(col) < viewport()->width();
}

bool FlexGrid::RowIsVisible(int row) const
{
    d->checkRow(row);
    if (d->rowHeightPx(row) == 0 || (row >= d->fixedRows && row < d->topRow))
        return false;
    return d->rowTopPx(row) < viewport()->height();
}

int FlexGrid::CellLeft()
{
    d->checkCurrentCell();
    d->ensureVisible(d->row, d->col);
    return d->pxToTwipsX(viewport()->x() + d->colLeftPx(d->col));
}

int FlexGrid::CellTop()
{
    d->checkCurrentCell();
    d->ensureVisible(d->row, d->col);
    return d->pxToTwipsY(viewport()->y() + d->rowTopPx(d->row));
}

int FlexGrid::CellWidth()
{
    d->checkCurrentCell();
    d->ensureVisible(d->row, d->col);
    return d->pxToTwipsX(d->colWidthPx(d->col) - d->gridLineWidth);
}

int FlexGrid::CellHeight()
{
    d->checkCurrentCell();
    d->ensureVisible(d->row, d->col);
    return d->pxToTwipsY(d->rowHeightPx(d->row) - d->gridLineWidth);
}

int FlexGrid::MouseRow() const
{
    return d->rowAtPx(d->mousePos.y());
}

int FlexGrid::MouseCol() const
{
    return d->colAtPx(d->mousePos.x());
}

int FlexGrid::ScrollBars() const
{
    return d->scrollBars;
}

void FlexGrid::setScrollBars(int bars)
{
    if (bars < Flex::flexScrollBarNone || bars > Flex::flexScrollBarBoth)
        FlexGridPrivate::raise(Flex::flexerrInvalidPropertyValue);
    d->scrollBars = bars;
    d->relayout();
}

bool FlexGrid::ScrollTrack() const
{
    return d->scrollTrack;
}

void FlexGrid::setScrollTrack(bool track)
{
    d->scrollTrack = track;
    verticalScrollBar()->setTracking(track);
    horizontalScrollBar()->setTracking(track);
}

void FlexGrid::scrollVertically(int request)
{
    switch (request) {
    case Flex::flexLineUp:
        d->scrollToRow(d->topRow - 1);
        break;
    case Flex::flexLineDown:
        d->scrollToRow(d->topRow + 1);
        break;
    case Flex::flexPageUp:
        d->scrollToRow(d->pageUpTopRow());
        break;
    case Flex::flexPageDown:
        d->scrollToRow(d->pageDownTopRow());
        break;
    default:
        FlexGridPrivate::raise(Flex::flexerrInvalidProcedureCall);
    }
}

} // namespace VemoGridLib
