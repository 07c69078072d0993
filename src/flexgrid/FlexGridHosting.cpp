// SPDX-License-Identifier: MIT
#include "flexgrid/FlexGridHosting_p.h"

#include "flexgrid/FlexGrid_p.h"

#include <algorithm>
#include <utility>

namespace VemoGridLib {

FlexGridHosting::FlexGridHosting(FlexGrid* grid)
    : d(FlexGridPrivate::get(grid))
{
}

void FlexGridHosting::setCellEventSink(FlexCellEventSink* sink)
{
    d->cellEventSink = sink;
}

QStringView FlexGridHosting::text(int row, int col) const
{
    return d->store.textView(row, col);
}

void FlexGridHosting::setText(int row, int col, QStringView text)
{
    d->store.setText(row, col, text);
}

void FlexGridHosting::setBandedColor(int col, int firstRow, int lastRow, bool foreground,
                                     OleColor even, OleColor odd, int evenRow)
{
    const auto field = foreground ? FlexCellStore::FormatField::ForeColor
                                  : FlexCellStore::FormatField::BackColor;
    d->store.setFormatValueBanded(col, firstRow, lastRow, field, even, odd, evenRow);
}

void FlexGridHosting::setCheckBoxLook(int row, int col, const QPixmap& picture, int alignment)
{
    d->store.changeFormat(row, col, quint64(picture.cacheKey()), [&](FlexCellFormat& look) {
        look.foreColor = look.backColor;
        look.picture = picture;
        look.pictureAlignment = std::int8_t(alignment);
    });
}

void FlexGridHosting::setPicture(int row, int col, const QPixmap& picture, int alignment)
{
    if (row < 0 || row >= d->store.rowCount() || col < 0 || col >= d->store.colCount())
        return;
    FlexCellFormat look = d->store.format(row, col);
    look.picture = picture;
    if (alignment >= 0)
        look.pictureAlignment = std::int8_t(alignment);
    d->store.setFormat(row, col, look);
    d->requestRepaint();
}

qint64 FlexGridHosting::pictureKey(int row, int col) const
{
    return d->store.format(row, col).picture.cacheKey();
}

void FlexGridHosting::setNumberColumns(std::function<bool(int col)> isNumberColumn)
{
    d->numberColumn = std::move(isNumberColumn);
}

void FlexGridHosting::setPictureAtRatio(
    std::function<QPixmap(const QPixmap& picture, qreal ratio)> draw)
{
    d->pictureAtRatio = std::move(draw);
}

QRect FlexGridHosting::cellRect(int row, int col) const
{
    if (row < 0 || col < 0 || row >= d->store.rowCount() || col >= d->store.colCount())
        return QRect();
    const QRect cell = d->cellRectPx(row, col);
    const QPoint origin = d->q->viewport()->geometry().topLeft();
    return QRect(cell.topLeft() + origin, QSize(std::max(0, cell.width() - d->gridLineWidth),
                                                std::max(0, cell.height() - d->gridLineWidth)));
}

bool FlexGridHosting::hasScrollBar(Qt::Orientation orientation) const
{
    if (orientation == Qt::Vertical)
        return (d->scrollBars & Flex::flexScrollBarVertical) && d->maxTopRow() > d->fixedRows;
    return (d->scrollBars & Flex::flexScrollBarHorizontal) && d->maxLeftCol() > d->fixedCols;
}

QRect FlexGridHosting::scrolledArea() const
{
    QRect area = d->q->viewport()->geometry();
    area.setLeft(area.left() + d->fixedColsWidthPx());
    area.setTop(area.top() + d->fixedRowsHeightPx());
    return area;
}

} // namespace VemoGridLib
