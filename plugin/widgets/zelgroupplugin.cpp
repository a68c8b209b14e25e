#include "widgets/zelgroupplugin.h"

#include "widgets/zelgroupwidget.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelGroup",
    .icon = "zelgroup",
    .includeFile = "zelgroupwidget",
    .form = WidgetDescription::Form::Container,
    .container = true,
};

}  // namespace

ZelGroupPlugin::ZelGroupPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelGroupPlugin::createWidget(QWidget* parent) {
    return new ZelGroup(parent);
}
