// SPDX-License-Identifier: MIT
#include "grid/VemoGridPictures_p.h"

#include <QPainter>
#include <QPolygonF>

namespace VemoGridLib::GridPictures {

namespace {

constexpr int BoxSize = 13;
constexpr int ArrowSize = 9;

QPixmap transparentPixmap(int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

QPixmap box(bool ticked)
{
    QPixmap pixmap = transparentPixmap(BoxSize);
    QPainter painter(&pixmap);
    painter.setPen(QColor(0x40, 0x40, 0x40));
    painter.setBrush(Qt::white);
    painter.drawRect(0, 0, BoxSize - 1, BoxSize - 1);
    if (ticked) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, 2));
        painter.drawPolyline(QPolygonF({{3, 6.5}, {5.5, 9}, {10, 3.5}}));
    }
    return pixmap;
}

QPixmap triangle(const QPolygonF& corners, const QColor& colour)
{
    QPixmap pixmap = transparentPixmap(ArrowSize);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(corners);
    return pixmap;
}

} // namespace

QPixmap checked()
{
    return box(true);
}

QPixmap unchecked()
{
    return box(false);
}

QPixmap up()
{
    return triangle(QPolygonF({{0.5, 7.5}, {4.5, 1.5}, {8.5, 7.5}}), QColor(0x30, 0x30, 0x30));
}

QPixmap down()
{
    return triangle(QPolygonF({{0.5, 1.5}, {4.5, 7.5}, {8.5, 1.5}}), QColor(0x30, 0x30, 0x30));
}

QPixmap rowMarker()
{
    return triangle(QPolygonF({{2, 0.5}, {7.5, 4.5}, {2, 8.5}}), Qt::black);
}

} // namespace VemoGridLib::GridPictures
