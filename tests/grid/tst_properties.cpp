// SPDX-License-Identifier: MIT
// VemoGrid's saved properties: read defaults, what a default grid writes, the order sizes are
// applied in, values coerced or refused on reading, the round trip through JSON, and saved forms
// as untrusted input.
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/MemoryPropertyBag.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/VemoGrid.h>

#include "CellStoreAccess.h"
#include "VemoTestSupport.h"

#include <QApplication>
#include <QImage>
#include <QStandardItemModel>
#include <QTest>

using namespace VemoGridLib;

namespace {

template <typename T>
QVariant of(T value)
{
    return QVariant::fromValue(value);
}
const auto int16 = of<qint16>;
// The colour properties read as the QColor an OLE colour paints with.
QVariant colour(OleColor value)
{
    return toQColor(value);
}

QFont fixedFont()
{
    return QFont(QStringLiteral("DejaVu Sans Mono"), 11, QFont::Normal, true);
}

struct Saved
{
    const char* name;
    QVariant changed;     // differs from both defaults
    QVariant readDefault; // what an empty bag gives; invalid for the ambient fonts
};

/// Every saved property, the model first (binding reshapes the grid), sizes before the format.
std::vector<Saved> savedProperties(QAbstractItemModel* model)
{
    // clang-format off
    return {
        {"DataSource", QVariant::fromValue(model), QVariant::fromValue<QAbstractItemModel*>(nullptr)},
        {"Enabled", false, true}, {"Appearance", 0, 1}, {"BorderStyle", 0, 1},
        {"BackColor1", colour(0x112233), colour(0xFFFFFF)},
        {"BackColor2", colour(0x223344), colour(0xBFFFFF)},
        {"ReadOnlyColor", colour(0x334455), colour(0xDFDFC0)},
        {"ForeColor", colour(0x123456), colour(0x80000008)},
        {"BackColorBkg", colour(0x808080), colour(0x8000000F)},
        {"BackColorFixed", colour(0x654321), colour(0x8000000F)},
        {"BackColorSel", colour(0x00FF00), colour(0x8000000D)},
        {"ForeColorSel", colour(0x0000FF), colour(0)},
        {"ForeColorFixed", colour(0x0A0B0C), colour(0x80000007)},
        {"GridColor", colour(0x404040), colour(0xC0C0C0)},
        {"GridColorFixed", colour(0x000001), colour(0xC0C0C0)},
        {"GridLines", 2, 1}, {"GridLinesFixed", 3, 2}, {"GridLineWidth", 2, 1},
        {"CellAppearance", 1, 0}, {"CellBorderStyle", 0, 1},
        {"Cols", 5, 2}, {"Rows", 6, 2}, {"FixedCols", 2, 1}, {"FixedRows", 2, 1},
        {"Font", QVariant::fromValue(QFont(QStringLiteral("DejaVu Serif"), 13, QFont::Bold)), {}},
        {"FontFixed", QVariant::fromValue(fixedFont()), {}},
        {"FocusRect", 2, 1}, {"FormatString", QStringLiteral("<Name|^Kind|>Price|Count|Sum"), QString()},
        {"MergeCells", 1, 0}, {"SelectionMode", 1, 0}, {"WordWrap", true, false},
        {"TextStyle", 1, 0}, {"TextStyleFixed", 2, 0}, {"ScrollBars", 2, 3},
        {"ScrollTrack", true, false}, {"HighLight", 2, 1}, {"AllowBigSelection", false, true},
        {"AllowUserResizing", 3, 0}, {"EditEnable", false, true}, {"Sortable", false, true},
        {"NullLine", false, true}, {"AutoGrow", false, true}, {"AssignCellColorSel", true, false},
        {"CellBackColorSel", colour(0x00FFFF), colour(0xFFFFFF)},
        {"CellForeColorSel", colour(0xFF0000), colour(0)},
        {"AutoCalc1", 2, 0}, {"AutoCalc2", 3, 0}, {"AutoCalcRES", 4, 0},
        {"AutoCalcOPE", QStringLiteral("*"), QString()}, {"ScrollType", 2, 0},
        {"ScrollNum", QVariant::fromValue(qint16(5)), QVariant::fromValue(qint16(3))},
        {"LunarCalendar", true, false},
    };
    // clang-format on
}

void applyChanged(VemoGrid& grid, QAbstractItemModel* model)
{
    for (const Saved& saved : savedProperties(model))
        QVERIFY2(grid.setProperty(saved.name, saved.changed), saved.name);
}

/// Equal by value: numbers as numbers, fonts with QFont's equality, objects by identity.
bool same(const QVariant& actual, const QVariant& expected)
{
    switch (expected.metaType().id()) {
    case QMetaType::QFont:
        return qvariant_cast<QFont>(actual) == qvariant_cast<QFont>(expected);
    case QMetaType::QString:
    case QMetaType::QColor:
    case QMetaType::Bool:
        return actual.metaType() == expected.metaType() && actual == expected;
    default:
        if (expected.metaType().flags().testFlag(QMetaType::PointerToQObject))
            return qvariant_cast<QObject*>(actual) == qvariant_cast<QObject*>(expected);
        return actual.toLongLong() == expected.toLongLong();
    }
}

#define VERIFY_SAME(name, actual, expected)                                                        \
    QVERIFY2(same(actual, expected),                                                               \
             qPrintable(QStringLiteral("%1 is %2, expected %3")                                    \
                            .arg(QString(name), (actual).toString(), (expected).toString())))

MemoryPropertyBag bagWith(const QList<std::pair<QString, QVariant>>& values)
{
    MemoryPropertyBag bag;
    for (const auto& [name, value] : values)
        bag.WriteProperty(name, value, QVariant());
    return bag;
}

// The grid's counts agree with its store's.
void verifyIntact(const VemoGrid& grid)
{
    const FlexGrid& flex = *grid.hostedGrid();
    QCOMPARE(cellsOf(flex).rowCount(), flex.Rows());
    QCOMPARE(cellsOf(flex).colCount(), flex.Cols());
    QVERIFY(flex.FixedRows() <= flex.Rows() && flex.FixedCols() <= flex.Cols());
}

} // namespace

