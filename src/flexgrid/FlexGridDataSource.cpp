// SPDX-License-Identifier: MIT
// FlexGrid's `DataSource` binding: the cells mirror a QAbstractItemModel's
// top-level table and follow its change signals.
#include "flexgrid/FlexGrid_p.h"

#include "common/ErrorGuard.h"

#include <QAbstractItemModel>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

namespace VemoGridLib {

namespace {

// The bound grid's mapping: model row i is grid row fixedRows + i and model column j grid
// column fixedCols + j. The horizontal headers go to row 0 and the vertical ones to column 0,
// as FormatString places its headers; without a fixed row or column there are none.
class ModelMirror
{
public:
    ModelMirror(FlexGridPrivate& grid, const QAbstractItemModel& model)
        : m_grid(grid)
        , m_model(model)
        , m_store(grid.store)
    {}

    /// True when the grid has the model's shape shifted by `rowDelta` model rows, i.e. the
    /// mapping still holds once the change being reported is applied. False after code changed
    /// Rows, Cols, FixedRows or FixedCols behind the binding's back.
    bool matchesShape(int rowDelta) const
    {
        return m_store.rowCount() + rowDelta == m_grid.fixedRows + m_model.rowCount() &&
               m_store.colCount() == m_grid.fixedCols + m_model.columnCount();
    }

    /// Gives the grid the model's shape through the public setters, so the current cell is
    /// clamped as any Rows / Cols change clamps it, then writes every mirrored cell.
    void fillAll()
    {
        m_grid.q->setRows(m_grid.fixedRows + m_model.rowCount());
        m_grid.q->setCols(m_grid.fixedCols + m_model.columnCount());
        fillHorizontalHeaders(0, m_model.columnCount() - 1);
        fillRows(0, m_model.rowCount() - 1);
    }

    /// Writes the model rows first..last (headers and data) into their grid rows.
    void fillRows(int first, int last)
    {
        fillVerticalHeaders(first, last);
        fillData(first, last, 0, m_model.columnCount() - 1);
    }

    void fillData(int firstRow, int lastRow, int firstCol, int lastCol)
    {
        for (int i = firstRow; i <= lastRow; ++i) {
            for (int j = firstCol; j <= lastCol; ++j) {
                const QString text = m_model.data(m_model.index(i, j)).toString();
                m_store.setText(m_grid.fixedRows + i, m_grid.fixedCols + j, text);
            }
        }
    }

    void fillHorizontalHeaders(int first, int last)
    {
        if (m_grid.fixedRows == 0)
            return;
        for (int j = first; j <= last; ++j)
            m_store.setText(0, m_grid.fixedCols + j, headerText(j, Qt::Horizontal));
    }

    void fillVerticalHeaders(int first, int last)
    {
        if (m_grid.fixedCols == 0)
            return;
        for (int i = first; i <= last; ++i)
            m_store.setText(m_grid.fixedRows + i, 0, headerText(i, Qt::Vertical));
    }

    /// Opens `count` empty grid rows before model row `first`. The rows are appended with the
    /// Rows setter and rotated into place in one pass, so a block insert costs one move of the
    /// row handles however many rows it brings.
    void insertRows(int first, int count)
    {
        const int at = m_grid.fixedRows + first;
        const int tail = m_store.rowCount() - at;
        m_grid.q->setRows(m_store.rowCount() + count);
        rotateRows(at, tail + count, tail);
    }

    /// Drops the grid rows of model rows first..first + count − 1: they are rotated to the end
    /// and cut off with the Rows setter, which clamps the current cell. Rows never drop below
    /// FixedRows, so emptying the model leaves the fixed rows alone (no 30015).
    void removeRows(int first, int count)
    {
        const int at = m_grid.fixedRows + first;
        rotateRows(at, m_store.rowCount() - at, count);
        m_grid.q->setRows(m_store.rowCount() - count);
    }

private:
    QString headerText(int section, Qt::Orientation orientation) const
    {
        return m_model.headerData(section, orientation, Qt::DisplayRole).toString();
    }

    /// Rotates the `length` rows from `first` left by `shift`: row first + shift comes first.
    void rotateRows(int first, int length, int shift)
    {
        if (shift == 0 || shift == length)
            return;
        std::vector<std::uint32_t> order(static_cast<std::size_t>(length));
        std::iota(order.begin(), order.end(), 0u);
        std::rotate(order.begin(), order.begin() + shift, order.end());
        m_store.reorderRows(first, order);
    }

