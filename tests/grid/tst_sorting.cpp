// SPDX-License-Identifier: MIT
// VemoGrid's sorting by a column's SortType: the order of each type, the direction toggle and
// header arrow, header clicks, the date keys, and the SortOnCol quirk.
#include "grid/VemoGrid_p.h"
#include <VemoGridLib/VbFormat.h>
#include <VemoGridLib/VemoGrid.h>

#include "VemoGridTestSupport.h"
#include "VemoTestSupport.h"

#include <QSignalSpy>
#include <QTest>

#include <algorithm>

using namespace VemoGridLib;
using namespace VemoTest;

namespace {

constexpr int KeyCol = 1;
constexpr int LabelCol = 2;
constexpr int SecondCol = 3;

QStringList reversed(QStringList list)
{
    std::reverse(list.begin(), list.end());
    return list;
}

QImage arrowOf(const VemoGrid& grid, int col)
{
    return lookOf(grid, 0, col).picture.toImage();
}

} // namespace

class tst_Sorting : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { pinFont(); }
    void cleanup() { m_grid.reset(); }

    void sortTypeOrdersRows_data();
    void sortTypeOrdersRows();
    void directionToggleAndArrows();
    void dateKeyIsTheFormattedText_data();
    void dateKeyIsTheFormattedText();
    void fixedRowsStayAndMarkedRowFollows();
    void headerClicks_data();
    void headerClicks();
    void clearForgetsTheSort();

private:
    /// Columns Key, Label and Second, one data row per key labelled "L0", "L1", ... in the
    /// original order.
    void build(const QStringList& keys, const QStringList& second = {});

    std::unique_ptr<VemoGrid> m_grid;
};

void tst_Sorting::build(const QStringList& keys, const QStringList& second)
{
    m_grid = shownGrid(QStringLiteral("|Key|Label|Second"), int(keys.size()));
    QVERIFY(m_grid);
    for (int i = 0; i < keys.size(); ++i) {
        m_grid->setTextMatrix(1 + i, KeyCol, keys.at(i));
        m_grid->setTextMatrix(1 + i, LabelCol, QStringLiteral("L%1").arg(i));
        m_grid->setTextMatrix(1 + i, SecondCol, second.value(i));
    }
}

void tst_Sorting::sortTypeOrdersRows_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QStringList>("ascending");

    QTest::newRow("None") << int(VemoSortNone) << QStringList({"c", "a", "b"})
                          << QStringList({"c", "a", "b"});
    // Numbers by value ("9" before "10"), texts after them.
    QTest::newRow("Generic") << int(VemoSortGeneric) << QStringList({"10", "abc", "-2", "9"})
                             << QStringList({"-2", "9", "10", "abc"});
    // A text that is no number counts as 0.
    QTest::newRow("Numeric") << int(VemoSortNumeric) << QStringList({"10", "abc", "-2", "9"})
                             << QStringList({"-2", "abc", "9", "10"});
    QTest::newRow("StringNoCase") << int(VemoSortStringNoCase)
                                  << QStringList({"banana", "apple", "Cherry", "Apricot", "10"})
                                  << QStringList({"10", "apple", "Apricot", "banana", "Cherry"});
    // Alphabetical, then lower case before upper case.
    QTest::newRow("String") << int(VemoSortString) << QStringList({"b", "A", "a", "B"})
                            << QStringList({"a", "A", "b", "B"});
    // By their 14-digit keys, not by their texts.
    QTest::newRow("DateTime")
        << int(VemoSortDateTime)
        << QStringList({"2024-01-10", "2023-12-31", "2024-1-5", "2024-01-05 13:00:00"})
        << QStringList({"2023-12-31", "2024-1-5", "2024-01-05 13:00:00", "2024-01-10"});
    QTest::newRow("Currency") << int(VemoSortCurrency)
                              << QStringList({"1,234.50", "999.99", "-5.00", "12.00"})
                              << QStringList({"-5.00", "12.00", "999.99", "1,234.50"});
}

