// SPDX-License-Identifier: MIT
// VemoGrid over its hosted grid: the Column array, column types, pass-through members and
// PropertyChanged, the colouring and check-box passes, and the events it raises or relays.
#include <VemoGridLib/Column.h>
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/OleColor.h>
#include <VemoGridLib/Twips.h>
#include <VemoGridLib/VemoGrid.h>

#include "MessageRecorder.h"
#include "VemoGridTestSupport.h"
#include "VemoTestSupport.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QPointer>
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

/// Counts a signal named `name` through a string connection: by-reference arguments need no
/// metatype then.
class Counter : public QObject
{
    Q_OBJECT
public:
    Counter(const QObject& sender, const QByteArray& name)
    {
        const QMetaObject* meta = sender.metaObject();
        for (int i = 0; i < meta->methodCount(); ++i) {
            const QMetaMethod signal = meta->method(i);
            if (signal.methodType() == QMetaMethod::Signal && signal.name() == name)
                connected = connect(&sender, QByteArray("2" + signal.methodSignature()).constData(),
                                    this, SLOT(hit()));
        }
    }
    bool connected = false;
    int count = 0;
public slots:
    void hit() { ++count; }
};

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
// A pass-through member: its setter reaches the hosted grid and reports its name.
#define MEMBER(get, ...)                                                                           \
    ROW(#get, (g.__VA_ARGS__), (QString(#get).section('(', 0, 0)),                                 \
        g.get == f.get && g.get != decltype(g.get){})

