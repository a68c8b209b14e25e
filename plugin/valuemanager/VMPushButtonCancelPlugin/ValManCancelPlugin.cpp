#include "valuemanager/VMPushButtonCancelPlugin/ValManCancelPlugin.h"

#include "valuemanager/VMPushButtonCancelPlugin/ValManCancelWidget.h"

ValManCancelPlugin::ValManCancelPlugin(QObject* parent)
    : ValueManagerPluginBase(parent, "ValManCancelWidget",
                             "ValManCancelWidget is used to exit the value manager dialog and set a specified event") {}

QWidget* ValManCancelPlugin::createWidget(QWidget* parent) {
    return new ValManCancelWidget(parent);
}

QIcon ValManCancelPlugin::icon() const {
    return QIcon(QStringLiteral(":resources/valmancancelwidget.png"));
}
