// Part 1.7: VemoGrid's auto-calculated result column: the four settings, the bad-operator
// message of Part 1.12, the computation run when an operand cell is left (by code, mouse or
// key), its rounding and formatting by the result column, and division by zero.
#include <VemoGridLib/Messages.h>
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoGrid.h>

#include "MessageRecorder.h"
#include "VemoGridTestSupport.h"
#include "VemoTestSupport.h"
#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace VemoGridLib;
using namespace VemoTest;

Q_DECLARE_METATYPE(VemoGridLib::MessageIcon)

namespace {

constexpr int RowHeightTwips = 300;
constexpr int ColWidthTwips = 1200;
// The layout of every test: operands in columns 1 and 2, the result in 3, column 4 unrelated.
constexpr int Operand1 = 1;
constexpr int Operand2 = 2;
constexpr int Result = 3;
constexpr int Other = 4;
constexpr qint32 DivisionByZero = 11;

} // namespace

class tst_AutoCalc : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void operatorKeepsFirstTrimmedCharacter_data();
    void operatorKeepsFirstTrimmedCharacter();
    void badOperatorMessage_data();
    void badOperatorMessage();
    void columnSettingsStoredAsGiven();

    void resultByColumn_data();
    void resultByColumn();
    void leavingACellTriggers_data();
    void leavingACellTriggers();
    void userLeavingACellTriggers_data();
    void userLeavingACellTriggers();
    void nonNumericOperandLeavesResult_data();
    void nonNumericOperandLeavesResult();
    void settingsOffComputeNothing_data();
    void settingsOffComputeNothing();
    void editEnableFalseComputesNothing();
    void suppressedEventsComputeNothing();
    void divisionByZeroFromCodeRaises_data();
    void divisionByZeroFromCodeRaises();
    void divisionByZeroFromUserIsContained();

private:
    /// Columns A, B, Result, Other and three data rows; operand 1 × operand 2 → result; the
    /// current cell (1, 1). Widths and heights are set so that cells can be clicked.
    void build(const QString& op = QStringLiteral("*"));
    /// Writes the operands of row 1 (the typed writes compute nothing).
    void setOperands(const QString& a, const QString& b);

    std::unique_ptr<VemoGrid> m_grid;
    std::unique_ptr<MessageRecorder> m_recorder;
};

void tst_AutoCalc::initTestCase()
{
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
}

void tst_AutoCalc::init()
{
    m_recorder = std::make_unique<MessageRecorder>();
    m_grid = shownGrid();
    QVERIFY(m_grid);
}

void tst_AutoCalc::cleanup()
{
    m_grid.reset();
    m_recorder.reset();
}

void tst_AutoCalc::build(const QString& op)
{
    m_grid->setFormatString(QStringLiteral("|A|B|Result|Other"));
    m_grid->setRows(4);
    for (int c = 0; c < m_grid->Cols(); ++c)
        m_grid->setCOLWIDTH(c, ColWidthTwips);
    for (int r = 0; r < m_grid->Rows(); ++r)
        m_grid->setRowHeight(r, RowHeightTwips);
    m_grid->setAutoCalc1(Operand1);
    m_grid->setAutoCalc2(Operand2);
    m_grid->setAutoCalcRES(Result);
    m_grid->setAutoCalcOPE(op);
    // Placed before any operand is written, so that these moves compute nothing.
    m_grid->setRow(1);
    m_grid->setCol(Operand1);
    QCoreApplication::processEvents();
}

void tst_AutoCalc::setOperands(const QString& a, const QString& b)
{
    m_grid->setTextMatrix(1, Operand1, a);
    m_grid->setTextMatrix(1, Operand2, b);
}

// ---- settings ---------------------------------------------------------------------------------

void tst_AutoCalc::operatorKeepsFirstTrimmedCharacter_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("message");

    QTest::newRow("*") << "*"
                       << "*" << false;
    QTest::newRow("+") << "+"
                       << "+" << false;
    QTest::newRow("-") << "-"
                       << "-" << false;
    QTest::newRow("/") << "/"
                       << "/" << false;
    QTest::newRow("blank then *x") << " *x"
                                   << "*" << false;
    QTest::newRow("blanks around /") << "  / "
                                     << "/" << false;
    QTest::newRow("x: shown and kept") << "x"
                                       << "x" << true;
    QTest::newRow("x*: only the first character") << "x*"
                                                  << "x" << true;
    QTest::newRow("%") << "%"
                       << "%" << true;
    QTest::newRow("empty: shown and kept") << ""
                                           << "" << true;
    QTest::newRow("blanks only") << "   "
                                 << "" << true;
    // VB's Trim removes spaces only: a leading TAB is the first character.
    QTest::newRow("TAB then *") << "\t*"
                                << "\t" << true;
}

