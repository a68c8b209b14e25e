// All drawn widgets in all their states on one sheet, to be looked at: drawnsheet FILE.png [RATIO [EYE]]
#include <ostrel-display/qled.h>
#include <ostrel-display/qtsvgbutton.h>
#include <ostrel-display/qtsvgdialgauge.h>
#include <ostrel-display/qtsvgtoggleswitch.h>
#include <ostrel-display/slider.h>

#include <QApplication>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QMetaEnum>
#include <cstdio>

#include "drawn/contrast.h"
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

QtSvgDialGauge* dial(const QString& skin, const QString& label, double minimum, double maximum, double value) {
    auto* gauge = new QtSvgDialGauge(nullptr);
    gauge->setSkin(skin);
    gauge->setLabel(label);
    gauge->setMinimum(minimum);
    gauge->setMaximum(maximum);
    gauge->setValue(value);
    gauge->setFixedSize(160, 160);
    return gauge;
}

void setLimits(QtSvgDialGauge* gauge, const QVector<double>& limits) {
    const color3 colours[] = {{1, 1, 0}, {1, 0, 1}, {1, 0, 0}};
    QVector<arc> arcs;
    for (int i = 0; i < 6; ++i)
        arcs.append(gauge->makeArc(!qIsNaN(limits[i]), colours[i % 3], i / 3, limits[i]));
    gauge->setAllArcs(arcs[0], arcs[1], arcs[2], arcs[3], arcs[4], arcs[5]);
}

QVector<QtSvgDialGauge*> dials() {
    const double none = qQNaN();
    const auto polished = QStringLiteral("Speedometer3");
    QVector<QtSvgDialGauge*> all;
    all.append(dial(polished, QStringLiteral("SPEED[RPM]"), 0, 8000, 3120));
    setLimits(all.last(), {1000, 700, 400, 6500, 7000, 7500});
    all.last()->setTicks(9);
    all.append(dial(QStringLiteral("Speedometer2"), QStringLiteral("OIL_PRESSURE[KPA]"), 0, 600, 412));
    setLimits(all.last(), {150, 100, none, none, none, none});
    all.last()->setTicks(7);
    all.append(dial(QStringLiteral("Speedometer1"), QStringLiteral("COOLANT[DEG_C]"), 0, 140, 92.4));
    setLimits(all.last(), {none, none, none, 105, 115, 125});
    all.last()->setTicks(8);
    all.last()->setPrecision(1);
    all.append(dial(polished, QStringLiteral("TORQUE[NM]"), -237, 451, 130));
    all.last()->setSmartTicks(true);
    all.append(dial(QStringLiteral("Speedometer2"), QStringLiteral("LAMBDA"), 0.7, 1.3, 1.01));
    all.last()->setPrecision(1);
    all.last()->setTicks(7);
    all.last()->setStartAngle(-90);
    all.last()->setEndAngle(90);
    all.append(dial(QStringLiteral("Speedometer1"), QStringLiteral("HEADING[DEG]"), 0, 360, 221));
    all.last()->setTicks(13);
    all.last()->setStartAngle(0);
    all.last()->setEndAngle(360);
    all.append(dial(polished, QStringLiteral("ABOVE[V]"), 0, 100, 132));
    all.append(dial(polished, QStringLiteral("BELOW[V]"), 0, 100, -7));
    all.append(dial(polished, QStringLiteral("NO VALUE[V]"), 0, 100, none));
    all.append(dial(polished, QStringLiteral("DOWNWARDS[V]"), 100, 0, 80));
    setLimits(all.last(), {20, none, none, 70, none, none});
    all.append(dial(polished, QStringLiteral("DISABLED[V]"), 0, 100, 40));
    setLimits(all.last(), {20, none, none, 70, none, none});
    all.last()->setEnabled(false);
    all.append(dial(polished, QStringLiteral("REMOTE[V]"), 0, 100, 40));
    all.last()->set_remote();
    return all;
}

