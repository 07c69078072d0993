// SPDX-License-Identifier: MIT
// VemoGrid's auto-calculated result column: the operator setting and its message, the result
// computed when an operand cell is left, rounded and formatted by the result column, and
// division by zero.
#include <VemoGridLib/Messages.h>
#include <VemoGridLib/VemoGrid.h>

#include "MessageRecorder.h"
#include "VemoGridTestSupport.h"
#include "VemoTestSupport.h"

#include <QSignalSpy>
#include <QTest>

using namespace VemoGridLib;
using namespace VemoTest;

namespace {

// Operands in columns 1 and 2, the result in 3, column 4 unrelated.
constexpr int Operand1 = 1;
constexpr int Operand2 = 2;
constexpr int Result = 3;
constexpr int Other = 4;

} // namespace

class tst_AutoCalc : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { pinFont(); }
    void init();
    void cleanup();

    void operatorSetting_data();
    void operatorSetting();
    void result_data();
    void result();
    void userLeavingAnOperandComputes();
    void gatedOff();
    void divisionByZero();

private:
    /// Operand 1 `op` operand 2 -> result over three data rows; the current cell (1, 1).
    void build(const QString& a, const QString& op, const QString& b);

    std::unique_ptr<VemoGrid> m_grid;
    std::unique_ptr<MessageRecorder> m_recorder;
};

void tst_AutoCalc::init()
{
    m_recorder = std::make_unique<MessageRecorder>();
    m_grid = shownGrid(QStringLiteral("|A|B|Result|Other"), 3);
    QVERIFY(m_grid);
}

void tst_AutoCalc::cleanup()
{
    m_grid.reset();
    m_recorder.reset();
}

void tst_AutoCalc::build(const QString& a, const QString& op, const QString& b)
{
    m_grid->setAutoCalc1(Operand1);
    m_grid->setAutoCalc2(Operand2);
    m_grid->setAutoCalcRES(Result);
    m_grid->setAutoCalcOPE(op);
    m_grid->setRow(1);
    m_grid->setCol(Operand1);
    // Typed writes compute nothing.
    m_grid->setTextMatrix(1, Operand1, a);
    m_grid->setTextMatrix(1, Operand2, b);
    m_grid->setTextMatrix(1, Result, QStringLiteral("keep"));
}

void tst_AutoCalc::operatorSetting_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QByteArray>("lang");
    QTest::addColumn<QString>("message"); // empty: none

    const QByteArray en("en_US.UTF-8");
    QTest::newRow("blank then /x") << " /x"
                                   << "/" << en << "";
    // VB's Trim removes spaces only: a leading TAB is the operator.
    QTest::newRow("TAB then *") << "\t*"
                                << "\t" << en << "Operator ERROR";
    QTest::newRow("x*, English") << "x*"
                                 << "x" << en << "Operator ERROR";
    QTest::newRow("blanks, Simplified Chinese")
        << "  "
        << "" << QByteArray("zh_CN.UTF-8") << QString::fromUtf8("运算符错误!");
    QTest::newRow("%, Traditional Chinese")
        << "%"
        << "%" << QByteArray("zh_TW.UTF-8") << QString::fromUtf8("運算符錯誤!");
}

void tst_AutoCalc::operatorSetting()
{
    QFETCH(QString, value);
    QFETCH(QString, stored);
    QFETCH(QByteArray, lang);
    QFETCH(QString, message);
    const ScopedLocale locale(lang);
    QSignalSpy changes(m_grid.get(), &VemoGrid::PropertyChanged);

    m_grid->setAutoCalcOPE(value);

    QCOMPARE(m_grid->AutoCalcOPE(), stored);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(m_recorder->messages.size(), message.isEmpty() ? 0 : 1);
    if (!message.isEmpty()) {
        const Message& shown = m_recorder->messages.at(0);
        QCOMPARE(shown.text, message);
        // The English text has no title of its own.
        QCOMPARE(shown.title, lang == "en_US.UTF-8" ? QString() : QString::fromUtf8("提示"));
        QCOMPARE(shown.icon, MessageIcon::Critical);
    }
}

