// The manager of variant properties: one state per property, changed through its type, told in one order.
#include <QPointer>
#include <unordered_map>

#include "propertytype.h"
#include "qtvariantproperty.h"

namespace {

bool convertTo(QVariant* value, int type) {
    return value->userType() == type || value->convert(type);
}

}  // namespace

QtVariantProperty::QtVariantProperty(QtVariantPropertyManager* manager) : QtProperty(manager), m_manager(manager) {}

QtVariantProperty::~QtVariantProperty() = default;

QVariant QtVariantProperty::value() const {
    return m_manager->value(this);
}

QVariant QtVariantProperty::attributeValue(const QString& attribute) const {
    return m_manager->attributeValue(this, attribute);
}

int QtVariantProperty::valueType() const {
    return m_manager->valueType(this);
}

int QtVariantProperty::propertyType() const {
    return m_manager->propertyType(this);
}

void QtVariantProperty::setValue(const QVariant& value) {
    m_manager->setValue(this, value);
}

void QtVariantProperty::setAttribute(const QString& attribute, const QVariant& value) {
    m_manager->setAttribute(this, attribute, value);
}

struct QtVariantPropertyManager::Private {
    struct Entry {
        QtVariantProperty* property = nullptr;
        int typeId = 0;
        const PropertyType* type = nullptr;
        PropertyState state;
        QVector<QtProperty*> parts;  // null where one was deleted
        QtProperty* whole = nullptr;
        int index = 0;  // among the parts of the whole
    };
    // The property that is being added.
    struct Creation {
        int typeId = 0;
        QtProperty* whole = nullptr;
        int index = 0;
    };
    struct Told {
        QtProperty* property;
        PropertyChange change;
    };
    using Changes = QVector<Told>;

    explicit Private(QtVariantPropertyManager* manager) : q(manager) {}

    Entry* find(const QtProperty* property);
    QtVariantProperty* create(const Creation& request, const QString& name);
    void createParts(Entry& entry);
    void deleteParts(Entry& entry);
    Changes syncParts(Entry& entry);
    void storePart(Entry& part, const QVariant& wanted);
    void tell(const Changes& changes);
    bool tell(QtProperty* property, const PropertyChange& change);

    QtVariantPropertyManager* const q;
    std::unordered_map<const QtProperty*, Entry> entries;
    Creation creation;
};

QtVariantPropertyManager::Private::Entry* QtVariantPropertyManager::Private::find(const QtProperty* property) {
    const auto entry = entries.find(property);
    return entry == entries.end() ? nullptr : &entry->second;
}

QtVariantProperty* QtVariantPropertyManager::Private::create(const Creation& request, const QString& name) {
    creation = request;
    auto* property = static_cast<QtVariantProperty*>(q->QtAbstractPropertyManager::addProperty(name));
    creation = Creation();
    return property;
}

void QtVariantPropertyManager::Private::createParts(Entry& entry) {
    const QVector<PropertyPart> parts = entry.type->parts(entry.state);
    entry.parts.fill(nullptr, parts.size());
    for (int i = 0; i < parts.size(); ++i)
        entry.parts[i] = create({parts[i].type, entry.property, i}, parts[i].name);
    // Their attributes and values are nobody's news, since nobody knows them yet.
    syncParts(entry);
    for (QtProperty* part : qAsConst(entry.parts))
        entry.property->addSubProperty(part);
}

void QtVariantPropertyManager::Private::deleteParts(Entry& entry) {
    const QVector<QtProperty*> parts = entry.parts;
    entry.parts.clear();
    qDeleteAll(parts);
}

