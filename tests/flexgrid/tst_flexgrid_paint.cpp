// SPDX-License-Identifier: MIT
// FlexGrid's drawing, checked pixel by pixel at places computed from the twips geometry.
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
    void redrawAndPicture();
};

void tst_FlexGridPaint::pixels_data()
{
    QTest::addColumn<QString>("steps");
    // Probes "row,col,place=COLOUR"; places of the cell: c centre, l / t its left / top edge, T one
    // pixel below the top edge, r / b its right / bottom grid line (at mid-height / mid-width), u
    // the right line near the top, v the bottom line near the right, i / R / J one / two / three
    // pixels left of the right line, o / d five pixels right of / below it.
    QTest::addColumn<QString>("probes");

    const auto add = [](const QString& steps, const char* probes) {
        QTest::newRow(steps.isEmpty() ? "defaults" : qPrintable(steps)) << steps << probes;
    };
    add("", "2,2,c=WINDOW 0,2,c=BUTTON 3,0,c=BUTTON 5,3,o=GREY 5,3,d=GREY");
    add("BackColorBkg=TEAL", "5,3,o=TEAL 5,3,d=TEAL 5,3,c=WINDOW");
    add("sel=2,2,2,2 CellBackColor(GREEN) Row=4",
        "2,2,c=GREEN 2,1,c=WINDOW 2,3,c=WINDOW 1,2,c=WINDOW 3,2,c=WINDOW");
    add("BackColorSel=RED sel=1,1,3,2", "2,2,c=RED 3,1,c=RED 1,1,c=WINDOW 4,2,c=WINDOW");
    add("HighLight=0 BackColorSel=RED sel=1,1,3,2", "2,2,c=WINDOW");
    add("focus HighLight=2 BackColorSel=RED sel=1,1,3,2", "2,2,c=RED");
    // The focus rectangle shows without the focus too; without it the cell shows as selected.
    add("FocusRect=0 BackColorSel=RED sel=2,2,2,2", "2,2,c=RED");
    add("BackColorSel=RED sel=2,2,2,2", "2,2,c=WINDOW 2,2,J=WINDOW");
    add("FocusRect=2 sel=2,2,2,2", "2,2,t=BLUE 2,2,T=BLUE 2,2,i=BLUE 2,2,R=BLUE");
    add("BackColorSel=RED sel=0,0,3,2", "0,1,c=BUTTON 2,0,c=BUTTON 2,2,c=RED");
    add("BackColorSel=RED sel=1,1,3,2 MergeCells=1", "2,2,c=WINDOW");
    add("FillStyle=1 sel=3,1,3,3 CellBackColor(TEAL) sel=5,1,5,1 RowHeight(2,0)",
        "3,2,c=TEAL 1,2,c=WINDOW");
    add("GridColor=GREEN", "2,2,r=GREEN 2,2,b=GREEN 2,2,i=WINDOW");
    add("BackColor=CREAM GridLines=2", "2,2,r=BLACK 2,2,l=WHITE 2,2,i=CREAM");
    add("BackColor=CREAM GridLines=3", "2,2,r=WHITE 2,2,t=BLACK 2,2,i=CREAM");
    add("GridColor=GREEN GridLineWidth=3", "2,2,r=GREEN 2,2,R=GREEN 2,2,J=WINDOW");
    add("GridLinesFixed=1 GridColorFixed=RED GridColor=GREEN", "0,2,r=RED 0,2,b=RED 2,2,r=GREEN");
    // Two equal texts side by side in row 2 (MergeRow) or one above the other in column 2.
    const QString row = "TextMatrix(2,1,S) TextMatrix(2,2,S) MergeRow(2,1) GridColor=GREEN ";
    const QString column = "TextMatrix(2,2,V) TextMatrix(3,2,V) MergeCol(2,1) GridColor=GREEN ";
    add(row, "2,1,u=GREEN");
    add(row + "MergeCells=1", "2,1,u=WINDOW");
    add(row + "MergeCells=3", "2,1,u=GREEN");
    add(row + "MergeRow(2,0) MergeCells=1", "2,1,u=GREEN");
    add(row + "TextMatrix(2,2,T) MergeCells=1", "2,1,u=GREEN");
    add(column + "MergeCells=1", "2,2,v=WINDOW");
    add(column + "MergeCells=2", "2,2,v=GREEN");
    add(column + "MergeCells=2 MergeCol(1,1) TextMatrix(2,1,G) TextMatrix(3,1,G)", "2,2,v=WINDOW");
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
    // Where the ink sits (LCR, TMB), '+' if taller than a line, or the text style's light / shadow.
    QTest::addColumn<QString>("placement");
    const auto add = [](const char* name, const char* text, const QString& steps,
                        const char* colour, const char* placement) {
        QTest::newRow(name) << text << steps << colour << placement;
    };
    for (int alignment = 0; alignment <= 8; ++alignment) {
        const char place[] = {"LCR"[alignment / 3], "TMB"[alignment % 3], 0};
        add(place, "MMM", QStringLiteral("ColAlignment(2,%1)").arg(alignment), "BLUE", place);
    }
    add("general, number", "-12.5", "", "BLUE", "RM");
    add("CellForeColor", "MMM", "sel=2,2,2,2 CellForeColor(RED) Row=4", "RED", "LM");
    add("WordWrap", "alpha beta gamma delta", "WordWrap=true", "BLUE", "+");
    add("the cell's own font", "MMM",
        "sel=2,2,2,2 CellFontSize(20) CellFontWidth(12) CellFontUnderline(1) Row=4", "BLUE", "+");
    add("fixed cell", "MMM", "FixedRows=3 ForeColorFixed=RED", "RED", "");
    const QString teal = "BackColor=TEAL BackColorFixed=TEAL ForeColorFixed=BLUE GridLines=0 "
                         "GridLinesFixed=0 ";
    add("raised", "WWW", teal + "TextStyle=1", "BLUE", "light shadow");
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
