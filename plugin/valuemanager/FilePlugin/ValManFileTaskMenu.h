#ifndef OSTREL_VALUEMANAGER_FILEPLUGIN_VALMANFILETASKMENU_H
#define OSTREL_VALUEMANAGER_FILEPLUGIN_VALMANFILETASKMENU_H

#include "valuemanager/ValueManagerTaskMenuBase.h"

class ValManFileWidget;

class Q_DECL_EXPORT ValManFileTaskMenu : public ValueManagerTaskMenuBase {
    Q_OBJECT

public:
    ValManFileTaskMenu(ValManFileWidget* widget, QObject* parent);

private Q_SLOTS:
    void editState() override;

private:
    ValManFileWidget* File;
};

#endif
