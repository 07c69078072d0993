// SPDX-License-Identifier: MIT
#include "InvoiceDatabase.h"

#include "SampleData.h"

#include <VemoGridLib/VbConversion.h>

#include <QDir>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QVariant>

#include <algorithm>
#include <array>

namespace {

constexpr int FirstInvoiceNumber = 1001;

// Dates are ISO texts: date(x) IS x holds for a valid one only. Quantities and prices have
// upper bounds the form checks too, so that a typing slip of a few zeros is caught twice.
constexpr std::array Schema{
    R"(CREATE TABLE customers (
        id INTEGER PRIMARY KEY,
        name TEXT NOT NULL UNIQUE CHECK (length(trim(name)) > 0),
        city TEXT NOT NULL DEFAULT ''))",
    R"(CREATE TABLE products (
        code TEXT PRIMARY KEY CHECK (length(code) > 0 AND code = trim(code)),
        name TEXT NOT NULL CHECK (length(trim(name)) > 0),
        name_zh TEXT NOT NULL DEFAULT '',
        unit TEXT NOT NULL CHECK (length(unit) > 0),
        unit_price_cents INTEGER NOT NULL
            CHECK (typeof(unit_price_cents) = 'integer' AND unit_price_cents >= 0)))",
    R"(CREATE TABLE invoices (
        number INTEGER PRIMARY KEY CHECK (number > 0),
        customer_id INTEGER NOT NULL REFERENCES customers(id),
        invoice_date TEXT NOT NULL CHECK (date(invoice_date) IS invoice_date),
        delivery_date TEXT CHECK (delivery_date IS NULL OR
            (date(delivery_date) IS delivery_date AND delivery_date >= invoice_date)),
        note TEXT NOT NULL DEFAULT ''))",
    R"(CREATE TABLE invoice_lines (
        invoice INTEGER NOT NULL REFERENCES invoices(number) ON DELETE CASCADE,
        line_no INTEGER NOT NULL CHECK (line_no > 0),
        product_code TEXT NOT NULL REFERENCES products(code),
        name TEXT NOT NULL,
        quantity REAL NOT NULL CHECK (quantity > 0 AND quantity <= 100000),
        unit_price_cents INTEGER NOT NULL
            CHECK (typeof(unit_price_cents) = 'integer' AND unit_price_cents >= 0
                   AND unit_price_cents <= 100000000),
        amount_cents INTEGER NOT NULL
            CHECK (typeof(amount_cents) = 'integer'
                   AND abs(amount_cents - quantity * unit_price_cents) < 1),
        paid INTEGER NOT NULL DEFAULT 0 CHECK (paid IN (0, 1)),
        link TEXT NOT NULL DEFAULT '',
        PRIMARY KEY (invoice, line_no)))",
};

int connectionCount = 0;

/// Runs `sql` with `values` bound in order; on failure sets `error` to the driver's reason.
bool run(QSqlQuery& query, const QString& sql, const QVariantList& values, QString& error)
{
    if (!query.prepare(sql)) {
        error = query.lastError().text();
        return false;
    }
    for (const QVariant& value : values)
        query.addBindValue(value);
    if (!query.exec()) {
        error = query.lastError().text();
        return false;
    }
    return true;
}

QVariant isoDate(const QDate& date)
{
    return date.isValid() ? QVariant(date.toString(Qt::ISODate))
                          : QVariant(QMetaType(QMetaType::QString));
}

/// Runs `steps` in one transaction of `db`: commits when it returns true, else rolls back.
template <typename Steps>
bool inTransaction(QSqlDatabase db, QString& error, Steps&& steps)
{
    if (!db.transaction()) {
        error = db.lastError().text();
        return false;
    }
    if (steps() && db.commit())
        return true;
    if (error.isEmpty())
        error = db.lastError().text();
    db.rollback();
    return false;
}

} // namespace

