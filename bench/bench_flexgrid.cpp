// SPDX-License-Identifier: MIT
// Issue 3: FlexGrid against QTableWidget, QStandardItemModel + QTableView and a hand-rolled
// QAbstractTableModel + QTableView, all measured in one run; the ratios and the targets
// are printed after the Google Benchmark table.
#include <VemoGridLib/FlexEnums.h>
#include <VemoGridLib/FlexGrid.h>

#include <VemoGridLib/OleColor.h>
#include <VemoGridLib/Twips.h>

#include "BenchProgram.h"
#include "RatioReporter.h"
#include "ThreadCpuTimer.h"

#include <benchmark/benchmark.h>

#include <QAbstractTableModel>
#include <QBrush>
#include <QHeaderView>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>
#include <QTableWidget>

#include <malloc.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <random>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using VemoGridLib::FlexGrid;
using VemoGridLib::OleColor;

constexpr int dataCols = 10;
constexpr int bigRows = 1'000'000;
constexpr int midRows = 100'000;
constexpr int smallRows = 1'000;
constexpr int removals = 1'000;
constexpr int keyCol = 0;
constexpr int writesPerBatch = 100;
constexpr int columnPx = 80;
constexpr QSize frameSize(800, 600);
/// VemoGrid's default row bands: white even rows, light yellow &HBFFFFF odd rows.
constexpr OleColor evenBandColor = 0xFFFFFF;
constexpr OleColor oddBandColor = 0xBFFFFF;

// ---- measuring ------------------------------------------------------------------------------

/// Heap bytes in use, taken the same way for every peer: glibc's arena plus mmapped blocks.
double heapBytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

// ---- the data every peer receives ------------------------------------------------------------

void prependDigits(char16_t*& first, int value)
{
    do {
        *--first = char16_t(u'0' + value % 10);
        value /= 10;
    } while (value > 0);
}

/// Short distinct texts such as "R4711C3", made the same way for every peer: the digits go into
/// a stack buffer, so the one allocation is the QString that any producer of texts would make.
QString cellText(int row, int col)
{
    std::array<char16_t, 24> buffer{};
    char16_t* first = buffer.data() + buffer.size();
    prependDigits(first, col);
    *--first = u'C';
    prependDigits(first, row);
    *--first = u'R';
    return QStringView(first, buffer.data() + buffer.size()).toString();
}

QString headerText(int col)
{
    return QStringLiteral("Column %1").arg(col);
}

QStringList headerTexts()
{
    QStringList texts;
    for (int col = 0; col < dataCols; ++col)
        texts.append(headerText(col));
    return texts;
}

QString keyText(double key)
{
    return QString::number(key, 'f', 2);
}

/// Sort keys with two decimals, so that their texts parse back to exactly the same doubles.
std::vector<double> randomKeys(int count)
{
    std::mt19937_64 random(20240601);
    std::uniform_real_distribution<double> distribution(0.0, 1e6);
    std::vector<double> keys(std::size_t(count), 0.0);
    for (double& key : keys)
        key = std::round(distribution(random) * 100.0) / 100.0;
    return keys;
}

/// Pixel sizes that every painted peer uses, so that each frame shows the same cells.
struct CellGeometry
{
    int rowPx;
    int colPx;
};

CellGeometry flexGridGeometry()
{
    const FlexGrid probe;
    return {VemoGridLib::twipsToPixelsY(probe.RowHeight(1), &probe), columnPx};
}

/// The two band brushes, made once as a Qt programmer would.
class BandBrushes
{
public:
    const QBrush& operator()(bool oddBand) const { return oddBand ? m_odd : m_even; }

private:
    QBrush m_even{VemoGridLib::toQColor(evenBandColor)};
    QBrush m_odd{VemoGridLib::toQColor(oddBandColor)};
};

// ---- the hand-rolled model ---------------------------------------------------------------------

/// A Qt expert's best case: one row-major std::vector<QString>, a lazily allocated colour per
/// cell, cached role lists for dataChanged, and a sort that parses each key once, stable-sorts
/// the row order and moves the strings, keeping persistent indexes valid.
class StringTableModel : public QAbstractTableModel
{
public:
    StringTableModel(int rows, int cols)
        : m_rows(rows)
        , m_cols(cols)
        , m_texts(std::size_t(rows) * std::size_t(cols))
        , m_headers(headerTexts())
    {}

    int rowCount(const QModelIndex& parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : m_rows;
    }

    int columnCount(const QModelIndex& parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : m_cols;
    }

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override
    {
        if (!index.isValid())
            return QVariant();
        const std::size_t cell = cellOf(index);
        if (role == Qt::DisplayRole || role == Qt::EditRole)
            return m_texts[cell];
        if (role == Qt::BackgroundRole && !m_backgrounds.empty() && m_backgrounds[cell] != 0)
            return QBrush(QColor::fromRgba(m_backgrounds[cell]));
        return QVariant();
    }

    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        if (!index.isValid())
            return false;
        const std::size_t cell = cellOf(index);
        if (role == Qt::DisplayRole || role == Qt::EditRole) {
            m_texts[cell] = value.toString();
            emit dataChanged(index, index, m_textRoles);
            return true;
        }
        if (role == Qt::BackgroundRole) {
            if (m_backgrounds.empty())
                m_backgrounds.resize(m_texts.size());
            m_backgrounds[cell] = value.value<QBrush>().color().rgba();
            emit dataChanged(index, index, m_backgroundRoles);
            return true;
        }
        return false;
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation == Qt::Horizontal && role == Qt::DisplayRole &&
            section < int(m_headers.size()))
            return m_headers[section];
        return QAbstractTableModel::headerData(section, orientation, role);
    }

    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
    }

    bool removeRows(int row, int count, const QModelIndex& parent = QModelIndex()) override
    {
        if (parent.isValid() || row < 0 || count < 1 || row + count > m_rows)
            return false;
        beginRemoveRows(parent, row, row + count - 1);
        eraseRows(m_texts, row, count);
        if (!m_backgrounds.empty())
            eraseRows(m_backgrounds, row, count);
        m_rows -= count;
        endRemoveRows();
        return true;
    }

    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override
    {
        if (column < 0 || column >= m_cols)
            return;
        emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
        const std::vector<int> oldRows = sortedRowOrder(column, order);
        permuteRows(m_texts, oldRows);
        if (!m_backgrounds.empty())
            permuteRows(m_backgrounds, oldRows);
        movePersistentIndexes(oldRows);
        emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
    }

