// The dialog in which an operator changes the properties of a widget. Each edit takes effect at once.
#ifndef OSTREL_PROPERTIES_MYCONTROLLER_H
#define OSTREL_PROPERTIES_MYCONTROLLER_H

#include <QDialog>
#include <QStringList>

class ObjectController;
class QComboBox;

// A child of the widget on show, with which it goes; closing it hides it.
class Q_DECL_EXPORT MyController : public QDialog {
    Q_OBJECT

public:
    // The properties that the class `classToView` declares; without "name" and "units" if locked.
    MyController(QWidget* parent, QString classToView, bool userInterfaceLock);
    // All properties of all classes.
    explicit MyController(QWidget* parent);
    ~MyController() override;

public Q_SLOTS:
    // There is nothing to take over, and nothing to take back.
    void accepted();
    void rejected();

private:
    void layOut(QWidget* buttons);

    QComboBox* theClassCombo = nullptr;
    ObjectController* theController = nullptr;
    QStringList theClassNames;
    QObject* theControlledObject = nullptr;
};

#endif
