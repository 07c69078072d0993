// SPDX-License-Identifier: MIT
// FlexGrid driven by code: bad input, cell events, scrolling, geometry, cell
// looks, row moves and FormatString.
#include "flexgrid/FlexCellStore_p.h"

#include "CellStoreAccess.h"
#include "FlexTestSupport.h"
#include <VemoGridLib/VemoError.h>

#include <QFontMetrics>
#include <QScrollBar>

using namespace VemoGridLib;
using namespace VemoGridLib::Flex;
using namespace VemoTest;

namespace {

const QStringList CellMove = {"LeaveCell", "SelChange", "EnterCell", "RowColChange"};

// Every property of the grid's own and, with `texts`, every text.
QVariantList stateOf(const FlexGrid& grid, bool texts = true)
{
    QVariantList values;
    const QMetaObject& meta = FlexGrid::staticMetaObject;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        values << meta.property(i).read(&grid);
    for (int r = 0; texts && r < grid.Rows(); ++r) {
        for (int c = 0; c < grid.Cols(); ++c)
            values << grid.TextMatrix(r, c);
    }
    return values;
}

} // namespace

class tst_FlexGrid : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(pinFontAndDpi()); }
    void badInputRaises_data();
    void badInputRaises();
    void events_data();
    void events();
    void textWrites();
    void scrolling_data();
    void scrolling();
    void cellGeometryScrollsIntoView();
    void cellLooks();
    void rowsMoveWithTheirData_data();
    void rowsMoveWithTheirData();
    void formatString_data();
    void formatString();
};

void tst_FlexGrid::badInputRaises_data()
{
    QTest::addColumn<QString>("setup");
    QTest::addColumn<GridCall>("call");
    QTest::addColumn<int>("error"); // 0: accepted

    // On a 5 × 4 grid with one fixed row and column, after `setup`.
    const auto add = [](const char* name, int error, const GridCall& call, const char* setup = "") {
        QTest::newRow(name) << setup << call << error;
    };
    using G = FlexGrid;
    add("Rows -1", flexerrBadRow, [](G& g) { g.setRows(-1); });
    add("FixedRows = Rows", flexerrFixedRowsTooMany, [](G& g) { g.setFixedRows(5); });
    add("FixedCols > Cols", flexerrFixedColsTooMany, [](G& g) { g.setFixedCols(9); });
    add("TextMatrix row Rows", flexerrSubscriptOutOfRange, [](G& g) { g.TextMatrix(5, 0); });
    add("TextMatrix col -1", flexerrSubscriptOutOfRange, [](G& g) { g.setTextMatrix(1, -1, ""); });
    add("Row Rows", flexerrBadRow, [](G& g) { g.setRow(5); });
    add("Col -1", flexerrBadCol, [](G& g) { g.setCol(-1); });
    add("ColWidth -2", flexerrBadColWidth, [](G& g) { g.setColWidth(1, -2); });
    add("ColWidth bad col", flexerrBadCol, [](G& g) { g.ColWidth(4); });
    add("RowHeight -2", flexerrBadRowHeight, [](G& g) { g.setRowHeight(1, -2); });
    add("TopRow Rows", flexerrBadRow, [](G& g) { g.setTopRow(5); });
    add("RowPos bad row", flexerrBadRow, [](G& g) { g.RowPos(5); });
    add("CellAlignment 10", flexerrBadAlignment, [](G& g) { g.setCellAlignment(10); });
    add("ColAlignment bad col", flexerrBadColForAlignment, [](G& g) { g.setColAlignment(4, 1); });
    add("ColAlignmentFixed -2", flexerrBadColForAlignment, [](G& g) { g.ColAlignmentFixed(-2); });
    add("AddItem on a fixed row", flexerrCannotAddFixedRow, [](G& g) { g.AddItem("x", 0); });
    add("RemoveItem a fixed row", flexerrCannotRemoveFixedRow, [](G& g) { g.RemoveItem(0); });
    add(
        "RemoveItem the last row", flexerrCannotRemoveLastRow, [](G& g) { g.RemoveItem(1); },
        "Rows=2");
    add("ColPosition bad col", flexerrSubscriptOutOfRange, [](G& g) { g.setColPosition(4, 1); });
    add(
        "Text without rows", flexerrBadRow, [](G& g) { g.setText("x"); }, "Rows=0");
    add(
        "CellBackColor without rows", flexerrBadRow, [](G& g) { g.CellBackColor(); }, "Rows=0");
    add(
        "CellWidth without cols", flexerrBadCol, [](G& g) { g.CellWidth(); }, "Cols=0");
    add("CellFontSize 0", flexerrInvalidPropertyValue, [](G& g) { g.setCellFontSize(0); });
    add("CellFontWidth -1", flexerrInvalidPropertyValue, [](G& g) { g.setCellFontWidth(-1); });
    add("Rows = FixedRows", 0, [](G& g) { g.setRows(1); });
    // Enumerated properties: the values just out of range and the last one in
    // range.
    using Setter = void (FlexGrid::*)(int);
    const QList<std::tuple<const char*, Setter, int, int>> ranges = {
        {"FillStyle", &G::setFillStyle, 0, 1},
        {"SelectionMode", &G::setSelectionMode, 0, 2},
        {"GridLines", &G::setGridLines, 0, 5},
        {"GridLinesFixed", &G::setGridLinesFixed, 0, 5},
        {"HighLight", &G::setHighLight, 0, 2},
        {"FocusRect", &G::setFocusRect, 0, 2},
        {"TextStyle", &G::setTextStyle, 0, 4},
        {"TextStyleFixed", &G::setTextStyleFixed, 0, 4},
        {"AllowUserResizing", &G::setAllowUserResizing, 0, 3},
        {"ScrollBars", &G::setScrollBars, 0, 3},
        {"MergeCells", &G::setMergeCells, 0, 4},
        {"PictureType", &G::setPictureType, 0, 1},
        {"MousePointer", &G::setMousePointer, 0, 15},
        {"MousePointer", &G::setMousePointer, 99, 99},
        {"GridLineWidth", &G::setGridLineWidth, 1, 5},
        {"Sort", &G::setSort, 0, 9}};
    for (const auto& [property, setter, first, last] : ranges) {
        const auto row = [&, set = setter](int value, int error) {
            QTest::addRow("%s %d", property, value)
                << QString() << GridCall([=](G& g) { (g.*set)(value); }) << error;
        };
        row(first - 1, flexerrInvalidPropertyValue);
        row(last, 0);
        if (QByteArray(property) != "GridLineWidth")
            row(last + 1, flexerrInvalidPropertyValue);
    }
}

