// FlexGrid's members driven by code (flexgrid-reference.md §4–§8, §10, §11, §13).
#include "flexgrid/FlexCellStore_p.h"
#include <VemoGridLib/FlexGrid.h>

#include <VemoGridLib/VemoError.h>

#include "CellStoreAccess.h"
#include "FlexEventLog.h"
#include "VemoTestSupport.h"
#include <QApplication>
#include <QFontMetrics>
#include <QImage>
#include <QScrollBar>
#include <QTest>

#include <algorithm>
#include <functional>
#include <vector>

using namespace VemoGridLib;
using namespace VemoGridLib::Flex;
using VemoTest::EventLog;

using GridCall = std::function<void(FlexGrid&)>;
Q_DECLARE_METATYPE(GridCall)

namespace {

constexpr int TwipsPerPixel = 15;

// The §6 sequence of a code move of the current cell.
const QStringList CellMove = {QStringLiteral("LeaveCell"), QStringLiteral("SelChange"),
                              QStringLiteral("EnterCell"), QStringLiteral("RowColChange")};
const QStringList SelChangeOnly = {QStringLiteral("SelChange")};

// The §3 texts (as the replica reproduces them).
QString descriptionOf(int number)
{
    static const QHash<int, QString> texts = {
        {380, QStringLiteral("Invalid property value")},
        {381, QStringLiteral("Subscript out of range")},
        {30000, QStringLiteral("Cannot do a RemoveItem on a fixed row")},
        {30001, QStringLiteral("Cannot use AddItem on a fixed row")},
        {30002, QStringLiteral("Grid does not contain that row")},
        {30004, QStringLiteral("Invalid Col value for alignment")},
        {30005, QStringLiteral("Invalid Alignment value")},
        {30009, QStringLiteral("Invalid Row value")},
        {30010, QStringLiteral("Invalid Col value")},
        {30013, QStringLiteral("Invalid Row Height value")},
        {30014, QStringLiteral("Invalid Col Width value")},
        {30015, QStringLiteral("Can not remove last non-fixed row")},
        {30016, QStringLiteral("FixedRows must be at least one less than Rows value")},
        {30017, QStringLiteral("FixedCols must be at least one less than Cols value")},
    };
    return texts.value(number);
}

// Structure, current cell, selection and scroll position in one comparable list.
QList<int> structureOf(const FlexGrid& grid)
{
    return {grid.Rows(), grid.Cols(),   grid.FixedRows(), grid.FixedCols(), grid.Row(),
            grid.Col(),  grid.RowSel(), grid.ColSel(),    grid.TopRow(),    grid.LeftCol()};
}

// Every cell's text, row by row.
QStringList allTexts(const FlexGrid& grid)
{
    QStringList texts;
    for (int r = 0; r < grid.Rows(); ++r) {
        for (int c = 0; c < grid.Cols(); ++c)
            texts << grid.TextMatrix(r, c);
    }
    return texts;
}

void setSelection(FlexGrid& grid, int row, int col, int rowSel, int colSel)
{
    grid.setRow(row);
    grid.setCol(col);
    grid.setRowSel(rowSel);
    grid.setColSel(colSel);
}

QPixmap filledPixmap(const QColor& color, int size = 16)
{
    QPixmap pixmap(size, size);
    pixmap.fill(color);
    return pixmap;
}

// The scrolling fixture: 50 rows of 300 twips (20 px) and 12 columns of 900 twips (60 px)
// behind a fixed column of 600 twips (40 px), shown with a viewport of exactly 280 × 200 px,
// which holds the fixed row and 9 data rows, the fixed column and 4 data columns.
constexpr int ScrollRows = 50;
constexpr int ScrollCols = 12;
constexpr int RowTwips = 300;
constexpr int ColTwips = 900;
constexpr int FixedColTwips = 600;
constexpr int VisibleDataRows = 9;
constexpr int VisibleDataCols = 4;
constexpr int MaxTopRow = ScrollRows - VisibleDataRows;
constexpr int MaxLeftCol = ScrollCols - VisibleDataCols;
const QSize ScrollViewport(280, 200);

bool setUpScrollGrid(FlexGrid& grid)
{
    grid.setRows(ScrollRows);
    grid.setCols(ScrollCols);
    grid.setColWidth(-1, ColTwips);
    grid.setColWidth(0, FixedColTwips);
    for (int r = 0; r < ScrollRows; ++r)
        grid.setRowHeight(r, RowTwips);
    grid.resize(400, 300);
    grid.show();
    if (!QTest::qWaitForWindowExposed(&grid))
        return false;
    grid.resize(grid.size() - (grid.viewport()->size() - ScrollViewport));
    return grid.viewport()->size() == ScrollViewport;
}

// The viewport's offset inside the control, in twips (frame and border).
QPoint viewportOffsetTwips(const FlexGrid& grid)
{
    return grid.viewport()->geometry().topLeft() * TwipsPerPixel;
}

// Text width in twips as drawn in `font`.
int textTwips(const QFont& font, const QString& text)
{
    return QFontMetrics(font).horizontalAdvance(text) * TwipsPerPixel;
}

void addEnumRow(const char* property, void (FlexGrid::*setter)(int), int value)
{
    QTest::addRow("%s %d", property, value)
        << QByteArray(property)
        << GridCall([setter, value](FlexGrid& grid) { (grid.*setter)(value); });
}

} // namespace

class tst_FlexGrid : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    // §13
    void defaults_data();
    void defaults();
    void defaultsOfCellsRowsAndColumns();

    // §3, every member's range errors
    void invalidCallsRaise_data();
    void invalidCallsRaise();
    void enumeratedPropertiesRejectOutOfRange_data();
    void enumeratedPropertiesRejectOutOfRange();
    void enumeratedPropertiesAcceptTheirRange_data();
    void enumeratedPropertiesAcceptTheirRange();

    // §4
    void growingAddsEmptyRowsAndColumns();
    void shrinkingDiscardsFromTheEnd();
    void countsBelowTheFixedCountsLowerThem_data();
    void countsBelowTheFixedCountsLowerThem();
    void rowsEqualToFixedRowsIsAccepted();
    void shrinkingClampsTheCurrentCell_data();
    void shrinkingClampsTheCurrentCell();
    void shrinkingClampsOnlyTheSelection();
    void dataRowsAppearingMoveTheCurrentRow();
    void shrinkingReclampsTopRow();
    void fixedRowsMoveTheCurrentCell();
    void fixedColsMoveTheCurrentCell();

    // §5
    void textMatrixReachesEveryCellSilently();
    void textWritesTheCurrentCell();
    void textWithFillRepeatWritesTheSelection_data();
    void textWithFillRepeatWritesTheSelection();
    void textArrayIndexesRowTimesColsPlusCol();
    void textWithoutCurrentCellReadsEmpty();

    // §6
    void currentCellMovesFireTheCellEvents_data();
    void currentCellMovesFireTheCellEvents();
    void cellEventsSeeTheOldCellThenTheNew();
    void sameRowCollapsesTheSelection();
    void selectionCornersFireSelChangeOnly();
    void selectionModeWidensTheSelection();
    void settingRowDoesNotScroll();

    // §7
    void colWidthMarksDefaultColumns();
    void colWidthIndexMinusOneSetsAll();
    void hiddenColumnTakesNoSpace();
    void rowHeightReadsTheEffectiveHeight();
    void defaultSizesFollowTheFont();
    void rowHeightMinRaisesVisibleRows();
    void topRowIsClamped_data();
    void topRowIsClamped();
    void topRowFiresScrollOnlyWhenItMoves();
    void scrollingNeedsTheScrollBar_data();
    void scrollingNeedsTheScrollBar();
    void leftColIsClamped_data();
    void leftColIsClamped();
    void positionsFollowScrolling();
    void visibilityFollowsScrolling();
    void cellGeometryScrollsTheCellIntoView_data();
    void cellGeometryScrollsTheCellIntoView();
    void cellGeometryOfAVisibleCellDoesNotScroll();
    void hiddenCellsGiveNegativeSizes();
    void scrollVerticallyMovesTopRowOnly_data();
    void scrollVerticallyMovesTopRowOnly();

    // §10, §11
    void cellColorsReadBackExactly_data();
    void cellColorsReadBackExactly();
    void cellLooksWithFillRepeatReachTheSelection();
    void cellAlignmentFollowsTheColumnUntilSet();
    void cellFontsFollowTheGridFonts();
    void cellFontSettersReadBack();
    void cellPictureSetAndRemove();
    void cellPictureAlignmentRoundTrip();
    void cellTextStyleFollowsTheGridStyle();
    void colAlignmentIndexMinusOneSetsAll();
    void mergeSettingsRoundTrip();
    void rowDataAndColDataRoundTrip();
    void colorPropertiesRoundTrip();
    void redrawTogglesWithoutAffectingDataOrEvents();
    void pictureIsASnapshotOfTheGrid();
    void monochromePictureHasTwoColours();

    // §8
    void addItemSplitsAtTabs_data();
    void addItemSplitsAtTabs();
    void addItemInsertsAndShiftsRows();
    void addItemAtRowsAppends();
    void addItemKeepsTheCurrentCellAndFiresNothing();
    void addItemKeepsTheViewAndGrowsTheScrollRange();
    void removeItemShiftsRowsUp();
    void removeItemClampsTheCurrentCell();
    void removeItemClampsOnlyTheSelection();
    void removeItemAboveTheCursorKeepsItsNumber();
    void clearEmptiesCellsAndKeepsStructure();
    void colPositionMovesTheWholeColumn();
    void rowPositionMovesTheWholeRow();

    // §5 FormatString
    void formatStringReferenceExample();
    void formatStringWidthsFollowTheTexts_data();
    void formatStringWidthsFollowTheTexts();
    void formatStringRowPart();
    void formatStringNeverReducesCounts();
    void formatStringReadsBackVerbatim_data();
    void formatStringReadsBackVerbatim();
    void formatStringFiresNoEvents();
};

void tst_FlexGrid::initTestCase()
{
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
}

void tst_FlexGrid::defaults_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("expected");

    const auto add = [](const char* name, const QVariant& value) {
        QTest::newRow(name) << QByteArray(name) << value;
    };
    add("Rows", 2);
    add("Cols", 2);
    add("FixedRows", 1);
    add("FixedCols", 1);
    add("Row", 1);
    add("Col", 1);
    add("RowSel", 1);
    add("ColSel", 1);
    add("TopRow", 1);
    add("LeftCol", 1);
    add("Text", QString());
    add("FormatString", QString());
    add("RowHeightMin", 0);
    add("FillStyle", 0);
    add("MergeCells", 0);
    add("SelectionMode", 0);
    add("AllowBigSelection", true);
    add("AllowUserResizing", 0);
    add("HighLight", 1);
    add("FocusRect", 1);
    add("GridLines", 1);
    add("GridLinesFixed", 2);
    add("GridLineWidth", 1);
    add("TextStyle", 0);
    add("TextStyleFixed", 0);
    add("WordWrap", false);
    add("ScrollBars", 3);
    add("ScrollTrack", false);
    add("Redraw", true);
    add("PictureType", 0);
    add("MousePointer", 0);
    add("BackColor", quint32(0x80000005));
    add("ForeColor", quint32(0x80000008));
    add("BackColorFixed", quint32(0x8000000F));
    add("ForeColorFixed", quint32(0x80000012));
    add("BackColorSel", quint32(0x8000000D));
    add("ForeColorSel", quint32(0x8000000E));
    add("BackColorBkg", quint32(0x808080));
    add("GridColor", quint32(0xC0C0C0));
    add("GridColorFixed", quint32(0x000000));
}

