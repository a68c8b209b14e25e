// What every browser does: it keeps an item for each occurrence of a property, and the factories of its editors.
#include "qtpropertybrowser.h"

namespace {

// How many browsers use a factory for a manager; with the last one the factory forgets the manager.
using Pair = QPair<QtAbstractPropertyManager*, QtAbstractEditorFactoryBase*>;

QHash<Pair, int>& usesOfPairs() {
    static QHash<Pair, int> uses;
    return uses;
}

// True when that was the last use.
bool releasePair(const Pair& pair) {
    const auto uses = usesOfPairs().find(pair);
    if (uses == usesOfPairs().end() || --*uses > 0)
        return false;
    usesOfPairs().erase(uses);
    return true;
}

}  // namespace

QtAbstractEditorFactoryBase::QtAbstractEditorFactoryBase(QObject* parent) : QObject(parent) {}

QtAbstractEditorFactoryBase::~QtAbstractEditorFactoryBase() = default;

struct QtAbstractPropertyBrowser::Private {
    // A manager with rows in this browser.
    struct Watch {
        int rows = 0;
        QList<QMetaObject::Connection> connections;
    };
    struct FactoryUse {
        QtAbstractEditorFactoryBase* factory;
        QMetaObject::Connection managerDies;
        QMetaObject::Connection factoryDies;
    };

    explicit Private(QtAbstractPropertyBrowser* browser) : q(browser) {}

    void watch(QtAbstractPropertyManager* manager);
    void unwatch(QtAbstractPropertyManager* manager);
    QtBrowserItem* createItem(QtProperty* property, QtBrowserItem* parent, QtBrowserItem* after);
    void removeItem(QtBrowserItem* item);
    void deleteTree(QtBrowserItem* item);
    QtBrowserItem* childItem(const QtBrowserItem* parent, const QtProperty* property) const;

    void inserted(QtProperty* property, QtProperty* parent, QtProperty* after);
    void removed(QtProperty* property, QtProperty* parent);
    void changed(QtProperty* property);
    void destroyed(QtProperty* property);

    FactoryUse takeFactory(QtAbstractPropertyManager* manager);

    QtAbstractPropertyBrowser* const q;
    QList<QtBrowserItem*> topLevel;
    QHash<QtProperty*, QList<QtBrowserItem*>> items;
    QHash<QtAbstractPropertyManager*, Watch> watched;
    QHash<QtAbstractPropertyManager*, FactoryUse> factories;
    QtBrowserItem* current = nullptr;
};

void QtAbstractPropertyBrowser::Private::watch(QtAbstractPropertyManager* manager) {
    Watch& watch = watched[manager];
    if (watch.rows++ > 0)
        return;
    using Manager = QtAbstractPropertyManager;
    watch.connections = {
        connect(
            manager, &Manager::propertyInserted, q,
            [this](QtProperty* property, QtProperty* parent, QtProperty* after) { inserted(property, parent, after); }),
        connect(manager, &Manager::propertyRemoved, q,
                [this](QtProperty* property, QtProperty* parent) { removed(property, parent); }),
        connect(manager, &Manager::propertyChanged, q, [this](QtProperty* property) { changed(property); }),
        connect(manager, &Manager::propertyDestroyed, q, [this](QtProperty* property) { destroyed(property); }),
    };
}

void QtAbstractPropertyBrowser::Private::unwatch(QtAbstractPropertyManager* manager) {
    const auto watch = watched.find(manager);
    if (--watch->rows > 0)
        return;
    for (const QMetaObject::Connection& connection : qAsConst(watch->connections))
        QObject::disconnect(connection);
    watched.erase(watch);
}

QtBrowserItem* QtAbstractPropertyBrowser::Private::createItem(QtProperty* property, QtBrowserItem* parent,
                                                              QtBrowserItem* after) {
    auto* item = new QtBrowserItem(property, parent, q);
    QList<QtBrowserItem*>& siblings = parent ? parent->m_children : topLevel;
    siblings.insert(siblings.indexOf(after) + 1, item);
    items[property].append(item);
    watch(property->propertyManager());
    q->itemInserted(item, after);
    QtBrowserItem* last = nullptr;
    const QList<QtProperty*> children = property->subProperties();
    for (QtProperty* child : children)
        last = createItem(child, item, last);
    return item;
}

void QtAbstractPropertyBrowser::Private::removeItem(QtBrowserItem* item) {
    while (!item->m_children.isEmpty())
        removeItem(item->m_children.last());
    if (current == item)
        q->setCurrentItem(nullptr);
    q->itemRemoved(item);
    (item->m_parent ? item->m_parent->m_children : topLevel).removeOne(item);
    QtProperty* property = item->m_property;
    items[property].removeOne(item);
    if (items[property].isEmpty())
        items.remove(property);
    unwatch(property->propertyManager());
    delete item;
}

void QtAbstractPropertyBrowser::Private::deleteTree(QtBrowserItem* item) {
    for (QtBrowserItem* child : qAsConst(item->m_children))
        deleteTree(child);
    delete item;
}

QtBrowserItem* QtAbstractPropertyBrowser::Private::childItem(const QtBrowserItem* parent,
                                                             const QtProperty* property) const {
    for (QtBrowserItem* item : parent ? parent->m_children : topLevel) {
        if (item->m_property == property)
            return item;
    }
    return nullptr;
}

