// SPDX-License-Identifier: MIT
// Column, the metadata of one grid column: its type's decimals and format, the decimals that
// currency and long columns refuse, and its keyed lists.
#include <VemoGridLib/Column.h>
#include <VemoGridLib/VemoError.h>

#include "VemoTestSupport.h"

#include <QMetaProperty>
#include <QStandardItemModel>
#include <QTest>

using namespace VemoGridLib;
using VemoTest::errorNumberOf;

class tst_Column : public QObject
{
    Q_OBJECT

private slots:
    void colTypeSetsDecimalsAndFormat_data()
    {
        QTest::addColumn<QList<int>>("types");
        QTest::addColumn<QString>("expected"); // decimals format, "!" when -4 decimals are refused
        // The column starts with 3 decimals and the format "0.0". A later type keeps what an
        // earlier one set, and the refusal ends with the type.
        QTest::newRow("eCheckBox") << QList<int>{eCheckBox} << "3 0.0";
        QTest::newRow("eCurrency") << QList<int>{eCurrency} << "2 #,##0.00!";
        QTest::newRow("eNumeric") << QList<int>{eNumeric} << "6 0.0";
        QTest::newRow("eLong") << QList<int>{eLong} << "0 0.0!";
        QTest::newRow("currency, numeric") << QList<int>{eCurrency, eNumeric} << "6 #,##0.00";
        QTest::newRow("currency, text") << QList<int>{eCurrency, eTextBox} << "2 #,##0.00";
        QTest::newRow("long, 42") << QList<int>{eLong, 42} << "0 0.0";
    }

    void colTypeSetsDecimalsAndFormat()
    {
        QFETCH(QList<int>, types);
        QFETCH(QString, expected);
        Column column;
        column.setDecimalLength(3);
        column.setFormatString(QStringLiteral("0.0"));
        for (int type : types)
            column.setColType(VemoGridColType(type));
        QCOMPARE(int(column.colType()), types.last());
        const bool refuses = expected.endsWith(u'!');
        QCOMPARE(u"%1 %2"_qs.arg(column.DecimalLength()).arg(column.FormatString()),
                 expected.chopped(refuses ? 1 : 0));
        const auto error = VemoTest::errorOf([&] { column.setDecimalLength(-4); });
        QCOMPARE(error.has_value(), refuses);
        if (error) {
            QCOMPARE(error->number(), -2147221504);
            QCOMPARE(error->description(),
                     QStringLiteral("Can't set decimal lenght to this column"));
        }
        QCOMPARE(column.DecimalLength() == -4, !refuses);
    }

    void storage()
    {
        Column column;
        // Every property takes back what it reads.
        const QMetaObject* const meta = column.metaObject();
        for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
            const QVariant value = meta->property(i).read(&column);
            QVERIFY(!meta->property(i).isWritable() || meta->property(i).write(&column, value));
        }
        // Items, widths and alignments are kept by index or key; a missing one raises 5.
        column.AddItem(QStringLiteral("a"));
        column.clearItems();
        column.AddItem(QStringLiteral("b"));
        column.setCOLWIDTH(2, 800);
        column.setCOLWIDTH(2, 1200);
        column.setColAlignment(-5, 7);
        QCOMPARE(column.Item(0) + QString::number(column.COLWIDTH(2) + column.ColAlignment(-5)),
                 QStringLiteral("b1207"));
        QCOMPARE(errorNumberOf([&] { column.Item(1); }) + errorNumberOf([&] { column.Item(-1); }) +
                     errorNumberOf([&] { column.COLWIDTH(-5); }) +
                     errorNumberOf([&] { column.ColAlignment(2); }),
                 20);
        // A destroyed model is forgotten.
        auto model = std::make_unique<QStandardItemModel>();
        column.setDataSource(model.get());
        model.reset();
        QCOMPARE(column.DataSource(), nullptr);
    }
};

QTEST_GUILESS_MAIN(tst_Column)
#include "tst_column.moc"
