// FlexCellStore: the headless cells behind FlexGrid (flexgrid-reference.md §4, §5, §8, §10).
#include "flexgrid/FlexCellStore_p.h"

#include <QColor>
#include <QPixmap>
#include <QTest>

#include <algorithm>
#include <cstdint>
#include <vector>

using namespace VemoGridLib;
using Field = FlexCellStore::FormatField;

Q_DECLARE_METATYPE(VemoGridLib::FlexCellStore::FormatField)
Q_DECLARE_METATYPE(std::vector<std::uint32_t>)

namespace {

// Gives every row distinct texts, looks, height, RowData and MergeRow, so moves can be traced.
void markRows(FlexCellStore& store)
{
    for (int r = 0; r < store.rowCount(); ++r) {
        for (int c = 0; c < store.colCount(); ++c) {
            store.setText(r, c, QStringLiteral("r%1c%2").arg(r).arg(c));
            store.setFormatValue(r, c, Field::BackColor, 0x10000 * (r + 1) + c);
        }
        store.setRowHeight(r, 300 + 15 * r);
        store.setRowData(r, 1000 + r);
        store.setMergeRow(r, r % 2 == 1);
    }
}

// Gives every column distinct metadata (the cells are marked by markRows).
void markCols(FlexCellStore& store)
{
    for (int c = 0; c < store.colCount(); ++c) {
        store.setColWidth(c, 600 + 15 * c);
        store.setColAlignment(c, c % 10);
        store.setColAlignmentFixed(c, (c + 3) % 10);
        store.setMergeCol(c, c % 2 == 0);
        store.setColData(c, 2000 + c);
    }
}

// Every member of a look, so that two looks compare as strings with a readable difference.
QString describe(const FlexCellFormat& format)
{
    return QStringLiteral("back %1 fore %2 align %3 picAlign %4 style %5 b%6 i%7 u%8 size %9 "
                          "width %10 name '%11' picture %12")
        .arg(format.backColor, 0, 16)
        .arg(format.foreColor, 0, 16)
        .arg(format.alignment)
        .arg(format.pictureAlignment)
        .arg(format.textStyle)
        .arg(format.bold)
        .arg(format.italic)
        .arg(format.underline)
        .arg(format.fontSize)
        .arg(format.fontWidth)
        .arg(format.fontName)
        .arg(format.picture.cacheKey());
}

QString cellSignature(const FlexCellStore& store, int row, int col)
{
    return QStringLiteral("%1/%2/%3")
        .arg(store.text(row, col))
        .arg(store.hasFormat(row, col))
        .arg(store.format(row, col).backColor, 0, 16);
}

// Everything a row carries, as one comparable string.
QString rowSignature(const FlexCellStore& store, int row)
{
    QStringList parts;
    for (int c = 0; c < store.colCount(); ++c)
        parts << cellSignature(store, row, c);
    parts << QString::number(store.rowHeight(row)) << QString::number(store.rowData(row))
          << QString::number(store.mergeRow(row));
    return parts.join(u'|');
}

QStringList rowSignatures(const FlexCellStore& store)
{
    QStringList rows;
    for (int r = 0; r < store.rowCount(); ++r)
        rows << rowSignature(store, r);
    return rows;
}

// Everything a column carries, as one comparable string.
QString colSignature(const FlexCellStore& store, int col)
{
    QStringList parts;
    for (int r = 0; r < store.rowCount(); ++r)
        parts << cellSignature(store, r, col);
    parts << QString::number(store.colWidth(col)) << QString::number(store.colAlignment(col))
          << QString::number(store.colAlignmentFixed(col)) << QString::number(store.mergeCol(col))
          << QString::number(store.colData(col));
    return parts.join(u'|');
}

QStringList colSignatures(const FlexCellStore& store)
{
    QStringList cols;
    for (int c = 0; c < store.colCount(); ++c)
        cols << colSignature(store, c);
    return cols;
}

// The signature of a row that was never written, in a store of `cols` columns.
QString emptyRowSignature(int cols)
{
    FlexCellStore fresh;
    fresh.setRowCount(1);
    fresh.setColCount(cols);
    return rowSignature(fresh, 0);
}

// The signature of a column that was never written, in a store of `rows` rows.
QString emptyColSignature(int rows)
{
    FlexCellStore fresh;
    fresh.setRowCount(rows);
    fresh.setColCount(1);
    return colSignature(fresh, 0);
}

QPixmap filledPixmap(const QColor& color)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(color);
    return pixmap;
}

