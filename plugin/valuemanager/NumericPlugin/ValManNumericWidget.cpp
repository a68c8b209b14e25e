#include "valuemanager/NumericPlugin/ValManNumericWidget.h"

#include <ostrel/units.h>

#include <QLabel>

#include "fabric/signalslotsingleton.h"
#include "ui_ValManNumericWidget.h"
#include "valuemanager/editorframe.h"
#include "variables/unitslist.h"

ValManNumericWidget::ValManNumericWidget(QWidget* parent)
    : ValueManagerWidgetBase(parent, false),
      m_frame(std::make_unique<EditorFrame>(this)),
      ui(std::make_unique<Ui::ValManNumericUI>()) {
    ui->setupUi(m_frame->field());
    m_frame->addLabel(QStringLiteral("TextLabel"));
    m_frame->takeSizeOfField();
    _height = m_frame->frame()->height();
    _width = m_frame->frame()->width();
    className.append(QStringLiteral("ValManNumericWidget"));
    connect(this, QOverload<QString>::of(&ValueManagerWidgetBase::valueChanged), ui->value, &QLineEdit::setText);
    connect(this, &ValueManagerWidgetBase::unitsChanged, this, &ValManNumericWidget::setUnits);
    connect(ui->value, &QLineEdit::textChanged, &SignalSlotSingleton::getInstance(),
            &SignalSlotSingleton::valueChanged);
}

ValManNumericWidget::~ValManNumericWidget() = default;

void ValManNumericWidget::setOstrelVariable(const QString& name) {
    m_frame->label()->setText(name);
    linkOstrelVariable(name);
    displayUnitOptions();
    resize(size());
}

void ValManNumericWidget::displayUnitOptions() {
    if (!_ptr)
        return;
    QStringList list;
    if (*_units)
        list.append(QStringLiteral("default"));
    const bool isListed = _mem.vari_type == REAL_TYPE  ? listUnits(rptr->units, &list)
                          : _mem.vari_type == INT_TYPE ? listUnits(iptr->units, &list)
                                                       : false;
    if (isListed)
        ui->unitSelect->insertItems(ui->unitSelect->count(), list);
}

void ValManNumericWidget::setUnits(const QString& units) {
    int unitCode = 0;
    units_keyword_to_code(units.toLatin1().data(), &unitCode);
    char keyword[sizeof(UNITS_NAME) + 1] = {};
    units_code_to_keyword(unitCode, keyword);
    const int index = ui->unitSelect->findText(QString::fromLatin1(keyword));
    if (index >= 0)
        ui->unitSelect->setCurrentIndex(index);
}

void ValManNumericWidget::commitValue() {
    // What is to be written is chosen by what is bound now.
    if (!_ptr)
        return;
    const QString text = ui->value->text();
    const QString units = ui->unitSelect->currentText();
    if (_mem.vari_type == REAL_TYPE)
        commitValue(text.toDouble(), units);
    else if (_mem.vari_type == INT_TYPE)
        commitValue(text.toInt(), units);
}

void ValManNumericWidget::writeToFile(QDomDocument document) {
    QDomElement staged = addStagedValue(document, _name);
    if (_mem.vari_type == REAL_TYPE)
        setStagedText(staged, "RealValue", ui->value->text());
    else if (_mem.vari_type == INT_TYPE)
        setStagedText(staged, "IntegerValue", ui->value->text());
    setStagedText(staged, "Units", ui->unitSelect->currentText());
}

void ValManNumericWidget::readFromFile(QDomDocument document) {
    takeStagedValue(document, _name, [this](const QDomElement& staged) {
        if (_mem.vari_type == REAL_TYPE)
            ui->value->setText(staged.attribute(QStringLiteral("RealValue")));
        else if (_mem.vari_type == INT_TYPE)
            ui->value->setText(staged.attribute(QStringLiteral("IntegerValue")));
        setUnits(staged.attribute(QStringLiteral("Units")));
    });
}
