#include <ostrel-display/qtsvgdialgauge.h>

#include <QAccessible>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <cmath>
#include <optional>

#include "drawn/accessibledrawing.h"
#include "drawn/contrast.h"
#include "drawn/dialface.h"

namespace {

constexpr int mostTicks = 101;
constexpr int mostDecimals = 12;

// In pixels of the screen; for less the needle stays where it is.
constexpr double visibleMove = 0.5;

bool isSameValue(double one, double other) {
    return one == other || (std::isnan(one) && std::isnan(other));
}

}  // namespace

struct Q_DECL_HIDDEN QtSvgDialGauge::Private {
    explicit Private(QtSvgDialGauge* dial) : q(dial) {}

    // The face as the properties, the palette, the font and the size ask for it.
    const DialFace& currentFace();
    void dropFace();
    void follow();
    void tellOfReading();
    void renderPictures(qreal ratio);

    template <class Value>
    void set(Value& field, const Value& value);
    void setNumber(double& field, double value);

    static QAccessibleInterface* accessible(const QString& className, QObject* object);
    SpokenDrawing speech();

    QtSvgDialGauge* q;
    // Its colours are those that were set.
    DialLook look{QStringLiteral("Speedometer3"), {}, 0, -135.0, 135.0, 11, false, {}, {}, {}, {}, {}, true, true};
    double value = 0.0;
    DialArcs arcs{};
    bool isInitFinished = false;

    std::optional<DialFace> face;
    QPixmap facePicture;
    QPixmap ground;  // the face with the arcs
    QPixmap needle;
    QPixmap cap;
    QPixmap plate;
    int plateSide = 0;
    // What the screen shows, or will with the next paint event.
    std::optional<double> shownAngle;
    QString shownText;
    int shownSide = 0;
    QString toldText;
    int toldSide = 0;
};

const DialFace& QtSvgDialGauge::Private::currentFace() {
    if (face)
        return *face;
    DialLook shown = look;
    shown.back = q->getBackColor();
    shown.border = q->getBorderColor();
    shown.text = q->getTextColor();
    shown.font = q->font();
    shown.isEnabled = q->isEnabled();
    face.emplace(shown, q->size());
    shownAngle = face->needleAngle(value);
    shownText = face->readingText(value);
    shownSide = face->sideOf(value);
    tellOfReading();
    return *face;
}

void QtSvgDialGauge::Private::dropFace() {
    face.reset();
    facePicture = {};
    ground = {};
    q->update();
}

// A screen reader follows what stands on the screen, from the first number on. A new face may bring another one, or the
// same again.
void QtSvgDialGauge::Private::tellOfReading() {
    if (!look.isLive || (shownText == toldText && shownSide == toldSide))
        return;
    const bool isFirst = toldText.isNull();
    toldText = shownText;
    toldSide = shownSide;
    if (!isFirst && QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(q, value);
        QAccessible::updateAccessibility(&event);
    }
}

// Brings the needle and the number to the value.
void QtSvgDialGauge::Private::follow() {
    // Nothing was painted since the face changed: it is all painted anyway.
    if (!face || !look.isLive)
        return;
    const QString text = face->readingText(value);
    const int side = face->sideOf(value);
    if (text != shownText || side != shownSide) {
        shownText = text;
        shownSide = side;
        q->update(face->plateRect());
        tellOfReading();
    }
    const std::optional<double> angle = face->needleAngle(value);
    if (angle == shownAngle)
        return;
    if (angle && shownAngle && face->tipWay(*shownAngle, *angle) * q->devicePixelRatioF() < visibleMove)
        return;
    QRegion moved;
    for (const std::optional<double>& place : {shownAngle, angle})
        if (place)
            moved += face->needleRect(*place);
    shownAngle = angle;
    q->update(moved);
}

