// Part 1.2: the Column metadata object.
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/Column.h>

#include "VemoTestSupport.h"
#include <QMetaProperty>
#include <QStandardItemModel>

#include <QTest>

#include <optional>

using namespace VemoGridLib;

namespace {

const QString CurrencyFormat = QStringLiteral("#,##0.00");
const QString DecimalRefusal = QStringLiteral("Can't set decimal lenght to this column");
constexpr qint32 InvalidProcedureCallNumber = 5;

// The number and description of the VemoError that `action` throws; 0 and "" when none.
template <typename Action>
std::pair<qint32, QString> errorOf(Action&& action)
{
    const std::optional<VemoError> error = VemoTest::errorOf(std::forward<Action>(action));
    return error ? std::pair(error->number(), error->description()) : std::pair(0, QString());
}

} // namespace

class tst_Column : public QObject
{
    Q_OBJECT

private slots:
    void defaults_data();
    void defaults();
    void freshColumnHasEmptyCollections();
    void propertiesRoundTrip_data();
    void propertiesRoundTrip();
    void dataSourceForgetsDestroyedModel();

    void colTypeSetsDecimalsAndFormat_data();
    void colTypeSetsDecimalsAndFormat();
    void currencyRefusesDecimalLength();
    void longRefusesDecimalLength();
    void decimalLengthStoredAsGiven_data();
    void decimalLengthStoredAsGiven();
    void currencyToNumericKeepsFormat();
    void currencyToTextBoxKeepsFormat();
    void typeAboveEightIsStored();

    void itemsAreIndexedFromZero();
    void clearItemsRestartsAtZero();
    void missingItemRaisesCollectionError_data();
    void missingItemRaisesCollectionError();

    void colWidthSetTwiceKeepsOneEntry();
    void colWidthMissingKeyRaisesCollectionError();
    void colAlignmentReplacesAndMissingKeyRaises();
    void listStoresAreIndependent();
};

void tst_Column::defaults_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("AutoAdd") << "AutoAdd" << QVariant(false);
    QTest::newRow("ListHeader") << "ListHeader" << QVariant(QString());
    QTest::newRow("FormatString") << "FormatString" << QVariant(QString());
    QTest::newRow("Locked") << "Locked" << QVariant(false);
    QTest::newRow("MaxLength") << "MaxLength" << QVariant(0);
    QTest::newRow("MaxValue") << "MaxValue" << QVariant(10000000000000000.0);
    QTest::newRow("MinValue") << "MinValue" << QVariant(-10000000000000000.0);
    QTest::newRow("ShowZero") << "ShowZero" << QVariant(false);
    QTest::newRow("AutoDropDown") << "AutoDropDown" << QVariant(false);
    QTest::newRow("ListWidth") << "ListWidth" << QVariant(-1);
    QTest::newRow("ColResize") << "ColResize" << QVariant(false);
    QTest::newRow("RowHeight") << "RowHeight" << QVariant(0);
    QTest::newRow("VisibleRows") << "VisibleRows" << QVariant(12);
    QTest::newRow("ShowHeader") << "ShowHeader" << QVariant(true);
    QTest::newRow("SelectCol") << "SelectCol" << QVariant(0);
    QTest::newRow("CompareMode") << "CompareMode" << QVariant(0);
    QTest::newRow("HotTracking") << "HotTracking" << QVariant(true);
    QTest::newRow("SortType") << "SortType" << QVariant(0);
    QTest::newRow("DecimalLength") << "DecimalLength" << QVariant(6);
    QTest::newRow("ItemCount") << "ItemCount" << QVariant(0);
}

void tst_Column::defaults()
{
    QFETCH(QString, property);
    QFETCH(QVariant, expected);

    const Column column;
    const QMetaObject* meta = column.metaObject();
    const int index = meta->indexOfProperty(property.toLatin1().constData());
    QVERIFY2(index >= 0, qPrintable(property + " is not a Q_PROPERTY"));

    QVariant actual = meta->property(index).read(&column);
    QVERIFY(actual.isValid());
    if (expected.typeId() == QMetaType::Int)
        QVERIFY(actual.convert(QMetaType::fromType<int>()));
    QCOMPARE(actual, expected);
}

