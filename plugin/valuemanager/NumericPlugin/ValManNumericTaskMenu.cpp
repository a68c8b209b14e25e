#include "valuemanager/NumericPlugin/ValManNumericTaskMenu.h"

ValManNumericTaskMenu::ValManNumericTaskMenu(ValManNumericWidget* widget, QObject* parent)
    : ValueManagerTaskMenuBase(parent), Numeric(widget) {}

void ValManNumericTaskMenu::editState() {}
