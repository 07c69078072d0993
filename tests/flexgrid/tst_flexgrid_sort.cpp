// SPDX-License-Identifier: MIT
// FlexGrid's Sort: the orders of the settings, the key columns and rows, whole-row moves.
#include "flexgrid/FlexCellStore_p.h"

#include "CellStoreAccess.h"
#include "FlexTestSupport.h"

#include <QRandomGenerator>

#include <algorithm>

using namespace VemoGridLib;
using namespace VemoGridLib::Flex;
using namespace VemoTest;

namespace {

// One fixed row; column 1 holds the keys, column 2 each data row's original index.
void fillKeys(FlexGrid& grid, const QStringList& keys)
{
    grid.setRows(1 + int(keys.size()));
    grid.setCols(3);
    grid.setTextMatrix(0, 1, QStringLiteral("Key"));
    for (int i = 0; i < keys.size(); ++i) {
        grid.setTextMatrix(1 + i, 1, keys.at(i));
        grid.setTextMatrix(1 + i, 2, QString::number(i));
    }
}

QStringList dataColumn(const FlexGrid& grid, int col)
{
    QStringList texts;
    for (int r = grid.FixedRows(); r < grid.Rows(); ++r)
        texts << grid.TextMatrix(r, col);
    return texts;
}

} // namespace

class tst_FlexGridSort : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(pinFontAndDpi()); }
    void settingsOrderTheKeys_data();
    void settingsOrderTheKeys();
    void textSortsMatchTheFullComparison_data();
    void textSortsMatchTheFullComparison();
    void keyColumnsAndRows_data();
    void keyColumnsAndRows();
    void wholeRowsMoveAndFixedRowsStay();
    void customSortAsksCompare();
};

void tst_FlexGridSort::settingsOrderTheKeys_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<int>("setting");
    QTest::addColumn<QStringList>("expected");

    const auto both = [](const char* name, const QStringList& keys, int ascending,
                         QStringList expected) {
        QTest::addRow("%s ascending", name) << keys << ascending << expected;
        std::reverse(expected.begin(), expected.end());
        QTest::addRow("%s descending", name) << keys << ascending + 1 << expected;
    };
    // Generic: "" first, numeric texts by value, then other texts by code unit.
    both("generic", {"b", "10", "", "9", "a", "B", "2.5", "-1"}, flexSortGenericAscending,
         {"", "-1", "2.5", "9", "10", "B", "a", "b"});
    both("generic punctuation and blanks", {"#x", "5", "-a", " ", "é"}, flexSortGenericAscending,
         {"5", " ", "#x", "-a", "é"});
    both("generic VB number forms", {"1e3", "$5", "(5)", "&H10", "7", " 8 ", "1,000.5"},
         flexSortGenericAscending, {"(5)", "$5", "7", " 8 ", "&H10", "1e3", "1,000.5"});
    // Numeric: unconvertible text counts as 0 and ties keep their order both ways.
    QTest::newRow("numeric ascending")
        << QStringList{"10", "abc", "-2", "", "3", "12abc"} << int(flexSortNumericAscending)
        << QStringList{"-2", "abc", "", "12abc", "3", "10"};
    QTest::newRow("numeric descending")
        << QStringList{"10", "abc", "-2", "", "3", "12abc"} << int(flexSortNumericDescending)
        << QStringList{"10", "3", "abc", "", "12abc", "-2"};
    both("numeric VB number forms", {"1,000", "999", "1e2", "(1)"}, flexSortNumericAscending,
         {"(1)", "1e2", "999", "1,000"});
    // Without case: case ignored, ties keep their order both ways; numbers are text.
    QTest::newRow("no case ascending")
        << QStringList{"b", "A", "a", "B", "c", "10", "9"} << int(flexSortStringNoCaseAscending)
        << QStringList{"10", "9", "A", "a", "b", "B", "c"};
    QTest::newRow("no case descending")
        << QStringList{"b", "A", "a", "B", "c", "10", "9"} << int(flexSortStringNoCaseDescending)
        << QStringList{"c", "b", "B", "A", "a", "9", "10"};
    // With case: case ignored first, then lowercase before uppercase.
    both("case", {"AB", "Ab", "b", "aB", "ab", "B"}, flexSortStringAscending,
         {"ab", "aB", "Ab", "AB", "b", "B"});
    QTest::newRow("none") << QStringList{"b", "c", "a"} << int(flexSortNone)
                          << QStringList{"b", "c", "a"};
}

