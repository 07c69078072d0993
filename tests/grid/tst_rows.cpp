// Part 1.5: VemoGrid's row operations (AddItem with the empty-line rule and the running
// number, RemoveItem, Clear, ClearStructure), its typed cell writes, Selected and Version, and
// the Part 1.12 message that the refused empty line shows.
#include <VemoGridLib/Messages.h>
#include "flexgrid/FlexCellStore_p.h"
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoGrid.h>

#include "MessageRecorder.h"
#include "VemoGridTestSupport.h"
#include "VemoTestSupport.h"
#include <QApplication>
#include <QScopeGuard>
#include <QTest>

#include <memory>

using namespace VemoGridLib;
using namespace VemoTest;

Q_DECLARE_METATYPE(VemoGridLib::MessageIcon)

namespace {

constexpr int RowHeightTwips = 300;
constexpr int ColWidthTwips = 1050;
constexpr OleColor Band1 = 0xFFFFFF; // BackColor1 default: even data rows
constexpr OleColor Band2 = 0xBFFFFF; // BackColor2 default: odd data rows
constexpr OleColor HyperlinkBlue = 0xFF0000;
const QString Checked = QStringLiteral(".");
const QString Unchecked = QStringLiteral("`");

// The band colour Part 1.1 gives a data cell of an ordinary column: rows are banded by their
// distance from the first data row.
OleColor bandOf(const VemoGrid& grid, int row)
{
    return (row - grid.FixedRows()) % 2 == 0 ? Band1 : Band2;
}

// The texts of column `col` in the data rows.
QStringList dataColumn(const VemoGrid& grid, int col)
{
    QStringList texts;
    for (int r = grid.FixedRows(); r < grid.Rows(); ++r)
        texts << grid.TextMatrix(r, col);
    return texts;
}

// The data rows whose column-0 cell carries a picture (the current-row marker).
QList<int> rowsWithMarker(const VemoGrid& grid)
{
    QList<int> rows;
    for (int r = grid.FixedRows(); r < grid.Rows(); ++r) {
        if (!lookOf(grid, r, 0).picture.isNull())
            rows << r;
    }
    return rows;
}

} // namespace

class tst_Rows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void addItemWithoutIndexAppends_data();
    void addItemWithoutIndexAppends();
    void addItemWithIndexInsertsBefore_data();
    void addItemWithIndexInsertsBefore();
    void addItemBadIndexReachesHost();
    void addItemDrawsCheckBoxOfNewRow();
    void refusedEmptyLineMessage_data();
    void refusedEmptyLineMessage();
    void emptyLineRule_data();
    void emptyLineRule();
    void refusalFollowsTheNewCurrentRow();
    void autoAddRunningNumber();
    void autoAddNumbersPastOneDigit();
    void autoAddPrefilledCellKeepsItsText();

    void removeItemByIndex_data();
    void removeItemByIndex();
    void removeItemZeroRemovesMarkedRow_data();
    void removeItemZeroRemovesMarkedRow();
    void removeItemZeroWithoutMarkedRowDoesNothing();
    void removeItemByIndexForgetsMarkedRow();
    void removeItemOnOnlyDataRowClears_data();
    void removeItemOnOnlyDataRowClears();
    void removeItemShiftsRowBands();
    void removeItemBadIndexReachesHost();

    void clearKeepsStructure_data();
    void clearKeepsStructure();
    void clearStructureLeavesColumnObjects();

    void checkBoxTextMatrixLet_data();
    void checkBoxTextMatrixLet();
    void checkBoxTextMatrixGet_data();
    void checkBoxTextMatrixGet();
    void dateTextMatrixLet_data();
    void dateTextMatrixLet();
    void hyperlinkTextMatrixLet();
    void otherTypesStoreAsGiven_data();
    void otherTypesStoreAsGiven();
    void textLetIsTypedOnCurrentCell();
    void cgCheckedRoundTrip();
    void versionIs3015();
    void textMatrixLetBadColumnRaises9_data();
    void textMatrixLetBadColumnRaises9();

private:
    /// `format` (e.g. "|A|B"), then one fixed row and `dataRows` data rows; every column
    /// 1050 twips and every row 300 twips wide, so cells can be clicked.
    void build(const QString& format, int dataRows);
    /// Writes `texts` row by row from the first data row, column 1 on.
    void fill(const QList<QStringList>& texts);

    std::unique_ptr<VemoGrid> m_grid;
    std::unique_ptr<MessageRecorder> m_recorder;
};

void tst_Rows::initTestCase()
{
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
}

void tst_Rows::init()
{
    m_recorder = std::make_unique<MessageRecorder>();
    m_grid = shownGrid();
    QVERIFY(m_grid);
}

void tst_Rows::cleanup()
{
    m_grid.reset();
    m_recorder.reset();
}

