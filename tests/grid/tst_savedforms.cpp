// SPDX-License-Identifier: MIT
// Saved forms are untrusted input: whatever a bag holds, loading it leaves a grid on which
// sorting, adding, removing and painting either work or raise a VemoError.
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/MemoryPropertyBag.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/VemoGrid.h>

#include "CellStoreAccess.h"

#include <QImage>
#include <QTest>

#include <functional>

using namespace VemoGridLib;

namespace {

constexpr qint32 OutOfMemory = 7;

QByteArray bagOf(const char* properties)
{
    return QByteArray(R"({"properties":[)") + properties + "]}";
}

// The grid's counts agree with its store's.
void verifyIntact(const VemoGrid& grid)
{
    const FlexGrid& flex = *grid.hostedGrid();
    QCOMPARE(cellsOf(flex).rowCount(), flex.Rows());
    QCOMPARE(cellsOf(flex).colCount(), flex.Cols());
    QVERIFY(flex.FixedRows() <= flex.Rows());
    QVERIFY(flex.FixedCols() <= flex.Cols());
}

// Runs `step`, accepting a VemoError as its refusal.
void tryStep(const std::function<void()>& step)
{
    try {
        step();
    } catch (const VemoError&) {
    }
}

} // namespace

class tst_SavedForms : public QObject
{
    Q_OBJECT

private slots:
    void loadedGridSurvivesUse_data();
    void loadedGridSurvivesUse();
    void hugeSizeRefused_data();
    void hugeSizeRefused();
    void zeroRowsBySetter();
    void hostedColumnsRemovedBehindTheGrid();
};

void tst_SavedForms::loadedGridSurvivesUse_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("cols");

    QTest::newRow("no rows") << bagOf(R"({"name":"Rows","type":"int32","value":0})") << 0 << 2;
    QTest::newRow("no cols") << bagOf(R"({"name":"Cols","type":"int32","value":0})") << 2 << 0;
    QTest::newRow("no rows, no cols") << bagOf(R"({"name":"Rows","type":"int32","value":0},
        {"name":"Cols","type":"int32","value":0})")
                                      << 0 << 0;
    QTest::newRow("rows equal fixed rows") << bagOf(R"({"name":"Rows","type":"int32","value":1},
        {"name":"FixedRows","type":"int32","value":1})")
                                           << 1 << 2;
    QTest::newRow("no fixed rows or cols")
        << bagOf(R"({"name":"FixedRows","type":"int32","value":0},
        {"name":"FixedCols","type":"int32","value":0})")
        << 2 << 2;
    QTest::newRow("rows 2^31-1") << bagOf(R"({"name":"Rows","type":"int32","value":2147483647})")
                                 << 2 << 2;
    QTest::newRow("cols 1.8 billion")
        << bagOf(R"({"name":"Cols","type":"int32","value":1800000000})") << 2 << 2;
    QTest::newRow("negative sizes") << bagOf(R"({"name":"Rows","type":"int32","value":-5},
        {"name":"Cols","type":"int32","value":-1})")
                                    << 2 << 2;
    QTest::newRow("format string after no rows")
        << bagOf(R"({"name":"Rows","type":"int32","value":0},
        {"name":"FormatString","type":"string","value":"a|b|c|d;x|y"})")
        << 2 << 4;
}

void tst_SavedForms::loadedGridSurvivesUse()
{
    QFETCH(QByteArray, json);
    QFETCH(int, rows);
    QFETCH(int, cols);

    QString error;
    const MemoryPropertyBag bag = MemoryPropertyBag::fromJson(json, &error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    VemoGrid grid;
    grid.resize(300, 200);
    grid.ReadProperties(bag);
    QCOMPARE(grid.Rows(), rows);
    QCOMPARE(grid.Cols(), cols);
    verifyIntact(grid);

    const auto use = [&](const std::function<void()>& step) {
        tryStep(step);
        verifyIntact(grid);
        QImage image(grid.size(), QImage::Format_ARGB32);
        grid.render(&image);
    };
    use([&] { grid.Sort(1, SortAscending); });
    use([&] { grid.AddItem(QStringLiteral("a\tb")); });
    use([&] { grid.Sort(1, SortDescending); });
    use([&] { grid.RemoveItem(grid.Rows() - 1); });
    use([&] { grid.RemoveItem(0); });
    use([&] { grid.AddItem(QString(), 1); });
}

void tst_SavedForms::hugeSizeRefused_data()
{
    QTest::addColumn<bool>("setRows");
    QTest::addColumn<int>("count");

    QTest::newRow("rows 2^31-1") << true << 2147483647;
    QTest::newRow("cols 2^31-1") << false << 2147483647;
    QTest::newRow("cols 1.8 billion") << false << 1800000000;
    QTest::newRow("rows × cols beyond the store") << true << 100000000;
}

void tst_SavedForms::hugeSizeRefused()
{
    QFETCH(bool, setRows);
    QFETCH(int, count);

    VemoGrid grid;
    grid.setCols(4);
    grid.setRows(3);
    try {
        setRows ? grid.setRows(count) : grid.setCols(count);
        QFAIL("no error");
    } catch (const VemoError& e) {
        QCOMPARE(e.number(), OutOfMemory);
        QCOMPARE(e.description(), QStringLiteral("Out of memory"));
    }
    QCOMPARE(grid.Rows(), 3);
    QCOMPARE(grid.Cols(), 4);
    verifyIntact(grid);
    grid.AddItem(QStringLiteral("still\tworks"));
    QCOMPARE(grid.Rows(), 4);
}

void tst_SavedForms::zeroRowsBySetter()
{
    VemoGrid grid;
    try {
        grid.setRows(0);
        QFAIL("no error");
    } catch (const VemoError& e) {
        QCOMPARE(e.number(), 30016);
    }
    QCOMPARE(grid.Rows(), 0);
    tryStep([&] { grid.Sort(1, SortAscending); });
    grid.AddItem(QStringLiteral("x"));
    verifyIntact(grid);
}

void tst_SavedForms::hostedColumnsRemovedBehindTheGrid()
{
    // The hosted grid is public: its columns can go while the grid keeps its Column objects.
    VemoGrid grid;
    FlexGrid& flex = *grid.hostedGrid();
    flex.setFixedRows(0);
    flex.setFixedCols(0);
    flex.setCols(0);
    tryStep([&] { grid.Sort(1, SortAscending); });
    verifyIntact(grid);
}

QTEST_MAIN(tst_SavedForms)
#include "tst_savedforms.moc"
