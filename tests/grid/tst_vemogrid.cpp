// SPDX-License-Identifier: MIT
// VemoGrid over its hosted grid: the Column array, column types, pass-through members and
// PropertyChanged, the colouring and check-box passes, and beyond the model test
// rows, sorting and the auto-calculated column.
#include "grid/VemoGrid_p.h"
#include <VemoGridLib/Column.h>
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/Messages.h>
#include <VemoGridLib/OleColor.h>
#include <VemoGridLib/VbFormat.h>
#include <VemoGridLib/VemoGrid.h>

#include "MessageRecorder.h"
#include "VemoGridTestSupport.h"
#include "VemoTestSupport.h"

#include <QMetaProperty>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>

#include <functional>

using namespace VemoGridLib;
using namespace VemoTest;

namespace {

using GridStep = std::function<void(VemoGrid&)>;
using Probe = std::function<bool(VemoGrid&, FlexGrid&)>;

constexpr int SubscriptOutOfRange = 9;

constexpr int KeyCol = 1, LabelCol = 2, SecondCol = 3;

QImage arrowOf(const VemoGrid& grid, int col)
{
    return lookOf(grid, 0, col).picture.toImage();
}

// Operands in columns 1 and 2, the result in 3, column 4 unrelated.
constexpr int Operand1 = 1, Operand2 = 2, Result = 3, Other = 4;

} // namespace

Q_DECLARE_METATYPE(GridStep)
Q_DECLARE_METATYPE(Probe)

// A step, the PropertyChanged names it raises, and what then holds for `g` and its hosted `f`.
#define ROW(name, step, reported, ...)                                                             \
    QTest::newRow(name) << GridStep([](VemoGrid& g) { step; })                                     \
                        << Probe([](VemoGrid& g, FlexGrid& f) {                                    \
                               Q_UNUSED(f);                                                        \
                               return __VA_ARGS__;                                                 \
                           })                                                                      \
                        << QStringList reported

