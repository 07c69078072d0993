// SPDX-License-Identifier: MIT
// The month calendar: its drawing in twips, the day under a click, the arrow steps and the
// saved settings.
#include "dates/VemoCalendar.h"

#include "common/Locale.h"
#include "common/PropertyBag.h"
#include "common/Twips.h"
#include "common/VbKeys.h"
#include "common/VemoEnums.h"
#include "common/VemoError.h"
#include "dates/VemoCalendar_p.h"
#include "dates/clsDate.h"
#include "editors/VemoArrow.h"
#include "vb/VbDateTime.h"
#include "vb/VbFormat.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <array>
#include <cmath>

namespace VemoGridLib {

namespace {

constexpr OleColor NewSelectColor = 255;
constexpr OleColor NewBackColor = 0xFFFFFF;
constexpr OleColor NewForeColor = 0;
constexpr OleColor SundayColor = 255;
constexpr OleColor SaturdayColor = 0xFF0000;
constexpr OleColor LineColor = 8684164;
constexpr OleColor ArrowBackColor = 14610415;

// Surface geometry in twips.
constexpr int SurfaceWidth = 2800;
constexpr int LunarHeight = 2500;
constexpr int PlainHeight = 1900;
constexpr int HeaderTop = 50;
constexpr int WeekdayTop = 350;
constexpr int LineTop = 600;
constexpr int FirstRowTop = 650;
constexpr int ColumnWidth = 380;
constexpr int LunarRowHeight = 300;
constexpr int PlainRowHeight = 200;
constexpr int LunarTextOffset = 180;
constexpr double LunarPoints = 7.5;

// The days the lunar engine's tables describe with a lunar day of their own.
const QDate LunarFirst(1900, 1, 31);
const QDate LunarLast(2100, 12, 31);

/// One arrow button: its place in twips, its arrow, and its step.
struct ArrowPlace
{
    int left, top, width, height;
    VemoArrow::ArrowDirection direction;
    int years, months;
};

// Year steps at the outer edges read as back and forward; month steps sit in the middle one
// above the other, up for the next month as on a spin box.
constexpr std::array<ArrowPlace, 4> ArrowPlaces{{
    {20, 30, 250, 220, VemoArrow::ArrowLeft, -1, 0},
    {2500, 30, 250, 220, VemoArrow::ArrowRight, 1, 0},
    {1200, 30, 300, 120, VemoArrow::ArrowUp, 0, 1},
    {1200, 150, 300, 120, VemoArrow::ArrowDown, 0, -1},
}};

/// The control's font at `points`, sized in twips for a painter that draws in twips.
QFont twipsFont(QFont font, double points)
{
    font.setPixelSize(qMax(1, qRound(points * 20)));
    return font;
}

/// A saved "Value": a date, or the day serial the date is written as.
QDate savedDate(const QVariant& value)
{
    switch (value.metaType().id()) {
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        return value.toDate();
    default:
        bool ok = false;
        const double serial = value.toDouble(&ok);
        if (!ok)
            throw VemoError::typeMismatch();
        return vb::SerialToDate(serial).date();
    }
}

double pointsOf(const QFont& font, int dpi)
{
    return font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * 72.0 / dpi;
}

} // namespace

QString calendarMonthName(int month, LanguageIndex language)
{
    if (language == SimplifiedChinese)
        return QStringView(u"一月二月三月四月五月六月七月八月九月十月十一十二")
            .mid((month - 1) * 2, 2)
            .toString();
    if (language == TraditionalChinese) {
        static constexpr std::array<QStringView, 12> names{u"一月", u"二月", u"三月",   u"四月",
                                                           u"五月", u"六月", u"七月",   u"八月",
                                                           u"九月", u"十月", u"十一月", u"十二月"};
        return names.at(month - 1).toString();
    }
    return vb::Format(QDateTime(QDate(2000, month, 1), QTime(0, 0), Qt::UTC),
                      QStringLiteral("mmmm"));
}

QString calendarWeekdayName(int column, LanguageIndex language)
{
    if (language == English)
        return QStringView(u"SunMonTueWenThuFriSat").mid((column - 1) * 3, 3).toString();
    return QStringView(u"日一二三四五六").mid(column - 1, 1).toString();
}

class VemoCalendarPrivate
{
public:
    explicit VemoCalendarPrivate(VemoCalendar* owner)
        : q(owner)
    {}

