// SPDX-License-Identifier: MIT
// The hosted cell surface of VemoGrid and of VemoComboBox's list: our FlexGrid.
#pragma once

#include <VemoGridLib/FlexEnums.h>

#include <VemoGridLib/ErrorGuard.h>
#include <VemoGridLib/OleColor.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QAbstractScrollArea>
#include <QPixmap>

#include <memory>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
QT_END_NAMESPACE

namespace VemoGridLib {

class FlexGridPrivate;

/// The cell surface that VemoGrid hosts as `MSHFlexGrid1` and VemoComboBox as `grid`, its
/// drop-down list. Every member behaves as the MSHFlexGrid member of the same name, with
/// that control's defaults, error numbers and texts. Positions and sizes are twips, colours OLE
/// colours; a failing call throws `VemoError` with the grid's error number and text.
///
/// Events are signals of the same names, emitted synchronously; by-reference arguments may be
/// changed by a directly connected handler. Cells live in a headless `FlexCellStore`, so cost
/// follows the work: painting touches the visible cells only, row moves move row handles.
class VEMOGRIDLIB_EXPORT FlexGrid : public QAbstractScrollArea
{
    Q_OBJECT
    Q_PROPERTY(int Rows READ Rows WRITE guardedSetRows)
    Q_PROPERTY(int Cols READ Cols WRITE guardedSetCols)
    Q_PROPERTY(int FixedRows READ FixedRows WRITE guardedSetFixedRows)
    Q_PROPERTY(int FixedCols READ FixedCols WRITE guardedSetFixedCols)
    Q_PROPERTY(int Row READ Row WRITE guardedSetRow)
    Q_PROPERTY(int Col READ Col WRITE guardedSetCol)
    Q_PROPERTY(int RowSel READ RowSel WRITE guardedSetRowSel)
    Q_PROPERTY(int ColSel READ ColSel WRITE guardedSetColSel)
    Q_PROPERTY(int TopRow READ TopRow WRITE guardedSetTopRow)
    Q_PROPERTY(int LeftCol READ LeftCol WRITE guardedSetLeftCol)
    Q_PROPERTY(QString Text READ Text WRITE guardedSetText)
    Q_PROPERTY(QString FormatString READ FormatString WRITE guardedSetFormatString)
    Q_PROPERTY(int RowHeightMin READ RowHeightMin WRITE guardedSetRowHeightMin)
    Q_PROPERTY(int FillStyle READ FillStyle WRITE guardedSetFillStyle)
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE guardedSetBackColor)
    Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE guardedSetForeColor)
    Q_PROPERTY(quint32 BackColorBkg READ BackColorBkg WRITE guardedSetBackColorBkg)
    Q_PROPERTY(quint32 BackColorFixed READ BackColorFixed WRITE guardedSetBackColorFixed)
    Q_PROPERTY(quint32 ForeColorFixed READ ForeColorFixed WRITE guardedSetForeColorFixed)
    Q_PROPERTY(quint32 BackColorSel READ BackColorSel WRITE guardedSetBackColorSel)
    Q_PROPERTY(quint32 ForeColorSel READ ForeColorSel WRITE guardedSetForeColorSel)
    Q_PROPERTY(quint32 GridColor READ GridColor WRITE guardedSetGridColor)
    Q_PROPERTY(quint32 GridColorFixed READ GridColorFixed WRITE guardedSetGridColorFixed)
    Q_PROPERTY(int GridLines READ GridLines WRITE guardedSetGridLines)
    Q_PROPERTY(int GridLinesFixed READ GridLinesFixed WRITE guardedSetGridLinesFixed)
    Q_PROPERTY(int GridLineWidth READ GridLineWidth WRITE guardedSetGridLineWidth)
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    Q_PROPERTY(QFont FontFixed READ FontFixed WRITE guardedSetFontFixed)
    Q_PROPERTY(int FocusRect READ FocusRect WRITE guardedSetFocusRect)
    Q_PROPERTY(int HighLight READ HighLight WRITE guardedSetHighLight)
    Q_PROPERTY(int TextStyle READ TextStyle WRITE guardedSetTextStyle)
    Q_PROPERTY(int TextStyleFixed READ TextStyleFixed WRITE guardedSetTextStyleFixed)
    Q_PROPERTY(bool WordWrap READ WordWrap WRITE guardedSetWordWrap)
    Q_PROPERTY(int MergeCells READ MergeCells WRITE guardedSetMergeCells)
    Q_PROPERTY(int SelectionMode READ SelectionMode WRITE guardedSetSelectionMode)
    Q_PROPERTY(bool AllowBigSelection READ AllowBigSelection WRITE guardedSetAllowBigSelection)
    Q_PROPERTY(int AllowUserResizing READ AllowUserResizing WRITE guardedSetAllowUserResizing)
    Q_PROPERTY(int ScrollBars READ ScrollBars WRITE guardedSetScrollBars)
    Q_PROPERTY(bool ScrollTrack READ ScrollTrack WRITE guardedSetScrollTrack)
    Q_PROPERTY(bool Redraw READ Redraw WRITE guardedSetRedraw)
    Q_PROPERTY(int MousePointer READ MousePointer WRITE guardedSetMousePointer)
    Q_PROPERTY(int PictureType READ PictureType WRITE guardedSetPictureType)
    Q_PROPERTY(QAbstractItemModel* DataSource READ DataSource WRITE guardedSetDataSource)

