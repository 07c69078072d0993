// SPDX-License-Identifier: MIT
// FlexGrid bound to a model: the cells mirror the model and follow its changes.
#include "FlexTestSupport.h"

#include <QPointer>
#include <QStandardItemModel>
#include <QStringListModel>

using namespace VemoGridLib;
using namespace VemoTest;

using ModelCall = std::function<void(QStandardItemModel&, FlexGrid&)>;
Q_DECLARE_METATYPE(ModelCall)

namespace {

// Header "Name", "Qty"; rows apple 3, pear 5, plum 7.
void fillFruits(QStandardItemModel& model)
{
    model.setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Qty")});
    for (const auto& [name, qty] : {std::pair{"apple", "3"}, {"pear", "5"}, {"plum", "7"}})
        model.appendRow({new QStandardItem(name), new QStandardItem(qty)});
}

QList<QStandardItem*> fig()
{
    return {new QStandardItem(QStringLiteral("fig")), new QStandardItem(QStringLiteral("9"))};
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

// A list without headers: the fixed row and column stay empty.
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
    void initTestCase() { QVERIFY(pinFontAndDpi()); }
    void bindingFollowsFixedCounts_data();
    void bindingFollowsFixedCounts();
    void gridFollowsTheModel_data();
    void gridFollowsTheModel();
    void looksAndCurrentCellFollowRows();
    void modelLifetime();
    void otherModels();
};

void tst_FlexGridDataSource::bindingFollowsFixedCounts_data()
{
    QTest::addColumn<int>("fixedRows");
    QTest::addColumn<int>("fixedCols");
    QTest::addColumn<QString>("texts");
    QTest::newRow("default") << 1 << 1 << "|Name|Qty;1|apple|3;2|pear|5;3|plum|7";
    QTest::newRow("no fixed cells") << 0 << 0 << "apple|3;pear|5;plum|7";
    QTest::newRow("fixed row only") << 1 << 0 << "Name|Qty;apple|3;pear|5;plum|7";
    QTest::newRow("two fixed columns") << 1 << 2 << "||Name|Qty;1||apple|3;2||pear|5;3||plum|7";
}

void tst_FlexGridDataSource::bindingFollowsFixedCounts()
{
    QFETCH(int, fixedRows);
    QFETCH(int, fixedCols);
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setRows(5);
    grid.setCols(5);
    grid.setFixedRows(fixedRows);
    grid.setFixedCols(fixedCols);

    grid.setDataSource(&model);

    QTEST(textsOf(grid), "texts");
    QCOMPARE(grid.DataSource(), &model);
}

void tst_FlexGridDataSource::gridFollowsTheModel_data()
{
    QTest::addColumn<ModelCall>("change");
    QTest::addColumn<QString>("texts");

    using M = QStandardItemModel;
    const auto add = [](const char* name, const ModelCall& change, const char* texts) {
        QTest::newRow(name) << change << texts;
    };
    const auto n = [](const char* text) {
        return new QStandardItem(QString::fromUtf8(text));
    };
    add(
        "row inserted", [](M& m, FlexGrid&) { m.insertRow(0, fig()); },
        "|Name|Qty;1|fig|9;2|apple|3;3|pear|5;4|plum|7");
    add(
        "block inserted",
        [n](M& m, FlexGrid&) {
            m.invisibleRootItem()->insertRows(2, {n("a"), n("b")});
        },
        "|Name|Qty;1|apple|3;2|pear|5;3|a|;4|b|;5|plum|7");
    add(
        "rows removed", [](M& m, FlexGrid&) { m.removeRows(0, 2); }, "|Name|Qty;1|plum|7");
    add(
        "child rows", [](M& m, FlexGrid&) { m.item(0)->appendRow(fig()); },
        "|Name|Qty;1|apple|3;2|pear|5;3|plum|7");
    add(
        "every row removed, one appended",
        [](M& m, FlexGrid&) { m.removeRows(0, 3), m.appendRow(fig()); }, "|Name|Qty;1|fig|9");
    add(
        "data; a code edit stays until its own cell changes",
        [](M& m, FlexGrid& g) {
            g.setTextMatrix(1, 1, "edited");
            m.setData(m.index(2, 1), 11);
            m.setData(m.index(0, 0), "tip", Qt::ToolTipRole);
        },
        "|Name|Qty;1|edited|3;2|pear|5;3|plum|11");
    add(
        "headers",
        [](M& m, FlexGrid&) {
            m.setHeaderData(1, Qt::Horizontal, "N"), m.setHeaderData(0, Qt::Vertical, "t");
        },
        "|Name|N;t|apple|3;2|pear|5;3|plum|7");
    add(
        "reset",
        [n](M& m, FlexGrid&) {
            m.clear(), m.appendRow({n("Lyon"), n("FR"), n("5")});
        },
        "|1|2|3;1|Lyon|FR|5");
    add(
        "columns", [n](M& m, FlexGrid&) { m.insertColumn(1, {n("red")}), m.removeColumn(0); },
        "|1|Qty;1|red|3;2||5;3||7");
    add(
        "unbound", [](M& m, FlexGrid& g) { g.setDataSource(nullptr), m.clear(); },
        "|Name|Qty;1|apple|3;2|pear|5;3|plum|7");
    add(
        "unbound by ClearStructure", [](M& m, FlexGrid& g) { g.ClearStructure(), m.clear(); },
        "|Name|Qty;1|apple|3;2|pear|5;3|plum|7");
}

void tst_FlexGridDataSource::gridFollowsTheModel()
{
    QFETCH(ModelCall, change);
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);

