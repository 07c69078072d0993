// Part 1.1: VemoGrid's model over its hosted grid — the Column collection, the fields and their
// initial values, PropertyChanged, the pass-through members, layout, the colouring and check-box
// passes, the current-row marker and the relay of the hosted grid's events.
// Widget tests pin the font and compute pixels from the hosted grid's twips geometry with the
// helpers of common/Twips.h at the viewport's logical dpi.
#include <VemoGridLib/OleColor.h>
#include <VemoGridLib/Twips.h>
#include <VemoGridLib/VemoEnums.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/Column.h>
#include "flexgrid/FlexCellFormat_p.h"
#include "flexgrid/FlexCellStore_p.h"
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoGrid.h>

#include "VemoGridTestSupport.h"
#include "VemoTestSupport.h"

#include <QApplication>
#include <QImage>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>

#include <functional>
#include <memory>

using namespace VemoGridLib;
using VemoTest::cellRect;
using VemoTest::clickCell;
using VemoTest::lookOf;

namespace {

constexpr OleColor White = 0xFFFFFF;
constexpr OleColor LightYellow = 0xBFFFFF;
constexpr OleColor ReadOnlyDefault = 0xDFDFC0;
constexpr int SubscriptOutOfRange = 9;
constexpr int ColTwips = 1200;
// Tall rows leave room under the vertically centred text for sampling the cell's background.
constexpr int RowTwips = 450;

/// A step run on a grid, carried through QTest data tables.
struct GridAction
{
    std::function<void(VemoGrid&)> run;
};

/// A pass-through member: writes and reads on the grid and on its hosted grid.
struct PassMember
{
    std::function<void(VemoGrid&, const QVariant&)> setOnGrid;
    std::function<QVariant(const VemoGrid&)> readOnGrid;
    std::function<void(FlexGrid&, const QVariant&)> setOnHosted;
    std::function<QVariant(const FlexGrid&)> readOnHosted;
};

/// Counts emissions of any signal, whatever its arguments (string connections let a slot take
/// fewer arguments than the signal, so by-reference arguments need no metatype).
class Counter : public QObject
{
    Q_OBJECT
public:
    int count = 0;
public slots:
    void hit() { ++count; }
};

/// Records the hosted grid's MousePointer each time its viewport's cursor changes, so a bulk
/// pass that showed the hourglass on the way is seen after the pass has ended.
class PointerWatcher : public QObject
{
public:
    explicit PointerWatcher(FlexGrid* flex)
        : m_flex(flex)
    {
        flex->viewport()->installEventFilter(this);
    }
    QList<int> pointers;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::CursorChange)
            pointers << m_flex->MousePointer();
        return QObject::eventFilter(watched, event);
    }

private:
    FlexGrid* m_flex;
};

/// Counts a signal's emissions. QSignalSpy cannot record by-reference arguments such as
/// EnterCell's (it warns that int& is not a registered type), so a plain counter stands in.
class EmitCount
{
public:
    template <typename Signal>
    EmitCount(VemoGrid& grid, Signal signal)
    {
        m_connection = QObject::connect(&grid, signal, &grid, [this] { ++m_count; });
    }
    ~EmitCount() { QObject::disconnect(m_connection); }
    EmitCount(const EmitCount&) = delete;
    EmitCount& operator=(const EmitCount&) = delete;
    int count() const { return m_count; }

private:
    QMetaObject::Connection m_connection;
    int m_count = 0;
};

/// A window holding one shown grid.
struct Scene
{
    QWidget window;
    VemoGrid* grid = new VemoGrid(&window);
};

/// A shown grid of `rows` × `cols` with 80 × 30 px cells (at 96 dpi) in a 520 × 340 window.
std::unique_ptr<Scene> makeScene(int rows, int cols)
{
    auto scene = std::make_unique<Scene>();
    scene->window.resize(520, 340);
    scene->grid->setGeometry(0, 0, 520, 340);
    FlexGrid* flex = scene->grid->hostedGrid();
    scene->grid->setCols(cols);
    flex->setColWidth(-1, ColTwips);
    flex->setRowHeightMin(RowTwips);
    scene->grid->setRows(rows);
    scene->window.show();
    return scene;
}

bool exposed(Scene& scene)
{
    if (!QTest::qWaitForWindowExposed(&scene.window))
        return false;
    // The scroll area shows or hides its bars from the event loop.
    QCoreApplication::processEvents();
    return true;
}

QPoint centreOf(const VemoGrid& grid, int row, int col)
{
    return cellRect(grid, row, col).center();
}

/// Middle of the cell's width, a few pixels above its bottom grid line: below the text.
QPoint backgroundSpot(const VemoGrid& grid, int row, int col)
{
    const QRect rect = cellRect(grid, row, col);
    return QPoint(rect.center().x(), rect.bottom() - 3);
}

QImage shot(const VemoGrid& grid)
{
    return grid.hostedGrid()->viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QColor pixel(const QImage& image, QPoint point)
{
    return QColor(image.pixel(point));
}

/// The band colour Part 1.1 gives data row `row` when the first data row is `firstRow`.
OleColor band(int row, int firstRow, OleColor even, OleColor odd)
{
    return (row - firstRow) % 2 == 0 ? even : odd;
}

/// "2Name(args)" for a signal of `object` named `name`: the form string connections take.
QByteArray signalSignature(const QObject& object, const char* name)
{
    const QMetaObject* meta = object.metaObject();
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() == QMetaMethod::Signal && method.name() == name)
            return QByteArray("2") + method.methodSignature();
    }
    return {};
}

/// Connects `counter` to the signal of `sender` named `name`; false when there is none.
bool countSignal(const QObject& sender, const QByteArray& name, Counter& counter)
{
    const QByteArray signature = signalSignature(sender, name.constData());
    return !signature.isEmpty() &&
           QObject::connect(&sender, signature.constData(), &counter, SLOT(hit()));
}

QStringList names(const QSignalSpy& spy)
{
    QStringList result;
    for (const QList<QVariant>& arguments : spy)
        result << arguments.at(0).toString();
    return result;
}

QPixmap testPicture()
{
    QPixmap picture(8, 8);
    picture.fill(Qt::red);
    return picture;
}

} // namespace

Q_DECLARE_METATYPE(GridAction)
Q_DECLARE_METATYPE(PassMember)

class tst_VemoGrid : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    // fields and creation
    void initialValues_data();
    void initialValues();
    void newGridOwnsItsColumns();
    void versionIs3_0_15();

    // Column collection
    void colsAtRunTimeKeepsColumnsAndAddsFreshOnes();
    void colsShrinkReleasesColumnsBeyond();
    void colsAtDesignTimeChangesHostedGridOnly();
    void formatStringReappliesCols();
    void columnOutOfRangeRaises9_data();
    void columnOutOfRangeRaises9();
    void teardownDeletesColumns();

    // structure
    void rowsRaisesFixedRowsAndColsToOne_data();
    void rowsRaisesFixedRowsAndColsToOne();
    void colWidthReadsDefaultAs1000_data();
    void colWidthReadsDefaultAs1000();
    void layout_data();
    void layout();

    // PropertyChanged
    void propertyChanged_data();
    void propertyChanged();
    void sortOnHeaderClickSetsSortableSilently();

    // pass-through
    void passThroughProperty_data();
    void passThroughProperty();
    void passThroughMember_data();
    void passThroughMember();
    void redrawIsMirrored();

    // colouring pass
    void colouringBandsDataRows_data();
    void colouringBandsDataRows();
    void colouringLockedAndAutoAddColumns();
    void colouringAtDesignTimeBandsEveryColumn();
    void colouringShowsHourglassAndLeavesNone();
    void colouringRaisesNoCellEventsAndRestoresCell();
    void colouringRestoresRedraw();

    // check-box pass
    void checkBoxPass_data();
    void checkBoxPass();
    void checkBoxPassDoesNothingAtDesignTime();

    // current cell, click and events
    void rowColSettersLeaveThenEnter_data();
    void rowColSettersLeaveThenEnter();
    void settingTheSameRowKeepsLaterLeaveCell();
    void clickMovesCurrentRowMarker();
    void hostedEventsAreRelayed_data();
    void hostedEventsAreRelayed();
    void cellEventsNeedNoHostedReceiver_data();
    void cellEventsNeedNoHostedReceiver();
    void relayedKeyAndMouseArguments();
    void columnsFollowBoundModel();
};

