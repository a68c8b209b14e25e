// A style sheet that sets one colour.
#ifndef OSTREL_WIDGETS_COLOURSHEET_H
#define OSTREL_WIDGETS_COLOURSHEET_H

#include <QColor>
#include <QString>

// `pattern` has %1, %2 and %3 where red, green and blue stand.
inline QString colourSheet(const char* pattern, const QColor& color) {
    return QString::fromLatin1(pattern).arg(color.red()).arg(color.green()).arg(color.blue());
}

#endif
