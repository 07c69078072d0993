// Part 1.6: VemoGrid's sorting by a column's SortType (Sort, header clicks, the header arrow,
// the hidden key column of dates and amounts), SortOnHeaderClick and the SortOnCol quirk.
#include <VemoGridLib/Messages.h>
#include "flexgrid/FlexCellStore_p.h"
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoGrid.h>
#include "grid/VemoGrid_p.h"

#include <VemoGridLib/VbFormat.h>

#include "MessageRecorder.h"
#include "VemoGridTestSupport.h"
#include "VemoTestSupport.h"
#include <QApplication>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace VemoGridLib;
using namespace VemoTest;

namespace {

constexpr int RowHeightTwips = 300;
constexpr int ColWidthTwips = 1200;
constexpr OleColor Band1 = 0xFFFFFF; // BackColor1 default: even data rows
constexpr OleColor Band2 = 0xBFFFFF; // BackColor2 default: odd data rows
constexpr int KeyCol = 1;
constexpr int LabelCol = 2;
constexpr int SecondCol = 3;

// Installs a handler that records every message and puts the previous one back at the end.
QPixmap headerPicture(const VemoGrid& grid, int col)
{
    return lookOf(grid, 0, col).picture;
}

QStringList dataColumn(const VemoGrid& grid, int col)
{
    QStringList texts;
    for (int r = grid.FixedRows(); r < grid.Rows(); ++r)
        texts << grid.TextMatrix(r, col);
    return texts;
}

QStringList reversed(QStringList list)
{
    std::reverse(list.begin(), list.end());
    return list;
}

bool samePicture(const QPixmap& a, const QPixmap& b)
{
    return !a.isNull() && !b.isNull() && a.toImage() == b.toImage();
}

} // namespace

class tst_Sorting : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void sortTypeOrdersRows_data();
    void sortTypeOrdersRows();
    void sortTypeNoneSortsNothing_data();
    void sortTypeNoneSortsNothing();
    void sortTypeNoneStillRecordsColumnAndDirection();
    void repeatedSortAlternates();
    void sortOnAnotherColumnStartsAscending();
    void explicitDirectionWins_data();
    void explicitDirectionWins();
    void arrowPictures();
    void dateTimeSortsByFourteenDigitKeys();
    void dateKeyIsTheFormattedText_data();
    void dateKeyIsTheFormattedText();
    void keyColumnIsGoneAfterwards_data();
    void keyColumnIsGoneAfterwards();
    void sortBelowFixedColsDoesNothing_data();
    void sortBelowFixedColsDoesNothing();
    void fixedRowsNeverMove();
    void rowBandsFollowTheNewOrder();
    void currentCellIsRestored();
    void markedRowFollowsItsRow();

    void headerClicksAlternate();
    void headerClickDoesNothing_data();
    void headerClickDoesNothing();
    void sortOnHeaderClickSetsSortableSilently();
    void sortableReportsSortAble();
    void sortOnColSuppressesEventsUntilClearedBy_data();
    void sortOnColSuppressesEventsUntilClearedBy();
    void sortMarkRemovedBy_data();
    void sortMarkRemovedBy();

private:
    /// Columns Key, Label and Second; one data row per key, labelled "L0", "L1", ... in
    /// the original order; column 3 holds `second` when given. Widths and heights are set so
    /// that cells can be clicked.
    void build(const QStringList& keys, const QStringList& second = {});
    /// The labels of `keys` in the order the keys are listed (the keys are unique).
    QStringList labelsOf(const QStringList& keys) const;
    /// The up and down arrows as a sort of column `col` shows them (the grid is re-sorted).
    std::pair<QPixmap, QPixmap> arrows(int col);

    std::unique_ptr<VemoGrid> m_grid;
    std::unique_ptr<MessageRecorder> m_recorder;
    QStringList m_keys;
};

void tst_Sorting::initTestCase()
{
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
}

void tst_Sorting::init()
{
    m_recorder = std::make_unique<MessageRecorder>();
    m_grid = shownGrid();
    QVERIFY(m_grid);
}