void tst_FlexGridSort::settingsOrderTheKeys()
{
    QFETCH(QStringList, keys);
    QFETCH(int, setting);
    FlexGrid grid;
    fillKeys(grid, keys);

    grid.setSort(setting);

    QTEST(dataColumn(grid, 1), "expected");
    QCOMPARE(grid.TextMatrix(0, 1), QStringLiteral("Key"));
}

void tst_FlexGridSort::textSortsMatchTheFullComparison_data()
{
    QTest::addColumn<int>("setting");
    for (int setting : {1, 2, 5, 6, 7, 8})
        QTest::addRow("setting %d", setting) << setting;
}

void tst_FlexGridSort::textSortsMatchTheFullComparison()
{
    // A sort on one text column compares packed prefixes first; it must order exactly as the
    // full comparison does, which a sort on two key columns (the second all empty) uses: long
    // shared prefixes, case variants, surrogate pairs that fold as pairs (Deseret), empty
    // texts, embedded NULs, numbers and duplicates.
    QFETCH(int, setting);
    const QStringList pool = {"",
                              "abcdefgh",
                              "ABCDEFGH",
                              "abcdefghi",
                              "abcdefgH",
                              "abcdefgh1",
                              "abcdefgh0",
                              "abc",
                              "ABC",
                              "ab",
                              QString::fromUtf16(u"ab\0c", 4),
                              "\u00C9cole",
                              "\u00E9cole",
                              "ecole",
                              "\U00010400x",
                              "\U00010428x",
                              "\U00010428y",
                              "\U00010400",
                              "\u4E2D\u6587",
                              "20240105000000",
                              "20240105000001",
                              "10",
                              "9",
                              "-1",
                              "1,000",
                              "1e3",
                              "abcdefghijklmnop",
                              "abcdefghijklmnoq",
                              "abcdefghijkl"};
    QRandomGenerator random(20261121);
    QStringList orders[2];
    for (int keyColumns : {1, 2}) {
        FlexGrid grid;
        grid.setRows(401);
        grid.setCols(4);
        for (int r = 1; r <= 400; ++r) {
            grid.setTextMatrix(r, 1, pool.at(random.bounded(int(pool.size()))));
            grid.setTextMatrix(r, 3, QString::number(r));
        }
        random.seed(20261121);
        grid.setColSel(keyColumns);
        grid.setSort(setting);
        orders[keyColumns - 1] = dataColumn(grid, 3);
    }
    QCOMPARE(orders[0], orders[1]);
}

void tst_FlexGridSort::keyColumnsAndRows_data()
{
    QTest::addColumn<QString>("selection");
    QTest::addColumn<QStringList>("expected"); // original indexes, top to bottom

    // Keys (b,2,x) (a,2,y) (b,1,z) (a,2,a) (b,1,a) in columns 1–3 of rows 1–5: Col to ColSel
    // name the key columns from left to right, Row to RowSel the rows that move.
    QTest::newRow("Col 3, ColSel 1") << "sel=1,3,1,1" << QStringList{"3", "1", "4", "2", "0"};
    QTest::newRow("Col 1, ColSel 2") << "sel=1,1,1,2" << QStringList{"1", "3", "2", "4", "0"};
    QTest::newRow("Col 2 alone") << "sel=1,2,1,2" << QStringList{"2", "4", "0", "1", "3"};
    QTest::newRow("Col 3, ColSel 2") << "sel=1,3,1,2" << QStringList{"4", "2", "3", "0", "1"};
    QTest::newRow("Row 4, RowSel 2") << "sel=4,1,2,3" << QStringList{"0", "3", "1", "2", "4"};
    QTest::newRow("Row 5, RowSel 4") << "sel=5,2,4,2" << QStringList{"0", "1", "2", "4", "3"};
    // Row = RowSel: every data row.
    QTest::newRow("Row = RowSel") << "sel=3,1,3,3" << QStringList{"3", "1", "4", "2", "0"};
    QTest::newRow("Row = RowSel = 0") << "sel=0,1,0,3" << QStringList{"3", "1", "4", "2", "0"};
}

