#include "properties/objectcontroller.h"

#include <qttreepropertybrowser.h>
#include <qtvariantproperty.h>

#include <QColor>
#include <QMetaProperty>
#include <QTreeView>
#include <QVBoxLayout>
#include <utility>

#include "hostlink/globals.h"
#include "properties/enumvalues.h"

class ObjectControllerPrivate {
public:
    explicit ObjectControllerPrivate(ObjectController* controller) : q_ptr(controller) {}

    void makeBrowser();
    bool show(QObject* object);

    void addClassProperties(const QMetaObject* metaObject, const QString& classToView, bool userInterfaceLock);
    void addClassProperties(const QMetaObject* metaObject);
    void updateClassProperties(const QMetaObject* metaObject, bool recursive);
    void slotValueChanged(QtProperty* property, const QVariant& value);
    void saveExpandedState();
    void restoreExpandedState();

private:
    enum State { Selected = 1, Expanded = 2 };

    QtProperty* addGroup(const QMetaObject* metaObject);
    void addProperties(const QMetaObject* metaObject, const QStringList& hiddenNames);
    void addProperty(const QMetaObject* metaObject, int index);
    QtVariantProperty* createProperty(const QMetaProperty& metaProperty, const QString& title);
    QtVariantProperty* createSupported(const QMetaProperty& metaProperty, const QString& title);
    QtVariantProperty* createText(const QString& title, const QString& text);
    void renameParts(const QString& propertyName, const QtProperty* property);
    QtBrowserItem* showGroup(QtProperty* group, bool filtered);
    bool isFiltered(const QMetaObject* metaObject) const;
    QString titleOf(const QString& name) const { return q_ptr->_displayList.value(name, name); }
    QVariant shownValue(const QMetaProperty& metaProperty) const;
    QtTreePropertyBrowser* tree() const { return qobject_cast<QtTreePropertyBrowser*>(m_browser); }
    QtBrowserItem* itemOf(QtProperty* property) const;
    void saveExpandedState(QtProperty* property, const QString& prefix);
    void restoreExpandedState(QtProperty* property, const QString& prefix);

    friend class ObjectController;
    ObjectController* q_ptr;
    QObject* m_object = nullptr;
    QMap<const QMetaObject*, QtProperty*> m_classToProperty;
    QMap<QtProperty*, const QMetaObject*> m_propertyToClass;
    QMap<QtProperty*, int> m_propertyToIndex;
    QMap<const QMetaObject*, QMap<int, QtVariantProperty*>> m_classToIndexToProperty;
    QMap<QString, int> m_propertyToState;  // by path, so that it carries over to the next object
    QList<QtProperty*> m_topLevelProperties;
    QtAbstractPropertyBrowser* m_browser = nullptr;
    QtVariantPropertyManager* m_manager = nullptr;
    QtVariantPropertyManager* m_readOnlyManager = nullptr;  // its properties have no editors
    std::function<void(const char*)> m_edited;
};

namespace {

bool isShown(const QMetaObject* metaObject, const QString& classToView) {
    return classToView == QLatin1String("ALL") || classToView == QLatin1String(metaObject->className());
}

// A colour that was not set is none; the browser would show it as black.
class PropertyManager : public QtVariantPropertyManager {
public:
    using QtVariantPropertyManager::QtVariantPropertyManager;

protected:
    QString valueText(const QtProperty* property) const override {
        return isUnset(property) ? ObjectController::tr("not set") : QtVariantPropertyManager::valueText(property);
    }
    QIcon valueIcon(const QtProperty* property) const override {
        return isUnset(property) ? QIcon() : QtVariantPropertyManager::valueIcon(property);
    }

private:
    bool isUnset(const QtProperty* property) const {
        return valueType(property) == QVariant::Color && !value(property).value<QColor>().isValid();
    }
};

QString path(const QtProperty* property, const QString& prefix) {
    return prefix.isEmpty() ? property->propertyName() : prefix + QLatin1Char('.') + property->propertyName();
}

}  // namespace

