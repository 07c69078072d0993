// SPDX-License-Identifier: MIT
// FlexCellStore: the cells behind FlexGrid, their row and column moves and their shared looks.
#include "flexgrid/FlexCellStore_p.h"

#include "FlexTestSupport.h"

using namespace VemoGridLib;
using Field = FlexCellStore::FormatField;

namespace {

constexpr int Rows = 6;
constexpr int Cols = 5;

// Row and column metadata, distinct for every row and column so that moves can be traced.
void markMetadata(FlexCellStore& store)
{
    for (int r = 0; r < store.rowCount(); ++r) {
        store.setRowHeight(r, 300 + 15 * r);
        store.setRowData(r, 1000 + r);
        store.setMergeRow(r, r % 2 == 1);
    }
    for (int c = 0; c < store.colCount(); ++c) {
        store.setColWidth(c, 600 + 15 * c);
        store.setColAlignment(c, c % 10);
        store.setColAlignmentFixed(c, (c + 3) % 10);
        store.setMergeCol(c, c % 2 == 0);
        store.setColData(c, 2000 + c);
    }
}

// Everything each row (or column) carries, one comparable string per row (or column).
QStringList lines(const FlexCellStore& s, bool columns)
{
    QStringList out;
    for (int i = 0; i < (columns ? s.colCount() : s.rowCount()); ++i) {
        QStringList parts;
        for (int j = 0; j < (columns ? s.rowCount() : s.colCount()); ++j) {
            const int r = columns ? j : i;
            const int c = columns ? i : j;
            parts << s.text(r, c) + u'/' + QString::number(s.format(r, c).backColor, 16) +
                         (s.hasFormat(r, c) ? u'+' : u'-');
        }
        const QList<int> meta =
            columns ? QList<int>{s.colWidth(i), s.colAlignment(i), s.colAlignmentFixed(i),
                                 s.mergeCol(i), s.colData(i)}
                    : QList<int>{s.rowHeight(i), s.rowData(i), s.mergeRow(i)};
        for (int value : meta)
            parts << QString::number(value);
        out << parts.join(u'|');
    }
    return out;
}

} // namespace

class tst_FlexCellStore : public QObject
{
    Q_OBJECT

private slots:
    void rowAndColumnOperations_data();
    void rowAndColumnOperations();
    void textsSurviveRewrites();
    void sharedLooksDoNotLeakBetweenCells();
    void moreLooksThanA16BitIndex();
    void keyedChangesRunOncePerLook();
    void bandedValuesMatchCellByCell();
};

void tst_FlexCellStore::rowAndColumnOperations_data()
{
    // Operations on a 6 × 5 store, each row's (or column's) origin afterwards, -1 for a new one.
    QTest::addColumn<QString>("operations");
    QTest::addColumn<QList<int>>("from");
    QTest::newRow("insert first") << "insertRow 0" << QList<int>{-1, 0, 1, 2, 3, 4, 5};
    QTest::newRow("insert middle") << "insertRow 2" << QList<int>{0, 1, -1, 2, 3, 4, 5};
    QTest::newRow("append") << "insertRow 6" << QList<int>{0, 1, 2, 3, 4, 5, -1};
    QTest::newRow("remove first") << "removeRow 0" << QList<int>{1, 2, 3, 4, 5};
    QTest::newRow("remove last") << "removeRow 5" << QList<int>{0, 1, 2, 3, 4};
    QTest::newRow("remove, reinsert") << "removeRow 2;insertRow 2" << QList<int>{0, 1, -1, 3, 4, 5};
    QTest::newRow("move down") << "moveRow 1 3" << QList<int>{0, 2, 3, 1, 4, 5};
    QTest::newRow("move up") << "moveRow 4 0" << QList<int>{4, 0, 1, 2, 3, 5};
    QTest::newRow("move in place") << "moveRow 2 2" << QList<int>{0, 1, 2, 3, 4, 5};
    QTest::newRow("reorder rotate") << "reorderRows 1 2 0 1" << QList<int>{0, 3, 1, 2, 4, 5};
    QTest::newRow("reorder all") << "reorderRows 0 5 4 3 2 1 0" << QList<int>{5, 4, 3, 2, 1, 0};
    QTest::newRow("reorder at the end") << "reorderRows 4 1 0" << QList<int>{0, 1, 2, 3, 5, 4};
    QTest::newRow("shrink and grow") << "rows 3;rows 6" << QList<int>{0, 1, 2, -1, -1, -1};
    QTest::newRow("column right") << "moveCol 1 3" << QList<int>{0, 2, 3, 1, 4};
    QTest::newRow("column left") << "moveCol 4 0" << QList<int>{4, 0, 1, 2, 3};
    QTest::newRow("column in place") << "moveCol 2 2" << QList<int>{0, 1, 2, 3, 4};
    QTest::newRow("columns shrink and grow") << "cols 1;cols 5" << QList<int>{0, -1, -1, -1, -1};
}

