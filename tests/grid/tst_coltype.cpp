// Part 1.2, grid side: VemoGrid's Column(Col) and ColType(Col) — the type recorded in the
// column's Column, its decimals and format, and the hosted grid's alignment and width per type.
#include <VemoGridLib/OleColor.h>
#include <VemoGridLib/Twips.h>
#include <VemoGridLib/VemoEnums.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/Column.h>
#include "flexgrid/FlexCellFormat_p.h"
#include "flexgrid/FlexCellStore_p.h"
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoGrid.h>

#include "VemoGridTestSupport.h"
#include "VemoTestSupport.h"

#include <QApplication>
#include <QImage>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <optional>

using namespace VemoGridLib;
using VemoTest::lookOf;

namespace {

const QString CurrencyFormat = QStringLiteral("#,##0.00");
const QString DecimalRefusal = QStringLiteral("Can't set decimal lenght to this column");
constexpr qint32 ObjectErrorBase = -2147221504;
constexpr int SubscriptOutOfRange = 9;
// Hosted settings that no column type produces, so "unchanged" is told apart from a write.
constexpr int SentinelAlignment = 4;
constexpr int SentinelWidth = 777;
constexpr int ColTwips = 1200;
constexpr int RowTwips = 450;

/// A grid of 4 rows × 5 columns whose column 2 carries the sentinel alignment and width.
std::unique_ptr<VemoGrid> makeGrid()
{
    auto grid = std::make_unique<VemoGrid>();
    grid->setCols(5);
    grid->setRows(4);
    for (int col = 0; col < 5; ++col) {
        grid->hostedGrid()->setColAlignment(col, SentinelAlignment);
        grid->hostedGrid()->setColWidth(col, SentinelWidth);
    }
    return grid;
}

/// A cell's rectangle inside its grid lines, in hosted viewport pixels.
QRect innerCellRect(const VemoGrid& grid, int row, int col)
{
    return VemoTest::cellRect(grid, row, col).adjusted(2, 2, -2, -2);
}

/// Pixels of `area` that differ from `background`.
int inkPixels(const QImage& image, const QRect& area, const QColor& background)
{
    int count = 0;
    const QRect inside = area & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x)
            count += image.pixel(x, y) != background.rgb() ? 1 : 0;
    }
    return count;
}

/// The cells of `area`, as an image of their own.
QImage crop(const QImage& image, const QRect& area)
{
    return image.copy(area);
}

} // namespace

class tst_ColType : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void colTypeSetsHostedAlignmentAndWidth_data();
    void colTypeSetsHostedAlignmentAndWidth();
    void colTypeTouchesOnlyItsColumn();
    void colTypeOutOfRangeRaises9AndChangesNothing_data();
    void colTypeOutOfRangeRaises9AndChangesNothing();
    void columnIsTheGridsColumnObject();

    void typeSetsDecimalsAndFormat_data();
    void typeSetsDecimalsAndFormat();
    void currencyRefusesDecimalLength();
    void longRefusesDecimalLength();
    void numericAcceptsAnyDecimalLength_data();
    void numericAcceptsAnyDecimalLength();
    void currencyToNumericKeepsFormat();
    void currencyToTextBoxKeepsFormatAndDecimals();

    void checkBoxTypeDrawsBoxes();
    void checkBoxTypeAtDesignTimeDrawsNothing();
};

void tst_ColType::initTestCase()
{
    QApplication::setFont(QFont("DejaVu Sans", 9));
}

// ---- hosted alignment and width ----------------------------------------------------------------

