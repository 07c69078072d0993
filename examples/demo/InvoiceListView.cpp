// SPDX-License-Identifier: MIT
#include "InvoiceListView.h"

#include <VemoGridLib/Twips.h>
#include <VemoGridLib/VbFormat.h>
#include <VemoGridLib/FlexEnums.h>
#include <VemoGridLib/FlexGrid.h>

#include <QElapsedTimer>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QSet>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace VemoGridLib;

namespace {

enum Column : int {
    ColNumber,
    ColInvoice,
    ColDate,
    ColCustomer,
    ColProduct,
    ColQuantity,
    ColPrice,
    ColAmount,
    ColStatus,
    ColumnCount,
};

/// The header texts and alignments (FlexGrid FormatString: < left, ^ centre, > right).
QString headerFormat()
{
    return QStringLiteral("^No.|<Invoice|^Date|<Customer|<Product|>Qty|>Price|>Amount|^Status");
}

/// OLE colours, 0x00BBGGRR.
constexpr OleColor BandColor = 0xFAF1E6;
constexpr OleColor OverdueColor = 0x2B2BB0;
/// Where the window is wider than the columns.
constexpr OleColor EmptyAreaColor = 0xFFFFFF;

/// Columns are sized from the header and this many rows (plus the last row, whose number is
/// the widest): the generated texts repeat well within them.
constexpr int SampleRows = 2000;
/// Room beside the text: the cell margins and a sort arrow in the header.
constexpr int TextPaddingPx = 12;

bool isNumeric(int col)
{
    return col == ColQuantity || col == ColPrice || col == ColAmount;
}

/// Right-aligned headers get their sort arrow on the left, the others on the right.
int arrowAlignment(int col)
{
    return isNumeric(col) ? Flex::flexAlignLeftCenter : Flex::flexAlignRightCenter;
}

QString statusText(InvoiceStatus status)
{
    switch (status) {
    case InvoiceStatus::Paid:
        return QStringLiteral("Paid");
    case InvoiceStatus::Open:
        return QStringLiteral("Open");
    case InvoiceStatus::Overdue:
        break;
    }
    return QStringLiteral("Overdue");
}

QString thousands(qint64 value)
{
    return vb::Format(double(value), QStringLiteral("#,##0"));
}

} // namespace

InvoiceListView::InvoiceListView(QWidget* parent)
    : QWidget(parent)
    , m_grid(new FlexGrid(this))
    , m_status(new QStatusBar(this))
    , m_pictures(m_grid->font())
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_grid);
    m_status->setSizeGripEnabled(false);
    layout->addWidget(m_status);
    QFont headerFont = m_grid->font();
    headerFont.setBold(true);
    m_grid->setFontFixed(headerFont);
    m_grid->setAllowUserResizing(Flex::flexResizeColumns);
    m_grid->setBackColorBkg(EmptyAreaColor);
    connect(m_grid, &FlexGrid::MouseDown, this,
            [this](short button, short, float, float) { onMouseDown(button); });
    connect(m_grid, &FlexGrid::Click, this, &InvoiceListView::onClick);
}

void InvoiceListView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_filled)
        return;
    m_filled = true;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    fill(InvoiceGenerator().generate(InvoiceCount));
    QGuiApplication::restoreOverrideCursor();
    m_grid->setFocus();
    m_status->showMessage(QStringLiteral("%1 invoices. Click a column header to sort by it, once "
                                         "more to reverse the order.")
                              .arg(thousands(InvoiceCount)));
}

void InvoiceListView::fill(const std::vector<Invoice>& invoices)
{
    m_grid->setRedraw(false);
    m_grid->setRows(1 + int(invoices.size()));
    m_grid->setCols(ColumnCount);
    m_grid->setFormatString(headerFormat());
    const vb::VbLocale locale = vb::userLocale();
    const QString money = QStringLiteral("#,##0.00");
    for (std::size_t i = 0; i < invoices.size(); ++i) {
        const Invoice& invoice = invoices[i];
        const int row = int(i) + 1;
        m_grid->setTextMatrix(row, ColInvoice, invoice.number);
        m_grid->setTextMatrix(row, ColDate, invoice.date.toString(Qt::ISODate));
        m_grid->setTextMatrix(row, ColCustomer, invoice.customer);
        m_grid->setTextMatrix(row, ColProduct, invoice.product);
        m_grid->setTextMatrix(row, ColQuantity, QString::number(invoice.quantity));
        m_grid->setTextMatrix(row, ColPrice, vb::Format(invoice.priceCents / 100.0, money, locale));
        m_grid->setTextMatrix(row, ColAmount,
                              vb::Format(invoice.amountCents() / 100.0, money, locale));
        m_grid->setTextMatrix(row, ColStatus, statusText(invoice.status));
    }
    fillStatusPictures(invoices);
    m_grid->setMergeCells(Flex::flexMergeFree);
    m_grid->setMergeCol(ColCustomer, true);
    numberAndBand();
    sizeColumns();
    m_grid->setRedraw(true);
}

