// SPDX-License-Identifier: MIT
// The demo's main window: the VemoGrid form and the FlexGrid invoice list, one tab each.
#pragma once

#include <QMainWindow>

/// Opens on the VemoGrid stock entry form (`InvoiceForm`); the second tab holds the FlexGrid
/// of generated invoices (`InvoiceListView`). Its Help menu opens the library's about box.
class DemoWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit DemoWindow(QWidget* parent = nullptr);
};