void tst_AutoCalc::operatorKeepsFirstTrimmedCharacter()
{
    QFETCH(QString, value);
    QFETCH(QString, stored);
    QFETCH(bool, message);
    QSignalSpy changes(m_grid.get(), &VemoGrid::PropertyChanged);

    m_grid->setAutoCalcOPE(value);

    QCOMPARE(m_grid->AutoCalcOPE(), stored);
    QCOMPARE(m_recorder->messages.size(), message ? 1 : 0);
    // Reported in any case, also after the message.
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).toString(), QStringLiteral("AutoCalcOPE"));
}

void tst_AutoCalc::badOperatorMessage_data()
{
    QTest::addColumn<QByteArray>("lang");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");

    const QString zhTitle = QString::fromUtf8("提示");
    QTest::newRow("2052 Simplified Chinese")
        << QByteArray("zh_CN.UTF-8") << QString::fromUtf8("运算符错误!") << zhTitle;
    QTest::newRow("1028 Traditional Chinese")
        << QByteArray("zh_TW.UTF-8") << QString::fromUtf8("運算符錯誤!") << zhTitle;
    // The English text deliberately has no title of its own.
    QTest::newRow("1033 English") << QByteArray("en_US.UTF-8") << QStringLiteral("Operator ERROR")
                                  << QString();
    QTest::newRow("2057 English") << QByteArray("en_GB.UTF-8") << QStringLiteral("Operator ERROR")
                                  << QString();
}

void tst_AutoCalc::badOperatorMessage()
{
    QFETCH(QByteArray, lang);
    QFETCH(QString, text);
    QFETCH(QString, title);
    const VemoTest::ScopedLocale locale(lang);

    m_grid->setAutoCalcOPE(QStringLiteral("x"));

    QCOMPARE(m_recorder->messages.size(), 1);
    QCOMPARE(m_recorder->messages.at(0).text, text);
    QCOMPARE(m_recorder->messages.at(0).title, title);
    QCOMPARE(m_recorder->messages.at(0).icon, MessageIcon::Critical);
}

void tst_AutoCalc::columnSettingsStoredAsGiven()
{
    QSignalSpy changes(m_grid.get(), &VemoGrid::PropertyChanged);
    QCOMPARE(m_grid->AutoCalc1(), 0);
    QCOMPARE(m_grid->AutoCalc2(), 0);
    QCOMPARE(m_grid->AutoCalcRES(), 0);
    QCOMPARE(m_grid->AutoCalcOPE(), QString());

    // No range check: the grid has 2 columns.
    m_grid->setAutoCalc1(-3);
    m_grid->setAutoCalc2(99);
    m_grid->setAutoCalcRES(7);

    QCOMPARE(m_grid->AutoCalc1(), -3);
    QCOMPARE(m_grid->AutoCalc2(), 99);
    QCOMPARE(m_grid->AutoCalcRES(), 7);
    QCOMPARE(changes.count(), 3);
    QCOMPARE(changes.at(0).at(0).toString(), QStringLiteral("AutoCalc1"));
    QCOMPARE(changes.at(1).at(0).toString(), QStringLiteral("AutoCalc2"));
    QCOMPARE(changes.at(2).at(0).toString(), QStringLiteral("AutoCalcRES"));
    QVERIFY(m_recorder->messages.isEmpty());
}

// ---- the computation --------------------------------------------------------------------------

