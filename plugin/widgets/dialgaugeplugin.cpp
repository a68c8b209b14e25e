#include "widgets/dialgaugeplugin.h"

#include "widgets/dialgauge.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelDialGauge",
    .icon = "zeldialgauge",
    .includeFile = "dialgauge",
    .objectName = "dialgauge",
    .presets = {nameNotSet},
    .ending = WidgetDescription::Ending::Compact,
};

}  // namespace

dialgaugePlugin::dialgaugePlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* dialgaugePlugin::createWidget(QWidget* parent) {
    return new ZelDialGauge(parent);
}