    /// The month of `value`: its first day, its length and the weekday of its first day
    /// (1 Sunday .. 7 Saturday).
    QDate first() const { return QDate(value.year(), value.month(), 1); }
    int firstWeekday() const { return first().dayOfWeek() % 7 + 1; }
    int rowHeight() const { return lunar ? LunarRowHeight : PlainRowHeight; }
    void changed(const char* name) { Q_EMIT q->PropertyChanged(QString::fromLatin1(name)); }

    void applySize();
    void placeArrows();
    void paint(QPainter& painter);

    VemoCalendar* const q;
    QDate value = QDate::currentDate();
    OleColor selectColor = NewSelectColor;
    bool lunar = false;
    OleColor backColor = NewBackColor;
    OleColor foreColor = NewForeColor;
    int borderStyle = 0;
    int appearance = ThreeD;
    std::unique_ptr<clsDate> engine;
    std::array<VemoArrow*, 4> arrows{};
};

void VemoCalendarPrivate::applySize()
{
    const bool tall = lunar && languageIndex() != English;
    q->setFixedSize(twipsToPixelsX(SurfaceWidth, q),
                    twipsToPixelsY(tall ? LunarHeight : PlainHeight, q));
}

void VemoCalendarPrivate::placeArrows()
{
    for (std::size_t i = 0; i < arrows.size(); ++i) {
        const ArrowPlace& place = ArrowPlaces[i];
        arrows[i]->setBackColor(ArrowBackColor);
        arrows[i]->setGeometry(twipsToPixelsX(place.left, q), twipsToPixelsY(place.top, q),
                               twipsToPixelsX(place.width, q), twipsToPixelsY(place.height, q));
    }
}

QString calendarLunarText(clsDate& engine, const QDate& day)
{
    if (day < LunarFirst || day > LunarLast)
        return {};
    const auto init = [&] {
        engine.sInitDate(day.year(), day.month(), day.day());
    };
    init();
    QString text = engine.lHoliday();
    if (!text.isEmpty())
        return text;
    init(); // lHoliday may have left the engine on the following day
    text = engine.lSolarTerm();
    if (text.isEmpty())
        text =
            engine.lDay() == 1 ? engine.CMonthStr(engine.lMonth()) : engine.CDayStr(engine.lDay());
    return text;
}

void VemoCalendarPrivate::paint(QPainter& painter)
{
    const QPalette& palette = q->palette();
    painter.fillRect(q->rect(), toQColor(backColor, palette));
    if (borderStyle == 1) {
        painter.setPen(toQColor(foreColor, palette));
        painter.drawRect(q->rect().adjusted(0, 0, -1, -1));
    }
    // From here on the coordinates are twips, as the layout is written.
    painter.scale(q->logicalDpiX() / 1440.0, q->logicalDpiY() / 1440.0);
    const double width = q->width() * twipsPerPixelX(q);
    const double points = pointsOf(q->font(), q->logicalDpiY());
    const QFont font = twipsFont(q->font(), points);
    const QFont lunarFont = twipsFont(q->font(), LunarPoints);
    const QFontMetricsF metrics(font);
    const QFontMetricsF lunarMetrics(lunarFont);
    // Text is placed by its top edge, like printing at a current position.
    const auto print = [&](const QFontMetricsF& m, double x, double y, const QString& text,
                           OleColor color) {
        painter.setFont(&m == &lunarMetrics ? lunarFont : font);
        painter.setPen(toQColor(color, palette));
        painter.drawText(QPointF(x, y + m.ascent()), text);
    };

    const LanguageIndex language = languageIndex();
    const QString year = QString::number(value.year());
    print(metrics, width / 2 - metrics.horizontalAdvance(year) - 190, HeaderTop, year, foreColor);
    print(metrics, width / 2 + 130, HeaderTop, calendarMonthName(value.month(), language),
          foreColor);

    if (language == English && lunar) {
        // No lunar texts in English: the flag is cleared, and saved cleared.
        lunar = false;
        changed("LunarCalendar");
    }
    const auto dayColor = [](int column) {
        return column == 1 ? SundayColor : column == 7 ? SaturdayColor : OleColor(0);
    };
    for (int column = 1; column <= 7; ++column) {
        const QString name = calendarWeekdayName(column, language);
        print(metrics, (column - 1) * ColumnWidth + 350 - metrics.horizontalAdvance(name),
              WeekdayTop, name, dayColor(column));
    }

    painter.setPen(QPen(toQColor(LineColor, palette), 0));
    painter.drawLine(QPointF(50, LineTop), QPointF(width - 100, LineTop));

    const int firstWeekday = this->firstWeekday();
    const int days = first().daysInMonth();
    if (lunar && !engine)
        engine = std::make_unique<clsDate>();
    int row = 0;
    for (int day = 1; day <= days; ++day) {
        const QString lunarName =
            lunar ? calendarLunarText(*engine, QDate(value.year(), value.month(), day)) : QString();
        const int column = (day - 1 + firstWeekday) % 7 == 0 ? 7 : (day - 1 + firstWeekday) % 7;
        OleColor color = dayColor(column);
        const double x = (column - 1) * ColumnWidth + 200;
        const double y = row * rowHeight() + FirstRowTop;
        const QString number = QString::number(day);
        if (day == value.day()) {
            // A filled ring, so the day printed in white stays readable inside it.
            painter.save();
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(toQColor(selectColor, palette));
            if (lunar)
                painter.drawEllipse(QPointF(x, y + LunarTextOffset), 240.0, 240.0 * 2 / 3);
            else
                painter.drawEllipse(QPointF(x, y + metrics.height() / 2), 200.0, 200.0 * 5 / 12);
            painter.restore();
            color = 0xFFFFFF;
        }
        print(metrics, x - metrics.horizontalAdvance(number) - (day < 10 ? 50 : 0), y, number,
              color);
        if (lunar) {
            print(lunarMetrics, x - lunarMetrics.horizontalAdvance(lunarName) / 2,
                  y + LunarTextOffset, lunarName, color);
        }
        if (column == 7)
            ++row;
    }
}

VemoCalendar::VemoCalendar(QWidget* parent)
    : QWidget(parent)
    , d(std::make_unique<VemoCalendarPrivate>(this))
{
    setFocusPolicy(Qt::StrongFocus);
    for (std::size_t i = 0; i < d->arrows.size(); ++i) {
        auto* const arrow = new VemoArrow(this);
        const ArrowPlace& place = ArrowPlaces[i];
        arrow->setObjectName(QStringLiteral("CA%1").arg(i + 1));
        arrow->setDirection(place.direction);
        arrow->setAppearance(d->appearance);
        connect(arrow, &VemoArrow::Click, this, [this, place] {
            const QDate stepped = d->value.addYears(place.years).addMonths(place.months);
            setValue(stepped);
        });
        connect(arrow, &VemoArrow::KeyDown, this,
                [this](short& keyCode, short& shift) { Q_EMIT KeyDown(keyCode, shift); });
        d->arrows[i] = arrow;
    }
    d->applySize();
    d->placeArrows();
}

VemoCalendar::~VemoCalendar() = default;

QDate VemoCalendar::Value() const
{
    return d->value;
}

void VemoCalendar::setValue(const QDate& value)
{
    if (!value.isValid())
        return;
    d->value = value;
    d->changed("Value");
    update();
}

OleColor VemoCalendar::SelectColor() const
{
    return d->selectColor;
}

void VemoCalendar::setSelectColor(OleColor color)
{
    d->selectColor = color;
    d->changed("SelectColor");
    update();
}

bool VemoCalendar::LunarCalendar() const
{
    return d->lunar;
}

void VemoCalendar::setLunarCalendar(bool lunar)
{
    d->lunar = lunar;
    d->changed("LunarCalendar");
    d->applySize(); // the tall rows need the tall surface
    update();
}

OleColor VemoCalendar::BackColor() const
{
    return d->backColor;
}

void VemoCalendar::setBackColor(OleColor color)
{
    d->backColor = color;
    d->changed("BackColor");
    update();
}

OleColor VemoCalendar::ForeColor() const
{
    return d->foreColor;
}

void VemoCalendar::setForeColor(OleColor color)
{
    d->foreColor = color;
    d->changed("ForeColor");
    update();
}

int VemoCalendar::BorderStyle() const
{
    return d->borderStyle;
}

void VemoCalendar::setBorderStyle(int style)
{
    d->borderStyle = style;
    d->changed("BorderStyle");
    update();
}

int VemoCalendar::Appearance() const
{
    return d->appearance;
}

void VemoCalendar::setAppearance(int appearance)
{
    d->appearance = appearance;
    for (VemoArrow* arrow : d->arrows)
        arrow->setAppearance(appearance);
    d->changed("Appearance");
    update();
}

void VemoCalendar::Refresh()
{
    update();
}

QDate VemoCalendar::dayAt(QPoint twips) const
{
    if (twips.y() < FirstRowTop)
        return {};
    const int column = int(std::floor((twips.x() - 150) / double(ColumnWidth)));
    const int row = (twips.y() - FirstRowTop) / d->rowHeight();
    const int firstWeekday = d->firstWeekday();
    // Left of the first column a later row gives the day before its Sunday, and the rows run
    // on below the month: only the day numbers outside the month are refused.
    int day = 0;
    if (row != 0)
        day = row * 7 + column + 1 - (firstWeekday - 1);
    else if (column + 1 >= firstWeekday)
        day = column + 2 - firstWeekday;
    if (day < 1 || day > d->first().daysInMonth())
        return {};
    return QDate(d->value.year(), d->value.month(), day);
}

void VemoCalendar::InitProperties()
{
    setValue(QDate::currentDate());
    setSelectColor(NewSelectColor);
    setLunarCalendar(false);
    setBackColor(NewBackColor);
    setForeColor(NewForeColor);
    setEnabled(true);
    setFont(QFont()); // the container's font again
    setBorderStyle(0);
    setAppearance(ThreeD);
}

void VemoCalendar::ReadProperties(const PropertyBag& bag)
{
    const auto read = [&bag](const char* name, const QVariant& defaultValue, auto&& apply) {
        readSetting(bag, "VemoCalendar ReadProperties", name, defaultValue, apply);
    };
    const auto number = savedNumber;
    const QWidget* const container = parentWidget();
    read("Value", QDate::currentDate(), [&](const QVariant& v) { setValue(savedDate(v)); });
    read("SelectColor", NewSelectColor,
         [&](const QVariant& v) { setSelectColor(OleColor(number(v))); });
    read("LunarCalendar", false, [&](const QVariant& v) { setLunarCalendar(number(v) != 0); });
    read("BackColor", NewBackColor, [&](const QVariant& v) { setBackColor(OleColor(number(v))); });
    read("ForeColor", NewForeColor, [&](const QVariant& v) { setForeColor(OleColor(number(v))); });
    read("Enabled", true, [&](const QVariant& v) { setEnabled(number(v) != 0); });
    read("Font", container ? container->font() : QApplication::font(), [&](const QVariant& v) {
        if (v.metaType().id() == QMetaType::QFont)
            setFont(qvariant_cast<QFont>(v));
    });
    read("BorderStyle", 0, [&](const QVariant& v) { setBorderStyle(int(number(v))); });
    read("Appearance", int(ThreeD), [&](const QVariant& v) { setAppearance(int(number(v))); });
}

void VemoCalendar::WriteProperties(PropertyBag& bag) const
{
    const auto write = [&bag](const char* name, const QVariant& value, const QVariant& saved) {
        writeSetting(bag, "VemoCalendar WriteProperties", name, value, saved);
    };
    // "today" moves on, so the date is always written, as its day serial like any VB date.
    write("Value", vb::DateToSerial(d->value.startOfDay(Qt::UTC)), QVariant());
    write("SelectColor", d->selectColor, NewSelectColor);
    write("LunarCalendar", d->lunar, false);
    write("BackColor", d->backColor, NewBackColor);
    write("ForeColor", d->foreColor, NewForeColor);
    write("Enabled", isEnabled(), true);
    write("Font", font(), QVariant());
    write("BorderStyle", d->borderStyle, 0);
    write("Appearance", d->appearance, int(ThreeD));
}

void VemoCalendar::paintEvent(QPaintEvent*)
{
    catchingErrors("VemoCalendar Paint", [this] {
        QPainter painter(this);
        d->paint(painter);
    });
}

void VemoCalendar::resizeEvent(QResizeEvent*)
{
    catchingErrors("VemoCalendar Resize", [this] {
        d->applySize();
        d->placeArrows();
    });
}

void VemoCalendar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPointF twips(event->position().x() * twipsPerPixelX(this),
                        event->position().y() * twipsPerPixelY(this));
    if (twips.y() < FirstRowTop)
        return;
    catchingErrors("VemoCalendar MouseDown", [&] {
        const QDate day = dayAt(QPoint(int(std::floor(twips.x())), int(std::floor(twips.y()))));
        if (day.isValid())
            setValue(day);
        update();
    });
}

void VemoCalendar::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !rect().contains(event->position().toPoint()))
        return;
    catchingErrors("VemoCalendar Click", [this] {
        setValue(d->value);
        Q_EMIT Click();
    });
}

void VemoCalendar::keyPressEvent(QKeyEvent* event)
{
    short keyCode = vbKeyCode(event);
    if (keyCode == 0)
        return;
    short shift = vbShiftMask(event->modifiers());
    catchingErrors("VemoCalendar KeyDown", [&] { Q_EMIT KeyDown(keyCode, shift); });
}

} // namespace VemoGridLib
