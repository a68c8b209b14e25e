// All drawn widgets in all their states on one sheet, to be looked at: drawnsheet FILE.png [RATIO]
#include <ostrel-display/qled.h>

#include <QApplication>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QMetaEnum>
#include <cstdio>

#include "picture.h"

namespace {

QLabel* caption(const QString& text) {
    auto* label = new QLabel(text);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

QLed* lamp(int colour, int shape, bool value, int side) {
    auto* led = new QLed(nullptr);
    led->setOnColor(QLed::ledColor(colour));
    led->setOffColor(QLed::ledColor(colour));
    led->setShape(QLed::ledShape(shape));
    led->setValue(value);
    led->setFixedSize(side, side);
    return led;
}

// A row of each shape, a pair of columns of each colour: shining and dark.
QWidget* lamps(int side) {
    const QMetaEnum colours = QMetaEnum::fromType<QLed::ledColor>();
    const QMetaEnum shapes = QMetaEnum::fromType<QLed::ledShape>();
    auto* board = new QWidget;
    auto* grid = new QGridLayout(board);
    for (int colour = 0; colour < colours.keyCount(); ++colour)
        grid->addWidget(caption(QLatin1String(colours.key(colour))), 0, 1 + 2 * colour, 1, 2);
    for (int shape = 0; shape < shapes.keyCount(); ++shape) {
        grid->addWidget(caption(QLatin1String(shapes.key(shape))), 1 + shape, 0);
        for (int colour = 0; colour < colours.keyCount(); ++colour) {
            grid->addWidget(lamp(colour, shape, true, side), 1 + shape, 1 + 2 * colour, Qt::AlignCenter);
            grid->addWidget(lamp(colour, shape, false, side), 1 + shape, 2 + 2 * colour, Qt::AlignCenter);
        }
    }
    grid->addWidget(caption(QStringLiteral("disabled")), 1 + shapes.keyCount(), 0);
    for (int i = 0; i < 2 * colours.keyCount(); ++i) {
        QLed* led = lamp(i / 2, 0, i % 2 == 0, side);
        led->setEnabled(false);
        grid->addWidget(led, 1 + shapes.keyCount(), 1 + i, Qt::AlignCenter);
    }
    return board;
}

QWidget* board(const QPalette& palette) {
    auto* widget = new QWidget;
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
    auto* layout = new QHBoxLayout(widget);
    layout->addWidget(lamps(40));
    layout->addWidget(lamps(20));
    layout->addStretch();
    return widget;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: drawnsheet FILE.png [RATIO]\n");
        return 2;
    }
    QWidget sheet;
    auto* layout = new QVBoxLayout(&sheet);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(board(sheet.palette()));
    layout->addWidget(board(darkPalette()));
    sheet.resize(sheet.sizeHint());

    const double ratio = argc > 2 ? QByteArray(argv[2]).toDouble() : 1.0;
    QImage picture(sheet.size() * ratio, QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::white);
    sheet.render(&picture);
    if (!picture.save(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "drawnsheet: %s cannot be written\n", argv[1]);
        return 1;
    }
    return 0;
}