void QtSvgDialGauge::Private::renderPictures(qreal ratio) {
    const QSize pixels = q->size() * ratio;
    if (facePicture.size() != pixels || facePicture.devicePixelRatioF() != ratio) {
        facePicture = QPixmap(pixels);
        facePicture.setDevicePixelRatio(ratio);
        facePicture.fill(Qt::transparent);
        QPainter painter(&facePicture);
        currentFace().paintFace(painter, ratio);
        needle = currentFace().needle(ratio);
        cap = currentFace().cap(ratio);
        plate = {};
        ground = {};
    }
    if (ground.isNull()) {
        ground = facePicture;
        QPainter painter(&ground);
        currentFace().paintArcs(painter, arcs);
    }
    if (plate.isNull() || plateSide != shownSide) {
        plate = currentFace().plate(ratio, shownSide);
        plateSide = shownSide;
    }
}

template <class Value>
void QtSvgDialGauge::Private::set(Value& field, const Value& newValue) {
    if (field == newValue)
        return;
    field = newValue;
    dropFace();
}

void QtSvgDialGauge::Private::setNumber(double& field, double number) {
    if (std::isfinite(number))
        set(field, number);
}

QAccessibleInterface* QtSvgDialGauge::Private::accessible(const QString& className, QObject* object) {
    auto* dial = className == QLatin1String("QtSvgDialGauge") ? qobject_cast<QtSvgDialGauge*>(object) : nullptr;
    if (!dial)
        return nullptr;
    return new AccessibleDrawing(dial, QAccessible::Dial, [dial] { return dial->d->speech(); });
}

SpokenDrawing QtSvgDialGauge::Private::speech() {
    SpokenDrawing speech;
    speech.name = look.label;
    speech.minimum = look.scale.lower();
    speech.maximum = look.scale.upper();
    speech.current = qQNaN();
    if (!look.isLive) {
        speech.value = tr("not live");
        return speech;
    }
    if (!std::isfinite(value)) {
        speech.value = tr("no value");
        return speech;
    }
    speech.current = value;
    speech.value = currentFace().readingText(value);
    if (const int side = currentFace().sideOf(value))
        speech.description = side < 0 ? tr("below the scale") : tr("above the scale");
    return speech;
}