void tst_VemoGrid::initTestCase()
{
    QApplication::setFont(QFont("DejaVu Sans", 9));
}

// ---- fields and creation ---------------------------------------------------------------------

void tst_VemoGrid::initialValues_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("expected");

    // Part 1.1 "Data model" and creation.
    QTest::newRow("Rows") << QByteArray("Rows") << QVariant(2);
    QTest::newRow("Cols") << QByteArray("Cols") << QVariant(2);
    QTest::newRow("FixedRows") << QByteArray("FixedRows") << QVariant(1);
    QTest::newRow("FixedCols") << QByteArray("FixedCols") << QVariant(1);
    QTest::newRow("Sortable") << QByteArray("Sortable") << QVariant(true);
    QTest::newRow("EditEnable") << QByteArray("EditEnable") << QVariant(true);
    QTest::newRow("AutoGrow") << QByteArray("AutoGrow") << QVariant(true);
    QTest::newRow("NullLine") << QByteArray("NullLine") << QVariant(true);
    QTest::newRow("Redraw") << QByteArray("Redraw") << QVariant(true);
    QTest::newRow("LunarCalendar") << QByteArray("LunarCalendar") << QVariant(false);
    QTest::newRow("ScrollType") << QByteArray("ScrollType") << QVariant(int(VemoScrollAuto));
    QTest::newRow("ScrollNum") << QByteArray("ScrollNum") << QVariant(3);
    QTest::newRow("CellAppearance") << QByteArray("CellAppearance") << QVariant(0);
    QTest::newRow("CellBorderStyle") << QByteArray("CellBorderStyle") << QVariant(0);
    // Part 1.1 "With the defaults this gives white even rows, light yellow odd rows and &HDFDFC0".
    QTest::newRow("BackColor1") << QByteArray("BackColor1") << QVariant(uint(White));
    QTest::newRow("BackColor2") << QByteArray("BackColor2") << QVariant(uint(LightYellow));
    QTest::newRow("ReadOnlyColor")
        << QByteArray("ReadOnlyColor") << QVariant(uint(ReadOnlyDefault));
    // Fields of Parts 1.3/1.7 that start empty.
    QTest::newRow("AssignCellColorSel") << QByteArray("AssignCellColorSel") << QVariant(false);
    QTest::newRow("CellForeColorSel") << QByteArray("CellForeColorSel") << QVariant(0u);
    QTest::newRow("AutoCalc1") << QByteArray("AutoCalc1") << QVariant(0);
    QTest::newRow("AutoCalc2") << QByteArray("AutoCalc2") << QVariant(0);
    QTest::newRow("AutoCalcRES") << QByteArray("AutoCalcRES") << QVariant(0);
    QTest::newRow("AutoCalcOPE") << QByteArray("AutoCalcOPE") << QVariant(QString());
    // The container's ambient UserMode is true outside a designer; the control starts enabled
    // with the 3D bordered look (header: default 1 for both).
    QTest::newRow("UserMode") << QByteArray("UserMode") << QVariant(true);
    QTest::newRow("Enabled") << QByteArray("Enabled") << QVariant(true);
    QTest::newRow("Appearance") << QByteArray("Appearance") << QVariant(1);
    QTest::newRow("BorderStyle") << QByteArray("BorderStyle") << QVariant(1);
}

void tst_VemoGrid::initialValues()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, expected);
    VemoGrid grid;
    QVariant actual = grid.property(property.constData());
    QVERIFY2(actual.isValid(), property.constData());
    QVERIFY(actual.convert(expected.metaType()));
    QCOMPARE(actual, expected);
}

void tst_VemoGrid::newGridOwnsItsColumns()
{
    VemoGrid grid;
    QCOMPARE(grid.hostedGrid()->objectName(), QStringLiteral("MSHFlexGrid1"));
    QCOMPARE(grid.hostedGrid()->Rows(), 2);
    QCOMPARE(grid.hostedGrid()->Cols(), 2);
    QCOMPARE(grid.hostedGrid()->pos(), QPoint(0, 0));
    QVERIFY(grid.Column(0) != nullptr);
    QVERIFY(grid.Column(1) != nullptr);
    QVERIFY(grid.Column(0) != grid.Column(1));
    QCOMPARE(grid.ColType(1), eTextBox);
    QCOMPARE(grid.Selected(), 0);
    QCOMPARE(grid.hostedGrid()->MousePointer(), 0);
}

void tst_VemoGrid::versionIs3_0_15()
{
    VemoGrid grid;
    QCOMPARE(grid.Version().toString(), QStringLiteral("3.0.15"));
}

// ---- Column collection -----------------------------------------------------------------------

void tst_VemoGrid::colsAtRunTimeKeepsColumnsAndAddsFreshOnes()
{
    VemoGrid grid;
    grid.setCols(3);
    VemoGridLib::Column* const first = grid.Column(1);
    VemoGridLib::Column* const second = grid.Column(2);
    first->setLocked(true);
    second->setMaxLength(7);
    grid.setColType(2, eCurrency);

    grid.setCols(5);

    QCOMPARE(grid.hostedGrid()->Cols(), 5);
    QCOMPARE(grid.Column(1), first);
    QCOMPARE(grid.Column(2), second);
    QVERIFY(grid.Column(1)->Locked());
    QCOMPARE(grid.Column(2)->MaxLength(), qint16(7));
    QCOMPARE(grid.ColType(2), eCurrency);
    for (int col : {3, 4}) {
        VemoGridLib::Column* fresh = grid.Column(col);
        QVERIFY(fresh != nullptr);
        QVERIFY(fresh != first && fresh != second);
        QVERIFY(!fresh->Locked());
        QCOMPARE(fresh->MaxLength(), qint16(0));
        QCOMPARE(fresh->DecimalLength(), qint16(6));
        QCOMPARE(grid.ColType(col), eTextBox);
    }
    QVERIFY(grid.Column(3) != grid.Column(4));
}

