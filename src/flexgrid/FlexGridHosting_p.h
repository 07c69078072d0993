// SPDX-License-Identifier: MIT
// The one door through which a control hosting a FlexGrid reaches past its public API.
#pragma once

#include "common/OleColor.h"
#include "common/VemoGridLibExport.h"
#include "flexgrid/FlexCellEventSink_p.h"

#include <QPixmap>
#include <QRect>
#include <QStringView>

#include <functional>

namespace VemoGridLib {

class FlexGrid;
class FlexGridPrivate;

/// Bulk access to a hosted FlexGrid's cells for its host's passes (colouring, check boxes,
/// running numbers, sort keys, export): each call reads or writes one cell or one column band
/// without moving the current cell, raising events or scheduling a redraw, so a pass over a
/// million cells costs what the cells cost. Everything else goes through FlexGrid's own API.
class VEMOGRIDLIB_EXPORT FlexGridHosting
{
public:
    explicit FlexGridHosting(FlexGrid* grid);

    /// Sends the grid's LeaveCell, SelChange, EnterCell and RowColChange to `sink` by a plain
    /// call before the signals go out; nullptr stops it.
    void setCellEventSink(FlexCellEventSink* sink);

    /// The text of a cell, valid until the next write to the grid.
    QStringView text(int row, int col) const;
    /// Writes a cell's text quietly (no events, no redraw).
    void setText(int row, int col, QStringView text);

    /// Colours rows `firstRow`..`lastRow` of `col`: `even` on rows an even distance from
    /// `evenRow`, `odd` on the others; the fore colour instead of the back colour when
    /// `foreground`.
    void setBandedColor(int col, int firstRow, int lastRow, bool foreground, OleColor even,
                        OleColor odd, int evenRow);

    /// Shows `picture` as a check box: the cell's text hidden in its back colour and the
    /// picture placed at `alignment`. Cells that get the same picture share one look.
    void setCheckBoxLook(int row, int col, const QPixmap& picture, int alignment);
    /// Sets a cell's picture (and its alignment when `alignment` >= 0) and repaints; a cell
    /// outside the grid is left alone.
    void setPicture(int row, int col, const QPixmap& picture, int alignment);
    /// Where cell (`row`, `col`) lies on the grid widget, in pixels, as it is now (no scrolling),
    /// without the grid line; empty for a cell outside the grid.
    QRect cellRect(int row, int col) const;
    /// The area of the grid widget where the scrolled (non-fixed) cells show, in pixels.
    QRect scrolledArea() const;
    /// True when the grid shows a scroll bar along `orientation`: `ScrollBars` allows it and
    /// there is somewhere to scroll (known at once, while the bar itself follows later).
    bool hasScrollBar(Qt::Orientation orientation) const;
    /// The cache key of a cell's picture (0 for none).
    qint64 pictureKey(int row, int col) const;

    /// Marks the columns whose numbers never clip: in a data cell of a column for which
    /// `isNumberColumn` is true, a text wider than the cell shows as "###" (as many '#' as fit)
    /// and its tool tip holds the text. The cell's text itself is unchanged.
    void setNumberColumns(std::function<bool(int col)> isNumberColumn);
    /// Lets the host draw its own cell pictures at the painter's device pixel ratio instead of
    /// having them scaled: `draw` gets a cell's picture and the ratio and returns a picture
    /// of the same size in device-independent pixels made at that ratio (null to scale).
    void setPictureAtRatio(std::function<QPixmap(const QPixmap& picture, qreal ratio)> draw);

private:
    FlexGridPrivate* d;
};

} // namespace VemoGridLib
