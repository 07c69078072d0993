// SPDX-License-Identifier: MIT
// The demo's invoice application driven as a user drives it: an invoice typed into the form,
// saved, and read back through a second connection; a wrong line refused without a write.
#include "InvoiceDatabase.h"
#include "InvoiceForm.h"
#include "InvoiceListView.h"
#include "MainWindow.h"

#include "MessageRecorder.h"
#include "ShownWindow.h"
#include "VemoGridTestSupport.h"

#include <VemoGridLib/VemoComboBox.h>
#include <VemoGridLib/VemoDTPicker.h>
#include <VemoGridLib/VemoGrid.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

using namespace VemoGridLib;
using namespace VemoTest;

namespace {

QWidget* focused()
{
    return QApplication::focusWidget();
}

void press(Qt::Key key)
{
    QTest::keyClick(focused(), key);
}

/// Clicks the text field of a combo box or date picker, replaces its text by `text` and,
/// for a combo box, takes the row of its opened list that `text` finds.
void typeField(QWidget& control, const QString& text, bool pickFromList = false)
{
    auto* field = control.findChild<QLineEdit*>(QStringLiteral("txtInput"));
    QTest::mouseClick(field, Qt::LeftButton);
    QTest::keyClick(field, Qt::Key_End);
    QTest::keyClick(field, Qt::Key_Home, Qt::ShiftModifier);
    if (pickFromList)
        press(Qt::Key_F4);
    QTest::keyClicks(field, text);
    if (pickFromList)
        press(Qt::Key_Return);
}

/// Types a line: the product's code, or with `pick` the start of it to pick the product from
/// the list, and the quantity, each cell clicked first and left with Enter.
void typeLine(const VemoGrid& grid, int row, const QString& code, const QString& quantity,
              bool pick)
{
    clickCell(grid, row, InvoiceForm::ColProduct);
    if (pick)
        press(Qt::Key_F4);
    QTest::keyClicks(focused(), code);
    press(Qt::Key_Return);
    clickCell(grid, row, InvoiceForm::ColQuantity);
    QTest::keyClicks(focused(), quantity);
    press(Qt::Key_Return);
}

/// New, then an invoice for Kestrel Furniture (picked from the list by the start of its name)
/// of 6 May 2024, delivered on 10 May: three boxes of paper, then a second line as given.
void typeInvoice(MainWindow& window, const QString& code, const QString& quantity, bool pick)
{
    InvoiceForm& form = *window.form();
    QTest::mouseClick(form.findChild<QPushButton*>(QStringLiteral("newButton")), Qt::LeftButton);
    typeField(*form.findChild<VemoComboBox*>(), QStringLiteral("kes"), true);
    typeField(*form.findChild<VemoDTPicker*>(QStringLiteral("invoiceDatePicker")),
              QStringLiteral("2024-05-06"));
    typeField(*form.findChild<VemoDTPicker*>(QStringLiteral("deliveryDatePicker")),
              QStringLiteral("2024-05-10"));
    const VemoGrid& grid = *form.linesGrid();
    typeLine(grid, 1, QStringLiteral("a4-paper-5"), QStringLiteral("3"), false);
    // Enter through the last line's cells adds a line.
    for (int presses = 0; grid.Rows() == 2 && presses < InvoiceForm::ColLink; ++presses)
        press(Qt::Key_Return);
    typeLine(grid, 2, code, quantity, pick);
}

/// Clicks Save; the texts of the messages it showed.
QStringList saveOf(MainWindow& window)
{
    MessageRecorder messages;
    QTest::mouseClick(window.form()->findChild<QPushButton*>(QStringLiteral("saveButton")),
                      Qt::LeftButton);
    QStringList texts;
    for (const Message& message : messages.messages)
        texts << message.text;
    return texts;
}

/// Each line of the grid: product, name, quantity, price, amount and paid, joined by "|".
QStringList linesOf(const VemoGrid& grid)
{
    QStringList lines;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        QStringList cells;
        for (int col = InvoiceForm::ColProduct; col <= InvoiceForm::ColPaid; ++col)
            cells << grid.TextMatrix(row, col);
        lines << cells.join(QLatin1Char('|'));
    }
    return lines;
}