void tst_VemoGrid::colsShrinkReleasesColumnsBeyond()
{
    VemoGrid grid;
    grid.setCols(4);
    VemoGridLib::Column* const kept = grid.Column(1);
    kept->setLocked(true);
    grid.Column(3)->setMaxLength(9);
    const QPointer<VemoGridLib::Column> dropped = grid.Column(3);

    grid.setCols(2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QCOMPARE(grid.hostedGrid()->Cols(), 2);
    QCOMPARE(grid.Column(1), kept);
    QVERIFY(kept->Locked());
    QCOMPARE(VemoTest::errorNumberOf([&] { grid.Column(2); }), SubscriptOutOfRange);
    QVERIFY(dropped.isNull());

    // Growing again gives the column a Column with its defaults, not the old settings.
    grid.setCols(4);
    QCOMPARE(grid.Column(3)->MaxLength(), qint16(0));
}

void tst_VemoGrid::colsAtDesignTimeChangesHostedGridOnly()
{
    VemoGrid grid;
    VemoGridLib::Column* const zero = grid.Column(0);
    VemoGridLib::Column* const one = grid.Column(1);
    grid.setUserMode(false);

    grid.setCols(5);

    QCOMPARE(grid.hostedGrid()->Cols(), 5);
    QCOMPARE(grid.Cols(), 5);
    QCOMPARE(grid.Column(0), zero);
    QCOMPARE(grid.Column(1), one);
    QCOMPARE(VemoTest::errorNumberOf([&] { grid.Column(2); }), SubscriptOutOfRange);
    QCOMPARE(VemoTest::errorNumberOf([&] { grid.Column(4); }), SubscriptOutOfRange);

    // Shrinking at design time leaves the array alone too.
    grid.setCols(1);
    QCOMPARE(grid.hostedGrid()->Cols(), 1);
    QCOMPARE(grid.Column(1), one);
}

void tst_VemoGrid::formatStringReappliesCols()
{
    VemoGrid grid;
    QSignalSpy changed(&grid, &VemoGrid::PropertyChanged);
    const QString format = QStringLiteral("|<Name|^Qty|>Price|Total");

    grid.setFormatString(format);

    QCOMPARE(grid.hostedGrid()->FormatString(), format);
    QCOMPARE(grid.FormatString(), format);
    const int cols = grid.hostedGrid()->Cols();
    QCOMPARE(cols, 5);
    QCOMPARE(grid.Cols(), cols);
    QVERIFY(grid.Column(cols - 1) != nullptr);
    QCOMPARE(VemoTest::errorNumberOf([&] { grid.Column(cols); }), SubscriptOutOfRange);
    // The re-applied Cols goes through the grid's own setter, which reports it.
    QCOMPARE(names(changed), QStringList({"FormatString", "Cols"}));
}

void tst_VemoGrid::columnOutOfRangeRaises9_data()
{
    QTest::addColumn<int>("col");
    QTest::newRow("negative") << -1;
    QTest::newRow("Cols") << 3;
    QTest::newRow("far beyond") << 100;
}

void tst_VemoGrid::columnOutOfRangeRaises9()
{
    QFETCH(int, col);
    VemoGrid grid;
    grid.setCols(3);
    QCOMPARE(VemoTest::errorNumberOf([&] { grid.Column(col); }), SubscriptOutOfRange);
    QCOMPARE(VemoTest::errorNumberOf([&] { grid.ColType(col); }), SubscriptOutOfRange);
    QCOMPARE(VemoTest::errorNumberOf([&] { grid.Column(2); }), 0);
}

void tst_VemoGrid::teardownDeletesColumns()
{
    auto grid = std::make_unique<VemoGrid>();
    grid->setCols(3);
    QList<QPointer<VemoGridLib::Column>> columns;
    for (int col = 0; col < 3; ++col)
        columns << QPointer<VemoGridLib::Column>(grid->Column(col));

    grid.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    for (const QPointer<VemoGridLib::Column>& column : columns)
        QVERIFY(column.isNull());
}

// ---- structure -------------------------------------------------------------------------------

void tst_VemoGrid::rowsRaisesFixedRowsAndColsToOne_data()
{
    QTest::addColumn<int>("fixedRows");
    QTest::addColumn<int>("fixedCols");
    QTest::addColumn<int>("expectedFixedRows");
    QTest::addColumn<int>("expectedFixedCols");
    QTest::newRow("both 0") << 0 << 0 << 1 << 1;
    QTest::newRow("rows 0") << 0 << 2 << 1 << 2;
    QTest::newRow("cols 0") << 2 << 0 << 2 << 1;
    QTest::newRow("none 0") << 2 << 2 << 2 << 2;
}

void tst_VemoGrid::rowsRaisesFixedRowsAndColsToOne()
{
    QFETCH(int, fixedRows);
    QFETCH(int, fixedCols);
    QFETCH(int, expectedFixedRows);
    QFETCH(int, expectedFixedCols);
    VemoGrid grid;
    grid.setCols(4);
    grid.setRows(4);
    grid.setFixedRows(fixedRows);
    grid.setFixedCols(fixedCols);
    QCOMPARE(grid.hostedGrid()->FixedRows(), fixedRows);
    QCOMPARE(grid.hostedGrid()->FixedCols(), fixedCols);

    grid.setRows(6);

    QCOMPARE(grid.hostedGrid()->Rows(), 6);
    QCOMPARE(grid.hostedGrid()->FixedRows(), expectedFixedRows);
    QCOMPARE(grid.hostedGrid()->FixedCols(), expectedFixedCols);
}

void tst_VemoGrid::colWidthReadsDefaultAs1000_data()
{
    QTest::addColumn<int>("hostedWidth");
    QTest::addColumn<int>("expected");
    // −1 is the hosted grid's default-width marker; any other width reads back as set.
    QTest::newRow("default") << -1 << 1000;
    QTest::newRow("set") << 800 << 800;
    QTest::newRow("hidden") << 0 << 0;
    QTest::newRow("wide") << 4321 << 4321;
}

void tst_VemoGrid::colWidthReadsDefaultAs1000()
{
    QFETCH(int, hostedWidth);
    QFETCH(int, expected);
    VemoGrid grid;
    grid.setCols(3);
    QCOMPARE(grid.hostedGrid()->ColWidth(2), -1);
    QCOMPARE(grid.COLWIDTH(2), 1000);

    // Through the grid's setter and directly on the hosted grid: both read the same.
    grid.setCOLWIDTH(2, hostedWidth);
    QCOMPARE(grid.hostedGrid()->ColWidth(2), hostedWidth);
    QCOMPARE(grid.COLWIDTH(2), expected);
    grid.hostedGrid()->setColWidth(1, hostedWidth);
    QCOMPARE(grid.COLWIDTH(1), expected);
}

void tst_VemoGrid::layout_data()
{
    QTest::addColumn<int>("widthTwips");
    QTest::addColumn<int>("heightTwips");
    QTest::addColumn<bool>("widthFollows");
    QTest::addColumn<bool>("heightFollows");
    QTest::newRow("large") << 6000 << 4500 << true << true;
    QTest::newRow("50 twips wide") << 50 << 4500 << false << true;
    QTest::newRow("50 twips high") << 6000 << 50 << true << false;
    QTest::newRow("both below 60") << 30 << 45 << false << false;
    QTest::newRow("exactly 60 wide") << 60 << 4500 << true << true;
}

void tst_VemoGrid::layout()
{
    QFETCH(int, widthTwips);
    QFETCH(int, heightTwips);
    QFETCH(bool, widthFollows);
    QFETCH(bool, heightFollows);
    Scene scene;
    VemoGrid& grid = *scene.grid;
    scene.window.resize(600, 500);
    grid.setGeometry(0, 0, 500, 400);
    scene.window.show();
    QVERIFY(exposed(scene));
    FlexGrid* flex = grid.hostedGrid();
    const QSize before = flex->size();
    QCOMPARE(before, QSize(twipsToPixelsX(pixelsToTwipsX(500, &grid) - 60, &grid),
                           twipsToPixelsY(pixelsToTwipsY(400, &grid) - 60, &grid)));

    grid.resize(twipsToPixelsX(widthTwips, &grid), twipsToPixelsY(heightTwips, &grid));
    QCoreApplication::processEvents();

    // The control's own size in twips, as the resize handler sees it.
    const int controlWidth = pixelsToTwipsX(grid.width(), &grid);
    const int controlHeight = pixelsToTwipsY(grid.height(), &grid);
    QCOMPARE(flex->pos(), QPoint(0, 0));
    QCOMPARE(flex->width(),
             widthFollows ? twipsToPixelsX(controlWidth - 60, &grid) : before.width());
    QCOMPARE(flex->height(),
             heightFollows ? twipsToPixelsY(controlHeight - 60, &grid) : before.height());
}

// ---- PropertyChanged -------------------------------------------------------------------------

void tst_VemoGrid::propertyChanged_data()
{
    QTest::addColumn<GridAction>("action");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char* name, std::function<void(VemoGrid&)> run) {
        QTest::newRow(name) << GridAction{std::move(run)} << QStringList{QString::fromLatin1(name)};
    };

    // structure
    row("Cols", [](VemoGrid& g) { g.setCols(5); });
    row("Rows", [](VemoGrid& g) { g.setRows(8); });
    row("FixedRows", [](VemoGrid& g) { g.setFixedRows(2); });
    row("FixedCols", [](VemoGrid& g) { g.setFixedCols(2); });
    row("Rowsel", [](VemoGrid& g) { g.setRowsel(4); });
    row("Colsel", [](VemoGrid& g) { g.setColsel(3); });
    row("TopRow", [](VemoGrid& g) { g.setTopRow(2); });
    row("LeftCol", [](VemoGrid& g) { g.setLeftCol(2); });
    row("COLWIDTH", [](VemoGrid& g) { g.setCOLWIDTH(1, 800); });
    // fields of the grid
    row("EditEnable", [](VemoGrid& g) { g.setEditEnable(false); });
    row("NullLine", [](VemoGrid& g) { g.setNullLine(false); });
    row("AutoGrow", [](VemoGrid& g) { g.setAutoGrow(false); });
    row("LunarCalendar", [](VemoGrid& g) { g.setLunarCalendar(true); });
    row("ScrollType", [](VemoGrid& g) { g.setScrollType(VemoScrollHorizontal); });
    row("ScrollNum", [](VemoGrid& g) { g.setScrollNum(5); });
    row("CellAppearance", [](VemoGrid& g) { g.setCellAppearance(1); });
    row("CellBorderStyle", [](VemoGrid& g) { g.setCellBorderStyle(1); });
    row("BackColor1", [](VemoGrid& g) { g.setBackColor1(0x00FF00); });
    row("BackColor2", [](VemoGrid& g) { g.setBackColor2(0x0000FF); });
    row("ReadOnlyColor", [](VemoGrid& g) { g.setReadOnlyColor(0xFF0000); });
    row("AssignCellColorSel", [](VemoGrid& g) { g.setAssignCellColorSel(true); });
    row("CellBackColorSel", [](VemoGrid& g) { g.setCellBackColorSel(0x123456); });
    row("CellForeColorSel", [](VemoGrid& g) { g.setCellForeColorSel(0x654321); });
    row("Redraw", [](VemoGrid& g) { g.setRedraw(false); });
    row("AutoCalc1", [](VemoGrid& g) { g.setAutoCalc1(1); });
    row("AutoCalc2", [](VemoGrid& g) { g.setAutoCalc2(2); });
    row("AutoCalcRES", [](VemoGrid& g) { g.setAutoCalcRES(3); });
    row("AutoCalcOPE", [](VemoGrid& g) { g.setAutoCalcOPE(QStringLiteral("*")); });
    // the control's own look
    row("Appearance", [](VemoGrid& g) { g.setAppearance(0); });
    row("BorderStyle", [](VemoGrid& g) { g.setBorderStyle(0); });
    row("Enabled", [](VemoGrid& g) { g.setEnabled(false); });
    row("Font", [](VemoGrid& g) { g.setFont(QFont("DejaVu Serif", 13)); });
    // pass-through members
    row("RowHeight", [](VemoGrid& g) { g.setRowHeight(1, 600); });
    row("RowHeightMin", [](VemoGrid& g) { g.setRowHeightMin(300); });
    row("FillStyle", [](VemoGrid& g) { g.setFillStyle(1); });
    row("ColAlignment", [](VemoGrid& g) { g.setColAlignment(1, 4); });
    row("ColAlignmentFixed", [](VemoGrid& g) { g.setColAlignmentFixed(1, 4); });
    row("CellAlignment", [](VemoGrid& g) { g.setCellAlignment(4); });
    row("CellBackColor", [](VemoGrid& g) { g.setCellBackColor(0x0000FF); });
    row("CellForeColor", [](VemoGrid& g) { g.setCellForeColor(0x00FF00); });
    row("CellFontBold", [](VemoGrid& g) { g.setCellFontBold(true); });
    row("CellFontItalic", [](VemoGrid& g) { g.setCellFontItalic(true); });
    row("CellFontUnderLine", [](VemoGrid& g) { g.setCellFontUnderLine(true); });
    row("CellFontWidth", [](VemoGrid& g) { g.setCellFontWidth(5); });
    row("CellFontSize", [](VemoGrid& g) { g.setCellFontSize(12); });
    row("CellFontName", [](VemoGrid& g) { g.setCellFontName(QStringLiteral("DejaVu Serif")); });
    row("CellPicture", [](VemoGrid& g) { g.setCellPicture(testPicture()); });
    row("CellPictureAlignment", [](VemoGrid& g) { g.setCellPictureAlignment(4); });
    row("ColPosition", [](VemoGrid& g) { g.setColPosition(1, 2); });
    row("RowPosition", [](VemoGrid& g) { g.setRowPosition(1, 2); });
    row("TextArray", [](VemoGrid& g) { g.setTextArray(5, QStringLiteral("x")); });
    row("FocusRect", [](VemoGrid& g) { g.setFocusRect(2); });
    row("HighLight", [](VemoGrid& g) { g.setHighLight(2); });
    row("AllowUserResizing", [](VemoGrid& g) { g.setAllowUserResizing(1); });
    row("AllowBigSelection", [](VemoGrid& g) { g.setAllowBigSelection(false); });
    row("PictureType", [](VemoGrid& g) { g.setPictureType(1); });
    row("ForeColor", [](VemoGrid& g) { g.setForeColor(0x0000FF); });
    row("BackColorBkg", [](VemoGrid& g) { g.setBackColorBkg(0x0000FF); });
    row("BackColorFixed", [](VemoGrid& g) { g.setBackColorFixed(0x0000FF); });
    row("BackColorSel", [](VemoGrid& g) { g.setBackColorSel(0x0000FF); });
    row("ForeColorSel", [](VemoGrid& g) { g.setForeColorSel(0x0000FF); });
    row("ForeColorFixed", [](VemoGrid& g) { g.setForeColorFixed(0x0000FF); });
    row("GridColor", [](VemoGrid& g) { g.setGridColor(0x0000FF); });
    row("GridColorFixed", [](VemoGrid& g) { g.setGridColorFixed(0x0000FF); });
    row("GridLines", [](VemoGrid& g) { g.setGridLines(2); });
    row("GridLinesFixed", [](VemoGrid& g) { g.setGridLinesFixed(1); });
    row("GridLineWidth", [](VemoGrid& g) { g.setGridLineWidth(2); });
    row("FontFixed", [](VemoGrid& g) { g.setFontFixed(QFont("DejaVu Serif", 11)); });
    row("MergeCells", [](VemoGrid& g) { g.setMergeCells(1); });
    row("MergeRow", [](VemoGrid& g) { g.setMergeRow(1, true); });
    row("MergeCol", [](VemoGrid& g) { g.setMergeCol(1, true); });
    row("SelectionMode", [](VemoGrid& g) { g.setSelectionMode(1); });
    row("WordWrap", [](VemoGrid& g) { g.setWordWrap(true); });
    row("TextStyle", [](VemoGrid& g) { g.setTextStyle(1); });
    row("TextStyleFixed", [](VemoGrid& g) { g.setTextStyleFixed(1); });
    row("ScrollBars", [](VemoGrid& g) { g.setScrollBars(1); });
    row("ScrollTrack", [](VemoGrid& g) { g.setScrollTrack(true); });

    // The exceptions: Sortable reports under its old spelling; ColType and SortOnHeaderClick
    // report nothing; FormatString reports itself and then the Cols it re-applies.
    QTest::newRow("Sortable") << GridAction{[](VemoGrid& g) {
        g.setSortable(false);
    }} << QStringList{"SortAble"};
    QTest::newRow("ColType") << GridAction{[](VemoGrid& g) {
        g.setColType(1, eCurrency);
    }} << QStringList{};
    QTest::newRow("ColType check box") << GridAction{[](VemoGrid& g) {
        g.setColType(2, eCheckBox);
    }} << QStringList{};
    QTest::newRow("SortOnHeaderClick") << GridAction{[](VemoGrid& g) {
        g.SortOnHeaderClick(false);
    }} << QStringList{};
    QTest::newRow("FormatString") << GridAction{[](VemoGrid& g) {
        g.setFormatString(QStringLiteral("|A|B|C"));
    }} << QStringList{"FormatString", "Cols"};
}