Slider* slider(Qt::Orientation orientation, const QString& label, double minimum, double maximum, double value) {
    auto* bar = new Slider(nullptr);
    bar->Orientation = orientation;
    bar->setLabel(label);
    bar->setLabelVisible(true);
    bar->Minimum = minimum;
    bar->Maximum = maximum;
    bar->Value = value;
    bar->setFixedSize(orientation == Qt::Horizontal ? QSize(340, 80) : QSize(92, 190));
    return bar;
}

// One of each state.
QVector<Slider*> sliders(Qt::Orientation orientation) {
    QVector<Slider*> all;
    all.append(slider(orientation, QStringLiteral("Speed"), 0, 8000, 3120));
    all.last()->MajorTicks = 5;
    all.append(slider(orientation, QStringLiteral("Torque"), -250, 450, 130));
    all.last()->MajorTicks = 8;
    all.last()->BarColor = QColor(240, 150, 20);
    all.append(slider(orientation, QStringLiteral("Lambda"), 0.7, 1.3, 1.01));
    all.last()->Precision = 1;
    all.last()->MajorTicks = 7;
    all.last()->MinorTicks = 1;
    all.last()->BarColor = QColor(120, 190, 60);
    all.append(slider(orientation, QStringLiteral("Downwards"), 100, 0, 30));
    all.append(slider(orientation, QStringLiteral("Above"), 0, 100, 130));
    all.append(slider(orientation, QStringLiteral("Below"), 0, 100, -3));
    all.append(slider(orientation, QStringLiteral("No value"), 0, 100, qQNaN()));
    all.append(slider(orientation, QStringLiteral("Disabled"), 0, 100, 60));
    all.last()->setEnabled(false);
    all.append(slider(orientation, QStringLiteral("Remote"), 0, 100, 60));
    all.last()->set_remote();
    return all;
}

QWidget* sliderBoard() {
    auto* board = new QWidget;
    auto* grid = new QGridLayout(board);
    const QVector<Slider*> across = sliders(Qt::Horizontal);
    for (int i = 0; i < across.size(); ++i)
        grid->addWidget(across[i], i / 2, i % 2);
    auto* row = new QHBoxLayout;
    for (Slider* upright : sliders(Qt::Vertical))
        row->addWidget(upright);
    grid->addLayout(row, 6, 0, 1, 2);
    return board;
}

QWidget* dialBoard() {
    auto* board = new QWidget;
    auto* grid = new QGridLayout(board);
    const QVector<QtSvgDialGauge*> all = dials();
    for (int i = 0; i < all.size(); ++i)
        grid->addWidget(all[i], i / 6, i % 6);
    return board;
}

// The same dial as large as on a wall, and all bars.
QWidget* largeBoard() {
    auto* board = new QWidget;
    auto* row = new QHBoxLayout(board);
    QtSvgDialGauge* large = dial(QStringLiteral("Speedometer3"), QStringLiteral("SPEED[RPM]"), 0, 8000, 3120);
    setLimits(large, {1000, 700, 400, 6500, 7000, 7500});
    large->setTicks(9);
    large->setFixedSize(420, 420);
    row->addWidget(large);
    row->addWidget(sliderBoard());
    return board;
}

// One in a state that a picture can only show of a button that is told of it.
template <class Button>
Button* buttonIn(const QString& skin, const QString& state, bool isOn, int height) {
    auto* button = new Button(nullptr);
    button->setSkin(skin);
    button->setCheckable(true);
    button->setChecked(isOn);
    button->setDown(state == QLatin1String("pressed"));
    button->setEnabled(state != QLatin1String("disabled"));
    button->setAttribute(Qt::WA_UnderMouse, state == QLatin1String("hover"));
    button->setFixedSize(button->sizeHint() * height / button->sizeHint().height());
    return button;
}

