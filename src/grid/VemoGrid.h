// SPDX-License-Identifier: MIT
// The data-entry grid control.
#pragma once

#include <VemoGridLib/Column.h>

#include <VemoGridLib/ErrorGuard.h>
#include <VemoGridLib/FlexEnums.h>
#include <VemoGridLib/OleColor.h>
#include <VemoGridLib/PropertyTypes.h>
#include <VemoGridLib/VemoEnums.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QPixmap>
#include <QVariant>
#include <QWidget>

#include <memory>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
QT_END_NAMESPACE

namespace VemoGridLib {

class FlexGrid;
class PropertyBag;
class VemoGridPrivate;

/// `VemoGrid`, the library's data-entry grid. It keeps every cell in its hosted
/// `FlexGrid` (objectName `MSHFlexGrid1`), which fills the control but for a 60-twip margin,
/// and adds one `Column` per column, in-cell editing, typed cell writes, row operations with the
/// empty-line rule and automatic numbering, typed sorting with header clicks, a per-row
/// auto-calculated column, saved properties and Excel export.
///
/// Editing: a click on a data cell, or a move to it with the arrows or Enter, lays the editor of
/// the column's type over the cell and focuses it — `VemoTextBox1` for text, hyperlink,
/// currency, numeric and long columns, `VemoCheckBox1` for check boxes, `VemoComboBox1` for combo
/// boxes, `VemoDTPicker1` for dates (with the grid's `LunarCalendar`), `VemoBtnTxt1` for button
/// columns. Leaving the cell (a move key, a
/// click elsewhere, the focus going away, a scroll, a sort or row operation) commits: an
/// unchanged text only hides the editor; otherwise the editor's `Validate` decides
/// (`ValidateError` and the old text stay on a refusal), `BeforeChange` may cancel, the cell
/// takes the editor's text and `CellChanged` follows. Up and Down skip hidden rows; Left, Right
/// and Enter skip columns of 15 twips or less, `Locked` and `AutoAdd` ones; Left and Right
/// move the caret inside a text until it reaches an edge; Enter wraps to the next row and, in
/// the last cell, adds a row under `AutoGrow` (an empty row only with `NullLine`). Esc puts the
/// cell's text back into the editor. A hyperlink cell with text opens through `shellOpen`
/// instead of being edited. Alt+Up/Down, and a wheel notch of exactly ±120 while the grid has
/// the focus, scroll by `ScrollNum` rows (or columns, per `ScrollType`).
///
/// Positions and sizes are twips, colours OLE colours. A failing call throws `VemoError`.
/// Every setter emits `PropertyChanged` with the property's name ("SortAble" for `Sortable`).
/// Pass-through members ("pass") forward to the hosted grid's member of the same name, whose
/// behaviour is `FlexGrid`'s.
///
/// Bulk work — the colouring and check-box passes, sorting, typed cell writes, row operations —
/// runs with the grid's events suppressed: no `EnterCell`, `LeaveCell` or editor work.
///
/// Auto-calculation rounds with `vb::Round`: half to even, applied to the binary product
/// value × 10^DecimalLength (so Round(2.675, 2) = 2.68 and 2 × 1.005 rounds to 2.01).
class VEMOGRIDLIB_EXPORT VemoGrid : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int Rows READ Rows WRITE guardedSetRows)
    Q_PROPERTY(int Cols READ Cols WRITE guardedSetCols)
    Q_PROPERTY(int FixedRows READ FixedRows WRITE guardedSetFixedRows)
    Q_PROPERTY(int FixedCols READ FixedCols WRITE guardedSetFixedCols)
    Q_PROPERTY(QString FormatString READ FormatString WRITE guardedSetFormatString)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(VemoGridLib::AppearanceConstants Appearance READ enumAppearance WRITE
                   guardedSetEnumAppearance)
    Q_PROPERTY(VemoGridLib::BorderStyleConstants BorderStyle READ enumBorderStyle WRITE
                   guardedSetEnumBorderStyle)
    Q_PROPERTY(QColor BackColor1 READ colorBackColor1 WRITE guardedSetColorBackColor1 RESET
                   resetColorBackColor1)
    Q_PROPERTY(QColor BackColor2 READ colorBackColor2 WRITE guardedSetColorBackColor2 RESET
                   resetColorBackColor2)
    Q_PROPERTY(QColor ReadOnlyColor READ colorReadOnlyColor WRITE guardedSetColorReadOnlyColor RESET
                   resetColorReadOnlyColor)
    Q_PROPERTY(QColor ForeColor READ colorForeColor WRITE guardedSetColorForeColor RESET
                   resetColorForeColor)
    Q_PROPERTY(QColor BackColorBkg READ colorBackColorBkg WRITE guardedSetColorBackColorBkg RESET
                   resetColorBackColorBkg)
    Q_PROPERTY(QColor BackColorFixed READ colorBackColorFixed WRITE guardedSetColorBackColorFixed
                   RESET resetColorBackColorFixed)
    Q_PROPERTY(QColor BackColorSel READ colorBackColorSel WRITE guardedSetColorBackColorSel RESET
                   resetColorBackColorSel)
    Q_PROPERTY(QColor ForeColorSel READ colorForeColorSel WRITE guardedSetColorForeColorSel RESET
                   resetColorForeColorSel)
    Q_PROPERTY(QColor ForeColorFixed READ colorForeColorFixed WRITE guardedSetColorForeColorFixed
                   RESET resetColorForeColorFixed)
    Q_PROPERTY(QColor GridColor READ colorGridColor WRITE guardedSetColorGridColor RESET
                   resetColorGridColor)
    Q_PROPERTY(QColor GridColorFixed READ colorGridColorFixed WRITE guardedSetColorGridColorFixed
                   RESET resetColorGridColorFixed)
    Q_PROPERTY(VemoGridLib::Flex::GridLineSettings GridLines READ enumGridLines WRITE
                   guardedSetEnumGridLines)
    Q_PROPERTY(VemoGridLib::Flex::GridLineSettings GridLinesFixed READ enumGridLinesFixed WRITE
                   guardedSetEnumGridLinesFixed)
    Q_PROPERTY(int GridLineWidth READ GridLineWidth WRITE guardedSetGridLineWidth)
    Q_PROPERTY(VemoGridLib::AppearanceConstants CellAppearance READ enumCellAppearance WRITE
                   guardedSetEnumCellAppearance)
    Q_PROPERTY(VemoGridLib::BorderStyleConstants CellBorderStyle READ enumCellBorderStyle WRITE
                   guardedSetEnumCellBorderStyle)
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    Q_PROPERTY(QFont FontFixed READ FontFixed WRITE guardedSetFontFixed)
    Q_PROPERTY(VemoGridLib::Flex::FocusRectSettings FocusRect READ enumFocusRect WRITE
                   guardedSetEnumFocusRect)
    Q_PROPERTY(VemoGridLib::Flex::MergeCellsSettings MergeCells READ enumMergeCells WRITE
                   guardedSetEnumMergeCells)
    Q_PROPERTY(VemoGridLib::Flex::SelectionModeSettings SelectionMode READ enumSelectionMode WRITE
                   guardedSetEnumSelectionMode)
    Q_PROPERTY(bool WordWrap READ WordWrap WRITE guardedSetWordWrap)
    Q_PROPERTY(VemoGridLib::Flex::TextStyleSettings TextStyle READ enumTextStyle WRITE
                   guardedSetEnumTextStyle)
    Q_PROPERTY(VemoGridLib::Flex::TextStyleSettings TextStyleFixed READ enumTextStyleFixed WRITE
                   guardedSetEnumTextStyleFixed)
    Q_PROPERTY(VemoGridLib::Flex::ScrollBarsSettings ScrollBars READ enumScrollBars WRITE
                   guardedSetEnumScrollBars)
    Q_PROPERTY(bool ScrollTrack READ ScrollTrack WRITE guardedSetScrollTrack)
    Q_PROPERTY(VemoGridLib::Flex::HighLightSettings HighLight READ enumHighLight WRITE
                   guardedSetEnumHighLight)
    Q_PROPERTY(bool AllowBigSelection READ AllowBigSelection WRITE guardedSetAllowBigSelection)
    Q_PROPERTY(VemoGridLib::Flex::AllowUserResizeSettings AllowUserResizing READ
                   enumAllowUserResizing WRITE guardedSetEnumAllowUserResizing)
    Q_PROPERTY(bool EditEnable READ EditEnable WRITE guardedSetEditEnable)
    Q_PROPERTY(bool Sortable READ Sortable WRITE guardedSetSortable)
    Q_PROPERTY(bool NullLine READ NullLine WRITE guardedSetNullLine)
    Q_PROPERTY(bool AutoGrow READ AutoGrow WRITE guardedSetAutoGrow)
    Q_PROPERTY(bool AssignCellColorSel READ AssignCellColorSel WRITE guardedSetAssignCellColorSel)
    Q_PROPERTY(QColor CellBackColorSel READ colorCellBackColorSel WRITE
                   guardedSetColorCellBackColorSel RESET resetColorCellBackColorSel)
    Q_PROPERTY(QColor CellForeColorSel READ colorCellForeColorSel WRITE
                   guardedSetColorCellForeColorSel RESET resetColorCellForeColorSel)
    Q_PROPERTY(int AutoCalc1 READ AutoCalc1 WRITE guardedSetAutoCalc1)
    Q_PROPERTY(int AutoCalc2 READ AutoCalc2 WRITE guardedSetAutoCalc2)
    Q_PROPERTY(int AutoCalcRES READ AutoCalcRES WRITE guardedSetAutoCalcRES)
    Q_PROPERTY(QString AutoCalcOPE READ AutoCalcOPE WRITE guardedSetAutoCalcOPE)
    Q_PROPERTY(
        VemoGridLib::VemoGridScrollType ScrollType READ ScrollType WRITE guardedSetScrollType)
    Q_PROPERTY(short ScrollNum READ ScrollNum WRITE guardedSetScrollNum)
    Q_PROPERTY(bool LunarCalendar READ LunarCalendar WRITE guardedSetLunarCalendar)
    Q_PROPERTY(bool Redraw READ Redraw WRITE guardedSetRedraw)
    Q_PROPERTY(bool UserMode READ UserMode WRITE guardedSetUserMode DESIGNABLE false)
    Q_PROPERTY(QVariant Tag READ Tag WRITE guardedSetTag)
    Q_PROPERTY(QAbstractItemModel* DataSource READ DataSource WRITE guardedSetDataSource)
    // Last, so that a form loader sets it after the sizes and the format string.
    Q_PROPERTY(QString ColumnSetup READ ColumnSetup WRITE guardedSetColumnSetup)

