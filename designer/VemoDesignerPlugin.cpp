// SPDX-License-Identifier: MIT
#include "VemoDesignerPlugin.h"

#include "ColumnSetupDialog.h"

#include <VemoGridLib/ErrorGuard.h>
#include <VemoGridLib/VemoComboBox.h>
#include <VemoGridLib/VemoDTPicker.h>
#include <VemoGridLib/VemoGrid.h>

#include <QAction>
#include <QDesignerFormEditorInterface>
#include <QDesignerFormWindowCursorInterface>
#include <QDesignerFormWindowInterface>
#include <QExtensionManager>
#include <QIcon>
#include <QMessageBox>
#include <QXmlStreamWriter>

namespace VemoGridLib {

VemoWidgetPlugin::VemoWidgetPlugin(Description description, QObject* parent)
    : QObject(parent)
    , m_description(std::move(description))
{}

QString VemoWidgetPlugin::name() const
{
    return m_description.className;
}

QString VemoWidgetPlugin::group() const
{
    return QStringLiteral("VemoGridLib");
}

QString VemoWidgetPlugin::toolTip() const
{
    return m_description.toolTip;
}

QString VemoWidgetPlugin::whatsThis() const
{
    return m_description.whatsThis;
}

QString VemoWidgetPlugin::includeFile() const
{
    // The angle brackets make Designer write a global include, as the library is installed.
    return u"<VemoGridLib/%1>"_qs.arg(m_description.header);
}

QIcon VemoWidgetPlugin::icon() const
{
    return QIcon(u":/vemogridlib/icons/"_qs + m_description.iconName);
}

bool VemoWidgetPlugin::isContainer() const
{
    return false;
}

QWidget* VemoWidgetPlugin::createWidget(QWidget* parent)
{
    return m_description.create(parent);
}

bool VemoWidgetPlugin::isInitialized() const
{
    return m_initialized;
}

void VemoWidgetPlugin::initialize(QDesignerFormEditorInterface* core)
{
    if (m_initialized)
        return;
    m_initialized = true;
    if (m_description.className == u"VemoGridLib::VemoGrid" && core && core->extensionManager())
        core->extensionManager()->registerExtensions(
            new GridTaskMenuFactory(core->extensionManager()),
            Q_TYPEID(QDesignerTaskMenuExtension));
}

QString VemoWidgetPlugin::domXml() const
{
    const QString shortName = m_description.className.section(u"::"_qs, -1);
    QString xml;
    QXmlStreamWriter out(&xml);
    out.writeStartElement(u"ui"_qs);
    out.writeAttribute(u"language"_qs, u"c++"_qs);
    out.writeStartElement(u"widget"_qs);
    out.writeAttribute(u"class"_qs, m_description.className);
    out.writeAttribute(u"name"_qs, shortName.front().toLower() + shortName.mid(1));
    out.writeStartElement(u"property"_qs);
    out.writeAttribute(u"name"_qs, u"geometry"_qs);
    out.writeStartElement(u"rect"_qs);
    out.writeTextElement(u"x"_qs, u"0"_qs);
    out.writeTextElement(u"y"_qs, u"0"_qs);
    out.writeTextElement(u"width"_qs, QString::number(m_description.size.width()));
    out.writeTextElement(u"height"_qs, QString::number(m_description.size.height()));
    out.writeEndElement(); // rect
    out.writeEndElement(); // property
    out.writeEndElement(); // widget
    // Strings that are data, not UI text, marked notr: uic passes them as they are instead of
    // through tr().
    out.writeStartElement(u"propertyspe"_qs + u"cifications"_qs);
    const auto markUntranslated = [&](const QStringList& names, const QString& type) {
        for (const QString& name : names) {
            out.writeEmptyElement(u"stringpropertyspe"_qs + u"cification"_qs);
            out.writeAttribute(u"name"_qs, name);
            out.writeAttribute(u"notr"_qs, u"true"_qs);
            out.writeAttribute(u"type"_qs, type);
        }
    };
    markUntranslated(m_description.notrStrings, u"singleline"_qs);
    markUntranslated(m_description.multiLineStrings, u"multiline"_qs);
    out.writeEndElement();
    out.writeEndElement(); // ui
    return xml;
}

VemoWidgetCollection::VemoWidgetCollection(QObject* parent)
    : QObject(parent)
{
    m_widgets = {
        new VemoWidgetPlugin(
            {u"VemoGridLib::VemoGrid"_qs,
             u"VemoGrid.h"_qs,
             u"vemogrid.png"_qs,
             tr("Data-entry grid"),
             tr("A grid for entering rows of data: each column edits its cells as text, number, "
                "check box, list, date or button. Right-click it and choose Edit Columns… to "
                "set up the columns."),
             QSize(400, 200),
             {u"FormatString"_qs, u"AutoCalcOPE"_qs},
             {u"ColumnSetup"_qs},
             [](QWidget* parent) -> QWidget* {
                 // At design time the grid shows its headers and widths but edits nothing.
                 auto* const grid = new VemoGrid(parent);
                 grid->setUserMode(false);
                 return grid;
             }},
            this),
        new VemoWidgetPlugin({u"VemoGridLib::VemoComboBox"_qs,
                              u"VemoComboBox.h"_qs,
                              u"vemocombobox.png"_qs,
                              tr("Combo box with a multi-column list"),
                              tr("A text field with a drop-down list of several columns; typing "
                                 "selects the first matching row."),
                              QSize(160, 24),
                              {u"Text"_qs, u"ListHeader"_qs},
                              {},
                              [](QWidget* parent) -> QWidget* {
                                  return new VemoComboBox(parent);
                              }},
                             this),
        new VemoWidgetPlugin({u"VemoGridLib::VemoDTPicker"_qs,
                              u"VemoDTPicker.h"_qs,
                              u"vemodtpicker.png"_qs,
                              tr("Date picker"),
                              tr("A date field with a drop-down month calendar, optionally "
                                 "showing lunar dates."),
                              QSize(160, 24),
                              {u"Text"_qs},
                              {},
                              [](QWidget* parent) -> QWidget* {
                                  return new VemoDTPicker(parent);
                              }},
                             this),
    };
}

QList<QDesignerCustomWidgetInterface*> VemoWidgetCollection::customWidgets() const
{
    return m_widgets;
}

GridTaskMenu::GridTaskMenu(VemoGrid* grid, QObject* parent)
    : QObject(parent)
    , m_grid(grid)
    , m_editColumns(new QAction(tr("Edit Columns…"), this))
{
    connect(m_editColumns, &QAction::triggered, this, &GridTaskMenu::editColumns);
}

QAction* GridTaskMenu::preferredEditAction() const
{
    return m_editColumns;
}

QList<QAction*> GridTaskMenu::taskActions() const
{
    return {m_editColumns};
}

void GridTaskMenu::editColumns()
{
    ColumnSetupDialog dialog(m_grid->window());
    try {
        dialog.setText(m_grid->ColumnSetup());
    } catch (const std::exception& error) {
        QMessageBox::warning(m_grid, dialog.windowTitle(), QString::fromUtf8(error.what()));
        return;
    }
    if (dialog.exec() != QDialog::Accepted)
        return;
    catchingErrors("Edit Columns", [&] {
        const QString text = dialog.text();
        if (QDesignerFormWindowInterface* const form =
                QDesignerFormWindowInterface::findFormWindow(m_grid)) {
            // The cursor writes to the selection: an undoable change the form saves.
            form->clearSelection(false);
            form->selectWidget(m_grid, true);
            form->cursor()->setProperty(u"ColumnSetup"_qs, text);
        } else {
            m_grid->setColumnSetup(text);
        }
    });
}

QObject* GridTaskMenuFactory::createExtension(QObject* object, const QString& iid,
                                              QObject* parent) const
{
    auto* const grid = qobject_cast<VemoGrid*>(object);
    if (!grid || iid != Q_TYPEID(QDesignerTaskMenuExtension))
        return nullptr;
    return new GridTaskMenu(grid, parent);
}

} // namespace VemoGridLib