QtSvgDialGauge::QtSvgDialGauge(QWidget* parent) : QWidget(parent), d(std::make_unique<Private>(this)) {
    static const AccessibleFactory factory(&Private::accessible);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QtSvgDialGauge::~QtSvgDialGauge() = default;

double QtSvgDialGauge::value() const {
    return d->value;
}

double QtSvgDialGauge::minimum() const {
    return d->look.scale.minimum;
}

double QtSvgDialGauge::maximum() const {
    return d->look.scale.maximum;
}

int QtSvgDialGauge::precision() const {
    return d->look.precision;
}

double QtSvgDialGauge::startAngle() const {
    return d->look.startAngle;
}

double QtSvgDialGauge::endAngle() const {
    return d->look.endAngle;
}

int QtSvgDialGauge::ticks() const {
    return d->look.ticks;
}

bool QtSvgDialGauge::smartTicks() const {
    return d->look.smartTicks;
}

QColor QtSvgDialGauge::getBackColor() const {
    return d->look.back.isValid() ? d->look.back : palette().color(QPalette::Base);
}

QColor QtSvgDialGauge::getBorderColor() const {
    if (d->look.border.isValid())
        return d->look.border;
    return mixed(palette().color(QPalette::Window), palette().color(QPalette::WindowText), 0.4);
}

QColor QtSvgDialGauge::getTextColor() const {
    return d->look.text.isValid() ? d->look.text : legible(palette().color(QPalette::Text), getBackColor());
}

QString QtSvgDialGauge::skin() const {
    return d->look.skin;
}

QString QtSvgDialGauge::label() const {
    return d->look.label;
}

arc QtSvgDialGauge::makeArc(int visible, color3 color, int side, double limit) {
    const LinearScale& scale = d->look.scale;
    if (visible == 0 || std::isnan(limit))
        return {0, scale.lower(), scale.lower(), color};
    const double end = scale.clamped(limit);
    return side == 0 ? arc{visible, scale.lower(), end, color} : arc{visible, end, scale.upper(), color};
}

void QtSvgDialGauge::setAllArcs(arc lowAlarm, arc lowAbort, arc lowEmergency, arc highAlarm, arc highAbort,
                                arc highEmergency) {
    const DialArcs arcs{lowAlarm, lowAbort, lowEmergency, highAlarm, highAbort, highEmergency};
    if (areSame(arcs, d->arcs))
        return;
    d->arcs = arcs;
    d->ground = {};
    if (d->look.isLive)
        update();
}

bool QtSvgDialGauge::getInitFinished() const {
    return d->isInitFinished;
}

void QtSvgDialGauge::setInitFinished(bool finished) {
    d->isInitFinished = d->isInitFinished || finished;
}

void QtSvgDialGauge::set_remote() {
    d->set(d->look.isLive, false);
}

QSize QtSvgDialGauge::sizeHint() const {
    const int side = std::max(160, fontMetrics().height() * 10);
    return {side, side};
}

QSize QtSvgDialGauge::minimumSizeHint() const {
    return {60, 60};
}

void QtSvgDialGauge::setValue(double value) {
    if (isSameValue(value, d->value))
        return;
    d->value = value;
    d->follow();
}

void QtSvgDialGauge::setMinimum(double minimum) {
    d->setNumber(d->look.scale.minimum, minimum);
}

void QtSvgDialGauge::setMaximum(double maximum) {
    d->setNumber(d->look.scale.maximum, maximum);
}

void QtSvgDialGauge::setPrecision(int precision) {
    d->set(d->look.precision, std::clamp(precision, 0, mostDecimals));
}

void QtSvgDialGauge::setStartAngle(double angle) {
    d->setNumber(d->look.startAngle, angle);
}

void QtSvgDialGauge::setEndAngle(double angle) {
    d->setNumber(d->look.endAngle, angle);
}

void QtSvgDialGauge::setTicks(int ticks) {
    d->set(d->look.ticks, std::clamp(ticks, 0, mostTicks));
}

void QtSvgDialGauge::setSmartTicks(bool smart) {
    d->set(d->look.smartTicks, smart);
}

void QtSvgDialGauge::setBackColor(const QColor& color) {
    d->set(d->look.back, color);
}

void QtSvgDialGauge::setBorderColor(const QColor& color) {
    d->set(d->look.border, color);
}

void QtSvgDialGauge::setTextColor(const QColor& color) {
    d->set(d->look.text, color);
}

void QtSvgDialGauge::setSkin(const QString& skin) {
    d->set(d->look.skin, skin);
}

void QtSvgDialGauge::setLabel(QString label) {
    d->set(d->look.label, label);
}

void QtSvgDialGauge::paintEvent(QPaintEvent* event) {
    const DialFace& face = d->currentFace();
    QPainter painter(this);
    d->renderPictures(pixelRatio(painter));
    painter.drawPixmap(0, 0, d->ground);
    if (!d->look.isLive)
        return;
    const QRegion& region = event->region();
    if (d->shownAngle && region.intersects(face.needleRect(*d->shownAngle)))
        face.paintNeedle(painter, d->needle, *d->shownAngle);
    if (region.intersects(face.capRect()))
        painter.drawPixmap(face.capRect().topLeft(), d->cap);
    if (region.intersects(face.plateRect())) {
        painter.drawPixmap(face.plateRect().topLeft(), d->plate);
        face.paintReading(painter, d->shownText, d->shownSide);
    }
}

void QtSvgDialGauge::resizeEvent(QResizeEvent* event) {
    d->dropFace();
    QWidget::resizeEvent(event);
}

void QtSvgDialGauge::changeEvent(QEvent* event) {
    switch (event->type()) {
        case QEvent::FontChange:
        case QEvent::StyleChange:
            updateGeometry();
            d->dropFace();
            break;
        case QEvent::PaletteChange:
        case QEvent::EnabledChange:
        case QEvent::LanguageChange:
            d->dropFace();
            break;
        default:
            break;
    }
    QWidget::changeEvent(event);
}
