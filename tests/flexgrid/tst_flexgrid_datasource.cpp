// SPDX-License-Identifier: MIT
// FlexGrid bound to a model: the cells mirror the model and follow its changes.
#include "FlexTestSupport.h"

#include <QPointer>
#include <QStandardItemModel>
#include <QStringListModel>

using namespace VemoGridLib;
using namespace VemoTest;

using M = QStandardItemModel;
using ModelCall = std::function<void(M&, FlexGrid&)>;
Q_DECLARE_METATYPE(ModelCall)

namespace {

const QStringList CellMove = {"LeaveCell", "SelChange", "EnterCell", "RowColChange"};
const QString Fruits = QStringLiteral("|Name|Qty;1|apple|3;2|pear|5;3|plum|7");

// Header "Name", "Qty"; rows apple 3, pear 5, plum 7.
void fillFruits(M& model)
{
    model.setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Qty")});
    for (const auto& [name, qty] : {std::pair{"apple", "3"}, {"pear", "5"}, {"plum", "7"}})
        model.appendRow({new QStandardItem(name), new QStandardItem(qty)});
}

// Items of the texts separated by '|'.
QList<QStandardItem*> items(const char* texts)
{
    QList<QStandardItem*> row;
    for (const QString& text : QString::fromUtf8(texts).split(u'|'))
        row << new QStandardItem(text);
    return row;
}

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

// A list without headers.
class BareList : public QStringListModel
{
public:
    using QStringListModel::QStringListModel;
    QVariant headerData(int, Qt::Orientation, int) const override { return {}; }
};

} // namespace

class tst_FlexGridDataSource : public QObject
{
    Q_OBJECT

private slots:
    void gridFollowsTheModel_data();
    void gridFollowsTheModel();
    void looksAndCurrentCellFollowRows();
    void modelLifetimeAndOtherModels();
};

void tst_FlexGridDataSource::gridFollowsTheModel_data()
{
    QTest::addColumn<QString>("setup"); // before binding
    QTest::addColumn<QString>("texts");
    QTest::addColumn<ModelCall>("change");

    const auto add = [](const char* name, const QString& texts, const ModelCall& change,
                        const char* setup = "") {
        QTest::newRow(name) << setup << texts << change;
    };
    using G = FlexGrid;
    const ModelCall none = [](M&, G&) {
    };
    add("bound", Fruits, none, "Rows=5 Cols=5");
    add("no fixed cells", "apple|3;pear|5;plum|7", none, "FixedRows=0 FixedCols=0");
    add("fixed row only", "Name|Qty;apple|3;pear|5;plum|7", none, "FixedCols=0");
    add("two fixed columns", "||Name|Qty;1||apple|3;2||pear|5;3||plum|7", none,
        "Cols=3 FixedCols=2");
    add("row inserted", "|Name|Qty;1|fig|9;2|apple|3;3|pear|5;4|plum|7",
        [](M& m, G&) { m.insertRow(0, items("fig|9")); });
    add("block inserted", "|Name|Qty;1|apple|3;2|pear|5;3|a|;4|b|;5|plum|7",
        [](M& m, G&) { m.invisibleRootItem()->insertRows(2, items("a|b")); });
    add("rows removed", "|Name|Qty;1|plum|7", [](M& m, G&) { m.removeRows(0, 2); });
    add("child rows", Fruits, [](M& m, G&) { m.item(0)->appendRow(items("fig|9")); });
    add("every row removed, one appended", "|Name|Qty;1|fig|9",
        [](M& m, G&) { m.removeRows(0, 3), m.appendRow(items("fig|9")); });
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
    add("unbound by ClearStructure", Fruits, [](M& m, G& g) { g.ClearStructure(), m.clear(); });
}

void tst_FlexGridDataSource::gridFollowsTheModel()
{
    QFETCH(QString, setup);
    QFETCH(ModelCall, change);
    M model;
    fillFruits(model);
    FlexGrid grid;
    run(grid, setup);
    grid.setDataSource(&model);
    QCOMPARE(grid.DataSource(), &model);

    change(model, grid);

    QTEST(textsOf(grid), "texts");
}

void tst_FlexGridDataSource::looksAndCurrentCellFollowRows()
{
    // Binding, inserting and changing data fire no cell events; a removal that
    // takes the current row away moves the current cell. Looks move with their
    // rows.
    M model;
    fillFruits(model);
    FlexGrid grid;
    EventLog log(grid);
    grid.setDataSource(&model);
    run(grid, "Row=1 CellBackColor(0xFF00) Row=3");
    model.insertRow(0, items("fig|9"));
    model.setData(model.index(0, 1), 10);
    QCOMPARE(log.cellEvents(), CellMove); // from Row=3 alone
    log.clear();
    model.removeRows(2, 2);

    QCOMPARE(textsOf(grid), QStringLiteral("|Name|Qty;1|fig|10;2|apple|3"));
    QCOMPARE(grid.Row(), 2);
    QCOMPARE(grid.CellBackColor(), OleColor(0x00FF00));
    QCOMPARE(log.cellEvents(), CellMove);
}

void tst_FlexGridDataSource::modelLifetimeAndOtherModels()
{
    // A deleted model unbinds and leaves its texts; a grid deletes the model it
    // owns.
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

    // A long list without headers leaves the fixed cells empty; rebinding follows
    // only the new model.
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

QTEST_MAIN(tst_FlexGridDataSource)
#include "tst_flexgrid_datasource.moc"
