// An editor of a line of text.
#ifndef OSTREL_VALUEMANAGER_STRINGPLUGIN_VALMANSTRINGWIDGET_H
#define OSTREL_VALUEMANAGER_STRINGPLUGIN_VALMANSTRINGWIDGET_H

#include <memory>

#include "valuemanager/ValueManagerWidgetBase.h"

class EditorFrame;
namespace Ui {
class ValManStringUI;
}

// For string variables. An empty editor leaves the variable as it is.
class Q_DECL_EXPORT ValManStringWidget : public ValueManagerWidgetBase {
    Q_OBJECT

public:
    explicit ValManStringWidget(QWidget* parent = nullptr);
    ~ValManStringWidget() override;

    void setOstrelVariable(const QString& name) override;

protected:
    using ValueManagerWidgetBase::commitValue;
    void commitValue() override;
    void readFromFile(QDomDocument document) override;
    void writeToFile(QDomDocument document) override;

private:
    std::unique_ptr<EditorFrame> m_frame;
    std::unique_ptr<Ui::ValManStringUI> ui;
};

#endif
