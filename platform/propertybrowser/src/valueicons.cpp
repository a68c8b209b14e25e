#include "valueicons.h"

#include <QPainter>

namespace {

constexpr int side = 16;

}  // namespace

QString colorText(const QColor& color) {
    return QStringLiteral("[%1, %2, %3] (%4)").arg(color.red()).arg(color.green()).arg(color.blue()).arg(color.alpha());
}

// The colour as it mixes with white, and in the middle as it is without its transparency.
QIcon colorIcon(const QColor& color) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    painter.fillRect(pixmap.rect(), color);
    if (color.alpha() < 255) {
        const QColor opaque(color.red(), color.green(), color.blue());
        painter.fillRect(side / 4, side / 4, side / 2, side / 2, opaque);
    }
    painter.setPen(QColor(0, 0, 0, 96));
    painter.drawRect(pixmap.rect().adjusted(0, 0, -1, -1));
    return QIcon(pixmap);
}

QString fontText(const QFont& font) {
    return QStringLiteral("[%1, %2]").arg(font.family()).arg(font.pointSize());
}

QIcon fontIcon(const QFont& font) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setPen(Qt::black);
    QFont letter = font;
    letter.setPixelSize(13);
    painter.setFont(letter);
    painter.drawText(pixmap.rect(), Qt::AlignCenter, QStringLiteral("A"));
    painter.setPen(QColor(0, 0, 0, 96));
    painter.drawRect(pixmap.rect().adjusted(0, 0, -1, -1));
    return QIcon(pixmap);
}
