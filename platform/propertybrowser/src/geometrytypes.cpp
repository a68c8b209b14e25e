// Points, sizes and rectangles, of integers and of reals.
#include <QCoreApplication>
#include <QPointF>
#include <QRectF>
#include <climits>

#include "rangetypes.h"

namespace {

// What integers and reals differ in.
template <class Number>
struct NumberKind;

template <>
struct NumberKind<int> {
    using Point = QPoint;
    using Size = QSize;
    using Rect = QRect;
    static constexpr int type = QVariant::Int;
    static Attributes attributes() { return {}; }
    static Attributes partAttributes(const PropertyState&) { return {}; }
    static QString text(int number, const PropertyState&) { return QString::number(number); }
};

template <>
struct NumberKind<double> {
    using Point = QPointF;
    using Size = QSizeF;
    using Rect = QRectF;
    static constexpr int type = QVariant::Double;
    static Attributes attributes() { return {{attribute::decimals, 2}}; }
    static Attributes partAttributes(const PropertyState& state) {
        return {{attribute::decimals, state.attributes.value(attribute::decimals)}};
    }
    static QString text(double number, const PropertyState& state) {
        return QString::number(number, 'f', state.attributes.value(attribute::decimals).toInt());
    }
};

QString partName(const char* name) {
    return QCoreApplication::translate("QtVariantPropertyManager", name);
}

template <class Number>
QString pairText(const char* pattern, Number first, Number second, const PropertyState& state) {
    return QString::fromLatin1(pattern).arg(NumberKind<Number>::text(first, state),
                                            NumberKind<Number>::text(second, state));
}

template <class Number>
PropertyPart numberPart(const char* name, const PropertyState& state) {
    return {partName(name), NumberKind<Number>::type, NumberKind<Number>::partAttributes(state)};
}

QVariant limited(const QString& name, const QVariant& value) {
    return name == attribute::decimals ? QVariant(qBound(0, value.toInt(), mostDecimals)) : value;
}

template <class Number>
class PointType : public PropertyType {
    using Kind = NumberKind<Number>;
    using Point = typename Kind::Point;

public:
    PointType() : PropertyType(qMetaTypeId<Point>(), Kind::attributes()) {}
    QVariant initialValue() const override { return Point(0, 0); }
    PropertyChange setAttribute(PropertyState& state, const QString& name, const QVariant& value) const override {
        return PropertyType::setAttribute(state, name, limited(name, value));
    }
    QString text(const PropertyState& state) const override {
        const auto point = state.value.value<Point>();
        return pairText<Number>("(%1, %2)", point.x(), point.y(), state);
    }
    QVector<PropertyPart> parts(const PropertyState& state) const override {
        return {numberPart<Number>("X", state), numberPart<Number>("Y", state)};
    }
    QVariant part(const QVariant& whole, int index, const Attributes&) const override {
        const auto point = whole.value<Point>();
        return index == 0 ? point.x() : point.y();
    }
    QVariant withPart(const PropertyState& whole, int index, const QVariant& part, const Attributes&) const override {
        auto point = whole.value.value<Point>();
        (index == 0 ? point.rx() : point.ry()) = part.value<Number>();
        return point;
    }
};

template <class Number>
class SizeType : public RangeType<typename NumberKind<Number>::Size> {
    using Kind = NumberKind<Number>;
    using Size = typename Kind::Size;

public:
    SizeType() : RangeType<Size>(Size(0, 0), Size(INT_MAX, INT_MAX), Kind::attributes()) {}
    QVariant initialValue() const override { return Size(0, 0); }
    QString text(const PropertyState& state) const override {
        const auto size = state.value.value<Size>();
        return pairText<Number>("%1 x %2", size.width(), size.height(), state);
    }
    QVector<PropertyPart> parts(const PropertyState& state) const override {
        const auto minimum = state.attributes.value(attribute::minimum).value<Size>();
        const auto maximum = state.attributes.value(attribute::maximum).value<Size>();
        PropertyPart width = numberPart<Number>("Width", state);
        PropertyPart height = numberPart<Number>("Height", state);
        width.attributes[attribute::minimum] = minimum.width();
        width.attributes[attribute::maximum] = maximum.width();
        height.attributes[attribute::minimum] = minimum.height();
        height.attributes[attribute::maximum] = maximum.height();
        return {width, height};
    }
    QVariant part(const QVariant& whole, int index, const Attributes&) const override {
        const auto size = whole.value<Size>();
        return index == 0 ? size.width() : size.height();
    }
    QVariant withPart(const PropertyState& whole, int index, const QVariant& part, const Attributes&) const override {
        auto size = whole.value.value<Size>();
        (index == 0 ? size.rwidth() : size.rheight()) = part.value<Number>();
        return size;
    }
};

template <class Number>
class RectType : public PropertyType {
    using Kind = NumberKind<Number>;
    using Rect = typename Kind::Rect;

public:
    RectType() : PropertyType(qMetaTypeId<Rect>(), withConstraint(Kind::attributes())) {}
    QVariant initialValue() const override { return Rect(0, 0, 0, 0); }

