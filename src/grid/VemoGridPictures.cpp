// SPDX-License-Identifier: MIT
#include "grid/VemoGridPictures_p.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>

namespace VemoGridLib::GridPictures {

namespace {

constexpr int BoxSize = 13;
constexpr int ArrowSize = 9;

/// A transparent picture of `size` × `size` pixels made at `ratio`, and a painter on it that
/// draws in device pixels with `size` scaled to the picture's width.
struct Canvas
{
    QPixmap pixmap;
    int pixels;

    Canvas(int size, qreal ratio)
        : pixmap(std::max(1, qRound(size * ratio)), std::max(1, qRound(size * ratio)))
        , pixels(pixmap.width())
    {
        pixmap.fill(Qt::transparent);
    }

    QPixmap done(qreal ratio)
    {
        pixmap.setDevicePixelRatio(ratio);
        return pixmap;
    }
};

QPixmap box(bool ticked, qreal ratio)
{
    Canvas canvas(BoxSize, ratio);
    {
        QPainter painter(&canvas.pixmap);
        // The frame in whole device pixels, so that all four sides are equally sharp.
        const int frame = std::max(1, qRound(ratio));
        painter.fillRect(0, 0, canvas.pixels, canvas.pixels, QColor(0x40, 0x40, 0x40));
        painter.fillRect(frame, frame, canvas.pixels - 2 * frame, canvas.pixels - 2 * frame,
                         Qt::white);
        if (ticked) {
            painter.scale(qreal(canvas.pixels) / BoxSize, qreal(canvas.pixels) / BoxSize);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(Qt::black, 2));
            painter.drawPolyline(QPolygonF({{3, 6.5}, {5.5, 9}, {10, 3.5}}));
        }
    }
    return canvas.done(ratio);
}

QPixmap triangle(const QPolygonF& corners, const QColor& colour, qreal ratio)
{
    Canvas canvas(ArrowSize, ratio);
    {
        QPainter painter(&canvas.pixmap);
        painter.scale(qreal(canvas.pixels) / ArrowSize, qreal(canvas.pixels) / ArrowSize);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawPolygon(corners);
    }
    return canvas.done(ratio);
}

} // namespace

QPixmap checked(qreal ratio)
{
    return box(true, ratio);
}

QPixmap unchecked(qreal ratio)
{
    return box(false, ratio);
}

QPixmap up(qreal ratio)
{
    return triangle(QPolygonF({{0.5, 7.5}, {4.5, 1.5}, {8.5, 7.5}}), QColor(0x30, 0x30, 0x30),
                    ratio);
}

QPixmap down(qreal ratio)
{
    return triangle(QPolygonF({{0.5, 1.5}, {4.5, 7.5}, {8.5, 1.5}}), QColor(0x30, 0x30, 0x30),
                    ratio);
}

QPixmap rowMarker(qreal ratio)
{
    return triangle(QPolygonF({{2, 0.5}, {7.5, 4.5}, {2, 8.5}}), Qt::black, ratio);
}

} // namespace VemoGridLib::GridPictures
