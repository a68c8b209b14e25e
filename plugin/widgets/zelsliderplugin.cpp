#include "widgets/zelsliderplugin.h"

#include <QLabel>

#include "hostlink/globals.h"
#include "widgets/zel_slider.h"

namespace {

constexpr WidgetDescription description{
    .name = "ZelSlider",
    .icon = "zelslider",
    .includeFile = "zel_slider",
    .presets = {nameNotSet},
    .ending = WidgetDescription::Ending::Compact,
    .toolTip = "ZelSlider is used with Real and Interger Variables.",
};

// Kept: it speaks of another widget, and belongs to nobody but the caller.
QWidget* remoteMessage() {
    auto* label = new QLabel;
    label->setText(ZelSlider::tr("Strip Chart does not work remotely"));
    QFont font = label->font();
    font.setPointSize(12);
    label->setFont(font);
    return label;
}

}  // namespace

ZelSliderPlugin::ZelSliderPlugin(QObject* parent) : WidgetPlugin(description, parent) {}

QWidget* ZelSliderPlugin::createWidget(QWidget* parent) {
    if (RemoteDisplay)
        return remoteMessage();
    return new ZelSlider(parent);
}
