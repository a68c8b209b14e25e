#include "banner.h"

#include <QPainter>

namespace {

constexpr int wrapped = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
const QColor alarmRed(178, 0, 24);
const QColor stripeRed(140, 0, 18);

QFont scaled(QFont font, qreal factor) {
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * factor);
    else
        font.setPixelSize(qRound(font.pixelSize() * factor));
    font.setBold(true);
    return font;
}

}  // namespace

Banner::Banner(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("noDataBanner"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    hide();
}

void Banner::tell(const QString& headline, const QString& reason) {
    if (headline == m_headline && reason == m_reason)
        return;
    m_headline = headline;
    m_reason = reason;
    setAccessibleName(headline.isEmpty() ? QString() : headline + QStringLiteral(": ") + reason);
    setVisible(!headline.isEmpty());
    updateGeometry();
    update();
}

QFont Banner::headlineFont() const {
    return scaled(font(), 1.9);
}

QFont Banner::reasonFont() const {
    return scaled(font(), 1.25);
}

int Banner::textHeight(const QFont& font, const QString& text, int width) const {
    return QFontMetrics(font).boundingRect(0, 0, width, QWIDGETSIZE_MAX, wrapped, text).height();
}

int Banner::heightForWidth(int width) const {
    const int margin = fontMetrics().height();
    const int inner = qMax(1, width - 2 * margin);
    return textHeight(headlineFont(), m_headline, inner) + textHeight(reasonFont(), m_reason, inner) + margin;
}

QSize Banner::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 60, heightForWidth(width())};
}

QSize Banner::minimumSizeHint() const {
    return {0, heightForWidth(width())};
}

void Banner::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), alarmRed);
    const int edge = qMax(3, fontMetrics().height() / 4);
    painter.fillRect(0, 0, width(), edge, QBrush(stripeRed, Qt::SolidPattern));
    painter.fillRect(0, height() - edge, width(), edge, QBrush(stripeRed, Qt::SolidPattern));
    painter.setPen(Qt::white);
    const int margin = fontMetrics().height();
    QRect space = rect().adjusted(margin, margin / 2, -margin, 0);
    painter.setFont(headlineFont());
    QRect used;
    painter.drawText(space, wrapped, m_headline, &used);
    space.setTop(used.bottom() + 1);
    painter.setFont(reasonFont());
    painter.drawText(space, wrapped, m_reason.left(1).toUpper() + m_reason.mid(1));
}
