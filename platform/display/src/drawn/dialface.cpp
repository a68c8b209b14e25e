#include "drawn/dialface.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtMath>
#include <algorithm>
#include <cmath>

#include "drawn/contrast.h"

namespace {

// From the rim inwards.
constexpr double arcsRadius = 83.5;
constexpr double arcsWidth = 6.0;
constexpr double scaleRadius = 79.5;
constexpr double majorEnd = 69.0;
constexpr double minorEnd = 74.0;
constexpr double numbersRadius = 66.5;

constexpr double tipRadius = 77.0;
constexpr double needleTail = 22.0;
constexpr double needleHalfWidth = 5.0;
// Half of the frame of the cap.
constexpr double capRadius = 13.0;
constexpr double pinnedBeyond = 5.0;

constexpr double numberHeight = 13.5;
constexpr double labelHeight = 12.5;
constexpr double unitsWidth = 40.0;
constexpr double plateHeight = 21.0;
constexpr double plateWidth = 62.0;
// Beside the number of a value beyond the scale.
constexpr double arrowSize = plateHeight * 0.3;

// A text below this height, in pixels, is a smear.
constexpr int leastTextHeight = 7;

// The ticks of even scales; smart ones divide by the step.
constexpr int minorsBetween = 4;
constexpr double leastMinorDistance = 3.0;

constexpr double faint = 0.4;

// The colours of the skins that a dial replaces.
constexpr QRgb backKey = 0xfff4f6f8;
constexpr QRgb backEdgeKey = 0xffdde2e7;
constexpr QRgb borderKey = 0xff9aa3ab;
constexpr QRgb borderLightKey = 0xffe6eaee;
constexpr QRgb borderDarkKey = 0xff5d666e;
constexpr QRgb needleKey = 0xffd8401f;
constexpr QRgb needleShadeKey = 0xff9c2a12;
constexpr QRgb hubKey = 0xff2b3035;
constexpr QRgb hubLightKey = 0xff878f97;

QString skinFile(const QString& name) {
    for (const auto known : {"Speedometer1", "Speedometer2"})
        if (name == QLatin1String(known))
            return QStringLiteral(":/ostrel/display/%1.svg").arg(name.toLower());
    return QStringLiteral(":/ostrel/display/speedometer3.svg");
}

bool isSameNumber(double one, double other) {
    return one == other || (std::isnan(one) && std::isnan(other));
}

bool isShown(const arc& piece) {
    return piece.visible != 0 && std::isfinite(piece.start) && std::isfinite(piece.end) && piece.start != piece.end;
}

bool isSame(const arc& one, const arc& other) {
    if (one.visible == 0 && other.visible == 0)
        return true;
    return one.visible == other.visible && isSameNumber(one.start, other.start) && isSameNumber(one.end, other.end) &&
           isSameNumber(one.color.red, other.color.red) && isSameNumber(one.color.green, other.color.green) &&
           isSameNumber(one.color.blue, other.color.blue);
}

// A colour that nobody has filled in is some colour.
QColor colourOf(const color3& parts) {
    const auto part = [](double value) { return std::isnan(value) ? 0.0 : std::clamp(value, 0.0, 1.0); };
    return QColor::fromRgbF(part(parts.red), part(parts.green), part(parts.blue));
}

}  // namespace

bool areSame(const DialArcs& one, const DialArcs& other) {
    return std::equal(one.begin(), one.end(), other.begin(), isSame);
}

DialFace::DialFace(DialLook look, const QSize& size)
    : m_look(std::move(look)), m_skin(skinFile(m_look.skin)), m_plateMetrics(m_look.font) {
    const int side = std::min(size.width(), size.height());
    m_square = QRect((size.width() - side) / 2, (size.height() - side) / 2, side, side);
    m_centre = QRectF(m_square).center();
    m_unit = side / 200.0;
    // The value stands where the scale has its gap, with the label above it, else both are nearer to the middle.
    bool isGapBelow = true;
    for (double angle = 180.0 - 36.0; angle <= 180.0 + 36.0; angle += 4.0)
        isGapBelow = isGapBelow && !covers(angle);
    m_plate = around(QPointF(0.0, isGapBelow ? 63.0 : 31.0), isGapBelow ? plateWidth : plateWidth * 0.85, plateHeight);
    m_label = around(QPointF(0.0, isGapBelow ? 28.0 : -28.0), isGapBelow ? 72.0 : 58.0, 2.0 * labelHeight);
    // On whole pixels, for a sharp edge.
    m_plate = QRectF(m_plate.toRect()).translated(0.5, 0.5);
    const int decimals = readingPrecision(m_look.scale, m_look.precision);
    QString widest;
    for (const double end : {m_look.scale.minimum, m_look.scale.maximum})
        if (const QString text = numberText(end, decimals); text.size() > widest.size())
            widest = text;
    m_plateFont = fontOf(plateHeight * 0.78, widest, m_plate.width() * 0.9);
    m_plateMetrics = QFontMetricsF(m_plateFont);
}