void ObjectControllerPrivate::makeBrowser() {
    auto* browser = new QtTreePropertyBrowser(q_ptr);
    browser->setRootIsDecorated(false);
    browser->setAlternatingRowColors(true);
    m_browser = browser;
    auto* layout = new QVBoxLayout(q_ptr);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_browser);
    q_ptr->setFocusProxy(m_browser->findChild<QTreeView*>());
    m_readOnlyManager = new PropertyManager(q_ptr);
    m_manager = new PropertyManager(q_ptr);
    m_browser->setFactoryForManager(m_manager, new QtVariantEditorFactory(q_ptr));
    QObject::connect(m_manager, SIGNAL(valueChanged(QtProperty*, const QVariant&)), q_ptr,
                     SLOT(slotValueChanged(QtProperty*, const QVariant&)));
}

// False when there is nothing to add.
bool ObjectControllerPrivate::show(QObject* object) {
    if (object == m_object)
        return false;
    if (m_object) {
        saveExpandedState();
        for (QtProperty* property : qAsConst(m_topLevelProperties))
            m_browser->removeProperty(property);
        m_topLevelProperties.clear();
        m_classToProperty.clear();
    }
    m_object = object;
    return m_object;
}

bool ObjectControllerPrivate::isFiltered(const QMetaObject* metaObject) const {
    return q_ptr->_filterList.value(QString::fromLatin1(metaObject->className()), false);
}

QtProperty* ObjectControllerPrivate::addGroup(const QMetaObject* metaObject) {
    QtProperty* group = m_manager->addProperty(QtVariantPropertyManager::groupTypeId(),
                                               titleOf(QString::fromLatin1(metaObject->className())));
    m_classToProperty[metaObject] = group;
    m_propertyToClass[group] = metaObject;
    return group;
}

void ObjectControllerPrivate::addClassProperties(const QMetaObject* metaObject, const QString& classToView,
                                                 bool userInterfaceLock) {
    if (!metaObject)
        return;
    addClassProperties(metaObject->superClass(), classToView, userInterfaceLock);
    QtProperty* group = m_classToProperty.value(metaObject);
    bool filtered = false;
    if (group) {
        updateClassProperties(metaObject, false);
    } else {
        if (!isShown(metaObject, classToView))
            return;
        filtered = isFiltered(metaObject);
        group = addGroup(metaObject);
        QStringList hiddenNames = {QStringLiteral("group"), QStringLiteral("memCode"), QStringLiteral("memIndex")};
        if (userInterfaceLock)
            hiddenNames += {QStringLiteral("name"), QStringLiteral("units")};
        addProperties(metaObject, hiddenNames);
    }
    const QtBrowserItem* item = showGroup(group, filtered);
    const QList<QtBrowserItem*> children = item ? item->children() : QList<QtBrowserItem*>();
    for (QtBrowserItem* child : children)
        tree()->setExpanded(child, false);
}

void ObjectControllerPrivate::addClassProperties(const QMetaObject* metaObject) {
    if (!metaObject)
        return;
    addClassProperties(metaObject->superClass());
    QtProperty* group = m_classToProperty.value(metaObject);
    bool filtered = false;
    if (group) {
        updateClassProperties(metaObject, false);
    } else {
        filtered = isFiltered(metaObject);
        group = addGroup(metaObject);
        addProperties(metaObject, {});
    }
    showGroup(group, filtered);
}

void ObjectControllerPrivate::addProperties(const QMetaObject* metaObject, const QStringList& hiddenNames) {
    for (int index = metaObject->propertyOffset(); index < metaObject->propertyCount(); ++index) {
        const QString name = QString::fromLatin1(metaObject->property(index).name());
        if (!hiddenNames.contains(name) && !q_ptr->_filterList.value(name, false))
            addProperty(metaObject, index);
    }
}

void ObjectControllerPrivate::addProperty(const QMetaObject* metaObject, int index) {
    const QMetaProperty metaProperty = metaObject->property(index);
    const QString name = QString::fromLatin1(metaProperty.name());
    QtVariantProperty* property = createProperty(metaProperty, titleOf(name));
    renameParts(name, property);
    if (isFiltered(metaObject)) {
        m_topLevelProperties.append(property);
        QtBrowserItem* item = m_browser->addProperty(property);
        if (tree())
            tree()->setExpanded(item, false);
    } else {
        m_classToProperty[metaObject]->addSubProperty(property);
    }
    m_propertyToIndex[property] = index;
    m_classToIndexToProperty[metaObject][index] = property;
}

