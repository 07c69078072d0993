// SPDX-License-Identifier: MIT
#include "editors/Column.h"

#include "common/VemoError.h"

#include <QHash>
#include <QPointer>
#include <QStringList>

namespace VemoGridLib {

namespace {

constexpr qint16 NumericDecimals = 6;
constexpr qint16 CurrencyDecimals = 2;
constexpr qint16 LongDecimals = 0;
constexpr double DefaultMaxValue = 1e16;

QString currencyFormat()
{
    return QStringLiteral("#,##0.00");
}

// The list stores were VB Collections keyed by the decimal text of the list column; a hash on
// the number is the same mapping, and VB's missing-key error is run-time error 5.
qint32 storedValue(const QHash<qint32, qint32>& store, qint32 key)
{
    const auto found = store.constFind(key);
    if (found == store.constEnd())
        throw VemoError::invalidProcedureCall();
    return found.value();
}

} // namespace

struct Column::Private
{
    bool autoAdd = false;
    QString listHeader;
    QString formatString;
    bool locked = false;
    qint16 maxLength = 0;
    double maxValue = DefaultMaxValue;
    double minValue = -DefaultMaxValue;
    bool showZero = false;
    bool autoDropDown = false;
    qint16 listWidth = -1;
    QPointer<QAbstractItemModel> dataSource;
    bool colResize = false;
    qint16 rowHeight = 0;
    qint16 visibleRows = 12;
    bool showHeader = true;
    qint16 selectCol = 0;
    vb::CompareMethod compareMode = vb::vbBinaryCompare;
    bool hotTracking = true;
    VemoSortTypeConstants sortType = VemoSortNone;
    VemoGridColType colType = eTextBox;
    qint16 decimalLength = NumericDecimals;
    // Items were keyed by their position at insertion and never removed one by one, so the
    // key of an item is always its index in this list.
    QStringList items;
    QHash<qint32, qint32> colWidths;
    QHash<qint32, qint32> colAlignments;
};

Column::Column(QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{}

Column::~Column() = default;

bool Column::AutoAdd() const
{
    return d->autoAdd;
}

void Column::setAutoAdd(bool value)
{
    d->autoAdd = value;
}

QString Column::ListHeader() const
{
    return d->listHeader;
}

void Column::setListHeader(const QString& value)
{
    d->listHeader = value;
}

QString Column::FormatString() const
{
    return d->formatString;
}

void Column::setFormatString(const QString& value)
{
    d->formatString = value;
}

bool Column::Locked() const
{
    return d->locked;
}

void Column::setLocked(bool value)
{
    d->locked = value;
}

qint16 Column::MaxLength() const
{
    return d->maxLength;
}

void Column::setMaxLength(qint16 value)
{
    d->maxLength = value;
}

double Column::MaxValue() const
{
    return d->maxValue;
}

void Column::setMaxValue(double value)
{
    d->maxValue = value;
}

double Column::MinValue() const
{
    return d->minValue;
}

void Column::setMinValue(double value)
{
    d->minValue = value;
}

bool Column::ShowZero() const
{
    return d->showZero;
}

void Column::setShowZero(bool value)
{
    d->showZero = value;
}

bool Column::AutoDropDown() const
{
    return d->autoDropDown;
}

void Column::setAutoDropDown(bool value)
{
    d->autoDropDown = value;
}

qint16 Column::ListWidth() const
{
    return d->listWidth;
}

void Column::setListWidth(qint16 value)
{
    d->listWidth = value;
}

QAbstractItemModel* Column::DataSource() const
{
    return d->dataSource.data();
}

void Column::setDataSource(QAbstractItemModel* value)
{
    d->dataSource = value;
}

bool Column::ColResize() const
{
    return d->colResize;
}

void Column::setColResize(bool value)
{
    d->colResize = value;
}

qint16 Column::RowHeight() const
{
    return d->rowHeight;
}

void Column::setRowHeight(qint16 value)
{
    d->rowHeight = value;
}

qint16 Column::VisibleRows() const
{
    return d->visibleRows;
}

void Column::setVisibleRows(qint16 value)
{
    d->visibleRows = value;
}

bool Column::ShowHeader() const
{
    return d->showHeader;
}

void Column::setShowHeader(bool value)
{
    d->showHeader = value;
}

qint16 Column::SelectCol() const
{
    return d->selectCol;
}

void Column::setSelectCol(qint16 value)
{
    d->selectCol = value;
}

vb::CompareMethod Column::CompareMode() const
{
    return d->compareMode;
}

void Column::setCompareMode(vb::CompareMethod value)
{
    d->compareMode = value;
}

bool Column::HotTracking() const
{
    return d->hotTracking;
}

void Column::setHotTracking(bool value)
{
    d->hotTracking = value;
}

VemoSortTypeConstants Column::SortType() const
{
    return d->sortType;
}

void Column::setSortType(VemoSortTypeConstants value)
{
    d->sortType = value;
}

qint16 Column::DecimalLength() const
{
    return d->decimalLength;
}

void Column::setDecimalLength(qint16 value)
{
    if (d->colType == eLong || d->colType == eCurrency)
        throw VemoError(VemoError::ObjectErrorBase,
                        QStringLiteral("Can't set decimal lenght to this column"));
    d->decimalLength = value;
}

qint32 Column::COLWIDTH(qint32 Col) const
{
    return storedValue(d->colWidths, Col);
}

void Column::setCOLWIDTH(qint32 Col, qint32 value)
{
    d->colWidths.insert(Col, value);
}

qint32 Column::ColAlignment(qint32 Col) const
{
    return storedValue(d->colAlignments, Col);
}

void Column::setColAlignment(qint32 Col, qint32 value)
{
    d->colAlignments.insert(Col, value);
}

void Column::clearItems()
{
    d->items.clear();
}

void Column::AddItem(const QString& Item)
{
    d->items.append(Item);
}

QString Column::Item(qint32 Index) const
{
    if (Index < 0 || Index >= d->items.size())
        throw VemoError::invalidProcedureCall();
    return d->items.at(Index);
}

qint32 Column::ItemCount() const
{
    return qint32(d->items.size());
}

VemoGridColType Column::colType() const
{
    return d->colType;
}

void Column::setColType(VemoGridColType type)
{
    d->colType = type;
    switch (type) {
    case eCurrency:
        d->decimalLength = CurrencyDecimals;
        d->formatString = currencyFormat();
        break;
    case eNumeric:
        d->decimalLength = NumericDecimals;
        break;
    case eLong:
        d->decimalLength = LongDecimals;
        break;
    default:
        break;
    }
}

} // namespace VemoGridLib