void tst_VemoGrid::propertyChanged()
{
    QFETCH(GridAction, action);
    QFETCH(QStringList, expected);
    VemoGrid grid;
    grid.setCols(4);
    grid.setRows(6);
    QSignalSpy changed(&grid, &VemoGrid::PropertyChanged);

    action.run(grid);

    QCOMPARE(names(changed), expected);
}

void tst_VemoGrid::sortOnHeaderClickSetsSortableSilently()
{
    VemoGrid grid;
    QSignalSpy changed(&grid, &VemoGrid::PropertyChanged);
    grid.SortOnHeaderClick(false, VemoSortNumeric);
    QCOMPARE(grid.Sortable(), false);
    grid.SortOnHeaderClick(true);
    QCOMPARE(grid.Sortable(), true);
    QCOMPARE(changed.count(), 0);
}

// ---- pass-through ----------------------------------------------------------------------------

void tst_VemoGrid::passThroughProperty_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("first");
    QTest::addColumn<QVariant>("second");

    const auto colour = [](const char* name, OleColor a, OleColor b) {
        QTest::newRow(name) << QByteArray(name) << QVariant::fromValue<quint32>(a)
                            << QVariant::fromValue<quint32>(b);
    };
    const auto number = [](const char* name, int a, int b) {
        QTest::newRow(name) << QByteArray(name) << QVariant(a) << QVariant(b);
    };
    const auto flag = [](const char* name, bool a) {
        QTest::newRow(name) << QByteArray(name) << QVariant(a) << QVariant(!a);
    };
    number("FixedRows", 2, 3);
    number("FixedCols", 2, 0);
    colour("ForeColor", 0x0000FF, 0x00FF00);
    colour("BackColorBkg", 0x0000FF, 0x00FF00);
    colour("BackColorFixed", 0x0000FF, 0x00FF00);
    colour("BackColorSel", 0x0000FF, 0x00FF00);
    colour("ForeColorSel", 0x0000FF, 0x00FF00);
    colour("ForeColorFixed", 0x0000FF, 0x00FF00);
    colour("GridColor", 0x0000FF, 0x00FF00);
    colour("GridColorFixed", 0x0000FF, 0x00FF00);
    number("GridLines", 2, 4);
    number("GridLinesFixed", 1, 3);
    number("GridLineWidth", 2, 3);
    number("FocusRect", 0, 2);
    number("HighLight", 0, 2);
    number("MergeCells", 1, 2);
    number("SelectionMode", 1, 2);
    number("TextStyle", 1, 2);
    number("TextStyleFixed", 1, 3);
    number("ScrollBars", 0, 2);
    number("AllowUserResizing", 1, 3);
    flag("WordWrap", true);
    flag("ScrollTrack", true);
    flag("AllowBigSelection", false);
    QTest::newRow("FontFixed") << QByteArray("FontFixed") << QVariant(QFont("DejaVu Serif", 11))
                               << QVariant(QFont("DejaVu Sans Mono", 7));
}

