// The label of the value widgets.
#ifndef OSTREL_WIDGETS_FLASHINGLABEL_H
#define OSTREL_WIDGETS_FLASHINGLABEL_H

#include <QLabel>
#include <QPalette>

#include "labelstyle.h"

class Q_DECL_EXPORT FlashingLabel : public QLabel {
    Q_OBJECT

public:
    explicit FlashingLabel(QWidget* parent = nullptr);
    ~FlashingLabel() override;

private:
    LabelStyle* myStyle;  // owned
    QPalette myPalette;
};

#endif
