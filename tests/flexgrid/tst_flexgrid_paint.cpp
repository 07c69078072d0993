// SPDX-License-Identifier: MIT
// FlexGrid's drawing, checked pixel by pixel on the grabbed viewport at places computed from the
// twips geometry (96 dpi and an unsmoothed DejaVu Sans 9 pinned).
#include "FlexTestSupport.h"
#include <VemoGridLib/OleColor.h>

#include <QFontMetrics>
#include <QImage>

using namespace VemoGridLib;
using namespace VemoGridLib::Flex;
using namespace VemoTest;

namespace {

const QMap<QString, QColor> Colours = {
    {"RED", QColor(200, 0, 0)},       {"GREEN", QColor(0, 160, 0)},
    {"BLUE", QColor(0, 0, 255)},      {"TEAL", QColor(0, 128, 128)},
    {"CREAM", QColor(255, 255, 200)}, {"GREY", QColor(128, 128, 128)},
    {"MAGENTA", QColor(255, 0, 255)}, {"BLACK", QColor(Qt::black)},
    {"WHITE", QColor(Qt::white)}};

/// A shown 6 × 4 grid of 80 × 20 px cells with blue text, after `steps` (colour names stand for
/// their OLE colours); "focus" in the steps gives it the keyboard focus.
std::unique_ptr<Scene> paintedGrid(QString steps)
{
    auto scene = showGrid(6, 4);
    if (!scene)
        return nullptr;
    scene->grid->setForeColor(fromQColor(Colours["BLUE"]));
    const bool focus = steps.contains(QStringLiteral("focus"));
    for (auto it = Colours.begin(); it != Colours.end(); ++it)
        steps.replace(it.key(), QStringLiteral("0x%1").arg(fromQColor(it.value()), 0, 16));
    run(*scene->grid, steps.remove(QStringLiteral("focus")));
    scene->window.activateWindow();
    if (!QTest::qWaitForWindowActive(&scene->window))
        return nullptr;
    focus ? scene->grid->setFocus() : scene->other->setFocus();
    return scene;
}

QImage shot(FlexGrid& grid)
{
    return grid.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// The pixels of exactly `color` inside `area`: their number and bounding box.
std::pair<int, QRect> ink(const QImage& image, const QRect& area, const QColor& color)
{
    int count = 0;
    QRect bounds;
    const QRect inside = area & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if (image.pixel(x, y) == color.rgb())
                ++count, bounds |= QRect(x, y, 1, 1);
        }
    }
    return {count, bounds};
}

/// 'L', 'C' or 'R' (or 'T', 'M', 'B') from the free space before and after the ink.
char place(int before, int after, const char* names)
{
    return std::abs(before - after) <= 4 ? names[1] : before < after ? names[0] : names[2];
}

} // namespace

class tst_FlexGridPaint : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(pinFontAndDpi()); }
    void pixels_data();
    void pixels();
    void text_data();
    void text();
    void cellPicture_data();
    void cellPicture();
    void redrawAndPicture();
};

