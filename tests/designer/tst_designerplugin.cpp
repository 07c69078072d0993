// SPDX-License-Identifier: MIT
// The Qt Designer plugin as Designer loads it, and the column setup dialog of its task menu.
#include "ColumnSetupDialog.h"

#include <VemoGridLib/ColumnSetup.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/VemoGrid.h>

#include <QDesignerFormEditorInterface>
#include <QDesignerTaskMenuExtension>
#include <QExtensionManager>
#include <QPluginLoader>
#include <QStandardItemModel>
#include <QTest>
#include <QXmlStreamReader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

using namespace VemoGridLib;

namespace {

/// A form editor with nothing but the extension manager the plugin registers with.
class FormEditor : public QDesignerFormEditorInterface
{
public:
    FormEditor() { setExtensionManager(new QExtensionManager(this)); }
};

QDesignerCustomWidgetInterface* widgetNamed(const QString& name)
{
    static QPluginLoader loader(QStringLiteral(VEMO_DESIGNER_PLUGIN));
    auto* const collection =
        qobject_cast<QDesignerCustomWidgetCollectionInterface*>(loader.instance());
    if (!collection)
        qFatal("the plugin did not load: %s", qPrintable(loader.errorString()));
    for (QDesignerCustomWidgetInterface* widget : collection->customWidgets()) {
        if (widget->name() == name)
            return widget;
    }
    return nullptr;
}

} // namespace

