#include "widgets/valuefield.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

namespace {

constexpr int frameWidth = 1;
constexpr int textMargin = 4;

// Four filled strips: a rectangle of lines takes many times as long.
void drawFrame(QPainter& painter, const QRect& rect, const QColor& colour) {
    const QRect inside = rect.adjusted(frameWidth, frameWidth, -frameWidth, -frameWidth);
    painter.fillRect(rect.left(), rect.top(), rect.width(), frameWidth, colour);
    painter.fillRect(rect.left(), inside.bottom() + 1, rect.width(), frameWidth, colour);
    painter.fillRect(rect.left(), inside.top(), frameWidth, inside.height(), colour);
    painter.fillRect(inside.right() + 1, inside.top(), frameWidth, inside.height(), colour);
}

}  // namespace

ValueField::ValueField(QWidget* parent) : QLineEdit(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    takeFont();
}

void ValueField::takeFont() {
    m_paintFont = font();
    m_paintFont.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(m_paintFont.styleStrategy() | QFont::PreferNoShaping));
}

void ValueField::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        takeFont();
}

void ValueField::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    // Digits read from left to right, also where the form lays the field out the other way.
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.fillRect(event->rect(), palette().brush(QPalette::Base));
    drawFrame(painter, rect(), palette().color(QPalette::Mid));

    painter.setFont(m_paintFont);
    painter.setPen(palette().color(QPalette::Text));
    const QRect room = rect().adjusted(textMargin, frameWidth, -textMargin, -frameWidth);
    const QFontMetrics metrics(m_paintFont, this);
    QString shown = displayText();
    if (metrics.horizontalAdvance(shown) > room.width())
        shown = metrics.elidedText(shown, Qt::ElideRight, room.width());
    painter.drawText(room, static_cast<int>(alignment()) | Qt::TextSingleLine, shown);
}