void tst_Sorting::cleanup()
{
    m_grid.reset();
    // Sorting shows no message.
    QVERIFY(m_recorder->messages.isEmpty());
    m_recorder.reset();
}

void tst_Sorting::build(const QStringList& keys, const QStringList& second)
{
    m_keys = keys;
    m_grid->setFormatString(QStringLiteral("|Key|Label|Second"));
    m_grid->setRows(1 + int(keys.size()));
    for (int c = 0; c < m_grid->Cols(); ++c)
        m_grid->setCOLWIDTH(c, ColWidthTwips);
    for (int r = 0; r < m_grid->Rows(); ++r)
        m_grid->setRowHeight(r, RowHeightTwips);
    for (int i = 0; i < keys.size(); ++i) {
        m_grid->setTextMatrix(1 + i, KeyCol, keys.at(i));
        m_grid->setTextMatrix(1 + i, LabelCol, QStringLiteral("L%1").arg(i));
        if (i < second.size())
            m_grid->setTextMatrix(1 + i, SecondCol, second.at(i));
    }
    QCoreApplication::processEvents();
}

QStringList tst_Sorting::labelsOf(const QStringList& keys) const
{
    QStringList labels;
    for (const QString& key : keys)
        labels << QStringLiteral("L%1").arg(m_keys.indexOf(key));
    return labels;
}

std::pair<QPixmap, QPixmap> tst_Sorting::arrows(int col)
{
    m_grid->Sort(col, SortAscending);
    const QPixmap up = headerPicture(*m_grid, col);
    m_grid->Sort(col, SortDescending);
    const QPixmap down = headerPicture(*m_grid, col);
    return {up, down};
}

// ---- Sort -------------------------------------------------------------------------------------

void tst_Sorting::sortTypeOrdersRows_data()
{
    QTest::addColumn<VemoSortTypeConstants>("type");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QStringList>("ascending");
    QTest::addColumn<QStringList>("descending");

    const auto both = [](const char* name, VemoSortTypeConstants type, const QStringList& keys,
                         const QStringList& ascending) {
        QTest::newRow(name) << type << keys << ascending << reversed(ascending);
    };
    // Generic: numbers by value ("9" before "10"), texts after them.
    both("Generic", VemoSortGeneric, {"10", "abc", "-2", "9"}, {"-2", "9", "10", "abc"});
    // Numeric: a text that is no number counts as 0.
    both("Numeric", VemoSortNumeric, {"10", "abc", "-2", "9"}, {"-2", "abc", "9", "10"});
    // Text without case: "apple" < "Apricot" < "banana" < "Cherry".
    both("StringNoCase", VemoSortStringNoCase, {"banana", "apple", "Cherry", "Apricot"},
         {"apple", "Apricot", "banana", "Cherry"});
    both("StringNoCase, numbers are text", VemoSortStringNoCase, {"9", "10", "100"},
         {"10", "100", "9"});
    // Text with case (the hosted grid's settings 7/8: alphabetical, then lower before upper).
    both("String", VemoSortString, {"b", "A", "a", "B"}, {"a", "A", "b", "B"});
    // Dates by their 14-digit keys, not by their texts ("2024-01-10" < "2024-1-5" as text).
    both("DateTime", VemoSortDateTime,
         {"2024-01-10", "2023-12-31", "2024-1-5", "2024-01-05 13:00:00"},
         {"2023-12-31", "2024-1-5", "2024-01-05 13:00:00", "2024-01-10"});
    // Amounts by value, thousands separators and all ("1,234.50" < "12.00" as text).
    both("Currency", VemoSortCurrency, {"1,234.50", "999.99", "-5.00", "12.00"},
         {"-5.00", "12.00", "999.99", "1,234.50"});
}

