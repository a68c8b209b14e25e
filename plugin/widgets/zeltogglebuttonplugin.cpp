#include "widgets/zeltogglebuttonplugin.h"

#include "widgets/ZelToggleButton.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelToggleButton",
    .icon = "zeltogglebutton",
    .includeFile = "ZelToggleButton",
    .presets = {nameNotSet},
    .ending = WidgetDescription::Ending::Compact,
};

}  // namespace

ZelToggleButtonPlugin::ZelToggleButtonPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelToggleButtonPlugin::createWidget(QWidget* parent) {
    return new ZelToggleButton(parent);
}
