// SPDX-License-Identifier: MIT
// VemoGrid's column setup: the columns' design-time settings as one text property.
#include "grid/ColumnSetup.h"
#include "grid/VemoGrid_p.h"

#include "flexgrid/FlexGrid.h"

#include <algorithm>

namespace VemoGridLib {

namespace {

void applyListSettings(VemoGridLib::Column& column, const ColumnSettings& settings)
{
    column.clearItems();
    for (const QString& item : settings.Items)
        column.AddItem(item);
    column.setListHeader(settings.ListHeader);
    column.setListWidth(qint16(settings.ListWidth));
    column.setVisibleRows(qint16(settings.VisibleRows));
    column.setSelectCol(qint16(settings.SelectCol));
    column.setShowHeader(settings.ShowHeader);
    column.setAutoDropDown(settings.AutoDropDown);
    column.setHotTracking(settings.HotTracking);
    column.setCompareMode(settings.CompareMode);
}

void writeHeader(FlexGrid& flex, const ColumnSettings& settings)
{
    if (!settings.Header.isEmpty() && flex.Rows() > 0 && settings.Col < flex.Cols())
        flex.setTextMatrix(0, settings.Col, settings.Header);
}

} // namespace

void VemoGridPrivate::rewriteSetupHeaders()
{
    for (const ColumnSettings& settings : parseColumnSetup(columnSetup))
        writeHeader(*flex, settings);
}

QString VemoGrid::ColumnSetup() const
{
    return d->columnSetup;
}

void VemoGrid::setColumnSetup(const QString& text)
{
    const QList<ColumnSettings> columns = parseColumnSetup(text);
    const auto widest = std::max_element(
        columns.begin(), columns.end(),
        [](const ColumnSettings& a, const ColumnSettings& b) { return a.Col < b.Col; });
    if (widest != columns.end() && widest->Col >= Cols())
        setCols(widest->Col + 1);

    for (const ColumnSettings& settings : columns) {
        // The type comes first: it sets the alignment, decimals, format and, for check boxes
        // and dates, the width that an explicit width then overrides.
        if (d->userMode) {
            setColType(settings.Col, settings.ColType);
            VemoGridLib::Column& column = *d->column(settings.Col);
            if (settings.DecimalLength >= 0)
                column.setDecimalLength(qint16(settings.DecimalLength));
            if (!settings.FormatString.isEmpty())
                column.setFormatString(settings.FormatString);
            if (settings.MinValue)
                column.setMinValue(*settings.MinValue);
            if (settings.MaxValue)
                column.setMaxValue(*settings.MaxValue);
            column.setLocked(settings.Locked);
            column.setAutoAdd(settings.AutoAdd);
            column.setShowZero(settings.ShowZero);
            column.setSortType(settings.SortType);
            applyListSettings(column, settings);
        }
        writeHeader(*d->flex, settings);
        if (settings.Width >= 0)
            d->flex->setColWidth(settings.Col, settings.Width);
    }
    d->columnSetup = formatColumnSetup(columns);
    d->changed(QStringLiteral("ColumnSetup"));
}

} // namespace VemoGridLib
