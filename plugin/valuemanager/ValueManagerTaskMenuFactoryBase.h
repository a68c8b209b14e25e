// Gives each editor on a form in Qt Designer its task menu.
#ifndef OSTREL_VALUEMANAGER_VALUEMANAGERTASKMENUFACTORYBASE_H
#define OSTREL_VALUEMANAGER_VALUEMANAGERTASKMENUFACTORYBASE_H

#include <QDesignerTaskMenuExtension>
#include <QExtensionFactory>
#include <QExtensionManager>

// It belongs to the manager, with which it has to be registered.
template <class WidgetType, class TaskMenuType>
class ValueManagerTaskMenuFactoryBase : public QExtensionFactory {
public:
    explicit ValueManagerTaskMenuFactoryBase(QExtensionManager* manager) : QExtensionFactory(manager) {}

protected:
    QObject* createExtension(QObject* object, const QString& iid, QObject* parent) const override {
        if (iid != Q_TYPEID(QDesignerTaskMenuExtension))
            return nullptr;
        auto* widget = qobject_cast<WidgetType*>(object);
        return widget ? new TaskMenuType(widget, parent) : nullptr;
    }
};

#endif
