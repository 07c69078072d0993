// SPDX-License-Identifier: MIT
// VemoGrid's auto-calculated result column: the operator and its message, the result computed
// when an operand cell is left, rounded and formatted by its column, and division by zero.
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
constexpr int Operand1 = 1, Operand2 = 2, Result = 3, Other = 4;

} // namespace

class tst_AutoCalc : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { pinFont(); }

    void init()
    {
        m_recorder = std::make_unique<MessageRecorder>();
        m_grid = shownGrid(QStringLiteral("|A|B|Result|Other"), 3);
        QVERIFY(m_grid);
    }

    void cleanup()
    {
        m_grid.reset();
        m_recorder.reset();
    }

    void operatorSetting_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QByteArray>("lang");
        QTest::addColumn<QString>("message"); // empty: none
        const auto row = [](const char* tag, const char* value, const char* stored,
                            const char* lang, const char* message) {
            QTest::newRow(tag) << value << stored << QByteArray(lang) << QString::fromUtf8(message);
        };
        row("blank then /x", " /x", "/", "en_US.UTF-8", "");
        // VB's Trim removes spaces only: a leading TAB is the operator.
        row("TAB then *", "\t*", "\t", "en_US.UTF-8", "Operator ERROR");
        row("blanks, zh_CN", "  ", "", "zh_CN.UTF-8", "运算符错误!");
        row("%, zh_TW", "%", "%", "zh_TW.UTF-8", "運算符錯誤!");
    }

    void operatorSetting()
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

    void result_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("decimals"); // -1: the type's own
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("calc"); // operand|operator|operand
        QTest::addColumn<QString>("expected");
        // Rounded half to even on the binary value first, then formatted by the column.
        const auto row = [](const char* tag, VemoGridColType type, int decimals, const char* format,
                            const char* calc, const char* expected) {
            QTest::newRow(tag) << int(type) << decimals << format << calc << expected;
        };
        row("currency thousands", eCurrency, -1, "#,##0.00", "1|-|1234.5", "-1,233.50");
        row("currency 0.125 to even", eCurrency, -1, "#,##0.00", "0.125|*|1", "0.12");
        row("numeric 1/3", eNumeric, -1, "", "1|/|3", "0.333333");
        row("numeric 2.675 binary", eNumeric, 2, "", "2.675|*|1", "2.68");
        row("text, VB number forms", eTextBox, -1, "", "1,000|+| 1 ", "1001");
        row("text formatted", eTextBox, -1, "#,##0.0", "1500|+|0.25", "1,500.3");
        // No decimals: VB's plain 15-digit text, neither rounded nor formatted.
        row("long 0.1 + 0.2", eLong, -1, "#,##0.00", "0.1|+|0.2", "0.3");
        row("0 decimals, 1E+15", eNumeric, 0, "", "1000000000000000|*|1", "1E+15");
        // A non-numeric or empty operand, or no operator, leaves the result alone.
        row("12abc", eTextBox, -1, "", "12abc|+|1", "keep");
        row("empty operand", eTextBox, -1, "", "2|+|", "keep");
        row("no operator", eTextBox, -1, "", "2|x|3", "keep");
    }

    void result()
    {
        QFETCH(int, type);
        QFETCH(int, decimals);
        QFETCH(QString, format);
        QFETCH(QString, calc);
        QFETCH(QString, expected);
        m_grid->setColType(Result, VemoGridColType(type));
        if (decimals >= 0)
            m_grid->Column(Result)->setDecimalLength(qint16(decimals));
        m_grid->Column(Result)->setFormatString(format);
        const QStringList parts = calc.split(u'|');
        build(parts[0], parts[1], parts[2]);
        m_recorder->messages.clear();
        m_grid->setCol(Operand2);
        QCOMPARE(m_grid->TextMatrix(1, Result), expected);
        // Only the row of the left cell is computed.
        QCOMPARE(m_grid->TextMatrix(2, Result), QString());
        QVERIFY(m_recorder->messages.isEmpty());
    }

    void userLeavingAnOperandComputes()
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

    void gatedOff()
    {
        build(QStringLiteral("2"), QStringLiteral("+"), QStringLiteral("3"));
        m_grid->setEditEnable(false);
        m_grid->setCol(Other);
        QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("keep"));

        // SortOnCol leaves events, and so the computation, suppressed until the next sort.
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

    void divisionByZero()
    {
        build(QStringLiteral("0"), QStringLiteral("/"), QStringLiteral("0"));
        // Raised to code that moves the cell; VB's 0 / 0 is an overflow.
        QCOMPARE(errorNumberOf([&] { m_grid->setCol(Operand2); }), qint32(VemoError::Overflow));
        m_grid->setTextMatrix(1, Operand1, QStringLiteral("-2.5"));
        QCOMPARE(errorNumberOf([&] { m_grid->setRow(2); }), 11);
        QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("keep"));

        // A user's move cannot carry the error through the event loop: the grid swallows it.
        QVERIFY_THROWS_NO_EXCEPTION(clickCell(*m_grid, 2, Other));
        QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("keep"));
        m_grid->setTextMatrix(1, Operand2, QStringLiteral("4"));
        m_grid->setRow(1);
        m_grid->setCol(Operand1);
        QVERIFY_THROWS_NO_EXCEPTION(clickCell(*m_grid, 2, Other));
        QCOMPARE(m_grid->TextMatrix(1, Result), QStringLiteral("-0.625"));
    }

private:
    /// Operand 1 `op` operand 2 -> result; the current cell (1, 1). Typed writes compute nothing.
    void build(const QString& a, const QString& op, const QString& b)
    {
        m_grid->setAutoCalc1(Operand1);
        m_grid->setAutoCalc2(Operand2);
        m_grid->setAutoCalcRES(Result);
        m_grid->setAutoCalcOPE(op);
        m_grid->setRow(1);
        m_grid->setCol(Operand1);
        m_grid->setTextMatrix(1, Operand1, a);
        m_grid->setTextMatrix(1, Operand2, b);
        m_grid->setTextMatrix(1, Result, QStringLiteral("keep"));
    }

    std::unique_ptr<VemoGrid> m_grid;
    std::unique_ptr<MessageRecorder> m_recorder;
};

QTEST_MAIN(tst_AutoCalc)
#include "tst_autocalc.moc"
