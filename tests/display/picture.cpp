#include "picture.h"

#include <QApplication>
#include <QPaintEvent>
#include <algorithm>
#include <cmath>

#include "drawn/contrast.h"

QPalette lightPalette() {
    QPalette palette(QColor(239, 239, 239));
    palette.setColor(QPalette::Window, QColor(239, 239, 239));
    palette.setColor(QPalette::Base, Qt::white);
    return palette;
}

QPalette darkPalette() {
    QPalette palette(QColor(43, 46, 50));
    palette.setColor(QPalette::Window, QColor(43, 46, 50));
    palette.setColor(QPalette::Base, QColor(30, 32, 35));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, QColor(232, 234, 237));
    return palette;
}

QImage pictureOf(QWidget& widget, double ratio) {
    QImage picture(widget.size() * ratio, QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.fill(widget.palette().color(QPalette::Window));
    widget.render(&picture);
    return picture;
}

QColor withoutRedAndGreen(const QColor& colour) {
    const auto linear = [](double c) { return std::pow(c, 2.2); };
    const auto channel = [](double c) { return std::pow(std::clamp(c, 0.0, 1.0), 1.0 / 2.2); };
    const double r = linear(colour.redF());
    const double g = linear(colour.greenF());
    const double b = linear(colour.blueF());
    return QColor::fromRgbF(channel(0.367 * r + 0.861 * g - 0.228 * b), channel(0.280 * r + 0.673 * g + 0.047 * b),
                            channel(-0.012 * r + 0.043 * g + 0.969 * b));
}

QImage seenBy(const QImage& picture, QColor (*eye)(const QColor&)) {
    QImage seen = picture;
    for (int y = 0; y < seen.height(); ++y)
        for (int x = 0; x < seen.width(); ++x)
            seen.setPixelColor(x, y, eye(picture.pixelColor(x, y)));
    return seen;
}

double meanLuminance(const QImage& picture, const QRect& part) {
    double sum = 0.0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            sum += luminance(picture.pixelColor(x, y));
    return sum / (part.width() * part.height());
}

QRect drawnRect(const QImage& picture, const QColor& background) {
    QRect drawn;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (!isAbout(picture.pixelColor(x, y), background, 24))
                drawn |= QRect(x, y, 1, 1);
    return drawn;
}

int pixelsOf(const QImage& picture, const QColor& colour, int tolerance) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += isAbout(picture.pixelColor(x, y), colour, tolerance);
    return count;
}

bool isAbout(const QColor& one, const QColor& other, int tolerance) {
    return std::abs(one.red() - other.red()) <= tolerance && std::abs(one.green() - other.green()) <= tolerance &&
           std::abs(one.blue() - other.blue()) <= tolerance;
}

PaintWitness::PaintWitness(QWidget* widget) : QObject(widget) {
    widget->installEventFilter(this);
}

bool PaintWitness::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Paint) {
        ++m_count;
        m_region = static_cast<QPaintEvent*>(event)->region();
    }
    return false;
}

void PaintWitness::forget() {
    QApplication::processEvents();
    m_count = 0;
    m_region = {};
}

int PaintWitness::countAfterEvents() {
    QApplication::processEvents();
    return m_count;
}
