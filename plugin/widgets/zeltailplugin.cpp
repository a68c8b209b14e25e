#include "widgets/zeltailplugin.h"

#include "widgets/opntailwidget.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelTail",
    .icon = "zeltail",
    .includeFile = "opntailwidget",
    .presets = {nameNotSet},
    .ending = WidgetDescription::Ending::Compact,
};

}  // namespace

ZelTailPlugin::ZelTailPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelTailPlugin::createWidget(QWidget* parent) {
    return new ZelTail(parent);
}
