// FlexGrid's Sort (flexgrid-reference.md §9).
#include "flexgrid/FlexCellStore_p.h"
#include <VemoGridLib/FlexGrid.h>

#include <VemoGridLib/VbConversion.h>
#include <VemoGridLib/VemoError.h>

#include "CellStoreAccess.h"
#include "FlexEventLog.h"
#include "VemoTestSupport.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <numeric>
#include <vector>

using namespace VemoGridLib;
using namespace VemoGridLib::Flex;
using VemoTest::EventLog;

namespace {

// Sanitizers slow the sort down several times; the bound is a sanity check, not a benchmark.
#if defined(__SANITIZE_ADDRESS__)
constexpr qint64 BigSortBoundMs = 5000;
#else
constexpr qint64 BigSortBoundMs = 1000;
#endif

// One fixed row ("Key" / "Label") and one data row per key: column 1 holds the key, column 2
// the row's original data index, so the order after sorting can be read as labels.
void fillKeys(FlexGrid& grid, const QStringList& keys)
{
    grid.setRows(1 + int(keys.size()));
    grid.setCols(3);
    grid.setTextMatrix(0, 1, QStringLiteral("Key"));
    grid.setTextMatrix(0, 2, QStringLiteral("Label"));
    for (int i = 0; i < keys.size(); ++i) {
        grid.setTextMatrix(1 + i, 1, keys.at(i));
        grid.setTextMatrix(1 + i, 2, QString::number(i));
    }
}

// The texts of column `col` in rows FixedRows..Rows-1.
QStringList dataColumn(const FlexGrid& grid, int col)
{
    QStringList texts;
    for (int r = grid.FixedRows(); r < grid.Rows(); ++r)
        texts << grid.TextMatrix(r, col);
    return texts;
}

QStringList labels(std::initializer_list<int> indexes)
{
    QStringList texts;
    for (int index : indexes)
        texts << QString::number(index);
    return texts;
}

QStringList reversed(QStringList list)
{
    std::reverse(list.begin(), list.end());
    return list;
}

QPixmap filledPixmap(const QColor& color)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(color);
    return pixmap;
}

} // namespace

class tst_FlexGridSort : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void settingsOrderTheKeys_data();
    void settingsOrderTheKeys();
    void textSortsMatchTheFullComparison_data();
    void textSortsMatchTheFullComparison();
    void tiesKeepTheirOrder_data();
    void tiesKeepTheirOrder();
    void keyColumnsFromLeftToRight_data();
    void keyColumnsFromLeftToRight();
    void rowAndRowSelLimitTheSortedRows_data();
    void rowAndRowSelLimitTheSortedRows();
    void fixedRowsNeverMove();
    void wholeRowsMove();
    void currentCellKeepsItsNumbersAndNoEventsFire();
    void settingZeroDoesNothing();
    void customSortAsksCompare();
    void customSortWithAllEqualKeepsTheOrder();
    void invalidSettingRaises_data();
    void invalidSettingRaises();
    void bigNumericSortIsFast();
};

void tst_FlexGridSort::initTestCase()
{
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
}

