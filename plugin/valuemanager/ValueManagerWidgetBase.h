// The base of the value manager's widgets: editors that hold a new value until all of them are committed together, and
// the two buttons that end such a dialog.
//
// The editor inside of a widget is the only place of the staged value. Nothing follows the variable: a widget reads it
// when SignalSlotSingleton::readFromOstrel() is raised, and writes it when commitToOstrel() is, each widget at once and
// by itself, in the order in which the widgets were made.
#ifndef OSTREL_VALUEMANAGER_VALUEMANAGERWIDGETBASE_H
#define OSTREL_VALUEMANAGER_VALUEMANAGERWIDGETBASE_H

#include <QDomDocument>

#include "core/ostrelbase.h"

class Q_DECL_EXPORT ValueManagerWidgetBase : public OstrelBase {
    Q_OBJECT
    Q_PROPERTY(QString OstrelVariable READ getOstrelVariable WRITE setOstrelVariable)

public:
    // A button (`from_btn`) has no context menu; an editor keeps the entries that concern its variable's name.
    ValueManagerWidgetBase(QWidget* parent, bool from_btn);
    ~ValueManagerWidgetBase() override;

    QString getOstrelVariable() const { return _name; }
    // Binds the widget. Every change of name ends here.
    virtual void setOstrelVariable(const QString& namev);
    void setName(const QString& namev) override;
    // Nothing: no widget of this family has a timer.
    void ostrelTimerEvent(int interval) override;

Q_SIGNALS:
    // From the widget to its own editor.
    void valueChanged(QString value);
    void valueChanged(bool value);
    void unitsChanged(QString units);

protected Q_SLOTS:
    // Write to the bound variable of that kind; without one they do nothing, and neither does an empty text. A number
    // is converted from `units` to the variable's own; one that does not convert is written as 0.
    void commitValue(QString value);
    void commitValue(bool value);
    void commitValue(double value, QString units);
    void commitValue(int value, QString units);
    // Gives the editor what the variable holds now.
    void sample();
    // Writes what the editor holds now.
    virtual void commitValue();
    // Takes the staged value of this widget's variable out of the document, and puts it into it.
    virtual void readFromFile(QDomDocument document);
    virtual void writeToFile(QDomDocument document);

protected:
    void linkOstrelVariable(const QString& varToLink);

    // Kept: binding to a variable of another kind sets the pointer of that kind and leaves the others, so that an
    // editor that asks for nothing but its own pointer goes on writing to its former variable.
    STRING_VARIABLE* sptr = nullptr;
    INTEGER_VARIABLE* iptr = nullptr;
    REAL_VARIABLE* rptr = nullptr;
    LOGICAL_VARIABLE* lptr = nullptr;

private:
    // The labels of the variables to which those pointers lead. A reconfiguration may give a record to another
    // variable, which nobody has named to this widget.
    struct Labels {
        QString string;
        QString integer;
        QString real;
        QString logical;
    };

    // False for a kind that has no pointer.
    bool pointAtRecord();
    const void* recordOfKind() const;

    Labels m_labels;
};

#endif