void tst_Rows::build(const QString& format, int dataRows)
{
    m_grid->setFormatString(format);
    m_grid->setRows(1 + dataRows);
    for (int c = 0; c < m_grid->Cols(); ++c)
        m_grid->setCOLWIDTH(c, ColWidthTwips);
    for (int r = 0; r < m_grid->Rows(); ++r)
        m_grid->setRowHeight(r, RowHeightTwips);
    QCoreApplication::processEvents();
}

void tst_Rows::fill(const QList<QStringList>& texts)
{
    for (int r = 0; r < texts.size(); ++r) {
        for (int c = 0; c < texts.at(r).size(); ++c)
            m_grid->setTextMatrix(m_grid->FixedRows() + r, 1 + c, texts.at(r).at(c));
    }
}

// ---- AddItem ----------------------------------------------------------------------------------

void tst_Rows::addItemWithoutIndexAppends_data()
{
    QTest::addColumn<bool>("passIndex");
    QTest::addColumn<int>("index");
    QTest::newRow("omitted") << false << 0;
    QTest::newRow("0") << true << 0;
    QTest::newRow("-1") << true << -1;
    QTest::newRow("-100") << true << -100;
}

void tst_Rows::addItemWithoutIndexAppends()
{
    QFETCH(bool, passIndex);
    QFETCH(int, index);
    build(QStringLiteral("|A|B"), 2);
    fill({{"a1", "b1"}, {"a2", "b2"}});
    m_grid->setRow(1);

    if (passIndex)
        m_grid->AddItem(QStringLiteral("h\tx\ty"), index);
    else
        m_grid->AddItem(QStringLiteral("h\tx\ty"));

    QCOMPARE(m_grid->Rows(), 4);
    // The item's first TAB segment goes to the fixed column 0.
    QCOMPARE(m_grid->TextMatrix(3, 0), QStringLiteral("h"));
    QCOMPARE(dataColumn(*m_grid, 1), QStringList({"a1", "a2", "x"}));
    QCOMPARE(dataColumn(*m_grid, 2), QStringList({"b1", "b2", "y"}));
    QCOMPARE(m_grid->Row(), 3);
    QCOMPARE(lookOf(*m_grid, 3, 1).backColor, bandOf(*m_grid, 3));
    QVERIFY(m_recorder->messages.isEmpty());
}

void tst_Rows::addItemWithIndexInsertsBefore_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("before the first data row") << 1 << QStringList({"x", "a1", "a2", "a3"});
    QTest::newRow("in the middle") << 2 << QStringList({"a1", "x", "a2", "a3"});
    QTest::newRow("before the last row") << 3 << QStringList({"a1", "a2", "x", "a3"});
    QTest::newRow("Rows itself appends") << 4 << QStringList({"a1", "a2", "a3", "x"});
}

void tst_Rows::addItemWithIndexInsertsBefore()
{
    QFETCH(int, index);
    QFETCH(QStringList, expected);
    build(QStringLiteral("|A"), 3);
    fill({{"a1"}, {"a2"}, {"a3"}});

    m_grid->AddItem(QStringLiteral("\tx"), index);

    QCOMPARE(dataColumn(*m_grid, 1), expected);
    QCOMPARE(m_grid->Row(), index);
    // The colouring pass runs from the new row: the rows pushed down change band.
    for (int r = m_grid->FixedRows(); r < m_grid->Rows(); ++r)
        QCOMPARE(lookOf(*m_grid, r, 1).backColor, bandOf(*m_grid, r));
}

void tst_Rows::addItemBadIndexReachesHost()
{
    build(QStringLiteral("|A"), 2);
    fill({{"a1"}, {"a2"}});
    // The hosted grid's own error for an index past Rows (flexgrid-reference §8).
    QCOMPARE(VemoTest::errorNumberOf([&] { m_grid->AddItem(QStringLiteral("\tx"), 99); }), 30002);
    QCOMPARE(m_grid->Rows(), 3);
}

void tst_Rows::addItemDrawsCheckBoxOfNewRow()
{
    build(QStringLiteral("|A|Check"), 1);
    m_grid->setColType(2, eCheckBox);
    fill({{"a1"}});

    m_grid->AddItem(QStringLiteral("\ta2"));

    QCOMPARE(m_grid->Rows(), 3);
    QVERIFY(!lookOf(*m_grid, 2, 2).picture.isNull());
    QCOMPARE(m_grid->TextMatrix(2, 2), QStringLiteral("False"));
}

void tst_Rows::refusedEmptyLineMessage_data()
{
    QTest::addColumn<QByteArray>("lang");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");

    const QString zhTitle = QString::fromUtf8("提示");
    QTest::newRow("2052 Simplified Chinese")
        << QByteArray("zh_CN.UTF-8") << QString::fromUtf8("不允许添加空行!") << zhTitle;
    QTest::newRow("1028 Traditional Chinese")
        << QByteArray("zh_TW.UTF-8") << QString::fromUtf8("不允許添加空行!") << zhTitle;
    QTest::newRow("1033 English") << QByteArray("en_US.UTF-8")
                                  << QStringLiteral("Do not allow add a null line!")
                                  << QStringLiteral("PROMPT");
    QTest::newRow("3076 Hong Kong is English")
        << QByteArray("zh_HK.UTF-8") << QStringLiteral("Do not allow add a null line!")
        << QStringLiteral("PROMPT");
}