FlexCellFormat withBackColor(OleColor color)
{
    FlexCellFormat format;
    format.backColor = color;
    return format;
}

} // namespace

class tst_FlexCellStore : public QObject
{
    Q_OBJECT

private slots:
    void keyedChangesFollowEachLook();
    void bandedValuesMatchCellByCell_data();
    void bandedValuesMatchCellByCell();
    void countsGrowAndShrink();
    void droppedRowsAndColumnsComeBackEmpty();
    void rowAndColumnMetadataDefaults();
    void rowAndColumnMetadataRoundTrip();

    void textRoundTrip_data();
    void textRoundTrip();
    void textsAreIndependentPerCell();
    void rewritingKeepsLastTextAndReclaimsMemory();
    void setRowTextsSplitsAtTabs_data();
    void setRowTextsSplitsAtTabs();
    void setRowTextsReclaimsReplacedTexts();

    void neverFormattedCellReadsDefaultLook();
    void setFormatRoundTrip();
    void setFormatValueChangesOneMember_data();
    void setFormatValueChangesOneMember();
    void setFormatValueKeepsTheOtherMembers();
    void setFormatValueBackToUnsetGivesDefaultLook();
    void manyDistinctLooksAllReadBack();

    void insertRowShiftsEverythingDown_data();
    void insertRowShiftsEverythingDown();
    void removeRowShiftsEverythingUp_data();
    void removeRowShiftsEverythingUp();
    void removedThenReinsertedRowComesBackEmpty();
    void moveRowCarriesEverything_data();
    void moveRowCarriesEverything();
    void moveColCarriesCellsAndMetadata_data();
    void moveColCarriesCellsAndMetadata();
    void reorderRowsPermutesTheRange_data();
    void reorderRowsPermutesTheRange();

    void clearCellsEmptiesTextsAndLooksOnly();
};

void tst_FlexCellStore::bandedValuesMatchCellByCell_data()
{
    QTest::addColumn<int>("distinctLooks");
    QTest::newRow("plain cells") << 0;
    QTest::newRow("a few looks") << 3;
    QTest::newRow("every cell its own look") << 5000;
}

void tst_FlexCellStore::bandedValuesMatchCellByCell()
{
    // The banded range write (VemoGrid's colouring pass) must leave every cell as the same
    // writes one by one would, whatever looks the cells had before.
    QFETCH(int, distinctLooks);
    constexpr int Rows = 5000;
    FlexCellStore banded;
    FlexCellStore single;
    for (FlexCellStore* store : {&banded, &single}) {
        store->setRowCount(Rows);
        store->setColCount(2);
        for (int r = 0; distinctLooks > 0 && r < Rows; ++r)
            store->setFormatValue(r, 1, FlexCellStore::FormatField::FontSize,
                                  8 + r % distinctLooks);
    }
    constexpr OleColor Even = 0xFFFFFF;
    constexpr OleColor Odd = 0xBFFFFF;
    banded.setFormatValueBanded(1, 3, Rows - 2, FlexCellStore::FormatField::BackColor, Even, Odd,
                                2);
    for (int r = 3; r <= Rows - 2; ++r)
        single.setFormatValue(r, 1, FlexCellStore::FormatField::BackColor,
                              (r - 2) % 2 == 0 ? Even : Odd);
    for (int r = 0; r < Rows; ++r)
        QVERIFY2(banded.format(r, 1) == single.format(r, 1), qPrintable(QString::number(r)));
    QCOMPARE(banded.format(4, 1).backColor, Even);
    QCOMPARE(banded.format(5, 1).backColor, Odd);
    QCOMPARE(banded.format(2, 1).backColor, OleColor(0));
}

void tst_FlexCellStore::keyedChangesFollowEachLook()
{
    // A remembered change applies per look: cells with different looks under the same key each
    // get their own result (here the text colour copies each cell's background).
    FlexCellStore store;
    store.setRowCount(6);
    store.setColCount(1);
    for (int r = 0; r < 6; ++r)
        store.setFormatValue(r, 0, FlexCellStore::FormatField::BackColor,
                             r % 2 ? 0xBFFFFF : 0xFFFFFF);
    QPixmap picture(4, 4);
    picture.fill(Qt::red);
    int calls = 0;
    for (int r = 0; r < 6; ++r) {
        store.changeFormat(r, 0, 42, [&](FlexCellFormat& look) {
            ++calls;
            look.foreColor = look.backColor;
            look.picture = picture;
        });
    }
    QCOMPARE(calls, 2); // one per distinct look; the other cells reuse the remembered result
    for (int r = 0; r < 6; ++r) {
        QCOMPARE(store.format(r, 0).foreColor, store.format(r, 0).backColor);
        QCOMPARE(store.format(r, 0).picture.cacheKey(), picture.cacheKey());
    }
}