public:
    /// Creates the hosted grid 2 × 2 with one fixed row and column, every field at
    /// its initial value, then `InitProperties()`, so a new grid owns its `Column` objects.
    explicit VemoGrid(QWidget* parent = nullptr);
    /// Releases the `Column` objects.
    ~VemoGrid() override;

    /// The hosted cell surface `MSHFlexGrid1`, for reading; change cells through the grid.
    const FlexGrid* hostedGrid() const;
    FlexGrid* hostedGrid();

    // ---- container: ambient properties and saved settings ----------------------------
    /// Ambient `UserMode`: true (default) at run time, false at design time. At design time
    /// `Cols` leaves the `Column` array alone, the colouring pass bands every column and the
    /// check-box pass does nothing.
    bool UserMode() const;
    void setUserMode(bool userMode);
    /// A new control's settings: re-applies `Cols` and `Rows` through the grid's own
    /// setters (as after reading), so a grid that was never loaded owns its `Column` objects.
    void InitProperties();
    /// Reads the 52 properties in their reading order with their read defaults, then
    /// re-applies `Cols` and `Rows`; a property that cannot be read or applied is skipped.
    void ReadProperties(const PropertyBag& bag);
    /// Writes the 52 properties in their writing order with their write defaults; a
    /// property that cannot be written is skipped.
    void WriteProperties(PropertyBag& bag) const;

    // ---- rows, columns and the current cell ----------------------------------------------
    /// Total rows (pass get). The setter sets the hosted `Rows`, raises `FixedCols`
    /// and `FixedRows` to at least 1, then runs the colouring and check-box passes. At most
    /// 65,536 columns and 67,108,864 cells (`Rows` × `Cols`, a count of 0 taken as 1): a larger
    /// size, or one the memory cannot hold, raises 7 "Out of memory" with the grid unchanged.
    int Rows() const;
    void setRows(int rows);
    /// Total columns (pass get). The setter resizes the `Column` array first (user mode
    /// only: kept objects keep their settings, new columns get fresh ones). Limited as `Rows`.
    int Cols() const;
    void setCols(int cols);
    /// The hosted `FixedRows` / `FixedCols` (pass).
    int FixedRows() const;
    void setFixedRows(int rows);
    int FixedCols() const;
    void setFixedCols(int cols);
    /// The current cell (pass get). The setters first run the leave-cell step
    /// (`LeaveCell`, then with `EditEnable` the editor commit and auto-calculation).
    int Row() const;
    void setRow(int row);
    int Col() const;
    void setCol(int col);
    /// The other corner of the selection (pass `RowSel` / `ColSel`).
    int Rowsel() const;
    void setRowsel(int row);
    int Colsel() const;
    void setColsel(int col);
    /// First visible data row / column (pass).
    int TopRow() const;
    void setTopRow(int row);
    int LeftCol() const;
    void setLeftCol(int col);
    /// The hosted `FormatString` (pass get). The setter then re-applies `Cols`, so the
    /// `Column` array follows the column count the format string produced.
    QString FormatString() const;
    void setFormatString(const QString& format);

    // ---- columns ---------------------------------------------------------------------------
    /// The `Column` of column `Col`; outside the array → VemoError 9.
    VemoGridLib::Column* Column(int Col);
    const VemoGridLib::Column* Column(int Col) const;
    /// The editing type of column `Col`.
    VemoGridColType ColType(int Col) const;
    /// Records `type` in the column's `Column` (decimals and format of numeric types)
    /// and sets the hosted alignment and width: text 1; check box 0 and 500 twips after the
    /// check-box pass; date 1 and 1250 twips; currency, numeric, long 7. No `PropertyChanged`.
    void setColType(int Col, VemoGridColType type);
    /// The hosted `ColWidth`, reading 1000 for the default width (−1).
    int COLWIDTH(int Col) const;
    void setCOLWIDTH(int Col, int twips);

    // ---- cells and rows ----------------------------------------------------------------------
    /// A cell's text; a check-box column reads "True" for the checked marker "." and
    /// "False" for anything else.
    QString TextMatrix(int Row, int Col) const;
    /// Typed write: check box takes "0", "-1", "True", "False" (else ignored); a date
    /// column takes dates only, formatted with its `FormatString`; a hyperlink cell becomes
    /// blue and underlined and current; others store the text as given. Bad `Col` → 9.
    void setTextMatrix(int Row, int Col, const QString& value);
    /// The current cell's text, read as `TextMatrix` reads it (check boxes as "True"/"False").
    QString Text() const;
    /// The typed write of `setTextMatrix` on the current cell.
    void setText(const QString& value);
    /// A check-box cell holds the checked marker ".".
    bool cgChecked(int Row, int Col) const;
    /// Writes "." or the unchecked marker "`" and redraws the box.
    void setcgChecked(int Row, int Col, bool checked);
    /// Commits an open edit, then adds a row from TAB-separated `Item` at the end (`Index` < 1)
    /// or before `Index`, unless the current row is empty and `NullLine` is false (then the
    /// message "Do not allow add a null line!" is shown and nothing is added). Empty `AutoAdd`
    /// cells take the running number. With the focus in the grid, the new current cell's editor
    /// opens.
    void AddItem(const QString& Item, int Index = 0);
    /// Commits an open edit, then removes row `Index`, or the marked row when `Index` is 0; the
    /// only data row is cleared instead.
    void RemoveItem(int Index = 0);
    /// Removes every data row but one empty one; headers, widths and fixed counts stay.
    void Clear();
    /// The hosted `ClearStructure` only.
    void ClearStructure();
    /// The row carrying the current-row marker; 0 = none.
    int Selected() const;
    /// "3.0.15", the library version.
    QVariant Version() const;
    /// Re-applies `Cols` and `Rows` from the hosted grid through the grid's setters (as
    /// after loading), so `Column` objects, colours and check boxes follow data put into the
    /// hosted grid or its `DataSource` directly.
    void ReSetData();

    // ---- sorting ------------------------------------------------------------------------------
    /// Commits an open edit, then sorts the data rows by `Col` per its `Column.SortType`; `SortNone` alternates
    /// ascending / descending on repeated calls, the others force the direction. The header
    /// shows an up or down arrow. `Col` < `FixedCols` does nothing.
    void Sort(int Col, VemoGridSortMode SortDirection = SortNone);
    /// Sets `Sortable` without `PropertyChanged`; `newValue` is ignored.
    void SortOnHeaderClick(bool SortOn, VemoSortTypeConstants newValue = VemoSortNone);
    /// Ignores its arguments and only suppresses the grid's events (kept for compatibility): an
    /// editor commit does nothing until the next sort or link write.
    void SortOnCol(int Col, VemoSortTypeConstants SortType = VemoSortNone);
    /// A click on a data column's header sorts (default true). Reports "SortAble".
    bool Sortable() const;
    void setSortable(bool sortable);

    // ---- auto-calculation ---------------------------------------------------------------------
    /// Operand columns and the result column (0 or less = off); no range check.
    int AutoCalc1() const;
    void setAutoCalc1(int col);
    int AutoCalc2() const;
    void setAutoCalc2(int col);
    int AutoCalcRES() const;
    void setAutoCalcRES(int col);
    /// The operator. The setter keeps the first character of the trimmed value and
    /// shows "Operator ERROR" when it is not one of + - * /.
    QString AutoCalcOPE() const;
    void setAutoCalcOPE(const QString& op);

    // ---- column setup on the form -----------------------------------------------------------
    /// The columns' design-time settings in the text form of `parseColumnSetup`
    /// (<VemoGridLib/ColumnSetup.h>), as last set; empty for a new grid. Kept beside the saved
    /// properties of `WriteProperties`, for form files such as Qt Designer's.
    QString ColumnSetup() const;
    /// Reads `text` and applies it: raises `Cols` when a line names a column past the end,
    /// writes each header (row 0) and width and, in user mode, the column's `Column` settings,
    /// its type first; at design time only headers and widths show. Columns without a line are
    /// left as they are. A text that does not read throws `VemoError` and changes nothing.
    void setColumnSetup(const QString& text);

    // ---- Excel export -------------------------------------------------------------------------
    /// Writes the table (without column 0) as a BIFF2 worksheet to `FileName`, typed
    /// by column; every failure is silent and skips only the cell concerned.
    void ExportToExcel(const QString& FileName);
    /// Writes the table (without column 0) as an XLSX workbook to `FileName`: the fixed rows as
    /// a bold, frozen header; numbers, dates (as dates), check boxes (as booleans) and
    /// hyperlinks typed by column, with the column's format and width. A cell text that does not
    /// read as its column's type is written as text; texts are cut to 32,767 characters. Throws
    /// VemoError 75 when the file cannot be written.
    void ExportToXlsx(const QString& FileName);
    /// Writes the table (without column 0) as UTF-8 CSV with a byte order mark and CRLF lines,
    /// cells as their texts (check boxes TRUE/FALSE). Throws VemoError 75 when the file cannot
    /// be written.
    void ExportToCsv(const QString& FileName);

    // ---- the grid's own settings -------------------------------------------------------------
    /// Cell editors may be shown; gates the leave-cell work (default true).
    bool EditEnable() const;
    void setEditEnable(bool enable);
    /// A row may be added while the current row is empty (default true).
    bool NullLine() const;
    void setNullLine(bool allow);
    /// Enter in the last cell adds a row (default true).
    bool AutoGrow() const;
    void setAutoGrow(bool grow);
    /// Date editors show lunar dates (default false).
    bool LunarCalendar() const;
    void setLunarCalendar(bool lunar);
    /// What Alt+Up/Down and the wheel scroll, and by how many rows (default 3).
    VemoGridScrollType ScrollType() const;
    void setScrollType(VemoGridScrollType type);
    short ScrollNum() const;
    void setScrollNum(short rows);
    /// Appearance and border given to the cell editors.
    int CellAppearance() const;
    void setCellAppearance(int appearance);
    int CellBorderStyle() const;
    void setCellBorderStyle(int style);
    /// The band colours of even and odd data rows (white, &HBFFFFF) and the colour of
    /// locked and numbered columns (&HDFDFC0). Setting one recolours the data rows.
    OleColor BackColor1() const;
    void setBackColor1(OleColor color);
    OleColor BackColor2() const;
    void setBackColor2(OleColor color);
    OleColor ReadOnlyColor() const;
    void setReadOnlyColor(OleColor color);
    /// Editors take these colours instead of the cell's when `AssignCellColorSel`.
    bool AssignCellColorSel() const;
    void setAssignCellColorSel(bool assign);
    OleColor CellBackColorSel() const;
    void setCellBackColorSel(OleColor color);
    OleColor CellForeColorSel() const;
    void setCellForeColorSel(OleColor color);
    /// The hosted `Redraw` (the grid's mirror of it is the hosted value itself).
    bool Redraw() const;
    void setRedraw(bool redraw);
    /// Any value the host keeps with the control.
    QVariant Tag() const;
    void setTag(const QVariant& tag);
    /// Binds the hosted grid to `model` (not owned), then re-applies `Cols` and `Rows`.
    QAbstractItemModel* DataSource() const;
    void setDataSource(QAbstractItemModel* model);

    // ---- the control's own look ---------------------------------------------------------------
    /// The control's `Enabled` (QWidget::setEnabled sets it), reported as "Enabled".
    bool Enabled() const;
    /// `flat` 0 or `3D` 1 (default 1): the hosted grid's frame is plain or sunken.
    int Appearance() const;
    void setAppearance(int appearance);
    /// `None` 0 or `Fixed Single` 1 (default 1): the hosted grid's frame is shown.
    int BorderStyle() const;
    void setBorderStyle(int style);

    // ---- pass-through members -------------------------------------------------------------
    int RowHeight(int RowIndex) const;
    void setRowHeight(int RowIndex, int twips);
    int RowHeightMin() const;
    void setRowHeightMin(int twips);
    int FillStyle() const;
    void setFillStyle(int style);
    int ColAlignment(int Index) const;
    void setColAlignment(int Index, int alignment);
    int ColAlignmentFixed(int Index) const;
    void setColAlignmentFixed(int Index, int alignment);
    int CellAlignment() const;
    void setCellAlignment(int alignment);
    OleColor CellBackColor() const;
    void setCellBackColor(OleColor color);
    OleColor CellForeColor() const;
    void setCellForeColor(OleColor color);
    bool CellFontBold() const;
    void setCellFontBold(bool bold);
    bool CellFontItalic() const;
    void setCellFontItalic(bool italic);
    bool CellFontUnderLine() const;
    void setCellFontUnderLine(bool underline);
    float CellFontWidth() const;
    void setCellFontWidth(float points);
    float CellFontSize() const;
    void setCellFontSize(float points);
    QString CellFontName() const;
    void setCellFontName(const QString& name);
    QPixmap CellPicture() const;
    void setCellPicture(const QPixmap& picture);
    int CellPictureAlignment() const;
    void setCellPictureAlignment(int alignment);
    /// Reading one scrolls the current cell into view first (may fire Scroll).
    int CellLeft();
    int CellTop();
    int CellWidth();
    int CellHeight();
    bool ColIsVisible(int Index) const;
    bool RowIsVisible(int Index) const;
    int ColPos(int Index) const;
    int RowPos(int Index) const;
    void setColPosition(int Index, int to);
    void setRowPosition(int Index, int to);
    QString TextArray(int Index) const;
    void setTextArray(int Index, const QString& text);
    int FocusRect() const;
    void setFocusRect(int style);
    int HighLight() const;
    void setHighLight(int setting);
    int AllowUserResizing() const;
    void setAllowUserResizing(int setting);
    bool AllowBigSelection() const;
    void setAllowBigSelection(bool allow);
    QPixmap Picture() const;
    int PictureType() const;
    void setPictureType(int type);
    OleColor ForeColor() const;
    void setForeColor(OleColor color);
    OleColor BackColorBkg() const;
    void setBackColorBkg(OleColor color);
    OleColor BackColorFixed() const;
    void setBackColorFixed(OleColor color);
    OleColor BackColorSel() const;
    void setBackColorSel(OleColor color);
    OleColor ForeColorSel() const;
    void setForeColorSel(OleColor color);
    OleColor ForeColorFixed() const;
    void setForeColorFixed(OleColor color);
    OleColor GridColor() const;
    void setGridColor(OleColor color);
    OleColor GridColorFixed() const;
    void setGridColorFixed(OleColor color);
    int GridLines() const;
    void setGridLines(int style);
    int GridLinesFixed() const;
    void setGridLinesFixed(int style);
    int GridLineWidth() const;
    void setGridLineWidth(int pixels);
    /// The hosted grid's `Font`: the control's font (QWidget::setFont sets it), which
    /// the hosted grid follows; reported as "Font".
    QFont Font() const;
    QFont FontFixed() const;
    void setFontFixed(const QFont& font);
    int MergeCells() const;
    void setMergeCells(int setting);
    bool MergeRow(int Row) const;
    void setMergeRow(int Row, bool merge);
    bool MergeCol(int Col) const;
    void setMergeCol(int Col, bool merge);
    int MouseRow() const;
    int MouseCol() const;
    int SelectionMode() const;
    void setSelectionMode(int mode);
    bool WordWrap() const;
    void setWordWrap(bool wrap);
    int TextStyle() const;
    void setTextStyle(int style);
    int TextStyleFixed() const;
    void setTextStyleFixed(int style);
    int ScrollBars() const;
    void setScrollBars(int bars);
    bool ScrollTrack() const;
    void setScrollTrack(bool track);

