// FlexGrid `DataSource` (flexgrid-reference.md §11): the cells mirror a model and follow it.
#include <VemoGridLib/FlexGrid.h>

#include "FlexEventLog.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QFont>
#include <QPointer>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTest>

#include <memory>

using namespace VemoGridLib;
using VemoTest::EventLog;

namespace {

/// Header "Name", "Qty"; rows apple 3, pear 5, plum 7.
void fillFruits(QStandardItemModel& model)
{
    model.setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Qty")});
    const QList<QPair<QString, QString>> rows = {
        {QStringLiteral("apple"), QStringLiteral("3")},
        {QStringLiteral("pear"), QStringLiteral("5")},
        {QStringLiteral("plum"), QStringLiteral("7")},
    };
    for (const auto& [name, qty] : rows)
        model.appendRow({new QStandardItem(name), new QStandardItem(qty)});
}

QList<QStandardItem*> itemRow(const QString& name, const QString& qty)
{
    return {new QStandardItem(name), new QStandardItem(qty)};
}

QStringList rowTexts(const FlexGrid& grid, int row)
{
    QStringList texts;
    for (int col = 0; col < grid.Cols(); ++col)
        texts << grid.TextMatrix(row, col);
    return texts;
}

QStringList columnTexts(const FlexGrid& grid, int col)
{
    QStringList texts;
    for (int row = 0; row < grid.Rows(); ++row)
        texts << grid.TextMatrix(row, col);
    return texts;
}

/// A computed table: cell (i, j) reads "r<i>c<j>"; no storage, so its size costs nothing.
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
        if (role != Qt::DisplayRole)
            return {};
        return QStringLiteral("r%1c%2").arg(index.row()).arg(index.column());
    }
    /// No vertical headers: the fixed column of data rows stays empty.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation == Qt::Vertical || role != Qt::DisplayRole)
            return {};
        return QStringLiteral("C%1").arg(section);
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
    void initTestCase();

    void bindingFillsHeadersAndCells();
    void mappingFollowsFixedCounts_data();
    void mappingFollowsFixedCounts();
    void explicitVerticalHeaderFillsFixedColumn();
    void modelWithoutVerticalHeadersLeavesFixedColumnEmpty();
    void bindingFiresNoCellEvents();
    void dataSourceReadsTheModel();

    void insertedRowsAppearAtTheirPlace_data();
    void insertedRowsAppearAtTheirPlace();
    void insertedRowsMoveFormatsWithTheirRows();
    void removedRowsDisappear_data();
    void removedRowsDisappear();
    void removingEveryRowKeepsFixedRows();
    void removalClampsCurrentCellWithEvents();
    void setDataRefreshesOnlyThatCell();
    void changeOfAnotherRoleIsIgnored();
    void headerChangeRefreshesHeaderCells();
    void resetRefills();
    void sortedModelRefills();
    void insertedColumnRefills();
    void childRowsAreNotShown();
    void shapeChangedByCodeIsRestoredOnNextChange();

    void deletedModelUnbindsAndKeepsCells();
    void modelOwnedByGridDiesWithIt();
    void nullUnbindsAndKeepsCells();
    void clearStructureUnbinds();
    void rebindingFollowsOnlyTheNewModel();
    void stringListModelShowsOneColumn();
    void largeModelFillsEveryRow();
};

void tst_FlexGridDataSource::initTestCase()
{
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
}

void tst_FlexGridDataSource::bindingFillsHeadersAndCells()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);

    QCOMPARE(grid.Rows(), 4);
    QCOMPARE(grid.Cols(), 3);
    QCOMPARE(rowTexts(grid, 0), QStringList({"", "Name", "Qty"}));
    QCOMPARE(rowTexts(grid, 1), QStringList({"1", "apple", "3"}));
    QCOMPARE(rowTexts(grid, 2), QStringList({"2", "pear", "5"}));
    QCOMPARE(rowTexts(grid, 3), QStringList({"3", "plum", "7"}));
}

