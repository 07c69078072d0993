// FlexGrid's drawing (flexgrid-reference.md §6 selection display, §10 looks and merging, §11):
// the grid is shown offscreen and its viewport grabbed; pixels are checked at places computed
// from the public geometry (twips / 15 at 96 dpi).
#include <VemoGridLib/FlexGrid.h>

#include <VemoGridLib/OleColor.h>

#include <QApplication>
#include <QFontMetrics>
#include <QImage>
#include <QLineEdit>
#include <QTest>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

using namespace VemoGridLib;
using namespace VemoGridLib::Flex;

namespace {

constexpr int TwipsPerPixel = 15;
constexpr int ColTwips = 1200; // 80 px
constexpr int RowTwips = 300;  // 20 px
constexpr int TallRowTwips = 900;

const QColor Blue(0, 0, 255);
const QColor Red(200, 0, 0);
const QColor Green(0, 160, 0);
const QColor Teal(0, 128, 128);
const QColor Magenta(255, 0, 255);
const QColor Shadow(128, 128, 128);

OleColor ole(const QColor& color)
{
    return fromQColor(color);
}

/// A window holding the grid and a line edit that can take the focus away from it.
struct Scene
{
    QWidget window;
    FlexGrid* grid = new FlexGrid(&window);
    QLineEdit* other = new QLineEdit(&window);
};

/// A shown grid of `rows` × `cols` with 80 × 20 px cells, text in blue.
std::unique_ptr<Scene> makeScene(int rows = 6, int cols = 4)
{
    auto scene = std::make_unique<Scene>();
    FlexGrid& grid = *scene->grid;
    grid.setGeometry(0, 0, 400, 300);
    scene->other->setGeometry(0, 310, 100, 20);
    scene->window.resize(400, 340);
    grid.setRows(rows);
    grid.setCols(cols);
    grid.setColWidth(-1, ColTwips);
    grid.setRowHeightMin(RowTwips);
    grid.setForeColor(ole(Blue));
    scene->window.show();
    return scene;
}

bool exposed(Scene& scene)
{
    return QTest::qWaitForWindowExposed(&scene.window);
}

/// Gives the keyboard focus to the grid or to the other widget.
bool focusGrid(Scene& scene, bool onGrid)
{
    scene.window.activateWindow();
    if (!QTest::qWaitForWindowActive(&scene.window))
        return false;
    if (onGrid)
        scene.grid->setFocus();
    else
        scene.other->setFocus();
    return scene.grid->hasFocus() == onGrid;
}

QImage shot(FlexGrid& grid)
{
    return grid.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// A cell's rectangle in the viewport, grid lines included, from the public twips geometry.
QRect cellRect(const FlexGrid& grid, int r, int c)
{
    return QRect(grid.ColPos(c) / TwipsPerPixel, grid.RowPos(r) / TwipsPerPixel,
                 grid.ColWidth(c) / TwipsPerPixel, grid.RowHeight(r) / TwipsPerPixel);
}

QColor pixel(const QImage& image, const QPoint& point)
{
    return QColor(image.pixel(point));
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

/// The bounding box of the pixels of exactly `color` inside `area` (text is not antialiased).
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

/// The longest run of `color` down column `x` between `top` and `bottom`.
int longestRunDown(const QImage& image, int x, int top, int bottom, const QColor& color)
{
    int longest = 0;
    int run = 0;
    for (int y = top; y <= bottom; ++y) {
        run = image.pixel(x, y) == color.rgb() ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return longest;
}

/// 'L', 'C' or 'R' (or 'T', 'M', 'B') from the free space before and after the ink.
char placement(int before, int after, char first, char middle, char last)
{
    if (std::abs(before - after) <= 4)
        return middle;
    return before < after ? first : last;
}

QColor windowColor(const FlexGrid& grid)
{
    return toQColor(vbWindowBackground, grid.palette()).toRgb();
}

QColor buttonColor(const FlexGrid& grid)
{
    return toQColor(vbButtonFace, grid.palette()).toRgb();
}

QPixmap solid(int width, int height, const QColor& color)
{
    QPixmap pixmap(width, height);
    pixmap.fill(color);
    return pixmap;
}

} // namespace

class tst_FlexGridPaint : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void defaultBackgrounds();
    void cellBackColorPaintsOnlyThatCell_data();
    void cellBackColorPaintsOnlyThatCell();
    void cellForeColorColoursTheText();
    void fixedColoursAndFont();
    void backColorBkgOutsideTheCells_data();
    void backColorBkgOutsideTheCells();

    void selectionHighlight_data();
    void selectionHighlight();
    void fixedCellsAreNeverHighlighted();
    void focusRect_data();
    void focusRect();
    void clickMovesTheFocusRect();

    void gridLinesSolid_data();
    void gridLinesSolid();
    void gridLinesPatterned_data();
    void gridLinesPatterned();
    void gridLinesFixed();
    void gridLineWidthThree();

    void textAlignment_data();
    void textAlignment();
    void wordWrap_data();
    void wordWrap();
    void wrappedTextTallerThanTheCellStartsAtTheTop();
    void textStyle_data();
    void textStyle();
    void cellFontBoldAddsInk();

    void cellPicture_data();
    void cellPicture();
    void largePictureShrinksIntoTheCell();
    void pictureStaysOverHiddenText();

    void mergeAlongRow_data();
    void mergeAlongRow();
    void mergeDownColumn_data();
    void mergeDownColumn();
    void longMergedRunShowsItsTextInTheViewport();
    void mergingTurnsHighlightOff();

    void paintsOnlyTheRegion();
    void hiddenRowOrColumnIsSkipped_data();
    void hiddenRowOrColumnIsSkipped();
    void redrawFalseSuspendsPainting();
    void crispAtDevicePixelRatioTwo();
    void scrolledTopRowShowsItsText();
    void farRowsOfALongGrid();
    void pictureSnapshot();
};

void tst_FlexGridPaint::initTestCase()
{
    QFont font(QStringLiteral("DejaVu Sans"), 9);
    // Unsmoothed glyphs are exactly the text colour, so ink can be found by colour.
    font.setStyleStrategy(QFont::NoAntialias);
    QApplication::setFont(font);
}

void tst_FlexGridPaint::defaultBackgrounds()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    QCOMPARE(cellRect(grid, 2, 2).size(), QSize(80, 20));
    const QImage image = shot(grid);
    const QColor window = windowColor(grid);
    const QColor button = buttonColor(grid);
    QVERIFY(window != button);
    QCOMPARE(pixel(image, cellRect(grid, 2, 2).center()), window);
    QCOMPARE(pixel(image, cellRect(grid, 1, 1).center()), window);
    QCOMPARE(pixel(image, cellRect(grid, 0, 2).center()), button);
    QCOMPARE(pixel(image, cellRect(grid, 3, 0).center()), button);
    QCOMPARE(pixel(image, cellRect(grid, 0, 0).center()), button);
}

void tst_FlexGridPaint::cellBackColorPaintsOnlyThatCell_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::newRow("data cell") << 2 << 2;
    QTest::newRow("header cell") << 0 << 2;
    QTest::newRow("row header") << 3 << 0;
}