Q_SIGNALS:
    /// A setter changed the property saved (or reported) as `name`.
    void PropertyChanged(const QString& name);

    /// The grid's events, in their declared order. A click on the hosted grid or in the
    /// editor's text.
    void Click();
    /// The editor reported a change of its content (the text editor only after its `Value` was
    /// assigned: the grid loads it through `Text`).
    void Change();
    /// The list editor is about to drop its list down.
    void BeforeDropDown();
    /// The hosted grid entered a cell; `Value` is always empty.
    void EnterCell(int& Rowsel, int& Colsel, QString& Value);
    void DblClick();
    /// The hosted grid is leaving the current cell (before the commit).
    void LeaveCell();
    void RowColChange();
    /// A row of the list editor became selected: its index among the data rows and its text.
    void CellComboSelect(int RowIndex, const QString& Value);
    /// A list row was committed in the cell (`RowIndex`, `ColIndex`).
    void CellComboClick(int RowIndex, int& ColIndex, QString& Value);
    /// The button of a button column's editor was pressed.
    void BtnClick(int& RowIndex, int& ColIndex);
    /// A validated, changed text is about to be stored; `Cancel` keeps the old one. Changing
    /// `newValue` does not change what is stored.
    void BeforeChange(int Row, int Col, bool& Cancel, QString& newValue);
    /// The cell took the editor's text.
    void CellChanged(int Row, int Col);
    /// The editor's `Validate` refused `Value`; the cell keeps its text.
    void ValidateError(int Row, int Col, const QString& Value);
    /// A key on the hosted grid (raised before the grid acts on it) or in the editor (raised
    /// after the grid's key handling; Alt+Up/Down then arrive as 0).
    void KeyDown(short& KeyCode, short& Shift);
    void KeyPress(short& KeyAscii);
    void KeyUp(short& KeyCode, short& Shift);
    /// Button 1/2/4, Shift 1/2/4, x and y in twips of the hosted grid (an editor's reports
    /// are moved by the editor's place, so they are in the grid's twips too).
    void MouseDown(short& Button, short& Shift, float& x, float& y);
    void MouseMove(short& Button, short& Shift, float& x, float& y);
    void MouseUp(short& Button, short& Shift, float& x, float& y);
    void SelChange();
    void Scroll();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // The accessors moc calls for the properties above (VemoGridLib/ErrorGuard.h,
    // VemoGridLib/PropertyTypes.h).
    VEMO_GUARDED_WRITE(int, Rows);
    VEMO_GUARDED_WRITE(int, Cols);
    VEMO_GUARDED_WRITE(int, FixedRows);
    VEMO_GUARDED_WRITE(int, FixedCols);
    VEMO_GUARDED_WRITE(QString, FormatString);
    VEMO_ENUM_PROPERTY(VemoGridLib::AppearanceConstants, Appearance)
    VEMO_ENUM_PROPERTY(VemoGridLib::BorderStyleConstants, BorderStyle)
    VEMO_COLOR_PROPERTY(BackColor1, 0xFFFFFFu)
    VEMO_COLOR_PROPERTY(BackColor2, 0xBFFFFFu)
    VEMO_COLOR_PROPERTY(ReadOnlyColor, 0xDFDFC0u)
    VEMO_COLOR_PROPERTY(ForeColor, vbWindowText)
    VEMO_COLOR_PROPERTY(BackColorBkg, 0x808080u)
    VEMO_COLOR_PROPERTY(BackColorFixed, vbButtonFace)
    VEMO_COLOR_PROPERTY(BackColorSel, vbHighlight)
    VEMO_COLOR_PROPERTY(ForeColorSel, vbHighlightText)
    VEMO_COLOR_PROPERTY(ForeColorFixed, vbButtonText)
    VEMO_COLOR_PROPERTY(GridColor, 0xC0C0C0u)
    VEMO_COLOR_PROPERTY(GridColorFixed, 0u)
    VEMO_ENUM_PROPERTY(VemoGridLib::Flex::GridLineSettings, GridLines)
    VEMO_ENUM_PROPERTY(VemoGridLib::Flex::GridLineSettings, GridLinesFixed)
    VEMO_GUARDED_WRITE(int, GridLineWidth);
    VEMO_ENUM_PROPERTY(VemoGridLib::AppearanceConstants, CellAppearance)
    VEMO_ENUM_PROPERTY(VemoGridLib::BorderStyleConstants, CellBorderStyle)
    VEMO_GUARDED_WRITE(QFont, FontFixed);
    VEMO_ENUM_PROPERTY(VemoGridLib::Flex::FocusRectSettings, FocusRect)
    VEMO_ENUM_PROPERTY(VemoGridLib::Flex::MergeCellsSettings, MergeCells)
    VEMO_ENUM_PROPERTY(VemoGridLib::Flex::SelectionModeSettings, SelectionMode)
    VEMO_GUARDED_WRITE(bool, WordWrap);
    VEMO_ENUM_PROPERTY(VemoGridLib::Flex::TextStyleSettings, TextStyle)
    VEMO_ENUM_PROPERTY(VemoGridLib::Flex::TextStyleSettings, TextStyleFixed)
    VEMO_ENUM_PROPERTY(VemoGridLib::Flex::ScrollBarsSettings, ScrollBars)
    VEMO_GUARDED_WRITE(bool, ScrollTrack);
    VEMO_ENUM_PROPERTY(VemoGridLib::Flex::HighLightSettings, HighLight)
    VEMO_GUARDED_WRITE(bool, AllowBigSelection);
    VEMO_ENUM_PROPERTY(VemoGridLib::Flex::AllowUserResizeSettings, AllowUserResizing)
    VEMO_GUARDED_WRITE(bool, EditEnable);
    VEMO_GUARDED_WRITE(bool, Sortable);
    VEMO_GUARDED_WRITE(bool, NullLine);
    VEMO_GUARDED_WRITE(bool, AutoGrow);
    VEMO_GUARDED_WRITE(bool, AssignCellColorSel);
    VEMO_COLOR_PROPERTY(CellBackColorSel, 0xFFFFFFu)
    VEMO_COLOR_PROPERTY(CellForeColorSel, 0u)
    VEMO_GUARDED_WRITE(int, AutoCalc1);
    VEMO_GUARDED_WRITE(int, AutoCalc2);
    VEMO_GUARDED_WRITE(int, AutoCalcRES);
    VEMO_GUARDED_WRITE(QString, AutoCalcOPE);
    VEMO_GUARDED_WRITE(VemoGridLib::VemoGridScrollType, ScrollType);
    VEMO_GUARDED_WRITE(short, ScrollNum);
    VEMO_GUARDED_WRITE(bool, LunarCalendar);
    VEMO_GUARDED_WRITE(bool, Redraw);
    VEMO_GUARDED_WRITE(bool, UserMode);
    VEMO_GUARDED_WRITE(QVariant, Tag);
    VEMO_GUARDED_WRITE(QAbstractItemModel*, DataSource);
    VEMO_GUARDED_WRITE(QString, ColumnSetup);
    friend class VemoGridPrivate;
    std::unique_ptr<VemoGridPrivate> d;
};

} // namespace VemoGridLib