    change(model, grid);

    QTEST(textsOf(grid), "texts");
}

void tst_FlexGridDataSource::looksAndCurrentCellFollowRows()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    EventLog log(grid);
    grid.setDataSource(&model);
    QCOMPARE(log.cellEvents(), QStringList());
    run(grid, "Row=1 CellBackColor(65280) Row=3");
    log.clear();

    // Binding, inserting and changing data fire no cell events; a removal that takes the
    // current row away moves the current cell.
    model.insertRow(0, fig());
    model.setData(model.index(0, 1), 10);
    QCOMPARE(log.cellEvents(), QStringList());
    model.removeRows(2, 2);

    QCOMPARE(textsOf(grid), QStringLiteral("|Name|Qty;1|fig|10;2|apple|3"));
    QCOMPARE(grid.Row(), 2);
    QCOMPARE(grid.CellBackColor(), OleColor(0x00FF00));
    QCOMPARE(log.cellEvents(),
             QStringList({"LeaveCell", "SelChange", "EnterCell", "RowColChange"}));
}

void tst_FlexGridDataSource::modelLifetime()
{
    auto model = std::make_unique<QStandardItemModel>();
    fillFruits(*model);
    FlexGrid grid;
    grid.setDataSource(model.get());
    model.reset();
    QCOMPARE(grid.DataSource(), nullptr);
    QCOMPARE(textsOf(grid), QStringLiteral("|Name|Qty;1|apple|3;2|pear|5;3|plum|7"));

    auto owner = std::make_unique<FlexGrid>();
    const QPointer<QStandardItemModel> owned(new QStandardItemModel(owner.get()));
    owner->setDataSource(owned);
    owner.reset();
    QVERIFY(owned.isNull());
}

void tst_FlexGridDataSource::otherModels()
{
    QStringList many;
    for (int i = 0; i < 70000; ++i)
        many << QString::number(i);
    BareList bare(many);
    FlexGrid grid;
    grid.setTextMatrix(1, 0, QStringLiteral("stale"));
    grid.setDataSource(&bare);
    QCOMPARE(grid.Rows(), 70001);
    QCOMPARE(grid.TextMatrix(0, 1), QString());
    QCOMPARE(grid.TextMatrix(1, 0), QString());
    QCOMPARE(grid.TextMatrix(70000, 1), QStringLiteral("69999"));

    // Rebinding follows only the new model.
    QStringListModel list({QStringLiteral("alpha"), QStringLiteral("beta")});
    grid.setDataSource(&list);
    bare.removeRows(0, 10);
    list.insertRows(1, 1);
    list.setData(list.index(1), QStringLiteral("gamma"));
    list.removeRows(0, 1);
    QCOMPARE(textsOf(grid), QStringLiteral("|1;1|gamma;2|beta"));
}

QTEST_MAIN(tst_FlexGridDataSource)
#include "tst_flexgrid_datasource.moc"
