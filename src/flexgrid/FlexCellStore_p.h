// SPDX-License-Identifier: MIT
// The headless cell store behind FlexGrid: texts, per-cell looks and row and column metadata.
#pragma once

#include "flexgrid/FlexCellFormat_p.h"

#include "common/VemoGridLibExport.h"

#include <QString>
#include <QStringView>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace VemoGridLib {

/// The cells of a FlexGrid without any drawing: texts, looks, sizes and row/column data.
///
/// Cost follows the work, not the grid: rows are handles into column-major storage, so
/// inserting, removing, moving and sorting rows move 4-byte handles, never cell contents;
/// texts live in a shared UTF-16 arena (8 bytes a cell plus the characters); a cell's look is
/// a 2-byte index into a table of distinct looks, allocated per column only once a column
/// carries one. Indices are not checked here beyond assertions: FlexGrid validates them and
/// raises the grid's errors.
class VEMOGRIDLIB_EXPORT FlexCellStore
{
public:
    /// Which scalar member of a cell's look `setFormatValue` changes.
    enum class FormatField : std::uint8_t {
        BackColor,
        ForeColor,
        Alignment,
        PictureAlignment,
        TextStyle,
        Bold,
        Italic,
        Underline,
        FontSize,
        FontWidth,
    };

    FlexCellStore();
    ~FlexCellStore();
    FlexCellStore(const FlexCellStore&) = delete;
    FlexCellStore& operator=(const FlexCellStore&) = delete;

    /// Number of rows / columns. Inline: every checked access of FlexGrid reads them.
    int rowCount() const { return m_rows; }
    int colCount() const { return m_cols; }
    /// The largest store: at most `MaxCols` columns and `MaxCells` cells (rows × columns, an
    /// empty dimension counted as one, so that 0 rows of a billion columns is no way round).
    /// A cell costs 8 bytes and a row a few more, so the largest grid stays near a gigabyte;
    /// each column carries its own vectors, hence the separate limit.
    static constexpr qint64 MaxCols = qint64(1) << 16;
    static constexpr qint64 MaxCells = qint64(1) << 26;
    /// Whether a store of `rows` × `cols` is within the limits above.
    static bool fits(qint64 rows, qint64 cols);

    /// Grows with empty default rows or drops rows from the end (`Rows`). Beyond the limits,
    /// or when memory runs out, raises 7 "Out of memory" and keeps the rows as they were.
    void setRowCount(int rows);
    /// Grows with empty default columns or drops columns from the end (`Cols`); fails as
    /// `setRowCount`.
    void setColCount(int cols);

    /// A cell's text.
    QString text(int row, int col) const;
    /// A cell's text without a copy; valid until the next write to the store.
    QStringView textView(int row, int col) const;
    /// Replaces a cell's text.
    void setText(int row, int col, QStringView text);
    /// Replaces the texts of `row` from its first column on by the TAB-separated fields of
    /// `fields`, as far as there are columns and fields (FlexGrid's `AddItem`).
    void setRowTexts(int row, QStringView fields);

    /// A cell's look; the default look for a never-formatted cell.
    const FlexCellFormat& format(int row, int col) const;
    /// True when the cell carries a look of its own.
    bool hasFormat(int row, int col) const;
    /// Replaces a cell's whole look.
    void setFormat(int row, int col, const FlexCellFormat& format);
    /// Changes one scalar member of a cell's look (colours as their OleColor value, flags as
    /// −1/0/1, sizes in points). Repeated changes of the same kind are served from a cache.
    void setFormatValue(int row, int col, FormatField field, double value);
    /// Applies `change` to the cell's look. `key` names the change: the same key must always
    /// mean the same change, one that depends on the look alone; the store then remembers what
    /// each look becomes, as it does for `setFormatValue`.
    void changeFormat(int row, int col, quint64 key,
                      const std::function<void(FlexCellFormat&)>& change);
    /// `setFormatValue` on rows `firstRow`..`lastRow` of `col`: `evenValue` on rows an even
    /// distance from `evenRow`, `oddValue` on the others (VemoGrid's row banding).
    void setFormatValueBanded(int col, int firstRow, int lastRow, FormatField field,
                              double evenValue, double oddValue, int evenRow);

    /// `RowHeight` as set, in twips; −1 = the default height.
    int rowHeight(int row) const;
    void setRowHeight(int row, int twips);
    /// `RowData`.
    qint32 rowData(int row) const;
    void setRowData(int row, qint32 value);
    /// `MergeRow`.
    bool mergeRow(int row) const;
    void setMergeRow(int row, bool merge);

    /// `ColWidth` as set, in twips; −1 = the default width.
    int colWidth(int col) const;
    void setColWidth(int col, int twips);
    /// `ColAlignment` 0–9.
    int colAlignment(int col) const;
    void setColAlignment(int col, int alignment);
    /// `ColAlignmentFixed` 0–9; −1 = follows `ColAlignment`.
    int colAlignmentFixed(int col) const;
    void setColAlignmentFixed(int col, int alignment);
    /// `MergeCol`.
    bool mergeCol(int col) const;
    void setMergeCol(int col, bool merge);
    /// `ColData`.
    qint32 colData(int col) const;
    void setColData(int col, qint32 value);

    /// Inserts an empty default row before `row` (`row == rowCount()` appends).
    void insertRow(int row);
    /// Removes one row; the rows below move up.
    void removeRow(int row);
    /// Moves a row with everything it carries to position `to` (`RowPosition`).
    void moveRow(int from, int to);
    /// Moves a column with its cells and metadata to position `to` (`ColPosition`).
    void moveCol(int from, int to);
    /// Reorders the rows `first .. first + order.size() − 1`: the row that ends at `first + i`
    /// is the one that was at `first + order[i]`. `order` must be a permutation.
    void reorderRows(int first, const std::vector<std::uint32_t>& order);
    /// Empties every cell's text and look; sizes and row/column metadata stay (`Clear`).
    void clearCells();

    /// Heap bytes held by the store (arena, handles, per-column vectors, look table).
    std::size_t bytesUsed() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
    int m_rows = 0;
    int m_cols = 0;
};

} // namespace VemoGridLib