void tst_Sorting::sortTypeOrdersRows()
{
    QFETCH(VemoSortTypeConstants, type);
    QFETCH(QStringList, keys);
    QFETCH(QStringList, ascending);
    QFETCH(QStringList, descending);
    build(keys);
    m_grid->Column(KeyCol)->setSortType(type);

    m_grid->Sort(KeyCol, SortAscending);
    QCOMPARE(dataColumn(*m_grid, KeyCol), ascending);
    // Whole rows move.
    QCOMPARE(dataColumn(*m_grid, LabelCol), labelsOf(ascending));
    QVERIFY(!headerPicture(*m_grid, KeyCol).isNull());

    m_grid->Sort(KeyCol, SortDescending);
    QCOMPARE(dataColumn(*m_grid, KeyCol), descending);
    QCOMPARE(dataColumn(*m_grid, LabelCol), labelsOf(descending));

    QCOMPARE(m_grid->TextMatrix(0, KeyCol), QStringLiteral("Key"));
    QCOMPARE(m_grid->Cols(), 4);
    QVERIFY(headerPicture(*m_grid, LabelCol).isNull());
}

void tst_Sorting::sortTypeNoneSortsNothing_data()
{
    QTest::addColumn<VemoGridSortMode>("direction");
    QTest::newRow("Sort 0") << SortNone;
    QTest::newRow("ascending") << SortAscending;
    QTest::newRow("descending") << SortDescending;
}

void tst_Sorting::sortTypeNoneSortsNothing()
{
    QFETCH(VemoGridSortMode, direction);
    const QStringList keys = {"c", "a", "b"};
    build(keys);
    QCOMPARE(m_grid->Column(KeyCol)->SortType(), VemoSortNone);

    m_grid->Sort(KeyCol, direction);

    QCOMPARE(dataColumn(*m_grid, KeyCol), keys);
    QVERIFY(headerPicture(*m_grid, KeyCol).isNull());
}

void tst_Sorting::sortTypeNoneStillRecordsColumnAndDirection()
{
    build({"c", "a", "b"}, {"2", "3", "1"});
    m_grid->Column(SecondCol)->setSortType(VemoSortGeneric);
    m_grid->Sort(SecondCol);
    QVERIFY(!headerPicture(*m_grid, SecondCol).isNull());

    // The key column sorts nothing, but becomes the last sorted column, ascending: the arrow
    // leaves the other header...
    m_grid->Sort(KeyCol);
    QVERIFY(headerPicture(*m_grid, SecondCol).isNull());
    QVERIFY(headerPicture(*m_grid, KeyCol).isNull());
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"b", "c", "a"}));

    // ...and a later sort of the same column reverses that recorded direction.
    m_grid->Column(KeyCol)->setSortType(VemoSortString);
    m_grid->Sort(KeyCol);
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"c", "b", "a"}));
}

void tst_Sorting::repeatedSortAlternates()
{
    const QStringList keys = {"3", "1", "2"};
    build(keys);
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);

    m_grid->Sort(KeyCol);
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"1", "2", "3"}));
    const QPixmap first = headerPicture(*m_grid, KeyCol);
    m_grid->Sort(KeyCol);
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"3", "2", "1"}));
    const QPixmap second = headerPicture(*m_grid, KeyCol);
    m_grid->Sort(KeyCol, SortNone);
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"1", "2", "3"}));

    QVERIFY(samePicture(headerPicture(*m_grid, KeyCol), first));
    QVERIFY(!samePicture(first, second));
}

void tst_Sorting::sortOnAnotherColumnStartsAscending()
{
    build({"3", "1", "2"}, {"b", "c", "a"});
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
    m_grid->Column(SecondCol)->setSortType(VemoSortString);
    m_grid->Sort(KeyCol);
    const QPixmap up = headerPicture(*m_grid, KeyCol);
    m_grid->Sort(KeyCol); // now descending

    m_grid->Sort(SecondCol);

    QCOMPARE(dataColumn(*m_grid, SecondCol), QStringList({"a", "b", "c"}));
    QVERIFY(headerPicture(*m_grid, KeyCol).isNull());
    QVERIFY(samePicture(headerPicture(*m_grid, SecondCol), up));
}

