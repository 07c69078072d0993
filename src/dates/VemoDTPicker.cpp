// SPDX-License-Identifier: MIT
// VemoDTPicker: the date text, the drop-down calendar and its keys, and the saved settings.
#include "dates/VemoDTPicker.h"

#include "common/ErrorGuard.h"
#include "common/PropertyBag.h"
#include "common/VbKeys.h"
#include "common/VemoError.h"
#include "dates/VemoCalendar.h"
#include "editors/Column.h"
#include "editors/ICellEventReceiver.h"
#include "editors/VemoArrow.h"
#include "vb/VbDateTime.h"
#include "vb/VbFormat.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QScreen>
#include <QStyle>

#include <algorithm>

namespace VemoGridLib {

namespace {

constexpr OleColor NewSelectColor = 255;
constexpr OleColor NewForeColor = 0;
constexpr OleColor NewBackColor = 0xFFFFFF;
constexpr short ShiftCtrl = 2;
constexpr short ShiftAlt = 4;

bool belongsTo(const QWidget* widget, const QWidget* picker)
{
    // Across window boundaries: the calendar's window is a child window of the picker.
    for (; widget; widget = widget->parentWidget()) {
        if (widget == picker)
            return true;
    }
    return false;
}

} // namespace

/// Watches the whole application while the calendar is open: a press outside the picker and
/// its calendar, and a move, resize or deactivation of the picker's window, close it; the
/// window follows the calendar's size, which the calendar sets itself.
class DropWatch final : public QObject
{
public:
    explicit DropWatch(VemoDTPickerPrivate& picker)
        : d(picker)
    {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    VemoDTPickerPrivate& d;
};

class VemoDTPickerPrivate
{
public:
    explicit VemoDTPickerPrivate(VemoDTPicker* picker)
        : q(picker)
        , watch(*this)
    {}

    /// The date of the text, or an invalid QDateTime when the text is no date.
    QDateTime textDate() const;
    /// `date` as the column's `FormatString` writes it, else as "yyyy-MM-dd".
    QString formatted(const QDateTime& date);
    /// Writes `text` into the field without reporting `Change`.
    void writeQuietly(const QString& text);
    /// Sizes the window to the calendar and puts it under the control, or above it when it
    /// would pass the lower edge of the screen's available area.
    void place();
    void closeUp();
    /// Takes the calendar's date into the text field, closes the calendar and reports
    /// `CellComboClick`.
    void choose();
    /// The calendar's date moved by a key while it is open.
    void step(const QDate& date);
    void changed(const char* name) { Q_EMIT q->PropertyChanged(QString::fromLatin1(name)); }

    VemoDTPicker* q;
    QLineEdit* field = nullptr;
    VemoArrow* button = nullptr;
    QWidget* window = nullptr;
    VemoCalendar* calendar = nullptr;
    std::unique_ptr<Column> ownColumn;
    DropWatch watch;
    OleColor selectColor = NewSelectColor;
    bool lunar = false;
    bool armed = true;
    /// The widget that had the focus when the calendar opened.
    QPointer<QWidget> focusAtOpen;
};

bool DropWatch::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::NonClientAreaMouseButtonPress:
        // Presses reach the window objects too; the widget that gets one decides.
        if (watched->isWidgetType() && !belongsTo(static_cast<QWidget*>(watched), d.q))
            d.closeUp();
        break;
    case QEvent::WindowActivate:
        // A platform that activates every window it shows (offscreen, some compositors) makes
        // the calendar's window the active one: the picker's window gets the activation back,
        // and the widget that had the focus gets it again.
        if (watched == d.window) {
            d.q->window()->activateWindow();
            if (d.focusAtOpen)
                d.focusAtOpen->setFocus();
        }
        break;
    case QEvent::WindowDeactivate: {
        // Only a window outside the picker and its own window taking over closes it.
        const QWidget* const active = QApplication::activeWindow();
        if ((watched == d.q->window() || watched == d.window) && active != d.q->window() &&
            !belongsTo(active, d.q))
            d.closeUp();
        break;
    }
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Hide:
        if (watched == d.q->window())
            d.closeUp();
        else if (watched == d.calendar && event->type() == QEvent::Resize)
            d.place();
        break;
    default:
        break;
    }
    return false;
}

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

void VemoDTPickerPrivate::place()
{
    window->resize(calendar->size());
    const int height = window->height();
    QPoint at = q->mapToGlobal(QPoint(0, q->height()));
    const QScreen* const screen = q->screen() ? q->screen() : QGuiApplication::primaryScreen();
    const QRect area = screen->availableGeometry();
    if (at.y() + height > area.bottom() + 1)
        at.setY(q->mapToGlobal(QPoint(0, 0)).y() - height);
    window->move(at);
}

void VemoDTPickerPrivate::closeUp()
{
    qApp->removeEventFilter(&watch);
    window->hide();
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
    d->field = new QLineEdit(this);
    d->field->setObjectName(QStringLiteral("txtInput"));
    setTextField(d->field);
    d->button = new VemoArrow(this);
    d->button->setDirection(VemoArrow::ArrowDown);
    // The button takes no focus: pressing it leaves the focus (and the keys) in txtInput.
    d->button->setFocusPolicy(Qt::NoFocus);
    setFocusPolicy(Qt::NoFocus);
    connect(d->button, &VemoArrow::Click, this,
            [this] { catchingErrors("VemoDTPicker button", [this] { BeginDropDown(); }); });
    // A tool window of the picker that never takes the focus: txtInput keeps it, so the keys
    // keep coming to the field, and the focus-loss check counts the window as the picker's.
    d->window =
        new QWidget(this, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    d->window->setAttribute(Qt::WA_ShowWithoutActivating);
    d->window->setFocusPolicy(Qt::NoFocus);
    d->calendar = new VemoCalendar(d->window);
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

VemoDTPicker::~VemoDTPicker()
{
    qApp->removeEventFilter(&d->watch);
}

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
    return d->calendar->isVisible();
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
    d->place();
    d->focusAtOpen = QApplication::focusWidget();
    qApp->installEventFilter(&d->watch);
    // A newly shown window comes to the front.
    d->window->show();
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

void VemoDTPicker::changeEvent(QEvent* event)
{
    CellEditor::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        d->changed("Enabled");
    else if (event->type() == QEvent::FontChange)
        d->changed("Font");
}

void VemoDTPicker::resizeEvent(QResizeEvent* event)
{
    CellEditor::resizeEvent(event);
    const int button = std::min(width() / 2, style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    d->field->setGeometry(0, 0, width() - button, height());
    d->button->setGeometry(width() - button, 0, button, height());
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
    d->changed("SelectColor");
}

bool VemoDTPicker::LunarCalendar() const
{
    return d->lunar;
}

void VemoDTPicker::setLunarCalendar(bool lunar)
{
    d->lunar = lunar;
    d->changed("LunarCalendar");
}

void VemoDTPicker::setLocked(bool locked)
{
    CellEditor::setLocked(locked);
    d->changed("Locked");
}

void VemoDTPicker::setBorderStyle(int style)
{
    CellEditor::setBorderStyle(style);
    d->changed("BorderStyle");
}

void VemoDTPicker::setAppearance(int appearance)
{
    CellEditor::setAppearance(appearance);
    d->changed("Appearance");
}

void VemoDTPicker::setBackColor(OleColor color)
{
    CellEditor::setBackColor(color);
    d->changed("BackColor");
}

void VemoDTPicker::setForeColor(OleColor color)
{
    CellEditor::setForeColor(color);
    d->changed("ForeColor");
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
