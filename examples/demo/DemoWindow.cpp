// SPDX-License-Identifier: MIT
#include "DemoWindow.h"

#include "InvoiceForm.h"
#include "InvoiceListView.h"

#include <VemoGridLib/AboutBox.h>

#include <QLocale>
#include <QMenuBar>
#include <QTabWidget>

DemoWindow::DemoWindow(QWidget* parent)
    : QMainWindow(parent)
{
    setWindowTitle(QStringLiteral("VemoGridLib demo"));
    auto* tabs = new QTabWidget(this);
    tabs->setDocumentMode(true);
    tabs->addTab(new InvoiceForm(tabs), QStringLiteral("Stock entry (VemoGrid)"));
    tabs->addTab(new InvoiceListView(tabs),
                 QStringLiteral("%1 invoices (FlexGrid)")
                     .arg(QLocale(QLocale::English).toString(InvoiceListView::InvoiceCount)));
    setCentralWidget(tabs);
    QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
    help->addAction(QStringLiteral("&About VemoGridLib…"), this,
                    [this] { VemoGridLib::showAbout(this); });
    // Shown on its own, the window would take at most two thirds of the screen; the form asks
    // for room for all its columns and sample rows.
    resize(sizeHint());
}
