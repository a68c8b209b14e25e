// What the value manager's widgets have in common around what each of them edits with: the two frames, the label with
// the variable's name, and the element of a staged value in a file.
#ifndef OSTREL_VALUEMANAGER_EDITORFRAME_H
#define OSTREL_VALUEMANAGER_EDITORFRAME_H

#include <QDomDocument>
#include <QDomElement>
#include <QString>
#include <functional>

class QFrame;
class QLabel;
class QWidget;

// The frames, which belong to the widget. A form of its own is set up on field().
class EditorFrame {
public:
    explicit EditorFrame(QWidget* widget);

    QFrame* frame() const { return m_frame; }
    QFrame* field() const { return m_field; }

    // Gives the widget the size that its form has been set up with.
    void takeSizeOfField();
    // Puts the label in front of what stands in the field, and lets names be dropped on the widget. A name that does
    // not fit loses its middle.
    void addLabel(const QString& text);
    // The label; null for a widget without one.
    QLabel* label() const { return m_label; }

private:
    QWidget* m_widget;
    QFrame* m_frame;
    QFrame* m_field;
    QLabel* m_label = nullptr;
};

// The new element of the variable's staged value in the document. Null where there is no room for it: a name that no
// element can have, or a document without a root.
QDomElement addStagedValue(QDomDocument document, const QString& variable);

// Sets an attribute of it, without the characters that no file can have: one of them would make all of it unreadable.
void setStagedText(QDomElement& element, const char* attribute, const QString& text);

// Calls `restore` with the first element of the variable that is left in the document, and then takes it out: a second
// widget of the same variable gets the next one. Without such an element it does nothing.
void takeStagedValue(QDomDocument document, const QString& variable,
                     const std::function<void(const QDomElement&)>& restore);

#endif
