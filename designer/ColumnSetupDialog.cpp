// SPDX-License-Identifier: MIT
#include "ColumnSetupDialog.h"

#include <VemoGridLib/ColumnSetup.h>
#include <VemoGridLib/VemoError.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMessageBox>
#include <QMetaEnum>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include <set>

namespace VemoGridLib {

namespace {

using Field = ColumnSetupDialog::Field;

QStringList keysOf(const QMetaEnum& meta)
{
    QStringList keys;
    for (int i = 0; i < meta.keyCount(); ++i)
        keys << QString::fromLatin1(meta.key(i));
    return keys;
}

/// The names a drop-down cell offers, in the order of their values; none for other cells.
QStringList choicesOf(int field)
{
    switch (field) {
    case Field::ColType:
        return keysOf(QMetaEnum::fromType<VemoGridColType>());
    case Field::SortType:
        return keysOf(QMetaEnum::fromType<VemoSortTypeConstants>());
    case Field::CompareMode:
        return {QStringLiteral("vbBinaryCompare"), QStringLiteral("vbTextCompare")};
    default:
        return {};
    }
}

bool isSwitch(int field)
{
    static const std::set<int> switches = {Field::Locked,       Field::AutoAdd,
                                           Field::ShowZero,     Field::ShowHeader,
                                           Field::AutoDropDown, Field::HotTracking};
    return switches.count(field) != 0;
}

/// Drop-downs for the enumerations and a multi-line editor for the items; the editors' user
/// properties (currentText, plainText) carry the cell's text both ways.
class CellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override
    {
        if (const QStringList choices = choicesOf(index.column()); !choices.isEmpty()) {
            auto* const box = new QComboBox(parent);
            box->addItems(choices);
            return box;
        }
        if (index.column() == Field::Items)
            return new QPlainTextEdit(parent);
        return QStyledItemDelegate::createEditor(parent, option, index);
    }
};

/// The settings a new column starts with; an empty cell stands for them.
const ColumnSettings& defaults()
{
    static const ColumnSettings settings;
    return settings;
}

/// A cell that should hold a number but does not, named by its row and table column.
[[noreturn]] void refuseNumber(const QStandardItem* item, const char* kind)
{
    throw VemoError(VemoError::InvalidProcedureCall,
                    QStringLiteral("Row %1, %2: \"%3\" is not %4")
                        .arg(item->row() + 1)
                        .arg(QString::fromLatin1(QMetaEnum::fromType<Field>().key(item->column())),
                             item->text(), QLatin1StringView(kind)));
}

/// A whole-number cell: empty is `fallback`.
int whole(const QStandardItem* item, int fallback)
{
    const QString text = item->text().trimmed();
    if (text.isEmpty())
        return fallback;
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok)
        refuseNumber(item, "a whole number");
    return value;
}

/// A number cell: empty is no value.
std::optional<double> decimal(const QStandardItem* item)
{
    const QString text = item->text().trimmed();
    if (text.isEmpty())
        return std::nullopt;
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok)
        refuseNumber(item, "a number");
    return value;
}

QString numberText(int value, int fallback)
{
    return value == fallback ? QString() : QString::number(value);
}

QString decimalText(std::optional<double> value)
{
    return value ? QString::number(*value, 'g', 17) : QString();
}

int choiceOf(const QStandardItem* item, int field)
{
    return int(std::max<qsizetype>(0, choicesOf(field).indexOf(item->text())));
}

QList<QStandardItem*> rowOf(const ColumnSettings& s)
{
    QList<QStandardItem*> row;
    for (int field = 0; field < Field::FieldCount; ++field) {
        auto* const item = new QStandardItem;
        if (isSwitch(field))
            item->setCheckable(true);
        row << item;
    }
    const auto text = [&](int field, const QString& value) {
        row[field]->setText(value);
    };
    const auto check = [&](int field, bool on) {
        row[field]->setCheckState(on ? Qt::Checked : Qt::Unchecked);
    };
    text(Field::Col, QString::number(s.Col));
    text(Field::Header, s.Header);
    text(Field::Width, numberText(s.Width, defaults().Width));
    text(Field::ColType, choicesOf(Field::ColType).value(s.ColType));
    text(Field::DecimalLength, numberText(s.DecimalLength, defaults().DecimalLength));
    text(Field::FormatString, s.FormatString);
    text(Field::MinValue, decimalText(s.MinValue));
    text(Field::MaxValue, decimalText(s.MaxValue));
    check(Field::Locked, s.Locked);
    check(Field::AutoAdd, s.AutoAdd);
    check(Field::ShowZero, s.ShowZero);
    text(Field::SortType, choicesOf(Field::SortType).value(s.SortType));
    text(Field::Items, s.Items.join(u'\n'));
    text(Field::ListHeader, s.ListHeader);
    text(Field::ListWidth, numberText(s.ListWidth, defaults().ListWidth));
    text(Field::VisibleRows, numberText(s.VisibleRows, defaults().VisibleRows));
    text(Field::SelectCol, numberText(s.SelectCol, defaults().SelectCol));
    check(Field::ShowHeader, s.ShowHeader);
    check(Field::AutoDropDown, s.AutoDropDown);
    check(Field::HotTracking, s.HotTracking);
    text(Field::CompareMode, choicesOf(Field::CompareMode).value(s.CompareMode));
    return row;
}