void InvoiceListView::fillStatusPictures(const std::vector<Invoice>& invoices)
{
    m_grid->setCol(ColStatus);
    for (std::size_t i = 0; i < invoices.size(); ++i) {
        m_grid->setRow(int(i) + 1);
        m_grid->setCellPicture(m_pictures.status(invoices[i].status));
        m_grid->setCellPictureAlignment(Flex::flexAlignLeftCenter);
        if (invoices[i].status == InvoiceStatus::Overdue)
            m_grid->setCellForeColor(OverdueColor);
    }
}

void InvoiceListView::sizeColumns()
{
    const QFontMetrics dataMetrics(m_grid->font());
    const QFontMetrics headerMetrics(m_grid->FontFixed());
    const int lastSample = std::min(m_grid->Rows() - 1, SampleRows);
    for (int col = 0; col < m_grid->Cols(); ++col) {
        QSet<QString> texts{m_grid->TextMatrix(m_grid->Rows() - 1, col)};
        for (int row = m_grid->FixedRows(); row <= lastSample; ++row)
            texts.insert(m_grid->TextMatrix(row, col));
        const QFontMetrics& metrics = col < m_grid->FixedCols() ? headerMetrics : dataMetrics;
        int widest = headerMetrics.horizontalAdvance(m_grid->TextMatrix(0, col)) +
                     m_pictures.sortArrow(true).deviceIndependentSize().toSize().width();
        for (const QString& text : texts)
            widest = std::max(widest, metrics.horizontalAdvance(text));
        if (col == ColStatus)
            widest += 2 * m_pictures.status(InvoiceStatus::Paid).deviceIndependentSize().width();
        m_grid->setColWidth(col, pixelsToTwipsX(widest + TextPaddingPx, m_grid));
    }
}

void InvoiceListView::numberAndBand()
{
    const int fixedRows = m_grid->FixedRows();
    const int lastCol = m_grid->Cols() - 1;
    m_grid->setFillStyle(Flex::flexFillRepeat);
    m_grid->setCol(m_grid->FixedCols());
    for (int row = fixedRows; row < m_grid->Rows(); ++row) {
        m_grid->setTextMatrix(row, ColNumber, QString::number(row - fixedRows + 1));
        m_grid->setRow(row);
        m_grid->setColSel(lastCol);
        m_grid->setCellBackColor((row - fixedRows) % 2 == 1 ? BandColor : 0);
    }
    m_grid->setFillStyle(Flex::flexFillSingle);
    m_grid->setRow(fixedRows);
}

void InvoiceListView::onMouseDown(short button)
{
    const bool onHeader =
        m_grid->MouseRow() < m_grid->FixedRows() && m_grid->MouseCol() >= m_grid->FixedCols();
    m_pressedHeader = button == 1 && onHeader ? m_grid->MouseCol() : -1;
}

// A header sorts when pressed and released on it, so that a drag elsewhere does not.
void InvoiceListView::onClick()
{
    const int pressed = std::exchange(m_pressedHeader, -1);
    if (pressed >= 0 && m_grid->MouseRow() < m_grid->FixedRows() && m_grid->MouseCol() == pressed)
        sortBy(pressed);
}

void InvoiceListView::sortBy(int col)
{
    const bool ascending = !(col == m_sortedCol && m_sortedAscending);
    const int setting = isNumeric(col) ? (ascending ? Flex::flexSortNumericAscending
                                                    : Flex::flexSortNumericDescending)
                                       : (ascending ? Flex::flexSortStringNoCaseAscending
                                                    : Flex::flexSortStringNoCaseDescending);
    QElapsedTimer timer;
    timer.start();
    m_grid->setRedraw(false);
    // Row == RowSel sorts every data row; Col == ColSel makes the column the only key.
    m_grid->setRow(m_grid->FixedRows());
    m_grid->setCol(col);
    m_grid->setColSel(col);
    m_grid->setSort(setting);
    const qint64 sortMs = timer.elapsed();
    // Sorted by customer, a run would span a customer's whole history and its text would sit
    // thousands of rows down, at the run's centre; merging pays off in the other orders.
    m_grid->setMergeCol(ColCustomer, col != ColCustomer);
    numberAndBand();
    showSortArrow(col, ascending);
    m_grid->setRow(m_grid->FixedRows());
    m_grid->setCol(col);
    m_grid->setTopRow(m_grid->FixedRows());
    m_grid->setRedraw(true);
    m_sortedCol = col;
    m_sortedAscending = ascending;
    m_status->showMessage(
        QStringLiteral("Sorted %1 invoices by %2, %3, in %4 ms; banding redone in %5 ms.")
            .arg(thousands(m_grid->Rows() - m_grid->FixedRows()), m_grid->TextMatrix(0, col),
                 ascending ? QStringLiteral("ascending") : QStringLiteral("descending"))
            .arg(sortMs)
            .arg(timer.elapsed() - sortMs));
}

void InvoiceListView::showSortArrow(int col, bool ascending)
{
    m_grid->setRow(0);
    if (m_sortedCol >= 0) {
        m_grid->setCol(m_sortedCol);
        m_grid->setCellPicture(QPixmap());
    }
    m_grid->setCol(col);
    m_grid->setCellPicture(m_pictures.sortArrow(ascending));
    m_grid->setCellPictureAlignment(arrowAlignment(col));
}