void tst_Sorting::sortTypeOrdersRows()
{
    QFETCH(int, type);
    QFETCH(QStringList, keys);
    QFETCH(QStringList, ascending);
    build(keys, QStringList(keys.size(), QStringLiteral("s")));
    m_grid->Column(KeyCol)->setSortType(VemoSortTypeConstants(type));
    Column* const last = m_grid->Column(SecondCol);
    m_grid->setRow(2);
    m_grid->setCol(LabelCol);

    for (const bool up : {true, false}) {
        m_grid->Sort(KeyCol, up ? SortAscending : SortDescending);
        const QStringList expected = up || type == VemoSortNone ? ascending : reversed(ascending);
        QCOMPARE(columnTexts(*m_grid, KeyCol), expected);
        // Whole rows move.
        for (int row = 1; row < m_grid->Rows(); ++row)
            QCOMPARE(m_grid->TextMatrix(row, LabelCol),
                     QStringLiteral("L%1").arg(keys.indexOf(expected.at(row - 1))));
    }
    // The hidden key column of dates and amounts is gone again; the current cell is back.
    QCOMPARE(m_grid->hostedGrid()->Cols(), 4);
    QCOMPARE(m_grid->Column(SecondCol), last);
    QCOMPARE(columnTexts(*m_grid, SecondCol), QStringList(keys.size(), QStringLiteral("s")));
    QCOMPARE(m_grid->Row(), 2);
    QCOMPARE(m_grid->Col(), LabelCol);
    QCOMPARE(arrowOf(*m_grid, KeyCol).isNull(), type == VemoSortNone);
}

void tst_Sorting::directionToggleAndArrows()
{
    build({"2", "3", "1"}, {"b", "c", "a"});
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
    m_grid->Column(SecondCol)->setSortType(VemoSortString);

    m_grid->Sort(KeyCol);
    const QImage up = arrowOf(*m_grid, KeyCol);
    m_grid->Sort(KeyCol);
    QCOMPARE(columnTexts(*m_grid, KeyCol), QStringList({"3", "2", "1"}));
    const QImage down = arrowOf(*m_grid, KeyCol);
    QVERIFY(!up.isNull() && !down.isNull() && up != down);
    // Right, centred vertically, beside the header's text.
    QCOMPARE(lookOf(*m_grid, 0, KeyCol).pictureAlignment, std::int8_t(7));
    QCOMPARE(m_grid->TextMatrix(0, KeyCol), QStringLiteral("Key"));

    // An explicit direction wins; the toggle reverses the last one, also an explicit one.
    m_grid->Sort(KeyCol, SortDescending);
    m_grid->Sort(KeyCol);
    QCOMPARE(columnTexts(*m_grid, KeyCol), QStringList({"1", "2", "3"}));

    // Another column starts ascending and takes the arrow.
    m_grid->Sort(SecondCol);
    QCOMPARE(columnTexts(*m_grid, SecondCol), QStringList({"a", "b", "c"}));
    QVERIFY(arrowOf(*m_grid, KeyCol).isNull());
    QCOMPARE(arrowOf(*m_grid, SecondCol), up);

    // A column of SortType None sorts nothing but still takes the arrow's place, ascending.
    m_grid->Sort(LabelCol);
    QVERIFY(arrowOf(*m_grid, SecondCol).isNull());
    m_grid->Column(LabelCol)->setSortType(VemoSortString);
    m_grid->Sort(LabelCol);
    QCOMPARE(m_grid->TextMatrix(1, LabelCol), QStringLiteral("L2"));

    // A fixed column is never sorted.
    m_grid->Column(0)->setSortType(VemoSortString);
    m_grid->Sort(0, SortDescending);
    QVERIFY(arrowOf(*m_grid, 0).isNull());
}

void tst_Sorting::dateKeyIsTheFormattedText_data()
{
    QTest::addColumn<QByteArray>("lang");
    QTest::addColumn<QString>("text");
    const char* const texts[] = {
        "2024-1-5",         "2024-02-29 13:45", "2024-2-3 0:00", "2023-02-29", "2024-01-05 24:00",
        "2024-01-05T10:00", "12/31/2023",       "Jan 5, 2024",   "45000",      "2024-01-05 "};
    for (const QByteArray lang : {QByteArray("en_US.UTF-8"), QByteArray("zh_CN.UTF-8")}) {
        for (const char* text : texts)
            QTest::addRow("%s %s", lang.constData(), text) << lang << QString::fromUtf8(text);
    }
}

