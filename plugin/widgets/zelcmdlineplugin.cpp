#include "widgets/zelcmdlineplugin.h"

#include "widgets/cmdlinewidget.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelCmdLine",
    .icon = "cmdline",
    .includeFile = "cmdlinewidget",
    .presets = {PresetProperty{"shortcutEnabled", "bool", "true"}, PresetProperty{"saveHistory", "bool", "true"}},
};

}  // namespace

ZelCmdLinePlugin::ZelCmdLinePlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelCmdLinePlugin::createWidget(QWidget* parent) {
    return new ZelCmdLine(parent);
}
