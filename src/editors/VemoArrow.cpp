// SPDX-License-Identifier: MIT
// The arrow button: its saved settings, its drawing and its own events.
#include "editors/VemoArrow.h"

#include "common/ErrorGuard.h"
#include "common/PropertyBag.h"
#include "common/Twips.h"
#include "common/VbKeys.h"
#include "common/VemoEnums.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>

namespace VemoGridLib {

namespace {

constexpr OleColor NewBackColor = 0xFFFFFF;
constexpr OleColor NewBorderColor = 4924424;
constexpr OleColor NewHoverColor = 11904668;

/// Reads `name` with its default and hands the value to `apply` when it converts; a value of
/// the wrong kind leaves the setting as it was.
template <typename Apply>
void readSetting(const PropertyBag& bag, const char* name, const QVariant& defaultValue,
                 Apply&& apply)
{
    catchingErrors("VemoArrow ReadProperties", [&] {
        const QVariant value = bag.ReadProperty(QString::fromLatin1(name), defaultValue);
        bool ok = false;
        const qlonglong number = value.toLongLong(&ok); // a bool reads as 1 or 0
        if (ok)
            apply(number);
    });
}

QStyle::PrimitiveElement arrowOf(int direction)
{
    switch (direction) {
    case VemoArrow::ArrowDown:
        return QStyle::PE_IndicatorArrowDown;
    case VemoArrow::ArrowLeft:
        return QStyle::PE_IndicatorArrowLeft;
    case VemoArrow::ArrowRight:
        return QStyle::PE_IndicatorArrowRight;
    default:
        return QStyle::PE_IndicatorArrowUp;
    }
}

} // namespace

VemoArrow::VemoArrow(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

VemoArrow::~VemoArrow() = default;

OleColor VemoArrow::ForeColor() const
{
    return m_foreColor;
}

void VemoArrow::setForeColor(OleColor color)
{
    m_foreColor = color;
    update();
}

bool VemoArrow::Enabled() const
{
    return isEnabled();
}

int VemoArrow::BorderStyle() const
{
    return m_borderStyle;
}

void VemoArrow::setBorderStyle(int style)
{
    m_borderStyle = style;
    update();
}

int VemoArrow::Appearance() const
{
    return m_appearance;
}

void VemoArrow::setAppearance(int appearance)
{
    m_appearance = appearance;
    update();
}

int VemoArrow::Direction() const
{
    return m_direction;
}

void VemoArrow::setDirection(int direction)
{
    m_direction = direction;
    update();
}

OleColor VemoArrow::BackColor() const
{
    return m_backColor;
}

void VemoArrow::setBackColor(OleColor color)
{
    m_backColor = color;
    update();
}

OleColor VemoArrow::BorderColor() const
{
    return m_borderColor;
}

void VemoArrow::setBorderColor(OleColor color)
{
    m_borderColor = color;
    update();
}

OleColor VemoArrow::HoverColor() const
{
    return m_hoverColor;
}

void VemoArrow::setHoverColor(OleColor color)
{
    m_hoverColor = color;
    update();
}

void VemoArrow::InitProperties()
{
    setBackColor(NewBackColor);
    setBorderStyle(BorderNone);
    setDirection(ArrowUp);
    setAppearance(ThreeD);
    setBorderColor(NewBorderColor);
    setHoverColor(NewHoverColor);
}

void VemoArrow::ReadProperties(const PropertyBag& bag)
{
    // Colours are kept as their 32 bits, whether saved signed or unsigned.
    const auto colour = [](void (VemoArrow::*set)(OleColor), VemoArrow* arrow) {
        return [=](qlonglong value) {
            (arrow->*set)(OleColor(value));
        };
    };
    readSetting(bag, "ForeColor", 0u, colour(&VemoArrow::setForeColor, this));
    // Saved against false although a new control is enabled: an enabled control is always
    // written, so only a disabled one reads the default.
    readSetting(bag, "Enabled", false, [this](qlonglong value) { setEnabled(value != 0); });
    readSetting(bag, "BorderStyle", 0, [this](qlonglong value) { setBorderStyle(int(value)); });
    readSetting(bag, "Appearance", 1, [this](qlonglong value) { setAppearance(int(value)); });
    readSetting(bag, "Direction", 0, [this](qlonglong value) { setDirection(int(value)); });
    readSetting(bag, "BackColor", NewBackColor, colour(&VemoArrow::setBackColor, this));
    readSetting(bag, "BorderColor", NewBorderColor, colour(&VemoArrow::setBorderColor, this));
    readSetting(bag, "HoverColor", NewHoverColor, colour(&VemoArrow::setHoverColor, this));
}

void VemoArrow::WriteProperties(PropertyBag& bag) const
{
    const auto write = [&bag](const char* name, const QVariant& value, const QVariant& saved) {
        catchingErrors("VemoArrow WriteProperties",
                       [&] { bag.WriteProperty(QString::fromLatin1(name), value, saved); });
    };
    write("ForeColor", m_foreColor, 0u);
    write("Enabled", isEnabled(), false);
    write("BorderStyle", m_borderStyle, 0);
    write("Appearance", m_appearance, 1);
    write("Direction", m_direction, 0);
    write("BackColor", m_backColor, NewBackColor);
    write("BorderColor", m_borderColor, NewBorderColor);
    write("HoverColor", m_hoverColor, NewHoverColor);
}

void VemoArrow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QStyleOptionButton face;
    face.initFrom(this);
    face.rect = rect();
    face.state |= m_pressed ? QStyle::State_Sunken : QStyle::State_Raised;
    if (m_appearance == flat)
        face.features |= QStyleOptionButton::Flat;
    const QColor back = toQColor(m_hover ? m_hoverColor : m_backColor, palette());
    painter.fillRect(rect(), back);
    face.palette.setColor(QPalette::Button, back);
    face.palette.setColor(QPalette::Window, back);
    style()->drawControl(QStyle::CE_PushButtonBevel, &face, &painter, this);

    QStyleOption arrow = face;
    arrow.rect = style()->subElementRect(QStyle::SE_PushButtonContents, &face, this);
    if (m_pressed) {
        arrow.rect.translate(style()->pixelMetric(QStyle::PM_ButtonShiftHorizontal, &face, this),
                             style()->pixelMetric(QStyle::PM_ButtonShiftVertical, &face, this));
    }
    const QColor fore = toQColor(m_foreColor, palette());
    arrow.palette.setColor(QPalette::ButtonText, fore);
    arrow.palette.setColor(QPalette::WindowText, fore);
    arrow.palette.setColor(QPalette::Text, fore);
    style()->drawPrimitive(arrowOf(m_direction), &arrow, &painter, this);

    if (m_borderStyle == FixedSingle) {
        painter.setPen(toQColor(m_borderColor, palette()));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void VemoArrow::enterEvent(QEnterEvent*)
{
    m_hover = true;
    update();
}

void VemoArrow::leaveEvent(QEvent*)
{
    m_hover = false;
    update();
}

void VemoArrow::raiseMouse(const QMouseEvent* event)
{
    const bool move = event->type() == QEvent::MouseMove;
    short button = move ? vbButtonMask(event->buttons()) : vbButton(event->button());
    short shift = vbShiftMask(event->modifiers());
    float x = float(event->position().x() * twipsPerPixelX(this));
    float y = float(event->position().y() * twipsPerPixelY(this));
    catchingErrors("VemoArrow mouse event", [&] {
        if (move)
            Q_EMIT MouseMove(button, shift, x, y);
        else if (event->type() == QEvent::MouseButtonRelease)
            Q_EMIT MouseUp(button, shift, x, y);
        else
            Q_EMIT MouseDown(button, shift, x, y);
    });
}

void VemoArrow::mousePressEvent(QMouseEvent* event)
{
    m_hover = true;
    m_pressed = true;
    repaint();
    raiseMouse(event);
}

void VemoArrow::mouseMoveEvent(QMouseEvent* event)
{
    raiseMouse(event);
}

void VemoArrow::mouseReleaseEvent(QMouseEvent* event)
{
    m_pressed = false;
    repaint();
    raiseMouse(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        catchingErrors("VemoArrow Click", [this] { Q_EMIT Click(); });
}

void VemoArrow::keyPressEvent(QKeyEvent* event)
{
    short keyCode = vbKeyCode(event);
    short keyAscii = vbKeyAscii(event);
    catchingErrors("VemoArrow key event", [&] {
        if (keyCode != 0) {
            short shift = vbShiftMask(event->modifiers());
            Q_EMIT KeyDown(keyCode, shift);
        }
        if (keyAscii != 0)
            Q_EMIT KeyPress(keyAscii);
    });
}

void VemoArrow::keyReleaseEvent(QKeyEvent* event)
{
    short keyCode = vbKeyCode(event);
    if (keyCode == 0 || event->isAutoRepeat())
        return;
    short shift = vbShiftMask(event->modifiers());
    catchingErrors("VemoArrow KeyUp", [&] { Q_EMIT KeyUp(keyCode, shift); });
}

} // namespace VemoGridLib