void tst_FlexGridSort::keyColumnsAndRows()
{
    QFETCH(QString, selection);
    const QList<QStringList> rows = {
        {"b", "2", "x"}, {"a", "2", "y"}, {"b", "1", "z"}, {"a", "2", "a"}, {"b", "1", "a"}};
    FlexGrid grid;
    grid.setRows(6);
    grid.setCols(5);
    for (int i = 0; i < 5; ++i) {
        for (int k = 0; k < 3; ++k)
            grid.setTextMatrix(1 + i, 1 + k, rows.at(i).at(k));
        grid.setTextMatrix(1 + i, 4, QString::number(i));
    }
    run(grid, selection);

    grid.setSort(flexSortGenericAscending);

    QTEST(dataColumn(grid, 4), "expected");
}

void tst_FlexGridSort::wholeRowsMoveAndFixedRowsStay()
{
    const QStringList keys = {"zz", "c", "a", "d", "b"};
    FlexGrid grid;
    fillKeys(grid, keys);
    grid.setFixedRows(2); // row 1 ("zz") would go last if it took part
    const QPixmap arrow = solid(Qt::black);
    run(grid, "Row=0 Col=1");
    grid.setCellPicture(arrow);
    for (int r = 2; r < 6; ++r) {
        run(grid, QStringLiteral("Row=%1 Col=0 CellBackColor(%2)").arg(r).arg(0x100 + r));
        grid.setRowHeight(r, 300 + 15 * r);
        grid.setRowData(r, 100 + r);
        grid.setMergeRow(r, r % 2);
    }
    run(grid, "Row=2 Col=1");

    grid.setSort(flexSortStringAscending);

    QCOMPARE(dataColumn(grid, 1), QStringList({"a", "b", "c", "d"}));
    QCOMPARE(grid.TextMatrix(1, 1), QStringLiteral("zz"));
    QCOMPARE(cellsOf(grid).format(0, 1).picture.cacheKey(), arrow.cacheKey());
    for (int r = 2; r < 6; ++r) {
        const int was = 1 + grid.TextMatrix(r, 2).toInt();
        QCOMPARE(cellsOf(grid).format(r, 0).backColor, OleColor(0x100 + was));
        QCOMPARE(grid.RowHeight(r), 300 + 15 * was);
        QCOMPARE(grid.RowData(r), 100 + was);
        QCOMPARE(grid.MergeRow(r), bool(was % 2));
    }
}

void tst_FlexGridSort::customSortAsksCompare()
{
    FlexGrid grid;
    fillKeys(grid, {"ccc", "a", "dddd", "bb", "ee"});
    bool rowsInRange = true;
    QObject::connect(&grid, &FlexGrid::Compare, [&](int row1, int row2, short& cmp) {
        rowsInRange = rowsInRange && std::min(row1, row2) >= 1 && std::max(row1, row2) <= 5;
        // Longest text first: the opposite of any built-in order; equal lengths keep order.
        const qsizetype a = grid.TextMatrix(row1, 1).size();
        const qsizetype b = grid.TextMatrix(row2, 1).size();
        cmp = short(a > b ? -1 : a < b ? 1 : 0);
    });

    grid.setSort(flexSortCustom);

    QVERIFY(rowsInRange);
    QCOMPARE(dataColumn(grid, 1), QStringList({"dddd", "ccc", "bb", "ee", "a"}));
}

QTEST_MAIN(tst_FlexGridSort)
#include "tst_flexgrid_sort.moc"
