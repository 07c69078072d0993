// SPDX-License-Identifier: MIT
// The in-memory property bag: defaults left out, write order, and its JSON form.
#include <VemoGridLib/MemoryPropertyBag.h>

#include <QFont>
#include <QRegularExpression>
#include <QTest>

#include <limits>

using namespace VemoGridLib;
using namespace Qt::StringLiterals;

class tst_MemoryPropertyBag : public QObject
{
    Q_OBJECT

private slots:
    void writingDefaultLeavesOut_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QVariant>("defaultValue");
        QTest::addColumn<bool>("stored");
        const auto row = [](const char* name, const QVariant& value, const QVariant& defaultValue,
                            bool stored) {
            QTest::newRow(name) << value << defaultValue << stored;
        };
        QObject* const object = this;
        row("int vs 16-bit default", 1, QVariant::fromValue(qint16(1)), false);
        row("colour vs int of the same bits", quint32(0x8000000F), qint32(-2147483633), true);
        row("enum vs int", QVariant::fromValue(Qt::AlignRight), 2, false);
        row("equal fonts", QFont("A"), QFont("A"), false);
        row("same object", QVariant::fromValue(object), QVariant::fromValue(object), false);
        row("null object vs none", QVariant::fromValue<QObject*>(nullptr), QVariant(), false);
    }
    void writingDefaultLeavesOut()
    {
        QFETCH(QVariant, value);
        QFETCH(QVariant, defaultValue);
        QFETCH(bool, stored);
        MemoryPropertyBag bag;
        bag.WriteProperty(u"P"_s, 7, 0);
        bag.WriteProperty(u"P"_s, value, defaultValue);
        QCOMPARE(bag.contains(u"P"_s), stored);
        QCOMPARE(bag.ReadProperty(u"P"_s, 9), stored ? value : QVariant(9));
    }

    // A rewrite keeps its place, a default write removes, what JSON cannot hold is not saved.
    void jsonRoundTrip()
    {
        QFont font(u"DejaVu Serif"_s, 13, QFont::Bold, true);
        font.setPointSizeF(12.3456789);
        font.setLetterSpacing(QFont::AbsoluteSpacing, 1234.015625);
        const QVariantList values = {false,
                                     QVariant::fromValue(std::numeric_limits<qint16>::min()),
                                     QVariant::fromValue(quint32(0x8000000F)),
                                     0.1f,
                                     0.1,
                                     u"提示 \"quoted\"\n\t|"_s,
                                     font};
        MemoryPropertyBag bag;
        bag.WriteProperty(u"3"_s, 5, 0);
        bag.WriteProperty(u"Gone"_s, 5, 0);
        for (int i = 0; i < values.size(); ++i)
            bag.WriteProperty(QString::number(i), values[i], QVariant());
        bag.WriteProperty(u"Gone"_s, 0, 0);
        bag.WriteProperty(u"Model"_s, QVariant::fromValue<QObject*>(this), QVariant());
        bag.WriteProperty(u"Infinite"_s, std::numeric_limits<double>::infinity(), 0);
        const QStringList saved = {"3", "0", "1", "2", "4", "5", "6"};
        QCOMPARE(bag.names(), saved + QStringList({"Model", "Infinite"}));
        QStringList leftOut;
        QString error = u"unset"_s;
        const MemoryPropertyBag back = MemoryPropertyBag::fromJson(bag.toJson(&leftOut), &error);
        QCOMPARE(leftOut, QStringList({"Model", "Infinite"}));
        QCOMPARE(error, QString());
        QCOMPARE(back.names(), saved);
        for (int i = 0; i < values.size(); ++i) {
            QCOMPARE(back.value(QString::number(i)).metaType(), values[i].metaType());
            QCOMPARE(back.value(QString::number(i)), values[i]);
        }
    }

    void fromJsonRefuses_data(); // after the class: moc misreads its raw strings
    void fromJsonRefuses()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, errorPart);
        if (errorPart.contains(u"font")) // Qt itself warns about a font it cannot read
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("QFont::fromString"));
        QString error;
        QVERIFY(MemoryPropertyBag::fromJson(json, &error).names().isEmpty());
        QVERIFY2(error.contains(errorPart), qPrintable(error));
    }
};

void tst_MemoryPropertyBag::fromJsonRefuses_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("errorPart");
    const auto row = [](const char* name, const QByteArray& json, const char* errorPart) {
        QTest::newRow(name) << json << QString::fromUtf8(errorPart);
    };
    const auto one = [](const char* type, const char* value) {
        return QByteArray(R"({"properties":[{"name":"Good","type":"int32","value":1},)") +
               R"({"name":"P","type":")" + type + R"(","value":)" + value + "}]}";
    };
    row("truncated", R"({"properties":[)", "Not valid JSON");
    row("no properties", "{}", "Not a property bag");
    row("entry not an object", R"({"properties":[5]})", "not an object");
    row("no name", R"({"properties":[{"type":"bool","value":true}]})", "missing \"name\"");
    row("unknown type", one("int8", "1"), "unknown type \"int8\"");
    row("int16 overflow", one("int16", "40000"), "not a valid int16");
    row("float beyond range", one("float", "-1e39"), "not a valid float");
    row("font as empty text", one("font", R"("")"), "not a valid font");
}

QTEST_MAIN(tst_MemoryPropertyBag)
#include "tst_memorypropertybag.moc"
