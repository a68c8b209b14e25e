#include "valuemanager/NumericPlugin/ValManNumericPlugin.h"

#include "valuemanager/NumericPlugin/ValManNumericTaskMenu.h"
#include "valuemanager/NumericPlugin/ValManNumericWidget.h"

ValManNumericPlugin::ValManNumericPlugin(QObject* parent)
    : ValueManagerPluginBase(parent, "ValManNumericWidget",
                             "ValManNumericWidget is used to display the value of Numeric variable, and provide "
                             "interaction through a text input box.") {}

QWidget* ValManNumericPlugin::createWidget(QWidget* parent) {
    return new ValManNumericWidget(parent);
}

QIcon ValManNumericPlugin::icon() const {
    return QIcon(QStringLiteral(":resources/valmannumericwidget.png"));
}

void ValManNumericPlugin::initialize(QDesignerFormEditorInterface* formEditor) {
    initializeWithTaskMenu<ValManNumericWidget, ValManNumericTaskMenu>(formEditor);
}