private:
    std::size_t cellOf(const QModelIndex& index) const
    {
        return std::size_t(index.row()) * std::size_t(m_cols) + std::size_t(index.column());
    }

    template <typename T>
    void eraseRows(std::vector<T>& cells, int row, int count) const
    {
        const auto first = cells.begin() + std::ptrdiff_t(row) * m_cols;
        cells.erase(first, first + std::ptrdiff_t(count) * m_cols);
    }

    /// The old row of every new row: keys parsed once, then a stable sort of (key, row) pairs.
    std::vector<int> sortedRowOrder(int column, Qt::SortOrder order) const
    {
        struct KeyedRow
        {
            double key;
            int row;
        };
        std::vector<KeyedRow> keyed(std::size_t(m_rows), KeyedRow{});
        for (int row = 0; row < m_rows; ++row)
            keyed[std::size_t(row)] = {m_texts[std::size_t(row) * m_cols + column].toDouble(), row};
        if (order == Qt::AscendingOrder)
            std::stable_sort(keyed.begin(), keyed.end(),
                             [](const KeyedRow& a, const KeyedRow& b) { return a.key < b.key; });
        else
            std::stable_sort(keyed.begin(), keyed.end(),
                             [](const KeyedRow& a, const KeyedRow& b) { return b.key < a.key; });
        std::vector<int> oldRows(keyed.size(), 0);
        std::transform(keyed.begin(), keyed.end(), oldRows.begin(),
                       [](const KeyedRow& keyedRow) { return keyedRow.row; });
        return oldRows;
    }

    template <typename T>
    void permuteRows(std::vector<T>& cells, const std::vector<int>& oldRows) const
    {
        std::vector<T> permuted;
        permuted.reserve(cells.size());
        for (const int oldRow : oldRows) {
            const auto first = cells.begin() + std::ptrdiff_t(oldRow) * m_cols;
            std::move(first, first + m_cols, std::back_inserter(permuted));
        }
        cells = std::move(permuted);
    }

    void movePersistentIndexes(const std::vector<int>& oldRows)
    {
        const QModelIndexList before = persistentIndexList();
        if (before.isEmpty())
            return;
        std::vector<int> newRows(oldRows.size(), 0);
        for (std::size_t newRow = 0; newRow < oldRows.size(); ++newRow)
            newRows[std::size_t(oldRows[newRow])] = int(newRow);
        QModelIndexList after;
        after.reserve(before.size());
        for (const QModelIndex& index : before)
            after.append(this->index(newRows[std::size_t(index.row())], index.column()));
        changePersistentIndexList(before, after);
    }

    int m_rows;
    int m_cols;
    std::vector<QString> m_texts;
    /// QRgb per cell, 0 = no background; empty until a cell gets one.
    std::vector<QRgb> m_backgrounds;
    QStringList m_headers;
    const QList<int> m_textRoles{Qt::DisplayRole, Qt::EditRole};
    const QList<int> m_backgroundRoles{Qt::BackgroundRole};
};

// ---- the peers behind one interface ------------------------------------------------------------
//
// Each table has `dataRows` data rows of `dataCols` columns under one header row, and offers the
// same operations; rows are counted from the first data row. The benchmarks are templates over
// these classes, so every peer runs exactly the same loops.

/// Gives a view FlexGrid's cell sizes and header height and no row-number column, so that both
/// paint the same cells.
void matchGeometry(QTableView& view, const CellGeometry& geometry)
{
    view.verticalHeader()->hide();
    view.verticalHeader()->setMinimumSectionSize(geometry.rowPx);
    view.verticalHeader()->setDefaultSectionSize(geometry.rowPx);
    view.horizontalHeader()->setDefaultSectionSize(geometry.colPx);
    view.horizontalHeader()->setFixedHeight(geometry.rowPx);
}

int visibleRowCount(const QTableView& view)
{
    const int last = view.rowAt(view.viewport()->height() - 1);
    return (last < 0 ? view.model()->rowCount() - 1 : last) - view.rowAt(0) + 1;
}

class FlexGridTable
{
public:
    static constexpr const char* name = "FlexGrid";

    explicit FlexGridTable(int dataRows)
    {
        m_grid.setFixedCols(0);
        m_grid.setCols(dataCols);
        m_grid.setRows(dataRows + 1);
        for (int col = 0; col < dataCols; ++col)
            m_grid.setTextMatrix(0, col, headerText(col));
    }

