// A check box that holds a new state.
#ifndef OSTREL_VALUEMANAGER_LOGICALPLUGIN_VALMANLOGICALWIDGET_H
#define OSTREL_VALUEMANAGER_LOGICALPLUGIN_VALMANLOGICALWIDGET_H

#include <memory>

#include "valuemanager/ValueManagerWidgetBase.h"

class EditorFrame;
namespace Ui {
class ValManLogicalUI;
}

// For logical variables.
class Q_DECL_EXPORT ValManLogicalWidget : public ValueManagerWidgetBase {
    Q_OBJECT

public:
    explicit ValManLogicalWidget(QWidget* parent = nullptr);
    ~ValManLogicalWidget() override;

    void setOstrelVariable(const QString& name) override;

protected:
    using ValueManagerWidgetBase::commitValue;
    void commitValue() override;
    void readFromFile(QDomDocument document) override;
    void writeToFile(QDomDocument document) override;

private:
    std::unique_ptr<EditorFrame> m_frame;
    std::unique_ptr<Ui::ValManLogicalUI> ui;
};

#endif