void tst_FlexGridPaint::pixels_data()
{
    QTest::addColumn<QString>("steps");
    // Probes "row,col,place=COLOUR"; places of the cell: c centre, l / t its left / top edge,
    // T one pixel below the top edge, r / b its right / bottom grid line (at mid-height /
    // mid-width), u the right line near the top, v the bottom line near the right, i / R / J
    // one / two / three pixels left of the right line, o / d five pixels right of / below it.
    QTest::addColumn<QString>("probes");

    const auto add = [](const char* name, const QString& steps, const char* probes) {
        QTest::newRow(name) << steps << probes;
    };
    add("defaults", "", "2,2,c=WINDOW 0,2,c=BUTTON 3,0,c=BUTTON 5,3,o=GREY 5,3,d=GREY");
    add("BackColorBkg", "BackColorBkg=TEAL", "5,3,o=TEAL 5,3,d=TEAL 5,3,c=WINDOW");
    add("CellBackColor", "sel=2,2,2,2 CellBackColor(GREEN) Row=4",
        "2,2,c=GREEN 2,1,c=WINDOW 2,3,c=WINDOW 1,2,c=WINDOW 3,2,c=WINDOW");
    add("CellBackColor of a header", "sel=0,2,0,2 CellBackColor(GREEN) sel=4,3,4,3",
        "0,2,c=GREEN 0,1,c=BUTTON 1,2,c=WINDOW");
    add("BackColorFixed", "BackColorFixed=TEAL", "0,1,c=TEAL 2,0,c=TEAL 2,2,c=WINDOW");
    add("selection", "BackColorSel=RED sel=1,1,3,2",
        "2,2,c=RED 3,1,c=RED 1,1,c=WINDOW 4,2,c=WINDOW");
    add("HighLight never", "HighLight=0 BackColorSel=RED sel=1,1,3,2", "2,2,c=WINDOW");
    add("HighLight with focus", "focus HighLight=2 BackColorSel=RED sel=1,1,3,2", "2,2,c=RED");
    add("HighLight with focus, unfocused", "HighLight=2 BackColorSel=RED sel=1,1,3,2",
        "2,2,c=WINDOW");
    // The focus rectangle shows on the current cell even when the grid does not have the focus:
    // dotted, or two pixels wide on both sides; without it the cell shows as selected.
    add("FocusRect none", "FocusRect=0 BackColorSel=RED sel=2,2,2,2", "2,2,c=RED");
    add("FocusRect light", "BackColorSel=RED sel=2,2,2,2", "2,2,c=WINDOW 2,2,J=WINDOW");
    add("FocusRect heavy", "FocusRect=2 sel=2,2,2,2",
        "2,2,t=BLUE 2,2,T=BLUE 2,2,i=BLUE 2,2,R=BLUE");
    add("fixed cells never highlighted", "BackColorSel=RED sel=0,0,3,2",
        "0,1,c=BUTTON 2,0,c=BUTTON 2,2,c=RED");
    add("merging turns highlight off", "BackColorSel=RED sel=1,1,3,2 MergeCells=1", "2,2,c=WINDOW");
    add("hidden row", "FillStyle=1 sel=3,1,3,3 CellBackColor(TEAL) sel=5,1,5,1 RowHeight(2,0)",
        "3,2,c=TEAL 1,2,c=WINDOW");
    add("grid lines flat", "GridColor=GREEN", "2,2,r=GREEN 2,2,b=GREEN 2,2,i=WINDOW");
    add("grid lines none", "GridLines=0 GridColor=GREEN", "2,2,r=WINDOW 2,2,b=WINDOW");
    add("grid lines inset", "BackColor=CREAM GridLines=2", "2,2,r=BLACK 2,2,l=WHITE 2,2,i=CREAM");
    add("grid lines raised", "BackColor=CREAM GridLines=3", "2,2,r=WHITE 2,2,t=BLACK 2,2,i=CREAM");
    add("GridLineWidth 3", "GridColor=GREEN GridLineWidth=3",
        "2,2,r=GREEN 2,2,R=GREEN 2,2,J=WINDOW");
    add("fixed grid lines", "", "0,2,r=BLACK 0,2,l=WHITE");
    add("fixed grid lines flat", "GridLinesFixed=1 GridColorFixed=RED GridColor=GREEN",
        "0,2,r=RED 0,2,b=RED 2,2,r=GREEN");
    // Two equal texts side by side in row 2 (MergeRow) or one above the other in column 2.
    const QString row = "TextMatrix(2,1,S) TextMatrix(2,2,S) MergeRow(2,1) GridColor=GREEN ";
    const QString column = "TextMatrix(2,2,V) TextMatrix(3,2,V) MergeCol(2,1) GridColor=GREEN ";
    add("merge never", row, "2,1,u=GREEN");
    add("merge free", row + "MergeCells=1", "2,1,u=WINDOW");
    add("merge restrict rows", row + "MergeCells=2", "2,1,u=WINDOW");
    add("merge restrict columns, row above apart", row + "MergeCells=3", "2,1,u=GREEN");
    add("merge restrict all, row above apart", row + "MergeCells=4", "2,1,u=GREEN");
    add("merge free, row not flagged", row + "MergeRow(2,0) MergeCells=1", "2,1,u=GREEN");
    add("merge free, texts differ", row + "TextMatrix(2,2,T) MergeCells=1", "2,1,u=GREEN");
    add("merge free, empty cells", "MergeRow(2,1) MergeCells=1 GridColor=GREEN", "2,1,u=GREEN");
    add("merge down, free", column + "MergeCells=1", "2,2,v=WINDOW");
    add("merge down, restrict rows, left apart", column + "MergeCells=2", "2,2,v=GREEN");
    add("merge down, restrict rows, left merged",
        column + "MergeCells=2 MergeCol(1,1) TextMatrix(2,1,G) TextMatrix(3,1,G)", "2,2,v=WINDOW");
    add("merge down, restrict columns", column + "MergeCells=3", "2,2,v=WINDOW");
}

