// SPDX-License-Identifier: MIT
// VemoGrid's sorting beyond the model test: the hidden key column, arrows, header clicks, the
// marked row, and the date keys.
#include "grid/VemoGrid_p.h"
#include <VemoGridLib/VbFormat.h>
#include <VemoGridLib/VemoGrid.h>

#include "VemoGridTestSupport.h"
#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;
using namespace VemoTest;

namespace {

constexpr int KeyCol = 1, LabelCol = 2, SecondCol = 3;

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

private:
    /// Columns Key, Label ("L0", "L1", ... in the original order) and Second.
    void build(const QStringList& keys, const QStringList& second = {})
    {
        m_grid = shownGrid(QStringLiteral("|Key|Label|Second"), int(keys.size()));
        QVERIFY(m_grid);
        for (int i = 0; i < keys.size(); ++i) {
            m_grid->setTextMatrix(1 + i, KeyCol, keys.at(i));
            m_grid->setTextMatrix(1 + i, LabelCol, QStringLiteral("L%1").arg(i));
            m_grid->setTextMatrix(1 + i, SecondCol, second.value(i));
        }
    }

    std::unique_ptr<VemoGrid> m_grid;
};

void tst_Sorting::sortTypeOrdersRows_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("keys");      // '|'-separated
    QTest::addColumn<QString>("ascending"); // the keys' indexes in ascending order
    QTest::newRow("None") << int(VemoSortNone) << "c|a|b"
                          << "012";
    QTest::newRow("Numeric") << int(VemoSortNumeric) << "10|abc|-2|9"
                             << "2130";
    // Dates and amounts sort by a hidden key column.
    QTest::newRow("DateTime") << int(VemoSortDateTime)
                              << "2024-01-10|2023-12-31|2024-1-5|2024-01-05 13:00:00"
                              << "1230";
    QTest::newRow("Currency") << int(VemoSortCurrency) << "1,234.50|999.99|-5.00|12.00"
                              << "2310";
}

void tst_Sorting::sortTypeOrdersRows()
{
    QFETCH(int, type);
    QFETCH(QString, keys);
    QFETCH(QString, ascending);
    const QStringList list = keys.split(u'|');
    build(list, QStringList(list.size(), QStringLiteral("s")));
    m_grid->Column(KeyCol)->setSortType(VemoSortTypeConstants(type));
    Column* const last = m_grid->Column(SecondCol);
    m_grid->setRow(2);
    m_grid->setCol(LabelCol);
    for (const bool up : {true, false}) {
        m_grid->Sort(KeyCol, up ? SortAscending : SortDescending);
        for (int i = 0; i < list.size(); ++i) {
            const int at = up || type == VemoSortNone ? i : int(list.size()) - 1 - i;
            QCOMPARE(m_grid->TextMatrix(1 + at, LabelCol), u'L' + ascending.at(i));
        }
    }
    // The hidden key column is gone again; the current cell is back.
    QCOMPARE(m_grid->hostedGrid()->Cols(), 4);
    QCOMPARE(m_grid->Column(SecondCol), last);
    QCOMPARE(columnTexts(*m_grid, SecondCol), QStringList(list.size(), QStringLiteral("s")));
    QCOMPARE(m_grid->Row() * 10 + m_grid->Col(), 2 * 10 + LabelCol);
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
    const QImage down = arrowOf(*m_grid, KeyCol);
    QVERIFY(!up.isNull() && !down.isNull() && up != down);
    // Right, centred vertically, beside the header's text.
    QCOMPARE(lookOf(*m_grid, 0, KeyCol).pictureAlignment, std::int8_t(7));
    QCOMPARE(m_grid->TextMatrix(0, KeyCol), QStringLiteral("Key"));
    // Another column takes the arrow; a column of SortType None sorts nothing but takes it too.
    m_grid->Sort(SecondCol);
    QVERIFY(arrowOf(*m_grid, KeyCol).isNull());
    QCOMPARE(arrowOf(*m_grid, SecondCol), up);
    m_grid->Sort(LabelCol);
    QVERIFY(arrowOf(*m_grid, SecondCol).isNull());
    // A fixed column is never sorted; Clear drops the arrow.
    m_grid->Column(0)->setSortType(VemoSortString);
    m_grid->Sort(0, SortDescending);
    QVERIFY(arrowOf(*m_grid, 0).isNull());
    m_grid->Sort(KeyCol);
    m_grid->Clear();
    QVERIFY(arrowOf(*m_grid, KeyCol).isNull());
}

void tst_Sorting::dateKeyIsTheFormattedText_data()
{
    QTest::addColumn<QByteArray>("lang");
    QTest::addColumn<QString>("text");
    const QString texts = QStringLiteral("2024-1-5|2024-02-29 13:45|2024-2-3 0:00|2023-02-29|"
                                         "2024-01-05 24:00|2024-01-05T10:00|12/31/2023|"
                                         "Jan 5, 2024|45000|2024-01-05 ");
    for (const QByteArray lang : {QByteArray("en_US.UTF-8"), QByteArray("zh_CN.UTF-8")}) {
        for (const QString& text : texts.split(u'|'))
            QTest::addRow("%s %s", lang.constData(), qPrintable(text)) << lang << text;
    }
}

// The grid reads ISO-style dates itself, for speed; it must give exactly what Format gives.
void tst_Sorting::dateKeyIsTheFormattedText()
{
    QFETCH(QByteArray, lang);
    QFETCH(QString, text);
    const ScopedLocale locale(lang);
    QCOMPARE(VemoGridPrivate::dateSortKey(text), vb::Format(text, "yyyymmddHhNnSs"));
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
    // The looks moved with the rows; the colouring pass bands them by position again.
    for (int row = 2; row < m_grid->Rows(); ++row) {
        QCOMPARE(hasPicture(*m_grid, row, 0), row == 4);
        QCOMPARE(lookOf(*m_grid, row, KeyCol).backColor, bandOf(*m_grid, row));
    }
}

void tst_Sorting::headerClicks_data()
{
    QTest::addColumn<bool>("sortable");
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("sorts");
    QTest::newRow("header") << true << 0 << true;
    QTest::newRow("Sortable false") << false << 0 << false;
    QTest::newRow("data cell") << true << 2 << false;
}

void tst_Sorting::headerClicks()
{
    QFETCH(bool, sortable);
    QFETCH(int, row);
    QFETCH(bool, sorts);
    const QStringList keys = {"2", "3", "1"};
    build(keys);
    // SortOnHeaderClick sets Sortable only; the columns keep their own SortType.
    m_grid->SortOnHeaderClick(sortable, VemoSortString);
    m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
    QStringList atClick;
    connect(m_grid.get(), &VemoGrid::Click, this, [&] { atClick = columnTexts(*m_grid, KeyCol); });
    clickCell(*m_grid, row, KeyCol);
    QCOMPARE(atClick, keys); // Click comes before the rows move
    QCOMPARE(columnTexts(*m_grid, KeyCol), sorts ? QStringList({"1", "2", "3"}) : keys);
    clickCell(*m_grid, row, KeyCol);
    QCOMPARE(columnTexts(*m_grid, KeyCol), sorts ? QStringList({"3", "2", "1"}) : keys);
    QCOMPARE(arrowOf(*m_grid, KeyCol).isNull(), !sorts);
    disconnect(m_grid.get(), &VemoGrid::Click, this, nullptr);
}

QTEST_MAIN(tst_Sorting)
#include "tst_sorting.moc"