void tst_Column::freshColumnHasEmptyCollections()
{
    const Column column;
    QCOMPARE(column.ItemCount(), 0);
    QCOMPARE(column.DataSource(), nullptr);
    QCOMPARE(column.colType(), eTextBox);
    QCOMPARE(column.CompareMode(), vb::vbBinaryCompare);
    QCOMPARE(column.SortType(), VemoSortNone);
    QCOMPARE(column.MaxValue(), 1e16);
    QCOMPARE(column.MinValue(), -1e16);
}

void tst_Column::propertiesRoundTrip_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("AutoAdd") << "AutoAdd" << QVariant(true);
    QTest::newRow("ListHeader") << "ListHeader" << QVariant(QStringLiteral("代码;名称"));
    QTest::newRow("FormatString") << "FormatString" << QVariant(QStringLiteral("yyyy-mm-dd"));
    QTest::newRow("Locked") << "Locked" << QVariant(true);
    QTest::newRow("MaxLength") << "MaxLength" << QVariant::fromValue(qint16(-7));
    QTest::newRow("MaxValue") << "MaxValue" << QVariant(99.5);
    QTest::newRow("MinValue") << "MinValue" << QVariant(-3.25);
    QTest::newRow("ShowZero") << "ShowZero" << QVariant(true);
    QTest::newRow("AutoDropDown") << "AutoDropDown" << QVariant(true);
    QTest::newRow("ListWidth") << "ListWidth" << QVariant::fromValue(qint16(4000));
    QTest::newRow("ColResize") << "ColResize" << QVariant(true);
    QTest::newRow("RowHeight") << "RowHeight" << QVariant::fromValue(qint16(300));
    QTest::newRow("VisibleRows") << "VisibleRows" << QVariant::fromValue(qint16(32767));
    QTest::newRow("ShowHeader") << "ShowHeader" << QVariant(false);
    QTest::newRow("SelectCol") << "SelectCol" << QVariant::fromValue(qint16(2));
    QTest::newRow("CompareMode") << "CompareMode" << QVariant::fromValue(vb::vbTextCompare);
    QTest::newRow("HotTracking") << "HotTracking" << QVariant(false);
    QTest::newRow("SortType") << "SortType" << QVariant::fromValue(VemoSortDateTime);
    QTest::newRow("DecimalLength") << "DecimalLength" << QVariant::fromValue(qint16(4));
}

void tst_Column::propertiesRoundTrip()
{
    QFETCH(QString, property);
    QFETCH(QVariant, value);

    Column column;
    const QByteArray name = property.toLatin1();
    QVERIFY(column.setProperty(name.constData(), value));
    QCOMPARE(column.property(name.constData()), value);
}

void tst_Column::dataSourceForgetsDestroyedModel()
{
    Column column;
    {
        QStandardItemModel model;
        column.setDataSource(&model);
        QCOMPARE(column.DataSource(), &model);
    }
    QCOMPARE(column.DataSource(), nullptr);
}

void tst_Column::colTypeSetsDecimalsAndFormat_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("format");

    // Start from a column whose decimals are 3 and format "0.0", so "unchanged" is visible.
    const QString untouched = QStringLiteral("0.0");
    QTest::newRow("eTextBox") << int(eTextBox) << 3 << untouched;
    QTest::newRow("eCheckBox") << int(eCheckBox) << 3 << untouched;
    QTest::newRow("eComboBox") << int(eComboBox) << 3 << untouched;
    QTest::newRow("eCalendar") << int(eCalendar) << 3 << untouched;
    QTest::newRow("ehyperlink") << int(ehyperlink) << 3 << untouched;
    QTest::newRow("eButton") << int(eButton) << 3 << untouched;
    QTest::newRow("eCurrency") << int(eCurrency) << 2 << CurrencyFormat;
    QTest::newRow("eNumeric") << int(eNumeric) << 6 << untouched;
    QTest::newRow("eLong") << int(eLong) << 0 << untouched;
    QTest::newRow("9") << 9 << 3 << untouched;
}

