// A button that raises an event of the platform.
#ifndef OSTREL_WIDGETS_ZEL_EVENTBUTTON_H
#define OSTREL_WIDGETS_ZEL_EVENTBUTTON_H

#include "commandbuttonbase.h"

// With `signal` set a click does one thing more, before the event is raised: it emits commitToOstrel() for the form to
// use, or, with `commit` cleared, closes the button and leaves closing the display to the next click.
class Q_DECL_EXPORT ZelEventButton : public CommandButtonBase {
    Q_OBJECT
    Q_PROPERTY(QString event READ getEvent WRITE setEvent)
    Q_PROPERTY(QString label READ getLabel WRITE setLabel)
    Q_PROPERTY(QFont cmdFont READ getCmdFont WRITE setCmdFont)
    Q_PROPERTY(bool detached READ getDetached WRITE setDetached)
    Q_PROPERTY(bool signal READ getSignal WRITE setSignal)
    Q_PROPERTY(bool commit READ getCommit WRITE setCommit)

public:
    explicit ZelEventButton(QWidget* parent = nullptr);
    ~ZelEventButton() override;

    // Without a name no event is raised.
    QString getEvent() const { return evt; }
    void setEvent(const QString& name);
    bool getSignal() const { return signal; }
    void setSignal(const bool& isOn);
    bool getCommit() const { return commit; }
    void setCommit(const bool& isOn);

Q_SIGNALS:
    // For forms: the button itself never emits it.
    void readFromOstrel();
    void commitToOstrel();

public Q_SLOTS:
    void commitToOstrelSlot();
    // For forms that name it.
    void closethefreakingthing();

private Q_SLOTS:
    void ZelEventButton_clicked();
    void viewProperties();
    void futureFinished();

private:
    void emitCommit();
    void leaveToDisplay();

    bool signal = false;
    bool commit = false;
    QString evt;
};

#endif
