// The picture of a bar on a scale: where its pieces stand, and how each is painted.
#ifndef OSTREL_DISPLAY_DRAWN_BARFACE_H
#define OSTREL_DISPLAY_DRAWN_BARFACE_H

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QRectF>

#include "drawn/linearscale.h"

class QPainter;

// What the scale is made of.
struct BarLook {
    LinearScale scale;
    int majorTicks = 0;
    int minorTicks = 0;
    int precision = 0;
    bool isVertical = false;
    QString label;  // empty where none is shown
    QFont font;
    QPalette palette;
    bool isEnabled = true;
    bool isLive = true;
};

// The scale is laid out along one direction: along it lie the ticks, across it the label, the track, ticks and numbers.
class BarFace {
public:
    BarFace(BarLook look, const QSize& size);

    const BarLook& look() const { return m_look; }

    // How far the bar of that value reaches, in device-independent pixels. 0 for what is no number.
    double length(double value) const;
    // Whether nobody sees a difference, where moves below that many pixels are not seen.
    bool areAlike(double one, double other, double leastMove) const;
    // What changes with the value.
    QRect barRect() const;

    void paintScale(QPainter& painter) const;
    void paintBar(QPainter& painter, double value, const QColor& colour) const;

private:
    double pixelAt(double share) const;
    QRectF spanned(double along, double across, double width, double height) const;
    void layOut(const QSize& size);
    void paintTicks(QPainter& painter) const;
    void paintArrow(QPainter& painter, bool isAbove, const QColor& colour) const;
    void paintWords(QPainter& painter, const QString& words) const;
    QColor trackColour() const;
    QColor textColour() const;

    BarLook m_look;
    std::vector<Tick> m_ticks;
    QRectF m_label;
    QRectF m_track;
    double m_tickLength = 0.0;
    bool m_hasTicks = false;
    bool m_hasNumbers = false;
};

#endif
