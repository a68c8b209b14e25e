// Changes of a form in the words of the people who made them: they know variables and labels, not names of objects.
#ifndef OSTREL_DISPLAY_FORMWORDS_H
#define OSTREL_DISPLAY_FORMWORDS_H

#include <QString>
#include <QStringList>

class FormDocument;
struct FormEdit;

// An object of a form with all that was changed of it.
struct ChangedObject {
    QString called;          // its variable as the form has it, or else its label, or else its name
    QString variable;        // another one that it was given; empty where it was not
    QStringList properties;  // what else was changed
};

// "BSFC → NOX: units", "BSFC: units, back colour".
QString lineOf(const ChangedObject& object);

// What the object of an edit is called in a form; `form` may be null.
QString calledIn(const FormDocument* form, const FormEdit& edit);

// True for an edit that gives its object another variable, which variableOf() then tells.
bool isNameOfVariable(const FormEdit& edit);
QString variableOf(const FormEdit& edit);

// "backColor" as "back colour".
QString wordsOf(const QString& property);

#endif
