// The properties of one living object in a tree, where an operator can change them.
//
// What is shown follows from the object's meta-object alone: nothing here knows a widget. Each edit is written through
// the meta-object, and so by the object's own setter.
#ifndef OSTREL_PROPERTIES_OBJECTCONTROLLER_H
#define OSTREL_PROPERTIES_OBJECTCONTROLLER_H

#include <QMap>
#include <QWidget>
#include <functional>

class ObjectControllerPrivate;
class QtProperty;

// The object must outlive the controller. Values that it changes by itself show after the next edit or updateObject().
class Q_DECL_EXPORT ObjectController : public QWidget {
    Q_OBJECT

public:
    explicit ObjectController(QWidget* parent = nullptr);
    ~ObjectController() override;

    // Shows the properties that the class `classToView` declares, or those of all the object's classes for "ALL".
    // With `userInterfaceLock` "name" and "units" are left out. The object on show already stays as it is; null shows
    // nothing.
    void setObject(QObject* object, QString classToView, bool userInterfaceLock);
    // Shows all classes and hides no name.
    void setObject(QObject* object);
    QObject* object() const;
    // Reads all values anew.
    void updateObject();
    // Called with the property's name after each edit, before the other values are read anew.
    void whenEdited(std::function<void(const char* property)> callback);

    // Names to show instead of those of properties and classes; "PROPERTY.PART" for a part of a property, such as the
    // family of a font. Like the filters they are read when an object is set.
    QString getDisplayName(const QString& propertyName) const;
    void setDisplayName(const QString& propertyName, const QString& displayName);
    // A filtered property is hidden; the properties of a filtered class stand at top level, without a line for it.
    bool getFilter(const QString& propertyName) const;
    void setFilter(const QString& propertyName, bool filter);

private:
    QMap<QString, QString> _displayList;
    QMap<QString, bool> _filterList;
    ObjectControllerPrivate* d_ptr;  // owned
    bool userInterfaceLock = false;

    Q_DECLARE_PRIVATE(ObjectController)
    Q_DISABLE_COPY(ObjectController)
    Q_PRIVATE_SLOT(d_func(), void slotValueChanged(QtProperty*, const QVariant&))
};

#endif
