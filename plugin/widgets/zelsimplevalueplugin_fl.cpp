#include "widgets/zelsimplevalueplugin_fl.h"

#include "widgets/zel_simplevalue_fl.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelSimpleValue_fl",
    .icon = "zelsimplevalue",
    .includeFile = "zel_simplevalue_fl",
    .presets = {nameNotSet},
    .ending = WidgetDescription::Ending::Compact,
};

constexpr WidgetDescription horizontalDescription{
    .name = "ZelSimpleValue_fl",
    .icon = "zelsimplevalue",
    .includeFile = "zel_simplevalue_fl",
    .objectName = "ZelSimpleValueH_fl",
    .presets = {nameNotSet, {"horizontal", "bool", "true"}},
};

}  // namespace

ZelSimpleValuePlugin_fl::ZelSimpleValuePlugin_fl(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelSimpleValuePlugin_fl::createWidget(QWidget* parent) {
    auto* widget = new ZelSimpleValue_fl(parent);
    // A value that is dropped into a group writes in the group's colour.
    if (parent && QLatin1String(parent->metaObject()->className()).contains(QLatin1String("ZelGroup"))) {
        const QColor color = parent->palette().text().color();
        widget->setColor(color);
        widget->setNameColor(color);
    }
    return widget;
}

ZelHorizontalValuePlugin_fl::ZelHorizontalValuePlugin_fl(QObject* parent)
    : WidgetPlugin(horizontalDescription, parent) {}

QWidget* ZelHorizontalValuePlugin_fl::createWidget(QWidget* parent) {
    return new ZelSimpleValue_fl(parent);
}
