// SPDX-License-Identifier: MIT
// The "Edit Columns…" dialog of the grid's design-time menu.
#pragma once

#include <QDialog>

QT_BEGIN_NAMESPACE
class QStandardItemModel;
class QTableView;
QT_END_NAMESPACE

namespace VemoGridLib {

/// Edits a `ColumnSetup` text as a table: one row per grid column, one table column per
/// setting. An empty cell is the setting's default; check boxes hold the switches and
/// drop-downs the enumerations; a combo's items are edited as lines of text.
class ColumnSetupDialog : public QDialog
{
    Q_OBJECT

public:
    /// The table columns, in the order shown.
    enum Field {
        Col,
        Header,
        Width,
        ColType,
        DecimalLength,
        FormatString,
        MinValue,
        MaxValue,
        Locked,
        AutoAdd,
        ShowZero,
        SortType,
        Items,
        ListHeader,
        ListWidth,
        VisibleRows,
        SelectCol,
        ShowHeader,
        AutoDropDown,
        HotTracking,
        CompareMode,
        FieldCount
    };
    Q_ENUM(Field)

    explicit ColumnSetupDialog(QWidget* parent = nullptr);

    /// Fills the table from a `ColumnSetup` text; throws VemoError on a text that does not read.
    void setText(const QString& text);
    /// The table as a `ColumnSetup` text; throws VemoError naming the row and table column of a
    /// number cell that does not read.
    QString text() const;
    /// The table's model, one item per cell.
    QStandardItemModel* model() const;

    /// Appends a row for the column after the last one.
    void addRow();
    /// Removes the rows of the selected cells.
    void removeSelectedRows();

    /// Closes the dialog only when the table reads as a column setup; else says what is wrong.
    void accept() override;

private:
    QStandardItemModel* m_model;
    QTableView* m_view;
};

} // namespace VemoGridLib
