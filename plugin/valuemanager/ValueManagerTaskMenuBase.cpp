#include "valuemanager/ValueManagerTaskMenuBase.h"

ValueManagerTaskMenuBase::ValueManagerTaskMenuBase(QObject* parent)
    : QObject(parent), editStateAction(new QAction(tr("Edit State..."), this)) {
    connect(editStateAction, &QAction::triggered, this, &ValueManagerTaskMenuBase::editState);
}

QList<QAction*> ValueManagerTaskMenuBase::taskActions() const {
    return {editStateAction};
}

QAction* ValueManagerTaskMenuBase::preferredEditAction() const {
    return editStateAction;
}

void ValueManagerTaskMenuBase::editState() {}
