// Values of properties as Qt Designer writes them.
#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QFontInfo>
#include <QKeySequence>
#include <QMetaEnum>
#include <QRectF>
#include <QUrl>

#include "formelement.h"

namespace {

FormElement leaf(const char* name, const QString& text) {
    return {QLatin1String(name), text, {}, {}};
}

FormElement leaf(const char* name, int value) {
    return leaf(name, QString::number(value));
}

FormElement leaf(const char* name, bool value) {
    return leaf(name, value ? QStringLiteral("true") : QStringLiteral("false"));
}

// Fifteen places as Qt Designer has them, and where that loses something as many as it takes.
FormElement leaf(const char* name, double value) {
    const QString places = QString::number(value, 'f', 15);
    return leaf(name, places.toDouble() == value ? places : QString::number(value, 'g', 17));
}

FormElement group(const char* name, const QVector<FormElement>& children) {
    return {QLatin1String(name), {}, {}, children};
}

FormElement colorElement(const QColor& color) {
    FormElement element =
        group("color", {leaf("red", color.red()), leaf("green", color.green()), leaf("blue", color.blue())});
    const QString opaque = QStringLiteral("255");
    element.attributes = {{QStringLiteral("alpha"), QString::number(color.alpha()), opaque}};
    return element;
}

// A form knows whole points only.
int points(const QFont& font) {
    return font.pointSizeF() > 0 ? qRound(font.pointSizeF()) : QFontInfo(font).pointSize();
}

QString strategyName(QFont::StyleStrategy strategy) {
    switch (strategy) {
        case QFont::NoAntialias:
            return QStringLiteral("NoAntialias");
        case QFont::PreferAntialias:
            return QStringLiteral("PreferAntialias");
        default:
            return QStringLiteral("PreferDefault");
    }
}

// Only what the font itself decides; the rest comes from the widget around it.
FormElement fontElement(const QFont& font) {
    const uint decided = font.resolve();
    FormElement element = group("font", {});
    if (decided & QFont::FamilyResolved)
        element.children.append(leaf("family", font.family()));
    if (decided & QFont::SizeResolved)
        element.children.append(leaf("pointsize", points(font)));
    if (decided & QFont::WeightResolved)
        element.children.append(leaf("weight", font.weight()));
    if (decided & QFont::StyleResolved)
        element.children.append(leaf("italic", font.italic()));
    // Readers take <bold> for more than <weight>, and know one bold weight by it.
    if ((decided & QFont::WeightResolved) && (font.weight() == QFont::Normal || font.weight() == QFont::Bold))
        element.children.append(leaf("bold", font.bold()));
    if (decided & QFont::UnderlineResolved)
        element.children.append(leaf("underline", font.underline()));
    if (decided & QFont::StrikeOutResolved)
        element.children.append(leaf("strikeout", font.strikeOut()));
    if (decided & QFont::StyleStrategyResolved)
        element.children.append(leaf("stylestrategy", strategyName(font.styleStrategy())));
    if (decided & QFont::KerningResolved)
        element.children.append(leaf("kerning", font.kerning()));
    return element;
}

template <class Number>
QVector<FormElement> sizeParts(Number width, Number height) {
    return {leaf("width", width), leaf("height", height)};
}

template <class Number>
QVector<FormElement> pointParts(Number x, Number y) {
    return {leaf("x", x), leaf("y", y)};
}

FormElement listElement(const QStringList& list) {
    FormElement element = group("stringlist", {});
    for (const QString& each : list)
        element.children.append(leaf("string", each));
    return element;
}

std::optional<FormElement> elementOfGeometry(const QVariant& value) {
    switch (value.userType()) {
        case QMetaType::QSize:
            return group("size", sizeParts(value.toSize().width(), value.toSize().height()));
        case QMetaType::QSizeF:
            return group("sizef", sizeParts(value.toSizeF().width(), value.toSizeF().height()));
        case QMetaType::QPoint:
            return group("point", pointParts(value.toPoint().x(), value.toPoint().y()));
        case QMetaType::QPointF:
            return group("pointf", pointParts(value.toPointF().x(), value.toPointF().y()));
        case QMetaType::QRect: {
            const QRect rect = value.toRect();
            return group("rect", pointParts(rect.x(), rect.y()) + sizeParts(rect.width(), rect.height()));
        }
        case QMetaType::QRectF: {
            const QRectF rect = value.toRectF();
            return group("rectf", pointParts(rect.x(), rect.y()) + sizeParts(rect.width(), rect.height()));
        }
        default:
            return std::nullopt;
    }
}

std::optional<FormElement> elementOfType(const QVariant& value) {
    switch (value.userType()) {
        case QMetaType::Bool:
            return leaf("bool", value.toBool());
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Int:
            return leaf("number", value.toString());
        case QMetaType::UInt:
            return leaf("UInt", value.toString());
        case QMetaType::LongLong:
            return leaf("longLong", value.toString());
        case QMetaType::ULongLong:
            return leaf("uLongLong", value.toString());
        case QMetaType::Float:
            return leaf("float", QString::number(static_cast<double>(value.toFloat()), 'g', 9));
        case QMetaType::Double:
            return leaf("double", value.toDouble());
        case QMetaType::QString:
        case QMetaType::QKeySequence:
            return leaf("string", value.toString());
        case QMetaType::QByteArray:
            return leaf("cstring", QString::fromUtf8(value.toByteArray()));
        case QMetaType::QStringList:
            return listElement(value.toStringList());
        case QMetaType::QUrl:
            return group("url", {leaf("string", value.toUrl().toString())});
        case QMetaType::QColor:
            return colorElement(value.value<QColor>());
        case QMetaType::QFont:
            return fontElement(value.value<QFont>());
        default:
            return elementOfGeometry(value);
    }
}

// The number behind a value of an enumeration, which may come as itself, as a number or as a key.
std::optional<int> enumNumber(const QMetaEnum& names, const QVariant& value) {
    bool known = false;
    int number = 0;
    if (value.userType() == QMetaType::QString || value.userType() == QMetaType::QByteArray)
        number = names.keysToValue(value.toByteArray().constData(), &known);
    else if (value.canConvert(QMetaType::Int))
        number = value.toInt(&known);
    else if (QMetaType::sizeOf(value.userType()) == static_cast<int>(sizeof(int))) {  // QFlags of some enumeration
        number = *static_cast<const int*>(value.constData());
        known = true;
    }
    return known ? std::optional(number) : std::nullopt;
}

QString scoped(const QMetaEnum& names, const QByteArray& key) {
    return QStringLiteral("%1::%2").arg(QLatin1String(names.scope()), QLatin1String(key));
}

std::optional<FormElement> elementOfEnum(const QMetaEnum& names, const QVariant& value) {
    const std::optional<int> number = enumNumber(names, value);
    if (!number)
        return std::nullopt;
    if (!names.isFlag()) {
        const char* key = names.valueToKey(*number);
        return key ? std::optional(leaf("enum", scoped(names, key))) : std::nullopt;
    }
    QStringList keys;
    for (const QByteArray& key : names.valueToKeys(*number).split('|'))
        if (!key.isEmpty())
            keys.append(scoped(names, key));
    // A set without a key is read as every flag.
    return keys.isEmpty() ? leaf("number", *number) : leaf("set", keys.join(QLatin1Char('|')));
}

}  // namespace

std::optional<FormElement> elementOfValue(const QMetaProperty& property, const QVariant& value) {
    if (!property.isValid())
        return elementOfType(value);
    if (property.isEnumType())
        return elementOfEnum(property.enumerator(), value);
    if (value.userType() == property.userType())
        return elementOfType(value);
    // A group hands its name over as the family of a font.
    QVariant converted = value.userType() == QMetaType::QFont && property.userType() == QMetaType::QString
                             ? QVariant(value.value<QFont>().family())
                             : value;
    return converted.convert(property.userType()) ? elementOfType(converted) : std::nullopt;
}