// Lets the parts follow the whole; the result is what changed in which of them.
QtVariantPropertyManager::Private::Changes QtVariantPropertyManager::Private::syncParts(Entry& entry) {
    Changes changes;
    if (entry.parts.isEmpty())
        return changes;
    const QVector<PropertyPart> wanted = entry.type->parts(entry.state);
    for (int i = 0; i < wanted.size(); ++i) {
        Entry* part = find(entry.parts.value(i));
        if (!part)
            continue;
        Told told{part->property, {}};
        for (auto attribute = wanted[i].attributes.cbegin(); attribute != wanted[i].attributes.cend(); ++attribute) {
            const PropertyChange change = part->type->setAttribute(part->state, attribute.key(), attribute.value());
            told.change.attributes += change.attributes;
            told.change.value |= change.value;
        }
        const QVariant value = entry.type->part(entry.state.value, i, part->state.attributes);
        told.change.value |= !part->type->isSame(value, part->state.value);
        part->state.value = value;
        if (told.change.isAny())
            changes.append(told);
    }
    return changes;
}

void QtVariantPropertyManager::Private::storePart(Entry& part, const QVariant& wanted) {
    Entry& whole = *find(part.whole);
    const QVariant value =
        whole.type->accepted(whole.type->withPart(whole.state, part.index, wanted, part.state.attributes), whole.state);
    if (whole.type->isSame(value, whole.state.value))
        return;
    whole.state.value = value;
    Changes changes = {{whole.property, {{}, true}}};
    changes += syncParts(whole);
    tell(changes);
}

// Handlers may change and delete what they like: each property is looked up again.
void QtVariantPropertyManager::Private::tell(const Changes& changes) {
    for (const Told& told : changes) {
        if (!tell(told.property, told.change))
            return;
    }
}

// False when the manager is gone.
bool QtVariantPropertyManager::Private::tell(QtProperty* property, const PropertyChange& change) {
    static const QStringList shown = {attribute::decimals, attribute::echoMode, attribute::textVisible,
                                      attribute::enumIcons};
    const QPointer<QtVariantPropertyManager> manager = q;
    bool textChanged = false;
    for (const QString& name : change.attributes) {
        if (const Entry* entry = find(property))
            Q_EMIT q->attributeChanged(property, name, QVariant(entry->state.attributes.value(name)));
        if (!manager)
            return false;
        textChanged |= shown.contains(name);
    }
    if (change.value) {
        if (const Entry* entry = find(property))
            Q_EMIT q->valueChanged(property, QVariant(entry->state.value));
        if (!manager)
            return false;
    }
    if ((change.value || textChanged) && find(property))
        Q_EMIT q->propertyChanged(property);
    return manager;
}

QtVariantPropertyManager::QtVariantPropertyManager(QObject* parent)
    : QtAbstractPropertyManager(parent), d(std::make_unique<Private>(this)) {}

// While there is still somebody who knows the types.
QtVariantPropertyManager::~QtVariantPropertyManager() {
    clear();
}

QtVariantProperty* QtVariantPropertyManager::addProperty(int propertyType, const QString& name) {
    return isPropertyTypeSupported(propertyType) ? d->create({propertyType, nullptr, 0}, name) : nullptr;
}

QtProperty* QtVariantPropertyManager::createProperty() {
    return d->creation.typeId ? new QtVariantProperty(this) : nullptr;
}

void QtVariantPropertyManager::initializeProperty(QtProperty* property) {
    const PropertyType* type = propertyTypeOf(d->creation.typeId);
    // A type that only a derived manager knows has no value here.
    if (!type)
        type = propertyTypeOf(groupTypeId());
    Private::Entry& entry = d->entries[property];
    entry.property = static_cast<QtVariantProperty*>(property);
    entry.typeId = d->creation.typeId;
    entry.type = type;
    entry.state = {type->initialValue(), type->attributes()};
    entry.whole = d->creation.whole;
    entry.index = d->creation.index;
    d->createParts(entry);
}

void QtVariantPropertyManager::uninitializeProperty(QtProperty* property) {
    Private::Entry* entry = d->find(property);
    if (!entry)
        return;
    if (Private::Entry* whole = d->find(entry->whole)) {
        if (entry->index < whole->parts.size())
            whole->parts[entry->index] = nullptr;
    }
    d->deleteParts(*entry);
    d->entries.erase(property);
}

int QtVariantPropertyManager::propertyType(const QtProperty* property) const {
    const Private::Entry* entry = d->find(property);
    return entry ? entry->typeId : 0;
}