void tst_FlexGrid::badInputRaises()
{
    QFETCH(GridCall, call);
    QFETCH(int, error);
    FlexGrid grid;
    grid.setRows(5);
    grid.setCols(4);
    QFETCH(QString, setup);
    run(grid, setup);
    const QVariantList before = stateOf(grid);
    EventLog log(grid);

    QCOMPARE(errorNumberOf([&] { call(grid); }), error);

    if (error != 0) {
        QCOMPARE(stateOf(grid), before);
        QCOMPARE(log.names, QStringList());
    }
}

void tst_FlexGrid::events_data()
{
    QTest::addColumn<QString>("setup");
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QStringList>("events"); // "*": not checked
    QTest::addColumn<QList<int>>("cursor");  // Row, Col, RowSel, ColSel afterwards

    // On a 10 × 10 grid with one fixed row and column and (1, 1) current.
    const auto add = [](const char* name, const char* setup, const char* steps,
                        const QStringList& events, const QList<int>& cursor) {
        QTest::newRow(name) << setup << steps << events << cursor;
    };
    const QStringList sel = {"SelChange"};
    add("Row", "", "Row=3", CellMove, {3, 1, 3, 1});
    add("Col to the fixed column", "", "Col=0", CellMove, {1, 0, 1, 0});
    add("Row unchanged", "", "Row=1", {}, {1, 1, 1, 1});
    add("Row unchanged collapses the selection", "sel=1,1,3,4", "Row=1", sel, {1, 1, 1, 1});
    add("Col unchanged collapses the selection", "sel=1,1,3,4", "Col=1", sel, {1, 1, 1, 1});
    add("RowSel", "", "RowSel=4", sel, {1, 1, 4, 1});
    add("RowSel unchanged", "", "RowSel=1", {}, {1, 1, 1, 1});
    add("selection by row", "SelectionMode=1", "Row=2", {"*"}, {2, 1, 2, 9});
    add("selection by column", "SelectionMode=2", "Col=3", {"*"}, {1, 3, 9, 3});
    add("Redraw off", "Redraw=false", "Row=2", CellMove, {2, 1, 2, 1});
    add("Rows clamps the cell", "sel=8,8,8,8", "Rows=5", CellMove, {4, 8, 4, 8});
    add("Cols clamps the cell", "sel=8,8,8,8", "Cols=5", CellMove, {8, 4, 8, 4});
    add("Rows clamps the selection", "sel=2,2,8,8", "Rows=5", sel, {2, 2, 4, 8});
    add("data rows appear", "Rows=1", "Rows=4", CellMove, {1, 1, 1, 1});
    add("FixedRows", "sel=4,3,4,3", "FixedRows=2", CellMove, {2, 3, 2, 3});
    add("FixedCols", "sel=3,4,3,4", "FixedCols=2", CellMove, {3, 2, 3, 2});
    add("no fixed rows", "sel=4,3,4,3", "FixedRows=0", {"*"}, {0, 3, 0, 3});
    add("RemoveItem clamps the cell", "Row=9", "RemoveItem(2)", CellMove, {8, 1, 8, 1});
    add("RemoveItem clamps the selection", "sel=7,1,9,1", "RemoveItem(3)", sel, {7, 1, 8, 1});
    add("RemoveItem above the cell", "Row=3", "RemoveItem(1)", {}, {3, 1, 3, 1});
    add("AddItem", "sel=3,2,4,1", "AddItem(x,1) AddItem(y)", {}, {3, 2, 4, 1});
    add("ColPosition", "Col=2", "ColPosition(1,3)", {}, {1, 2, 1, 2});
    add("RowPosition", "Row=2", "RowPosition(4,1)", {}, {2, 1, 2, 1});
    add("FormatString", "Row=2", "FormatString=|<a|^b|>c;|d|e", {}, {2, 1, 2, 1});
    add("Sort", "Row=3", "Sort=7", {}, {3, 1, 3, 1});
    add("texts and looks", "sel=1,1,3,2",
        "FillStyle=1 Text=fill TextMatrix(5,5,x) CellBackColor(255) Clear()", {}, {1, 1, 3, 2});
}

