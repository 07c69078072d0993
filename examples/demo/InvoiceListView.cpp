// SPDX-License-Identifier: MIT
#include "InvoiceListView.h"

#include "InvoiceDatabase.h"

#include <VemoGridLib/FlexEnums.h>
#include <VemoGridLib/VbKeys.h>
#include <VemoGridLib/VemoGrid.h>

#include <QSqlQuery>
#include <QSqlQueryModel>
#include <QVBoxLayout>

#include <iterator>
#include <utility>

using namespace VemoGridLib;

namespace {

// The totals are summed in cents and shown with two decimals.
const char* const ListQuery = R"(
    SELECT i.number AS "No.", i.invoice_date AS "Date", c.name AS "Customer",
           coalesce(i.delivery_date, '') AS "Delivery", count(l.line_no) AS "Lines",
           printf('%.2f', coalesce(sum(l.amount_cents), 0) / 100.0) AS "Total"
    FROM invoices i
    JOIN customers c ON c.id = i.customer_id
    LEFT JOIN invoice_lines l ON l.invoice = i.number
    GROUP BY i.number
    ORDER BY i.number)";

} // namespace

InvoiceListView::InvoiceListView(InvoiceDatabase& database, QWidget* parent)
    : QWidget(parent)
    , m_grid(new VemoGrid(this))
    , m_model(new QSqlQueryModel(this))
    , m_database(database)
{
    m_grid->setObjectName(QStringLiteral("invoiceList"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_grid);
    QFont headerFont = m_grid->Font();
    headerFont.setBold(true);
    m_grid->setFontFixed(headerFont);
    // A list to choose from: no cell editors, whole rows highlighted.
    m_grid->setEditEnable(false);
    m_grid->setSortable(false);
    m_grid->setSelectionMode(Flex::flexSelectionByRow);
    m_grid->setAllowUserResizing(Flex::flexResizeColumns);
    m_grid->setBackColor2(0xFAF1E6);
    m_grid->setBackColorBkg(0xFFFFFF);
    refresh();
    m_grid->setDataSource(m_model);
    const int widths[] = {300, 700, 1300, 2700, 1300, 750, 1200};
    for (int col = 0; col < int(std::size(widths)); ++col)
        m_grid->setCOLWIDTH(col, widths[col]);
    for (const int col : {ColNumber, ColLines, ColTotal})
        m_grid->setColAlignment(col, Flex::flexAlignRightCenter);

    connect(m_grid, &VemoGrid::RowColChange, this, [this] {
        if (!m_refreshing)
            chooseCurrent(false);
    });
    connect(m_grid, &VemoGrid::DblClick, this, [this] { chooseCurrent(true); });
    connect(m_grid, &VemoGrid::KeyDown, this, [this](short& keyCode, short&) {
        if (keyCode == vbKeyReturn)
            chooseCurrent(true);
    });
}

VemoGrid* InvoiceListView::grid() const
{
    return m_grid;
}

void InvoiceListView::refresh(int number)
{
    const bool wasRefreshing = std::exchange(m_refreshing, true);
    m_model->setQuery(QSqlQuery(QString::fromUtf8(ListQuery), m_database.connection()));
    while (m_model->canFetchMore())
        m_model->fetchMore();
    const int row = rowOf(number);
    if (row > 0) {
        m_grid->setRow(row);
        m_grid->setColsel(m_grid->Cols() - 1);
        m_chosen = number;
    }
    m_refreshing = wasRefreshing;
}

bool InvoiceListView::choose(int number)
{
    const int row = rowOf(number);
    if (row < 0)
        return false;
    m_grid->setRow(row);
    chooseCurrent(true);
    return true;
}

int InvoiceListView::rowOf(int number) const
{
    for (int row = m_grid->FixedRows(); row < m_grid->Rows(); ++row) {
        if (m_grid->TextMatrix(row, ColNumber).toInt() == number)
            return row;
    }
    return -1;
}

void InvoiceListView::chooseCurrent(bool again)
{
    const int row = m_grid->Row();
    if (row < m_grid->FixedRows())
        return;
    const int number = m_grid->TextMatrix(row, ColNumber).toInt();
    if (number <= 0 || (number == m_chosen && !again))
        return;
    m_chosen = number;
    Q_EMIT invoiceChosen(number);
}
