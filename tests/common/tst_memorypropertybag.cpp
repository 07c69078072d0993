// Part 1.4: the in-memory property bag and its JSON form.
#include <VemoGridLib/MemoryPropertyBag.h>
#include <VemoGridLib/VemoEnums.h>

#include <QFont>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPixmap>
#include <QRegularExpression>
#include <QStandardItemModel>

#include <QTest>

#include <limits>
#include <memory>

using namespace VemoGridLib;

namespace {

QVariant int16(qint16 value)
{
    return QVariant::fromValue(value);
}

QVariant uint32(quint32 value)
{
    return QVariant::fromValue(value);
}

QFont sampleFont()
{
    QFont font(QStringLiteral("DejaVu Serif"), 13, QFont::Bold, true);
    font.setUnderline(true);
    return font;
}

// Equal in type and value, fonts by QFont's own equality.
bool sameTypeAndValue(const QVariant& actual, const QVariant& expected)
{
    if (actual.metaType() != expected.metaType())
        return false;
    if (expected.metaType().id() == QMetaType::QFont)
        return qvariant_cast<QFont>(actual) == qvariant_cast<QFont>(expected);
    return actual == expected;
}

} // namespace

class tst_MemoryPropertyBag : public QObject
{
    Q_OBJECT

private slots:
    void emptyBagReadsDefaults();
    void keepsFirstWriteOrder();
    void rewriteReplacesValueInPlace();
    void writingDefaultRemovesStoredValue();
    void defaultComparedByValue_data();
    void defaultComparedByValue();
    void destroyedObjectReadsAsNullPointer();
    void clearRemovesEverything();
    void copiesAreIndependent();

    void jsonRoundTripKeepsTypeAndValue_data();
    void jsonRoundTripKeepsTypeAndValue();
    void jsonKeepsOrder();
    void jsonLayoutIsReadable();
    void jsonLeavesOutObjectsAndOtherTypes();
    void fromJsonRejectsMalformedInput_data();
    void fromJsonRejectsMalformedInput();
    void fromJsonWithoutErrorPointer();
    void fromJsonClearsErrorOnSuccess();
    void fromJsonNameGivenTwiceKeepsFirstPlaceAndLastValue();
};

void tst_MemoryPropertyBag::emptyBagReadsDefaults()
{
    const MemoryPropertyBag bag;
    const PropertyBag& container = bag;
    QCOMPARE(container.ReadProperty(QStringLiteral("Cols"), int16(2)), int16(2));
    QVERIFY(!bag.contains(QStringLiteral("Cols")));
    QVERIFY(bag.names().isEmpty());
    QVERIFY(!bag.value(QStringLiteral("Cols")).isValid());
}

void tst_MemoryPropertyBag::keepsFirstWriteOrder()
{
    MemoryPropertyBag bag;
    bag.WriteProperty(QStringLiteral("Rows"), 5, 2);
    bag.WriteProperty(QStringLiteral("Cols"), 7, 2);
    bag.WriteProperty(QStringLiteral("Appearance"), 0, 1);
    QCOMPARE(bag.names(), QStringList({"Rows", "Cols", "Appearance"}));
    QCOMPARE(bag.ReadProperty(QStringLiteral("Cols"), 2), QVariant(7));
    QVERIFY(bag.contains(QStringLiteral("Appearance")));
    // Names are case-sensitive: "SortAble" is not the saved "Sortable".
    QVERIFY(!bag.contains(QStringLiteral("cols")));
}

void tst_MemoryPropertyBag::rewriteReplacesValueInPlace()
{
    MemoryPropertyBag bag;
    bag.WriteProperty(QStringLiteral("A"), 1, 0);
    bag.WriteProperty(QStringLiteral("B"), 2, 0);
    bag.WriteProperty(QStringLiteral("C"), 3, 0);
    bag.WriteProperty(QStringLiteral("A"), QStringLiteral("one"), QString());
    QCOMPARE(bag.names(), QStringList({"A", "B", "C"}));
    QCOMPARE(bag.value(QStringLiteral("A")), QVariant(QStringLiteral("one")));
}