InvoiceDatabase::InvoiceDatabase(const QString& file)
    : m_connectionName(QStringLiteral("vemo-invoices-%1").arg(++connectionCount))
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
    db.setDatabaseName(file);
    if (!db.open()) {
        m_error = db.lastError().text();
        return;
    }
    QSqlQuery pragma(db);
    pragma.exec(QStringLiteral("PRAGMA foreign_keys = ON"));
    if (!db.tables().contains(QStringLiteral("invoices")) && !createAndSeed())
        db.close();
}

InvoiceDatabase::~InvoiceDatabase()
{
    QSqlDatabase::database(m_connectionName, false).close();
    QSqlDatabase::removeDatabase(m_connectionName);
}

QString InvoiceDatabase::defaultFile()
{
    const QString dir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(dir);
    return QDir(dir).filePath(QStringLiteral("invoices.sqlite"));
}

qint64 InvoiceDatabase::amountCents(double quantity, qint64 unitPriceCents)
{
    return qRound64(VemoGridLib::vb::Round(quantity * (double(unitPriceCents) / 100), 2) * 100);
}

QString InvoiceDatabase::productLink(const QString& code)
{
    // example.com is reserved for documentation.
    return QStringLiteral("https://example.com/shop/") + code;
}

bool InvoiceDatabase::isOpen() const
{
    return connection().isOpen();
}

QString InvoiceDatabase::errorText() const
{
    return m_error;
}

QSqlDatabase InvoiceDatabase::connection() const
{
    return QSqlDatabase::database(m_connectionName, false);
}

bool InvoiceDatabase::createAndSeed()
{
    return inTransaction(connection(), m_error, [this] {
        QSqlQuery query(connection());
        for (const char* statement : Schema) {
            if (!run(query, QString::fromUtf8(statement), {}, m_error))
                return false;
        }
        for (const SampleCustomer& customer : sampleCustomers()) {
            if (!run(query, QStringLiteral("INSERT INTO customers (name, city) VALUES (?, ?)"),
                     {QString::fromUtf8(customer.name), QString::fromUtf8(customer.city)}, m_error))
                return false;
        }
        for (const SampleProduct& product : sampleProducts()) {
            if (!run(query,
                     QStringLiteral("INSERT INTO products (code, name, name_zh, unit, "
                                    "unit_price_cents) VALUES (?, ?, ?, ?, ?)"),
                     {QString::fromUtf8(product.code), QString::fromUtf8(product.name),
                      QString::fromUtf8(product.nameZh), QString::fromUtf8(product.unit),
                      product.priceCents},
                     m_error))
                return false;
        }
        const QList<Customer> known = customers();
        const QList<Product> catalogue = products();
        for (const SampleInvoice& sample : sampleInvoices()) {
            Invoice invoice;
            invoice.number = sample.number;
            invoice.customerId = known.at(sample.customer).id;
            invoice.invoiceDate = QDate::fromString(QString::fromLatin1(sample.date), Qt::ISODate);
            invoice.deliveryDate = invoice.invoiceDate.addDays(sample.deliveryDays);
            invoice.note = QString::fromUtf8(sample.note);
            for (const SampleLine& sampleLine : sample.lines) {
                const QString code = QString::fromLatin1(sampleLine.productCode);
                const auto product = std::find_if(catalogue.begin(), catalogue.end(),
                                                  [&](const Product& p) { return p.code == code; });
                InvoiceLine line;
                line.lineNo = int(invoice.lines.size()) + 1;
                line.productCode = code;
                line.name = product->name;
                line.quantity = double(sampleLine.quantityHundredths) / 100;
                line.unitPriceCents = product->unitPriceCents;
                line.amountCents = amountCents(line.quantity, line.unitPriceCents);
                line.paid = sampleLine.paid;
                line.link = productLink(code);
                invoice.lines << line;
            }
            if (!insert(invoice, m_error))
                return false;
        }
        return true;
    });
}