void tst_FlexGridPaint::cellBackColorPaintsOnlyThatCell()
{
    QFETCH(int, row);
    QFETCH(int, col);
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    const QImage before = shot(grid);
    grid.setRow(row);
    grid.setCol(col);
    grid.setCellBackColor(ole(Green));
    grid.setRow(4);
    grid.setCol(3);
    const QImage after = shot(grid);

    QCOMPARE(pixel(after, cellRect(grid, row, col).center()), Green);
    for (const QPoint& step : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)}) {
        const int r = row + step.y();
        const int c = col + step.x();
        if (r < 0 || c < 0)
            continue;
        const QPoint centre = cellRect(grid, r, c).center();
        QCOMPARE(pixel(after, centre), pixel(before, centre));
    }
}

void tst_FlexGridPaint::cellForeColorColoursTheText()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setTextMatrix(2, 1, QStringLiteral("WWW"));
    grid.setTextMatrix(3, 1, QStringLiteral("WWW"));
    grid.setRow(2);
    grid.setCol(1);
    grid.setCellForeColor(ole(Red));
    grid.setRow(4);
    const QImage image = shot(grid);

    QVERIFY(countPixels(image, cellRect(grid, 2, 1), Red) > 20);
    QCOMPARE(countPixels(image, cellRect(grid, 2, 1), Blue), 0);
    QVERIFY(countPixels(image, cellRect(grid, 3, 1), Blue) > 20);
    QCOMPARE(countPixels(image, cellRect(grid, 3, 1), Red), 0);
}

void tst_FlexGridPaint::fixedColoursAndFont()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setBackColorFixed(ole(Teal));
    grid.setForeColorFixed(ole(Red));
    grid.setTextMatrix(0, 1, QStringLiteral("Head"));
    grid.setTextMatrix(1, 1, QStringLiteral("Head"));
    QImage image = shot(grid);
    const QRect header = cellRect(grid, 0, 1);
    QCOMPARE(pixel(image, header.topLeft() + QPoint(header.width() - 6, 3)), Teal);
    const int plainInk = countPixels(image, header, Red);
    QVERIFY(plainInk > 20);
    QCOMPARE(countPixels(image, cellRect(grid, 1, 1), Red), 0);
    QVERIFY(countPixels(image, cellRect(grid, 1, 1), Blue) > 20);

    QFont bold = grid.Font();
    bold.setBold(true);
    grid.setFontFixed(bold);
    image = shot(grid);
    QVERIFY(countPixels(image, cellRect(grid, 0, 1), Red) > plainInk);
}

void tst_FlexGridPaint::backColorBkgOutsideTheCells_data()
{
    QTest::addColumn<bool>("setColour");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("default &H808080") << false << QColor(0x80, 0x80, 0x80);
    QTest::newRow("set") << true << QColor(10, 20, 30);
}

void tst_FlexGridPaint::backColorBkgOutsideTheCells()
{
    QFETCH(bool, setColour);
    QFETCH(QColor, expected);
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    if (setColour)
        grid.setBackColorBkg(ole(expected));
    const QImage image = shot(grid);
    const QRect last = cellRect(grid, 5, 3);
    QCOMPARE(pixel(image, QPoint(last.right() + 5, last.center().y())), expected);
    QCOMPARE(pixel(image, QPoint(last.center().x(), last.bottom() + 5)), expected);
    QCOMPARE(pixel(image, QPoint(image.width() - 2, image.height() - 2)), expected);
    QVERIFY(pixel(image, last.center()) != expected);
}

