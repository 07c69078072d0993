// SPDX-License-Identifier: MIT
// FlexGrid's drawing (selection display, per-cell looks and merging, grid-wide look): only
// the cells that meet the paint region, walked from the fixed rows and columns and from
// TopRow / LeftCol, so a frame costs what is on screen.
#include "flexgrid/FlexGrid_p.h"

#include "vb/VbConversion.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <unordered_map>
#include <vector>

namespace VemoGridLib {

using namespace Flex;

namespace {

/// Space between a cell's edge and its text. Default rows are only three pixels taller than
/// the font, so vertically the margin is a single pixel.
constexpr int TextMarginX = 2;
constexpr int TextMarginY = 1;

/// How far a merged run, or a chain of restrict-rule checks, is followed past the cells on
/// screen. Identical texts can run through the whole grid; cutting the walk here keeps a frame's
/// cost independent of Rows and Cols. A run that long reaches far past any screen, so the cut
/// only moves the centre of its (off-screen) text, and a restrict chain that long is taken to
/// hold beyond the cut.
constexpr int MergeReach = 2000;

/// The 3-D colours of inset and raised grid lines and texts: always black and white.
const QColor EdgeDark(Qt::black);
const QColor EdgeLight(Qt::white);
const QColor TextShadow(128, 128, 128);

/// Dash patterns of GridLines 4 and 5 and of the light focus rectangle, in line widths.
constexpr int DashOn = 4;
constexpr int DashPeriod = 6;
constexpr int DotOn = 1;
constexpr int DotPeriod = 2;
constexpr int HeavyFocusWidth = 2;

/// The rows (or columns) of one band that a frame walks, from the band's first shown index, with
/// their pixel start and size. Hidden ones stay in with size 0 so lookups by index are direct.
struct Strip
{
    int first = 0;
    std::vector<int> start;
    std::vector<int> size;

    int count() const { return int(start.size()); }
    bool contains(int index) const { return index >= first && index < first + count(); }
    int startOf(int index) const { return start[index - first]; }
    int endOf(int index) const { return start[index - first] + size[index - first]; }
};

/// Indices first..end-1 from pixel `position` on, until one starts at or past `limit`.
template <typename SizeOf>
Strip walkStrip(int first, int end, int position, int limit, SizeOf sizeOf)
{
    Strip strip;
    strip.first = first;
    for (int index = first; index < end && position < limit; ++index) {
        const int size = sizeOf(index);
        strip.start.push_back(position);
        strip.size.push_back(size);
        position += size;
    }
    return strip;
}

/// The cells drawn as one, inclusive: a single cell or a merged run.
struct Block
{
    int top;
    int bottom;
    int left;
    int right;

    bool contains(int r, int c) const { return r >= top && r <= bottom && c >= left && c <= right; }
};

int floorDiv(int value, int divisor)
{
    return value >= 0 ? value / divisor : -((-value + divisor - 1) / divisor);
}

/// Which neighbouring cells merge, for one frame. As in the FlexGrid family (its
/// descendants document that no built-in mode spans rows and columns at once), a merged range
/// runs along one row or one column: a cell merged with a row neighbour is not merged
/// vertically. The restrict rules make each answer depend on the row above or the
/// column to the left, so answers are kept for the frame.
class MergeRuns
{
public:
    MergeRuns(const FlexGridPrivate& owner, int rowLimit, int colLimit)
        : d(owner)
        , rowReach(rowLimit)
        , colReach(colLimit)
        , restrictRows(owner.mergeCells == flexMergeRestrictRows ||
                       owner.mergeCells == flexMergeRestrictAll)
        , restrictCols(owner.mergeCells == flexMergeRestrictColumns ||
                       owner.mergeCells == flexMergeRestrictAll)
    {}