void tst_FlexGrid::defaults()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, expected);

    const FlexGrid grid;
    const QVariant actual = grid.property(property.constData());
    QVERIFY2(actual.isValid(), property.constData());
    QCOMPARE(actual, expected);
}

void tst_FlexGrid::defaultsOfCellsRowsAndColumns()
{
    const FlexGrid grid;
    const int defaultHeight = grid.RowHeight(0);
    QVERIFY(defaultHeight > 0);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(grid.ColWidth(i), -1);
        QCOMPARE(grid.ColAlignment(i), 9);
        QCOMPARE(grid.ColAlignmentFixed(i), 9);
        QCOMPARE(grid.RowHeight(i), defaultHeight);
        QCOMPARE(grid.MergeRow(i), false);
        QCOMPARE(grid.MergeCol(i), false);
        QCOMPARE(grid.RowData(i), 0);
        QCOMPARE(grid.ColData(i), 0);
    }
    QCOMPARE(allTexts(grid), QStringList(4, QString()));
    QCOMPARE(grid.CellBackColor(), OleColor(0));
    QCOMPARE(grid.CellForeColor(), OleColor(0));
    QCOMPARE(grid.CellAlignment(), 9);
    QCOMPARE(grid.CellPictureAlignment(), 0);
    QVERIFY(grid.CellPicture().isNull());
    QCOMPARE(grid.CellTextStyle(), 0);
    QCOMPARE(grid.CellFontWidth(), 0.0f);
    QCOMPARE(grid.CellFontBold(), false);
    QCOMPARE(grid.CellFontItalic(), false);
    QCOMPARE(grid.CellFontUnderline(), false);
    QCOMPARE(grid.Font().family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(grid.Font().pointSizeF(), 9.0);
    QCOMPARE(grid.FontFixed(), grid.Font());
    QCOMPARE(grid.DataSource(), nullptr);
}

void tst_FlexGrid::invalidCallsRaise_data()
{
    QTest::addColumn<GridCall>("setup");
    QTest::addColumn<GridCall>("call");
    QTest::addColumn<int>("error");

    // Every call runs on a 5 × 4 grid (one fixed row and column), after `setup` if any.
    const GridCall noRows = [](FlexGrid& g) {
        g.setRows(0);
    };
    const auto add = [](const char* name, int error, const GridCall& call) {
        QTest::newRow(name) << GridCall() << call << error;
    };

    add("Rows -1", flexerrBadRow, [](FlexGrid& g) { g.setRows(-1); });
    add("Cols -1", flexerrBadCol, [](FlexGrid& g) { g.setCols(-1); });
    add("FixedRows -1", flexerrBadRow, [](FlexGrid& g) { g.setFixedRows(-1); });
    add("FixedCols -1", flexerrBadCol, [](FlexGrid& g) { g.setFixedCols(-1); });
    add("FixedRows = Rows", flexerrFixedRowsTooMany, [](FlexGrid& g) { g.setFixedRows(5); });
    add("FixedRows > Rows", flexerrFixedRowsTooMany, [](FlexGrid& g) { g.setFixedRows(6); });
    add("FixedCols = Cols", flexerrFixedColsTooMany, [](FlexGrid& g) { g.setFixedCols(4); });
    add("FixedCols > Cols", flexerrFixedColsTooMany, [](FlexGrid& g) { g.setFixedCols(9); });

    add("TextMatrix get row Rows", flexerrSubscriptOutOfRange,
        [](FlexGrid& g) { g.TextMatrix(5, 0); });
    add("TextMatrix get col Cols", flexerrSubscriptOutOfRange,
        [](FlexGrid& g) { g.TextMatrix(0, 4); });
    add("TextMatrix get row -1", flexerrSubscriptOutOfRange,
        [](FlexGrid& g) { g.TextMatrix(-1, 0); });
    add("TextMatrix get col -1", flexerrSubscriptOutOfRange,
        [](FlexGrid& g) { g.TextMatrix(0, -1); });
    add("TextMatrix let row Rows", flexerrSubscriptOutOfRange,
        [](FlexGrid& g) { g.setTextMatrix(5, 1, QStringLiteral("x")); });
    add("TextMatrix let col -1", flexerrSubscriptOutOfRange,
        [](FlexGrid& g) { g.setTextMatrix(1, -1, QStringLiteral("x")); });
    add("TextArray get Rows*Cols", flexerrSubscriptOutOfRange,
        [](FlexGrid& g) { g.TextArray(20); });
    add("TextArray get -1", flexerrSubscriptOutOfRange, [](FlexGrid& g) { g.TextArray(-1); });
    add("TextArray let Rows*Cols", flexerrSubscriptOutOfRange,
        [](FlexGrid& g) { g.setTextArray(20, QStringLiteral("x")); });

    add("Row Rows", flexerrBadRow, [](FlexGrid& g) { g.setRow(5); });
    add("Row -1", flexerrBadRow, [](FlexGrid& g) { g.setRow(-1); });
    add("Col Cols", flexerrBadCol, [](FlexGrid& g) { g.setCol(4); });
    add("Col -1", flexerrBadCol, [](FlexGrid& g) { g.setCol(-1); });
    add("RowSel Rows", flexerrBadRow, [](FlexGrid& g) { g.setRowSel(5); });
    add("ColSel -1", flexerrBadCol, [](FlexGrid& g) { g.setColSel(-1); });

    add("ColWidth let -2", flexerrBadColWidth, [](FlexGrid& g) { g.setColWidth(1, -2); });
    add("ColWidth let bad col", flexerrBadCol, [](FlexGrid& g) { g.setColWidth(4, 100); });
    add("ColWidth get bad col", flexerrBadCol, [](FlexGrid& g) { g.ColWidth(4); });
    add("RowHeight let -2", flexerrBadRowHeight, [](FlexGrid& g) { g.setRowHeight(1, -2); });
    add("RowHeight let bad row", flexerrBadRow, [](FlexGrid& g) { g.setRowHeight(5, 300); });
    add("RowHeight get bad row", flexerrBadRow, [](FlexGrid& g) { g.RowHeight(-1); });
    add("RowHeightMin -1", flexerrBadRowHeight, [](FlexGrid& g) { g.setRowHeightMin(-1); });
    add("TopRow -1", flexerrBadRow, [](FlexGrid& g) { g.setTopRow(-1); });
    add("TopRow Rows", flexerrBadRow, [](FlexGrid& g) { g.setTopRow(5); });
    add("LeftCol -1", flexerrBadCol, [](FlexGrid& g) { g.setLeftCol(-1); });
    add("LeftCol Cols", flexerrBadCol, [](FlexGrid& g) { g.setLeftCol(4); });
    add("RowPos bad row", flexerrBadRow, [](FlexGrid& g) { g.RowPos(5); });
    add("ColPos bad col", flexerrBadCol, [](FlexGrid& g) { g.ColPos(-1); });
    add("RowIsVisible bad row", flexerrBadRow, [](FlexGrid& g) { g.RowIsVisible(-1); });
    add("ColIsVisible bad col", flexerrBadCol, [](FlexGrid& g) { g.ColIsVisible(4); });

    add("CellAlignment 10", flexerrBadAlignment, [](FlexGrid& g) { g.setCellAlignment(10); });
    add("CellAlignment -1", flexerrBadAlignment, [](FlexGrid& g) { g.setCellAlignment(-1); });
    add("CellPictureAlignment 9", flexerrBadAlignment,
        [](FlexGrid& g) { g.setCellPictureAlignment(9); });
    add("CellPictureAlignment -1", flexerrBadAlignment,
        [](FlexGrid& g) { g.setCellPictureAlignment(-1); });
    add("ColAlignment get bad col", flexerrBadColForAlignment,
        [](FlexGrid& g) { g.ColAlignment(4); });
    add("ColAlignment let bad col", flexerrBadColForAlignment,
        [](FlexGrid& g) { g.setColAlignment(4, 1); });
    add("ColAlignment let col -2", flexerrBadColForAlignment,
        [](FlexGrid& g) { g.setColAlignment(-2, 1); });
    add("ColAlignment let 10", flexerrBadAlignment, [](FlexGrid& g) { g.setColAlignment(1, 10); });
    add("ColAlignmentFixed get bad col", flexerrBadColForAlignment,
        [](FlexGrid& g) { g.ColAlignmentFixed(-2); });
    add("ColAlignmentFixed let 10", flexerrBadAlignment,
        [](FlexGrid& g) { g.setColAlignmentFixed(1, 10); });
    add("MergeRow get bad row", flexerrBadRow, [](FlexGrid& g) { g.MergeRow(5); });
    add("MergeRow let bad row", flexerrBadRow, [](FlexGrid& g) { g.setMergeRow(-1, true); });
    add("MergeCol get bad col", flexerrBadCol, [](FlexGrid& g) { g.MergeCol(4); });
    add("MergeCol let bad col", flexerrBadCol, [](FlexGrid& g) { g.setMergeCol(-1, true); });

    add("AddItem on a fixed row", flexerrCannotAddFixedRow,
        [](FlexGrid& g) { g.AddItem(QStringLiteral("x"), 0); });
    add("AddItem index -1", flexerrNoSuchRow,
        [](FlexGrid& g) { g.AddItem(QStringLiteral("x"), -1); });
    add("AddItem index Rows+1", flexerrNoSuchRow,
        [](FlexGrid& g) { g.AddItem(QStringLiteral("x"), 6); });
    add("RemoveItem a fixed row", flexerrCannotRemoveFixedRow,
        [](FlexGrid& g) { g.RemoveItem(0); });
    add("RemoveItem index Rows", flexerrNoSuchRow, [](FlexGrid& g) { g.RemoveItem(5); });
    add("RemoveItem index -1", flexerrNoSuchRow, [](FlexGrid& g) { g.RemoveItem(-1); });
    add("ColPosition bad col", flexerrSubscriptOutOfRange,
        [](FlexGrid& g) { g.setColPosition(4, 1); });
    add("ColPosition bad target", flexerrSubscriptOutOfRange,
        [](FlexGrid& g) { g.setColPosition(1, 4); });
    add("RowPosition bad row", flexerrSubscriptOutOfRange,
        [](FlexGrid& g) { g.setRowPosition(-1, 1); });
    add("RowPosition bad target", flexerrSubscriptOutOfRange,
        [](FlexGrid& g) { g.setRowPosition(1, 5); });

    QTest::newRow("RemoveItem the last data row")
        << GridCall([](FlexGrid& g) { g.setRows(2); })
        << GridCall([](FlexGrid& g) { g.RemoveItem(1); }) << int(flexerrCannotRemoveLastRow);
    QTest::newRow("Text let without rows")
        << noRows << GridCall([](FlexGrid& g) { g.setText(QStringLiteral("x")); })
        << int(flexerrBadRow);
    QTest::newRow("CellBackColor get without rows")
        << noRows << GridCall([](FlexGrid& g) { g.CellBackColor(); }) << int(flexerrBadRow);
    QTest::newRow("CellBackColor let without rows")
        << noRows << GridCall([](FlexGrid& g) { g.setCellBackColor(255); }) << int(flexerrBadRow);
    QTest::newRow("CellFontBold let without rows")
        << noRows << GridCall([](FlexGrid& g) { g.setCellFontBold(true); }) << int(flexerrBadRow);
    QTest::newRow("Col let without rows")
        << noRows << GridCall([](FlexGrid& g) { g.setCol(1); }) << int(flexerrBadRow);
    QTest::newRow("CellLeft without rows")
        << noRows << GridCall([](FlexGrid& g) { g.CellLeft(); }) << int(flexerrBadRow);
    QTest::newRow("CellWidth without cols")
        << GridCall([](FlexGrid& g) { g.setCols(0); })
        << GridCall([](FlexGrid& g) { g.CellWidth(); }) << int(flexerrBadCol);
}

