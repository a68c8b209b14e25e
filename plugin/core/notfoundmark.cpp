#include "core/notfoundmark.h"

#include <QPixmap>

void preparePicture(QLabel* iconLabel) {
    const QPixmap* picture = iconLabel->pixmap();
    if (!picture || picture->isNull())
        iconLabel->setPixmap(QPixmap(QStringLiteral(":/marks/notfound.png")));
}

void showNotFoundMark(bool show, QLabel* iconLabel, QWidget* tipOwner, const QString& toolTip) {
    iconLabel->setVisible(show);
    showNotFoundToolTip(show, tipOwner, toolTip);
}

void showNotFoundToolTip(bool show, QWidget* tipOwner, const QString& toolTip) {
    tipOwner->setToolTip(show ? QStringLiteral("VARIABLE NOT FOUND") : toolTip);
}
