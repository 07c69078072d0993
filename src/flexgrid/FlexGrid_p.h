// SPDX-License-Identifier: MIT
// FlexGrid's private state and the seams between its source files (one file per concern:
// FlexGrid.cpp members and events, FlexGridGeometry.cpp, FlexGridPaint.cpp, FlexGridInput.cpp,
// FlexGridSort.cpp, FlexGridFormatString.cpp, FlexGridDataSource.cpp).
#pragma once

#include "flexgrid/FlexCellEventSink_p.h"
#include "flexgrid/FlexCellStore_p.h"
#include "flexgrid/FlexGrid.h"

#include "common/OleColor.h"

#include <QAbstractItemModel>
#include <QBasicTimer>
#include <QCursor>
#include <QFont>
#include <QMetaObject>
#include <QPoint>
#include <QPointer>
#include <QRect>

#include <functional>
#include <optional>
#include <vector>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace VemoGridLib {

class FlexGridPrivate
{
public:
    explicit FlexGridPrivate(FlexGrid* grid);

    /// The private side of `grid`, for VemoGrid's bulk passes (colouring, check boxes), which
    /// write looks straight into the store instead of moving the current cell once per cell.
    static FlexGridPrivate* get(FlexGrid* grid) { return grid->d.get(); }
    static const FlexGridPrivate* get(const FlexGrid* grid) { return grid->d.get(); }

    FlexGrid* const q;
    FlexCellStore store;

    // ---- structure, current cell, selection ---------------------------------------------
    int fixedRows = 1;
    int fixedCols = 1;
    int row = 1;
    int col = 1;
    int rowSel = 1;
    int colSel = 1;
    int topRow = 1;
    int leftCol = 1;
    /// True once any of LeaveCell, SelChange, EnterCell or RowColChange has had a receiver. The
    /// colouring passes move the current cell once per cell with none connected, and even an
    /// emission nobody receives costs more than the move itself.
    bool cellSignalsWanted = false;
    /// The hosting VemoGrid, told of the cell events before the signals; none for a grid of
    /// its own.
    FlexCellEventSink* cellEventSink = nullptr;
    /// The hosting VemoGrid's column types, seen by the painting (FlexGridHosting): true for a
    /// column whose numbers show as "###" rather than clipped when wider than their cell.
    std::function<bool(int col)> numberColumn;
    /// The hosting VemoGrid's own pictures drawn afresh at a device pixel ratio, so that they
    /// stay sharp on a scaled screen; a null pixmap for a picture it does not know.
    std::function<QPixmap(const QPixmap& picture, qreal ratio)> pictureAtRatio;
    /// The widget's logical dpi and the default row height, which every row and column size goes
    /// through; refreshMetrics() renews them when the font or the screen changes.
    int dpiX = 96;
    int dpiY = 96;
    int defaultRowHeight = 0;
    /// True while updateScrollBars moves the bars, so their feedback is ignored.
    bool syncingScrollBars = false;
    /// Bumped every time the current cell changes, so the key handling can tell whether a
    /// KeyDown handler already moved it.
    quint64 cellMoves = 0;

    // ---- settings ----------------------------------------------------------------------
    QString formatString;
    int fillStyle = 0;
    int selectionMode = 0;
    bool allowBigSelection = true;
    int rowHeightMin = 0;
    int scrollBars = 3;
    bool scrollTrack = false;
    OleColor backColor = vbWindowBackground;
    OleColor foreColor = vbWindowText;
    OleColor backColorBkg = 0x808080;
    OleColor backColorFixed = vbButtonFace;
    OleColor foreColorFixed = vbButtonText;
    OleColor backColorSel = vbHighlight;
    OleColor foreColorSel = vbHighlightText;
    OleColor gridColor = 0xC0C0C0;
    OleColor gridColorFixed = 0x000000;
    int gridLines = 1;
    int gridLinesFixed = 2;
    int gridLineWidth = 1;
    int focusRect = 1;
    int highLight = 1;
    int textStyle = 0;
    int textStyleFixed = 0;
    int mergeCells = 0;
    int allowUserResizing = 0;
    int mousePointer = 0;
    int pictureType = 0;
    bool wordWrap = false;
    bool redraw = true;
    std::optional<QFont> fontFixed;
    QCursor mouseIcon;

    // ---- mouse state (FlexGridInput.cpp) -------------------------------------------------
    /// Last pointer position in viewport coordinates, for MouseRow / MouseCol.
    QPoint mousePos;
    enum class Drag { None, Select, ResizeCol, ResizeRow };
    Drag drag = Drag::None;
    int dragIndex = -1;
    int dragOriginPx = 0;
    int dragStartSizePx = 0;
    /// Selection corners when a selecting drag began; SelChange fires at its end if they moved.
    int dragStartRowSel = 0;
    int dragStartColSel = 0;
    bool pressedInside = false;
    /// Keeps a selecting drag scrolling while the pointer rests outside the cells.
    QBasicTimer dragScrollTimer;

    // ---- data binding (FlexGridDataSource.cpp) -------------------------------------------
    QPointer<QAbstractItemModel> dataSource;
    std::vector<QMetaObject::Connection> modelConnections;

    // ---- errors (FlexGrid.cpp) ---------------------------------------------------------------
    /// Throws the grid's error `number` with its text.
    [[noreturn]] static void raise(int number);
    /// 30009 unless 0 <= row < Rows.
    void checkRow(int row) const;
    /// 30010 unless 0 <= col < Cols.
    void checkCol(int col) const;
    /// 30009/30010 unless the current cell exists (Cell* members, Text let).
    void checkCurrentCell() const;

