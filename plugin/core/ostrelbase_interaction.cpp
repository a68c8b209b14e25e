// What an operator does to a widget: its menu, dragging names, double clicks.
#include <ostrel/store.h>
#include <ostrel/units.h>

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDataStream>
#include <QDrag>
#include <QDropEvent>
#include <QFontDialog>
#include <QMap>
#include <QMessageBox>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <cstddef>
#include <cstring>

#include "core/ostrelbase.h"
#include "properties/mycontroller.h"
#include "selection/unitsdialog.h"
#include "selection/variableselectiondialog.h"
#include "variables/names.h"
#include "variables/unitslist.h"

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

// What the operator chose, or the former name where that is no variable.
QString chosenName(QWidget* widget, const VariableSelectionDialog& dialog, const QString& former) {
    if (dialog.indexOfSelectedVarName() == -1) {
        // It goes with the widget, which may be closed meanwhile.
        const QPointer<QMessageBox> refusal = new QMessageBox(
            QMessageBox::Warning, OstrelBase::tr("Invalid Variable"),
            OstrelBase::tr("An invalid variable name was entered.\n\nThe previous variable name will be used."),
            QMessageBox::Ok, widget);
        refusal->setInformativeText(OstrelBase::tr("Not in the list: \"%1\"").arg(dialog.text()));
        refusal->exec();
        delete refusal;
        return former;
    }
    const QString name = dialog.text() + dialog.subText();
    SHARED_MEMORY mem{};
    return find_variable(name.toLatin1().data(), &mem) == 0 ? name : former;
}

// The choice that stands for a variable's own units.
const QString ownUnits = QStringLiteral("default");

// Real and integer records have their units at the same place, and those of every other kind are read there too.
bool listCompatibleUnits(const void* record, QStringList* list) {
    constexpr size_t unitsOffset = offsetof(REAL_VARIABLE, units);
    static_assert(unitsOffset == 160 && unitsOffset == offsetof(INTEGER_VARIABLE, units));
    char units[sizeof(UNITS_NAME)];
    std::memcpy(units, static_cast<const char*>(record) + unitsOffset, sizeof(units));
    return listCompatibleUnits(units, list);
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

// The form may be closed, and this widget with it, while a dialog of its own runs.
void OstrelBase::changeVariable() {
    if (userInterfaceLock()) {
        QMessageBox::warning(this, tr("ChangeVariable"), tr("variable selection is disabled for this widget"),
                             QMessageBox::Ok);
        return;
    }
    chooseVariable();
}

void OstrelBase::chooseVariable() {
    const QString origName = _name;
    const QPointer<VariableSelectionDialog> dialog = new VariableSelectionDialog(this, _varType, _name);
    changeVar = dialog;
    const bool isAccepted = dialog->exec() == QDialog::Accepted;
    const QString name = dialog && isAccepted ? chosenName(this, *dialog, origName) : QString();
    // Without its dialog the widget is gone.
    if (dialog && isAccepted)
        setName(name);
    delete dialog;
}

void OstrelBase::changeUnits() {
    if (userInterfaceLock() || changeUnitsLock()) {
        QMessageBox::warning(this, tr("ChangeUnits"), tr("units selection is disabled for this widget"),
                             QMessageBox::Ok);
        return;
    }
    QStringList list;
    if (*_units)
        list.append(ownUnits);
    if (!_ptr || !listCompatibleUnits(_ptr, &list))
        return;
    const QPointer<OstrelBase> self = this;
    UnitsDialog dialog(nullptr);
    dialog.setItems(list);
    if (dialog.exec() != QDialog::Accepted || !self)
        return;
    const QString chosen = dialog.value();
    unitsChanged = true;
    setUnits(chosen == ownUnits ? QString() : chosen);
    setName(QString(_name));
}

// The dialog goes with the widget.
void OstrelBase::viewProperties() {
    auto* dialog = new MyController(this, className, userInterfaceLock());
    dialog->whenEdited([this](const char* property) {
        if (std::strcmp(property, "units") == 0 && canShowIn(_units))
            setName(QString(_name));
    });
    dialog->show();
}

// Units are typed letter by letter, and the value stays as it was until they can show it: so must its label.
bool OstrelBase::canShowIn(char* units) const {
    double converted = 0.0;
    return _ptr && (*units == '\0' || unitsConvert(1.0, get_variable_units(_mem), &converted, units) == 0);
}

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

bool OstrelBase::filterField(const QObject* field, QObject* obj, QEvent* event) {
    if (obj != field)
        return QObject::eventFilter(obj, event);
    if (event->type() != QEvent::MouseButtonDblClick)
        return false;
    handleWriteValue(nullptr);
    return true;
}
