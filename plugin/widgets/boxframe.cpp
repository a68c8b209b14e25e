#include "widgets/boxframe.h"

#include <QPainter>

void BoxFrame::paintEvent(QPaintEvent* event) {
    if (frameShape() != QFrame::Box || frameShadow() != QFrame::Plain) {
        QFrame::paintEvent(event);
        return;
    }
    QPainter painter(this);
    const QBrush bar = palette().brush(QPalette::WindowText);
    const QRect box = frameRect();
    const int width = lineWidth();
    painter.fillRect(box.left(), box.top(), box.width(), width, bar);
    painter.fillRect(box.left(), box.bottom() + 1 - width, box.width(), width, bar);
    painter.fillRect(box.left(), box.top(), width, box.height(), bar);
    painter.fillRect(box.right() + 1 - width, box.top(), width, box.height(), bar);
}
