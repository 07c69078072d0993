// SPDX-License-Identifier: MIT
// The in-memory property bag: defaults left out, write order, and its JSON form.
#include <VemoGridLib/MemoryPropertyBag.h>

#include <QFont>
#include <QRegularExpression>
#include <QTest>

#include <limits>

using namespace VemoGridLib;

class tst_MemoryPropertyBag : public QObject
{
    Q_OBJECT

private slots:
    void writingDefaultLeavesOut_data();
    void writingDefaultLeavesOut();
    void keepsWriteOrder();
    void jsonRoundTrip_data();
    void jsonRoundTrip();
    void fromJsonRefuses_data();
    void fromJsonRefuses();
};

void tst_MemoryPropertyBag::writingDefaultLeavesOut_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("defaultValue");
    QTest::addColumn<bool>("stored");

    QTest::newRow("int vs 16-bit default")
        << QVariant(1) << QVariant::fromValue(qint16(1)) << false;
    QTest::newRow("colour vs int of the same bits")
        << QVariant::fromValue(quint32(0x8000000F)) << QVariant(qint32(-2147483633)) << true;
    QTest::newRow("int vs equal double") << QVariant(3) << QVariant(3.0) << false;
    QTest::newRow("enum vs int") << QVariant::fromValue(Qt::AlignRight) << QVariant(2) << false;
    QTest::newRow("equal fonts") << QVariant(QFont("A")) << QVariant(QFont("A")) << false;
    QObject* const object = this;
    QTest::newRow("same object") << QVariant::fromValue(object) << QVariant::fromValue(object)
                                 << false;
    QTest::newRow("null object vs none")
        << QVariant::fromValue<QObject*>(nullptr) << QVariant() << false;
}

void tst_MemoryPropertyBag::writingDefaultLeavesOut()
{
    QFETCH(QVariant, value);
    QFETCH(QVariant, defaultValue);
    QFETCH(bool, stored);

    MemoryPropertyBag bag;
    bag.WriteProperty(QStringLiteral("P"), 7, 0);
    bag.WriteProperty(QStringLiteral("P"), value, defaultValue);
    QCOMPARE(bag.contains(QStringLiteral("P")), stored);
    QCOMPARE(bag.ReadProperty(QStringLiteral("P"), 9), stored ? value : QVariant(9));
}

void tst_MemoryPropertyBag::keepsWriteOrder()
{
    MemoryPropertyBag bag;
    for (const char* name : {"Rows", "Cols", "Gone", "Font"})
        bag.WriteProperty(QString::fromLatin1(name), 5, 0);
    bag.WriteProperty(QStringLiteral("Rows"), QStringLiteral("again"), QString());
    bag.WriteProperty(QStringLiteral("Gone"), 0, 0);
    // What JSON cannot hold stays in memory and is left out of the saved form.
    bag.WriteProperty(QStringLiteral("Model"), QVariant::fromValue<QObject*>(this), QVariant());
    bag.WriteProperty(QStringLiteral("Infinite"), std::numeric_limits<double>::infinity(), 0);
    QCOMPARE(bag.names(), QStringList({"Rows", "Cols", "Font", "Model", "Infinite"}));
    QStringList leftOut;
    const QByteArray json = bag.toJson(&leftOut);
    QCOMPARE(leftOut, QStringList({"Model", "Infinite"}));
    QCOMPARE(MemoryPropertyBag::fromJson(json).names(), QStringList({"Rows", "Cols", "Font"}));
}

void tst_MemoryPropertyBag::jsonRoundTrip_data()
{
    QTest::addColumn<QVariant>("value");

    QFont font(QStringLiteral("DejaVu Serif"), 13, QFont::Bold, true);
    font.setPointSizeF(12.3456789);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 1234.015625);
    QTest::newRow("bool") << QVariant(false);
    QTest::newRow("int16 min") << QVariant::fromValue(std::numeric_limits<qint16>::min());
    QTest::newRow("uint32 system colour") << QVariant::fromValue(quint32(0x8000000F));
    QTest::newRow("float") << QVariant::fromValue(0.1f);
    QTest::newRow("double") << QVariant(0.1);
    QTest::newRow("text") << QVariant(QStringLiteral("提示 \"quoted\"\n\t|"));
    QTest::newRow("font of 12.3456789 points") << QVariant::fromValue(font);
}

void tst_MemoryPropertyBag::jsonRoundTrip()
{
    QFETCH(QVariant, value);

    MemoryPropertyBag bag;
    bag.WriteProperty(QStringLiteral("P"), value, QVariant());
    QString error = QStringLiteral("unset");
    const QVariant back = MemoryPropertyBag::fromJson(bag.toJson(), &error).value("P");
    QCOMPARE(error, QString());
    QCOMPARE(back.metaType(), value.metaType());
    if (value.metaType().id() == QMetaType::QFont)
        QCOMPARE(qvariant_cast<QFont>(back), qvariant_cast<QFont>(value));
    else
        QCOMPARE(back, value);
}

void tst_MemoryPropertyBag::fromJsonRefuses_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("errorPart");

    const auto one = [](const char* type, const char* value) {
        return QByteArray(R"({"properties":[{"name":"Good","type":"int32","value":1},)") +
               R"({"name":"P","type":")" + type + R"(","value":)" + value + "}]}";
    };
    QTest::newRow("truncated") << QByteArray(R"({"properties":[)") << "Not valid JSON";
    QTest::newRow("no properties") << QByteArray("{}") << "Not a property bag";
    QTest::newRow("entry not an object") << QByteArray(R"({"properties":[5]})") << "not an object";
    QTest::newRow("no name") << QByteArray(R"({"properties":[{"type":"bool","value":true}]})")
                             << "missing \"name\"";
    QTest::newRow("unknown type") << one("int8", "1") << "unknown type \"int8\"";
    QTest::newRow("int16 overflow") << one("int16", "40000") << "not a valid int16";
    QTest::newRow("uint32 negative") << one("uint32", "-1") << "not a valid uint32";
    QTest::newRow("float beyond range") << one("float", "-1e39") << "not a valid float";
    QTest::newRow("font as empty text") << one("font", R"("")") << "not a valid font";
}

void tst_MemoryPropertyBag::fromJsonRefuses()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, errorPart);

    // Qt itself warns about a font description it cannot read.
    if (errorPart.contains(QStringLiteral("font")))
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("QFont::fromString"));
    QString error;
    QVERIFY(MemoryPropertyBag::fromJson(json, &error).names().isEmpty());
    QVERIFY2(error.contains(errorPart), qPrintable(error));
}

QTEST_MAIN(tst_MemoryPropertyBag)
#include "tst_memorypropertybag.moc"
