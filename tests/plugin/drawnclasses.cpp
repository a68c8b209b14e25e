// The drawn classes as a site's own would be: they draw nothing, keep what they are told and tell of it as calls.
#include <ostrel-display/qled.h>
#include <ostrel-display/qtsvgdialgauge.h>
#include <ostrel-display/slider.h>

#include "indicatortest.h"
#include "scripted/calls.h"

using scripted::called;

std::function<void()> lampIsSet;

struct QLed::Private {
    bool value = false;
};

QLed::QLed(QWidget* parent) : QWidget(parent), d(new Private) {}
QLed::~QLed() = default;
bool QLed::value() const {
    return d->value;
}
QLed::ledColor QLed::onColor() const {
    return Grey;
}
QLed::ledColor QLed::offColor() const {
    return Grey;
}
QLed::ledShape QLed::shape() const {
    return Circle;
}
QSize QLed::sizeHint() const {
    return QSize(28, 28);
}
QSize QLed::minimumSizeHint() const {
    return QSize(28, 28);
}
void QLed::setValue(bool value) {
    d->value = value;
    called("QLed::setValue", value);
    if (lampIsSet)
        lampIsSet();
}
void QLed::setOnColor(QLed::ledColor color) {
    called("QLed::setOnColor", static_cast<int>(color));
}
void QLed::setOffColor(QLed::ledColor color) {
    called("QLed::setOffColor", static_cast<int>(color));
}
void QLed::setShape(QLed::ledShape shape) {
    called("QLed::setShape", static_cast<int>(shape));
}
void QLed::paintEvent(QPaintEvent*) {}
void QLed::changeEvent(QEvent*) {}

// Its defaults are none of the real dial's.
struct QtSvgDialGauge::Private {
    double value = 7.5;
    double minimum = -1.5;
    double maximum = 1.5;
    int precision = 3;
    double startAngle = -90;
    double endAngle = 90;
    int ticks = 4;
    bool smartTicks = true;
    QColor backColor = Qt::darkRed;
    QColor borderColor = Qt::darkGreen;
    QColor textColor = Qt::darkBlue;
    QString skin;
    QString label;
    bool initFinished = false;
};

namespace {

QString shownArc(const arc& drawn) {
    if (!drawn.visible)
        return QStringLiteral("none");
    return QStringLiteral("%1..%2#%3%4%5")
        .arg(drawn.start)
        .arg(drawn.end)
        .arg(drawn.color.red)
        .arg(drawn.color.green)
        .arg(drawn.color.blue);
}

}  // namespace

QtSvgDialGauge::QtSvgDialGauge(QWidget* parent) : QWidget(parent), d(new Private) {}
QtSvgDialGauge::~QtSvgDialGauge() = default;

