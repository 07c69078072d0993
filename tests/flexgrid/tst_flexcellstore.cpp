// SPDX-License-Identifier: MIT
// FlexCellStore: the cells behind FlexGrid, their row and column moves and their shared looks.
#include "flexgrid/FlexCellStore_p.h"

#include "FlexTestSupport.h"

using namespace VemoGridLib;
using Field = FlexCellStore::FormatField;

namespace {

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

// A store of `rows` × `cols` whose texts, looks and row and column metadata all differ.
void mark(FlexCellStore& store, int rows, int cols)
{
    store.setRowCount(rows);
    store.setColCount(cols);
    for (int r = 0; r < rows; ++r) {
        store.setRowHeight(r, 300 + 15 * r);
        store.setRowData(r, 1000 + r);
        store.setMergeRow(r, r % 2 == 1);
        for (int c = 0; c < cols; ++c) {
            store.setText(r, c, QStringLiteral("r%1c%2").arg(r).arg(c));
            store.setFormatValue(r, c, Field::BackColor, 0x10000 * (r + 1) + c);
        }
    }
    for (int c = 0; c < cols; ++c) {
        store.setColWidth(c, 600 + 15 * c);
        store.setColAlignment(c, c % 10);
        store.setColAlignmentFixed(c, (c + 3) % 10);
        store.setMergeCol(c, c % 2 == 0);
        store.setColData(c, 2000 + c);
    }
}

} // namespace

class tst_FlexCellStore : public QObject
{
    Q_OBJECT

private slots:
    void rowAndColumnOperations_data();
    void rowAndColumnOperations();
    void textsSurviveRewrites();
    void sharedLooks();
    void bandedValuesMatchCellByCell();
};

void tst_FlexCellStore::rowAndColumnOperations_data()
{
    // Operations on a 6 × 5 store; each row's (or column's) origin afterwards, '-' for a new one.
    QTest::addColumn<QString>("operations");
    QTest::addColumn<QString>("from");
    const auto add = [](const char* operations, const char* from) {
        QTest::newRow(operations) << operations << from;
    };
    add("insertRow 0", "-012345");
    add("insertRow 2", "01-2345");
    add("insertRow 6", "012345-");
    add("removeRow 0", "12345");
    add("removeRow 2;insertRow 2", "01-345");
    add("moveRow 1 3", "023145");
    add("moveRow 4 0", "401235");
    add("moveRow 2 2", "012345");
    add("reorderRows 1 2 0 1", "031245");
    add("reorderRows 0 5 4 3 2 1 0", "543210");
    add("reorderRows 4 1 0", "012354");
    add("rows 3;rows 6", "012---");
    add("moveCol 1 3", "02314");
    add("moveCol 4 0", "40123");
    add("cols 1;cols 5", "0----");
}

void tst_FlexCellStore::rowAndColumnOperations()
{
    QFETCH(QString, operations);
    QFETCH(QString, from);
    const bool columns = operations.contains(QStringLiteral("ol"));
    FlexCellStore store;
    mark(store, 6, 5);
    const QStringList before = lines(store, columns);
    FlexCellStore fresh;
    fresh.setRowCount(columns ? 6 : 1);
    fresh.setColCount(columns ? 1 : 5);
    QStringList expected;
    for (QChar i : from)
        expected << (i == u'-' ? lines(fresh, columns).first() : before.at(i.digitValue()));

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

void tst_FlexCellStore::sharedLooks()
{
    // Cells start from three different looks and receive the same changes in turn: an answer
    // remembered for one starting look must not be handed to another, and unsetting every
    // member gives back the default look.
    FlexCellStore store;
    store.setRowCount(1);
    store.setColCount(99);
    for (int c = 0; c < 99; ++c) {
        store.setFormatValue(0, c, c % 3 == 1 ? Field::Bold : Field::Italic, c % 3 ? 1 : -1);
        store.setFormatValue(0, c, Field::BackColor, 0x00FF00);
        store.setFormatValue(0, c, Field::FontSize, 11);
    }
    for (int c = 0; c < 99; ++c) {
        FlexCellFormat expected;
        expected.backColor = 0x00FF00;
        expected.fontSize = 11;
        expected.bold = c % 3 == 1 ? 1 : -1;
        expected.italic = c % 3 == 2 ? 1 : -1;
        QVERIFY2(store.format(0, c) == expected, qPrintable(QString::number(c)));
    }
    store.setFormatValue(0, 1, Field::Bold, -1);
    store.setFormatValue(0, 1, Field::BackColor, 0);
    store.setFormatValue(0, 1, Field::FontSize, 0);
    QVERIFY(store.format(0, 1).isDefault());

    // A change remembered under a key runs once per starting look.
    const QPixmap picture = VemoTest::solid(Qt::red);
    int calls = 0;
    for (int c = 3; c < 9; ++c) {
        store.changeFormat(0, c, 42, [&](FlexCellFormat& look) {
            ++calls;
            look.foreColor = 0x123456;
            look.picture = picture;
        });
    }
    QCOMPARE(calls, 3);
    QCOMPARE(store.format(0, 5).foreColor, OleColor(0x123456));
    QCOMPARE(store.format(0, 8).picture.cacheKey(), picture.cacheKey());
    QVERIFY(store.format(0, 7).bold == 1 && store.format(0, 8).italic == 1);

    // More looks than a 16-bit index holds.
    constexpr int Size = 300;
    store.setRowCount(Size);
    store.setColCount(Size);
    for (int cell = 0; cell < Size * Size; ++cell)
        store.setFormatValue(cell / Size, cell % Size, Field::BackColor, 0x010101 + cell);
    for (int cell = 0; cell < Size * Size; ++cell) {
        if (store.format(cell / Size, cell % Size).backColor != OleColor(0x010101 + cell))
            QFAIL(qPrintable(QStringLiteral("cell %1").arg(cell)));
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