class tst_Properties : public QObject
{
    Q_OBJECT

private slots:

    // A grid with every property changed goes through JSON alike, then reads an empty bag.
    void roundTripAndReadDefaults()
    {
        QStandardItemModel model(4, 3);
        QWidget form;
        form.setFont(QFont(QStringLiteral("DejaVu Sans"), 17));
        VemoGrid grid(&form);
        applyChanged(grid, &model);
        MemoryPropertyBag saved;
        grid.WriteProperties(saved);
        QStringList leftOut;
        QString error;
        VemoGrid loaded;
        loaded.ReadProperties(MemoryPropertyBag::fromJson(saved.toJson(&leftOut), &error));
        QCOMPARE(leftOut, QStringList({"DataSource"}));
        QCOMPARE(error, QString());
        for (const Saved& property : savedProperties(&model)) {
            if (qstrcmp(property.name, "DataSource") != 0)
                VERIFY_SAME(property.name, loaded.property(property.name),
                            grid.property(property.name));
        }
        // In memory the model goes with the bag and, bound after the sizes, shapes the grid.
        VemoGrid inMemory;
        inMemory.ReadProperties(bagWith({{"DataSource", of<QAbstractItemModel*>(&model)}}));
        QCOMPARE(inMemory.DataSource(), &model);
        QCOMPARE(inMemory.Rows() * 10 + inMemory.Cols(), 54);

        grid.ReadProperties(MemoryPropertyBag());
        for (const Saved& saved : savedProperties(&model)) {
            // The fonts default to the container's.
            const QVariant expected =
                saved.readDefault.isValid() ? saved.readDefault : QVariant::fromValue(form.font());
            VERIFY_SAME(saved.name, grid.property(saved.name), expected);
        }
        QCOMPARE(grid.hostedGrid()->Font(), form.font());
        QCOMPARE(VemoTest::errorNumberOf([&] { grid.Column(2); }), 9);
        VemoGrid topLevel;
        topLevel.setFont(fixedFont());
        topLevel.ReadProperties(MemoryPropertyBag());
        QCOMPARE(topLevel.Font(), QApplication::font());

        // Only the three colours whose read and write defaults differ, and the fonts, are stored.
        MemoryPropertyBag bag;
        grid.WriteProperties(bag);
        QCOMPARE(bag.names(), QStringList({"BackColorSel", "ForeColorSel", "ForeColorFixed", "Font",
                                           "FontFixed"}));
        QCOMPARE(bag.value(QStringLiteral("ForeColorSel")).value<OleColor>(), OleColor(0));
        // Written at its write default, a drifting colour comes back as the read default.
        grid.setBackColorSel(0xCEB2AD);
        bag = MemoryPropertyBag();
        grid.WriteProperties(bag);
        QVERIFY(!bag.contains(QStringLiteral("BackColorSel")));
        grid.ReadProperties(bag);
        QCOMPARE(grid.BackColorSel(), OleColor(0x8000000D));
    }

