// SPDX-License-Identifier: MIT
// VemoGrid's rows: AddItem with the empty-line rule and its message, the running number of
// AutoAdd columns, RemoveItem and Clear, and the typed cell writes.
#include <VemoGridLib/Messages.h>
#include <VemoGridLib/VemoGrid.h>

#include "MessageRecorder.h"
#include "VemoGridTestSupport.h"
#include "VemoTestSupport.h"

#include <QTest>

using namespace VemoGridLib;
using namespace VemoTest;

class tst_Rows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { pinFont(); }
    void addItemIndex_data();
    void addItemIndex();
    void emptyLineRule_data();
    void emptyLineRule();
    void autoAddRunningNumber();
    void removeItem();
    void lastDataRowAndClearKeepStructure_data();
    void lastDataRowAndClearKeepStructure();
    void typedWrites_data();
    void typedWrites();
};

void tst_Rows::addItemIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("0 appends") << 0 << QStringList({"a1", "a2", "x"});
    QTest::newRow("1 inserts first") << 1 << QStringList({"x", "a1", "a2"});
    QTest::newRow("past Rows: the hosted error") << 9 << QStringList({"a1", "a2"});
}

void tst_Rows::addItemIndex()
{
    QFETCH(int, index);
    QFETCH(QStringList, expected);
    const auto grid = shownGrid(QStringLiteral("|A|B"), 2);
    QVERIFY(grid);
    grid->setTextMatrix(1, 1, QStringLiteral("a1"));
    grid->setTextMatrix(2, 1, QStringLiteral("a2"));

    const qint32 error = errorNumberOf([&] { grid->AddItem(QStringLiteral("h\tx\ty"), index); });

    QCOMPARE(error, index > 3 ? 30002 : 0);
    QCOMPARE(columnTexts(*grid, 1), expected);
    // The new row is current; its first TAB segment goes to the fixed column.
    const int row = grid->Row();
    QCOMPARE(grid->TextMatrix(row, 0) + grid->TextMatrix(row, 2), QString(error ? "" : "hy"));
    // The rows pushed down change band.
    for (int r = 1; r < grid->Rows(); ++r)
        QCOMPARE(lookOf(*grid, r, 1).backColor, bandOf(*grid, r));
}

void tst_Rows::emptyLineRule_data()
{
    QTest::addColumn<bool>("nullLine");
    QTest::addColumn<QString>("text");      // column 1 of the current row
    QTest::addColumn<int>("checkState");    // column 2, a check box: -1 untouched, 0, 1
    QTest::addColumn<QString>("fixedText"); // column 0 of the current row
    QTest::addColumn<QByteArray>("lang");
    QTest::addColumn<QString>("message"); // empty: the row is added
    QTest::addColumn<QString>("title");

    const QByteArray en("en_US.UTF-8");
    const QString english = QStringLiteral("Do not allow add a null line!");
    const QString zhTitle = QString::fromUtf8("提示");
    QTest::newRow("empty, NullLine false, Simplified Chinese")
        << false << "" << -1 << "" << QByteArray("zh_CN.UTF-8")
        << QString::fromUtf8("不允许添加空行!") << zhTitle;
    QTest::newRow("empty, NullLine true") << true << "" << -1 << "" << en << ""
                                          << "";
    QTest::newRow("text") << false << "a" << -1 << "" << en << ""
                          << "";
    QTest::newRow("a blank counts as filled") << false << " " << -1 << "" << en << ""
                                              << "";
    QTest::newRow("an unchecked box is empty, Traditional Chinese")
        << false << "" << 0 << "" << QByteArray("zh_TW.UTF-8")
        << QString::fromUtf8("不允許添加空行!") << zhTitle;
    QTest::newRow("a checked box is filled") << false << "" << 1 << "" << en << ""
                                             << "";
    QTest::newRow("the fixed column does not count, English")
        << false << "" << 0 << "row" << en << english << "PROMPT";
    QTest::newRow("Hong Kong is English")
        << false << "" << -1 << "" << QByteArray("zh_HK.UTF-8") << english << "PROMPT";
}

