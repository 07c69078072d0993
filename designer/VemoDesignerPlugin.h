// SPDX-License-Identifier: MIT
// The Qt Designer plugin: the grid, the combo box and the date picker in Designer's widget box,
// and the grid's "Edit Columns…" task menu.
#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <QDesignerTaskMenuExtension>
#include <QExtensionFactory>

#include <functional>

QT_BEGIN_NAMESPACE
class QAction;
QT_END_NAMESPACE

namespace VemoGridLib {

class VemoGrid;

/// One control of the widget box, described by data.
class VemoWidgetPlugin : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    struct Description
    {
        QString className; ///< the meta-object's class name, with its namespace
        QString header;    ///< the public header's file name
        QString iconName;  ///< the icon's file in the plugin's resources
        QString toolTip;
        QString whatsThis;
        QSize size;                   ///< the size of a control dropped on a form
        QStringList notrStrings;      ///< single-line string properties that are no UI text
        QStringList multiLineStrings; ///< multi-line ones
        std::function<QWidget*(QWidget*)> create;
    };

    VemoWidgetPlugin(Description description, QObject* parent);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QWidget* createWidget(QWidget* parent) override;
    bool isInitialized() const override;
    void initialize(QDesignerFormEditorInterface* core) override;
    QString domXml() const override;

private:
    Description m_description;
    bool m_initialized = false;
};

/// The plugin's entry point: the three controls in the "VemoGridLib" group.
class VemoWidgetCollection : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit VemoWidgetCollection(QObject* parent = nullptr);
    QList<QDesignerCustomWidgetInterface*> customWidgets() const override;

private:
    QList<QDesignerCustomWidgetInterface*> m_widgets;
};

/// The grid's task menu: "Edit Columns…" opens the column setup dialog and writes the result
/// back through the form window's cursor, so the change can be undone and is saved.
class GridTaskMenu : public QObject, public QDesignerTaskMenuExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    GridTaskMenu(VemoGrid* grid, QObject* parent);
    QAction* preferredEditAction() const override;
    QList<QAction*> taskActions() const override;

private:
    void editColumns();

    VemoGrid* m_grid;
    QAction* m_editColumns;
};

/// Gives every grid on a form its task menu.
class GridTaskMenuFactory : public QExtensionFactory
{
    Q_OBJECT

public:
    using QExtensionFactory::QExtensionFactory;

protected:
    QObject* createExtension(QObject* object, const QString& iid, QObject* parent) const override;
};

} // namespace VemoGridLib
