#include <ostrel-display/qtsvgtoggleswitch.h>

#include <QAccessible>
#include <QKeyEvent>
#include <QTouchEvent>

#include "drawn/accessiblebutton.h"
#include "drawn/accessibledrawing.h"
#include "drawn/buttonface.h"

namespace {

QAccessibleInterface* accessibleSwitch(const QString& className, QObject* object) {
    auto* toggle = className == QLatin1String("QtSvgToggleSwitch") ? qobject_cast<QtSvgToggleSwitch*>(object) : nullptr;
    return toggle ? new AccessibleButton(toggle, QAccessible::CheckBox, QtSvgToggleSwitch::tr("Switch")) : nullptr;
}

}  // namespace

struct Q_DECL_HIDDEN QtSvgToggleSwitch::Private {
    explicit Private(QtSvgToggleSwitch* button)
        : face(button, {QStringLiteral("switch"), {QStringLiteral("Beryl"), QStringLiteral("BerylSquare")}, 2}) {}

    ButtonFace face;
};

QtSvgToggleSwitch::QtSvgToggleSwitch(QWidget* parent) : QAbstractButton(parent), d(std::make_unique<Private>(this)) {
    static const AccessibleFactory factory(accessibleSwitch);
    setCheckable(true);
}

QtSvgToggleSwitch::~QtSvgToggleSwitch() = default;

QString QtSvgToggleSwitch::skin() const {
    return d->face.skin();
}

void QtSvgToggleSwitch::setSkin(const QString& skin) {
    d->face.setSkin(skin);
}

QSize QtSvgToggleSwitch::sizeHint() const {
    return d->face.sizeHint();
}

QSize QtSvgToggleSwitch::minimumSizeHint() const {
    return d->face.minimumSizeHint();
}

bool QtSvgToggleSwitch::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel:
            if (isEnabled())
                d->face.touched(static_cast<QTouchEvent&>(*event));
            return true;
        default:
            return QAbstractButton::event(event);
    }
}

bool QtSvgToggleSwitch::hitButton(const QPoint& position) const {
    return d->face.rect().contains(position);
}

void QtSvgToggleSwitch::keyPressEvent(QKeyEvent* event) {
    if (!d->face.keyPressed(*event))
        QAbstractButton::keyPressEvent(event);
}

void QtSvgToggleSwitch::keyReleaseEvent(QKeyEvent* event) {
    if (!d->face.keyReleased(*event))
        QAbstractButton::keyReleaseEvent(event);
}

void QtSvgToggleSwitch::paintEvent(QPaintEvent*) {
    d->face.paint();
}

void QtSvgToggleSwitch::resizeEvent(QResizeEvent* event) {
    d->face.fitMask();
    QAbstractButton::resizeEvent(event);
}

void QtSvgToggleSwitch::changeEvent(QEvent* event) {
    // Its size is that of a text beside it.
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometry();
    QAbstractButton::changeEvent(event);
}
