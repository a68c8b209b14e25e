// Colour, font, size policy and cursor: how widgets look and where they stand.
#include <QApplication>
#include <QColor>
#include <QCursor>
#include <QFont>
#include <QFontDatabase>
#include <QSizePolicy>

#include "cursorshapes.h"
#include "propertytype.h"
#include "valueicons.h"

namespace {

QString translated(const char* text) {
    return QCoreApplication::translate("QtVariantPropertyManager", text);
}

QVector<PropertyPart> namedParts(std::initializer_list<const char*> names, int type, const Attributes& attributes) {
    QVector<PropertyPart> parts;
    for (const char* name : names)
        parts.append({translated(name), type, attributes});
    return parts;
}

const Attributes byteRange = {{attribute::minimum, 0}, {attribute::maximum, 255}};

class ColorType : public PropertyType {
public:
    ColorType() : PropertyType(QVariant::Color, {}) {}
    QVariant initialValue() const override { return QColor(); }
    QString text(const PropertyState& state) const override { return colorText(state.value.value<QColor>()); }
    QIcon icon(const PropertyState& state) const override { return colorIcon(state.value.value<QColor>()); }
    QVector<PropertyPart> parts(const PropertyState&) const override {
        return namedParts({"Red", "Green", "Blue", "Alpha"}, QVariant::Int, byteRange);
    }
    QVariant part(const QVariant& whole, int index, const Attributes&) const override {
        const auto color = whole.value<QColor>();
        const int numbers[] = {color.red(), color.green(), color.blue(), color.alpha()};
        return numbers[index];
    }
    QVariant withPart(const PropertyState& whole, int index, const QVariant& part, const Attributes&) const override {
        const auto color = whole.value.value<QColor>();
        int numbers[] = {color.red(), color.green(), color.blue(), color.alpha()};
        numbers[index] = part.toInt();
        return QColor(numbers[0], numbers[1], numbers[2], numbers[3]);
    }
};

class FontType : public PropertyType {
public:
    FontType() : PropertyType(QVariant::Font, {}) {}
    QVariant initialValue() const override { return QApplication::font(); }
    // What a font says itself and what it leaves to its surroundings counts as well.
    bool isSame(const QVariant& left, const QVariant& right) const override {
        const auto a = left.value<QFont>();
        const auto b = right.value<QFont>();
        return a == b && a.resolve() == b.resolve();
    }
    QString text(const PropertyState& state) const override { return fontText(state.value.value<QFont>()); }
    QIcon icon(const PropertyState& state) const override { return fontIcon(state.value.value<QFont>()); }
    QVector<PropertyPart> parts(const PropertyState&) const override {
        QVector<PropertyPart> parts = {
            {translated("Family"), enumPropertyType(), {{attribute::enumNames, QFontDatabase().families()}}},
            {translated("Point Size"), QVariant::Int, {{attribute::minimum, 1}}}};
        return parts + namedParts({"Bold", "Italic", "Underline", "Strikeout", "Kerning"}, QVariant::Bool, {});
    }
    QVariant part(const QVariant& whole, int index, const Attributes& partAttributes) const override {
        const auto font = whole.value<QFont>();
        switch (index) {
            case 0:
                return qMax(0, partAttributes.value(attribute::enumNames).toStringList().indexOf(font.family()));
            case 1:
                return qMax(1, font.pointSize());  // a size in pixels has none in points
            case 2:
                return font.bold();
            case 3:
                return font.italic();
            case 4:
                return font.underline();
            case 5:
                return font.strikeOut();
            default:
                return font.kerning();
        }
    }
    QVariant withPart(const PropertyState& whole, int index, const QVariant& part,
                      const Attributes& partAttributes) const override {
        auto font = whole.value.value<QFont>();
        switch (index) {
            case 0:
                font.setFamily(partAttributes.value(attribute::enumNames).toStringList().value(part.toInt()));
                break;
            case 1:
                font.setPointSize(part.toInt());
                break;
            case 2:
                font.setBold(part.toBool());
                break;
            case 3:
                font.setItalic(part.toBool());
                break;
            case 4:
                font.setUnderline(part.toBool());
                break;
            case 5:
                font.setStrikeOut(part.toBool());
                break;
            default:
                font.setKerning(part.toBool());
        }
        return font;
    }
};

struct Policy {
    QSizePolicy::Policy policy;
    const char* name;
};
constexpr Policy policies[] = {
    {QSizePolicy::Fixed, "Fixed"},
    {QSizePolicy::Minimum, "Minimum"},
    {QSizePolicy::Maximum, "Maximum"},
    {QSizePolicy::Preferred, "Preferred"},
    {QSizePolicy::MinimumExpanding, "MinimumExpanding"},
    {QSizePolicy::Expanding, "Expanding"},
    {QSizePolicy::Ignored, "Ignored"},
};

int policyIndex(QSizePolicy::Policy policy) {
    const auto* found = std::find_if(std::begin(policies), std::end(policies),
                                     [policy](const Policy& candidate) { return candidate.policy == policy; });
    return found == std::end(policies) ? 0 : static_cast<int>(found - policies);
}

class SizePolicyType : public PropertyType {
public:
    SizePolicyType() : PropertyType(QVariant::SizePolicy, {}) {}
    QVariant initialValue() const override { return QSizePolicy(); }
    bool isSame(const QVariant& left, const QVariant& right) const override {
        return left.value<QSizePolicy>() == right.value<QSizePolicy>();
    }
    QString text(const PropertyState& state) const override {
        const auto policy = state.value.value<QSizePolicy>();
        return QStringLiteral("[%1, %2, %3, %4]")
            .arg(policies[policyIndex(policy.horizontalPolicy())].name,
                 policies[policyIndex(policy.verticalPolicy())].name)
            .arg(policy.horizontalStretch())
            .arg(policy.verticalStretch());
    }
    QVector<PropertyPart> parts(const PropertyState&) const override {
        QStringList names;
        for (const Policy& policy : policies)
            names.append(QLatin1String(policy.name));
        return namedParts({"Horizontal Policy", "Vertical Policy"}, enumPropertyType(),
                          {{attribute::enumNames, names}}) +
               namedParts({"Horizontal Stretch", "Vertical Stretch"}, QVariant::Int, byteRange);
    }
    QVariant part(const QVariant& whole, int index, const Attributes&) const override {
        const auto policy = whole.value<QSizePolicy>();
        const int numbers[] = {policyIndex(policy.horizontalPolicy()), policyIndex(policy.verticalPolicy()),
                               policy.horizontalStretch(), policy.verticalStretch()};
        return numbers[index];
    }
    QVariant withPart(const PropertyState& whole, int index, const QVariant& part, const Attributes&) const override {
        auto policy = whole.value.value<QSizePolicy>();
        const int number = part.toInt();
        switch (index) {
            case 0:
                policy.setHorizontalPolicy(policies[number].policy);
                break;
            case 1:
                policy.setVerticalPolicy(policies[number].policy);
                break;
            case 2:
                policy.setHorizontalStretch(number);
                break;
            default:
                policy.setVerticalStretch(number);
        }
        return QVariant::fromValue(policy);
    }
};

class CursorType : public PropertyType {
public:
    CursorType() : PropertyType(QVariant::Cursor, {}) {}
    QVariant initialValue() const override { return QVariant::fromValue(QCursor(Qt::ArrowCursor)); }
    bool isSame(const QVariant& left, const QVariant& right) const override {
        const auto shape = [](const QVariant& cursor) { return cursor.value<QCursor>().shape(); };
        return shape(left) == shape(right) && shape(left) != Qt::BitmapCursor;
    }
    QString text(const PropertyState& state) const override {
        return cursorShapeName(cursorShapeIndex(state.value.value<QCursor>().shape()));
    }
    QIcon icon(const PropertyState& state) const override {
        return cursorShapeIcon(cursorShapeIndex(state.value.value<QCursor>().shape()));
    }
};

}  // namespace

void addLookTypes(PropertyTypes* types) {
    types->insert(QVariant::Color, std::make_shared<ColorType>());
    types->insert(QVariant::Font, std::make_shared<FontType>());
    types->insert(QVariant::SizePolicy, std::make_shared<SizePolicyType>());
    types->insert(QVariant::Cursor, std::make_shared<CursorType>());
}