void tst_FlexCellStore::rowAndColumnOperations()
{
    QFETCH(QString, operations);
    QFETCH(QList<int>, from);
    const bool columns = operations.contains(QStringLiteral("ol"));
    FlexCellStore store;
    store.setRowCount(Rows);
    store.setColCount(Cols);
    for (int r = 0; r < Rows; ++r) {
        for (int c = 0; c < Cols; ++c) {
            store.setText(r, c, QStringLiteral("r%1c%2").arg(r).arg(c));
            store.setFormatValue(r, c, Field::BackColor, 0x10000 * (r + 1) + c);
        }
    }
    markMetadata(store);
    const QStringList before = lines(store, columns);
    FlexCellStore fresh;
    fresh.setRowCount(columns ? Rows : 1);
    fresh.setColCount(columns ? 1 : Cols);
    QStringList expected;
    for (int i : from)
        expected << (i < 0 ? lines(fresh, columns).first() : before.at(i));

    for (const QString& operation : operations.split(u';')) {
        QStringList words = operation.split(u' ');
        const QString name = words.takeFirst();
        std::vector<std::uint32_t> n;
        for (const QString& word : words)
            n.push_back(word.toUInt());
        if (name == u"insertRow")
            store.insertRow(int(n[0]));
        else if (name == u"removeRow")
            store.removeRow(int(n[0]));
        else if (name == u"moveRow")
            store.moveRow(int(n[0]), int(n[1]));
        else if (name == u"moveCol")
            store.moveCol(int(n[0]), int(n[1]));
        else if (name == u"reorderRows")
            store.reorderRows(int(n[0]), std::vector<std::uint32_t>(n.begin() + 1, n.end()));
        else if (name == u"rows")
            store.setRowCount(int(n[0]));
        else
            store.setColCount(int(n[0]));
    }

    QCOMPARE(lines(store, columns), expected);
}

void tst_FlexCellStore::textsSurviveRewrites()
{
    // Rewriting every cell over and over makes the store collect its overwritten texts; long
    // texts live apart and are reused. Whatever was written last must read back.
    FlexCellStore store;
    store.setRowCount(20);
    store.setColCount(10);
    const auto textOf = [](int round, int cell) {
        if (cell % 50 == 7)
            return QString(6000 + round % 3, QChar(u'a' + round % 26));
        return round % 5 == 4 ? QString() : QStringLiteral("%1:%2 😀 \0").arg(round).arg(cell);
    };
    for (int round = 0; round < 300; ++round) {
        for (int cell = 0; cell < 200; ++cell)
            store.setText(cell / 10, cell % 10, textOf(round, cell));
    }
    for (int cell = 0; cell < 200; ++cell)
        QCOMPARE(store.text(cell / 10, cell % 10), textOf(299, cell));
}

