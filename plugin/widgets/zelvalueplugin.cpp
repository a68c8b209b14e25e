#include "widgets/zelvalueplugin.h"

#include "widgets/zel_value.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelValue",
    .icon = "zelvalue",
    .includeFile = "zel_value",
    .presets = {nameNotSet},
    .toolTip = "ZelValue: Used to display, monitor, and modify Ostrel Real and Integer variables.",
    .whatsThis = "ZelValue is used to display Ostrel Real,Integer and Logical Variables",
};

}  // namespace

ZelValuePlugin::ZelValuePlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelValuePlugin::createWidget(QWidget* parent) {
    return new ZelValue(parent);
}