void tst_ColType::colTypeSetsHostedAlignmentAndWidth_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("width");
    // Part 1.2 table; the sentinels stand for "unchanged".
    QTest::newRow("eTextBox") << int(eTextBox) << 1 << SentinelWidth;
    QTest::newRow("eCheckBox") << int(eCheckBox) << 0 << 500;
    QTest::newRow("eComboBox") << int(eComboBox) << SentinelAlignment << SentinelWidth;
    QTest::newRow("eCalendar") << int(eCalendar) << 1 << 1250;
    QTest::newRow("ehyperlink") << int(ehyperlink) << SentinelAlignment << SentinelWidth;
    QTest::newRow("eButton") << int(eButton) << SentinelAlignment << SentinelWidth;
    QTest::newRow("eCurrency") << int(eCurrency) << 7 << SentinelWidth;
    QTest::newRow("eNumeric") << int(eNumeric) << 7 << SentinelWidth;
    QTest::newRow("eLong") << int(eLong) << 7 << SentinelWidth;
    QTest::newRow("9") << 9 << SentinelAlignment << SentinelWidth;
    QTest::newRow("100") << 100 << SentinelAlignment << SentinelWidth;
}

void tst_ColType::colTypeSetsHostedAlignmentAndWidth()
{
    QFETCH(int, type);
    QFETCH(int, alignment);
    QFETCH(int, width);
    auto grid = makeGrid();
    QSignalSpy changed(grid.get(), &VemoGrid::PropertyChanged);

    grid->setColType(2, VemoGridColType(type));

    QCOMPARE(int(grid->ColType(2)), type);
    QCOMPARE(int(grid->Column(2)->colType()), type);
    QCOMPARE(grid->hostedGrid()->ColAlignment(2), alignment);
    QCOMPARE(grid->hostedGrid()->ColWidth(2), width);
    // The let signals no saved-property change.
    QCOMPARE(changed.count(), 0);
}

void tst_ColType::colTypeTouchesOnlyItsColumn()
{
    auto grid = makeGrid();
    grid->setColType(2, eCheckBox);
    grid->setColType(3, eCurrency);
    for (int col : {0, 1, 4}) {
        QCOMPARE(grid->ColType(col), eTextBox);
        QCOMPARE(grid->hostedGrid()->ColAlignment(col), SentinelAlignment);
        QCOMPARE(grid->hostedGrid()->ColWidth(col), SentinelWidth);
        QCOMPARE(grid->Column(col)->DecimalLength(), qint16(6));
    }
    QCOMPARE(grid->ColType(2), eCheckBox);
    QCOMPARE(grid->ColType(3), eCurrency);
}

void tst_ColType::colTypeOutOfRangeRaises9AndChangesNothing_data()
{
    QTest::addColumn<int>("col");
    QTest::addColumn<int>("type");
    // −1 would mean "every column" to the hosted grid's ColAlignment and ColWidth.
    QTest::newRow("-1 currency") << -1 << int(eCurrency);
    QTest::newRow("-1 check box") << -1 << int(eCheckBox);
    QTest::newRow("Cols calendar") << 5 << int(eCalendar);
    QTest::newRow("far beyond") << 50 << int(eTextBox);
}

void tst_ColType::colTypeOutOfRangeRaises9AndChangesNothing()
{
    QFETCH(int, col);
    QFETCH(int, type);
    auto grid = makeGrid();
    QSignalSpy changed(grid.get(), &VemoGrid::PropertyChanged);

    QCOMPARE(VemoTest::errorNumberOf([&] { grid->setColType(col, VemoGridColType(type)); }),
             SubscriptOutOfRange);
    QCOMPARE(VemoTest::errorNumberOf([&] { grid->ColType(col); }), SubscriptOutOfRange);

    QCOMPARE(grid->hostedGrid()->Cols(), 5);
    for (int c = 0; c < 5; ++c) {
        QCOMPARE(grid->ColType(c), eTextBox);
        QCOMPARE(grid->Column(c)->DecimalLength(), qint16(6));
        QCOMPARE(grid->Column(c)->FormatString(), QString());
        QCOMPARE(grid->hostedGrid()->ColAlignment(c), SentinelAlignment);
        QCOMPARE(grid->hostedGrid()->ColWidth(c), SentinelWidth);
        for (int row = 1; row < 4; ++row)
            QVERIFY(lookOf(*grid, row, c).picture.isNull());
    }
    QCOMPARE(changed.count(), 0);
}

