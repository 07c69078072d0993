// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "InvoiceDatabase.h"
#include "InvoiceForm.h"
#include "InvoiceListView.h"

#include <VemoGridLib/AboutBox.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/VemoGrid.h>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>

MainWindow::MainWindow(const QString& databaseFile, QWidget* parent)
    : QMainWindow(parent)
    , m_database(std::make_unique<InvoiceDatabase>(databaseFile))
{
    setWindowTitle(tr("Invoices – %1").arg(QFileInfo(databaseFile).fileName()));
    setUpMenus();
    if (!m_database->isOpen()) {
        auto* problem =
            new QLabel(tr("The invoice file %1 could not be opened:\n%2")
                           .arg(QDir::toNativeSeparators(databaseFile), m_database->errorText()),
                       this);
        problem->setAlignment(Qt::AlignCenter);
        setCentralWidget(problem);
        return;
    }
    auto* splitter = new QSplitter(this);
    m_list = new InvoiceListView(*m_database, splitter);
    m_form = new InvoiceForm(*m_database, splitter);
    splitter->addWidget(m_list);
    splitter->addWidget(m_form);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({560, 840});
    setCentralWidget(splitter);

    connect(m_list, &InvoiceListView::invoiceChosen, m_form, &InvoiceForm::openInvoice);
    connect(m_form, &InvoiceForm::saved, this, [this](int number) {
        m_list->refresh(number);
        statusBar()->showMessage(tr("Saved invoice %1.").arg(number), 5000);
    });
    connect(m_form, &InvoiceForm::deleted, this, [this](int number) {
        m_list->refresh();
        statusBar()->showMessage(tr("Deleted invoice %1.").arg(number), 5000);
    });
    // The latest invoice opens with the window.
    m_list->choose(m_database->nextNumber() - 1);
    resize(1400, 640);
}

// The list and the form hold queries on the connection, which closes after them.
MainWindow::~MainWindow()
{
    delete takeCentralWidget();
}

bool MainWindow::isOpen() const
{
    return m_form != nullptr;
}

InvoiceListView* MainWindow::list() const
{
    return m_list;
}

InvoiceForm* MainWindow::form() const
{
    return m_form;
}

void MainWindow::setUpMenus()
{
    if (m_database->isOpen()) {
        QMenu* exportMenu = menuBar()->addMenu(tr("&Export"));
        exportMenu->addAction(tr("Excel worksheet, BIFF2 (.xls)…"), this, [this] {
            exportLines(tr("Excel worksheets (*.xls)"), QStringLiteral("xls"),
                        &VemoGridLib::VemoGrid::ExportToExcel);
        });
        exportMenu->addAction(tr("Excel workbook (.xlsx)…"), this, [this] {
            exportLines(tr("Excel workbooks (*.xlsx)"), QStringLiteral("xlsx"),
                        &VemoGridLib::VemoGrid::ExportToXlsx);
        });
        exportMenu->addAction(tr("CSV, UTF-8 (.csv)…"), this, [this] {
            exportLines(tr("CSV files (*.csv)"), QStringLiteral("csv"),
                        &VemoGridLib::VemoGrid::ExportToCsv);
        });
    }
    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About VemoGridLib…"), this, [this] { VemoGridLib::showAbout(this); });
}

void MainWindow::exportLines(const QString& filter, const QString& suffix,
                             void (VemoGridLib::VemoGrid::*exporter)(const QString&))
{
    const QString proposed =
        QDir::home().filePath(QStringLiteral("invoice-%1.%2").arg(m_form->number()).arg(suffix));
    const QString file =
        QFileDialog::getSaveFileName(this, tr("Export the lines"), proposed, filter);
    if (file.isEmpty())
        return;
    // An export writes over an existing file without truncating it, which would leave a
    // longer file's tail behind; the dialog has had the user agree to replace it.
    if (QFile::exists(file) && !QFile::remove(file)) {
        statusBar()->showMessage(tr("Cannot replace %1.").arg(QDir::toNativeSeparators(file)));
        return;
    }
    try {
        (m_form->linesGrid()->*exporter)(file);
    } catch (const VemoGridLib::VemoError& error) {
        statusBar()->showMessage(error.description());
        return;
    }
    // The worksheet export is silent about failures: the file tells whether it was written.
    const QFileInfo written(file);
    statusBar()->showMessage(
        written.exists() && written.size() > 0
            ? tr("Exported the lines to %1.").arg(QDir::toNativeSeparators(file))
            : tr("Could not write %1.").arg(QDir::toNativeSeparators(file)));
}
