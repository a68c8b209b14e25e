// Properties, the managers that own them, the factories of their editors, and what every browser has in common.
//
// Names and behaviour are those of the property browser that some systems bring as a package; code written against one
// runs with the other. GUI thread only. A null argument is answered by doing nothing, a look-up without result by null.
#ifndef OSTREL_PROPERTYBROWSER_QTPROPERTYBROWSER_H
#define OSTREL_PROPERTYBROWSER_QTPROPERTYBROWSER_H

#include <QIcon>
#include <QLineEdit>
#include <QSet>
#include <QWidget>
#include <memory>

#ifndef QT_QTPROPERTYBROWSER_EXPORT
#define QT_QTPROPERTYBROWSER_EXPORT Q_DECL_EXPORT
#endif

typedef QLineEdit::EchoMode EchoMode;

class QtAbstractPropertyManager;

// One line of a browser: a name, and a value that its manager keeps. A property may stand below several parents, also
// below those of another manager. Its manager owns it; to delete one directly is legal.
class QT_QTPROPERTYBROWSER_EXPORT QtProperty {
public:
    virtual ~QtProperty();

    QList<QtProperty*> subProperties() const;
    QtAbstractPropertyManager* propertyManager() const;

    QString toolTip() const;
    QString statusTip() const;
    QString whatsThis() const;
    QString propertyName() const;
    // The property's own flags, whatever its parents say.
    bool isEnabled() const;
    bool isModified() const;

    // Asked of the manager.
    bool hasValue() const;
    QIcon valueIcon() const;
    QString valueText() const;
    QString displayText() const;

    // A change is told once by the manager's propertyChanged(); an equal value is no change.
    void setToolTip(const QString& text);
    void setStatusTip(const QString& text);
    void setWhatsThis(const QString& text);
    void setPropertyName(const QString& text);
    void setEnabled(bool enable);
    void setModified(bool modified);

    void addSubProperty(QtProperty* property);
    // Puts it behind `after`, or first where that is no sub-property. A property that is there already, or would become
    // its own ancestor, is not inserted.
    void insertSubProperty(QtProperty* property, QtProperty* after);
    // Takes it out without deleting it.
    void removeSubProperty(QtProperty* property);

protected:
    explicit QtProperty(QtAbstractPropertyManager* manager);
    void propertyChanged();

private:
    Q_DISABLE_COPY(QtProperty)
    friend class QtAbstractPropertyManager;
    bool isBelow(const QtProperty* ancestor) const;
    void setText(QString* text, const QString& wanted);

    struct Private;
    std::unique_ptr<Private> d;
};

// Makes properties, owns them, and knows their values.
class QT_QTPROPERTYBROWSER_EXPORT QtAbstractPropertyManager : public QObject {
    Q_OBJECT

public:
    explicit QtAbstractPropertyManager(QObject* parent = nullptr);
    ~QtAbstractPropertyManager() override;

    QSet<QtProperty*> properties() const;
    // Deletes all properties.
    void clear() const;
    QtProperty* addProperty(const QString& name = QString());

Q_SIGNALS:
    // `after` is null when the property became the first.
    void propertyInserted(QtProperty* property, QtProperty* parent, QtProperty* after);
    void propertyChanged(QtProperty* property);
    // Sent before the two are parted.
    void propertyRemoved(QtProperty* property, QtProperty* parent);
    // The pointer is good as a key only.
    void propertyDestroyed(QtProperty* property);

protected:
    virtual bool hasValue(const QtProperty* property) const;
    virtual QIcon valueIcon(const QtProperty* property) const;
    virtual QString valueText(const QtProperty* property) const;
    virtual QString displayText(const QtProperty* property) const;
    virtual EchoMode echoMode(const QtProperty* property) const;
    virtual void initializeProperty(QtProperty* property) = 0;
    virtual void uninitializeProperty(QtProperty* property);
    virtual QtProperty* createProperty();

private:
    Q_DISABLE_COPY(QtAbstractPropertyManager)
    friend class QtProperty;
    void forget(QtProperty* property);

    struct Private;
    std::unique_ptr<Private> d;
};

class QT_QTPROPERTYBROWSER_EXPORT QtAbstractEditorFactoryBase : public QObject {
    Q_OBJECT

public:
    ~QtAbstractEditorFactoryBase() override;
    virtual QWidget* createEditor(QtProperty* property, QWidget* parent) = 0;

protected:
    explicit QtAbstractEditorFactoryBase(QObject* parent = nullptr);
    virtual void breakConnection(QtAbstractPropertyManager* manager) = 0;

protected Q_SLOTS:
    virtual void managerDestroyed(QObject* manager) = 0;

private:
    friend class QtAbstractPropertyBrowser;
};

// Makes editors for the properties of managers of one class. One factory serves many managers and many browsers.
template <class PropertyManager>
class QtAbstractEditorFactory : public QtAbstractEditorFactoryBase {
public:
    explicit QtAbstractEditorFactory(QObject* parent) : QtAbstractEditorFactoryBase(parent) {}

