#include "propertytype.h"

namespace {

struct EnumMark {};
struct FlagMark {};
struct GroupMark {};

PropertyTypes allTypes() {
    PropertyTypes types;
    addPlainTypes(&types);
    addRangeTypes(&types);
    addGeometryTypes(&types);
    addChoiceTypes(&types);
    addLookTypes(&types);
    addLocaleType(&types);
    return types;
}

}  // namespace

Q_DECLARE_METATYPE(EnumMark)
Q_DECLARE_METATYPE(FlagMark)
Q_DECLARE_METATYPE(GroupMark)

int enumPropertyType() {
    return qMetaTypeId<EnumMark>();
}

int flagPropertyType() {
    return qMetaTypeId<FlagMark>();
}

int groupPropertyType() {
    return qMetaTypeId<GroupMark>();
}

const PropertyType* propertyTypeOf(int id) {
    static const PropertyTypes types = allTypes();
    return types.value(id).get();
}

QVariant PropertyType::part(const QVariant&, int, const Attributes&) const {
    return QVariant();
}

QVariant PropertyType::withPart(const PropertyState& whole, int, const QVariant&, const Attributes&) const {
    return whole.value;
}

void PropertyType::acceptAgain(PropertyState& state, PropertyChange& change) const {
    const QVariant value = accepted(state.value, state);
    if (isSame(value, state.value))
        return;
    state.value = value;
    change.value = true;
}

PropertyChange PropertyType::setAttribute(PropertyState& state, const QString& name, const QVariant& value) const {
    PropertyChange change;
    if (state.attributes.value(name) == value)
        return change;
    state.attributes[name] = value;
    change.attributes.append(name);
    acceptAgain(state, change);
    return change;
}