// A picture of a button that has the focus. Only one of a whole application has it, in a window of its own.
QLabel* focused(QAbstractButton* button, const QPalette& palette, double ratio) {
    button->setPalette(palette);
    button->show();
    QApplication::setActiveWindow(button);
    button->setFocus();
    auto* label = new QLabel;
    label->setPixmap(QPixmap::fromImage(pictureOf(*button, ratio)));
    delete button;
    return label;
}

const QStringList buttonStates{QStringLiteral("at rest"), QStringLiteral("hover"), QStringLiteral("focus"),
                               QStringLiteral("pressed"), QStringLiteral("disabled")};

// A row of each skin, a pair of columns of each state: off and on.
template <class Button>
void addButtons(QGridLayout* grid, const QStringList& skins, int height, const QPalette& palette, double ratio) {
    for (const QString& skin : skins) {
        const int row = grid->rowCount();
        grid->addWidget(caption(skin), row, 0);
        for (int state = 0; state < buttonStates.size(); ++state)
            for (const bool isOn : {false, true}) {
                QWidget* button = buttonIn<Button>(skin, buttonStates[state], isOn, height);
                if (buttonStates[state] == QLatin1String("focus"))
                    button = focused(static_cast<Button*>(button), palette, ratio);
                grid->addWidget(button, row, 1 + 2 * state + (isOn ? 1 : 0), Qt::AlignCenter);
            }
    }
}

QWidget* buttonBoard(const QPalette& palette, double ratio) {
    auto* board = new QWidget;
    auto* grid = new QGridLayout(board);
    for (int state = 0; state < buttonStates.size(); ++state)
        grid->addWidget(caption(buttonStates[state]), 0, 1 + 2 * state, 1, 2);
    const QStringList switchSkins{QStringLiteral("Beryl"), QStringLiteral("BerylSquare")};
    const QStringList buttonSkins = switchSkins + QStringList(QStringLiteral("MetallicBrush"));
    addButtons<QtSvgButton>(grid, buttonSkins, 64, palette, ratio);
    addButtons<QtSvgButton>(grid, buttonSkins, 32, palette, ratio);
    addButtons<QtSvgToggleSwitch>(grid, switchSkins, 48, palette, ratio);
    addButtons<QtSvgToggleSwitch>(grid, switchSkins, 28, palette, ratio);
    return board;
}

QWidget* board(const QPalette& palette, double ratio) {
    auto* widget = new QWidget;
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(widget);
    auto* row = new QHBoxLayout;
    row->addWidget(lamps(40));
    row->addWidget(lamps(20));
    row->addStretch();
    layout->addLayout(row);
    layout->addWidget(dialBoard());
    layout->addWidget(largeBoard());
    layout->addWidget(buttonBoard(palette, ratio));
    return widget;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr,
                     "usage: drawnsheet FILE.png [RATIO [EYE]]\n"
                     "EYE grey sees no hues, EYE deuteranopia does not tell red from green.\n");
        return 2;
    }
    QWidget sheet;
    auto* layout = new QVBoxLayout(&sheet);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    const double ratio = argc > 2 ? QByteArray(argv[2]).toDouble() : 1.0;
    layout->addWidget(board(sheet.palette(), ratio));
    layout->addWidget(board(darkPalette(), ratio));
    sheet.resize(sheet.sizeHint());

    QImage picture(sheet.size() * ratio, QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::white);
    sheet.render(&picture);
    const QByteArray eye = argc > 3 ? argv[3] : "";
    if (eye == "grey")
        picture = seenBy(picture, withoutHue);
    else if (eye == "deuteranopia")
        picture = seenBy(picture, withoutRedAndGreen);
    // As small as the format can make it.
    if (!picture.save(QString::fromLocal8Bit(argv[1]), "PNG", 0)) {
        std::fprintf(stderr, "drawnsheet: %s cannot be written\n", argv[1]);
        return 1;
    }
    return 0;
}
