// SPDX-License-Identifier: MIT
// The invoice form: customer, dates, note and the lines grid of one invoice, built in
// InvoiceForm.ui.
#pragma once

#include "InvoiceDatabase.h"

#include <QHash>
#include <QWidget>

#include <memory>
#include <optional>

namespace Ui {
class InvoiceForm;
}

namespace VemoGridLib {
class VemoGrid;
}

/// Edits one invoice of an `InvoiceDatabase`. The lines grid computes each line's amount
/// from quantity × unit price; picking a product (or typing its code) fills the line's name,
/// price and link. Save checks every line and refuses the whole invoice, naming the line,
/// when one is wrong; New starts the next number; Delete asks, then removes the invoice.
/// Problems are shown through the library's message handler.
class InvoiceForm : public QWidget
{
    Q_OBJECT

public:
    /// The lines grid's columns.
    enum LineColumn : int {
        ColNo = 1,
        ColProduct,
        ColName,
        ColQuantity,
        ColPrice,
        ColAmount,
        ColPaid,
        ColLink,
    };

    explicit InvoiceForm(InvoiceDatabase& database, QWidget* parent = nullptr);
    ~InvoiceForm() override;

    /// Shows invoice `number`; false when the file has no such invoice.
    bool openInvoice(int number);
    /// The invoice shown (not yet saved after New).
    int number() const;
    VemoGridLib::VemoGrid* linesGrid() const;

    /// Clears the form for a new invoice with the next free number.
    void newInvoice();
    /// Checks the form and writes it; false (after showing why) when it was refused.
    bool save();
    /// Asks, then removes the invoice shown and starts a new one.
    void deleteInvoice();

Q_SIGNALS:
    /// Invoice `number` was written to the file.
    void saved(int number);
    /// Invoice `number` was removed from the file.
    void deleted(int number);

private:
    void loadLists();
    void setUpLines();
    /// Leaves the lines grid with `count` empty lines.
    void emptyLines(int count);
    /// The form's invoice, every line checked; none, with `problem` set, when something is
    /// wrong.
    std::optional<Invoice> collect(QString& problem) const;
    /// Fills row `row` from the product `code`, when the catalogue has it.
    void fillProduct(int row, const QString& code);
    void updateTotals();
    void showProblem(const QString& text) const;

    InvoiceDatabase& m_database;
    std::unique_ptr<Ui::InvoiceForm> m_ui;
    QHash<QString, Product> m_products;
    QList<Customer> m_customers;
    int m_number = 0;
};
