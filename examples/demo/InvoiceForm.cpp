// SPDX-License-Identifier: MIT
#include "InvoiceForm.h"

#include "SampleData.h"

#include <VemoGridLib/Column.h>
#include <VemoGridLib/FlexEnums.h>
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/Twips.h>
#include <VemoGridLib/VbConversion.h>
#include <VemoGridLib/VbFormat.h>
#include <VemoGridLib/VbStrings.h>
#include <VemoGridLib/VemoComboBox.h>
#include <VemoGridLib/VemoDTPicker.h>
#include <VemoGridLib/VemoGrid.h>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

using namespace VemoGridLib;

namespace {

enum FormColumn : int {
    ColMarker,
    ColNumber,
    ColPaid,
    ColDate,
    /// The product code, picked from the catalogue list.
    ColProduct,
    ColName,
    ColProductZh,
    ColPrice,
    ColQuantity,
    ColAmount,
    ColStock,
    ColPage,
    ColNotes,
    /// Hidden: the whole note, of which the Notes column shows the first line.
    ColNoteText,
    ColumnCount,
};

struct ColumnLayout
{
    /// UTF-8.
    const char* header;
    /// The data alignment, as a FormatString prefix: < left, ^ centre, > right.
    char alignment;
    VemoGridColType type;
    VemoSortTypeConstants sortType;
};

constexpr std::array<ColumnLayout, ColumnCount> Columns{{
    {"", '^', eTextBox, VemoSortNone},
    {"No.", '>', eLong, VemoSortNumeric},
    {"Paid", '^', eCheckBox, VemoSortString},
    {"Date", '<', eCalendar, VemoSortDateTime},
    {"Product", '<', eComboBox, VemoSortStringNoCase},
    {"Name", '<', eTextBox, VemoSortStringNoCase},
    {"品名", '<', eTextBox, VemoSortString},
    {"Unit price", '>', eCurrency, VemoSortCurrency},
    {"Qty", '>', eNumeric, VemoSortNumeric},
    {"Amount", '>', eCurrency, VemoSortCurrency},
    {"In stock", '>', eLong, VemoSortNumeric},
    {"Product page", '<', ehyperlink, VemoSortStringNoCase},
    {"Notes", '<', eButton, VemoSortStringNoCase},
    {"Note text", '<', eTextBox, VemoSortNone},
}};

/// OLE colours, 0x00BBGGRR: white and pale blue bands, a warm grey for what the user cannot
/// type into, white where the grid has no cells.
constexpr OleColor BandColor1 = 0xFFFFFF;
constexpr OleColor BandColor2 = 0xFAF1E6;
constexpr OleColor ReadOnlyColor = 0xDCE2E6;
constexpr OleColor EmptyAreaColor = 0xFFFFFF;

/// The demo's fictitious shop; example.com is reserved for documentation.
constexpr const char* ProductPageBase = "https://example.com/shop/";

/// Room beside a text: the cell margins.
constexpr int TextPaddingPx = 12;
/// Room for the sort arrow (VemoGrid draws it at the header's right edge) on both sides of a
/// centred header text.
constexpr int ArrowRoomPx = 14;
/// The fixed column shows only the row marker.
constexpr int MarkerColumnPx = 18;
/// VemoGrid's hosted grid leaves this margin free at the right and bottom.
constexpr int GridMarginTwips = 60;
/// Slack against the rounding of twips to pixels, so that the sample rows need no scroll bar.
constexpr int SlackPx = 4;
/// The Notes column shows this much of a note's first line.
constexpr int NotePreviewLength = 30;
/// The quantities a clerk may enter; anything else is refused with ValidateError.
constexpr double MaxQuantity = 10'000;

/// What the user can do, above the grid; UTF-8.
constexpr const char* HintText =
    "Click a cell, or move to it with the arrows, and type. Enter keeps the entry and moves on "
    "(after the last cell it adds a row); Esc puts the cell's text back.\n"
    "Product: F4 or ▾ opens the catalogue, typing a code finds it, Enter or a click picks it "
    "and fills name and price · Space ticks Paid · … in Notes opens the whole note · a click "
    "on a link opens it in the browser · Alt+↑/↓ or the wheel scrolls · the amount follows "
    "price and quantity · Date: type it, or F4 opens the month with its lunar dates.";

/// The suppliers of the picker above the grid: code, name, city (tab-separated list rows).
constexpr std::array<const char*, 5> Suppliers = {
    "S01\tNorthwind Office Supply\tLeeds", "S02\tBlue Harbour Traders\tBristol",
    "S03\tKestrel Furniture\tYork", "S04\tLantern Electronics\tManchester",
    "S05\tMeridian Coffee Co.\tNorwich"};

/// The product catalogue of the Product list: one entry per product of the sample lines, by
/// code (its page name).
std::vector<const StockLine*> catalogue()
{
    std::vector<const StockLine*> products;
    for (const StockLine& line : sampleStockLines())
        products.push_back(&line);
    std::sort(products.begin(), products.end(),
              [](const StockLine* a, const StockLine* b) { return qstrcmp(a->sku, b->sku) < 0; });
    return products;
}

const StockLine* catalogueEntry(const QString& code)
{
    for (const StockLine& line : sampleStockLines()) {
        if (code == QLatin1String(line.sku))
            return &line;
    }
    return nullptr;
}

QString header(int col)
{
    return QString::fromUtf8(Columns[std::size_t(col)].header);
}

QString formatString()
{
    QStringList segments;
    for (const ColumnLayout& layout : Columns)
        segments << QLatin1Char(layout.alignment) + QString::fromUtf8(layout.header);
    return segments.join(QLatin1Char('|'));
}

QString rowsText(int rows)
{
    return rows == 1 ? QStringLiteral("1 row") : QStringLiteral("%1 rows").arg(rows);
}

/// The Notes cell of `note`: its first line, cut short.
QString notePreview(const QString& note)
{
    const QString trimmed = note.trimmed();
    const QString first = trimmed.section(QLatin1Char('\n'), 0, 0).trimmed();
    if (first.size() <= NotePreviewLength && first.size() == trimmed.size())
        return first;
    return first.left(NotePreviewLength).trimmed() + QStringLiteral("…");
}

/// `value` in column `col`'s own number format.
QString formatted(const VemoGrid& grid, int col, double value)
{
    return vb::Format(value, grid.Column(col)->FormatString());
}

} // namespace