    int rowCount() const { return m_grid.Rows() - 1; }
    void setText(int row, int col, const QString& text)
    {
        m_grid.setTextMatrix(row + 1, col, text);
    }
    void setKey(int row, double key) { setText(row, keyCol, keyText(key)); }
    double key(int row) const { return m_grid.TextMatrix(row + 1, keyCol).toDouble(); }
    /// Around bulk work VB code turns Redraw off, as VemoGrid's colouring pass does.
    void beginBulkUpdate() { m_grid.setRedraw(false); }
    void endBulkUpdate() { m_grid.setRedraw(true); }

    /// As VemoGrid's colouring pass does it: make the cell current, then colour it.
    void colourCell(int row, int col, bool oddBand)
    {
        m_grid.setRow(row + 1);
        m_grid.setCol(col);
        m_grid.setCellBackColor(oddBand ? oddBandColor : evenBandColor);
    }

    /// Row == RowSel sorts every data row; Col == ColSel makes the key column the only key.
    void sortByKey()
    {
        m_grid.setRow(1);
        m_grid.setCol(keyCol);
        m_grid.setRowSel(1);
        m_grid.setColSel(keyCol);
        m_grid.setSort(VemoGridLib::Flex::flexSortNumericAscending);
    }

    void removeRow(int row) { m_grid.RemoveItem(row + 1); }

    void applyGeometry(const CellGeometry& geometry)
    {
        m_grid.setColWidth(-1, VemoGridLib::pixelsToTwipsX(geometry.colPx, &m_grid));
    }

    void scrollToRow(int row) { m_grid.setTopRow(row + 1); }
    int topRow() const { return m_grid.TopRow() - 1; }

    int visibleRows() const
    {
        int rows = 0;
        for (int row = m_grid.TopRow(); row < m_grid.Rows() && m_grid.RowIsVisible(row); ++row)
            ++rows;
        return rows;
    }

    QWidget& widget() { return m_grid; }

private:
    FlexGrid m_grid;
};

class TableWidgetTable
{
public:
    static constexpr const char* name = "QTableWidget";

    explicit TableWidgetTable(int dataRows)
    {
        m_table.setColumnCount(dataCols);
        m_table.setRowCount(dataRows);
        m_table.setHorizontalHeaderLabels(headerTexts());
    }

    int rowCount() const { return m_table.rowCount(); }

    void setText(int row, int col, const QString& text)
    {
        if (QTableWidgetItem* item = m_table.item(row, col))
            item->setText(text);
        else
            m_table.setItem(row, col, new QTableWidgetItem(text));
    }

    /// A double in the display role is what makes sortItems compare numerically. The key
    /// cell's item must exist (the table was filled).
    void setKey(int row, double key) { m_table.item(row, keyCol)->setData(Qt::DisplayRole, key); }
    double key(int row) const
    {
        return m_table.item(row, keyCol)->data(Qt::DisplayRole).toDouble();
    }
    void beginBulkUpdate() { m_table.setUpdatesEnabled(false); }
    void endBulkUpdate() { m_table.setUpdatesEnabled(true); }

    void colourCell(int row, int col, bool oddBand)
    {
        m_table.item(row, col)->setBackground(m_brushes(oddBand));
    }

    void sortByKey() { m_table.sortItems(keyCol, Qt::AscendingOrder); }
    void removeRow(int row) { m_table.removeRow(row); }

private:
    QTableWidget m_table;
    BandBrushes m_brushes;
};

class StandardModelTable
{
public:
    static constexpr const char* name = "QStandardItemModel";

    explicit StandardModelTable(int dataRows)
        : m_model(dataRows, dataCols)
    {
        m_model.setHorizontalHeaderLabels(headerTexts());
        m_view.setModel(&m_model);
    }

    // Qt 6.4 finds an item's position by searching outward from where the item was last seen,
    // and a sort leaves those hints stale, so destroying a sorted model of 10M items would
    // search for each item across the whole model (hours). Sorting back to the fill order
    // first keeps the untimed teardown linear.
    ~StandardModelTable()
    {
        if (!m_sorted)
            return;
        m_view.setModel(nullptr);
        m_model.setSortRole(fillRowRole);
        m_model.sort(keyCol, Qt::AscendingOrder);
    }

    StandardModelTable(const StandardModelTable&) = delete;
    StandardModelTable& operator=(const StandardModelTable&) = delete;

    int rowCount() const { return m_model.rowCount(); }

    void setText(int row, int col, const QString& text)
    {
        if (QStandardItem* item = m_model.item(row, col))
            item->setText(text);
        else
            m_model.setItem(row, col, new QStandardItem(text));
    }

    /// As TableWidgetTable::setKey. The first key of a row also records the row's position,
    /// for the destructor.
    void setKey(int row, double key)
    {
        QStandardItem* item = m_model.item(row, keyCol);
        if (!item->data(fillRowRole).isValid())
            item->setData(row, fillRowRole);
        item->setData(key, Qt::DisplayRole);
    }

    double key(int row) const
    {
        return m_model.item(row, keyCol)->data(Qt::DisplayRole).toDouble();
    }
    /// Qt 6's setItem emits a layout change for every new item, which an attached view answers
    /// with work over all its rows (a fill of 1M rows did not end within ten minutes), so a Qt
    /// programmer detaches the view for bulk work.
    void beginBulkUpdate() { m_view.setModel(nullptr); }
    void endBulkUpdate() { m_view.setModel(&m_model); }

    void colourCell(int row, int col, bool oddBand)
    {
        m_model.item(row, col)->setBackground(m_brushes(oddBand));
    }

    void sortByKey()
    {
        m_model.sort(keyCol, Qt::AscendingOrder);
        m_sorted = true;
    }

