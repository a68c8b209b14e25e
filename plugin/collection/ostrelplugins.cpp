#include "collection/ostrelplugins.h"

#include "widgets/zelvalueplugin.h"

OstrelPlugins::OstrelPlugins(QObject* parent) : QObject(parent) {
    m_widgets.append(new ZelValuePlugin(this));
}

OstrelPlugins::~OstrelPlugins() {
    qDeleteAll(m_widgets);
}

QList<QDesignerCustomWidgetInterface*> OstrelPlugins::customWidgets() const {
    return m_widgets;
}
