#include "designer/widgetplugin.h"

#include <QIcon>

QString formText(const WidgetDescription& description) {
    const char* const objectName = description.objectName ? description.objectName : description.name;
    QString text = QStringLiteral("<widget class=\"%1\" name=\"%2\">\n")
                       .arg(QLatin1String(description.name), QLatin1String(objectName));
    for (const PresetProperty& preset : description.presets) {
        if (!preset.name)
            break;
        text += QStringLiteral("<property name=\"%1\">\n<%2>%3</%2>\n</property>\n")
                    .arg(QLatin1String(preset.name), QLatin1String(preset.type), QLatin1String(preset.value));
    }
    switch (description.ending) {
        case WidgetDescription::Ending::Lines:
            return text + QStringLiteral("</widget>\n");
        case WidgetDescription::Ending::Compact:
            text.chop(1);
            return text + QStringLiteral("</widget>\n");
        case WidgetDescription::Ending::Grid:
            return text + QStringLiteral("<layout class=\"QGridLayout\" name=\"gridLayout\">\n</layout>\n</widget>");
    }
    return text;
}

WidgetPlugin::WidgetPlugin(const WidgetDescription& description, QObject* parent)
    : QObject(parent), m_description(description) {}

bool WidgetPlugin::isContainer() const {
    return m_description.container;
}

bool WidgetPlugin::isInitialized() const {
    return m_initialized;
}

QIcon WidgetPlugin::icon() const {
    if (!m_description.icon)
        return QIcon();
    return QIcon(QStringLiteral(":resources/%1.png").arg(QLatin1String(m_description.icon)));
}

QString WidgetPlugin::domXml() const {
    return formText(m_description);
}

QString WidgetPlugin::group() const {
    return QLatin1String(m_description.group);
}

QString WidgetPlugin::includeFile() const {
    return QLatin1String(m_description.includeFile) + QLatin1String(".h");
}

QString WidgetPlugin::name() const {
    return QLatin1String(m_description.name);
}

QString WidgetPlugin::toolTip() const {
    return QLatin1String(m_description.toolTip);
}

QString WidgetPlugin::whatsThis() const {
    return QLatin1String(m_description.whatsThis);
}

void WidgetPlugin::initialize(QDesignerFormEditorInterface*) {
    m_initialized = true;
}
