#include "widgets/zelgroupplugin_fl.h"

#include "widgets/zelgroupwidget_fl.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelGroup_fl",
    .icon = "zelgroup",
    .includeFile = "zelgroupwidget_fl",
    .presets = {nameNotSet},
    .ending = WidgetDescription::Ending::Grid,
    .container = true,
};

}  // namespace

ZelGroupPlugin_fl::ZelGroupPlugin_fl(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelGroupPlugin_fl::createWidget(QWidget* parent) {
    return new ZelGroup_fl(parent);
}