void tst_FlexGridPaint::selectionHighlight_data()
{
    QTest::addColumn<int>("highLight");
    QTest::addColumn<bool>("focused");
    QTest::addColumn<bool>("highlighted");
    QTest::newRow("never, focused") << 0 << true << false;
    QTest::newRow("never, unfocused") << 0 << false << false;
    QTest::newRow("always, focused") << 1 << true << true;
    QTest::newRow("always, unfocused") << 1 << false << true;
    QTest::newRow("with focus, focused") << 2 << true << true;
    QTest::newRow("with focus, unfocused") << 2 << false << false;
}

void tst_FlexGridPaint::selectionHighlight()
{
    QFETCH(int, highLight);
    QFETCH(bool, focused);
    QFETCH(bool, highlighted);
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setBackColorSel(ole(Red));
    grid.setForeColorSel(ole(Green));
    grid.setHighLight(highLight);
    grid.setRow(1);
    grid.setCol(1);
    grid.setRowSel(3);
    grid.setColSel(2);
    grid.setTextMatrix(2, 2, QStringLiteral("Sel"));
    QVERIFY(focusGrid(*scene, focused));
    const QImage image = shot(grid);

    const QRect selected = cellRect(grid, 2, 2);
    const QColor back = highlighted ? Red : windowColor(grid);
    QCOMPARE(pixel(image, selected.topRight() + QPoint(-10, 3)), back);
    QCOMPARE(countPixels(image, selected, Green) > 0, highlighted);
    QCOMPARE(countPixels(image, selected, Blue) > 0, !highlighted);
    QCOMPARE(pixel(image, cellRect(grid, 3, 1).center()), back);
    // The current cell keeps its own colours under the (default) focus rectangle.
    QCOMPARE(pixel(image, cellRect(grid, 1, 1).center()), windowColor(grid));
    QCOMPARE(pixel(image, cellRect(grid, 4, 2).center()), windowColor(grid));
}

void tst_FlexGridPaint::fixedCellsAreNeverHighlighted()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setBackColorSel(ole(Red));
    grid.setRow(0);
    grid.setCol(0);
    grid.setRowSel(3);
    grid.setColSel(2);
    const QImage image = shot(grid);
    const QColor button = buttonColor(grid);
    QCOMPARE(pixel(image, cellRect(grid, 0, 1).center()), button);
    QCOMPARE(pixel(image, cellRect(grid, 2, 0).center()), button);
    QCOMPARE(pixel(image, cellRect(grid, 2, 2).center()), Red);
}

void tst_FlexGridPaint::focusRect_data()
{
    QTest::addColumn<int>("focusRect");
    QTest::newRow("none") << 0;
    QTest::newRow("light") << 1;
    QTest::newRow("heavy") << 2;
}

void tst_FlexGridPaint::focusRect()
{
    QFETCH(int, focusRect);
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setBackColorSel(ole(Red));
    grid.setFocusRect(focusRect);
    grid.setRow(2);
    grid.setCol(2);
    // The grid does not have the focus: the rectangle shows all the same.
    QVERIFY(focusGrid(*scene, false));
    const QImage image = shot(grid);

    const QRect cell = cellRect(grid, 2, 2);
    const QColor back = focusRect == flexFocusNone ? Red : windowColor(grid);
    QCOMPARE(pixel(image, cell.center()), back);
    const QRect topEdge(cell.left(), cell.top(), cell.width() - 1, 1);
    const QRect belowEdge = topEdge.translated(0, 1);
    const QRect thirdLine = topEdge.translated(0, 2);
    const int width = topEdge.width();
    switch (focusRect) {
    case flexFocusNone:
        QCOMPARE(countPixels(image, topEdge, Red), width);
        break;
    case flexFocusLight: {
        const int dots = countPixels(image, topEdge, Blue);
        QVERIFY2(dots >= width / 3 && dots <= 2 * width / 3, qPrintable(QString::number(dots)));
        QCOMPARE(countPixels(image, topEdge, back), width - dots);
        QVERIFY(countPixels(image, belowEdge, Blue) <= 2);
        QCOMPARE(longestRunDown(image, cell.left(), cell.top(), cell.bottom() - 1, Blue), 1);
        break;
    }
    default:
        QCOMPARE(countPixels(image, topEdge, Blue), width);
        QCOMPARE(countPixels(image, belowEdge, Blue), width);
        QCOMPARE(countPixels(image, thirdLine, Blue), 4);
        QCOMPARE(longestRunDown(image, cell.right() - 1, cell.top(), cell.bottom(), Blue),
                 cell.height() - 1);
        break;
    }
}

void tst_FlexGridPaint::clickMovesTheFocusRect()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setFocusRect(flexFocusHeavy);
    const QRect target = cellRect(grid, 3, 2);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, target.center());
    QCOMPARE(grid.Row(), 3);
    QCOMPARE(grid.Col(), 2);
    QImage image = shot(grid);
    QCOMPARE(pixel(image, target.topLeft() + QPoint(5, 1)), Blue);
    QCOMPARE(pixel(image, cellRect(grid, 1, 1).topLeft() + QPoint(5, 1)), windowColor(grid));

    QTest::keyClick(&grid, Qt::Key_Down);
    QCOMPARE(grid.Row(), 4);
    image = shot(grid);
    QCOMPARE(pixel(image, target.topLeft() + QPoint(5, 1)), windowColor(grid));
    QCOMPARE(pixel(image, cellRect(grid, 4, 2).topLeft() + QPoint(5, 1)), Blue);
}