void tst_Rows::refusedEmptyLineMessage()
{
    QFETCH(QByteArray, lang);
    QFETCH(QString, text);
    QFETCH(QString, title);
    build(QStringLiteral("|A|B"), 1);
    m_grid->setNullLine(false);
    const VemoTest::ScopedLocale locale(lang);

    m_grid->AddItem(QStringLiteral("\tx\ty"));

    QCOMPARE(m_recorder->messages.size(), 1);
    QCOMPARE(m_recorder->messages.at(0).text, text);
    QCOMPARE(m_recorder->messages.at(0).title, title);
    QCOMPARE(m_recorder->messages.at(0).icon, MessageIcon::Information);
    QCOMPARE(m_grid->Rows(), 2);
    QCOMPARE(m_grid->TextMatrix(1, 1), QString());
}

void tst_Rows::emptyLineRule_data()
{
    QTest::addColumn<bool>("nullLine");
    QTest::addColumn<QString>("text");      // column 1 (text) of the current row
    QTest::addColumn<int>("checkState");    // column 2 (check box): -1 untouched, 0, 1
    QTest::addColumn<QString>("fixedText"); // column 0 of the current row
    QTest::addColumn<bool>("added");

    QTest::newRow("empty, NullLine false") << false << "" << -1 << "" << false;
    QTest::newRow("empty, NullLine true") << true << "" << -1 << "" << true;
    QTest::newRow("text, NullLine false") << false << "a" << -1 << "" << true;
    QTest::newRow("a blank counts as filled") << false << " " << -1 << "" << true;
    QTest::newRow("only an unchecked box is empty") << false << "" << 0 << "" << false;
    QTest::newRow("a checked box is filled") << false << "" << 1 << "" << true;
    QTest::newRow("the fixed column does not count") << false << "" << 0 << "row" << false;
    QTest::newRow("unchecked box, NullLine true") << true << "" << 0 << "" << true;
}

void tst_Rows::emptyLineRule()
{
    QFETCH(bool, nullLine);
    QFETCH(QString, text);
    QFETCH(int, checkState);
    QFETCH(QString, fixedText);
    QFETCH(bool, added);
    build(QStringLiteral("|Text|Check"), 1);
    m_grid->setColType(2, eCheckBox);
    m_grid->setNullLine(nullLine);
    m_grid->setTextMatrix(1, 1, text);
    m_grid->setTextMatrix(1, 0, fixedText);
    if (checkState >= 0) {
        m_grid->setcgChecked(1, 2, checkState == 1);
        // The markers the rule looks at (VemoGrid.h: cgChecked writes "." or "`").
        QCOMPARE(m_grid->hostedGrid()->TextMatrix(1, 2), checkState == 1 ? Checked : Unchecked);
    }
    QCOMPARE(m_grid->Row(), 1);

    m_grid->AddItem(QStringLiteral("\tnew"));

    QCOMPARE(m_grid->Rows(), added ? 3 : 2);
    QCOMPARE(m_recorder->messages.size(), added ? 0 : 1);
    if (added)
        QCOMPARE(m_grid->TextMatrix(2, 1), QStringLiteral("new"));
}

void tst_Rows::refusalFollowsTheNewCurrentRow()
{
    build(QStringLiteral("|A"), 1);
    m_grid->setNullLine(false);
    fill({{"filled"}});

    // Row 1 is filled: an empty row is added and becomes current...
    m_grid->AddItem(QString());
    QCOMPARE(m_grid->Rows(), 3);
    QCOMPARE(m_grid->Row(), 2);
    // ...so the next AddItem finds an empty current row and is refused.
    m_grid->AddItem(QStringLiteral("\tx"));
    QCOMPARE(m_grid->Rows(), 3);
    QCOMPARE(m_recorder->messages.size(), 1);
}

void tst_Rows::autoAddRunningNumber()
{
    build(QStringLiteral("|A|No"), 1);
    m_grid->Column(2)->setAutoAdd(true);
    fill({{"a1"}});

    m_grid->AddItem(QStringLiteral("\ta2"));
    m_grid->AddItem(QStringLiteral("\ta3"));
    QCOMPARE(m_grid->TextMatrix(2, 2), QStringLiteral("1"));
    QCOMPARE(m_grid->TextMatrix(3, 2), QStringLiteral("2"));

    // Clear keeps the running number: the next added row takes 3, not 1.
    m_grid->Clear();
    QCOMPARE(m_grid->Rows(), 2);
    m_grid->AddItem(QStringLiteral("\tb"));
    QCOMPARE(m_grid->Rows(), 3);
    QCOMPARE(m_grid->TextMatrix(2, 2), QStringLiteral("3"));

    // ClearStructure leaves it alone too.
    m_grid->ClearStructure();
    m_grid->AddItem(QStringLiteral("\tc"));
    QCOMPARE(m_grid->TextMatrix(3, 2), QStringLiteral("4"));
}

