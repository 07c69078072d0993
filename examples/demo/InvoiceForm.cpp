// SPDX-License-Identifier: MIT
#include "InvoiceForm.h"

#include "ui_InvoiceForm.h"

#include <VemoGridLib/Column.h>
#include <VemoGridLib/FlexEnums.h>
#include <VemoGridLib/Messages.h>
#include <VemoGridLib/VbConversion.h>
#include <VemoGridLib/VbFormat.h>
#include <VemoGridLib/VemoComboBox.h>
#include <VemoGridLib/VemoDTPicker.h>
#include <VemoGridLib/VemoGrid.h>

#include <QLocale>
#include <QMessageBox>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace VemoGridLib;

namespace {

/// The bounds the lines grid's columns and the invoice_lines table's CHECK constraints hold
/// too.
constexpr double MaxQuantity = 100'000;
constexpr double MaxUnitPrice = 1'000'000;

const QString MoneyFormat = QStringLiteral("#,##0.00");

QString money(qint64 cents)
{
    return vb::Format(double(cents) / 100, MoneyFormat);
}

QString quantityText(const VemoGrid& grid, double quantity)
{
    return vb::Format(quantity, grid.Column(InvoiceForm::ColQuantity)->FormatString());
}

/// The cell's number, or none for a text that is no number (an empty one included).
std::optional<double> numberIn(const VemoGrid& grid, int row, int col)
{
    return vb::NumericValue(grid.TextMatrix(row, col).trimmed());
}

bool isEmptyLine(const VemoGrid& grid, int row)
{
    for (const int col : {InvoiceForm::ColProduct, InvoiceForm::ColName, InvoiceForm::ColQuantity,
                          InvoiceForm::ColPrice}) {
        if (!grid.TextMatrix(row, col).trimmed().isEmpty())
            return false;
    }
    return true;
}

} // namespace

InvoiceForm::InvoiceForm(InvoiceDatabase& database, QWidget* parent)
    : QWidget(parent)
    , m_database(database)
    , m_ui(std::make_unique<Ui::InvoiceForm>())
{
    m_ui->setupUi(this);
    m_ui->customerCaption->setBuddy(
        m_ui->customerCombo->findChild<QWidget*>(QStringLiteral("txtInput")));
    m_ui->invoiceDateCaption->setBuddy(
        m_ui->invoiceDatePicker->findChild<QWidget*>(QStringLiteral("txtInput")));
    m_ui->deliveryDateCaption->setBuddy(
        m_ui->deliveryDatePicker->findChild<QWidget*>(QStringLiteral("txtInput")));
    setUpLines();
    loadLists();

    VemoGrid* grid = m_ui->linesGrid;
    connect(grid, &VemoGrid::CellComboClick, this, [this](int row, int& col, QString& value) {
        if (col == ColProduct)
            fillProduct(row, value.section(QLatin1Char('\t'), 0, 0));
    });
    connect(grid, &VemoGrid::CellChanged, this, [this](int row, int col) {
        if (col == ColProduct)
            fillProduct(row, m_ui->linesGrid->TextMatrix(row, col));
        // The grid computes the amount after it stored the edit: the totals follow then.
        QMetaObject::invokeMethod(this, &InvoiceForm::updateTotals, Qt::QueuedConnection);
    });
    connect(m_ui->saveButton, &QPushButton::clicked, this, &InvoiceForm::save);
    connect(m_ui->newButton, &QPushButton::clicked, this, &InvoiceForm::newInvoice);
    connect(m_ui->deleteButton, &QPushButton::clicked, this, &InvoiceForm::deleteInvoice);
    newInvoice();
}

InvoiceForm::~InvoiceForm() = default;

VemoGrid* InvoiceForm::linesGrid() const
{
    return m_ui->linesGrid;
}

int InvoiceForm::number() const
{
    return m_number;
}

void InvoiceForm::setUpLines()
{
    VemoGrid* grid = m_ui->linesGrid;
    // The columns and the grid's look are set up in the form; the product list's column
    // widths are not part of the column setup.
    Column& product = *grid->Column(ColProduct);
    const int listWidths[] = {1500, 2600, 1700, 700, 1100};
    for (int col = 0; col < int(std::size(listWidths)); ++col)
        product.setCOLWIDTH(col, listWidths[col]);
    product.setColAlignment(4, Flex::flexAlignRightCenter);
    grid->setCOLWIDTH(0, 300);
}

void InvoiceForm::loadLists()
{
    m_customers = m_database.customers();
    VemoComboBox* customers = m_ui->customerCombo;
    customers->setListHeader(QStringLiteral("Customer\tCity"));
    customers->listColumn()->setCompareMode(vb::vbTextCompare);
    customers->listColumn()->setCOLWIDTH(0, 3200);
    customers->listColumn()->setCOLWIDTH(1, 1400);
    for (const Customer& customer : std::as_const(m_customers))
        customers->AddItem(customer.name + QLatin1Char('\t') + customer.city);

    Column& list = *m_ui->linesGrid->Column(ColProduct);
    list.clearItems();
    m_products.clear();
    for (const Product& product : m_database.products()) {
        m_products.insert(product.code, product);
        list.AddItem(QStringList{product.code, product.name, product.nameZh, product.unit,
                                 money(product.unitPriceCents)}
                         .join(QLatin1Char('\t')));
    }
}