// The grid reads ISO-style dates itself, for speed; it must give exactly what Format gives.
void tst_Sorting::dateKeyIsTheFormattedText()
{
    QFETCH(QByteArray, lang);
    QFETCH(QString, text);
    const ScopedLocale locale(lang);
    QCOMPARE(VemoGridPrivate::dateSortKey(text),
             vb::Format(text, QStringLiteral("yyyymmddHhNnSs")));
}

void tst_Sorting::fixedRowsStayAndMarkedRowFollows()
{
    build({"5", "4", "3", "1", "2"});
    m_grid->setFixedRows(2);
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
    clickCell(*m_grid, 3, LabelCol); // marks the row of key "3"

    m_grid->Sort(KeyCol);

    QCOMPARE(m_grid->TextMatrix(1, KeyCol), QStringLiteral("5"));
    QCOMPARE(columnTexts(*m_grid, KeyCol), QStringList({"1", "2", "3", "4"}));
    QCOMPARE(m_grid->Selected(), 4);
    QVERIFY(hasPicture(*m_grid, 4, 0));
    // The looks moved with the rows; the colouring pass bands them by position again.
    for (int row = 2; row < m_grid->Rows(); ++row) {
        QCOMPARE(hasPicture(*m_grid, row, 0), row == 4);
        QCOMPARE(lookOf(*m_grid, row, KeyCol).backColor, bandOf(*m_grid, row));
    }
}

void tst_Sorting::headerClicks_data()
{
    QTest::addColumn<bool>("sortable");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<bool>("sorts");
    QTest::newRow("header") << true << int(VemoSortNumeric) << 0 << KeyCol << true;
    QTest::newRow("Sortable false") << false << int(VemoSortNumeric) << 0 << KeyCol << false;
    QTest::newRow("data cell") << true << int(VemoSortNumeric) << 2 << KeyCol << false;
}

void tst_Sorting::headerClicks()
{
    QFETCH(bool, sortable);
    QFETCH(int, type);
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(bool, sorts);
    const QStringList keys = {"2", "3", "1"};
    build(keys);
    // SortOnHeaderClick sets Sortable only; the columns keep their own SortType.
    m_grid->SortOnHeaderClick(sortable, VemoSortString);
    for (int c = 0; c < m_grid->Cols(); ++c)
        m_grid->Column(c)->setSortType(VemoSortTypeConstants(type));
    QStringList atClick;
    connect(m_grid.get(), &VemoGrid::Click, this, [&] { atClick = columnTexts(*m_grid, KeyCol); });

    clickCell(*m_grid, row, col);
    // Click is raised first, before the rows move.
    QCOMPARE(atClick, keys);
    QCOMPARE(columnTexts(*m_grid, KeyCol), sorts ? QStringList({"1", "2", "3"}) : keys);
    clickCell(*m_grid, row, col);
    QCOMPARE(columnTexts(*m_grid, KeyCol), sorts ? QStringList({"3", "2", "1"}) : keys);
    QCOMPARE(arrowOf(*m_grid, KeyCol).isNull(), !sorts);
    disconnect(m_grid.get(), &VemoGrid::Click, this, nullptr);
}

void tst_Sorting::clearForgetsTheSort()
{
    build({"2", "3", "1", "4"});
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
    m_grid->Sort(KeyCol);
    const QImage up = arrowOf(*m_grid, KeyCol);

    m_grid->Clear();

    // The arrow is gone, and the next sort starts ascending instead of reversing.
    QVERIFY(arrowOf(*m_grid, KeyCol).isNull());
    m_grid->setRows(4);
    for (int row = 1; row <= 3; ++row)
        m_grid->setTextMatrix(row, KeyCol, QString::number(10 - row));
    m_grid->Sort(KeyCol);
    QCOMPARE(columnTexts(*m_grid, KeyCol), QStringList({"7", "8", "9"}));
    QCOMPARE(arrowOf(*m_grid, KeyCol), up);
}

QTEST_MAIN(tst_Sorting)
#include "tst_sorting.moc"