void tst_Rows::autoAddNumbersPastOneDigit()
{
    build(QStringLiteral("|A|No"), 1);
    m_grid->Column(2)->setAutoAdd(true);
    fill({{"a1"}});

    for (int i = 0; i < 120; ++i)
        m_grid->AddItem(QStringLiteral("\tx%1").arg(i));

    QCOMPARE(m_grid->Rows(), 122);
    for (int number : {1, 9, 10, 11, 99, 100, 120})
        QCOMPARE(m_grid->TextMatrix(number + 1, 2), QString::number(number));
}

void tst_Rows::autoAddPrefilledCellKeepsItsText()
{
    build(QStringLiteral("|A|No"), 1);
    m_grid->Column(2)->setAutoAdd(true);
    fill({{"a1"}});

    m_grid->AddItem(QStringLiteral("\ta2"));
    m_grid->AddItem(QStringLiteral("\ta3\tZ9"));
    m_grid->AddItem(QStringLiteral("\ta4"));

    QCOMPARE(m_grid->TextMatrix(2, 2), QStringLiteral("1"));
    QCOMPARE(m_grid->TextMatrix(3, 2), QStringLiteral("Z9"));
    // The pre-filled cell did not use up a number.
    QCOMPARE(m_grid->TextMatrix(4, 2), QStringLiteral("2"));
}

// ---- RemoveItem -------------------------------------------------------------------------------

void tst_Rows::removeItemByIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("currentRow");
    QTest::newRow("first") << 1 << QStringList({"a2", "a3", "a4"}) << 1;
    QTest::newRow("middle") << 2 << QStringList({"a1", "a3", "a4"}) << 2;
    QTest::newRow("last: current row is Rows - 1") << 4 << QStringList({"a1", "a2", "a3"}) << 3;
}

void tst_Rows::removeItemByIndex()
{
    QFETCH(int, index);
    QFETCH(QStringList, expected);
    QFETCH(int, currentRow);
    build(QStringLiteral("|A"), 4);
    fill({{"a1"}, {"a2"}, {"a3"}, {"a4"}});

    m_grid->RemoveItem(index);

    QCOMPARE(m_grid->Rows(), 4);
    QCOMPARE(dataColumn(*m_grid, 1), expected);
    QCOMPARE(m_grid->Row(), currentRow);
    QCOMPARE(m_grid->Selected(), 0);
}

void tst_Rows::removeItemZeroRemovesMarkedRow_data()
{
    QTest::addColumn<int>("marked");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("currentRow");
    QTest::newRow("middle row") << 2 << QStringList({"a1", "a3", "a4"}) << 2;
    QTest::newRow("last row") << 4 << QStringList({"a1", "a2", "a3"}) << 3;
}

void tst_Rows::removeItemZeroRemovesMarkedRow()
{
    QFETCH(int, marked);
    QFETCH(QStringList, expected);
    QFETCH(int, currentRow);
    build(QStringLiteral("|A|B"), 4);
    fill({{"a1"}, {"a2"}, {"a3"}, {"a4"}});

    // The user marks a row by clicking one of its data cells (Part 1.3).
    clickCell(*m_grid, marked, 2);
    QCOMPARE(m_grid->Selected(), marked);
    QCOMPARE(rowsWithMarker(*m_grid), QList<int>({marked}));

    m_grid->RemoveItem(0);

    QCOMPARE(m_grid->Rows(), 4);
    QCOMPARE(dataColumn(*m_grid, 1), expected);
    QCOMPARE(m_grid->Selected(), 0);
    QCOMPARE(m_grid->Row(), currentRow);
    QCOMPARE(rowsWithMarker(*m_grid), QList<int>());
}

void tst_Rows::removeItemZeroWithoutMarkedRowDoesNothing()
{
    build(QStringLiteral("|A"), 3);
    fill({{"a1"}, {"a2"}, {"a3"}});
    QCOMPARE(m_grid->Selected(), 0);

    m_grid->RemoveItem(0);
    m_grid->RemoveItem();

    QCOMPARE(m_grid->Rows(), 4);
    QCOMPARE(dataColumn(*m_grid, 1), QStringList({"a1", "a2", "a3"}));
}

