#include <ostrel-display/qtsvgbutton.h>

#include <QAccessible>
#include <QKeyEvent>
#include <QTouchEvent>

#include "drawn/accessiblebutton.h"
#include "drawn/accessibledrawing.h"
#include "drawn/buttonface.h"

namespace {

QAccessibleInterface* accessibleButton(const QString& className, QObject* object) {
    auto* button = className == QLatin1String("QtSvgButton") ? qobject_cast<QtSvgButton*>(object) : nullptr;
    return button ? new AccessibleButton(button, QAccessible::Button, QtSvgButton::tr("Button")) : nullptr;
}

}  // namespace

struct Q_DECL_HIDDEN QtSvgButton::Private {
    explicit Private(QtSvgButton* button)
        : face(button, {QStringLiteral("button"),
                        {QStringLiteral("Beryl"), QStringLiteral("BerylSquare"), QStringLiteral("MetallicBrush")},
                        1}) {}

    ButtonFace face;
};

QtSvgButton::QtSvgButton(QWidget* parent) : QAbstractButton(parent), d(std::make_unique<Private>(this)) {
    static const AccessibleFactory factory(accessibleButton);
}

QtSvgButton::~QtSvgButton() = default;

QString QtSvgButton::skin() const {
    return d->face.skin();
}

void QtSvgButton::setSkin(const QString& skin) {
    d->face.setSkin(skin);
}

QSize QtSvgButton::sizeHint() const {
    return d->face.sizeHint();
}

QSize QtSvgButton::minimumSizeHint() const {
    return d->face.minimumSizeHint();
}

bool QtSvgButton::event(QEvent* event) {
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

bool QtSvgButton::hitButton(const QPoint& position) const {
    return d->face.rect().contains(position);
}

void QtSvgButton::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
}

void QtSvgButton::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
}

void QtSvgButton::keyPressEvent(QKeyEvent* event) {
    // Escape would let the button go for the eye alone: the hand still holds it.
    if (event->key() == Qt::Key_Escape)
        event->ignore();
    else if (!d->face.keyPressed(*event))
        QAbstractButton::keyPressEvent(event);
}

void QtSvgButton::keyReleaseEvent(QKeyEvent* event) {
    if (!d->face.keyReleased(*event))
        QAbstractButton::keyReleaseEvent(event);
}

void QtSvgButton::paintEvent(QPaintEvent*) {
    d->face.paint();
}

void QtSvgButton::resizeEvent(QResizeEvent* event) {
    d->face.fitMask();
    QAbstractButton::resizeEvent(event);
}

void QtSvgButton::changeEvent(QEvent* event) {
    // Its size is that of a text beside it.
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometry();
    QAbstractButton::changeEvent(event);
}