void tst_FlexGrid::events()
{
    QFETCH(QString, setup);
    QFETCH(QStringList, events);
    FlexGrid grid;
    grid.setRows(10);
    grid.setCols(10);
    for (int r = 1; r < 10; ++r)
        grid.setTextMatrix(r, 1, QString(QChar(u'a' + (r * 7) % 10)));
    run(grid, setup);
    EventLog log(grid);

    QFETCH(QString, steps);
    run(grid, steps);

    if (events != QStringList{"*"})
        QCOMPARE(log.cellEvents(), events);
    QTEST(cursorOf(grid), "cursor");
    // Cell events see the old cell, then the new one.
    if (QByteArray(QTest::currentDataTag()) == "Rows clamps the cell")
        QCOMPARE(log.cells, QStringList({"LeaveCell 8,8 sel 8,8", "SelChange 4,8 sel 4,8",
                                         "EnterCell 4,8 sel 4,8", "RowColChange 4,8 sel 4,8"}));
}

void tst_FlexGrid::textWrites()
{
    // Text writes the current cell, or with FillRepeat the whole selection, fixed
    // cells too; TextArray counts cells row by row.
    FlexGrid grid;
    grid.setRows(4);
    grid.setCols(3);
    run(grid, "sel=2,1,3,2 Text=one FillStyle=1 sel=1,2,0,1 Text=all");
    QStringList texts;
    for (int i = 0; i < 12; ++i)
        texts << grid.TextArray(i);
    QCOMPARE(texts.join(u'|'), QStringLiteral("|all|all||all|all||one||||"));
}

