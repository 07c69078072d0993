// SPDX-License-Identifier: MIT
// The invoice application's window: the invoice list beside the invoice form.
#pragma once

#include <QMainWindow>

#include <memory>

namespace VemoGridLib {
class VemoGrid;
}

class InvoiceDatabase;
class InvoiceForm;
class InvoiceListView;

/// Opens the invoice file `databaseFile` (creating it with sample data when new) and shows its
/// invoices on the left, the chosen one in the form on the right. The Export menu writes the
/// form's lines to a file; Help → About shows the library's about box.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(const QString& databaseFile, QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Whether the file could be opened; the window says why not otherwise.
    bool isOpen() const;
    InvoiceListView* list() const;
    InvoiceForm* form() const;

private:
    void setUpMenus();
    /// Asks for a file (`filter` names its kind), then writes the form's lines to it with the
    /// grid's `exporter`.
    void exportLines(const QString& filter, const QString& suffix,
                     void (VemoGridLib::VemoGrid::*exporter)(const QString&));

    std::unique_ptr<InvoiceDatabase> m_database;
    InvoiceListView* m_list = nullptr;
    InvoiceForm* m_form = nullptr;
};