void tst_Sorting::explicitDirectionWins_data()
{
    QTest::addColumn<QList<int>>("before"); // earlier Sort directions on the key column
    QTest::addColumn<VemoGridSortMode>("direction");
    QTest::addColumn<bool>("ascending");

    QTest::newRow("descending first") << QList<int>() << SortDescending << false;
    QTest::newRow("descending after ascending")
        << QList<int>({SortNone}) << SortDescending << false;
    QTest::newRow("descending after descending")
        << QList<int>({SortDescending}) << SortDescending << false;
    QTest::newRow("descending after two toggles")
        << QList<int>({SortNone, SortNone}) << SortDescending << false;
    QTest::newRow("ascending after ascending")
        << QList<int>({SortAscending}) << SortAscending << true;
    QTest::newRow("ascending after descending")
        << QList<int>({SortDescending}) << SortAscending << true;
    // Without a direction the recorded one is reversed, also after an explicit one.
    QTest::newRow("toggle after explicit descending")
        << QList<int>({SortDescending}) << SortNone << true;
    QTest::newRow("toggle after explicit ascending")
        << QList<int>({SortAscending}) << SortNone << false;
}

void tst_Sorting::explicitDirectionWins()
{
    QFETCH(QList<int>, before);
    QFETCH(VemoGridSortMode, direction);
    QFETCH(bool, ascending);
    build({"2", "3", "1"});
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
    for (int earlier : before)
        m_grid->Sort(KeyCol, VemoGridSortMode(earlier));

    m_grid->Sort(KeyCol, direction);

    QCOMPARE(dataColumn(*m_grid, KeyCol),
             ascending ? QStringList({"1", "2", "3"}) : QStringList({"3", "2", "1"}));
}

void tst_Sorting::arrowPictures()
{
    build({"2", "1"});
    m_grid->Column(KeyCol)->setSortType(VemoSortGeneric);

    const auto [up, down] = arrows(KeyCol);

    QVERIFY(!up.isNull());
    QVERIFY(!down.isNull());
    QVERIFY(up.toImage() != down.toImage());
    // Right, centred vertically.
    QCOMPARE(lookOf(*m_grid, 0, KeyCol).pictureAlignment, std::int8_t(7));
    m_grid->setRow(0);
    m_grid->setCol(KeyCol);
    QCOMPARE(m_grid->CellPictureAlignment(), 7);
    // The header keeps its text beside the arrow; no data cell gets one.
    QCOMPARE(m_grid->TextMatrix(0, KeyCol), QStringLiteral("Key"));
    for (int r = 1; r < m_grid->Rows(); ++r)
        QVERIFY(lookOf(*m_grid, r, KeyCol).picture.isNull());
}

void tst_Sorting::dateTimeSortsByFourteenDigitKeys()
{
    build({"2024-01-05", "2023-12-31"});
    m_grid->Column(KeyCol)->setSortType(VemoSortDateTime);

    m_grid->Sort(KeyCol);
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"2023-12-31", "2024-01-05"}));
    QCOMPARE(dataColumn(*m_grid, LabelCol), QStringList({"L1", "L0"}));

    m_grid->Sort(KeyCol);
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"2024-01-05", "2023-12-31"}));
}

void tst_Sorting::dateKeyIsTheFormattedText_data()
{
    QTest::addColumn<QByteArray>("lang");
    QTest::addColumn<QString>("text");
    const char* const texts[] = {
        "2024-01-05",
        "2023-12-31",
        "2024-1-5",
        "2024/02/29",
        "2024-02-29 13:45",
        "2024-02-29 13:45:07",
        "2024-2-3 0:00",
        "1999-12-31 23:59:59",
        "2023-02-29",
        "2024-13-01",
        "2024-00-10",
        "2024-01-32",
        "2024-01-05 24:00",
        "2024-01-05 12:60",
        "2024-01-05 1:2",
        "2024-01-05T10:00",
        "2024-01/05",
        "0999-01-01",
        "12/31/2023",
        "Jan 5, 2024",
        "abc",
        "",
        "45000",
        "2024-01-05 ",
    };
    for (const QByteArray lang : {QByteArray("en_US.UTF-8"), QByteArray("zh_CN.UTF-8")}) {
        for (const char* text : texts)
            QTest::addRow("%s %s", lang.constData(), text) << lang << QString::fromUtf8(text);
    }
}