void tst_FlexGrid::invalidCallsRaise()
{
    QFETCH(GridCall, setup);
    QFETCH(GridCall, call);
    QFETCH(int, error);

    FlexGrid grid;
    grid.setRows(5);
    grid.setCols(4);
    if (setup)
        setup(grid);
    const QList<int> structure = structureOf(grid);
    const QStringList texts = allTexts(grid);
    EventLog log(grid);

    const std::optional<VemoError> raised = VemoTest::errorOf([&] { call(grid); });

    QVERIFY(raised.has_value());
    QCOMPARE(raised->number(), error);
    QCOMPARE(raised->description(), descriptionOf(error));
    QCOMPARE(structureOf(grid), structure);
    QCOMPARE(allTexts(grid), texts);
    QCOMPARE(log.names, QStringList());
}

void tst_FlexGrid::enumeratedPropertiesRejectOutOfRange_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<GridCall>("call");

    addEnumRow("FillStyle", &FlexGrid::setFillStyle, 2);
    addEnumRow("FillStyle", &FlexGrid::setFillStyle, -1);
    addEnumRow("SelectionMode", &FlexGrid::setSelectionMode, 3);
    addEnumRow("SelectionMode", &FlexGrid::setSelectionMode, -1);
    addEnumRow("GridLines", &FlexGrid::setGridLines, 6);
    addEnumRow("GridLines", &FlexGrid::setGridLines, -1);
    addEnumRow("GridLinesFixed", &FlexGrid::setGridLinesFixed, 6);
    addEnumRow("GridLinesFixed", &FlexGrid::setGridLinesFixed, -1);
    addEnumRow("HighLight", &FlexGrid::setHighLight, 3);
    addEnumRow("HighLight", &FlexGrid::setHighLight, -1);
    addEnumRow("FocusRect", &FlexGrid::setFocusRect, 3);
    addEnumRow("FocusRect", &FlexGrid::setFocusRect, -1);
    addEnumRow("TextStyle", &FlexGrid::setTextStyle, 5);
    addEnumRow("TextStyle", &FlexGrid::setTextStyle, -1);
    addEnumRow("TextStyleFixed", &FlexGrid::setTextStyleFixed, 5);
    addEnumRow("TextStyleFixed", &FlexGrid::setTextStyleFixed, -1);
    addEnumRow("AllowUserResizing", &FlexGrid::setAllowUserResizing, 4);
    addEnumRow("AllowUserResizing", &FlexGrid::setAllowUserResizing, -1);
    addEnumRow("ScrollBars", &FlexGrid::setScrollBars, 4);
    addEnumRow("ScrollBars", &FlexGrid::setScrollBars, -1);
    addEnumRow("MergeCells", &FlexGrid::setMergeCells, 5);
    addEnumRow("MergeCells", &FlexGrid::setMergeCells, -1);
    addEnumRow("PictureType", &FlexGrid::setPictureType, 2);
    addEnumRow("PictureType", &FlexGrid::setPictureType, -1);
    addEnumRow("MousePointer", &FlexGrid::setMousePointer, 16);
    addEnumRow("MousePointer", &FlexGrid::setMousePointer, 98);
    addEnumRow("MousePointer", &FlexGrid::setMousePointer, 100);
    addEnumRow("MousePointer", &FlexGrid::setMousePointer, -1);
    addEnumRow("GridLineWidth", &FlexGrid::setGridLineWidth, 0);
    addEnumRow("GridLineWidth", &FlexGrid::setGridLineWidth, -1);
}

void tst_FlexGrid::enumeratedPropertiesRejectOutOfRange()
{
    QFETCH(QByteArray, property);
    QFETCH(GridCall, call);

    FlexGrid grid;
    const QVariant before = grid.property(property.constData());
    QVERIFY(before.isValid());

    const std::optional<VemoError> raised = VemoTest::errorOf([&] { call(grid); });

    QVERIFY(raised.has_value());
    QCOMPARE(raised->number(), int(flexerrInvalidPropertyValue));
    QCOMPARE(raised->description(), descriptionOf(flexerrInvalidPropertyValue));
    QCOMPARE(grid.property(property.constData()), before);
}

void tst_FlexGrid::enumeratedPropertiesAcceptTheirRange_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QList<int>>("values");

    const auto range = [](int first, int last) {
        QList<int> values;
        for (int v = first; v <= last; ++v)
            values << v;
        return values;
    };
    QTest::newRow("FillStyle") << QByteArray("FillStyle") << range(0, 1);
    QTest::newRow("SelectionMode") << QByteArray("SelectionMode") << range(0, 2);
    QTest::newRow("GridLines") << QByteArray("GridLines") << range(0, 5);
    QTest::newRow("GridLinesFixed") << QByteArray("GridLinesFixed") << range(0, 5);
    QTest::newRow("HighLight") << QByteArray("HighLight") << range(0, 2);
    QTest::newRow("FocusRect") << QByteArray("FocusRect") << range(0, 2);
    QTest::newRow("TextStyle") << QByteArray("TextStyle") << range(0, 4);
    QTest::newRow("TextStyleFixed") << QByteArray("TextStyleFixed") << range(0, 4);
    QTest::newRow("AllowUserResizing") << QByteArray("AllowUserResizing") << range(0, 3);
    QTest::newRow("ScrollBars") << QByteArray("ScrollBars") << range(0, 3);
    QTest::newRow("MergeCells") << QByteArray("MergeCells") << range(0, 4);
    QTest::newRow("PictureType") << QByteArray("PictureType") << range(0, 1);
    QTest::newRow("MousePointer") << QByteArray("MousePointer") << range(0, 15) + QList<int>{99};
    QTest::newRow("GridLineWidth") << QByteArray("GridLineWidth") << QList<int>{1, 2, 5};
    QTest::newRow("RowHeightMin") << QByteArray("RowHeightMin") << QList<int>{0, 450, 15};
}

void tst_FlexGrid::enumeratedPropertiesAcceptTheirRange()
{
    QFETCH(QByteArray, property);
    QFETCH(QList<int>, values);

    FlexGrid grid;
    for (int value : values) {
        QVERIFY(grid.setProperty(property.constData(), value));
        QCOMPARE(grid.property(property.constData()).toInt(), value);
    }
}

void tst_FlexGrid::growingAddsEmptyRowsAndColumns()
{
    FlexGrid grid;
    const int defaultHeight = grid.RowHeight(1);
    grid.setRows(5);
    grid.setCols(4);

    QCOMPARE(grid.Rows(), 5);
    QCOMPARE(grid.Cols(), 4);
    QCOMPARE(allTexts(grid), QStringList(20, QString()));
    QCOMPARE(grid.RowHeight(4), defaultHeight);
    QCOMPARE(grid.ColWidth(3), -1);
    QCOMPARE(grid.ColAlignment(3), 9);
    QCOMPARE(cellsOf(grid).hasFormat(4, 3), false);
}

void tst_FlexGrid::shrinkingDiscardsFromTheEnd()
{
    FlexGrid grid;
    grid.setRows(5);
    grid.setCols(4);
    grid.setTextMatrix(4, 1, QStringLiteral("last row"));
    grid.setTextMatrix(1, 3, QStringLiteral("last col"));
    grid.setTextMatrix(2, 2, QStringLiteral("kept"));
    grid.setColWidth(3, 1200);

    grid.setRows(3);
    grid.setCols(3);
    QCOMPARE(grid.Rows(), 3);
    QCOMPARE(grid.Cols(), 3);
    grid.setRows(5);
    grid.setCols(4);

    QCOMPARE(grid.TextMatrix(4, 1), QString());
    QCOMPARE(grid.TextMatrix(1, 3), QString());
    QCOMPARE(grid.TextMatrix(2, 2), QStringLiteral("kept"));
    QCOMPARE(grid.ColWidth(3), -1);
}

void tst_FlexGrid::countsBelowTheFixedCountsLowerThem_data()
{
    QTest::addColumn<bool>("columns");
    QTest::addColumn<int>("count");

    QTest::newRow("Rows 2") << false << 2;
    QTest::newRow("Rows 1") << false << 1;
    QTest::newRow("Rows 0") << false << 0;
    QTest::newRow("Cols 2") << true << 2;
    QTest::newRow("Cols 1") << true << 1;
    QTest::newRow("Cols 0") << true << 0;
}

void tst_FlexGrid::countsBelowTheFixedCountsLowerThem()
{
    QFETCH(bool, columns);
    QFETCH(int, count);

    FlexGrid grid;
    grid.setRows(6);
    grid.setCols(6);
    grid.setFixedRows(3);
    grid.setFixedCols(3);

    if (columns) {
        grid.setCols(count);
        QCOMPARE(grid.Cols(), count);
        QCOMPARE(grid.FixedCols(), count);
        QCOMPARE(grid.FixedRows(), 3);
    } else {
        grid.setRows(count);
        QCOMPARE(grid.Rows(), count);
        QCOMPARE(grid.FixedRows(), count);
        QCOMPARE(grid.FixedCols(), 3);
    }
}

void tst_FlexGrid::rowsEqualToFixedRowsIsAccepted()
{
    FlexGrid grid;
    QCOMPARE(VemoTest::errorNumberOf([&] { grid.setRows(1); }), 0);
    QCOMPARE(VemoTest::errorNumberOf([&] { grid.setCols(1); }), 0);
    QCOMPARE(grid.Rows(), 1);
    QCOMPARE(grid.Cols(), 1);
    QCOMPARE(grid.FixedRows(), 1);
    QCOMPARE(grid.FixedCols(), 1);
    QCOMPARE(grid.Row(), 0);
    QCOMPARE(grid.Col(), 0);
}

void tst_FlexGrid::shrinkingClampsTheCurrentCell_data()
{
    QTest::addColumn<bool>("columns");

    QTest::newRow("Rows") << false;
    QTest::newRow("Cols") << true;
}

void tst_FlexGrid::shrinkingClampsTheCurrentCell()
{
    QFETCH(bool, columns);

    FlexGrid grid;
    grid.setRows(10);
    grid.setCols(10);
    grid.setRow(8);
    grid.setCol(8);
    QStringList seen;
    QObject::connect(&grid, &FlexGrid::LeaveCell, [&] {
        seen << QStringLiteral("LeaveCell %1,%2").arg(grid.Row()).arg(grid.Col());
    });
    EventLog log(grid);

    if (columns)
        grid.setCols(5);
    else
        grid.setRows(5);

    QCOMPARE(log.cellEvents(), CellMove);
    QCOMPARE(seen, QStringList{QStringLiteral("LeaveCell 8,8")});
    QCOMPARE(grid.Row(), columns ? 8 : 4);
    QCOMPARE(grid.Col(), columns ? 4 : 8);
    QCOMPARE(grid.RowSel(), grid.Row());
    QCOMPARE(grid.ColSel(), grid.Col());
}

void tst_FlexGrid::shrinkingClampsOnlyTheSelection()
{
    FlexGrid grid;
    grid.setRows(10);
    grid.setCols(10);
    setSelection(grid, 2, 2, 8, 8);
    EventLog log(grid);

    grid.setRows(5);

    QCOMPARE(log.cellEvents(), SelChangeOnly);
    QCOMPARE(grid.Row(), 2);
    QCOMPARE(grid.RowSel(), 4);
    QCOMPARE(grid.ColSel(), 8);
}