class tst_VemoGrid : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { pinFont(); }

    void columnArrayAndSizes()
    {
        VemoGrid grid;
        grid.setCols(4);
        Column* const kept = grid.Column(1);
        const QPointer<Column> dropped = grid.Column(3);
        grid.setCols(2);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(dropped.isNull());
        QCOMPARE(errorNumberOf([&] { grid.Column(2); }), SubscriptOutOfRange);
        // Growing keeps the columns and adds fresh ones, also through a FormatString.
        grid.setFormatString(QStringLiteral("|A|B|C|D"));
        QCOMPARE(grid.Column(1), kept);
        QVERIFY(grid.Column(4) != grid.Column(3));
        // At design time Cols leaves the array alone.
        grid.setUserMode(false);
        grid.setCols(8);
        QCOMPARE(grid.hostedGrid()->Cols(), 8);
        QCOMPARE(errorNumberOf([&] { grid.Column(5); }), SubscriptOutOfRange);

        // Rows raises the fixed counts to at least 1.
        grid.setFixedRows(0);
        grid.setFixedCols(2);
        grid.setRows(6);
        QCOMPARE(grid.FixedRows(), 1);
        QCOMPARE(grid.FixedCols(), 2);
    }

    void colTypeSetsHostedColumn_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("alignment");
        QTest::addColumn<int>("width");
        // 4 and 777 are the hosted column's own settings, which the type may leave alone.
        QTest::newRow("eTextBox") << int(eTextBox) << 1 << 777;
        QTest::newRow("eCheckBox") << int(eCheckBox) << 0 << 500;
        QTest::newRow("eComboBox") << int(eComboBox) << 4 << 777;
        QTest::newRow("eCalendar") << int(eCalendar) << 1 << 1250;
        QTest::newRow("eCurrency") << int(eCurrency) << 7 << 777;
        QTest::newRow("9") << 9 << 4 << 777;
    }

    void colTypeSetsHostedColumn()
    {
        QFETCH(int, type);
        QFETCH(int, alignment);
        QFETCH(int, width);
        VemoGrid grid;
        grid.setCols(4);
        grid.hostedGrid()->setColAlignment(-1, 4);
        grid.hostedGrid()->setColWidth(-1, 777);

        grid.setColType(2, VemoGridColType(type));

        QCOMPARE(int(grid.Column(2)->colType()), type);
        QCOMPARE(grid.hostedGrid()->ColAlignment(2), alignment);
        QCOMPARE(grid.hostedGrid()->ColWidth(2), width);
        // Column -1 would mean every column to the hosted grid.
        QCOMPARE(errorNumberOf([&] { grid.setColType(-1, eCheckBox); }), SubscriptOutOfRange);
        QCOMPARE(grid.hostedGrid()->ColWidth(3), 777);
    }

    void passThrough_data()
    {
        QTest::addColumn<GridStep>("step");
        QTest::addColumn<Probe>("probe");
        QTest::addColumn<QStringList>("reported");

        MEMBER(RowHeightMin(), setRowHeightMin(300));
        MEMBER(FillStyle(), setFillStyle(1));
        MEMBER(CellAlignment(), setCellAlignment(4));
        MEMBER(CellBackColor(), setCellBackColor(0xFF));
        MEMBER(CellForeColor(), setCellForeColor(0xFF00));
        MEMBER(CellFontBold(), setCellFontBold(true));
        MEMBER(CellFontItalic(), setCellFontItalic(true));
        MEMBER(CellFontWidth(), setCellFontWidth(5));
        MEMBER(CellFontSize(), setCellFontSize(12));
        MEMBER(CellFontName(), setCellFontName(QStringLiteral("DejaVu Serif")));
        MEMBER(CellPictureAlignment(), setCellPictureAlignment(4));
        MEMBER(PictureType(), setPictureType(1));
        MEMBER(RowHeight(2), setRowHeight(2, 600));
        MEMBER(ColAlignment(3), setColAlignment(3, 4));
        MEMBER(ColAlignmentFixed(3), setColAlignmentFixed(3, 4));
        MEMBER(TextArray(7), setTextArray(7, QStringLiteral("x")));
        MEMBER(MergeRow(2), setMergeRow(2, true));
        MEMBER(MergeCol(3), setMergeCol(3, true));
        MEMBER(TopRow(), setTopRow(2));
        MEMBER(LeftCol(), setLeftCol(2));
        // Members whose hosted counterpart is spelt or read differently.
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
        // Sortable reports its old spelling, FormatString also the Cols it re-applies.
        ROW("Sortable", g.setSortable(false), ({"SortAble"}), !g.Sortable());
        ROW("ColType", (g.setColType(2, eCheckBox)), (), g.ColType(2) == eCheckBox);
        ROW("SortOnHeaderClick", (g.SortOnHeaderClick(false, VemoSortNumeric)), (), !g.Sortable());
        ROW("FormatString", g.setFormatString(QStringLiteral("|A|B|C|D|E")),
            ({"FormatString", "Cols"}), g.Cols() == 6);
    }

    void passThrough()
    {
        QFETCH(GridStep, step);
        QFETCH(Probe, probe);
        QFETCH(QStringList, reported);
        VemoGrid grid;
        grid.setCols(5);
        grid.setRows(8);
        QSignalSpy changed(&grid, &VemoGrid::PropertyChanged);

        step(grid);

        QStringList names;
        for (const QList<QVariant>& arguments : changed)
            names << arguments.at(0).toString();
        QCOMPARE(names, reported);
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
        QTest::newRow("padded text") << "  x  " << true;
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
        flex->setRow(1);
        flex->setCol(1);
        flex->setTextMatrix(3, 1, QStringLiteral("text"));
        QStringList log;
        connect(&grid, &VemoGrid::LeaveCell, &grid,
                [&] { log << QStringLiteral("Leave %1,%2").arg(flex->Row()).arg(flex->Col()); });
        connect(&grid, &VemoGrid::EnterCell, &grid, [&](int& rowSel, int& colSel, QString& value) {
            log << QStringLiteral("Enter %1,%2 '%3'").arg(rowSel).arg(colSel).arg(value);
        });

        grid.setRow(3);
        grid.setCol(2);
        grid.setCol(2); // leaves the cell even when the hosted grid does not move
        // The value is passed empty, whatever the cell holds.
        QCOMPARE(log, QStringList(
                          {"Leave 1,1", "Enter 3,1 ''", "Leave 3,1", "Enter 3,2 ''", "Leave 3,2"}));
    }

    void hostedEventsAreRelayed_data()
    {
        QTest::addColumn<QByteArray>("event");
        QTest::addColumn<int>(
            "trigger"); // a click, the key A, Down, a double click, a move, Scroll
        const QList<QByteArrayList> events = {
            {"Click", "MouseDown", "MouseUp"},
            {"KeyDown", "KeyPress", "KeyUp"},
            {"LeaveCell", "EnterCell", "SelChange", "RowColChange"},
            {"DblClick"},
            {"MouseMove"},
            {"Scroll"}};
        for (int trigger = 0; trigger < events.size(); ++trigger) {
            for (const QByteArray& event : events[trigger])
                QTest::newRow(event.constData()) << event << trigger;
        }
    }

    void hostedEventsAreRelayed()
    {
        QFETCH(QByteArray, event);
        QFETCH(int, trigger);
        const auto grid = shownGrid(QStringLiteral("|A|B|C"), 40);
        QVERIFY(grid);
        Counter relayed(*grid, event);
        QVERIFY(relayed.connected);
        // The cell events are the grid's own: they need no receiver on the hosted grid.
        const bool cellEvent = event.endsWith("Cell");
        QObject nobody;
        Counter hosted(cellEvent ? nobody : static_cast<QObject&>(*grid->hostedGrid()), event);
        QWidget* const viewport = grid->hostedGrid()->viewport();
        const QPoint pos = cellRect(*grid, 2, 2).center();
        QMouseEvent move(QEvent::MouseMove, pos, viewport->mapToGlobal(pos), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        if (trigger == 0)
            clickCell(*grid, 2, 2);
        else if (trigger < 3)
            QTest::keyClick(grid->hostedGrid(), trigger == 1 ? Qt::Key_A : Qt::Key_Down);
        else if (trigger == 3)
            QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, pos);
        else if (trigger == 4)
            QApplication::sendEvent(viewport, &move);
        else
            grid->hostedGrid()->setTopRow(20);
        QVERIFY2(relayed.count > 0, "the trigger raised nothing");
        QVERIFY(cellEvent || relayed.count == hosted.count);
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
};

QTEST_MAIN(tst_VemoGrid)
#include "tst_vemogrid.moc"
