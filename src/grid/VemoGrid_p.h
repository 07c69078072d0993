// SPDX-License-Identifier: MIT
// VemoGrid's private state and the steps its source files share, one file per concern:
// VemoGrid.cpp (model, Column and ColType, events), VemoGridProperties.cpp (saved properties),
// VemoGridRows.cpp (rows), VemoGridSort.cpp (sorting), VemoGridAutoCalc.cpp (auto-calculation),
// VemoGridExport.cpp (Excel export).
#pragma once

#include "flexgrid/FlexGrid.h"
#include "flexgrid/FlexGridHosting_p.h"
#include "grid/ExcelFile.h"
#include "grid/VemoGrid.h"
#include "grid/VemoGridEditing_p.h"

#include "common/OleColor.h"

#include <QPixmap>
#include <QPointer>
#include <QScopeGuard>

#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace VemoGridLib {

class VemoGridPrivate;

/// Runs a step with errors ignored (VB's On Error Resume Next), as `Clear`, `ReadProperties`,
/// `WriteProperties` and `ExportToExcel` run their steps: a step that fails is skipped and the
/// next one runs. True when `step` ran through.
template <typename Step>
bool ignoringErrors(Step&& step)
{
    try {
        step();
        return true;
    } catch (const std::exception&) { // VemoError, the API's refusals, is one of them
        return false;
    }
}

/// A bulk pass (colouring, check boxes, sorting, row operations), for its scope:
/// events suppressed and the hosted Redraw off; afterwards Redraw as it was and the suppression
/// flag cleared (cleared, not restored: `SortOnCol`'s flag ends with the next pass, on
/// purpose). Passes of at least `HourglassCells` cells show the hourglass: a pass
/// over fewer ends before a pointer could be seen, and setting one costs more than the pass.
/// Nested passes (a colouring pass inside AddItem) leave all this to the outermost one.
class BulkPass
{
public:
    static constexpr qint64 HourglassCells = 10000;

    BulkPass(VemoGridPrivate& grid, qint64 cells);
    ~BulkPass();
    BulkPass(const BulkPass&) = delete;
    BulkPass& operator=(const BulkPass&) = delete;

private:
    VemoGridPrivate& m_grid;
    const bool m_outermost;
    const bool m_redraw;
    const bool m_hourglass;
};

class VemoGridPrivate final : public FlexCellEventSink
{
public:
    explicit VemoGridPrivate(VemoGrid* grid);

    static VemoGridPrivate* get(VemoGrid* grid) { return grid->d.get(); }

    VemoGrid* const q;
    /// `MSHFlexGrid1`, a child of the control.
    FlexGrid* const flex;
    /// Quiet bulk access to the hosted grid's cells for the passes.
    FlexGridHosting cells;

    // ---- the grid's fields, at their initial values -----------------------------------------
    /// One `Column` per hosted column in user mode; owned (children of the control).
    std::vector<VemoGridLib::Column*> columns;
    bool userMode = true;
    bool sortable = true;
    bool editEnable = true;
    bool autoGrow = true;
    bool nullLine = true;
    bool lunarCalendar = false;
    /// `ColumnSetup` as last applied, in its written form.
    QString columnSetup;
    VemoGridScrollType scrollType = VemoScrollAuto;
    short scrollNum = 3;
    int cellAppearance = 0;
    int cellBorderStyle = 0;
    int appearance = 1;
    int borderStyle = 1;
    int topRowLimit = 2147483647;
    int leftColLimit = 2147483647;
    /// Set by bulk work: no EnterCell / LeaveCell and no editor work while true.
    bool suppressEvents = false;
    /// Bulk passes running (BulkPass).
    int bulkDepth = 0;
    int lastMouseRow = 0;
    int lastMouseCol = 0;
    QVariant tag;

    OleColor backColor1 = 0xFFFFFF;
    OleColor backColor2 = 0xBFFFFF;
    OleColor readOnlyColor = 0xDFDFC0;
    bool assignCellColorSel = false;
    OleColor cellBackColorSel = 0xFFFFFF;
    OleColor cellForeColorSel = 0;

    // ---- rows: running number and marked row -------------------------------------------------
    int runningNumber = 1;
    int markedRow = 0;

    // ---- sorting -------------------------------------------------------------------------------
    int lastSortedCol = -1;
    bool ascending = true;

    // ---- auto-calculation ----------------------------------------------------------------------
    int autoCalc1 = 0;
    int autoCalc2 = 0;
    int autoCalcRES = 0;
    QString autoCalcOPE;

    // ---- Excel export --------------------------------------------------------------------------
    /// Created on the first export and reused by later ones.
    std::unique_ptr<ExcelFile> excel;

    // ---- pictures (drawn once per grid) --------------------------------------------------------
    QPixmap imgChecked;
    QPixmap imgUnchecked;
    QPixmap imgUP;
    QPixmap imgDown;
    QPixmap imgMarker;
    /// The pictures above made at other device pixel ratios, by cache key and ratio.
    std::map<std::pair<qint64, qreal>, QPixmap> picturesAtRatio;
    /// One of the pictures above drawn afresh at `ratio`; null for any other picture.
    QPixmap pictureAtRatio(const QPixmap& picture, qreal ratio);

