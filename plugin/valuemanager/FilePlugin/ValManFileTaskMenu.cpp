#include "valuemanager/FilePlugin/ValManFileTaskMenu.h"

ValManFileTaskMenu::ValManFileTaskMenu(ValManFileWidget* widget, QObject* parent)
    : ValueManagerTaskMenuBase(parent), File(widget) {}

void ValManFileTaskMenu::editState() {}
