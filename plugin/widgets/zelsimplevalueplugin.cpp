#include "widgets/zelsimplevalueplugin.h"

#include "widgets/zel_simplevalue.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelSimpleValue",
    .icon = "zelsimplevalue",
    .includeFile = "zel_simplevalue",
    .form = WidgetDescription::Form::NamedCompact,
};

}  // namespace

ZelSimpleValuePlugin::ZelSimpleValuePlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelSimpleValuePlugin::createWidget(QWidget* parent) {
    return new ZelSimpleValue(parent);
}

ZelHorizontalValuePlugin::ZelHorizontalValuePlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QString ZelHorizontalValuePlugin::domXml() const {
    return QStringLiteral(
        "<widget class=\"ZelSimpleValue\" name=\"ZelSimpleValueH\">\n<property "
        "name=\"name\">\n<string>not_set</string>\n"
        "</property>\n<property name=\"horizontal\">\n<bool>true</bool>\n</property>\n</widget>\n");
}

QWidget* ZelHorizontalValuePlugin::createWidget(QWidget* parent) {
    return new ZelSimpleValue(parent);
}