void tst_FlexGridSort::settingsOrderTheKeys_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<int>("setting");
    QTest::addColumn<QStringList>("expected");

    const auto both = [](const char* name, const QStringList& keys, int ascending,
                         const QStringList& expected) {
        QTest::addRow("%s ascending", name) << keys << ascending << expected;
        QTest::addRow("%s descending", name) << keys << ascending + 1 << reversed(expected);
    };

    // Generic: "" first, numeric texts by value, then other texts by code unit.
    both("generic numbers by value", {"10", "9", "100", "-1", "2.5"}, flexSortGenericAscending,
         {"-1", "2.5", "9", "10", "100"});
    both("generic empty, numbers, texts", {"b", "10", "", "9", "a", "B"}, flexSortGenericAscending,
         {"", "9", "10", "B", "a", "b"});
    both("generic numbers before punctuation", {"#x", "5", "-a", "3"}, flexSortGenericAscending,
         {"3", "5", "#x", "-a"});
    both("generic VB number forms", {"1e3", "$5", "(5)", "&H10", "7", " 8 ", "1,000.5"},
         flexSortGenericAscending, {"(5)", "$5", "7", " 8 ", "&H10", "1e3", "1,000.5"});
    both("generic blank is text", {" ", "a", "", "1"}, flexSortGenericAscending,
         {"", "1", " ", "a"});
    both("generic text by code unit", {"b", "B", "a", "A", "é"}, flexSortGenericAscending,
         {"A", "B", "a", "b", "é"});
    both("generic CJK", {"乙", "甲", "3"}, flexSortGenericAscending, {"3", "乙", "甲"});

    // Numeric: unconvertible text counts as 0 (ties keep their order, both directions).
    QTest::newRow("numeric ascending")
        << QStringList{"10", "abc", "-2", "", "3", "12abc"} << int(flexSortNumericAscending)
        << QStringList{"-2", "abc", "", "12abc", "3", "10"};
    QTest::newRow("numeric descending")
        << QStringList{"10", "abc", "-2", "", "3", "12abc"} << int(flexSortNumericDescending)
        << QStringList{"10", "3", "abc", "", "12abc", "-2"};
    both("numeric VB number forms", {"1,000", "999", "1e2", "(1)"}, flexSortNumericAscending,
         {"(1)", "1e2", "999", "1,000"});

    // Text without case: letters alphabetically, case ignored (ties keep their order).
    QTest::newRow("no case ascending")
        << QStringList{"b", "A", "a", "B", "c"} << int(flexSortStringNoCaseAscending)
        << QStringList{"A", "a", "b", "B", "c"};
    QTest::newRow("no case descending")
        << QStringList{"b", "A", "a", "B", "c"} << int(flexSortStringNoCaseDescending)
        << QStringList{"c", "b", "B", "A", "a"};
    both("no case words", {"cherry", "Banana", "apple", "Cherries"}, flexSortStringNoCaseAscending,
         {"apple", "Banana", "Cherries", "cherry"});
    both("no case numbers are text", {"10", "9", "1"}, flexSortStringNoCaseAscending,
         {"1", "10", "9"});

    // Text with case: case-insensitive first, then lowercase before uppercase.
    both("case letters", {"b", "A", "a", "B", "c"}, flexSortStringAscending,
         {"a", "A", "b", "B", "c"});
    both("case mixed words", {"AB", "Ab", "aB", "ab"}, flexSortStringAscending,
         {"ab", "aB", "Ab", "AB"});
    both("case alphabet first", {"Zebra", "apple", "Apple", "zebra"}, flexSortStringAscending,
         {"apple", "Apple", "zebra", "Zebra"});
}

void tst_FlexGridSort::settingsOrderTheKeys()
{
    QFETCH(QStringList, keys);
    QFETCH(int, setting);
    QFETCH(QStringList, expected);

    FlexGrid grid;
    fillKeys(grid, keys);
    grid.setCol(1);
    grid.setColSel(1);

    grid.setSort(setting);

    QCOMPARE(dataColumn(grid, 1), expected);
    QCOMPARE(grid.TextMatrix(0, 1), QStringLiteral("Key"));
}

void tst_FlexGridSort::textSortsMatchTheFullComparison_data()
{
    QTest::addColumn<int>("setting");
    QTest::newRow("no case, ascending") << int(flexSortStringNoCaseAscending);
    QTest::newRow("no case, descending") << int(flexSortStringNoCaseDescending);
    QTest::newRow("case, ascending") << int(flexSortStringAscending);
    QTest::newRow("case, descending") << int(flexSortStringDescending);
    QTest::newRow("generic, ascending") << int(flexSortGenericAscending);
    QTest::newRow("generic, descending") << int(flexSortGenericDescending);
}

