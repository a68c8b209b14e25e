#include "properties/mycontroller.h"

#include <qttreepropertybrowser.h>

#include <QDialogButtonBox>
#include <QShowEvent>
#include <QVBoxLayout>
#include <utility>

#include "properties/objectcontroller.h"

namespace {

// Whatever the form around the widget looks like, the dialog can be read.
const QString plainLook = QStringLiteral("background-color: #f4f4f4; color: #000000;");

}  // namespace

MyController::MyController(QWidget* parent, QString classToView, bool userInterfaceLock) : QDialog(parent, Qt::Drawer) {
    setMinimumWidth(320);
    theController = new ObjectController(this);
    setStyleSheet(plainLook);
    auto* buttons = new QDialogButtonBox(this);
    buttons->setStyleSheet(plainLook);
    theControlledObject = parent;
    connect(buttons, SIGNAL(rejected()), this, SLOT(reject()));
    connect(buttons, SIGNAL(accepted()), this, SLOT(accepted()));
    buttons->setStandardButtons(QDialogButtonBox::Close);
    layOut(buttons);
    theController->setObject(parent, classToView, userInterfaceLock);
    unfold();
}

MyController::MyController(QWidget* parent) : QDialog(parent, Qt::Drawer) {
    theController = new ObjectController(this);
    auto* buttons = new QDialogButtonBox(this);
    buttons->setStyleSheet(plainLook);
    theControlledObject = parent;
    connect(buttons, SIGNAL(rejected()), this, SLOT(reject()));
    buttons->setStandardButtons(QDialogButtonBox::Close);
    layOut(buttons);
    theController->setObject(parent, QStringLiteral("ALL"), false);
    unfold();
}

MyController::~MyController() = default;

void MyController::whenEdited(std::function<void(const char* property)> callback) {
    theController->whenEdited(std::move(callback));
}

void MyController::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    activateWindow();
    theController->setFocus();
}

void MyController::layOut(QWidget* buttons) {
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(theController);
    layout->addWidget(buttons);
    setWindowTitle(tr("Edit Properties:"));
}

// The controller has the groups as they were left for another object, and folded without one. The tree has nothing to
// unfold them by.
void MyController::unfold() {
    auto* tree = theController->findChild<QtTreePropertyBrowser*>();
    const QList<QtBrowserItem*> groups = tree->topLevelItems();
    for (QtBrowserItem* group : groups)
        tree->setExpanded(group, true);
}

void MyController::accepted() {}

void MyController::rejected() {}