void InvoiceForm::newInvoice()
{
    m_number = m_database.nextNumber();
    m_ui->numberLabel->setText(QString::number(m_number));
    m_ui->customerCombo->setValue(QString());
    m_ui->invoiceDatePicker->setValue(QDate::currentDate());
    m_ui->deliveryDatePicker->setValue(QVariant());
    m_ui->noteEdit->clear();
    VemoGrid* grid = m_ui->linesGrid;
    emptyLines(1);
    grid->setTextMatrix(grid->FixedRows(), ColNo, QStringLiteral("1"));
    grid->setRow(grid->FixedRows());
    grid->setCol(ColProduct);
    updateTotals();
}

bool InvoiceForm::openInvoice(int number)
{
    const std::optional<Invoice> invoice = m_database.invoice(number);
    if (!invoice)
        return false;
    m_number = number;
    m_ui->numberLabel->setText(QString::number(number));
    QString customerName;
    for (const Customer& customer : std::as_const(m_customers)) {
        if (customer.id == invoice->customerId)
            customerName = customer.name;
    }
    m_ui->customerCombo->setValue(customerName);
    m_ui->invoiceDatePicker->setValue(invoice->invoiceDate);
    m_ui->deliveryDatePicker->setValue(
        invoice->deliveryDate.isValid() ? QVariant(invoice->deliveryDate) : QVariant());
    m_ui->noteEdit->setText(invoice->note);

    VemoGrid* grid = m_ui->linesGrid;
    grid->setRedraw(false);
    emptyLines(std::max<int>(1, int(invoice->lines.size())));
    int row = grid->FixedRows();
    for (const InvoiceLine& line : invoice->lines) {
        grid->setTextMatrix(row, ColNo, QString::number(line.lineNo));
        grid->setTextMatrix(row, ColProduct, line.productCode);
        grid->setTextMatrix(row, ColName, line.name);
        grid->setTextMatrix(row, ColQuantity, quantityText(*grid, line.quantity));
        grid->setTextMatrix(row, ColPrice, money(line.unitPriceCents));
        grid->setTextMatrix(row, ColAmount, money(line.amountCents));
        grid->setcgChecked(row, ColPaid, line.paid);
        grid->setTextMatrix(row, ColLink, line.link);
        ++row;
    }
    grid->setRow(grid->FixedRows());
    grid->setCol(ColProduct);
    grid->setRedraw(true);
    updateTotals();
    return true;
}

void InvoiceForm::emptyLines(int count)
{
    // Not Clear(): it restores the header row from the FormatString, and the headers come
    // from the column setup here.
    VemoGrid* grid = m_ui->linesGrid;
    grid->setRows(grid->FixedRows());
    grid->setRows(grid->FixedRows() + count);
}

void InvoiceForm::fillProduct(int row, const QString& code)
{
    const auto product = m_products.constFind(code.trimmed());
    if (product == m_products.cend())
        return;
    VemoGrid* grid = m_ui->linesGrid;
    grid->setTextMatrix(row, ColName, product->name);
    grid->setTextMatrix(row, ColPrice, money(product->unitPriceCents));
    grid->setTextMatrix(row, ColLink, InvoiceDatabase::productLink(product->code));
    // The grid recomputes the amount when the user leaves the quantity or the price; a pick
    // in the Product cell leaves neither.
    if (const std::optional<double> quantity = numberIn(*grid, row, ColQuantity)) {
        grid->setTextMatrix(
            row, ColAmount,
            money(InvoiceDatabase::amountCents(*quantity, product->unitPriceCents)));
    }
    updateTotals();
}

