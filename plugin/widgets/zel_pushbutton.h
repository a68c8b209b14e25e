// A push button that switches a logical variable, or holds it true.
#ifndef OSTREL_WIDGETS_ZEL_PUSHBUTTON_H
#define OSTREL_WIDGETS_ZEL_PUSHBUTTON_H

#include "logicalbutton.h"

namespace Ui {
class ZelPushButton;
}

// Each press flips the variable, or the variable is true while the left mouse button is held down. A double click on
// the state flips it in both modes, also while the button is disabled. No lock of the user interface keeps it from
// writing; a remote display does. Without its variable it forgets its enable variable too.
//
// A variable that it holds true becomes false in any case: not only when the mouse button is released, but also when
// the drawn button loses the focus, is disabled or hidden, a dialog opens before it, or the button gets another
// variable, another mode or is destroyed. It leaves a variable alone that the store no longer has.
class Q_DECL_EXPORT ZelPushButton : public LogicalButton {
    Q_OBJECT
    Q_PROPERTY(BtnType btnType READ getBtnType WRITE setBtnType)
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QFont nameFont READ getNameFont WRITE setNameFont)
    Q_PROPERTY(int sampleRate READ getSampleRate WRITE setSampleRate)
    Q_PROPERTY(ToggleType toggleType READ getToggleType WRITE setToggleType)
    Q_PROPERTY(QString enableVariableName READ getEnableVariablName WRITE setEnableVariableName)
    Q_PROPERTY(QString toolTip READ getToolTip WRITE setToolTipString)
    Q_PROPERTY(bool displayAlias READ displayAlias WRITE setDisplayAlias)
    Q_PROPERTY(bool dragAndDropEnabled READ dragAndDropEnabled WRITE setDDEnabled)

public:
    // The skins of the drawn button; names and numbers stand in forms, and other numbers may.
    enum BtnType : int { Beryl = 0, BerylSquare = 1, MetallicBrush = 2 };
    Q_ENUM(BtnType)
    // Toggle: a press flips the variable. Momentary: it is true from a press to the release.
    enum ToggleType : int { Toggle = 0, Momentary = 1 };
    Q_ENUM(ToggleType)

    explicit ZelPushButton(QWidget* parent = nullptr);
    ~ZelPushButton() override;

    bool eventFilter(QObject* obj, QEvent* event) override;
    void setName(const QString& name) override;

    // A number that is none counts as 0. What is set already is not told to the form.
    BtnType getBtnType() const { return m_buttonType; }
    void setBtnType(BtnType type);
    ToggleType getToggleType() const { return m_toggleType; }
    void setToggleType(ToggleType type);

public Q_SLOTS:
    void ostrelTimerEvent(int interval) override;

private Q_SLOTS:
    void sample(bool startup);
    void sample();

private:
    void pressed();
    void released();
    void letGo();

    BtnType m_buttonType = BerylSquare;
    std::unique_ptr<Ui::ZelPushButton> ui;
    ToggleType m_toggleType = Toggle;
    QString m_held;  // the variable that is held true; empty for none
};

#endif
