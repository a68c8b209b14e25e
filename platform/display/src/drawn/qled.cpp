#include <ostrel-display/qled.h>

#include <QAccessible>
#include <QEvent>
#include <QMetaEnum>
#include <QPainter>
#include <array>

#include "drawn/accessibledrawing.h"
#include "drawn/contrast.h"
#include "drawn/svgskin.h"

namespace {

// A shining lamp's light and middle, a dark one's ring and ground. They are chosen so that any colour shines brighter
// than any other is dark.
struct LampColours {
    QRgb light;
    QRgb middle;
    QRgb ring;
    QRgb ground;
};

constexpr std::array<LampColours, 7> lampColours{{
    {0xffff3b30, 0xffffd2cc, 0xffcf3127, 0xff2f0d0b},  // Red
    {0xff00d45a, 0xffc9ffdd, 0xff17924a, 0xff082614},  // Green
    {0xffffd60a, 0xfffff6c4, 0xff9c8100, 0xff2b2400},  // Yellow
    {0xffd5dade, 0xffffffff, 0xff7f868c, 0xff1d2023},  // Grey
    {0xffff8c1a, 0xffffe2c4, 0xffb45e0e, 0xff2e1805},  // Orange
    {0xffc46bff, 0xfff0dcff, 0xff8a43bd, 0xff200c2e},  // Purple
    {0xff3d8bff, 0xffd3e5ff, 0xff2a66c8, 0xff0a1a36},  // Blue
}};

constexpr std::array<const char*, 7> shapeNames{"circle",     "square",      "triangle",   "rounded",
                                                "triangle90", "triangle180", "triangle270"};

// The colours of led.svg that a lamp replaces.
constexpr QRgb lightKey = 0xff00c853;
constexpr QRgb middleKey = 0xffb9f6ca;
constexpr QRgb ringKey = 0xff1b7a3d;
constexpr QRgb groundKey = 0xff0c2a17;
constexpr QRgb rimKey = 0xff3a3f44;

constexpr QRgb darkRim = 0xff3a3f44;
constexpr QRgb lightRim = 0xffb4babf;

// What a disabled lamp loses of its hue, and how much of it is seen.
constexpr double disabledGreyness = 0.6;
constexpr double disabledOpacity = 0.6;

template <class Numbers>
bool isOneOf(const Numbers& known, int number) {
    return number >= 0 && number < int(known.size());
}

const SvgSkin& skin() {
    static const SvgSkin lamp(QStringLiteral(":/ostrel/display/led.svg"));
    return lamp;
}

QAccessibleInterface* accessibleLed(const QString& className, QObject* object) {
    auto* led = className == QLatin1String("QLed") ? qobject_cast<QLed*>(object) : nullptr;
    if (!led)
        return nullptr;
    return new AccessibleDrawing(led, QAccessible::Indicator, [led] {
        SpokenDrawing speech;
        speech.name = QLed::tr("Lamp");
        speech.value = led->value() ? QLed::tr("on") : QLed::tr("off");
        const auto colour = led->value() ? led->onColor() : led->offColor();
        speech.description = QLatin1String(QMetaEnum::fromType<QLed::ledColor>().valueToKey(colour));
        speech.checked = led->value();
        return speech;
    });
}

}  // namespace

struct Q_DECL_HIDDEN QLed::Private {
    bool value = false;
    ledColor onColor = Green;
    ledColor offColor = Red;
    ledShape shape = Circle;
};

QLed::QLed(QWidget* parent) : QWidget(parent), d(std::make_unique<Private>()) {
    static const AccessibleFactory factory(accessibleLed);
}

QLed::~QLed() = default;

bool QLed::value() const {
    return d->value;
}

QLed::ledColor QLed::onColor() const {
    return d->onColor;
}

QLed::ledColor QLed::offColor() const {
    return d->offColor;
}

QLed::ledShape QLed::shape() const {
    return d->shape;
}

QSize QLed::sizeHint() const {
    const int side = fontMetrics().height() * 3 / 2;
    return {side, side};
}

QSize QLed::minimumSizeHint() const {
    return {12, 12};
}

void QLed::setValue(bool value) {
    if (value == d->value)
        return;
    d->value = value;
    update();
    if (QAccessible::isActive()) {
        QAccessible::State changed;
        changed.checked = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }
}

void QLed::setOnColor(ledColor color) {
    if (color == d->onColor || !isOneOf(lampColours, color))
        return;
    d->onColor = color;
    if (d->value)
        update();
}

void QLed::setOffColor(ledColor color) {
    if (color == d->offColor || !isOneOf(lampColours, color))
        return;
    d->offColor = color;
    if (!d->value)
        update();
}

void QLed::setShape(ledShape shape) {
    if (shape == d->shape || !isOneOf(shapeNames, shape))
        return;
    d->shape = shape;
    update();
}

void QLed::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const LampColours& colours = lampColours[size_t(d->value ? d->onColor : d->offColor)];
    const auto shown = [this](QRgb colour) {
        return isEnabled() ? colour : mixed(colour, withoutHue(colour), disabledGreyness).rgb();
    };
    // The rim is what stands out from the window around it.
    const QRgb rim = isDark(palette().color(QPalette::Window)) ? lightRim : darkRim;
    const QString element =
        QLatin1String(shapeNames[size_t(d->shape)]) + (d->value ? QStringLiteral("-on") : QStringLiteral("-off"));
    const int side = std::min(width(), height());
    const QPixmap lamp = skin().pixmap(element, QSize(side, side), pixelRatio(painter),
                                       {{lightKey, shown(colours.light)},
                                        {middleKey, shown(colours.middle)},
                                        {ringKey, shown(colours.ring)},
                                        {groundKey, shown(colours.ground)},
                                        {rimKey, rim}});
    painter.setOpacity(isEnabled() ? 1.0 : disabledOpacity);
    painter.drawPixmap((width() - side) / 2, (height() - side) / 2, lamp);
}

void QLed::changeEvent(QEvent* event) {
    // Its size is that of a text beside it.
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometry();
    QWidget::changeEvent(event);
}