void tst_Column::colTypeSetsDecimalsAndFormat()
{
    QFETCH(int, type);
    QFETCH(int, decimals);
    QFETCH(QString, format);

    Column column;
    column.setDecimalLength(3);
    column.setFormatString(QStringLiteral("0.0"));

    column.setColType(VemoGridColType(type));

    QCOMPARE(int(column.colType()), type);
    QCOMPARE(int(column.DecimalLength()), decimals);
    QCOMPARE(column.FormatString(), format);
}

void tst_Column::currencyRefusesDecimalLength()
{
    Column column;
    column.setColType(eCurrency);
    QCOMPARE(column.FormatString(), CurrencyFormat);
    QCOMPARE(column.DecimalLength(), qint16(2));

    const auto [number, description] = errorOf([&] { column.setDecimalLength(3); });
    QCOMPARE(number, -2147221504);
    QCOMPARE(number, VemoError::ObjectErrorBase);
    QCOMPARE(description, DecimalRefusal);
    QCOMPARE(column.DecimalLength(), qint16(2));
}

void tst_Column::longRefusesDecimalLength()
{
    Column column;
    column.setColType(eLong);
    QCOMPARE(column.DecimalLength(), qint16(0));

    const auto [number, description] = errorOf([&] { column.setDecimalLength(2); });
    QCOMPARE(number, -2147221504);
    QCOMPARE(description, DecimalRefusal);
    QCOMPARE(column.DecimalLength(), qint16(0));
}

void tst_Column::decimalLengthStoredAsGiven_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<qint16>("value");

    QTest::newRow("eNumeric 0") << int(eNumeric) << qint16(0);
    QTest::newRow("eNumeric negative") << int(eNumeric) << qint16(-3);
    QTest::newRow("eNumeric 15") << int(eNumeric) << qint16(15);
    QTest::newRow("eNumeric 32767") << int(eNumeric) << qint16(32767);
    QTest::newRow("eTextBox 0") << int(eTextBox) << qint16(0);
    QTest::newRow("eTextBox negative") << int(eTextBox) << qint16(-1);
    QTest::newRow("eCheckBox 4") << int(eCheckBox) << qint16(4);
    QTest::newRow("eCalendar negative") << int(eCalendar) << qint16(-32768);
    QTest::newRow("eComboBox 1") << int(eComboBox) << qint16(1);
}

void tst_Column::decimalLengthStoredAsGiven()
{
    QFETCH(int, type);
    QFETCH(qint16, value);

    Column column;
    column.setColType(VemoGridColType(type));
    column.setDecimalLength(value);
    QCOMPARE(column.DecimalLength(), value);
}

void tst_Column::currencyToNumericKeepsFormat()
{
    Column column;
    column.setColType(eCurrency);
    column.setColType(eNumeric);
    QCOMPARE(column.DecimalLength(), qint16(6));
    QCOMPARE(column.FormatString(), CurrencyFormat);

    column.setDecimalLength(1);
    QCOMPARE(column.DecimalLength(), qint16(1));
}

void tst_Column::currencyToTextBoxKeepsFormat()
{
    Column column;
    column.setColType(eCurrency);
    column.setColType(eTextBox);
    QCOMPARE(column.colType(), eTextBox);
    QCOMPARE(column.DecimalLength(), qint16(2));
    QCOMPARE(column.FormatString(), CurrencyFormat);

    column.setDecimalLength(5);
    QCOMPARE(column.DecimalLength(), qint16(5));
}

