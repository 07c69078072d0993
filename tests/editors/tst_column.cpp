// SPDX-License-Identifier: MIT
// Column, the metadata of one grid column: its type's decimals and format, the decimals that
// currency and long columns refuse, and its keyed lists.
#include <VemoGridLib/Column.h>
#include <VemoGridLib/VemoError.h>

#include "VemoTestSupport.h"

#include <QMetaProperty>
#include <QStandardItemModel>
#include <QTest>

#include <functional>

using namespace VemoGridLib;
using VemoTest::errorNumberOf;

class tst_Column : public QObject
{
    Q_OBJECT

private slots:

    void colTypeSetsDecimalsAndFormat_data()
    {
        QTest::addColumn<QList<int>>("types");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("format");
        QTest::addColumn<bool>("refusesDecimals");
        // The column starts with 3 decimals and the format "0.0", so "unchanged" shows. A later
        // type keeps what an earlier one set, and the refusal ends with the type.
        const QString currency = QStringLiteral("#,##0.00");
        QTest::newRow("eCheckBox") << QList<int>{eCheckBox} << 3 << "0.0" << false;
        QTest::newRow("eCurrency") << QList<int>{eCurrency} << 2 << currency << true;
        QTest::newRow("eNumeric") << QList<int>{eNumeric} << 6 << "0.0" << false;
        QTest::newRow("eLong") << QList<int>{eLong} << 0 << "0.0" << true;
        QTest::newRow("currency, numeric")
            << QList<int>{eCurrency, eNumeric} << 6 << currency << false;
        QTest::newRow("currency, text")
            << QList<int>{eCurrency, eTextBox} << 2 << currency << false;
        QTest::newRow("long, 42") << QList<int>{eLong, 42} << 0 << "0.0" << false;
    }

    void colTypeSetsDecimalsAndFormat()
    {
        QFETCH(QList<int>, types);
        QFETCH(int, decimals);
        QFETCH(QString, format);
        QFETCH(bool, refusesDecimals);
        Column column;
        column.setDecimalLength(3);
        column.setFormatString(QStringLiteral("0.0"));

        for (int type : types)
            column.setColType(VemoGridColType(type));

        QCOMPARE(int(column.colType()), types.last());
        QCOMPARE(column.FormatString(), format);
        QCOMPARE(int(column.DecimalLength()), decimals);
        const std::optional<VemoError> error =
            VemoTest::errorOf([&] { column.setDecimalLength(-4); });
        QCOMPARE(error.has_value(), refusesDecimals);
        QCOMPARE(error.value_or(VemoError(0, {})).number(), refusesDecimals ? -2147221504 : 0);
        QCOMPARE(error.value_or(VemoError(0, {})).description(),
                 refusesDecimals ? QStringLiteral("Can't set decimal lenght to this column") : "");
        QCOMPARE(int(column.DecimalLength()), refusesDecimals ? decimals : -4);
    }

    void storage()
    {
        Column column;
        // Every property takes back what it reads.
        for (int i = column.metaObject()->propertyOffset();
             i < column.metaObject()->propertyCount(); ++i) {
            const QMetaProperty property = column.metaObject()->property(i);
            const QVariant value = property.read(&column);
            QVERIFY(!property.isWritable() || property.write(&column, value));
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
        for (const auto& missing : std::initializer_list<std::function<void()>>{
                 [&] { column.Item(1); }, [&] { column.Item(-1); }, [&] { column.COLWIDTH(-5); },
                 [&] {
                     column.ColAlignment(2);
                 }})
            QCOMPARE(errorNumberOf(missing), 5);

        // A destroyed model is forgotten.
        auto model = std::make_unique<QStandardItemModel>();
        column.setDataSource(model.get());
        model.reset();
        QCOMPARE(column.DataSource(), nullptr);
    }
};

QTEST_GUILESS_MAIN(tst_Column)
#include "tst_column.moc"
