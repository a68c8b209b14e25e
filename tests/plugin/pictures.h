// What tests look for in the picture of a widget.
#ifndef OSTREL_TESTS_PLUGIN_PICTURES_H
#define OSTREL_TESTS_PLUGIN_PICTURES_H

#include <QFont>
#include <QHash>
#include <QImage>
#include <QWidget>
#include <cmath>

inline QImage picture(QWidget& widget) {
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

// How many pixels have each colour.
inline QHash<QRgb, int> colours(const QImage& image) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    return counts;
}

inline int pixels(const QImage& image, const QColor& colour) {
    return colours(image).value(colour.rgb());
}

// A font without shades between its colour and the one behind it.
inline QFont plainFont(int pixelSize) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(pixelSize);
    font.setStyleStrategy(QFont::NoAntialias);
    return font;
}

// By the formula of the Web Content Accessibility Guidelines 2.
inline double contrastOf(QRgb one, QRgb other) {
    const auto part = [](int value) {
        const double share = value / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    const auto light = [&](QRgb rgb) {
        return 0.2126 * part(qRed(rgb)) + 0.7152 * part(qGreen(rgb)) + 0.0722 * part(qBlue(rgb)) + 0.05;
    };
    return std::max(light(one), light(other)) / std::min(light(one), light(other));
}

// The least contrast of a colour with those beside it in a row.
inline double leastContrast(const QImage& image, const QColor& colour) {
    double least = 21.0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 1; x < image.width(); ++x) {
            const QRgb left = image.pixel(x - 1, y);
            const QRgb right = image.pixel(x, y);
            if (left != right && (left == colour.rgb() || right == colour.rgb()))
                least = std::min(least, contrastOf(left, right));
        }
    return least;
}

#endif
