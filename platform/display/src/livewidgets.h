// The widgets of a form while it lives, by the names under which they hand over values.
#ifndef OSTREL_DISPLAY_LIVEWIDGETS_H
#define OSTREL_DISPLAY_LIVEWIDGETS_H

#include <QHash>
#include <QMetaProperty>
#include <QPointer>
#include <QWidget>

class LiveWidgets {
public:
    // From then on all look-ups go to this form. Remembers what its widgets have now.
    void setForm(QWidget* form);
    bool hasForm() const { return m_form; }

    // Null where the form has none of that name and class.
    QWidget* widget(const QString& className, const QString& objectName);
    // The property that a key means: by its name, or else by its name in other letters. Invalid where there is none.
    static QMetaProperty property(const QWidget* widget, const QString& key);
    // True for the colour of a variable's status, which an operator does not reach: the dialog of a widget offers what
    // its own class declares.
    static bool isStatusColour(const QMetaProperty& property, const QString& className);
    // What the property was when the form was up.
    QVariant former(const QWidget* widget, const QString& property) const;

private:
    QPointer<QWidget> m_form;
    QHash<QString, QPointer<QWidget>> m_found;  // class and object name
    QHash<const QWidget*, QHash<QString, QVariant>> m_former;
};

#endif