double DialFace::sweep() const {
    return std::clamp(m_look.endAngle - m_look.startAngle, -360.0, 360.0);
}

double DialFace::angleAt(double share) const {
    return m_look.startAngle + sweep() * share;
}

bool DialFace::covers(double angle) const {
    const double from = std::min(m_look.startAngle, m_look.startAngle + sweep());
    const double behind = std::fmod(std::fmod(angle - from, 360.0) + 360.0, 360.0);
    return behind <= std::abs(sweep());
}

QPointF DialFace::pointAt(double angle, double radius) const {
    const double radians = qDegreesToRadians(angle);
    return m_centre + QPointF(std::sin(radians), -std::cos(radians)) * (radius * m_unit);
}

QRectF DialFace::around(const QPointF& offset, double width, double height) const {
    const QPointF middle = m_centre + offset * m_unit;
    const QSizeF size(width * m_unit, height * m_unit);
    return {middle - QPointF(size.width() / 2.0, size.height() / 2.0), size};
}

std::optional<double> DialFace::needleAngle(double value) const {
    if (!std::isfinite(value))
        return {};
    const LinearScale& scale = m_look.scale;
    if (!scale.hasLength())
        return m_look.startAngle;
    const double at = scale.at(value);
    const double angle = angleAt(std::clamp(at, 0.0, 1.0));
    if (at >= 0.0 && at <= 1.0)
        return angle;
    const double beyond = std::min(pinnedBeyond, (360.0 - std::abs(sweep())) / 2.0);
    return angle + ((at > 1.0) == (sweep() > 0.0) ? beyond : -beyond);
}

double DialFace::tipWay(double fromAngle, double toAngle) const {
    return std::abs(qDegreesToRadians(toAngle - fromAngle)) * tipRadius * m_unit;
}

QRect DialFace::needleRect(double angle) const {
    const double margin = needleHalfWidth * m_unit + 1.0;
    QRectF rect(pointAt(angle, tipRadius), QSizeF(0.0, 0.0));
    const QPointF tail = pointAt(angle, -needleTail);
    rect.setCoords(std::min(rect.left(), tail.x()), std::min(rect.top(), tail.y()), std::max(rect.left(), tail.x()),
                   std::max(rect.top(), tail.y()));
    return rect.adjusted(-margin, -margin, margin, margin).toAlignedRect();
}

QRect DialFace::capRect() const {
    return around(QPointF(0.0, 0.0), 2.0 * capRadius, 2.0 * capRadius).toAlignedRect();
}

QRect DialFace::plateRect() const {
    return m_plate.adjusted(-1.0, -1.0, 1.0, 1.0).toAlignedRect();
}

QString DialFace::readingText(double value) const {
    return numberText(value, readingPrecision(m_look.scale, m_look.precision));
}

int DialFace::sideOf(double value) const {
    if (!std::isfinite(value) || !m_look.scale.hasLength())
        return 0;
    return value < m_look.scale.lower() ? -1 : value > m_look.scale.upper() ? 1 : 0;
}

std::vector<Tick> DialFace::ticks() const {
    return m_look.smartTicks ? roundTicks(m_look.scale, m_look.ticks, m_look.precision)
                             : evenTicks(m_look.scale, m_look.ticks, minorsBetween, m_look.precision);
}

// The font at that height in units, smaller where the text would be wider than that many pixels.
QFont DialFace::fontOf(double height, const QString& text, double width) const {
    QFont font = m_look.font;
    int pixels = std::max(1, qRound(height * m_unit * 0.85));
    font.setPixelSize(pixels);
    while (pixels > leastTextHeight && QFontMetricsF(font).horizontalAdvance(text) > width)
        font.setPixelSize(--pixels);
    return font;
}

