// SPDX-License-Identifier: MIT
// VemoDTPicker: the date text, the drop-down calendar and its keys, and the saved settings.
#include "dates/VemoDTPicker.h"

#include "common/ErrorGuard.h"
#include "common/PropertyBag.h"
#include "common/VbKeys.h"
#include "common/VemoError.h"
#include "dates/VemoCalendar.h"
#include "editors/Column.h"
#include "editors/DropDownWindow_p.h"
#include "editors/ICellEventReceiver.h"
#include "editors/VemoArrow.h"
#include "vb/VbDateTime.h"
#include "vb/VbFormat.h"

#include <QApplication>
#include <QLineEdit>

namespace VemoGridLib {

namespace {

constexpr OleColor NewSelectColor = 255;
constexpr OleColor NewForeColor = 0;
constexpr OleColor NewBackColor = 0xFFFFFF;
constexpr short ShiftCtrl = 2;
constexpr short ShiftAlt = 4;

} // namespace

class VemoDTPickerPrivate
{
public:
    explicit VemoDTPickerPrivate(VemoDTPicker* picker)
        : q(picker)
        , drop(picker, [this] { closeUp(); })
    {
        // Handing the activation back keeps the picker's window active while the calendar is
        // open, and the focus where it was.
        drop.returnActivation();
    }

    /// The date of the text, or an invalid QDateTime when the text is no date.
    QDateTime textDate() const;
    /// `date` as the column's `FormatString` writes it, else as "yyyy-MM-dd".
    QString formatted(const QDateTime& date);
    /// Writes `text` into the field without reporting `Change`.
    void writeQuietly(const QString& text);
    void closeUp();
    /// Takes the calendar's date into the text field, closes the calendar and reports
    /// `CellComboClick`.
    void choose();
    /// The calendar's date moved by a key while it is open.
    void step(const QDate& date);