void tst_Rows::emptyLineRule()
{
    QFETCH(bool, nullLine);
    QFETCH(QString, text);
    QFETCH(int, checkState);
    QFETCH(QString, fixedText);
    QFETCH(QByteArray, lang);
    QFETCH(QString, message);
    QFETCH(QString, title);
    const MessageRecorder recorder;
    const auto grid = shownGrid(QStringLiteral("|Text|Check"), 1);
    QVERIFY(grid);
    grid->setColType(2, eCheckBox);
    grid->setNullLine(nullLine);
    grid->setTextMatrix(1, 1, text);
    grid->setTextMatrix(1, 0, fixedText);
    if (checkState >= 0)
        grid->setcgChecked(1, 2, checkState == 1);
    QCOMPARE(grid->cgChecked(1, 2), checkState == 1);
    const ScopedLocale locale(lang);

    grid->AddItem(QStringLiteral("\tnew"));

    if (!message.isEmpty()) {
        QCOMPARE(grid->Rows(), 2);
        QCOMPARE(recorder.messages.size(), 1);
        QCOMPARE(recorder.messages.at(0).text, message);
        QCOMPARE(recorder.messages.at(0).title, title);
        QCOMPARE(recorder.messages.at(0).icon, MessageIcon::Information);
        return;
    }
    QCOMPARE(grid->Rows(), 3);
    QCOMPARE(grid->TextMatrix(2, 1), QStringLiteral("new"));
    // An empty row added after a filled one becomes current, and the rule applies to it.
    grid->AddItem(QString());
    grid->AddItem(QString());
    QCOMPARE(grid->Rows(), nullLine ? 5 : 4);
}

void tst_Rows::autoAddRunningNumber()
{
    const auto grid = shownGrid(QStringLiteral("|A|No"), 1);
    QVERIFY(grid);
    grid->Column(2)->setAutoAdd(true);
    grid->setTextMatrix(1, 1, QStringLiteral("a1"));

    grid->AddItem(QStringLiteral("\ta2"));
    // A pre-filled cell keeps its text and uses up no number.
    grid->AddItem(QStringLiteral("\ta3\tZ9"));
    grid->AddItem(QStringLiteral("\ta4"));
    QCOMPARE(columnTexts(*grid, 2), QStringList({"", "1", "Z9", "2"}));

    // Clear and ClearStructure keep the running number.
    grid->Clear();
    grid->AddItem(QStringLiteral("\tb"));
    grid->ClearStructure();
    grid->AddItem(QStringLiteral("\tc"));
    QCOMPARE(columnTexts(*grid, 2), QStringList({"1", "3", "4"}));
}

void tst_Rows::removeItem()
{
    const auto grid = shownGrid(QStringLiteral("|A|B"), 4);
    QVERIFY(grid);
    for (int row = 1; row <= 4; ++row)
        grid->setTextMatrix(row, 1, QStringLiteral("a%1").arg(row));

    // RemoveItem(0) removes the row the user marked, and nothing without one.
    grid->RemoveItem(0);
    QCOMPARE(grid->Rows(), 5);
    clickCell(*grid, 4, 2);
    QCOMPARE(grid->Selected(), 4);
    grid->RemoveItem(0);
    QCOMPARE(columnTexts(*grid, 1), QStringList({"a1", "a2", "a3"}));
    QCOMPARE(grid->Row(), 3);
    QCOMPARE(grid->Selected(), 0);

    // By index the marked row is forgotten too, and the rows below move up a band.
    clickCell(*grid, 3, 2);
    grid->RemoveItem(1);
    QCOMPARE(columnTexts(*grid, 1), QStringList({"a2", "a3"}));
    QCOMPARE(grid->Selected(), 0);
    for (int row = 1; row < 3; ++row)
        QVERIFY(!hasPicture(*grid, row, 0));
    QCOMPARE(lookOf(*grid, 1, 2).backColor, Band1);
    QCOMPARE(errorNumberOf([&] { grid->RemoveItem(99); }), 30002);
}

void tst_Rows::lastDataRowAndClearKeepStructure_data()
{
    QTest::addColumn<bool>("clear");
    QTest::addColumn<int>("fixed");
    QTest::newRow("RemoveItem, 1 fixed") << false << 1;
    QTest::newRow("RemoveItem, 2 fixed") << false << 2;
    QTest::newRow("Clear, 2 fixed") << true << 2;
}