void tst_Sorting::dateKeyIsTheFormattedText()
{
    // Part 1.6: the key is the text formatted "yyyymmddHhNnSs"; the grid's direct reading of
    // ISO-style dates must give exactly what Format gives.
    QFETCH(QByteArray, lang);
    QFETCH(QString, text);
    const VemoTest::ScopedLocale locale(lang);
    QCOMPARE(VemoGridPrivate::dateSortKey(text),
             vb::Format(text, QStringLiteral("yyyymmddHhNnSs")));
}

void tst_Sorting::keyColumnIsGoneAfterwards_data()
{
    QTest::addColumn<VemoSortTypeConstants>("type");
    QTest::addColumn<QStringList>("keys");
    QTest::newRow("DateTime") << VemoSortDateTime
                              << QStringList({"2024-01-05", "2023-12-31", "2024-1-3"});
    QTest::newRow("Currency") << VemoSortCurrency << QStringList({"1,234.50", "5", "-1"});
}

void tst_Sorting::keyColumnIsGoneAfterwards()
{
    QFETCH(VemoSortTypeConstants, type);
    QFETCH(QStringList, keys);
    build(keys, {"x", "y", "z"});
    m_grid->Column(KeyCol)->setSortType(type);
    m_grid->setCOLWIDTH(SecondCol, 1700);
    VemoGridLib::Column* const lastColumn = m_grid->Column(SecondCol);
    m_grid->setRow(2);
    m_grid->setCol(LabelCol);

    m_grid->Sort(KeyCol);

    QCOMPARE(m_grid->Cols(), 4);
    QCOMPARE(m_grid->hostedGrid()->Cols(), 4);
    QCOMPARE(m_grid->Column(SecondCol), lastColumn);
    QCOMPARE(VemoTest::errorNumberOf([&] { m_grid->Column(4); }), VemoError::SubscriptOutOfRange);
    QCOMPARE(m_grid->COLWIDTH(SecondCol), 1700);
    // The cells keep their own texts; the keys lived only in the hidden column.
    QStringList sorted = dataColumn(*m_grid, KeyCol);
    std::sort(sorted.begin(), sorted.end());
    QStringList original = keys;
    std::sort(original.begin(), original.end());
    QCOMPARE(sorted, original);
    QCOMPARE(m_grid->Row(), 2);
    QCOMPARE(m_grid->Col(), LabelCol);
}

void tst_Sorting::sortBelowFixedColsDoesNothing_data()
{
    QTest::addColumn<int>("fixedCols");
    QTest::addColumn<int>("col");
    QTest::newRow("column 0") << 1 << 0;
    QTest::newRow("column 1 of 2 fixed") << 2 << 1;
}

void tst_Sorting::sortBelowFixedColsDoesNothing()
{
    QFETCH(int, fixedCols);
    QFETCH(int, col);
    build({"3", "1", "2"}, {"b", "a", "c"});
    for (int c = 0; c < m_grid->Cols(); ++c)
        m_grid->Column(c)->setSortType(VemoSortGeneric);
    m_grid->Sort(SecondCol); // ascending: b, a, c -> a, b, c
    m_grid->setFixedCols(fixedCols);
    const QStringList keysBefore = dataColumn(*m_grid, KeyCol);

    m_grid->Sort(col, SortDescending);

    QCOMPARE(dataColumn(*m_grid, KeyCol), keysBefore);
    QVERIFY(headerPicture(*m_grid, col).isNull());
    // The arrow and the recorded direction of the last sort are untouched: the next sort of
    // that column reverses it.
    QVERIFY(!headerPicture(*m_grid, SecondCol).isNull());
    m_grid->Sort(SecondCol);
    QCOMPARE(dataColumn(*m_grid, SecondCol), QStringList({"c", "b", "a"}));
}

