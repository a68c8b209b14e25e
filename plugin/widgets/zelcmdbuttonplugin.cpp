#include "widgets/zelcmdbuttonplugin.h"

#include "widgets/zel_cmdbutton.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelCmdButton",
    .icon = "zelcmdbutton",
    .includeFile = "zel_cmdbutton",
};

}  // namespace

ZelCmdButtonPlugin::ZelCmdButtonPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelCmdButtonPlugin::createWidget(QWidget* parent) {
    return new ZelCmdButton(parent);
}
