// The picture of a dial: its pieces, where they stand, and how each is painted.
#ifndef OSTREL_DISPLAY_DRAWN_DIALFACE_H
#define OSTREL_DISPLAY_DRAWN_DIALFACE_H

#include <ostrel-display/qtsvgdialgauge.h>

#include <QFont>
#include <QFontMetricsF>
#include <array>
#include <optional>

#include "drawn/linearscale.h"
#include "drawn/svgskin.h"

class QPainter;

// What the face is made of.
struct DialLook {
    QString skin;
    LinearScale scale;
    int precision = 0;
    double startAngle = 0.0;
    double endAngle = 0.0;
    int ticks = 0;
    bool smartTicks = false;
    QColor back;
    QColor border;
    QColor text;
    QString label;
    QFont font;
    bool isEnabled = true;
    bool isLive = true;
};

using DialArcs = std::array<arc, 6>;

bool areSame(const DialArcs& one, const DialArcs& other);

// Lengths are hundredths of the dial's radius; angles are degrees clockwise from the top.
class DialFace {
public:
    DialFace(DialLook look, const QSize& size);

    const DialLook& look() const { return m_look; }

    // Where the needle stands: nowhere for a value that is none, a little beyond the end for one beyond it.
    std::optional<double> needleAngle(double value) const;
    // How far its tip moves, in device-independent pixels.
    double tipWay(double fromAngle, double toAngle) const;
    QRect needleRect(double angle) const;
    // Above the needle.
    QRect capRect() const;
    QRect plateRect() const;
    QString readingText(double value) const;
    // 0: on the scale, -1 and 1: below and above it.
    int sideOf(double value) const;

    // The skin, the scale and the label, all that no value and no limit changes.
    void paintFace(QPainter& painter, qreal ratio) const;
    void paintArcs(QPainter& painter, const DialArcs& arcs) const;

    // The pieces that a new value moves, as pictures: the needle upright, the cap that it turns on, and the plate under
    // the number for a side as from sideOf().
    QPixmap needle(qreal ratio) const;
    QPixmap cap(qreal ratio) const;
    QPixmap plate(qreal ratio, int side) const;
    void paintNeedle(QPainter& painter, const QPixmap& needle, double angle) const;
    void paintReading(QPainter& painter, const QString& text, int side) const;

private:
    QPointF pointAt(double angle, double radius) const;
    QRectF around(const QPointF& offset, double width, double height) const;
    double sweep() const;
    double angleAt(double share) const;
    bool covers(double angle) const;
    std::vector<Tick> ticks() const;
    QFont fontOf(double height, const QString& text, double width) const;
    SkinColours skinColours() const;

    void paintScale(QPainter& painter) const;
    void paintNumbers(QPainter& painter, const std::vector<Tick>& ticks) const;
    void paintLabel(QPainter& painter) const;
    void paintArc(QPainter& painter, double from, double to, const QColor& colour, double width) const;

    DialLook m_look;
    SvgSkin m_skin;
    QRect m_square;
    QPointF m_centre;
    double m_unit;
    QRectF m_plate;
    QRectF m_label;
    QFont m_plateFont;
    QFontMetricsF m_plateMetrics;
};

#endif