public:
    explicit FlexGrid(QWidget* parent = nullptr);
    ~FlexGrid() override;

    // ---- rows, columns and fixed counts ------------------------------------------------
    /// `Rows`: total rows (default 2). Lowers `FixedRows` below it, clamps the current cell
    /// (cell events), re-clamps `TopRow`. < 0 → 30009. A grid holds at most 65,536 columns and
    /// 67,108,864 cells (`Rows` × `Cols`, a count of 0 taken as 1): a size beyond that, or one
    /// the memory cannot hold, raises 7 "Out of memory" at once and leaves the grid unchanged.
    int Rows() const;
    void setRows(int rows);
    /// `Cols`: total columns (default 2); as `Rows` for columns, limits included. < 0 → 30010.
    int Cols() const;
    void setCols(int cols);
    /// `FixedRows` (default 1): < 0 → 30009, ≥ `Rows` (when data rows exist) → 30016; moves the
    /// current cell to row `FixedRows` and `TopRow` there.
    int FixedRows() const;
    void setFixedRows(int rows);
    /// `FixedCols` (default 1): as `FixedRows` with 30010 / 30017.
    int FixedCols() const;
    void setFixedCols(int cols);

    // ---- cell text ---------------------------------------------------------------------
    /// `TextMatrix(row, col)`: any cell, no events; out of range → 381.
    QString TextMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const QString& text);
    /// `Text`: the current cell; the setter honours `FillStyle`.
    QString Text() const;
    void setText(const QString& text);
    /// `TextArray(index)` with index = row × Cols + col; out of range → 381.
    QString TextArray(int index) const;
    void setTextArray(int index, const QString& text);
    /// `FormatString`: "|"-separated column headers, alignments and widths; reads back verbatim.
    QString FormatString() const;
    void setFormatString(const QString& format);

    // ---- current cell and selection ----------------------------------------------------
    /// `Row`, `Col`: the current cell. Setting collapses the selection onto it and fires
    /// LeaveCell → SelChange → EnterCell → RowColChange when it changes; never scrolls.
    int Row() const;
    void setRow(int row);
    int Col() const;
    void setCol(int col);
    /// `RowSel`, `ColSel`: the other corner of the selection; fires SelChange only.
    int RowSel() const;
    void setRowSel(int row);
    int ColSel() const;
    void setColSel(int col);
    /// `SelectionMode` 0–2 (default 0); other values → 380.
    int SelectionMode() const;
    void setSelectionMode(int mode);
    /// `AllowBigSelection` (default true): header clicks select whole columns or rows.
    bool AllowBigSelection() const;
    void setAllowBigSelection(bool allow);

    // ---- geometry, scrolling, hit-testing (twips) --------------------------------------
    /// `ColWidth(col)`: −1 for a never-set column; 0 hides; < −1 → 30014; col −1 sets all.
    int ColWidth(int col) const;
    void setColWidth(int col, int twips);
    /// `RowHeight(row)`: the effective height; 0 hides; −1 restores the default; < −1 → 30013.
    int RowHeight(int row) const;
    void setRowHeight(int row, int twips);
    /// `RowHeightMin` (default 0); < 0 → 30013.
    int RowHeightMin() const;
    void setRowHeightMin(int twips);
    /// `TopRow`, `LeftCol`: first visible non-fixed row / column; clamped; fires Scroll.
    int TopRow() const;
    void setTopRow(int row);
    int LeftCol() const;
    void setLeftCol(int col);
    /// `ColPos(col)`, `RowPos(row)`: left / top edge from the grid's top-left, scroll included.
    int ColPos(int col) const;
    int RowPos(int row) const;
    /// `ColIsVisible(col)`, `RowIsVisible(row)`: at least partly inside the client area.
    bool ColIsVisible(int col) const;
    bool RowIsVisible(int row) const;
    /// `CellLeft`, `CellTop`, `CellWidth`, `CellHeight`: the current cell's rectangle relative
    /// to the control's outer top-left; width and height exclude the grid line. Reading any of
    /// them first scrolls the cell into view (may fire Scroll).
    int CellLeft();
    int CellTop();
    int CellWidth();
    int CellHeight();
    /// `MouseRow`, `MouseCol`: the cell under the pointer; past the last row/column they report
    /// the last one, above/left of the grid 0.
    int MouseRow() const;
    int MouseCol() const;
    /// `ScrollBars` 0–3 (default 3); other values → 380.
    int ScrollBars() const;
    void setScrollBars(int bars);
    /// `ScrollTrack` (default false): scroll while the thumb is dragged.
    bool ScrollTrack() const;
    void setScrollTrack(bool track);
    /// The line/page scrolling of a combo box's list grid: moves `TopRow` by one row or one
    /// page, clamped; fires Scroll when it moved; never moves the current cell.
    void scrollVertically(int request);

    // ---- per-cell look (current cell, or the selection with FillStyle 1) ---------------
    /// `FillStyle` 0–1 (default 0); other values → 380.
    int FillStyle() const;
    void setFillStyle(int style);
    /// `CellBackColor`, `CellForeColor`: 0 = the grid's colours; reads back what was set.
    OleColor CellBackColor() const;
    void setCellBackColor(OleColor color);
    OleColor CellForeColor() const;
    void setCellForeColor(OleColor color);
    /// `CellAlignment` 0–9; unset reads the column's alignment; invalid → 30005.
    int CellAlignment() const;
    void setCellAlignment(int alignment);
    /// `CellFontBold`, `CellFontItalic`, `CellFontUnderline`: unset reads the grid font's.
    bool CellFontBold() const;
    void setCellFontBold(bool bold);
    bool CellFontItalic() const;
    void setCellFontItalic(bool italic);
    bool CellFontUnderline() const;
    void setCellFontUnderline(bool underline);
    /// `CellFontName`, `CellFontSize` (points), `CellFontWidth` (points, 0 = normal).
    QString CellFontName() const;
    void setCellFontName(const QString& name);
    float CellFontSize() const;
    void setCellFontSize(float points);
    float CellFontWidth() const;
    void setCellFontWidth(float points);
    /// `CellPicture`: drawn beside the text at `CellPictureAlignment`; a null pixmap removes it.
    QPixmap CellPicture() const;
    void setCellPicture(const QPixmap& picture);
    /// `CellPictureAlignment` 0–8 (default 0); invalid → 30005.
    int CellPictureAlignment() const;
    void setCellPictureAlignment(int alignment);
    /// `CellTextStyle` 0–4; unset reads `TextStyle` / `TextStyleFixed`.
    int CellTextStyle() const;
    void setCellTextStyle(int style);

    /// `ColAlignment(col)` 0–9 (default 9); col −1 = all; bad col → 30004, bad value → 30005.
    int ColAlignment(int col) const;
    void setColAlignment(int col, int alignment);
    /// `ColAlignmentFixed(col)`: the fixed cells' alignment, following `ColAlignment` until set.
    int ColAlignmentFixed(int col) const;
    void setColAlignmentFixed(int col, int alignment);

    /// `MergeCells` 0–4 (default 0); `MergeRow(row)`, `MergeCol(col)` let a row or column merge.
    int MergeCells() const;
    void setMergeCells(int setting);
    bool MergeRow(int row) const;
    void setMergeRow(int row, bool merge);
    bool MergeCol(int col) const;
    void setMergeCol(int col, bool merge);
    /// `RowData(row)`, `ColData(col)`: a number carried with the row / column.
    qint32 RowData(int row) const;
    void setRowData(int row, qint32 value);
    qint32 ColData(int col) const;
    void setColData(int col, qint32 value);

    // ---- row and column operations -----------------------------------------------------
    /// `ColPosition(col) = to`: moves a column with everything it carries; bad index → 381.
    void setColPosition(int col, int to);
    /// `RowPosition(row) = to`: the same for rows.
    void setRowPosition(int row, int to);
    /// `AddItem(item)`: appends a row filled from the TAB-separated `item`.
    void AddItem(const QString& item);
    /// `AddItem(item, index)`: inserts before `index`; fixed row → 30001, outside → 30002.
    void AddItem(const QString& item, int index);
    /// `RemoveItem(index)`: fixed row → 30000, outside → 30002, the last data row → 30015.
    void RemoveItem(int index);
    /// `Clear`: every cell's text, picture and look, headers included; structure kept.
    void Clear();
    /// `ClearStructure`: drops the `DataSource` binding; cells are kept.
    void ClearStructure();

    // ---- sort --------------------------------------------------------------------------
    /// `Sort = setting` (write-only): 1–8 generic, numeric, text without / with case (odd up, even
    /// down), stable, whole rows moving; 9 raises Compare per pair; 0 does nothing; others → 380.
    void setSort(int setting);

    // ---- grid-wide look ----------------------------------------------------------------
    /// Colours of non-fixed, fixed and selected cells, of the area outside the cells, and of the
    /// flat grid lines; defaults: system colours, &H808080 outside, &HC0C0C0 / black lines.
    OleColor BackColor() const;
    void setBackColor(OleColor color);
    OleColor ForeColor() const;
    void setForeColor(OleColor color);
    OleColor BackColorBkg() const;
    void setBackColorBkg(OleColor color);
    OleColor BackColorFixed() const;
    void setBackColorFixed(OleColor color);
    OleColor ForeColorFixed() const;
    void setForeColorFixed(OleColor color);
    OleColor BackColorSel() const;
    void setBackColorSel(OleColor color);
    OleColor ForeColorSel() const;
    void setForeColorSel(OleColor color);
    OleColor GridColor() const;
    void setGridColor(OleColor color);
    OleColor GridColorFixed() const;
    void setGridColorFixed(OleColor color);
    /// `GridLines` (default 1), `GridLinesFixed` (default 2): 0–5, else 380.
    int GridLines() const;
    void setGridLines(int style);
    int GridLinesFixed() const;
    void setGridLinesFixed(int style);
    /// `GridLineWidth` in pixels (default 1); < 1 → 380.
    int GridLineWidth() const;
    void setGridLineWidth(int pixels);
    /// `Font`: the widget's font, used by non-fixed cells (set it with QWidget::setFont).
    QFont Font() const;
    /// `FontFixed`: the fixed cells' font; follows `Font` until set.
    QFont FontFixed() const;
    void setFontFixed(const QFont& font);
    /// `FocusRect` 0–2 (default 1), `HighLight` 0–2 (default 1); else 380.
    int FocusRect() const;
    void setFocusRect(int style);
    int HighLight() const;
    void setHighLight(int setting);
    /// `TextStyle`, `TextStyleFixed` 0–4 (default 0); else 380.
    int TextStyle() const;
    void setTextStyle(int style);
    int TextStyleFixed() const;
    void setTextStyleFixed(int style);
    /// `WordWrap` (default false): long texts wrap inside their cells.
    bool WordWrap() const;
    void setWordWrap(bool wrap);
    /// `AllowUserResizing` 0–3 (default 0): dragging grid lines resizes columns / rows.
    int AllowUserResizing() const;
    void setAllowUserResizing(int setting);
    /// `Redraw` (default true): false suspends painting; true repaints once.
    bool Redraw() const;
    void setRedraw(bool redraw);
    /// `MousePointer` (0–15 the standard pointers; 11 = hourglass, 99 = `MouseIcon`); else 380.
    int MousePointer() const;
    void setMousePointer(int pointer);
    /// The pointer shown for `MousePointer` 99.
    QCursor MouseIcon() const;
    void setMouseIcon(const QCursor& cursor);
    /// `Picture` (read-only): a snapshot of the cells as drawn (the client area, without the
    /// frame and scroll bars), monochrome with `PictureType` 1; works with `Redraw` false.
    QPixmap Picture() const;
    int PictureType() const;
    void setPictureType(int type);

    /// `DataSource`: fills the cells from a model (header row from its horizontal header data,
    /// one row per model row after the fixed ones) and follows its reset, insert, remove and
    /// change signals; null unbinds and keeps the cells.
    QAbstractItemModel* DataSource() const;
    void setDataSource(QAbstractItemModel* model);

