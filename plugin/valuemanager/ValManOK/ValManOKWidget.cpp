#include "valuemanager/ValManOK/ValManOKWidget.h"

#include <QPointer>
#include <cstdlib>

#include "fabric/signalslotsingleton.h"
#include "ui_ValManOKWidget.h"
#include "valuemanager/editorframe.h"
#include "valuemanager/raisedevent.h"

ValManOKWidget::ValManOKWidget(QWidget* parent)
    : ValueManagerWidgetBase(parent, true), ui(std::make_unique<Ui::ValManOKUI>()) {
    EditorFrame frame(this);
    ui->setupUi(frame.field());
    frame.takeSizeOfField();
    className.append(QStringLiteral("ValManOKWidget"));
    connect(ui->okButton, &QPushButton::clicked, this, &ValManOKWidget::okClicked);
    connect(this, &ValManOKWidget::commitToOstrel, &SignalSlotSingleton::getInstance(),
            &SignalSlotSingleton::commitToOstrel);
}

ValManOKWidget::~ValManOKWidget() = default;

// The form may be closed, and this widget with it, while a message is on the screen.
void ValManOKWidget::okClicked() {
    const QPointer<ValManOKWidget> self = this;
    raiseNamedEvent(_eventName, this);
    if (!self)
        return;
    emit commitToOstrel();
    if (self && _exitOnClick)
        std::exit(0);
}
