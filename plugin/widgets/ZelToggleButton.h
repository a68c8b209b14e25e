// A switch of a logical variable.
#ifndef OSTREL_WIDGETS_ZELTOGGLEBUTTON_H
#define OSTREL_WIDGETS_ZELTOGGLEBUTTON_H

#include "logicalbutton.h"

namespace Ui {
class ZelToggleButton;
}

// A click flips the variable, and so does a double click on the state, unless the switch is disabled. The switch stands
// as the variable does: where the store refuses a write, the next sample switches it back. No lock of the user
// interface keeps it from writing; a remote display does. Without its variable the enable variable stays in force.
class Q_DECL_EXPORT ZelToggleButton : public LogicalButton {
    Q_OBJECT
    Q_PROPERTY(BtnType btnType READ getBtnType WRITE setBtnType)
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QFont nameFont READ getNameFont WRITE setNameFont)
    Q_PROPERTY(int sampleRate READ getSampleRate WRITE setSampleRate)
    Q_PROPERTY(QString enableVariableName READ getEnableVariablName WRITE setEnableVariableName)
    Q_PROPERTY(QString toolTip READ getToolTip WRITE setToolTipString)
    Q_PROPERTY(bool displayAlias READ displayAlias WRITE setDisplayAlias)

public:
    // The skins of the drawn switch; names and numbers stand in forms, and other numbers may.
    enum BtnType : int { Beryl = 0, BerylSquare = 1 };
    Q_ENUM(BtnType)

    explicit ZelToggleButton(QWidget* parent = nullptr);
    ~ZelToggleButton() override;

    bool eventFilter(QObject* obj, QEvent* event) override;
    void setName(const QString& name) override;

    // A number that is none counts as 0. What is set already is not told to the form.
    BtnType getBtnType() const { return m_buttonType; }
    void setBtnType(BtnType type);

public Q_SLOTS:
    void ostrelTimerEvent(int interval) override;
    // The operator has clicked the switch.
    void buttonClicked();

private Q_SLOTS:
    void sample(bool startup);
    void sample();

private:
    void unbind();
    BtnType m_buttonType = Beryl;
    std::unique_ptr<Ui::ZelToggleButton> ui;
};

#endif