void tst_FlexGrid::scrolling_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<int>("topRow");
    QTest::addColumn<int>("leftCol");
    QTest::addColumn<int>("scrolls"); // -1: not counted

    // On a shown grid of 50 × 12 that shows 9 data rows and 4 data columns at a
    // time.
    constexpr int MaxTop = 50 - VisibleRows;
    const auto add = [](const char* name, const QString& steps, int top, int left, int scrolls) {
        QTest::newRow(name) << steps << top << left << scrolls;
    };
    add("TopRow", "TopRow=5", 5, 1, 1);
    add("TopRow unchanged", "TopRow=1", 1, 1, 0);
    add("TopRow past the last page", "TopRow=49", MaxTop, 1, 1);
    add("TopRow on a fixed row", "TopRow=20 TopRow=0", 1, 1, 2);
    add("LeftCol past the last page", "LeftCol=11", 1, 12 - VisibleCols, 1);
    add("LeftCol on a fixed column", "LeftCol=5 LeftCol=0", 1, 1, 2);
    add("Row and Col do not scroll", "Row=30 Col=10", 1, 1, 0);
    add("no scroll bars", "ScrollBars=0 TopRow=5 LeftCol=3", 1, 1, 0);
    add("horizontal bar", "ScrollBars=1 TopRow=5 LeftCol=3", 1, 3, 1);
    add("vertical bar", "ScrollBars=2 TopRow=5 LeftCol=3", 5, 1, 1);
    add("line down", "scroll(1)", 2, 1, 1);
    add("line up at the top", "scroll(0)", 1, 1, 0);
    add("line down at the bottom", QStringLiteral("TopRow=%1 scroll(1)").arg(MaxTop), MaxTop, 1, 1);
    add("page down", "scroll(3)", 1 + VisibleRows, 1, 1);
    add("page down near the bottom", QStringLiteral("TopRow=%1 scroll(3)").arg(MaxTop - 3), MaxTop,
        1, 2);
    add("page up", "TopRow=20 scroll(2)", 20 - VisibleRows, 1, 2);
    add("page up near the top", "TopRow=5 scroll(2)", 1, 1, 2);
    add("fewer Rows pull TopRow back", "TopRow=40 Rows=20", 20 - VisibleRows, 1, -1);
    add("AddItem keeps the view",
        "TopRow=5 LeftCol=3 AddItem(above,2)" + QStringLiteral(" AddItem(added\tx)").repeated(20),
        5, 3, 2);
}

void tst_FlexGrid::scrolling()
{
    QFETCH(QString, steps);
    QFETCH(int, scrolls);
    const auto scene = showGrid(50, 12);
    QVERIFY(scene);
    FlexGrid& grid = *scene->grid;
    EventLog log(grid);

    run(grid, steps);

    QTEST(grid.TopRow(), "topRow");
    QTEST(grid.LeftCol(), "leftCol");
    if (scrolls >= 0)
        QCOMPARE(log.count(QStringLiteral("Scroll")), scrolls);
    // The vertical bar's range ends where TopRow itself may go.
    QCoreApplication::processEvents();
    if (!(grid.ScrollBars() & flexScrollBarVertical))
        return;
    QCOMPARE(grid.verticalScrollBar()->value(), grid.TopRow());
    const int maximum = grid.verticalScrollBar()->maximum();
    grid.setTopRow(grid.Rows() - 1);
    QCOMPARE(grid.TopRow(), maximum);
}

void tst_FlexGrid::cellGeometryScrollsIntoView()
{
    // Reading the current cell's geometry scrolls it into view, without cell
    // events; a hidden cell has a negative width.
    const auto scene = showGrid(50, 12);
    QVERIFY(scene);
    FlexGrid& grid = *scene->grid;
    run(grid, "Row=30 Col=10");
    EventLog log(grid);
    const int width = grid.CellWidth();
    const QPoint offset = grid.viewport()->geometry().topLeft() * TwipsPerPixel;
    QVERIFY(grid.RowIsVisible(30) && grid.ColIsVisible(10));
    QCOMPARE(log.names, QStringList({"Scroll"}));
    QCOMPARE(grid.CellLeft(), offset.x() + grid.ColPos(10));
    QCOMPARE(grid.CellTop(), offset.y() + grid.RowPos(30));
    QCOMPARE(width, ColTwips - TwipsPerPixel);
    QCOMPARE(grid.CellHeight(), RowTwips - TwipsPerPixel);
    QCOMPARE(grid.RowPos(grid.TopRow() - 2), -RowTwips);
    grid.setColWidth(10, 0);
    QCOMPARE(grid.CellWidth(), -TwipsPerPixel);
}