InvoiceForm::InvoiceForm(QWidget* parent)
    : QWidget(parent)
    , m_grid(new VemoGrid(this))
    , m_supplier(new VemoComboBox(this))
    , m_delivery(new VemoDTPicker(this))
    , m_status(new QStatusBar(this))
{
    auto* addButton = new QPushButton(QStringLiteral("Add row"), this);
    addButton->setToolTip(QStringLiteral("Adds an empty row at the end; the grid numbers it."));
    auto* removeButton = new QPushButton(QStringLiteral("Remove row"), this);
    removeButton->setToolTip(QStringLiteral(
        "Removes the marked row (click a row to mark it with ▸),\nor the current row when no "
        "row is marked. The last row left is emptied instead."));
    auto* clearButton = new QPushButton(QStringLiteral("Clear"), this);
    clearButton->setToolTip(
        QStringLiteral("Removes every row but one empty one; headers and column widths stay."));
    auto* exportButton = new QPushButton(QStringLiteral("Export to Excel…"), this);
    exportButton->setToolTip(
        QStringLiteral("Writes the table to an Excel worksheet (.xls), typed by column."));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(addButton);
    buttons->addWidget(removeButton);
    buttons->addWidget(clearButton);
    buttons->addStretch();
    buttons->addWidget(exportButton);
    m_status->setSizeGripEnabled(false);
    auto* hint = new QLabel(QString::fromUtf8(HintText), this);
    hint->setForegroundRole(QPalette::PlaceholderText);
    auto* supplierLabel = new QLabel(QStringLiteral("&Supplier:"), this);
    supplierLabel->setBuddy(m_supplier->findChild<QWidget*>(QStringLiteral("txtInput")));
    setUpSupplierPicker();
    auto* supplierRow = new QHBoxLayout;
    supplierRow->addWidget(supplierLabel);
    supplierRow->addWidget(m_supplier);
    // A standalone date picker whose calendar shows lunar dates, solar terms and festivals.
    auto* deliveryLabel = new QLabel(QStringLiteral("&Delivery date:"), this);
    deliveryLabel->setBuddy(m_delivery->findChild<QWidget*>(QStringLiteral("txtInput")));
    m_delivery->setLunarCalendar(true);
    m_delivery->setValue(QDate::currentDate().addDays(7));
    m_delivery->setFixedSize(160, QFontMetrics(font()).height() + 10);
    m_delivery->setToolTip(QStringLiteral("Type a date, or open the month with F4 or the button."));
    supplierRow->addSpacing(24);
    supplierRow->addWidget(deliveryLabel);
    supplierRow->addWidget(m_delivery);
    supplierRow->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addLayout(supplierRow);
    layout->addWidget(m_grid, 1);
    layout->addLayout(buttons);
    layout->addWidget(m_status);

    setUpColumns();
    fill();
    computeAmounts();
    m_grid->Sort(ColDate);
    followSort(ColDate);
    fitColumns();
    m_grid->setRow(m_grid->FixedRows());
    m_grid->setCol(ColProduct);
    m_grid->setTopRow(m_grid->FixedRows());

    connect(addButton, &QPushButton::clicked, this, &InvoiceForm::addRow);
    connect(removeButton, &QPushButton::clicked, this, &InvoiceForm::removeRow);
    connect(clearButton, &QPushButton::clicked, this, &InvoiceForm::clearRows);
    connect(exportButton, &QPushButton::clicked, this, &InvoiceForm::exportToExcel);
    connect(m_grid, &VemoGrid::Click, this, &InvoiceForm::onClick);
    // Enter in the last cell adds a row, and every move marks the row: the status follows.
    connect(m_grid, &VemoGrid::EnterCell, this, [this] {
        QMetaObject::invokeMethod(
            this, [this] { showStatus(); }, Qt::QueuedConnection);
    });
    connect(m_grid, &VemoGrid::CellChanged, this, &InvoiceForm::onCellChanged);
    connect(m_grid, &VemoGrid::ValidateError, this, &InvoiceForm::onValidateError);
    connect(m_grid, &VemoGrid::CellComboClick, this, &InvoiceForm::onProductPicked);
    connect(m_supplier, &VemoComboBox::CellComboClick, this, [this](const QString& value) {
        showStatus(QStringLiteral("Supplier %1: %2, %3.")
                       .arg(value.section(QLatin1Char('\t'), 0, 0),
                            value.section(QLatin1Char('\t'), 1, 1),
                            value.section(QLatin1Char('\t'), 2, 2)));
    });
    connect(m_grid, &VemoGrid::BtnClick, this, [this](int& row, int&) {
        // The editor reports its button from inside its own mouse handling: the dialog waits
        // until that is done.
        QMetaObject::invokeMethod(
            this, [this, row] { editNote(row); }, Qt::QueuedConnection);
    });
    m_grid->setFocus();
    showStatus(QStringLiteral("Click a header to sort, a row to mark it."));
}