void tst_FlexCellStore::countsGrowAndShrink()
{
    FlexCellStore store;
    store.setRowCount(5);
    store.setColCount(4);
    QCOMPARE(store.rowCount(), 5);
    QCOMPARE(store.colCount(), 4);

    store.setText(4, 3, QStringLiteral("corner"));
    store.setRowCount(3);
    store.setColCount(2);
    QCOMPARE(store.rowCount(), 3);
    QCOMPARE(store.colCount(), 2);

    store.setRowCount(0);
    store.setColCount(0);
    QCOMPARE(store.rowCount(), 0);
    QCOMPARE(store.colCount(), 0);
}

void tst_FlexCellStore::droppedRowsAndColumnsComeBackEmpty()
{
    FlexCellStore store;
    store.setRowCount(5);
    store.setColCount(4);
    markRows(store);
    markCols(store);
    const QStringList rowsBefore = rowSignatures(store);

    store.setRowCount(3);
    store.setRowCount(5);
    QCOMPARE(rowSignature(store, 2), rowsBefore.at(2));
    QCOMPARE(rowSignature(store, 3), emptyRowSignature(4));
    QCOMPARE(rowSignature(store, 4), emptyRowSignature(4));

    const QStringList colsBefore = colSignatures(store);
    store.setColCount(1);
    store.setColCount(4);
    QCOMPARE(colSignature(store, 0), colsBefore.at(0));
    for (int c = 1; c < 4; ++c)
        QCOMPARE(colSignature(store, c), emptyColSignature(5));
}

void tst_FlexCellStore::rowAndColumnMetadataDefaults()
{
    FlexCellStore store;
    store.setRowCount(3);
    store.setColCount(3);
    for (int r = 0; r < 3; ++r) {
        QCOMPARE(store.rowHeight(r), -1);
        QCOMPARE(store.rowData(r), 0);
        QCOMPARE(store.mergeRow(r), false);
    }
    for (int c = 0; c < 3; ++c) {
        QCOMPARE(store.colWidth(c), -1);
        QCOMPARE(store.colAlignment(c), 9);
        QCOMPARE(store.colAlignmentFixed(c), -1);
        QCOMPARE(store.mergeCol(c), false);
        QCOMPARE(store.colData(c), 0);
    }
}

void tst_FlexCellStore::rowAndColumnMetadataRoundTrip()
{
    FlexCellStore store;
    store.setRowCount(3);
    store.setColCount(3);

    store.setRowHeight(1, 0);
    store.setRowHeight(2, 615);
    store.setRowData(1, -7);
    store.setRowData(2, 2147483647);
    store.setMergeRow(2, true);
    store.setColWidth(1, 0);
    store.setColWidth(2, 1000);
    store.setColAlignment(1, 0);
    store.setColAlignmentFixed(2, 4);
    store.setMergeCol(1, true);
    store.setColData(2, -2147483647 - 1);

    QCOMPARE(store.rowHeight(0), -1);
    QCOMPARE(store.rowHeight(1), 0);
    QCOMPARE(store.rowHeight(2), 615);
    QCOMPARE(store.rowData(1), -7);
    QCOMPARE(store.rowData(2), 2147483647);
    QCOMPARE(store.mergeRow(1), false);
    QCOMPARE(store.mergeRow(2), true);
    QCOMPARE(store.colWidth(0), -1);
    QCOMPARE(store.colWidth(1), 0);
    QCOMPARE(store.colWidth(2), 1000);
    QCOMPARE(store.colAlignment(1), 0);
    QCOMPARE(store.colAlignment(2), 9);
    QCOMPARE(store.colAlignmentFixed(1), -1);
    QCOMPARE(store.colAlignmentFixed(2), 4);
    QCOMPARE(store.mergeCol(1), true);
    QCOMPARE(store.mergeCol(2), false);
    QCOMPARE(store.colData(2), -2147483647 - 1);
}