void tst_MemoryPropertyBag::writingDefaultRemovesStoredValue()
{
    MemoryPropertyBag bag;
    bag.WriteProperty(QStringLiteral("A"), 1, 0);
    bag.WriteProperty(QStringLiteral("B"), 2, 0);
    bag.WriteProperty(QStringLiteral("C"), 3, 0);
    bag.WriteProperty(QStringLiteral("B"), 0, 0);
    QCOMPARE(bag.names(), QStringList({"A", "C"}));
    // Not stored: the reader's own default comes back, whatever the writer's was.
    QCOMPARE(bag.ReadProperty(QStringLiteral("B"), 7), QVariant(7));

    bag.WriteProperty(QStringLiteral("D"), true, true);
    QCOMPARE(bag.names(), QStringList({"A", "C"}));
}

void tst_MemoryPropertyBag::defaultComparedByValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("defaultValue");
    QTest::addColumn<bool>("stored");

    static QStandardItemModel model;
    const QVariant modelValue = QVariant::fromValue<QAbstractItemModel*>(&model);

    QTest::newRow("int equals its 16-bit default") << QVariant(1) << int16(1) << false;
    QTest::newRow("int differs from its 16-bit default") << QVariant(2) << int16(1) << true;
    QTest::newRow("colour equals colour") << uint32(0x8000000F) << uint32(0x8000000F) << false;
    QTest::newRow("colour vs signed int of the same bits")
        << uint32(0x8000000F) << QVariant(qint32(-2147483633)) << true;
    QTest::newRow("colour vs 64-bit of the same value")
        << uint32(0x8000000F) << QVariant(qint64(0x8000000F)) << false;
    QTest::newRow("int -1 vs uint32 max") << QVariant(-1) << uint32(0xFFFFFFFF) << true;
    QTest::newRow("uint64 max vs int -1")
        << QVariant(std::numeric_limits<quint64>::max()) << QVariant(-1) << true;
    QTest::newRow("int vs equal double") << QVariant(3) << QVariant(3.0) << false;
    QTest::newRow("int vs other double") << QVariant(3) << QVariant(3.5) << true;
    QTest::newRow("enum vs int") << QVariant::fromValue(VemoScrollHorizontal) << QVariant(2)
                                 << false;
    QTest::newRow("bool equals bool") << QVariant(false) << QVariant(false) << false;
    QTest::newRow("bool vs int 1") << QVariant(true) << QVariant(1) << true;
    QTest::newRow("string vs number") << QVariant(QStringLiteral("1")) << QVariant(1) << true;
    QTest::newRow("empty vs null string")
        << QVariant(QStringLiteral("")) << QVariant(QString()) << false;
    QTest::newRow("font equals font")
        << QVariant::fromValue(sampleFont()) << QVariant::fromValue(sampleFont()) << false;
    QTest::newRow("font vs none") << QVariant::fromValue(sampleFont()) << QVariant() << true;
    QTest::newRow("null object vs none")
        << QVariant::fromValue<QAbstractItemModel*>(nullptr) << QVariant() << false;
    QTest::newRow("object vs none") << modelValue << QVariant() << true;
    QTest::newRow("object vs same object") << modelValue << modelValue << false;
    QTest::newRow("none vs none") << QVariant() << QVariant() << false;
}

void tst_MemoryPropertyBag::defaultComparedByValue()
{
    QFETCH(QVariant, value);
    QFETCH(QVariant, defaultValue);
    QFETCH(bool, stored);

    MemoryPropertyBag bag;
    bag.WriteProperty(QStringLiteral("P"), value, defaultValue);
    QCOMPARE(bag.contains(QStringLiteral("P")), stored);
    if (stored)
        QVERIFY(sameTypeAndValue(bag.value(QStringLiteral("P")), value));
}

