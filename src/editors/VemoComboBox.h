// SPDX-License-Identifier: MIT
// The list editor: a text field with a multi-column drop-down list, for grid cells and forms.
#pragma once

#include <VemoGridLib/CellEditor.h>
#include <VemoGridLib/FlexEnums.h>
#include <VemoGridLib/PropertyTypes.h>
#include <VemoGridLib/VemoEnums.h>

#include <QPixmap>

#include <memory>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
QT_END_NAMESPACE

namespace VemoGridLib {

class FlexGrid;
class PropertyBag;
class VemoComboBoxPrivate;

/// The editor of `eComboBox` cells (`VemoComboBox1`), also a control of its own on a form: the
/// text field `txtInput`, a drop button at its right end, and a drop-down list (a `FlexGrid`
/// named `grid` with one header row) in a window of its own that never takes the focus, so the
/// keys keep coming to `txtInput` while the list is open.
///
/// The items and the list settings live in a `Column`: the host's when it assigned one, else
/// the combo's own, created when first needed (`listColumn()`). An item is one string whose
/// list columns are separated by tabs. Typing into the open list selects the first row whose
/// `SelectCol` cell starts with the text (under the column's `CompareMode`); Up, Down, Page Up
/// and Page Down move through it, Enter or a click takes the row's `SelectCol` cell into the
/// text field. Each step is reported to the receiver (`CellComboSelect`, `CellComboClick`,
/// `Change`).
///
/// The list opens with the drop button, F4 or Alt+Down (unless the receiver zeroed the key in
/// `KeyDown`, as a grid does that scrolls on Alt+Down), and with the column's `AutoDropDown` when
/// the control is shown; F4, Alt+Up, Alt+Down, Esc, the button, a press outside the combo and
/// its list, and a move or deactivation of the combo's window close it.
///
/// Standing alone the combo is its own receiver and raises its own signals of the same names;
/// a host that sets itself as receiver gets the reports instead. A combo built in code is
/// standalone at once (the constructor runs `InitProperties()`).
class VEMOGRIDLIB_EXPORT VemoComboBox : public CellEditor
{
    Q_OBJECT
    Q_PROPERTY(
        VemoGridLib::AlignmentConstants Alignment READ enumAlignment WRITE guardedSetEnumAlignment)
    Q_PROPERTY(VemoGridLib::BorderStyleConstants BorderStyle READ enumBorderStyle WRITE
                   guardedSetEnumBorderStyle)
    Q_PROPERTY(QColor ForeColor READ colorForeColor WRITE guardedSetColorForeColor RESET
                   resetColorForeColor)
    Q_PROPERTY(QColor BackColor READ colorBackColor WRITE guardedSetColorBackColor RESET
                   resetColorBackColor)
    Q_PROPERTY(QString Text READ Text WRITE guardedSetText)
    Q_PROPERTY(VemoGridLib::AppearanceConstants Appearance READ enumAppearance WRITE
                   guardedSetEnumAppearance)
    Q_PROPERTY(int MaxLength READ MaxLength WRITE guardedSetMaxLength)
    Q_PROPERTY(bool ShowHeader READ ShowHeader WRITE guardedSetShowHeader)
    Q_PROPERTY(qint16 ListWidth READ ListWidth WRITE guardedSetListWidth)
    Q_PROPERTY(qint16 VisibleRows READ VisibleRows WRITE guardedSetVisibleRows)
    Q_PROPERTY(bool Locked READ Locked WRITE guardedSetLocked)
    Q_PROPERTY(qint16 SelectCol READ SelectCol WRITE guardedSetSelectCol)
    Q_PROPERTY(bool HotTracking READ HotTracking WRITE guardedSetHotTracking)
    Q_PROPERTY(VemoGridLib::Flex::MousePointerSettings MousePointer READ enumMousePointer WRITE
                   guardedSetEnumMousePointer)
    Q_PROPERTY(QString ListHeader READ ListHeader WRITE guardedSetListHeader)
    Q_PROPERTY(QStringList Items READ Items WRITE guardedSetItems)

public:
    explicit VemoComboBox(QWidget* parent = nullptr);
    ~VemoComboBox() override;

    /// Always true: any text is acceptable.
    bool Validate() override;
    /// The text.
    QVariant Value() const override;
    /// Writes the value as text without reporting `Change` or searching the list.
    void setValue(const QVariant& value) override;
    /// True while the list is shown.
    bool IsDropDown() const override;

    /// The `Column` that holds the items and list settings: the one the host assigned, else the
    /// combo's own (created on this first call and kept).
    VemoGridLib::Column* listColumn();

