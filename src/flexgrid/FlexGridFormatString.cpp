// SPDX-License-Identifier: MIT
// FlexGrid's FormatString: headers, alignments and widths of the
// fixed row and column from one string.
#include "flexgrid/FlexGrid_p.h"

#include <QFontMetrics>

#include <algorithm>

namespace VemoGridLib {

namespace {

/// Room around a header text, as the replica's 6 pixels.
constexpr int HeaderMarginPx = 6;

/// The alignment a segment's first character asks for, 9 (general) without one.
int alignmentPrefix(QStringView segment)
{
    if (segment.startsWith(u'<'))
        return Flex::flexAlignLeftCenter;
    if (segment.startsWith(u'^'))
        return Flex::flexAlignCenterCenter;
    if (segment.startsWith(u'>'))
        return Flex::flexAlignRightCenter;
    return Flex::flexAlignGeneral;
}

} // namespace

void FlexGridPrivate::applyFormatString(const QString& format)
{
    const qsizetype semicolon = format.indexOf(u';');
    const QStringView columnPart =
        QStringView(format).left(semicolon < 0 ? format.size() : semicolon);
    const bool hasRowPart = semicolon >= 0;
    const QFontMetrics metrics(fixedFont());

    if (!columnPart.isEmpty()) {
        const QList<QStringView> segments = columnPart.split(u'|');
        if (segments.size() > store.colCount())
            q->setCols(int(segments.size()));
        if (fixedRows > 0) {
            for (qsizetype i = 0; i < segments.size(); ++i) {
                const int c = int(i);
                const int alignment = alignmentPrefix(segments[i]);
                const QStringView text =
                    alignment == Flex::flexAlignGeneral ? segments[i] : segments[i].mid(1);
                store.setColAlignment(c, alignment);
                store.setText(0, c, text.trimmed());
                // The untrimmed text sets the width: hosts pad headers with blanks to widen.
                store.setColWidth(
                    c, pxToTwipsX(metrics.horizontalAdvance(text.toString()) + HeaderMarginPx));
            }
        }
    }

    if (hasRowPart) {
        const QList<QStringView> segments = QStringView(format).mid(semicolon + 1).split(u'|');
        if (segments.size() > store.rowCount())
            q->setRows(int(segments.size()));
        if (fixedCols > 0) {
            int widest = 0;
            for (qsizetype j = 0; j < segments.size(); ++j) {
                store.setText(int(j), 0, segments[j].trimmed());
                widest = std::max(widest, metrics.horizontalAdvance(segments[j].toString()));
            }
            const int needed = widest + HeaderMarginPx;
            if (colWidthPx(0) < needed)
                store.setColWidth(0, pxToTwipsX(needed));
        }
    }
}

} // namespace VemoGridLib
