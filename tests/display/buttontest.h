// What the tests of the drawn buttons have in common: a panel with a button, and fingers.
#ifndef OSTREL_TESTS_DISPLAY_BUTTONTEST_H
#define OSTREL_TESTS_DISPLAY_BUTTONTEST_H

#include <QAbstractButton>
#include <QApplication>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>
#include <memory>

// What a widget's mouse does, as one hears it who filters its events.
class MouseWitness : public QObject {
public:
    explicit MouseWitness(QWidget* widget) : QObject(widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease)
            heard << (event->type() == QEvent::MouseButtonPress ? "press " : "release ") +
                         QString::number(static_cast<QMouseEvent*>(event)->button());
        return false;
    }

    QStringList heard;
};

inline QTouchDevice* touchScreen() {
    static QTouchDevice* const screen = QTest::createTouchDevice();
    return screen;
}

// A shown window with another widget before the button, which has the focus at first.
struct ButtonPanel {
    explicit ButtonPanel(QAbstractButton* shownButton) : button(shownButton) {
        window.resize(300, 200);
        other.setParent(&window);
        other.setFocusPolicy(Qt::StrongFocus);
        other.setGeometry(0, 0, 50, 20);
        button->setParent(&window);
        button->setGeometry(100, 50, 120, 60);
        mouse = new MouseWitness(button);
        clicks = std::make_unique<QSignalSpy>(button, SIGNAL(clicked(bool)));
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("the panel does not get onto the screen");
        other.setFocus();
    }

    QPoint middle() const { return button->rect().center(); }
    void press() { QTest::mousePress(button, Qt::LeftButton, {}, middle()); }
    void release() { QTest::mouseRelease(button, Qt::LeftButton, {}, middle()); }
    // A finger; places are those of the window.
    void touch(const QPoint& place) { QTest::touchEvent(&window, touchScreen()).press(0, place, &window); }
    void slide(const QPoint& place) { QTest::touchEvent(&window, touchScreen()).move(0, place, &window); }
    void lift(const QPoint& place) { QTest::touchEvent(&window, touchScreen()).release(0, place, &window); }

    QWidget window;
    QWidget other;
    QAbstractButton* button;  // goes with the window
    MouseWitness* mouse;
    std::unique_ptr<QSignalSpy> clicks;
};

#endif