void tst_ColType::columnIsTheGridsColumnObject()
{
    auto grid = makeGrid();
    VemoGridLib::Column* column = grid->Column(3);
    QVERIFY(column != nullptr);
    QCOMPARE(grid->Column(3), column);
    grid->setColType(3, eNumeric);
    // ColType writes into the same object the host reaches through Column(Col).
    QCOMPARE(column->colType(), eNumeric);
    QCOMPARE(grid->Column(3), column);
}

// ---- decimals and format ---------------------------------------------------------------------

void tst_ColType::typeSetsDecimalsAndFormat_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("format");
    QTest::newRow("eCurrency") << int(eCurrency) << 2 << CurrencyFormat;
    QTest::newRow("eNumeric") << int(eNumeric) << 6 << QString();
    QTest::newRow("eLong") << int(eLong) << 0 << QString();
    QTest::newRow("eTextBox") << int(eTextBox) << 6 << QString();
    QTest::newRow("eCalendar") << int(eCalendar) << 6 << QString();
}

void tst_ColType::typeSetsDecimalsAndFormat()
{
    QFETCH(int, type);
    QFETCH(int, decimals);
    QFETCH(QString, format);
    auto grid = makeGrid();
    grid->setColType(2, VemoGridColType(type));
    QCOMPARE(grid->Column(2)->DecimalLength(), qint16(decimals));
    QCOMPARE(grid->Column(2)->FormatString(), format);
}

void tst_ColType::currencyRefusesDecimalLength()
{
    auto grid = makeGrid();
    grid->setColType(2, eCurrency);
    QCOMPARE(grid->Column(2)->FormatString(), CurrencyFormat);
    QCOMPARE(grid->Column(2)->DecimalLength(), qint16(2));

    const std::optional<VemoError> error =
        VemoTest::errorOf([&] { grid->Column(2)->setDecimalLength(3); });

    QVERIFY(error.has_value());
    QCOMPARE(error->number(), ObjectErrorBase);
    QCOMPARE(error->description(), DecimalRefusal);
    QCOMPARE(grid->Column(2)->DecimalLength(), qint16(2));
}

void tst_ColType::longRefusesDecimalLength()
{
    auto grid = makeGrid();
    grid->setColType(2, eLong);
    QCOMPARE(grid->Column(2)->DecimalLength(), qint16(0));

    const std::optional<VemoError> error =
        VemoTest::errorOf([&] { grid->Column(2)->setDecimalLength(4); });

    QVERIFY(error.has_value());
    QCOMPARE(error->number(), ObjectErrorBase);
    QCOMPARE(error->description(), DecimalRefusal);
    QCOMPARE(grid->Column(2)->DecimalLength(), qint16(0));
}

void tst_ColType::numericAcceptsAnyDecimalLength_data()
{
    QTest::addColumn<int>("decimals");
    QTest::newRow("3") << 3;
    QTest::newRow("0") << 0;
    QTest::newRow("-3") << -3;
}

void tst_ColType::numericAcceptsAnyDecimalLength()
{
    QFETCH(int, decimals);
    auto grid = makeGrid();
    grid->setColType(2, eNumeric);
    QCOMPARE(grid->Column(2)->DecimalLength(), qint16(6));
    QCOMPARE(VemoTest::errorNumberOf([&] { grid->Column(2)->setDecimalLength(qint16(decimals)); }),
             0);
    QCOMPARE(grid->Column(2)->DecimalLength(), qint16(decimals));
}

void tst_ColType::currencyToNumericKeepsFormat()
{
    auto grid = makeGrid();
    grid->setColType(2, eCurrency);
    grid->setColType(2, eNumeric);
    QCOMPARE(grid->ColType(2), eNumeric);
    QCOMPARE(grid->Column(2)->DecimalLength(), qint16(6));
    QCOMPARE(grid->Column(2)->FormatString(), CurrencyFormat);
    QCOMPARE(grid->hostedGrid()->ColAlignment(2), 7);
}

