#include "valuemanager/ComboBoxPlugin/ValManComboBoxWidget.h"

#include <QLabel>

#include "fabric/signalslotsingleton.h"
#include "ui_ValManComboBoxWidget.h"
#include "valuemanager/editorframe.h"

ValManComboBoxWidget::ValManComboBoxWidget(QWidget* parent)
    : ValueManagerWidgetBase(parent, false),
      m_frame(std::make_unique<EditorFrame>(this)),
      ui(std::make_unique<Ui::ValManComboBoxUI>()) {
    ui->setupUi(m_frame->field());
    m_frame->addLabel(QStringLiteral("TextLabel"));
    m_frame->takeSizeOfField();
    _height = m_frame->frame()->height();
    _width = m_frame->frame()->width();
    className.append(QStringLiteral("ValManComboBoxWidget"));
    connect(this, QOverload<QString>::of(&ValueManagerWidgetBase::valueChanged), this,
            &ValManComboBoxWidget::onOstrelValueChanged);
    connect(ui->comboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), &SignalSlotSingleton::getInstance(),
            &SignalSlotSingleton::valueChanged);
}

ValManComboBoxWidget::~ValManComboBoxWidget() = default;

ExtendedQComboBox* ValManComboBoxWidget::getComboBox() const {
    return ui->comboBox;
}

QString ValManComboBoxWidget::getComboBoxContents() const {
    return ui->comboBox->contents();
}

QStringList ValManComboBoxWidget::getComboBoxContentsAsList() const {
    return ui->comboBox->contentsAsList();
}

void ValManComboBoxWidget::setComboBoxContents(QString contents) {
    ui->comboBox->setContents(contents);
}

void ValManComboBoxWidget::setComboBoxContents(QStringList contents) {
    ui->comboBox->setContents(contents);
}

void ValManComboBoxWidget::setUnits(const QString& newUnits) {
    units = newUnits;
}

bool ValManComboBoxWidget::isEditable() const {
    return ui->comboBox->isEditable();
}

void ValManComboBoxWidget::setEditable(bool editable) {
    ui->comboBox->setEditable(editable);
}

QString ValManComboBoxWidget::getDeliminator() const {
    return ui->comboBox->getDeliminator();
}

void ValManComboBoxWidget::setOstrelVariable(const QString& name) {
    m_frame->label()->setText(name);
    linkOstrelVariable(name);
    resize(size());
}

void ValManComboBoxWidget::onOstrelValueChanged(QString newValue) {
    QComboBox* box = ui->comboBox;
    if (box->findText(newValue) < 0 && box->isEditable())
        box->insertItem(box->count(), newValue);
    box->setCurrentIndex(box->findText(newValue));
}

void ValManComboBoxWidget::commitValue() {
    // What is to be written is chosen by what is bound now.
    if (!_ptr)
        return;
    const QString text = ui->comboBox->currentText();
    if (_mem.vari_type == INT_TYPE)
        commitValue(text.toInt(), units);
    else if (_mem.vari_type == STRING_TYPE)
        commitValue(text);
    else if (_mem.vari_type == REAL_TYPE)
        commitValue(text.toDouble(), units);
}

// Where a file has the value; null for a kind that is not served.
const char* ValManComboBoxWidget::stagedAttribute() const {
    switch (_mem.vari_type) {
        case INT_TYPE:
            return "IntValue";
        case STRING_TYPE:
            return "StringValue";
        case REAL_TYPE:
            return "RealValue";
        default:
            return nullptr;
    }
}

void ValManComboBoxWidget::writeToFile(QDomDocument document) {
    QDomElement staged = addStagedValue(document, _name);
    if (const char* attribute = stagedAttribute())
        setStagedText(staged, attribute, ui->comboBox->currentText());
}

void ValManComboBoxWidget::readFromFile(QDomDocument document) {
    takeStagedValue(document, _name, [this](const QDomElement& staged) {
        if (const char* attribute = stagedAttribute())
            emit valueChanged(staged.attribute(QLatin1String(attribute)));
    });
}
