#include <ostrel-display/slider.h>

#include <QAccessible>
#include <QEvent>
#include <QPainter>
#include <cmath>
#include <optional>

#include "drawn/accessibledrawing.h"
#include "drawn/barface.h"
#include "drawn/svgskin.h"

namespace {

// In pixels of the screen; for less the bar stays as it is.
constexpr double visibleMove = 0.5;

}  // namespace

struct Q_DECL_HIDDEN Slider::Private {
    explicit Private(Slider* slider) : q(slider) {}

    const BarFace& currentFace();
    void dropFace();
    const QPixmap& currentPicture(qreal ratio);
    // Writes a property of the scale.
    template <class Field>
    void set(Field& field, const Field& value);
    void renew();
    void tellOfValue();
    double leastMove() const { return visibleMove / q->devicePixelRatioF(); }

    static QAccessibleInterface* accessible(const QString& className, QObject* object);
    SpokenDrawing speech();

    Slider* q;
    bool isRemote = false;
    QString label;
    bool isLabelVisible = false;

    std::optional<BarFace> face;
    QPixmap picture;
    // What the last paint event has shown.
    double shownValue = 0.0;
    double toldValue = 0.0;
};

const BarFace& Slider::Private::currentFace() {
    if (!face)
        face.emplace(BarLook{{q->Minimum, q->Maximum},
                             q->MajorTicks,
                             q->MinorTicks,
                             q->Precision,
                             q->Orientation == Qt::Vertical,
                             isLabelVisible ? label : QString(),
                             q->font(),
                             q->palette(),
                             q->isEnabled(),
                             !isRemote},
                     q->size());
    return *face;
}

void Slider::Private::dropFace() {
    face.reset();
    picture = {};
}

const QPixmap& Slider::Private::currentPicture(qreal ratio) {
    const QSize pixels = q->size() * ratio;
    if (picture.size() == pixels && picture.devicePixelRatioF() == ratio)
        return picture;
    picture = QPixmap(pixels);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    currentFace().paintScale(painter);
    return picture;
}

void Slider::Private::renew() {
    q->render();
    q->update();
}

template <class Field>
void Slider::Private::set(Field& field, const Field& value) {
    if (field == value)
        return;
    field = value;
    renew();
}

// Whoever writes the value in place calls nothing but update().
void Slider::Private::tellOfValue() {
    shownValue = q->Value;
    if (currentFace().areAlike(shownValue, toldValue, leastMove()))
        return;
    toldValue = shownValue;
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(q, shownValue);
        QAccessible::updateAccessibility(&event);
    }
}

QAccessibleInterface* Slider::Private::accessible(const QString& className, QObject* object) {
    auto* slider = className == QLatin1String("Slider") ? qobject_cast<Slider*>(object) : nullptr;
    if (!slider)
        return nullptr;
    return new AccessibleDrawing(slider, QAccessible::ProgressBar, [slider] { return slider->d->speech(); });
}

SpokenDrawing Slider::Private::speech() {
    const LinearScale scale{q->Minimum, q->Maximum};
    SpokenDrawing speech;
    speech.name = isLabelVisible ? label : QString();
    speech.minimum = scale.lower();
    speech.maximum = scale.upper();
    speech.current = qQNaN();
    if (isRemote) {
        speech.value = tr("not live");
    } else if (!std::isfinite(q->Value)) {
        speech.value = tr("no value");
    } else {
        speech.current = q->Value;
        speech.value = numberText(q->Value, readingPrecision(scale, q->Precision));
        if (scale.clamped(q->Value) != q->Value)
            speech.description = q->Value < scale.lower() ? tr("below the scale") : tr("above the scale");
    }
    return speech;
}

Slider::Slider(QWidget* parent) : QWidget(parent), d(std::make_unique<Private>(this)) {
    static const AccessibleFactory factory(&Private::accessible);
}

Slider::~Slider() = default;

void Slider::render() {
    d->dropFace();
    updateGeometry();
}

void Slider::set_remote() {
    d->set(d->isRemote, true);
}

QString Slider::label() const {
    return d->label;
}

void Slider::setLabel(const QString& label) {
    if (label == d->label)
        return;
    d->label = label;
    if (d->isLabelVisible)
        d->renew();
}

bool Slider::isLabelVisible() const {
    return d->isLabelVisible;
}

void Slider::setLabelVisible(bool visible) {
    d->set(d->isLabelVisible, visible);
}

void Slider::setMinimum(double minimum) {
    d->set(Minimum, minimum);
}

void Slider::setMaximum(double maximum) {
    d->set(Maximum, maximum);
}

void Slider::setValue(double value) {
    Value = value;
    if (d->isRemote)
        return;
    const BarFace& face = d->currentFace();
    if (face.areAlike(value, d->shownValue, d->leastMove()))
        return;
    if (std::isfinite(value) && std::isfinite(d->shownValue))
        update(face.barRect());
    else
        update();
}

void Slider::setMajorTicks(int ticks) {
    d->set(MajorTicks, ticks);
}

void Slider::setMinorTicks(int ticks) {
    d->set(MinorTicks, ticks);
}

void Slider::setPrecision(int precision) {
    d->set(Precision, precision);
}

void Slider::setOrientation(Qt::Orientation orientation) {
    d->set(Orientation, orientation);
}

void Slider::setBarColor(const QColor& color) {
    if (color == BarColor)
        return;
    BarColor = color;
    update();
}

QSize Slider::sizeHint() const {
    const int unit = fontMetrics().height();
    const QSize across(unit * 13, unit * 3);
    return Orientation == Qt::Vertical ? across.transposed() : across;
}

QSize Slider::minimumSizeHint() const {
    const int unit = fontMetrics().height();
    const QSize across(unit * 4, unit * 2);
    return Orientation == Qt::Vertical ? across.transposed() : across;
}

void Slider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawPixmap(0, 0, d->currentPicture(pixelRatio(painter)));
    if (d->isRemote)
        return;
    d->currentFace().paintBar(painter, Value, BarColor);
    d->tellOfValue();
}

void Slider::resizeEvent(QResizeEvent* event) {
    d->dropFace();
    QWidget::resizeEvent(event);
}

void Slider::changeEvent(QEvent* event) {
    switch (event->type()) {
        case QEvent::FontChange:
        case QEvent::StyleChange:
        case QEvent::PaletteChange:
        case QEvent::EnabledChange:
        case QEvent::LanguageChange:
            d->renew();
            break;
        default:
            break;
    }
    QWidget::changeEvent(event);
}