void tst_FlexGridPaint::gridLinesSolid_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QColor>("line");
    QTest::addColumn<QColor>("edge");
    const QColor cream(255, 255, 200);
    QTest::newRow("none") << 0 << cream << cream;
    QTest::newRow("flat") << 1 << Green << cream;
    QTest::newRow("inset") << 2 << QColor(Qt::black) << QColor(Qt::white);
    QTest::newRow("raised") << 3 << QColor(Qt::white) << QColor(Qt::black);
}

void tst_FlexGridPaint::gridLinesSolid()
{
    QFETCH(int, style);
    QFETCH(QColor, line);
    QFETCH(QColor, edge);
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setBackColor(ole(QColor(255, 255, 200)));
    grid.setGridColor(ole(Green));
    grid.setGridLines(style);
    const QImage image = shot(grid);

    const QRect cell = cellRect(grid, 2, 2);
    const QPoint middle = cell.center();
    QCOMPARE(pixel(image, QPoint(cell.right(), middle.y())), line);
    QCOMPARE(pixel(image, QPoint(middle.x(), cell.bottom())), line);
    QCOMPARE(pixel(image, QPoint(cell.left(), middle.y())), edge);
    QCOMPARE(pixel(image, QPoint(middle.x(), cell.top())), edge);
    QCOMPARE(pixel(image, QPoint(cell.right() - 1, middle.y())), QColor(255, 255, 200));
}

void tst_FlexGridPaint::gridLinesPatterned_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("longestDash");
    QTest::newRow("dashes") << 4 << 4;
    QTest::newRow("dots") << 5 << 1;
}

void tst_FlexGridPaint::gridLinesPatterned()
{
    QFETCH(int, style);
    QFETCH(int, longestDash);
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setGridColor(ole(Green));
    grid.setGridLines(style);
    const QImage image = shot(grid);

    const QRect cell = cellRect(grid, 2, 2);
    const int onLine = countPixels(image, QRect(cell.right(), cell.top(), 1, cell.height()), Green);
    QVERIFY(onLine > 0);
    QVERIFY(onLine < cell.height());
    QCOMPARE(longestRunDown(image, cell.right(), cell.top(), cell.bottom() - 1, Green),
             longestDash);
    const int onBottom =
        countPixels(image, QRect(cell.left(), cell.bottom(), cell.width(), 1), Green);
    QVERIFY(onBottom > 0 && onBottom < cell.width());
}

void tst_FlexGridPaint::gridLinesFixed()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    const QRect header = cellRect(grid, 0, 2);
    QImage image = shot(grid);
    // Default GridLinesFixed 2: a black groove with a white edge.
    QCOMPARE(pixel(image, QPoint(header.right(), header.center().y())), QColor(Qt::black));
    QCOMPARE(pixel(image, QPoint(header.left(), header.center().y())), QColor(Qt::white));

    grid.setGridLinesFixed(flexGridFlat);
    grid.setGridColorFixed(ole(Red));
    grid.setGridColor(ole(Green));
    image = shot(grid);
    QCOMPARE(pixel(image, QPoint(header.right(), header.center().y())), Red);
    QCOMPARE(pixel(image, QPoint(header.center().x(), header.bottom())), Red);
    const QRect data = cellRect(grid, 2, 2);
    QCOMPARE(pixel(image, QPoint(data.right(), data.center().y())), Green);
}

void tst_FlexGridPaint::gridLineWidthThree()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setGridColor(ole(Green));
    grid.setGridLineWidth(3);
    const QImage image = shot(grid);
    const QRect cell = cellRect(grid, 2, 2);
    const int y = cell.center().y();
    for (int x = cell.right() - 2; x <= cell.right(); ++x)
        QCOMPARE(pixel(image, QPoint(x, y)), Green);
    QCOMPARE(pixel(image, QPoint(cell.right() - 3, y)), windowColor(grid));
    const int x = cell.center().x();
    for (int row = cell.bottom() - 2; row <= cell.bottom(); ++row)
        QCOMPARE(pixel(image, QPoint(x, row)), Green);
    QCOMPARE(pixel(image, QPoint(x, cell.bottom() - 3)), windowColor(grid));
}

void tst_FlexGridPaint::textAlignment_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QString>("text");
    QTest::addColumn<char>("horizontal");
    QTest::addColumn<char>("vertical");
    const QString word = QStringLiteral("MMM");
    QTest::newRow("0 left top") << 0 << word << 'L' << 'T';
    QTest::newRow("1 left centre") << 1 << word << 'L' << 'M';
    QTest::newRow("2 left bottom") << 2 << word << 'L' << 'B';
    QTest::newRow("3 centre top") << 3 << word << 'C' << 'T';
    QTest::newRow("4 centre centre") << 4 << word << 'C' << 'M';
    QTest::newRow("5 centre bottom") << 5 << word << 'C' << 'B';
    QTest::newRow("6 right top") << 6 << word << 'R' << 'T';
    QTest::newRow("7 right centre") << 7 << word << 'R' << 'M';
    QTest::newRow("8 right bottom") << 8 << word << 'R' << 'B';
    QTest::newRow("9 general, text") << 9 << word << 'L' << 'M';
    QTest::newRow("9 general, number") << 9 << QStringLiteral("1234") << 'R' << 'M';
    QTest::newRow("9 general, negative decimal") << 9 << QStringLiteral("-12.5") << 'R' << 'M';
}

