// What a variant property of one type is: its first value, its attributes, its parts, its text. Types have no state;
// the manager keeps that of each property.
#ifndef OSTREL_PROPERTYBROWSER_PROPERTYTYPE_H
#define OSTREL_PROPERTYBROWSER_PROPERTYTYPE_H

#include <QIcon>
#include <QMap>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <memory>

using Attributes = QMap<QString, QVariant>;

// Names of attributes, as users of the library write them.
namespace attribute {
inline const QString minimum = QStringLiteral("minimum");
inline const QString maximum = QStringLiteral("maximum");
inline const QString singleStep = QStringLiteral("singleStep");
inline const QString decimals = QStringLiteral("decimals");
inline const QString readOnly = QStringLiteral("readOnly");
inline const QString textVisible = QStringLiteral("textVisible");
inline const QString regExp = QStringLiteral("regExp");
inline const QString echoMode = QStringLiteral("echoMode");
inline const QString constraint = QStringLiteral("constraint");
inline const QString enumNames = QStringLiteral("enumNames");
inline const QString enumIcons = QStringLiteral("enumIcons");
inline const QString flagNames = QStringLiteral("flagNames");
}  // namespace attribute

struct PropertyState {
    QVariant value;
    Attributes attributes;
};

// What is to be told about one property.
struct PropertyChange {
    QStringList attributes;
    bool value = false;
    bool isAny() const { return value || !attributes.isEmpty(); }
};

// A sub-property that the manager makes for each property of the type.
struct PropertyPart {
    QString name;
    int type;
    Attributes attributes;
};

class PropertyType {
public:
    PropertyType(int valueType, Attributes attributes) : m_valueType(valueType), m_attributes(std::move(attributes)) {}
    virtual ~PropertyType() = default;

    int valueType() const { return m_valueType; }
    // With the values they start with.
    const Attributes& attributes() const { return m_attributes; }

    virtual QVariant initialValue() const = 0;
    // What a value of the value type becomes; the present value where it is refused.
    virtual QVariant accepted(const QVariant& wanted, const PropertyState&) const { return wanted; }
    virtual bool isSame(const QVariant& left, const QVariant& right) const { return left == right; }
    virtual QString text(const PropertyState&) const { return QString(); }
    virtual QIcon icon(const PropertyState&) const { return QIcon(); }

    // Stores an attribute that the type has, of its own type, and what follows from it.
    virtual PropertyChange setAttribute(PropertyState& state, const QString& name, const QVariant& value) const;

    virtual QVector<PropertyPart> parts(const PropertyState&) const { return {}; }
    virtual QVariant part(const QVariant& whole, int index, const Attributes& partAttributes) const;
    // The whole with that part changed and all others as they are.
    virtual QVariant withPart(const PropertyState& whole, int index, const QVariant& part,
                              const Attributes& partAttributes) const;

protected:
    // Lets the value follow the attributes.
    void acceptAgain(PropertyState& state, PropertyChange& change) const;

private:
    const int m_valueType;
    const Attributes m_attributes;
};

// Null for a type that has no properties.
const PropertyType* propertyTypeOf(int id);

// Ids of the types that are no QVariant types.
int enumPropertyType();
int flagPropertyType();
int groupPropertyType();

// The families of types, each adding its own by id.
using PropertyTypes = QMap<int, std::shared_ptr<const PropertyType>>;
void addPlainTypes(PropertyTypes* types);
void addRangeTypes(PropertyTypes* types);
void addGeometryTypes(PropertyTypes* types);
void addChoiceTypes(PropertyTypes* types);
void addLookTypes(PropertyTypes* types);
void addLocaleType(PropertyTypes* types);

#endif