    /// The merged range that holds (r, c), the cell alone when it merges with nothing.
    Block blockAt(int r, int c)
    {
        Block block{r, r, c, c};
        while (block.left > 0 && c - block.left < colReach && joinsRight(r, block.left - 1))
            --block.left;
        while (block.right - c < colReach && joinsRight(r, block.right))
            ++block.right;
        if (block.left != block.right)
            return block;
        while (block.top > 0 && r - block.top < rowReach && joinsDown(block.top - 1, c))
            --block.top;
        while (block.bottom - r < rowReach && joinsDown(block.bottom, c))
            ++block.bottom;
        return block;
    }

private:
    using Answers = std::unordered_map<qint64, bool>;

    static qint64 key(int r, int c) { return qint64(r) << 32 | quint32(c); }

    bool sameText(int r1, int c1, int r2, int c2) const
    {
        const QStringView text = d.store.textView(r1, c1);
        return !text.isEmpty() && text == d.store.textView(r2, c2);
    }

    /// (r, c) and (r, c + 1) merge by themselves, before the restrict rule.
    bool canJoinRight(int r, int c) const
    {
        return c + 1 < d.store.colCount() && d.store.mergeRow(r) &&
               (c < d.fixedCols) == (c + 1 < d.fixedCols) && sameText(r, c, r, c + 1);
    }

    /// (r, c) and (r + 1, c) merge by themselves, before the restrict rule.
    bool canJoinDown(int r, int c)
    {
        return r + 1 < d.store.rowCount() && d.store.mergeCol(c) &&
               (r < d.fixedRows) == (r + 1 < d.fixedRows) && sameText(r, c, r + 1, c) &&
               alone(r, c) && alone(r + 1, c);
    }

    bool alone(int r, int c) { return !(c > 0 && joinsRight(r, c - 1)) && !joinsRight(r, c); }

    /// With the columns restricted, a row merges two cells only where the row above merges
    /// them too: the answer is the base rule all the way up, settled by a remembered answer,
    /// the reach, or the first row of the band (fixed rows never merge with data rows, so
    /// they do not restrict them either).
    bool joinsRight(int r, int c)
    {
        const auto base = [this](int row, int col) {
            return canJoinRight(row, col);
        };
        const auto up = [this](int& row, int&) {
            if (row == 0 || row == d.fixedRows)
                return false;
            --row;
            return true;
        };
        return settleChain(right, r, c, restrictCols, base, up);
    }

    /// With the rows restricted, a column merges two cells only where the column to the left
    /// merges them too, up to the first column of the band.
    bool joinsDown(int r, int c)
    {
        const auto base = [this](int row, int col) {
            return canJoinDown(row, col);
        };
        const auto left = [this](int&, int& col) {
            if (col == 0 || col == d.fixedCols)
                return false;
            --col;
            return true;
        };
        return settleChain(down, r, c, restrictRows, base, left);
    }

    template <typename Base, typename Step>
    bool settleChain(Answers& answers, int r, int c, bool chained, Base base, Step step)
    {
        int row = r;
        int col = c;
        bool result = true;
        for (int steps = 0;; ++steps) {
            if (const auto known = answers.find(key(row, col)); known != answers.end()) {
                result = known->second;
                break;
            }
            if (!base(row, col)) {
                result = false;
                break;
            }
            if (!chained || steps == MergeReach || !step(row, col))
                break;
        }
        // Every link between the settled one and the asked one shares its answer.
        for (int i = std::min(row, r); i <= r; ++i) {
            for (int j = std::min(col, c); j <= c; ++j)
                answers[key(i, j)] = result;
        }
        return result;
    }

