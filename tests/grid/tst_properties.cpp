// Part 1.4: VemoGrid's saved properties: the read and write lists, their defaults, the edge cases
// of the spec, failure handling and the round trip through MemoryPropertyBag's JSON.
#include <VemoGridLib/MemoryPropertyBag.h>
#include <VemoGridLib/PropertyBag.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoGrid.h>

#include "VemoTestSupport.h"
#include <QApplication>
#include <QFont>
#include <QStandardItemModel>

#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

using namespace VemoGridLib;

namespace {

constexpr qint32 SubscriptOutOfRange = 9;

QVariant int16(qint16 value)
{
    return QVariant::fromValue(value);
}

QVariant int32(qint32 value)
{
    return QVariant::fromValue(value);
}

QVariant colour(OleColor value)
{
    return QVariant::fromValue(value);
}

QVariant text(const char* value)
{
    return QVariant(QString::fromUtf8(value));
}

QVariant model(QAbstractItemModel* value)
{
    return QVariant::fromValue(value);
}

QFont gridFont()
{
    return QFont(QStringLiteral("DejaVu Serif"), 13, QFont::Bold);
}

QFont fixedFont()
{
    return QFont(QStringLiteral("DejaVu Sans Mono"), 11, QFont::Normal, true);
}

/// The 52 saved names in Part 1.4's reading order.
const QStringList ReadOrder = {
    "Enabled",
    "Appearance",
    "BorderStyle",
    "BackColor1",
    "BackColor2",
    "ReadOnlyColor",
    "ForeColor",
    "BackColorBkg",
    "BackColorFixed",
    "BackColorSel",
    "ForeColorSel",
    "ForeColorFixed",
    "GridColor",
    "GridColorFixed",
    "GridLines",
    "GridLinesFixed",
    "GridLineWidth",
    "CellAppearance",
    "CellBorderStyle",
    "Cols",
    "Rows",
    "FixedCols",
    "FixedRows",
    "Font",
    "FontFixed",
    "DataSource",
    "FocusRect",
    "FormatString",
    "MergeCells",
    "SelectionMode",
    "WordWrap",
    "TextStyle",
    "TextStyleFixed",
    "ScrollBars",
    "ScrollTrack",
    "HighLight",
    "AllowBigSelection",
    "AllowUserResizing",
    "EditEnable",
    "Sortable",
    "NullLine",
    "AutoGrow",
    "AssignCellColorSel",
    "CellBackColorSel",
    "CellForeColorSel",
    "AutoCalc1",
    "AutoCalc2",
    "AutoCalcRES",
    "AutoCalcOPE",
    "ScrollType",
    "ScrollNum",
    "LunarCalendar",
};

/// The same names in Part 1.4's writing order.
const QStringList WriteOrder = {
    "Enabled",
    "Appearance",
    "BorderStyle",
    "BackColor1",
    "BackColor2",
    "ReadOnlyColor",
    "ForeColor",
    "BackColorBkg",
    "BackColorFixed",
    "BackColorSel",
    "ForeColorSel",
    "ForeColorFixed",
    "GridColor",
    "GridColorFixed",
    "GridLines",
    "GridLinesFixed",
    "GridLineWidth",
    "CellAppearance",
    "CellBorderStyle",
    "Font",
    "FontFixed",
    "DataSource",
    "FocusRect",
    "FormatString",
    "MergeCells",
    "SelectionMode",
    "WordWrap",
    "TextStyle",
    "TextStyleFixed",
    "ScrollBars",
    "ScrollTrack",
    "Cols",
    "FixedRows",
    "FixedCols",
    "Rows",
    "HighLight",
    "AllowUserResizing",
    "AllowBigSelection",
    "EditEnable",
    "Sortable",
    "NullLine",
    "AutoGrow",
    "AssignCellColorSel",
    "CellBackColorSel",
    "CellForeColorSel",
    "AutoCalc1",
    "AutoCalc2",
    "AutoCalcRES",
    "AutoCalcOPE",
    "LunarCalendar",
    "ScrollType",
    "ScrollNum",
};

struct Setting
{
    const char* name;
    QVariant value;
};

/// A value for every saved property that differs from both its read and its write default, in
/// an order the grid's setters accept: the model first (binding reshapes the grid), the sizes
/// before the format string. Set through the grid's Q_PROPERTYs, which carry the saved names.
std::vector<Setting> nonDefaultSettings(QAbstractItemModel* dataSource)
{
    return {
        {"DataSource", model(dataSource)},
        {"Enabled", false},
        {"Appearance", 0},
        {"BorderStyle", 0},
        {"BackColor1", colour(0x112233)},
        {"BackColor2", colour(0x223344)},
        {"ReadOnlyColor", colour(0x334455)},
        {"ForeColor", colour(0x80000012)},
        {"BackColorBkg", colour(0x808080)},
        {"BackColorFixed", colour(0x80000010)},
        {"BackColorSel", colour(0x00FF00)},
        {"ForeColorSel", colour(0x0000FF)},
        {"ForeColorFixed", colour(0x80000012)},
        {"GridColor", colour(0x404040)},
        {"GridColorFixed", colour(0x000001)},
        {"GridLines", 2},
        {"GridLinesFixed", 3},
        {"GridLineWidth", 2},
        {"CellAppearance", 1},
        {"CellBorderStyle", 0},
        {"Cols", 5},
        {"Rows", 6},
        {"FixedCols", 2},
        {"FixedRows", 2},
        {"Font", QVariant::fromValue(gridFont())},
        {"FontFixed", QVariant::fromValue(fixedFont())},
        {"FocusRect", 2},
        {"FormatString", text("<Name|^Kind|>Price|Count|Sum")},
        {"MergeCells", 1},
        {"SelectionMode", 1},
        {"WordWrap", true},
        {"TextStyle", 1},
        {"TextStyleFixed", 2},
        {"ScrollBars", 2},
        {"ScrollTrack", true},
        {"HighLight", 2},
        {"AllowBigSelection", false},
        {"AllowUserResizing", 3},
        {"EditEnable", false},
        {"Sortable", false},
        {"NullLine", false},
        {"AutoGrow", false},
        {"AssignCellColorSel", true},
        {"CellBackColorSel", colour(0x00FFFF)},
        {"CellForeColorSel", colour(0xFF0000)},
        {"AutoCalc1", 2},
        {"AutoCalc2", 3},
        {"AutoCalcRES", 4},
        {"AutoCalcOPE", text("*")},
        {"ScrollType", 2},
        {"ScrollNum", int16(5)},
        {"LunarCalendar", true},
    };
}

/// A model of 4 rows × 3 columns, to bind as `DataSource`.
std::unique_ptr<QStandardItemModel> sampleModel()
{
    return std::make_unique<QStandardItemModel>(4, 3);
}

void applyNonDefaults(VemoGrid& grid, QAbstractItemModel* dataSource)
{
    for (const Setting& setting : nonDefaultSettings(dataSource))
        QVERIFY2(grid.setProperty(setting.name, setting.value), setting.name);
}

QVariant nonDefaultValue(const QString& name, QAbstractItemModel* dataSource)
{
    for (const Setting& setting : nonDefaultSettings(dataSource)) {
        if (name == QLatin1StringView(setting.name))
            return setting.value;
    }
    return {};
}

// Equal by value: numbers and enumerations as numbers, fonts with QFont's equality, objects by
// identity (null and "none" alike).
bool sameValue(const QVariant& actual, const QVariant& expected)
{
    if (expected.metaType().id() == QMetaType::QFont)
        return qvariant_cast<QFont>(actual) == qvariant_cast<QFont>(expected);
    if (!expected.isValid() || expected.metaType().flags().testFlag(QMetaType::PointerToQObject))
        return qvariant_cast<QObject*>(actual) == qvariant_cast<QObject*>(expected);
    if (expected.metaType().id() == QMetaType::QString)
        return actual.metaType().id() == QMetaType::QString && actual.toString() == expected;
    if (expected.metaType().id() == QMetaType::Bool)
        return actual.metaType().id() == QMetaType::Bool && actual.toBool() == expected.toBool();
    bool actualOk = false;
    bool expectedOk = false;
    return actual.toLongLong(&actualOk) == expected.toLongLong(&expectedOk) && actualOk &&
           expectedOk;
}

QString shown(const QVariant& value)
{
    if (value.metaType().id() == QMetaType::QFont)
        return qvariant_cast<QFont>(value).toString();
    if (value.metaType().flags().testFlag(QMetaType::PointerToQObject))
        return QStringLiteral("object 0x%1").arg(quintptr(qvariant_cast<QObject*>(value)), 0, 16);
    return QStringLiteral("%1 (%2)").arg(value.toString(),
                                         value.isValid() ? value.typeName() : "none");
}

#define VERIFY_SAME(actual, expected)                                                              \
    QVERIFY2(sameValue(actual, expected),                                                          \
             qPrintable(QStringLiteral("%1 is %2, expected %3")                                    \
                            .arg(QLatin1StringView(#actual), shown(actual), shown(expected))))

/// The grid's `Column(col)`, or null when it refuses (so a failure does not end the run).
VemoGridLib::Column* columnOrNull(const VemoGrid& grid, int col)
{
    try {
        return grid.Column(col);
    } catch (const VemoError&) {
        return nullptr;
    }
}

/// Records every call, in order, with the default the grid passed.
class RecordingBag : public PropertyBag
{
public:
    struct Call
    {
        QString name;
        QVariant value;
        QVariant defaultValue;
    };

    QVariant ReadProperty(const QString& name, const QVariant& defaultValue) const override
    {
        reads.push_back({name, QVariant(), defaultValue});
        return defaultValue;
    }

    void WriteProperty(const QString& name, const QVariant& value,
                       const QVariant& defaultValue) override
    {
        writes.push_back({name, value, defaultValue});
    }

    mutable std::vector<Call> reads;
    std::vector<Call> writes;
};

/// A bag holding exactly `values`, in order.
MemoryPropertyBag bagWith(const std::vector<Setting>& values)
{
    MemoryPropertyBag bag;
    for (const Setting& setting : values)
        bag.WriteProperty(QString::fromLatin1(setting.name), setting.value, QVariant());
    return bag;
}

} // namespace

class tst_Properties : public QObject
{
    Q_OBJECT

private slots:
    void readOrderAndDefaults_data();
    void readOrderAndDefaults();
    void writeOrderAndDefaults_data();
    void writeOrderAndDefaults();
    void changedGridStoresAll52InWriteOrder();
    void writtenValues_data();
    void writtenValues();
    void defaultGridStoresOnlyDriftsAndFonts();

    void colourDriftBetweenWriteAndRead_data();
    void colourDriftBetweenWriteAndRead();
    void foreColorSelZeroIsStoredExplicitly();
    void emptyBagGivesDefaultGrid();
    void emptyBagAppliesReadDefaults_data();
    void emptyBagAppliesReadDefaults();
    void fontsDefaultToAmbientFont();
    void formatStringWithMoreColumnsThanCols();
    void designTimeLoadLeavesColumnArrayAlone();

    void sizesReachHostedGridBeforeFixedCounts();
    void fixedCountsRaisedToOneAfterLoad();
    void colourSavedAsSignedLongKeepsItsBits();
    void readValuesAreCoercedAsVbDoes_data();
    void readValuesAreCoercedAsVbDoes();
    void failingPropertyIsSkipped_data();
    void failingPropertyIsSkipped();

    void roundTripThroughJson_data();
    void roundTripThroughJson();
    void roundTripInMemoryKeepsDataSource();
};

// ---- the two lists ---------------------------------------------------------------------------

void tst_Properties::readOrderAndDefaults_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QVariant>("readDefault");
    QTest::addColumn<bool>("ambientFont");

    const QVariant ambient; // filled in by the test: the parent widget's font
    const std::vector<std::pair<const char*, QVariant>> rows = {
        {"Enabled", true},
        {"Appearance", int32(1)},
        {"BorderStyle", int32(1)},
        {"BackColor1", colour(0xFFFFFF)},
        {"BackColor2", colour(0xBFFFFF)},
        {"ReadOnlyColor", colour(0xDFDFC0)},
        {"ForeColor", colour(0x80000008)},
        {"BackColorBkg", colour(0x8000000F)},
        {"BackColorFixed", colour(0x8000000F)},
        {"BackColorSel", colour(0x8000000D)},
        {"ForeColorSel", colour(0)},
        {"ForeColorFixed", colour(0x80000007)},
        {"GridColor", colour(0xC0C0C0)},
        {"GridColorFixed", colour(0xC0C0C0)},
        {"GridLines", int16(1)},
        {"GridLinesFixed", int16(2)},
        {"GridLineWidth", int16(1)},
        {"CellAppearance", int32(0)},
        {"CellBorderStyle", int32(1)},
        {"Cols", int16(2)},
        {"Rows", int16(2)},
        {"FixedCols", int16(1)},
        {"FixedRows", int16(1)},
        {"Font", ambient},
        {"FontFixed", ambient},
        {"DataSource", QVariant()},
        {"FocusRect", int32(1)},
        {"FormatString", text("")},
        {"MergeCells", int32(0)},
        {"SelectionMode", int16(0)},
        {"WordWrap", false},
        {"TextStyle", int16(0)},
        {"TextStyleFixed", int16(0)},
        {"ScrollBars", int16(3)},
        {"ScrollTrack", false},
        {"HighLight", int32(1)},
        {"AllowBigSelection", true},
        {"AllowUserResizing", int32(0)},
        {"EditEnable", true},
        {"Sortable", true},
        {"NullLine", true},
        {"AutoGrow", true},
        {"AssignCellColorSel", false},
        {"CellBackColorSel", colour(0xFFFFFF)},
        {"CellForeColorSel", colour(0)},
        {"AutoCalc1", int16(0)},
        {"AutoCalc2", int16(0)},
        {"AutoCalcRES", int16(0)},
        {"AutoCalcOPE", text("")},
        {"ScrollType", int32(0)},
        {"ScrollNum", int16(3)},
        {"LunarCalendar", false},
    };
    QCOMPARE(int(rows.size()), 52);
    for (int i = 0; i < int(rows.size()); ++i) {
        const bool isFont = QByteArray(rows[i].first).startsWith("Font");
        QTest::newRow(rows[i].first) << i << rows[i].second << isFont;
    }
}

void tst_Properties::readOrderAndDefaults()
{
    QFETCH(int, position);
    QFETCH(QVariant, readDefault);
    QFETCH(bool, ambientFont);

    QWidget form;
    form.setFont(QFont(QStringLiteral("DejaVu Sans"), 17));
    VemoGrid grid(&form);
    RecordingBag bag;
    grid.ReadProperties(bag);

    QCOMPARE(int(bag.reads.size()), 52);
    const RecordingBag::Call& call = bag.reads.at(position);
    QCOMPARE(call.name, QString::fromLatin1(QTest::currentDataTag()));
    if (ambientFont) {
        QCOMPARE(qvariant_cast<QFont>(call.defaultValue), form.font());
        return;
    }
    // Defaults carry the saved format's types: 16-bit, 32-bit, colour, boolean, string.
    QCOMPARE(call.defaultValue.metaType(), readDefault.metaType());
    VERIFY_SAME(call.defaultValue, readDefault);
}

void tst_Properties::writeOrderAndDefaults_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QVariant>("writeDefault");

    const std::vector<std::pair<const char*, QVariant>> rows = {
        {"Enabled", true},
        {"Appearance", int32(1)},
        {"BorderStyle", int32(1)},
        {"BackColor1", colour(0xFFFFFF)},
        {"BackColor2", colour(0xBFFFFF)},
        {"ReadOnlyColor", colour(0xDFDFC0)},
        {"ForeColor", colour(0x80000008)},
        {"BackColorBkg", colour(0x8000000F)},
        {"BackColorFixed", colour(0x8000000F)},
        {"BackColorSel", colour(0xCEB2AD)},
        {"ForeColorSel", colour(0x8000000E)},
        {"ForeColorFixed", colour(0xFFFFFF)},
        {"GridColor", colour(0xC0C0C0)},
        {"GridColorFixed", colour(0xC0C0C0)},
        {"GridLines", int16(1)},
        {"GridLinesFixed", int16(2)},
        {"GridLineWidth", int16(1)},
        {"CellAppearance", int32(0)},
        {"CellBorderStyle", int32(1)},
        {"Font", QVariant()},
        {"FontFixed", QVariant()},
        {"DataSource", QVariant()},
        {"FocusRect", int16(1)},
        {"FormatString", text("")},
        {"MergeCells", int32(0)},
        {"SelectionMode", int16(0)},
        {"WordWrap", false},
        {"TextStyle", int16(0)},
        {"TextStyleFixed", int16(0)},
        {"ScrollBars", int16(3)},
        {"ScrollTrack", false},
        {"Cols", int16(2)},
        {"FixedRows", int16(1)},
        {"FixedCols", int16(1)},
        {"Rows", int16(2)},
        {"HighLight", int32(1)},
        {"AllowUserResizing", int16(0)},
        {"AllowBigSelection", true},
        {"EditEnable", true},
        {"Sortable", true},
        {"NullLine", true},
        {"AutoGrow", true},
        {"AssignCellColorSel", false},
        {"CellBackColorSel", colour(0xFFFFFF)},
        {"CellForeColorSel", colour(0)},
        {"AutoCalc1", int16(0)},
        {"AutoCalc2", int16(0)},
        {"AutoCalcRES", int16(0)},
        {"AutoCalcOPE", text("")},
        {"LunarCalendar", false},
        {"ScrollType", int32(0)},
        {"ScrollNum", int16(3)},
    };
    QCOMPARE(int(rows.size()), 52);
    for (int i = 0; i < int(rows.size()); ++i)
        QTest::newRow(rows[i].first) << i << rows[i].second;
}

void tst_Properties::writeOrderAndDefaults()
{
    QFETCH(int, position);
    QFETCH(QVariant, writeDefault);

    const VemoGrid grid;
    RecordingBag bag;
    grid.WriteProperties(bag);

    QCOMPARE(int(bag.writes.size()), 52);
    const RecordingBag::Call& call = bag.writes.at(position);
    QCOMPARE(call.name, QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(call.defaultValue.metaType(), writeDefault.metaType());
    VERIFY_SAME(call.defaultValue, writeDefault);
}

void tst_Properties::changedGridStoresAll52InWriteOrder()
{
    const auto dataSource = sampleModel();
    VemoGrid grid;
    applyNonDefaults(grid, dataSource.get());
    MemoryPropertyBag bag;
    grid.WriteProperties(bag);
    QCOMPARE(bag.names(), WriteOrder);
}

void tst_Properties::writtenValues_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : WriteOrder)
        QTest::newRow(qPrintable(name)) << name;
}

// Hosted members are written from the hosted grid, the control's from the control, the rest
// from the grid's fields; each is the value that was set.
void tst_Properties::writtenValues()
{
    QFETCH(QString, name);

    const auto dataSource = sampleModel();
    VemoGrid grid;
    applyNonDefaults(grid, dataSource.get());
    MemoryPropertyBag bag;
    grid.WriteProperties(bag);

    const QVariant expected = nonDefaultValue(name, dataSource.get());
    VERIFY_SAME(bag.value(name), expected);
    VERIFY_SAME(bag.value(name), grid.property(qPrintable(name)));
}

// Loaded from nothing and saved again, a grid stores only what differs between the read and
// the write defaults (the three colour drifts) and the fonts, which have no write default. A
// null DataSource is "none", and FocusRect / AllowUserResizing equal their 16-bit defaults.
void tst_Properties::defaultGridStoresOnlyDriftsAndFonts()
{
    VemoGrid grid;
    grid.ReadProperties(MemoryPropertyBag());
    MemoryPropertyBag bag;
    grid.WriteProperties(bag);
    QCOMPARE(bag.names(),
             QStringList({"BackColorSel", "ForeColorSel", "ForeColorFixed", "Font", "FontFixed"}));
}

// ---- the spec's edge cases ---------------------------------------------------------------------

void tst_Properties::colourDriftBetweenWriteAndRead_data()
{
    QTest::addColumn<OleColor>("saved");
    QTest::addColumn<OleColor>("reloaded");

    QTest::newRow("BackColorSel") << OleColor(0xCEB2AD) << OleColor(0x8000000D);
    QTest::newRow("ForeColorSel") << OleColor(0x8000000E) << OleColor(0);
    QTest::newRow("ForeColorFixed") << OleColor(0xFFFFFF) << OleColor(0x80000007);
}

void tst_Properties::colourDriftBetweenWriteAndRead()
{
    QFETCH(OleColor, saved);
    QFETCH(OleColor, reloaded);
    const char* const name = QTest::currentDataTag();

    VemoGrid original;
    QVERIFY(original.setProperty(name, colour(saved)));
    MemoryPropertyBag bag;
    original.WriteProperties(bag);
    QVERIFY(bag.contains(QStringLiteral("Font"))); // the grid did write
    QVERIFY(!bag.contains(QString::fromLatin1(name)));

    VemoGrid loaded;
    QVERIFY(loaded.setProperty(name, colour(0x123456)));
    loaded.ReadProperties(bag);
    QCOMPARE(loaded.property(name).value<OleColor>(), reloaded);
}

void tst_Properties::foreColorSelZeroIsStoredExplicitly()
{
    VemoGrid original;
    original.setForeColorSel(0);
    MemoryPropertyBag bag;
    original.WriteProperties(bag);
    QVERIFY(bag.contains(QStringLiteral("ForeColorSel")));
    QCOMPARE(bag.value(QStringLiteral("ForeColorSel")).value<OleColor>(), OleColor(0));

    VemoGrid loaded;
    loaded.setForeColorSel(0x123456);
    loaded.ReadProperties(bag);
    QCOMPARE(loaded.ForeColorSel(), OleColor(0));
}

void tst_Properties::emptyBagGivesDefaultGrid()
{
    const auto dataSource = sampleModel();
    VemoGrid grid;
    applyNonDefaults(grid, dataSource.get());
    grid.ReadProperties(MemoryPropertyBag());

    QCOMPARE(grid.Rows(), 2);
    QCOMPARE(grid.Cols(), 2);
    QCOMPARE(grid.FixedRows(), 1);
    QCOMPARE(grid.FixedCols(), 1);
    QCOMPARE(grid.ScrollNum(), short(3));
    QVERIFY(grid.EditEnable());
    QVERIFY(grid.Sortable());
    QVERIFY(grid.NullLine());
    QVERIFY(grid.AutoGrow());
    // In user mode the grid owns one Column per column, and no more.
    QVERIFY(columnOrNull(grid, 0));
    QVERIFY(columnOrNull(grid, 1));
    QCOMPARE(VemoTest::errorNumberOf([&] { grid.Column(2); }), SubscriptOutOfRange);
}

void tst_Properties::emptyBagAppliesReadDefaults_data()
{
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("Enabled") << QVariant(true);
    QTest::newRow("Appearance") << int32(1);
    QTest::newRow("BorderStyle") << int32(1);
    QTest::newRow("BackColor1") << colour(0xFFFFFF);
    QTest::newRow("BackColor2") << colour(0xBFFFFF);
    QTest::newRow("ReadOnlyColor") << colour(0xDFDFC0);
    QTest::newRow("ForeColor") << colour(0x80000008);
    QTest::newRow("BackColorBkg") << colour(0x8000000F);
    QTest::newRow("BackColorFixed") << colour(0x8000000F);
    QTest::newRow("BackColorSel") << colour(0x8000000D);
    QTest::newRow("ForeColorSel") << colour(0);
    QTest::newRow("ForeColorFixed") << colour(0x80000007);
    QTest::newRow("GridColor") << colour(0xC0C0C0);
    QTest::newRow("GridColorFixed") << colour(0xC0C0C0);
    QTest::newRow("GridLines") << int32(1);
    QTest::newRow("GridLinesFixed") << int32(2);
    QTest::newRow("GridLineWidth") << int32(1);
    QTest::newRow("CellAppearance") << int32(0);
    QTest::newRow("CellBorderStyle") << int32(1);
    QTest::newRow("Cols") << int32(2);
    QTest::newRow("Rows") << int32(2);
    QTest::newRow("FixedCols") << int32(1);
    QTest::newRow("FixedRows") << int32(1);
    QTest::newRow("DataSource") << QVariant();
    QTest::newRow("FocusRect") << int32(1);
    QTest::newRow("FormatString") << text("");
    QTest::newRow("MergeCells") << int32(0);
    QTest::newRow("SelectionMode") << int32(0);
    QTest::newRow("WordWrap") << QVariant(false);
    QTest::newRow("TextStyle") << int32(0);
    QTest::newRow("TextStyleFixed") << int32(0);
    QTest::newRow("ScrollBars") << int32(3);
    QTest::newRow("ScrollTrack") << QVariant(false);
    QTest::newRow("HighLight") << int32(1);
    QTest::newRow("AllowBigSelection") << QVariant(true);
    QTest::newRow("AllowUserResizing") << int32(0);
    QTest::newRow("EditEnable") << QVariant(true);
    QTest::newRow("Sortable") << QVariant(true);
    QTest::newRow("NullLine") << QVariant(true);
    QTest::newRow("AutoGrow") << QVariant(true);
    QTest::newRow("AssignCellColorSel") << QVariant(false);
    QTest::newRow("CellBackColorSel") << colour(0xFFFFFF);
    QTest::newRow("CellForeColorSel") << colour(0);
    QTest::newRow("AutoCalc1") << int32(0);
    QTest::newRow("AutoCalc2") << int32(0);
    QTest::newRow("AutoCalcRES") << int32(0);
    QTest::newRow("AutoCalcOPE") << text("");
    QTest::newRow("ScrollType") << int32(0);
    QTest::newRow("ScrollNum") << int32(3);
    QTest::newRow("LunarCalendar") << QVariant(false);
}

// A grid with every property changed, loaded from an empty bag, has each read default (the
// fonts are fontsDefaultToAmbientFont's).
void tst_Properties::emptyBagAppliesReadDefaults()
{
    QFETCH(QVariant, expected);
    const char* const name = QTest::currentDataTag();

    const auto dataSource = sampleModel();
    VemoGrid grid;
    applyNonDefaults(grid, dataSource.get());
    VERIFY_SAME(grid.property(name), nonDefaultValue(QString::fromLatin1(name), dataSource.get()));
    grid.ReadProperties(MemoryPropertyBag());
    VERIFY_SAME(grid.property(name), expected);
}

void tst_Properties::fontsDefaultToAmbientFont()
{
    const QFont ambient(QStringLiteral("DejaVu Sans"), 17);
    QWidget form;
    form.setFont(ambient);
    VemoGrid child(&form);
    child.setFont(gridFont());
    child.setFontFixed(fixedFont());
    child.ReadProperties(MemoryPropertyBag());
    QCOMPARE(child.Font(), form.font());
    QCOMPARE(child.FontFixed(), form.font());
    QCOMPARE(child.hostedGrid()->Font(), form.font());

    VemoGrid topLevel;
    topLevel.setFont(gridFont());
    topLevel.setFontFixed(fixedFont());
    topLevel.ReadProperties(MemoryPropertyBag());
    QCOMPARE(topLevel.Font(), QApplication::font());
    QCOMPARE(topLevel.FontFixed(), QApplication::font());

    // A stored font wins over the ambient one.
    VemoGrid loaded(&form);
    loaded.ReadProperties(bagWith({{"Font", QVariant::fromValue(gridFont())},
                                   {"FontFixed", QVariant::fromValue(fixedFont())}}));
    QCOMPARE(loaded.Font(), gridFont());
    QCOMPARE(loaded.FontFixed(), fixedFont());
}

void tst_Properties::formatStringWithMoreColumnsThanCols()
{
    VemoGrid grid;
    grid.ReadProperties(bagWith({{"Cols", int16(3)}, {"FormatString", text("A|B|C|D|E|F")}}));
    QCOMPARE(grid.Cols(), 6);
    QCOMPARE(grid.hostedGrid()->Cols(), 6);
    QCOMPARE(grid.FormatString(), QStringLiteral("A|B|C|D|E|F"));
    std::vector<VemoGridLib::Column*> columns;
    for (int col = 0; col < 6; ++col) {
        VemoGridLib::Column* const column = columnOrNull(grid, col);
        QVERIFY(column);
        QVERIFY(std::find(columns.begin(), columns.end(), column) == columns.end());
        columns.push_back(column);
    }
    QCOMPARE(VemoTest::errorNumberOf([&] { grid.Column(6); }), SubscriptOutOfRange);
}

void tst_Properties::designTimeLoadLeavesColumnArrayAlone()
{
    VemoGrid grid;
    VemoGridLib::Column* const first = columnOrNull(grid, 0);
    VemoGridLib::Column* const second = columnOrNull(grid, 1);
    QVERIFY(first && second);
    grid.setUserMode(false);
    grid.ReadProperties(bagWith({{"Cols", int16(5)}, {"FormatString", text("A|B|C|D|E|F|G")}}));

    QCOMPARE(grid.Cols(), 7);
    QCOMPARE(columnOrNull(grid, 0), first);
    QCOMPARE(columnOrNull(grid, 1), second);
    QCOMPARE(VemoTest::errorNumberOf([&] { grid.Column(2); }), SubscriptOutOfRange);
}

// ---- reading order and failures ------------------------------------------------------------

// "Rows" reaches the hosted grid before "FixedRows": applied the other way round, 3 fixed rows
// in a 2-row grid would be refused.
void tst_Properties::sizesReachHostedGridBeforeFixedCounts()
{
    VemoGrid grid;
    grid.ReadProperties(
        bagWith({{"FixedRows", int16(3)}, {"FixedCols", int16(2)}, {"Rows", 5}, {"Cols", 4}}));
    QCOMPARE(grid.Rows(), 5);
    QCOMPARE(grid.Cols(), 4);
    QCOMPARE(grid.FixedRows(), 3);
    QCOMPARE(grid.FixedCols(), 2);
    QVERIFY(columnOrNull(grid, 3));
}

// The grid's own Rows setter runs last and raises the fixed counts to at least 1.
void tst_Properties::fixedCountsRaisedToOneAfterLoad()
{
    VemoGrid grid;
    grid.setRows(5);
    grid.setCols(4);
    grid.setFixedRows(3);
    grid.setFixedCols(2);
    const MemoryPropertyBag bag = bagWith({{"FixedRows", int16(0)}, {"FixedCols", int16(0)}});
    QVERIFY(bag.contains(QStringLiteral("FixedRows")));
    grid.ReadProperties(bag);
    QCOMPARE(grid.FixedRows(), 1);
    QCOMPARE(grid.FixedCols(), 1);
}

// A colour kept as VB's signed Long reads back with the same 32 bits.
void tst_Properties::colourSavedAsSignedLongKeepsItsBits()
{
    VemoGrid grid;
    grid.setBackColorFixed(0x123456);
    grid.ReadProperties(bagWith({{"BackColorFixed", int32(-2147483633)}}));
    QCOMPARE(grid.BackColorFixed(), OleColor(0x8000000F));
}

void tst_Properties::readValuesAreCoercedAsVbDoes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("numeric text") << "Cols" << text(" 7 ") << int32(7);
    QTest::newRow("fraction rounds half to even, down") << "ScrollNum" << QVariant(2.5) << int32(2);
    QTest::newRow("fraction rounds half to even, up") << "ScrollNum" << QVariant(3.5) << int32(4);
    QTest::newRow("number as boolean") << "Sortable" << int32(0) << QVariant(false);
    QTest::newRow("True is -1") << "WordWrap" << int32(-1) << QVariant(true);
    QTest::newRow("boolean text") << "EditEnable" << text("false") << QVariant(false);
    QTest::newRow("boolean as number") << "GridLines" << QVariant(false) << int32(0);
    QTest::newRow("number as text") << "AutoCalcOPE" << int32(5) << text("5");
    QTest::newRow("boolean as text") << "FormatString" << QVariant(true) << text("True");
    QTest::newRow("font as text") << "FontFixed"
                                  << text(fixedFont().toString().toLatin1().constData())
                                  << QVariant::fromValue(fixedFont());
}