    // ---- current cell and selection (FlexGrid.cpp) -----------------------------------------
    /// Moves the current cell and the selection corners, applying SelectionMode, in the
    /// sequence: LeaveCell (when the cell changes) → change → SelChange (when the rectangle
    /// changed) → EnterCell → RowColChange. Used by code moves, clamping and the user.
    void moveCurrent(int newRow, int newCol, int newRowSel, int newColSel);
    /// Moves only the selection corners; SelChange when they changed (unless `quiet`).
    void setSelection(int newRowSel, int newColSel, bool quiet = false);
    /// A cell event (LeaveCell, SelChange, EnterCell, RowColChange): to the hosting grid, then
    /// to the signal's receivers.
    void notify(void (FlexCellEventSink::*hosting)(), void (FlexGrid::*signal)());
    /// The corners after SelectionMode widened them to whole rows or columns.
    void applySelectionMode(int& newRowSel, int& newColSel) const;
    /// After Rows/Cols/RemoveItem: brings the current cell and selection back into the grid.
    void clampCurrentCell();
    /// True when (r, c) lies in the selection rectangle.
    bool isSelected(int r, int c) const;
    /// True for a cell of a fixed row or column.
    bool isFixed(int r, int c) const { return r < fixedRows || c < fixedCols; }
    /// The cells a Cell* or Text write reaches: the current cell, or the selection (FillStyle 1).
    QRect fillTarget() const;

    // ---- geometry, pixels in viewport coordinates (FlexGridGeometry.cpp) -----------------
    /// Renews dpiX, dpiY and defaultRowHeight from the widget.
    void refreshMetrics();
    int defaultRowHeightPx() const;
    int defaultColWidthPx() const;
    /// Drawn height of a row, 0 when hidden; RowHeightMin applied to visible rows.
    int rowHeightPx(int r) const;
    /// Drawn width of a column, 0 when hidden.
    int colWidthPx(int c) const;
    int fixedRowsHeightPx() const;
    int fixedColsWidthPx() const;
    /// Top edge of a row: fixed rows at their place, others relative to TopRow (rows above it
    /// get positions before the fixed part, negative possibly).
    int rowTopPx(int r) const;
    int colLeftPx(int c) const;
    /// The cell's rectangle, its right/bottom grid line included.
    QRect cellRectPx(int r, int c) const;
    /// Row / column under a viewport point, clamped as MouseRow / MouseCol are.
    int rowAtPx(int y) const;
    int colAtPx(int x) const;
    /// The last row / column at least partly inside the viewport.
    int lastVisibleRow() const;
    int lastVisibleCol() const;
    /// The largest TopRow / LeftCol that still fills the viewport.
    int maxTopRow() const;
    int maxLeftCol() const;
    /// Sets TopRow / LeftCol clamped to FixedRows..maxTopRow; fires Scroll when it moved.
    bool scrollToRow(int r);
    bool scrollToCol(int c);
    /// TopRow after a page down (the first row not wholly shown) and a page up (the first row
    /// of the page that ends just above TopRow).
    int pageDownTopRow() const;
    int pageUpTopRow() const;
    /// Scrolls so the cell is fully visible (as far as the viewport allows).
    void ensureVisible(int r, int c);
    /// Sets TopRow and LeftCol together (each clamped); one Scroll when either moved.
    bool scrollTo(int top, int left);
    /// Follows a scroll bar the user moved (whole rows and columns).
    void scrollFromBars();
    /// Ranges and values of the scroll bars from TopRow/LeftCol, without feedback: queued to
    /// the next pass of the event loop (once, however many changes come before it).
    void updateScrollBars();
    /// Sets the bars' ranges and values now; updateScrollBars queues this.
    void syncScrollBars();
    bool scrollBarSyncQueued = false;
    /// Geometry changed (sizes, fonts, counts): re-clamp TopRow/LeftCol, scroll bars, repaint.
    void relayout();
    /// Schedules a repaint of the viewport unless Redraw is false.
    void requestRepaint();
    int twipsToPxX(int twips) const;
    int twipsToPxY(int twips) const;
    int pxToTwipsX(int px) const;
    int pxToTwipsY(int px) const;

    // ---- effective look (FlexGrid.cpp) --------------------------------------------------
    /// The font a cell is drawn with: Font / FontFixed with the cell's own font members.
    QFont cellFont(int r, int c) const;
    /// The alignment a cell's text is drawn with: CellAlignment, else the column's.
    int effectiveAlignment(int r, int c) const;
    QFont fixedFont() const;

    // ---- painting (FlexGridPaint.cpp) ---------------------------------------------------
    /// Paints the cells intersecting `region` (viewport coordinates) and the background.
    void paint(QPainter& painter, const QRect& region) const;
    /// The `Picture` snapshot: the whole viewport as drawn.
    QPixmap snapshot() const;
    /// The full text of the cell under viewport point `pos` when it shows as "###" (a number
    /// column's number wider than its cell), for its tool tip; empty otherwise.
    QString hiddenNumberAt(const QPoint& pos) const;

    // ---- input (FlexGridInput.cpp) ------------------------------------------------------
    void mousePress(QMouseEvent* event);
    void mouseMove(QMouseEvent* event);
    void mouseRelease(QMouseEvent* event);
    void mouseDoubleClick(QMouseEvent* event);
    void wheel(QWheelEvent* event);
    void keyPress(QKeyEvent* event);
    void keyRelease(QKeyEvent* event);
    /// One step of a selecting drag held outside the cells (dragScrollTimer).
    void dragScrollTick();
    /// The pointer shape for the MousePointer setting (and resize zones under the pointer).
    void updateCursor();

    // ---- sort, FormatString, data binding ------------------------------------------------
    void sort(int setting);
    void applyFormatString(const QString& format);
    void bindModel(QAbstractItemModel* model);
    void unbindModel();
};

} // namespace VemoGridLib