void tst_FlexCellStore::sharedLooksDoNotLeakBetweenCells()
{
    // Cells start from three different looks and receive the same changes in turn: an answer
    // remembered for one starting look must not be handed to another.
    constexpr int Cells = 99;
    FlexCellStore store;
    store.setRowCount(1);
    store.setColCount(Cells);
    for (int c = 0; c < Cells; ++c) {
        store.setFormatValue(0, c, c % 3 == 1 ? Field::Bold : Field::Italic, c % 3 ? 1 : -1);
        store.setFormatValue(0, c, Field::BackColor, 0x00FF00);
        store.setFormatValue(0, c, Field::FontSize, 11);
    }
    for (int c = 0; c < Cells; ++c) {
        FlexCellFormat expected;
        expected.backColor = 0x00FF00;
        expected.fontSize = 11;
        expected.bold = c % 3 == 1 ? 1 : -1;
        expected.italic = c % 3 == 2 ? 1 : -1;
        QVERIFY2(store.format(0, c) == expected, qPrintable(QString::number(c)));
    }
    // Unsetting every member again gives back the default look.
    store.setFormatValue(0, 1, Field::Bold, -1);
    store.setFormatValue(0, 1, Field::BackColor, 0);
    store.setFormatValue(0, 1, Field::FontSize, 0);
    QVERIFY(store.format(0, 1).isDefault());
}

void tst_FlexCellStore::moreLooksThanA16BitIndex()
{
    constexpr int Size = 300;
    FlexCellStore store;
    store.setRowCount(Size);
    store.setColCount(Size);
    for (int cell = 0; cell < Size * Size; ++cell)
        store.setFormatValue(cell / Size, cell % Size, Field::BackColor, 0x010101 + cell);
    for (int cell = 0; cell < Size * Size; ++cell) {
        if (store.format(cell / Size, cell % Size).backColor != OleColor(0x010101 + cell))
            QFAIL(qPrintable(QStringLiteral("cell %1").arg(cell)));
    }
}

void tst_FlexCellStore::keyedChangesRunOncePerLook()
{
    // A change remembered under a key applies per starting look: cells that share a look share
    // the result, cells with another look get their own.
    FlexCellStore store;
    store.setRowCount(6);
    store.setColCount(1);
    for (int r = 0; r < 6; ++r)
        store.setFormatValue(r, 0, Field::BackColor, r % 2 ? 0xBFFFFF : 0xFFFFFF);
    const QPixmap picture = VemoTest::solid(Qt::red);
    int calls = 0;
    for (int r = 0; r < 6; ++r) {
        store.changeFormat(r, 0, 42, [&](FlexCellFormat& look) {
            ++calls;
            look.foreColor = look.backColor;
            look.picture = picture;
        });
    }
    QCOMPARE(calls, 2);
    for (int r = 0; r < 6; ++r) {
        QCOMPARE(store.format(r, 0).foreColor, OleColor(r % 2 ? 0xBFFFFF : 0xFFFFFF));
        QCOMPARE(store.format(r, 0).picture.cacheKey(), picture.cacheKey());
    }
}

void tst_FlexCellStore::bandedValuesMatchCellByCell()
{
    // The banded write (VemoGrid's colouring pass) must leave every cell as writes one by one
    // would, whatever looks the cells had before: none, a few, or one each.
    constexpr int Rows = 5000;
    for (int looks : {0, 3, Rows}) {
        FlexCellStore banded;
        FlexCellStore single;
        for (FlexCellStore* store : {&banded, &single}) {
            store->setRowCount(Rows);
            store->setColCount(2);
            for (int r = 0; looks > 0 && r < Rows; ++r)
                store->setFormatValue(r, 1, Field::FontSize, 8 + r % looks);
        }
        banded.setFormatValueBanded(1, 3, Rows - 2, Field::BackColor, 0xFFFFFF, 0xBFFFFF, 2);
        for (int r = 3; r <= Rows - 2; ++r)
            single.setFormatValue(r, 1, Field::BackColor, r % 2 ? 0xBFFFFF : 0xFFFFFF);
        for (int r = 0; r < Rows; ++r)
            QVERIFY2(banded.format(r, 1) == single.format(r, 1), qPrintable(QString::number(r)));
    }
}

QTEST_MAIN(tst_FlexCellStore)
#include "tst_flexcellstore.moc"
