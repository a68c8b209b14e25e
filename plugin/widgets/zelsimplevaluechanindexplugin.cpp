#include "widgets/zelsimplevaluechanindexplugin.h"

#include "widgets/zel_simplevaluechanindex.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelSimpleValueChanIndex",
    .icon = "zelchannelindex",
    .includeFile = "zel_simplevaluechanindex",
    .form = WidgetDescription::Form::Plain,
};

}  // namespace

ZelSimpleValueChanIndexPlugin::ZelSimpleValueChanIndexPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QString ZelSimpleValueChanIndexPlugin::domXml() const {
    return QStringLiteral(
        "<widget class=\"ZelSimpleValueChanIndex\" name=\"ZelSimpleValueChanIndex\">\n<property name=\"memCode\">\n"
        "<number>6</number>\n</property>\n<property name=\"memIndex\">\n<number>1</number>\n</property>\n</widget>\n");
}

QWidget* ZelSimpleValueChanIndexPlugin::createWidget(QWidget* parent) {
    return new ZelSimpleValueChanIndex(parent);
}

ZelHorizontalChanIndexPlugin::ZelHorizontalChanIndexPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QString ZelHorizontalChanIndexPlugin::domXml() const {
    return QStringLiteral(
        "<widget class=\"ZelSimpleValueChanIndex\" name=\"ZelSimpleValueChanIndexH\">\n<property name=\"memCode\">\n"
        "<number>6</number>\n</property>\n<property name=\"memIndex\">\n<number>1</number>\n</property>\n"
        "<property name=\"horizontal\">\n<bool>true</bool>\n</property>\n</widget>\n");
}

QWidget* ZelHorizontalChanIndexPlugin::createWidget(QWidget* parent) {
    return new ZelSimpleValueChanIndex(parent);
}
