#include "widgets/zelvariableplugin.h"

#include "widgets/zelvariablewidget.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelVariable",
    .icon = nullptr,
    .includeFile = "zelvariablewidget",
};

}  // namespace

ZelVariablePlugin::ZelVariablePlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelVariablePlugin::createWidget(QWidget* parent) {
    return new ZelVariable(QT_OSTREL_REAL_INTEGER, parent, false, true);
}