void tst_Rows::removeItemByIndexForgetsMarkedRow()
{
    build(QStringLiteral("|A|B"), 4);
    fill({{"a1"}, {"a2"}, {"a3"}, {"a4"}});
    clickCell(*m_grid, 3, 1);
    QCOMPARE(m_grid->Selected(), 3);

    m_grid->RemoveItem(1);

    QCOMPARE(dataColumn(*m_grid, 1), QStringList({"a2", "a3", "a4"}));
    QCOMPARE(m_grid->Selected(), 0);
    // The marker picture was cleared from the (current) marked row before the removal.
    QCOMPARE(rowsWithMarker(*m_grid), QList<int>());
    // Nothing is marked any more: RemoveItem(0) removes nothing.
    m_grid->RemoveItem(0);
    QCOMPARE(m_grid->Rows(), 4);
}

void tst_Rows::removeItemOnOnlyDataRowClears_data()
{
    QTest::addColumn<int>("fixedRows");
    QTest::addColumn<int>("fixedCols");
    QTest::newRow("1 fixed row, 1 fixed column") << 1 << 1;
    QTest::newRow("2 fixed rows, 2 fixed columns") << 2 << 2;
}

void tst_Rows::removeItemOnOnlyDataRowClears()
{
    QFETCH(int, fixedRows);
    QFETCH(int, fixedCols);
    const QString format = QStringLiteral("|<Name|>Qty|Note");
    build(format, fixedRows);
    m_grid->setFixedRows(fixedRows);
    m_grid->setFixedCols(fixedCols);
    m_grid->setCOLWIDTH(1, 2000);
    m_grid->setCOLWIDTH(2, 800);
    m_grid->setCOLWIDTH(3, 1500);
    const int dataRow = fixedRows;
    m_grid->setTextMatrix(dataRow, 2, QStringLiteral("5"));
    m_grid->setTextMatrix(dataRow, 3, QStringLiteral("note"));
    QCOMPARE(m_grid->Rows(), fixedRows + 1);

    // A plain hosted RemoveItem would raise 30015 here; the grid clears instead.
    QCOMPARE(VemoTest::errorNumberOf([&] { m_grid->RemoveItem(dataRow); }), 0);

    QCOMPARE(m_grid->Rows(), fixedRows + 1);
    QCOMPARE(m_grid->FixedRows(), fixedRows);
    QCOMPARE(m_grid->FixedCols(), fixedCols);
    QCOMPARE(m_grid->FormatString(), format);
    QCOMPARE(m_grid->TextMatrix(0, 1), QStringLiteral("Name"));
    QCOMPARE(m_grid->TextMatrix(0, 2), QStringLiteral("Qty"));
    QCOMPARE(m_grid->TextMatrix(0, 3), QStringLiteral("Note"));
    QCOMPARE(m_grid->COLWIDTH(1), 2000);
    QCOMPARE(m_grid->COLWIDTH(2), 800);
    QCOMPARE(m_grid->COLWIDTH(3), 1500);
    for (int c = 0; c < m_grid->Cols(); ++c)
        QCOMPARE(m_grid->TextMatrix(dataRow, c), QString());
    QCOMPARE(m_grid->Row(), dataRow);
}

void tst_Rows::removeItemShiftsRowBands()
{
    build(QStringLiteral("|A|B"), 5);
    fill({{"a1"}, {"a2"}, {"a3"}, {"a4"}, {"a5"}});
    QCOMPARE(lookOf(*m_grid, 3, 1).backColor, Band1);

    m_grid->RemoveItem(2);

    // "a3" moved up from an even band to an odd one; every row is banded by its position.
    QCOMPARE(dataColumn(*m_grid, 1), QStringList({"a1", "a3", "a4", "a5"}));
    for (int r = m_grid->FixedRows(); r < m_grid->Rows(); ++r) {
        for (int c = 1; c < m_grid->Cols(); ++c)
            QCOMPARE(lookOf(*m_grid, r, c).backColor, bandOf(*m_grid, r));
    }
}

void tst_Rows::removeItemBadIndexReachesHost()
{
    build(QStringLiteral("|A"), 3);
    fill({{"a1"}, {"a2"}, {"a3"}});
    QCOMPARE(VemoTest::errorNumberOf([&] { m_grid->RemoveItem(99); }), 30002);
    QCOMPARE(m_grid->Rows(), 4);
}

// ---- Clear, ClearStructure --------------------------------------------------------------------

void tst_Rows::clearKeepsStructure_data()
{
    QTest::addColumn<int>("fixedRows");
    QTest::addColumn<int>("fixedCols");
    QTest::newRow("1 fixed row, 1 fixed column") << 1 << 1;
    QTest::newRow("2 fixed rows, 2 fixed columns") << 2 << 2;
}

