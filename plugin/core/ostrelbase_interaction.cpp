// What an operator does to a widget: its menu, dragging names, double clicks.
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDataStream>
#include <QDrag>
#include <QDropEvent>
#include <QFontDialog>
#include <QMap>
#include <QMimeData>
#include <QMouseEvent>

#include "core/names.h"
#include "core/ostrelbase.h"

namespace {

// An item dragged out of a Qt item view.
const QString itemViewType = QStringLiteral("application/x-qabstractitemmodeldatalist");

QString firstItemText(const QMimeData* data) {
    QByteArray encoded = data->data(itemViewType);
    QDataStream stream(&encoded, QIODevice::ReadOnly);
    while (!stream.atEnd()) {
        int row = 0;
        int column = 0;
        QMap<int, QVariant> roles;
        stream >> row >> column >> roles;
        if (stream.status() != QDataStream::Ok)
            break;
        if (!roles.isEmpty())
            return roles.first().toString();
    }
    return QString();
}

}  // namespace

void OstrelBase::initContextMenu() {
    setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto add = [this](const QString& text, void (OstrelBase::*slot)()) {
        auto* action = new QAction(text, this);
        connect(action, &QAction::triggered, this, slot);
        addAction(action);
        return action;
    };
    changeVariableAction = add(tr("Change Variable"), &OstrelBase::changeVariable);
    changeUnitsAction = add(tr("Change Units"), &OstrelBase::changeUnits);
    viewPropertiesAction = add(tr("Edit Properties"), &OstrelBase::viewProperties);
    copyVariableName = add(tr("Copy Variable Name"), &OstrelBase::copyVarName);
    pasteVariableName = add(tr("Paste Variable Name"), &OstrelBase::pasteVarName);
    disableAction = add(tr("Disable Widget"), &OstrelBase::disable);
}

void OstrelBase::changeVariable() {}

void OstrelBase::changeUnits() {}

void OstrelBase::viewProperties() {}

void OstrelBase::copyVarName() {
    QApplication::clipboard()->setText(_name);
}

void OstrelBase::pasteVarName() {
    if (!userInterfaceLock())
        setName(QApplication::clipboard()->text());
}

void OstrelBase::disable() {
    setName(notSet);
}

// Kept: after a cancel the invalid colour is set, which gives a widget its own colour back.
void OstrelBase::changeColor() {
    setColor(QColorDialog::getColor(Qt::white, nullptr, QString()));
}

void OstrelBase::changeBColor() {
    setBColor(QColorDialog::getColor(Qt::white, nullptr, QString()));
}

void OstrelBase::changeFont() {
    bool ok = false;
    const QFont chosen = QFontDialog::getFont(&ok, this);
    if (ok)
        setMyFont(chosen);
}

void OstrelBase::changeValueFont() {
    bool ok = false;
    const QFont chosen = QFontDialog::getFont(&ok, this);
    if (ok)
        setValueFont(chosen);
}

void OstrelBase::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        _dragStartPosition = event->pos();
}

void OstrelBase::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton) || userInterfaceLock() || !_dragAndDropEnabled)
        return;
    if ((event->pos() - _dragStartPosition).manhattanLength() < QApplication::startDragDistance())
        return;
    auto* text = new QMimeData;
    text->setText(_name);
    auto* drag = new QDrag(this);
    drag->setMimeData(text);
    drag->exec(Qt::CopyAction | Qt::MoveAction);
}

void OstrelBase::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasFormat(itemViewType) || event->mimeData()->hasText())
        event->acceptProposedAction();
}

void OstrelBase::dropEvent(QDropEvent* event) {
    if (userInterfaceLock())
        return;
    QString newVariable;
    if (event->mimeData()->hasText())
        newVariable = event->mimeData()->text();
    else if (event->mimeData()->hasFormat(itemViewType))
        newVariable = firstItemText(event->mimeData());
    // A drop with the control key swaps the variables of two widgets.
    if (event->keyboardModifiers() == Qt::ControlModifier) {
        auto* source = qobject_cast<OstrelBase*>(event->source());
        if (!source || source == this)
            return;
        source->setName(_name);
    }
    setName(newVariable);
}

void OstrelBase::mouseDoubleClickEvent(QMouseEvent* event) {
    if ((event->buttons() & Qt::LeftButton) && allowsWriteAcess())
        handleWriteValue(nullptr);
}
