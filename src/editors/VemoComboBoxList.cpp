// SPDX-License-Identifier: MIT
// VemoComboBox's drop-down list: its window, filling it from the column, placing it on the
// screen, searching it and moving through it.
#include "editors/VemoComboBox_p.h"

#include "common/ErrorGuard.h"
#include "common/Twips.h"
#include "flexgrid/FlexGrid.h"
#include "flexgrid/FlexGridHosting_p.h"
#include "vb/VbStrings.h"
#include "vb/VbStrings_p.h"

#include <QAbstractItemModel>
#include <QLineEdit>
#include <QScrollBar>

#include <algorithm>

namespace VemoGridLib {

namespace {

/// The fields of a tab-separated item, as views into it.
QList<QStringView> fieldsOf(QStringView item)
{
    return item.split(u'\t');
}

/// Runs a list operation whose failure (a row past the end, a cell outside the list) leaves
/// the list as it was.
template <typename Step>
void ignoringErrors(Step&& step)
{
    try {
        step();
    } catch (...) {
    }
}

} // namespace

void VemoComboBoxPrivate::createList()
{
    grid = new FlexGrid(drop.window());
    grid->setObjectName(QStringLiteral("grid"));
    grid->setFocusPolicy(Qt::NoFocus);
    grid->setFixedCols(0);
    grid->setFixedRows(1);
    grid->setScrollBars(2); // vertical only: the list is as wide as its columns
    grid->setFocusRect(0);
}

void VemoComboBoxPrivate::fill()
{
    Column& column = *q->listColumn();
    const QAbstractItemModel* const model = column.DataSource();
    const QString header = column.ListHeader();
    const QList<QStringView> headers = fieldsOf(header);
    const int items = model ? model->rowCount() : column.ItemCount();
    // The list is as wide as its widest row; AddItem would drop the fields past Cols.
    qsizetype cols = std::max<qsizetype>(headers.size(), model ? model->columnCount() : 1);
    for (int i = 0; !model && i < items; ++i)
        cols = std::max(cols, column.Item(i).count(u'\t') + 1);

    grid->setRedraw(false);
    grid->setRows(1);
    grid->setCols(int(cols));
    grid->setRows(1 + items);
    // Quiet writes: a list of a hundred thousand items fills without an event or a redraw per
    // cell.
    FlexGridHosting cells(grid);
    for (int c = 0; c < cols; ++c) {
        const bool ownHeader = !model || !header.isEmpty();
        cells.setText(0, c,
                      ownHeader ? (c < headers.size() ? headers.at(c) : QStringView())
                                : model->headerData(c, Qt::Horizontal).toString());
    }
    for (int i = 0; i < items; ++i) {
        if (model) {
            for (int c = 0; c < model->columnCount(); ++c)
                cells.setText(i + 1, c, model->index(i, c).data().toString());
            continue;
        }
        const QString item = column.Item(i);
        const QList<QStringView> fields = fieldsOf(item);
        for (int c = 0; c < fields.size(); ++c)
            cells.setText(i + 1, c, fields.at(c));
    }
    for (int c = 0; c < cols; ++c) {
        ignoringErrors([&] { grid->setColWidth(c, column.COLWIDTH(c)); });
        ignoringErrors([&] { grid->setColAlignment(c, column.ColAlignment(c)); });
    }
    ignoringErrors([&] { grid->setRowHeightMin(std::max<int>(0, column.RowHeight())); });
    grid->setRowHeight(0, column.ShowHeader() ? -1 : 0);
    grid->setAllowUserResizing(column.ColResize() ? 1 : 0);
    keysCol = -1;
    const int selectCol = column.SelectCol();
    if (selectCol >= 0 && selectCol < cols)
        prepareKeys(selectCol, column.CompareMode() == vb::vbTextCompare);
    // The row of the text the field holds is current when the list opens; else the first.
    const int found = search(field->text());
    moveTo(found >= 0 ? found + 1 : std::min(1, grid->Rows() - 1), false);
    ignoringErrors([&] { grid->setTopRow(grid->Row()); });
    grid->setRedraw(true);
}

void VemoComboBoxPrivate::place()
{
    Column& column = *q->listColumn();
    const FlexGridHosting cells(grid);
    const auto extent = [&](int row, int col, bool height) {
        const QRect cell = cells.cellRect(row, col);
        const int size = height ? cell.height() : cell.width();
        return size > 0 ? size + grid->GridLineWidth() : 0;
    };
    const int dataRows = grid->Rows() - 1;
    const int shown = std::clamp<int>(column.VisibleRows(), 1, std::max(1, dataRows));
    const int frame = 2 * grid->frameWidth();
    int height = frame + extent(0, 0, true) + shown * (dataRows > 0 ? extent(1, 0, true) : 0);
    int width = frame;
    if (column.ListWidth() >= 0) {
        width = twipsToPixelsX(column.ListWidth(), q);
    } else {
        for (int c = 0; c < grid->Cols(); ++c)
            width += extent(0, c, false);
        if (dataRows > shown)
            width += grid->verticalScrollBar()->sizeHint().width();
    }
    drop.placeUnder(QSize(std::max(width, 1), height));
    grid->setGeometry(drop.window()->rect());
}

int VemoComboBoxPrivate::search(const QString& text)
{
    Column& column = *q->listColumn();
    const int col = column.SelectCol();
    if (col < 0 || col >= grid->Cols() || text.isEmpty())
        return -1;
    const bool textCompare = column.CompareMode() == vb::vbTextCompare;
    if (keysCol != col || keysFolded != textCompare)
        prepareKeys(col, textCompare);
    const QString needle = textCompare ? vb::foldForTextCompare(text) : text;
    for (qsizetype i = 0; i < keys.size(); ++i) {
        if (!keys.at(i).startsWith(needle))
            continue;
        // The folded prefix may end inside a character of the cell ("e" of "é"): text compare
        // itself decides such a candidate.
        const int row = int(i) + 1;
        if (!textCompare || vb::InStr(1, FlexGridHosting(grid).text(row, col).toString(), text,
                                      vb::vbTextCompare) == 1)
            return row - 1;
    }
    return -1;
}

void VemoComboBoxPrivate::prepareKeys(int col, bool folded)
{
    const FlexGridHosting cells(grid);
    keys.clear();
    keys.reserve(grid->Rows() - 1);
    for (int row = 1; row < grid->Rows(); ++row) {
        const QString cell = cells.text(row, col).toString();
        keys.append(folded ? vb::foldForTextCompare(cell) : cell);
    }
    keysCol = col;
    keysFolded = folded;
}

bool VemoComboBoxPrivate::fullyVisible(int row) const
{
    const FlexGridHosting cells(grid);
    return grid->RowIsVisible(row) &&
           cells.cellRect(row, 0).bottom() <= cells.scrolledArea().bottom();
}

void VemoComboBoxPrivate::moveTo(int row, bool reveal)
{
    ignoringErrors([&] {
        grid->setRow(row);
        grid->setCol(0);
        grid->setColSel(grid->Cols() - 1);
    });
    if (reveal && !fullyVisible(grid->Row()))
        ignoringErrors([&] { grid->setTopRow(grid->Row()); });
}

void VemoComboBoxPrivate::stepRow(int step)
{
    const int row = grid->Row() + step;
    if (row >= grid->Rows())
        return; // past the last row the move fails and the row stays
    moveTo(row, false);
    if (!fullyVisible(row))
        ignoringErrors([&] { grid->scrollVertically(step < 0 ? 0 : 1); });
}

void VemoComboBoxPrivate::reportSelect()
{
    const int row = grid->Row();
    const QString text = q->RowText(row);
    q->report("VemoComboBox CellComboSelect",
              [&](ICellEventReceiver& host) { host.CellComboSelect(row - 1, text); });
}

void VemoComboBoxPrivate::commit()
{
    field->setFocus();
    q->CloseUp();
    const int row = grid->Row();
    const int col = q->listColumn()->SelectCol();
    if (col >= 0 && col < grid->Cols()) {
        const QString value = FlexGridHosting(grid).text(row, col).toString();
        if (value != field->text() && !value.isEmpty())
            field->setText(value);
    }
    field->selectAll();
    const QString text = q->RowText(row);
    if (!text.isEmpty())
        q->report("VemoComboBox CellComboClick",
                  [&](ICellEventReceiver& host) { host.CellComboClick(text); });
}

} // namespace VemoGridLib
