#include "fabric/timerwidgetplugin.h"

#include "fabric/timermoderator.h"

namespace {

constexpr WidgetDescription description{
    .name = "TimerModerator",
    .icon = nullptr,
    .includeFile = "stripchartwidget",
    .objectName = "timerModerator",
    .whatsThis = "Timer that other widgets attach to",
};

}  // namespace

TimerWidgetPlugin::TimerWidgetPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* TimerWidgetPlugin::createWidget(QWidget* parent) {
    return new TimerModerator(parent);
}