void tst_FlexGridPaint::pixels()
{
    QFETCH(QString, steps);
    QFETCH(QString, probes);
    const auto scene = paintedGrid(steps);
    QVERIFY(scene);
    FlexGrid& grid = *scene->grid;
    const QImage image = shot(grid);

    for (const QString& probe : probes.split(u' ')) {
        const QStringList parts = probe.split(QRegularExpression(QStringLiteral("[,=]")));
        const QRect cell = cellRect(grid, parts[0].toInt(), parts[1].toInt());
        const QPoint m = cell.center();
        const QHash<QChar, QPoint> places = {{u'c', m},
                                             {u'l', {cell.left(), m.y()}},
                                             {u't', {m.x(), cell.top()}},
                                             {u'T', {m.x(), cell.top() + 1}},
                                             {u'r', {cell.right(), m.y()}},
                                             {u'b', {m.x(), cell.bottom()}},
                                             {u'u', {cell.right(), cell.top() + 2}},
                                             {u'v', {cell.right() - 3, cell.bottom()}},
                                             {u'i', {cell.right() - 1, m.y()}},
                                             {u'R', {cell.right() - 2, m.y()}},
                                             {u'J', {cell.right() - 3, m.y()}},
                                             {u'o', {cell.right() + 5, m.y()}},
                                             {u'd', {m.x(), cell.bottom() + 5}}};
        const QColor expected = parts[3] == u"WINDOW" ? toQColor(vbWindowBackground, grid.palette())
                                : parts[3] == u"BUTTON" ? toQColor(vbButtonFace, grid.palette())
                                                        : Colours[parts[3]];
        const QColor actual(image.pixel(places.value(parts[2].at(0))));
        if (!expected.isValid() || actual != expected.toRgb())
            QFAIL(qPrintable(probe + QStringLiteral(" is ") + actual.name()));
    }
}

void tst_FlexGridPaint::text_data()
{
    QTest::addColumn<QString>("text"); // in cell (2, 2), 60 px high
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("colour");
    // Where the ink sits, horizontally then vertically, if checked; '+' if it is taller than
    // a line of the grid font. The text styles show light and shadow pixels on teal.
    QTest::addColumn<QString>("placement");
    const auto add = [](const char* name, const char* text, const QString& steps,
                        const char* colour, const char* placement) {
        QTest::newRow(name) << text << steps << colour << placement;
    };
    for (int alignment = 0; alignment <= 8; ++alignment) {
        const char place[] = {"LCR"[alignment / 3], "TMB"[alignment % 3], 0};
        add(place, "MMM", QStringLiteral("ColAlignment(2,%1)").arg(alignment), "BLUE", place);
    }
    add("general, text", "MMM", "", "BLUE", "LM");
    add("general, number", "-12.5", "", "BLUE", "RM");
    add("CellForeColor", "MMM", "sel=2,2,2,2 CellForeColor(RED) Row=4", "RED", "LM");
    add("WordWrap", "alpha beta gamma delta", "WordWrap=true", "BLUE", "+");
    add("no WordWrap", "alpha beta gamma delta", "", "BLUE", "");
    add("the cell's own font", "MMM",
        "sel=2,2,2,2 CellFontSize(20) CellFontWidth(12) CellFontUnderline(1) Row=4", "BLUE", "+");
    add("fixed cell", "MMM", "FixedRows=3 ForeColorFixed=RED", "RED", "");
    const QString teal = "BackColor=TEAL BackColorFixed=TEAL ForeColorFixed=BLUE GridLines=0 "
                         "GridLinesFixed=0 ";
    add("flat", "WWW", teal, "BLUE", "");
    add("raised", "WWW", teal + "TextStyle=1", "BLUE", "light shadow");
    add("inset", "WWW", teal + "TextStyle=2", "BLUE", "light shadow");
    add("raised light", "WWW", teal + "TextStyle=3", "BLUE", "shadow");
    add("inset light", "WWW", teal + "TextStyle=4", "BLUE", "light");
    add("the cell's own style", "WWW", teal + "TextStyle=1 sel=2,2,2,2 CellTextStyle(0) Row=4",
        "BLUE", "");
    add("fixed cell style", "WWW", teal + "FixedRows=3 TextStyle=1 TextStyleFixed=4", "BLUE",
        "light");
}

