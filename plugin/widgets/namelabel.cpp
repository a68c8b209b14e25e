#include "widgets/namelabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>

NameLabel::NameLabel(QWidget* parent) : QLabel(parent) {
    m_text.setKind(LegibleText::Kind::Name);
}

bool NameLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && m_text.showToolTip(*this, static_cast<QHelpEvent&>(*event)))
        return true;
    return QLabel::event(event);
}

void NameLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    painter.setPen(palette().color(foregroundRole()));
    const QRect room = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    const Qt::Alignment aligned = QStyle::visualAlignment(layoutDirection(), alignment());
    m_text.draw(painter, room, static_cast<int>(aligned) | Qt::TextSingleLine, text(), QColor());
}