void tst_Rows::lastDataRowAndClearKeepStructure()
{
    QFETCH(bool, clear);
    QFETCH(int, fixed);
    const QString format = QStringLiteral("|<Name|>Qty|^Note");
    const auto grid = shownGrid(format, clear ? 4 : fixed);
    QVERIFY(grid);
    grid->setFixedRows(fixed);
    grid->setFixedCols(fixed);
    grid->setCOLWIDTH(2, 900);
    for (int row = fixed; row < grid->Rows(); ++row)
        grid->setTextMatrix(row, 3, QStringLiteral("note"));
    clickCell(*grid, fixed, 3);

    // A plain hosted RemoveItem would refuse to remove the last data row: the grid clears.
    QCOMPARE(errorNumberOf([&] { clear ? grid->Clear() : grid->RemoveItem(fixed); }), 0);

    QCOMPARE(grid->Rows(), fixed + 1);
    QCOMPARE(grid->FixedRows() + grid->FixedCols(), 2 * fixed);
    QCOMPARE(grid->FormatString(), format);
    QCOMPARE(grid->TextMatrix(0, 2), QStringLiteral("Qty"));
    QCOMPARE(grid->COLWIDTH(2), 900);
    QCOMPARE(grid->TextMatrix(fixed, 3), QString());
    QCOMPARE(grid->Selected(), 0);
    QVERIFY(!hasPicture(*grid, fixed, 0));
    QCOMPARE(lookOf(*grid, fixed, 3).backColor, Band1);
}

void tst_Rows::typedWrites_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("before"); // the raw text already in the cell
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("raw");  // the raw text afterwards
    QTest::addColumn<QString>("read"); // what TextMatrix reads

    const auto row = [](const char* tag, VemoGridColType type, const char* format,
                        const char* before, const char* value, const char* raw, const char* read) {
        QTest::newRow(tag) << int(type) << format << before << value << raw << read;
    };
    // Check boxes take the four exact texts CBool knows and ignore the rest; only the exact
    // marker reads as checked.
    row("box -1 checks", eCheckBox, "", "`", "-1", ".", "True");
    row("box False unchecks", eCheckBox, "", ".", "False", "`", "False");
    row("box true ignored", eCheckBox, "", "`", "true", "`", "False");
    row("box padded marker", eCheckBox, "", " . ", "yes", " . ", "False");
    // Dates are stored in the column's format; what is no date is not stored.
    row("date", eCalendar, "yyyy/mm/dd", "old", "2024-2-3", "2024/02/03", "2024/02/03");
    row("month name", eCalendar, "dd mmm yyyy", "old", "2024-2-3", "03 Feb 2024", "03 Feb 2024");
    row("impossible date", eCalendar, "yyyy-mm-dd", "old", "2024/2/30", "old", "old");
    // Numbers are not formatted on the way in.
    row("currency", eCurrency, "", "", "1234.5", "1234.5", "1234.5");
}

void tst_Rows::typedWrites()
{
    QFETCH(int, type);
    QFETCH(QString, format);
    QFETCH(QString, before);
    QFETCH(QString, value);
    QFETCH(QString, raw);
    QFETCH(QString, read);
    // Dates are read and month names written in the user locale.
    const ScopedLocale locale("en_US.UTF-8");
    const auto grid = shownGrid(QStringLiteral("|A|B"), 2);
    QVERIFY(grid);
    grid->setColType(2, VemoGridColType(type));
    grid->Column(2)->setFormatString(format);
    grid->hostedGrid()->setTextMatrix(1, 2, before);
    grid->hostedGrid()->setTextMatrix(2, 2, before);
    grid->setRow(1);
    grid->setCol(1);

    grid->setTextMatrix(2, 2, value);

    QCOMPARE(grid->hostedGrid()->TextMatrix(2, 2), raw);
    QCOMPARE(grid->TextMatrix(2, 2), read);
    // A bulk write: the current cell stays. Text writes the current cell the same way.
    QCOMPARE(grid->Col(), 1);
    grid->setCol(2);
    grid->setText(value);
    QCOMPARE(grid->Text(), read);
    QCOMPARE(errorNumberOf([&] { grid->setTextMatrix(1, 3, value); }),
             qint32(VemoError::SubscriptOutOfRange));
}

QTEST_MAIN(tst_Rows)
#include "tst_rows.moc"
