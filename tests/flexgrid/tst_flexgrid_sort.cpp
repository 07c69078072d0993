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
    QTest::addColumn<QString>("keys"); // separated by '|'
    QTest::addColumn<int>("setting");
    QTest::addColumn<QString>("expected");

    // Generic: "" first, numbers by value, then other texts by code unit. Numeric: unconvertible
    // text counts as 0. Without case: numbers are text. With case: case ignored first, then
    // lowercase before uppercase. Ties keep their order both ways.
    const auto add = [](const char* name, int setting, const char* keys, const char* expected) {
        QTest::newRow(name) << keys << setting << expected;
    };
    add("generic ascending", 1, "b|10||9|a|B|2.5|-1", "|-1|2.5|9|10|B|a|b");
    add("generic descending", 2, "b|10||9|a|B|2.5|-1", "b|a|B|10|9|2.5|-1|");
    add("generic punctuation and blanks", 1, "#x|5|-a| |é", "5| |#x|-a|é");
    add("generic VB number forms", 1, "1e3|$5|(5)|&H10|7| 8 |1,000.5",
        "(5)|$5|7| 8 |&H10|1e3|1,000.5");
    add("numeric ascending", 3, "10|abc|-2||3|12abc", "-2|abc||12abc|3|10");
    add("numeric descending", 4, "10|abc|-2||3|12abc", "10|3|abc||12abc|-2");
    add("numeric VB number forms", 3, "1,000|999|1e2|(1)", "(1)|1e2|999|1,000");
    add("no case ascending", 5, "b|A|a|B|c|10|9", "10|9|A|a|b|B|c");
    add("no case descending", 6, "b|A|a|B|c|10|9", "c|b|B|A|a|9|10");
    add("case ascending", 7, "AB|Ab|b|aB|ab|B", "ab|aB|Ab|AB|b|B");
    add("case descending", 8, "AB|Ab|b|aB|ab|B", "B|b|AB|Ab|aB|ab");
    add("none", 0, "b|c|a", "b|c|a");
}

void tst_FlexGridSort::settingsOrderTheKeys()
{
    QFETCH(QString, keys);
    QFETCH(int, setting);
    FlexGrid grid;
    fillKeys(grid, keys.split(u'|'));

    grid.setSort(setting);

    QTEST(dataColumn(grid, 1).join(u'|'), "expected");
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
    // full comparison of a sort on two key columns (the second all empty) does: long shared
    // prefixes, case variants, surrogate pairs that fold as pairs (Deseret), NULs, numbers.
    QFETCH(int, setting);
    const QStringList pool =
        QStringLiteral("|abcdefgh|ABCDEFGH|abcdefghi|abcdefgH|abcdefgh1|abcdefgh0|abc|ABC|ab|ab\0c"
                       "|\u00C9cole|\u00E9cole|ecole|\U00010400x|\U00010428x|\U00010428y|\U00010400"
                       "|\u4E2D\u6587|20240105000000|20240105000001|10|9|-1|1,000|1e3"
                       "|abcdefghijklmnop|abcdefghijklmnoq|abcdefghijkl")
            .split(u'|');
    QStringList orders[2];
    for (int keyColumns : {1, 2}) {
        QRandomGenerator random(20261121);
        FlexGrid grid;
        grid.setRows(401);
        grid.setCols(4);
        for (int r = 1; r <= 400; ++r) {
            grid.setTextMatrix(r, 1, pool.at(random.bounded(int(pool.size()))));
            grid.setTextMatrix(r, 3, QString::number(r));
        }
        grid.setColSel(keyColumns);
        grid.setSort(setting);
        orders[keyColumns - 1] = dataColumn(grid, 3);
    }
    QCOMPARE(orders[0], orders[1]);
}

void tst_FlexGridSort::keyColumnsAndRows_data()
{
    // Keys (b,2,x) (a,2,y) (b,1,z) (a,2,a) (b,1,a) in columns 1–3 of rows 1–5: Col to ColSel
    // name the key columns from left to right, Row to RowSel the rows that move; Row = RowSel
    // sorts every data row. Expected: the original indexes, top to bottom.
    QTest::addColumn<QString>("selection");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Col 3, ColSel 1") << "sel=1,3,1,1"
                                     << "31420";
    QTest::newRow("Col 1, ColSel 2") << "sel=1,1,1,2"
                                     << "13240";
    QTest::newRow("Col 2 alone") << "sel=1,2,1,2"
                                 << "24013";
    QTest::newRow("Col 3, ColSel 2") << "sel=1,3,1,2"
                                     << "42301";
    QTest::newRow("Row 4, RowSel 2") << "sel=4,1,2,3"
                                     << "03124";
    QTest::newRow("Row 5, RowSel 4") << "sel=5,2,4,2"
                                     << "01243";
    QTest::newRow("Row = RowSel = 0") << "sel=0,1,0,3"
                                      << "31420";
}

void tst_FlexGridSort::keyColumnsAndRows()
{
    QFETCH(QString, selection);
    FlexGrid grid;
    grid.setRows(6);
    grid.setCols(5);
    const QStringList rows = {"b2x", "a2y", "b1z", "a2a", "b1a"};
    for (int i = 0; i < 5; ++i) {
        for (int k = 0; k < 3; ++k)
            grid.setTextMatrix(1 + i, 1 + k, rows.at(i).at(k));
        grid.setTextMatrix(1 + i, 4, QString::number(i));
    }
    run(grid, selection);

    grid.setSort(flexSortGenericAscending);

    QTEST(dataColumn(grid, 4).join(QString()), "expected");
}

void tst_FlexGridSort::wholeRowsMoveAndFixedRowsStay()
{
    FlexGrid grid;
    fillKeys(grid, {"zz", "c", "a", "d", "b"});
    grid.setFixedRows(2); // row 1 ("zz") would go last if it took part
    const QPixmap arrow = solid(Qt::black);
    run(grid, "Row=0 Col=1");
    grid.setCellPicture(arrow);
    for (int r = 2; r < 6; ++r) {
        run(grid, QStringLiteral("Row=%1 Col=0 CellBackColor(%2) RowHeight(%1,%3) MergeRow(%1,%4)")
                      .arg(r)
                      .arg(0x100 + r)
                      .arg(300 + 15 * r)
                      .arg(r % 2));
        grid.setRowData(r, 100 + r);
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
    // Longest text first, the opposite of any built-in order; equal lengths keep their order.
    FlexGrid grid;
    fillKeys(grid, {"ccc", "a", "dddd", "bb", "ee"});
    bool rowsInRange = true;
    QObject::connect(&grid, &FlexGrid::Compare, [&](int row1, int row2, short& cmp) {
        rowsInRange = rowsInRange && std::min(row1, row2) >= 1 && std::max(row1, row2) <= 5;
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
