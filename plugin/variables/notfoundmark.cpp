#include "variables/notfoundmark.h"

#include <QLabel>
#include <QPixmap>
#include <utility>

namespace {

// Read when a mark is first shown: most widgets find their variable.
const QPixmap& picture() {
    static const QPixmap installed(
        QStringLiteral("/usr/local/share/crystal_project/16x16/actions/agt_action_fail.png"));
    static const QPixmap own(QStringLiteral(":/marks/notfound.png"));
    return installed.isNull() ? own : installed;
}

}  // namespace

NotFoundMark::NotFoundMark(QLabel* icon, QVector<QWidget*> tipOwners)
    : m_icon(icon), m_tipOwners(std::move(tipOwners)) {
    m_icon->hide();
}

void NotFoundMark::show(bool shown) {
    if (shown)
        m_icon->setPixmap(picture());
    m_icon->setVisible(shown);
    m_isShown = shown;
    showWords(shown);
}

void NotFoundMark::hidePicture() {
    m_icon->hide();
    m_isShown = false;
}

void NotFoundMark::showWords(bool shown) {
    showInstead(shown ? QStringLiteral("VARIABLE NOT FOUND") : m_toolTip);
}

void NotFoundMark::setToolTip(const QString& text) {
    m_toolTip = text;
    showWords(m_isShown);
}

void NotFoundMark::showInstead(const QString& text) {
    for (QWidget* owner : m_tipOwners)
        owner->setToolTip(text);
}
