// SPDX-License-Identifier: MIT
// The demo's first view: a VemoGrid stock entry form with its row buttons.
#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QStatusBar;
QT_END_NAMESPACE

namespace VemoGridLib {
class Column;
class VemoComboBox;
class VemoDTPicker;
class VemoGrid;
}

/// A purchase ledger in a VemoGrid: one typed column per kind of entry (numbered, check box,
/// date, text, currency, numeric, long, hyperlink, button), banded rows, read-only colours, an
/// amount column the grid computes from price × quantity, and header clicks that sort by the
/// column's own sort type. The Product column is a list of the catalogue (code, name, unit
/// price): picking a code fills the row's name, price and amount. A supplier picker, a
/// VemoComboBox on its own, sits above the grid. The user types into the cells; the Notes column's
/// button opens the row's whole note in a dialog. A hint line above the grid tells what the keys
/// do; buttons below add, remove and clear rows and export the table to Excel; the status line
/// shows the last action (a refused entry among them), the row count, the marked row and the sort
/// order.
class InvoiceForm : public QWidget
{
    Q_OBJECT

public:
    explicit InvoiceForm(QWidget* parent = nullptr);

    /// Wide enough for every column, tall enough for the sample rows.
    QSize sizeHint() const override;

private:
    void setUpColumns();
    /// Fills the Product column's list with the catalogue and sets its columns.
    void setUpProductList(VemoGridLib::Column& list);
    void setUpSupplierPicker();
    /// A row picked from the Product list: the product's names, page and price go into the
    /// row, and the amount follows the price.
    void onProductPicked(int row, int& col, QString& value);
    void fill();
    /// Computes the amount of every row the way the grid does for a clerk: by leaving an
    /// operand cell.
    void computeAmounts();
    /// Fits the columns to their headers (with room for the sort arrow) and texts.
    void fitColumns();
    /// Mirrors a sort the grid ran on `col`.
    void followSort(int col);
    void addRow();
    void removeRow();
    void clearRows();
    void exportToExcel();
    /// Keeps `note` in the hidden note column and its first line in the Notes cell.
    void setNote(int row, const QString& note);
    /// The Notes button: edits the row's note in a dialog.
    void editNote(int row);
    void onCellChanged(int row, int col);
    void onValidateError(int row, int col, const QString& value);
    void onClick();
    /// Shows `action` (if given, else the last one) and the grid's state: rows, total, marked
    /// row, sort order.
    void showStatus(const QString& action = QString());

    VemoGridLib::VemoGrid* m_grid;
    VemoGridLib::VemoComboBox* m_supplier;
    /// The delivery date, standing alone above the grid.
    VemoGridLib::VemoDTPicker* m_delivery;
    QStatusBar* m_status;
    /// The last action shown; a click that only moves the marker keeps it in the status line.
    QString m_action;
    /// The grid keeps its sort order to itself; this mirrors it for the status line, following
    /// the same rules: a new column sorts ascending, the same one again reverses, and row
    /// removal and Clear take the sort mark away.
    int m_sortedCol = -1;
    bool m_sortedAscending = true;
};