void tst_FlexGridPaint::text()
{
    QFETCH(QString, steps);
    QFETCH(QString, colour);
    QFETCH(QString, placement);
    const auto scene = paintedGrid(QStringLiteral("RowHeight(2,900) ") + steps);
    QVERIFY(scene);
    FlexGrid& grid = *scene->grid;
    QFETCH(QString, text);
    grid.setTextMatrix(2, 2, text);
    const QImage image = shot(grid);

    const QRect cell = cellRect(grid, 2, 2);
    const auto [count, bounds] = ink(image, cell, Colours[colour]);
    QVERIFY(count > 20);
    QCOMPARE(ink(image, cellRect(grid, 2, 3), Colours[colour]).first, 0);
    if (steps.startsWith(u'B')) {
        QCOMPARE(ink(image, cell, Colours["WHITE"]).first > 0, placement.contains(u"light"));
        QCOMPARE(ink(image, cell, Colours["GREY"]).first > 0, placement.contains(u"shadow"));
        return;
    }
    QCOMPARE(bounds.height() > QFontMetrics(grid.Font()).height(), placement == u"+");
    if (placement.size() != 2)
        return;
    const char found[] = {place(bounds.left() - cell.left(), cell.right() - bounds.right(), "LCR"),
                          place(bounds.top() - cell.top(), cell.bottom() - bounds.bottom(), "TMB"),
                          0};
    QCOMPARE(QString::fromLatin1(found), placement);
}

void tst_FlexGridPaint::cellPicture_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("size");
    QTest::newRow("left top") << 0 << 8;
    QTest::newRow("centre centre") << 4 << 8;
    QTest::newRow("right bottom") << 8 << 8;
    QTest::newRow("too large: shrunk to the cell's height") << 0 << 200;
}

void tst_FlexGridPaint::cellPicture()
{
    // Over text in the background colour, as VemoGrid draws its check boxes.
    QFETCH(int, alignment);
    QFETCH(int, size);
    const auto scene =
        paintedGrid("RowHeight(2,900) sel=2,2,2,2 CellForeColor(TEAL) CellBackColor(TEAL)");
    QVERIFY(scene);
    FlexGrid& grid = *scene->grid;
    grid.setTextMatrix(2, 2, QStringLiteral("WWWWWW"));
    grid.setCellPicture(solid(Colours["MAGENTA"], size));
    grid.setCellPictureAlignment(alignment);
    grid.setRow(4);
    const QImage image = shot(grid);

    const QRect cell = cellRect(grid, 2, 2);
    const int shown = std::min(size, cell.height() - 1);
    const QSize free = cell.size() - QSize(1 + shown, 1 + shown);
    const QPoint offset(free.width() * (alignment / 3) / 2, free.height() * (alignment % 3) / 2);
    QCOMPARE(ink(image, image.rect(), Colours["MAGENTA"]),
             std::pair(shown * shown, QRect(cell.topLeft() + offset, QSize(shown, shown))));
    QCOMPARE(ink(image, cell, Colours["BLUE"]).first, 0);
}

void tst_FlexGridPaint::redrawAndPicture()
{
    const auto scene = paintedGrid("");
    QVERIFY(scene);
    FlexGrid& grid = *scene->grid;
    const auto render = [&grid](const QRegion& region = {}) {
        QImage image(grid.viewport()->size(), QImage::Format_RGB32);
        image.fill(Colours["MAGENTA"]);
        grid.viewport()->render(&image, region.boundingRect().topLeft(), region);
        return image;
    };
    const QRect cell = cellRect(grid, 2, 2);
    // Only the region asked for is painted.
    const QImage part = render(QRegion(cell));
    QCOMPARE(ink(part, part.rect(), Colours["MAGENTA"]).first,
             part.width() * part.height() - cell.width() * cell.height());

    // Redraw false suspends painting; Picture still shows the cells as they are.
    run(grid, QStringLiteral("Redraw=false sel=2,2,2,2 CellBackColor(0x808000) Row=4"));
    QCOMPARE(QColor(render().pixel(cell.center())), Colours["MAGENTA"]);
    const QImage picture = grid.Picture().toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(picture.size(), grid.viewport()->size());
    QCOMPARE(QColor(picture.pixel(cell.center())), Colours["TEAL"]);
    grid.setPictureType(flexPictureMonochrome);
    const QImage mono = grid.Picture().toImage().convertToFormat(QImage::Format_RGB32);
    const int black = ink(mono, mono.rect(), Qt::black).first;
    const int white = ink(mono, mono.rect(), Qt::white).first;
    QVERIFY(black > 0 && white > 0);
    QCOMPARE(black + white, mono.width() * mono.height());
    grid.setRedraw(true);
    QCOMPARE(QColor(render().pixel(cell.center())), Colours["TEAL"]);
}

QTEST_MAIN(tst_FlexGridPaint)
#include "tst_flexgrid_paint.moc"
