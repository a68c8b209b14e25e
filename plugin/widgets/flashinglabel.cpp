#include "widgets/flashinglabel.h"

FlashingLabel::FlashingLabel(QWidget* parent) : QLabel(parent, Qt::WindowFlags()), myStyle(new LabelStyle) {
    setStyle(myStyle);
}

FlashingLabel::~FlashingLabel() {
    delete myStyle;
}