void tst_FlexGrid::dataRowsAppearingMoveTheCurrentRow()
{
    FlexGrid grid;
    grid.setRows(1);
    QCOMPARE(grid.Row(), 0);
    EventLog log(grid);

    grid.setRows(4);

    QCOMPARE(grid.Row(), 1);
    QCOMPARE(grid.RowSel(), 1);
    QCOMPARE(log.cellEvents(), CellMove);
}

void tst_FlexGrid::shrinkingReclampsTopRow()
{
    FlexGrid grid;
    QVERIFY(setUpScrollGrid(grid));
    grid.setTopRow(MaxTopRow);
    QCOMPARE(grid.TopRow(), MaxTopRow);

    grid.setRows(20);

    QCOMPARE(grid.TopRow(), 20 - VisibleDataRows);
}

void tst_FlexGrid::fixedRowsMoveTheCurrentCell()
{
    FlexGrid grid;
    grid.setRows(6);
    grid.setCols(6);
    grid.setRow(4);
    grid.setCol(3);
    EventLog log(grid);

    grid.setFixedRows(2);

    QCOMPARE(grid.FixedRows(), 2);
    QCOMPARE(grid.Row(), 2);
    QCOMPARE(grid.RowSel(), 2);
    QCOMPARE(grid.TopRow(), 2);
    QCOMPARE(grid.Col(), 3);
    QCOMPARE(log.cellEvents(), CellMove);

    grid.setFixedRows(0);

    QCOMPARE(grid.FixedRows(), 0);
    QCOMPARE(grid.Row(), 0);
    QCOMPARE(grid.RowSel(), 0);
    QCOMPARE(grid.TopRow(), 0);
}

void tst_FlexGrid::fixedColsMoveTheCurrentCell()
{
    FlexGrid grid;
    grid.setRows(6);
    grid.setCols(6);
    grid.setRow(3);
    grid.setCol(4);
    EventLog log(grid);

    grid.setFixedCols(2);

    QCOMPARE(grid.FixedCols(), 2);
    QCOMPARE(grid.Col(), 2);
    QCOMPARE(grid.ColSel(), 2);
    QCOMPARE(grid.LeftCol(), 2);
    QCOMPARE(grid.Row(), 3);
    QCOMPARE(log.cellEvents(), CellMove);

    grid.setFixedCols(0);

    QCOMPARE(grid.FixedCols(), 0);
    QCOMPARE(grid.Col(), 0);
    QCOMPARE(grid.ColSel(), 0);
    QCOMPARE(grid.LeftCol(), 0);
}

void tst_FlexGrid::textMatrixReachesEveryCellSilently()
{
    FlexGrid grid;
    grid.setRows(4);
    grid.setCols(3);
    grid.setFillStyle(flexFillRepeat);
    setSelection(grid, 1, 1, 3, 2);
    const QList<int> structure = structureOf(grid);
    EventLog log(grid);

    QStringList expected;
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 3; ++c) {
            expected << QStringLiteral("%1:%2").arg(r).arg(c);
            grid.setTextMatrix(r, c, expected.last());
        }
    }

    QCOMPARE(allTexts(grid), expected);
    QCOMPARE(structureOf(grid), structure);
    QCOMPARE(log.names, QStringList());
}

void tst_FlexGrid::textWritesTheCurrentCell()
{
    FlexGrid grid;
    grid.setRows(4);
    grid.setCols(3);
    setSelection(grid, 2, 1, 3, 2);
    EventLog log(grid);

    grid.setText(QStringLiteral("here"));

    QCOMPARE(grid.Text(), QStringLiteral("here"));
    QStringList expected(12, QString());
    expected[2 * 3 + 1] = QStringLiteral("here");
    QCOMPARE(allTexts(grid), expected);
    QCOMPARE(log.names, QStringList());

    grid.setTextMatrix(2, 1, QStringLiteral("other"));
    QCOMPARE(grid.Text(), QStringLiteral("other"));
}

void tst_FlexGrid::textWithFillRepeatWritesTheSelection_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<int>("rowSel");
    QTest::addColumn<int>("colSel");

    QTest::newRow("top-left to bottom-right") << 1 << 1 << 3 << 2;
    QTest::newRow("bottom-right to top-left") << 3 << 2 << 1 << 1;
    QTest::newRow("bottom-left to top-right") << 4 << 1 << 2 << 3;
    QTest::newRow("single cell") << 2 << 2 << 2 << 2;
    QTest::newRow("with fixed cells") << 1 << 1 << 0 << 0;
}

void tst_FlexGrid::textWithFillRepeatWritesTheSelection()
{
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(int, rowSel);
    QFETCH(int, colSel);

    FlexGrid grid;
    grid.setRows(5);
    grid.setCols(4);
    grid.setFillStyle(flexFillRepeat);
    setSelection(grid, row, col, rowSel, colSel);
    const QList<int> structure = structureOf(grid);
    EventLog log(grid);

    grid.setText(QStringLiteral("fill"));

    for (int r = 0; r < 5; ++r) {
        for (int c = 0; c < 4; ++c) {
            const bool inside = r >= std::min(row, rowSel) && r <= std::max(row, rowSel) &&
                                c >= std::min(col, colSel) && c <= std::max(col, colSel);
            QCOMPARE(grid.TextMatrix(r, c), inside ? QStringLiteral("fill") : QString());
        }
    }
    QCOMPARE(structureOf(grid), structure);
    QCOMPARE(log.names, QStringList());
}

void tst_FlexGrid::textArrayIndexesRowTimesColsPlusCol()
{
    FlexGrid grid;
    grid.setRows(3);
    grid.setCols(4);
    for (int i = 0; i < 12; ++i)
        grid.setTextArray(i, QString::number(i));

    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 4; ++c) {
            QCOMPARE(grid.TextMatrix(r, c), QString::number(r * 4 + c));
            QCOMPARE(grid.TextArray(r * 4 + c), QString::number(r * 4 + c));
        }
    }

    grid.setCols(5);
    QCOMPARE(grid.TextArray(5), grid.TextMatrix(1, 0));
    QCOMPARE(grid.TextArray(14), grid.TextMatrix(2, 4));
    QCOMPARE(VemoTest::errorNumberOf([&] { grid.TextArray(15); }), int(flexerrSubscriptOutOfRange));
}

void tst_FlexGrid::textWithoutCurrentCellReadsEmpty()
{
    FlexGrid grid;
    grid.setTextMatrix(0, 0, QStringLiteral("corner"));
    grid.setRows(0);
    QCOMPARE(grid.Text(), QString());
}

void tst_FlexGrid::currentCellMovesFireTheCellEvents_data()
{
    QTest::addColumn<GridCall>("move");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QPoint>("cell");

    // QPoint(Col, Row) after the move; the grid is 6 × 6 with (1,1) current.
    QTest::newRow("Row to 3") << GridCall([](FlexGrid& g) { g.setRow(3); }) << CellMove
                              << QPoint(1, 3);
    QTest::newRow("Col to 2") << GridCall([](FlexGrid& g) { g.setCol(2); }) << CellMove
                              << QPoint(2, 1);
    QTest::newRow("Row to the fixed row")
        << GridCall([](FlexGrid& g) { g.setRow(0); }) << CellMove << QPoint(1, 0);
    QTest::newRow("Row unchanged")
        << GridCall([](FlexGrid& g) { g.setRow(1); }) << QStringList() << QPoint(1, 1);
    QTest::newRow("Col unchanged")
        << GridCall([](FlexGrid& g) { g.setCol(1); }) << QStringList() << QPoint(1, 1);
}

void tst_FlexGrid::currentCellMovesFireTheCellEvents()
{
    QFETCH(GridCall, move);
    QFETCH(QStringList, events);
    QFETCH(QPoint, cell);

    FlexGrid grid;
    grid.setRows(6);
    grid.setCols(6);
    EventLog log(grid);

    move(grid);

    QCOMPARE(log.names, events);
    QCOMPARE(grid.Row(), cell.y());
    QCOMPARE(grid.Col(), cell.x());
    QCOMPARE(grid.RowSel(), cell.y());
    QCOMPARE(grid.ColSel(), cell.x());
}

void tst_FlexGrid::cellEventsSeeTheOldCellThenTheNew()
{
    FlexGrid grid;
    grid.setRows(6);
    grid.setCols(6);
    QStringList seen;
    const auto record = [&](const char* name) {
        return [&seen, &grid, name] {
            seen << QStringLiteral("%1 %2,%3 sel %4,%5")
                        .arg(QLatin1String(name))
                        .arg(grid.Row())
                        .arg(grid.Col())
                        .arg(grid.RowSel())
                        .arg(grid.ColSel());
        };
    };
    QObject::connect(&grid, &FlexGrid::LeaveCell, record("LeaveCell"));
    QObject::connect(&grid, &FlexGrid::SelChange, record("SelChange"));
    QObject::connect(&grid, &FlexGrid::EnterCell, record("EnterCell"));
    QObject::connect(&grid, &FlexGrid::RowColChange, record("RowColChange"));

    grid.setRow(3);

    const QStringList expected = {
        QStringLiteral("LeaveCell 1,1 sel 1,1"),
        QStringLiteral("SelChange 3,1 sel 3,1"),
        QStringLiteral("EnterCell 3,1 sel 3,1"),
        QStringLiteral("RowColChange 3,1 sel 3,1"),
    };
    QCOMPARE(seen, expected);
}

void tst_FlexGrid::sameRowCollapsesTheSelection()
{
    FlexGrid grid;
    grid.setRows(6);
    grid.setCols(6);
    setSelection(grid, 1, 1, 3, 4);
    EventLog log(grid);

    grid.setRow(1);

    QCOMPARE(log.names, SelChangeOnly);
    QCOMPARE(grid.RowSel(), 1);
    QCOMPARE(grid.ColSel(), 1);

    grid.setColSel(3);
    log.names.clear();
    grid.setCol(1);

    QCOMPARE(log.names, SelChangeOnly);
    QCOMPARE(grid.ColSel(), 1);
}

void tst_FlexGrid::selectionCornersFireSelChangeOnly()
{
    FlexGrid grid;
    grid.setRows(6);
    grid.setCols(6);
    EventLog log(grid);

    grid.setRowSel(4);
    QCOMPARE(log.names, SelChangeOnly);
    QCOMPARE(grid.RowSel(), 4);
    QCOMPARE(grid.Row(), 1);

    log.names.clear();
    grid.setRowSel(4);
    QCOMPARE(log.names, QStringList());

    grid.setColSel(5);
    QCOMPARE(log.names, SelChangeOnly);
    QCOMPARE(grid.ColSel(), 5);
    QCOMPARE(grid.Col(), 1);

    log.names.clear();
    grid.setRowSel(0);
    QCOMPARE(log.names, SelChangeOnly);
    QCOMPARE(grid.RowSel(), 0);
    QCOMPARE(grid.Row(), 1);
    QCOMPARE(grid.TopRow(), 1);
}

void tst_FlexGrid::selectionModeWidensTheSelection()
{
    FlexGrid grid;
    grid.setRows(5);
    grid.setCols(6);

    grid.setSelectionMode(flexSelectionByRow);
    grid.setRow(2);
    QCOMPARE(grid.Row(), 2);
    QCOMPARE(grid.RowSel(), 2);
    QCOMPARE(grid.ColSel(), 5);

    grid.setSelectionMode(flexSelectionByColumn);
    grid.setCol(3);
    QCOMPARE(grid.Col(), 3);
    QCOMPARE(grid.ColSel(), 3);
    QCOMPARE(grid.RowSel(), 4);
}