SkinColours DialFace::skinColours() const {
    const QColor& back = m_look.back;
    const QColor& border = m_look.border;
    QColor needle = legible(isDark(back) ? QColor(0xff, 0x6a, 0x3a) : QColor(0xd8, 0x40, 0x1f), back, 2.5);
    if (m_look.skin == QLatin1String("Speedometer2"))
        needle = m_look.text;
    if (!m_look.isEnabled)
        needle = mixed(withoutHue(needle), back, 0.5);
    return {{backKey, back.rgb()},
            {backEdgeKey, mixed(back, Qt::black, isDark(back) ? 0.35 : 0.10).rgb()},
            {borderKey, border.rgb()},
            {borderLightKey, mixed(border, Qt::white, 0.6).rgb()},
            {borderDarkKey, mixed(border, Qt::black, 0.5).rgb()},
            {needleKey, needle.rgb()},
            {needleShadeKey, mixed(needle, Qt::black, 0.3).rgb()},
            {hubKey, mixed(border, Qt::black, 0.7).rgb()},
            {hubLightKey, mixed(border, Qt::white, 0.1).rgb()}};
}

void DialFace::paintFace(QPainter& painter, qreal ratio) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawPixmap(m_square.topLeft(),
                       m_skin.pixmap(QStringLiteral("face"), m_square.size(), ratio, skinColours()));
    painter.setOpacity(m_look.isEnabled && m_look.isLive ? 1.0 : faint);
    paintScale(painter);
    paintLabel(painter);
    if (m_look.isLive)
        return;
    painter.setOpacity(0.7);
    const QString notLive = QtSvgDialGauge::tr("not live");
    painter.setFont(fontOf(labelHeight * 1.2, notLive, m_plate.width()));
    painter.setPen(m_look.text);
    painter.drawText(m_plate, Qt::AlignCenter, notLive);
}

