#include "widgets/legibletext.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

// ---- Colours ----

constexpr double readable = 3.0;
constexpr int darkPlate = 32;
constexpr int lightPlate = 246;
constexpr int opaque = 255;

std::array<double, 256> linearIntensities() {
    std::array<double, 256> linear{};
    for (size_t i = 0; i < linear.size(); ++i) {
        const double value = double(i) / 255.0;
        linear[i] = value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    }
    return linear;
}

double luminance(const QColor& colour) {
    static const std::array<double, 256> linear = linearIntensities();
    const auto part = [](int value) { return linear[static_cast<size_t>(value)]; };
    return 0.2126 * part(colour.red()) + 0.7152 * part(colour.green()) + 0.0722 * part(colour.blue());
}

QColor middleOf(const QGradientStops& stops) {
    const auto mean = [&](qreal (QColor::*part)() const) {
        qreal sum = 0.0;
        for (const QGradientStop& stop : stops)
            sum += (stop.second.*part)();
        return sum / stops.size();
    };
    return QColor::fromRgbF(mean(&QColor::redF), mean(&QColor::greenF), mean(&QColor::blueF), mean(&QColor::alphaF));
}

QColor colourOf(const QBrush& brush) {
    return brush.gradient() ? middleOf(brush.gradient()->stops()) : brush.color();
}

bool paintsItsBackground(const QWidget& widget) {
    return widget.isWindow() || widget.autoFillBackground() || widget.testAttribute(Qt::WA_StyledBackground) ||
           widget.testAttribute(Qt::WA_OpaquePaintEvent);
}

QColor laidOver(const QColor& upper, const QColor& lower) {
    const double share = upper.alphaF();
    return QColor::fromRgbF(upper.redF() * share + lower.redF() * (1.0 - share),
                            upper.greenF() * share + lower.greenF() * (1.0 - share),
                            upper.blueF() * share + lower.blueF() * (1.0 - share));
}

// ---- Text ----

constexpr int plateMargin = 2;
constexpr QChar ellipsis(0x2026);