void tst_FlexGrid::settingRowDoesNotScroll()
{
    FlexGrid grid;
    QVERIFY(setUpScrollGrid(grid));
    EventLog log(grid);

    grid.setRow(30);
    grid.setCol(10);

    QCOMPARE(grid.TopRow(), 1);
    QCOMPARE(grid.LeftCol(), 1);
    QCOMPARE(log.count(QStringLiteral("Scroll")), 0);
    QVERIFY(!grid.RowIsVisible(30));
    QVERIFY(!grid.ColIsVisible(10));
}

void tst_FlexGrid::colWidthMarksDefaultColumns()
{
    FlexGrid grid;
    grid.setCols(4);
    QCOMPARE(grid.ColWidth(2), -1);

    grid.setColWidth(2, 1200);
    QCOMPARE(grid.ColWidth(2), 1200);
    grid.setColWidth(2, 1000);
    QCOMPARE(grid.ColWidth(2), 1000);
    grid.setColWidth(2, 0);
    QCOMPARE(grid.ColWidth(2), 0);
    grid.setColWidth(2, -1);
    QCOMPARE(grid.ColWidth(2), -1);
    QCOMPARE(grid.ColWidth(1), -1);
}

void tst_FlexGrid::colWidthIndexMinusOneSetsAll()
{
    FlexGrid grid;
    grid.setCols(4);
    grid.setColWidth(-1, 600);
    for (int c = 0; c < 4; ++c)
        QCOMPARE(grid.ColWidth(c), 600);
    grid.setColWidth(-1, -1);
    for (int c = 0; c < 4; ++c)
        QCOMPARE(grid.ColWidth(c), -1);
}

void tst_FlexGrid::hiddenColumnTakesNoSpace()
{
    FlexGrid grid;
    grid.setCols(4);
    grid.setColWidth(-1, 900);

    QCOMPARE(grid.ColPos(1), 900);
    QCOMPARE(grid.ColPos(2), 1800);
    grid.setColWidth(1, 0);
    QCOMPARE(grid.ColPos(2), grid.ColPos(1));
    QCOMPARE(grid.ColPos(3), grid.ColPos(1) + 900);
    grid.setColWidth(1, -1);
    QVERIFY(grid.ColPos(2) > grid.ColPos(1));
}

void tst_FlexGrid::rowHeightReadsTheEffectiveHeight()
{
    FlexGrid grid;
    grid.setRows(4);
    const int defaultHeight = grid.RowHeight(2);
    QVERIFY(defaultHeight > 0);

    grid.setRowHeight(2, 600);
    QCOMPARE(grid.RowHeight(2), 600);
    QCOMPARE(grid.RowPos(3) - grid.RowPos(2), 600);
    grid.setRowHeight(2, 0);
    QCOMPARE(grid.RowHeight(2), 0);
    QCOMPARE(grid.RowPos(3), grid.RowPos(2));
    grid.setRowHeight(2, -1);
    QCOMPARE(grid.RowHeight(2), defaultHeight);
    QCOMPARE(grid.RowHeight(3), defaultHeight);
}

void tst_FlexGrid::defaultSizesFollowTheFont()
{
    FlexGrid grid;
    const int smallHeight = grid.RowHeight(1);
    const int smallWidth = grid.ColPos(1) - grid.ColPos(0);
    grid.setFont(QFont(QStringLiteral("DejaVu Sans"), 20));
    QVERIFY(grid.RowHeight(1) > smallHeight);
    QVERIFY(grid.ColPos(1) - grid.ColPos(0) > smallWidth);
    QCOMPARE(grid.ColWidth(0), -1);
}

void tst_FlexGrid::rowHeightMinRaisesVisibleRows()
{
    FlexGrid grid;
    grid.setRows(5);
    for (int r = 0; r < 5; ++r)
        grid.setRowHeight(r, 300);
    grid.setRowHeight(3, 0);

    grid.setRowHeightMin(600);

    QCOMPARE(grid.RowHeightMin(), 600);
    QCOMPARE(grid.RowPos(2) - grid.RowPos(1), 600);
    QCOMPARE(grid.RowPos(3) - grid.RowPos(2), 600);
    QCOMPARE(grid.RowPos(4), grid.RowPos(3));

    grid.setRowHeightMin(0);
    QCOMPARE(grid.RowPos(2) - grid.RowPos(1), 300);
}

void tst_FlexGrid::topRowIsClamped_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("expected");

    QTest::newRow("inside") << 5 << 5;
    QTest::newRow("the maximum") << MaxTopRow << MaxTopRow;
    QTest::newRow("above the maximum") << MaxTopRow + 4 << MaxTopRow;
    QTest::newRow("the last row") << ScrollRows - 1 << MaxTopRow;
    QTest::newRow("a fixed row") << 0 << 1;
    QTest::newRow("the first data row") << 1 << 1;
}

void tst_FlexGrid::topRowIsClamped()
{
    QFETCH(int, value);
    QFETCH(int, expected);

    FlexGrid grid;
    QVERIFY(setUpScrollGrid(grid));
    grid.setTopRow(20);
    QCOMPARE(grid.TopRow(), 20);

    grid.setTopRow(value);

    QCOMPARE(grid.TopRow(), expected);
    QCOMPARE(grid.Row(), 1);
}

void tst_FlexGrid::topRowFiresScrollOnlyWhenItMoves()
{
    FlexGrid grid;
    QVERIFY(setUpScrollGrid(grid));
    EventLog log(grid);

    grid.setTopRow(5);
    QCOMPARE(log.names, QStringList{QStringLiteral("Scroll")});

    log.names.clear();
    grid.setTopRow(5);
    QCOMPARE(log.names, QStringList());

    grid.setTopRow(MaxTopRow);
    log.names.clear();
    grid.setTopRow(ScrollRows - 1);
    QCOMPARE(log.names, QStringList());

    grid.setLeftCol(4);
    QCOMPARE(log.names, QStringList{QStringLiteral("Scroll")});
}

void tst_FlexGrid::scrollingNeedsTheScrollBar_data()
{
    QTest::addColumn<int>("bars");
    QTest::addColumn<int>("topRow");
    QTest::addColumn<int>("leftCol");

    QTest::newRow("none") << int(flexScrollBarNone) << 1 << 1;
    QTest::newRow("horizontal") << int(flexScrollBarHorizontal) << 1 << 3;
    QTest::newRow("vertical") << int(flexScrollBarVertical) << 5 << 1;
    QTest::newRow("both") << int(flexScrollBarBoth) << 5 << 3;
}

void tst_FlexGrid::scrollingNeedsTheScrollBar()
{
    QFETCH(int, bars);
    QFETCH(int, topRow);
    QFETCH(int, leftCol);

    FlexGrid grid;
    QVERIFY(setUpScrollGrid(grid));
    grid.setScrollBars(bars);
    EventLog log(grid);

    grid.setTopRow(5);
    grid.setLeftCol(3);

    QCOMPARE(grid.TopRow(), topRow);
    QCOMPARE(grid.LeftCol(), leftCol);
    QCOMPARE(log.count(QStringLiteral("Scroll")), int(topRow != 1) + int(leftCol != 1));
}

void tst_FlexGrid::leftColIsClamped_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("expected");

    QTest::newRow("inside") << 3 << 3;
    QTest::newRow("the maximum") << MaxLeftCol << MaxLeftCol;
    QTest::newRow("the last column") << ScrollCols - 1 << MaxLeftCol;
    QTest::newRow("a fixed column") << 0 << 1;
}

void tst_FlexGrid::leftColIsClamped()
{
    QFETCH(int, value);
    QFETCH(int, expected);

    FlexGrid grid;
    QVERIFY(setUpScrollGrid(grid));
    grid.setLeftCol(5);
    QCOMPARE(grid.LeftCol(), 5);

    grid.setLeftCol(value);

    QCOMPARE(grid.LeftCol(), expected);
    QCOMPARE(grid.Col(), 1);
}

void tst_FlexGrid::positionsFollowScrolling()
{
    FlexGrid grid;
    QVERIFY(setUpScrollGrid(grid));
    QCOMPARE(grid.ColPos(0), 0);
    QCOMPARE(grid.ColPos(1), FixedColTwips);
    QCOMPARE(grid.ColPos(2), FixedColTwips + ColTwips);
    QCOMPARE(grid.RowPos(0), 0);
    QCOMPARE(grid.RowPos(1), RowTwips);
    QCOMPARE(grid.RowPos(2), 2 * RowTwips);

    grid.setLeftCol(3);
    grid.setTopRow(5);

    QCOMPARE(grid.ColPos(0), 0);
    QCOMPARE(grid.ColPos(3), FixedColTwips);
    QCOMPARE(grid.ColPos(4), FixedColTwips + ColTwips);
    QCOMPARE(grid.ColPos(2), FixedColTwips - ColTwips);
    QCOMPARE(grid.ColPos(1), FixedColTwips - 2 * ColTwips);
    QCOMPARE(grid.RowPos(0), 0);
    QCOMPARE(grid.RowPos(5), RowTwips);
    QCOMPARE(grid.RowPos(6), 2 * RowTwips);
    QCOMPARE(grid.RowPos(4), 0);
    QCOMPARE(grid.RowPos(1), -3 * RowTwips);
}

void tst_FlexGrid::visibilityFollowsScrolling()
{
    FlexGrid grid;
    QVERIFY(setUpScrollGrid(grid));
    grid.setLeftCol(3);
    grid.setTopRow(5);

    for (int r = 0; r < ScrollRows; ++r) {
        const bool visible = r == 0 || (r >= 5 && r < 5 + VisibleDataRows);
        QVERIFY2(grid.RowIsVisible(r) == visible, qPrintable(QString::number(r)));
    }
    for (int c = 0; c < ScrollCols; ++c) {
        const bool visible = c == 0 || (c >= 3 && c < 3 + VisibleDataCols);
        QVERIFY2(grid.ColIsVisible(c) == visible, qPrintable(QString::number(c)));
    }
}

void tst_FlexGrid::cellGeometryScrollsTheCellIntoView_data()
{
    QTest::addColumn<GridCall>("read");

    QTest::newRow("CellLeft") << GridCall([](FlexGrid& g) { g.CellLeft(); });
    QTest::newRow("CellTop") << GridCall([](FlexGrid& g) { g.CellTop(); });
    QTest::newRow("CellWidth") << GridCall([](FlexGrid& g) { g.CellWidth(); });
    QTest::newRow("CellHeight") << GridCall([](FlexGrid& g) { g.CellHeight(); });
}

void tst_FlexGrid::cellGeometryScrollsTheCellIntoView()
{
    QFETCH(GridCall, read);

    FlexGrid grid;
    QVERIFY(setUpScrollGrid(grid));
    grid.setRow(20);
    grid.setCol(10);
    EventLog log(grid);

    read(grid);

    QVERIFY(log.count(QStringLiteral("Scroll")) >= 1);
    QCOMPARE(log.cellEvents(), QStringList());
    QCOMPARE(grid.Row(), 20);
    QCOMPARE(grid.Col(), 10);
    const QSize viewportTwips = ScrollViewport * TwipsPerPixel;
    QVERIFY(grid.RowPos(20) >= RowTwips);
    QVERIFY(grid.RowPos(20) + RowTwips <= viewportTwips.height());
    QVERIFY(grid.ColPos(10) >= FixedColTwips);
    QVERIFY(grid.ColPos(10) + ColTwips <= viewportTwips.width());

    log.names.clear();
    const QPoint offset = viewportOffsetTwips(grid);
    QCOMPARE(grid.CellLeft(), offset.x() + grid.ColPos(10));
    QCOMPARE(grid.CellTop(), offset.y() + grid.RowPos(20));
    QCOMPARE(grid.CellWidth(), ColTwips - TwipsPerPixel);
    QCOMPARE(grid.CellHeight(), RowTwips - TwipsPerPixel);
    QCOMPARE(log.names, QStringList());
}