void tst_VemoGrid::passThroughProperty()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, first);
    QFETCH(QVariant, second);
    VemoGrid grid;
    grid.setCols(5);
    grid.setRows(6);
    FlexGrid* flex = grid.hostedGrid();

    QVERIFY(grid.setProperty(property.constData(), first));
    QVariant hosted = flex->property(property.constData());
    QVERIFY(hosted.convert(first.metaType()));
    QCOMPARE(hosted, first);

    QVERIFY(flex->setProperty(property.constData(), second));
    QVariant own = grid.property(property.constData());
    QVERIFY(own.convert(second.metaType()));
    QCOMPARE(own, second);
}

void tst_VemoGrid::passThroughMember_data()
{
    QTest::addColumn<PassMember>("member");
    QTest::addColumn<QVariant>("first");
    QTest::addColumn<QVariant>("second");
    // False for getters of geometry, which report the hosted value derived from what was set.
    QTest::addColumn<bool>("exact");

    QTest::newRow("RowHeight(2)")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setRowHeight(2, v.toInt()); },
                      [](const VemoGrid& g) { return QVariant(g.RowHeight(2)); },
                      [](FlexGrid& f, const QVariant& v) { f.setRowHeight(2, v.toInt()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.RowHeight(2));
                      }}
        << QVariant(600) << QVariant(750) << true;
    QTest::newRow("RowHeightMin")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setRowHeightMin(v.toInt()); },
                      [](const VemoGrid& g) { return QVariant(g.RowHeightMin()); },
                      [](FlexGrid& f, const QVariant& v) { f.setRowHeightMin(v.toInt()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.RowHeightMin());
                      }}
        << QVariant(300) << QVariant(360) << true;
    QTest::newRow("FillStyle")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setFillStyle(v.toInt()); },
                      [](const VemoGrid& g) { return QVariant(g.FillStyle()); },
                      [](FlexGrid& f, const QVariant& v) { f.setFillStyle(v.toInt()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.FillStyle());
                      }}
        << QVariant(1) << QVariant(0) << true;
    QTest::newRow("ColAlignment(3)")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setColAlignment(3, v.toInt()); },
                      [](const VemoGrid& g) { return QVariant(g.ColAlignment(3)); },
                      [](FlexGrid& f, const QVariant& v) { f.setColAlignment(3, v.toInt()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.ColAlignment(3));
                      }}
        << QVariant(4) << QVariant(7) << true;
    QTest::newRow("ColAlignmentFixed(3)")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setColAlignmentFixed(3, v.toInt()); },
                      [](const VemoGrid& g) { return QVariant(g.ColAlignmentFixed(3)); },
                      [](FlexGrid& f, const QVariant& v) { f.setColAlignmentFixed(3, v.toInt()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.ColAlignmentFixed(3));
                      }}
        << QVariant(4) << QVariant(1) << true;
    QTest::newRow("CellAlignment")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setCellAlignment(v.toInt()); },
                      [](const VemoGrid& g) { return QVariant(g.CellAlignment()); },
                      [](FlexGrid& f, const QVariant& v) { f.setCellAlignment(v.toInt()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.CellAlignment());
                      }}
        << QVariant(4) << QVariant(6) << true;
    QTest::newRow("CellBackColor")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setCellBackColor(v.toUInt()); },
                      [](const VemoGrid& g) { return QVariant(g.CellBackColor()); },
                      [](FlexGrid& f, const QVariant& v) { f.setCellBackColor(v.toUInt()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.CellBackColor());
                      }}
        << QVariant(0x0000FFu) << QVariant(0x00FF00u) << true;
    QTest::newRow("CellForeColor")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setCellForeColor(v.toUInt()); },
                      [](const VemoGrid& g) { return QVariant(g.CellForeColor()); },
                      [](FlexGrid& f, const QVariant& v) { f.setCellForeColor(v.toUInt()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.CellForeColor());
                      }}
        << QVariant(0x0000FFu) << QVariant(0x00FF00u) << true;
    QTest::newRow("CellFontBold")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setCellFontBold(v.toBool()); },
                      [](const VemoGrid& g) { return QVariant(g.CellFontBold()); },
                      [](FlexGrid& f, const QVariant& v) { f.setCellFontBold(v.toBool()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.CellFontBold());
                      }}
        << QVariant(true) << QVariant(false) << true;
    QTest::newRow("CellFontItalic")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setCellFontItalic(v.toBool()); },
                      [](const VemoGrid& g) { return QVariant(g.CellFontItalic()); },
                      [](FlexGrid& f, const QVariant& v) { f.setCellFontItalic(v.toBool()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.CellFontItalic());
                      }}
        << QVariant(true) << QVariant(false) << true;
    QTest::newRow("CellFontUnderLine")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setCellFontUnderLine(v.toBool()); },
                      [](const VemoGrid& g) { return QVariant(g.CellFontUnderLine()); },
                      [](FlexGrid& f, const QVariant& v) { f.setCellFontUnderline(v.toBool()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.CellFontUnderline());
                      }}
        << QVariant(true) << QVariant(false) << true;
    QTest::newRow("CellFontSize")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setCellFontSize(v.toFloat()); },
                      [](const VemoGrid& g) { return QVariant(g.CellFontSize()); },
                      [](FlexGrid& f, const QVariant& v) { f.setCellFontSize(v.toFloat()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.CellFontSize());
                      }}
        << QVariant(12.0f) << QVariant(14.0f) << true;
    QTest::newRow("CellFontName")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setCellFontName(v.toString()); },
                      [](const VemoGrid& g) { return QVariant(g.CellFontName()); },
                      [](FlexGrid& f, const QVariant& v) { f.setCellFontName(v.toString()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.CellFontName());
                      }}
        << QVariant(QStringLiteral("DejaVu Serif")) << QVariant(QStringLiteral("DejaVu Sans Mono"))
        << true;
    QTest::newRow("CellPictureAlignment")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setCellPictureAlignment(v.toInt()); },
                      [](const VemoGrid& g) { return QVariant(g.CellPictureAlignment()); },
                      [](FlexGrid& f, const QVariant& v) { f.setCellPictureAlignment(v.toInt()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.CellPictureAlignment());
                      }}
        << QVariant(4) << QVariant(7) << true;
    QTest::newRow("TextArray(7)")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setTextArray(7, v.toString()); },
                      [](const VemoGrid& g) { return QVariant(g.TextArray(7)); },
                      [](FlexGrid& f, const QVariant& v) { f.setTextArray(7, v.toString()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.TextArray(7));
                      }}
        << QVariant(QStringLiteral("first")) << QVariant(QStringLiteral("second")) << true;
    QTest::newRow("MergeRow(2)")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setMergeRow(2, v.toBool()); },
                      [](const VemoGrid& g) { return QVariant(g.MergeRow(2)); },
                      [](FlexGrid& f, const QVariant& v) { f.setMergeRow(2, v.toBool()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.MergeRow(2));
                      }}
        << QVariant(true) << QVariant(false) << true;
    QTest::newRow("MergeCol(3)")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setMergeCol(3, v.toBool()); },
                      [](const VemoGrid& g) { return QVariant(g.MergeCol(3)); },
                      [](FlexGrid& f, const QVariant& v) { f.setMergeCol(3, v.toBool()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.MergeCol(3));
                      }}
        << QVariant(true) << QVariant(false) << true;
    QTest::newRow("PictureType")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.setPictureType(v.toInt()); },
                      [](const VemoGrid& g) { return QVariant(g.PictureType()); },
                      [](FlexGrid& f, const QVariant& v) { f.setPictureType(v.toInt()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.PictureType());
                      }}
        << QVariant(1) << QVariant(0) << true;
    QTest::newRow("Rowsel") << PassMember{
                                   [](VemoGrid& g, const QVariant& v) { g.setRowsel(v.toInt()); },
                                   [](const VemoGrid& g) { return QVariant(g.Rowsel()); },
                                   [](FlexGrid& f, const QVariant& v) { f.setRowSel(v.toInt()); },
                                   [](const FlexGrid& f) {
                                       return QVariant(f.RowSel());
                                   }}
                            << QVariant(4) << QVariant(2) << true;
    QTest::newRow("Colsel") << PassMember{
                                   [](VemoGrid& g, const QVariant& v) { g.setColsel(v.toInt()); },
                                   [](const VemoGrid& g) { return QVariant(g.Colsel()); },
                                   [](FlexGrid& f, const QVariant& v) { f.setColSel(v.toInt()); },
                                   [](const FlexGrid& f) {
                                       return QVariant(f.ColSel());
                                   }}
                            << QVariant(4) << QVariant(2) << true;
    // Getters only: the grid reads what the hosted grid holds.
    QTest::newRow("Row getter")
        << PassMember{[](VemoGrid& g, const QVariant& v) { g.hostedGrid()->setRow(v.toInt()); },
                      [](const VemoGrid& g) { return QVariant(g.Row()); },
                      [](FlexGrid& f, const QVariant& v) { f.setRow(v.toInt()); },
                      [](const FlexGrid& f) {
                          return QVariant(f.Row());
                      }}
        << QVariant(3) << QVariant(5) << true;
    QTest::newRow("ColPos(2) getter")
        << PassMember{
               [](VemoGrid& g, const QVariant& v) { g.hostedGrid()->setColWidth(1, v.toInt()); },
               [](const VemoGrid& g) { return QVariant(g.ColPos(2)); },
               [](FlexGrid& f, const QVariant& v) { f.setColWidth(1, v.toInt()); },
               [](const FlexGrid& f) {
                   return QVariant(f.ColPos(2));
               }}
        << QVariant(900) << QVariant(1500) << false;
}