    // ---- model, passes, layout and relays (VemoGrid.cpp) ---------------------------------------
    /// Reports a property change to the container.
    void changed(const QString& name) { Q_EMIT q->PropertyChanged(name); }
    /// The `Column` of `col`, or VemoError 9 (bounds) when outside the array.
    VemoGridLib::Column* column(int col) const;
    /// The `Column` of `col`, or none when the column has none (design time, outside the array).
    VemoGridLib::Column* columnOrNull(int col) const;
    /// The column's type, `eTextBox` when the column has no `Column` (design time).
    VemoGridColType typeOf(int col) const;
    /// Resizes the `Column` array to `cols`, keeping existing objects.
    void resizeColumns(int cols);
    /// Sets a band or read-only colour, recolours the data rows and reports `name`.
    void setColour(OleColor& field, OleColor color, const QString& name);
    /// The colouring pass from `startRow` (−1 = the whole grid) to the last row.
    void colourRows(int startRow);
    /// The check-box drawing pass for (`row`, `col`); −1 / a row below 1 = all.
    void drawCheckBoxes(int col, int row);
    /// The hidden-text, picture look of one check-box cell (in the store, no events).
    void drawCheckBox(int row, int col);
    /// Lays the hosted grid out over the control with the 60-twip margin.
    void layoutHostedGrid();
    /// The hosted grid's frame from `BorderStyle` and `Appearance`.
    void applyFrame();
    /// Puts `picture` into a cell's look directly (no current-cell move, no events); an
    /// `alignment` below 0 keeps the cell's picture alignment.
    void setPicture(int row, int col, const QPixmap& picture, int alignment = -1);
    /// Moves the current-row marker to `row` (0 removes it), events suppressed.
    void moveMarker(int row);
    /// The leave-cell step: unless events are suppressed, `LeaveCell`, then
    /// with `EditEnable` the editor commit and the auto-calculation.
    void leaveCell();
    /// The leave-cell step where the user left the cell: a failing auto-calculation (division
    /// by zero) leaves the result cell as it is and the move goes on.
    void leaveCellContained();
    /// The grid's own `Row`/`Col` setters: the leave-cell step, then `move` of the hosted cell;
    /// a move not `accepted` (outside the grid) is refused before the leave-cell step.
    void leaveThenMove(bool accepted, const std::function<void()>& move);
    /// The editor commit (EditingSession::commit).
    void commitEdit() { editing.commit(); }
    /// The current-cell re-display after a row operation (EditingSession::redisplay).
    void redisplayCurrentCell() { editing.redisplay(); }
    /// Sets hosted `Row` / `Col` with events suppressed (the flag is then as it was).
    void moveHostedCell(int row, int col);
    /// Suppresses events until the returned guard goes; the flag is then cleared, not restored,
    /// as after a bulk pass.
    [[nodiscard]] auto suppressEventsInScope()
    {
        suppressEvents = true;
        return qScopeGuard([this] { suppressEvents = false; });
    }
    /// Connects the hosted grid's events to the grid's handlers; the cell events come by
    /// FlexCellEventSink.
    void connectHostedGrid();
    /// The hosted grid's Click: `Click`, then a header click sorts, a data click marks the row.
    void onHostedClick();
    /// The hosted grid's LeaveCell (skipped once after the grid's own Row/Col setters ran it).
    void hostedLeaveCell() override;
    /// The hosted grid's EnterCell: `EnterCell`, unless the grid itself moved the cell.
    void hostedEnterCell() override;
    /// The hosted grid's SelChange and RowColChange, raised as the grid's own.
    void hostedSelChange() override;
    void hostedRowColChange() override;
    /// Keeps one `Column` per hosted column in user mode, whatever set the count.
    void hostedColsChanged() override;
    /// The open editor follows its cell.
    void hostedLayoutChanged() override;
    /// The leave-cell step already ran for the current cell (the grid's own move, or the
    /// editor's focus loss): the hosted grid's LeaveCell for it is not a second one.
    bool leaveAlreadyDone = false;
    /// The hosted grid's KeyDown: the grid's event first, then the grid's key handling.
    void onHostedKeyDown(short& keyCode, short& shift);

    // ---- the editing session (VemoGridEditing.cpp, VemoGridKeyboard.cpp) ----------------------
    EditingSession editing{*this};

    // ---- row operations (VemoGridRows.cpp) ------------------------------------------------------
    /// The empty-line rule: no data column of `row` is filled (a check box only by ".").
    bool rowIsEmpty(int row) const;
    /// The typed cell write of `TextMatrix` (check boxes, dates, hyperlinks, plain text).
    void writeTyped(int Row, int Col, const QString& value);
    /// Writes `value` into a check-box cell as its marker and redraws the box.
    void writeChecked(int row, int col, bool checked);

    // ---- sorting (VemoGridSort.cpp) ------------------------------------------------------------
    /// The sort routine.
    void sort(int col, VemoGridSortMode direction);
    /// The hidden key of a `VemoSortDateTime` cell: its text formatted
    /// "yyyymmddHhNnSs" (a text that is no date comes back unchanged and sorts among the keys).
    /// ISO-style dates are read directly, without the general date parser, to the same key.
    /// Exported for the tests.
    VEMOGRIDLIB_EXPORT static QString dateSortKey(const QString& text);
    /// After a sort: the marked row becomes the row the marker picture moved to.
    void followMarker();
    /// Removes the arrow from the last sorted column's header and forgets that column.
    void removeSortMark();
    /// Writes the headers of `columnSetup` again, after `Clear` rewrote the format string's.
    void rewriteSetupHeaders();
    /// The hidden key columns of a sort: date keys, or currency keys (the text itself).
    enum class KeyKind { Date, Currency };
    /// Sorts by a hidden column of keys made from `col`'s texts, with the hosted `setting`.
    void sortByKeyColumn(int col, int setting, KeyKind kind);

    // ---- auto-calculation (VemoGridAutoCalc.cpp) ----------------------------------------------
    /// Recomputes the result cell of the current row when the current column is an operand.
    /// Division by zero throws VemoError 11 (0 / 0: 6).
    void autoCalculate();
};

} // namespace VemoGridLib
