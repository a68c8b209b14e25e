#include "widgets/zelgroupplugin.h"

#include "widgets/zelgroupwidget.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelGroup",
    .icon = "zelgroup",
    .includeFile = "zelgroupwidget",
    .presets = {nameNotSet},
    .ending = WidgetDescription::Ending::Grid,
    .container = true,
};

}  // namespace

ZelGroupPlugin::ZelGroupPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelGroupPlugin::createWidget(QWidget* parent) {
    return new ZelGroup(parent);
}