    /// Appends an item; the list shows it the next time it opens.
    void AddItem(const QString& Item);
    qint32 ItemCount();
    /// The item at zero-based `Index`; throws VemoError::invalidProcedureCall() past the end.
    QString Item(qint32 Index);
    /// The header texts of row 0, separated by tabs.
    QString ListHeader();
    void setListHeader(const QString& header);
    /// Every item, in order; the setter replaces them (the form designer edits them as a list).
    QStringList Items();
    void setItems(const QStringList& items);

    /// The list as last filled: its columns, and its rows with the header row.
    qint32 Cols() const;
    qint32 Rows() const;
    /// The cells of list row `Row` joined by tabs (an empty last cell keeps its tab); empty
    /// for a row that is not in the list.
    QString RowText(qint32 Row) const;
    /// The drop-down list itself.
    FlexGrid* list() const;

    /// Opens the list: reports `BeforeDropDown`, fills the list from the column and shows it
    /// under the control (above it when it would pass the screen's lower edge). Nothing
    /// happens while the list is open or the control is hidden.
    void DropDown();
    /// Closes the list, keeping its rows and current row.
    void CloseUp();

    // List settings kept in the column (saved properties of a standalone combo).
    bool ShowHeader();
    void setShowHeader(bool show);
    /// Width of the list in twips; -1 = the sum of its column widths.
    qint16 ListWidth();
    void setListWidth(qint16 twips);
    /// Data rows the open list shows at most.
    qint16 VisibleRows();
    void setVisibleRows(qint16 rows);
    /// List column whose cell goes into the text field and is searched while typing.
    qint16 SelectCol();
    void setSelectCol(qint16 col);
    bool HotTracking();
    void setHotTracking(bool track);
    /// A model whose rows and columns fill the list instead of the items; its header data gives
    /// the header row unless `ListHeader` is set. Not saved: a model is no design-time setting.
    QAbstractItemModel* DataSource();
    void setDataSource(QAbstractItemModel* model);

    /// The pointer over the text field: 0 the field's own, 1–15 the standard pointers, 99
    /// `MouseIcon`; another value throws VemoError 380.
    int MousePointer() const;
    void setMousePointer(int pointer);
    QPixmap MouseIcon() const;
    void setMouseIcon(const QPixmap& icon);

    /// The settings of a new control; makes the combo its own receiver.
    void InitProperties();
    /// Restores the saved settings, each on its own (an unreadable value leaves that setting
    /// alone), then makes the combo its own receiver.
    void ReadProperties(const PropertyBag& bag);
    /// Saves the settings, each against its default ("Font" always).
    void WriteProperties(PropertyBag& bag) const;

Q_SIGNALS:
    // Raised while the combo is its own receiver.
    void BeforeDropDown();
    void CellComboSelect(int Index, const QString& Value);
    void CellComboClick(const QString& Value);
    void Change();
    void Click();
    void DblClick();
    void KeyDown(short& KeyCode, short& Shift);
    void KeyPress(short& KeyAscii);
    void KeyUp(short& KeyCode, short& Shift);
    void MouseDown(short& Button, short& Shift, float& x, float& y);
    void MouseMove(short& Button, short& Shift, float& x, float& y);
    void MouseUp(short& Button, short& Shift, float& x, float& y);

protected:
    bool handleKeyDown(short keyCode, short shift) override;
    void fieldTextChanged() override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    VEMO_ENUM_PROPERTY(VemoGridLib::AlignmentConstants, Alignment)
    VEMO_ENUM_PROPERTY(VemoGridLib::BorderStyleConstants, BorderStyle)
    VEMO_COLOR_PROPERTY(ForeColor, vbWindowText)
    VEMO_COLOR_PROPERTY(BackColor, 0xFFFFFFu)
    VEMO_GUARDED_WRITE(QString, Text);
    VEMO_ENUM_PROPERTY(VemoGridLib::AppearanceConstants, Appearance)
    VEMO_GUARDED_WRITE(int, MaxLength);
    VEMO_GUARDED_WRITE(bool, ShowHeader);
    VEMO_GUARDED_WRITE(qint16, ListWidth);
    VEMO_GUARDED_WRITE(qint16, VisibleRows);
    VEMO_GUARDED_WRITE(bool, Locked);
    VEMO_GUARDED_WRITE(qint16, SelectCol);
    VEMO_GUARDED_WRITE(bool, HotTracking);
    VEMO_ENUM_PROPERTY(VemoGridLib::Flex::MousePointerSettings, MousePointer)
    VEMO_GUARDED_WRITE(QString, ListHeader);
    VEMO_GUARDED_WRITE(QStringList, Items);

    friend class VemoComboBoxPrivate;
    std::unique_ptr<VemoComboBoxPrivate> d;
};

} // namespace VemoGridLib
