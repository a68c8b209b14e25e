// The button that ends a value manager without a commit.
#ifndef OSTREL_VALUEMANAGER_VMPUSHBUTTONCANCELPLUGIN_VALMANCANCELWIDGET_H
#define OSTREL_VALUEMANAGER_VMPUSHBUTTONCANCELPLUGIN_VALMANCANCELWIDGET_H

#include <memory>

#include "valuemanager/ValueManagerWidgetBase.h"

namespace Ui {
class ValManCancelUI;
}

// A click raises the event `EventName` if there is one, and ends the process; what was staged is gone.
class Q_DECL_EXPORT ValManCancelWidget : public ValueManagerWidgetBase {
    Q_OBJECT
    Q_PROPERTY(QString EventName READ getEventName WRITE setEventName)

public:
    explicit ValManCancelWidget(QWidget* parent = nullptr);
    ~ValManCancelWidget() override;

    QString getEventName() const { return _eventName; }
    void setEventName(const QString& name) { _eventName = name; }

private Q_SLOTS:
    void cancelClicked();

private:
    std::unique_ptr<Ui::ValManCancelUI> ui;
    QString _eventName;
};

#endif
