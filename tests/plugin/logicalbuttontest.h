// What the tests of the buttons that switch a logical variable have in common: one in a shown window, an operator's
// hand, and what stands on the screen and in the store afterwards.
#ifndef OSTREL_TESTS_PLUGIN_LOGICALBUTTONTEST_H
#define OSTREL_TESTS_PLUGIN_LOGICALBUTTONTEST_H

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLayout>

#include "plugintest.h"

inline QStringList writes() {
    return platform().calls({"set_logical_variable"});
}

// A button before an operator. The window has another widget, which has the focus at first.
struct Operated {
    explicit Operated(OstrelBase* shown) : widget(shown), button(shown->findChild<QAbstractButton*>()) {
        widget->setObjectName(QStringLiteral("button"));
        widget->setParent(&window);
        widget->setGeometry(60, 20, 140, 140);
        other.setParent(&window);
        other.setFocusPolicy(Qt::StrongFocus);
        other.setGeometry(0, 0, 40, 20);
        window.resize(260, 200);
        window.show();
        window.activateWindow();
        QApplication::setActiveWindow(&window);
        if (!QTest::qWaitForWindowExposed(&window))
            qFatal("the window does not get onto the screen");
        other.setFocus();
        platform().forgetCalls();
    }

    QLabel* name() const { return widget->findChild<QLabel*>("name"); }
    QLabel* value() const { return widget->findChild<QLabel*>("value"); }
    QString shown() const { return value()->text(); }
    bool isMarkedMissing() const { return !widget->findChild<QLabel*>("iconLabel")->isHidden(); }
    bool isSampled() const { return TimerModerator::isRegistered(widget, widget->getSampleRate()); }
    void tick() const { widget->ostrelTimerEvent(widget->getSampleRate()); }
    void setEnableVariable(const QString& label) const { widget->setProperty("enableVariableName", label); }
    QString enableVariable() const { return widget->property("enableVariableName").toString(); }
    QStringList menu() const {
        QStringList texts;
        for (const QAction* action : widget->actions())
            texts << action->text();
        return texts;
    }
    // Goes on as if the form had been loaded.
    void finishLoading() const { widget->setInitFlag(true); }

    QPoint middle() const { return button->rect().center(); }
    void press(Qt::MouseButton mouse = Qt::LeftButton) const { QTest::mousePress(button, mouse, {}, middle()); }
    void release(Qt::MouseButton mouse = Qt::LeftButton) const { QTest::mouseRelease(button, mouse, {}, middle()); }
    void click() const { QTest::mouseClick(button, Qt::LeftButton, {}, middle()); }
    void doubleClickState() const { QTest::mouseDClick(value(), Qt::LeftButton); }

    QWidget window;
    QWidget other;
    OstrelBase* widget;  // goes with the window
    QAbstractButton* button;
};

// The rows of a column of a form: the names of the cells, "-" for a spacer.
inline QStringList rowsOf(const QLayout& column) {
    QStringList rows;
    for (int i = 0; i < column.count(); ++i) {
        const QLayout* row = column.itemAt(i)->layout();
        if (!row) {
            rows << column.itemAt(i)->widget()->objectName();
            continue;
        }
        QStringList cells{row->objectName()};
        for (int k = 0; k < row->count(); ++k)
            cells << (row->itemAt(k)->widget() ? row->itemAt(k)->widget()->objectName() : QStringLiteral("-"));
        rows << cells.join(' ');
    }
    return rows;
}

#endif
