#include "widgets/zelgroupwidget.h"

#include <QFont>
#include <QPalette>

#include "hostlink/globals.h"
#include "ui_zelgroupwidget.h"
#include "widgets/checkboxvariable.h"
#include "widgets/zel_simplevalue.h"

ZelGroup::ZelGroup(QWidget* parent) : GroupBase(parent, "ZelGroup"), ui(std::make_unique<Ui::ZelGroup>()) {
    ui->setupUi(this);
    setAutoFillBackground(true);
    if (!RemoteDisplay)
        ZelGroup::initContextMenu();
    connectToDisplay(SLOT(saveConfigSettings()), SLOT(checkToggleStatus(bool)));
}

ZelGroup::~ZelGroup() = default;

void ZelGroup::initContextMenu() {
    addMenu(SLOT(viewProperties()), SLOT(viewDisplayWindow()));
}

QWidget* ZelGroup::makeValue(const QString& variable, int row, int column) {
    auto* value = new ZelSimpleValue(this);
    value->setHorizontal(orientation == Qt::Horizontal);
    value->setName(variable);
    value->setRowCol(row, column);
    connect(value, &ZelSimpleValue::nameChanged, this, &ZelGroup::varNameChange);
    return value;
}

void ZelGroup::setGrpFont(const QFont& font) {
    applyFont(font);
    memory.rememberFontLive("grpFont", font);
}

void ZelGroup::setgBackColor(QColor color) {
    applyBackColor(color);
}

void ZelGroup::setTextColor(QColor color) {
    textColor = color;
    const auto apply = [this](QWidget* widget) {
        QPalette colors = widget->palette();
        colors.setBrush(QPalette::Text, QBrush(textColor));
        widget->setPalette(colors);
    };
    apply(this);
    for (QObject* child : children())
        if (auto* widget = qobject_cast<QWidget*>(child))
            apply(widget);
    memory.rememberLive("textColor", textColor);
}

void ZelGroup::setCheckBoxVarName(const QString& checkboxVarName) {
    if (checkboxVarName.isEmpty()) {
        boxVarName.clear();
        forgetLogical();
        var_found = false;
        return;
    }
    var_found = true;
    boxVarName = checkboxVarName;
    memory.remember("checkboxVarName", boxVarName);
    const bool found = findLogical(boxVarName);
    isFirstName = !initVarName;
    if (!initVarName) {
        initVarName = true;
        if (found)
            followVariable();
    } else if (found) {
        leadVariable();
    } else {
        valid_logi = false;
    }
}

// Kept: a variable that is false when the form names it is never written by the check box.
void ZelGroup::followVariable() {
    valid_logi = switched->isOn();
    showVariable();
}

void ZelGroup::variableCame() {
    if (isFirstName)
        followVariable();
    else
        GroupBase::variableCame();
}

void ZelGroup::checkToggleStatus(bool toggle) {
    if (var_found && valid_logi)
        writeToggle(toggle);
}

void ZelGroup::viewProperties() {
    memory.editProperties();
}

void ZelGroup::viewDisplayWindow() {
    openEditor(SLOT(windowClosed(QString)));
}

void ZelGroup::saveConfigSettings() {
    saveNames();
}

void ZelGroup::varNameChange(QString newName, int row, int col) {
    renameVariable(newName, row, col);
}

void ZelGroup::windowClosed(QString filename) {
    editorClosed(filename, SLOT(windowClosed(QString)));
}