void tst_FlexGridSort::textSortsMatchTheFullComparison()
{
    // A one-column text sort compares packed prefixes first; the order must still be exactly
    // that of the full comparison, stable: long shared prefixes, case variants, surrogate pairs
    // that fold as pairs (Deseret), empty texts, embedded NULs and duplicates.
    QFETCH(int, setting);
    const QStringList pool = {
        QString(),
        QStringLiteral("abcdefgh"),
        QStringLiteral("ABCDEFGH"),
        QStringLiteral("abcdefghi"),
        QStringLiteral("abcdefgH"),
        QStringLiteral("abcdefgh1"),
        QStringLiteral("abcdefgh0"),
        QStringLiteral("abc"),
        QStringLiteral("ABC"),
        QStringLiteral("ab"),
        QString(QStringLiteral("ab")).append(QChar(0)).append(QStringLiteral("c")),
        QStringLiteral("zeta"),
        QStringLiteral("\u00C9cole"),
        QStringLiteral("\u00E9cole"),
        QStringLiteral("ecole"),
        QStringLiteral("\U00010400x"),
        QStringLiteral("\U00010428x"),
        QStringLiteral("\U00010428y"),
        QStringLiteral("\U00010400"),
        QStringLiteral("\u4E2D\u6587"),
        QStringLiteral("20240105000000"),
        QStringLiteral("20240105000001"),
        QStringLiteral("20231231000000"),
        QStringLiteral("10"),
        QStringLiteral("9"),
        QStringLiteral("-1"),
        QStringLiteral("1,000"),
        QStringLiteral("1e3"),
        QStringLiteral("abcdefghijklmnop"),
        QStringLiteral("abcdefghijklmnoq"),
        QStringLiteral("abcdefghijkl"),
    };
    QRandomGenerator random(20261121);
    QStringList keys;
    for (int i = 0; i < 400; ++i)
        keys << pool.at(random.bounded(int(pool.size())));

    FlexGrid grid;
    grid.setCols(3);
    grid.setRows(1 + int(keys.size()));
    for (int i = 0; i < keys.size(); ++i) {
        grid.setTextMatrix(1 + i, 1, keys.at(i));
        grid.setTextMatrix(1 + i, 2, QString::number(i));
    }
    grid.setRow(0);
    grid.setCol(1);
    grid.setSort(setting);

    const bool caseSensitive =
        setting == flexSortStringAscending || setting == flexSortStringDescending;
    const bool generic =
        setting == flexSortGenericAscending || setting == flexSortGenericDescending;
    const bool ascending = setting % 2 == 1;
    // The generic order: empty texts, then numbers by value, then other texts by code unit.
    const auto rank = [](const QString& text) {
        return text.isEmpty() ? 0 : vb::IsNumeric(text) ? 1 : 2;
    };
    const auto compare = [&](const QString& a, const QString& b) {
        if (generic) {
            if (rank(a) != rank(b))
                return rank(a) < rank(b) ? -1 : 1;
            if (rank(a) == 1) {
                const double x = vb::CDbl(a);
                const double y = vb::CDbl(b);
                return x < y ? -1 : (x > y ? 1 : 0);
            }
            return a.compare(b, Qt::CaseSensitive);
        }
        const int folded = a.compare(b, Qt::CaseInsensitive);
        if (folded != 0 || !caseSensitive)
            return folded;
        return -a.compare(b, Qt::CaseSensitive);
    };
    std::vector<int> expected(std::size_t(keys.size()));
    std::iota(expected.begin(), expected.end(), 0);
    std::stable_sort(expected.begin(), expected.end(), [&](int a, int b) {
        const int result = compare(keys.at(a), keys.at(b));
        return ascending ? result < 0 : result > 0;
    });
    for (int i = 0; i < keys.size(); ++i)
        QCOMPARE(grid.TextMatrix(1 + i, 2), QString::number(expected[std::size_t(i)]));
}