void tst_FlexGridDataSource::mappingFollowsFixedCounts_data()
{
    QTest::addColumn<int>("fixedRows");
    QTest::addColumn<int>("fixedCols");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("cols");
    QTest::addColumn<QStringList>("firstRow");
    QTest::addColumn<QStringList>("lastRow");

    QTest::newRow("no fixed cells")
        << 0 << 0 << 3 << 2 << QStringList({"apple", "3"}) << QStringList({"plum", "7"});
    QTest::newRow("fixed row only")
        << 1 << 0 << 4 << 2 << QStringList({"Name", "Qty"}) << QStringList({"plum", "7"});
    QTest::newRow("fixed column only")
        << 0 << 1 << 3 << 3 << QStringList({"1", "apple", "3"}) << QStringList({"3", "plum", "7"});
    QTest::newRow("two fixed columns") << 1 << 2 << 4 << 4 << QStringList({"", "", "Name", "Qty"})
                                       << QStringList({"3", "", "plum", "7"});
}

void tst_FlexGridDataSource::mappingFollowsFixedCounts()
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

    QTEST(grid.Rows(), "rows");
    QTEST(grid.Cols(), "cols");
    QTEST(rowTexts(grid, 0), "firstRow");
    QTEST(rowTexts(grid, grid.Rows() - 1), "lastRow");
}

void tst_FlexGridDataSource::explicitVerticalHeaderFillsFixedColumn()
{
    QStandardItemModel model;
    fillFruits(model);
    model.setVerticalHeaderItem(1, new QStandardItem(QStringLiteral("second")));
    FlexGrid grid;
    grid.setDataSource(&model);

    QCOMPARE(columnTexts(grid, 0), QStringList({"", "1", "second", "3"}));
}

void tst_FlexGridDataSource::modelWithoutVerticalHeadersLeavesFixedColumnEmpty()
{
    ComputedModel model(2, 2);
    FlexGrid grid;
    grid.setTextMatrix(1, 0, QStringLiteral("stale"));
    grid.setDataSource(&model);

    QCOMPARE(columnTexts(grid, 0), QStringList({"", "", ""}));
    QCOMPARE(rowTexts(grid, 0), QStringList({"", "C0", "C1"}));
    QCOMPARE(rowTexts(grid, 2), QStringList({"", "r1c0", "r1c1"}));
}

void tst_FlexGridDataSource::bindingFiresNoCellEvents()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    EventLog log(grid);

    grid.setDataSource(&model);
    model.item(0, 1)->setText(QStringLiteral("4"));
    model.appendRow(itemRow(QStringLiteral("fig"), QStringLiteral("9")));

    QCOMPARE(log.cellEvents(), QStringList());
    QCOMPARE(grid.Row(), 1);
    QCOMPARE(grid.Col(), 1);
}

void tst_FlexGridDataSource::dataSourceReadsTheModel()
{
    QStandardItemModel model;
    FlexGrid grid;
    QCOMPARE(grid.DataSource(), nullptr);

    grid.setDataSource(&model);

    QCOMPARE(grid.DataSource(), &model);
    QCOMPARE(grid.property("DataSource").value<QAbstractItemModel*>(), &model);
}

void tst_FlexGridDataSource::insertedRowsAppearAtTheirPlace_data()
{
    QTest::addColumn<int>("at");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("names");

    QTest::newRow("first") << 0 << 1 << QStringList({"Name", "new0", "apple", "pear", "plum"});
    QTest::newRow("middle") << 1 << 1 << QStringList({"Name", "apple", "new0", "pear", "plum"});
    QTest::newRow("end") << 3 << 1 << QStringList({"Name", "apple", "pear", "plum", "new0"});
    QTest::newRow("block in the middle")
        << 2 << 3 << QStringList({"Name", "apple", "pear", "new0", "new1", "new2", "plum"});
}

