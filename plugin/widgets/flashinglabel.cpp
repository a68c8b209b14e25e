#include "widgets/flashinglabel.h"

#include <QHelpEvent>
#include <QPainter>

// Hands the text to its label, which knows what it stands for. No meta-object of its own: to others a LabelStyle.
class FlashingLabel::Style : public LabelStyle {
public:
    explicit Style(FlashingLabel& label) : m_label(label) {}

    void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& pal, bool enabled,
                      const QString& text, QPalette::ColorRole) const override {
        m_label.drawText(*painter, rect, flags, textColour(pal, enabled), text);
    }

private:
    FlashingLabel& m_label;
};

FlashingLabel::FlashingLabel(QWidget* parent) : QLabel(parent, Qt::WindowFlags()), myStyle(new Style(*this)) {
    setStyle(myStyle);
}

FlashingLabel::~FlashingLabel() {
    delete myStyle;
}

void FlashingLabel::setTextKind(LegibleText::Kind kind) {
    m_text.setKind(kind);
    update();
}

void FlashingLabel::setStatusColour(const StatusColour& status) {
    if (status == m_status)
        return;
    m_status = status;
    update();
}

void FlashingLabel::drawText(QPainter& painter, const QRect& rect, int flags, const QColor& colour,
                             const QString& text) {
    const QColor shown = isEnabled() && m_status.colour.isValid() ? m_status.colour : colour;
    const bool mayHavePlate = isEnabled() && !m_status.isHiding && m_text.kind() == LegibleText::Kind::Value;
    painter.setPen(shown);
    m_text.draw(painter, rect, flags, text, mayHavePlate ? plateFor(shown, fieldBehind(*this)) : QColor());
}

bool FlashingLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && m_text.showToolTip(*this, static_cast<QHelpEvent&>(*event)))
        return true;
    return QLabel::event(event);
}