class tst_DesignerPlugin : public QObject
{
    Q_OBJECT

private slots:
    void widgets_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("header");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QStringList>("notr"); // some of the strings that are no UI text
        QTest::newRow("grid") << "VemoGrid"
                              << "<VemoGridLib/VemoGrid.h>" << QSize(400, 200)
                              << QStringList({"FormatString", "ColumnSetup"});
        QTest::newRow("combo") << "VemoComboBox"
                               << "<VemoGridLib/VemoComboBox.h>" << QSize(160, 24)
                               << QStringList({"Text", "ListHeader"});
        QTest::newRow("picker") << "VemoDTPicker"
                                << "<VemoGridLib/VemoDTPicker.h>" << QSize(160, 24)
                                << QStringList({"Text"});
    }

    void widgets()
    {
        QFETCH(QString, name);
        QFETCH(QString, header);
        QFETCH(QSize, size);
        QFETCH(QStringList, notr);
        QDesignerCustomWidgetInterface* const plugin = widgetNamed(u"VemoGridLib::"_qs + name);
        QVERIFY(plugin);
        QCOMPARE(plugin->group(), u"VemoGridLib"_qs);
        QCOMPARE(plugin->includeFile(), header);
        QVERIFY(!plugin->icon().isNull());

        // The widget box's entry: the class, its size on a form, the strings uic leaves alone.
        QXmlStreamReader xml(plugin->domXml());
        QStringList untranslated;
        QString widgetClass;
        QSize dropped;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            const QXmlStreamAttributes attributes = xml.attributes();
            if (xml.name() == u"widget")
                widgetClass = attributes.value(u"class"_qs).toString();
            else if (xml.name() == u"width")
                dropped.setWidth(xml.readElementText().toInt());
            else if (xml.name() == u"height")
                dropped.setHeight(xml.readElementText().toInt());
            else if (attributes.value(u"notr"_qs) == u"true")
                untranslated << attributes.value(u"name"_qs).toString();
        }
        QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
        QCOMPARE(widgetClass, plugin->name());
        QCOMPARE(dropped, size);
        for (const QString& property : notr)
            QVERIFY2(untranslated.contains(property), qPrintable(property));

        FormEditor core;
        plugin->initialize(&core);
        const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
        QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), plugin->name());
        if (auto* const grid = qobject_cast<VemoGrid*>(widget.get())) {
            QVERIFY(!grid->UserMode());
            auto* const menu =
                qt_extension<QDesignerTaskMenuExtension*>(core.extensionManager(), grid);
            QVERIFY(menu);
            QCOMPARE(menu->preferredEditAction()->text(), u"Edit Columns…"_qs);
        }
    }

    void columnSetupDialog_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("row"); // -1: a row added with the Add button
        QTest::addColumn<int>("field");
        QTest::addColumn<QVariant>("value"); // the cell's text, or a check state
        QTest::addColumn<QString>("expected");
        using F = ColumnSetupDialog;
        const QString two = u"1 Header=Product Width=1800 ColType=eComboBox "
                            u"ListHeader=\"Code\\tName\" Item=\"P1\\tPen\" Item=P2 "
                            u"VisibleRows=5 ShowHeader=false CompareMode=vbTextCompare\n"
                            u"3 Header=Qty ColType=eNumeric DecimalLength=0 MinValue=0.5"_qs;
        const QString productLine = two.section(u'\n', 0, 0);
        const QString qtyLine = two.section(u'\n', 1);
        QTest::newRow("header")
            << two << 1 << int(F::Header) << QVariant("Count")
            << productLine + u"\n3 Header=Count ColType=eNumeric DecimalLength=0 MinValue=0.5"_qs;
        QTest::newRow("enumeration by name")
            << two << 1 << int(F::SortType) << QVariant("VemoSortNumeric")
            << productLine + u"\n3 Header=Qty ColType=eNumeric DecimalLength=0 MinValue=0.5 "
                             u"SortType=VemoSortNumeric"_qs;
        QTest::newRow("emptied number is the default")
            << two << 1 << int(F::MinValue) << QVariant("")
            << productLine + u"\n3 Header=Qty ColType=eNumeric DecimalLength=0"_qs;
        QTest::newRow("items as lines")
            << two << 0 << int(F::Items) << QVariant("A\tx\nB")
            << u"1 Header=Product Width=1800 ColType=eComboBox ListHeader=\"Code\\tName\" "
               u"Item=\"A\\tx\" Item=B VisibleRows=5 ShowHeader=false "
               u"CompareMode=vbTextCompare\n"_qs +
                   qtyLine;
        QTest::newRow("switch")
            << two << 1 << int(F::Locked) << QVariant(int(Qt::Checked))
            << productLine +
                   u"\n3 Header=Qty ColType=eNumeric DecimalLength=0 MinValue=0.5 Locked=true"_qs;
        QTest::newRow("added after the last") << two << -1 << 0 << QVariant() << two + u"\n4"_qs;
    }

    void columnSetupDialog()
    {
        QFETCH(QString, text);
        QFETCH(int, row);
        QFETCH(int, field);
        QFETCH(QVariant, value);
        QFETCH(QString, expected);
        ColumnSetupDialog dialog;
        dialog.setText(text);
        QStandardItemModel& model = *dialog.model();
        if (row < 0)
            dialog.addRow();
        else if (value.metaType().id() == QMetaType::Int)
            QVERIFY(model.setData(model.index(row, field), value, Qt::CheckStateRole));
        else
            QVERIFY(model.setData(model.index(row, field), value));
        QCOMPARE(dialog.text(), formatColumnSetup(parseColumnSetup(expected)));
    }

    // A number cell that does not read is named, not dropped as if it were empty.
    void columnSetupDialogRefusesUnreadableNumbers()
    {
        ColumnSetupDialog dialog;
        dialog.setText(u"1 Header=A\n2 Header=B"_qs);
        QStandardItemModel& model = *dialog.model();
        QVERIFY(model.setData(model.index(1, ColumnSetupDialog::MinValue), u"1,5"_qs));
        try {
            dialog.text();
            QFAIL("the table was read");
        } catch (const VemoError& error) {
            QCOMPARE(error.description(), u"Row 2, MinValue: \"1,5\" is not a number"_qs);
        }
    }
};

QTEST_MAIN(tst_DesignerPlugin)
#include "tst_designerplugin.moc"
