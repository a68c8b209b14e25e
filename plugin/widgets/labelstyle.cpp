#include "widgets/labelstyle.h"

#include <QPainter>

void LabelStyle::drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& pal, bool enabled,
                              const QString& text, QPalette::ColorRole) const {
    painter->setPen(textColour(pal, enabled));
    painter->drawText(rect, flags, text);
}

QColor LabelStyle::textColour(const QPalette& pal, bool enabled) {
    return enabled ? pal.color(QPalette::Active, QPalette::Text) : QColor(0, 0, 0, 255);
}
