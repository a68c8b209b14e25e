#include "drawn/barface.h"

#include <ostrel-display/slider.h>

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "drawn/contrast.h"

namespace {

constexpr int mostMajors = 101;
constexpr int mostMinors = 20;
constexpr double leastTickDistance = 3.0;

constexpr double margin = 2.0;
constexpr double leastTrack = 6.0;
// In heights of the font.
constexpr double mostTrack = 2.0;
constexpr double tickHeight = 0.45;

constexpr double faint = 0.5;

}  // namespace

BarFace::BarFace(BarLook look, const QSize& size) : m_look(std::move(look)) {
    m_ticks = evenTicks(m_look.scale, std::clamp(m_look.majorTicks, 0, mostMajors),
                        std::clamp(m_look.minorTicks, 0, mostMinors), m_look.precision);
    layOut(size);
}

void BarFace::layOut(const QSize& size) {
    const QFontMetricsF metrics(m_look.font);
    double widest = 0.0;
    for (const Tick& tick : m_ticks)
        widest = std::max(widest, metrics.horizontalAdvance(tick.text));
    QRectF room = QRectF(QPointF(0.0, 0.0), size).adjusted(margin, margin, -margin, -margin);
    const double belowLabel = (2.0 + tickHeight) * metrics.height() + 2.0 * margin;
    if (!m_look.label.isEmpty() && room.height() >= metrics.height() + belowLabel) {
        m_label = QRectF(room.left(), room.top(), room.width(), metrics.height());
        room.setTop(m_label.bottom());
    }
    const double along = m_look.isVertical ? room.height() : room.width();
    const double across = m_look.isVertical ? room.width() : room.height();
    m_tickLength = metrics.height() * tickHeight;
    const double numbers = (m_look.isVertical ? widest : metrics.height()) + margin;
    // The numbers at the ends stand half beyond them.
    const double half = (m_look.isVertical ? metrics.height() : widest) / 2.0 + 1.0;
    m_hasTicks = across >= leastTrack + m_tickLength + margin;
    m_hasNumbers = across >= leastTrack + m_tickLength + margin + numbers && along >= 2.0 * half + leastTrack;
    const double beside = (m_hasTicks ? m_tickLength + margin : 0.0) + (m_hasNumbers ? numbers : 0.0);
    const double ends = m_hasNumbers ? half : 0.0;
    const double thickness = std::clamp(across - beside, std::min(leastTrack, across), mostTrack * metrics.height());
    const double first = std::floor((across - beside - thickness) / 2.0);
    m_track = m_look.isVertical ? QRectF(room.left() + first, room.top() + ends, thickness, room.height() - 2.0 * ends)
                                : QRectF(room.left() + ends, room.top() + first, room.width() - 2.0 * ends, thickness);
    // On whole pixels, for sharp edges.
    m_track = QRectF(m_track.toRect());
}

// From the left or from below.
double BarFace::pixelAt(double share) const {
    return m_look.isVertical ? m_track.bottom() - share * m_track.height() : m_track.left() + share * m_track.width();
}

QColor BarFace::trackColour() const {
    return mixed(m_look.palette.color(QPalette::Window), textColour(), 0.12);
}

QColor BarFace::textColour() const {
    return legible(m_look.palette.color(QPalette::Active, QPalette::WindowText),
                   m_look.palette.color(QPalette::Window));
}

double BarFace::length(double value) const {
    if (!m_look.scale.hasLength() || !std::isfinite(value))
        return 0.0;
    const double lower = pixelAt(m_look.scale.at(m_look.scale.lower()));
    return std::abs(pixelAt(m_look.scale.at(m_look.scale.clamped(value))) - lower);
}

bool BarFace::areAlike(double one, double other, double leastMove) const {
    if (!std::isfinite(one) || !std::isfinite(other))
        return std::isfinite(one) == std::isfinite(other);
    const LinearScale& scale = m_look.scale;
    return (one < scale.lower()) == (other < scale.lower()) && (one > scale.upper()) == (other > scale.upper()) &&
           std::abs(length(one) - length(other)) < leastMove;
}

QRect BarFace::barRect() const {
    return m_track.adjusted(-1.0, -1.0, 1.0, 1.0).toAlignedRect();
}

void BarFace::paintScale(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(m_look.font);
    painter.setOpacity(m_look.isLive && m_look.isEnabled ? 1.0 : faint);
    painter.setPen(QPen(mixed(trackColour(), textColour(), 0.45), 1.0));
    painter.setBrush(trackColour());
    painter.drawRoundedRect(m_track.adjusted(-0.5, -0.5, 0.5, 0.5), 2.0, 2.0);
    if (m_hasTicks)
        paintTicks(painter);
    painter.setPen(textColour());
    const QFontMetricsF metrics(m_look.font);
    painter.drawText(m_label, Qt::AlignCenter, metrics.elidedText(m_look.label, Qt::ElideMiddle, m_label.width()));
    if (m_look.isLive)
        return;
    painter.setOpacity(0.8);
    paintWords(painter, Slider::tr("not live"));
}