void tst_ColType::currencyToTextBoxKeepsFormatAndDecimals()
{
    auto grid = makeGrid();
    grid->setColType(2, eCurrency);
    grid->setColType(2, eTextBox);
    QCOMPARE(grid->Column(2)->FormatString(), CurrencyFormat);
    QCOMPARE(grid->Column(2)->DecimalLength(), qint16(2));
    // No longer a refusing type: the decimals are accepted again.
    QCOMPARE(VemoTest::errorNumberOf([&] { grid->Column(2)->setDecimalLength(3); }), 0);
    QCOMPARE(grid->Column(2)->DecimalLength(), qint16(3));
    QCOMPARE(grid->hostedGrid()->ColAlignment(2), 1);
}

// ---- check-box columns -----------------------------------------------------------------------

void tst_ColType::checkBoxTypeDrawsBoxes()
{
    QWidget window;
    window.resize(620, 340);
    auto* grid = new VemoGrid(&window);
    grid->setGeometry(0, 0, 620, 340);
    FlexGrid* flex = grid->hostedGrid();
    grid->setCols(4);
    flex->setColWidth(-1, ColTwips);
    flex->setRowHeightMin(RowTwips);
    grid->setRows(5);
    flex->setTextMatrix(1, 2, QStringLiteral("."));
    flex->setTextMatrix(2, 2, QStringLiteral("`"));
    flex->setTextMatrix(3, 2, QStringLiteral("."));
    flex->setRow(4);
    flex->setCol(3);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    grid->setColType(2, eCheckBox);
    QCoreApplication::processEvents();

    QCOMPARE(flex->ColWidth(2), 500);
    QCOMPARE(flex->ColAlignment(2), 0);
    for (int row = 1; row < 5; ++row) {
        QVERIFY(!lookOf(*grid, row, 2).picture.isNull());
        QCOMPARE(lookOf(*grid, row, 2).foreColor, lookOf(*grid, row, 2).backColor);
    }
    QCOMPARE(lookOf(*grid, 1, 2).picture.toImage(), lookOf(*grid, 3, 2).picture.toImage());
    QVERIFY(lookOf(*grid, 1, 2).picture.toImage() != lookOf(*grid, 2, 2).picture.toImage());
    QCOMPARE(lookOf(*grid, 4, 2).picture.toImage(), lookOf(*grid, 2, 2).picture.toImage());
    // The pass restores the current cell.
    QCOMPARE(flex->Row(), 4);
    QCOMPARE(flex->Col(), 3);

    // On screen: every box cell shows ink on its background; the checked ones look alike and
    // unlike the unchecked ones.
    const QImage image = flex->viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    for (int row = 1; row < 5; ++row) {
        const QColor background = toQColor(lookOf(*grid, row, 2).backColor);
        QVERIFY2(inkPixels(image, innerCellRect(*grid, row, 2), background) > 10,
                 qPrintable(QStringLiteral("no box drawn in row %1").arg(row)));
    }
    // Rows 1, 3 and 4 share their band colour: the checked cells are drawn alike, the unchecked
    // one differently.
    QCOMPARE(crop(image, innerCellRect(*grid, 1, 2)), crop(image, innerCellRect(*grid, 3, 2)));
    QVERIFY(crop(image, innerCellRect(*grid, 1, 2)) != crop(image, innerCellRect(*grid, 4, 2)));
    // An empty text column of the same row shows no ink.
    QCOMPARE(inkPixels(image, innerCellRect(*grid, 1, 1), toQColor(lookOf(*grid, 1, 1).backColor)),
             0);
}

void tst_ColType::checkBoxTypeAtDesignTimeDrawsNothing()
{
    auto grid = makeGrid();
    grid->hostedGrid()->setTextMatrix(1, 2, QStringLiteral("."));
    grid->setUserMode(false);

    grid->setColType(2, eCheckBox);

    QCOMPARE(grid->ColType(2), eCheckBox);
    QCOMPARE(grid->hostedGrid()->ColWidth(2), 500);
    QCOMPARE(grid->hostedGrid()->ColAlignment(2), 0);
    for (int row = 1; row < 4; ++row) {
        QVERIFY(lookOf(*grid, row, 2).picture.isNull());
        QCOMPARE(lookOf(*grid, row, 2).foreColor, OleColor(0));
    }
}

QTEST_MAIN(tst_ColType)
#include "tst_coltype.moc"
