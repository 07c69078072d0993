// SPDX-License-Identifier: MIT
// A form saved by Qt Designer, compiled by uic: the controls come up with the settings the form
// gives them, the grid's columns editing as their types.
#include "ui_invoiceform.h"

#include "VemoGridTestSupport.h"

#include <VemoGridLib/CellEditor.h>
#include <VemoGridLib/FlexGrid.h>

#include <QTest>

using namespace VemoGridLib;

class tst_UiForm : public QObject
{
    Q_OBJECT

private slots:
    void formFromDesigner()
    {
        QWidget form;
        Ui::InvoiceForm ui;
        ui.setupUi(&form);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));

        QCOMPARE(ui.customer->Items(), QStringList({"C01\tAcme", "C02\tBrill"}));
        QCOMPARE(ui.customer->ListHeader(), u"Code\tName"_qs);
        QCOMPARE(ui.invoiceDate->Text(), u"2024-03-01"_qs);

        VemoGrid& grid = *ui.lines;
        QCOMPARE(grid.Cols(), 4);
        QCOMPARE(grid.TextMatrix(0, 1), u"Item"_qs); // the column setup's header wins
        QCOMPARE(grid.TextMatrix(0, 2), u"Qty"_qs);
        QCOMPARE(grid.COLWIDTH(1), 1800);
        const QList<VemoGridColType> types = {eComboBox, eNumeric, eCurrency};
        for (int col = 1; col <= 3; ++col)
            QCOMPARE(grid.ColType(col), types[col - 1]);
        QCOMPARE(grid.Column(1)->ItemCount(), 1);
        QCOMPARE(grid.BackColor2(), OleColor(0x0000FF));
        QCOMPARE(grid.GridLines(), int(Flex::flexGridDots));

        // The numeric column's editor takes the digits of a typed text and no letters.
        VemoTest::clickCell(grid, 1, 2);
        QWidget* const field = QApplication::focusWidget();
        QVERIFY(field && grid.isAncestorOf(field));
        QTest::keyClicks(field, u"1a2b"_qs);
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(grid.TextMatrix(1, 2), u"12"_qs);
    }
};

QTEST_MAIN(tst_UiForm)
#include "tst_uiform.moc"