Q_SIGNALS:
    /// A button released over the grid after a press on it.
    void Click();
    void DblClick();
    /// Before the grid's own key handling: KeyCode = 0 cancels it; a handler that moved the
    /// current cell itself is not followed by a second, built-in move.
    void KeyDown(short& KeyCode, short& Shift);
    void KeyPress(short& KeyAscii);
    void KeyUp(short& KeyCode, short& Shift);
    /// Button 1/2/4, Shift mask 1/2/4, X and Y in twips of the client area.
    void MouseDown(short Button, short Shift, float X, float Y);
    void MouseMove(short Button, short Shift, float X, float Y);
    void MouseUp(short Button, short Shift, float X, float Y);
    /// Before / after the current cell moves: LeaveCell, SelChange, EnterCell, RowColChange.
    void LeaveCell();
    void EnterCell();
    void RowColChange();
    /// The selection rectangle changed.
    void SelChange();
    /// `TopRow` or `LeftCol` changed.
    void Scroll();
    /// `Sort = 9`: set Cmp to −1, 0 or 1 for the rows Row1 and Row2.
    void Compare(int Row1, int Row2, short& Cmp);
    /// The grid gained / lost the keyboard focus.
    void GotFocus();
    void LostFocus();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void connectNotify(const QMetaMethod& signal) override;

