// Changing elements in a form's text in place.
#ifndef OSTREL_DISPLAY_FORMSPLICE_H
#define OSTREL_DISPLAY_FORMSPLICE_H

#include <QString>
#include <vector>

#include "formelement.h"
#include "formnode.h"

// Collects changes of a text, all told in positions of the text as it was.
class FormSplice {
public:
    // `usual` is how far the form moves children in where the neighbourhood does not show it.
    FormSplice(const QString& text, QString usual) : m_text(text), m_usual(std::move(usual)) {}

    // Makes the element say what `wanted` says: attributes, comments and blanks that have no say in it stay.
    void merge(const FormNode& node, const FormElement& wanted);
    // A new property of a widget, behind those that it has.
    void addProperty(const FormNode& widget, const FormElement& property);

    QString result() const;

private:
    struct Cut {
        int position;
        int length;
        QString replacement;
    };

    void replace(int begin, int end, const QString& replacement) {
        m_cuts.push_back({begin, end - begin, replacement});
    }
    void mergeAttribute(const FormNode& node, const FormAttribute& wanted);
    void mergeText(const FormNode& node, const QString& wanted);
    void mergeChildren(const FormNode& node, const FormElement& wanted);
    void removeText(const FormNode& node);
    void fill(const FormNode& node, const QString& content);
    void remove(const FormNode& child);
    void insertFirst(const FormNode& node, const FormElement& element);
    void insertBehind(const FormNode& sibling, const FormElement& element);
    QString lead(const FormNode& node) const;
    QString unit(const FormNode& node) const;
    int blanksBefore(int position) const;

    const QString& m_text;
    QString m_usual;
    std::vector<Cut> m_cuts;
};

// All that must be read the same for two elements to say the same. A form's own extra attributes have no say in it.
bool saysTheSame(const FormNode& node, const FormElement& wanted);

// What begins the line of the element at `position`: the line break and the blanks before it. Empty where something
// else stands before it in its line.
QString leadAt(const QString& text, int position);

#endif