// The order of the tests counts: an enumeration is of no type that the manager supports.
QtVariantProperty* ObjectControllerPrivate::createProperty(const QMetaProperty& metaProperty, const QString& title) {
    if (!metaProperty.isReadable())
        return createText(title, QStringLiteral("< Non Readable >"));
    QtVariantProperty* property = nullptr;
    if (metaProperty.isFlagType()) {
        property = m_manager->addProperty(QtVariantPropertyManager::flagTypeId(), title);
        property->setAttribute(QStringLiteral("flagNames"), flagNames(metaProperty.enumerator()));
    } else if (metaProperty.isEnumType()) {
        property = m_manager->addProperty(QtVariantPropertyManager::enumTypeId(), title);
        property->setAttribute(QStringLiteral("enumNames"), enumNames(metaProperty.enumerator()));
    } else if (!m_manager->isPropertyTypeSupported(metaProperty.userType())) {
        property = createText(title, QStringLiteral("< Unknown Type >"));
        property->setEnabled(false);
        return property;
    } else {
        property = createSupported(metaProperty, title);
    }
    property->setValue(shownValue(metaProperty));
    return property;
}

QtVariantProperty* ObjectControllerPrivate::createSupported(const QMetaProperty& metaProperty, const QString& title) {
    const int type = metaProperty.userType();
    // Kept: this one gets no place in the tree. What cannot be written can be edited, and the edit has no effect.
    if (!metaProperty.isWritable())
        m_readOnlyManager->addProperty(type, title + QStringLiteral(" (Non Writable)"));
    if (!metaProperty.isDesignable(m_object))
        return m_readOnlyManager->addProperty(type, title + QStringLiteral(" (Non Designable)"));
    return m_manager->addProperty(type, title);
}

QtVariantProperty* ObjectControllerPrivate::createText(const QString& title, const QString& text) {
    QtVariantProperty* property = m_readOnlyManager->addProperty(QVariant::String, title);
    property->setValue(text);
    return property;
}

void ObjectControllerPrivate::renameParts(const QString& propertyName, const QtProperty* property) {
    const QList<QtProperty*> parts = property->subProperties();
    for (QtProperty* part : parts) {
        const QString key = propertyName + QLatin1Char('.') + part->propertyName();
        if (q_ptr->_displayList.contains(key))
            part->setPropertyName(q_ptr->_displayList.value(key));
    }
}

// The group's item, or null where the browser is no tree.
QtBrowserItem* ObjectControllerPrivate::showGroup(QtProperty* group, bool filtered) {
    m_topLevelProperties.append(group);
    m_browser->addProperty(group);
    if (!tree())
        return nullptr;
    QtBrowserItem* item = m_browser->topLevelItem(group);
    tree()->setExpanded(item, true);
    if (filtered)
        tree()->setItemVisible(item, false);
    return item;
}

QVariant ObjectControllerPrivate::shownValue(const QMetaProperty& metaProperty) const {
    const QVariant value = metaProperty.read(m_object);
    if (metaProperty.isFlagType())
        return flagToInt(metaProperty.enumerator(), value.toInt());
    if (metaProperty.isEnumType())
        return enumToInt(metaProperty.enumerator(), value.toInt());
    return value;
}

void ObjectControllerPrivate::updateClassProperties(const QMetaObject* metaObject, bool recursive) {
    if (!metaObject)
        return;
    if (recursive)
        updateClassProperties(metaObject->superClass(), true);
    if (!m_classToProperty.contains(metaObject))
        return;
    const QMap<int, QtVariantProperty*> properties = m_classToIndexToProperty.value(metaObject);
    for (auto entry = properties.cbegin(); entry != properties.cend(); ++entry) {
        const QMetaProperty metaProperty = metaObject->property(entry.key());
        if (metaProperty.isReadable())
            entry.value()->setValue(shownValue(metaProperty));
    }
}

