#include "collection/ostrelplugins.h"

#include "valuemanager/ComboBoxPlugin/ValManComboBoxPlugin.h"
#include "valuemanager/FilePlugin/ValManFilePlugin.h"
#include "valuemanager/LogicalPlugin/ValManLogicalPlugin.h"
#include "valuemanager/NumericPlugin/ValManNumericPlugin.h"
#include "valuemanager/StringPlugin/ValManStringPlugin.h"
#include "valuemanager/VMPushButtonCancelPlugin/ValManCancelPlugin.h"
#include "valuemanager/ValManOK/ValManOKPlugin.h"
#include "widgets/dialgaugeplugin.h"
#include "widgets/zel_stringplugin.h"
#include "widgets/zelcmdbuttonplugin.h"
#include "widgets/zelcmdlineplugin.h"
#include "widgets/zeleventbuttonplugin.h"
#include "widgets/zelgroupplugin.h"
#include "widgets/zelgroupplugin_fl.h"
#include "widgets/zelledplugin.h"
#include "widgets/zelpushbuttonplugin.h"
#include "widgets/zelsimplevaluechanindexplugin.h"
#include "widgets/zelsimplevalueplugin.h"
#include "widgets/zelsimplevalueplugin_fl.h"
#include "widgets/zelsliderplugin.h"
#include "widgets/zeltailplugin.h"
#include "widgets/zeltogglebuttonplugin.h"
#include "widgets/zelvalueplugin.h"

OstrelPlugins::OstrelPlugins(QObject* parent) : QObject(parent) {
    m_widgets.append(new ValManFilePlugin(this));
    m_widgets.append(new ValManStringPlugin(this));
    m_widgets.append(new ValManLogicalPlugin(this));
    m_widgets.append(new ValManComboBoxPlugin(this));
    m_widgets.append(new ValManNumericPlugin(this));
    m_widgets.append(new ValManOKPlugin(this));
    m_widgets.append(new ValManCancelPlugin(this));
    m_widgets.append(new ZelValuePlugin(this));
    m_widgets.append(new ZelHorizontalValuePlugin(this));
    m_widgets.append(new ZelLedPlugin(this));
    m_widgets.append(new ZelTailPlugin(this));
    m_widgets.append(new dialgaugePlugin(this));
    m_widgets.append(new ZelCmdLinePlugin(this));
    m_widgets.append(new zel_stringPlugin(this));
    m_widgets.append(new ZelSliderPlugin(this));
    m_widgets.append(new ZelSimpleValuePlugin(this));
    m_widgets.append(new ZelSimpleValuePlugin_fl(this));
    m_widgets.append(new ZelSimpleValueChanIndexPlugin(this));
    m_widgets.append(new ZelPushButtonPlugin(this));
    m_widgets.append(new ZelToggleButtonPlugin(this));
    m_widgets.append(new ZelGroupPlugin(this));
    m_widgets.append(new ZelGroupPlugin_fl(this));
    m_widgets.append(new ZelCmdButtonPlugin(this));
    m_widgets.append(new ZelEventButtonPlugin(this));
}

OstrelPlugins::~OstrelPlugins() {
    qDeleteAll(m_widgets);
}

QList<QDesignerCustomWidgetInterface*> OstrelPlugins::customWidgets() const {
    return m_widgets;
}