void tst_AutoCalc::result_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("decimals"); // -1: the type's own
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("op");
    QTest::addColumn<QString>("b");
    QTest::addColumn<QString>("expected");

    // Rounded half to even on the binary value first, then formatted by the column.
    const QString currency = QStringLiteral("#,##0.00");
    const auto row = [](const char* tag, VemoGridColType type, int decimals, const QString& format,
                        const char* a, const char* op, const char* b, const char* expected) {
        QTest::newRow(tag) << int(type) << decimals << format << a << op << b << expected;
    };
    row("currency thousands", eCurrency, -1, currency, "1", "-", "1234.5", "-1,233.50");
    row("currency 0.125 to even", eCurrency, -1, currency, "0.125", "*", "1", "0.12");
    row("numeric 1/3", eNumeric, -1, "", "1", "/", "3", "0.333333");
    row("numeric 2.675 binary", eNumeric, 2, "", "2.675", "*", "1", "2.68");
    row("text, VB number forms", eTextBox, -1, "", "1,000", "+", " 1 ", "1001");
    row("text formatted", eTextBox, -1, "#,##0.0", "1500", "+", "0.25", "1,500.3");
    // No decimals: VB's plain 15-digit text, neither rounded nor formatted.
    row("long 0.1 + 0.2", eLong, -1, currency, "0.1", "+", "0.2", "0.3");
    row("0 decimals, 1E+15", eNumeric, 0, "", "1000000000000000", "*", "1", "1E+15");
    // A non-numeric operand leaves the result alone.
    row("12abc", eTextBox, -1, "", "12abc", "+", "1", "keep");
    row("empty operand", eTextBox, -1, "", "2", "+", "", "keep");
    row("no operator", eTextBox, -1, "", "2", "x", "3", "keep");
}

void tst_AutoCalc::result()
{
    QFETCH(int, type);
    QFETCH(int, decimals);
    QFETCH(QString, format);
    QFETCH(QString, a);
    QFETCH(QString, op);
    QFETCH(QString, b);
    QFETCH(QString, expected);
    m_grid->setColType(Result, VemoGridColType(type));
    if (decimals >= 0)
        m_grid->Column(Result)->setDecimalLength(qint16(decimals));
    m_grid->Column(Result)->setFormatString(format);
    build(a, op, b);
    m_recorder->messages.clear();

    m_grid->setCol(Operand2);

    QCOMPARE(m_grid->TextMatrix(1, Result), expected);
    // Only the row of the left cell is computed.
    QCOMPARE(m_grid->TextMatrix(2, Result), QString());
    QVERIFY(m_recorder->messages.isEmpty());
}

void tst_AutoCalc::userLeavingAnOperandComputes()
{
    build(QStringLiteral("4"), QStringLiteral("*"), QStringLiteral("2.5"));
    m_grid->hostedGrid()->setFocus();
    QTest::keyClick(m_grid->hostedGrid(), Qt::Key_Down);
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("10"));

    // Leaving the result or an unrelated column computes nothing.
    m_grid->setTextMatrix(1, Result, QStringLiteral("keep"));
    m_grid->setCol(Other);
    m_grid->setRow(1);
    clickCell(*m_grid, 1, Result);
    clickCell(*m_grid, 2, Other);
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("keep"));
}

void tst_AutoCalc::gatedOff()
{
    build(QStringLiteral("2"), QStringLiteral("+"), QStringLiteral("3"));
    m_grid->setEditEnable(false);
    m_grid->setCol(Other);
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("keep"));

    // SortOnCol leaves the grid's events suppressed until the next sort, and the computation
    // with them.
    m_grid->setEditEnable(true);
    m_grid->SortOnCol(Operand1, VemoSortNone);
    m_grid->setCol(Operand1);
    m_grid->setCol(Other);
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("keep"));
    m_grid->Sort(Other);
    m_grid->setCol(Operand1);
    m_grid->setCol(Other);
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("5"));
}

void tst_AutoCalc::divisionByZero()
{
    build(QStringLiteral("0"), QStringLiteral("/"), QStringLiteral("0"));
    // Raised to code that moves the cell; VB's 0 / 0 is an overflow.
    QCOMPARE(errorNumberOf([&] { m_grid->setCol(Operand2); }), qint32(VemoError::Overflow));
    m_grid->setTextMatrix(1, Operand1, QStringLiteral("-2.5"));
    QCOMPARE(errorNumberOf([&] { m_grid->setRow(2); }), 11);
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("keep"));

    // A user's move cannot carry the error through the event loop: the grid swallows it and
    // goes on working.
    QVERIFY_THROWS_NO_EXCEPTION(clickCell(*m_grid, 2, Other));
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("keep"));
    m_grid->setTextMatrix(1, Operand2, QStringLiteral("4"));
    m_grid->setRow(1);
    m_grid->setCol(Operand1);
    QVERIFY_THROWS_NO_EXCEPTION(clickCell(*m_grid, 2, Other));
    QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("-0.625"));
}

QTEST_MAIN(tst_AutoCalc)
#include "tst_autocalc.moc"