void tst_MemoryPropertyBag::destroyedObjectReadsAsNullPointer()
{
    MemoryPropertyBag bag;
    auto model = std::make_unique<QStandardItemModel>(3, 2);
    bag.WriteProperty(QStringLiteral("DataSource"),
                      QVariant::fromValue<QAbstractItemModel*>(model.get()), QVariant());
    QCOMPARE(qvariant_cast<QAbstractItemModel*>(bag.value(QStringLiteral("DataSource"))),
             model.get());

    model.reset();
    QVERIFY(bag.contains(QStringLiteral("DataSource")));
    const QVariant read = bag.ReadProperty(QStringLiteral("DataSource"), QVariant());
    QCOMPARE(read.metaType(), QMetaType::fromType<QAbstractItemModel*>());
    QCOMPARE(qvariant_cast<QAbstractItemModel*>(read), nullptr);
}

void tst_MemoryPropertyBag::clearRemovesEverything()
{
    MemoryPropertyBag bag;
    bag.WriteProperty(QStringLiteral("A"), 1, 0);
    bag.WriteProperty(QStringLiteral("B"), 2, 0);
    bag.clear();
    QVERIFY(bag.names().isEmpty());
    QCOMPARE(bag.ReadProperty(QStringLiteral("A"), 9), QVariant(9));
}

void tst_MemoryPropertyBag::copiesAreIndependent()
{
    MemoryPropertyBag bag;
    bag.WriteProperty(QStringLiteral("A"), 1, 0);
    MemoryPropertyBag copy = bag;
    copy.WriteProperty(QStringLiteral("A"), 5, 0);
    copy.WriteProperty(QStringLiteral("B"), 6, 0);
    QCOMPARE(bag.names(), QStringList({"A"}));
    QCOMPARE(bag.value(QStringLiteral("A")), QVariant(1));
    QCOMPARE(copy.names(), QStringList({"A", "B"}));
}

void tst_MemoryPropertyBag::jsonRoundTripKeepsTypeAndValue_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("bool true") << QVariant(true);
    QTest::newRow("bool false") << QVariant(false);
    QTest::newRow("int16 min") << int16(std::numeric_limits<qint16>::min());
    QTest::newRow("int16 max") << int16(std::numeric_limits<qint16>::max());
    QTest::newRow("int32 min") << QVariant(std::numeric_limits<qint32>::min());
    QTest::newRow("int32 max") << QVariant(std::numeric_limits<qint32>::max());
    QTest::newRow("system colour") << uint32(0x8000000F);
    QTest::newRow("uint32 max") << uint32(0xFFFFFFFF);
    QTest::newRow("colour 0") << uint32(0);
    QTest::newRow("float") << QVariant::fromValue(0.1f);
    QTest::newRow("double") << QVariant(0.1);
    QTest::newRow("text") << QVariant(QStringLiteral("提示 \"quoted\"\n\ttab|pipe"));
    QTest::newRow("empty text") << QVariant(QString());
    QTest::newRow("font") << QVariant::fromValue(sampleFont());
}

void tst_MemoryPropertyBag::jsonRoundTripKeepsTypeAndValue()
{
    QFETCH(QVariant, value);

    MemoryPropertyBag bag;
    bag.WriteProperty(QStringLiteral("P"), value, QVariant());
    QString error = QStringLiteral("unset");
    const MemoryPropertyBag loaded = MemoryPropertyBag::fromJson(bag.toJson(), &error);
    QCOMPARE(error, QString());
    QCOMPARE(loaded.names(), QStringList({"P"}));
    const QVariant back = loaded.value(QStringLiteral("P"));
    QVERIFY2(sameTypeAndValue(back, value),
             qPrintable(QStringLiteral("%1 came back as %2 (%3)")
                            .arg(value.toString(), back.toString(), back.typeName())));
}

void tst_MemoryPropertyBag::jsonKeepsOrder()
{
    MemoryPropertyBag bag;
    const QStringList names{"Rows", "Cols", "Font", "BackColorSel", "Appearance", "AutoCalcOPE"};
    bag.WriteProperty(names.at(0), 7, int16(2));
    bag.WriteProperty(names.at(1), 4, int16(2));
    bag.WriteProperty(names.at(2), QVariant::fromValue(sampleFont()), QVariant());
    bag.WriteProperty(names.at(3), uint32(0x8000000D), uint32(0xCEB2AD));
    bag.WriteProperty(names.at(4), 0, 1);
    bag.WriteProperty(names.at(5), QStringLiteral("*"), QString());
    QCOMPARE(MemoryPropertyBag::fromJson(bag.toJson()).names(), names);
}