    FlexGridPrivate& m_grid;
    const QAbstractItemModel& m_model;
    FlexCellStore& m_store;
};

bool isTopLevel(const QModelIndex& parent)
{
    return !parent.isValid();
}

bool showsDisplayRole(const QList<int>& roles)
{
    return roles.isEmpty() || roles.contains(Qt::DisplayRole);
}

void refill(FlexGridPrivate& grid, const QAbstractItemModel& model)
{
    ModelMirror(grid, model).fillAll();
    grid.relayout();
}

// Each follower below answers a change the grid cannot map (its shape was altered by code
// since the last fill) with a full refill, which restores the mapping.

void followRows(FlexGridPrivate& grid, const QAbstractItemModel& model, const QModelIndex& parent,
                int first, int last, bool inserted)
{
    if (!isTopLevel(parent))
        return;
    ModelMirror mirror(grid, model);
    const int count = last - first + 1;
    if (!mirror.matchesShape(inserted ? count : -count))
        return refill(grid, model);
    if (inserted) {
        mirror.insertRows(first, count);
        mirror.fillRows(first, last);
    } else {
        mirror.removeRows(first, count);
    }
    // Default vertical headers number the rows, so every row below the change renumbers.
    mirror.fillVerticalHeaders(first, model.rowCount() - 1);
    grid.relayout();
}

void followData(FlexGridPrivate& grid, const QAbstractItemModel& model, const QModelIndex& topLeft,
                const QModelIndex& bottomRight, const QList<int>& roles)
{
    if (!topLeft.isValid() || !bottomRight.isValid() || !isTopLevel(topLeft.parent()) ||
        !showsDisplayRole(roles))
        return;
    ModelMirror mirror(grid, model);
    if (!mirror.matchesShape(0))
        return refill(grid, model);
    mirror.fillData(topLeft.row(), bottomRight.row(), topLeft.column(), bottomRight.column());
    grid.requestRepaint();
}

void followHeaders(FlexGridPrivate& grid, const QAbstractItemModel& model,
                   Qt::Orientation orientation, int first, int last)
{
    ModelMirror mirror(grid, model);
    if (!mirror.matchesShape(0))
        return refill(grid, model);
    if (orientation == Qt::Horizontal)
        mirror.fillHorizontalHeaders(first, last);
    else
        mirror.fillVerticalHeaders(first, last);
    grid.requestRepaint();
}

} // namespace

// The handlers hold the raw model pointer: a connection lives no longer than its sender. They
// run inside the model's signals, so an error (a cell-event handler refusing a move) is reported
// there and goes no further.
void FlexGridPrivate::bindModel(QAbstractItemModel* model)
{
    Q_ASSERT(model);
    dataSource = model;
    static constexpr const char* Where = "FlexGrid DataSource";
    const auto refillAll = [this, model] {
        catchingErrors(Where, [&] { refill(*this, *model); });
    };
    // Child tables of a tree model have columns of their own that the grid does not show.
    const auto refillForColumns = [this, model](const QModelIndex& parent) {
        if (isTopLevel(parent))
            catchingErrors(Where, [&] { refill(*this, *model); });
    };
    const auto refillForMovedRows = [this, model](const QModelIndex& from, int, int,
                                                  const QModelIndex& to) {
        if (isTopLevel(from) || isTopLevel(to))
            catchingErrors(Where, [&] { refill(*this, *model); });
    };
    modelConnections = {
        QObject::connect(model, &QAbstractItemModel::modelReset, q, refillAll),
        QObject::connect(model, &QAbstractItemModel::layoutChanged, q, refillAll),
        QObject::connect(model, &QAbstractItemModel::columnsInserted, q, refillForColumns),
        QObject::connect(model, &QAbstractItemModel::columnsRemoved, q, refillForColumns),
        QObject::connect(model, &QAbstractItemModel::columnsMoved, q, refillForColumns),
        QObject::connect(model, &QAbstractItemModel::rowsMoved, q, refillForMovedRows),
        QObject::connect(model, &QAbstractItemModel::rowsInserted, q,
                         [this, model](const QModelIndex& parent, int first, int last) {
                             catchingErrors(Where, [&] {
                                 followRows(*this, *model, parent, first, last, true);
                             });
                         }),
        QObject::connect(model, &QAbstractItemModel::rowsRemoved, q,
                         [this, model](const QModelIndex& parent, int first, int last) {
                             catchingErrors(Where, [&] {
                                 followRows(*this, *model, parent, first, last, false);
                             });
                         }),
        QObject::connect(model, &QAbstractItemModel::dataChanged, q,
                         [this, model](const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                       const QList<int>& roles) {
                             catchingErrors(Where, [&] {
                                 followData(*this, *model, topLeft, bottomRight, roles);
                             });
                         }),
        QObject::connect(model, &QAbstractItemModel::headerDataChanged, q,
                         [this, model](Qt::Orientation orientation, int first, int last) {
                             catchingErrors(Where, [&] {
                                 followHeaders(*this, *model, orientation, first, last);
                             });
                         }),
    };
    // Binding is a direct call: its errors reach the caller.
    refill(*this, *model);
}

// A destroyed model needs no handling here: Qt drops its connections and the QPointer clears,
// so DataSource() reads null and the cells stay as they were.
void FlexGridPrivate::unbindModel()
{
    for (const QMetaObject::Connection& connection : modelConnections)
        QObject::disconnect(connection);
    modelConnections.clear();
    dataSource = nullptr;
}

} // namespace VemoGridLib
