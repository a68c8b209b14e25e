#include "valuemanager/LogicalPlugin/ValManLogicalTaskMenu.h"

ValManLogicalTaskMenu::ValManLogicalTaskMenu(ValManLogicalWidget* widget, QObject* parent)
    : ValueManagerTaskMenuBase(parent), Logical(widget) {}

void ValManLogicalTaskMenu::editState() {}
