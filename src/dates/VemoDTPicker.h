// SPDX-License-Identifier: MIT
// The date editor: a text field holding a date, with a month calendar that drops down.
#pragma once

#include <VemoGridLib/CellEditor.h>
#include <VemoGridLib/PropertyTypes.h>
#include <VemoGridLib/VemoEnums.h>

#include <memory>

namespace VemoGridLib {

class PropertyBag;
class VemoCalendar;
class VemoDTPickerPrivate;

/// The editor of `eCalendar` cells (`VemoDTPicker1`), also a control of its own on a form: the
/// text field `txtInput` holding a date as text, a drop button at its right end, and the month
/// calendar `CC` (a `VemoCalendar`) in a window of its own that never takes the focus, so the
/// keys keep coming to `txtInput` while the calendar is open.
///
/// Only Backspace, digits, '-' and '/' can be typed. The date text is written with the
/// `FormatString` of the column, else as "yyyy-MM-dd". The calendar opens with the drop button,
/// F4 or Alt+Down (unless the receiver zeroed the key in `KeyDown`, as a grid does that scrolls
/// on Alt+Down); while it is open the arrow keys move by a day or a week, Page Up and Page Down
/// by a month (with Ctrl by a year), Home and End go to the month's first and last day, Enter
/// or a click on a day takes the date into the text field (reported as `CellComboClick`) and
/// Esc closes it. A press outside the picker and its calendar, the focus leaving the picker,
/// and a move or deactivation of the picker's window close it too.
///
/// Every input is reported to the receiver first; standing alone (no receiver) the picker
/// raises no events of its own. `PropertyChanged` names each saved setting a setter changed.
class VEMOGRIDLIB_EXPORT VemoDTPicker : public CellEditor
{
    Q_OBJECT
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(VemoGridLib::BorderStyleConstants BorderStyle READ enumBorderStyle WRITE
                   guardedSetEnumBorderStyle)
    Q_PROPERTY(VemoGridLib::AppearanceConstants Appearance READ enumAppearance WRITE
                   guardedSetEnumAppearance)
    Q_PROPERTY(QColor SelectColor READ colorSelectColor WRITE guardedSetColorSelectColor RESET
                   resetColorSelectColor)
    Q_PROPERTY(QColor ForeColor READ colorForeColor WRITE guardedSetColorForeColor RESET
                   resetColorForeColor)
    Q_PROPERTY(QColor BackColor READ colorBackColor WRITE guardedSetColorBackColor RESET
                   resetColorBackColor)
    Q_PROPERTY(bool LunarCalendar READ LunarCalendar WRITE setLunarCalendar)
    Q_PROPERTY(
        VemoGridLib::AlignmentConstants Alignment READ enumAlignment WRITE guardedSetEnumAlignment)
    Q_PROPERTY(int MaxLength READ MaxLength WRITE setMaxLength)
    Q_PROPERTY(QString Text READ Text WRITE setText)
    Q_PROPERTY(QVariant Value READ Value WRITE setValue)

public:
    explicit VemoDTPicker(QWidget* parent = nullptr);
    ~VemoDTPicker() override;

    /// Trims the text and writes it back; a date is reformatted and accepted, anything else,
    /// an empty text too, is refused.
    bool Validate() override;
    /// The date of the text (a QDateTime, as the VB runtime carries dates), or a null QVariant
    /// when the text is no date.
    QVariant Value() const override;
    /// Null empties the text; a QDate, QDateTime or date text is written formatted; anything
    /// else empties the text. Reports no `Change`.
    void setValue(const QVariant& value) override;
    /// True while the calendar is shown.
    bool IsDropDown() const override;

    /// The `Column` whose `FormatString` formats the date: the one the host assigned, else the
    /// picker's own (created on this first call and kept).
    VemoGridLib::Column* dateColumn();
    /// The drop-down calendar `CC`.
    VemoCalendar* calendar() const;

    /// When the text field is enabled: closes the open calendar, else reports `BeforeDropDown`
    /// and opens it on the date of the text (today when the text is no date), under the
    /// control or above it when it would pass the screen's lower edge.
    void BeginDropDown();

    /// Colour of the ring around the selected day, handed to the calendar when it opens.
    OleColor SelectColor() const;
    void setSelectColor(OleColor color);
    /// Lunar texts in the calendar, handed to it when it opens (a grid passes its own).
    bool LunarCalendar() const;
    void setLunarCalendar(bool lunar) override;

    /// The settings of a new control.
    void InitProperties();
    /// Restores the saved settings, each on its own (an unreadable value leaves that setting
    /// alone).
    void ReadProperties(const PropertyBag& bag);
    /// Saves the settings, each against its default ("Font" always).
    void WriteProperties(PropertyBag& bag) const;

protected:
    bool handleKeyDown(short keyCode, short shift) override;
    void filterKeyPress(short& keyAscii) override;
    void fieldTextChanged() override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    VEMO_ENUM_PROPERTY(VemoGridLib::BorderStyleConstants, BorderStyle)
    VEMO_ENUM_PROPERTY(VemoGridLib::AppearanceConstants, Appearance)
    VEMO_ENUM_PROPERTY(VemoGridLib::AlignmentConstants, Alignment)
    VEMO_COLOR_PROPERTY(SelectColor, OleColor(255))
    VEMO_COLOR_PROPERTY(ForeColor, OleColor(0))
    VEMO_COLOR_PROPERTY(BackColor, 0xFFFFFFu)

    friend class VemoDTPickerPrivate;
    std::unique_ptr<VemoDTPickerPrivate> d;
};

} // namespace VemoGridLib