    void removeRow(int row) { m_model.removeRow(row); }
    void applyGeometry(const CellGeometry& geometry) { matchGeometry(m_view, geometry); }
    void scrollToRow(int row) { m_view.verticalScrollBar()->setValue(row); }
    int topRow() const { return m_view.rowAt(0); }
    int visibleRows() const { return visibleRowCount(m_view); }
    QWidget& widget() { return m_view; }

private:
    /// Where the fill put a row, kept in its key item.
    static constexpr int fillRowRole = Qt::UserRole;

    QStandardItemModel m_model;
    QTableView m_view;
    BandBrushes m_brushes;
    bool m_sorted = false;
};

class HandRolledTable
{
public:
    static constexpr const char* name = "HandRolledModel";

    explicit HandRolledTable(int dataRows)
        : m_model(dataRows, dataCols)
    {
        m_view.setModel(&m_model);
    }

    int rowCount() const { return m_model.rowCount(); }

    void setText(int row, int col, const QString& text)
    {
        m_model.setData(m_model.index(row, col), text, Qt::EditRole);
    }

    void setKey(int row, double key) { setText(row, keyCol, keyText(key)); }
    double key(int row) const { return m_model.data(m_model.index(row, keyCol)).toDouble(); }
    void beginBulkUpdate() { m_view.setUpdatesEnabled(false); }
    void endBulkUpdate() { m_view.setUpdatesEnabled(true); }

    void colourCell(int row, int col, bool oddBand)
    {
        m_model.setData(m_model.index(row, col), m_brushes(oddBand), Qt::BackgroundRole);
    }

    void sortByKey() { m_model.sort(keyCol, Qt::AscendingOrder); }
    void removeRow(int row) { m_model.removeRows(row, 1); }
    void applyGeometry(const CellGeometry& geometry) { matchGeometry(m_view, geometry); }
    void scrollToRow(int row) { m_view.verticalScrollBar()->setValue(row); }
    int topRow() const { return m_view.rowAt(0); }
    int visibleRows() const { return visibleRowCount(m_view); }
    QWidget& widget() { return m_view; }

private:
    StringTableModel m_model;
    QTableView m_view;
    BandBrushes m_brushes;
};

// ---- operations shared by the benchmarks -----------------------------------------------------

template <typename Table>
void fillTexts(Table& table)
{
    const int rows = table.rowCount();
    table.beginBulkUpdate();
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < dataCols; ++col)
            table.setText(row, col, cellText(row, col));
    }
    table.endBulkUpdate();
}

/// Puts keys[row] into the key column of each row, in the table's current row order.
template <typename Table>
void assignKeys(Table& table, std::span<const double> keys)
{
    for (std::size_t row = 0; row < keys.size(); ++row)
        table.setKey(int(row), keys[row]);
}

template <typename Table>
bool isSortedByKey(const Table& table)
{
    const int rows = table.rowCount();
    for (int row = 1; row < rows; ++row) {
        if (table.key(row) < table.key(row - 1))
            return false;
    }
    return true;
}

/// VemoGrid's banding: the band alternates row by row from the first data row.
template <typename Table>
void colourRowBands(Table& table)
{
    const int rows = table.rowCount();
    table.beginBulkUpdate();
    for (int row = 0; row < rows; ++row) {
        const bool oddBand = row % 2 != 0;
        for (int col = 0; col < dataCols; ++col)
            table.colourCell(row, col, oddBand);
    }
    table.endBulkUpdate();
}

template <typename Table>
void removeFromMiddle(Table& table, int count)
{
    for (int removed = 0; removed < count; ++removed)
        table.removeRow(table.rowCount() / 2);
}

/// Shows the widget at the frame size and delivers the pending layout and resize work, so that
/// render() paints what a user would see.
void showAtFrameSize(QWidget& widget)
{
    widget.resize(frameSize);
    widget.show();
    QCoreApplication::processEvents();
}

QImage makeFrame()
{
    return QImage(frameSize, QImage::Format_ARGB32_Premultiplied);
}

// ---- the benchmarks -----------------------------------------------------------------------------

/// Target 1: create the table and write every cell's text; the heap growth is its footprint.
template <typename Table>
void fillCells(benchmark::State& state, int dataRows)
{
    double heapGrowth = 0.0;
    for (auto _ : state) {
        const double heapBefore = heapBytesInUse();
        const ThreadCpuTimer timer;
        Table table(dataRows);
        fillTexts(table);
        state.SetIterationTime(timer.elapsedSeconds());
        heapGrowth += heapBytesInUse() - heapBefore;
    }
    state.counters["bytes_per_cell"] =
        heapGrowth / double(state.iterations()) / (double(dataRows) * dataCols);
}

/// Target 2: a numeric sort of every data row by the key column. The keys are written afresh
/// (untimed) before each sort, so each iteration sorts the same unsorted sequence.
template <typename Table>
void sortRows(benchmark::State& state, std::span<const double> keys)
{
    Table table(int(keys.size()));
    fillTexts(table);
    for (auto _ : state) {
        assignKeys(table, keys);
        const ThreadCpuTimer timer;
        table.sortByKey();
        state.SetIterationTime(timer.elapsedSeconds());
        if (!isSortedByKey(table)) {
            state.SkipWithError("rows are not in key order after the sort");
            break;
        }
    }
}

/// Target 2's floor: the same doubles sorted by the standard library.
template <typename Sort>
void sortKeysOnly(benchmark::State& state, std::span<const double> keys, Sort sort)
{
    for (auto _ : state) {
        std::vector<double> copy(keys.begin(), keys.end());
        const ThreadCpuTimer timer;
        sort(copy.begin(), copy.end());
        state.SetIterationTime(timer.elapsedSeconds());
        benchmark::DoNotOptimize(copy.data());
    }
}