void tst_FlexCellStore::textRoundTrip_data()
{
    QTest::addColumn<QString>("text");

    QString longText;
    for (int i = 0; i < 6000; ++i)
        longText += QChar(u'a' + i % 26);

    QTest::newRow("empty") << QString();
    QTest::newRow("one character") << QStringLiteral("x");
    QTest::newRow("ascii") << QStringLiteral("Hello, grid");
    QTest::newRow("tabs and line feeds") << QStringLiteral("a\tb\nc\r\n");
    QTest::newRow("embedded NUL") << QString::fromUtf16(u"a\0b", 3);
    QTest::newRow("CJK") << QStringLiteral("中文字符測試");
    QTest::newRow("non-BMP") << QStringLiteral("😀𝄞𠀀 mixed");
    QTest::newRow("longer than 5000") << longText;
}

void tst_FlexCellStore::textRoundTrip()
{
    QFETCH(QString, text);

    FlexCellStore store;
    store.setRowCount(3);
    store.setColCount(3);
    store.setText(1, 1, QStringLiteral("previous"));
    store.setText(1, 1, text);

    QCOMPARE(store.text(1, 1), text);
    QCOMPARE(store.text(1, 1).size(), text.size());
    QVERIFY(store.textView(1, 1) == QStringView(text));
    QCOMPARE(store.text(1, 0), QString());
    QCOMPARE(store.text(0, 1), QString());
}

void tst_FlexCellStore::textsAreIndependentPerCell()
{
    FlexCellStore store;
    store.setRowCount(4);
    store.setColCount(4);
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c)
            store.setText(r, c, QString(r * 4 + c, QChar(u'A' + c)));
    }
    store.setText(2, 2, QStringLiteral("short"));
    store.setText(0, 1, QString());

    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            QString expected = QString(r * 4 + c, QChar(u'A' + c));
            if (r == 2 && c == 2)
                expected = QStringLiteral("short");
            if (r == 0 && c == 1)
                expected.clear();
            QCOMPARE(store.text(r, c), expected);
        }
    }
}

void tst_FlexCellStore::rewritingKeepsLastTextAndReclaimsMemory()
{
    constexpr int Rows = 20;
    constexpr int Cols = 10;
    constexpr int Rounds = 2000;
    constexpr int MaxLength = 40;
    // Some 16 MB of texts are written in all while at most 16 kB stay alive: a store that kept
    // its garbage would pass half the written volume.
    constexpr std::size_t Bound = 8 * 1024 * 1024;

    QList<QString> pool;
    for (int letter = 0; letter < 26; ++letter)
        pool << QString(MaxLength, QChar(u'a' + letter));
    const auto textOf = [&pool](int round, int cell) {
        return QStringView(pool.at(round % 26)).left(1 + (round * 7 + cell) % MaxLength);
    };

    FlexCellStore store;
    store.setRowCount(Rows);
    store.setColCount(Cols);
    std::size_t firstHalfPeak = 0;
    std::size_t secondHalfPeak = 0;
    for (int round = 0; round < Rounds; ++round) {
        for (int cell = 0; cell < Rows * Cols; ++cell)
            store.setText(cell / Cols, cell % Cols, textOf(round, cell));
        std::size_t& peak = round < Rounds / 2 ? firstHalfPeak : secondHalfPeak;
        peak = std::max(peak, store.bytesUsed());
    }

    for (int cell = 0; cell < Rows * Cols; ++cell)
        QCOMPARE(store.text(cell / Cols, cell % Cols), textOf(Rounds - 1, cell).toString());
    QVERIFY2(secondHalfPeak < Bound,
             qPrintable(QStringLiteral("peak bytesUsed %1").arg(secondHalfPeak)));
    // The same work again must not need more memory: the footprint has reached a steady state.
    QCOMPARE_LE(secondHalfPeak, firstHalfPeak);
}

