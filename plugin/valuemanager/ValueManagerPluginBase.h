// The shape through which the value manager's widgets reach Qt Designer: every answer is kept as it was given.
#ifndef OSTREL_VALUEMANAGER_VALUEMANAGERPLUGINBASE_H
#define OSTREL_VALUEMANAGER_VALUEMANAGERPLUGINBASE_H

#include <QDesignerFormEditorInterface>
#include <QExtensionManager>
#include <QIcon>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include "valuemanager/ValueManagerTaskMenuFactoryBase.h"

class Q_DECL_EXPORT ValueManagerPluginBase : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    ValueManagerPluginBase(QObject* parent, QString domString, QString includeString, QString name, QString whatsThis,
                           QString group, QString toolTip, QIcon widgetIcon, bool widgetIsContainer);

    QString domXml() const override;
    QString includeFile() const override;
    QString name() const override;
    QString whatsThis() const override;
    QWidget* createWidget(QWidget* parent) override;
    QString group() const override;
    QIcon icon() const override;
    QString toolTip() const override;
    bool isContainer() const override;
    bool isInitialized() const override;
    void initialize(QDesignerFormEditorInterface* formEditor) override;

protected:
    // A widget of the value manager's group, of which everything but these two follows from the class name.
    ValueManagerPluginBase(QObject* parent, const char* widgetName, const char* whatsThis);

    // Registers the task menu with Qt Designer, the first time.
    template <class WidgetType, class TaskMenuType>
    void initializeWithTaskMenu(QDesignerFormEditorInterface* formEditor) {
        if (m_initialized)
            return;
        QExtensionManager* manager = formEditor->extensionManager();
        Q_ASSERT(manager != 0);
        if (manager)
            manager->registerExtensions(new ValueManagerTaskMenuFactoryBase<WidgetType, TaskMenuType>(manager),
                                        Q_TYPEID(QDesignerTaskMenuExtension));
        m_initialized = true;
    }

private:
    QIcon m_icon;
    bool m_container;
    bool m_initialized = false;
    QString m_domXML;
    QString m_toolTip;
    QString m_whatsThis;
    QString m_groupName;
    QString m_widgetName;
    QString m_includeFile;
};

#endif
