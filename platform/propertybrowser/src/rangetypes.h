// A type with the attributes "minimum" and "maximum". One that passes the other takes it along, and the value stays
// between the two.
#ifndef OSTREL_PROPERTYBROWSER_RANGETYPES_H
#define OSTREL_PROPERTYBROWSER_RANGETYPES_H

#include <QDate>
#include <QSizeF>
#include <algorithm>

#include "propertytype.h"

template <class Value>
Value clampedTo(const Value& value, const Value& minimum, const Value& maximum) {
    return std::clamp(value, minimum, maximum);
}
inline QSize clampedTo(const QSize& value, const QSize& minimum, const QSize& maximum) {
    return value.expandedTo(minimum).boundedTo(maximum);
}
inline QSizeF clampedTo(const QSizeF& value, const QSizeF& minimum, const QSizeF& maximum) {
    return value.expandedTo(minimum).boundedTo(maximum);
}
template <class Value>
Value greater(const Value& left, const Value& right) {
    return std::max(left, right);
}
template <class Value>
Value lesser(const Value& left, const Value& right) {
    return std::min(left, right);
}
inline QSize greater(const QSize& left, const QSize& right) {
    return left.expandedTo(right);
}
inline QSize lesser(const QSize& left, const QSize& right) {
    return left.boundedTo(right);
}
inline QSizeF greater(const QSizeF& left, const QSizeF& right) {
    return left.expandedTo(right);
}
inline QSizeF lesser(const QSizeF& left, const QSizeF& right) {
    return left.boundedTo(right);
}

constexpr int mostDecimals = 13;

template <class Value>
class RangeType : public PropertyType {
public:
    RangeType(const Value& minimum, const Value& maximum, Attributes others = {})
        : PropertyType(qMetaTypeId<Value>(), withRange(std::move(others), minimum, maximum)) {}

    QVariant accepted(const QVariant& wanted, const PropertyState& state) const override {
        const auto range = [&state](const QString& name) {
            return state.attributes.value(name).template value<Value>();
        };
        return QVariant::fromValue(
            clampedTo(wanted.template value<Value>(), range(attribute::minimum), range(attribute::maximum)));
    }

    PropertyChange setAttribute(PropertyState& state, const QString& name, const QVariant& wanted) const override {
        if (name == attribute::decimals)
            return PropertyType::setAttribute(state, name, qBound(0, wanted.toInt(), mostDecimals));
        if (name == attribute::singleStep)
            return PropertyType::setAttribute(state, name, noStepBack(wanted));
        if (name != attribute::minimum && name != attribute::maximum)
            return PropertyType::setAttribute(state, name, wanted);
        return setRange(state, name, wanted.template value<Value>());
    }

private:
    static Attributes withRange(Attributes attributes, const Value& minimum, const Value& maximum) {
        attributes[attribute::minimum] = QVariant::fromValue(minimum);
        attributes[attribute::maximum] = QVariant::fromValue(maximum);
        return attributes;
    }

    static QVariant noStepBack(QVariant step) {
        if (step.toDouble() >= 0)
            return step;
        QVariant none(0);
        none.convert(step.userType());
        return none;
    }

    PropertyChange setRange(PropertyState& state, const QString& name, const Value& limit) const {
        PropertyChange change;
        QVariant& minimum = state.attributes[attribute::minimum];
        QVariant& maximum = state.attributes[attribute::maximum];
        QVariant& wanted = name == attribute::minimum ? minimum : maximum;
        if (wanted.template value<Value>() == limit)
            return change;
        wanted = QVariant::fromValue(limit);
        if (name == attribute::minimum)
            maximum = QVariant::fromValue(greater(maximum.template value<Value>(), limit));
        else
            minimum = QVariant::fromValue(lesser(minimum.template value<Value>(), limit));
        change.attributes = QStringList{attribute::minimum, attribute::maximum};
        acceptAgain(state, change);
        return change;
    }
};

#endif
