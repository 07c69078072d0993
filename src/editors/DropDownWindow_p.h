// SPDX-License-Identifier: MIT
// The drop-down parts shared by the combo box and the date picker.
#pragma once

#include <QObject>
#include <QPointer>
#include <QSize>

#include <functional>

QT_BEGIN_NAMESPACE
class QLineEdit;
class QWidget;
QT_END_NAMESPACE

namespace VemoGridLib {

class VemoArrow;

/// The parts of a control with a drop-down: its text field, txtInput, its drop button and the
/// window that drops down under it, a top-level tool window that never takes the focus. Neither
/// the button nor the control take the focus either: txtInput keeps it, so the keys keep coming
/// to the field, and the focus-loss check counts the window as the control's, being a child
/// window of it. While the window is open, the whole application is watched: a mouse press
/// outside the control and the window, and a move, resize, hide or deactivation of the
/// control's window, call `closeRequested`, which closes it.
class DropDownWindow final : public QObject
{
public:
    DropDownWindow(QWidget* control, std::function<void()> closeRequested);
    ~DropDownWindow() override;

    QLineEdit* field() const { return input; }
    VemoArrow* button() const { return arrow; }
    QWidget* window() const { return drop; }
    /// Puts the field on the left of the control and the button, a scroll bar wide but at most
    /// half the control, on its right.
    void layOut();
    /// Starts watching, then shows the window, which comes to the front.
    void show();
    void hide();
    bool isOpen() const;
    /// Gives the window `size` and puts it under the control, or above it when it would pass
    /// the lower edge of the screen's available area, kept sideways within that area.
    void placeUnder(QSize size);
    /// Places the window again, at `content`'s size, whenever `content` resizes itself while
    /// the window is open.
    void follow(QWidget* content) { followed = content; }
    /// On a platform that activates every window it shows (offscreen, some compositors), hands
    /// the activation back to the control's window and the focus to the widget that had it
    /// when the window opened; the control's window becoming active again then closes nothing.
    void returnActivation() { returning = true; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool inside(const QWidget* widget) const;

    QWidget* control;
    std::function<void()> closeRequested;
    QLineEdit* input;
    VemoArrow* arrow;
    QWidget* drop;
    QWidget* followed = nullptr;
    bool returning = false;
    QPointer<QWidget> focusAtOpen;
};

} // namespace VemoGridLib