void tst_FlexGridDataSource::insertedRowsAppearAtTheirPlace()
{
    QFETCH(int, at);
    QFETCH(int, count);
    QFETCH(QStringList, names);
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);

    // One rowsInserted for the whole block, its rows already carrying their texts.
    QList<QStandardItem*> column;
    for (int i = 0; i < count; ++i)
        column << new QStandardItem(QStringLiteral("new%1").arg(i));
    model.invisibleRootItem()->insertRows(at, column);

    QCOMPARE(grid.Rows(), 4 + count);
    QCOMPARE(columnTexts(grid, 1), names);
    QStringList numbers = {""};
    for (int i = 1; i <= 3 + count; ++i)
        numbers << QString::number(i);
    QCOMPARE(columnTexts(grid, 0), numbers);
}

void tst_FlexGridDataSource::insertedRowsMoveFormatsWithTheirRows()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);
    grid.setRow(2);
    grid.setCol(1);
    grid.setCellBackColor(0x00FF00);

    model.insertRow(0, itemRow(QStringLiteral("fig"), QStringLiteral("9")));

    QCOMPARE(grid.TextMatrix(3, 1), QStringLiteral("pear"));
    grid.setRow(3);
    QCOMPARE(grid.CellBackColor(), OleColor(0x00FF00));
    grid.setRow(1);
    QCOMPARE(grid.CellBackColor(), OleColor(0));
    QCOMPARE(rowTexts(grid, 1), QStringList({"1", "fig", "9"}));
}

void tst_FlexGridDataSource::removedRowsDisappear_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("names");

    QTest::newRow("first") << 0 << 1 << QStringList({"Name", "pear", "plum"});
    QTest::newRow("middle") << 1 << 1 << QStringList({"Name", "apple", "plum"});
    QTest::newRow("last") << 2 << 1 << QStringList({"Name", "apple", "pear"});
    QTest::newRow("two at the top") << 0 << 2 << QStringList({"Name", "plum"});
}

void tst_FlexGridDataSource::removedRowsDisappear()
{
    QFETCH(int, first);
    QFETCH(int, count);
    QFETCH(QStringList, names);
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);

    model.removeRows(first, count);

    QCOMPARE(grid.Rows(), 4 - count);
    QCOMPARE(columnTexts(grid, 1), names);
    QCOMPARE(grid.TextMatrix(grid.Rows() - 1, 0), QString::number(3 - count));
}

void tst_FlexGridDataSource::removingEveryRowKeepsFixedRows()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);

    model.removeRows(0, 3);

    QCOMPARE(grid.Rows(), 1);
    QCOMPARE(grid.FixedRows(), 1);
    QCOMPARE(rowTexts(grid, 0), QStringList({"", "Name", "Qty"}));

    model.appendRow(itemRow(QStringLiteral("fig"), QStringLiteral("9")));

    QCOMPARE(grid.Rows(), 2);
    QCOMPARE(rowTexts(grid, 1), QStringList({"1", "fig", "9"}));
}

void tst_FlexGridDataSource::removalClampsCurrentCellWithEvents()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);
    grid.setRow(3);
    EventLog log(grid);

    model.removeRow(2);

    QCOMPARE(grid.Row(), 2);
    QCOMPARE(log.count(QStringLiteral("RowColChange")), 1);
    QCOMPARE(log.count(QStringLiteral("EnterCell")), 1);
}

void tst_FlexGridDataSource::setDataRefreshesOnlyThatCell()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);
    // A cell written by code stays until its own model cell changes.
    grid.setTextMatrix(1, 1, QStringLiteral("edited"));

    model.setData(model.index(2, 1), 11);

    QCOMPARE(grid.TextMatrix(3, 2), QStringLiteral("11"));
    QCOMPARE(grid.TextMatrix(1, 1), QStringLiteral("edited"));
    QCOMPARE(grid.Rows(), 4);
}

