// An element of a form as it is to be: what a value looks like in a form file, wherever it will stand there.
#ifndef OSTREL_DISPLAY_FORMELEMENT_H
#define OSTREL_DISPLAY_FORMELEMENT_H

#include <QMetaProperty>
#include <QString>
#include <QVariant>
#include <QVector>
#include <optional>

class QXmlStreamReader;

struct FormAttribute {
    QString name;
    QString value;
    QString whenAbsent;  // what the form means where the attribute is left out

    bool operator==(const FormAttribute& other) const { return name == other.name && value == other.value; }
};

struct FormElement {
    QString name;
    QString text;
    QVector<FormAttribute> attributes;
    QVector<FormElement> children;

    bool operator==(const FormElement&) const = default;
};

// How an element is laid out: what begins its line, and what its children are moved by. Both empty: all in one line.
struct FormLayout {
    QString lead;
    QString unit;
};

// The element of a property's value as Qt Designer writes it. The property of the live widget decides the kind; without
// one (an invalid `property`) the value's own type does. Nothing where a form has no element for it.
std::optional<FormElement> elementOfValue(const QMetaProperty& property, const QVariant& value);

// <property name="..."> around a value.
FormElement propertyElement(const QString& name, const FormElement& value);

// The text of an element, from its start tag to its end tag.
QString elementText(const FormElement& element, const FormLayout& layout);
// Text between tags. A text of blanks alone is written so that readers do not take it for indentation.
QString escapedText(const QString& text);
QString escapedAttribute(const QString& text);

// Elements stand in elements so deep at most: what is deeper is no form, and would be read until the stack is at its
// end.
constexpr int deepestElement = 200;

// Reads the element whose start tag the reader has just passed, up to its end tag. Deeper elements end in an error of
// the reader.
FormElement readElement(QXmlStreamReader& xml, int depth = 1);

// Whether XML has all characters of the element: it has no lone surrogates and few control characters.
bool canStandInXml(const FormElement& element);

#endif