void tst_Column::typeAboveEightIsStored()
{
    Column column;
    column.setColType(eLong);
    column.setColType(VemoGridColType(42));
    QCOMPARE(int(column.colType()), 42);
    QCOMPARE(column.DecimalLength(), qint16(0));

    // No longer an eLong column, so the refusal no longer applies.
    column.setDecimalLength(7);
    QCOMPARE(column.DecimalLength(), qint16(7));
}

void tst_Column::itemsAreIndexedFromZero()
{
    Column column;
    column.AddItem(QStringLiteral("a"));
    column.AddItem(QStringLiteral("b"));
    QCOMPARE(column.Item(0), QStringLiteral("a"));
    QCOMPARE(column.Item(1), QStringLiteral("b"));
    QCOMPARE(column.ItemCount(), 2);
}

void tst_Column::clearItemsRestartsAtZero()
{
    Column column;
    column.AddItem(QStringLiteral("a"));
    column.AddItem(QStringLiteral("b"));
    column.clearItems();
    QCOMPARE(column.ItemCount(), 0);
    QCOMPARE(errorOf([&] { column.Item(0); }).first, InvalidProcedureCallNumber);

    column.AddItem(QStringLiteral("c"));
    QCOMPARE(column.Item(0), QStringLiteral("c"));
    QCOMPARE(column.ItemCount(), 1);
}

void tst_Column::missingItemRaisesCollectionError_data()
{
    QTest::addColumn<qint32>("index");

    QTest::newRow("one past the end") << 2;
    QTest::newRow("negative") << -1;
    QTest::newRow("far") << 1000000;
}

void tst_Column::missingItemRaisesCollectionError()
{
    QFETCH(qint32, index);

    Column column;
    column.AddItem(QStringLiteral("a"));
    column.AddItem(QStringLiteral("b"));

    const auto [number, description] = errorOf([&] { column.Item(index); });
    QCOMPARE(number, InvalidProcedureCallNumber);
    QCOMPARE(description, QStringLiteral("Invalid procedure call or argument"));
}

void tst_Column::colWidthSetTwiceKeepsOneEntry()
{
    Column column;
    column.setCOLWIDTH(2, 800);
    column.setCOLWIDTH(2, 800);
    QCOMPARE(column.COLWIDTH(2), 800);

    column.setCOLWIDTH(2, 1200);
    QCOMPARE(column.COLWIDTH(2), 1200);
    QCOMPARE(errorOf([&] { column.COLWIDTH(1); }).first, InvalidProcedureCallNumber);
    QCOMPARE(errorOf([&] { column.COLWIDTH(3); }).first, InvalidProcedureCallNumber);
}

void tst_Column::colWidthMissingKeyRaisesCollectionError()
{
    const Column column;
    const auto [number, description] = errorOf([&] { column.COLWIDTH(0); });
    QCOMPARE(number, InvalidProcedureCallNumber);
    QCOMPARE(description, QStringLiteral("Invalid procedure call or argument"));
}

void tst_Column::colAlignmentReplacesAndMissingKeyRaises()
{
    Column column;
    QCOMPARE(errorOf([&] { column.ColAlignment(-5); }).first, InvalidProcedureCallNumber);

    column.setColAlignment(-5, 2);
    column.setColAlignment(-5, 7);
    QCOMPARE(column.ColAlignment(-5), 7);
    QCOMPARE(errorOf([&] { column.ColAlignment(5); }).first, InvalidProcedureCallNumber);
}

void tst_Column::listStoresAreIndependent()
{
    Column column;
    column.setCOLWIDTH(1, 900);
    QCOMPARE(errorOf([&] { column.ColAlignment(1); }).first, InvalidProcedureCallNumber);

    column.setColAlignment(1, 4);
    QCOMPARE(column.COLWIDTH(1), 900);
    QCOMPARE(column.ColAlignment(1), 4);
    column.clearItems();
    QCOMPARE(column.COLWIDTH(1), 900);
}

QTEST_GUILESS_MAIN(tst_Column)
#include "tst_column.moc"