void tst_VemoGrid::passThroughMember()
{
    QFETCH(PassMember, member);
    QFETCH(QVariant, first);
    QFETCH(QVariant, second);
    QFETCH(bool, exact);
    VemoGrid grid;
    grid.setCols(5);
    grid.setRows(6);
    FlexGrid& flex = *grid.hostedGrid();
    // Cell members act on the current cell: a data cell with room for a selection.
    flex.setRow(1);
    flex.setCol(1);

    member.setOnGrid(grid, first);
    if (exact)
        QCOMPARE(member.readOnHosted(flex), first);
    QCOMPARE(member.readOnGrid(grid), member.readOnHosted(flex));

    member.setOnHosted(flex, second);
    if (exact)
        QCOMPARE(member.readOnGrid(grid), second);
    QCOMPARE(member.readOnGrid(grid), member.readOnHosted(flex));
}

void tst_VemoGrid::redrawIsMirrored()
{
    VemoGrid grid;
    grid.setRedraw(false);
    QCOMPARE(grid.hostedGrid()->Redraw(), false);
    QCOMPARE(grid.Redraw(), false);
    grid.setRedraw(true);
    QCOMPARE(grid.hostedGrid()->Redraw(), true);
    QCOMPARE(grid.Redraw(), true);
}

// ---- colouring pass --------------------------------------------------------------------------

void tst_VemoGrid::colouringBandsDataRows_data()
{
    QTest::addColumn<int>("fixedRows");
    QTest::addColumn<int>("rows");
    QTest::addColumn<quint32>("even");
    QTest::addColumn<quint32>("odd");
    QTest::addColumn<bool>("setColours");
    QTest::newRow("defaults") << 1 << 6 << quint32(White) << quint32(LightYellow) << false;
    QTest::newRow("two fixed rows") << 2 << 7 << quint32(White) << quint32(LightYellow) << false;
    QTest::newRow("own colours") << 1 << 6 << quint32(0x80FF80) << quint32(0xFF8080) << true;
}

void tst_VemoGrid::colouringBandsDataRows()
{
    QFETCH(int, fixedRows);
    QFETCH(int, rows);
    QFETCH(quint32, even);
    QFETCH(quint32, odd);
    QFETCH(bool, setColours);
    auto scene = makeScene(3, 4);
    VemoGrid& grid = *scene->grid;
    grid.setFixedRows(fixedRows);
    if (setColours) {
        grid.setBackColor1(even);
        grid.setBackColor2(odd);
    }

    grid.setRows(rows);
    QVERIFY(exposed(*scene));

    const QImage image = shot(grid);
    const QPoint current(grid.hostedGrid()->Row(), grid.hostedGrid()->Col());
    for (int row = fixedRows; row < rows; ++row) {
        const OleColor expected = band(row, fixedRows, even, odd);
        // The fixed column is not coloured.
        QCOMPARE(lookOf(grid, row, 0).backColor, OleColor(0));
        for (int col = 1; col < 4; ++col) {
            QCOMPARE(lookOf(grid, row, col).backColor, expected);
            // The focus rectangle marks the current cell's edges; its colour is checked above.
            if (QPoint(row, col) == current)
                continue;
            QCOMPARE(pixel(image, backgroundSpot(grid, row, col)), toQColor(expected));
        }
    }
}

void tst_VemoGrid::colouringLockedAndAutoAddColumns()
{
    auto scene = makeScene(2, 5);
    VemoGrid& grid = *scene->grid;
    grid.Column(2)->setLocked(true);
    grid.Column(3)->setAutoAdd(true);
    FlexGrid* flex = grid.hostedGrid();
    flex->setRows(6);
    flex->setTextMatrix(4, 3, QStringLiteral("x"));

    grid.setRows(6);
    QVERIFY(exposed(*scene));

    const QImage image = shot(grid);
    for (int row = 1; row < 6; ++row) {
        const OleColor banded = band(row, 1, White, LightYellow);
        QCOMPARE(lookOf(grid, row, 1).backColor, banded);
        QCOMPARE(lookOf(grid, row, 2).backColor, ReadOnlyDefault);
        QCOMPARE(lookOf(grid, row, 3).backColor, ReadOnlyDefault);
        QCOMPARE(lookOf(grid, row, 4).backColor, banded);
        // An AutoAdd column numbers its empty cells with their row index; filled ones stay.
        QCOMPARE(flex->TextMatrix(row, 3), row == 4 ? QStringLiteral("x") : QString::number(row));
        QCOMPARE(flex->TextMatrix(row, 2), QString());
        QCOMPARE(pixel(image, backgroundSpot(grid, row, 2)), toQColor(ReadOnlyDefault));
        QCOMPARE(pixel(image, backgroundSpot(grid, row, 3)), toQColor(ReadOnlyDefault));
        QCOMPARE(pixel(image, backgroundSpot(grid, row, 4)), toQColor(banded));
    }
}

