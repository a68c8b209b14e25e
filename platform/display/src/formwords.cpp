#include "formwords.h"

#include "formdocument.h"

namespace {

const QLatin1String nameOfVariable("name");

QString variableOrNone(const QString& name) {
    return name.isEmpty() || name == QLatin1String("not_set") ? QStringLiteral("no variable") : name;
}

// Of a property that is a text; empty for others.
QString textOf(const FormElement& property) {
    const bool isText = property.children.size() == 1 && property.children.first().name == QLatin1String("string");
    return isText ? property.children.first().text : QString();
}

}  // namespace

QString lineOf(const ChangedObject& object) {
    QString line = object.called;
    if (!object.variable.isEmpty())
        line += QStringLiteral(" → ") + object.variable;
    if (!object.properties.isEmpty())
        line += QStringLiteral(": ") + object.properties.join(QStringLiteral(", "));
    return line;
}

QString calledIn(const FormDocument* form, const FormEdit& edit) {
    const auto said = [&](const QString& property) {
        const auto found = form ? form->property(edit.className, edit.objectName, property) : std::nullopt;
        return found ? textOf(*found) : QString();
    };
    const QString variable = said(nameOfVariable);
    if (isNameOfVariable(edit))
        return variableOrNone(variable);
    if (!variable.isEmpty() && variable != QLatin1String("not_set"))
        return variable;
    for (const char* label : {"label", "title", "text"})
        if (const QString text = said(QLatin1String(label)).simplified(); !text.isEmpty())
            return text;
    return edit.objectName;
}

bool isNameOfVariable(const FormEdit& edit) {
    return edit.propertyName() == nameOfVariable;
}

QString variableOf(const FormEdit& edit) {
    return variableOrNone(textOf(edit.property));
}

QString wordsOf(const QString& property) {
    QString words;
    for (const QChar letter : property) {
        if (letter.isUpper() && !words.isEmpty())
            words += QLatin1Char(' ');
        words += letter.toLower();
    }
    return words.replace(QLatin1String("color"), QLatin1String("colour"));
}
