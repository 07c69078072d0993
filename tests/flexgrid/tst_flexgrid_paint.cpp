// SPDX-License-Identifier: MIT
// FlexGrid's drawing, checked pixel by pixel on the grabbed viewport at places computed from the
// twips geometry (96 dpi and an unsmoothed DejaVu Sans 9 pinned).
#include "FlexTestSupport.h"
#include <VemoGridLib/OleColor.h>

#include <QFontMetrics>
#include <QImage>

#include <array>

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

// The steps with colour names as OLE colours.
QString withColours(QString steps)
{
    for (auto it = Colours.begin(); it != Colours.end(); ++it)
        steps.replace(it.key(), QStringLiteral("0x%1").arg(fromQColor(it.value()), 0, 16));
    return steps;
}

/// A shown 6 × 4 grid of 80 × 20 px cells with blue text, after `steps`; "focus" in the steps
/// gives it the keyboard focus, which it otherwise does not have.
std::unique_ptr<Scene> paintedGrid(const QString& steps = {}, int rows = 6)
{
    auto scene = showGrid(rows, 4);
    if (!scene)
        return nullptr;
    scene->grid->setForeColor(fromQColor(Colours["BLUE"]));
    run(*scene->grid, withColours(QString(steps).remove(QStringLiteral("focus"))));
    scene->window.activateWindow();
    if (!QTest::qWaitForWindowActive(&scene->window))
        return nullptr;
    if (steps.contains(QStringLiteral("focus")))
        scene->grid->setFocus();
    else
        scene->other->setFocus();
    return scene;
}

QImage shot(FlexGrid& grid)
{
    return grid.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

int countPixels(const QImage& image, const QRect& area, const QColor& color)
{
    int count = 0;
    const QRect inside = area & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x)
            count += image.pixel(x, y) == color.rgb() ? 1 : 0;
    }
    return count;
}

/// The bounding box of the pixels of exactly `color` inside `area`.
QRect inkBounds(const QImage& image, const QRect& area, const QColor& color)
{
    QRect bounds;
    const QRect inside = area & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if (image.pixel(x, y) == color.rgb())
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
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
    void textStyle_data();
    void textStyle();
    void cellPicture_data();
    void cellPicture();
    void redrawAndPicture();
};

