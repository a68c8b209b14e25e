#include "widgets/zelsimplevaluechanindexplugin.h"

#include "widgets/zel_simplevaluechanindex.h"

namespace {

constexpr PresetProperty firstInput{"memCode", "number", "6"};
constexpr PresetProperty firstChannel{"memIndex", "number", "1"};

constexpr WidgetDescription description{
    .name = "ZelSimpleValueChanIndex",
    .icon = "zelchannelindex",
    .includeFile = "zel_simplevaluechanindex",
    .presets = {firstInput, firstChannel},
};

constexpr WidgetDescription horizontalDescription{
    .name = "ZelSimpleValueChanIndex",
    .icon = "zelchannelindex",
    .includeFile = "zel_simplevaluechanindex",
    .objectName = "ZelSimpleValueChanIndexH",
    .presets = {firstInput, firstChannel, {"horizontal", "bool", "true"}},
};

}  // namespace

ZelSimpleValueChanIndexPlugin::ZelSimpleValueChanIndexPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelSimpleValueChanIndexPlugin::createWidget(QWidget* parent) {
    return new ZelSimpleValueChanIndex(parent);
}

ZelHorizontalChanIndexPlugin::ZelHorizontalChanIndexPlugin(QObject* parent)
    : WidgetPlugin(horizontalDescription, parent) {}

QWidget* ZelHorizontalChanIndexPlugin::createWidget(QWidget* parent) {
    return new ZelSimpleValueChanIndex(parent);
}