void tst_Rows::clearKeepsStructure()
{
    QFETCH(int, fixedRows);
    QFETCH(int, fixedCols);
    const QString format = QStringLiteral("|<Name|>Qty|^Note");
    build(format, 5);
    m_grid->setFixedRows(fixedRows);
    m_grid->setFixedCols(fixedCols);
    m_grid->setCOLWIDTH(0, 600);
    m_grid->setCOLWIDTH(1, 2100);
    m_grid->setCOLWIDTH(2, 900);
    m_grid->setCOLWIDTH(3, 1200);
    for (int r = fixedRows; r < m_grid->Rows(); ++r) {
        for (int c = 1; c < m_grid->Cols(); ++c)
            m_grid->setTextMatrix(r, c, QStringLiteral("%1,%2").arg(r).arg(c));
    }
    clickCell(*m_grid, fixedRows + 2, 3);
    QCOMPARE(m_grid->Selected(), fixedRows + 2);

    m_grid->Clear();

    QCOMPARE(m_grid->Rows(), fixedRows + 1);
    QCOMPARE(m_grid->Cols(), 4);
    QCOMPARE(m_grid->FixedRows(), fixedRows);
    QCOMPARE(m_grid->FixedCols(), fixedCols);
    QCOMPARE(m_grid->FormatString(), format);
    QCOMPARE(m_grid->TextMatrix(0, 1), QStringLiteral("Name"));
    QCOMPARE(m_grid->TextMatrix(0, 2), QStringLiteral("Qty"));
    QCOMPARE(m_grid->TextMatrix(0, 3), QStringLiteral("Note"));
    QCOMPARE(m_grid->COLWIDTH(0), 600);
    QCOMPARE(m_grid->COLWIDTH(1), 2100);
    QCOMPARE(m_grid->COLWIDTH(2), 900);
    QCOMPARE(m_grid->COLWIDTH(3), 1200);
    for (int c = 1; c < m_grid->Cols(); ++c)
        QCOMPARE(m_grid->TextMatrix(fixedRows, c), QString());
    QCOMPARE(m_grid->Row(), fixedRows);
    QCOMPARE(m_grid->Selected(), 0);
    QCOMPARE(rowsWithMarker(*m_grid), QList<int>());
    // The colouring pass ran over the new data row.
    QCOMPARE(lookOf(*m_grid, fixedRows, fixedCols).backColor, Band1);
}

void tst_Rows::clearStructureLeavesColumnObjects()
{
    build(QStringLiteral("|A|B"), 2);
    fill({{"a1", "b1"}, {"a2", "b2"}});
    m_grid->setColType(2, eCurrency);
    m_grid->Column(1)->setAutoAdd(true);
    m_grid->Column(1)->setMaxLength(7);
    const VemoGridLib::Column* const column1 = m_grid->Column(1);
    const VemoGridLib::Column* const column2 = m_grid->Column(2);

    m_grid->ClearStructure();

    QCOMPARE(m_grid->Cols(), 3);
    QCOMPARE(m_grid->Rows(), 3);
    QCOMPARE(m_grid->Column(1), column1);
    QCOMPARE(m_grid->Column(2), column2);
    QVERIFY(m_grid->Column(1)->AutoAdd());
    QCOMPARE(m_grid->Column(1)->MaxLength(), qint16(7));
    QCOMPARE(m_grid->ColType(2), eCurrency);
    QCOMPARE(dataColumn(*m_grid, 2), QStringList({"b1", "b2"}));
}

// ---- typed cell writes ------------------------------------------------------------------------

void tst_Rows::checkBoxTextMatrixLet_data()
{
    QTest::addColumn<bool>("initially");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("checked");

    QTest::newRow("0 unchecks") << true << "0" << false;
    QTest::newRow("-1 checks") << false << "-1" << true;
    QTest::newRow("True checks") << false << "True" << true;
    QTest::newRow("False unchecks") << true << "False" << false;
    QTest::newRow("yes ignored (checked)") << true << "yes" << true;
    QTest::newRow("yes ignored (unchecked)") << false << "yes" << false;
    // Only the four exact texts reach CBool: other case, blanks and other numbers are ignored.
    QTest::newRow("true ignored") << false << "true" << false;
    QTest::newRow("1 ignored") << false << "1" << false;
    QTest::newRow("' -1' ignored") << false << " -1" << false;
    QTest::newRow("empty ignored") << true << "" << true;
    QTest::newRow("marker . ignored") << false << "." << false;
}

void tst_Rows::checkBoxTextMatrixLet()
{
    QFETCH(bool, initially);
    QFETCH(QString, value);
    QFETCH(bool, checked);
    build(QStringLiteral("|A|Check"), 3);
    m_grid->setColType(2, eCheckBox);
    m_grid->setcgChecked(2, 2, initially);
    const QString rawBefore = m_grid->hostedGrid()->TextMatrix(2, 2);
    m_grid->setRow(1);
    m_grid->setCol(1);

    m_grid->setTextMatrix(2, 2, value);

    QCOMPARE(m_grid->cgChecked(2, 2), checked);
    QCOMPARE(m_grid->TextMatrix(2, 2), checked ? QStringLiteral("True") : QStringLiteral("False"));
    if (checked == initially) // ignored or the same state: the stored marker is untouched
        QCOMPARE(m_grid->hostedGrid()->TextMatrix(2, 2), rawBefore);
    else
        QCOMPARE(m_grid->hostedGrid()->TextMatrix(2, 2), checked ? Checked : Unchecked);
    // A bulk write: the current cell stays where it was.
    QCOMPARE(m_grid->Row(), 1);
    QCOMPARE(m_grid->Col(), 1);
}

