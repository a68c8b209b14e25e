#include "formelement.h"

#include <QXmlStreamReader>
#include <algorithm>

namespace {

bool isAllowed(QChar character) {
    const ushort code = character.unicode();
    return code >= 0x20 ? code < 0xfffe : code == '\t' || code == '\n' || code == '\r';
}

QString escaped(QChar character, bool literalBlanks) {
    switch (character.unicode()) {
        case '<':
            return QStringLiteral("&lt;");
        case '>':
            return QStringLiteral("&gt;");
        case '&':
            return QStringLiteral("&amp;");
        case '"':
            return QStringLiteral("&quot;");
        case '\r':  // a reader takes a literal one for a line feed
            return QStringLiteral("&#13;");
        case '\n':
        case '\t':
            return literalBlanks ? QString(character)
                                 : QStringLiteral("&#%1;").arg(static_cast<int>(character.unicode()));
        default:
            return isAllowed(character) ? QString(character) : QString(QChar(QChar::ReplacementCharacter));
    }
}

const QString opaque = QStringLiteral("255");

QString startTag(const FormElement& element) {
    QString tag = QLatin1Char('<') + element.name;
    for (const FormAttribute& attribute : element.attributes)
        tag += QStringLiteral(" %1=\"%2\"").arg(attribute.name, escapedAttribute(attribute.value));
    return tag;
}

}  // namespace

FormElement propertyElement(const QString& name, const FormElement& value) {
    return {QStringLiteral("property"), {}, {{QStringLiteral("name"), name, {}}}, {value}};
}

QString escapedText(const QString& text) {
    QString result;
    for (const QChar character : text)
        result += escaped(character, true);
    if (!text.isEmpty() && text.trimmed().isEmpty())
        result.replace(0, result.startsWith(QLatin1Char('&')) ? result.indexOf(QLatin1Char(';')) + 1 : 1,
                       QStringLiteral("&#%1;").arg(static_cast<int>(text.at(0).unicode())));
    return result;
}

QString escapedAttribute(const QString& text) {
    QString result;
    for (const QChar character : text)
        result += escaped(character, false);
    return result;
}

QString elementText(const FormElement& element, const FormLayout& layout) {
    QString text = startTag(element);
    if (element.children.isEmpty() && element.text.isEmpty())
        return text + QStringLiteral("/>");
    text += QLatin1Char('>') + escapedText(element.text);
    const FormLayout inner{layout.lead + layout.unit, layout.unit};
    for (const FormElement& child : element.children)
        text += inner.lead + elementText(child, inner);
    if (!element.children.isEmpty())
        text += layout.lead;
    return text + QStringLiteral("</%1>").arg(element.name);
}

namespace {

bool canStandInXml(const QString& text) {
    for (int i = 0; i < text.size(); ++i) {
        const bool isPair = text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (!isPair && (text.at(i).isSurrogate() || !isAllowed(text.at(i))))
            return false;
        i += isPair ? 1 : 0;
    }
    return true;
}

}  // namespace

FormElement readElement(QXmlStreamReader& xml, int depth) {
    FormElement element{xml.name().toString(), {}, {}, {}};
    if (depth > deepestElement) {
        xml.raiseError(QStringLiteral("elements stand in each other more than %1 deep").arg(deepestElement));
        return element;
    }
    for (const QXmlStreamAttribute& attribute : xml.attributes())
        element.attributes.append({attribute.name().toString(), attribute.value().toString(),
                                   attribute.name() == QLatin1String("alpha") ? opaque : QString()});
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement())
            element.children.append(readElement(xml, depth + 1));
        else if (xml.isCharacters() && !xml.isWhitespace())
            element.text += xml.text();
        else if (xml.isEndElement())
            break;
    }
    return element;
}

bool canStandInXml(const FormElement& element) {
    return canStandInXml(element.name) && canStandInXml(element.text) &&
           std::all_of(element.attributes.begin(), element.attributes.end(),
                       [](const FormAttribute& attribute) { return canStandInXml(attribute.value); }) &&
           std::all_of(element.children.begin(), element.children.end(),
                       [](const FormElement& child) { return canStandInXml(child); });
}
