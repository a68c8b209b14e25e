#ifndef OSTREL_VALUEMANAGER_LOGICALPLUGIN_VALMANLOGICALTASKMENU_H
#define OSTREL_VALUEMANAGER_LOGICALPLUGIN_VALMANLOGICALTASKMENU_H

#include "valuemanager/ValueManagerTaskMenuBase.h"

class ValManLogicalWidget;

class Q_DECL_EXPORT ValManLogicalTaskMenu : public ValueManagerTaskMenuBase {
    Q_OBJECT

public:
    ValManLogicalTaskMenu(ValManLogicalWidget* widget, QObject* parent);

private Q_SLOTS:
    void editState() override;

private:
    ValManLogicalWidget* Logical;
};

#endif
