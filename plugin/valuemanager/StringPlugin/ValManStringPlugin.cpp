#include "valuemanager/StringPlugin/ValManStringPlugin.h"

#include "valuemanager/StringPlugin/ValManStringTaskMenu.h"
#include "valuemanager/StringPlugin/ValManStringWidget.h"

ValManStringPlugin::ValManStringPlugin(QObject* parent)
    : ValueManagerPluginBase(parent, "ValManStringWidget",
                             "ValManStringWidget is used to display the value of String variable, and provide "
                             "interaction through a checkbox.") {}

QWidget* ValManStringPlugin::createWidget(QWidget* parent) {
    return new ValManStringWidget(parent);
}

QIcon ValManStringPlugin::icon() const {
    return QIcon(QStringLiteral(":resources/valmanstringwidget.png"));
}

void ValManStringPlugin::initialize(QDesignerFormEditorInterface* formEditor) {
    initializeWithTaskMenu<ValManStringWidget, ValManStringTaskMenu>(formEditor);
}