ColumnSettings settingsOf(const QStandardItemModel& model, int row)
{
    const auto item = [&](int field) {
        return model.item(row, field);
    };
    const auto checked = [&](int field) {
        return item(field)->checkState() == Qt::Checked;
    };
    ColumnSettings s;
    s.Col = whole(item(Field::Col), row + 1);
    s.Header = item(Field::Header)->text();
    s.Width = whole(item(Field::Width), defaults().Width);
    s.ColType = VemoGridColType(choiceOf(item(Field::ColType), Field::ColType));
    s.DecimalLength = whole(item(Field::DecimalLength), defaults().DecimalLength);
    s.FormatString = item(Field::FormatString)->text();
    s.MinValue = decimal(item(Field::MinValue));
    s.MaxValue = decimal(item(Field::MaxValue));
    s.Locked = checked(Field::Locked);
    s.AutoAdd = checked(Field::AutoAdd);
    s.ShowZero = checked(Field::ShowZero);
    s.SortType = VemoSortTypeConstants(choiceOf(item(Field::SortType), Field::SortType));
    const QString items = item(Field::Items)->text();
    s.Items = items.isEmpty() ? QStringList() : items.split(u'\n');
    s.ListHeader = item(Field::ListHeader)->text();
    s.ListWidth = whole(item(Field::ListWidth), defaults().ListWidth);
    s.VisibleRows = whole(item(Field::VisibleRows), defaults().VisibleRows);
    s.SelectCol = whole(item(Field::SelectCol), defaults().SelectCol);
    s.ShowHeader = checked(Field::ShowHeader);
    s.AutoDropDown = checked(Field::AutoDropDown);
    s.HotTracking = checked(Field::HotTracking);
    s.CompareMode = vb::CompareMethod(choiceOf(item(Field::CompareMode), Field::CompareMode));
    return s;
}

} // namespace

ColumnSetupDialog::ColumnSetupDialog(QWidget* parent)
    : QDialog(parent)
    , m_model(new QStandardItemModel(0, FieldCount, this))
    , m_view(new QTableView(this))
{
    setWindowTitle(tr("Edit Columns"));
    const QMetaEnum fields = QMetaEnum::fromType<Field>();
    for (int field = 0; field < FieldCount; ++field)
        m_model->setHeaderData(field, Qt::Horizontal, QString::fromLatin1(fields.key(field)));
    m_view->setModel(m_model);
    m_view->setItemDelegate(new CellDelegate(m_view));
    m_view->verticalHeader()->hide();

    auto* const add = new QPushButton(tr("&Add"), this);
    auto* const remove = new QPushButton(tr("&Remove"), this);
    connect(add, &QPushButton::clicked, this, &ColumnSetupDialog::addRow);
    connect(remove, &QPushButton::clicked, this, &ColumnSetupDialog::removeSelectedRows);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &ColumnSetupDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* const rowButtons = new QHBoxLayout;
    rowButtons->addWidget(add);
    rowButtons->addWidget(remove);
    rowButtons->addStretch();
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_view);
    layout->addLayout(rowButtons);
    layout->addWidget(buttons);
    resize(900, 360);
}

void ColumnSetupDialog::setText(const QString& text)
{
    const QList<ColumnSettings> columns = parseColumnSetup(text);
    m_model->setRowCount(0);
    for (const ColumnSettings& column : columns)
        m_model->appendRow(rowOf(column));
    m_view->resizeRowsToContents();
}

QString ColumnSetupDialog::text() const
{
    QList<ColumnSettings> columns;
    for (int row = 0; row < m_model->rowCount(); ++row)
        columns << settingsOf(*m_model, row);
    return formatColumnSetup(columns);
}

QStandardItemModel* ColumnSetupDialog::model() const
{
    return m_model;
}

void ColumnSetupDialog::addRow()
{
    ColumnSettings column;
    // A slot: a column number that does not read is passed over here and refused on OK.
    for (int row = 0; row < m_model->rowCount(); ++row) {
        bool ok = false;
        const int col = m_model->item(row, Col)->text().trimmed().toInt(&ok);
        if (ok)
            column.Col = std::max(column.Col, col + 1);
    }
    m_model->appendRow(rowOf(column));
}

void ColumnSetupDialog::removeSelectedRows()
{
    std::set<int, std::greater<>> rows;
    for (const QModelIndex& index : m_view->selectionModel()->selectedIndexes())
        rows.insert(index.row());
    for (const int row : rows)
        m_model->removeRow(row);
}

void ColumnSetupDialog::accept()
{
    // A number cell that does not read, or a setting the column type refuses (decimals of a
    // currency column, say), shows when the table is turned into text and read back.
    try {
        parseColumnSetup(text());
    } catch (const std::exception& error) {
        QMessageBox::warning(this, windowTitle(), QString::fromUtf8(error.what()));
        return;
    }
    QDialog::accept();
}

} // namespace VemoGridLib