/// Target 3: VemoGrid's colouring pass over every cell; the heap growth is what colours cost.
template <typename Table>
void colourEveryCell(benchmark::State& state)
{
    double heapGrowth = 0.0;
    for (auto _ : state) {
        Table table(midRows);
        fillTexts(table);
        const double heapBefore = heapBytesInUse();
        const ThreadCpuTimer timer;
        colourRowBands(table);
        state.SetIterationTime(timer.elapsedSeconds());
        heapGrowth += heapBytesInUse() - heapBefore;
    }
    state.counters["bytes_per_cell"] =
        heapGrowth / double(state.iterations()) / (double(midRows) * dataCols);
}

/// Target 4: one full frame of the widget scrolled to the middle of `dataRows` rows.
template <typename Table>
void paintFrame(benchmark::State& state, int dataRows, CellGeometry geometry)
{
    Table table(dataRows);
    fillTexts(table);
    table.applyGeometry(geometry);
    showAtFrameSize(table.widget());
    table.scrollToRow(dataRows / 2);
    QCoreApplication::processEvents();
    if (table.topRow() != dataRows / 2) {
        state.SkipWithError("the widget did not scroll to the middle row");
        return;
    }
    QImage frame = makeFrame();
    // The first frame also builds glyph caches and lays out headers; it is not what a frame costs.
    table.widget().render(&frame);
    for (auto _ : state) {
        const ThreadCpuTimer timer;
        table.widget().render(&frame);
        state.SetIterationTime(timer.elapsedSeconds());
    }
    state.counters["visible_rows"] = table.visibleRows();
}

/// Target 4's floor: the cells of one frame drawn directly with QPainter: a background per
/// area, one text per cell and one line per row and column boundary.
void drawCells(QPainter& painter, const std::vector<QString>& texts, int rows, int cols,
               const CellGeometry& geometry)
{
    const QRect header(0, 0, frameSize.width(), geometry.rowPx);
    painter.fillRect(header, QColor(0xF0, 0xF0, 0xF0));
    painter.fillRect(QRect(0, geometry.rowPx, frameSize.width(), frameSize.height()), Qt::white);
    painter.setPen(Qt::black);
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < cols; ++col) {
            const QRect cell(col * geometry.colPx, row * geometry.rowPx, geometry.colPx,
                             geometry.rowPx);
            painter.drawText(cell.adjusted(2, 0, -2, 0), Qt::AlignLeft | Qt::AlignVCenter,
                             texts[std::size_t(row * cols + col)]);
        }
    }
    painter.setPen(QColor(0xC0, 0xC0, 0xC0));
    for (int row = 1; row <= rows; ++row)
        painter.drawLine(0, row * geometry.rowPx - 1, frameSize.width(), row * geometry.rowPx - 1);
    for (int col = 1; col <= cols; ++col)
        painter.drawLine(col * geometry.colPx - 1, 0, col * geometry.colPx - 1, frameSize.height());
}

void paintWithQPainter(benchmark::State& state, CellGeometry geometry)
{
    const int rows = (frameSize.height() + geometry.rowPx - 1) / geometry.rowPx;
    const int cols = std::min(dataCols, (frameSize.width() + geometry.colPx - 1) / geometry.colPx);
    std::vector<QString> texts;
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < cols; ++col)
            texts.push_back(row == 0 ? headerText(col) : cellText(bigRows / 2 + row - 1, col));
    }
    QImage frame = makeFrame();
    for (auto _ : state) {
        const ThreadCpuTimer timer;
        QPainter painter(&frame);
        drawCells(painter, texts, rows, cols, geometry);
        painter.end();
        state.SetIterationTime(timer.elapsedSeconds());
    }
    state.counters["visible_rows"] = rows - 1;
}

/// Scrolling: jumps of TopRow spread over all rows (golden-ratio steps), each followed by a
/// full frame; the cost must not depend on how many rows there are.
void scrollAndPaint(benchmark::State& state, int dataRows, CellGeometry geometry)
{
    FlexGridTable table(dataRows);
    fillTexts(table);
    table.applyGeometry(geometry);
    showAtFrameSize(table.widget());
    QImage frame = makeFrame();
    table.widget().render(&frame);
    double position = 0.0;
    for (auto _ : state) {
        position = std::fmod(position + 0.6180339887498949, 1.0);
        const int row = int(position * dataRows);
        const ThreadCpuTimer timer;
        table.scrollToRow(row);
        table.widget().render(&frame);
        state.SetIterationTime(timer.elapsedSeconds());
    }
}

/// Target 5: single-row removals from the middle, as a loop of RemoveItem calls would do.
template <typename Table>
void removeRows(benchmark::State& state)
{
    for (auto _ : state) {
        Table table(midRows);
        fillTexts(table);
        const ThreadCpuTimer timer;
        removeFromMiddle(table, removals);
        state.SetIterationTime(timer.elapsedSeconds());
        if (table.rowCount() != midRows - removals) {
            state.SkipWithError("the table does not have the expected row count");
            break;
        }
    }
}

/// What happened to the table before single cells are written (target 6).
enum class History { Fresh, Sorted, RowsRemoved };

struct CellWrite
{
    int row;
    int col;
    QString text;
};

