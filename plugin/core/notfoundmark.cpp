#include "core/notfoundmark.h"

#include <QPixmap>

void preparePicture(QLabel* iconLabel) {
    if (iconLabel->pixmap(Qt::ReturnByValue).isNull())
        iconLabel->setPixmap(QPixmap(QStringLiteral(":/marks/notfound.png")));
}

void showNotFoundMark(bool show, QLabel* iconLabel, QWidget* tipOwner, const QString& toolTip) {
    iconLabel->setVisible(show);
    showNotFoundToolTip(show, tipOwner, toolTip);
}

void showNotFoundToolTip(bool show, QWidget* tipOwner, const QString& toolTip) {
    tipOwner->setToolTip(show ? QStringLiteral("VARIABLE NOT FOUND") : toolTip);
}
