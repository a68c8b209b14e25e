#include "formarea.h"

#include "frozenveil.h"

FormArea::FormArea(QWidget* form, QWidget* parent) : QScrollArea(parent), m_designed(form->size()) {
    // A form may have been designed as a window of its own kind; here it is a part of one.
    form->setWindowFlags(Qt::Widget);
    if (!form->layout())
        form->setMinimumSize(form->size());
    form->setAutoFillBackground(true);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    viewport()->setPalette(form->palette());
    setWidget(form);
    m_veil = new FrozenVeil(viewport());
}

void FormArea::setFrozen(bool frozen) {
    m_veil->setFrozen(frozen);
}

QSize FormArea::sizeHint() const {
    return m_designed.expandedTo(widget()->minimumSizeHint());
}
