// SPDX-License-Identifier: MIT
// The stock lines the VemoGrid form starts with, written out by hand.
#pragma once

#include <QtGlobal>

#include <span>

/// One purchase line of the form. Money and quantities are whole hundredths, so the table
/// holds exact values and the form formats them with its columns' own formats.
struct StockLine
{
    /// ISO date, as a clerk would type it ("2024-03-05"); the date column reformats it.
    const char* date;
    const char* product;
    /// The product's Chinese name, UTF-8.
    const char* productZh;
    /// The last part of the product page's address.
    const char* sku;
    qint64 priceCents;
    qint64 quantityHundredths;
    int inStock;
    bool paid;
    /// The clerk's notes on the line, UTF-8; most lines have none.
    const char* notes = nullptr;
};

/// The sample lines, in the order they were entered (not in date order).
std::span<const StockLine> sampleStockLines();