#define OSTREL_KEPT(type, getter, setter, member)      \
    type QtSvgDialGauge::getter() const {              \
        return d->member;                              \
    }                                                  \
    void QtSvgDialGauge::setter(type value) {          \
        d->member = value;                             \
        called("QtSvgDialGauge::" #setter, d->member); \
    }
OSTREL_KEPT(double, value, setValue, value)
OSTREL_KEPT(double, minimum, setMinimum, minimum)
OSTREL_KEPT(double, maximum, setMaximum, maximum)
OSTREL_KEPT(int, precision, setPrecision, precision)
OSTREL_KEPT(double, startAngle, setStartAngle, startAngle)
OSTREL_KEPT(double, endAngle, setEndAngle, endAngle)
OSTREL_KEPT(int, ticks, setTicks, ticks)
OSTREL_KEPT(bool, smartTicks, setSmartTicks, smartTicks)
OSTREL_KEPT(QString, label, setLabel, label)
#undef OSTREL_KEPT

QColor QtSvgDialGauge::getBackColor() const {
    return d->backColor;
}
QColor QtSvgDialGauge::getBorderColor() const {
    return d->borderColor;
}
QColor QtSvgDialGauge::getTextColor() const {
    return d->textColor;
}
void QtSvgDialGauge::setBackColor(const QColor& color) {
    d->backColor = color;
    called("QtSvgDialGauge::setBackColor", color.name());
}
void QtSvgDialGauge::setBorderColor(const QColor& color) {
    d->borderColor = color;
    called("QtSvgDialGauge::setBorderColor", color.name());
}
void QtSvgDialGauge::setTextColor(const QColor& color) {
    d->textColor = color;
    called("QtSvgDialGauge::setTextColor", color.name());
}
QString QtSvgDialGauge::skin() const {
    return d->skin;
}
void QtSvgDialGauge::setSkin(const QString& skin) {
    d->skin = skin;
    called("QtSvgDialGauge::setSkin", skin);
}
arc QtSvgDialGauge::makeArc(int visible, color3 color, int side, double limit) {
    called("QtSvgDialGauge::makeArc", visible, color.red, color.green, color.blue, side, limit);
    return side == 0 ? arc{visible, d->minimum, limit, color} : arc{visible, limit, d->maximum, color};
}
void QtSvgDialGauge::setAllArcs(arc lowAlarm, arc lowAbort, arc lowEmergency, arc highAlarm, arc highAbort,
                                arc highEmergency) {
    called("QtSvgDialGauge::setAllArcs", shownArc(lowAlarm), shownArc(lowAbort), shownArc(lowEmergency),
           shownArc(highAlarm), shownArc(highAbort), shownArc(highEmergency));
}
bool QtSvgDialGauge::getInitFinished() const {
    return d->initFinished;
}
void QtSvgDialGauge::setInitFinished(bool finished) {
    d->initFinished = finished;
    called("QtSvgDialGauge::setInitFinished", finished);
}
void QtSvgDialGauge::set_remote() {
    called("QtSvgDialGauge::set_remote");
}
QSize QtSvgDialGauge::sizeHint() const {
    return QSize(160, 160);
}
QSize QtSvgDialGauge::minimumSizeHint() const {
    return QSize(160, 160);
}
void QtSvgDialGauge::paintEvent(QPaintEvent*) {}
void QtSvgDialGauge::resizeEvent(QResizeEvent*) {}
void QtSvgDialGauge::changeEvent(QEvent*) {}

struct Slider::Private {
    QString label;
};

Slider::Slider(QWidget* parent) : QWidget(parent), d(new Private) {}
Slider::~Slider() = default;
// What it is drawn from stands in its members at that moment.
void Slider::render() {
    called("Slider::render", Minimum, Maximum, MajorTicks, MinorTicks, Precision, static_cast<int>(Orientation));
}
void Slider::set_remote() {
    called("Slider::set_remote");
}
QString Slider::label() const {
    return d->label;
}
void Slider::setLabel(const QString& label) {
    d->label = label;
}
bool Slider::isLabelVisible() const {
    return false;
}
void Slider::setLabelVisible(bool) {}
QSize Slider::sizeHint() const {
    return QSize(150, 50);
}
QSize Slider::minimumSizeHint() const {
    return QSize(150, 50);
}
void Slider::paintEvent(QPaintEvent*) {}
void Slider::resizeEvent(QResizeEvent*) {}
void Slider::changeEvent(QEvent*) {}
void Slider::setMinimum(double minimum) {
    Minimum = minimum;
}
void Slider::setMaximum(double maximum) {
    Maximum = maximum;
}
void Slider::setValue(double value) {
    Value = value;
}
void Slider::setMajorTicks(int ticks) {
    MajorTicks = ticks;
}
void Slider::setMinorTicks(int ticks) {
    MinorTicks = ticks;
}
void Slider::setPrecision(int precision) {
    Precision = precision;
}
void Slider::setOrientation(Qt::Orientation orientation) {
    Orientation = orientation;
}
void Slider::setBarColor(const QColor& color) {
    BarColor = color;
}