void tst_Rows::checkBoxTextMatrixGet_data()
{
    QTest::addColumn<QString>("raw");
    QTest::addColumn<QString>("expected");
    QTest::newRow(".") << "."
                       << "True";
    QTest::newRow("`") << "`"
                       << "False";
    QTest::newRow("empty") << ""
                           << "False";
    // Only the exact marker is checked, whatever else the raw text says.
    QTest::newRow("True") << "True"
                          << "False";
    QTest::newRow("-1") << "-1"
                        << "False";
    QTest::newRow("' . '") << " . "
                           << "False";
}

void tst_Rows::checkBoxTextMatrixGet()
{
    QFETCH(QString, raw);
    QFETCH(QString, expected);
    build(QStringLiteral("|A|Check"), 2);
    m_grid->setColType(2, eCheckBox);
    // The raw cell text can only be planted through the hosted grid.
    m_grid->hostedGrid()->setTextMatrix(1, 2, raw);

    QCOMPARE(m_grid->TextMatrix(1, 2), expected);
    // A text column returns the hosted text unchanged.
    m_grid->hostedGrid()->setTextMatrix(1, 1, raw);
    QCOMPARE(m_grid->TextMatrix(1, 1), raw);
}

void tst_Rows::dateTextMatrixLet_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("stored"); // "" = nothing stored: the old text stays

    QTest::newRow("formatted") << "yyyy-mm-dd"
                               << "2024-2-3"
                               << "2024-02-03";
    QTest::newRow("formatted, other shape") << "yyyy/mm/dd"
                                            << "2024-02-03"
                                            << "2024/02/03";
    QTest::newRow("month name") << "dd mmm yyyy"
                                << "2024-2-3"
                                << "03 Feb 2024";
    QTest::newRow("date and time") << "yyyymmddHhNnSs"
                                   << "2023-12-31 13:05:09"
                                   << "20231231130509";
    QTest::newRow("empty format stores as given") << ""
                                                  << "2024-2-3"
                                                  << "2024-2-3";
    QTest::newRow("not a date") << "yyyy-mm-dd"
                                << "abc"
                                << "";
    QTest::newRow("not a date, empty format") << ""
                                              << "abc"
                                              << "";
    QTest::newRow("impossible date") << "yyyy-mm-dd"
                                     << "2024/2/30"
                                     << "";
    QTest::newRow("a bare number is no date") << "yyyy-mm-dd"
                                              << "2024"
                                              << "";
    QTest::newRow("empty text is no date") << "yyyy-mm-dd"
                                           << ""
                                           << "";
}

void tst_Rows::dateTextMatrixLet()
{
    QFETCH(QString, format);
    QFETCH(QString, value);
    QFETCH(QString, stored);
    // Dates are read and month names written in the user locale: pin the one of the table.
    const VemoTest::ScopedLocale locale("en_US.UTF-8");
    build(QStringLiteral("|A|Date"), 2);
    m_grid->setColType(2, eCalendar);
    m_grid->Column(2)->setFormatString(format);
    const QString old = QStringLiteral("old");
    m_grid->hostedGrid()->setTextMatrix(1, 2, old);

    m_grid->setTextMatrix(1, 2, value);

    QCOMPARE(m_grid->TextMatrix(1, 2), stored.isEmpty() ? old : stored);
}

void tst_Rows::hyperlinkTextMatrixLet()
{
    build(QStringLiteral("|A|Link"), 3);
    m_grid->setColType(2, ehyperlink);
    m_grid->setRow(1);
    m_grid->setCol(1);
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

    m_grid->setTextMatrix(3, 2, QStringLiteral("https://example.com"));

    QCOMPARE(m_grid->TextMatrix(3, 2), QStringLiteral("https://example.com"));
    QCOMPARE(lookOf(*m_grid, 3, 2).foreColor, HyperlinkBlue);
    QCOMPARE(lookOf(*m_grid, 3, 2).underline, std::int8_t(1));
    // The written cell becomes current, with the grid's events suppressed meanwhile.
    QCOMPARE(m_grid->Row(), 3);
    QCOMPARE(m_grid->Col(), 2);
    QCOMPARE(leaves, 0);
    QCOMPARE(enters, 0);
    // Only that cell is formatted.
    QCOMPARE(lookOf(*m_grid, 2, 2).underline, std::int8_t(-1));
    QVERIFY(lookOf(*m_grid, 2, 2).foreColor != HyperlinkBlue);

    // The flag is cleared afterwards: the grid's own moves raise their events again.
    m_grid->setRow(1);
    QCOMPARE(leaves, 1);
    QCOMPARE(enters, 1);
}