void tst_FlexGridSort::tiesKeepTheirOrder_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QStringList>("expected");

    const QStringList pairs = {"2", "1", "2", "1", "1"};
    const QStringList same = {"x", "x", "x", "x"};
    for (int setting = flexSortGenericAscending; setting <= flexSortStringDescending; ++setting) {
        const bool ascending = setting % 2 == 1;
        QTest::addRow("pairs, setting %d", setting)
            << setting << pairs << (ascending ? labels({1, 3, 4, 0, 2}) : labels({0, 2, 1, 3, 4}));
        QTest::addRow("all equal, setting %d", setting) << setting << same << labels({0, 1, 2, 3});
    }
}

void tst_FlexGridSort::tiesKeepTheirOrder()
{
    QFETCH(int, setting);
    QFETCH(QStringList, keys);
    QFETCH(QStringList, expected);

    FlexGrid grid;
    fillKeys(grid, keys);

    grid.setSort(setting);

    QCOMPARE(dataColumn(grid, 2), expected);
}

void tst_FlexGridSort::keyColumnsFromLeftToRight_data()
{
    QTest::addColumn<int>("col");
    QTest::addColumn<int>("colSel");
    QTest::addColumn<QStringList>("expected");

    // Rows 0..4 as labels; keys (b,2,x) (a,2,y) (b,1,z) (a,2,a) (b,1,a).
    QTest::newRow("Col 3, ColSel 1") << 3 << 1 << labels({3, 1, 4, 2, 0});
    QTest::newRow("Col 1, ColSel 3") << 1 << 3 << labels({3, 1, 4, 2, 0});
    QTest::newRow("Col 1, ColSel 2") << 1 << 2 << labels({1, 3, 2, 4, 0});
    QTest::newRow("Col 2 alone") << 2 << 2 << labels({2, 4, 0, 1, 3});
    QTest::newRow("Col 3, ColSel 2") << 3 << 2 << labels({4, 2, 3, 0, 1});
}

void tst_FlexGridSort::keyColumnsFromLeftToRight()
{
    QFETCH(int, col);
    QFETCH(int, colSel);
    QFETCH(QStringList, expected);

    const QList<QStringList> rows = {
        {"b", "2", "x"}, {"a", "2", "y"}, {"b", "1", "z"}, {"a", "2", "a"}, {"b", "1", "a"}};
    FlexGrid grid;
    grid.setRows(1 + int(rows.size()));
    grid.setCols(5);
    for (int i = 0; i < rows.size(); ++i) {
        for (int k = 0; k < 3; ++k)
            grid.setTextMatrix(1 + i, 1 + k, rows.at(i).at(k));
        grid.setTextMatrix(1 + i, 4, QString::number(i));
    }
    grid.setCol(col);
    grid.setColSel(colSel);

    grid.setSort(flexSortGenericAscending);

    QCOMPARE(dataColumn(grid, 4), expected);
}

void tst_FlexGridSort::rowAndRowSelLimitTheSortedRows_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("rowSel");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("Row 4, RowSel 2") << 4 << 2 << QStringList{"f", "c", "d", "e", "b", "a"};
    QTest::newRow("Row 2, RowSel 4") << 2 << 4 << QStringList{"f", "c", "d", "e", "b", "a"};
    QTest::newRow("Row 5, RowSel 6") << 5 << 6 << QStringList{"f", "e", "d", "c", "a", "b"};
    QTest::newRow("Row = RowSel = 3") << 3 << 3 << QStringList{"a", "b", "c", "d", "e", "f"};
    QTest::newRow("Row = RowSel = 0") << 0 << 0 << QStringList{"a", "b", "c", "d", "e", "f"};
}

void tst_FlexGridSort::rowAndRowSelLimitTheSortedRows()
{
    QFETCH(int, row);
    QFETCH(int, rowSel);
    QFETCH(QStringList, expected);

    FlexGrid grid;
    fillKeys(grid, {"f", "e", "d", "c", "b", "a"});
    grid.setRow(row);
    grid.setRowSel(rowSel);

    grid.setSort(flexSortStringAscending);

    QCOMPARE(dataColumn(grid, 1), expected);
    QCOMPARE(grid.TextMatrix(0, 1), QStringLiteral("Key"));
}