    void sizesAndFormatString()
    {
        // The grid's own Rows setter runs last and raises the fixed counts to 1 (the round trip
        // shows that Rows reaches the hosted grid before FixedRows).
        VemoGrid grid;
        grid.ReadProperties(bagWith({{"FixedRows", int16(0)}, {"FixedCols", int16(0)}}));
        QCOMPARE(grid.FixedRows(), 1);
        QCOMPARE(grid.FixedCols(), 1);

        // A FormatString of more columns than Cols wins, with a Column for each; at design time
        // the Column array is left alone.
        grid.ReadProperties(
            bagWith({{"Cols", int16(3)}, {"FormatString", QStringLiteral("A|B|C|D")}}));
        QCOMPARE(grid.Cols(), 4);
        QVERIFY(grid.Column(3) != grid.Column(2));
        grid.setUserMode(false);
        grid.ReadProperties(bagWith({{"FormatString", QStringLiteral("A|B|C|D|E|F")}}));
        QCOMPARE(grid.Cols(), 6);
        QCOMPARE(VemoTest::errorNumberOf([&] { grid.Column(4); }), 9);
    }

    void readValues_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QVariant>("expected"); // invalid: refused, the value set before stays

        // Coerced as VB does.
        QTest::newRow("numeric text") << "Cols" << QVariant(" 7 ") << QVariant(7);
        QTest::newRow("half to even, up") << "ScrollNum" << QVariant(3.5) << QVariant(4);
        QTest::newRow("True is -1") << "WordWrap" << QVariant(-1) << QVariant(true);
        QTest::newRow("boolean as text") << "FormatString" << QVariant(true) << QVariant("True");
        QTest::newRow("number as text") << "AutoCalcOPE" << QVariant(5) << QVariant("5");
        QTest::newRow("font as text")
            << "FontFixed" << QVariant(fixedFont().toString()) << QVariant::fromValue(fixedFont());
        QTest::newRow("signed Long colour")
            << "BackColorFixed" << QVariant(-2147483633) << colour(0x8000000F);
        // Refused by the hosted grid or by the coercion.
        QTest::newRow("GridLines 99") << "GridLines" << QVariant(99) << QVariant();
        QTest::newRow("ScrollNum beyond 16 bits") << "ScrollNum" << QVariant(40000) << QVariant();
        QTest::newRow("colour beyond 32 bits")
            << "BackColorSel" << QVariant(qint64(0x100000000)) << QVariant();
        QTest::newRow("a font as boolean")
            << "Enabled" << QVariant::fromValue(fixedFont()) << QVariant();
        QTest::newRow("not a model")
            << "DataSource" << QVariant::fromValue<QObject*>(qApp) << QVariant();
    }

    void readValues()
    {
        QFETCH(QString, name);
        QFETCH(QVariant, stored);
        QFETCH(QVariant, expected);
        VemoGrid grid;
        const QVariant before = grid.property(qPrintable(name));

        // A refused value is skipped; the next property is still applied.
        grid.ReadProperties(bagWith({{name, stored}, {"LunarCalendar", true}}));

        VERIFY_SAME(name, grid.property(qPrintable(name)), expected.isValid() ? expected : before);
        QVERIFY(grid.LunarCalendar());
    }

    // Saved forms are untrusted: whatever a bag holds, loading it leaves a grid on which
    // sorting, adding, removing and painting either work or raise a VemoError.
    void loadedGridSurvivesUse_data()
    {
        QTest::addColumn<QString>("saved"); // name=value, ...; FormatString a string, others int32
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("cols");
        QTest::newRow("no rows") << "Rows=0" << 0 << 2;
        QTest::newRow("no cols") << "Cols=0" << 2 << 0;
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
        QTEST(grid.Rows(), "rows");
        QTEST(grid.Cols(), "cols");
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

    void zeroRowsOrHostedColumnsGone()
    {
        VemoGrid grid;
        QCOMPARE(VemoTest::errorNumberOf([&] { grid.setRows(0); }), 30016);
        QCOMPARE(grid.Rows(), 0); // using a grid without rows is the loading test's
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

QTEST_MAIN(tst_Properties)
#include "tst_properties.moc"
