// SPDX-License-Identifier: MIT
// FlexGrid bound to a model: the cells mirror the model and follow its changes.
#include "FlexTestSupport.h"

#include <QAbstractTableModel>
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

// Cell (i, j) reads "r<i>c<j>" without storage; no vertical headers.
class ComputedModel : public QAbstractTableModel
{
public:
    ComputedModel(int rows, int cols)
        : m_rows(rows)
        , m_cols(cols)
    {}
    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : m_rows;
    }
    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : m_cols;
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        return role == Qt::DisplayRole
                   ? QStringLiteral("r%1c%2").arg(index.row()).arg(index.column())
                   : QVariant();
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        return orientation == Qt::Horizontal && role == Qt::DisplayRole
                   ? QStringLiteral("C%1").arg(section)
                   : QVariant();
    }

private:
    int m_rows;
    int m_cols;
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
    add(
        "row inserted first", [](M& m, FlexGrid&) { m.insertRow(0, fig()); },
        "|Name|Qty;1|fig|9;2|apple|3;3|pear|5;4|plum|7");
    add(
        "block inserted in the middle",
        [](M& m, FlexGrid&) {
            m.invisibleRootItem()->insertRows(2,
                                              {new QStandardItem("n0"), new QStandardItem("n1")});
        },
        "|Name|Qty;1|apple|3;2|pear|5;3|n0|;4|n1|;5|plum|7");
    add(
        "rows removed", [](M& m, FlexGrid&) { m.removeRows(0, 2); }, "|Name|Qty;1|plum|7");
    add(
        "every row removed, then one appended",
        [](M& m, FlexGrid& g) {
            m.removeRows(0, 3);
            QCOMPARE(g.Rows(), 1);
            m.appendRow(fig());
        },
        "|Name|Qty;1|fig|9");
    add(
        "data changed; a code edit stays until its own cell changes",
        [](M& m, FlexGrid& g) {
            g.setTextMatrix(1, 1, "edited");
            m.setData(m.index(2, 1), 11);
            m.setData(m.index(0, 0), "tip", Qt::ToolTipRole);
        },
        "|Name|Qty;1|edited|3;2|pear|5;3|plum|11");
    add(
        "headers changed",
        [](M& m, FlexGrid&) {
            m.setHeaderData(1, Qt::Horizontal, "Quantity");
            m.setHeaderData(0, Qt::Vertical, "top");
        },
        "|Name|Quantity;top|apple|3;2|pear|5;3|plum|7");
    add(
        "reset",
        [](M& m, FlexGrid&) {
            m.clear();
            m.setHorizontalHeaderLabels({"City", "Country"});
            m.appendRow({new QStandardItem("Lyon"), new QStandardItem("FR")});
        },
        "|City|Country;1|Lyon|FR");
    add(
        "sorted", [](M& m, FlexGrid&) { m.sort(0, Qt::DescendingOrder); },
        "|Name|Qty;1|plum|7;2|pear|5;3|apple|3");
    add(
        "columns inserted and removed",
        [](M& m, FlexGrid&) {
            m.insertColumn(1, {new QStandardItem("red")});
            m.setHeaderData(1, Qt::Horizontal, "Colour");
            m.removeColumn(0);
        },
        "|Colour|Qty;1|red|3;2||5;3||7");
    add(
        "child rows are not shown", [](M& m, FlexGrid&) { m.item(0)->appendRow(fig()); },
        "|Name|Qty;1|apple|3;2|pear|5;3|plum|7");
    add(
        "the next change restores a shape changed by code",
        [](M& m, FlexGrid& g) {
            g.setRows(2);
            m.appendRow(fig());
        },
        "|Name|Qty;1|apple|3;2|pear|5;3|plum|7;4|fig|9");
    add(
        "unbound by nothing",
        [](M& m, FlexGrid& g) {
            g.setDataSource(nullptr);
            m.clear();
        },
        "|Name|Qty;1|apple|3;2|pear|5;3|plum|7");
    add(
        "unbound by ClearStructure",
        [](M& m, FlexGrid& g) {
            g.ClearStructure();
            m.removeRows(0, 2);
        },
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
    // A model without vertical headers leaves the fixed column empty.
    ComputedModel computed(70000, 2);
    FlexGrid grid;
    grid.setTextMatrix(1, 0, QStringLiteral("stale"));
    grid.setDataSource(&computed);
    QCOMPARE(grid.Rows(), 70001);
    QCOMPARE(grid.TextMatrix(0, 2), QStringLiteral("C1"));
    QCOMPARE(grid.TextMatrix(1, 0), QString());
    QCOMPARE(grid.TextMatrix(70000, 2), QStringLiteral("r69999c1"));

    // Rebinding follows only the new model.
    QStringListModel list({QStringLiteral("alpha"), QStringLiteral("beta")});
    grid.setDataSource(&list);
    list.insertRows(1, 1);
    list.setData(list.index(1), QStringLiteral("gamma"));
    list.removeRows(0, 1);
    QCOMPARE(textsOf(grid), QStringLiteral("|1;1|gamma;2|beta"));
}

QTEST_MAIN(tst_FlexGridDataSource)
#include "tst_flexgrid_datasource.moc"