void tst_FlexGrid::cellLooks()
{
    // A cell shows the column's alignment (the fixed cells' own once set), its
    // font and text style those of the grid or of the fixed cells, until the cell
    // has its own.
    FlexGrid grid;
    grid.setRows(5);
    grid.setCols(4);
    run(grid, "Row=0 TextStyle=2 ColAlignment(1,4)");
    grid.setFontFixed(QFont(QStringLiteral("DejaVu Sans Mono"), 14));
    QCOMPARE(grid.CellAlignment(), int(flexAlignCenterCenter));
    QCOMPARE(grid.CellFontName(), QStringLiteral("DejaVu Sans Mono"));
    QCOMPARE(grid.CellTextStyle(), int(flexTextFlat));
    grid.setColAlignmentFixed(1, flexAlignRightCenter);
    QCOMPARE(grid.CellAlignment(), int(flexAlignRightCenter));
    grid.setRow(1);
    QCOMPARE(grid.CellAlignment(), int(flexAlignCenterCenter));
    QCOMPARE(grid.CellFontName(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(grid.CellTextStyle(), int(flexTextInset));
    grid.setCellAlignment(flexAlignRightTop);
    grid.setColAlignment(-1, flexAlignLeftBottom);
    QCOMPARE(grid.CellAlignment(), int(flexAlignRightTop));

    // With FillRepeat every look reaches the whole selection.
    run(grid, "sel=3,2,1,1 CellBackColor(0x111111) FillStyle=1");
    grid.setCellFontBold(true);
    const QPixmap picture = solid(Qt::yellow);
    grid.setCellPicture(picture);
    const FlexCellStore& cells = cellsOf(grid);
    for (int r = 1; r < 5; ++r) {
        for (int c = 0; c < 4; ++c) {
            const bool inside = r <= 3 && c >= 1 && c <= 2;
            QCOMPARE(cells.format(r, c).backColor, OleColor(r == 3 && c == 2 ? 0x111111 : 0));
            QCOMPARE(int(cells.format(r, c).bold), inside ? 1 : -1);
            QCOMPARE(cells.format(r, c).picture.cacheKey(), inside ? picture.cacheKey() : 0);
        }
    }

    // Clear empties texts and looks and keeps everything else.
    grid.setColData(2, 7);
    grid.setTextMatrix(2, 2, QStringLiteral("x"));
    const QVariantList before = stateOf(grid, false);
    grid.Clear();
    QCOMPARE(stateOf(grid, false), before);
    QVERIFY(cells.format(2, 2).isDefault() && grid.TextMatrix(2, 2).isEmpty());
    QCOMPARE(grid.ColAlignment(3), int(flexAlignLeftBottom));
    QCOMPARE(grid.ColData(2), 7);
}

void tst_FlexGrid::rowsMoveWithTheirData_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QList<int>>("from");   // each row's origin afterwards, -1 for a new one
    QTest::addColumn<QStringList>("added"); // the new row's texts
    const auto add = [](const char* steps, const QList<int>& from, const QStringList& added = {}) {
        QTest::newRow(steps) << steps << from << added;
    };
    add("AddItem(a\tb\tc)", {0, 1, 2, 3, -1}, {"a", "b", "c"});
    add("AddItem(a,2)", {0, 1, -1, 2, 3}, {"a", "", ""});
    add("AddItem(\t\tc,4)", {0, 1, 2, 3, -1}, {"", "", "c"});
    add("AddItem(甲\t乙\t丙\t丁,1)", {0, -1, 1, 2, 3}, {"甲", "乙", "丙"});
    add("RemoveItem(2)", {0, 1, 3});
    add("RowPosition(3,1)", {0, 3, 1, 2});
    add("RowPosition(1,3)", {0, 2, 3, 1});
}

void tst_FlexGrid::rowsMoveWithTheirData()
{
    QFETCH(QList<int>, from);
    QFETCH(QStringList, added);
    FlexGrid grid;
    grid.setRows(4);
    grid.setCols(3);
    const QString defaultHeight = QString::number(grid.RowHeight(1));
    const auto rowOf = [&grid](int r) {
        return QStringList{grid.TextMatrix(r, 0),
                           grid.TextMatrix(r, 1),
                           grid.TextMatrix(r, 2),
                           QString::number(cellsOf(grid).format(r, 2).backColor),
                           QString::number(grid.RowHeight(r)),
                           QString::number(grid.RowData(r)),
                           QString::number(grid.MergeRow(r))};
    };
    QList<QStringList> before;
    for (int r = 0; r < 4; ++r) {
        run(grid, QStringLiteral("sel=%1,2,%1,2 Text=row%1 CellBackColor(%2) RowHeight(%1,%3) "
                                 "MergeRow(%1,%4)")
                      .arg(r)
                      .arg(0x100 + r)
                      .arg(300 + 15 * r)
                      .arg(r % 2));
        grid.setRowData(r, 10 + r);
        before << rowOf(r);
    }

    run(grid, QString::fromUtf8(QTest::currentDataTag()));

    const QStringList fresh = added + QStringList{"0", defaultHeight, "0", "0"};
    QCOMPARE(grid.Rows(), from.size());
    for (int r = 0; r < from.size(); ++r)
        QCOMPARE(rowOf(r), from[r] >= 0 ? before.at(from[r]) : fresh);
}

void tst_FlexGrid::formatString_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("header");     // row 0 from column 0, then column 0 from row 1
    QTest::addColumn<QString>("alignments"); // ColAlignment from column 0
    QTest::addColumn<bool>("wider");         // column 2 wider than column 1

    // Each applies over "|o1|o2|o3", which it never takes rows, columns or other
    // texts from.
    const auto add = [](const char* format, const char* header, const char* alignments,
                        bool wider) {
        QTest::newRow(format) << format << header << alignments << wider;
    };
    add("|<Name|^Qty|>Price", "|Name|Qty|Price", "9147", false);
    add("|<Name|>Price;|Robert|Jimmy|Ann", "|Name|Price|o3;Robert|Jimmy|Ann", "917", false);
    add("|Ab|Ab        ", "|Ab|Ab|o3", "", true);
    add("|<名|>名称名称", "|名|名称名称|o3", "917", true);
    add("", "", "", false);
}

