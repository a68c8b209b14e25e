// The button that commits all staged values of the process.
#ifndef OSTREL_VALUEMANAGER_VALMANOK_VALMANOKWIDGET_H
#define OSTREL_VALUEMANAGER_VALMANOK_VALMANOKWIDGET_H

#include <memory>

#include "valuemanager/ValueManagerWidgetBase.h"

namespace Ui {
class ValManOKUI;
}

// A click raises the event `EventName` if there is one, commits, and ends the process where the form says so. Kept: the
// event comes first, so that who waits for it may find the former values, and one that fails stops nothing.
class Q_DECL_EXPORT ValManOKWidget : public ValueManagerWidgetBase {
    Q_OBJECT
    Q_PROPERTY(QString EventName READ getEventName WRITE setEventName)
    Q_PROPERTY(bool exitOnClick READ getExitOnClick WRITE setExitOnClick)

public:
    explicit ValManOKWidget(QWidget* parent = nullptr);
    ~ValManOKWidget() override;

    QString getEventName() const { return _eventName; }
    void setEventName(const QString& name) { _eventName = name; }
    bool getExitOnClick() const { return _exitOnClick; }
    void setExitOnClick(bool exitOnClick) { _exitOnClick = exitOnClick; }

Q_SIGNALS:
    void commitToOstrel();

private Q_SLOTS:
    void okClicked();

private:
    QString _eventName;
    bool _exitOnClick = false;
    std::unique_ptr<Ui::ValManOKUI> ui;
};

#endif
