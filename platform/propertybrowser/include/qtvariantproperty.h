// Properties of many types behind one manager and one factory, their values as variants.
#ifndef OSTREL_PROPERTYBROWSER_QTVARIANTPROPERTY_H
#define OSTREL_PROPERTYBROWSER_QTVARIANTPROPERTY_H

#include <QMap>
#include <QVariant>

#include "qtpropertybrowser.h"

typedef QMap<int, QIcon> QtIconMap;
Q_DECLARE_METATYPE(QtIconMap)

class QtVariantPropertyManager;

// Everything here is asked of the manager and told to it.
class QT_QTPROPERTYBROWSER_EXPORT QtVariantProperty : public QtProperty {
public:
    ~QtVariantProperty() override;

    QVariant value() const;
    QVariant attributeValue(const QString& attribute) const;
    int valueType() const;
    int propertyType() const;
    void setValue(const QVariant& value);
    void setAttribute(const QString& attribute, const QVariant& value);

protected:
    explicit QtVariantProperty(QtVariantPropertyManager* manager);

private:
    friend class QtVariantPropertyManager;
    QtVariantPropertyManager* m_manager;
};

// A type is a QVariant type id or one of the ids below. A composite type, such as a font, has its parts as
// sub-properties, which belong to this manager too; a change of either reaches the other.
class QT_QTPROPERTYBROWSER_EXPORT QtVariantPropertyManager : public QtAbstractPropertyManager {
    Q_OBJECT

public:
    explicit QtVariantPropertyManager(QObject* parent = nullptr);
    ~QtVariantPropertyManager() override;

    // Null for a type that is not supported.
    virtual QtVariantProperty* addProperty(int propertyType, const QString& name = QString());

    // 0 for a property of another manager.
    int propertyType(const QtProperty* property) const;
    int valueType(const QtProperty* property) const;
    QtVariantProperty* variantProperty(const QtProperty* property) const;

    virtual bool isPropertyTypeSupported(int propertyType) const;
    virtual int valueType(int propertyType) const;
    virtual QStringList attributes(int propertyType) const;
    virtual int attributeType(int propertyType, const QString& attribute) const;

    virtual QVariant value(const QtProperty* property) const;
    virtual QVariant attributeValue(const QtProperty* property, const QString& attribute) const;

    static int enumTypeId();   // the value is an index into "enumNames"
    static int flagTypeId();   // the value is a mask, bit n for entry n of "flagNames"
    static int groupTypeId();  // no value
    static int iconMapTypeId();

public Q_SLOTS:
    // A value that does not convert to the property's type, or that the type refuses, changes nothing.
    virtual void setValue(QtProperty* property, const QVariant& value);
    virtual void setAttribute(QtProperty* property, const QString& attribute, const QVariant& value);

Q_SIGNALS:
    void valueChanged(QtProperty* property, const QVariant& value);
    void attributeChanged(QtProperty* property, const QString& attribute, const QVariant& value);

protected:
    bool hasValue(const QtProperty* property) const override;
    QString valueText(const QtProperty* property) const override;
    QIcon valueIcon(const QtProperty* property) const override;
    void initializeProperty(QtProperty* property) override;
    void uninitializeProperty(QtProperty* property) override;
    QtProperty* createProperty() override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

class QT_QTPROPERTYBROWSER_EXPORT QtVariantEditorFactory : public QtAbstractEditorFactory<QtVariantPropertyManager> {
    Q_OBJECT

public:
    explicit QtVariantEditorFactory(QObject* parent = nullptr);
    // Deletes the editors that it made.
    ~QtVariantEditorFactory() override;

protected:
    void connectPropertyManager(QtVariantPropertyManager* manager) override;
    using QtAbstractEditorFactory<QtVariantPropertyManager>::createEditor;
    QWidget* createEditor(QtVariantPropertyManager* manager, QtProperty* property, QWidget* parent) override;
    void disconnectPropertyManager(QtVariantPropertyManager* manager) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

#endif