void tst_MemoryPropertyBag::jsonLayoutIsReadable()
{
    MemoryPropertyBag bag;
    bag.WriteProperty(QStringLiteral("Cols"), 5, int16(2));
    bag.WriteProperty(QStringLiteral("BackColorBkg"), uint32(0x8000000F), uint32(0));
    const QByteArray json = bag.toJson();

    const QJsonDocument document = QJsonDocument::fromJson(json);
    const QJsonArray properties = document.object().value(QStringLiteral("properties")).toArray();
    QCOMPARE(properties.size(), 2);
    const QJsonObject cols = properties.at(0).toObject();
    QCOMPARE(cols.value(QStringLiteral("name")).toString(), QStringLiteral("Cols"));
    QCOMPARE(cols.value(QStringLiteral("type")).toString(), QStringLiteral("int32"));
    QCOMPARE(cols.value(QStringLiteral("value")).toInt(), 5);
    const QJsonObject colour = properties.at(1).toObject();
    QCOMPARE(colour.value(QStringLiteral("type")).toString(), QStringLiteral("uint32"));
    // Written as the exact integer, not as a negative number or in exponent form.
    QVERIFY(json.contains("2147483663"));
    QVERIFY(json.contains('\n'));
}

void tst_MemoryPropertyBag::jsonLeavesOutObjectsAndOtherTypes()
{
    QStandardItemModel model;
    MemoryPropertyBag bag;
    bag.WriteProperty(QStringLiteral("Cols"), 5, int16(2));
    bag.WriteProperty(QStringLiteral("DataSource"),
                      QVariant::fromValue<QAbstractItemModel*>(&model), QVariant());
    bag.WriteProperty(QStringLiteral("Picture"), QVariant::fromValue(QPixmap(4, 4)), QVariant());
    bag.WriteProperty(QStringLiteral("Nothing"), QVariant(), 0);
    bag.WriteProperty(QStringLiteral("Infinite"), std::numeric_limits<double>::infinity(), 0.0);
    bag.WriteProperty(QStringLiteral("Rows"), 6, int16(2));

    QStringList leftOut;
    const QByteArray json = bag.toJson(&leftOut);
    QCOMPARE(leftOut, QStringList({"DataSource", "Picture", "Nothing", "Infinite"}));
    QString error;
    const MemoryPropertyBag loaded = MemoryPropertyBag::fromJson(json, &error);
    QCOMPARE(error, QString());
    QCOMPARE(loaded.names(), QStringList({"Cols", "Rows"}));
    // The bag in memory still holds the model.
    QCOMPARE(qvariant_cast<QAbstractItemModel*>(bag.value(QStringLiteral("DataSource"))), &model);
}