void tst_FlexGridPaint::textAlignment()
{
    QFETCH(int, alignment);
    QFETCH(QString, text);
    QFETCH(char, horizontal);
    QFETCH(char, vertical);
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setRowHeight(2, TallRowTwips);
    grid.setColAlignment(2, alignment);
    grid.setTextMatrix(2, 2, text);
    const QImage image = shot(grid);

    const QRect cell = cellRect(grid, 2, 2);
    const QRect ink = inkBounds(image, cell, Blue);
    QVERIFY(!ink.isEmpty());
    QCOMPARE(placement(ink.left() - cell.left(), cell.right() - ink.right(), 'L', 'C', 'R'),
             horizontal);
    QCOMPARE(placement(ink.top() - cell.top(), cell.bottom() - ink.bottom(), 'T', 'M', 'B'),
             vertical);
    if (horizontal == 'L')
        QVERIFY(ink.left() - cell.left() <= 4);
    if (horizontal == 'R')
        QVERIFY(cell.right() - ink.right() <= 6);
}

void tst_FlexGridPaint::wordWrap_data()
{
    QTest::addColumn<bool>("wrap");
    QTest::newRow("single line") << false;
    QTest::newRow("wrapped") << true;
}

void tst_FlexGridPaint::wordWrap()
{
    QFETCH(bool, wrap);
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setRowHeight(2, TallRowTwips);
    grid.setWordWrap(wrap);
    grid.setTextMatrix(2, 1, QStringLiteral("alpha beta gamma delta"));
    const QImage image = shot(grid);

    const QRect cell = cellRect(grid, 2, 1);
    const QRect ink = inkBounds(image, cell, Blue);
    const int lineHeight = QFontMetrics(grid.Font()).height();
    QVERIFY(!ink.isEmpty());
    QCOMPARE(ink.height() > lineHeight, wrap);
    QVERIFY(ink.right() < cell.right());
    QCOMPARE(countPixels(image, cellRect(grid, 2, 2), Blue), 0);
}

void tst_FlexGridPaint::wrappedTextTallerThanTheCellStartsAtTheTop()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setWordWrap(true);
    grid.setTextMatrix(2, 1, QStringLiteral("alphabet alphabet alphabet alphabet"));
    grid.setTextMatrix(3, 1, QStringLiteral("alphabet"));
    grid.setRow(2);
    grid.setCol(1);
    grid.setCellAlignment(flexAlignCenterCenter);
    grid.setRow(3);
    grid.setCellAlignment(flexAlignCenterTop);
    grid.setRow(5);
    const QImage image = shot(grid);

    // The first line shows whole, exactly as one word alone at the top of the next cell.
    const QRect wrapped = cellRect(grid, 2, 1);
    const QRect single = cellRect(grid, 3, 1);
    const int firstLine = QFontMetrics(grid.Font()).ascent();
    const QImage top = image.copy(QRect(wrapped.topLeft(), QSize(wrapped.width(), firstLine)));
    QVERIFY(countPixels(top, top.rect(), Blue) > 10);
    QCOMPARE(top, image.copy(QRect(single.topLeft(), QSize(single.width(), firstLine))));
}

void tst_FlexGridPaint::textStyle_data()
{
    QTest::addColumn<bool>("fixedCell");
    QTest::addColumn<int>("gridStyle");
    QTest::addColumn<int>("fixedStyle");
    QTest::addColumn<int>("cellStyle");
    QTest::addColumn<bool>("light");
    QTest::addColumn<bool>("shadow");
    QTest::newRow("flat") << false << 0 << 0 << -1 << false << false;
    QTest::newRow("raised") << false << 1 << 0 << -1 << true << true;
    QTest::newRow("inset") << false << 2 << 0 << -1 << true << true;
    QTest::newRow("raised light") << false << 3 << 0 << -1 << false << true;
    QTest::newRow("inset light") << false << 4 << 0 << -1 << true << false;
    QTest::newRow("cell style wins") << false << 0 << 0 << 3 << false << true;
    QTest::newRow("cell flat wins") << false << 1 << 0 << 0 << false << false;
    QTest::newRow("fixed cell, fixed style") << true << 0 << 4 << -1 << true << false;
    QTest::newRow("fixed cell ignores TextStyle") << true << 1 << 0 << -1 << false << false;
}

void tst_FlexGridPaint::textStyle()
{
    QFETCH(bool, fixedCell);
    QFETCH(int, gridStyle);
    QFETCH(int, fixedStyle);
    QFETCH(int, cellStyle);
    QFETCH(bool, light);
    QFETCH(bool, shadow);
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setBackColor(ole(Teal));
    grid.setBackColorFixed(ole(Teal));
    grid.setForeColorFixed(ole(Blue));
    grid.setTextStyle(gridStyle);
    grid.setTextStyleFixed(fixedStyle);
    const int row = fixedCell ? 0 : 2;
    grid.setTextMatrix(row, 2, QStringLiteral("WWW"));
    if (cellStyle >= 0) {
        grid.setRow(row);
        grid.setCol(2);
        grid.setCellTextStyle(cellStyle);
        grid.setRow(4);
    }
    grid.setGridLines(flexGridNone);
    grid.setGridLinesFixed(flexGridNone);
    const QImage image = shot(grid);

    const QRect cell = cellRect(grid, row, 2);
    QVERIFY(countPixels(image, cell, Blue) > 20);
    QCOMPARE(countPixels(image, cell, Qt::white) > 0, light);
    QCOMPARE(countPixels(image, cell, Shadow) > 0, shadow);
}