/// The invoices and lines the file holds, read through a connection of its own.
QPair<int, int> rowCounts(const QString& file)
{
    InvoiceDatabase database(file);
    QSqlQuery query(QStringLiteral("SELECT (SELECT count(*) FROM invoices), "
                                   "(SELECT count(*) FROM invoice_lines)"),
                    database.connection());
    query.next();
    return {query.value(0).toInt(), query.value(1).toInt()};
}

} // namespace

class tst_InvoiceApp : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    /// No message box blocks a test.
    MessageRecorder m_messages;

private slots:
    void initTestCase()
    {
        pinFont();
        QVERIFY(m_dir.isValid());
    }

    void typedInvoiceReadsBackThroughAnotherConnection()
    {
        const QString file = m_dir.filePath(QStringLiteral("typed.sqlite"));
        MainWindow window(file);
        QVERIFY(showActive(window));
        typeInvoice(window, QStringLiteral("coffee"), QStringLiteral("2.5"), true);
        clickCell(*window.form()->linesGrid(), 2, InvoiceForm::ColPaid);
        press(Qt::Key_Space);
        const int number = window.form()->number();
        QCOMPARE(saveOf(window).join(QLatin1Char('\n')), QString());

        MainWindow second(file);
        QVERIFY(showActive(second));
        const VemoGrid& list = *second.list()->grid();
        clickCell(list, list.Rows() - 1, InvoiceListView::ColCustomer);
        InvoiceForm& form = *second.form();
        QCOMPARE(form.number(), number);
        QCOMPARE(form.findChild<VemoComboBox*>()->Text(), QStringLiteral("Kestrel Furniture"));
        QCOMPARE(form.findChild<VemoDTPicker*>(QStringLiteral("invoiceDatePicker"))->Text(),
                 QStringLiteral("2024-05-06"));
        QCOMPARE(form.findChild<VemoDTPicker*>(QStringLiteral("deliveryDatePicker"))->Text(),
                 QStringLiteral("2024-05-10"));
        QCOMPARE(linesOf(*form.linesGrid()),
                 QStringList({"a4-paper-5|A4 copy paper, box of 5|3.00|24.90|74.70|False",
                              "coffee-beans|Coffee beans|2.50|21.40|53.50|True"}));
        QCOMPARE(form.findChild<QLabel*>(QStringLiteral("totalLabel"))->text(),
                 QStringLiteral("Total 128.20"));
    }

    void wrongLineIsRefusedWithoutAWrite_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("quantity");
        QTest::addColumn<QString>("price"); // empty: the catalogue's
        QTest::addColumn<QString>("message");
        const auto row = [](const char* name, const char* code, const char* quantity,
                            const char* price, const char* message) {
            QTest::newRow(name) << code << quantity << price << message;
        };
        row("unknown product", "nonesuch", "1", "", "Line 2: “nonesuch” is not a product");
        row("zero quantity", "pens-50", "0", "", "Line 2: the quantity “0.00” is not a number");
        row("price no number", "pens-50", "1", "12,5x", "Line 2: the unit price “12,5x” is not");
    }
    void wrongLineIsRefusedWithoutAWrite()
    {
        QFETCH(QString, code);
        QFETCH(QString, quantity);
        QFETCH(QString, price);
        QFETCH(QString, message);
        const QString file = m_dir.filePath(QStringLiteral("refused.sqlite"));
        MainWindow window(file);
        QVERIFY(showActive(window));
        const QPair<int, int> before = rowCounts(file);
        typeInvoice(window, code, quantity, false);
        // The price editor refuses such a text: it stands for one that got past it.
        if (!price.isEmpty())
            window.form()->linesGrid()->setTextMatrix(2, InvoiceForm::ColPrice, price);
        const QStringList shown = saveOf(window);
        QCOMPARE(shown.size(), 1);
        QVERIFY2(shown.first().contains(message), qPrintable(shown.first()));
        QCOMPARE(rowCounts(file), before);
    }
};

QTEST_MAIN(tst_InvoiceApp)
#include "tst_invoiceapp.moc"