void DialFace::paintScale(QPainter& painter) const {
    const std::vector<Tick> all = ticks();
    const QColor line = m_look.text;
    paintArc(painter, 0.0, 1.0, line, 0.9);
    const double length = qDegreesToRadians(std::abs(sweep())) * scaleRadius * m_unit;
    const bool hasRoom = length / double(std::max<size_t>(all.size(), 1)) >= leastMinorDistance;
    for (const Tick& tick : all) {
        if (!tick.isMajor && !hasRoom)
            continue;
        const double angle = angleAt(tick.at);
        painter.setPen(QPen(line, std::max(1.0, (tick.isMajor ? 2.2 : 1.0) * m_unit), Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(pointAt(angle, scaleRadius), pointAt(angle, tick.isMajor ? majorEnd : minorEnd));
    }
    if (m_look.isLive)
        paintNumbers(painter, all);
}

void DialFace::paintNumbers(QPainter& painter, const std::vector<Tick>& all) const {
    const QFont font = fontOf(numberHeight, {}, 0.0);
    if (font.pixelSize() < leastTextHeight)
        return;
    painter.setFont(font);
    painter.setPen(m_look.text);
    const QFontMetricsF metrics(font);
    std::vector<QRectF> places;
    QStringList texts;
    for (const Tick& tick : all) {
        if (tick.text.isEmpty())
            continue;
        const double angle = qDegreesToRadians(angleAt(tick.at));
        const double width = metrics.horizontalAdvance(tick.text) + 1.0;
        const double height = metrics.capHeight();
        const double inwards = std::abs(std::sin(angle)) * width / 2.0 + std::abs(std::cos(angle)) * height / 2.0;
        const QPointF middle = pointAt(angleAt(tick.at), numbersRadius - inwards / m_unit);
        places.emplace_back(middle.x() - width / 2.0, middle.y() - height / 2.0, width, height);
        texts.append(tick.text);
    }
    const size_t step = clearStep(places, metrics.averageCharWidth() * 0.6);
    for (size_t i = 0; i < places.size(); i += step) {
        // After a whole turn the last one stands where the first does.
        if (i > 0 && places[i].intersects(places.front()))
            break;
        painter.drawText(places[i].bottomLeft(), texts[int(i)]);
    }
}

void DialFace::paintLabel(QPainter& painter) const {
    if (m_look.label.isEmpty())
        return;
    const int bracket = m_look.label.indexOf(QLatin1Char('['), 1);
    const QStringList lines =
        bracket < 0 ? QStringList{m_look.label} : QStringList{m_look.label.left(bracket), m_look.label.mid(bracket)};
    painter.setPen(m_look.text);
    QRectF room = m_label;
    if (lines.size() == 2)
        room.setBottom(m_label.center().y());
    for (const QString& line : lines) {
        const QFont font = fontOf(labelHeight, line, room.width());
        painter.setFont(font);
        painter.drawText(room, Qt::AlignCenter, QFontMetricsF(font).elidedText(line, Qt::ElideMiddle, room.width()));
        // The units stand between the outermost numbers.
        room.moveTop(room.bottom());
        const double inwards = (room.width() - unitsWidth * m_unit) / 2.0;
        room = room.adjusted(inwards, 0.0, -inwards, 0.0);
    }
}

void DialFace::paintArc(QPainter& painter, double from, double to, const QColor& colour, double width) const {
    const double radius = (width > 2.0 ? arcsRadius : scaleRadius) * m_unit;
    QPen pen(colour, width * m_unit, Qt::SolidLine, Qt::FlatCap);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    // Qt counts sixteenths of a degree anticlockwise from the right.
    const int start = qRound(std::remainder(90.0 - angleAt(from), 360.0) * 16.0);
    const int span = qRound(-sweep() * (to - from) * 16.0);
    painter.drawArc(QRectF(m_centre.x() - radius, m_centre.y() - radius, 2.0 * radius, 2.0 * radius), start, span);
}

void DialFace::paintArcs(QPainter& painter, const DialArcs& arcs) const {
    if (!m_look.isLive || !m_look.scale.hasLength())
        return;
    std::vector<arc> shown;
    std::copy_if(arcs.begin(), arcs.end(), std::back_inserter(shown), isShown);
    std::stable_sort(shown.begin(), shown.end(), [](const arc& one, const arc& other) {
        return std::abs(one.end - one.start) > std::abs(other.end - other.start);
    });
    painter.setRenderHint(QPainter::Antialiasing);
    for (const arc& piece : shown) {
        const double from = m_look.scale.at(m_look.scale.clamped(piece.start));
        const double to = m_look.scale.at(m_look.scale.clamped(piece.end));
        QColor colour = colourOf(piece.color);
        // A colour close to the face's gets an edge.
        if (contrast(colour, m_look.back) < 2.0)
            paintArc(painter, from, to, m_look.text, arcsWidth);
        if (!m_look.isEnabled)
            colour = mixed(withoutHue(colour), m_look.back, 0.5);
        paintArc(painter, from, to, colour, contrast(colour, m_look.back) < 2.0 ? arcsWidth - 1.6 : arcsWidth);
    }
}

QPixmap DialFace::needle(qreal ratio) const {
    // At twice the size, so that it stays sharp when it is turned.
    const int side = m_square.width();
    return m_skin.pixmap(QStringLiteral("needle"), QSize(side / 5, side * 2), ratio, skinColours());
}

QPixmap DialFace::cap(qreal ratio) const {
    return m_skin.pixmap(QStringLiteral("cap"), capRect().size(), ratio, skinColours());
}

QPixmap DialFace::plate(qreal ratio, int side) const {
    const QRect rect = plateRect();
    QPixmap picture(rect.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_look.isEnabled ? 1.0 : faint);
    painter.translate(-rect.topLeft());
    painter.setPen(QPen(mixed(m_look.back, m_look.text, 0.45), 1.0));
    painter.setBrush(side != 0 ? m_look.text : mixed(m_look.back, m_look.text, 0.05));
    painter.drawRoundedRect(m_plate, 3.0 * m_unit, 3.0 * m_unit);
    if (side == 0)
        return picture;
    const double size = arrowSize * m_unit;
    const QPointF middle(m_plate.left() + size * 1.3, m_plate.center().y());
    const double up = side > 0 ? -size : size;
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_look.back);
    painter.drawPolygon(QVector<QPointF>{middle + QPointF(-size * 0.8, -up * 0.7),
                                         middle + QPointF(size * 0.8, -up * 0.7), middle + QPointF(0.0, up * 0.8)});
    return picture;
}

void DialFace::paintNeedle(QPainter& painter, const QPixmap& needle, double angle) const {
    painter.save();
    painter.translate(m_centre);
    painter.rotate(angle);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRectF(-10.0 * m_unit, -100.0 * m_unit, 20.0 * m_unit, 200.0 * m_unit), needle,
                       QRectF(QPointF(0.0, 0.0), needle.size()));
    painter.restore();
}

void DialFace::paintReading(QPainter& painter, const QString& text, int side) const {
    QRectF room = m_plate;
    if (side != 0)
        room.setLeft(m_plate.left() + arrowSize * m_unit * 2.3);
    double width = m_plateMetrics.horizontalAdvance(text);
    QFont font = m_plateFont;
    if (width > room.width() - 2.0) {
        font = fontOf(plateHeight * 0.78, text, room.width() - 2.0);
        width = QFontMetricsF(font).horizontalAdvance(text);
    }
    painter.setFont(font);
    painter.setOpacity(m_look.isEnabled ? 1.0 : faint);
    painter.setPen(side != 0 ? m_look.back : m_look.text);
    const double capitals = QFontMetricsF(font).capHeight();
    painter.drawText(QPointF(room.center().x() - width / 2.0, room.center().y() + capitals / 2.0), text);
}