void tst_FlexCellStore::setRowTextsSplitsAtTabs_data()
{
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QStringList>("expected");

    const QString longField(5000, QChar(u'z'));
    QTest::newRow("one per column")
        << QStringLiteral("a\tbb\tccc") << QStringList{"a", "bb", "ccc"};
    QTest::newRow("fewer fields keep the rest")
        << QStringLiteral("a") << QStringList{"a", "old 1", "old 2"};
    QTest::newRow("more fields are dropped")
        << QStringLiteral("a\tb\tc\td\te") << QStringList{"a", "b", "c"};
    QTest::newRow("empty fields empty their cells")
        << QStringLiteral("\t\t") << QStringList{QString(), QString(), QString()};
    QTest::newRow("empty text empties the first cell")
        << QString() << QStringList{QString(), "old 1", "old 2"};
    QTest::newRow("trailing tab empties the next cell")
        << QStringLiteral("a\t") << QStringList{"a", QString(), "old 2"};
    QTest::newRow("CJK and a long field")
        << QStringLiteral("中文\t") + longField << QStringList{"中文", longField, "old 2"};
}

void tst_FlexCellStore::setRowTextsSplitsAtTabs()
{
    QFETCH(QString, fields);
    QFETCH(QStringList, expected);

    FlexCellStore store;
    store.setRowCount(3);
    store.setColCount(3);
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c)
            store.setText(r, c, QStringLiteral("old %1").arg(c));
    }
    store.setRowTexts(1, fields);

    for (int c = 0; c < 3; ++c) {
        QCOMPARE(store.text(1, c), expected.at(c));
        // The rows around keep their texts.
        QCOMPARE(store.text(0, c), QStringLiteral("old %1").arg(c));
        QCOMPARE(store.text(2, c), QStringLiteral("old %1").arg(c));
    }
}

void tst_FlexCellStore::setRowTextsReclaimsReplacedTexts()
{
    constexpr int Rows = 50;
    constexpr int Cols = 8;
    constexpr int Rounds = 600;
    FlexCellStore store;
    store.setRowCount(Rows);
    store.setColCount(Cols);
    std::size_t firstHalfPeak = 0;
    std::size_t secondHalfPeak = 0;
    QString fields;
    for (int round = 0; round < Rounds; ++round) {
        fields.clear();
        for (int c = 0; c < Cols; ++c)
            fields += QString(20 + (round + c) % 20, QChar(u'a' + round % 26)) + u'\t';
        for (int r = 0; r < Rows; ++r)
            store.setRowTexts(r, fields);
        std::size_t& peak = round < Rounds / 2 ? firstHalfPeak : secondHalfPeak;
        peak = std::max(peak, store.bytesUsed());
    }
    QCOMPARE(store.text(Rows - 1, Cols - 1), fields.split(u'\t').at(Cols - 1));
    QCOMPARE_LE(secondHalfPeak, firstHalfPeak);
}

void tst_FlexCellStore::neverFormattedCellReadsDefaultLook()
{
    FlexCellStore store;
    store.setRowCount(2);
    store.setColCount(2);
    for (int r = 0; r < 2; ++r) {
        for (int c = 0; c < 2; ++c) {
            QCOMPARE(store.hasFormat(r, c), false);
            QVERIFY(store.format(r, c).isDefault());
            QCOMPARE(describe(store.format(r, c)), describe(FlexCellFormat()));
        }
    }
    const FlexCellFormat& look = store.format(0, 0);
    QCOMPARE(look.backColor, OleColor(0));
    QCOMPARE(look.foreColor, OleColor(0));
    QCOMPARE(int(look.alignment), -1);
    QCOMPARE(int(look.pictureAlignment), 0);
    QCOMPARE(int(look.textStyle), -1);
    QCOMPARE(int(look.bold), -1);
    QCOMPARE(int(look.italic), -1);
    QCOMPARE(int(look.underline), -1);
    QCOMPARE(look.fontSize, 0.0f);
    QCOMPARE(look.fontWidth, 0.0f);
    QVERIFY(look.fontName.isEmpty());
    QVERIFY(look.picture.isNull());
}

void tst_FlexCellStore::setFormatRoundTrip()
{
    FlexCellFormat look;
    look.backColor = 0x123456;
    look.foreColor = 1;
    look.alignment = 7;
    look.pictureAlignment = 7;
    look.textStyle = 2;
    look.bold = 1;
    look.italic = 0;
    look.underline = 1;
    look.fontSize = 12.5f;
    look.fontWidth = 3;
    look.fontName = QStringLiteral("DejaVu Serif");
    look.picture = filledPixmap(Qt::red);

    FlexCellStore store;
    store.setRowCount(3);
    store.setColCount(3);
    store.setFormat(1, 2, look);

    QVERIFY(store.hasFormat(1, 2));
    QCOMPARE(describe(store.format(1, 2)), describe(look));
    QVERIFY(!store.hasFormat(1, 1));
    QVERIFY(!store.hasFormat(2, 2));
    QVERIFY(!store.hasFormat(0, 2));

    store.setFormat(1, 2, FlexCellFormat());
    QVERIFY(store.format(1, 2).isDefault());
}

