#include "designer/widgetplugin.h"

#include <QIcon>

namespace {

const char* formText(WidgetDescription::Form form) {
    switch (form) {
        case WidgetDescription::Form::Named:
            return "<widget class=\"%1\" name=\"%1\">\n<property name=\"name\">\n<string>not_set</string>\n"
                   "</property>\n</widget>\n";
        case WidgetDescription::Form::NamedCompact:
            return "<widget class=\"%1\" name=\"%1\">\n<property name=\"name\">\n<string>not_set</string>\n"
                   "</property></widget>\n";
        case WidgetDescription::Form::Container:
            return "<widget class=\"%1\" name=\"%1\">\n<property name=\"name\">\n<string>not_set</string>\n"
                   "</property>\n<layout class=\"QGridLayout\" name=\"gridLayout\">\n</layout>\n</widget>";
        case WidgetDescription::Form::Plain:
            break;
    }
    return "<widget class=\"%1\" name=\"%1\">\n</widget>\n";
}

}  // namespace

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
    return QString::fromLatin1(formText(m_description.form)).arg(name());
}

QString WidgetPlugin::group() const {
    return QStringLiteral("Ostrel");
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
