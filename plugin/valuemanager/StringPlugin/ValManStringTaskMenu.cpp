#include "valuemanager/StringPlugin/ValManStringTaskMenu.h"

ValManStringTaskMenu::ValManStringTaskMenu(ValManStringWidget*, QObject* parent) : ValueManagerTaskMenuBase(parent) {}

void ValManStringTaskMenu::editState() {}