std::vector<CellWrite> randomWrites(std::minstd_rand& random, int rows)
{
    std::uniform_int_distribution<int> rowOf(0, rows - 1);
    std::uniform_int_distribution<int> colOf(0, dataCols - 1);
    std::vector<CellWrite> writes;
    writes.reserve(writesPerBatch);
    for (int write = 0; write < writesPerBatch; ++write) {
        const int row = rowOf(random);
        const int col = colOf(random);
        writes.push_back({row, col, cellText(bigRows + row, col)});
    }
    return writes;
}

/// Target 6: batches of single-cell writes (a text, or a back colour) at random cells of a
/// 100k-row table that is fresh, sorted, or has had 1000 rows removed.
template <typename Table>
void writeCells(benchmark::State& state, History history, bool colour, std::span<const double> keys)
{
    Table table(midRows);
    fillTexts(table);
    assignKeys(table, keys.first(midRows));
    if (history == History::Sorted)
        table.sortByKey();
    if (history == History::RowsRemoved)
        removeFromMiddle(table, removals);
    std::minstd_rand random(7);
    for (auto _ : state) {
        const std::vector<CellWrite> writes = randomWrites(random, table.rowCount());
        const ThreadCpuTimer timer;
        for (const CellWrite& write : writes) {
            if (colour)
                table.colourCell(write.row, write.col, write.row % 2 != 0);
            else
                table.setText(write.row, write.col, write.text);
        }
        state.SetIterationTime(timer.elapsedSeconds());
    }
}

// ---- registration -----------------------------------------------------------------------------

constexpr const char* fillScenario = "fill_1Mx10";
constexpr const char* sortScenario = "sort_1M_numeric";
constexpr const char* colourScenario = "backcolor_100kx10";
constexpr const char* paintScenario = "paint_800x600_at_1M";
constexpr const char* scrollScenario = "scroll_render_FlexGrid";
constexpr const char* removeScenario = "remove_1000_of_100k";
constexpr const char* stdSortName = "std::sort";
constexpr const char* stdStableSortName = "std::stable_sort";
constexpr const char* painterName = "QPainter";
constexpr const char* smallRowsName = "1k_rows";
constexpr const char* bigRowsName = "1M_rows";

std::string benchmarkName(const std::string& scenario, const std::string& peer)
{
    return scenario + '/' + peer;
}

std::string writeScenario(bool colour, History history)
{
    const char* what = colour ? "write_backcolor" : "write_text";
    switch (history) {
    case History::Fresh:
        return std::string(what) + "_fresh";
    case History::Sorted:
        return std::string(what) + "_after_sort";
    case History::RowsRemoved:
        return std::string(what) + "_after_removals";
    }
    return what;
}

/// The peers that take seconds per run get one iteration, the others three.
template <typename Table>
constexpr int bigIterations()
{
    return std::is_same_v<Table, TableWidgetTable> || std::is_same_v<Table, StandardModelTable> ? 1
                                                                                                : 3;
}

template <typename Table>
void registerTableBenchmarks(std::span<const double> keys)
{
    benchmark::RegisterBenchmark(benchmarkName(fillScenario, Table::name).c_str(), fillCells<Table>,
                                 bigRows)
        ->Iterations(bigIterations<Table>())
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(benchmarkName(sortScenario, Table::name).c_str(), sortRows<Table>,
                                 keys)
        ->Iterations(bigIterations<Table>())
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(benchmarkName(colourScenario, Table::name).c_str(),
                                 colourEveryCell<Table>)
        ->Iterations(3)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(benchmarkName(removeScenario, Table::name).c_str(),
                                 removeRows<Table>)
        ->Iterations(3)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

template <typename Table>
void registerPaintBenchmark(CellGeometry geometry)
{
    benchmark::RegisterBenchmark(benchmarkName(paintScenario, Table::name).c_str(),
                                 paintFrame<Table>, bigRows, geometry)
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);
}

template <typename Table>
void registerWriteBenchmarks(std::span<const double> keys)
{
    for (const bool colour : {false, true}) {
        for (const History history : {History::Fresh, History::Sorted, History::RowsRemoved}) {
            benchmark::RegisterBenchmark(
                benchmarkName(writeScenario(colour, history), Table::name).c_str(),
                writeCells<Table>, history, colour, keys)
                ->MinTime(0.2)
                ->UseManualTime()
                ->Unit(benchmark::kMicrosecond);
        }
    }
}

void registerBenchmarks(std::span<const double> keys, CellGeometry geometry)
{
    registerTableBenchmarks<FlexGridTable>(keys);
    registerTableBenchmarks<TableWidgetTable>(keys);
    registerTableBenchmarks<StandardModelTable>(keys);
    registerTableBenchmarks<HandRolledTable>(keys);
    benchmark::RegisterBenchmark(
        benchmarkName(sortScenario, stdSortName).c_str(),
        [keys](benchmark::State& state) {
            sortKeysOnly(state, keys, [](auto first, auto last) { std::sort(first, last); });
        })
        ->Iterations(5)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(
        benchmarkName(sortScenario, stdStableSortName).c_str(),
        [keys](benchmark::State& state) {
            sortKeysOnly(state, keys, [](auto first, auto last) { std::stable_sort(first, last); });
        })
        ->Iterations(5)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);

    registerPaintBenchmark<FlexGridTable>(geometry);
    registerPaintBenchmark<HandRolledTable>(geometry);
    registerPaintBenchmark<StandardModelTable>(geometry);
    benchmark::RegisterBenchmark(benchmarkName(paintScenario, painterName).c_str(),
                                 paintWithQPainter, geometry)
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark(benchmarkName(scrollScenario, smallRowsName).c_str(),
                                 scrollAndPaint, smallRows, geometry)
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark(benchmarkName(scrollScenario, bigRowsName).c_str(), scrollAndPaint,
                                 bigRows, geometry)
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);

    registerWriteBenchmarks<FlexGridTable>(keys);
    registerWriteBenchmarks<TableWidgetTable>(keys);
}

