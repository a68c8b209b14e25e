#include "valuemanager/ValManOK/ValManOKPlugin.h"

#include "valuemanager/ValManOK/ValManOKWidget.h"

ValManOKPlugin::ValManOKPlugin(QObject* parent)
    : ValueManagerPluginBase(
          parent, "ValManOKWidget",
          "ValManOKWidget is used to set an event if the event name has been specified and commit values to ostrel ") {}

QWidget* ValManOKPlugin::createWidget(QWidget* parent) {
    return new ValManOKWidget(parent);
}

QIcon ValManOKPlugin::icon() const {
    return QIcon(QStringLiteral(":resources/valmanokwidget.png"));
}
