#include "valuemanager/FilePlugin/ValManFilePlugin.h"

#include "valuemanager/FilePlugin/ValManFileTaskMenu.h"
#include "valuemanager/FilePlugin/ValManFileWidget.h"

ValManFilePlugin::ValManFilePlugin(QObject* parent)
    : ValueManagerPluginBase(parent, "ValManFileWidget",
                             "ValManFileWidget is used to display the value of a string variable and select new values "
                             "through a file browser") {}

QWidget* ValManFilePlugin::createWidget(QWidget* parent) {
    return new ValManFileWidget(parent);
}

QIcon ValManFilePlugin::icon() const {
    return QIcon(QStringLiteral(":resources/valmanfilewidget.png"));
}

void ValManFilePlugin::initialize(QDesignerFormEditorInterface* formEditor) {
    initializeWithTaskMenu<ValManFileWidget, ValManFileTaskMenu>(formEditor);
}