std::optional<Invoice> InvoiceForm::collect(QString& problem) const
{
    Invoice invoice;
    invoice.number = m_number;
    const QString customerName = m_ui->customerCombo->Text().trimmed();
    for (const Customer& customer : std::as_const(m_customers)) {
        if (customer.name.compare(customerName, Qt::CaseInsensitive) == 0)
            invoice.customerId = customer.id;
    }
    if (invoice.customerId == 0) {
        problem = customerName.isEmpty()
                      ? tr("Choose the customer.")
                      : tr("“%1” is not one of the customers.").arg(customerName);
        return std::nullopt;
    }
    invoice.invoiceDate = m_ui->invoiceDatePicker->Value().toDate();
    if (!invoice.invoiceDate.isValid()) {
        problem = tr("Enter the invoice date.");
        return std::nullopt;
    }
    const QString deliveryText = m_ui->deliveryDatePicker->Text().trimmed();
    invoice.deliveryDate = m_ui->deliveryDatePicker->Value().toDate();
    if (!deliveryText.isEmpty() && !invoice.deliveryDate.isValid()) {
        problem = tr("The delivery date “%1” is not a date.").arg(deliveryText);
        return std::nullopt;
    }
    if (invoice.deliveryDate.isValid() && invoice.deliveryDate < invoice.invoiceDate) {
        problem = tr("The delivery date is before the invoice date.");
        return std::nullopt;
    }
    invoice.note = m_ui->noteEdit->text().trimmed();

    const VemoGrid& grid = *m_ui->linesGrid;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        if (isEmptyLine(grid, row))
            continue;
        const int shown = row - grid.FixedRows() + 1;
        const QString code = grid.TextMatrix(row, ColProduct).trimmed();
        const auto product = m_products.constFind(code);
        if (product == m_products.cend()) {
            problem =
                code.isEmpty()
                    ? tr("Line %1 has no product.").arg(shown)
                    : tr("Line %1: “%2” is not a product of the catalogue.").arg(shown).arg(code);
            return std::nullopt;
        }
        const std::optional<double> quantity = numberIn(grid, row, ColQuantity);
        if (!quantity || *quantity <= 0 || *quantity > MaxQuantity) {
            problem = tr("Line %1: the quantity “%2” is not a number above 0 and up to %3.")
                          .arg(shown)
                          .arg(grid.TextMatrix(row, ColQuantity))
                          .arg(QLocale().toString(MaxQuantity, 'f', 0));
            return std::nullopt;
        }
        const std::optional<double> price = numberIn(grid, row, ColPrice);
        if (!price || *price < 0 || *price > MaxUnitPrice) {
            problem = tr("Line %1: the unit price “%2” is not a number from 0 to %3.")
                          .arg(shown)
                          .arg(grid.TextMatrix(row, ColPrice))
                          .arg(QLocale().toString(MaxUnitPrice, 'f', 0));
            return std::nullopt;
        }
        InvoiceLine line;
        line.lineNo = int(invoice.lines.size()) + 1;
        line.productCode = code;
        line.name = grid.TextMatrix(row, ColName).trimmed();
        if (line.name.isEmpty())
            line.name = product->name;
        line.quantity = *quantity;
        line.unitPriceCents = qRound64(*price * 100);
        line.amountCents = InvoiceDatabase::amountCents(line.quantity, line.unitPriceCents);
        line.paid = grid.cgChecked(row, ColPaid);
        line.link = grid.TextMatrix(row, ColLink).trimmed();
        invoice.lines << line;
    }
    if (invoice.lines.isEmpty()) {
        problem = tr("The invoice has no lines.");
        return std::nullopt;
    }
    return invoice;
}

bool InvoiceForm::save()
{
    // Moving to the current cell again commits an edit still open in the lines grid.
    m_ui->linesGrid->setRow(m_ui->linesGrid->Row());
    QString problem;
    const std::optional<Invoice> invoice = collect(problem);
    if (!invoice) {
        showProblem(tr("The invoice was not saved. %1").arg(problem));
        return false;
    }
    QString error;
    if (!m_database.save(*invoice, error)) {
        showProblem(tr("The invoice could not be written; nothing was changed.\n%1").arg(error));
        return false;
    }
    openInvoice(invoice->number);
    Q_EMIT saved(invoice->number);
    return true;
}

void InvoiceForm::deleteInvoice()
{
    const std::optional<Invoice> stored = m_database.invoice(m_number);
    if (!stored) {
        // Never saved: there is nothing to remove but the form's contents.
        newInvoice();
        return;
    }
    const auto answer = QMessageBox::question(
        this, tr("Delete invoice"), tr("Delete invoice %1 with all its lines?").arg(m_number));
    if (answer != QMessageBox::Yes)
        return;
    QString error;
    if (!m_database.remove(m_number, error)) {
        showProblem(tr("The invoice could not be deleted; nothing was changed.\n%1").arg(error));
        return;
    }
    const int removed = m_number;
    newInvoice();
    Q_EMIT deleted(removed);
}

void InvoiceForm::updateTotals()
{
    const VemoGrid& grid = *m_ui->linesGrid;
    int lines = 0;
    double total = 0;
    double paid = 0;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        if (isEmptyLine(grid, row))
            continue;
        ++lines;
        const double amount = numberIn(grid, row, ColAmount).value_or(0);
        total += amount;
        if (grid.cgChecked(row, ColPaid))
            paid += amount;
    }
    m_ui->linesLabel->setText(lines == 1 ? tr("1 line") : tr("%1 lines").arg(lines));
    m_ui->paidLabel->setText(tr("Paid %1").arg(vb::Format(paid, MoneyFormat)));
    m_ui->totalLabel->setText(tr("Total %1").arg(vb::Format(total, MoneyFormat)));
}

void InvoiceForm::showProblem(const QString& text) const
{
    showMessage(Message{text, tr("Invoice %1").arg(m_number), MessageIcon::Critical});
}
