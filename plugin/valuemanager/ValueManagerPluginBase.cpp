#include "valuemanager/ValueManagerPluginBase.h"

#include "designer/widgetplugin.h"
#include "valuemanager/ValueManagerWidgetBase.h"

ValueManagerPluginBase::ValueManagerPluginBase(QObject* parent, QString domString, QString includeString, QString name,
                                               QString whatsThis, QString group, QString toolTip, QIcon widgetIcon,
                                               bool widgetIsContainer)
    : QObject(parent),
      m_icon(widgetIcon),
      m_container(widgetIsContainer),
      m_domXML(domString),
      m_toolTip(toolTip),
      m_whatsThis(whatsThis),
      m_groupName(group),
      m_widgetName(name),
      m_includeFile(includeString) {}

ValueManagerPluginBase::ValueManagerPluginBase(QObject* parent, const char* widgetName, const char* whatsThis)
    : ValueManagerPluginBase(parent, formText({.name = widgetName, .icon = nullptr, .includeFile = nullptr}),
                             QLatin1String(widgetName) + QLatin1String(".h"), QLatin1String(widgetName),
                             QLatin1String(whatsThis), QStringLiteral("ValueManager"),
                             QStringLiteral("A ValueManager widget"), QIcon(), false) {}

QString ValueManagerPluginBase::domXml() const {
    return m_domXML;
}

QString ValueManagerPluginBase::includeFile() const {
    return m_includeFile;
}

QString ValueManagerPluginBase::name() const {
    return m_widgetName;
}

QString ValueManagerPluginBase::whatsThis() const {
    return m_whatsThis;
}

QWidget* ValueManagerPluginBase::createWidget(QWidget* parent) {
    return new ValueManagerWidgetBase(parent, false);
}

QString ValueManagerPluginBase::group() const {
    return m_groupName;
}

QIcon ValueManagerPluginBase::icon() const {
    return m_icon;
}

QString ValueManagerPluginBase::toolTip() const {
    return m_toolTip;
}

bool ValueManagerPluginBase::isContainer() const {
    return m_container;
}

bool ValueManagerPluginBase::isInitialized() const {
    return m_initialized;
}

void ValueManagerPluginBase::initialize(QDesignerFormEditorInterface*) {
    m_initialized = true;
}