void tst_FlexCellStore::setFormatValueChangesOneMember_data()
{
    QTest::addColumn<Field>("field");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("expected");

    const auto look = [](auto change) {
        FlexCellFormat format;
        change(format);
        return describe(format);
    };

    QTest::newRow("BackColor rgb") << Field::BackColor << double(0x123456)
                                   << look([](FlexCellFormat& f) { f.backColor = 0x123456; });
    QTest::newRow("BackColor system") << Field::BackColor << double(0x8000000F)
                                      << look([](FlexCellFormat& f) { f.backColor = 0x8000000F; });
    QTest::newRow("BackColor black")
        << Field::BackColor << 1.0 << look([](FlexCellFormat& f) { f.backColor = 1; });
    QTest::newRow("ForeColor") << Field::ForeColor << double(0xFF)
                               << look([](FlexCellFormat& f) { f.foreColor = 0xFF; });
    QTest::newRow("Alignment 7") << Field::Alignment << 7.0
                                 << look([](FlexCellFormat& f) { f.alignment = 7; });
    QTest::newRow("Alignment 0") << Field::Alignment << 0.0
                                 << look([](FlexCellFormat& f) { f.alignment = 0; });
    QTest::newRow("PictureAlignment") << Field::PictureAlignment << 7.0
                                      << look([](FlexCellFormat& f) { f.pictureAlignment = 7; });
    QTest::newRow("TextStyle") << Field::TextStyle << 4.0
                               << look([](FlexCellFormat& f) { f.textStyle = 4; });
    QTest::newRow("Bold on") << Field::Bold << 1.0 << look([](FlexCellFormat& f) { f.bold = 1; });
    QTest::newRow("Bold off") << Field::Bold << 0.0 << look([](FlexCellFormat& f) { f.bold = 0; });
    QTest::newRow("Italic") << Field::Italic << 1.0
                            << look([](FlexCellFormat& f) { f.italic = 1; });
    QTest::newRow("Underline") << Field::Underline << 1.0
                               << look([](FlexCellFormat& f) { f.underline = 1; });
    QTest::newRow("FontSize") << Field::FontSize << 12.5
                              << look([](FlexCellFormat& f) { f.fontSize = 12.5f; });
    QTest::newRow("FontWidth") << Field::FontWidth << 4.5
                               << look([](FlexCellFormat& f) { f.fontWidth = 4.5f; });
}

void tst_FlexCellStore::setFormatValueChangesOneMember()
{
    QFETCH(Field, field);
    QFETCH(double, value);
    QFETCH(QString, expected);

    FlexCellStore store;
    store.setRowCount(3);
    store.setColCount(3);
    store.setFormatValue(1, 1, field, value);

    QVERIFY(store.hasFormat(1, 1));
    QCOMPARE(describe(store.format(1, 1)), expected);
    QVERIFY(!store.hasFormat(0, 1));
    QVERIFY(!store.hasFormat(1, 0));
    QVERIFY(!store.hasFormat(1, 2));
    QVERIFY(!store.hasFormat(2, 1));
}

void tst_FlexCellStore::setFormatValueKeepsTheOtherMembers()
{
    // Cells start from different looks and then receive the same change in a row, so a cached
    // answer for one starting look must not leak into another.
    constexpr int Cells = 99;
    FlexCellStore store;
    store.setRowCount(1);
    store.setColCount(Cells);
    for (int c = 0; c < Cells; ++c) {
        if (c % 3 == 1)
            store.setFormatValue(0, c, Field::Bold, 1);
        if (c % 3 == 2)
            store.setFormatValue(0, c, Field::Italic, 1);
        store.setFormatValue(0, c, Field::BackColor, 0x00FF00);
        store.setFormatValue(0, c, Field::FontSize, 11);
    }

    for (int c = 0; c < Cells; ++c) {
        FlexCellFormat expected;
        expected.backColor = 0x00FF00;
        expected.fontSize = 11;
        expected.bold = c % 3 == 1 ? 1 : -1;
        expected.italic = c % 3 == 2 ? 1 : -1;
        QCOMPARE(describe(store.format(0, c)), describe(expected));
    }
}

