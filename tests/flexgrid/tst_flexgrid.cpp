// SPDX-License-Identifier: MIT
// FlexGrid driven by code (bad input, cell events, scrolling, cell looks, Sort, binding to a
// model) and its cell store.
#include "flexgrid/FlexCellStore_p.h"

#include "CellStoreAccess.h"
#include "FlexTestSupport.h"
#include <VemoGridLib/VemoError.h>

#include <QPointer>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QStringListModel>

using namespace VemoGridLib;
using namespace VemoGridLib::Flex;
using namespace VemoTest;
using Field = FlexCellStore::FormatField;

using M = QStandardItemModel;
using ModelCall = std::function<void(M&, FlexGrid&)>;
Q_DECLARE_METATYPE(ModelCall)

namespace {

const QStringList CellMove = {"LeaveCell", "SelChange", "EnterCell", "RowColChange"};

const QString Fruits = QStringLiteral("|Name|Qty;1|apple|3;2|pear|5;3|plum|7");

// The grid's texts: cells joined by '|', rows by ';'.
QString textsOf(const FlexGrid& grid)
{
    QStringList rows;
    for (int r = 0; r < grid.Rows(); ++r) {
        QStringList cells;
        for (int c = 0; c < grid.Cols(); ++c)
            cells << grid.TextMatrix(r, c);
        rows << cells.join(u'|');
    }
    return rows.join(u';');
}

// Every property of the grid's own and, with `texts`, every text.
QVariantList stateOf(const FlexGrid& grid, bool texts = true)
{
    QVariantList values;
    const QMetaObject& meta = FlexGrid::staticMetaObject;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        values << meta.property(i).read(&grid);
    return texts ? values << textsOf(grid) : values;
}

QList<QStandardItem*> items(const char* texts)
{
    QList<QStandardItem*> row;
    for (const QString& text : QString::fromUtf8(texts).split(u'|'))
        row << new QStandardItem(text);
    return row;
}

void fillFruits(M& model)
{
    model.setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Qty")});
    for (const char* row : {"apple|3", "pear|5", "plum|7"})
        model.appendRow(items(row));
}

// A list without headers: the fixed cells stay empty.
class BareList : public QStringListModel
{
public:
    using QStringListModel::QStringListModel;
    QVariant headerData(int, Qt::Orientation, int) const override { return {}; }
};

// Everything each row (or column) carries, one comparable string per row (or column).
QStringList lines(const FlexCellStore& s, bool columns)
{
    QStringList out;
    for (int i = 0; i < (columns ? s.colCount() : s.rowCount()); ++i) {
        QStringList parts;
        for (int j = 0; j < (columns ? s.rowCount() : s.colCount()); ++j) {
            const int r = columns ? j : i;
            const int c = columns ? i : j;
            parts << s.text(r, c) + u'/' + QString::number(s.format(r, c).backColor, 16) +
                         (s.hasFormat(r, c) ? u'+' : u'-');
        }
        const QList<int> meta =
            columns ? QList<int>{s.colWidth(i), s.colAlignment(i), s.colAlignmentFixed(i),
                                 s.mergeCol(i), s.colData(i)}
                    : QList<int>{s.rowHeight(i), s.rowData(i), s.mergeRow(i)};
        for (int value : meta)
            parts << QString::number(value);
        out << parts.join(u'|');
    }
    return out;
}

// A store of `rows` × `cols` whose texts, looks and row and column metadata all differ.
void mark(FlexCellStore& store, int rows, int cols)
{
    store.setRowCount(rows);
    store.setColCount(cols);
    for (int r = 0; r < rows; ++r) {
        store.setRowHeight(r, 300 + 15 * r);
        store.setRowData(r, 1000 + r);
        store.setMergeRow(r, r % 2 == 1);
        for (int c = 0; c < cols; ++c) {
            store.setText(r, c, QStringLiteral("r%1c%2").arg(r).arg(c));
            store.setFormatValue(r, c, Field::BackColor, 0x10000 * (r + 1) + c);
        }
    }
    for (int c = 0; c < cols; ++c) {
        store.setColWidth(c, 600 + 15 * c);
        store.setColAlignment(c, c % 10);
        store.setColAlignmentFixed(c, (c + 3) % 10);
        store.setMergeCol(c, c % 2 == 0);
        store.setColData(c, 2000 + c);
    }
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
    void scrolling_data();
    void scrolling();
    void cellLooks();
    void sortSettings_data();
    void sortSettings();
    void gridFollowsTheModel_data();
    void gridFollowsTheModel();
    void modelLifetimeAndOtherModels();
    void storeRowAndColumnOperations_data();
    void storeRowAndColumnOperations();
    void storeTextsSurviveRewrites();
    void storeSharedLooks();
};

void tst_FlexGrid::badInputRaises_data()
{
    QTest::addColumn<QString>("setup");
    QTest::addColumn<GridCall>("call");
    QTest::addColumn<int>("error"); // 0: accepted

    // On a 5 × 4 grid with one fixed row and column, after `setup`.
    const auto add = [](const char* name, int error, const char* setup, const GridCall& call) {
        QTest::newRow(name) << setup << call << error;
    };
    using G = FlexGrid;
    add("Rows -1", flexerrBadRow, "", [](G& g) { g.setRows(-1); });
    add("FixedRows = Rows", flexerrFixedRowsTooMany, "", [](G& g) { g.setFixedRows(5); });
    add("TextMatrix row Rows", flexerrSubscriptOutOfRange, "", [](G& g) { g.TextMatrix(5, 0); });
    add("TextMatrix col -1", flexerrSubscriptOutOfRange, "",
        [](G& g) { g.setTextMatrix(1, -1, ""); });
    add("Col -1", flexerrBadCol, "", [](G& g) { g.setCol(-1); });
    add("ColWidth -2", flexerrBadColWidth, "", [](G& g) { g.setColWidth(1, -2); });
    add("RowHeight -2", flexerrBadRowHeight, "", [](G& g) { g.setRowHeight(1, -2); });
    add("CellAlignment 10", flexerrBadAlignment, "", [](G& g) { g.setCellAlignment(10); });
    add("ColAlignment bad col", flexerrBadColForAlignment, "",
        [](G& g) { g.setColAlignment(4, 1); });
    add("AddItem on a fixed row", flexerrCannotAddFixedRow, "", [](G& g) { g.AddItem("x", 0); });
    add("RemoveItem a fixed row", flexerrCannotRemoveFixedRow, "", [](G& g) { g.RemoveItem(0); });
    add("RemoveItem the last row", flexerrCannotRemoveLastRow, "Rows=2",
        [](G& g) { g.RemoveItem(1); });
    add("ColPosition bad col", flexerrSubscriptOutOfRange, "",
        [](G& g) { g.setColPosition(4, 1); });
    add("Text without rows", flexerrBadRow, "Rows=0", [](G& g) { g.setText("x"); });
    add("CellFontSize 0", flexerrInvalidPropertyValue, "", [](G& g) { g.setCellFontSize(0); });
    add("CellFontWidth -1", flexerrInvalidPropertyValue, "", [](G& g) { g.setCellFontWidth(-1); });
    // Enumerated properties: the values just out of range and the last one in range.
    using Setter = void (FlexGrid::*)(int);
    const QList<std::tuple<const char*, Setter, int, int>> ranges = {
        {"FillStyle", &G::setFillStyle, 0, 1},
        {"ScrollBars", &G::setScrollBars, 0, 3},
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
    add("Row unchanged collapses the selection", "sel=1,1,3,4", "Row=1", sel, {1, 1, 1, 1});
    add("selection by row", "SelectionMode=1", "Row=2", {"*"}, {2, 1, 2, 9});
    add("selection by column", "SelectionMode=2", "Col=3", {"*"}, {1, 3, 9, 3});
    add("Rows clamps the cell", "sel=8,8,8,8", "Rows=5", CellMove, {4, 8, 4, 8});
    add("Rows clamps the selection", "sel=2,2,8,8", "Rows=5", sel, {2, 2, 4, 8});
    add("FixedRows", "sel=4,3,4,3", "FixedRows=2", CellMove, {2, 3, 2, 3});
    add("RemoveItem clamps the cell", "Row=9", "RemoveItem(2)", CellMove, {8, 1, 8, 1});
    add("RemoveItem clamps the selection", "sel=7,1,9,1", "RemoveItem(3)", sel, {7, 1, 8, 1});
    add("AddItem", "sel=3,2,4,1", "AddItem(x,1) AddItem(y)", {}, {3, 2, 4, 1});
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

    log.names.removeAll(QStringLiteral("Scroll"));
    if (events != QStringList{"*"})
        QCOMPARE(log.names, events);
    QTEST(cursorOf(grid), "cursor");
    // Cell events see the old cell, then the new one.
    if (QByteArray(QTest::currentDataTag()) == "Rows clamps the cell")
        QCOMPARE(log.cells, QStringList({"LeaveCell 8,8", "SelChange 4,8", "EnterCell 4,8",
                                         "RowColChange 4,8"}));
}

void tst_FlexGrid::scrolling_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<int>("topRow");
    QTest::addColumn<int>("leftCol");
    QTest::addColumn<int>("scrolls"); // -1: not counted

    // On a shown grid of 50 × 12 that shows 9 data rows and 4 data columns at a time.
    constexpr int MaxTop = 50 - VisibleRows;
    const auto add = [](const char* name, const QString& steps, int top, int left, int scrolls) {
        QTest::newRow(name) << steps << top << left << scrolls;
    };
    add("TopRow past the last page", "TopRow=49", MaxTop, 1, 1);
    add("TopRow on a fixed row", "TopRow=20 TopRow=0", 1, 1, 2);
    add("LeftCol past the last page", "LeftCol=11", 1, 12 - 4, 1);
    add("no scroll bars", "ScrollBars=0 TopRow=5 LeftCol=3", 1, 1, 0);
    add("line down", "scroll(1)", 2, 1, 1);
    add("line up at the top", "scroll(0)", 1, 1, 0);
    add("page down", "scroll(3)", 1 + VisibleRows, 1, 1);
    add("page up", "TopRow=20 scroll(2)", 20 - VisibleRows, 1, 2);
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
        QCOMPARE(log.names.count(QStringLiteral("Scroll")), scrolls);
    // The vertical bar's range ends where TopRow itself may go.
    QCoreApplication::processEvents();
    if (!(grid.ScrollBars() & flexScrollBarVertical))
        return;
    QCOMPARE(grid.verticalScrollBar()->value(), grid.TopRow());
    const int maximum = grid.verticalScrollBar()->maximum();
    grid.setTopRow(grid.Rows() - 1);
    QCOMPARE(grid.TopRow(), maximum);
}

void tst_FlexGrid::cellLooks()
{
    // A cell shows its column's alignment and the grid's (or fixed cells') font and style.
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

void tst_FlexGrid::sortSettings_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<QString>("keys");     // separated by '|'
    QTest::addColumn<QString>("expected"); // empty: not checked
    const auto add = [](int setting, const QString& keys, const char* expected) {
        QTest::addRow("%d %s", setting, qPrintable(keys.left(30))) << setting << keys << expected;
    };
    // Ties keep their order both ways; numeric sorts count other text as 0.
    add(1, "b|10||9|a|B|2.5|-1", "|-1|2.5|9|10|B|a|b");
    add(2, "b|10||9|a|B|2.5|-1", "b|a|B|10|9|2.5|-1|");
    add(1, "1e3|$5|(5)|&H10|7| 8 |1,000.5", "(5)|$5|7| 8 |&H10|1e3|1,000.5");
    add(3, "10|abc|-2||3|12abc", "-2|abc||12abc|3|10");
    add(5, "b|A|a|B|c|10|9", "10|9|A|a|b|B|c");
    add(7, "AB|Ab|b|aB|ab|B", "ab|aB|Ab|AB|b|B");
    add(0, "b|c|a", "b|c|a");
    // Long shared prefixes, case variants, surrogate pairs that fold as pairs, NULs, numbers.
    const QStringList pool =
        QStringLiteral("|abcdefgh|ABCDEFGH|abcdefghi|abcdefgH|abcdefgh1|abcdefgh0|abc|ABC|ab|ab\0c"
                       "|\u00C9cole|\u00E9cole|ecole|\U00010400x|\U00010428x|\U00010428y|\U00010400"
                       "|\u4E2D\u6587|20240105000000|20240105000001|10|9|-1|1,000|1e3"
                       "|abcdefghijklmnop|abcdefghijklmnoq|abcdefghijkl")
            .split(u'|');
    QStringList many;
    for (int i = 0; i < 400; ++i)
        many << pool.at(i * 7 % pool.size());
    for (int setting : {1, 3, 5, 7})
        add(setting, many.join(u'|'), "");
}

void tst_FlexGrid::sortSettings()
{
    // One key column compares packed prefixes first, two (the second empty) compare in full.
    QFETCH(int, setting);
    QFETCH(QString, keys);
    const QStringList list = keys.split(u'|');
    QList<int> orders[2];
    for (int keyColumns : {1, 2}) {
        FlexGrid grid;
        grid.setRows(1 + int(list.size()));
        grid.setCols(3);
        grid.setTextMatrix(0, 1, QStringLiteral("Key"));
        for (int i = 0; i < list.size(); ++i) {
            grid.setTextMatrix(1 + i, 1, list.at(i));
            grid.setRowData(1 + i, i);
        }
        grid.setColSel(keyColumns);
        grid.setSort(setting);
        for (int r = 1; r < grid.Rows(); ++r)
            orders[keyColumns - 1] << grid.RowData(r);
        QCOMPARE(grid.TextMatrix(0, 1), QStringLiteral("Key"));
    }
    QCOMPARE(orders[1], orders[0]);
    QStringList sorted;
    for (int i : orders[0])
        sorted << list.at(i);
    QFETCH(QString, expected);
    if (!expected.isEmpty())
        QCOMPARE(sorted.join(u'|'), expected);
}

void tst_FlexGrid::gridFollowsTheModel_data()
{
    QTest::addColumn<QString>("setup"); // before binding
    QTest::addColumn<QString>("texts");
    QTest::addColumn<ModelCall>("change");

    const auto add = [](const char* name, const QString& texts, const ModelCall& change,
                        const char* setup = "") {
        QTest::newRow(name) << setup << texts << change;
    };
    using G = FlexGrid;
    const ModelCall none;
    add("bound", Fruits, none, "Rows=5 Cols=5");
    add("no fixed cells", "apple|3;pear|5;plum|7", none, "FixedRows=0 FixedCols=0");
    add("two fixed columns", "||Name|Qty;1||apple|3;2||pear|5;3||plum|7", none,
        "Cols=3 FixedCols=2");
    add("row inserted", "|Name|Qty;1|fig|9;2|apple|3;3|pear|5;4|plum|7",
        [](M& m, G&) { m.insertRow(0, items("fig|9")); });
    add("block inserted", "|Name|Qty;1|apple|3;2|pear|5;3|a|;4|b|;5|plum|7",
        [](M& m, G&) { m.invisibleRootItem()->insertRows(2, items("a|b")); });
    add("rows removed", "|Name|Qty;1|plum|7", [](M& m, G&) { m.removeRows(0, 2); });
    add("child rows", Fruits, [](M& m, G&) { m.item(0)->appendRow(items("fig|9")); });
    // A code edit stays until its own cell changes.
    add("data", "|Name|Qty;1|edited|3;2|pear|5;3|plum|11", [](M& m, G& g) {
        g.setTextMatrix(1, 1, "edited");
        m.setData(m.index(2, 1), 11);
        m.setData(m.index(0, 0), "tip", Qt::ToolTipRole);
    });
    add("headers", "|Name|N;t|apple|3;2|pear|5;3|plum|7", [](M& m, G&) {
        m.setHeaderData(1, Qt::Horizontal, "N"), m.setHeaderData(0, Qt::Vertical, "t");
    });
    add("reset", "|1|2|3;1|Lyon|FR|5",
        [](M& m, G&) { m.clear(), m.appendRow(items("Lyon|FR|5")); });
    add("columns", "|1|Qty;1|red|3;2||5;3||7",
        [](M& m, G&) { m.insertColumn(1, items("red")), m.removeColumn(0); });
    add("unbound", Fruits, [](M& m, G& g) { g.setDataSource(nullptr), m.clear(); });
}

void tst_FlexGrid::gridFollowsTheModel()
{
    QFETCH(QString, setup);
    QFETCH(ModelCall, change);
    M model;
    fillFruits(model);
    FlexGrid grid;
    run(grid, setup);
    grid.setDataSource(&model);

    if (change)
        change(model, grid);

    QTEST(textsOf(grid), "texts");
}

void tst_FlexGrid::modelLifetimeAndOtherModels()
{
    // A deleted model unbinds and leaves its texts; a grid deletes the model it owns.
    auto model = std::make_unique<M>();
    fillFruits(*model);
    auto grid = std::make_unique<FlexGrid>();
    grid->setDataSource(model.get());
    model.reset();
    QCOMPARE(grid->DataSource(), nullptr);
    QCOMPARE(textsOf(*grid), Fruits);
    const QPointer<M> owned(new M(grid.get()));
    grid->setDataSource(owned);
    grid.reset();
    QVERIFY(owned.isNull());

    // A long list; rebinding follows only the new model.
    QStringList many;
    for (int i = 0; i < 70000; ++i)
        many << QString::number(i);
    BareList bare(many);
    FlexGrid bound;
    bound.setTextMatrix(1, 0, QStringLiteral("stale"));
    bound.setDataSource(&bare);
    QCOMPARE(bound.Rows(), 70001);
    QCOMPARE(bound.TextMatrix(1, 0) + bound.TextMatrix(0, 1), QString());
    QCOMPARE(bound.TextMatrix(70000, 1), QStringLiteral("69999"));
    QStringListModel list({QStringLiteral("alpha"), QStringLiteral("beta")});
    bound.setDataSource(&list);
    bare.removeRows(0, 10);
    list.insertRows(1, 1);
    list.setData(list.index(1), QStringLiteral("gamma"));
    list.removeRows(0, 1);
    QCOMPARE(textsOf(bound), QStringLiteral("|1;1|gamma;2|beta"));
}

void tst_FlexGrid::storeRowAndColumnOperations_data()
{
    // Operations on a 6 × 5 store; each row's (or column's) origin afterwards, '-' for a new one.
    QTest::addColumn<QString>("operations");
    QTest::addColumn<QString>("from");
    const auto add = [](const char* operations, const char* from) {
        QTest::newRow(operations) << operations << from;
    };
    add("insertRow 0", "-012345");
    add("insertRow 6", "012345-");
    add("removeRow 2", "01345");
    add("moveRow 1 3", "023145");
    add("moveRow 4 0", "401235");
    add("reorderRows 1 2 0 1", "031245");
    add("reorderRows 4 1 0", "012354");
    add("moveCol 1 3", "02314");
    add("moveCol 4 0", "40123");
}

void tst_FlexGrid::storeRowAndColumnOperations()
{
    QFETCH(QString, operations);
    QFETCH(QString, from);
    const bool columns = operations.contains(QStringLiteral("ol"));
    FlexCellStore store;
    mark(store, 6, 5);
    const QStringList before = lines(store, columns);
    FlexCellStore fresh;
    fresh.setRowCount(columns ? 6 : 1);
    fresh.setColCount(columns ? 1 : 5);
    QStringList expected;
    for (QChar i : from)
        expected << (i == u'-' ? lines(fresh, columns).first() : before.at(i.digitValue()));

    QStringList words = operations.split(u' ');
    const QString name = words.takeFirst();
    std::vector<std::uint32_t> n;
    for (const QString& word : words)
        n.push_back(word.toUInt());
    if (name == u"insertRow")
        store.insertRow(int(n[0]));
    else if (name == u"removeRow")
        store.removeRow(int(n[0]));
    else if (name == u"moveRow")
        store.moveRow(int(n[0]), int(n[1]));
    else if (name == u"moveCol")
        store.moveCol(int(n[0]), int(n[1]));
    else
        store.reorderRows(int(n[0]), std::vector<std::uint32_t>(n.begin() + 1, n.end()));

    QCOMPARE(lines(store, columns), expected);
}

void tst_FlexGrid::storeTextsSurviveRewrites()
{
    // Overwritten texts are collected and long ones reused: the last written must read back.
    FlexCellStore store;
    store.setRowCount(20);
    store.setColCount(10);
    const auto textOf = [](int round, int cell) {
        if (cell % 50 == 7)
            return QString(6000 + round % 3, QChar(u'a' + round % 26));
        return round % 5 == 4 ? QString() : QStringLiteral("%1:%2 😀 \0").arg(round).arg(cell);
    };
    for (int round = 0; round < 300; ++round) {
        for (int cell = 0; cell < 200; ++cell)
            store.setText(cell / 10, cell % 10, textOf(round, cell));
    }
    for (int cell = 0; cell < 200; ++cell)
        QCOMPARE(store.text(cell / 10, cell % 10), textOf(299, cell));
}

void tst_FlexGrid::storeSharedLooks()
{
    // A change remembered for one starting look must not be handed to a cell with another.
    FlexCellStore store;
    store.setRowCount(1);
    store.setColCount(99);
    for (int c = 0; c < 99; ++c) {
        store.setFormatValue(0, c, c % 3 == 1 ? Field::Bold : Field::Italic, c % 3 ? 1 : -1);
        store.setFormatValue(0, c, Field::BackColor, 0x00FF00);
        store.setFormatValue(0, c, Field::FontSize, 11);
    }
    for (int c = 0; c < 99; ++c) {
        FlexCellFormat expected;
        expected.backColor = 0x00FF00;
        expected.fontSize = 11;
        expected.bold = c % 3 == 1 ? 1 : -1;
        expected.italic = c % 3 == 2 ? 1 : -1;
        QVERIFY2(store.format(0, c) == expected, qPrintable(QString::number(c)));
    }
    store.setFormatValue(0, 1, Field::Bold, -1);
    store.setFormatValue(0, 1, Field::BackColor, 0);
    store.setFormatValue(0, 1, Field::FontSize, 0);
    QVERIFY(store.format(0, 1).isDefault());

    // A change remembered under a key runs once per starting look.
    const QPixmap picture = solid(Qt::red);
    int calls = 0;
    for (int c = 3; c < 9; ++c) {
        store.changeFormat(0, c, 42, [&](FlexCellFormat& look) {
            ++calls;
            look.foreColor = 0x123456;
            look.picture = picture;
        });
    }
    QCOMPARE(calls, 3);
    QCOMPARE(store.format(0, 5).foreColor, OleColor(0x123456));
    QCOMPARE(store.format(0, 8).picture.cacheKey(), picture.cacheKey());
    QVERIFY(store.format(0, 7).bold == 1 && store.format(0, 8).italic == 1);

    // More looks than a 16-bit index holds.
    constexpr int Size = 300;
    store.setRowCount(Size);
    store.setColCount(Size);
    for (int cell = 0; cell < Size * Size; ++cell)
        store.setFormatValue(cell / Size, cell % Size, Field::BackColor, 0x010101 + cell);
    for (int cell = 0; cell < Size * Size; ++cell) {
        if (store.format(cell / Size, cell % Size).backColor != OleColor(0x010101 + cell))
            QFAIL(qPrintable(QStringLiteral("cell %1").arg(cell)));
    }
}

QTEST_MAIN(tst_FlexGrid)
#include "tst_flexgrid.moc"