QSize InvoiceForm::sizeHint() const
{
    const FlexGrid* flex = m_grid->hostedGrid();
    const int chrome = 2 * flex->frameWidth() + SlackPx;
    int width = chrome + flex->verticalScrollBar()->sizeHint().width() +
                twipsToPixelsX(GridMarginTwips, m_grid);
    for (int col = 0; col < m_grid->Cols(); ++col)
        width += twipsToPixelsX(m_grid->COLWIDTH(col), m_grid);
    int height = chrome + twipsToPixelsY(GridMarginTwips, m_grid);
    for (int row = 0; row < m_grid->Rows(); ++row)
        height += twipsToPixelsY(m_grid->RowHeight(row), m_grid);
    // The grid has no size hint of its own: the layout's hint covers everything else.
    const QSize others = QWidget::sizeHint();
    const QMargins margins = layout()->contentsMargins();
    return QSize(std::max(others.width(), width + margins.left() + margins.right()),
                 others.height() + height);
}

void InvoiceForm::setUpColumns()
{
    QFont headerFont = m_grid->Font();
    headerFont.setBold(true);
    m_grid->setFontFixed(headerFont);
    m_grid->setAllowUserResizing(Flex::flexResizeColumns);
    m_grid->setFormatString(formatString());
    for (int col = m_grid->FixedCols(); col < ColumnCount; ++col) {
        const ColumnLayout& layout = Columns[std::size_t(col)];
        m_grid->setColType(col, layout.type);
        m_grid->Column(col)->setSortType(layout.sortType);
        // VemoGrid draws the sort arrow at the header's right edge, clear of a centred text.
        m_grid->setColAlignmentFixed(col, Flex::flexAlignCenterCenter);
    }
    m_grid->Column(ColNumber)->setAutoAdd(true);
    setUpProductList(*m_grid->Column(ColProduct));
    m_grid->Column(ColDate)->setFormatString(QStringLiteral("yyyy-mm-dd"));
    m_grid->Column(ColQuantity)->setDecimalLength(2);
    m_grid->Column(ColQuantity)->setFormatString(QStringLiteral("#,##0.00"));
    m_grid->Column(ColQuantity)->setMinValue(0);
    m_grid->Column(ColQuantity)->setMaxValue(MaxQuantity);
    m_grid->Column(ColAmount)->setLocked(true);
    m_grid->Column(ColStock)->setFormatString(QStringLiteral("#,##0"));

    m_grid->setBackColor1(BandColor1);
    m_grid->setBackColor2(BandColor2);
    m_grid->setReadOnlyColor(ReadOnlyColor);
    m_grid->setBackColorBkg(EmptyAreaColor);
    m_grid->setAutoCalc1(ColPrice);
    m_grid->setAutoCalc2(ColQuantity);
    m_grid->setAutoCalcRES(ColAmount);
    m_grid->setAutoCalcOPE(QStringLiteral("*"));
}

