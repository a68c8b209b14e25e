// An editor of a number, with the unit in which it is typed.
#ifndef OSTREL_VALUEMANAGER_NUMERICPLUGIN_VALMANNUMERICWIDGET_H
#define OSTREL_VALUEMANAGER_NUMERICPLUGIN_VALMANNUMERICWIDGET_H

#include <memory>

#include "valuemanager/ValueManagerWidgetBase.h"

class EditorFrame;
namespace Ui {
class ValManNumericUI;
}

// For real and integer variables. What is no number is written as 0. Choosing another unit leaves the number as it is:
// a commit converts it from the unit that is chosen then.
class Q_DECL_EXPORT ValManNumericWidget : public ValueManagerWidgetBase {
    Q_OBJECT

public:
    explicit ValManNumericWidget(QWidget* parent = nullptr);
    ~ValManNumericWidget() override;

    void setOstrelVariable(const QString& name) override;

public Q_SLOTS:
    // Chooses the unit, by any of its spellings; one that is not in the list leaves the choice.
    void setUnits(const QString& units) override;
    // Adds the units to which the bound variable converts. Kept: the list is not emptied first.
    void displayUnitOptions();

protected:
    using ValueManagerWidgetBase::commitValue;
    void commitValue() override;
    void readFromFile(QDomDocument document) override;
    void writeToFile(QDomDocument document) override;

private:
    std::unique_ptr<EditorFrame> m_frame;
    std::unique_ptr<Ui::ValManNumericUI> ui;
};

#endif