void tst_FlexGridSort::fixedRowsNeverMove()
{
    // Row 1 is fixed; its key would go last if it took part.
    FlexGrid grid;
    fillKeys(grid, {"zz", "c", "a", "b"});
    grid.setFixedRows(2);
    grid.setRow(0);
    grid.setCol(1);
    const QPixmap arrow = filledPixmap(Qt::black);
    grid.setCellPicture(arrow);
    grid.setCellPictureAlignment(flexAlignRightCenter);

    grid.setSort(flexSortGenericAscending);

    QCOMPARE(grid.TextMatrix(0, 1), QStringLiteral("Key"));
    QCOMPARE(grid.TextMatrix(1, 1), QStringLiteral("zz"));
    QCOMPARE(dataColumn(grid, 1), (QStringList{"a", "b", "c"}));
    QCOMPARE(cellsOf(grid).format(0, 1).picture.cacheKey(), arrow.cacheKey());
    QCOMPARE(int(cellsOf(grid).format(0, 1).pictureAlignment), int(flexAlignRightCenter));
}

void tst_FlexGridSort::wholeRowsMove()
{
    const QStringList keys = {"c", "a", "d", "b"};
    FlexGrid grid;
    fillKeys(grid, keys);
    grid.setFixedCols(0);
    QList<qint64> pictureKeys;
    for (int i = 0; i < keys.size(); ++i) {
        const int r = 1 + i;
        grid.setTextMatrix(r, 0, QStringLiteral("left %1").arg(i));
        grid.setRow(r);
        grid.setCol(2);
        grid.setCellBackColor(0x100 + i);
        grid.setCol(0);
        const QPixmap picture = filledPixmap(QColor::fromHsv(i * 60, 255, 255));
        grid.setCellPicture(picture);
        pictureKeys << picture.cacheKey();
        grid.setRowHeight(r, 300 + 15 * i);
        grid.setRowData(r, 100 + i);
        grid.setMergeRow(r, i % 2 == 1);
    }
    grid.setRow(1);
    grid.setCol(1);

    grid.setSort(flexSortStringAscending);

    QCOMPARE(dataColumn(grid, 1), (QStringList{"a", "b", "c", "d"}));
    const FlexCellStore& cells = cellsOf(grid);
    for (int r = 1; r < grid.Rows(); ++r) {
        const int i = grid.TextMatrix(r, 2).toInt();
        QCOMPARE(grid.TextMatrix(r, 1), keys.at(i));
        QCOMPARE(grid.TextMatrix(r, 0), QStringLiteral("left %1").arg(i));
        QCOMPARE(cells.format(r, 2).backColor, OleColor(0x100 + i));
        QCOMPARE(cells.format(r, 0).picture.cacheKey(), pictureKeys.at(i));
        QCOMPARE(grid.RowHeight(r), 300 + 15 * i);
        QCOMPARE(grid.RowData(r), 100 + i);
        QCOMPARE(grid.MergeRow(r), i % 2 == 1);
    }
}

void tst_FlexGridSort::currentCellKeepsItsNumbersAndNoEventsFire()
{
    FlexGrid grid;
    fillKeys(grid, {"d", "c", "b", "a"});
    grid.setRow(3);
    grid.setCol(1);
    grid.setRowSel(3);
    grid.setColSel(1);
    const int topRow = grid.TopRow();
    EventLog log(grid);

    grid.setSort(flexSortStringAscending);

    QCOMPARE(dataColumn(grid, 1), (QStringList{"a", "b", "c", "d"}));
    QCOMPARE(grid.Row(), 3);
    QCOMPARE(grid.Col(), 1);
    QCOMPARE(grid.RowSel(), 3);
    QCOMPARE(grid.ColSel(), 1);
    QCOMPARE(grid.TopRow(), topRow);
    QCOMPARE(grid.Text(), QStringLiteral("c"));
    QCOMPARE(log.names, QStringList());
}