// ---- the summary ----------------------------------------------------------------------------

std::vector<std::string> tablePeers()
{
    return {FlexGridTable::name, TableWidgetTable::name, StandardModelTable::name,
            HandRolledTable::name};
}

/// One line per benchmark of the scenario: its time in `unit` (`scale` per second), and its
/// counter when it has one.
void printTimes(const RatioReporter& reporter, const std::string& scenario,
                const std::vector<std::string>& peers, double scale, const char* unit,
                const char* counter = nullptr)
{
    for (const std::string& peer : peers) {
        const std::string name = benchmarkName(scenario, peer);
        const double seconds = reporter.seconds(name);
        if (seconds <= 0.0) {
            std::printf("  %-22s not measured\n", peer.c_str());
            continue;
        }
        std::printf("  %-22s %10.3f %s", peer.c_str(), seconds * scale, unit);
        if (counter)
            std::printf("   %7.1f %s", reporter.counter(name, counter), counter);
        std::printf("\n");
    }
}

/// "<label>: <value> (target: <target>)" for a FlexGrid counter with a limit.
void printCounterTarget(RatioReporter& reporter, const std::string& label,
                        const std::string& scenario, const char* counter,
                        bool (*withinLimit)(double), const std::string& target)
{
    const std::string name = benchmarkName(scenario, FlexGridTable::name);
    const double value = reporter.counter(name, counter);
    char line[160];
    std::snprintf(line, sizeof line, "%s: %.1f %s", label.c_str(), value, counter);
    if (reporter.seconds(name) <= 0.0)
        RatioReporter::printNotMeasured(line, target);
    else
        reporter.printVerdict(line, target, withinLimit(value));
}

void printFillResults(RatioReporter& reporter)
{
    std::printf("\nfill 1M x 10 (10,000,000 short texts; table created and filled):\n");
    printTimes(reporter, fillScenario, tablePeers(), 1.0, "s", "bytes_per_cell");
    const std::string ours = benchmarkName(fillScenario, FlexGridTable::name);
    reporter.printComparison("fill 1M x 10: FlexGrid vs QTableWidget", ours,
                             benchmarkName(fillScenario, TableWidgetTable::name), 5.0,
                             "at least 5x faster");
    reporter.printComparison("fill 1M x 10: FlexGrid vs QStandardItemModel", ours,
                             benchmarkName(fillScenario, StandardModelTable::name));
    reporter.printComparison("fill 1M x 10: FlexGrid vs hand-rolled model", ours,
                             benchmarkName(fillScenario, HandRolledTable::name), 1.0, "faster");
    printCounterTarget(
        reporter, "fill 1M x 10: FlexGrid heap", fillScenario, "bytes_per_cell",
        [](double bytes) { return bytes <= 48.0; }, "at most 48 bytes per cell");
}

void printSortResults(RatioReporter& reporter)
{
    std::printf("\nnumeric sort of 1M rows x 10 (peers' keys are doubles; hand-rolled parses):\n");
    std::vector<std::string> peers = tablePeers();
    peers.push_back(stdSortName);
    peers.push_back(stdStableSortName);
    printTimes(reporter, sortScenario, peers, 1e3, "ms");
    const std::string ours = benchmarkName(sortScenario, FlexGridTable::name);
    reporter.printComparison("sort 1M: FlexGrid vs QTableWidget", ours,
                             benchmarkName(sortScenario, TableWidgetTable::name), 10.0,
                             "at least 10x faster");
    reporter.printComparison("sort 1M: FlexGrid vs QStandardItemModel", ours,
                             benchmarkName(sortScenario, StandardModelTable::name));
    reporter.printComparison("sort 1M: FlexGrid vs hand-rolled model", ours,
                             benchmarkName(sortScenario, HandRolledTable::name));
    reporter.printComparison("sort 1M: FlexGrid vs std::sort of the keys", ours,
                             benchmarkName(sortScenario, stdSortName), 0.25, "within 4x");
    reporter.printComparison("sort 1M: FlexGrid vs std::stable_sort of the keys", ours,
                             benchmarkName(sortScenario, stdStableSortName));
}

void printColourResults(RatioReporter& reporter)
{
    std::printf("\nback colour on every cell of 100k x 10, banded (FlexGrid with Redraw off):\n");
    printTimes(reporter, colourScenario, tablePeers(), 1e3, "ms", "bytes_per_cell");
    const std::string ours = benchmarkName(colourScenario, FlexGridTable::name);
    reporter.printComparison("back colour 100k x 10: FlexGrid vs QTableWidget", ours,
                             benchmarkName(colourScenario, TableWidgetTable::name), 10.0,
                             "at least 10x faster");
    reporter.printComparison("back colour 100k x 10: FlexGrid vs QStandardItemModel", ours,
                             benchmarkName(colourScenario, StandardModelTable::name));
    reporter.printComparison("back colour 100k x 10: FlexGrid vs hand-rolled model", ours,
                             benchmarkName(colourScenario, HandRolledTable::name));
    printCounterTarget(
        reporter, "back colour 100k x 10: FlexGrid heap added", colourScenario, "bytes_per_cell",
        [](double bytes) { return bytes < 4.0; }, "under 4 bytes per cell");
}

