#include "widgets/valuefield.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>

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
    takePalette();
}

void ValueField::takeFont() {
    m_paintFont = font();
    m_paintFont.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(m_paintFont.styleStrategy() | QFont::PreferNoShaping));
}

void ValueField::takePalette() {
    const QColor text = palette().color(QPalette::Text);
    if (m_isTelling)
        m_told = text;
    if (!testAttribute(Qt::WA_StyleSheet))
        m_plain = text;
    else if (!m_isTelling)
        m_sheet = text == m_told || text == m_plain ? QColor() : text;
}

void ValueField::setStatusColour(const StatusColour& status) {
    if (status == m_status)
        return;
    m_status = status;
    update();
}

void ValueField::setToldPalette(const QPalette& palette) {
    const QScopedValueRollback<bool> telling(m_isTelling, true);
    setPalette(palette);
}

void ValueField::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        takeFont();
    else if (event->type() == QEvent::PaletteChange)
        takePalette();
}

QColor ValueField::textColour() const {
    if (m_status.colour.isValid())
        return m_status.colour;
    return m_sheet.isValid() ? m_sheet : palette().color(QPalette::Text);
}

bool ValueField::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && m_text.showToolTip(*this, static_cast<QHelpEvent&>(*event)))
        return true;
    return QLineEdit::event(event);
}

void ValueField::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    // Digits read from left to right, also where the form lays the field out the other way.
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.fillRect(event->rect(), palette().brush(QPalette::Base));
    drawFrame(painter, rect(), palette().color(QPalette::Mid));

    const QColor colour = textColour();
    painter.setFont(m_paintFont);
    painter.setPen(colour);
    const QRect room = rect().adjusted(textMargin, frameWidth, -textMargin, -frameWidth);
    const bool mayHavePlate = isEnabled() && !m_status.isHiding;
    // A text as long as the field takes may have lost its end.
    m_text.draw(painter, room, static_cast<int>(alignment()) | Qt::TextSingleLine, displayText(),
                mayHavePlate ? plateFor(colour, fieldOn(palette().brush(QPalette::Base), *this)) : QColor(),
                displayText().size() == maxLength());
}
