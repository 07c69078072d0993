// Part 1.2: the per-column metadata object of a VemoGrid column.
#pragma once

#include <VemoGridLib/VbStrings.h>
#include <VemoGridLib/VemoEnums.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QAbstractItemModel>
#include <QObject>
#include <QString>

#include <memory>

namespace VemoGridLib {

/// Part 1.2: one `Column` per grid column, carrying its editing type, number format, numeric
/// limits, combo item list and drop-down list layout. The grid owns it and hands it out through
/// its `Column(Col)` property; the host sets its public fields directly.
class VEMOGRIDLIB_EXPORT Column : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool AutoAdd READ AutoAdd WRITE setAutoAdd)
    Q_PROPERTY(QString ListHeader READ ListHeader WRITE setListHeader)
    Q_PROPERTY(QString FormatString READ FormatString WRITE setFormatString)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(qint16 MaxLength READ MaxLength WRITE setMaxLength)
    Q_PROPERTY(double MaxValue READ MaxValue WRITE setMaxValue)
    Q_PROPERTY(double MinValue READ MinValue WRITE setMinValue)
    Q_PROPERTY(bool ShowZero READ ShowZero WRITE setShowZero)
    Q_PROPERTY(qint16 ListWidth READ ListWidth WRITE setListWidth)
    Q_PROPERTY(QAbstractItemModel* DataSource READ DataSource WRITE setDataSource)
    Q_PROPERTY(bool ColResize READ ColResize WRITE setColResize)
    Q_PROPERTY(qint16 RowHeight READ RowHeight WRITE setRowHeight)
    Q_PROPERTY(qint16 VisibleRows READ VisibleRows WRITE setVisibleRows)
    Q_PROPERTY(bool ShowHeader READ ShowHeader WRITE setShowHeader)
    Q_PROPERTY(qint16 SelectCol READ SelectCol WRITE setSelectCol)
    Q_PROPERTY(VemoGridLib::vb::CompareMethod CompareMode READ CompareMode WRITE setCompareMode)
    Q_PROPERTY(bool HotTracking READ HotTracking WRITE setHotTracking)
    Q_PROPERTY(VemoGridLib::VemoSortTypeConstants SortType READ SortType WRITE setSortType)
    Q_PROPERTY(qint16 DecimalLength READ DecimalLength WRITE setDecimalLength)
    Q_PROPERTY(qint32 ItemCount READ ItemCount)
    // Part 1.2 places AutoDropDown last of all in the interface's slot order.
    Q_PROPERTY(bool AutoDropDown READ AutoDropDown WRITE setAutoDropDown)

