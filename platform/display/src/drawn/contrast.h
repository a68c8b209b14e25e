// How well a colour stands out from its ground.
#ifndef OSTREL_DISPLAY_DRAWN_CONTRAST_H
#define OSTREL_DISPLAY_DRAWN_CONTRAST_H

#include <QColor>

// The brightness that the eye sees, without the hue, from 0 for black to 1 for white.
double luminance(const QColor& colour);

// From 1, the same brightness, to 21, black on white. Text can be read from 4.5 on, a line seen from 3.
double contrast(const QColor& one, const QColor& other);

bool isDark(const QColor& ground);

// The wanted colour where its contrast to the ground is large enough, else black or white.
QColor legible(const QColor& wanted, const QColor& ground, double leastContrast = 4.5);

// Between the two: `share` 0 is the first, 1 the second.
QColor mixed(const QColor& first, const QColor& second, double share);

// The same brightness without its hue, as a disabled widget shows it.
QColor withoutHue(const QColor& colour);

#endif
