#include "variables/notfoundmark.h"

#include <QPixmap>

namespace {

// Read when a mark is first shown: most widgets find their variable.
const QPixmap& picture() {
    static const QPixmap installed(
        QStringLiteral("/usr/local/share/crystal_project/16x16/actions/agt_action_fail.png"));
    static const QPixmap own(QStringLiteral(":/marks/notfound.png"));
    return installed.isNull() ? own : installed;
}

}  // namespace

void showNotFoundMark(bool show, QLabel* iconLabel, QWidget* tipOwner, const QString& toolTip) {
    if (show)
        iconLabel->setPixmap(picture());
    iconLabel->setVisible(show);
    showNotFoundToolTip(show, tipOwner, toolTip);
}

void showNotFoundToolTip(bool show, QWidget* tipOwner, const QString& toolTip) {
    tipOwner->setToolTip(show ? QStringLiteral("VARIABLE NOT FOUND") : toolTip);
}
