// SPDX-License-Identifier: MIT
// The month calendar that drops down from the date picker.
#pragma once

#include <VemoGridLib/ErrorGuard.h>
#include <VemoGridLib/OleColor.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QDate>
#include <QWidget>

#include <memory>

namespace VemoGridLib {

class PropertyBag;
class VemoCalendarPrivate;

/// `VemoCalendar`, the month calendar of `VemoDTPicker` (its child `CC`): one Gregorian month
/// in seven columns from Sunday, the selected day ringed in `SelectColor`, and with
/// `LunarCalendar` a lunar text under each day (festival, else solar term, else the lunar
/// month's name on its first day, else the lunar day). The four arrow buttons `CA1`..`CA4` step
/// by a year and a month; a click on a day selects it. The control keeps its own size in twips:
/// 2800 × 2500 with lunar texts, 2800 × 1900 without. Created by the library; hosts use the
/// date picker.
class VEMOGRIDLIB_EXPORT VemoCalendar : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QDate Value READ Value WRITE setValue)
    Q_PROPERTY(quint32 SelectColor READ SelectColor WRITE setSelectColor)
    Q_PROPERTY(bool LunarCalendar READ LunarCalendar WRITE setLunarCalendar)
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(int BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(int Appearance READ Appearance WRITE setAppearance)

public:
    /// A calendar showing today's month.
    explicit VemoCalendar(QWidget* parent = nullptr);
    ~VemoCalendar() override;

    /// The selected date; the month shown is its month. Setting it redraws.
    QDate Value() const;
    void setValue(const QDate& value);
    /// Colour of the ring around the selected day (default red, 255).
    OleColor SelectColor() const;
    void setSelectColor(OleColor color);
    /// Lunar texts under the days and tall rows (default false). The English text set clears
    /// it again at the next drawing: no lunar texts are drawn in English.
    bool LunarCalendar() const;
    void setLunarCalendar(bool lunar);
    /// Surface and text colours.
    OleColor BackColor() const;
    void setBackColor(OleColor color);
    OleColor ForeColor() const;
    void setForeColor(OleColor color);
    /// `None` 0 (default) or `Fixed Single` 1.
    int BorderStyle() const;
    void setBorderStyle(int style);
    /// `flat` 0 or `3D` 1 (default), passed on to the arrow buttons.
    int Appearance() const;
    void setAppearance(int appearance);
    /// Redraws the month.
    void Refresh();

    /// The day under a point given in twips of the surface, as a click there would select it;
    /// an invalid date where a click selects nothing.
    QDate dayAt(QPoint twips) const;

    /// Saved settings: "Value", "SelectColor", "LunarCalendar", "BackColor", "ForeColor",
    /// "Enabled", "Font", "BorderStyle", "Appearance"; each read or written on its own.
    void InitProperties();
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

Q_SIGNALS:
    /// A click on the surface, after the press selected a day (or nothing).
    void Click();
    /// A key went down on the calendar or one of its arrow buttons; nothing else happens.
    void KeyDown(short& KeyCode, short& Shift);
    /// A setter changed the property saved as `name`.
    void PropertyChanged(const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    friend class VemoCalendarPrivate;
    std::unique_ptr<VemoCalendarPrivate> d;
};

} // namespace VemoGridLib
