// Drawn widgets as pictures, and what can be said of a picture without knowing its pixels.
#ifndef OSTREL_TESTS_DISPLAY_PICTURE_H
#define OSTREL_TESTS_DISPLAY_PICTURE_H

#include <QColor>
#include <QImage>
#include <QPalette>
#include <QRect>
#include <QWidget>

QPalette lightPalette();
QPalette darkPalette();

// The widget with its background, as it stands in a window with its palette.
QImage pictureOf(QWidget& widget, double ratio = 1.0);

// How somebody sees the picture who does not tell red from green, or in grey.
QColor withoutRedAndGreen(const QColor& colour);
QImage seenBy(const QImage& picture, QColor (*eye)(const QColor&));

// From 0, black, to 1, white, over a part of the picture in its own pixels.
double meanLuminance(const QImage& picture, const QRect& part);

// The smallest rectangle that holds every pixel that is plainly not of that colour. Empty where there is none.
QRect drawnRect(const QImage& picture, const QColor& background);

// How many pixels are about of that colour.
int pixelsOf(const QImage& picture, const QColor& colour, int tolerance = 40);

bool isAbout(const QColor& one, const QColor& other, int tolerance = 40);

// Counts the paint events of a widget and tells the region of the last one.
class PaintWitness : public QObject {
public:
    explicit PaintWitness(QWidget* widget);
    bool eventFilter(QObject* object, QEvent* event) override;

    int count() const { return m_count; }
    QRegion region() const { return m_region; }
    void forget();

    // The paint events that are due now.
    int countAfterEvents();

private:
    int m_count = 0;
    QRegion m_region;
};

#endif
