// SPDX-License-Identifier: MIT
// A small push button that shows one scroll arrow (the month steps of the calendar).
#pragma once

#include <VemoGridLib/OleColor.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QWidget>

namespace VemoGridLib {

class PropertyBag;

/// A push button drawn with one scroll arrow, created by the library's own controls. It has no
/// receiver and raises its own events; positions are twips. The face is `BackColor`, or
/// `HoverColor` while the mouse is over the button; the arrow is `ForeColor`; `BorderStyle` 1
/// draws a one-pixel line in `BorderColor` around it; `Appearance` 0 draws the button flat.
class VEMOGRIDLIB_EXPORT VemoArrow : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(int BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(int Appearance READ Appearance WRITE setAppearance)
    Q_PROPERTY(int Direction READ Direction WRITE setDirection)
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(quint32 BorderColor READ BorderColor WRITE setBorderColor)
    Q_PROPERTY(quint32 HoverColor READ HoverColor WRITE setHoverColor)

public:
    /// Which arrow is drawn.
    enum ArrowDirection : int { ArrowUp = 0, ArrowDown = 1, ArrowLeft = 2, ArrowRight = 3 };

    explicit VemoArrow(QWidget* parent = nullptr);
    ~VemoArrow() override;

    OleColor ForeColor() const;
    void setForeColor(OleColor color);
    bool Enabled() const;
    /// `None` 0 or `Fixed Single` 1.
    int BorderStyle() const;
    void setBorderStyle(int style);
    /// `flat` 0 or `3D` 1.
    int Appearance() const;
    void setAppearance(int appearance);
    /// 0 up, 1 down, 2 left, 3 right; any other value draws the up arrow.
    int Direction() const;
    void setDirection(int direction);
    OleColor BackColor() const;
    void setBackColor(OleColor color);
    OleColor BorderColor() const;
    void setBorderColor(OleColor color);
    OleColor HoverColor() const;
    void setHoverColor(OleColor color);

    /// The settings of a new control.
    void InitProperties();
    /// Restores the saved settings; a value that cannot be read leaves that setting alone.
    void ReadProperties(const PropertyBag& bag);
    /// Saves the settings, each against its saved default.
    void WriteProperties(PropertyBag& bag) const;

Q_SIGNALS:
    void Click();
    void KeyDown(short& KeyCode, short& Shift);
    void KeyPress(short& KeyAscii);
    void KeyUp(short& KeyCode, short& Shift);
    void MouseDown(short& Button, short& Shift, float& x, float& y);
    void MouseMove(short& Button, short& Shift, float& x, float& y);
    void MouseUp(short& Button, short& Shift, float& x, float& y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    /// Raises MouseDown, MouseMove or MouseUp for `event`, in twips.
    void raiseMouse(const QMouseEvent* event);

    OleColor m_foreColor = 0;
    int m_borderStyle = 0;
    int m_appearance = 1;
    int m_direction = ArrowUp;
    OleColor m_backColor = 0xFFFFFF;
    OleColor m_borderColor = 4924424;
    OleColor m_hoverColor = 11904668;
    bool m_pressed = false;
    bool m_hover = false;
};

} // namespace VemoGridLib
