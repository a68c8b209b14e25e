// What a widget that is bound to no variable hands to the form writer, and the dialog that lets an operator change it.
#ifndef OSTREL_CORE_FORMMEMORY_H
#define OSTREL_CORE_FORMMEMORY_H

#include <QFont>
#include <QString>
#include <QVariant>

class QAction;
class QWidget;

// Until "Edit Properties" was used, what is set is what the form says. The widget outlives its memory.
class FormMemory {
public:
    // Makes the form writer where there is none yet. Properties are kept under the class name and the widget's name.
    FormMemory(QWidget* widget, const char* className);

    // True once the operator has opened the properties.
    bool isOpened() const { return m_isOpened; }

    // At any time: as the operator's change once the properties were opened.
    void remember(const char* property, const QVariant& value) const;
    // Only once the properties were opened.
    void rememberLive(const char* property, const QVariant& value) const;
    void rememberFontLive(const char* property, const QFont& font) const;

    // Gives the widget the menu entry "Edit Properties", which triggers `slot` of it, and makes its actions its menu.
    QAction* addMenuEntry(const char* slot) const;
    // Opens the properties. The dialog stays a child of the widget; each opening makes another one.
    void editProperties();

private:
    QWidget* m_widget;
    QString m_className;
    bool m_isOpened = false;
};

#endif
