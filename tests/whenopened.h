// Answering the dialogs and menus that a widget opens.
#ifndef OSTREL_TESTS_WHENOPENED_H
#define OSTREL_TESTS_WHENOPENED_H

#include <QApplication>
#include <QTimer>
#include <QWidget>

// Calls `operate` with the dialog or menu that opens next, when it is there.
template <class Opened, class Operate>
void whenOpened(Operate operate) {
    auto* watch = new QTimer(qApp);
    QObject::connect(watch, &QTimer::timeout, watch, [=] {
        QWidget* top = QApplication::activePopupWidget();
        if (auto* opened = qobject_cast<Opened*>(top ? top : QApplication::activeModalWidget())) {
            watch->deleteLater();
            operate(opened);
        }
    });
    watch->start(10);
}

#endif
