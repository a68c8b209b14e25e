#include "widgets/zelsimplelogicalplugin.h"

#include "widgets/zel_simplelogical.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelSimpleLogical",
    .icon = "zelsimplelogical",
    .includeFile = "zel_simplelogical",
    .presets = {nameNotSet},
    .ending = WidgetDescription::Ending::Compact,
};

}  // namespace

ZelSimpleLogicalPlugin::ZelSimpleLogicalPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelSimpleLogicalPlugin::createWidget(QWidget* parent) {
    return new ZelSimpleLogical(parent);
}
