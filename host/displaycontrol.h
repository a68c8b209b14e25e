// The object through which widgets of a form reach the display that they stand in.
#ifndef OSTREL_HOST_DISPLAYCONTROL_H
#define OSTREL_HOST_DISPLAYCONTROL_H

#include <QObject>

class QWidget;

class DisplayControl : public QObject {
    Q_OBJECT

public:
    explicit DisplayControl(QWidget* window);

public Q_SLOTS:
    // Closes the display's window.
    void closeEvent();

Q_SIGNALS:
    // The operator pressed Ctrl+L in the display.
    void ctrlLPressed();
    // The display saves: widgets with a file of their own write it.
    void saveConfig();

private:
    QWidget* m_window;
};

// Widgets find the control here by the names of its signals and its slot; null until the display has made it.
extern QObject* runQtUIWindow;

// Organisation name under which command lines keep their history.
extern char OperatorDisplayDir[512];

#endif