void InvoiceForm::fill()
{
    m_grid->setRedraw(false);
    // No data rows at first, so that AddItem numbers the sample rows from 1.
    m_grid->setRows(m_grid->FixedRows());
    const QString pageBase = QString::fromLatin1(ProductPageBase);
    for (const StockLine& line : sampleStockLines()) {
        m_grid->AddItem(QString());
        const int row = m_grid->Rows() - 1;
        m_grid->setTextMatrix(row, ColPaid,
                              line.paid ? QStringLiteral("True") : QStringLiteral("False"));
        m_grid->setTextMatrix(row, ColDate, QString::fromLatin1(line.date));
        m_grid->setTextMatrix(row, ColProduct, QString::fromLatin1(line.sku));
        m_grid->setTextMatrix(row, ColName, QString::fromUtf8(line.product));
        m_grid->setTextMatrix(row, ColProductZh, QString::fromUtf8(line.productZh));
        m_grid->setTextMatrix(row, ColPrice,
                              formatted(*m_grid, ColPrice, double(line.priceCents) / 100));
        m_grid->setTextMatrix(
            row, ColQuantity,
            formatted(*m_grid, ColQuantity, double(line.quantityHundredths) / 100));
        m_grid->setTextMatrix(row, ColStock, formatted(*m_grid, ColStock, line.inStock));
        m_grid->setTextMatrix(row, ColPage, pageBase + QString::fromLatin1(line.sku));
        if (line.notes)
            setNote(row, QString::fromUtf8(line.notes));
    }
    m_grid->setRedraw(true);
}

void InvoiceForm::computeAmounts()
{
    m_grid->setRedraw(false);
    for (int row = m_grid->FixedRows(); row < m_grid->Rows(); ++row) {
        m_grid->setRow(row);
        m_grid->setCol(ColPrice);
        // Leaving an operand cell recomputes the row's amount, as a clerk's Tab does.
        m_grid->setCol(ColQuantity);
    }
    m_grid->setRedraw(true);
}

void InvoiceForm::fitColumns()
{
    const QFontMetrics dataMetrics(m_grid->Font());
    const QFontMetrics headerMetrics(m_grid->FontFixed());
    const FlexGrid* flex = m_grid->hostedGrid();
    m_grid->setCOLWIDTH(ColMarker, pixelsToTwipsX(MarkerColumnPx, m_grid));
    // The whole notes stay out of sight: a column this narrow is also one the arrows skip.
    m_grid->setCOLWIDTH(ColNoteText, 0);
    for (int col = m_grid->FixedCols(); col < ColNoteText; ++col) {
        int widest = headerMetrics.horizontalAdvance(header(col)) + 2 * ArrowRoomPx;
        // A check box cell's text is its hidden marker; the box is narrower than the header.
        if (m_grid->ColType(col) == eComboBox)
            widest += style()->pixelMetric(QStyle::PM_ScrollBarExtent); // the drop button
        if (m_grid->ColType(col) != eCheckBox) {
            for (int row = m_grid->FixedRows(); row < m_grid->Rows(); ++row)
                widest =
                    std::max(widest, dataMetrics.horizontalAdvance(flex->TextMatrix(row, col)));
        }
        m_grid->setCOLWIDTH(col, pixelsToTwipsX(widest + TextPaddingPx, m_grid));
    }
}

