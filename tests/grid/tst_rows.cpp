// SPDX-License-Identifier: MIT
// VemoGrid's rows beyond the model test: the empty-line message, bands, the marked row, errors.
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

    void emptyLineMessage_data()
    {
        QTest::addColumn<QByteArray>("lang");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("title");
        const QString english = QStringLiteral("Do not allow add a null line!");
        QTest::newRow("zh_CN") << QByteArray("zh_CN.UTF-8") << u"不允许添加空行!"_qs << u"提示"_qs;
        QTest::newRow("zh_TW") << QByteArray("zh_TW.UTF-8") << u"不允許添加空行!"_qs << u"提示"_qs;
        QTest::newRow("en") << QByteArray("en_US.UTF-8") << english << "PROMPT";
        QTest::newRow("zh_HK is English") << QByteArray("zh_HK.UTF-8") << english << "PROMPT";
    }

    void emptyLineMessage()
    {
        QFETCH(QByteArray, lang);
        QFETCH(QString, message);
        QFETCH(QString, title);
        const MessageRecorder recorder;
        VemoGrid grid;
        grid.setNullLine(false);
        grid.setTextMatrix(1, 0, QStringLiteral("the fixed column does not count"));
        const ScopedLocale locale(lang);
        grid.AddItem(QStringLiteral("\tnew"));
        QCOMPARE(grid.Rows(), 2);
        QCOMPARE(recorder.messages.size(), 1);
        QCOMPARE(recorder.messages.at(0).text, message);
        QCOMPARE(recorder.messages.at(0).title, title);
        QCOMPARE(recorder.messages.at(0).icon, MessageIcon::Information);
        // A blank counts as filled.
        grid.setTextMatrix(1, 1, QStringLiteral(" "));
        grid.AddItem(QString());
        QCOMPARE(grid.Rows(), 3);
    }

    void addItemBandsAndErrors()
    {
        const auto grid = shownGrid(QStringLiteral("|A|B"), 2);
        QVERIFY(grid);
        grid->setTextMatrix(1, 1, QStringLiteral("a1"));
        grid->AddItem(QStringLiteral("h\tx"), 1);
        // The rows pushed down change band.
        for (int r = 1; r < grid->Rows(); ++r)
            QCOMPARE(lookOf(*grid, r, 1).backColor, bandOf(*grid, r));
        QCOMPARE(errorNumberOf([&] { grid->AddItem(QStringLiteral("y"), 9); }), 30002);
        QCOMPARE(errorNumberOf([&] { grid->RemoveItem(99); }), 30002);
        QCOMPARE(errorNumberOf([&] { grid->setTextMatrix(1, 3, {}); }), 9);
        QCOMPARE(grid->Rows(), 4);
        // Text writes the current cell the way TextMatrix does.
        grid->setColType(2, eCheckBox);
        grid->setCol(2);
        grid->setText(QStringLiteral("-1"));
        QCOMPARE(grid->Text(), QStringLiteral("True"));
        grid->setcgChecked(grid->Row(), 2, false);
        QVERIFY(!grid->cgChecked(grid->Row(), 2));
        // ClearStructure keeps the running number of an AutoAdd column, as Clear does.
        grid->Column(1)->setAutoAdd(true);
        grid->AddItem(QStringLiteral("\t"));
        grid->ClearStructure();
        grid->AddItem(QStringLiteral("\t"));
        QCOMPARE(columnTexts(*grid, 1).mid(3), QStringList({"1", "2"}));
    }

    void removeMarkedRow()
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
        // By index the mark is forgotten too, and the rows below move up a band.
        clickCell(*grid, 3, 2);
        grid->RemoveItem(1);
        QCOMPARE(columnTexts(*grid, 1), QStringList({"a2", "a3"}));
        QCOMPARE(grid->Selected(), 0);
        QVERIFY(!hasPicture(*grid, 1, 0) && !hasPicture(*grid, 2, 0));
        QCOMPARE(lookOf(*grid, 1, 2).backColor, Band1);
    }

    void lastDataRowAndClearKeepStructure_data()
    {
        QTest::addColumn<bool>("clear");
        QTest::addColumn<int>("fixed");
        QTest::newRow("RemoveItem, 1 fixed") << false << 1;
        QTest::newRow("RemoveItem, 2 fixed") << false << 2;
        QTest::newRow("Clear, 2 fixed") << true << 2;
    }

    void lastDataRowAndClearKeepStructure()
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
        QCOMPARE(grid->FormatString() + grid->TextMatrix(0, 2), format + "Qty");
        QCOMPARE(grid->COLWIDTH(2), 900);
        QCOMPARE(grid->TextMatrix(fixed, 3), QString());
        QCOMPARE(grid->Selected(), 0);
        QVERIFY(!hasPicture(*grid, fixed, 0));
        QCOMPARE(lookOf(*grid, fixed, 3).backColor, Band1);
    }
};

QTEST_MAIN(tst_Rows)
#include "tst_rows.moc"
