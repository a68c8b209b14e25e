// One or several of a list of names.
#include <QCoreApplication>

#include "propertytype.h"
#include "qtvariantproperty.h"

namespace {

class EnumType : public PropertyType {
public:
    EnumType()
        : PropertyType(QVariant::Int, {{attribute::enumNames, QStringList()},
                                       {attribute::enumIcons, QVariant::fromValue(QtIconMap())}}) {}

    QVariant initialValue() const override { return -1; }
    QVariant accepted(const QVariant& wanted, const PropertyState& state) const override {
        const int count = names(state).size();
        const int index = wanted.toInt();
        const bool allowed = count == 0 ? index == -1 : index >= 0 && index < count;
        return allowed ? wanted : state.value;
    }
    QString text(const PropertyState& state) const override { return names(state).value(state.value.toInt()); }
    QIcon icon(const PropertyState& state) const override {
        return state.attributes.value(attribute::enumIcons).value<QtIconMap>().value(state.value.toInt());
    }
    // Other names mean other values: the choice starts anew, and that is told even if the index is the same.
    PropertyChange setAttribute(PropertyState& state, const QString& name, const QVariant& value) const override {
        PropertyChange change = PropertyType::setAttribute(state, name, value);
        if (name == attribute::enumNames && change.isAny()) {
            state.value = value.toStringList().isEmpty() ? -1 : 0;
            change.value = true;
        }
        return change;
    }

private:
    static QStringList names(const PropertyState& state) {
        return state.attributes.value(attribute::enumNames).toStringList();
    }
};

class FlagType : public PropertyType {
public:
    FlagType() : PropertyType(QVariant::Int, {{attribute::flagNames, QStringList()}}) {}

    QVariant initialValue() const override { return -1; }
    QVariant accepted(const QVariant& wanted, const PropertyState& state) const override {
        const quint64 end = quint64(1) << qMin(names(state).size(), 32);
        return bits(wanted) < end ? wanted : state.value;
    }
    QString text(const PropertyState& state) const override {
        const QStringList all = names(state);
        QStringList chosen;
        for (int i = 0; i < all.size(); ++i) {
            if (hasBit(state.value, i))
                chosen.append(all[i]);
        }
        return chosen.join(QLatin1Char('|'));
    }
    PropertyChange setAttribute(PropertyState& state, const QString& name, const QVariant& value) const override {
        PropertyChange change = PropertyType::setAttribute(state, name, value);
        if (change.isAny()) {
            state.value = 0;
            change.value = true;
        }
        return change;
    }
    QVector<PropertyPart> parts(const PropertyState& state) const override {
        QVector<PropertyPart> parts;
        const QStringList all = names(state);
        for (const QString& name : all)
            parts.append({name, QVariant::Bool, {}});
        return parts;
    }
    QVariant part(const QVariant& whole, int index, const Attributes&) const override { return hasBit(whole, index); }
    QVariant withPart(const PropertyState& whole, int index, const QVariant& part, const Attributes&) const override {
        const quint64 bit = quint64(1) << qMin(index, 32);
        const quint64 mask = part.toBool() ? bits(whole.value) | bit : bits(whole.value) & ~bit;
        return static_cast<int>(static_cast<quint32>(mask));
    }

private:
    static QStringList names(const PropertyState& state) {
        return state.attributes.value(attribute::flagNames).toStringList();
    }
    static quint64 bits(const QVariant& value) { return static_cast<quint32>(value.toInt()); }
    static bool hasBit(const QVariant& value, int index) { return (bits(value) >> qMin(index, 32)) & 1; }
};

}  // namespace

void addChoiceTypes(PropertyTypes* types) {
    types->insert(enumPropertyType(), std::make_shared<EnumType>());
    types->insert(flagPropertyType(), std::make_shared<FlagType>());
}