void tst_FlexGrid::cellGeometryOfAVisibleCellDoesNotScroll()
{
    FlexGrid grid;
    QVERIFY(setUpScrollGrid(grid));
    grid.setRow(2);
    grid.setCol(2);
    EventLog log(grid);

    const QPoint offset = viewportOffsetTwips(grid);
    QCOMPARE(grid.CellLeft(), offset.x() + FixedColTwips + ColTwips);
    QCOMPARE(grid.CellTop(), offset.y() + 2 * RowTwips);
    QCOMPARE(grid.CellWidth(), ColTwips - TwipsPerPixel);
    QCOMPARE(grid.CellHeight(), RowTwips - TwipsPerPixel);
    QCOMPARE(log.names, QStringList());
    QCOMPARE(grid.TopRow(), 1);
    QCOMPARE(grid.LeftCol(), 1);
}

void tst_FlexGrid::hiddenCellsGiveNegativeSizes()
{
    FlexGrid grid;
    QVERIFY(setUpScrollGrid(grid));
    grid.setColWidth(3, 0);
    grid.setRowHeight(3, 0);
    grid.setRow(3);
    grid.setCol(3);

    QCOMPARE(grid.CellWidth(), -TwipsPerPixel);
    QCOMPARE(grid.CellHeight(), -TwipsPerPixel);
}

void tst_FlexGrid::scrollVerticallyMovesTopRowOnly_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("request");
    QTest::addColumn<int>("expected");

    QTest::newRow("line down") << 1 << int(flexLineDown) << 2;
    QTest::newRow("line up") << 5 << int(flexLineUp) << 4;
    QTest::newRow("line up at the top") << 1 << int(flexLineUp) << 1;
    QTest::newRow("line down at the bottom") << MaxTopRow << int(flexLineDown) << MaxTopRow;
    QTest::newRow("page down") << 1 << int(flexPageDown) << 1 + VisibleDataRows;
    QTest::newRow("page down near the bottom") << MaxTopRow - 3 << int(flexPageDown) << MaxTopRow;
    QTest::newRow("page up") << 20 << int(flexPageUp) << 20 - VisibleDataRows;
    QTest::newRow("page up near the top") << 5 << int(flexPageUp) << 1;
    QTest::newRow("page up at the top") << 1 << int(flexPageUp) << 1;
}

void tst_FlexGrid::scrollVerticallyMovesTopRowOnly()
{
    QFETCH(int, start);
    QFETCH(int, request);
    QFETCH(int, expected);

    FlexGrid grid;
    QVERIFY(setUpScrollGrid(grid));
    grid.setTopRow(start);
    grid.setRow(3);
    EventLog log(grid);

    grid.scrollVertically(request);

    QCOMPARE(grid.TopRow(), expected);
    QCOMPARE(grid.Row(), 3);
    QCOMPARE(grid.RowSel(), 3);
    const QStringList scrolls =
        expected == start ? QStringList() : QStringList{QStringLiteral("Scroll")};
    QCOMPARE(log.names, scrolls);
}

void tst_FlexGrid::cellColorsReadBackExactly_data()
{
    QTest::addColumn<quint32>("color");

    QTest::newRow("green") << quint32(0x00FF00);
    QTest::newRow("black as 1") << quint32(1);
    QTest::newRow("white") << quint32(0xFFFFFF);
    QTest::newRow("system button face") << quint32(0x8000000F);
}

void tst_FlexGrid::cellColorsReadBackExactly()
{
    QFETCH(quint32, color);

    FlexGrid grid;
    grid.setRows(4);
    grid.setCols(4);
    grid.setRow(2);
    grid.setCol(2);
    QCOMPARE(grid.CellBackColor(), OleColor(0));

    grid.setCellBackColor(color);
    grid.setCellForeColor(color ^ 0x0000FF);

    QCOMPARE(grid.CellBackColor(), color);
    QCOMPARE(grid.CellForeColor(), color ^ 0x0000FF);
    grid.setCol(3);
    QCOMPARE(grid.CellBackColor(), OleColor(0));
    QCOMPARE(grid.CellForeColor(), OleColor(0));
    grid.setCol(2);
    grid.setCellForeColor(grid.CellBackColor());
    QCOMPARE(grid.CellForeColor(), color);
}

void tst_FlexGrid::cellLooksWithFillRepeatReachTheSelection()
{
    FlexGrid grid;
    grid.setRows(5);
    grid.setCols(4);
    setSelection(grid, 3, 2, 1, 1);
    EventLog log(grid);

    grid.setCellBackColor(0x111111);
    grid.setFillStyle(flexFillRepeat);
    grid.setCellForeColor(0x222222);
    grid.setCellFontBold(true);
    grid.setCellAlignment(flexAlignCenterCenter);
    const QPixmap picture = filledPixmap(Qt::yellow);
    grid.setCellPicture(picture);

    const FlexCellStore& cells = cellsOf(grid);
    for (int r = 0; r < 5; ++r) {
        for (int c = 0; c < 4; ++c) {
            const bool inside = r >= 1 && r <= 3 && c >= 1 && c <= 2;
            const FlexCellFormat& look = cells.format(r, c);
            QCOMPARE(look.backColor, OleColor(r == 3 && c == 2 ? 0x111111 : 0));
            QCOMPARE(look.foreColor, OleColor(inside ? 0x222222 : 0));
            QCOMPARE(int(look.bold), inside ? 1 : -1);
            QCOMPARE(int(look.alignment), inside ? int(flexAlignCenterCenter) : -1);
            QCOMPARE(look.picture.cacheKey(), inside ? picture.cacheKey() : QPixmap().cacheKey());
        }
    }
    QCOMPARE(log.names, QStringList());
}

void tst_FlexGrid::cellAlignmentFollowsTheColumnUntilSet()
{
    FlexGrid grid;
    grid.setRows(3);
    grid.setCols(3);
    QCOMPARE(grid.CellAlignment(), 9);

    grid.setColAlignment(1, flexAlignCenterCenter);
    QCOMPARE(grid.CellAlignment(), 4);
    QCOMPARE(grid.ColAlignmentFixed(1), 4);
    grid.setRow(0);
    QCOMPARE(grid.CellAlignment(), 4);

    grid.setColAlignmentFixed(1, flexAlignRightCenter);
    QCOMPARE(grid.CellAlignment(), 7);
    QCOMPARE(grid.ColAlignment(1), 4);
    grid.setRow(1);
    QCOMPARE(grid.CellAlignment(), 4);

    grid.setCellAlignment(flexAlignRightTop);
    QCOMPARE(grid.CellAlignment(), 6);
    grid.setColAlignment(1, flexAlignLeftBottom);
    QCOMPARE(grid.CellAlignment(), 6);
    grid.setRow(2);
    QCOMPARE(grid.CellAlignment(), 2);
    QCOMPARE(grid.ColAlignmentFixed(1), 7);
}

