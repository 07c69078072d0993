// SPDX-License-Identifier: MIT
// Saved forms are untrusted input: whatever a bag holds, loading it leaves a grid on which
// sorting, adding, removing and painting either work or raise a VemoError.
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/MemoryPropertyBag.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/VemoGrid.h>

#include "CellStoreAccess.h"
#include "VemoTestSupport.h"

#include <QImage>
#include <QTest>

using namespace VemoGridLib;

namespace {

// The grid's counts agree with its store's.
void verifyIntact(const VemoGrid& grid)
{
    const FlexGrid& flex = *grid.hostedGrid();
    QCOMPARE(cellsOf(flex).rowCount(), flex.Rows());
    QCOMPARE(cellsOf(flex).colCount(), flex.Cols());
    QVERIFY(flex.FixedRows() <= flex.Rows() && flex.FixedCols() <= flex.Cols());
}

} // namespace

class tst_SavedForms : public QObject
{
    Q_OBJECT

private slots:
    void loadedGridSurvivesUse_data()
    {
        QTest::addColumn<QString>("saved"); // name=value, ...; FormatString a string, others int32
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("cols");
        QTest::newRow("no rows") << "Rows=0" << 0 << 2;
        QTest::newRow("no cols") << "Cols=0" << 2 << 0;
        QTest::newRow("no rows, no cols") << "Rows=0,Cols=0" << 0 << 0;
        QTest::newRow("rows equal fixed rows") << "Rows=1,FixedRows=1" << 1 << 2;
        QTest::newRow("no fixed rows or cols") << "FixedRows=0,FixedCols=0" << 2 << 2;
        QTest::newRow("rows 2^31-1") << "Rows=2147483647" << 2 << 2;
        QTest::newRow("cols 1.8 billion") << "Cols=1800000000" << 2 << 2;
        QTest::newRow("negative sizes") << "Rows=-5,Cols=-1" << 2 << 2;
        QTest::newRow("format after no rows") << "Rows=0,FormatString=a|b|c|d;x|y" << 2 << 4;
    }

    void loadedGridSurvivesUse()
    {
        QFETCH(QString, saved);
        QFETCH(int, rows);
        QFETCH(int, cols);
        QStringList json;
        for (const QString& pair : saved.split(u',')) {
            const QString name = pair.section(u'=', 0, 0), value = pair.section(u'=', 1);
            json << (name == u"FormatString"
                         ? QStringLiteral(R"({"name":"%1","type":"string","value":"%2"})")
                         : QStringLiteral(R"({"name":"%1","type":"int32","value":%2})"))
                        .arg(name, value);
        }
        QString error;
        const MemoryPropertyBag bag = MemoryPropertyBag::fromJson(
            (R"({"properties":[)" + json.join(u',') + "]}").toUtf8(), &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        VemoGrid grid;
        grid.resize(300, 200);
        grid.ReadProperties(bag);
        QCOMPARE(grid.Rows(), rows);
        QCOMPARE(grid.Cols(), cols);
        verifyIntact(grid);
        const std::function<void()> steps[] = {[&] { grid.Sort(1, SortAscending); },
                                               [&] { grid.AddItem("a\tb"); },
                                               [&] { grid.Sort(1, SortDescending); },
                                               [&] { grid.RemoveItem(grid.Rows() - 1); },
                                               [&] { grid.RemoveItem(0); },
                                               [&] {
                                                   grid.AddItem(QString(), 1);
                                               }};
        for (const auto& step : steps) {
            VemoTest::errorOf(step); // a VemoError is a refusal
            verifyIntact(grid);
            QImage image(grid.size(), QImage::Format_ARGB32);
            grid.render(&image);
        }
    }

    void hugeSizeRefused_data()
    {
        QTest::addColumn<bool>("setRows");
        QTest::addColumn<int>("count");
        QTest::newRow("rows 2^31-1") << true << 2147483647;
        QTest::newRow("cols 1.8 billion") << false << 1800000000;
        QTest::newRow("rows × cols beyond the store") << true << 100000000;
    }

    void hugeSizeRefused()
    {
        QFETCH(bool, setRows);
        QFETCH(int, count);
        VemoGrid grid;
        grid.setCols(4);
        grid.setRows(3);
        const auto error =
            VemoTest::errorOf([&] { setRows ? grid.setRows(count) : grid.setCols(count); });
        QVERIFY(error);
        QCOMPARE(error->number(), 7);
        QCOMPARE(error->description(), QStringLiteral("Out of memory"));
        QCOMPARE(grid.Rows() * 10 + grid.Cols(), 34);
        verifyIntact(grid);
        grid.AddItem(QStringLiteral("still\tworks"));
        QCOMPARE(grid.Rows(), 4);
    }

    void zeroRowsOrHostedColumnsGone()
    {
        VemoGrid grid;
        QCOMPARE(VemoTest::errorNumberOf([&] { grid.setRows(0); }), 30016);
        QCOMPARE(grid.Rows(), 0);
        VemoTest::errorOf([&] { grid.Sort(1, SortAscending); });
        grid.AddItem(QStringLiteral("x"));
        verifyIntact(grid);
        // The hosted grid is public: its columns can go while the grid keeps its Column objects.
        VemoGrid other;
        FlexGrid& flex = *other.hostedGrid();
        flex.setFixedRows(0);
        flex.setFixedCols(0);
        flex.setCols(0);
        VemoTest::errorOf([&] { other.Sort(1, SortAscending); });
        verifyIntact(other);
    }
};

QTEST_MAIN(tst_SavedForms)
#include "tst_savedforms.moc"
