// SPDX-License-Identifier: MIT
// The per-column settings object of a VemoGrid column.
#pragma once

#include <VemoGridLib/ErrorGuard.h>
#include <VemoGridLib/VbStrings.h>
#include <VemoGridLib/VemoEnums.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QAbstractItemModel>
#include <QObject>
#include <QString>

#include <memory>

namespace VemoGridLib {

/// One `Column` per grid column, carrying its editing type, number format, numeric
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
    Q_PROPERTY(qint16 DecimalLength READ DecimalLength WRITE guardedSetDecimalLength)
    Q_PROPERTY(qint32 ItemCount READ ItemCount)
    // AutoDropDown comes last, where hosts of the older control expect it in the property list.
    Q_PROPERTY(bool AutoDropDown READ AutoDropDown WRITE setAutoDropDown)

public:
    /// A column with every setting at its default and three empty collections.
    explicit Column(QObject* parent = nullptr);
    ~Column() override;

    /// When true, AddItem writes the running row number into this column's empty cell.
    bool AutoAdd() const;
    /// Sets `AutoAdd`.
    void setAutoAdd(bool value);

    /// Header texts of a combo column's drop-down list.
    QString ListHeader() const;
    /// Sets `ListHeader`.
    void setListHeader(const QString& value);

    /// Display format of the column's values ("#,##0.00" once made `eCurrency`).
    QString FormatString() const;
    /// Sets `FormatString`.
    void setFormatString(const QString& value);

    /// The column's cells cannot be edited.
    bool Locked() const;
    /// Sets `Locked`.
    void setLocked(bool value);

    /// Maximum input length; 0 = no limit.
    qint16 MaxLength() const;
    /// Sets `MaxLength`.
    void setMaxLength(qint16 value);

    /// Largest value accepted in a numeric column (default 1e16).
    double MaxValue() const;
    /// Sets `MaxValue`.
    void setMaxValue(double value);

    /// Smallest value accepted in a numeric column (default -1e16).
    double MinValue() const;
    /// Sets `MinValue`.
    void setMinValue(double value);

    /// A numeric zero is shown rather than left blank.
    bool ShowZero() const;
    /// Sets `ShowZero`.
    void setShowZero(bool value);

    /// A combo or date column drops its list down as soon as its editor opens.
    bool AutoDropDown() const;
    /// Sets `AutoDropDown`.
    void setAutoDropDown(bool value);

    /// Width of a combo column's drop-down list; -1 = not set.
    qint16 ListWidth() const;
    /// Sets `ListWidth`.
    void setListWidth(qint16 value);

    /// Data source of a combo column's list; null once the model is destroyed.
    QAbstractItemModel* DataSource() const;
    /// Sets `DataSource` (not owned).
    void setDataSource(QAbstractItemModel* value);

    /// The drop-down list's columns may be resized.
    bool ColResize() const;
    /// Sets `ColResize`.
    void setColResize(bool value);

    /// Row height of the drop-down list; 0 = not set.
    qint16 RowHeight() const;
    /// Sets `RowHeight`.
    void setRowHeight(qint16 value);

    /// Rows shown in the drop-down list (default 12).
    qint16 VisibleRows() const;
    /// Sets `VisibleRows`.
    void setVisibleRows(qint16 value);

    /// The drop-down list shows its header row (default true).
    bool ShowHeader() const;
    /// Sets `ShowHeader`.
    void setShowHeader(bool value);

    /// List column whose text becomes the cell value.
    qint16 SelectCol() const;
    /// Sets `SelectCol`.
    void setSelectCol(qint16 value);

    /// How typed text is matched against the list (default `vbBinaryCompare`).
    vb::CompareMethod CompareMode() const;
    /// Sets `CompareMode`.
    void setCompareMode(vb::CompareMethod value);

    /// The drop-down list highlights the row under the mouse (default true).
    bool HotTracking() const;
    /// Sets `HotTracking`.
    void setHotTracking(bool value);

    /// How the column sorts on a header click or SortOnCol (default `VemoSortNone`).
    VemoSortTypeConstants SortType() const;
    /// Sets `SortType`.
    void setSortType(VemoSortTypeConstants value);

    /// Number of decimals of a numeric column (default 6).
    qint16 DecimalLength() const;
    /// Stores any value, negative included; throws VemoError(ObjectErrorBase,
    /// "Can't set decimal lenght to this column") on an `eCurrency` or `eLong` column.
    void setDecimalLength(qint16 value);

    /// The drop-down list width stored for list column `Col`; throws
    /// VemoError::invalidProcedureCall() (the collection's missing-key error) if never set.
    qint32 COLWIDTH(qint32 Col) const;
    /// Replaces the width stored for list column `Col`.
    void setCOLWIDTH(qint32 Col, qint32 value);

    /// The alignment stored for list column `Col`; throws
    /// VemoError::invalidProcedureCall() if never set.
    qint32 ColAlignment(qint32 Col) const;
    /// Replaces the alignment stored for list column `Col`.
    void setColAlignment(qint32 Col, qint32 value);

    /// Discards every item of the combo item list.
    Q_INVOKABLE void clearItems();
    /// Appends `Item` to the combo item list, under index `ItemCount()`.
    Q_INVOKABLE void AddItem(const QString& Item);
    /// The item at zero-based `Index`; throws VemoError::invalidProcedureCall() when
    /// there is no such item.
    Q_INVOKABLE QString Item(qint32 Index) const;
    /// Number of items in the combo item list.
    qint32 ItemCount() const;

    /// Library-internal: the editing type, which only the grid's ColType changes.
    VemoGridColType colType() const;
    /// Library-internal: only the grid's ColType changes a column's type. Stores
    /// `type` (values above 8 too); `eCurrency` sets 2 decimals and "#,##0.00", `eNumeric` 6
    /// decimals, `eLong` 0 decimals; other types change nothing else.
    void setColType(VemoGridColType type);

private:
    // The writer moc calls for DecimalLength, the one property that can refuse a value.
    VEMO_GUARDED_WRITE(qint16, DecimalLength);

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace VemoGridLib
