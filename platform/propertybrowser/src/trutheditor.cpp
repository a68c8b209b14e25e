#include "trutheditor.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QSignalBlocker>

TruthEditor::TruthEditor(QWidget* parent) : QWidget(parent), m_box(new QCheckBox(this)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 0, 0);
    layout->addWidget(m_box);
    layout->addStretch();
    setFocusProxy(m_box);
    connect(m_box, &QCheckBox::toggled, this, [this](bool value) {
        showText();
        Q_EMIT toggled(value);
    });
}

void TruthEditor::setValue(bool value) {
    const QSignalBlocker quiet(m_box);
    m_box->setChecked(value);
    showText();
}

void TruthEditor::setTextVisible(bool visible) {
    m_textVisible = visible;
    showText();
}

void TruthEditor::showText() {
    const char* text = m_box->isChecked() ? "True" : "False";
    m_box->setText(m_textVisible ? QCoreApplication::translate("QtBoolPropertyManager", text) : QString());
}

void TruthEditor::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_box->click();
    else
        QWidget::mousePressEvent(event);
}
