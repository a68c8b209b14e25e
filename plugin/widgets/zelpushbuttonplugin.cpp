#include "widgets/zelpushbuttonplugin.h"

#include "widgets/zel_pushbutton.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelPushButton",
    .icon = "zelpushbutton",
    .includeFile = "zel_pushbutton",
    .presets = {nameNotSet},
    .ending = WidgetDescription::Ending::Compact,
};

}  // namespace

ZelPushButtonPlugin::ZelPushButtonPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelPushButtonPlugin::createWidget(QWidget* parent) {
    return new ZelPushButton(parent);
}
