#include "valuemanager/LogicalPlugin/ValManLogicalWidget.h"

#include <QLabel>

#include "fabric/signalslotsingleton.h"
#include "ui_ValManLogicalWidget.h"
#include "valuemanager/editorframe.h"

ValManLogicalWidget::ValManLogicalWidget(QWidget* parent)
    : ValueManagerWidgetBase(parent, false),
      m_frame(std::make_unique<EditorFrame>(this)),
      ui(std::make_unique<Ui::ValManLogicalUI>()) {
    ui->setupUi(m_frame->field());
    m_frame->addLabel(QStringLiteral("TextLabel"));
    m_frame->takeSizeOfField();
    _height = m_frame->frame()->height();
    _width = m_frame->frame()->width();
    className.append(QStringLiteral("ValManLogicalWidget"));
    connect(this, QOverload<bool>::of(&ValueManagerWidgetBase::valueChanged), ui->value, &QCheckBox::setChecked);
    // Kept: a box tells only what the operator does with it, and nothing of what is read.
    connect(ui->value, &QCheckBox::clicked, &SignalSlotSingleton::getInstance(), &SignalSlotSingleton::valueChanged);
}

ValManLogicalWidget::~ValManLogicalWidget() = default;

void ValManLogicalWidget::setOstrelVariable(const QString& name) {
    m_frame->label()->setText(name);
    linkOstrelVariable(name);
    resize(size());
}

void ValManLogicalWidget::commitValue() {
    commitValue(ui->value->isChecked());
}

void ValManLogicalWidget::writeToFile(QDomDocument document) {
    addStagedValue(document, _name).setAttribute(QStringLiteral("BooleanValue"), ui->value->isChecked() ? 1 : 0);
}

void ValManLogicalWidget::readFromFile(QDomDocument document) {
    takeStagedValue(document, _name, [this](const QDomElement& staged) {
        ui->value->setChecked(staged.attribute(QStringLiteral("BooleanValue")).toInt() == 1);
    });
}