void tst_Sorting::fixedRowsNeverMove()
{
    build({"5", "3", "4", "1", "2"});
    // Row 1 ("5") becomes a second fixed row, rewritten so that it would sort first.
    m_grid->setFixedRows(2);
    m_grid->setTextMatrix(1, KeyCol, QStringLiteral("0"));
    m_grid->setTextMatrix(1, LabelCol, QStringLiteral("sub"));
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);

    m_grid->Sort(KeyCol, SortAscending);
    QCOMPARE(m_grid->TextMatrix(0, KeyCol), QStringLiteral("Key"));
    QCOMPARE(m_grid->TextMatrix(1, KeyCol), QStringLiteral("0"));
    QCOMPARE(m_grid->TextMatrix(1, LabelCol), QStringLiteral("sub"));
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"1", "2", "3", "4"}));

    m_grid->Sort(KeyCol, SortDescending);
    QCOMPARE(m_grid->TextMatrix(1, KeyCol), QStringLiteral("0"));
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"4", "3", "2", "1"}));
}

void tst_Sorting::rowBandsFollowTheNewOrder()
{
    build({"4", "3", "2", "1", "0"});
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
    // Before: "4" on an even band, "3" on an odd one.
    QCOMPARE(lookOf(*m_grid, 1, KeyCol).backColor, Band1);
    QCOMPARE(lookOf(*m_grid, 2, KeyCol).backColor, Band2);

    m_grid->Sort(KeyCol);

    // The rows moved with their looks; the colouring pass re-bands them by position.
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"0", "1", "2", "3", "4"}));
    for (int r = 1; r < m_grid->Rows(); ++r) {
        for (int c = KeyCol; c < m_grid->Cols(); ++c)
            QCOMPARE(lookOf(*m_grid, r, c).backColor, (r - 1) % 2 == 0 ? Band1 : Band2);
    }
}

void tst_Sorting::currentCellIsRestored()
{
    build({"4", "3", "2", "1"});
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
    m_grid->setRow(3);
    m_grid->setCol(SecondCol);

    m_grid->Sort(KeyCol);

    QCOMPARE(m_grid->Row(), 3);
    QCOMPARE(m_grid->Col(), SecondCol);
}

void tst_Sorting::markedRowFollowsItsRow()
{
    build({"4", "3", "2", "1"});
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
    clickCell(*m_grid, 2, LabelCol); // marks the row of key "3"
    QCOMPARE(m_grid->Selected(), 2);

    m_grid->Sort(KeyCol);

    // Key "3" is now on row 3, and the marker picture went with it: so does Selected.
    QCOMPARE(m_grid->Selected(), 3);
    QVERIFY(!lookOf(*m_grid, 3, 0).picture.isNull());
    QVERIFY(lookOf(*m_grid, 2, 0).picture.isNull());
    m_grid->RemoveItem(0);
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"1", "2", "4"}));
    for (int r = 1; r < m_grid->Rows(); ++r)
        QVERIFY(lookOf(*m_grid, r, 0).picture.isNull());
}

// ---- header clicks ----------------------------------------------------------------------------

void tst_Sorting::headerClicksAlternate()
{
    build({"2", "3", "1"}, {"b", "a", "c"});
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
    m_grid->Column(SecondCol)->setSortType(VemoSortString);
    QStringList atClick;
    const QMetaObject::Connection onClick =
        connect(m_grid.get(), &VemoGrid::Click, this,
                [this, &atClick] { atClick = dataColumn(*m_grid, KeyCol); });
    const auto disconnectClick = qScopeGuard([&] { disconnect(onClick); });

    clickCell(*m_grid, 0, KeyCol);
    // Click is raised first, before the rows move.
    QCOMPARE(atClick, QStringList({"2", "3", "1"}));
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"1", "2", "3"}));
    const QPixmap up = headerPicture(*m_grid, KeyCol);
    QVERIFY(!up.isNull());

    clickCell(*m_grid, 0, KeyCol);
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"3", "2", "1"}));
    QVERIFY(!samePicture(headerPicture(*m_grid, KeyCol), up));

    clickCell(*m_grid, 0, SecondCol);
    QCOMPARE(dataColumn(*m_grid, SecondCol), QStringList({"a", "b", "c"}));
    QVERIFY(samePicture(headerPicture(*m_grid, SecondCol), up));
    QVERIFY(headerPicture(*m_grid, KeyCol).isNull());
}