void InvoiceForm::setUpProductList(Column& list)
{
    list.setListHeader(QStringLiteral("Code\tName\tUnit price"));
    list.setSelectCol(0);
    list.setCompareMode(vb::vbTextCompare);
    constexpr std::array<int, 3> ListColumnTwips = {1700, 3000, 1200};
    for (int col = 0; col < int(ListColumnTwips.size()); ++col)
        list.setCOLWIDTH(col, ListColumnTwips[std::size_t(col)]);
    list.setColAlignment(2, Flex::flexAlignRightCenter);
    for (const StockLine* product : catalogue()) {
        list.AddItem(QStringLiteral("%1\t%2\t%3")
                         .arg(QString::fromLatin1(product->sku),
                              QString::fromUtf8(product->product),
                              formatted(*m_grid, ColPrice, double(product->priceCents) / 100)));
    }
}

void InvoiceForm::setUpSupplierPicker()
{
    m_supplier->setToolTip(QStringLiteral("Type a supplier's name or open the list with F4."));
    m_supplier->setListHeader(QStringLiteral("Code\tName\tCity"));
    m_supplier->setSelectCol(1);
    m_supplier->listColumn()->setCompareMode(vb::vbTextCompare);
    constexpr std::array<int, 3> ListColumnTwips = {700, 3000, 1600};
    for (int col = 0; col < int(ListColumnTwips.size()); ++col)
        m_supplier->listColumn()->setCOLWIDTH(col, ListColumnTwips[std::size_t(col)]);
    for (const char* supplier : Suppliers)
        m_supplier->AddItem(QString::fromLatin1(supplier));
    m_supplier->setFixedSize(260, QFontMetrics(font()).height() + 10);
}

void InvoiceForm::onProductPicked(int row, int& col, QString& value)
{
    if (col != ColProduct)
        return;
    const StockLine* const product = catalogueEntry(value.section(QLatin1Char('\t'), 0, 0));
    if (!product)
        return;
    m_grid->setTextMatrix(row, ColName, QString::fromUtf8(product->product));
    m_grid->setTextMatrix(row, ColProductZh, QString::fromUtf8(product->productZh));
    m_grid->setTextMatrix(row, ColPage,
                          QString::fromLatin1(ProductPageBase) + QString::fromLatin1(product->sku));
    const double price = double(product->priceCents) / 100;
    m_grid->setTextMatrix(row, ColPrice, formatted(*m_grid, ColPrice, price));
    // The grid recomputes the amount when the clerk leaves the price or the quantity; a pick
    // in the Product cell leaves neither, so the amount follows the new price here, rounded
    // and formatted as the grid does it.
    const std::optional<double> quantity = vb::NumericValue(m_grid->TextMatrix(row, ColQuantity));
    if (quantity) {
        const Column& amount = *m_grid->Column(ColAmount);
        m_grid->setTextMatrix(
            row, ColAmount,
            formatted(*m_grid, ColAmount, vb::Round(price * *quantity, amount.DecimalLength())));
    }
    showStatus(
        QStringLiteral("Picked %1 for row %2.").arg(QString::fromUtf8(product->product)).arg(row));
}

void InvoiceForm::followSort(int col)
{
    m_sortedAscending = col == m_sortedCol ? !m_sortedAscending : true;
    m_sortedCol = col;
}

void InvoiceForm::addRow()
{
    m_grid->AddItem(QString());
    const int row = m_grid->Row();
    if (!m_grid->RowIsVisible(row))
        m_grid->setTopRow(row);
    m_grid->setFocus();
    showStatus(QStringLiteral("Added row %1.").arg(row));
}

void InvoiceForm::removeRow()
{
    const int marked = m_grid->Selected();
    const int row = marked > 0 ? marked : m_grid->Row();
    if (row < m_grid->FixedRows())
        return;
    const bool onlyRow = m_grid->Rows() == m_grid->FixedRows() + 1;
    const QString product = m_grid->TextMatrix(row, ColName);
    m_grid->RemoveItem(marked > 0 ? 0 : row);
    m_sortedCol = -1;
    m_grid->setFocus();
    if (onlyRow)
        showStatus(QStringLiteral("Emptied the only row: the grid always keeps one."));
    else if (product.isEmpty())
        showStatus(QStringLiteral("Removed row %1.").arg(row));
    else
        showStatus(QStringLiteral("Removed row %1, %2.").arg(row).arg(product));
}

void InvoiceForm::clearRows()
{
    m_grid->Clear();
    m_sortedCol = -1;
    m_grid->setFocus();
    showStatus(QStringLiteral("Cleared: one empty row is left for the next entry."));
}