    VemoDTPicker* q;
    DropDownWindow drop;
    QLineEdit* const field = drop.field();
    VemoCalendar* calendar = nullptr;
    std::unique_ptr<Column> ownColumn;
    OleColor selectColor = NewSelectColor;
    bool lunar = false;
    bool armed = true;
};

QDateTime VemoDTPickerPrivate::textDate() const
{
    const QString text = field->text();
    return vb::IsDate(text) ? vb::CDate(text) : QDateTime();
}

QString VemoDTPickerPrivate::formatted(const QDateTime& date)
{
    const QString format = q->dateColumn()->FormatString();
    return vb::Format(date, format.isEmpty() ? QStringLiteral("yyyy-MM-dd") : format);
}

void VemoDTPickerPrivate::writeQuietly(const QString& text)
{
    armed = false;
    field->setText(text);
    armed = true;
}

void VemoDTPickerPrivate::closeUp()
{
    drop.hide();
}

void VemoDTPickerPrivate::choose()
{
    const QString text = formatted(QDateTime(calendar->Value(), QTime(0, 0), Qt::UTC));
    field->setFocus();
    field->setText(text);
    field->selectAll();
    closeUp();
    q->report("VemoDTPicker CellComboClick",
              [&](ICellEventReceiver& host) { host.CellComboClick(text); });
}

void VemoDTPickerPrivate::step(const QDate& date)
{
    calendar->setValue(date);
    calendar->Refresh();
}

// ---- the control ----------------------------------------------------------------------------

VemoDTPicker::VemoDTPicker(QWidget* parent)
    : CellEditor(parent)
    , d(std::make_unique<VemoDTPickerPrivate>(this))
{
    setTextField(d->field);
    connect(d->drop.button(), &VemoArrow::Click, this,
            [this] { catchingErrors("VemoDTPicker button", [this] { BeginDropDown(); }); });
    d->calendar = new VemoCalendar(d->drop.window());
    // The window takes the calendar's size, which the calendar sets itself.
    d->drop.follow(d->calendar);
    d->calendar->setObjectName(QStringLiteral("CC"));
    // Nothing in the window takes the focus, the calendar's arrow buttons neither: keys for
    // the calendar come through txtInput.
    d->calendar->setFocusPolicy(Qt::NoFocus);
    for (QWidget* const part : d->calendar->findChildren<QWidget*>())
        part->setFocusPolicy(Qt::NoFocus);
    connect(d->calendar, &VemoCalendar::Click, this,
            [this] { catchingErrors("VemoDTPicker calendar click", [this] { d->choose(); }); });
    connect(this, &CellEditor::LostFocus, this, [this] { d->closeUp(); });
    InitProperties();
}

VemoDTPicker::~VemoDTPicker() = default;

bool VemoDTPicker::Validate()
{
    const QString trimmed = Text().trimmed();
    d->writeQuietly(trimmed);
    const QDateTime date = d->textDate();
    if (trimmed.isEmpty() || !date.isValid())
        return false;
    d->writeQuietly(d->formatted(date));
    return true;
}

QVariant VemoDTPicker::Value() const
{
    const QDateTime date = d->textDate();
    return date.isValid() ? QVariant(date) : QVariant();
}

void VemoDTPicker::setValue(const QVariant& value)
{
    QDateTime date;
    switch (value.metaType().id()) {
    case QMetaType::QDateTime:
        date = value.toDateTime();
        break;
    case QMetaType::QDate:
        date = QDateTime(value.toDate(), QTime(0, 0), Qt::UTC);
        break;
    case QMetaType::QString:
        if (vb::IsDate(value.toString()))
            date = vb::CDate(value.toString());
        break;
    default:
        break;
    }
    d->writeQuietly(date.isValid() ? d->formatted(date) : QString());
}

bool VemoDTPicker::IsDropDown() const
{
    return d->drop.isOpen();
}

Column* VemoDTPicker::dateColumn()
{
    if (VemoGridLib::Column* const hosts = Column())
        return hosts;
    if (!d->ownColumn)
        d->ownColumn = std::make_unique<VemoGridLib::Column>();
    return d->ownColumn.get();
}

VemoCalendar* VemoDTPicker::calendar() const
{
    return d->calendar;
}

void VemoDTPicker::BeginDropDown()
{
    if (!d->field->isEnabled())
        return;
    if (IsDropDown()) {
        d->closeUp();
        return;
    }
    const quint64 loads = loadCount();
    report("VemoDTPicker BeforeDropDown", [](ICellEventReceiver& host) { host.BeforeDropDown(); });
    // The receiver may have moved the editor on meanwhile.
    if (loadCount() != loads)
        return;
    const QDateTime date = d->textDate();
    VemoCalendar& calendar = *d->calendar;
    calendar.setValue(date.isValid() ? date.date() : QDate::currentDate());
    calendar.setSelectColor(d->selectColor);
    calendar.setBackColor(BackColor());
    calendar.setForeColor(ForeColor());
    calendar.setLunarCalendar(d->lunar);
    d->drop.placeUnder(calendar.size());
    d->drop.show();
}

bool VemoDTPicker::handleKeyDown(short keyCode, short shift)
{
    bool swallowed = true;
    catchingErrors("VemoDTPicker KeyDown", [&] {
        if (keyCode == vbKeyF4 || (keyCode == vbKeyDown && shift == ShiftAlt && !IsDropDown())) {
            BeginDropDown();
            return;
        }
        const QDate date = d->calendar->Value();
        const bool plain = shift == 0;
        if (!IsDropDown()) {
            swallowed = false;
        } else if (keyCode == vbKeyReturn) {
            d->choose();
        } else if (keyCode == vbKeyEscape && plain) {
            d->closeUp();
            d->field->setFocus();
        } else if ((keyCode == vbKeyUp || keyCode == vbKeyDown) && plain) {
            d->step(date.addDays(keyCode == vbKeyUp ? -7 : 7));
        } else if ((keyCode == vbKeyLeft || keyCode == vbKeyRight) && plain) {
            d->step(date.addDays(keyCode == vbKeyLeft ? -1 : 1));
        } else if ((keyCode == vbKeyPageUp || keyCode == vbKeyPageDown) &&
                   (plain || shift == ShiftCtrl)) {
            const int sign = keyCode == vbKeyPageUp ? -1 : 1;
            d->step(plain ? date.addMonths(sign) : date.addYears(sign));
        } else if ((keyCode == vbKeyHome || keyCode == vbKeyEnd) && plain) {
            const QDate first(date.year(), date.month(), 1);
            d->step(keyCode == vbKeyHome ? first : first.addMonths(1).addDays(-1));
        } else {
            swallowed = false;
        }
    });
    return swallowed;
}

void VemoDTPicker::filterKeyPress(short& keyAscii)
{
    const bool kept = keyAscii == vbKeyBack || (keyAscii >= '0' && keyAscii <= '9') ||
                      keyAscii == '-' || keyAscii == '/';
    if (!kept)
        keyAscii = 0;
}

void VemoDTPicker::fieldTextChanged()
{
    if (d->armed)
        report("VemoDTPicker Change", [](ICellEventReceiver& host) { host.Change(); });
}

void VemoDTPicker::resizeEvent(QResizeEvent* event)
{
    CellEditor::resizeEvent(event);
    d->drop.layOut();
}

void VemoDTPicker::hideEvent(QHideEvent* event)
{
    d->closeUp();
    CellEditor::hideEvent(event);
}

// ---- settings ---------------------------------------------------------------------------------

OleColor VemoDTPicker::SelectColor() const
{
    return d->selectColor;
}

void VemoDTPicker::setSelectColor(OleColor color)
{
    d->selectColor = color;
    changed("SelectColor");
}

bool VemoDTPicker::LunarCalendar() const
{
    return d->lunar;
}

void VemoDTPicker::setLunarCalendar(bool lunar)
{
    d->lunar = lunar;
    changed("LunarCalendar");
}

void VemoDTPicker::InitProperties()
{
    setEnabled(true);
    setLocked(false);
    setBorderStyle(1);
    setAppearance(1);
    setSelectColor(NewSelectColor);
    setForeColor(NewForeColor);
    setBackColor(NewBackColor);
    setLunarCalendar(false);
}

void VemoDTPicker::ReadProperties(const PropertyBag& bag)
{
    const auto read = [&bag](const char* name, const QVariant& defaultValue, auto&& apply) {
        readSetting(bag, "VemoDTPicker ReadProperties", name, defaultValue, apply);
    };
    const auto number = savedNumber;
    const QWidget* const container = parentWidget();
    read("Enabled", true, [&](const QVariant& v) { setEnabled(number(v) != 0); });
    read("Locked", false, [&](const QVariant& v) { setLocked(number(v) != 0); });
    read("BorderStyle", 1, [&](const QVariant& v) { setBorderStyle(int(number(v))); });
    read("Appearance", 1, [&](const QVariant& v) { setAppearance(int(number(v))); });
    read("SelectColor", NewSelectColor,
         [&](const QVariant& v) { setSelectColor(OleColor(number(v))); });
    read("ForeColor", NewForeColor, [&](const QVariant& v) { setForeColor(OleColor(number(v))); });
    read("BackColor", NewBackColor, [&](const QVariant& v) { setBackColor(OleColor(number(v))); });
    read("Font", container ? container->font() : QApplication::font(), [&](const QVariant& v) {
        if (v.metaType().id() == QMetaType::QFont)
            setFont(qvariant_cast<QFont>(v));
    });
    read("LunarCalendar", false, [&](const QVariant& v) { setLunarCalendar(number(v) != 0); });
}

void VemoDTPicker::WriteProperties(PropertyBag& bag) const
{
    const auto write = [&bag](const char* name, const QVariant& value, const QVariant& saved) {
        writeSetting(bag, "VemoDTPicker WriteProperties", name, value, saved);
    };
    write("Enabled", isEnabled(), true);
    write("Locked", Locked(), false);
    write("BorderStyle", BorderStyle(), 1);
    write("Appearance", Appearance(), 1);
    write("SelectColor", d->selectColor, NewSelectColor);
    write("ForeColor", ForeColor(), NewForeColor);
    write("BackColor", BackColor(), NewBackColor);
    write("Font", font(), QVariant());
    write("LunarCalendar", d->lunar, false);
}

} // namespace VemoGridLib