void tst_FlexGridPaint::cellFontBoldAddsInk()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setTextMatrix(2, 1, QStringLiteral("Ink"));
    grid.setTextMatrix(3, 1, QStringLiteral("Ink"));
    grid.setRow(3);
    grid.setCol(1);
    grid.setCellFontBold(true);
    grid.setRow(5);
    const QImage image = shot(grid);
    const int plain = countPixels(image, cellRect(grid, 2, 1), Blue);
    QVERIFY(plain > 10);
    QVERIFY(countPixels(image, cellRect(grid, 3, 1), Blue) > plain);
}

void tst_FlexGridPaint::cellPicture_data()
{
    QTest::addColumn<int>("alignment");
    QTest::newRow("0 left top") << 0;
    QTest::newRow("4 centre centre") << 4;
    QTest::newRow("7 right centre") << 7;
    QTest::newRow("8 right bottom") << 8;
}

void tst_FlexGridPaint::cellPicture()
{
    QFETCH(int, alignment);
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setRowHeight(2, TallRowTwips);
    grid.setTextMatrix(2, 2, QStringLiteral("pic"));
    grid.setRow(2);
    grid.setCol(2);
    grid.setCellPicture(solid(8, 8, Magenta));
    grid.setCellPictureAlignment(alignment);
    grid.setRow(4);
    const QImage image = shot(grid);

    const QRect cell = cellRect(grid, 2, 2);
    const QRect content(cell.topLeft(), cell.size() - QSize(1, 1));
    const QSize free = content.size() - QSize(8, 8);
    const std::array<int, 3> xs{0, free.width() / 2, free.width()};
    const std::array<int, 3> ys{0, free.height() / 2, free.height()};
    const QRect expected(content.topLeft() + QPoint(xs[alignment / 3], ys[alignment % 3]),
                         QSize(8, 8));
    QCOMPARE(inkBounds(image, cell, Magenta), expected);
    QCOMPARE(countPixels(image, cell, Magenta), 64);
    QVERIFY(countPixels(image, cell, Blue) > 0);
}

void tst_FlexGridPaint::largePictureShrinksIntoTheCell()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setRow(2);
    grid.setCol(2);
    grid.setCellPicture(solid(200, 200, Magenta));
    grid.setRow(4);
    const QImage image = shot(grid);
    const QRect cell = cellRect(grid, 2, 2);
    const QRect ink = inkBounds(image, image.rect(), Magenta);
    QCOMPARE(ink.topLeft(), cell.topLeft());
    QCOMPARE(ink.height(), cell.height() - 1);
    QCOMPARE(ink.width(), cell.height() - 1);
}

void tst_FlexGridPaint::pictureStaysOverHiddenText()
{
    // The check-box pass of Part 1.1: text in the background colour, a picture over it.
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setColAlignment(2, flexAlignCenterCenter);
    grid.setTextMatrix(2, 2, QStringLiteral("WWWWWW"));
    grid.setRow(2);
    grid.setCol(2);
    grid.setCellBackColor(ole(Teal));
    grid.setCellForeColor(grid.CellBackColor());
    grid.setCellPicture(solid(12, 12, Magenta));
    grid.setCellPictureAlignment(flexAlignCenterCenter);
    grid.setRow(4);
    const QImage image = shot(grid);
    const QRect cell = cellRect(grid, 2, 2);
    QCOMPARE(countPixels(image, cell, Magenta), 144);
    QCOMPARE(countPixels(image, cell, Blue), 0);
}

void tst_FlexGridPaint::mergeAlongRow_data()
{
    QTest::addColumn<int>("mergeCells");
    QTest::addColumn<bool>("flagged");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<bool>("merged");
    const QString same = QStringLiteral("Same");
    QTest::newRow("never") << 0 << true << same << same << false;
    QTest::newRow("free") << 1 << true << same << same << true;
    QTest::newRow("free, row not flagged") << 1 << false << same << same << false;
    QTest::newRow("free, different texts") << 1 << true << same << QStringLiteral("Other") << false;
    QTest::newRow("free, empty cells") << 1 << true << QString() << QString() << false;
    QTest::newRow("restrict rows") << 2 << true << same << same << true;
    QTest::newRow("restrict columns, row above apart") << 3 << true << same << same << false;
    QTest::newRow("restrict all, row above apart") << 4 << true << same << same << false;
}

void tst_FlexGridPaint::mergeAlongRow()
{
    QFETCH(int, mergeCells);
    QFETCH(bool, flagged);
    QFETCH(QString, left);
    QFETCH(QString, right);
    QFETCH(bool, merged);
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setGridColor(ole(Green));
    grid.setColAlignment(-1, flexAlignCenterCenter);
    grid.setMergeCells(mergeCells);
    grid.setMergeRow(2, flagged);
    grid.setTextMatrix(2, 1, left);
    grid.setTextMatrix(2, 2, right);
    grid.setRow(5);
    const QImage image = shot(grid);

    const QRect first = cellRect(grid, 2, 1);
    const QRect second = cellRect(grid, 2, 2);
    const QPoint between(first.right(), first.top() + 2);
    QCOMPARE(pixel(image, between), merged ? windowColor(grid) : Green);
    const QRect ink = inkBounds(image, first | second, Blue);
    if (merged) {
        QVERIFY(std::abs(ink.center().x() - first.right()) <= 2);
        QVERIFY(ink.width() < first.width());
    } else if (!left.isEmpty()) {
        QVERIFY(ink.left() > first.left() && ink.right() > second.left());
        QVERIFY(countPixels(image, first, Blue) > 0);
    }
}