void InvoiceForm::exportToExcel()
{
    const QString file = QFileDialog::getSaveFileName(
        this, QStringLiteral("Export to Excel"), QDir::home().filePath(QStringLiteral("stock.xls")),
        QStringLiteral("Excel worksheets (*.xls)"));
    if (file.isEmpty())
        return;
    // The export writes over an existing file without truncating it, which would
    // leave a longer file's tail behind; the dialog has had the user agree to replace it.
    if (QFile::exists(file) && !QFile::remove(file)) {
        showStatus(QStringLiteral("Cannot replace %1.").arg(QDir::toNativeSeparators(file)));
        return;
    }
    m_grid->ExportToExcel(file);
    // The export is silent about failures: the file tells whether it was written.
    const QFileInfo written(file);
    showStatus(written.exists() && written.size() > 0
                   ? QStringLiteral("Exported %1 to %2.")
                         .arg(rowsText(m_grid->Rows() - m_grid->FixedRows()),
                              QDir::toNativeSeparators(file))
                   : QStringLiteral("Could not write %1.").arg(QDir::toNativeSeparators(file)));
}

void InvoiceForm::setNote(int row, const QString& note)
{
    m_grid->setTextMatrix(row, ColNoteText, note);
    m_grid->setTextMatrix(row, ColNotes, notePreview(note));
}

void InvoiceForm::editNote(int row)
{
    if (row >= m_grid->Rows())
        return;
    const QString product = m_grid->TextMatrix(row, ColName);
    bool ok = false;
    const QString note = QInputDialog::getMultiLineText(
        this, QStringLiteral("Notes"),
        product.isEmpty() ? QStringLiteral("Notes on row %1:").arg(row)
                          : QStringLiteral("Notes on %1:").arg(product),
        m_grid->TextMatrix(row, ColNoteText), &ok);
    // The dialog's own event loop may have let rows go meanwhile.
    if (!ok || row >= m_grid->Rows())
        return;
    setNote(row, note);
    showStatus(QStringLiteral("Noted on row %1.").arg(row));
}

void InvoiceForm::onCellChanged(int row, int col)
{
    // A note typed straight into the Notes cell replaces the whole note.
    if (col == ColNotes)
        m_grid->setTextMatrix(row, ColNoteText, m_grid->TextMatrix(row, col));
    // The grid computes the amount once the edit is stored: the total is read after that.
    const QString action = QStringLiteral("Changed %1 in row %2.").arg(header(col)).arg(row);
    QMetaObject::invokeMethod(
        this, [this, action] { showStatus(action); }, Qt::QueuedConnection);
}

void InvoiceForm::onValidateError(int row, int col, const QString& value)
{
    const QString kept = m_grid->TextMatrix(row, col);
    showStatus(QStringLiteral("%1 in row %2: “%3” is not accepted; %4.")
                   .arg(header(col))
                   .arg(row)
                   .arg(value, kept.isEmpty() ? QStringLiteral("the cell stays empty")
                                              : QStringLiteral("the cell keeps %1").arg(kept)));
}

void InvoiceForm::onClick()
{
    const int col = m_grid->MouseCol();
    const bool onHeader = m_grid->MouseRow() < m_grid->FixedRows() && col >= m_grid->FixedCols();
    if (onHeader && m_grid->Sortable() && m_grid->Column(col)->SortType() != VemoSortNone) {
        followSort(col);
        m_action.clear();
    }
    // The grid sorts or marks the row only after raising Click: read its state once it has.
    QMetaObject::invokeMethod(
        this, [this] { showStatus(); }, Qt::QueuedConnection);
}

void InvoiceForm::showStatus(const QString& action)
{
    if (!action.isEmpty())
        m_action = action;
    double total = 0;
    for (int row = m_grid->FixedRows(); row < m_grid->Rows(); ++row) {
        const QString amount = m_grid->TextMatrix(row, ColAmount);
        if (vb::IsNumeric(amount))
            total += vb::CDbl(amount);
    }
    QStringList parts;
    if (!m_action.isEmpty())
        parts << m_action;
    parts << QStringLiteral("%1, total %2")
                 .arg(rowsText(m_grid->Rows() - m_grid->FixedRows()),
                      vb::Format(total, QStringLiteral("#,##0.00")));
    if (m_sortedCol >= 0)
        parts << QStringLiteral("sorted by %1, %2")
                     .arg(header(m_sortedCol), m_sortedAscending ? QStringLiteral("ascending")
                                                                 : QStringLiteral("descending"));
    parts << (m_grid->Selected() > 0 ? QStringLiteral("row %1 marked").arg(m_grid->Selected())
                                     : QStringLiteral("no row marked"));
    m_status->showMessage(parts.join(QStringLiteral(" · ")));
}