void tst_VemoGrid::colouringAtDesignTimeBandsEveryColumn()
{
    auto scene = makeScene(2, 4);
    VemoGrid& grid = *scene->grid;
    grid.Column(2)->setLocked(true);
    grid.Column(3)->setAutoAdd(true);
    grid.setUserMode(false);

    grid.setRows(6);
    QVERIFY(exposed(*scene));

    const QImage image = shot(grid);
    for (int row = 1; row < 6; ++row) {
        const OleColor banded = band(row, 1, White, LightYellow);
        for (int col = 1; col < 4; ++col) {
            QCOMPARE(lookOf(grid, row, col).backColor, banded);
            if (row != 1 || col != 1)
                QCOMPARE(pixel(image, backgroundSpot(grid, row, col)), toQColor(banded));
        }
        // No numbering at design time: AutoAdd is a run-time column setting.
        QCOMPARE(grid.hostedGrid()->TextMatrix(row, 3), QString());
    }
}

void tst_VemoGrid::colouringShowsHourglassAndLeavesNone()
{
    VemoGrid grid;
    grid.setCols(4);
    PointerWatcher watcher(grid.hostedGrid());

    // A pass shorter than BulkPass::HourglassCells ends before a pointer could be seen.
    grid.setRows(8);
    QVERIFY(!watcher.pointers.contains(11));
    grid.setRows(4000);

    QVERIFY2(watcher.pointers.contains(11), "the hourglass was never shown");
    QCOMPARE(grid.hostedGrid()->MousePointer(), 0);
    QVERIFY(grid.hostedGrid()->viewport()->cursor().shape() != Qt::WaitCursor);
}

void tst_VemoGrid::colouringRaisesNoCellEventsAndRestoresCell()
{
    VemoGrid grid;
    grid.setCols(4);
    grid.setRows(6);
    grid.Column(1)->setAutoAdd(true);
    grid.setColType(3, eCheckBox);
    grid.setRow(3);
    grid.setCol(2);
    const EmitCount enter(grid, &VemoGrid::EnterCell);
    QSignalSpy leave(&grid, &VemoGrid::LeaveCell);

    grid.setRows(9);
    grid.setRows(9);

    QCOMPARE(enter.count(), 0);
    QCOMPARE(leave.count(), 0);
    QCOMPARE(grid.hostedGrid()->Row(), 3);
    QCOMPARE(grid.hostedGrid()->Col(), 2);
    QCOMPARE(grid.hostedGrid()->MousePointer(), 0);
}

void tst_VemoGrid::colouringRestoresRedraw()
{
    VemoGrid grid;
    grid.setCols(4);
    grid.setRedraw(false);
    grid.setRows(6);
    QCOMPARE(grid.hostedGrid()->Redraw(), false);
    grid.setRedraw(true);
    grid.setRows(7);
    QCOMPARE(grid.hostedGrid()->Redraw(), true);
}

// ---- check-box pass --------------------------------------------------------------------------

void tst_VemoGrid::checkBoxPass_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("checked");
    // Checked when the trimmed text is not empty, not "False" and not the unchecked marker.
    QTest::newRow("checked marker") << QStringLiteral(".") << true;
    QTest::newRow("any text") << QStringLiteral("x") << true;
    QTest::newRow("padded text") << QStringLiteral("  x  ") << true;
    QTest::newRow("True") << QStringLiteral("True") << true;
    QTest::newRow("-1") << QStringLiteral("-1") << true;
    QTest::newRow("0") << QStringLiteral("0") << true;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("blanks") << QStringLiteral("   ") << false;
    QTest::newRow("False") << QStringLiteral("False") << false;
    QTest::newRow("unchecked marker") << QStringLiteral("`") << false;
    QTest::newRow("padded unchecked marker") << QStringLiteral(" ` ") << false;
}

void tst_VemoGrid::checkBoxPass()
{
    QFETCH(QString, text);
    QFETCH(bool, checked);
    auto scene = makeScene(2, 4);
    VemoGrid& grid = *scene->grid;
    grid.setColType(2, eCheckBox);
    FlexGrid* flex = grid.hostedGrid();
    // Rows 1 and 2 hold the two markers, to compare the tested row's picture against.
    flex->setRows(5);
    flex->setTextMatrix(1, 2, QStringLiteral("."));
    flex->setTextMatrix(2, 2, QStringLiteral("`"));
    flex->setTextMatrix(3, 2, text);
    flex->setRow(4);
    flex->setCol(1);

    grid.setRows(5);

    const QImage checkedPicture = lookOf(grid, 1, 2).picture.toImage();
    const QImage uncheckedPicture = lookOf(grid, 2, 2).picture.toImage();
    QVERIFY(!checkedPicture.isNull());
    QVERIFY(!uncheckedPicture.isNull());
    QVERIFY(checkedPicture != uncheckedPicture);
    const FlexCellFormat cell = lookOf(grid, 3, 2);
    QVERIFY(!cell.picture.isNull());
    QCOMPARE(cell.picture.toImage(), checked ? checkedPicture : uncheckedPicture);
    for (int row = 1; row < 5; ++row) {
        // The text stays in the cell but is drawn in its background colour.
        QVERIFY(lookOf(grid, row, 2).backColor != 0);
        QCOMPARE(lookOf(grid, row, 2).foreColor, lookOf(grid, row, 2).backColor);
        // Only the check-box column gets pictures.
        QVERIFY(lookOf(grid, row, 1).picture.isNull());
        QVERIFY(lookOf(grid, row, 3).picture.isNull());
    }
    QCOMPARE(flex->Row(), 4);
    QCOMPARE(flex->Col(), 1);
    QCOMPARE(flex->MousePointer(), 0);
}

void tst_VemoGrid::checkBoxPassDoesNothingAtDesignTime()
{
    VemoGrid grid;
    grid.setCols(4);
    grid.setUserMode(false);
    grid.setColType(2, eCheckBox);
    FlexGrid* flex = grid.hostedGrid();
    flex->setRows(4);
    flex->setTextMatrix(1, 2, QStringLiteral("."));
    flex->setTextMatrix(2, 2, QStringLiteral("`"));

    grid.setRows(4);

    for (int row = 1; row < 4; ++row) {
        QVERIFY(lookOf(grid, row, 2).picture.isNull());
        QCOMPARE(lookOf(grid, row, 2).foreColor, OleColor(0));
    }
}

// ---- current cell, click and events ----------------------------------------------------------

void tst_VemoGrid::rowColSettersLeaveThenEnter_data()
{
    QTest::addColumn<bool>("setRow");
    QTest::addColumn<int>("target");
    QTest::newRow("Row") << true << 3;
    QTest::newRow("last Row") << true << 5;
    QTest::newRow("Col") << false << 3;
}

void tst_VemoGrid::rowColSettersLeaveThenEnter()
{
    QFETCH(bool, setRow);
    QFETCH(int, target);
    VemoGrid grid;
    grid.setCols(5);
    grid.setRows(6);
    FlexGrid* flex = grid.hostedGrid();
    flex->setRow(1);
    flex->setCol(1);
    // A cell with text: EnterCell passes an empty Value all the same.
    flex->setTextMatrix(setRow ? target : 1, setRow ? 1 : target, QStringLiteral("text"));
    QStringList log;
    connect(&grid, &VemoGrid::LeaveCell, &grid,
            [&] { log << QStringLiteral("LeaveCell at %1,%2").arg(flex->Row()).arg(flex->Col()); });
    connect(&grid, &VemoGrid::EnterCell, &grid, [&](int& rowSel, int& colSel, QString& value) {
        log << QStringLiteral("EnterCell at %1,%2").arg(flex->Row()).arg(flex->Col());
        QCOMPARE(rowSel, flex->RowSel());
        QCOMPARE(colSel, flex->ColSel());
        QCOMPARE(value, QString());
    });

    if (setRow)
        grid.setRow(target);
    else
        grid.setCol(target);

    const int row = setRow ? target : 1;
    const int col = setRow ? 1 : target;
    QCOMPARE(flex->Row(), row);
    QCOMPARE(flex->Col(), col);
    QCOMPARE(log, QStringList({QStringLiteral("LeaveCell at 1,1"),
                               QStringLiteral("EnterCell at %1,%2").arg(row).arg(col)}));
}