void ObjectControllerPrivate::slotValueChanged(QtProperty* property, const QVariant& value) {
    if (!m_propertyToIndex.contains(property))
        return;
    const QMetaObject* metaObject = m_object->metaObject();
    const QMetaProperty metaProperty = metaObject->property(m_propertyToIndex.value(property));
    if (metaProperty.isFlagType())
        metaProperty.write(m_object, intToFlag(metaProperty.enumerator(), value.toInt()));
    else if (metaProperty.isEnumType())
        metaProperty.write(m_object, intToEnum(metaProperty.enumerator(), value.toInt()));
    else
        metaProperty.write(m_object, value);
    if (m_edited)
        m_edited(metaProperty.name());
    // A setter may change other properties too, or refuse the value.
    updateClassProperties(metaObject, true);
}

QtBrowserItem* ObjectControllerPrivate::itemOf(QtProperty* property) const {
    const QList<QtBrowserItem*> items = m_browser->items(property);
    return items.isEmpty() ? nullptr : items.first();
}

void ObjectControllerPrivate::saveExpandedState() {
    if (!tree())
        return;
    for (QtProperty* property : qAsConst(m_topLevelProperties))
        saveExpandedState(property, QString());
}

void ObjectControllerPrivate::saveExpandedState(QtProperty* property, const QString& prefix) {
    QtBrowserItem* item = itemOf(property);
    if (!item)
        return;
    const QString itemPath = path(property, prefix);
    m_propertyToState[itemPath] =
        (tree()->isExpanded(item) ? Expanded : 0) + (m_browser->currentItem() == item ? Selected : 0);
    const QList<QtBrowserItem*> children = item->children();
    for (const QtBrowserItem* child : children)
        saveExpandedState(child->property(), itemPath);
}

void ObjectControllerPrivate::restoreExpandedState() {
    if (!tree())
        return;
    for (QtProperty* property : qAsConst(m_topLevelProperties))
        restoreExpandedState(property, QString());
}

void ObjectControllerPrivate::restoreExpandedState(QtProperty* property, const QString& prefix) {
    QtBrowserItem* item = itemOf(property);
    if (!item)
        return;
    const QString itemPath = path(property, prefix);
    const int state = m_propertyToState.value(itemPath, 0);
    tree()->setExpanded(item, state & Expanded);
    if (state & Selected)
        m_browser->setCurrentItem(item);
    else if (m_browser->currentItem() == item)
        m_browser->setCurrentItem(nullptr);
    const QList<QtBrowserItem*> children = item->children();
    for (const QtBrowserItem* child : children)
        restoreExpandedState(child->property(), itemPath);
}

ObjectController::ObjectController(QWidget* parent) : QWidget(parent), d_ptr(new ObjectControllerPrivate(this)) {
    d_ptr->makeBrowser();
}

ObjectController::~ObjectController() {
    delete d_ptr;
}

void ObjectController::setObject(QObject* object, QString classToView, bool lock) {
    if (!d_ptr->show(object))
        return;
    d_ptr->addClassProperties(object->metaObject(), classToView, lock);
    d_ptr->restoreExpandedState();
}

void ObjectController::setObject(QObject* object) {
    if (!d_ptr->show(object))
        return;
    d_ptr->addClassProperties(object->metaObject());
    if (UserInterfaceLock == 4)
        d_ptr->addClassProperties(object->metaObject(), QStringLiteral("OstrelBase"), userInterfaceLock);
    d_ptr->restoreExpandedState();
}

QObject* ObjectController::object() const {
    return d_ptr->m_object;
}

void ObjectController::updateObject() {
    if (d_ptr->m_object)
        d_ptr->updateClassProperties(d_ptr->m_object->metaObject(), true);
}

void ObjectController::whenEdited(std::function<void(const char* property)> callback) {
    d_ptr->m_edited = std::move(callback);
}

QString ObjectController::getDisplayName(const QString& propertyName) const {
    return _displayList.value(propertyName);
}

void ObjectController::setDisplayName(const QString& propertyName, const QString& displayName) {
    _displayList[propertyName] = displayName;
}

bool ObjectController::getFilter(const QString& propertyName) const {
    return _filterList.value(propertyName, false);
}

void ObjectController::setFilter(const QString& propertyName, bool filter) {
    _filterList[propertyName] = filter;
}

#include "moc_objectcontroller.cpp"