void tst_AutoCalc::resultByColumn_data()
{
    QTest::addColumn<VemoGridColType>("type");
    QTest::addColumn<int>("decimals"); // -1: the type's own
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("op");
    QTest::addColumn<QString>("b");
    QTest::addColumn<QString>("expected");

    // Currency: Round to 2 decimals (half to even on the binary product), then "#,##0.00".
    const QString currency = QStringLiteral("#,##0.00");
    QTest::newRow("currency 2 * 1.005") << eCurrency << -1 << currency << "2"
                                        << "*"
                                        << "1.005"
                                        << "2.01";
    QTest::newRow("currency thousands") << eCurrency << -1 << currency << "1234.5"
                                        << "*"
                                        << "1"
                                        << "1,234.50";
    QTest::newRow("currency negative") << eCurrency << -1 << currency << "1"
                                       << "-"
                                       << "1234.5"
                                       << "-1,233.50";
    // Round comes first: Format alone would round these halves up.
    QTest::newRow("currency 0.125 rounds to even") << eCurrency << -1 << currency << "0.125"
                                                   << "*"
                                                   << "1"
                                                   << "0.12";
    QTest::newRow("currency 1.005 is below the half") << eCurrency << -1 << currency << "1.005"
                                                      << "*"
                                                      << "1"
                                                      << "1.00";

    // A number of decimals and no format: the rounded value as plain text.
    QTest::newRow("numeric 1/3, 6 decimals") << eNumeric << -1 << ""
                                             << "1"
                                             << "/"
                                             << "3"
                                             << "0.333333";
    QTest::newRow("numeric 1/3, 2 decimals") << eNumeric << 2 << ""
                                             << "1"
                                             << "/"
                                             << "3"
                                             << "0.33";
    QTest::newRow("numeric 1.125 half to even") << eNumeric << 2 << ""
                                                << "1.125"
                                                << "*"
                                                << "1"
                                                << "1.12";
    QTest::newRow("numeric 2.675 binary product") << eNumeric << 2 << ""
                                                  << "2.675"
                                                  << "*"
                                                  << "1"
                                                  << "2.68";
    QTest::newRow("text column, 6 decimals") << eTextBox << -1 << ""
                                             << "2"
                                             << "*"
                                             << "3"
                                             << "6";
    QTest::newRow("division") << eTextBox << -1 << ""
                              << "7"
                              << "/"
                              << "2"
                              << "3.5";
    QTest::newRow("subtraction") << eTextBox << -1 << ""
                                 << "5"
                                 << "-"
                                 << "7.5"
                                 << "-2.5";
    QTest::newRow("addition, VB number forms") << eTextBox << -1 << ""
                                               << "1,000"
                                               << "+"
                                               << " 1 "
                                               << "1001";

    // A format string on the result column, applied to the rounded value.
    QTest::newRow("numeric formatted") << eNumeric << 2 << "0.000"
                                       << "1.125"
                                       << "*"
                                       << "1"
                                       << "1.120";
    QTest::newRow("text formatted") << eTextBox << -1 << "#,##0.0"
                                    << "1500"
                                    << "+"
                                    << "0.25"
                                    << "1,500.3";

    // DecimalLength 0: VB's plain 15-digit text, not rounded, no format.
    QTest::newRow("long 0.1 + 0.2") << eLong << -1 << ""
                                    << "0.1"
                                    << "+"
                                    << "0.2"
                                    << "0.3";
    QTest::newRow("0 decimals, 2.5 not rounded") << eNumeric << 0 << ""
                                                 << "2.5"
                                                 << "*"
                                                 << "1"
                                                 << "2.5";
    QTest::newRow("0 decimals, 15 digits") << eNumeric << 0 << ""
                                           << "1"
                                           << "/"
                                           << "3"
                                           << "0.333333333333333";
    QTest::newRow("0 decimals, 1E+15") << eNumeric << 0 << ""
                                       << "1000000000000000"
                                       << "*"
                                       << "1"
                                       << "1E+15";
    QTest::newRow("0 decimals ignore the format") << eLong << -1 << currency << "1234.5"
                                                  << "*"
                                                  << "1"
                                                  << "1234.5";
}

void tst_AutoCalc::resultByColumn()
{
    QFETCH(VemoGridColType, type);
    QFETCH(int, decimals);
    QFETCH(QString, format);
    QFETCH(QString, a);
    QFETCH(QString, op);
    QFETCH(QString, b);
    QFETCH(QString, expected);
    build(op);
    m_grid->setColType(Result, type);
    if (decimals >= 0)
        m_grid->Column(Result)->setDecimalLength(qint16(decimals));
    m_grid->Column(Result)->setFormatString(format);
    setOperands(a, b);
    QCOMPARE(m_grid->TextMatrix(1, Result), QString());

    m_grid->setCol(Operand2);

    QCOMPARE(m_grid->TextMatrix(1, Result), expected);
    // Only the row of the left cell is computed.
    QCOMPARE(m_grid->TextMatrix(2, Result), QString());
    QVERIFY(m_recorder->messages.isEmpty());
}