void tst_FlexCellStore::setFormatValueBackToUnsetGivesDefaultLook()
{
    FlexCellStore store;
    store.setRowCount(1);
    store.setColCount(2);
    store.setFormatValue(0, 0, Field::Bold, 1);
    store.setFormatValue(0, 0, Field::BackColor, 0x123);
    store.setFormatValue(0, 0, Field::Bold, -1);
    QCOMPARE(describe(store.format(0, 0)), describe(withBackColor(0x123)));

    store.setFormatValue(0, 0, Field::BackColor, 0);
    QVERIFY(store.format(0, 0).isDefault());
}

void tst_FlexCellStore::manyDistinctLooksAllReadBack()
{
    // More distinct looks than a 16-bit index can number.
    constexpr int Rows = 300;
    constexpr int Cols = 250;
    const auto colorOf = [](int r, int c) {
        return OleColor(0x010101 + r * Cols + c);
    };

    FlexCellStore store;
    store.setRowCount(Rows);
    store.setColCount(Cols);
    for (int r = 0; r < Rows; ++r) {
        for (int c = 0; c < Cols; ++c) {
            if ((r + c) % 2 == 0)
                store.setFormatValue(r, c, Field::BackColor, colorOf(r, c));
            else
                store.setFormat(r, c, withBackColor(colorOf(r, c)));
        }
    }

    for (int r = 0; r < Rows; ++r) {
        for (int c = 0; c < Cols; ++c) {
            if (store.format(r, c).backColor != colorOf(r, c)) {
                QFAIL(qPrintable(QStringLiteral("cell (%1, %2) reads %3, set %4")
                                     .arg(r)
                                     .arg(c)
                                     .arg(store.format(r, c).backColor, 0, 16)
                                     .arg(colorOf(r, c), 0, 16)));
            }
        }
    }
    QCOMPARE(describe(store.format(0, 0)), describe(withBackColor(colorOf(0, 0))));
    QCOMPARE(describe(store.format(Rows - 1, Cols - 1)),
             describe(withBackColor(colorOf(Rows - 1, Cols - 1))));
}

void tst_FlexCellStore::insertRowShiftsEverythingDown_data()
{
    QTest::addColumn<int>("row");

    QTest::newRow("first") << 0;
    QTest::newRow("middle") << 2;
    QTest::newRow("last") << 4;
    QTest::newRow("append") << 5;
}

void tst_FlexCellStore::insertRowShiftsEverythingDown()
{
    QFETCH(int, row);

    FlexCellStore store;
    store.setRowCount(5);
    store.setColCount(3);
    markRows(store);
    QStringList expected = rowSignatures(store);
    expected.insert(row, emptyRowSignature(3));

    store.insertRow(row);

    QCOMPARE(store.rowCount(), 6);
    QCOMPARE(rowSignatures(store), expected);
}

void tst_FlexCellStore::removeRowShiftsEverythingUp_data()
{
    QTest::addColumn<int>("row");

    QTest::newRow("first") << 0;
    QTest::newRow("middle") << 2;
    QTest::newRow("last") << 4;
}

void tst_FlexCellStore::removeRowShiftsEverythingUp()
{
    QFETCH(int, row);

    FlexCellStore store;
    store.setRowCount(5);
    store.setColCount(3);
    markRows(store);
    QStringList expected = rowSignatures(store);
    expected.removeAt(row);

    store.removeRow(row);

    QCOMPARE(store.rowCount(), 4);
    QCOMPARE(rowSignatures(store), expected);
}

void tst_FlexCellStore::removedThenReinsertedRowComesBackEmpty()
{
    FlexCellStore store;
    store.setRowCount(5);
    store.setColCount(3);
    markRows(store);
    QStringList expected = rowSignatures(store);
    expected[2] = emptyRowSignature(3);
    expected[4] = emptyRowSignature(3);

    store.removeRow(2);
    store.insertRow(2);
    store.removeRow(4);
    store.insertRow(4);

    QCOMPARE(rowSignatures(store), expected);
}

void tst_FlexCellStore::moveRowCarriesEverything_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");

    QTest::newRow("down") << 1 << 3;
    QTest::newRow("up") << 4 << 0;
    QTest::newRow("to the end") << 0 << 4;
    QTest::newRow("neighbour") << 2 << 3;
    QTest::newRow("in place") << 2 << 2;
}

