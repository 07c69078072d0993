// SPDX-License-Identifier: MIT
// Errors stay on the library's side of Qt: a property written through the meta-object system
// refuses a bad value with a warning, and an error raised by a directly connected event
// handler ends that event without leaving the event loop; direct C++ calls still throw.
#include "VemoGridTestSupport.h"

#include <VemoGridLib/Column.h>
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/VemoGrid.h>

#include <QApplication>
#include <QRegularExpression>
#include <QTest>
#include <QWheelEvent>

using namespace VemoGridLib;

class tst_ErrorContainment : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void refusedPropertyWrite_data();
    void refusedPropertyWrite();
    void throwingHandler_data();
    void throwingHandler();
    void directCallsThrow();
};

enum class Target { Flex, Vemo, Column };

void tst_ErrorContainment::refusedPropertyWrite_data()
{
    QTest::addColumn<Target>("target");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("shown");

    QTest::newRow("FlexGrid SelectionMode")
        << Target::Flex << QByteArray("SelectionMode") << QVariant(7) << "7";
    QTest::newRow("FlexGrid Rows") << Target::Flex << QByteArray("Rows") << QVariant(-1) << "-1";
    QTest::newRow("FlexGrid FixedRows")
        << Target::Flex << QByteArray("FixedRows") << QVariant(5) << "5";
    QTest::newRow("FlexGrid Row") << Target::Flex << QByteArray("Row") << QVariant(99) << "99";
    QTest::newRow("VemoGrid Cols") << Target::Vemo << QByteArray("Cols") << QVariant(-2) << "-2";
    QTest::newRow("VemoGrid GridLines")
        << Target::Vemo << QByteArray("GridLines") << QVariant(9) << "9";
    QTest::newRow("VemoGrid SelectionMode")
        << Target::Vemo << QByteArray("SelectionMode") << QVariant(3) << "3";
    QTest::newRow("Column DecimalLength")
        << Target::Column << QByteArray("DecimalLength") << QVariant(3) << "3";
}

void tst_ErrorContainment::refusedPropertyWrite()
{
    QFETCH(Target, target);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    QFETCH(QString, shown);

    VemoGrid grid;
    grid.setCols(3);
    grid.setRows(4);
    grid.setColType(1, eCurrency); // DecimalLength is refused on a currency column
    QObject* const object = target == Target::Flex   ? static_cast<QObject*>(grid.hostedGrid())
                            : target == Target::Vemo ? static_cast<QObject*>(&grid)
                                                     : grid.Column(1);
    const QVariant before = object->property(property);

    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("property %1 refused the value %2 ")
                                                .arg(QString::fromLatin1(property), shown)));
    // The write reached the property: moc reports no refusal, the warning does.
    QVERIFY(object->setProperty(property, value));
    QCOMPARE(object->property(property), before);
}

namespace {

/// While set, the handlers below try a row that is not there, as a faulty host handler might.
bool refusing = false;

void refuse(VemoGrid& grid)
{
    if (refusing)
        grid.setRow(99);
}

} // namespace

/// Connects a throwing handler to one of the grid's events (directly, as by-reference
/// arguments require) and sends the input that raises it.
using Provoke = void (*)(VemoGrid&, FlexGrid&);

void tst_ErrorContainment::throwingHandler_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<Provoke>("provoke");

    QTest::newRow("KeyDown") << "FlexGrid::keyPressEvent" << Provoke([](VemoGrid& g, FlexGrid& f) {
        connect(&g, &VemoGrid::KeyDown, &g, [&g](short&, short&) { refuse(g); });
        QTest::keyClick(&f, Qt::Key_Down);
    });
    // EnterCell comes after the hosted grid moved: the move stands, the key's work ends there.
    QTest::newRow("EnterCell") << "FlexGrid::keyPressEvent"
                               << Provoke([](VemoGrid& g, FlexGrid& f) {
                                      connect(&g, &VemoGrid::EnterCell, &g,
                                              [&g](int&, int&, QString&) { refuse(g); });
                                      QTest::keyClick(&f, Qt::Key_Down);
                                  });
    QTest::newRow("MouseDown") << "VemoGrid mouse event" << Provoke([](VemoGrid& g, FlexGrid&) {
        connect(&g, &VemoGrid::MouseDown, &g, [&g](short&, short&, float&, float&) { refuse(g); });
        VemoTest::clickCell(g, 3, 2);
    });
    QTest::newRow("Click") << "VemoGrid Click" << Provoke([](VemoGrid& g, FlexGrid&) {
        connect(&g, &VemoGrid::Click, &g, [&g] { refuse(g); });
        VemoTest::clickCell(g, 3, 2);
    });
    QTest::newRow("Scroll") << "VemoGrid Scroll" << Provoke([](VemoGrid& g, FlexGrid& f) {
        connect(&g, &VemoGrid::Scroll, &g, [&g] { refuse(g); });
        const QPointF at(20, 40);
        QWheelEvent wheel(at, f.viewport()->mapToGlobal(at), {}, QPoint(0, -120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(f.viewport(), &wheel);
    });
}

void tst_ErrorContainment::throwingHandler()
{
    QFETCH(QString, where);
    QFETCH(Provoke, provoke);

    const auto grid = VemoTest::shownGrid();
    QVERIFY(grid);
    grid->setCols(4);
    grid->setRows(60);
    FlexGrid& flex = *grid->hostedGrid();
    const int topRow = flex.TopRow();

    refusing = true;
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^%1: error 30009: ").arg(where)));
    provoke(*grid, flex);
    refusing = false;
    QCOMPARE(flex.RowSel(), flex.Row());
    QVERIFY(flex.Row() >= flex.FixedRows() && flex.Row() < flex.Rows());
    if (where == QLatin1String("VemoGrid Scroll"))
        QVERIFY(flex.TopRow() > topRow);

    // The grid goes on working: keys navigate, clicks select.
    const int row = flex.Row();
    QTest::keyClick(&flex, Qt::Key_Down);
    QCOMPARE(flex.Row(), row + 1);
    VemoTest::clickCell(*grid, flex.TopRow() + 2, 3);
    QCOMPARE(flex.Row(), flex.TopRow() + 2);
    QCOMPARE(flex.Col(), 3);
}

void tst_ErrorContainment::directCallsThrow()
{
    VemoGrid grid;
    QVERIFY_THROWS_EXCEPTION(VemoError, grid.hostedGrid()->setSelectionMode(7));
    // The grid's Row refuses before its leave-cell step: no LeaveCell for a cell not left.
    int leaves = 0;
    connect(&grid, &VemoGrid::LeaveCell, this, [&] { ++leaves; });
    QVERIFY_THROWS_EXCEPTION(VemoError, grid.setRow(99));
    QCOMPARE(leaves, 0);
    grid.setColType(1, eLong);
    QVERIFY_THROWS_EXCEPTION(VemoError, grid.Column(1)->setDecimalLength(3));
}

QTEST_MAIN(tst_ErrorContainment)
#include "tst_errorcontainment.moc"