    QWidget* createEditor(QtProperty* property, QWidget* parent) override {
        PropertyManager* manager = propertyManager(property);
        return manager ? createEditor(manager, property, parent) : nullptr;
    }
    void addPropertyManager(PropertyManager* manager) {
        if (!manager || m_managers.contains(manager))
            return;
        m_managers.insert(manager);
        connectPropertyManager(manager);
        connect(manager, SIGNAL(destroyed(QObject*)), this, SLOT(managerDestroyed(QObject*)));
    }
    void removePropertyManager(PropertyManager* manager) {
        if (!m_managers.remove(manager))
            return;
        disconnect(manager, SIGNAL(destroyed(QObject*)), this, SLOT(managerDestroyed(QObject*)));
        disconnectPropertyManager(manager);
    }
    QSet<PropertyManager*> propertyManagers() const { return m_managers; }
    PropertyManager* propertyManager(QtProperty* property) const {
        return property ? registered(property->propertyManager()) : nullptr;
    }

protected:
    virtual void connectPropertyManager(PropertyManager* manager) = 0;
    virtual QWidget* createEditor(PropertyManager* manager, QtProperty* property, QWidget* parent) = 0;
    virtual void disconnectPropertyManager(PropertyManager* manager) = 0;
    void managerDestroyed(QObject* manager) override { m_managers.remove(registered(manager)); }
    void breakConnection(QtAbstractPropertyManager* manager) override { removePropertyManager(registered(manager)); }

private:
    // Compares addresses only, since the manager may be half destroyed.
    PropertyManager* registered(const QObject* manager) const {
        for (PropertyManager* candidate : m_managers) {
            if (static_cast<const QObject*>(candidate) == manager)
                return candidate;
        }
        return nullptr;
    }

    QSet<PropertyManager*> m_managers;
};

class QtAbstractPropertyBrowser;

// One occurrence of a property in a browser, which makes and deletes it.
class QT_QTPROPERTYBROWSER_EXPORT QtBrowserItem {
public:
    QtProperty* property() const { return m_property; }
    QtBrowserItem* parent() const { return m_parent; }
    QList<QtBrowserItem*> children() const { return m_children; }
    QtAbstractPropertyBrowser* browser() const { return m_browser; }

private:
    Q_DISABLE_COPY(QtBrowserItem)
    friend class QtAbstractPropertyBrowser;
    QtBrowserItem(QtProperty* property, QtBrowserItem* parent, QtAbstractPropertyBrowser* browser)
        : m_property(property), m_parent(parent), m_browser(browser) {}
    ~QtBrowserItem() = default;

    QtProperty* m_property;
    QtBrowserItem* m_parent;
    QtAbstractPropertyBrowser* m_browser;
    QList<QtBrowserItem*> m_children;
};

// Shows properties with all that stands below them, and follows their managers: what is inserted, removed, changed or
// deleted there shows at once. It owns neither properties nor managers nor factories. A manager without a factory in
// this browser has rows without editors.
class QT_QTPROPERTYBROWSER_EXPORT QtAbstractPropertyBrowser : public QWidget {
    Q_OBJECT

public:
    explicit QtAbstractPropertyBrowser(QWidget* parent = nullptr);
    ~QtAbstractPropertyBrowser() override;

    QList<QtProperty*> properties() const;  // those at top level
    QList<QtBrowserItem*> items(QtProperty* property) const;
    QtBrowserItem* topLevelItem(QtProperty* property) const;
    QList<QtBrowserItem*> topLevelItems() const;
    // Removes all rows and deletes no property.
    void clear();

    template <class PropertyManager>
    void setFactoryForManager(PropertyManager* manager, QtAbstractEditorFactory<PropertyManager>* factory) {
        if (!manager || !factory)
            return;
        useFactory(manager, factory);
        factory->addPropertyManager(manager);
    }
    // The rows stay. A factory forgets the manager when no browser uses the two together any more.
    void unsetFactoryForManager(QtAbstractPropertyManager* manager);

    QtBrowserItem* currentItem() const;
    void setCurrentItem(QtBrowserItem* item);

Q_SIGNALS:
    void currentItemChanged(QtBrowserItem* item);

public Q_SLOTS:
    QtBrowserItem* addProperty(QtProperty* property);
    // Null for a property that is at top level already. It comes first where `after` is not at top level.
    QtBrowserItem* insertProperty(QtProperty* property, QtProperty* after);
    void removeProperty(QtProperty* property);

protected:
    // A parent is inserted before its children and removed after them.
    virtual void itemInserted(QtBrowserItem* item, QtBrowserItem* after) = 0;
    virtual void itemRemoved(QtBrowserItem* item) = 0;
    virtual void itemChanged(QtBrowserItem* item) = 0;
    virtual QWidget* createEditor(QtProperty* property, QWidget* parent);

private:
    Q_DISABLE_COPY(QtAbstractPropertyBrowser)
    void useFactory(QtAbstractPropertyManager* manager, QtAbstractEditorFactoryBase* factory);

    struct Private;
    std::unique_ptr<Private> d;
};

#endif
