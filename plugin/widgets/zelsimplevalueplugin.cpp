#include "widgets/zelsimplevalueplugin.h"

#include "widgets/zel_simplevalue.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelSimpleValue",
    .icon = "zelsimplevalue",
    .includeFile = "zel_simplevalue",
    .presets = {nameNotSet},
    .ending = WidgetDescription::Ending::Compact,
};

constexpr WidgetDescription horizontalDescription{
    .name = "ZelSimpleValue",
    .icon = "zelsimplevalue",
    .includeFile = "zel_simplevalue",
    .objectName = "ZelSimpleValueH",
    .presets = {nameNotSet, {"horizontal", "bool", "true"}},
};

}  // namespace

ZelSimpleValuePlugin::ZelSimpleValuePlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelSimpleValuePlugin::createWidget(QWidget* parent) {
    return new ZelSimpleValue(parent);
}

ZelHorizontalValuePlugin::ZelHorizontalValuePlugin(QObject* parent) : WidgetPlugin(horizontalDescription, parent) {}

QWidget* ZelHorizontalValuePlugin::createWidget(QWidget* parent) {
    return new ZelSimpleValue(parent);
}
