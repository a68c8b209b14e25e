#include "widgets/zel_stringplugin.h"

#include "widgets/zelstring.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelString",
    .icon = "zelstring",
    .includeFile = "zelstring",
    .presets = {nameNotSet},
    .ending = WidgetDescription::Ending::Compact,
    .whatsThis = "ZelString is used to display Ostrel String Variables",
};

}  // namespace

zel_stringPlugin::zel_stringPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* zel_stringPlugin::createWidget(QWidget* parent) {
    return new ZelString(parent);
}
