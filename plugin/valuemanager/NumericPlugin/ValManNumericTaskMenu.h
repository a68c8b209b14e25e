#ifndef OSTREL_VALUEMANAGER_NUMERICPLUGIN_VALMANNUMERICTASKMENU_H
#define OSTREL_VALUEMANAGER_NUMERICPLUGIN_VALMANNUMERICTASKMENU_H

#include "valuemanager/ValueManagerTaskMenuBase.h"

class ValManNumericWidget;

class Q_DECL_EXPORT ValManNumericTaskMenu : public ValueManagerTaskMenuBase {
    Q_OBJECT

public:
    ValManNumericTaskMenu(ValManNumericWidget* widget, QObject* parent);

private Q_SLOTS:
    void editState() override;

private:
    ValManNumericWidget* Numeric;
};

#endif