void QtAbstractPropertyBrowser::Private::inserted(QtProperty* property, QtProperty* parent, QtProperty* after) {
    const QList<QtBrowserItem*> parents = items.value(parent);
    for (QtBrowserItem* item : parents)
        createItem(property, item, after ? childItem(item, after) : nullptr);
}

void QtAbstractPropertyBrowser::Private::removed(QtProperty* property, QtProperty* parent) {
    const QList<QtBrowserItem*> parents = items.value(parent);
    for (const QtBrowserItem* parentItem : parents) {
        if (QtBrowserItem* item = childItem(parentItem, property))
            removeItem(item);
    }
}

void QtAbstractPropertyBrowser::Private::changed(QtProperty* property) {
    const QList<QtBrowserItem*> occurrences = items.value(property);
    for (QtBrowserItem* item : occurrences)
        q->itemChanged(item);
}

void QtAbstractPropertyBrowser::Private::destroyed(QtProperty* property) {
    while (items.contains(property))
        removeItem(items[property].last());
}

QtAbstractPropertyBrowser::Private::FactoryUse QtAbstractPropertyBrowser::Private::takeFactory(
    QtAbstractPropertyManager* manager) {
    const FactoryUse use = factories.take(manager);
    QObject::disconnect(use.managerDies);
    QObject::disconnect(use.factoryDies);
    return use;
}

QtAbstractPropertyBrowser::QtAbstractPropertyBrowser(QWidget* parent)
    : QWidget(parent), d(std::make_unique<Private>(this)) {}

QtAbstractPropertyBrowser::~QtAbstractPropertyBrowser() {
    const QList<QtAbstractPropertyManager*> managers = d->factories.keys();
    for (QtAbstractPropertyManager* manager : managers)
        unsetFactoryForManager(manager);
    for (QtBrowserItem* item : qAsConst(d->topLevel))
        d->deleteTree(item);
    for (const Private::Watch& watch : qAsConst(d->watched)) {
        for (const QMetaObject::Connection& connection : watch.connections)
            disconnect(connection);
    }
}

QList<QtProperty*> QtAbstractPropertyBrowser::properties() const {
    QList<QtProperty*> properties;
    for (const QtBrowserItem* item : qAsConst(d->topLevel))
        properties.append(item->property());
    return properties;
}

QList<QtBrowserItem*> QtAbstractPropertyBrowser::items(QtProperty* property) const {
    return d->items.value(property);
}

QtBrowserItem* QtAbstractPropertyBrowser::topLevelItem(QtProperty* property) const {
    return d->childItem(nullptr, property);
}

QList<QtBrowserItem*> QtAbstractPropertyBrowser::topLevelItems() const {
    return d->topLevel;
}

void QtAbstractPropertyBrowser::clear() {
    while (!d->topLevel.isEmpty())
        d->removeItem(d->topLevel.last());
}

void QtAbstractPropertyBrowser::useFactory(QtAbstractPropertyManager* manager, QtAbstractEditorFactoryBase* factory) {
    const auto known = d->factories.constFind(manager);
    if (known != d->factories.constEnd() && known->factory == factory)
        return;
    unsetFactoryForManager(manager);
    // Either may die first; its address may come back as that of another object.
    const auto forget = [this, manager, factory] {
        d->takeFactory(manager);
        releasePair({manager, factory});
    };
    d->factories.insert(manager, {factory, connect(manager, &QObject::destroyed, this, forget),
                                  connect(factory, &QObject::destroyed, this, forget)});
    ++usesOfPairs()[{manager, factory}];
}

void QtAbstractPropertyBrowser::unsetFactoryForManager(QtAbstractPropertyManager* manager) {
    if (!d->factories.contains(manager))
        return;
    QtAbstractEditorFactoryBase* factory = d->takeFactory(manager).factory;
    if (releasePair({manager, factory}))
        factory->breakConnection(manager);
}

QtBrowserItem* QtAbstractPropertyBrowser::currentItem() const {
    return d->current;
}

void QtAbstractPropertyBrowser::setCurrentItem(QtBrowserItem* item) {
    if (d->current == item)
        return;
    d->current = item;
    Q_EMIT currentItemChanged(item);
}

QtBrowserItem* QtAbstractPropertyBrowser::addProperty(QtProperty* property) {
    return insertProperty(property, d->topLevel.isEmpty() ? nullptr : d->topLevel.last()->property());
}

QtBrowserItem* QtAbstractPropertyBrowser::insertProperty(QtProperty* property, QtProperty* after) {
    if (!property || topLevelItem(property))
        return nullptr;
    return d->createItem(property, nullptr, topLevelItem(after));
}

void QtAbstractPropertyBrowser::removeProperty(QtProperty* property) {
    if (QtBrowserItem* item = topLevelItem(property))
        d->removeItem(item);
}

QWidget* QtAbstractPropertyBrowser::createEditor(QtProperty* property, QWidget* parent) {
    const auto use = d->factories.constFind(property->propertyManager());
    return use == d->factories.constEnd() ? nullptr : use->factory->createEditor(property, parent);
}
