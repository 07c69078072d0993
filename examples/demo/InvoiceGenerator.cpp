// SPDX-License-Identifier: MIT
#include "InvoiceGenerator.h"

#include <array>

namespace {

struct Product
{
    const char* name;
    qint64 priceCents;
};

constexpr std::array Products{
    Product{"A4 copy paper, box of 5", 2490}, Product{"Ballpoint pens, 50", 1250},
    Product{"Stapler, heavy duty", 1875},     Product{"LED desk lamp", 3900},
    Product{"Office chair", 18900},           Product{"Filing cabinet", 24900},
    Product{"Laser toner cartridge", 7990},   Product{"Whiteboard 120 x 90", 9600},
    Product{"USB-C docking station", 12900},  Product{"27-inch monitor", 27900},
    Product{"Wireless keyboard", 4990},       Product{"Paper shredder", 15900},
    Product{"Label printer", 11900},          Product{"Coffee beans, 1 kg", 2140},
    Product{"Paper cups, 1000", 3400},        Product{"Archive boxes, 10", 2890},
};

constexpr std::array Customers{
    "Acme Trading Ltd", "Blue River Foods",    "Cedar & Sons",        "Delta Office Supply",
    "Evergreen Farms",  "Fairview Hardware",   "Golden Gate Imports", "Harbor Logistics",
    "Iris Textiles",    "Juniper Books",       "Keystone Motors",     "Lakeside Bakery",
    "Meridian Pharma",  "Northwind Traders",   "Oakridge Builders",   "Pioneer Electric",
    "Quartz Optics",    "Redwood Furniture",   "Silverline Media",    "Tidewater Marine",
    "Union Stationers", "Vista Garden Centre", "Westfield Dairy",     "Yellowstone Outfitters",
    "Zenith Computers", "Maple Leaf Catering", "Copperfield Legal",   "Summit Dental Clinic",
};

/// The invoices span two years; the last day is the demo's "today".
constexpr int DaysSpanned = 730;
constexpr int PaymentTermDays = 30;
constexpr int LongestRun = 4;
constexpr int LargestQuantity = 24;

QDate firstDay()
{
    return QDate(2023, 1, 2);
}

} // namespace

InvoiceGenerator::InvoiceGenerator(quint32 seed)
    : m_random(seed)
{}

std::vector<Invoice> InvoiceGenerator::generate(int count)
{
    std::vector<Invoice> invoices;
    invoices.reserve(std::size_t(count));
    const QDate today = firstDay().addDays(DaysSpanned);
    for (int i = 0; i < count; ++i) {
        Invoice invoice;
        invoice.number = QStringLiteral("INV-%1").arg(i + 1, 6, 10, QLatin1Char('0'));
        invoice.date = firstDay().addDays(qint64(i) * DaysSpanned / count);
        invoice.customer = nextCustomer();
        const Product& product = Products[m_random.bounded(int(Products.size()))];
        invoice.product = QString::fromUtf8(product.name);
        invoice.quantity = 1 + m_random.bounded(LargestQuantity);
        invoice.priceCents = product.priceCents;
        invoice.status = statusFor(invoice.date, today);
        invoices.push_back(std::move(invoice));
    }
    return invoices;
}

QString InvoiceGenerator::nextCustomer()
{
    if (m_runLeft == 0) {
        m_customer = QString::fromUtf8(Customers[m_random.bounded(int(Customers.size()))]);
        m_runLeft = 1 + m_random.bounded(LongestRun);
    }
    --m_runLeft;
    return m_customer;
}

// Old invoices are nearly all paid; unpaid ones past their term are overdue.
InvoiceStatus InvoiceGenerator::statusFor(const QDate& date, const QDate& today)
{
    const qint64 age = date.daysTo(today);
    const int paidPercent = age > 3 * PaymentTermDays ? 97 : age > PaymentTermDays ? 70 : 25;
    if (m_random.bounded(100) < paidPercent)
        return InvoiceStatus::Paid;
    return age > PaymentTermDays ? InvoiceStatus::Overdue : InvoiceStatus::Open;
}
