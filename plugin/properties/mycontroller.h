// The dialog in which an operator changes the properties of a widget. Each edit takes effect at once.
#ifndef OSTREL_PROPERTIES_MYCONTROLLER_H
#define OSTREL_PROPERTIES_MYCONTROLLER_H

#include <QDialog>
#include <QStringList>
#include <functional>

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

    // Called with the property's name after each edit.
    void whenEdited(std::function<void(const char* property)> callback);

public Q_SLOTS:
    // There is nothing to take over, and nothing to take back.
    void accepted();
    void rejected();

protected:
    // The keys go to the properties at once.
    void showEvent(QShowEvent* event) override;

private:
    void layOut(QWidget* buttons);
    void unfold();

    QComboBox* theClassCombo = nullptr;
    ObjectController* theController = nullptr;
    QStringList theClassNames;
    QObject* theControlledObject = nullptr;
};

#endif