void tst_Sorting::headerClickDoesNothing_data()
{
    QTest::addColumn<bool>("sortable");
    QTest::addColumn<VemoSortTypeConstants>("type");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::newRow("Sortable false") << false << VemoSortNumeric << 0 << KeyCol;
    QTest::newRow("SortType None") << true << VemoSortNone << 0 << KeyCol;
    QTest::newRow("corner cell") << true << VemoSortNumeric << 0 << 0;
    QTest::newRow("data cell") << true << VemoSortNumeric << 2 << KeyCol;
}

void tst_Sorting::headerClickDoesNothing()
{
    QFETCH(bool, sortable);
    QFETCH(VemoSortTypeConstants, type);
    QFETCH(int, row);
    QFETCH(int, col);
    const QStringList keys = {"2", "3", "1"};
    build(keys);
    m_grid->setSortable(sortable);
    for (int c = 0; c < m_grid->Cols(); ++c)
        m_grid->Column(c)->setSortType(type);
    QSignalSpy clicks(m_grid.get(), &VemoGrid::Click);

    clickCell(*m_grid, row, col);

    QCOMPARE(clicks.count(), 1);
    QCOMPARE(dataColumn(*m_grid, KeyCol), keys);
    for (int c = 0; c < m_grid->Cols(); ++c)
        QVERIFY(headerPicture(*m_grid, c).isNull());
}

void tst_Sorting::sortOnHeaderClickSetsSortableSilently()
{
    const QStringList keys = {"2", "3", "1"};
    build(keys);
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
    QSignalSpy changes(m_grid.get(), &VemoGrid::PropertyChanged);

    m_grid->SortOnHeaderClick(false);
    QVERIFY(!m_grid->Sortable());
    clickCell(*m_grid, 0, KeyCol);
    QCOMPARE(dataColumn(*m_grid, KeyCol), keys);
    QVERIFY(headerPicture(*m_grid, KeyCol).isNull());

    // newValue is ignored: the column keeps its own SortType.
    m_grid->SortOnHeaderClick(true, VemoSortString);
    QVERIFY(m_grid->Sortable());
    QCOMPARE(m_grid->Column(KeyCol)->SortType(), VemoSortNumeric);
    QCOMPARE(changes.count(), 0);
    clickCell(*m_grid, 0, KeyCol);
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"1", "2", "3"}));
}

void tst_Sorting::sortableReportsSortAble()
{
    QSignalSpy changes(m_grid.get(), &VemoGrid::PropertyChanged);
    QVERIFY(m_grid->Sortable());
    m_grid->setSortable(false);
    QVERIFY(!m_grid->Sortable());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).toString(), QStringLiteral("SortAble"));
}

void tst_Sorting::sortOnColSuppressesEventsUntilClearedBy_data()
{
    QTest::addColumn<QString>("clearedBy");
    QTest::newRow("a sort") << "sort";
    QTest::newRow("a sort of a SortType None column") << "sort none";
    QTest::newRow("a hyperlink write") << "hyperlink";
}