void tst_Properties::readValuesAreCoercedAsVbDoes()
{
    QFETCH(QString, name);
    QFETCH(QVariant, stored);
    QFETCH(QVariant, expected);

    VemoGrid grid;
    MemoryPropertyBag bag;
    bag.WriteProperty(name, stored, QVariant());
    grid.ReadProperties(bag);
    VERIFY_SAME(grid.property(qPrintable(name)), expected);
}

void tst_Properties::failingPropertyIsSkipped_data()
{
    QTest::addColumn<QString>("badName");
    QTest::addColumn<QVariant>("badValue");
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QString>("nextName");
    QTest::addColumn<QVariant>("nextValue");

    QTest::newRow("GridLines 99 refused by the hosted grid (380)")
        << "GridLines" << int16(99) << int32(4) << "GridLinesFixed" << int32(3);
    QTest::newRow("GridLineWidth 0 refused by the hosted grid (380)")
        << "GridLineWidth" << int16(0) << int32(3) << "CellAppearance" << int32(1);
    QTest::newRow("FocusRect 7 refused by the hosted grid (380)")
        << "FocusRect" << int32(7) << int32(2) << "FormatString" << text("A|B|C");
    QTest::newRow("Rows as words") << "Rows" << text("many") << int32(3) << "FixedRows" << int32(2);
    QTest::newRow("ScrollNum beyond 16 bits")
        << "ScrollNum" << int32(40000) << int32(7) << "LunarCalendar" << QVariant(true);
    QTest::newRow("Enabled as a font") << "Enabled" << QVariant::fromValue(gridFont())
                                       << QVariant(false) << "Appearance" << int32(0);
    QTest::newRow("BackColorSel beyond 32 bits")
        << "BackColorSel" << QVariant(qint64(0x100000000)) << colour(0x123456) << "ForeColorSel"
        << colour(0xFF);
    QTest::newRow("DataSource not a model") << "DataSource" << QVariant::fromValue<QObject*>(qApp)
                                            << QVariant() << "FocusRect" << int32(2);
}