void tst_FlexGrid::cellFontsFollowTheGridFonts()
{
    FlexGrid grid;
    grid.setRows(3);
    QCOMPARE(grid.CellFontName(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(grid.CellFontSize(), 9.0f);
    QCOMPARE(grid.CellFontBold(), false);

    QFont font(QStringLiteral("DejaVu Serif"), 12);
    font.setBold(true);
    font.setItalic(true);
    font.setUnderline(true);
    grid.setFont(font);
    QCOMPARE(grid.Font().family(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(grid.FontFixed().family(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(grid.CellFontName(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(grid.CellFontSize(), 12.0f);
    QCOMPARE(grid.CellFontBold(), true);
    QCOMPARE(grid.CellFontItalic(), true);
    QCOMPARE(grid.CellFontUnderline(), true);

    grid.setFontFixed(QFont(QStringLiteral("DejaVu Sans Mono"), 14));
    QCOMPARE(grid.FontFixed().family(), QStringLiteral("DejaVu Sans Mono"));
    QCOMPARE(grid.CellFontName(), QStringLiteral("DejaVu Serif"));
    grid.setRow(0);
    QCOMPARE(grid.CellFontName(), QStringLiteral("DejaVu Sans Mono"));
    QCOMPARE(grid.CellFontSize(), 14.0f);
    QCOMPARE(grid.CellFontBold(), false);
}

void tst_FlexGrid::cellFontSettersReadBack()
{
    FlexGrid grid;
    grid.setRows(3);
    grid.setCols(3);
    grid.setCellFontBold(true);
    grid.setCellFontItalic(true);
    grid.setCellFontUnderline(true);
    grid.setCellFontName(QStringLiteral("DejaVu Serif"));
    grid.setCellFontSize(14);
    grid.setCellFontWidth(5);

    QCOMPARE(grid.CellFontBold(), true);
    QCOMPARE(grid.CellFontItalic(), true);
    QCOMPARE(grid.CellFontUnderline(), true);
    QCOMPARE(grid.CellFontName(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(grid.CellFontSize(), 14.0f);
    QCOMPARE(grid.CellFontWidth(), 5.0f);

    grid.setCellFontBold(false);
    QCOMPARE(grid.CellFontBold(), false);
    QCOMPARE(grid.CellFontItalic(), true);

    grid.setCol(2);
    QCOMPARE(grid.CellFontBold(), false);
    QCOMPARE(grid.CellFontItalic(), false);
    QCOMPARE(grid.CellFontName(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(grid.CellFontSize(), 9.0f);
    QCOMPARE(grid.CellFontWidth(), 0.0f);
}

void tst_FlexGrid::cellPictureSetAndRemove()
{
    FlexGrid grid;
    grid.setRows(3);
    grid.setCols(3);
    const QPixmap picture = filledPixmap(Qt::red);

    grid.setCellPicture(picture);

    QVERIFY(!grid.CellPicture().isNull());
    QCOMPARE(grid.CellPicture().toImage(), picture.toImage());
    grid.setCol(2);
    QVERIFY(grid.CellPicture().isNull());
    grid.setCol(1);
    grid.setCellPicture(QPixmap());
    QVERIFY(grid.CellPicture().isNull());
}

void tst_FlexGrid::cellPictureAlignmentRoundTrip()
{
    FlexGrid grid;
    QCOMPARE(grid.CellPictureAlignment(), 0);
    for (int alignment = 0; alignment <= 8; ++alignment) {
        grid.setCellPictureAlignment(alignment);
        QCOMPARE(grid.CellPictureAlignment(), alignment);
    }
    grid.setCellPictureAlignment(flexAlignRightCenter);
    grid.setRow(0);
    QCOMPARE(grid.CellPictureAlignment(), 0);
    grid.setRow(1);
    QCOMPARE(grid.CellPictureAlignment(), 7);
}

void tst_FlexGrid::cellTextStyleFollowsTheGridStyle()
{
    FlexGrid grid;
    grid.setTextStyle(flexTextInset);
    grid.setTextStyleFixed(flexTextRaisedLight);
    QCOMPARE(grid.CellTextStyle(), 2);
    grid.setRow(0);
    QCOMPARE(grid.CellTextStyle(), 3);

    grid.setCellTextStyle(flexTextInsetLight);
    QCOMPARE(grid.CellTextStyle(), 4);
    grid.setRow(1);
    QCOMPARE(grid.CellTextStyle(), 2);
}

void tst_FlexGrid::colAlignmentIndexMinusOneSetsAll()
{
    FlexGrid grid;
    grid.setCols(4);

    grid.setColAlignment(-1, flexAlignRightCenter);
    for (int c = 0; c < 4; ++c) {
        QCOMPARE(grid.ColAlignment(c), 7);
        QCOMPARE(grid.ColAlignmentFixed(c), 7);
    }

    grid.setColAlignmentFixed(-1, flexAlignLeftCenter);
    for (int c = 0; c < 4; ++c) {
        QCOMPARE(grid.ColAlignment(c), 7);
        QCOMPARE(grid.ColAlignmentFixed(c), 1);
    }
}

void tst_FlexGrid::mergeSettingsRoundTrip()
{
    FlexGrid grid;
    grid.setRows(4);
    grid.setCols(4);
    for (int setting = 0; setting <= 4; ++setting) {
        grid.setMergeCells(setting);
        QCOMPARE(grid.MergeCells(), setting);
    }

    grid.setMergeRow(2, true);
    grid.setMergeCol(3, true);
    grid.setMergeCol(0, true);
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(grid.MergeRow(i), i == 2);
        QCOMPARE(grid.MergeCol(i), i == 3 || i == 0);
    }
    grid.setMergeRow(2, false);
    QCOMPARE(grid.MergeRow(2), false);
}

void tst_FlexGrid::rowDataAndColDataRoundTrip()
{
    FlexGrid grid;
    grid.setRows(3);
    grid.setCols(3);
    grid.setRowData(2, -5);
    grid.setColData(1, 2147483647);
    QCOMPARE(grid.RowData(2), -5);
    QCOMPARE(grid.RowData(1), 0);
    QCOMPARE(grid.ColData(1), 2147483647);
    QCOMPARE(grid.ColData(2), 0);
}

void tst_FlexGrid::colorPropertiesRoundTrip()
{
    FlexGrid grid;
    const QList<QByteArray> properties = {"BackColor",      "ForeColor",      "BackColorBkg",
                                          "BackColorFixed", "ForeColorFixed", "BackColorSel",
                                          "ForeColorSel",   "GridColor",      "GridColorFixed"};
    quint32 color = 0x102030;
    for (const QByteArray& property : properties) {
        QVERIFY(grid.setProperty(property.constData(), color));
        QCOMPARE(grid.property(property.constData()).value<quint32>(), color);
        color += 0x010101;
    }
}

void tst_FlexGrid::redrawTogglesWithoutAffectingDataOrEvents()
{
    FlexGrid grid;
    grid.setRows(4);
    grid.setRedraw(false);
    QCOMPARE(grid.Redraw(), false);
    EventLog log(grid);

    grid.setTextMatrix(2, 1, QStringLiteral("while off"));
    grid.setRow(2);

    QCOMPARE(grid.TextMatrix(2, 1), QStringLiteral("while off"));
    QCOMPARE(grid.Text(), QStringLiteral("while off"));
    QCOMPARE(log.names, CellMove);
    grid.setRedraw(true);
    QCOMPARE(grid.Redraw(), true);
}

void tst_FlexGrid::pictureIsASnapshotOfTheGrid()
{
    FlexGrid grid;
    grid.resize(300, 200);
    grid.setTextMatrix(1, 1, QStringLiteral("snapshot"));
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));

    const QPixmap picture = grid.Picture();

    // The cells as drawn: the client area, without the frame.
    QVERIFY(!picture.isNull());
    QCOMPARE(picture.size(), grid.viewport()->size());
    QCOMPARE(picture.toImage(), grid.viewport()->grab().toImage());
}

void tst_FlexGrid::monochromePictureHasTwoColours()
{
    FlexGrid grid;
    grid.resize(300, 200);
    grid.setBackColorBkg(0x00FF00);
    grid.setBackColorFixed(0x0000FF);
    grid.setPictureType(flexPictureMonochrome);
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));

    const QImage image = grid.Picture().toImage();

    QVERIFY(!image.isNull());
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y) & 0xFFFFFF;
            if (pixel != 0 && pixel != 0xFFFFFF)
                QFAIL(qPrintable(
                    QStringLiteral("pixel %1,%2 is %3").arg(x).arg(y).arg(pixel, 0, 16)));
        }
    }
}

void tst_FlexGrid::addItemSplitsAtTabs_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("one segment per column")
        << QStringLiteral("a\tb\tc") << QStringList{"a", "b", "c"};
    QTest::newRow("surplus dropped")
        << QStringLiteral("a\tb\tc\td\te") << QStringList{"a", "b", "c"};
    QTest::newRow("missing stay empty") << QStringLiteral("a") << QStringList{"a", "", ""};
    QTest::newRow("empty segments") << QStringLiteral("\t\tc") << QStringList{"", "", "c"};
    QTest::newRow("empty item") << QString() << QStringList{"", "", ""};
    QTest::newRow("CJK") << QStringLiteral("甲\t乙") << QStringList{"甲", "乙", ""};
}

void tst_FlexGrid::addItemSplitsAtTabs()
{
    QFETCH(QString, item);
    QFETCH(QStringList, expected);

    FlexGrid grid;
    grid.setCols(3);
    grid.AddItem(item);

    QCOMPARE(grid.Rows(), 3);
    QCOMPARE(QStringList({grid.TextMatrix(2, 0), grid.TextMatrix(2, 1), grid.TextMatrix(2, 2)}),
             expected);
}

void tst_FlexGrid::addItemInsertsAndShiftsRows()
{
    FlexGrid grid;
    grid.setRows(4);
    grid.setCols(2);
    for (int r = 0; r < 4; ++r)
        grid.setTextMatrix(r, 1, QStringLiteral("row %1").arg(r));
    grid.setRow(2);
    grid.setCellBackColor(0x123456);
    grid.setCellPicture(filledPixmap(Qt::green));
    grid.setRowHeight(2, 600);
    grid.setRowData(2, 42);
    grid.setMergeRow(2, true);
    const int defaultHeight = grid.RowHeight(1);

    grid.AddItem(QStringLiteral("new\tinserted"), 2);

    QCOMPARE(grid.Rows(), 5);
    QCOMPARE(grid.TextMatrix(2, 0), QStringLiteral("new"));
    QCOMPARE(grid.TextMatrix(2, 1), QStringLiteral("inserted"));
    QCOMPARE(grid.TextMatrix(1, 1), QStringLiteral("row 1"));
    QCOMPARE(grid.TextMatrix(3, 1), QStringLiteral("row 2"));
    QCOMPARE(grid.TextMatrix(4, 1), QStringLiteral("row 3"));
    const FlexCellStore& cells = cellsOf(grid);
    QVERIFY(!cells.hasFormat(2, 1));
    QCOMPARE(cells.format(3, 1).backColor, OleColor(0x123456));
    QVERIFY(!cells.format(3, 1).picture.isNull());
    QCOMPARE(grid.RowHeight(2), defaultHeight);
    QCOMPARE(grid.RowHeight(3), 600);
    QCOMPARE(grid.RowData(2), 0);
    QCOMPARE(grid.RowData(3), 42);
    QCOMPARE(grid.MergeRow(2), false);
    QCOMPARE(grid.MergeRow(3), true);
}

void tst_FlexGrid::addItemAtRowsAppends()
{
    FlexGrid grid;
    grid.setRows(3);
    grid.setTextMatrix(2, 1, QStringLiteral("last"));

    grid.AddItem(QStringLiteral("a\tb"), 3);
    grid.AddItem(QStringLiteral("c\td"));

    QCOMPARE(grid.Rows(), 5);
    QCOMPARE(grid.TextMatrix(2, 1), QStringLiteral("last"));
    QCOMPARE(grid.TextMatrix(3, 0), QStringLiteral("a"));
    QCOMPARE(grid.TextMatrix(3, 1), QStringLiteral("b"));
    QCOMPARE(grid.TextMatrix(4, 0), QStringLiteral("c"));
    QCOMPARE(grid.TextMatrix(4, 1), QStringLiteral("d"));
}

void tst_FlexGrid::addItemKeepsTheCurrentCellAndFiresNothing()
{
    FlexGrid grid;
    grid.setRows(5);
    grid.setCols(3);
    setSelection(grid, 3, 2, 4, 1);
    EventLog log(grid);

    grid.AddItem(QStringLiteral("x"), 1);
    grid.AddItem(QStringLiteral("y"));

    QCOMPARE(grid.Rows(), 7);
    QCOMPARE(grid.Row(), 3);
    QCOMPARE(grid.Col(), 2);
    QCOMPARE(grid.RowSel(), 4);
    QCOMPARE(grid.ColSel(), 1);
    QCOMPARE(log.cellEvents(), QStringList());
}

void tst_FlexGrid::addItemKeepsTheViewAndGrowsTheScrollRange()
{
    FlexGrid grid;
    QVERIFY(setUpScrollGrid(grid));
    grid.setTopRow(5);
    grid.setLeftCol(3);
    QCoreApplication::processEvents();
    const int maximumBefore = grid.verticalScrollBar()->maximum();
    EventLog log(grid);

    for (int i = 0; i < 20; ++i)
        grid.AddItem(QStringLiteral("added\t%1").arg(i));
    grid.AddItem(QStringLiteral("above the view"), 2);
    QCoreApplication::processEvents();

    QCOMPARE(grid.Rows(), ScrollRows + 21);
    QCOMPARE(grid.TopRow(), 5);
    QCOMPARE(grid.LeftCol(), 3);
    QCOMPARE(log.count(QStringLiteral("Scroll")), 0);
    QCOMPARE(grid.verticalScrollBar()->value(), 5);
    // The bar reaches the new last page, as far as TopRow itself may go.
    const int maximum = grid.verticalScrollBar()->maximum();
    QCOMPARE_GT(maximum, maximumBefore + 15);
    grid.setTopRow(grid.Rows() - 1);
    QCOMPARE(grid.TopRow(), maximum);
}

void tst_FlexGrid::removeItemShiftsRowsUp()
{
    FlexGrid grid;
    grid.setRows(5);
    for (int r = 0; r < 5; ++r)
        grid.setTextMatrix(r, 1, QStringLiteral("row %1").arg(r));
    grid.setRow(3);
    grid.setCellBackColor(0x654321);
    grid.setRowHeight(3, 450);
    grid.setRowData(3, 7);
    grid.setMergeRow(3, true);
    grid.setRow(1);

    grid.RemoveItem(2);

    QCOMPARE(grid.Rows(), 4);
    QCOMPARE(grid.TextMatrix(1, 1), QStringLiteral("row 1"));
    QCOMPARE(grid.TextMatrix(2, 1), QStringLiteral("row 3"));
    QCOMPARE(grid.TextMatrix(3, 1), QStringLiteral("row 4"));
    QCOMPARE(cellsOf(grid).format(2, 1).backColor, OleColor(0x654321));
    QCOMPARE(grid.RowHeight(2), 450);
    QCOMPARE(grid.RowData(2), 7);
    QCOMPARE(grid.MergeRow(2), true);
    QCOMPARE(grid.MergeRow(3), false);
}

void tst_FlexGrid::removeItemClampsTheCurrentCell()
{
    FlexGrid grid;
    grid.setRows(5);
    grid.setRow(4);
    EventLog log(grid);

    grid.RemoveItem(2);

    QCOMPARE(grid.Row(), 3);
    QCOMPARE(grid.RowSel(), 3);
    QCOMPARE(log.cellEvents(), CellMove);
}

void tst_FlexGrid::removeItemClampsOnlyTheSelection()
{
    FlexGrid grid;
    grid.setRows(5);
    setSelection(grid, 2, 1, 4, 1);
    EventLog log(grid);

    grid.RemoveItem(3);

    QCOMPARE(grid.Row(), 2);
    QCOMPARE(grid.RowSel(), 3);
    QCOMPARE(log.cellEvents(), SelChangeOnly);
}

void tst_FlexGrid::removeItemAboveTheCursorKeepsItsNumber()
{
    FlexGrid grid;
    grid.setRows(5);
    grid.setRow(3);
    EventLog log(grid);

    grid.RemoveItem(1);

    QCOMPARE(grid.Rows(), 4);
    QCOMPARE(grid.Row(), 3);
    QCOMPARE(log.cellEvents(), QStringList());
}

void tst_FlexGrid::clearEmptiesCellsAndKeepsStructure()
{
    const QString format = QStringLiteral("|<Name|>Price");
    FlexGrid grid;
    grid.setRows(4);
    grid.setFormatString(format);
    grid.setColWidth(1, 1200);
    grid.setColAlignment(2, flexAlignCenterCenter);
    grid.setColAlignmentFixed(2, flexAlignRightTop);
    grid.setRowHeight(2, 600);
    grid.setMergeRow(2, true);
    grid.setMergeCol(1, true);
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 3; ++c)
            grid.setTextMatrix(r, c, QStringLiteral("x"));
    }
    grid.setRow(0);
    grid.setCellFontBold(true);
    grid.setRow(2);
    grid.setCol(2);
    grid.setCellBackColor(0x00FFFF);
    grid.setCellPicture(filledPixmap(Qt::blue));
    const QList<int> structure = structureOf(grid);
    EventLog log(grid);

    grid.Clear();

    QCOMPARE(allTexts(grid), QStringList(12, QString()));
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 3; ++c)
            QVERIFY(cellsOf(grid).format(r, c).isDefault());
    }
    QVERIFY(grid.CellPicture().isNull());
    QCOMPARE(grid.CellBackColor(), OleColor(0));
    QCOMPARE(structureOf(grid), structure);
    QCOMPARE(grid.FormatString(), format);
    QCOMPARE(grid.ColWidth(1), 1200);
    QCOMPARE(grid.ColAlignment(1), 1);
    QCOMPARE(grid.ColAlignment(2), 4);
    QCOMPARE(grid.ColAlignmentFixed(2), 6);
    QCOMPARE(grid.RowHeight(2), 600);
    QCOMPARE(grid.MergeRow(2), true);
    QCOMPARE(grid.MergeCol(1), true);
    QCOMPARE(log.names, QStringList());
}