void tst_FlexGridDataSource::changeOfAnotherRoleIsIgnored()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);
    grid.setTextMatrix(1, 1, QStringLiteral("edited"));

    model.setData(model.index(0, 0), QStringLiteral("tip"), Qt::ToolTipRole);

    QCOMPARE(grid.TextMatrix(1, 1), QStringLiteral("edited"));
}

void tst_FlexGridDataSource::headerChangeRefreshesHeaderCells()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);

    model.setHeaderData(1, Qt::Horizontal, QStringLiteral("Quantity"));
    model.setHeaderData(0, Qt::Vertical, QStringLiteral("top"));

    QCOMPARE(rowTexts(grid, 0), QStringList({"", "Name", "Quantity"}));
    QCOMPARE(columnTexts(grid, 0), QStringList({"", "top", "2", "3"}));
}

void tst_FlexGridDataSource::resetRefills()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);

    model.clear();
    QCOMPARE(grid.Rows(), 1);
    QCOMPARE(grid.Cols(), 1);
    model.setHorizontalHeaderLabels({"City", "Country", "People"});
    model.appendRow({new QStandardItem("Lyon"), new QStandardItem("FR"), new QStandardItem("5")});

    QCOMPARE(grid.Rows(), 2);
    QCOMPARE(grid.Cols(), 4);
    QCOMPARE(rowTexts(grid, 0), QStringList({"", "City", "Country", "People"}));
    QCOMPARE(rowTexts(grid, 1), QStringList({"1", "Lyon", "FR", "5"}));
}

void tst_FlexGridDataSource::sortedModelRefills()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);

    model.sort(0, Qt::DescendingOrder);

    QCOMPARE(columnTexts(grid, 1), QStringList({"Name", "plum", "pear", "apple"}));
    QCOMPARE(columnTexts(grid, 2), QStringList({"Qty", "7", "5", "3"}));
}

void tst_FlexGridDataSource::insertedColumnRefills()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);

    model.insertColumn(1, {new QStandardItem("red"), new QStandardItem("green")});
    model.setHeaderData(1, Qt::Horizontal, QStringLiteral("Colour"));

    QCOMPARE(grid.Cols(), 4);
    QCOMPARE(rowTexts(grid, 0), QStringList({"", "Name", "Colour", "Qty"}));
    QCOMPARE(rowTexts(grid, 2), QStringList({"2", "pear", "green", "5"}));
    QCOMPARE(rowTexts(grid, 3), QStringList({"3", "plum", "", "7"}));

    model.removeColumn(0);

    QCOMPARE(grid.Cols(), 3);
    QCOMPARE(rowTexts(grid, 1), QStringList({"1", "red", "3"}));
}

void tst_FlexGridDataSource::childRowsAreNotShown()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);

    model.item(0)->appendRow(itemRow(QStringLiteral("seed"), QStringLiteral("1")));
    model.item(0)->child(0)->setText(QStringLiteral("pip"));

    QCOMPARE(grid.Rows(), 4);
    QCOMPARE(columnTexts(grid, 1), QStringList({"Name", "apple", "pear", "plum"}));
}

void tst_FlexGridDataSource::shapeChangedByCodeIsRestoredOnNextChange()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);
    grid.setRows(2);

    model.appendRow(itemRow(QStringLiteral("fig"), QStringLiteral("9")));

    QCOMPARE(grid.Rows(), 5);
    QCOMPARE(columnTexts(grid, 1), QStringList({"Name", "apple", "pear", "plum", "fig"}));
}

void tst_FlexGridDataSource::deletedModelUnbindsAndKeepsCells()
{
    auto model = std::make_unique<QStandardItemModel>();
    fillFruits(*model);
    FlexGrid grid;
    grid.setDataSource(model.get());

    model.reset();

    QCOMPARE(grid.DataSource(), nullptr);
    QCOMPARE(grid.Rows(), 4);
    QCOMPARE(rowTexts(grid, 2), QStringList({"2", "pear", "5"}));
    grid.setRows(2);
    QCOMPARE(grid.Rows(), 2);
}