bool InvoiceDatabase::insert(const Invoice& invoice, QString& error)
{
    QSqlQuery query(connection());
    if (!run(query,
             QStringLiteral("INSERT INTO invoices (number, customer_id, invoice_date, "
                            "delivery_date, note) VALUES (?, ?, ?, ?, ?)"),
             {invoice.number, invoice.customerId, isoDate(invoice.invoiceDate),
              isoDate(invoice.deliveryDate), invoice.note},
             error))
        return false;
    for (const InvoiceLine& line : invoice.lines) {
        if (!run(query,
                 QStringLiteral("INSERT INTO invoice_lines (invoice, line_no, product_code, "
                                "name, quantity, unit_price_cents, amount_cents, paid, link) "
                                "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                 {invoice.number, line.lineNo, line.productCode, line.name, line.quantity,
                  line.unitPriceCents, line.amountCents, line.paid ? 1 : 0, line.link},
                 error))
            return false;
    }
    return true;
}

bool InvoiceDatabase::deleteRows(int number, QString& error)
{
    QSqlQuery query(connection());
    return run(query, QStringLiteral("DELETE FROM invoice_lines WHERE invoice = ?"), {number},
               error) &&
           run(query, QStringLiteral("DELETE FROM invoices WHERE number = ?"), {number}, error);
}

QList<Customer> InvoiceDatabase::customers() const
{
    QList<Customer> result;
    QSqlQuery query(QStringLiteral("SELECT id, name, city FROM customers ORDER BY id"),
                    connection());
    while (query.next())
        result << Customer{query.value(0).toInt(), query.value(1).toString(),
                           query.value(2).toString()};
    return result;
}

QList<Product> InvoiceDatabase::products() const
{
    QList<Product> result;
    QSqlQuery query(QStringLiteral("SELECT code, name, name_zh, unit, unit_price_cents "
                                   "FROM products ORDER BY code"),
                    connection());
    while (query.next())
        result << Product{query.value(0).toString(), query.value(1).toString(),
                          query.value(2).toString(), query.value(3).toString(),
                          query.value(4).toLongLong()};
    return result;
}

std::optional<Invoice> InvoiceDatabase::invoice(int number) const
{
    QSqlQuery query(connection());
    QString error;
    if (!run(query,
             QStringLiteral("SELECT customer_id, invoice_date, delivery_date, note FROM invoices "
                            "WHERE number = ?"),
             {number}, error) ||
        !query.next())
        return std::nullopt;
    Invoice invoice;
    invoice.number = number;
    invoice.customerId = query.value(0).toInt();
    invoice.invoiceDate = QDate::fromString(query.value(1).toString(), Qt::ISODate);
    invoice.deliveryDate = QDate::fromString(query.value(2).toString(), Qt::ISODate);
    invoice.note = query.value(3).toString();
    if (!run(query,
             QStringLiteral("SELECT line_no, product_code, name, quantity, unit_price_cents, "
                            "amount_cents, paid, link FROM invoice_lines WHERE invoice = ? "
                            "ORDER BY line_no"),
             {number}, error))
        return std::nullopt;
    while (query.next()) {
        invoice.lines << InvoiceLine{query.value(0).toInt(),      query.value(1).toString(),
                                     query.value(2).toString(),   query.value(3).toDouble(),
                                     query.value(4).toLongLong(), query.value(5).toLongLong(),
                                     query.value(6).toInt() != 0, query.value(7).toString()};
    }
    return invoice;
}

int InvoiceDatabase::nextNumber() const
{
    QSqlQuery query(QStringLiteral("SELECT max(number) FROM invoices"), connection());
    if (!query.next() || query.value(0).isNull())
        return FirstInvoiceNumber;
    return query.value(0).toInt() + 1;
}

bool InvoiceDatabase::save(const Invoice& invoice, QString& error)
{
    error.clear();
    return inTransaction(connection(), error, [&] {
        return deleteRows(invoice.number, error) && insert(invoice, error);
    });
}

bool InvoiceDatabase::remove(int number, QString& error)
{
    error.clear();
    return inTransaction(connection(), error, [&] { return deleteRows(number, error); });
}