void printPaintResults(RatioReporter& reporter, const CellGeometry& geometry)
{
    std::printf("\none full 800 x 600 frame at row 500,000 of 1M (cells %d x %d px):\n",
                geometry.colPx, geometry.rowPx);
    printTimes(reporter, paintScenario,
               {FlexGridTable::name, HandRolledTable::name, StandardModelTable::name, painterName},
               1e3, "ms", "visible_rows");
    const std::string ours = benchmarkName(paintScenario, FlexGridTable::name);
    const std::string target = "at most as long; aim 2x faster";
    reporter.printComparison("paint 800x600 at 1M rows: FlexGrid vs QTableView + hand-rolled model",
                             ours, benchmarkName(paintScenario, HandRolledTable::name), 1.0,
                             target);
    reporter.printComparison(
        "paint 800x600 at 1M rows: FlexGrid vs QTableView + QStandardItemModel", ours,
        benchmarkName(paintScenario, StandardModelTable::name), 1.0, target);
    reporter.printComparison("paint 800x600 at 1M rows: FlexGrid vs plain QPainter floor", ours,
                             benchmarkName(paintScenario, painterName));

    std::printf("\nscrolling: TopRow jumps across all rows, each with a full frame:\n");
    printTimes(reporter, scrollScenario, {smallRowsName, bigRowsName}, 1e3, "ms");
    const double small = reporter.seconds(benchmarkName(scrollScenario, smallRowsName));
    const double big = reporter.seconds(benchmarkName(scrollScenario, bigRowsName));
    char line[160];
    std::snprintf(line, sizeof line, "scroll + render: FlexGrid at 1M rows / at 1k rows: %.2fx",
                  small > 0.0 ? big / small : 0.0);
    const std::string growthTarget = "does not grow with Rows, at most 1.5x";
    if (small <= 0.0 || big <= 0.0)
        RatioReporter::printNotMeasured(line, growthTarget);
    else
        reporter.printVerdict(line, growthTarget, big / small <= 1.5);
}

void printRemoveResults(RatioReporter& reporter)
{
    std::printf("\n1000 single-row removals from the middle of 100k rows x 10:\n");
    printTimes(reporter, removeScenario, tablePeers(), 1e3, "ms");
    const std::string ours = benchmarkName(removeScenario, FlexGridTable::name);
    reporter.printComparison("remove 1000 of 100k: FlexGrid vs QTableWidget", ours,
                             benchmarkName(removeScenario, TableWidgetTable::name), 20.0,
                             "at least 20x faster");
    reporter.printComparison("remove 1000 of 100k: FlexGrid vs QStandardItemModel", ours,
                             benchmarkName(removeScenario, StandardModelTable::name));
    reporter.printComparison("remove 1000 of 100k: FlexGrid vs hand-rolled model", ours,
                             benchmarkName(removeScenario, HandRolledTable::name));
}

/// Per-cell costs of one table and kind of write, and the after/before ratios; FlexGrid's must
/// stay about 1.
void printWriteCosts(RatioReporter& reporter, const std::string& peer, bool colour)
{
    const auto perCell = [&](History history) {
        return reporter.seconds(benchmarkName(writeScenario(colour, history), peer)) /
               writesPerBatch;
    };
    const double fresh = perCell(History::Fresh);
    const char* what = colour ? "back colour" : "text";
    std::printf("  %-13s %-11s fresh %9.3f us, after sort %9.3f us, after 1000 removals %9.3f us\n",
                peer.c_str(), what, fresh * 1e6, perCell(History::Sorted) * 1e6,
                perCell(History::RowsRemoved) * 1e6);
    for (const History history : {History::Sorted, History::RowsRemoved}) {
        const double after = perCell(history);
        char line[200];
        std::snprintf(line, sizeof line, "write one cell's %s: %s %s / fresh: %.2fx", what,
                      peer.c_str(), history == History::Sorted ? "after sort" : "after removals",
                      fresh > 0.0 ? after / fresh : 0.0);
        if (peer != FlexGridTable::name)
            std::printf("%s\n", line);
        else if (fresh <= 0.0 || after <= 0.0)
            RatioReporter::printNotMeasured(line, "about 1x, at most 2x");
        else
            reporter.printVerdict(line, "about 1x, at most 2x", after / fresh <= 2.0);
    }
}

void printWriteResults(RatioReporter& reporter)
{
    std::printf("\nwriting single cells of 100k x 10 (random cells, per cell):\n");
    for (const bool colour : {false, true}) {
        printWriteCosts(reporter, FlexGridTable::name, colour);
        printWriteCosts(reporter, TableWidgetTable::name, colour);
    }
}

void printResults(RatioReporter& reporter, const CellGeometry& geometry)
{
    std::printf("\n==== FlexGrid and its peers, measured in this run (CPU time of the measured "
                "work, median of repetitions) ====\n");
    printFillResults(reporter);
    printSortResults(reporter);
    printColourResults(reporter);
    printPaintResults(reporter, geometry);
    printRemoveResults(reporter);
    printWriteResults(reporter);
    std::printf("\n");
    reporter.printTargetTally();
}

} // namespace

int main(int argc, char** argv)
{
    // Every frame is rendered into a QImage; the offscreen platform makes that independent of
    // any display.
    BenchProgram program(argc, argv, BenchProgram::Platform::Offscreen);

    const std::vector<double> keys = randomKeys(bigRows);
    const CellGeometry geometry = flexGridGeometry();
    registerBenchmarks(keys, geometry);
    program.run(RatioReporter::Clock::Real,
                [&](RatioReporter& reporter) { printResults(reporter, geometry); });
    return 0;
}
