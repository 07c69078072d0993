// SPDX-License-Identifier: MIT
// Deterministic, business-like invoice lines for the demo grid.
#pragma once

#include <QDate>
#include <QRandomGenerator>
#include <QString>

#include <vector>

enum class InvoiceStatus { Paid, Open, Overdue };

struct Invoice
{
    QString number;
    QDate date;
    QString customer;
    QString product;
    int quantity = 0;
    /// Money in cents, so that amounts add up exactly.
    qint64 priceCents = 0;
    InvoiceStatus status = InvoiceStatus::Open;

    qint64 amountCents() const { return quantity * priceCents; }
};

/// Generates the same invoices on every run (a fixed seed), in date order. A customer often buys
/// several times in a row, so the customer column has runs of equal texts for the grid to merge.
class InvoiceGenerator
{
public:
    explicit InvoiceGenerator(quint32 seed = 20240101);

    std::vector<Invoice> generate(int count);

private:
    QString nextCustomer();
    InvoiceStatus statusFor(const QDate& date, const QDate& today);

    QRandomGenerator m_random;
    QString m_customer;
    int m_runLeft = 0;
};
