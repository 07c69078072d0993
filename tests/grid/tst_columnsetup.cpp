// SPDX-License-Identifier: MIT
// The column setup text: what it reads and writes back, what it refuses, and what setting it
// does to a grid at run time and at design time.
#include <VemoGridLib/ColumnSetup.h>
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/VemoGrid.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

using namespace VemoGridLib;

class tst_ColumnSetup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsAndWritesBack_data();
    void readsAndWritesBack();
    void refusesBadText_data();
    void refusesBadText();
    void appliesToColumns();
    void badPropertyWriteChangesNothing();
    void designTimeShowsOnlyHeadersAndWidths();
};

void tst_ColumnSetup::readsAndWritesBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("written");

    QTest::newRow("defaults are not written")
        << "2 ColType=eTextBox Locked=false VisibleRows=12 HotTracking=true"
        << "2";
    QTest::newRow("keys in their order, enumerations by name")
        << "3 SortType=2 ColType=7 Header=Qty CompareMode=1 MinValue=0 DecimalLength=0"
        << "3 Header=Qty ColType=eNumeric DecimalLength=0 MinValue=0 SortType=VemoSortNumeric "
           "CompareMode=vbTextCompare";
    QTest::newRow("quoted values and escapes")
        << R"(1 Header="Unit price" ListHeader="Code\tName" Item="a \"b\"\\c" Item=P2)"
        << R"(1 Header="Unit price" ListHeader="Code\tName" Item="a \"b\"\\c" Item=P2)";
    QTest::newRow("Unicode, an empty quoted text and numbers in their shortest form")
        << "1 Header=品名 FormatString=\"\" MaxValue=1e16 MinValue=-0.25 Width=1800"
        << "1 Header=品名 Width=1800 MinValue=-0.25 MaxValue=1e+16";
    QTest::newRow("comments, blank lines and spaces around lines")
        << "# invoice lines\n\n  1 Header=A  \n\t2 ColType=eCheckBox\n"
        << "1 Header=A\n2 ColType=eCheckBox";
}

void tst_ColumnSetup::readsAndWritesBack()
{
    QFETCH(QString, text);
    QFETCH(QString, written);
    const QList<ColumnSettings> columns = parseColumnSetup(text);
    QCOMPARE(formatColumnSetup(columns), written);
    QCOMPARE(parseColumnSetup(written), columns);
}

void tst_ColumnSetup::refusesBadText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("description");

    const auto row = [](const char* name, const char* text, const char* description) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(description);
    };
    row("column 0", "0 Header=A", "line 1: \"0\" is not a whole number from 1 to 65535");
    row("unknown key", "1\n2 Colour=red", "line 2: unknown setting \"Colour\"");
    row("no equals sign", "1 Locked", "line 1: \"Locked\" is not followed by \"=\"");
    row("bad boolean", "1 Locked=yes", "line 1: \"yes\" is neither true nor false");
    row("bad number", "1 MinValue=1,5", "line 1: \"1,5\" is not a number");
    row("bad enumeration", "1 ColType=eMoney",
        "line 1: \"eMoney\" is no VemoGridLib::VemoGridColType value");
    row("open quote", "1 Header=\"A", "line 1: a quoted value is not closed");
    row("unknown escape", "1 Header=\"\\x\"", "line 1: unknown escape \"\\x\"");
    row("key twice", "1 Width=5 Width=6", "line 1: Width is given twice");
    row("column twice", "1\n# again\n1", "line 3: column 1 is set up a second time");
    row("decimals of currency", "1 ColType=eCurrency DecimalLength=3",
        "line 1: DecimalLength does not apply to eCurrency columns");
    row("range upside down", "1 MinValue=5 MaxValue=1", "line 1: MinValue is above MaxValue");
}

void tst_ColumnSetup::refusesBadText()
{
    QFETCH(QString, text);
    QFETCH(QString, description);
    try {
        parseColumnSetup(text);
        QFAIL("the text was read");
    } catch (const VemoError& error) {
        QCOMPARE(error.number(), 5);
        QCOMPARE(error.description(), QStringLiteral("Column setup, ") + description);
    }
}

