// The event that a button of the value manager raises before it does anything else.
#ifndef OSTREL_VALUEMANAGER_RAISEDEVENT_H
#define OSTREL_VALUEMANAGER_RAISEDEVENT_H

class QString;
class QWidget;

// Raises the event of that name; an empty name is none. Tells the operator, who must answer, where that cannot be.
void raiseNamedEvent(const QString& name, QWidget* parent);

#endif
