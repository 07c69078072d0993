// Part 1.6: VemoGrid's sorting by a column's SortType, header-click sorting and the sort arrows.
#include "grid/VemoGrid_p.h"

#include "grid/FlexGrid_p.h"

#include "common/VbFormat.h"

#include <QScopeGuard>

namespace VemoGridLib {

namespace {

/// The hosted grid's `Sort` setting for a plain sort type: (SortType − 1) × 2 + 1 ascending,
/// + 2 descending.
int plainSortSetting(VemoSortTypeConstants type, bool ascending)
{
    return (int(type) - 1) * 2 + (ascending ? 1 : 2);
}

/// The hidden key of a `VemoSortDateTime` cell: its text formatted "yyyymmddHhNnSs" (a text
/// that is no date comes back unchanged and sorts among the keys as text).
QString dateKey(const QString& text)
{
    static const QString keyFormat = QStringLiteral("yyyymmddHhNnSs");
    return vb::Format(text, keyFormat);
}

/// The hidden key of a `VemoSortCurrency` cell: its text through the general format.
QString currencyKey(const QString& text)
{
    return vb::Format(text);
}

} // namespace

void VemoGridPrivate::setPicture(int row, int col, const QPixmap& picture, int alignment)
{
    FlexGridPrivate* hosted = FlexGridPrivate::get(flex);
    if (row < 0 || row >= flex->Rows() || col < 0 || col >= flex->Cols())
        return;
    FlexCellFormat look = hosted->store.format(row, col);
    look.picture = picture;
    if (alignment >= 0)
        look.pictureAlignment = std::int8_t(alignment);
    hosted->store.setFormat(row, col, look);
    hosted->requestRepaint();
}

void VemoGridPrivate::sortByKeyColumn(int col, int setting, QString (*key)(const QString&))
{
    const int keyCol = flex->Cols();
    flex->setCols(keyCol + 1);
    const auto removeKeys = qScopeGuard([this, keyCol] { flex->setCols(keyCol); });
    flex->setColWidth(keyCol, 0);
    const FlexCellStore& cells = flex->cells();
    for (int r = flex->FixedRows(); r < flex->Rows(); ++r)
        flex->setTextMatrix(r, keyCol, key(cells.text(r, col)));
    flex->setCol(keyCol);
    flex->setColSel(keyCol);
    flex->setSort(setting);
}

void VemoGridPrivate::sort(int col, VemoGridSortMode direction)
{
    if (col < flex->FixedCols())
        return;
    const VemoSortTypeConstants type = column(col)->SortType();

    suppressEvents = true;
    flex->setRedraw(false);
    const int savedRow = flex->Row();
    const int savedCol = flex->Col();
    const auto finish = qScopeGuard([this, savedRow, savedCol] {
        flex->setRow(savedRow);
        flex->setCol(savedCol);
        followMarker();
        colourRows(-1);
        flex->setRedraw(true);
        suppressEvents = false;
    });
    flex->setRow(0);

    if (lastSortedCol >= 0 && lastSortedCol != col) {
        setPicture(0, lastSortedCol, QPixmap());
        ascending = true;
    } else if (lastSortedCol == col) {
        ascending = !ascending;
    } else {
        ascending = true;
    }
    if (direction == SortAscending)
        ascending = true;
    else if (direction == SortDescending)
        ascending = false;

    flex->setCol(col);
    flex->setColSel(col);
    lastSortedCol = col;
    flex->setCellPictureAlignment(Flex::flexAlignRightCenter);
    if (type == VemoSortNone)
        return;
    flex->setCellPicture(ascending ? imgUP : imgDown);

    switch (type) {
    case VemoSortDateTime:
        sortByKeyColumn(col,
                        ascending ? Flex::flexSortStringNoCaseAscending
                                  : Flex::flexSortStringNoCaseDescending,
                        dateKey);
        break;
    case VemoSortCurrency:
        sortByKeyColumn(
            col, ascending ? Flex::flexSortNumericAscending : Flex::flexSortNumericDescending,
            currencyKey);
        break;
    default:
        flex->setSort(plainSortSetting(type, ascending));
    }
}

void VemoGridPrivate::followMarker()
{
    if (markedRow < flex->FixedRows())
        return;
    // The marker picture moved with its row; `Selected` follows it there.
    const FlexCellStore& cells = flex->cells();
    const qint64 marker = imgMarker.cacheKey();
    for (int r = flex->FixedRows(); r < flex->Rows(); ++r) {
        if (cells.format(r, 0).picture.cacheKey() == marker) {
            markedRow = r;
            return;
        }
    }
    markedRow = 0;
}

void VemoGridPrivate::removeSortMark()
{
    if (lastSortedCol < 0)
        return;
    setPicture(0, lastSortedCol, QPixmap());
    lastSortedCol = -1;
}

void VemoGrid::Sort(int Col, VemoGridSortMode SortDirection)
{
    d->sort(Col, SortDirection);
}

void VemoGrid::SortOnHeaderClick(bool SortOn, VemoSortTypeConstants newValue)
{
    Q_UNUSED(newValue);
    d->sortable = SortOn;
}

void VemoGrid::SortOnCol(int Col, VemoSortTypeConstants SortType)
{
    Q_UNUSED(Col);
    Q_UNUSED(SortType);
    d->suppressEvents = true;
}

bool VemoGrid::Sortable() const
{
    return d->sortable;
}

void VemoGrid::setSortable(bool sortable)
{
    d->sortable = sortable;
    d->changed(QStringLiteral("SortAble"));
}

} // namespace VemoGridLib
