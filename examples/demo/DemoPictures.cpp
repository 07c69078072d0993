// SPDX-License-Identifier: MIT
#include "DemoPictures.h"

#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

/// Room kept free around a picture: FlexGrid draws pictures flush with the cell's edge.
constexpr int Padding = 4;

/// A transparent canvas of `size` logical pixels at the screen's pixel ratio.
QPixmap canvas(const QSize& size)
{
    const qreal ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

QPixmap dot(int diameter, const QColor& color)
{
    QPixmap pixmap = canvas(QSize(diameter + 2 * Padding, diameter));
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color.darker(130), 1));
    painter.setBrush(color);
    painter.drawEllipse(QRectF(Padding + 0.5, 0.5, diameter - 1, diameter - 1));
    return pixmap;
}

QPixmap arrow(int size, bool up)
{
    QPixmap pixmap = canvas(QSize(size + 2 * Padding, size));
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal top = size * 0.2;
    const qreal bottom = size * 0.8;
    QPainterPath triangle;
    triangle.moveTo(Padding, up ? bottom : top);
    triangle.lineTo(Padding + size, up ? bottom : top);
    triangle.lineTo(Padding + size / 2.0, up ? top : bottom);
    triangle.closeSubpath();
    painter.fillPath(triangle, QColor(60, 60, 60));
    return pixmap;
}

} // namespace

DemoPictures::DemoPictures(const QFont& font)
{
    const int size = std::max(6, QFontMetrics(font).ascent() * 3 / 4);
    m_paid = dot(size, QColor(46, 157, 79));
    m_open = dot(size, QColor(232, 163, 23));
    m_overdue = dot(size, QColor(214, 69, 65));
    m_ascending = arrow(size, true);
    m_descending = arrow(size, false);
}

const QPixmap& DemoPictures::status(InvoiceStatus status) const
{
    switch (status) {
    case InvoiceStatus::Paid:
        return m_paid;
    case InvoiceStatus::Open:
        return m_open;
    case InvoiceStatus::Overdue:
        break;
    }
    return m_overdue;
}

const QPixmap& DemoPictures::sortArrow(bool ascending) const
{
    return ascending ? m_ascending : m_descending;
}
