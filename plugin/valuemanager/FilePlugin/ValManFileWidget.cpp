#include "valuemanager/FilePlugin/ValManFileWidget.h"

#include <QFileDialog>
#include <QLabel>
#include <QPointer>

#include "fabric/signalslotsingleton.h"
#include "ui_ValManFileWidget.h"
#include "valuemanager/editorframe.h"

ValManFileWidget::ValManFileWidget(QWidget* parent)
    : ValueManagerWidgetBase(parent, false),
      m_frame(std::make_unique<EditorFrame>(this)),
      ui(std::make_unique<Ui::ValManFileUI>()) {
    ui->setupUi(m_frame->field());
    m_frame->addLabel(QStringLiteral("OSTREL Variable Label Here"));
    m_frame->label()->setTextInteractionFlags(Qt::NoTextInteraction);
    m_frame->takeSizeOfField();
    _height = m_frame->frame()->height();
    _width = m_frame->frame()->width();
    className.append(QStringLiteral("ValManFileWidget"));
    connect(this, QOverload<QString>::of(&ValueManagerWidgetBase::valueChanged), ui->value, &QLineEdit::setText);
    connect(ui->value, &QLineEdit::textChanged, &SignalSlotSingleton::getInstance(),
            &SignalSlotSingleton::valueChanged);
    connect(ui->browseButton, &QPushButton::clicked, this, &ValManFileWidget::browseForFile);
}

ValManFileWidget::~ValManFileWidget() = default;

void ValManFileWidget::setOstrelVariable(const QString& name) {
    m_frame->label()->setText(name);
    linkOstrelVariable(name);
    resize(size());
}

// The form may be closed, and this widget with it, while the browser is open.
void ValManFileWidget::browseForFile() {
    const QPointer<ValManFileWidget> self = this;
    const QString file = QFileDialog::getOpenFileName(this, tr("Open File"), _startDir, _filter);
    if (self)
        emit valueChanged(file);
}

void ValManFileWidget::commitValue() {
    commitValue(ui->value->text());
}

void ValManFileWidget::writeToFile(QDomDocument document) {
    QDomElement staged = addStagedValue(document, _name);
    setStagedText(staged, "StringValue", ui->value->text());
}

void ValManFileWidget::readFromFile(QDomDocument document) {
    takeStagedValue(document, _name, [this](const QDomElement& staged) {
        ui->value->setText(staged.attribute(QStringLiteral("StringValue")));
    });
}
