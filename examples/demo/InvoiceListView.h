// SPDX-License-Identifier: MIT
// The invoice list: a read-only VemoGrid bound to a query of the invoices.
#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QSqlQueryModel;
QT_END_NAMESPACE

namespace VemoGridLib {
class VemoGrid;
}

class InvoiceDatabase;

/// Lists every invoice of the file with its customer, dates, line count and total, through
/// the grid's `DataSource`. Moving to a row, a double click or Enter chooses its invoice.
class InvoiceListView : public QWidget
{
    Q_OBJECT

public:
    /// The list's columns.
    enum ListColumn : int { ColNumber = 1, ColDate, ColCustomer, ColDelivery, ColLines, ColTotal };

    explicit InvoiceListView(InvoiceDatabase& database, QWidget* parent = nullptr);

    /// Reads the invoices again and moves to invoice `number` (when listed) without choosing
    /// it.
    void refresh(int number = 0);
    /// Moves to invoice `number` and chooses it; false when it is not listed.
    bool choose(int number);
    VemoGridLib::VemoGrid* grid() const;

Q_SIGNALS:
    void invoiceChosen(int number);

private:
    /// The list row of invoice `number`, or -1.
    int rowOf(int number) const;
    /// Chooses the current row's invoice; a move to the invoice chosen last is no choice,
    /// unless `again`.
    void chooseCurrent(bool again);

    VemoGridLib::VemoGrid* m_grid;
    QSqlQueryModel* m_model;
    InvoiceDatabase& m_database;
    /// The list is being read again: moves are not choices.
    bool m_refreshing = false;
    int m_chosen = 0;
};
