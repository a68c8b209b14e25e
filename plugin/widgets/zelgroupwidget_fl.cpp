#include "widgets/zelgroupwidget_fl.h"

#include <QFont>
#include <QPalette>

#include "hostlink/globals.h"
#include "ui_zelgroupwidget_fl.h"
#include "widgets/checkboxvariable.h"
#include "widgets/zel_simplevalue_fl.h"

ZelGroup_fl::ZelGroup_fl(QWidget* parent) : GroupBase(parent, "ZelGroup_fl"), ui(std::make_unique<Ui::ZelGroup_fl>()) {
    ui->setupUi(this);
    setAutoFillBackground(true);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    if (!RemoteDisplay)
        ZelGroup_fl::initContextMenu();
    connectToDisplay(SLOT(saveConfigSettings()), SLOT(checkToggleStatus(bool)));
}

ZelGroup_fl::~ZelGroup_fl() = default;

void ZelGroup_fl::initContextMenu() {
    addMenu(SLOT(viewProperties()), SLOT(viewDisplayWindow()));
}

QWidget* ZelGroup_fl::makeValue(const QString& variable, int row, int column) {
    auto* value = new ZelSimpleValue_fl(this);
    value->setHorizontal(orientation == Qt::Horizontal);
    value->setName(variable);
    value->setRowCol(row, column);
    connect(value, &ZelSimpleValue_fl::nameChanged, this, &ZelGroup_fl::varNameChange);
    return value;
}

void ZelGroup_fl::setGrpFont(const QFont& font) {
    applyFont(font);
    colorValues();
    memory.rememberFontLive("grpFont", font);
}

void ZelGroup_fl::setgBackColor(QColor color) {
    applyBackColor(color.isValid() ? color : palette().window().color());
}

void ZelGroup_fl::setTextColor(QColor color) {
    textColor = color.isValid() ? color : palette().text().color();
    QPalette colors = palette();
    colors.setBrush(QPalette::WindowText, QBrush(textColor));
    colors.setBrush(QPalette::Text, QBrush(textColor));
    setPalette(colors);
    colorValues();
    memory.rememberLive("textColor", textColor);
}

void ZelGroup_fl::colorValues() {
    const auto values = findChildren<ZelSimpleValue_fl*>();
    for (ZelSimpleValue_fl* value : values) {
        value->setNameColor(textColor);
        value->setColor(textColor);
    }
}

void ZelGroup_fl::setCheckBoxVarName(const QString& checkboxVarName) {
    if (checkboxVarName.isEmpty()) {
        boxVarName.clear();
        forgetLogical();
        return;
    }
    boxVarName = checkboxVarName;
    memory.remember("checkboxVarName", boxVarName);
    if (findLogical(boxVarName))
        leadVariable();
    else
        valid_logi = false;
}

void ZelGroup_fl::checkToggleStatus(bool toggle) {
    // Without a name the check box may still be valid and has no variable to write to.
    if (valid_logi && switched->isFound())
        writeToggle(toggle);
}

void ZelGroup_fl::viewProperties() {
    memory.editProperties();
}

void ZelGroup_fl::viewDisplayWindow() {
    openEditor(SLOT(windowClosed(QString)));
}

void ZelGroup_fl::saveConfigSettings() {
    saveNames();
}

void ZelGroup_fl::varNameChange(QString newName, int row, int col) {
    renameVariable(newName, row, col);
}

void ZelGroup_fl::windowClosed(QString filename) {
    editorClosed(filename, SLOT(windowClosed(QString)));
}