void tst_FlexGridPaint::mergeDownColumn_data()
{
    QTest::addColumn<int>("mergeCells");
    QTest::addColumn<bool>("leftMerged");
    QTest::addColumn<bool>("merged");
    QTest::newRow("free") << 1 << false << true;
    QTest::newRow("restrict rows, left apart") << 2 << false << false;
    QTest::newRow("restrict rows, left merged") << 2 << true << true;
    QTest::newRow("restrict columns") << 3 << false << true;
}

void tst_FlexGridPaint::mergeDownColumn()
{
    QFETCH(int, mergeCells);
    QFETCH(bool, leftMerged);
    QFETCH(bool, merged);
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setGridColor(ole(Green));
    grid.setMergeCells(mergeCells);
    grid.setMergeCol(2, true);
    grid.setTextMatrix(2, 2, QStringLiteral("V"));
    grid.setTextMatrix(3, 2, QStringLiteral("V"));
    if (leftMerged) {
        grid.setMergeCol(1, true);
        grid.setTextMatrix(2, 1, QStringLiteral("G"));
        grid.setTextMatrix(3, 1, QStringLiteral("G"));
    }
    grid.setRow(5);
    const QImage image = shot(grid);

    const QRect upper = cellRect(grid, 2, 2);
    const QPoint between(upper.right() - 3, upper.bottom());
    QCOMPARE(pixel(image, between), merged ? windowColor(grid) : Green);
    const QRect lower = cellRect(grid, 3, 2);
    const QRect ink = inkBounds(image, upper | lower, Blue);
    // One "V" centred on the line between the cells, or one in each cell.
    QVERIFY(ink.top() < upper.bottom() && ink.bottom() > upper.bottom());
    QCOMPARE(ink.height() < upper.height(), merged);
}

void tst_FlexGridPaint::longMergedRunShowsItsTextInTheViewport()
{
    // A run of 200 equal cells, far taller than the window, scrolled into its middle.
    auto scene = makeScene(300, 4);
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setMergeCells(flexMergeFree);
    grid.setMergeCol(2, true);
    for (int r = 1; r <= 200; ++r)
        grid.setTextMatrix(r, 2, QStringLiteral("Run"));
    // The run's middle (row 100) lies far above the rows shown.
    grid.setTopRow(160);
    const QImage image = shot(grid);
    const int dataTop = cellRect(grid, 160, 2).top();
    const QRect column(cellRect(grid, 0, 2).left(), dataTop, cellRect(grid, 0, 2).width(),
                       image.height() - dataTop);
    const QRect ink = inkBounds(image, column, Blue);
    QVERIFY(!ink.isEmpty());
    QVERIFY(column.contains(ink));
}

void tst_FlexGridPaint::mergingTurnsHighlightOff()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setBackColorSel(ole(Red));
    grid.setRow(1);
    grid.setCol(1);
    grid.setRowSel(3);
    grid.setColSel(2);
    QCOMPARE(pixel(shot(grid), cellRect(grid, 2, 2).center()), Red);
    grid.setMergeCells(flexMergeFree);
    QCOMPARE(pixel(shot(grid), cellRect(grid, 2, 2).center()), windowColor(grid));
}

void tst_FlexGridPaint::paintsOnlyTheRegion()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setBackColor(ole(Teal));
    const QRect cell = cellRect(grid, 2, 2);
    QImage image(grid.viewport()->size(), QImage::Format_RGB32);
    image.fill(Magenta);
    // The region renders at its own place in the image.
    grid.viewport()->render(&image, cell.topLeft(), QRegion(cell), QWidget::RenderFlags());
    QCOMPARE(countPixels(image, cell.adjusted(0, 0, -1, -1), Teal),
             (cell.width() - 1) * (cell.height() - 1));
    QCOMPARE(countPixels(image, image.rect(), Magenta),
             image.width() * image.height() - cell.width() * cell.height());
}

void tst_FlexGridPaint::hiddenRowOrColumnIsSkipped_data()
{
    QTest::addColumn<bool>("hideRow");
    QTest::newRow("row") << true;
    QTest::newRow("column") << false;
}

void tst_FlexGridPaint::hiddenRowOrColumnIsSkipped()
{
    QFETCH(bool, hideRow);
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setFillStyle(flexFillRepeat);
    grid.setRow(hideRow ? 3 : 1);
    grid.setCol(hideRow ? 1 : 3);
    grid.setRowSel(3);
    grid.setColSel(3);
    grid.setCellBackColor(ole(Teal));
    grid.setRow(5);
    grid.setCol(1);
    const QRect hidden = cellRect(grid, 2, 2);
    QVERIFY(pixel(shot(grid), hidden.center()) != Teal);

    if (hideRow)
        grid.setRowHeight(2, 0);
    else
        grid.setColWidth(2, 0);
    const QImage image = shot(grid);
    QCOMPARE(pixel(image, hidden.center()), Teal);
    const QRect next = hideRow ? cellRect(grid, 3, 2) : cellRect(grid, 2, 3);
    QCOMPARE(next.topLeft(), hidden.topLeft());
}

void tst_FlexGridPaint::redrawFalseSuspendsPainting()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    const auto render = [&grid] {
        QImage image(grid.viewport()->size(), QImage::Format_RGB32);
        image.fill(Magenta);
        grid.viewport()->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    };
    const QPoint centre = cellRect(grid, 2, 2).center();
    QCOMPARE(pixel(render(), centre), windowColor(grid));

    grid.setRedraw(false);
    grid.setRow(2);
    grid.setCol(2);
    grid.setCellBackColor(ole(Teal));
    QCOMPARE(pixel(render(), centre), Magenta);

    grid.setRedraw(true);
    QCOMPARE(pixel(render(), centre), Teal);
}