void tst_FlexGridPaint::pixels_data()
{
    QTest::addColumn<QString>("steps");
    // Probes "row,col,place=COLOUR"; places of the cell: c centre, l / t its left / top edge,
    // T one pixel below the top edge,
    // r / b its right / bottom grid line (at mid-height / mid-width), u the right line near
    // the top, v the bottom line near the right, i just left of the right line, R and J two
    // and three pixels left of it, o / d five pixels right of / below the cell.
    QTest::addColumn<QString>("probes");

    const auto add = [](const char* name, const char* steps, const char* probes) {
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
    add("HighLight with focus, focused", "focus HighLight=2 BackColorSel=RED sel=1,1,3,2",
        "2,2,c=RED");
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
    const char* row = "TextMatrix(2,1,Same) TextMatrix(2,2,Same) MergeRow(2,1) GridColor=GREEN";
    const QString column = "TextMatrix(2,2,V) TextMatrix(3,2,V) MergeCol(2,1) GridColor=GREEN ";
    add("merge never", row, "2,1,u=GREEN");
    QTest::newRow("merge free") << QString(row) + " MergeCells=1"
                                << "2,1,u=WINDOW";
    QTest::newRow("merge restrict rows") << QString(row) + " MergeCells=2"
                                         << "2,1,u=WINDOW";
    QTest::newRow("merge restrict columns, row above apart") << QString(row) + " MergeCells=3"
                                                             << "2,1,u=GREEN";
    QTest::newRow("merge restrict all, row above apart") << QString(row) + " MergeCells=4"
                                                         << "2,1,u=GREEN";
    add("merge free, row not flagged",
        "TextMatrix(2,1,S) TextMatrix(2,2,S) MergeCells=1 GridColor=GREEN", "2,1,u=GREEN");
    add("merge free, texts differ",
        "TextMatrix(2,1,S) TextMatrix(2,2,T) MergeRow(2,1) MergeCells=1 GridColor=GREEN",
        "2,1,u=GREEN");
    add("merge free, empty cells", "MergeRow(2,1) MergeCells=1 GridColor=GREEN", "2,1,u=GREEN");
    QTest::newRow("merge down, free") << column + "MergeCells=1"
                                      << "2,2,v=WINDOW";
    QTest::newRow("merge down, restrict rows, left apart") << column + "MergeCells=2"
                                                           << "2,2,v=GREEN";
    QTest::newRow("merge down, restrict rows, left merged")
        << column + "MergeCells=2 MergeCol(1,1) TextMatrix(2,1,G) TextMatrix(3,1,G)"
        << "2,2,v=WINDOW";
    QTest::newRow("merge down, restrict columns") << column + "MergeCells=3"
                                                  << "2,2,v=WINDOW";
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
    QTest::addColumn<QString>("placement"); // horizontal then vertical
    QTest::addColumn<bool>("tall");         // more than a line of the grid font high

    for (int alignment = 0; alignment <= 8; ++alignment) {
        const char place[] = {"LCR"[alignment / 3], "TMB"[alignment % 3], 0};
        QTest::addRow("alignment %d", alignment)
            << "MMM" << QStringLiteral("ColAlignment(2,%1)").arg(alignment) << "BLUE" << place
            << false;
    }
    QTest::newRow("general, text") << "MMM"
                                   << ""
                                   << "BLUE"
                                   << "LM" << false;
    QTest::newRow("general, number") << "-12.5"
                                     << ""
                                     << "BLUE"
                                     << "RM" << false;
    QTest::newRow("CellForeColor") << "MMM"
                                   << "sel=2,2,2,2 CellForeColor(RED) Row=4"
                                   << "RED"
                                   << "LM" << false;
    QTest::newRow("WordWrap") << "alpha beta gamma delta"
                              << "WordWrap=true"
                              << "BLUE"
                              << "" << true;
    QTest::newRow("no WordWrap") << "alpha beta gamma delta"
                                 << ""
                                 << "BLUE"
                                 << "" << false;
    QTest::newRow("the cell's own font")
        << "MMM"
        << "sel=2,2,2,2 CellFontSize(20) CellFontWidth(12) CellFontUnderline(1) Row=4"
        << "BLUE"
        << "" << true;
    QTest::newRow("fixed cell") << "MMM"
                                << "FixedRows=3 ForeColorFixed=RED"
                                << "RED"
                                << "" << false;
}

void tst_FlexGridPaint::text()
{
    QFETCH(QString, text);
    QFETCH(QString, steps);
    QFETCH(QString, colour);
    QFETCH(QString, placement);
    QFETCH(bool, tall);
    const auto scene = paintedGrid(QStringLiteral("RowHeight(2,900) ") + steps);
    QVERIFY(scene);
    FlexGrid& grid = *scene->grid;
    grid.setTextMatrix(2, 2, text);
    const QImage image = shot(grid);

    const QRect cell = cellRect(grid, 2, 2);
    const QRect ink = inkBounds(image, cell, Colours[colour]);
    QVERIFY(countPixels(image, cell, Colours[colour]) > 20);
    QCOMPARE(countPixels(image, cellRect(grid, 2, 3), Colours[colour]), 0);
    QCOMPARE(ink.height() > QFontMetrics(grid.Font()).height(), tall);
    if (placement.isEmpty())
        return;
    const char found[] = {place(ink.left() - cell.left(), cell.right() - ink.right(), "LCR"),
                          place(ink.top() - cell.top(), cell.bottom() - ink.bottom(), "TMB"), 0};
    QCOMPARE(QString::fromLatin1(found), placement);
}

void tst_FlexGridPaint::textStyle_data()
{
    QTest::addColumn<QString>("steps"); // for "WWW" in cell (2, 2) on teal
    QTest::addColumn<bool>("light");
    QTest::addColumn<bool>("shadow");
    QTest::newRow("flat") << "" << false << false;
    QTest::newRow("raised") << "TextStyle=1" << true << true;
    QTest::newRow("inset") << "TextStyle=2" << true << true;
    QTest::newRow("raised light") << "TextStyle=3" << false << true;
    QTest::newRow("inset light") << "TextStyle=4" << true << false;
    QTest::newRow("the cell's own")
        << "TextStyle=1 sel=2,2,2,2 CellTextStyle(0) Row=4" << false << false;
    QTest::newRow("fixed cell") << "FixedRows=3 TextStyle=1 TextStyleFixed=4" << true << false;
}

void tst_FlexGridPaint::textStyle()
{
    QFETCH(QString, steps);
    const auto scene = paintedGrid(
        "BackColor=TEAL BackColorFixed=TEAL ForeColorFixed=BLUE GridLines=0 GridLinesFixed=0 " +
        steps);
    QVERIFY(scene);
    scene->grid->setTextMatrix(2, 2, QStringLiteral("WWW"));
    const QImage image = shot(*scene->grid);
    const QRect cell = cellRect(*scene->grid, 2, 2);
    QVERIFY(countPixels(image, cell, Colours["BLUE"]) > 20);
    QTEST(countPixels(image, cell, Colours["WHITE"]) > 0, "light");
    QTEST(countPixels(image, cell, Colours["GREY"]) > 0, "shadow");
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
    const QSize shown =
        size > cell.height() ? QSize(cell.height() - 1, cell.height() - 1) : QSize(size, size);
    const QSize free = cell.size() - QSize(1, 1) - shown;
    const std::array<int, 3> xs{0, free.width() / 2, free.width()};
    const std::array<int, 3> ys{0, free.height() / 2, free.height()};
    const QRect expected(cell.topLeft() + QPoint(xs[alignment / 3], ys[alignment % 3]), shown);
    QCOMPARE(inkBounds(image, image.rect(), Colours["MAGENTA"]), expected);
    QCOMPARE(countPixels(image, cell, Colours["MAGENTA"]), shown.width() * shown.height());
    QCOMPARE(countPixels(image, cell, Colours["BLUE"]), 0);
}

void tst_FlexGridPaint::redrawAndPicture()
{
    const auto scene = paintedGrid();
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
    QCOMPARE(countPixels(part, part.rect(), Colours["MAGENTA"]),
             part.width() * part.height() - cell.width() * cell.height());

    // Redraw false suspends painting; Picture still shows the cells as they are.
    run(grid, withColours("Redraw=false sel=2,2,2,2 CellBackColor(TEAL) Row=4"));
    QCOMPARE(QColor(render().pixel(cell.center())), Colours["MAGENTA"]);
    const QImage picture = grid.Picture().toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(picture.size(), grid.viewport()->size());
    QCOMPARE(QColor(picture.pixel(cell.center())), Colours["TEAL"]);
    grid.setPictureType(flexPictureMonochrome);
    const QImage mono = grid.Picture().toImage().convertToFormat(QImage::Format_RGB32);
    const int black = countPixels(mono, mono.rect(), Qt::black);
    const int white = countPixels(mono, mono.rect(), Qt::white);
    QVERIFY(black > 0 && white > 0);
    QCOMPARE(black + white, mono.width() * mono.height());
    grid.setRedraw(true);
    QCOMPARE(QColor(render().pixel(cell.center())), Colours["TEAL"]);
}

QTEST_MAIN(tst_FlexGridPaint)
#include "tst_flexgrid_paint.moc"