void tst_VemoGrid::settingTheSameRowKeepsLaterLeaveCell()
{
    auto scene = makeScene(6, 4);
    VemoGrid& grid = *scene->grid;
    QVERIFY(exposed(*scene));
    QSignalSpy leave(&grid, &VemoGrid::LeaveCell);
    const EmitCount enter(grid, &VemoGrid::EnterCell);

    // The setter leaves the cell although the hosted grid does not move.
    grid.setRow(grid.Row());
    QCOMPARE(leave.count(), 1);
    QCOMPARE(enter.count(), 0);

    // The next move the hosted grid makes by itself still raises LeaveCell and EnterCell.
    leave.clear();
    grid.hostedGrid()->setRow(4);
    QCOMPARE(leave.count(), 1);
    QCOMPARE(enter.count(), 1);
}

void tst_VemoGrid::clickMovesCurrentRowMarker()
{
    auto scene = makeScene(7, 4);
    VemoGrid& grid = *scene->grid;
    QVERIFY(exposed(*scene));
    QSignalSpy click(&grid, &VemoGrid::Click);
    QCOMPARE(grid.Selected(), 0);

    clickCell(grid, 3, 2);

    QCOMPARE(click.count(), 1);
    QCOMPARE(grid.Selected(), 3);
    QVERIFY(!lookOf(grid, 3, 0).picture.isNull());
    for (int row : {1, 2, 4, 5, 6})
        QVERIFY(lookOf(grid, row, 0).picture.isNull());

    clickCell(grid, 5, 1);

    QCOMPARE(click.count(), 2);
    QCOMPARE(grid.Selected(), 5);
    QVERIFY(!lookOf(grid, 5, 0).picture.isNull());
    QVERIFY(lookOf(grid, 3, 0).picture.isNull());
    QCOMPARE(grid.hostedGrid()->Row(), 5);
    QCOMPARE(grid.hostedGrid()->Col(), 1);
}

void tst_VemoGrid::hostedEventsAreRelayed_data()
{
    QTest::addColumn<QByteArray>("event");
    QTest::addColumn<GridAction>("trigger");

    const GridAction click{[](VemoGrid& g) {
        clickCell(g, 2, 2);
    }};
    const GridAction keyA{[](VemoGrid& g) {
        QTest::keyClick(g.hostedGrid(), Qt::Key_A);
    }};
    QTest::newRow("Click") << QByteArray("Click") << click;
    QTest::newRow("DblClick") << QByteArray("DblClick") << GridAction{[](VemoGrid& g) {
        QTest::mouseDClick(g.hostedGrid()->viewport(), Qt::LeftButton, Qt::NoModifier,
                           centreOf(g, 2, 2));
    }};
    QTest::newRow("KeyDown") << QByteArray("KeyDown") << keyA;
    QTest::newRow("KeyPress") << QByteArray("KeyPress") << keyA;
    QTest::newRow("KeyUp") << QByteArray("KeyUp") << keyA;
    QTest::newRow("MouseDown") << QByteArray("MouseDown") << click;
    QTest::newRow("MouseUp") << QByteArray("MouseUp") << click;
    QTest::newRow("MouseMove") << QByteArray("MouseMove") << GridAction{[](VemoGrid& g) {
        QWidget* viewport = g.hostedGrid()->viewport();
        const QPoint pos = centreOf(g, 2, 2);
        QMouseEvent move(QEvent::MouseMove, pos, viewport->mapToGlobal(pos), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
    }};
    QTest::newRow("SelChange") << QByteArray("SelChange") << GridAction{[](VemoGrid& g) {
        g.hostedGrid()->setRowSel(4);
    }};
    QTest::newRow("Scroll") << QByteArray("Scroll") << GridAction{[](VemoGrid& g) {
        g.hostedGrid()->setTopRow(6);
    }};
    QTest::newRow("RowColChange") << QByteArray("RowColChange") << GridAction{[](VemoGrid& g) {
        g.hostedGrid()->setRow(3);
    }};
}

void tst_VemoGrid::hostedEventsAreRelayed()
{
    QFETCH(QByteArray, event);
    QFETCH(GridAction, trigger);
    auto scene = makeScene(30, 5);
    VemoGrid& grid = *scene->grid;
    QVERIFY(exposed(*scene));
    Counter hosted;
    Counter relayed;
    QVERIFY(countSignal(*grid.hostedGrid(), event, hosted));
    QVERIFY(countSignal(grid, event, relayed));

    trigger.run(grid);

    QVERIFY2(hosted.count > 0, "the trigger did not raise the hosted event");
    QCOMPARE(relayed.count, hosted.count);
}

void tst_VemoGrid::cellEventsNeedNoHostedReceiver_data()
{
    QTest::addColumn<QByteArray>("event");
    QTest::addColumn<int>("expected");

    // One arrow key down: the cell is left and entered once, and the selection follows it.
    QTest::newRow("LeaveCell") << QByteArray("LeaveCell") << 1;
    QTest::newRow("EnterCell") << QByteArray("EnterCell") << 1;
    QTest::newRow("SelChange") << QByteArray("SelChange") << 1;
    QTest::newRow("RowColChange") << QByteArray("RowColChange") << 1;
}

void tst_VemoGrid::cellEventsNeedNoHostedReceiver()
{
    QFETCH(QByteArray, event);
    QFETCH(int, expected);
    auto scene = makeScene(8, 4);
    VemoGrid& grid = *scene->grid;
    QVERIFY(exposed(*scene));
    Counter relayed;
    QVERIFY(countSignal(grid, event, relayed));
    grid.hostedGrid()->setFocus();

    QTest::keyClick(grid.hostedGrid(), Qt::Key_Down);

    QCOMPARE(grid.hostedGrid()->Row(), 2);
    QCOMPARE(relayed.count, expected);
}

void tst_VemoGrid::relayedKeyAndMouseArguments()
{
    auto scene = makeScene(6, 4);
    VemoGrid& grid = *scene->grid;
    QVERIFY(exposed(*scene));
    FlexGrid* flex = grid.hostedGrid();
    QList<float> hosted;
    QList<float> relayed;
    connect(flex, &FlexGrid::KeyDown, &grid,
            [&](short& code, short& shift) { hosted << 1 << code << shift; });
    connect(flex, &FlexGrid::KeyPress, &grid, [&](short& ascii) { hosted << 2 << ascii; });
    connect(flex, &FlexGrid::KeyUp, &grid,
            [&](short& code, short& shift) { hosted << 3 << code << shift; });
    connect(flex, &FlexGrid::MouseDown, &grid, [&](short button, short shift, float x, float y) {
        hosted << 4 << button << shift << x << y;
    });
    connect(&grid, &VemoGrid::KeyDown, &grid,
            [&](short& code, short& shift) { relayed << 1 << code << shift; });
    connect(&grid, &VemoGrid::KeyPress, &grid, [&](short& ascii) { relayed << 2 << ascii; });
    connect(&grid, &VemoGrid::KeyUp, &grid,
            [&](short& code, short& shift) { relayed << 3 << code << shift; });
    connect(&grid, &VemoGrid::MouseDown, &grid,
            [&](short& button, short& shift, float& x, float& y) {
                relayed << 4 << button << shift << x << y;
            });

    QTest::keyClick(flex, Qt::Key_A);
    QTest::mousePress(flex->viewport(), Qt::LeftButton, Qt::NoModifier, centreOf(grid, 2, 2));
    QTest::mouseRelease(flex->viewport(), Qt::LeftButton, Qt::NoModifier, centreOf(grid, 2, 2));

    // Key code 65 for 'A', left button 1, no shift: the relay passes them on unchanged, with the
    // mouse position in the hosted grid's twips.
    QVERIFY(hosted.size() > 4);
    QCOMPARE(hosted.mid(0, 3), QList<float>({1, 65, 0}));
    QCOMPARE(relayed, hosted);
}

void tst_VemoGrid::columnsFollowBoundModel()
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
    try {
        grid.Column(2);
        QFAIL("a stale Column is left");
    } catch (const VemoError& e) {
        QCOMPARE(e.number(), VemoError::SubscriptOutOfRange);
    }
}

QTEST_MAIN(tst_VemoGrid)
#include "tst_vemogrid.moc"