void tst_FlexGrid::formatString()
{
    QFETCH(QString, format);
    QFETCH(QString, header);
    QFETCH(QString, alignments);
    FlexGrid grid;
    grid.setFormatString(QStringLiteral("|o1|o2|o3"));

    grid.setFormatString(format);

    QCOMPARE(grid.FormatString(), format);
    QCOMPARE(grid.Cols(), 4);
    const QStringList top = header.section(u';', 0, 0).split(u'|');
    const QStringList left = header.section(u';', 1).split(u'|', Qt::SkipEmptyParts);
    const QFontMetrics metrics(grid.FontFixed());
    for (int c = 0; c < top.size(); ++c) {
        QCOMPARE(grid.TextMatrix(0, c), top.at(c));
        QVERIFY(grid.ColWidth(c) >= metrics.horizontalAdvance(top.at(c)) * TwipsPerPixel);
    }
    for (int r = 0; r < left.size(); ++r) {
        QCOMPARE(grid.TextMatrix(r + 1, 0), left.at(r));
        QVERIFY(grid.ColWidth(0) >= metrics.horizontalAdvance(left.at(r)) * TwipsPerPixel);
    }
    for (int c = 0; c < alignments.size(); ++c)
        QCOMPARE(grid.ColAlignment(c), alignments.at(c).digitValue());
    QFETCH(bool, wider);
    if (wider)
        QVERIFY(grid.ColWidth(2) > grid.ColWidth(1));
}

QTEST_MAIN(tst_FlexGrid)
#include "tst_flexgrid.moc"
