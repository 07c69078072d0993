// SPDX-License-Identifier: MIT
// What a new invoice database starts with: the catalogue, the customers and a few invoices.
#pragma once

#include <QtGlobal>

#include <span>

/// One catalogue entry; names are UTF-8, money in whole cents so that the table holds exact
/// values.
struct SampleProduct
{
    /// The last part of the product page's address, too.
    const char* code;
    const char* name;
    const char* nameZh;
    const char* unit;
    qint64 priceCents;
};

struct SampleCustomer
{
    const char* name;
    const char* city;
};

struct SampleLine
{
    const char* productCode;
    /// Some goods are sold by weight or length: quantities have two decimals.
    qint64 quantityHundredths;
    bool paid;
};

struct SampleInvoice
{
    int number;
    /// Index into sampleCustomers().
    int customer;
    /// ISO date.
    const char* date;
    int deliveryDays;
    const char* note;
    std::span<const SampleLine> lines;
};

std::span<const SampleProduct> sampleProducts();
std::span<const SampleCustomer> sampleCustomers();
std::span<const SampleInvoice> sampleInvoices();
