// SPDX-License-Identifier: MIT
// The small pictures the demo puts into cells, drawn at run time.
#pragma once

#include "InvoiceGenerator.h"

#include <QPixmap>

QT_BEGIN_NAMESPACE
class QFont;
QT_END_NAMESPACE

/// A coloured dot per invoice status and the sort arrows of the header, sized for `font` and
/// the screen's pixel ratio. Each picture is made once and handed out as the same QPixmap, so
/// the grid's cells that show it share one look.
class DemoPictures
{
public:
    explicit DemoPictures(const QFont& font);

    const QPixmap& status(InvoiceStatus status) const;
    const QPixmap& sortArrow(bool ascending) const;

private:
    QPixmap m_paid;
    QPixmap m_open;
    QPixmap m_overdue;
    QPixmap m_ascending;
    QPixmap m_descending;
};
