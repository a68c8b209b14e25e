#include "widgets/zelledplugin.h"

#include "widgets/ledwidget.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelLed",
    .icon = "zelled",
    .includeFile = "ledwidget",
    .presets = {nameNotSet},
    .ending = WidgetDescription::Ending::Compact,
};

}  // namespace

ZelLedPlugin::ZelLedPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelLedPlugin::createWidget(QWidget* parent) {
    return new ZelLed(parent);
}