public:
    /// Part 1.2: a column with every default of the Part's table and three empty collections.
    explicit Column(QObject* parent = nullptr);
    ~Column() override;

    /// Part 1.2: the column is numbered automatically when a row is added (Part 1.5).
    bool AutoAdd() const;
    /// Part 1.2: sets `AutoAdd`.
    void setAutoAdd(bool value);

    /// Part 1.2: header texts of a combo column's drop-down list.
    QString ListHeader() const;
    /// Part 1.2: sets `ListHeader`.
    void setListHeader(const QString& value);

    /// Part 1.2: display format of the column's values ("#,##0.00" once made `eCurrency`).
    QString FormatString() const;
    /// Part 1.2: sets `FormatString`.
    void setFormatString(const QString& value);

    /// Part 1.2: the column's cells cannot be edited.
    bool Locked() const;
    /// Part 1.2: sets `Locked`.
    void setLocked(bool value);

    /// Part 1.2: maximum input length; 0 = no limit.
    qint16 MaxLength() const;
    /// Part 1.2: sets `MaxLength`.
    void setMaxLength(qint16 value);

    /// Part 1.2: largest value accepted in a numeric column (default 1e16).
    double MaxValue() const;
    /// Part 1.2: sets `MaxValue`.
    void setMaxValue(double value);

    /// Part 1.2: smallest value accepted in a numeric column (default -1e16).
    double MinValue() const;
    /// Part 1.2: sets `MinValue`.
    void setMinValue(double value);

    /// Part 1.2: a numeric zero is shown rather than left blank.
    bool ShowZero() const;
    /// Part 1.2: sets `ShowZero`.
    void setShowZero(bool value);

    /// Part 1.2: a combo or date column drops its list down as soon as its editor opens.
    bool AutoDropDown() const;
    /// Part 1.2: sets `AutoDropDown`.
    void setAutoDropDown(bool value);

    /// Part 1.2: width of a combo column's drop-down list; -1 = not set.
    qint16 ListWidth() const;
    /// Part 1.2: sets `ListWidth`.
    void setListWidth(qint16 value);

    /// Part 1.2: data source of a combo column's list; null once the model is destroyed.
    QAbstractItemModel* DataSource() const;
    /// Part 1.2: sets `DataSource` (not owned).
    void setDataSource(QAbstractItemModel* value);

    /// Part 1.2: the drop-down list's columns may be resized.
    bool ColResize() const;
    /// Part 1.2: sets `ColResize`.
    void setColResize(bool value);

    /// Part 1.2: row height of the drop-down list; 0 = not set.
    qint16 RowHeight() const;
    /// Part 1.2: sets `RowHeight`.
    void setRowHeight(qint16 value);

    /// Part 1.2: rows shown in the drop-down list (default 12).
    qint16 VisibleRows() const;
    /// Part 1.2: sets `VisibleRows`.
    void setVisibleRows(qint16 value);

    /// Part 1.2: the drop-down list shows its header row (default true).
    bool ShowHeader() const;
    /// Part 1.2: sets `ShowHeader`.
    void setShowHeader(bool value);

    /// Part 1.2: list column whose text becomes the cell value.
    qint16 SelectCol() const;
    /// Part 1.2: sets `SelectCol`.
    void setSelectCol(qint16 value);

    /// Part 1.2: how typed text is matched against the list (default `vbBinaryCompare`).
    vb::CompareMethod CompareMode() const;
    /// Part 1.2: sets `CompareMode`.
    void setCompareMode(vb::CompareMethod value);

    /// Part 1.2: the drop-down list highlights the row under the mouse (default true).
    bool HotTracking() const;
    /// Part 1.2: sets `HotTracking`.
    void setHotTracking(bool value);

    /// Part 1.2: how the column sorts (Part 1.6; default `VemoSortNone`).
    VemoSortTypeConstants SortType() const;
    /// Part 1.2: sets `SortType`.
    void setSortType(VemoSortTypeConstants value);

    /// Part 1.2: number of decimals of a numeric column (default 6).
    qint16 DecimalLength() const;
    /// Part 1.2: stores any value, negative included; throws VemoError(ObjectErrorBase,
    /// "Can't set decimal lenght to this column") on an `eCurrency` or `eLong` column.
    void setDecimalLength(qint16 value);

    /// Part 1.2: the drop-down list width stored for list column `Col`; throws
    /// VemoError::invalidProcedureCall() (the collection's missing-key error) if never set.
    qint32 COLWIDTH(qint32 Col) const;
    /// Part 1.2: replaces the width stored for list column `Col`.
    void setCOLWIDTH(qint32 Col, qint32 value);

    /// Part 1.2: the alignment stored for list column `Col`; throws
    /// VemoError::invalidProcedureCall() if never set.
    qint32 ColAlignment(qint32 Col) const;
    /// Part 1.2: replaces the alignment stored for list column `Col`.
    void setColAlignment(qint32 Col, qint32 value);

    /// Part 1.2: discards every item of the combo item list.
    Q_INVOKABLE void clearItems();
    /// Part 1.2: appends `Item` to the combo item list, under index `ItemCount()`.
    Q_INVOKABLE void AddItem(const QString& Item);
    /// Part 1.2: the item at zero-based `Index`; throws VemoError::invalidProcedureCall() when
    /// there is no such item.
    Q_INVOKABLE QString Item(qint32 Index) const;
    /// Part 1.2: number of items in the combo item list.
    qint32 ItemCount() const;

    /// Library-internal (Part 1.2): only the grid's ColType changes a column's type.
    VemoGridColType colType() const;
    /// Library-internal (Part 1.2): only the grid's ColType changes a column's type. Stores
    /// `type` (values above 8 too); `eCurrency` sets 2 decimals and "#,##0.00", `eNumeric` 6
    /// decimals, `eLong` 0 decimals; other types change nothing else.
    void setColType(VemoGridColType type);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace VemoGridLib
