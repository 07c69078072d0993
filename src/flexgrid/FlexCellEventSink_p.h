// SPDX-License-Identifier: MIT
// The hosting VemoGrid's direct line to its hosted FlexGrid: the current-cell events, heard
// before the grid's signals go out, changes of the column count and of the layout.
#pragma once

namespace VemoGridLib {

/// Hears the hosted grid's LeaveCell, SelChange, EnterCell and RowColChange by a plain call,
/// just before the signals of the same names go out. VemoGrid's own moves (a row added, a row
/// removed, a pass) move the current cell once per row, and a signal with a receiver costs
/// several times the move itself.
class FlexCellEventSink
{
public:
    virtual void hostedLeaveCell() = 0;
    virtual void hostedSelChange() = 0;
    virtual void hostedEnterCell() = 0;
    virtual void hostedRowColChange() = 0;
    /// The column count was set, by `Cols` itself or through `FormatString` or a bound model's
    /// columns; called once the new count is in place.
    virtual void hostedColsChanged() = 0;
    /// Column widths, row heights, the fixed part or the row and column counts changed: cells
    /// may have moved on the surface without a scroll.
    virtual void hostedLayoutChanged() = 0;

protected:
    ~FlexCellEventSink() = default;
};

} // namespace VemoGridLib
