// What the buttons that make something happen share.
#ifndef OSTREL_WIDGETS_COMMANDBUTTONBASE_H
#define OSTREL_WIDGETS_COMMANDBUTTONBASE_H

#include <QFont>
#include <QPushButton>
#include <QString>

#include "core/formmemory.h"

class QAction;

// It has no meta-object of its own: the meta-object of each button derives from QPushButton's directly. Properties and
// slots are declared by the buttons.
class Q_DECL_EXPORT CommandButtonBase : public QPushButton {
public:
    ~CommandButtonBase() override;

    QString getLabel() const { return text(); }
    void setLabel(const QString& text);
    QFont getCmdFont() const { return cmdFont; }
    void setCmdFont(const QFont& font);
    // Kept for forms: nothing stops a command after this time, in ms.
    int getTimeout() const { return timeout; }
    void setTimeout(const int& ms);
    bool getDetached() const { return detached; }
    void setDetached(const bool& isDetached);

protected:
    CommandButtonBase(QWidget* parent, const char* widgetClass, const char* objectName, const QString& text);

    // The menu, and the click; not in a remote display.
    void connectToOperator(const char* propertiesSlot, const char* clickSlot);
    // One of the commands waited for has ended; the last one brings the button back.
    void countFinished();

    FormMemory memory;
    QString label;  // kept, and never written: the text stands in the button
    QAction* viewPropertiesAction = nullptr;
    QFont cmdFont;
    int timeout = 30000;
    bool detached = true;
    int numFutures = 0;  // commands of the present click that are waited for
};

#endif