void tst_FlexGridDataSource::modelOwnedByGridDiesWithIt()
{
    auto grid = std::make_unique<FlexGrid>();
    auto* model = new QStandardItemModel(grid.get());
    fillFruits(*model);
    grid->setDataSource(model);
    QCOMPARE(grid->Rows(), 4);

    const QPointer<QStandardItemModel> watcher(model);

    grid.reset();

    QVERIFY(watcher.isNull());
}

void tst_FlexGridDataSource::nullUnbindsAndKeepsCells()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);

    grid.setDataSource(nullptr);
    model.appendRow(itemRow(QStringLiteral("fig"), QStringLiteral("9")));
    model.setData(model.index(0, 0), QStringLiteral("apricot"));
    model.clear();

    QCOMPARE(grid.DataSource(), nullptr);
    QCOMPARE(grid.Rows(), 4);
    QCOMPARE(columnTexts(grid, 1), QStringList({"Name", "apple", "pear", "plum"}));
}

void tst_FlexGridDataSource::clearStructureUnbinds()
{
    QStandardItemModel model;
    fillFruits(model);
    FlexGrid grid;
    grid.setDataSource(&model);

    grid.ClearStructure();
    model.removeRows(0, 2);

    QCOMPARE(grid.DataSource(), nullptr);
    QCOMPARE(grid.Rows(), 4);
    QCOMPARE(columnTexts(grid, 1), QStringList({"Name", "apple", "pear", "plum"}));
}

void tst_FlexGridDataSource::rebindingFollowsOnlyTheNewModel()
{
    QStandardItemModel first;
    fillFruits(first);
    QStringListModel second({QStringLiteral("x"), QStringLiteral("y")});
    FlexGrid grid;
    grid.setDataSource(&first);

    grid.setDataSource(&second);
    first.appendRow(itemRow(QStringLiteral("fig"), QStringLiteral("9")));

    QCOMPARE(grid.DataSource(), &second);
    QCOMPARE(grid.Rows(), 3);
    QCOMPARE(grid.Cols(), 2);
    QCOMPARE(columnTexts(grid, 1), QStringList({"1", "x", "y"}));
}

void tst_FlexGridDataSource::stringListModelShowsOneColumn()
{
    QStringListModel model({QStringLiteral("alpha"), QStringLiteral("beta")});
    FlexGrid grid;
    grid.setDataSource(&model);

    QCOMPARE(grid.Cols(), 2);
    QCOMPARE(grid.Rows(), 3);
    QCOMPARE(columnTexts(grid, 1), QStringList({"1", "alpha", "beta"}));

    model.insertRows(1, 1);
    model.setData(model.index(1), QStringLiteral("gamma"));
    model.removeRows(0, 1);

    QCOMPARE(columnTexts(grid, 1), QStringList({"1", "gamma", "beta"}));
    QCOMPARE(columnTexts(grid, 0), QStringList({"", "1", "2"}));
}

void tst_FlexGridDataSource::largeModelFillsEveryRow()
{
    constexpr int Rows = 200'000;
    ComputedModel model(Rows, 3);
    FlexGrid grid;
    grid.setDataSource(&model);

    QCOMPARE(grid.Rows(), Rows + 1);
    QCOMPARE(grid.Cols(), 4);
    QCOMPARE(grid.TextMatrix(1, 1), QStringLiteral("r0c0"));
    QCOMPARE(grid.TextMatrix(Rows / 2, 2), QStringLiteral("r%1c1").arg(Rows / 2 - 1));
    QCOMPARE(grid.TextMatrix(Rows, 3), QStringLiteral("r%1c2").arg(Rows - 1));
}

QTEST_MAIN(tst_FlexGridDataSource)
#include "tst_flexgrid_datasource.moc"
