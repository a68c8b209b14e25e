#include "valuemanager/StringPlugin/ValManStringWidget.h"

#include <QLabel>

#include "fabric/signalslotsingleton.h"
#include "ui_ValManStringWidget.h"
#include "valuemanager/editorframe.h"

ValManStringWidget::ValManStringWidget(QWidget* parent)
    : ValueManagerWidgetBase(parent, false),
      m_frame(std::make_unique<EditorFrame>(this)),
      ui(std::make_unique<Ui::ValManStringUI>()) {
    ui->setupUi(m_frame->field());
    m_frame->addLabel(QStringLiteral("default_ostrel_variable"));
    m_frame->takeSizeOfField();
    _height = m_frame->frame()->height();
    _width = m_frame->frame()->width();
    className.append(QStringLiteral("ValManStringWidget"));
    connect(this, QOverload<QString>::of(&ValueManagerWidgetBase::valueChanged), ui->value, &QLineEdit::setText);
    connect(ui->value, &QLineEdit::textChanged, &SignalSlotSingleton::getInstance(),
            &SignalSlotSingleton::valueChanged);
}

ValManStringWidget::~ValManStringWidget() = default;

void ValManStringWidget::setOstrelVariable(const QString& name) {
    m_frame->label()->setText(name);
    linkOstrelVariable(name);
    resize(size());
}

void ValManStringWidget::commitValue() {
    commitValue(ui->value->text());
}

void ValManStringWidget::writeToFile(QDomDocument document) {
    QDomElement staged = addStagedValue(document, _name);
    setStagedText(staged, "StringValue", ui->value->text());
}

void ValManStringWidget::readFromFile(QDomDocument document) {
    takeStagedValue(document, _name, [this](const QDomElement& staged) {
        ui->value->setText(staged.attribute(QStringLiteral("StringValue")));
    });
}