void tst_FlexGridSort::settingZeroDoesNothing()
{
    FlexGrid grid;
    fillKeys(grid, {"b", "c", "a"});
    EventLog log(grid);

    grid.setSort(flexSortNone);

    QCOMPARE(dataColumn(grid, 1), (QStringList{"b", "c", "a"}));
    QCOMPARE(log.names, QStringList());
}

void tst_FlexGridSort::customSortAsksCompare()
{
    FlexGrid grid;
    fillKeys(grid, {"ccc", "a", "dddd", "bb"});
    int asked = 0;
    bool rowsInRange = true;
    QObject::connect(&grid, &FlexGrid::Compare, [&](int row1, int row2, short& cmp) {
        ++asked;
        rowsInRange =
            rowsInRange && row1 >= 1 && row1 < grid.Rows() && row2 >= 1 && row2 < grid.Rows();
        // Longest text first: the opposite of any built-in order of these keys.
        const qsizetype a = grid.TextMatrix(row1, 1).size();
        const qsizetype b = grid.TextMatrix(row2, 1).size();
        cmp = short(a > b ? -1 : a < b ? 1 : 0);
    });

    grid.setSort(flexSortCustom);

    QVERIFY(asked > 0);
    QVERIFY(rowsInRange);
    QCOMPARE(dataColumn(grid, 1), (QStringList{"dddd", "ccc", "bb", "a"}));
}

void tst_FlexGridSort::customSortWithAllEqualKeepsTheOrder()
{
    FlexGrid grid;
    fillKeys(grid, {"c", "a", "b"});
    QObject::connect(&grid, &FlexGrid::Compare, [](int, int, short& cmp) { cmp = 0; });

    grid.setSort(flexSortCustom);

    QCOMPARE(dataColumn(grid, 1), (QStringList{"c", "a", "b"}));
}

void tst_FlexGridSort::invalidSettingRaises_data()
{
    QTest::addColumn<int>("setting");

    QTest::newRow("10") << 10;
    QTest::newRow("-1") << -1;
    QTest::newRow("100") << 100;
}

void tst_FlexGridSort::invalidSettingRaises()
{
    QFETCH(int, setting);

    FlexGrid grid;
    fillKeys(grid, {"b", "c", "a"});
    EventLog log(grid);

    const std::optional<VemoError> error = VemoTest::errorOf([&] { grid.setSort(setting); });

    QVERIFY(error.has_value());
    QCOMPARE(error->number(), int(flexerrInvalidPropertyValue));
    QCOMPARE(error->description(), QStringLiteral("Invalid property value"));
    QCOMPARE(dataColumn(grid, 1), (QStringList{"b", "c", "a"}));
    QCOMPARE(log.names, QStringList());
}

void tst_FlexGridSort::bigNumericSortIsFast()
{
    constexpr int DataRows = 100000;
    FlexGrid grid;
    grid.setRows(1 + DataRows);
    QRandomGenerator random(20240601);
    for (int r = 1; r <= DataRows; ++r)
        grid.setTextMatrix(r, 1, QString::number(random.bounded(2000000) - 1000000));

    QElapsedTimer timer;
    timer.start();
    grid.setSort(flexSortNumericAscending);
    const qint64 elapsed = timer.elapsed();

    QVERIFY2(elapsed < BigSortBoundMs, qPrintable(QStringLiteral("%1 ms").arg(elapsed)));
    int previous = grid.TextMatrix(1, 1).toInt();
    for (int r = 2; r <= DataRows; ++r) {
        const int value = grid.TextMatrix(r, 1).toInt();
        if (value < previous)
            QFAIL(
                qPrintable(QStringLiteral("row %1: %2 after %3").arg(r).arg(value).arg(previous)));
        previous = value;
    }
}

QTEST_MAIN(tst_FlexGridSort)
#include "tst_flexgrid_sort.moc"