void tst_FlexCellStore::moveRowCarriesEverything()
{
    QFETCH(int, from);
    QFETCH(int, to);

    FlexCellStore store;
    store.setRowCount(5);
    store.setColCount(3);
    markRows(store);
    QStringList expected = rowSignatures(store);
    expected.move(from, to);

    store.moveRow(from, to);

    QCOMPARE(rowSignatures(store), expected);
}

void tst_FlexCellStore::moveColCarriesCellsAndMetadata_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");

    QTest::newRow("right") << 1 << 3;
    QTest::newRow("left") << 4 << 0;
    QTest::newRow("to the end") << 0 << 4;
    QTest::newRow("neighbour") << 3 << 2;
    QTest::newRow("in place") << 2 << 2;
}

void tst_FlexCellStore::moveColCarriesCellsAndMetadata()
{
    QFETCH(int, from);
    QFETCH(int, to);

    FlexCellStore store;
    store.setRowCount(3);
    store.setColCount(5);
    markRows(store);
    markCols(store);
    const QStringList rowMetadata = [&store] {
        QStringList metadata;
        for (int r = 0; r < store.rowCount(); ++r)
            metadata << QStringLiteral("%1/%2/%3")
                            .arg(store.rowHeight(r))
                            .arg(store.rowData(r))
                            .arg(store.mergeRow(r));
        return metadata;
    }();
    QStringList expected = colSignatures(store);
    expected.move(from, to);

    store.moveCol(from, to);

    QCOMPARE(colSignatures(store), expected);
    for (int r = 0; r < store.rowCount(); ++r) {
        QCOMPARE(QStringLiteral("%1/%2/%3")
                     .arg(store.rowHeight(r))
                     .arg(store.rowData(r))
                     .arg(store.mergeRow(r)),
                 rowMetadata.at(r));
    }
}

void tst_FlexCellStore::reorderRowsPermutesTheRange_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<std::vector<std::uint32_t>>("order");

    QTest::newRow("identity") << 1 << std::vector<std::uint32_t>{0, 1, 2};
    QTest::newRow("rotate") << 1 << std::vector<std::uint32_t>{2, 0, 1};
    QTest::newRow("reverse all") << 0 << std::vector<std::uint32_t>{5, 4, 3, 2, 1, 0};
    QTest::newRow("swap at the end") << 4 << std::vector<std::uint32_t>{1, 0};
}

void tst_FlexCellStore::reorderRowsPermutesTheRange()
{
    QFETCH(int, first);
    QFETCH(std::vector<std::uint32_t>, order);

    FlexCellStore store;
    store.setRowCount(6);
    store.setColCount(3);
    markRows(store);
    const QStringList before = rowSignatures(store);
    QStringList expected = before;
    for (std::size_t i = 0; i < order.size(); ++i)
        expected[first + int(i)] = before.at(first + int(order[i]));

    store.reorderRows(first, order);

    QCOMPARE(rowSignatures(store), expected);
}

void tst_FlexCellStore::clearCellsEmptiesTextsAndLooksOnly()
{
    FlexCellStore store;
    store.setRowCount(4);
    store.setColCount(3);
    markRows(store);
    markCols(store);
    store.setFormatValue(1, 1, Field::Bold, 1);
    FlexCellFormat pictured;
    pictured.picture = filledPixmap(Qt::blue);
    store.setFormat(2, 2, pictured);

    store.clearCells();

    QCOMPARE(store.rowCount(), 4);
    QCOMPARE(store.colCount(), 3);
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 3; ++c) {
            QCOMPARE(store.text(r, c), QString());
            QVERIFY(!store.hasFormat(r, c));
            QVERIFY(store.format(r, c).isDefault());
        }
        QCOMPARE(store.rowHeight(r), 300 + 15 * r);
        QCOMPARE(store.rowData(r), 1000 + r);
        QCOMPARE(store.mergeRow(r), r % 2 == 1);
    }
    for (int c = 0; c < 3; ++c) {
        QCOMPARE(store.colWidth(c), 600 + 15 * c);
        QCOMPARE(store.colAlignment(c), c % 10);
        QCOMPARE(store.colAlignmentFixed(c), (c + 3) % 10);
        QCOMPARE(store.mergeCol(c), c % 2 == 0);
        QCOMPARE(store.colData(c), 2000 + c);
    }
}

QTEST_MAIN(tst_FlexCellStore)
#include "tst_flexcellstore.moc"