void tst_FlexGridPaint::crispAtDevicePixelRatioTwo()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setGridColor(ole(Green));
    grid.setTextMatrix(2, 2, QStringLiteral("crisp"));
    QImage image(grid.viewport()->size() * 2, QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    image.fill(Magenta);
    grid.viewport()->render(&image);
    image.setDevicePixelRatio(1);

    const QRect cell = cellRect(grid, 2, 2);
    const QColor window = windowColor(grid);
    for (int y = 2 * cell.top(); y < 2 * cell.bottom(); ++y) {
        QCOMPARE(pixel(image, QPoint(2 * cell.right(), y)), Green);
        QCOMPARE(pixel(image, QPoint(2 * cell.right() + 1, y)), Green);
        QCOMPARE(pixel(image, QPoint(2 * cell.right() - 1, y)), window);
    }
    for (int x = 2 * cell.left(); x < 2 * cell.right(); ++x) {
        QCOMPARE(pixel(image, QPoint(x, 2 * cell.bottom())), Green);
        QCOMPARE(pixel(image, QPoint(x, 2 * cell.bottom() + 1)), Green);
    }
    // The fixed cells' inset lines: two device pixels of black, then white.
    const QRect header = cellRect(grid, 0, 2);
    const int y = 2 * header.center().y();
    QCOMPARE(pixel(image, QPoint(2 * header.right(), y)), QColor(Qt::black));
    QCOMPARE(pixel(image, QPoint(2 * header.right() + 1, y)), QColor(Qt::black));
    QCOMPARE(pixel(image, QPoint(2 * header.right() + 2, y)), QColor(Qt::white));
    QCOMPARE(pixel(image, QPoint(2 * header.right() + 3, y)), QColor(Qt::white));
    QCOMPARE(countPixels(image, image.rect(), Magenta), 0);
}

void tst_FlexGridPaint::scrolledTopRowShowsItsText()
{
    auto scene = makeScene(60, 4);
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setFocusRect(flexFocusNone);
    grid.setHighLight(flexHighlightNever);
    grid.setTextMatrix(30, 1, QStringLiteral("Thirty"));
    grid.setTextMatrix(31, 2, QStringLiteral("ThirtyOne"));
    const QRect firstScrolled = cellRect(grid, 1, 1);
    const QRect secondScrolled = cellRect(grid, 2, 2);
    QImage image = shot(grid);
    QCOMPARE(countPixels(image, firstScrolled, Blue), 0);
    QCOMPARE(countPixels(image, secondScrolled, Blue), 0);

    grid.setTopRow(30);
    QCOMPARE(grid.TopRow(), 30);
    QCOMPARE(cellRect(grid, 30, 1), firstScrolled);
    image = shot(grid);
    QVERIFY(countPixels(image, firstScrolled, Blue) > 10);
    QVERIFY(countPixels(image, secondScrolled, Blue) > 10);
    QCOMPARE(countPixels(image, cellRect(grid, 32, 1), Blue), 0);
}

void tst_FlexGridPaint::farRowsOfALongGrid()
{
    constexpr int Rows = 50000;
    auto scene = makeScene(Rows, 3);
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setGridColor(ole(Green));
    grid.setTextMatrix(Rows - 15, 1, QStringLiteral("Far"));
    // One run of identical texts down the whole of column 2: the frame follows it only so far.
    grid.setMergeCells(flexMergeFree);
    grid.setMergeCol(2, true);
    for (int r = 1; r < Rows; ++r)
        grid.setTextMatrix(r, 2, QStringLiteral("x"));
    grid.setTopRow(Rows - 20);
    QCOMPARE(grid.TopRow(), Rows - 20);
    const QImage image = shot(grid);
    QVERIFY(countPixels(image, cellRect(grid, Rows - 15, 1), Blue) > 5);
    QCOMPARE(countPixels(image, cellRect(grid, Rows - 16, 1), Blue), 0);
    const QRect merged = cellRect(grid, Rows - 15, 2);
    QCOMPARE(pixel(image, QPoint(merged.center().x(), merged.bottom())), windowColor(grid));
    const QRect apart = cellRect(grid, Rows - 15, 1);
    QCOMPARE(pixel(image, QPoint(apart.center().x(), apart.bottom())), Green);
}

void tst_FlexGridPaint::pictureSnapshot()
{
    auto scene = makeScene();
    QVERIFY(exposed(*scene));
    FlexGrid& grid = *scene->grid;
    grid.setRow(2);
    grid.setCol(2);
    grid.setCellBackColor(ole(Teal));
    grid.setRow(4);
    grid.setRedraw(false);

    const QImage colour = grid.Picture().toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(colour.size(), grid.viewport()->size());
    QCOMPARE(pixel(colour, cellRect(grid, 2, 2).center()), Teal);

    grid.setPictureType(flexPictureMonochrome);
    const QImage mono = grid.Picture().toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(mono.size(), grid.viewport()->size());
    const int black = countPixels(mono, mono.rect(), Qt::black);
    const int white = countPixels(mono, mono.rect(), Qt::white);
    QCOMPARE(black + white, mono.width() * mono.height());
    QVERIFY(black > 0 && white > 0);
}

QTEST_MAIN(tst_FlexGridPaint)
#include "tst_flexgrid_paint.moc"
