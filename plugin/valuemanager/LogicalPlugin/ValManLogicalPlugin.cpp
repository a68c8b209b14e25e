#include "valuemanager/LogicalPlugin/ValManLogicalPlugin.h"

#include "valuemanager/LogicalPlugin/ValManLogicalTaskMenu.h"
#include "valuemanager/LogicalPlugin/ValManLogicalWidget.h"

ValManLogicalPlugin::ValManLogicalPlugin(QObject* parent)
    : ValueManagerPluginBase(parent, "ValManLogicalWidget",
                             "ValManLogicalWidget is used to display the value of logical variable, and provide "
                             "interaction through a checkbox.") {}

QWidget* ValManLogicalPlugin::createWidget(QWidget* parent) {
    return new ValManLogicalWidget(parent);
}

QIcon ValManLogicalPlugin::icon() const {
    return QIcon(QStringLiteral(":resources/valmanlogicalwidget.png"));
}

void ValManLogicalPlugin::initialize(QDesignerFormEditorInterface* formEditor) {
    initializeWithTaskMenu<ValManLogicalWidget, ValManLogicalTaskMenu>(formEditor);
}