void tst_ColumnSetup::appliesToColumns()
{
    VemoGrid grid;
    grid.setFormatString(QStringLiteral("|Code|Name"));
    grid.setCOLWIDTH(2, 700);
    QSignalSpy changes(&grid, &VemoGrid::PropertyChanged);
    grid.setProperty(
        "ColumnSetup",
        QStringLiteral(
            "1 Header=Product Width=2000 ColType=eComboBox ListHeader=\"Code\\tName\" "
            "Item=\"P1\tPen\" "
            "Item=\"P2\tInk\" SelectCol=1 CompareMode=vbTextCompare\n"
            "4 Header=Price ColType=eCurrency MinValue=0 MaxValue=999 SortType=VemoSortCurrency\n"
            "3 ColType=eNumeric DecimalLength=1 Locked=true"));

    QCOMPARE(grid.Cols(), 5);
    QCOMPARE(changes.last().first().toString(), QStringLiteral("ColumnSetup"));
    QCOMPARE(grid.TextMatrix(0, 1), QStringLiteral("Product"));
    QCOMPARE(grid.TextMatrix(0, 2), QStringLiteral("Name"));
    QCOMPARE(grid.COLWIDTH(1), 2000);
    QCOMPARE(grid.COLWIDTH(2), 700);

    const Column& product = *grid.Column(1);
    QCOMPARE(product.colType(), eComboBox);
    QCOMPARE(product.ItemCount(), 2);
    QCOMPARE(product.Item(1), QStringLiteral("P2\tInk"));
    QCOMPARE(product.ListHeader(), QStringLiteral("Code\tName"));
    QCOMPARE(product.SelectCol(), 1);
    QCOMPARE(product.CompareMode(), vb::vbTextCompare);

    const Column& price = *grid.Column(4);
    QCOMPARE(price.colType(), eCurrency);
    QCOMPARE(price.FormatString(), QStringLiteral("#,##0.00"));
    QCOMPARE(price.MaxValue(), 999.0);
    QCOMPARE(price.SortType(), VemoSortCurrency);
    QCOMPARE(grid.hostedGrid()->ColAlignment(4), int(Flex::flexAlignRightCenter));
    QCOMPARE(grid.Column(3)->DecimalLength(), 1);
    QVERIFY(grid.Column(3)->Locked());

    // Clearing the rows keeps the headers of the setup beside those of the format string.
    grid.Clear();
    QCOMPARE(grid.TextMatrix(0, 1), QStringLiteral("Product"));
    QCOMPARE(grid.TextMatrix(0, 2), QStringLiteral("Name"));

    // A second setup replaces the combo's items and leaves columns it does not name.
    grid.setColumnSetup(QStringLiteral("1 ColType=eComboBox Item=P9"));
    QCOMPARE(grid.Column(1)->ItemCount(), 1);
    QCOMPARE(grid.Column(4)->colType(), eCurrency);
    QCOMPARE(grid.ColumnSetup(), QStringLiteral("1 ColType=eComboBox Item=P9"));
}

void tst_ColumnSetup::badPropertyWriteChangesNothing()
{
    VemoGrid grid;
    grid.setColumnSetup(QStringLiteral("1 Header=A"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("ColumnSetup.*line 2: unknown setting"));
    grid.setProperty("ColumnSetup", QStringLiteral("5 Header=B\n1 Wdth=3"));
    QCOMPARE(grid.Cols(), 2);
    QCOMPARE(grid.TextMatrix(0, 1), QStringLiteral("A"));
    QCOMPARE(grid.ColumnSetup(), QStringLiteral("1 Header=A"));
}

void tst_ColumnSetup::designTimeShowsOnlyHeadersAndWidths()
{
    VemoGrid grid;
    grid.setUserMode(false);
    grid.setColumnSetup(QStringLiteral("3 Header=Qty Width=900 ColType=eNumeric"));
    QCOMPARE(grid.Cols(), 4);
    QCOMPARE(grid.TextMatrix(0, 3), QStringLiteral("Qty"));
    QCOMPARE(grid.COLWIDTH(3), 900);
    QCOMPARE(grid.hostedGrid()->ColAlignment(3), int(Flex::flexAlignGeneral));
    QCOMPARE(grid.ColumnSetup(), QStringLiteral("3 Header=Qty Width=900 ColType=eNumeric"));
}

QTEST_MAIN(tst_ColumnSetup)
#include "tst_columnsetup.moc"
