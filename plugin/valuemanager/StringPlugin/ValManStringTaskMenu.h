#ifndef OSTREL_VALUEMANAGER_STRINGPLUGIN_VALMANSTRINGTASKMENU_H
#define OSTREL_VALUEMANAGER_STRINGPLUGIN_VALMANSTRINGTASKMENU_H

#include "valuemanager/ValueManagerTaskMenuBase.h"

class ValManStringWidget;

class Q_DECL_EXPORT ValManStringTaskMenu : public ValueManagerTaskMenuBase {
    Q_OBJECT

public:
    ValManStringTaskMenu(ValManStringWidget* widget, QObject* parent);

private Q_SLOTS:
    void editState() override;
};

#endif