// The bad value is skipped (its target keeps what it had) and the next property is applied.
void tst_Properties::failingPropertyIsSkipped()
{
    QFETCH(QString, badName);
    QFETCH(QVariant, badValue);
    QFETCH(QVariant, before);
    QFETCH(QString, nextName);
    QFETCH(QVariant, nextValue);

    VemoGrid grid;
    if (before.isValid())
        QVERIFY(grid.setProperty(qPrintable(badName), before));
    MemoryPropertyBag bag;
    bag.WriteProperty(badName, badValue, QVariant());
    bag.WriteProperty(nextName, nextValue, QVariant());
    grid.ReadProperties(bag);

    VERIFY_SAME(grid.property(qPrintable(badName)), before);
    VERIFY_SAME(grid.property(qPrintable(nextName)), nextValue);
    // Everything after them still gets its read default.
    QCOMPARE(grid.ScrollBars(), 3);
    QVERIFY(grid.Sortable());
}

// ---- round trips ---------------------------------------------------------------------------

void tst_Properties::roundTripThroughJson_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : ReadOrder) {
        if (name != QLatin1StringView("DataSource"))
            QTest::newRow(qPrintable(name)) << name;
    }
}

// Saved, turned into JSON and back, and loaded: the grid equals the one saved in every
// property but "DataSource", an object the JSON leaves out.
void tst_Properties::roundTripThroughJson()
{
    QFETCH(QString, name);

    const auto dataSource = sampleModel();
    VemoGrid original;
    applyNonDefaults(original, dataSource.get());
    MemoryPropertyBag saved;
    original.WriteProperties(saved);

    QStringList leftOut;
    const QByteArray json = saved.toJson(&leftOut);
    QCOMPARE(leftOut, QStringList({"DataSource"}));
    QString error;
    const MemoryPropertyBag restored = MemoryPropertyBag::fromJson(json, &error);
    QCOMPARE(error, QString());
    QStringList storedNames = WriteOrder;
    storedNames.removeOne(QStringLiteral("DataSource"));
    QCOMPARE(restored.names(), storedNames);

    VemoGrid loaded;
    loaded.ReadProperties(restored);
    VERIFY_SAME(loaded.property(qPrintable(name)), original.property(qPrintable(name)));
}

void tst_Properties::roundTripInMemoryKeepsDataSource()
{
    const auto dataSource = sampleModel();
    VemoGrid original;
    original.setDataSource(dataSource.get());
    MemoryPropertyBag saved;
    original.WriteProperties(saved);
    QCOMPARE(qvariant_cast<QAbstractItemModel*>(saved.value(QStringLiteral("DataSource"))),
             dataSource.get());

    VemoGrid loaded;
    loaded.ReadProperties(saved);
    QCOMPARE(loaded.DataSource(), dataSource.get());
    // Bound after the sizes, the model shapes the grid: a header row and its 4 rows, 3 columns.
    QCOMPARE(loaded.Rows(), 5);
    QCOMPARE(loaded.Cols(), 4);
    QVERIFY(columnOrNull(loaded, 3));
}

QTEST_MAIN(tst_Properties)
#include "tst_properties.moc"
