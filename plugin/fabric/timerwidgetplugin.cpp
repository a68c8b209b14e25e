#include "fabric/timerwidgetplugin.h"

#include "fabric/timermoderator.h"

namespace {

constexpr WidgetDescription description{
    .name = "TimerModerator",
    .icon = nullptr,
    .includeFile = "stripchartwidget",
    .form = WidgetDescription::Form::Plain,
    .whatsThis = "Timer that other widgets attach to",
};

}  // namespace

TimerWidgetPlugin::TimerWidgetPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QString TimerWidgetPlugin::domXml() const {
    return QStringLiteral("<widget class=\"TimerModerator\" name=\"timerModerator\">\n</widget>\n");
}

QWidget* TimerWidgetPlugin::createWidget(QWidget* parent) {
    return new TimerModerator(parent);
}