void BarFace::paintTicks(QPainter& painter) const {
    const QFontMetricsF metrics(m_look.font);
    const double start = m_look.isVertical ? m_track.top() : m_track.left();
    const double length = m_look.isVertical ? m_track.height() : m_track.width();
    const bool hasMinors = length / double(std::max<size_t>(m_ticks.size(), 1)) >= leastTickDistance;
    const double edge = (m_look.isVertical ? m_track.right() : m_track.bottom()) + 1.5;
    std::vector<QRectF> places;
    QStringList texts;
    for (const Tick& tick : m_ticks) {
        if (!tick.isMajor && !hasMinors)
            continue;
        const double along = std::clamp(std::floor(pixelAt(tick.at)) + 0.5, start + 0.5, start + length - 0.5);
        const double end = edge + (tick.isMajor ? m_tickLength : m_tickLength * 0.55);
        painter.setPen(QPen(textColour(), tick.isMajor ? 1.5 : 1.0, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(m_look.isVertical ? QLineF(edge, along, end, along) : QLineF(along, edge, along, end));
        if (tick.text.isEmpty())
            continue;
        const QSizeF size(metrics.horizontalAdvance(tick.text) + 1.0, metrics.height());
        places.push_back(m_look.isVertical ? QRectF(QPointF(end + margin, along - size.height() / 2.0), size)
                                           : QRectF(QPointF(along - size.width() / 2.0, end), size));
        texts.append(tick.text);
    }
    if (!m_look.isLive || !m_hasNumbers)
        return;
    painter.setPen(textColour());
    const size_t step = clearStep(places, m_look.isVertical ? 0.0 : metrics.averageCharWidth() * 0.6);
    for (size_t i = 0; i < places.size(); i += step)
        painter.drawText(places[i], Qt::AlignCenter, texts[int(i)]);
}

void BarFace::paintBar(QPainter& painter, double value, const QColor& colour) const {
    if (!std::isfinite(value)) {
        paintWords(painter, noValueText);
        return;
    }
    const LinearScale& scale = m_look.scale;
    if (!scale.hasLength())
        return;
    painter.setOpacity(m_look.isEnabled ? 1.0 : faint);
    const QColor shown = m_look.isEnabled ? colour : withoutHue(colour);
    QRectF bar = m_track;
    const double reach = length(value);
    // The scale's lower end is on the left or below, but with the minimum above the maximum.
    const bool isFromStart = scale.minimum < scale.maximum;
    if (m_look.isVertical)
        isFromStart ? bar.setTop(bar.bottom() - reach) : bar.setBottom(bar.top() + reach);
    else
        isFromStart ? bar.setRight(bar.left() + reach) : bar.setLeft(bar.right() - reach);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(bar, shown);
    // The bar's end is seen in every colour of it.
    const double edge = std::min(2.0, reach);
    QRectF end = bar;
    if (m_look.isVertical)
        isFromStart ? end.setBottom(end.top() + edge) : end.setTop(end.bottom() - edge);
    else
        isFromStart ? end.setLeft(end.right() - edge) : end.setRight(end.left() + edge);
    painter.fillRect(end, legible(mixed(shown, Qt::black, 0.5), trackColour(), 2.5));
    if (value < scale.lower())
        paintArrow(painter, false, textColour());
    else if (value > scale.upper())
        paintArrow(painter, true, legible(QColor(), shown));
}

// At the end of the scale, towards what lies beyond it.
void BarFace::paintArrow(QPainter& painter, bool isAbove, const QColor& colour) const {
    const bool isAtStart = isAbove == (m_look.scale.minimum > m_look.scale.maximum);
    const double across = m_look.isVertical ? m_track.width() : m_track.height();
    const double size = std::min(across * 0.35, 7.0);
    const double outwards = (m_look.isVertical ? -1.0 : 1.0) * (isAtStart ? -1.0 : 1.0);
    const double tip = pixelAt(isAtStart ? 0.0 : 1.0) - outwards * 4.0;
    const double base = tip - outwards * size * 1.4;
    const QPointF middle = m_track.center();
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    if (m_look.isVertical)
        painter.drawPolygon(QVector<QPointF>{{middle.x(), tip}, {middle.x() - size, base}, {middle.x() + size, base}});
    else
        painter.drawPolygon(QVector<QPointF>{{tip, middle.y()}, {base, middle.y() - size}, {base, middle.y() + size}});
}

// Along the track.
void BarFace::paintWords(QPainter& painter, const QString& words) const {
    QRectF room(0.0, 0.0, std::max(m_track.width(), m_track.height()), QFontMetricsF(m_look.font).height());
    room.moveCenter(QPointF(0.0, 0.0));
    painter.save();
    painter.translate(m_track.center());
    if (m_look.isVertical)
        painter.rotate(-90.0);
    painter.setFont(m_look.font);
    const double thickness = std::min(m_track.width(), m_track.height());
    if (thickness < room.height())
        painter.fillRect(painter.boundingRect(room, Qt::AlignCenter, words), m_look.palette.color(QPalette::Window));
    painter.setPen(textColour());
    painter.drawText(room, Qt::AlignCenter, words);
    painter.restore();
}