    // A value is cut to the constraint; one that lies outside is moved in.
    QVariant accepted(const QVariant& wanted, const PropertyState& state) const override {
        const Rect rect = wanted.value<Rect>().normalized();
        const Rect constraint = constraintOf(state);
        if (constraint.isNull() || constraint.contains(rect))
            return rect;
        const Rect cut = rect.intersected(constraint);
        return cut.isEmpty() ? movedInto(rect, constraint) : cut;
    }
    PropertyChange setAttribute(PropertyState& state, const QString& name, const QVariant& value) const override {
        const QVariant former = state.value;
        if (name == attribute::constraint && !value.value<Rect>().isNull())
            state.value = movedInto(former.value<Rect>(), value.value<Rect>().normalized());
        PropertyChange change = PropertyType::setAttribute(state, name, limited(name, value));
        change.value = change.value || state.value != former;
        return change;
    }
    QString text(const PropertyState& state) const override {
        const auto rect = state.value.value<Rect>();
        return pairText<Number>("[(%1, %2), ", rect.x(), rect.y(), state) +
               pairText<Number>("%1 x %2]", rect.width(), rect.height(), state);
    }
    QVector<PropertyPart> parts(const PropertyState& state) const override {
        PropertyPart width = numberPart<Number>("Width", state);
        PropertyPart height = numberPart<Number>("Height", state);
        width.attributes[attribute::minimum] = Number(0);
        height.attributes[attribute::minimum] = Number(0);
        return {numberPart<Number>("X", state), numberPart<Number>("Y", state), width, height};
    }
    QVariant part(const QVariant& whole, int index, const Attributes&) const override {
        const auto rect = whole.value<Rect>();
        const Number numbers[] = {rect.x(), rect.y(), rect.width(), rect.height()};
        return numbers[index];
    }
    QVariant withPart(const PropertyState& whole, int index, const QVariant& part, const Attributes&) const override {
        auto rect = whole.value.value<Rect>();
        const auto number = part.value<Number>();
        switch (index) {
            case 0:
                rect.moveLeft(number);
                break;
            case 1:
                rect.moveTop(number);
                break;
            case 2:
                rect.setWidth(number);
                break;
            default:
                rect.setHeight(number);
        }
        const Rect constraint = constraintOf(whole);
        return constraint.isNull() ? rect : movedInto(rect, constraint);
    }

private:
    static Attributes withConstraint(Attributes attributes) {
        attributes[attribute::constraint] = Rect();
        return attributes;
    }
    static Rect constraintOf(const PropertyState& state) {
        return state.attributes.value(attribute::constraint).value<Rect>().normalized();
    }
    static Rect movedInto(Rect rect, const Rect& constraint) {
        rect.setSize(rect.size().boundedTo(constraint.size()));
        rect.moveLeft(std::clamp(rect.x(), constraint.x(), constraint.x() + constraint.width() - rect.width()));
        rect.moveTop(std::clamp(rect.y(), constraint.y(), constraint.y() + constraint.height() - rect.height()));
        return rect;
    }
};

template <class Number>
void addTypesOf(PropertyTypes* types) {
    using Kind = NumberKind<Number>;
    types->insert(qMetaTypeId<typename Kind::Point>(), std::make_shared<PointType<Number>>());
    types->insert(qMetaTypeId<typename Kind::Size>(), std::make_shared<SizeType<Number>>());
    types->insert(qMetaTypeId<typename Kind::Rect>(), std::make_shared<RectType<Number>>());
}

}  // namespace

void addGeometryTypes(PropertyTypes* types) {
    addTypesOf<int>(types);
    addTypesOf<double>(types);
}