void tst_AutoCalc::leavingACellTriggers_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<bool>("byRow"); // leave with setRow(2) instead of setCol(Other)
    QTest::addColumn<bool>("computed");
    QTest::newRow("operand 1, setCol") << Operand1 << false << true;
    QTest::newRow("operand 2, setCol") << Operand2 << false << true;
    QTest::newRow("operand 1, setRow") << Operand1 << true << true;
    QTest::newRow("operand 2, setRow") << Operand2 << true << true;
    QTest::newRow("result column, setCol") << Result << false << false;
    QTest::newRow("other column, setCol") << Other << false << false;
    QTest::newRow("other column, setRow") << Other << true << false;
}

void tst_AutoCalc::leavingACellTriggers()
{
    QFETCH(int, from);
    QFETCH(bool, byRow);
    QFETCH(bool, computed);
    build(QStringLiteral("+"));
    m_grid->setCol(from);
    setOperands(QStringLiteral("2"), QStringLiteral("3"));
    m_grid->setTextMatrix(1, Result, QStringLiteral("keep"));

    if (byRow)
        m_grid->setRow(2);
    else
        m_grid->setCol(from == Other ? Operand1 : Other);

    QCOMPARE(m_grid->TextMatrix(1, Result),
             computed ? QStringLiteral("5") : QStringLiteral("keep"));
    QCOMPARE(m_grid->TextMatrix(2, Result), QString());
}

void tst_AutoCalc::userLeavingACellTriggers_data()
{
    QTest::addColumn<QString>("action");
    QTest::newRow("click on another row") << "click row";
    QTest::newRow("click in the same row") << "click col";
    QTest::newRow("Right key") << "right";
    QTest::newRow("Down key") << "down";
}

void tst_AutoCalc::userLeavingACellTriggers()
{
    QFETCH(QString, action);
    build(QStringLiteral("*"));
    setOperands(QStringLiteral("4"), QStringLiteral("2.5"));
    FlexGrid* const flex = m_grid->hostedGrid();
    flex->setFocus();

    if (action == QLatin1String("click row"))
        clickCell(*m_grid, 3, Other);
    else if (action == QLatin1String("click col"))
        clickCell(*m_grid, 1, Other);
    else if (action == QLatin1String("right"))
        QTest::keyClick(flex, Qt::Key_Right);
    else
        QTest::keyClick(flex, Qt::Key_Down);

    QVERIFY(m_grid->Row() != 1 || m_grid->Col() != Operand1);
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("10"));
}

void tst_AutoCalc::nonNumericOperandLeavesResult_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::newRow("abc") << "abc"
                         << "2";
    QTest::newRow("empty operand 2") << "2"
                                     << "";
    QTest::newRow("both empty") << ""
                                << "";
    QTest::newRow("blank") << " "
                           << "2";
    QTest::newRow("12abc") << "12abc"
                           << "1";
    QTest::newRow("inner blank") << "1 000"
                                 << "1";
    QTest::newRow("two points") << "1.2.3"
                                << "1";
}

void tst_AutoCalc::nonNumericOperandLeavesResult()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    build(QStringLiteral("+"));
    setOperands(a, b);
    m_grid->setTextMatrix(1, Result, QStringLiteral("keep"));

    m_grid->setCol(Operand2);

    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("keep"));
    QVERIFY(m_recorder->messages.isEmpty());
}

void tst_AutoCalc::settingsOffComputeNothing_data()
{
    QTest::addColumn<QString>("setting");
    QTest::newRow("AutoCalcRES 0") << "res";
    QTest::newRow("AutoCalc1 0") << "op1";
    QTest::newRow("AutoCalc2 0") << "op2";
    QTest::newRow("AutoCalcOPE empty") << "ope empty";
    QTest::newRow("AutoCalcOPE invalid") << "ope invalid";
}