int QtVariantPropertyManager::valueType(const QtProperty* property) const {
    return valueType(propertyType(property));
}

QtVariantProperty* QtVariantPropertyManager::variantProperty(const QtProperty* property) const {
    const Private::Entry* entry = d->find(property);
    return entry ? entry->property : nullptr;
}

bool QtVariantPropertyManager::isPropertyTypeSupported(int propertyType) const {
    return propertyTypeOf(propertyType);
}

int QtVariantPropertyManager::valueType(int propertyType) const {
    const PropertyType* type = propertyTypeOf(propertyType);
    return type ? type->valueType() : 0;
}

QStringList QtVariantPropertyManager::attributes(int propertyType) const {
    const PropertyType* type = propertyTypeOf(propertyType);
    return type ? QStringList(type->attributes().keys()) : QStringList();
}

int QtVariantPropertyManager::attributeType(int propertyType, const QString& attribute) const {
    const PropertyType* type = propertyTypeOf(propertyType);
    return type ? type->attributes().value(attribute).userType() : 0;
}

QVariant QtVariantPropertyManager::value(const QtProperty* property) const {
    const Private::Entry* entry = d->find(property);
    return entry ? entry->state.value : QVariant();
}

QVariant QtVariantPropertyManager::attributeValue(const QtProperty* property, const QString& attribute) const {
    const Private::Entry* entry = d->find(property);
    return entry ? entry->state.attributes.value(attribute) : QVariant();
}

int QtVariantPropertyManager::enumTypeId() {
    return enumPropertyType();
}

int QtVariantPropertyManager::flagTypeId() {
    return flagPropertyType();
}

int QtVariantPropertyManager::groupTypeId() {
    return groupPropertyType();
}

int QtVariantPropertyManager::iconMapTypeId() {
    return qMetaTypeId<QtIconMap>();
}

void QtVariantPropertyManager::setValue(QtProperty* property, const QVariant& value) {
    Private::Entry* entry = d->find(property);
    const int type = entry ? entry->type->valueType() : 0;
    if (!type || !value.isValid() || (value.userType() != type && !value.canConvert(type)))
        return;
    QVariant wanted = value;
    convertTo(&wanted, type);  // what cannot be read, such as "abc" as a number, becomes the type's zero
    wanted = entry->type->accepted(wanted, entry->state);
    if (entry->type->isSame(wanted, entry->state.value))
        return;
    if (d->find(entry->whole)) {
        d->storePart(*entry, wanted);
        return;
    }
    entry->state.value = wanted;
    Private::Changes changes = d->syncParts(*entry);
    changes.append({property, {{}, true}});
    d->tell(changes);
}

void QtVariantPropertyManager::setAttribute(QtProperty* property, const QString& attribute, const QVariant& value) {
    Private::Entry* entry = d->find(property);
    if (!entry || !value.isValid() || !entry->state.attributes.contains(attribute))
        return;
    QVariant wanted = value;
    if (!convertTo(&wanted, entry->state.attributes.value(attribute).userType()))
        return;
    const PropertyChange change = entry->type->setAttribute(entry->state, attribute, wanted);
    if (!change.isAny())
        return;
    if (attribute == attribute::flagNames) {
        // Rows of the former names go before anybody hears of the new ones.
        d->deleteParts(*entry);
        d->createParts(*entry);
    }
    // The attribute comes before the parts that follow it, the value behind them.
    Private::Changes changes = {{property, {change.attributes, false}}};
    changes += d->syncParts(*entry);
    if (change.value)
        changes.append({property, {{}, true}});
    d->tell(changes);
}

bool QtVariantPropertyManager::hasValue(const QtProperty* property) const {
    return propertyType(property) != groupTypeId();
}

QString QtVariantPropertyManager::valueText(const QtProperty* property) const {
    const Private::Entry* entry = d->find(property);
    return entry ? entry->type->text(entry->state) : QString();
}

QIcon QtVariantPropertyManager::valueIcon(const QtProperty* property) const {
    const Private::Entry* entry = d->find(property);
    return entry ? entry->type->icon(entry->state) : QIcon();
}
