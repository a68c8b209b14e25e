// A property and its place among others.
#include "qtpropertybrowser.h"

struct QtProperty::Private {
    explicit Private(QtAbstractPropertyManager* owner) : manager(owner) {}

    QtAbstractPropertyManager* const manager;
    QList<QtProperty*> parents;
    QList<QtProperty*> children;
    QString toolTip;
    QString statusTip;
    QString whatsThis;
    QString name;
    bool enabled = true;
    bool modified = false;
};

QtProperty::QtProperty(QtAbstractPropertyManager* manager) : d(std::make_unique<Private>(manager)) {}

QtProperty::~QtProperty() {
    while (!d->parents.isEmpty())
        d->parents.first()->removeSubProperty(this);
    d->manager->forget(this);
    for (QtProperty* child : qAsConst(d->children))
        child->d->parents.removeOne(this);
}

QList<QtProperty*> QtProperty::subProperties() const {
    return d->children;
}

QtAbstractPropertyManager* QtProperty::propertyManager() const {
    return d->manager;
}

QString QtProperty::toolTip() const {
    return d->toolTip;
}

QString QtProperty::statusTip() const {
    return d->statusTip;
}

QString QtProperty::whatsThis() const {
    return d->whatsThis;
}

QString QtProperty::propertyName() const {
    return d->name;
}

bool QtProperty::isEnabled() const {
    return d->enabled;
}

bool QtProperty::isModified() const {
    return d->modified;
}

bool QtProperty::hasValue() const {
    return d->manager->hasValue(this);
}

QIcon QtProperty::valueIcon() const {
    return d->manager->valueIcon(this);
}

QString QtProperty::valueText() const {
    return d->manager->valueText(this);
}

QString QtProperty::displayText() const {
    return d->manager->displayText(this);
}

void QtProperty::setText(QString* text, const QString& wanted) {
    if (*text == wanted)
        return;
    *text = wanted;
    propertyChanged();
}

void QtProperty::setToolTip(const QString& text) {
    setText(&d->toolTip, text);
}

void QtProperty::setStatusTip(const QString& text) {
    setText(&d->statusTip, text);
}

void QtProperty::setWhatsThis(const QString& text) {
    setText(&d->whatsThis, text);
}

void QtProperty::setPropertyName(const QString& text) {
    setText(&d->name, text);
}

void QtProperty::setEnabled(bool enable) {
    if (d->enabled == enable)
        return;
    d->enabled = enable;
    propertyChanged();
}

void QtProperty::setModified(bool modified) {
    if (d->modified == modified)
        return;
    d->modified = modified;
    propertyChanged();
}

void QtProperty::addSubProperty(QtProperty* property) {
    insertSubProperty(property, d->children.isEmpty() ? nullptr : d->children.last());
}

bool QtProperty::isBelow(const QtProperty* ancestor) const {
    for (const QtProperty* parent : qAsConst(d->parents)) {
        if (parent == ancestor || parent->isBelow(ancestor))
            return true;
    }
    return false;
}

void QtProperty::insertSubProperty(QtProperty* property, QtProperty* after) {
    if (!property || property == this || d->children.contains(property) || isBelow(property))
        return;
    const int place = d->children.indexOf(after) + 1;
    d->children.insert(place, property);
    property->d->parents.append(this);
    Q_EMIT d->manager->propertyInserted(property, this, place ? after : nullptr);
}

void QtProperty::removeSubProperty(QtProperty* property) {
    if (!property || !d->children.contains(property))
        return;
    Q_EMIT d->manager->propertyRemoved(property, this);
    d->children.removeOne(property);
    property->d->parents.removeOne(this);
}

void QtProperty::propertyChanged() {
    Q_EMIT d->manager->propertyChanged(this);
}