void tst_AutoCalc::settingsOffComputeNothing()
{
    QFETCH(QString, setting);
    build(QStringLiteral("+"));
    setOperands(QStringLiteral("2"), QStringLiteral("3"));
    m_grid->setTextMatrix(1, Result, QStringLiteral("keep"));
    if (setting == QLatin1String("res"))
        m_grid->setAutoCalcRES(0);
    else if (setting == QLatin1String("op1"))
        m_grid->setAutoCalc1(0);
    else if (setting == QLatin1String("op2"))
        m_grid->setAutoCalc2(0);
    else if (setting == QLatin1String("ope empty"))
        m_grid->setAutoCalcOPE(QString());
    else
        m_grid->setAutoCalcOPE(QStringLiteral("x"));

    // Operand 1 is current (operand 2 once AutoCalc1 is 0).
    if (setting == QLatin1String("op1")) {
        m_grid->setCol(Operand2);
        m_grid->setCol(Other);
    } else {
        m_grid->setCol(Other);
    }

    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("keep"));
}

void tst_AutoCalc::editEnableFalseComputesNothing()
{
    build(QStringLiteral("+"));
    m_grid->setEditEnable(false);
    setOperands(QStringLiteral("2"), QStringLiteral("3"));
    QSignalSpy leaves(m_grid.get(), &VemoGrid::LeaveCell);

    m_grid->setCol(Operand2);
    m_grid->setRow(2);

    // LeaveCell is still raised; the commit and the computation are gated off.
    QCOMPARE(leaves.count(), 2);
    QCOMPARE(m_grid->TextMatrix(1, Result), QString());

    m_grid->setEditEnable(true);
    m_grid->setRow(1);
    m_grid->setCol(Operand1);
    m_grid->setCol(Other);
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("5"));
}

void tst_AutoCalc::suppressedEventsComputeNothing()
{
    // Part 1.7: the computation belongs to the leave-cell work that suppression switches off;
    // SortOnCol leaves the flag set until the next sort.
    build(QStringLiteral("+"));
    setOperands(QStringLiteral("2"), QStringLiteral("3"));
    m_grid->setRow(1);
    m_grid->setCol(Operand1);
    m_grid->hostedGrid()->setTextMatrix(1, Result, QString()); // computed on the way here
    m_grid->SortOnCol(Operand1, VemoSortNone);

    m_grid->setCol(Other);
    QCOMPARE(m_grid->TextMatrix(1, Result), QString());

    m_grid->Sort(Other); // a sort, even of a column without a SortType, clears the flag
    m_grid->setCol(Operand1);
    m_grid->setCol(Other);
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("5"));
}

void tst_AutoCalc::divisionByZeroFromCodeRaises_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<qint32>("error");
    QTest::newRow("1 / 0") << "1"
                           << "0" << DivisionByZero;
    QTest::newRow("-2.5 / 0") << "-2.5"
                              << "0" << DivisionByZero;
    QTest::newRow("1 / 0.0") << "1"
                             << "0.0" << DivisionByZero;
    // VB: 0 / 0 is an overflow.
    QTest::newRow("0 / 0") << "0"
                           << "0" << qint32(VemoError::Overflow);
}

void tst_AutoCalc::divisionByZeroFromCodeRaises()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(qint32, error);
    build(QStringLiteral("/"));
    setOperands(a, b);
    m_grid->setTextMatrix(1, Result, QStringLiteral("keep"));

    QCOMPARE(VemoTest::errorNumberOf([&] { m_grid->setCol(Operand2); }), error);
    QCOMPARE(VemoTest::errorNumberOf([&] { m_grid->setRow(2); }), error);

    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("keep"));
}

void tst_AutoCalc::divisionByZeroFromUserIsContained()
{
    build(QStringLiteral("/"));
    setOperands(QStringLiteral("1"), QStringLiteral("0"));
    m_grid->setTextMatrix(1, Result, QStringLiteral("keep"));

    // The error cannot travel through the event loop: the grid swallows it, for a click...
    QVERIFY_THROWS_NO_EXCEPTION(clickCell(*m_grid, 2, Other));
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("keep"));
    // ...and for a key (leaving the other column computes nothing, so these moves are safe).
    m_grid->setRow(1);
    m_grid->setCol(Operand1);
    QVERIFY_THROWS_NO_EXCEPTION(QTest::keyClick(m_grid->hostedGrid(), Qt::Key_Right));
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("keep"));

    // The grid goes on working: a valid division computes when the user leaves the operand.
    m_grid->setTextMatrix(1, Operand2, QStringLiteral("4"));
    QVERIFY(m_grid->Col() == Operand1 || m_grid->Col() == Operand2);
    QVERIFY_THROWS_NO_EXCEPTION(clickCell(*m_grid, 2, Other));
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("0.25"));
}

QTEST_MAIN(tst_AutoCalc)
#include "tst_autocalc.moc"