void tst_FlexGrid::colPositionMovesTheWholeColumn()
{
    FlexGrid grid;
    grid.setRows(3);
    grid.setCols(4);
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 4; ++c)
            grid.setTextMatrix(r, c, QStringLiteral("%1:%2").arg(r).arg(c));
    }
    grid.setColWidth(1, 1200);
    grid.setColAlignment(1, flexAlignRightCenter);
    grid.setColAlignmentFixed(1, flexAlignCenterTop);
    grid.setMergeCol(1, true);
    grid.setColData(1, 11);
    grid.setRow(2);
    grid.setCellBackColor(0x0000FF);
    grid.setCol(2);
    EventLog log(grid);

    grid.setColPosition(1, 3);

    for (int r = 0; r < 3; ++r) {
        QCOMPARE(grid.TextMatrix(r, 0), QStringLiteral("%1:0").arg(r));
        QCOMPARE(grid.TextMatrix(r, 1), QStringLiteral("%1:2").arg(r));
        QCOMPARE(grid.TextMatrix(r, 2), QStringLiteral("%1:3").arg(r));
        QCOMPARE(grid.TextMatrix(r, 3), QStringLiteral("%1:1").arg(r));
    }
    QCOMPARE(grid.ColWidth(3), 1200);
    QCOMPARE(grid.ColWidth(1), -1);
    QCOMPARE(grid.ColAlignment(3), 7);
    QCOMPARE(grid.ColAlignment(1), 9);
    QCOMPARE(grid.ColAlignmentFixed(3), 3);
    QCOMPARE(grid.MergeCol(3), true);
    QCOMPARE(grid.MergeCol(1), false);
    QCOMPARE(grid.ColData(3), 11);
    QCOMPARE(cellsOf(grid).format(2, 3).backColor, OleColor(0x0000FF));
    QVERIFY(!cellsOf(grid).hasFormat(2, 1));
    QCOMPARE(grid.Col(), 2);
    QCOMPARE(log.cellEvents(), QStringList());
}

void tst_FlexGrid::rowPositionMovesTheWholeRow()
{
    FlexGrid grid;
    grid.setRows(5);
    grid.setCols(3);
    for (int r = 0; r < 5; ++r)
        grid.setTextMatrix(r, 1, QStringLiteral("row %1").arg(r));
    grid.setRow(4);
    grid.setCellFontItalic(true);
    grid.setRowHeight(4, 450);
    grid.setRowData(4, 9);
    grid.setMergeRow(4, true);
    grid.setRow(2);
    EventLog log(grid);

    grid.setRowPosition(4, 1);

    const QStringList expected = {"row 0", "row 4", "row 1", "row 2", "row 3"};
    for (int r = 0; r < 5; ++r)
        QCOMPARE(grid.TextMatrix(r, 1), expected.at(r));
    QCOMPARE(int(cellsOf(grid).format(1, 1).italic), 1);
    QVERIFY(!cellsOf(grid).hasFormat(4, 1));
    QCOMPARE(grid.RowHeight(1), 450);
    QCOMPARE(grid.RowData(1), 9);
    QCOMPARE(grid.MergeRow(1), true);
    QCOMPARE(grid.MergeRow(4), false);
    QCOMPARE(grid.Row(), 2);
    QCOMPARE(log.cellEvents(), QStringList());
}

void tst_FlexGrid::formatStringReferenceExample()
{
    FlexGrid grid;
    grid.setFormatString(QStringLiteral("|<Name|^Qty|>Price"));

    QCOMPARE(grid.Cols(), 4);
    QCOMPARE(grid.Rows(), 2);
    const QStringList headers = {grid.TextMatrix(0, 0), grid.TextMatrix(0, 1),
                                 grid.TextMatrix(0, 2), grid.TextMatrix(0, 3)};
    QCOMPARE(headers, (QStringList{"", "Name", "Qty", "Price"}));
    QCOMPARE(grid.ColAlignment(0), 9);
    QCOMPARE(grid.ColAlignment(1), 1);
    QCOMPARE(grid.ColAlignment(2), 4);
    QCOMPARE(grid.ColAlignment(3), 7);
    const QFont font = grid.FontFixed();
    for (int c = 0; c < 4; ++c) {
        QVERIFY2(grid.ColWidth(c) >= 0, qPrintable(QString::number(c)));
        QVERIFY(grid.ColWidth(c) >= textTwips(font, headers.at(c)));
    }
    QVERIFY(grid.ColWidth(3) > grid.ColWidth(2));
    QCOMPARE(grid.TextMatrix(1, 1), QString());
}

void tst_FlexGrid::formatStringWidthsFollowTheTexts_data()
{
    QTest::addColumn<QString>("format");

    // Column 2 must come out wider than column 1.
    QTest::newRow("longer text") << QStringLiteral("|Ab|Abcdefghijkl");
    QTest::newRow("trailing blanks") << QStringLiteral("|Ab|Ab        ");
    QTest::newRow("leading blanks") << QStringLiteral("|Ab|        Ab");
    QTest::newRow("prefixed") << QStringLiteral("|>Ab|<Abcdefghijkl");
    QTest::newRow("CJK") << QStringLiteral("|名|名称名称名称");
}

void tst_FlexGrid::formatStringWidthsFollowTheTexts()
{
    QFETCH(QString, format);

    FlexGrid grid;
    grid.setFormatString(format);

    QCOMPARE(grid.Cols(), 3);
    QVERIFY(grid.ColWidth(1) > 0);
    QVERIFY2(grid.ColWidth(2) > grid.ColWidth(1),
             qPrintable(QStringLiteral("%1 vs %2").arg(grid.ColWidth(2)).arg(grid.ColWidth(1))));
}

void tst_FlexGrid::formatStringRowPart()
{
    FlexGrid grid;
    grid.setFormatString(QStringLiteral(";|Robert|Jimmy"));

    QVERIFY(grid.Rows() >= 3);
    QCOMPARE(grid.TextMatrix(0, 0), QString());
    QCOMPARE(grid.TextMatrix(1, 0), QStringLiteral("Robert"));
    QCOMPARE(grid.TextMatrix(2, 0), QStringLiteral("Jimmy"));
    QCOMPARE(grid.TextMatrix(1, 1), QString());
    // Column 0 is at least as wide as its widest text, whether or not it had to grow.
    QVERIFY(grid.ColPos(1) - grid.ColPos(0) >=
            textTwips(grid.FontFixed(), QStringLiteral("Robert")));

    FlexGrid both;
    both.setFormatString(QStringLiteral("|<Name|>Price;|Robert|Jimmy|Ann"));
    QCOMPARE(both.Cols(), 3);
    QVERIFY(both.Rows() >= 4);
    QCOMPARE(both.TextMatrix(0, 1), QStringLiteral("Name"));
    QCOMPARE(both.TextMatrix(0, 2), QStringLiteral("Price"));
    QCOMPARE(both.TextMatrix(3, 0), QStringLiteral("Ann"));
    QCOMPARE(both.ColAlignment(2), 7);
}

void tst_FlexGrid::formatStringNeverReducesCounts()
{
    FlexGrid grid;
    grid.setRows(10);
    grid.setCols(6);
    grid.setTextMatrix(0, 5, QStringLiteral("kept"));

    grid.setFormatString(QStringLiteral("|a;|b"));

    QCOMPARE(grid.Rows(), 10);
    QCOMPARE(grid.Cols(), 6);
    QCOMPARE(grid.TextMatrix(0, 1), QStringLiteral("a"));
    QCOMPARE(grid.TextMatrix(1, 0), QStringLiteral("b"));
    QCOMPARE(grid.TextMatrix(0, 5), QStringLiteral("kept"));
}

void tst_FlexGrid::formatStringReadsBackVerbatim_data()
{
    QTest::addColumn<QString>("format");

    QTest::newRow("example") << QStringLiteral("|<Name|^Qty|>Price");
    QTest::newRow("blanks") << QStringLiteral("  |<Name   |^ Qty ");
    QTest::newRow("rows") << QStringLiteral(";|Robert|Jimmy");
    QTest::newRow("CJK") << QStringLiteral("|<名称|>金额");
    QTest::newRow("empty") << QString();
}

void tst_FlexGrid::formatStringReadsBackVerbatim()
{
    QFETCH(QString, format);

    FlexGrid grid;
    grid.setFormatString(QStringLiteral("|other"));
    grid.setFormatString(format);
    QCOMPARE(grid.FormatString(), format);
}

void tst_FlexGrid::formatStringFiresNoEvents()
{
    FlexGrid grid;
    grid.setRows(4);
    grid.setRow(2);
    const QList<int> before = structureOf(grid);
    EventLog log(grid);

    grid.setFormatString(QStringLiteral("|<Name|^Qty|>Price;|a|b"));

    QCOMPARE(log.names, QStringList());
    QCOMPARE(grid.Row(), 2);
    QCOMPARE(grid.Col(), 1);
    QCOMPARE(grid.Rows(), before.at(0));
}

QTEST_MAIN(tst_FlexGrid)
#include "tst_flexgrid.moc"
