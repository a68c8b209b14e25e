// What the push button and the toggle button share: a drawn button that switches a logical variable, the variable's
// name above and its state below.
#ifndef OSTREL_WIDGETS_LOGICALBUTTON_H
#define OSTREL_WIDGETS_LOGICALBUTTON_H

#include <QVector>
#include <memory>

#include "core/ostrelbase.h"

class EnableVariable;
class NotFoundMark;
class QLabel;

// It has no meta-object of its own: the meta-object of each button derives from OstrelBase's directly. Properties and
// slots are declared by the buttons.
//
// What a press writes shows when the store says so, at the next sample. A write that the store refuses is not told.
class Q_DECL_EXPORT LogicalButton : public OstrelBase {
public:
    ~LogicalButton() override;

    // Writes the opposite of what the variable is at this moment.
    void handleWriteValue(QObject* source) override;

    // The font of both labels.
    QFont getNameFont() const;
    void setNameFont(const QFont& font);
    // A logical variable that enables the drawn button and disables it, read with the button's own; empty for none. The
    // form is not told of a name that the store does not know.
    QString getEnableVariablName() const { return _enableVariableName; }
    void setEnableVariableName(const QString& name);
    QString getToolTip() const;
    void setToolTipString(const QString& toolTip);

protected:
    struct Parts {
        QLabel* name;
        QLabel* value;
        QLabel* icon;
        QWidget* button;
        QVector<QWidget*> tipOwners;
    };

    // What became of a name.
    struct Binding {
        VAR_FIND_STATUS status;
        QString name;    // that was bound, which is not always the one that was asked for
        bool isRebound;  // to another record than before
    };

    explicit LogicalButton(QWidget* parent);

    // The form of the button, once it is built. From then on the button is known as `name` to the form writer.
    void startAs(const QString& name, const Parts& parts);

    // setName() of a button: bind(), its own part, showBinding().
    Binding bind(const QString& name);
    void showNothing();  // and nothing else: the buttons let go of variable and timer in orders of their own
    void showBinding(const Binding& binding);

    // The bound record; null without one, and where the store has made a variable of another kind of it.
    LOGICAL_VARIABLE* record() const;
    // The same, in lptr too, and the record for who writes: where the store was reconfigured since, the variable is
    // looked up, since the record's place may be another variable's by now. The binding stays as it is.
    LOGICAL_VARIABLE* recordToWrite();
    // The bound variable, by the name that stands in its record; empty without one.
    const QString& variable() const { return m_variable; }
    static LOGICAL_VARIABLE* recordOf(const QString& variable);
    // Shows the state where it is not the one shown last.
    void showState(const LOGICAL_VARIABLE& record);
    EnableVariable& enableVariable() { return *m_enable; }

private:
    void rebind();

    Parts m_parts{};
    std::unique_ptr<NotFoundMark> m_mark;
    std::unique_ptr<EnableVariable> m_enable;
    QString m_variable;
    int m_boundAt = 0;  // reconfigurations of the store when the name was bound last
};

#endif
