#include "frozenveil.h"

#include <QEvent>
#include <QPainter>

namespace {

const QColor wash(90, 90, 90, 70);
const QColor stripe(60, 0, 8, 90);

}  // namespace

FrozenVeil::FrozenVeil(QWidget* covered) : QWidget(covered) {
    setObjectName(QStringLiteral("frozenVeil"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    covered->installEventFilter(this);
    hide();
}

void FrozenVeil::setFrozen(bool frozen) {
    if (frozen == isVisibleTo(parentWidget()))
        return;
    setGeometry(parentWidget()->rect());
    raise();
    setVisible(frozen);
}

bool FrozenVeil::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}

void FrozenVeil::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), wash);
    const int spacing = 4 * fontMetrics().height() / 3;
    painter.setPen(QPen(stripe, qMax(2.0, spacing / 7.0)));
    for (int x = -height(); x < width(); x += spacing)
        painter.drawLine(x, height(), x + height(), 0);
}
