#include "widgets/zeleventbuttonplugin.h"

#include "widgets/zel_eventbutton.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelEventButton",
    .icon = "zelcmdeventbutton",
    .includeFile = "zel_eventbutton",
};

}  // namespace

ZelEventButtonPlugin::ZelEventButtonPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelEventButtonPlugin::createWidget(QWidget* parent) {
    return new ZelEventButton(parent);
}