void tst_Sorting::sortOnColSuppressesEventsUntilClearedBy()
{
    QFETCH(QString, clearedBy);
    const QStringList keys = {"2", "3", "1"};
    build(keys);
    m_grid->setColType(SecondCol, ehyperlink);
    int leaves = 0;
    int enters = 0;
    // EnterCell's by-reference arguments rule out QSignalSpy; the counters live on the stack,
    // so the connections end with the test function.
    const QMetaObject::Connection onLeave =
        connect(m_grid.get(), &VemoGrid::LeaveCell, this, [&leaves] { ++leaves; });
    const QMetaObject::Connection onEnter = connect(m_grid.get(), &VemoGrid::EnterCell, this,
                                                    [&enters](int&, int&, QString&) { ++enters; });
    const auto disconnectAll = qScopeGuard([&] {
        disconnect(onLeave);
        disconnect(onEnter);
    });

    // SortOnCol ignores its arguments: no SortType changes and nothing is sorted.
    m_grid->SortOnCol(KeyCol, VemoSortNumeric);
    QCOMPARE(m_grid->Column(KeyCol)->SortType(), VemoSortNone);
    QCOMPARE(dataColumn(*m_grid, KeyCol), keys);
    QVERIFY(headerPicture(*m_grid, KeyCol).isNull());

    // It only leaves the suppression flag set: the grid's own moves raise no cell events.
    m_grid->setRow(2);
    m_grid->setCol(LabelCol);
    QCOMPARE(m_grid->Row(), 2);
    QCOMPARE(m_grid->Col(), LabelCol);
    QCOMPARE(leaves, 0);
    QCOMPARE(enters, 0);

    if (clearedBy == QLatin1String("sort")) {
        m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
        m_grid->Sort(KeyCol);
    } else if (clearedBy == QLatin1String("sort none")) {
        m_grid->Sort(KeyCol);
    } else {
        m_grid->setTextMatrix(1, SecondCol, QStringLiteral("https://example.com"));
    }
    leaves = 0;
    enters = 0;
    m_grid->setRow(3);
    m_grid->setCol(KeyCol);
    QCOMPARE(leaves, 2);
    QCOMPARE(enters, 2);
}

void tst_Sorting::sortMarkRemovedBy_data()
{
    QTest::addColumn<QString>("operation");
    QTest::newRow("RemoveItem") << "RemoveItem";
    QTest::newRow("RemoveItem of the marked row") << "RemoveItem 0";
    QTest::newRow("Clear") << "Clear";
    QTest::newRow("RemoveItem of the only data row") << "RemoveItem only";
}

void tst_Sorting::sortMarkRemovedBy()
{
    QFETCH(QString, operation);
    build({"2", "3", "1", "4"});
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
    const auto [up, down] = arrows(KeyCol);
    m_grid->Sort(KeyCol, SortAscending);
    QVERIFY(samePicture(headerPicture(*m_grid, KeyCol), up));

    if (operation == QLatin1String("RemoveItem")) {
        m_grid->RemoveItem(2);
    } else if (operation == QLatin1String("RemoveItem 0")) {
        clickCell(*m_grid, 2, LabelCol);
        QCOMPARE(m_grid->Selected(), 2);
        m_grid->RemoveItem(0);
    } else if (operation == QLatin1String("Clear")) {
        m_grid->Clear();
    } else {
        m_grid->setRows(2);
        m_grid->RemoveItem(1);
    }

    QVERIFY(headerPicture(*m_grid, KeyCol).isNull());
    QCOMPARE(m_grid->TextMatrix(0, KeyCol), QStringLiteral("Key"));
    // The last sorted column is forgotten: the next sort without a direction starts
    // ascending instead of reversing the earlier ascending sort.
    m_grid->setRows(4);
    m_grid->setTextMatrix(1, KeyCol, QStringLiteral("9"));
    m_grid->setTextMatrix(2, KeyCol, QStringLiteral("7"));
    m_grid->setTextMatrix(3, KeyCol, QStringLiteral("8"));
    m_grid->Sort(KeyCol);
    QCOMPARE(dataColumn(*m_grid, KeyCol), QStringList({"7", "8", "9"}));
    QVERIFY(samePicture(headerPicture(*m_grid, KeyCol), up));
}

QTEST_MAIN(tst_Sorting)
#include "tst_sorting.moc"