class tst_VemoGrid : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { pinFont(); }
    void init() { m_recorder = std::make_unique<MessageRecorder>(); }
    void cleanup()
    {
        m_grid.reset();
        m_recorder.reset();
    }

    void colTypeSetsHostedColumn_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("alignment");
        QTest::addColumn<int>("width");
        // 4 and 777 are the hosted column's own settings, which the type may leave alone.
        QTest::newRow("eTextBox") << int(eTextBox) << 1 << 777;
        QTest::newRow("eCheckBox") << int(eCheckBox) << 0 << 500;
        QTest::newRow("eCalendar") << int(eCalendar) << 1 << 1250;
        QTest::newRow("eCurrency") << int(eCurrency) << 7 << 777;
        QTest::newRow("9") << 9 << 4 << 777;
    }

    void colTypeSetsHostedColumn()
    {
        QFETCH(int, type);
        VemoGrid grid;
        grid.setCols(4);
        grid.hostedGrid()->setColAlignment(-1, 4);
        grid.hostedGrid()->setColWidth(-1, 777);

        grid.setColType(2, VemoGridColType(type));

        QTEST(grid.hostedGrid()->ColAlignment(2), "alignment");
        QTEST(grid.hostedGrid()->ColWidth(2), "width");
        // Column -1 would mean every column to the hosted grid.
        QCOMPARE(errorNumberOf([&] { grid.setColType(-1, eCheckBox); }), SubscriptOutOfRange);
        QCOMPARE(grid.hostedGrid()->ColWidth(3), 777);
    }

    void passThrough_data()
    {
        QTest::addColumn<GridStep>("step");
        QTest::addColumn<Probe>("probe");
        QTest::addColumn<QStringList>("reported");

        // Pass-through members whose hosted counterpart is spelt or read differently.
        ROW("ColPosition", (g.setColPosition(1, 2)), ({"ColPosition"}), g.ColPos(2) == f.ColPos(2));
        ROW("RowPosition", (g.setRowPosition(1, 2)), ({"RowPosition"}), g.RowPos(2) == f.RowPos(2));
        ROW("CellPicture", g.setCellPicture(QPixmap(8, 8)), ({"CellPicture"}),
            !g.CellPicture().isNull());
        ROW("CellFontUnderLine", g.setCellFontUnderLine(true), ({"CellFontUnderLine"}),
            g.CellFontUnderLine() && f.CellFontUnderline());
        ROW("Rowsel, Colsel", (g.setRowsel(4), g.setColsel(3)), ({"Rowsel", "Colsel"}),
            g.Rowsel() == f.RowSel() && g.Colsel() == 3);
        // The hosted default width marker -1 reads as 1000.
        ROW("COLWIDTH", (g.setCOLWIDTH(2, -1)), ({"COLWIDTH"}), g.COLWIDTH(2) == 1000);
        ROW("cell geometry", g.hostedGrid()->setRow(2), (),
            g.CellLeft() == f.CellLeft() && g.CellTop() == f.CellTop() &&
                g.CellWidth() == f.CellWidth() && g.CellHeight() == f.CellHeight() &&
                g.RowIsVisible(2) && g.ColIsVisible(1) && g.MouseRow() == f.MouseRow() &&
                g.MouseCol() == f.MouseCol() && g.Picture().size() == f.Picture().size());
        ROW("cgChecked", (g.setcgChecked(2, 2, true)), (),
            g.cgChecked(2, 2) && f.TextMatrix(2, 2) == ".");
        // Sortable reports its old spelling, FormatString also the Cols it re-applies.
        ROW("Sortable", g.setSortable(false), ({"SortAble"}), !g.Sortable());
        ROW("FormatString", g.setFormatString(QStringLiteral("|A|B|C|D|E")),
            ({"FormatString", "Cols"}), g.Cols() == 6);
    }

    void passThrough()
    {
        QFETCH(GridStep, step);
        QFETCH(Probe, probe);
        VemoGrid grid;
        grid.setCols(5);
        grid.setRows(8);
        QSignalSpy changed(&grid, &VemoGrid::PropertyChanged);

        step(grid);

        QStringList names;
        for (const QList<QVariant>& arguments : changed)
            names << arguments.at(0).toString();
        QTEST(names, "reported");
        QVERIFY(probe(grid, *grid.hostedGrid()));
    }

    void everyPropertyReportsItsName()
    {
        const MessageRecorder recorder; // an empty AutoCalcOPE is refused with a message
        VemoGrid grid;
        grid.setCols(3);
        QSignalSpy changed(&grid, &VemoGrid::PropertyChanged);
        const QMetaObject& meta = VemoGrid::staticMetaObject;
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
            const QMetaProperty property = meta.property(i);
            changed.clear();
            QVERIFY(property.write(&grid, property.read(&grid)));
            const QString name = QString::fromLatin1(property.name());
            // Some report nothing when the value stays; none reports another name.
            QVERIFY2(changed.isEmpty() ||
                         changed.at(0).at(0).toString().compare(name, Qt::CaseInsensitive) == 0,
                     property.name());
        }
    }

    void colouringPass()
    {
        const auto grid = shownGrid(QStringLiteral("|A|Locked|No|D"), 1);
        QVERIFY(grid);
        grid->Column(2)->setLocked(true);
        grid->Column(3)->setAutoAdd(true);
        grid->hostedGrid()->setRows(6);
        grid->hostedGrid()->setTextMatrix(4, 3, QStringLiteral("x"));
        grid->setBackColor2(0x8080FF);
        grid->setRows(6);

        const QImage image = grid->hostedGrid()->viewport()->grab().toImage();
        for (int row = 1; row < 6; ++row) {
            QCOMPARE(lookOf(*grid, row, 0).backColor, OleColor(0));
            // An AutoAdd column numbers its empty cells with their row.
            QCOMPARE(grid->TextMatrix(row, 3),
                     row == 4 ? QStringLiteral("x") : QString::number(row));
            for (int col = 1; col < 5; ++col) {
                const OleColor expected =
                    col == 2 || col == 3 ? ReadOnlyColour : (row % 2 ? Band1 : 0x8080FF);
                QCOMPARE(lookOf(*grid, row, col).backColor, expected);
                // Sampled below the text, away from the current cell's focus rectangle.
                const QRect rect = cellRect(*grid, row, col);
                if (row != grid->Row() || col != grid->Col())
                    QCOMPARE(QColor(image.pixel(rect.center().x(), rect.bottom() - 3)),
                             toQColor(expected));
            }
        }

        // At design time every column is banded and nothing numbered.
        grid->setUserMode(false);
        grid->hostedGrid()->setTextMatrix(5, 3, QString());
        grid->setRows(6);
        QCOMPARE(lookOf(*grid, 5, 2).backColor, Band1);
        QCOMPARE(grid->TextMatrix(5, 3), QString());
    }

    void checkBoxPass_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("checked");
        // Checked unless the trimmed text is empty, "False" or the unchecked marker.
        QTest::newRow("checked marker") << "." << true;
        QTest::newRow("0") << "0" << true;
        QTest::newRow("blanks") << "   " << false;
        QTest::newRow("False") << "False" << false;
        QTest::newRow("padded unchecked marker") << " ` " << false;
    }

    void checkBoxPass()
    {
        QFETCH(QString, text);
        QFETCH(bool, checked);
        const auto grid = shownGrid(QStringLiteral("|A|Box|C"), 3);
        QVERIFY(grid);
        FlexGrid* const flex = grid->hostedGrid();
        // Rows 1 and 2 hold the two markers, whose boxes the tested row's must match.
        flex->setTextMatrix(1, 2, QStringLiteral("."));
        flex->setTextMatrix(2, 2, QStringLiteral("`"));
        flex->setTextMatrix(3, 2, text);
        flex->setRow(3);
        flex->setCol(3);

        grid->setColType(2, eCheckBox);
        QCoreApplication::processEvents();

        const FlexCellFormat box = lookOf(*grid, 3, 2);
        QVERIFY(lookOf(*grid, 1, 2).picture.toImage() != lookOf(*grid, 2, 2).picture.toImage());
        QCOMPARE(box.picture.toImage(), lookOf(*grid, checked ? 1 : 2, 2).picture.toImage());
        // The text stays but is drawn in the background colour; only the box column gets pictures.
        QCOMPARE(box.foreColor, box.backColor);
        QVERIFY(!hasPicture(*grid, 3, 1));
        QCOMPARE(flex->Row() + flex->Col(), 6);
    }

    void rowColSettersLeaveThenEnter()
    {
        VemoGrid grid;
        grid.setCols(5);
        grid.setRows(6);
        FlexGrid* const flex = grid.hostedGrid();
        flex->setTextMatrix(3, 1, QStringLiteral("text"));
        QStringList log;
        connect(&grid, &VemoGrid::LeaveCell, &grid,
                [&] { log << QStringLiteral("Leave %1,%2").arg(flex->Row()).arg(flex->Col()); });
        connect(&grid, &VemoGrid::EnterCell, &grid, [&](int& row, int& col, QString& value) {
            log << QStringLiteral("Enter %1,%2 '%3'").arg(row).arg(col).arg(value);
        });
        grid.setRow(3);
        grid.setCol(2);
        grid.setCol(2); // leaves the cell even when the hosted grid does not move
        // The value is passed empty, whatever the cell holds.
        QCOMPARE(log, QStringList(
                          {"Leave 1,1", "Enter 3,1 ''", "Leave 3,1", "Enter 3,2 ''", "Leave 3,2"}));
    }

    void columnsFollowBoundModel()
    {
        QStandardItemModel model(3, 2);
        VemoGrid grid;
        grid.setDataSource(&model);
        QCOMPARE(grid.Cols(), 3);

        model.insertColumns(1, 2);
        QCOMPARE(grid.Cols(), 5);
        QVERIFY(grid.Column(4));

        model.removeColumns(0, 3);
        QCOMPARE(grid.Cols(), 2);
        QVERIFY(grid.Column(1));
        QCOMPARE(errorNumberOf([&] { grid.Column(2); }), SubscriptOutOfRange);
    }

    // The message's texts per language are the locale test's; here only when it is shown.
    void emptyLineMessage()
    {
        const MessageRecorder recorder;
        const ScopedLocale locale("en_US.UTF-8");
        VemoGrid grid;
        grid.setNullLine(false);
        grid.setTextMatrix(1, 0, QStringLiteral("the fixed column does not count"));
        grid.AddItem(QStringLiteral("\tnew"));
        QCOMPARE(grid.Rows(), 2);
        QCOMPARE(recorder.messages.size(), 1);
        QCOMPARE(recorder.messages.at(0).text, QStringLiteral("Do not allow add a null line!"));
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

    void sortTypeOrdersRows_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("keys");      // '|'-separated
        QTest::addColumn<QString>("ascending"); // the keys' indexes in ascending order
        const auto row = [](const char* tag, int type, const char* keys, const char* order) {
            QTest::newRow(tag) << type << keys << order;
        };
        row("None", VemoSortNone, "c|a|b", "012");
        row("Numeric", VemoSortNumeric, "10|abc|-2|9", "2130");
        // Dates and amounts sort by a hidden key column.
        row("DateTime", VemoSortDateTime, "2024-01-10|2023-12-31|2024-1-5|2024-01-05 13:00:00",
            "1230");
        row("Currency", VemoSortCurrency, "1,234.50|999.99|-5.00|12.00", "2310");
    }

    void sortTypeOrdersRows()
    {
        QFETCH(int, type);
        QFETCH(QString, keys);
        QFETCH(QString, ascending);
        const QStringList list = keys.split(u'|');
        buildSort(list, QStringList(list.size(), QStringLiteral("s")));
        m_grid->Column(KeyCol)->setSortType(VemoSortTypeConstants(type));
        Column* const last = m_grid->Column(SecondCol);
        m_grid->setRow(2);
        m_grid->setCol(LabelCol);
        for (const bool up : {true, false}) {
            m_grid->Sort(KeyCol, up ? SortAscending : SortDescending);
            for (int i = 0; i < list.size(); ++i) {
                const int at = up || type == VemoSortNone ? i : int(list.size()) - 1 - i;
                QCOMPARE(m_grid->TextMatrix(1 + at, LabelCol), u'L' + ascending.at(i));
            }
        }
        // The hidden key column is gone again; the current cell is back.
        QCOMPARE(m_grid->hostedGrid()->Cols(), 4);
        QCOMPARE(m_grid->Column(SecondCol), last);
        QCOMPARE(columnTexts(*m_grid, SecondCol), QStringList(list.size(), QStringLiteral("s")));
        QCOMPARE(m_grid->Row() * 10 + m_grid->Col(), 2 * 10 + LabelCol);
        QCOMPARE(arrowOf(*m_grid, KeyCol).isNull(), type == VemoSortNone);
    }

    void directionToggleAndArrows()
    {
        buildSort({"2", "3", "1"}, {"b", "c", "a"});
        m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
        m_grid->Column(SecondCol)->setSortType(VemoSortString);
        m_grid->Sort(KeyCol);
        const QImage up = arrowOf(*m_grid, KeyCol);
        m_grid->Sort(KeyCol);
        const QImage down = arrowOf(*m_grid, KeyCol);
        QVERIFY(!up.isNull() && !down.isNull() && up != down);
        // Right, centred vertically, beside the header's text.
        QCOMPARE(lookOf(*m_grid, 0, KeyCol).pictureAlignment, std::int8_t(7));
        QCOMPARE(m_grid->TextMatrix(0, KeyCol), QStringLiteral("Key"));
        // Another column takes the arrow; a column of SortType None sorts nothing but takes it too.
        m_grid->Sort(SecondCol);
        QVERIFY(arrowOf(*m_grid, KeyCol).isNull());
        QCOMPARE(arrowOf(*m_grid, SecondCol), up);
        m_grid->Sort(LabelCol);
        QVERIFY(arrowOf(*m_grid, SecondCol).isNull());
        // A fixed column is never sorted; Clear drops the arrow.
        m_grid->Column(0)->setSortType(VemoSortString);
        m_grid->Sort(0, SortDescending);
        QVERIFY(arrowOf(*m_grid, 0).isNull());
        m_grid->Sort(KeyCol);
        m_grid->Clear();
        QVERIFY(arrowOf(*m_grid, KeyCol).isNull());
    }

    void dateKeyIsTheFormattedText_data()
    {
        QTest::addColumn<QByteArray>("lang");
        QTest::addColumn<QString>("text");
        const QString texts = QStringLiteral("2024-1-5|2024-02-29 13:45|2024-2-3 0:00|2023-02-29|"
                                             "2024-01-05 24:00|2024-01-05T10:00|12/31/2023|"
                                             "Jan 5, 2024|45000|2024-01-05 ");
        for (const QByteArray lang : {QByteArray("en_US.UTF-8"), QByteArray("zh_CN.UTF-8")}) {
            for (const QString& text : texts.split(u'|'))
                QTest::addRow("%s %s", lang.constData(), qPrintable(text)) << lang << text;
        }
    }

    // The grid reads ISO-style dates itself, for speed; it must give exactly what Format gives.
    void dateKeyIsTheFormattedText()
    {
        QFETCH(QByteArray, lang);
        QFETCH(QString, text);
        const ScopedLocale locale(lang);
        QCOMPARE(VemoGridPrivate::dateSortKey(text), vb::Format(text, "yyyymmddHhNnSs"));
    }

    void fixedRowsStayAndMarkedRowFollows()
    {
        buildSort({"5", "4", "3", "1", "2"});
        m_grid->setFixedRows(2);
        m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
        clickCell(*m_grid, 3, LabelCol); // marks the row of key "3"
        m_grid->Sort(KeyCol);
        QCOMPARE(m_grid->TextMatrix(1, KeyCol), QStringLiteral("5"));
        QCOMPARE(columnTexts(*m_grid, KeyCol), QStringList({"1", "2", "3", "4"}));
        QCOMPARE(m_grid->Selected(), 4);
        // The looks moved with the rows; the colouring pass bands them by position again.
        for (int row = 2; row < m_grid->Rows(); ++row) {
            QCOMPARE(hasPicture(*m_grid, row, 0), row == 4);
            QCOMPARE(lookOf(*m_grid, row, KeyCol).backColor, bandOf(*m_grid, row));
        }
    }

    void headerClicks_data()
    {
        QTest::addColumn<bool>("sortable");
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("sorts");
        QTest::newRow("header") << true << 0 << true;
        QTest::newRow("Sortable false") << false << 0 << false;
        QTest::newRow("data cell") << true << 2 << false;
    }

    void headerClicks()
    {
        QFETCH(bool, sortable);
        QFETCH(int, row);
        QFETCH(bool, sorts);
        const QStringList keys = {"2", "3", "1"};
        buildSort(keys);
        // SortOnHeaderClick sets Sortable only; the columns keep their own SortType.
        m_grid->SortOnHeaderClick(sortable, VemoSortString);
        m_grid->Column(KeyCol)->setSortType(VemoSortNumeric);
        QStringList atClick;
        connect(m_grid.get(), &VemoGrid::Click, this,
                [&] { atClick = columnTexts(*m_grid, KeyCol); });
        clickCell(*m_grid, row, KeyCol);
        QCOMPARE(atClick, keys); // Click comes before the rows move
        QCOMPARE(columnTexts(*m_grid, KeyCol), sorts ? QStringList({"1", "2", "3"}) : keys);
        clickCell(*m_grid, row, KeyCol);
        QCOMPARE(columnTexts(*m_grid, KeyCol), sorts ? QStringList({"3", "2", "1"}) : keys);
    }

    void calcOperator_data()
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
    }

    void calcOperator()
    {
        QFETCH(QString, value);
        QFETCH(QByteArray, lang);
        QFETCH(QString, message);
        const ScopedLocale locale(lang);
        m_grid = std::make_unique<VemoGrid>();
        QSignalSpy changes(m_grid.get(), &VemoGrid::PropertyChanged);
        m_grid->setAutoCalcOPE(value);
        QTEST(m_grid->AutoCalcOPE(), "stored");
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

    void calcResult_data()
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
        row("no operator", eTextBox, -1, "", "2|x|3", "keep");
    }

    void calcResult()
    {
        QFETCH(int, type);
        QFETCH(int, decimals);
        QFETCH(QString, format);
        QFETCH(QString, calc);
        const QStringList parts = calc.split(u'|');
        buildCalc(parts[0], parts[1], parts[2]);
        m_grid->setColType(Result, VemoGridColType(type));
        if (decimals >= 0)
            m_grid->Column(Result)->setDecimalLength(qint16(decimals));
        m_grid->Column(Result)->setFormatString(format);
        m_recorder->messages.clear();
        m_grid->setCol(Operand2);
        QTEST(m_grid->TextMatrix(1, Result), "expected");
        // Only the row of the left cell is computed.
        QCOMPARE(m_grid->TextMatrix(2, Result), QString());
        QVERIFY(m_recorder->messages.isEmpty());
    }

    void calcGatedOff()
    {
        buildCalc(QStringLiteral("2"), QStringLiteral("+"), QStringLiteral("3"));
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

    void calcDivisionByZero()
    {
        buildCalc(QStringLiteral("0"), QStringLiteral("/"), QStringLiteral("0"));
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
    /// Columns Key, Label ("L0", "L1", ... in the original order) and Second.
    void buildSort(const QStringList& keys, const QStringList& second = {})
    {
        m_grid = shownGrid(QStringLiteral("|Key|Label|Second"), int(keys.size()));
        QVERIFY(m_grid);
        for (int i = 0; i < keys.size(); ++i) {
            m_grid->setTextMatrix(1 + i, KeyCol, keys.at(i));
            m_grid->setTextMatrix(1 + i, LabelCol, QStringLiteral("L%1").arg(i));
            m_grid->setTextMatrix(1 + i, SecondCol, second.value(i));
        }
    }

    /// Operand 1 `op` operand 2 -> result; the current cell (1, 1). Typed writes compute nothing.
    void buildCalc(const QString& a, const QString& op, const QString& b)
    {
        m_grid = shownGrid(QStringLiteral("|A|B|Result|Other"), 3);
        QVERIFY(m_grid);
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

QTEST_MAIN(tst_VemoGrid)
#include "tst_vemogrid.moc"