void tst_Rows::otherTypesStoreAsGiven_data()
{
    QTest::addColumn<VemoGridColType>("type");
    QTest::addColumn<QString>("value");
    QTest::newRow("text") << eTextBox << "  abc ";
    QTest::newRow("combo") << eComboBox << "item";
    QTest::newRow("button") << eButton << "btn";
    // No number formatting on the way in, not even the currency column's "#,##0.00".
    QTest::newRow("currency") << eCurrency << "1234.5";
    QTest::newRow("numeric") << eNumeric << "1.23456789";
    QTest::newRow("long") << eLong << "2.5";
    QTest::newRow("numeric, not a number") << eNumeric << "abc";
}

void tst_Rows::otherTypesStoreAsGiven()
{
    QFETCH(VemoGridColType, type);
    QFETCH(QString, value);
    build(QStringLiteral("|A|B"), 2);
    m_grid->setColType(2, type);
    m_grid->setRow(1);
    m_grid->setCol(1);

    m_grid->setTextMatrix(2, 2, value);

    QCOMPARE(m_grid->TextMatrix(2, 2), value);
    QCOMPARE(m_grid->hostedGrid()->TextMatrix(2, 2), value);
    QCOMPARE(m_grid->Row(), 1);
    QCOMPARE(m_grid->Col(), 1);
}

void tst_Rows::textLetIsTypedOnCurrentCell()
{
    build(QStringLiteral("|Text|Date|Check"), 2);
    m_grid->setColType(2, eCalendar);
    m_grid->Column(2)->setFormatString(QStringLiteral("yyyy-mm-dd"));
    m_grid->setColType(3, eCheckBox);

    m_grid->setRow(2);
    m_grid->setCol(2);
    m_grid->setText(QStringLiteral("2024-2-3"));
    QCOMPARE(m_grid->TextMatrix(2, 2), QStringLiteral("2024-02-03"));
    QCOMPARE(m_grid->Text(), QStringLiteral("2024-02-03"));
    m_grid->setText(QStringLiteral("abc"));
    QCOMPARE(m_grid->Text(), QStringLiteral("2024-02-03"));

    m_grid->setCol(3);
    m_grid->setText(QStringLiteral("-1"));
    QVERIFY(m_grid->cgChecked(2, 3));
    QCOMPARE(m_grid->Text(), QStringLiteral("True"));
    m_grid->setText(QStringLiteral("yes"));
    QCOMPARE(m_grid->Text(), QStringLiteral("True"));

    m_grid->setCol(1);
    m_grid->setText(QStringLiteral("plain"));
    QCOMPARE(m_grid->TextMatrix(2, 1), QStringLiteral("plain"));
    QCOMPARE(m_grid->Text(), QStringLiteral("plain"));
    // Only the current cell was written.
    QCOMPARE(m_grid->TextMatrix(1, 1), QString());
}

void tst_Rows::cgCheckedRoundTrip()
{
    build(QStringLiteral("|A|Check"), 2);
    m_grid->setColType(2, eCheckBox);

    m_grid->setcgChecked(1, 2, true);
    QVERIFY(m_grid->cgChecked(1, 2));
    QCOMPARE(m_grid->hostedGrid()->TextMatrix(1, 2), Checked);
    const QPixmap checkedPicture = lookOf(*m_grid, 1, 2).picture;
    QVERIFY(!checkedPicture.isNull());
    QVERIFY(!m_grid->cgChecked(2, 2));

    m_grid->setcgChecked(1, 2, false);
    QVERIFY(!m_grid->cgChecked(1, 2));
    QCOMPARE(m_grid->hostedGrid()->TextMatrix(1, 2), Unchecked);
    const QPixmap uncheckedPicture = lookOf(*m_grid, 1, 2).picture;
    QVERIFY(!uncheckedPicture.isNull());
    // The box is redrawn: the two states show different pictures.
    QVERIFY(checkedPicture.toImage() != uncheckedPicture.toImage());
}

void tst_Rows::versionIs3015()
{
    const QVariant version = m_grid->Version();
    QCOMPARE(version.typeId(), QMetaType::QString);
    QCOMPARE(version.toString(), QStringLiteral("3.0.15"));
}

void tst_Rows::textMatrixLetBadColumnRaises9_data()
{
    QTest::addColumn<int>("col");
    QTest::newRow("-1") << -1;
    QTest::newRow("Cols") << 3;
    QTest::newRow("99") << 99;
}

void tst_Rows::textMatrixLetBadColumnRaises9()
{
    QFETCH(int, col);
    build(QStringLiteral("|A|B"), 2);
    QCOMPARE(VemoTest::errorNumberOf([&] { m_grid->setTextMatrix(1, col, QStringLiteral("x")); }),
             VemoError::SubscriptOutOfRange);
}

QTEST_MAIN(tst_Rows)
#include "tst_rows.moc"