private:
    // The writers moc calls for the properties above (VemoGridLib/ErrorGuard.h).
    VEMO_GUARDED_WRITE(int, Rows);
    VEMO_GUARDED_WRITE(int, Cols);
    VEMO_GUARDED_WRITE(int, FixedRows);
    VEMO_GUARDED_WRITE(int, FixedCols);
    VEMO_GUARDED_WRITE(int, Row);
    VEMO_GUARDED_WRITE(int, Col);
    VEMO_GUARDED_WRITE(int, RowSel);
    VEMO_GUARDED_WRITE(int, ColSel);
    VEMO_GUARDED_WRITE(int, TopRow);
    VEMO_GUARDED_WRITE(int, LeftCol);
    VEMO_GUARDED_WRITE(QString, Text);
    VEMO_GUARDED_WRITE(QString, FormatString);
    VEMO_GUARDED_WRITE(int, RowHeightMin);
    VEMO_GUARDED_WRITE(int, FillStyle);
    VEMO_GUARDED_WRITE(quint32, BackColor);
    VEMO_GUARDED_WRITE(quint32, ForeColor);
    VEMO_GUARDED_WRITE(quint32, BackColorBkg);
    VEMO_GUARDED_WRITE(quint32, BackColorFixed);
    VEMO_GUARDED_WRITE(quint32, ForeColorFixed);
    VEMO_GUARDED_WRITE(quint32, BackColorSel);
    VEMO_GUARDED_WRITE(quint32, ForeColorSel);
    VEMO_GUARDED_WRITE(quint32, GridColor);
    VEMO_GUARDED_WRITE(quint32, GridColorFixed);
    VEMO_GUARDED_WRITE(int, GridLines);
    VEMO_GUARDED_WRITE(int, GridLinesFixed);
    VEMO_GUARDED_WRITE(int, GridLineWidth);
    VEMO_GUARDED_WRITE(QFont, FontFixed);
    VEMO_GUARDED_WRITE(int, FocusRect);
    VEMO_GUARDED_WRITE(int, HighLight);
    VEMO_GUARDED_WRITE(int, TextStyle);
    VEMO_GUARDED_WRITE(int, TextStyleFixed);
    VEMO_GUARDED_WRITE(bool, WordWrap);
    VEMO_GUARDED_WRITE(int, MergeCells);
    VEMO_GUARDED_WRITE(int, SelectionMode);
    VEMO_GUARDED_WRITE(bool, AllowBigSelection);
    VEMO_GUARDED_WRITE(int, AllowUserResizing);
    VEMO_GUARDED_WRITE(int, ScrollBars);
    VEMO_GUARDED_WRITE(bool, ScrollTrack);
    VEMO_GUARDED_WRITE(bool, Redraw);
    VEMO_GUARDED_WRITE(int, MousePointer);
    VEMO_GUARDED_WRITE(int, PictureType);
    VEMO_GUARDED_WRITE(QAbstractItemModel*, DataSource);
    friend class FlexGridPrivate;
    std::unique_ptr<FlexGridPrivate> d;
};

} // namespace VemoGridLib