bool isDigit(QChar character) {
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

bool isHexDigit(QChar character) {
    return isDigit(character) || (character.toUpper() >= QLatin1Char('A') && character.toUpper() <= QLatin1Char('F'));
}

// One word and perhaps its units, which are in brackets or one word.
bool isOneWordWithUnits(const QStringView& text) {
    const auto space = std::find_if(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
    const QStringView units = text.mid(space - text.begin()).trimmed();
    return units.startsWith(QLatin1Char('[')) ||
           std::none_of(units.begin(), units.end(), [](QChar c) { return c.isSpace(); });
}

bool isHexadecimalOrNoNumber(const QStringView& word) {
    return !word.isEmpty() && (std::all_of(word.begin(), word.end(), isHexDigit) ||
                               word.compare(QLatin1String("inf"), Qt::CaseInsensitive) == 0 ||
                               word.compare(QLatin1String("nan"), Qt::CaseInsensitive) == 0);
}

// Whether no digit's upper or lower edge lies outside of a room of that height.
bool digitsFit(const QFontMetrics& metrics, int height, int flags) {
    int top = 0;
    if (flags & Qt::AlignBottom)
        top = height - metrics.height();
    else if (flags & Qt::AlignVCenter)
        top = (height - metrics.height()) / 2;
    const int baseline = top + metrics.ascent();
    return baseline <= height && baseline - metrics.capHeight() >= 0;
}

bool fitsInLines(const QFontMetrics& metrics, const QSize& room, int flags, const QString& text) {
    if (!(flags & Qt::TextWordWrap) && !text.contains(QLatin1Char('\n')))
        return false;
    const QRect needed = metrics.boundingRect(QRect(0, 0, room.width(), QWIDGETSIZE_MAX), flags, text);
    return needed.width() <= room.width() && needed.height() <= room.height();
}

QString shortened(const QFontMetrics& metrics, const QString& text, Qt::TextElideMode mode, int width) {
    const QString shown = metrics.elidedText(text, mode, width);
    return shown.isEmpty() ? QString(ellipsis) : shown;
}

// "Pump 15…" might be of pump 1500: a word with digits is left out as one.
QString withoutPartsOfNumbers(const QString& begin) {
    const int lastWord = begin.lastIndexOf(QLatin1Char(' ')) + 1;
    if (std::none_of(begin.begin() + lastWord, begin.end(), isDigit))
        return begin;
    return begin.left(lastWord).trimmed() + ellipsis;
}

int leastSize(int ownSize) {
    return (2 * ownSize + 2) / 3;
}

void drawPlate(QPainter& painter, const QRect& room, int flags, const QString& text, const QColor& plate) {
    if (!plate.isValid() || text.isEmpty())
        return;
    const QRect around = painter.boundingRect(room, flags, text).adjusted(-plateMargin, 0, plateMargin, 0);
    painter.fillRect(around.intersected(room.adjusted(-plateMargin, 0, plateMargin, 0)), plate);
}

// The tool tip that an operator sees at a widget without one of its own.
QString inheritedToolTip(const QWidget& widget) {
    const QWidget* at = &widget;
    while (at->toolTip().isEmpty() && !at->isWindow() && at->parentWidget())
        at = at->parentWidget();
    return at->toolTip();
}

QString asMarkup(const QString& text) {
    return text.isEmpty() ? text : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

}  // namespace

double contrast(const QColor& one, const QColor& other) {
    constexpr double flare = 0.05;
    const double first = luminance(one) + flare;
    const double second = luminance(other) + flare;
    return std::max(first, second) / std::min(first, second);
}

QColor plateFor(const QColor& text, const QColor& field) {
    if (!text.isValid() || !field.isValid() || contrast(text, field) >= readable)
        return {};
    const QColor dark(darkPlate, darkPlate, darkPlate);
    const QColor light(lightPlate, lightPlate, lightPlate);
    return contrast(text, dark) > contrast(text, light) ? dark : light;
}

QColor fieldBehind(const QWidget& widget) {
    const QWidget* at = &widget;
    while (!paintsItsBackground(*at) && at->parentWidget())
        at = at->parentWidget();
    return fieldOn(at->palette().brush(at->backgroundRole()), *at);
}

QColor fieldOn(const QBrush& background, const QWidget& widget) {
    const QColor field = colourOf(background);
    if (field.alpha() == opaque || widget.isWindow() || !widget.parentWidget())
        return field;
    return laidOver(field, fieldBehind(*widget.parentWidget()));
}

StatusColour statusColour(const QWidget& widget, const QColor& colour, bool secondHalf) {
    const QWidget* parent = widget.parentWidget();
    if (secondHalf && parent && colour == parent->palette().window().color())
        return {colour, true};
    if (!colour.isValid() || colour == widget.palette().text().color())
        return {};
    return {colour, false};
}

bool isNumber(const QString& text) {
    QStringView number = QStringView(text).trimmed();
    if (number.startsWith(QLatin1Char('-')) || number.startsWith(QLatin1Char('+')))
        number = number.mid(1);
    const auto units = std::find(number.begin(), number.end(), QLatin1Char('['));
    if (isHexadecimalOrNoNumber(number.left(units - number.begin()).trimmed()))
        return true;
    const QStringView digits = number.startsWith(QLatin1Char('.')) ? number.mid(1) : number;
    return !digits.isEmpty() && isDigit(digits.front()) && isOneWordWithUnits(number);
}

void LegibleText::setKind(Kind kind) {
    m_kind = kind;
    m_flags = -1;
}

// How wide a font's characters are, of those met so far; the others are 0.
struct LegibleText::Advances {
    QFont font;
    bool isPlain = true;  // a text is as wide as its characters together
    std::array<float, 128> widths{};
};

std::shared_ptr<LegibleText::Advances> LegibleText::advancesOf(const QFont& font) {
    static std::vector<std::weak_ptr<Advances>> known;
    known.erase(std::remove_if(known.begin(), known.end(), [](const auto& one) { return one.expired(); }), known.end());
    for (const auto& one : known)
        if (auto advances = one.lock(); advances->font == font)
            return advances;
    const bool isPlain =
        font.letterSpacing() == 0.0 && font.wordSpacing() == 0.0 && font.capitalization() == QFont::MixedCase;
    auto advances = std::make_shared<Advances>(Advances{font, isPlain, {}});
    known.push_back(advances);
    return advances;
}

void LegibleText::takeFont(const QFont& font) {
    m_font = font;
    m_advances = advancesOf(font);
}

bool LegibleText::surelyFits(const QString& text, int width) const {
    if (!m_advances->isPlain)
        return false;
    auto& widths = m_advances->widths;
    // Pairs of letters may stand a little further apart than each of them asks for.
    float needed = 1.0F;
    for (const QChar character : text) {
        const size_t code = character.unicode();
        if (code >= widths.size())
            return false;
        if (widths[code] == 0.0F)
            widths[code] = static_cast<float>(QFontMetricsF(m_font).horizontalAdvance(character));
        needed += widths[code];
    }
    return needed <= static_cast<float>(width);
}

LegibleText::Fit LegibleText::fit(const QSize& room, int flags, const QString& text, bool isPart) {
    const QFontMetrics metrics(m_font);
    const bool isLow = metrics.height() <= room.height();
    if (m_kind == Kind::Name && !isLow)
        return fitName(room, text);
    const int needed = surelyFits(text, room.width()) ? 0 : metrics.horizontalAdvance(text);
    const bool isNarrow = needed <= room.width();
    const bool isDoubtful = isPart || !isNarrow || (!isLow && !digitsFit(metrics, room.height(), flags));
    if (m_kind == Kind::Value && isDoubtful && isNumber(text))
        return isPart ? fillWithSigns(room) : fitNumber(room, flags, text, needed);
    if (isNarrow || fitsInLines(metrics, room, flags, text))
        return Fit::AsItIs;
    m_shownFont = m_font;
    m_shown = shortened(metrics, text, m_kind == Kind::Name ? Qt::ElideMiddle : Qt::ElideRight, room.width());
    if (m_kind == Kind::Value)
        m_shown = withoutPartsOfNumbers(m_shown);
    return Fit::Cut;
}

// The lines under the letters of a name are what tells it from others: all of its height is shown.
LegibleText::Fit LegibleText::fitName(const QSize& room, const QString& text) {
    const int ownSize = QFontInfo(m_font).pixelSize();
    m_shownFont = m_font;
    int size = ownSize;
    while (size > leastSize(ownSize) && QFontMetrics(m_shownFont).height() > room.height())
        m_shownFont.setPixelSize(--size);
    const QFontMetrics metrics(m_shownFont);
    const bool isWhole = metrics.horizontalAdvance(text) <= room.width();
    m_shown = isWhole ? text : shortened(metrics, text, Qt::ElideMiddle, room.width());
    return isWhole ? Fit::Smaller : Fit::Cut;
}

LegibleText::Fit LegibleText::fitNumber(const QSize& room, int flags, const QString& text, int needed) {
    const int ownSize = QFontInfo(m_font).pixelSize();
    // Widths follow sizes nearly, but for the rounding.
    const int guess = needed > room.width() ? ownSize * room.width() / needed + 1 : ownSize;
    m_shown = text;
    m_shownFont = m_font;
    for (int size = std::min(guess, ownSize - 1); size >= leastSize(ownSize); --size) {
        m_shownFont.setPixelSize(size);
        const QFontMetrics metrics(m_shownFont);
        if (metrics.horizontalAdvance(text) <= room.width() && digitsFit(metrics, room.height(), flags))
            return Fit::Smaller;
    }
    return fillWithSigns(room);
}

LegibleText::Fit LegibleText::fillWithSigns(const QSize& room) {
    constexpr QChar sign = QLatin1Char('#');
    m_shownFont = m_font;
    m_shown.fill(sign, std::max(1, static_cast<int>(room.width() / QFontMetricsF(m_font).horizontalAdvance(sign))));
    return Fit::Cut;
}

void LegibleText::draw(QPainter& painter, const QRect& room, int flags, const QString& text, const QColor& plate,
                       bool isPart) {
    const QFont& font = painter.font();
    const bool isNew = m_flags < 0 || !(m_font.isCopyOf(font) || m_font == font);
    if (isNew)
        takeFont(font);
    if (isNew || text != m_text || room.size() != m_room || flags != m_flags || isPart != m_isPart) {
        m_text = text;
        m_room = room.size();
        m_flags = flags;
        m_isPart = isPart;
        m_fit = fit(m_room, flags, text, isPart);
    }
    if (m_fit == Fit::AsItIs) {
        drawPlate(painter, room, flags, text, plate);
        painter.drawText(room, flags, text);
        return;
    }
    const int inOneLine = (flags & ~Qt::TextWordWrap) | Qt::TextSingleLine;
    painter.setFont(m_shownFont);
    drawPlate(painter, room, inOneLine, m_shown, plate);
    painter.drawText(room, inOneLine, m_shown);
    painter.setFont(m_font);
}

bool LegibleText::showToolTip(QWidget& widget, const QHelpEvent& event) const {
    if (m_fit != Fit::Cut)
        return false;
    const QString whole = m_isPart ? m_text + ellipsis : m_text;
    const QString below = inheritedToolTip(widget);
    QString tip = below.isEmpty() ? whole : whole + QLatin1Char('\n') + below;
    if (Qt::mightBeRichText(whole) || Qt::mightBeRichText(below))
        tip = asMarkup(whole) + (Qt::mightBeRichText(below) ? below : asMarkup(below));
    QToolTip::showText(event.globalPos(), tip, &widget);
    return true;
}
