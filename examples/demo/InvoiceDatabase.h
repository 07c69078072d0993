// SPDX-License-Identifier: MIT
// The invoice application's SQLite file: its tables, first contents, and invoices in and out.
#pragma once

#include <QDate>
#include <QList>
#include <QSqlDatabase>
#include <QString>

#include <optional>

struct Customer
{
    int id = 0;
    QString name;
    QString city;
};

struct Product
{
    QString code;
    QString name;
    QString nameZh;
    QString unit;
    qint64 unitPriceCents = 0;
};

struct InvoiceLine
{
    int lineNo = 0;
    QString productCode;
    QString name;
    double quantity = 0;
    qint64 unitPriceCents = 0;
    qint64 amountCents = 0;
    bool paid = false;
    QString link;

    friend bool operator==(const InvoiceLine&, const InvoiceLine&) = default;
};

struct Invoice
{
    int number = 0;
    int customerId = 0;
    QDate invoiceDate;
    QDate deliveryDate;
    QString note;
    QList<InvoiceLine> lines;

    friend bool operator==(const Invoice&, const Invoice&) = default;
};

/// One connection to an invoice file. A file without the tables gets them, and the sample
/// catalogue, customers and invoices, when it is opened. Money is kept in whole cents;
/// the tables' CHECK constraints refuse what the application never writes (a negative price,
/// an amount that is not quantity × price, a delivery before the invoice date...).
///
/// Every statement binds its values: nothing a user typed becomes part of the SQL text.
class InvoiceDatabase
{
public:
    /// Opens (creating when needed) `file`; see isOpen() and errorText().
    explicit InvoiceDatabase(const QString& file);
    /// Closes the connection; every model and query on it must be gone by then.
    ~InvoiceDatabase();
    InvoiceDatabase(const InvoiceDatabase&) = delete;
    InvoiceDatabase& operator=(const InvoiceDatabase&) = delete;

    /// The file the application uses without `--database`: in its data directory.
    static QString defaultFile();
    /// What the grid's auto-calculation writes for `quantity` × the price: rounded half to
    /// even to the cent.
    static qint64 amountCents(double quantity, qint64 unitPriceCents);
    /// Link of a product's page in the shop.
    static QString productLink(const QString& code);

    bool isOpen() const;
    /// Why the file could not be opened or set up.
    QString errorText() const;
    QSqlDatabase connection() const;

    QList<Customer> customers() const;
    QList<Product> products() const;
    std::optional<Invoice> invoice(int number) const;
    /// One past the highest invoice number (the first one of an empty file: 1001).
    int nextNumber() const;

    /// Writes `invoice` and its lines in one transaction, replacing an invoice of the same
    /// number; on any failure rolls back and returns false with `error` set.
    bool save(const Invoice& invoice, QString& error);
    /// Removes the invoice and its lines in one transaction.
    bool remove(int number, QString& error);

private:
    bool createAndSeed();
    /// Inserts the invoice and its lines, inside the caller's transaction.
    bool insert(const Invoice& invoice, QString& error);
    /// Deletes the invoice and its lines, inside the caller's transaction.
    bool deleteRows(int number, QString& error);

    QString m_connectionName;
    QString m_error;
};
