// The owner of properties.
#include "qtpropertybrowser.h"

struct QtAbstractPropertyManager::Private {
    QSet<QtProperty*> properties;
};

QtAbstractPropertyManager::QtAbstractPropertyManager(QObject* parent)
    : QObject(parent), d(std::make_unique<Private>()) {}

QtAbstractPropertyManager::~QtAbstractPropertyManager() {
    clear();
}

QSet<QtProperty*> QtAbstractPropertyManager::properties() const {
    return d->properties;
}

void QtAbstractPropertyManager::clear() const {
    while (!d->properties.isEmpty())
        delete *d->properties.constBegin();
}

QtProperty* QtAbstractPropertyManager::addProperty(const QString& name) {
    QtProperty* property = createProperty();
    if (!property)
        return nullptr;
    property->setPropertyName(name);
    d->properties.insert(property);
    initializeProperty(property);
    return property;
}

void QtAbstractPropertyManager::forget(QtProperty* property) {
    if (!d->properties.contains(property))
        return;
    Q_EMIT propertyDestroyed(property);
    uninitializeProperty(property);
    d->properties.remove(property);
}

bool QtAbstractPropertyManager::hasValue(const QtProperty*) const {
    return true;
}

QIcon QtAbstractPropertyManager::valueIcon(const QtProperty*) const {
    return QIcon();
}

QString QtAbstractPropertyManager::valueText(const QtProperty*) const {
    return QString();
}

QString QtAbstractPropertyManager::displayText(const QtProperty*) const {
    return QString();
}

EchoMode QtAbstractPropertyManager::echoMode(const QtProperty*) const {
    return QLineEdit::Normal;
}

void QtAbstractPropertyManager::uninitializeProperty(QtProperty*) {}

QtProperty* QtAbstractPropertyManager::createProperty() {
    return new QtProperty(this);
}
