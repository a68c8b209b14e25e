#include "valuemanager/VMPushButtonCancelPlugin/ValManCancelWidget.h"

#include <cstdlib>

#include "ui_ValManCancelWidget.h"
#include "valuemanager/editorframe.h"
#include "valuemanager/raisedevent.h"

ValManCancelWidget::ValManCancelWidget(QWidget* parent)
    : ValueManagerWidgetBase(parent, true), ui(std::make_unique<Ui::ValManCancelUI>()) {
    EditorFrame frame(this);
    ui->setupUi(frame.field());
    frame.takeSizeOfField();
    className.append(QStringLiteral("ValManCancelWidget"));
    connect(ui->cancelButton, &QPushButton::clicked, this, &ValManCancelWidget::cancelClicked);
}

ValManCancelWidget::~ValManCancelWidget() = default;

void ValManCancelWidget::cancelClicked() {
    raiseNamedEvent(_eventName, this);
    std::exit(0);
}