    const FlexGridPrivate& d;
    const int rowReach;
    const int colReach;
    const bool restrictRows;
    const bool restrictCols;
    Answers right;
    Answers down;
};

bool hasOwnFont(const FlexCellFormat& format)
{
    return !format.fontName.isEmpty() || format.fontSize > 0 || format.fontWidth > 0 ||
           format.bold >= 0 || format.italic >= 0 || format.underline >= 0;
}

/// Qt's flags for the 0–8 alignment grid (left/centre/right × top/centre/bottom) and for 9,
/// general: numbers right, text left, both centred vertically.
Qt::Alignment alignmentFlags(int alignment, const QString& text, vb::VbLocale locale)
{
    if (alignment == flexAlignGeneral)
        return (vb::IsNumeric(text, locale) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    static constexpr std::array<Qt::AlignmentFlag, 3> Horizontal{Qt::AlignLeft, Qt::AlignHCenter,
                                                                 Qt::AlignRight};
    static constexpr std::array<Qt::AlignmentFlag, 3> Vertical{Qt::AlignTop, Qt::AlignVCenter,
                                                               Qt::AlignBottom};
    const int grid = std::clamp(alignment, 0, 8);
    return Horizontal[grid / 3] | Vertical[grid % 3];
}

/// Where an item of `size` goes inside `area` for a 0–8 alignment.
QPoint alignedOrigin(const QSize& size, const QRect& area, int alignment)
{
    const int grid = std::clamp(alignment, 0, 8);
    const auto offset = [](int free, int third) {
        return third == 0 ? 0 : third == 1 ? free / 2 : free;
    };
    return area.topLeft() + QPoint(offset(area.width() - size.width(), grid / 3),
                                   offset(area.height() - size.height(), grid % 3));
}

/// Device pixels per pixel of what `painter` paints on: the screen's scale, or an image's when
/// the widget is rendered into one. Only a plain scale counts; anything else paints as at 1.
qreal deviceRatio(const QPainter& painter)
{
    const QTransform transform = painter.deviceTransform();
    const bool plain =
        transform.type() <= QTransform::TxScale && transform.m11() == transform.m22();
    return plain && transform.m11() > 0 ? transform.m11() : 1.0;
}

/// The text a data cell shows: in a number column, a text wider than `width` becomes as many
/// '#' as fit, as spreadsheets show it, so that a clipped number never reads as a smaller one.
QString shownNumber(const FlexGridPrivate& d, int c, const QString& text,
                    const QFontMetrics& metrics, int width)
{
    if (!d.numberColumn || !d.numberColumn(c) || metrics.horizontalAdvance(text) <= width)
        return text;
    return QString(std::max(0, width / std::max(1, metrics.horizontalAdvance(u'#'))), u'#');
}

/// One frame of drawing: the grid-wide colours and fonts resolved once, then every block.
class FramePainter
{
public:
    FramePainter(const FlexGridPrivate& owner, QPainter& painter, const QRect& area)
        : d(owner)
        , p(painter)
        , region(area)
        , palette(owner.q->palette())
        , back(colorOf(owner.backColor, Qt::white))
        , fore(colorOf(owner.foreColor, Qt::black))
        , backFixed(colorOf(owner.backColorFixed, Qt::lightGray))
        , foreFixed(colorOf(owner.foreColorFixed, Qt::black))
        , backSel(colorOf(owner.backColorSel, Qt::darkBlue))
        , foreSel(colorOf(owner.foreColorSel, Qt::white))
        , lineColor(colorOf(owner.gridColor, Qt::lightGray))
        , lineColorFixed(colorOf(owner.gridColorFixed, Qt::black))
        , gridFont(owner.q->font())
        , fixedFont(owner.fixedFont())
        , locale(vb::userLocale())
        , ratio(deviceRatio(painter))
        , highlight(owner.mergeCells == flexMergeNever &&
                    (owner.highLight == flexHighlightAlways ||
                     (owner.highLight == flexHighlightWithFocus && owner.q->hasFocus())))
    {}

    void paint()
    {
        p.setRenderHint(QPainter::Antialiasing, false);
        p.fillRect(region, colorOf(d.backColorBkg, Qt::gray));
        const int rows = d.store.rowCount();
        const int cols = d.store.colCount();
        if (rows == 0 || cols == 0 || region.isEmpty())
            return;

        const int fixedRows = std::min(d.fixedRows, rows);
        const int fixedCols = std::min(d.fixedCols, cols);
        const int fixedTop = fixedRows > 0 ? d.rowTopPx(0) : 0;
        const int fixedLeft = fixedCols > 0 ? d.colLeftPx(0) : 0;
        const int scrollTop = fixedTop + d.fixedRowsHeightPx();
        const int scrollLeft = fixedLeft + d.fixedColsWidthPx();
        const int limitY = region.bottom() + 1;
        const int limitX = region.right() + 1;
        const auto rowHeight = [this](int r) {
            return d.rowHeightPx(r);
        };
        const auto colWidth = [this](int c) {
            return d.colWidthPx(c);
        };

        const Strip fixedRowStrip = walkStrip(0, fixedRows, fixedTop, limitY, rowHeight);
        const Strip scrollRowStrip =
            walkStrip(std::max(d.topRow, fixedRows), rows, scrollTop, limitY, rowHeight);
        const Strip fixedColStrip = walkStrip(0, fixedCols, fixedLeft, limitX, colWidth);
        const Strip scrollColStrip =
            walkStrip(std::max(d.leftCol, fixedCols), cols, scrollLeft, limitX, colWidth);

        if (d.mergeCells != flexMergeNever) {
            merges.emplace(d, scrollRowStrip.count() + MergeReach,
                           scrollColStrip.count() + MergeReach);
        }

        const QRect fixedRowBand(0, fixedTop, limitX, scrollTop - fixedTop);
        const QRect scrollRowBand(0, scrollTop, limitX, limitY - scrollTop);
        const QRect fixedColBand(fixedLeft, 0, scrollLeft - fixedLeft, limitY);
        const QRect scrollColBand(scrollLeft, 0, limitX - scrollLeft, limitY);
        paintQuadrant(scrollRowStrip, scrollColStrip, scrollRowBand & scrollColBand);
        paintQuadrant(fixedRowStrip, scrollColStrip, fixedRowBand & scrollColBand);
        paintQuadrant(scrollRowStrip, fixedColStrip, scrollRowBand & fixedColBand);
        paintQuadrant(fixedRowStrip, fixedColStrip, fixedRowBand & fixedColBand);
        p.setClipping(false);
    }

private:
    QColor colorOf(OleColor color, const QColor& fallback) const
    {
        const QColor resolved = toQColor(color, palette);
        return resolved.isValid() ? resolved : fallback;
    }

    /// A cell's own colour: 0 means the grid's.
    QColor cellColorOr(OleColor color, const QColor& gridColor) const
    {
        return color == 0 ? gridColor : colorOf(color, gridColor);
    }

    /// `color` (text `text` resolved) as readableTextColor() draws it on `back`.
    QColor readableOn(OleColor text, OleColor back, const QColor& color)
    {
        if (!isSystemColor(text) || isSystemColor(back))
            return color;
        const auto [found, added] = readableColors.try_emplace(quint64(text) << 32 | back);
        if (added) {
            const QColor readable = readableTextColor(text, back, palette);
            found->second = readable.isValid() ? readable : color;
        }
        return found->second;
    }

    /// Fills one strip of a grid line on whole device pixels. On a scaled screen a pixel
    /// edge falls between device pixels, and rounding each edge would draw some lines one
    /// device pixel wider than others. So the line's width, which runs `across` (Horizontal for
    /// a vertical line), is the same number of device pixels wherever the line lies, measured
    /// from the cell edge it lines (`fromEnd`: the cell's right or bottom edge, else its left
    /// or top one), and its length runs between rounded ends so that the lines of neighbouring
    /// cells meet.
    void fillLine(const QRect& strip, Qt::Orientation across, bool fromEnd, const QColor& color)
    {
        if (ratio == 1.0 || strip.isEmpty()) {
            p.fillRect(strip, color);
            return;
        }
        // The first device pixel at or after `at`, as the painter fills a rectangle's edge.
        const auto pixel = [this](int at) {
            return int(std::ceil(at * ratio - 0.5));
        };
        const auto span = [&](int from, int size, bool thin, bool anchorEnd) {
            const int start = pixel(from);
            const int end = pixel(from + size);
            if (!thin)
                return std::pair(start, end - start);
            const int width = std::max(1, qRound(size * ratio));
            return std::pair(anchorEnd ? end - width : start, width);
        };
        const bool horizontal = across == Qt::Horizontal;
        const auto [x, w] = span(strip.left(), strip.width(), horizontal, fromEnd);
        const auto [y, h] = span(strip.top(), strip.height(), !horizontal, fromEnd);
        p.fillRect(QRectF(x / ratio, y / ratio, w / ratio, h / ratio), color);
    }

    /// The cells of one band pair (fixed or scrolling rows × fixed or scrolling columns), each
    /// drawn once: a merged run when its first cell inside the clip is met.
    void paintQuadrant(const Strip& rows, const Strip& cols, const QRect& bandClip)
    {
        const QRect clip = bandClip & region;
        if (clip.isEmpty() || rows.count() == 0 || cols.count() == 0)
            return;
        p.setClipRect(clip);
        // Per column, the last row that a vertical run drawn above already covers.
        std::vector<int> coveredDownTo(cols.count(), -1);
        for (int i = 0; i < rows.count(); ++i) {
            if (rows.start[i] > clip.bottom())
                break;
            if (rows.size[i] == 0 || rows.start[i] + rows.size[i] <= clip.top())
                continue;
            const int r = rows.first + i;
            for (int j = 0; j < cols.count(); ++j) {
                if (cols.start[j] > clip.right())
                    break;
                if (cols.size[j] == 0 || cols.start[j] + cols.size[j] <= clip.left() ||
                    coveredDownTo[j] >= r)
                    continue;
                const int c = cols.first + j;
                const Block block = merges ? merges->blockAt(r, c) : Block{r, r, c, c};
                paintBlock(block, blockRect(block, rows, cols), bandClip);
                coveredDownTo[j] = block.bottom;
                j = block.right - cols.first;
            }
        }
    }

    /// The block's pixels; ends outside the walked strips (runs reaching off screen) come from
    /// the geometry, at most MergeReach rows or columns away.
    QRect blockRect(const Block& block, const Strip& rows, const Strip& cols) const
    {
        const int top = rows.contains(block.top) ? rows.startOf(block.top) : d.rowTopPx(block.top);
        const int bottom = rows.contains(block.bottom)
                               ? rows.endOf(block.bottom)
                               : d.rowTopPx(block.bottom) + d.rowHeightPx(block.bottom);
        const int left =
            cols.contains(block.left) ? cols.startOf(block.left) : d.colLeftPx(block.left);
        const int right = cols.contains(block.right)
                              ? cols.endOf(block.right)
                              : d.colLeftPx(block.right) + d.colWidthPx(block.right);
        return QRect(left, top, right - left, bottom - top);
    }

    /// Background, grid lines, text, picture and focus rectangle of one block, in that order:
    /// the picture goes over the text so that a text hidden in the background colour (the
    /// check-box cells of VemoGrid) never eats into it. A merged run reaching out of its band
    /// places its text and picture in the stretch that shows, so a long run never looks empty.
    void paintBlock(const Block& block, const QRect& rect, const QRect& band)
    {
        const int r = block.top;
        const int c = block.left;
        const bool fixed = d.isFixed(r, c);
        const bool framed = !fixed && d.focusRect != flexFocusNone && block.contains(d.row, d.col);
        const bool selected = highlight && !fixed && !framed && d.isSelected(r, c);
        const FlexCellFormat& format = d.store.format(r, c);
        const QColor cellBack =
            selected ? backSel : cellColorOr(format.backColor, fixed ? backFixed : back);
        const OleColor backOle = selected           ? d.backColorSel
                                 : format.backColor ? format.backColor
                                 : fixed            ? d.backColorFixed
                                                    : d.backColor;
        const OleColor foreOle = selected           ? d.foreColorSel
                                 : format.foreColor ? format.foreColor
                                 : fixed            ? d.foreColorFixed
                                                    : d.foreColor;
        const QColor cellFore = readableOn(
            foreOle, backOle,
            selected ? foreSel : cellColorOr(format.foreColor, fixed ? foreFixed : fore));

        p.fillRect(rect, cellBack);
        const int lineStyle = fixed ? d.gridLinesFixed : d.gridLines;
        const int line = lineStyle == flexGridNone ? 0 : d.gridLineWidth;
        const QRect content = rect.adjusted(0, 0, -line, -line);
        paintGridLines(rect, content, lineStyle, fixed ? lineColorFixed : lineColor);
        if (content.isEmpty())
            return;
        const bool merged = block.top != block.bottom || block.left != block.right;
        const QRect shown = merged ? content & band : content;
        paintText(r, c, format, fixed, shown, cellFore);
        if (!format.picture.isNull())
            paintPicture(format.picture, format.pictureAlignment, shown);
        if (framed)
            paintFocusRect(content, cellFore);
    }

    /// The line along the block's right and bottom edges (`GridLines`). Inset lines are a groove
    /// (dark line, light edge on the next cell's side), raised lines a ridge; each block draws its
    /// own half: the line in its right/bottom strip and the edge along its top/left.
    void paintGridLines(const QRect& rect, const QRect& content, int style, const QColor& color)
    {
        if (style == flexGridNone)
            return;
        // A line wider than a narrow cell stays inside it.
        const QRect right =
            QRect(content.right() + 1, rect.top(), rect.right() - content.right(), rect.height()) &
            rect;
        const QRect bottom = QRect(rect.left(), content.bottom() + 1, rect.width(),
                                   rect.bottom() - content.bottom()) &
                             rect;
        const int width = d.gridLineWidth;
        switch (style) {
        case flexGridInset:
        case flexGridRaised: {
            const QColor& groove = style == flexGridInset ? EdgeDark : EdgeLight;
            const QColor& edgeColor = style == flexGridInset ? EdgeLight : EdgeDark;
            fillLine(right, Qt::Horizontal, true, groove);
            fillLine(bottom, Qt::Vertical, true, groove);
            fillLine(QRect(content.left(), content.top(), content.width(), 1) & content,
                     Qt::Vertical, false, edgeColor);
            fillLine(QRect(content.left(), content.top(), 1, content.height()) & content,
                     Qt::Horizontal, false, edgeColor);
            break;
        }
        case flexGridDashes:
            paintDashes(right, Qt::Vertical, DashOn * width, DashPeriod * width, color);
            paintDashes(bottom, Qt::Horizontal, DashOn * width, DashPeriod * width, color);
            break;
        case flexGridDots:
            paintDashes(right, Qt::Vertical, DotOn * width, DotPeriod * width, color);
            paintDashes(bottom, Qt::Horizontal, DotOn * width, DotPeriod * width, color);
            break;
        default:
            fillLine(right, Qt::Horizontal, true, color);
            fillLine(bottom, Qt::Vertical, true, color);
            break;
        }
    }

    /// `on` pixels of every `period` along the strip, in phase with the viewport's origin so
    /// that the pattern runs on unbroken from one cell to the next.
    void paintDashes(const QRect& strip, Qt::Orientation along, int on, int period,
                     const QColor& color)
    {
        if (strip.isEmpty())
            return;
        const bool vertical = along == Qt::Vertical;
        const int first = vertical ? strip.top() : strip.left();
        const int last = vertical ? strip.bottom() : strip.right();
        for (int dash = floorDiv(first, period) * period; dash <= last; dash += period) {
            const int from = std::max(dash, first);
            const int to = std::min(dash + on - 1, last);
            if (from > to)
                continue;
            fillLine(vertical ? QRect(strip.left(), from, strip.width(), to - from + 1)
                              : QRect(from, strip.top(), to - from + 1, strip.height()),
                     vertical ? Qt::Horizontal : Qt::Vertical, true, color);
        }
    }

    void paintText(int r, int c, const FlexCellFormat& format, bool fixed, const QRect& content,
                   const QColor& color)
    {
        const QStringView view = d.store.textView(r, c);
        if (view.isEmpty())
            return;
        const QRect box = content.adjusted(TextMarginX, TextMarginY, -TextMarginX, -TextMarginY);
        if (box.isEmpty())
            return;
        selectFont(r, c, format, fixed);
        const QString text = fixed
                                 ? view.toString()
                                 : shownNumber(d, c, view.toString(), p.fontMetrics(), box.width());
        const int flags =
            textFlags(alignmentFlags(d.effectiveAlignment(r, c), text, locale), box, text);
        const int style = format.textStyle >= 0 ? format.textStyle
                          : fixed               ? d.textStyleFixed
                                                : d.textStyle;
        paintTextRelief(box, flags, text, style);
        p.setPen(color);
        p.drawText(box, flags, text);
    }

    /// Alignment plus wrapping. A wrapped text taller than its cell starts at the top, so that
    /// its first lines are the ones that show.
    int textFlags(Qt::Alignment alignment, const QRect& box, const QString& text) const
    {
        if (!d.wordWrap)
            return int(alignment) | Qt::TextSingleLine;
        const int wrapped = int(alignment) | Qt::TextWordWrap;
        if ((alignment & Qt::AlignTop) ||
            p.fontMetrics().boundingRect(box, wrapped, text).height() <= box.height())
            return wrapped;
        return int(alignment & Qt::AlignHorizontal_Mask) | Qt::AlignTop | Qt::TextWordWrap;
    }

    /// The one-pixel copies under the text that make it look raised or inset (TextStyle):
    /// a shadow below-right reads as raised, a highlight there as inset; the full styles add
    /// the opposite colour above-left.
    void paintTextRelief(const QRect& box, int flags, const QString& text, int style)
    {
        const auto copy = [&](int offset, const QColor& color) {
            p.setPen(color);
            p.drawText(box.translated(offset, offset), flags, text);
        };
        switch (style) {
        case flexTextRaised:
            copy(-1, EdgeLight);
            copy(1, TextShadow);
            break;
        case flexTextInset:
            copy(-1, TextShadow);
            copy(1, EdgeLight);
            break;
        case flexTextRaisedLight:
            copy(1, TextShadow);
            break;
        case flexTextInsetLight:
            copy(1, EdgeLight);
            break;
        default:
            break;
        }
    }

    /// The grid or fixed font object for cells without font members of their own, so a frame
    /// makes no font per cell; the painter's font changes only when the font does.
    void selectFont(int r, int c, const FlexCellFormat& format, bool fixed)
    {
        if (hasOwnFont(format)) {
            p.setFont(d.cellFont(r, c));
            fontInUse = nullptr;
            return;
        }
        const QFont* wanted = fixed ? &fixedFont : &gridFont;
        if (wanted != fontInUse) {
            p.setFont(*wanted);
            fontInUse = wanted;
        }
    }

    /// `CellPicture` at `CellPictureAlignment`, shrunk (keeping its proportions) only when it is
    /// larger than the cell.
    void paintPicture(const QPixmap& picture, int alignment, const QRect& content)
    {
        QSize size = picture.deviceIndependentSize().toSize();
        const bool shrink = size.width() > content.width() || size.height() > content.height();
        if (shrink)
            size = size.scaled(content.size(), Qt::KeepAspectRatio);
        if (size.isEmpty())
            return;
        p.setRenderHint(QPainter::SmoothPixmapTransform, shrink);
        if (!shrink && ratio != picture.devicePixelRatio() && d.pictureAtRatio) {
            // Drawn pixel for device pixel from a whole device pixel: nothing is resampled.
            const QPixmap sharp = d.pictureAtRatio(picture, ratio);
            if (!sharp.isNull()) {
                const QPoint origin = alignedOrigin(size, content, alignment);
                p.drawPixmap(
                    QPointF(qRound(origin.x() * ratio) / ratio, qRound(origin.y() * ratio) / ratio),
                    sharp);
                return;
            }
        }
        p.drawPixmap(QRect(alignedOrigin(size, content, alignment), size), picture);
    }

    /// FocusRect 1: a dotted one-pixel frame; 2: a solid two-pixel frame.
    void paintFocusRect(const QRect& content, const QColor& color)
    {
        const bool heavy = d.focusRect == flexFocusHeavy;
        const int width = heavy ? HeavyFocusWidth : 1;
        const std::array<QRect, 4> edges{
            QRect(content.left(), content.top(), content.width(), width),
            QRect(content.left(), content.bottom() - width + 1, content.width(), width),
            QRect(content.left(), content.top(), width, content.height()),
            QRect(content.right() - width + 1, content.top(), width, content.height())};
        for (int i = 0; i < int(edges.size()); ++i) {
            const QRect edge = edges[i] & content;
            if (heavy)
                p.fillRect(edge, color);
            else
                paintDashes(edge, i < 2 ? Qt::Horizontal : Qt::Vertical, DotOn, DotPeriod, color);
        }
    }

    const FlexGridPrivate& d;
    QPainter& p;
    const QRect region;
    const QPalette palette;
    const QColor back;
    const QColor fore;
    const QColor backFixed;
    const QColor foreFixed;
    const QColor backSel;
    const QColor foreSel;
    const QColor lineColor;
    const QColor lineColorFixed;
    const QFont gridFont;
    const QFont fixedFont;
    const vb::VbLocale locale;
    /// Device pixels per pixel of the surface painted on (the screen's scale).
    const qreal ratio;
    const bool highlight;
    /// readableTextColor() by text and background colour: a frame meets only a few pairs.
    std::unordered_map<quint64, QColor> readableColors;
    const QFont* fontInUse = nullptr;
    std::optional<MergeRuns> merges;
};

} // namespace

void FlexGridPrivate::paint(QPainter& painter, const QRect& region) const
{
    FramePainter(*this, painter, region & q->viewport()->rect()).paint();
}

QString FlexGridPrivate::hiddenNumberAt(const QPoint& pos) const
{
    const int r = rowAtPx(pos.y());
    const int c = colAtPx(pos.x());
    if (r < 0 || c < 0 || r >= store.rowCount() || c >= store.colCount() || isFixed(r, c))
        return {};
    const QRect cell = cellRectPx(r, c);
    if (!cell.contains(pos))
        return {};
    const int line = (gridLines == flexGridNone ? 0 : gridLineWidth) + 2 * TextMarginX;
    const QString text = store.textView(r, c).toString();
    const QString shown = shownNumber(*this, c, text, QFontMetrics(cellFont(r, c), q->viewport()),
                                      cell.width() - line);
    return shown == text ? QString() : text;
}

QPixmap FlexGridPrivate::snapshot() const
{
    const QWidget* view = q->viewport();
    if (view->size().isEmpty())
        return QPixmap();
    const qreal ratio = view->devicePixelRatioF();
    QPixmap pixmap(view->size() * ratio);
    pixmap.setDevicePixelRatio(ratio);
    {
        QPainter painter(&pixmap);
        paint(painter, view->rect());
    }
    if (pictureType != flexPictureMonochrome)
        return pixmap;
    QImage mono = pixmap.toImage().convertToFormat(QImage::Format_Mono);
    mono.setDevicePixelRatio(ratio);
    return QPixmap::fromImage(mono);
}

} // namespace VemoGridLib
