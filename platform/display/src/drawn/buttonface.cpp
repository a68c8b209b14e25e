#include "drawn/buttonface.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QStyleHints>
#include <QTouchEvent>

#include "drawn/contrast.h"

namespace {

// The colours of the skins that a button replaces.
constexpr QRgb rimKey = 0xff3a3f44;
constexpr QRgb focusKey = 0xff1e6fd9;

constexpr QRgb darkRim = 0xff3a3f44;
constexpr QRgb lightRim = 0xffb4babf;

// Of a line.
constexpr double visibleContrast = 3.0;

SvgSkin skinOf(const ButtonSkins& skins, const QString& name) {
    const QString known = skins.names.contains(name) ? name : skins.names.first();
    return SvgSkin(QStringLiteral(":/ostrel/display/%1%2.svg").arg(skins.files, known.toLower()));
}

bool pressesButtons(int key) {
    return key == Qt::Key_Space || key == Qt::Key_Select || key == Qt::Key_Return || key == Qt::Key_Enter;
}

// Through the application, so that those who listen to the button's mouse hear it.
void sendMouse(QAbstractButton* button, QEvent::Type type, const QPointF& place) {
    const QPoint window = button->mapTo(button->window(), place.toPoint());
    const bool isHeld = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, place, window, button->mapToGlobal(place.toPoint()),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, isHeld ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier, Qt::MouseEventSynthesizedByApplication);
    QCoreApplication::sendEvent(button, &event);
}

void sendMouse(QAbstractButton* button, QEvent::Type type) {
    sendMouse(button, type, button->rect().center());
}

// On no button.
constexpr QPointF elsewhere(-1.0, -1.0);

}  // namespace

void clickAsMouse(QAbstractButton* button) {
    const QPointer<QAbstractButton> pressed = button;
    sendMouse(button, QEvent::MouseButtonPress);
    if (pressed)
        sendMouse(button, QEvent::MouseButtonRelease);
}

ButtonFace::ButtonFace(QAbstractButton* button, ButtonSkins skins)
    : m_button(button), m_skins(std::move(skins)), m_name(m_skins.names.first()), m_skin(skinOf(m_skins, m_name)) {
    button->setAttribute(Qt::WA_Hover);
    button->setAttribute(Qt::WA_AcceptTouchEvents);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    // Also without its key: where the button loses the focus.
    QObject::connect(button, &QAbstractButton::released, button, [this] { m_key = 0; });
}

void ButtonFace::setSkin(const QString& name) {
    if (name == m_name)
        return;
    m_name = name;
    m_skin = skinOf(m_skins, name);
    m_button->update();
}

QRect ButtonFace::rect() const {
    const int height = std::min(m_button->height(), m_button->width() / m_skins.aspect);
    const QSize size(height * m_skins.aspect, height);
    return {QPoint((m_button->width() - size.width()) / 2, (m_button->height() - size.height()) / 2), size};
}

// A fingertip has room on it.
QSize ButtonFace::sizeHint() const {
    const int height = std::max(48, m_button->fontMetrics().height() * 3);
    return {height * m_skins.aspect, height};
}

QSize ButtonFace::minimumSizeHint() const {
    return {24 * m_skins.aspect, 24};
}

void ButtonFace::fitMask() {
    if (m_button->isWindow())
        m_button->clearMask();
    else
        m_button->setMask(rect());
}

// What is drawn, one over the other.
QStringList ButtonFace::elements() const {
    const QString state = m_button->isChecked() ? QStringLiteral("on") : QStringLiteral("off");
    QStringList elements;
    if (!m_button->isEnabled())
        elements.append(state + QStringLiteral("-disabled"));
    else if (m_button->isDown())
        elements.append(state + QStringLiteral("-down"));
    else
        elements.append(state);
    if (m_button->isEnabled() && !m_button->isDown() && m_button->underMouse())
        elements.append(state + QStringLiteral("-hover"));
    if (m_button->hasFocus())
        elements.append(QStringLiteral("focus"));
    return elements;
}

void ButtonFace::paint() const {
    QPainter painter(m_button);
    const QPalette& palette = m_button->palette();
    const QColor window = palette.color(QPalette::Window);
    const QColor focus = legible(palette.color(QPalette::Highlight), window, visibleContrast);
    const SkinColours colours{{rimKey, isDark(window) ? lightRim : darkRim}, {focusKey, focus.rgb()}};
    const QRect face = rect();
    const auto parts = elements();
    for (const QString& part : parts)
        painter.drawPixmap(face.topLeft(), m_skin.pixmap(part, face.size(), pixelRatio(painter), colours));
}

bool ButtonFace::keyPressed(const QKeyEvent& event) {
    if (!pressesButtons(event.key()))
        return false;
    if (!event.isAutoRepeat() && !m_button->isDown()) {
        m_key = event.key();
        sendMouse(m_button, QEvent::MouseButtonPress);
    }
    return true;
}

bool ButtonFace::keyReleased(const QKeyEvent& event) {
    if (!pressesButtons(event.key()))
        return false;
    if (!event.isAutoRepeat() && event.key() == m_key)
        sendMouse(m_button, QEvent::MouseButtonRelease);
    return true;
}

void ButtonFace::touched(const QTouchEvent& event) {
    if (event.type() == QEvent::TouchCancel)
        fingerUp(elsewhere);
    for (const QTouchEvent::TouchPoint& point : event.touchPoints()) {
        if (point.state() == Qt::TouchPointPressed && m_finger < 0 && !m_button->isDown()) {
            m_finger = point.id();
            fingerDown(point.pos());
        } else if (point.id() == m_finger && point.state() == Qt::TouchPointMoved) {
            sendMouse(m_button, QEvent::MouseMove, point.pos());
        } else if (point.id() == m_finger && point.state() == Qt::TouchPointReleased) {
            fingerUp(point.pos());
        }
    }
}

void ButtonFace::fingerDown(const QPointF& place) {
    const bool isSecond =
        m_sinceTouch.isValid() && !m_sinceTouch.hasExpired(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    m_sinceTouch.invalidate();
    if (!isSecond)
        m_sinceTouch.start();
    sendMouse(m_button, isSecond ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, place);
}

void ButtonFace::fingerUp(const QPointF& place) {
    if (m_finger < 0)
        return;
    m_finger = -1;
    sendMouse(m_button, QEvent::MouseButtonRelease, place);
}