void tst_MemoryPropertyBag::fromJsonRejectsMalformedInput_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("errorPart");
    // Qt itself warns about a font description it cannot read.
    QTest::addColumn<bool>("qtWarns");

    const auto one = [](const char* property) {
        return QByteArray(R"({"properties":[{"name":"Good","type":"int32","value":1},)") +
               property + "]}";
    };
    QTest::newRow("empty input") << QByteArray() << QStringLiteral("Not valid JSON") << false;
    QTest::newRow("truncated") << QByteArray(R"({"properties":[)")
                               << QStringLiteral("Not valid JSON") << false;
    QTest::newRow("array at the root")
        << QByteArray("[]") << QStringLiteral("Not a property bag") << false;
    QTest::newRow("no properties")
        << QByteArray("{}") << QStringLiteral("Not a property bag") << false;
    QTest::newRow("properties not an array")
        << QByteArray(R"({"properties":5})") << QStringLiteral("Not a property bag") << false;
    QTest::newRow("entry not an object")
        << one("5") << QStringLiteral("properties[1]: not an object") << false;
    QTest::newRow("no name") << one(R"({"type":"int32","value":1})")
                             << QStringLiteral("missing \"name\"") << false;
    QTest::newRow("name not a string") << one(R"({"name":3,"type":"int32","value":1})")
                                       << QStringLiteral("missing \"name\"") << false;
    QTest::newRow("unknown type") << one(R"({"name":"Cols","type":"int8","value":1})")
                                  << QStringLiteral("unknown type \"int8\"") << false;
    QTest::newRow("no type") << one(R"({"name":"Cols","value":1})")
                             << QStringLiteral("unknown type") << false;
    QTest::newRow("no value") << one(R"({"name":"Cols","type":"string"})")
                              << QStringLiteral("not a valid string") << false;
    QTest::newRow("int16 overflow") << one(R"({"name":"Cols","type":"int16","value":40000})")
                                    << QStringLiteral("not a valid int16") << false;
    QTest::newRow("int32 overflow") << one(R"({"name":"Cols","type":"int32","value":2147483648})")
                                    << QStringLiteral("not a valid int32") << false;
    QTest::newRow("int32 fraction") << one(R"({"name":"Cols","type":"int32","value":1.5})")
                                    << QStringLiteral("not a valid int32") << false;
    QTest::newRow("uint32 negative") << one(R"({"name":"BackColorSel","type":"uint32","value":-1})")
                                     << QStringLiteral("not a valid uint32") << false;
    QTest::newRow("uint32 overflow")
        << one(R"({"name":"BackColorSel","type":"uint32","value":4294967296})")
        << QStringLiteral("not a valid uint32") << false;
    QTest::newRow("uint32 as text")
        << one(R"({"name":"BackColorSel","type":"uint32","value":"&H8000000F"})")
        << QStringLiteral("not a valid uint32") << false;
    QTest::newRow("bool as number") << one(R"({"name":"Enabled","type":"bool","value":1})")
                                    << QStringLiteral("not a valid bool") << false;
    QTest::newRow("string as number") << one(R"({"name":"Text","type":"string","value":1})")
                                      << QStringLiteral("not a valid string") << false;
    QTest::newRow("font as number") << one(R"({"name":"Font","type":"font","value":12})")
                                    << QStringLiteral("not a valid font") << false;
    QTest::newRow("font as empty text") << one(R"({"name":"Font","type":"font","value":""})")
                                        << QStringLiteral("not a valid font") << true;
}

void tst_MemoryPropertyBag::fromJsonRejectsMalformedInput()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, errorPart);
    QFETCH(bool, qtWarns);

    if (qtWarns)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("QFont::fromString")));
    QString error;
    const MemoryPropertyBag bag = MemoryPropertyBag::fromJson(json, &error);
    QVERIFY2(error.contains(errorPart), qPrintable(error));
    QVERIFY(bag.names().isEmpty());
}

void tst_MemoryPropertyBag::fromJsonWithoutErrorPointer()
{
    QVERIFY(MemoryPropertyBag::fromJson("{\"properties\": 1}").names().isEmpty());
    QCOMPARE(MemoryPropertyBag::fromJson(R"({"properties":[]})").names(), QStringList());
}

void tst_MemoryPropertyBag::fromJsonClearsErrorOnSuccess()
{
    QString error = QStringLiteral("left over from an earlier call");
    const MemoryPropertyBag bag = MemoryPropertyBag::fromJson(
        R"({"properties":[{"name":"Cols","type":"int16","value":5}]})", &error);
    QCOMPARE(error, QString());
    QCOMPARE(bag.value(QStringLiteral("Cols")), int16(5));
}

void tst_MemoryPropertyBag::fromJsonNameGivenTwiceKeepsFirstPlaceAndLastValue()
{
    const MemoryPropertyBag bag = MemoryPropertyBag::fromJson(R"({"properties":[
        {"name":"A","type":"int32","value":1},
        {"name":"B","type":"int32","value":2},
        {"name":"A","type":"string","value":"last"}]})");
    QCOMPARE(bag.names(), QStringList({"A", "B"}));
    QCOMPARE(bag.value(QStringLiteral("A")), QVariant(QStringLiteral("last")));
}

QTEST_MAIN(tst_MemoryPropertyBag)
#include "tst_memorypropertybag.moc"
