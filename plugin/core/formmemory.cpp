#include "core/formmemory.h"

#include <ostrel-display/uifilewriter.h>

#include <QAction>
#include <QCoreApplication>
#include <QWidget>

#include "hostlink/formwriter.h"
#include "hostlink/globals.h"
#include "properties/mycontroller.h"

FormMemory::FormMemory(QWidget* widget, const char* className)
    : m_widget(widget), m_className(QLatin1String(className)) {
    ensureFormWriter();
}

void FormMemory::remember(const char* property, const QVariant& value) const {
    writer->cacheProperty(m_className, m_widget->objectName(), QLatin1String(property), value, m_isOpened);
}

void FormMemory::rememberLive(const char* property, const QVariant& value) const {
    if (m_isOpened)
        remember(property, value);
}

void FormMemory::rememberFontLive(const char* property, const QFont& font) const {
    if (m_isOpened)
        writer->cachePropertyFont(m_className, m_widget->objectName(), QLatin1String(property), font, m_isOpened);
}

QAction* FormMemory::addMenuEntry(const char* slot) const {
    auto* action = new QAction(QCoreApplication::translate("FormMemory", "Edit Properties"), m_widget);
    QObject::connect(action, SIGNAL(triggered()), m_widget, slot);
    m_widget->addAction(action);
    m_widget->setContextMenuPolicy(Qt::ActionsContextMenu);
    return action;
}

void FormMemory::editProperties() {
    auto* dialog = new MyController(m_widget, m_className, false);
    m_isOpened = true;
    dialog->show();
}
