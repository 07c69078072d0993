// SPDX-License-Identifier: MIT
// The drop-down parts of the combo box and the date picker: creating them, placing the window
// on the screen and closing it on what happens outside.
#include "editors/DropDownWindow_p.h"

#include "editors/VemoArrow.h"

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace VemoGridLib {

DropDownWindow::DropDownWindow(QWidget* control, std::function<void()> closeRequested)
    : control(control)
    , closeRequested(std::move(closeRequested))
    , input(new QLineEdit(control))
    , arrow(new VemoArrow(control))
    , drop(new QWidget(control, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus))
{
    input->setObjectName(QStringLiteral("txtInput"));
    arrow->setDirection(VemoArrow::ArrowDown);
    arrow->setFocusPolicy(Qt::NoFocus);
    control->setFocusPolicy(Qt::NoFocus);
    drop->setAttribute(Qt::WA_ShowWithoutActivating);
    drop->setFocusPolicy(Qt::NoFocus);
}

void DropDownWindow::layOut()
{
    const int width = control->width();
    const int button =
        std::min(width / 2, control->style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    input->setGeometry(0, 0, width - button, control->height());
    arrow->setGeometry(width - button, 0, button, control->height());
}

DropDownWindow::~DropDownWindow()
{
    qApp->removeEventFilter(this);
}

void DropDownWindow::show()
{
    focusAtOpen = QApplication::focusWidget();
    qApp->installEventFilter(this);
    drop->show();
}

void DropDownWindow::hide()
{
    qApp->removeEventFilter(this);
    drop->hide();
}

bool DropDownWindow::isOpen() const
{
    return drop->isVisible();
}

void DropDownWindow::placeUnder(QSize size)
{
    QPoint at = control->mapToGlobal(QPoint(0, control->height()));
    const QScreen* const screen =
        control->screen() ? control->screen() : QGuiApplication::primaryScreen();
    const QRect area = screen->availableGeometry();
    if (at.y() + size.height() > area.bottom() + 1)
        at.setY(control->mapToGlobal(QPoint(0, 0)).y() - size.height());
    at.setX(
        std::clamp(at.x(), area.left(), std::max(area.left(), area.right() + 1 - size.width())));
    drop->setGeometry(QRect(at, size));
}

bool DropDownWindow::inside(const QWidget* widget) const
{
    // Across window boundaries: the drop-down window is a child window of the control.
    for (; widget; widget = widget->parentWidget()) {
        if (widget == control)
            return true;
    }
    return false;
}

bool DropDownWindow::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::NonClientAreaMouseButtonPress:
        // Presses reach the window objects too; the widget that gets one decides.
        if (watched->isWidgetType() && !inside(static_cast<QWidget*>(watched)))
            closeRequested();
        break;
    case QEvent::WindowActivate:
        if (returning && watched == drop) {
            control->window()->activateWindow();
            if (focusAtOpen)
                focusAtOpen->setFocus();
        }
        break;
    case QEvent::WindowDeactivate: {
        // A platform that activates every window it shows makes the drop-down window itself
        // the active one: only a window outside the control taking over closes it.
        const QWidget* const active = QApplication::activeWindow();
        if ((watched == control->window() || watched == drop) && !inside(active) &&
            !(returning && active == control->window()))
            closeRequested();
        break;
    }
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Hide:
        if (watched == control->window())
            closeRequested();
        else if (watched == followed && event->type() == QEvent::Resize)
            placeUnder(followed->size());
        break;
    default:
        break;
    }
    return false;
}

} // namespace VemoGridLib
