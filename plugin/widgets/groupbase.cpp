#include "widgets/groupbase.h"

#include <ostrel-display/qdwindow.h>
#include <ostrel/store.h>

#include <QAction>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QGridLayout>

#include "groupfile/groupfile.h"
#include "hostlink/globals.h"
#include "widgets/checkboxvariable.h"

QDWindow* displayWindow = nullptr;
bool Display_QD_Window = false;

namespace {

// Where the name itself leads, or else beside the form: a form and its groups are moved together.
QString placeOf(const QString& fileName) {
    const QFileInfo form(QFile::decodeName(ParentUIFile));
    if (form.filePath().isEmpty() || QFile::exists(fileName) || !form.absoluteDir().exists(fileName))
        return fileName;
    return form.absoluteDir().filePath(fileName);
}

// A reconfiguration is announced to bound widgets alone, and a group is none: it looks at the store's count of them.
constexpr int watchPeriodMs = 500;

}  // namespace

GroupBase::GroupBase(QWidget* parent, const char* widgetClass)
    : QGroupBox(parent), memory(this, widgetClass), switched(std::make_unique<CheckBoxVariable>()) {
    connect(&reconfigurationWatch, &QTimer::timeout, this, [this] { followStore(); });
}

GroupBase::~GroupBase() = default;

void GroupBase::addMenu(const char* propertiesSlot, const char* displaySlot) {
    memory.addMenuEntry(propertiesSlot);
    auto* editDisplay = new QAction(tr("Edit Display"), this);
    connect(editDisplay, SIGNAL(triggered()), this, displaySlot);
    addAction(editDisplay);
}

// By the names of signals and slots: the display's object is known by nothing else.
void GroupBase::connectToDisplay(const char* saveSlot, const char* toggleSlot) {
    if (runQtUIWindow)
        connect(runQtUIWindow, SIGNAL(saveConfig()), this, saveSlot);
    connect(this, SIGNAL(toggled(bool)), this, toggleSlot);
}

bool GroupBase::eventFilter(QObject* o, QEvent* e) {
    return o->event(e);
}

void GroupBase::setMyTitle(const QString& title) {
    setTitle(title);
    memory.rememberLive("title", title);
}

void GroupBase::setToolTipString(const QString& toolTip) {
    setToolTip(toolTip);
    memory.rememberLive("toolTip", toolTip);
}

// Kept: forms have the name as the family of a font.
void GroupBase::setName(const QString& newName) {
    name = newName;
    memory.rememberFontLive("name", QFont(newName));
}

void GroupBase::applyFont(const QFont& font) {
    setFont(font);
    grpFont = font;
}

void GroupBase::applyBackColor(const QColor& color) {
    gBackColor = color;
    QPalette colors = palette();
    colors.setBrush(QPalette::Window, QBrush(gBackColor));
    setPalette(colors);
    memory.rememberLive("gBackColor", gBackColor);
}

void GroupBase::setOrientation(const Qt::Orientation& ori) {
    const bool differs = orientation != ori;
    orientation = ori;
    memory.remember("SimpleValueOrientation", ori);
    if (differs)
        setFileName(fileName);
}

void GroupBase::setFileName(const QString& fn) {
    if (fn.isEmpty())
        return;
    if (initLayout && fn == last_fileName && orientation == last_orientation)
        return;
    last_fileName = fn;
    last_orientation = orientation;
    QFile file(placeOf(fn));
    if (!file.open(QIODevice::ReadOnly)) {
        missing = fn;
        return;
    }
    clearLayout();
    auto* grid = new QGridLayout;
    fill(grid, file.readAll());
    namesChanged = false;
    setLayout(grid);
    resize(size());
    updateGeometry();
    fileName = fn;
    readFrom = file.fileName();
    missing.clear();
    memory.remember("FileName", fileName);
    initLayout = true;
}

// A read-out outside the grid is in no layout, and stays.
void GroupBase::clearLayout() {
    if (!layout())
        return;
    while (QLayoutItem* item = layout()->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    delete layout();
    updateGeometry();
}

void GroupBase::fill(QGridLayout* grid, const QByteArray& text) {
    varNames.clear();
    varRow.clear();
    varCol.clear();
    const GroupContents contents = readGroup(text);
    if (contents.hasTitle)
        setTitle(contents.title);
    for (const GroupVariable& variable : contents.variables) {
        QWidget* value = makeValue(variable.name, variable.row, variable.column);
        varNames.append(variable.name);
        varRow.append(variable.row);
        varCol.append(variable.column);
        grid->addWidget(value, variable.row, variable.column);
    }
}

void GroupBase::renameVariable(const QString& newName, int row, int col) {
    for (int i = 0; i < varNames.size(); ++i) {
        if (varRow[i] != row || varCol[i] != col)
            continue;
        varNames[i] = newName;
        namesChanged = true;
        propertiesChanged = true;
        return;
    }
}

QVector<GroupVariable> GroupBase::variables() const {
    QVector<GroupVariable> variables;
    for (int i = 0; i < varNames.size(); ++i)
        variables.append({varNames[i], varRow[i], varCol[i]});
    return variables;
}

void GroupBase::saveNames() {
    if (fileName.isEmpty() || !namesChanged)
        return;
    saveGroup(readFrom, writeGroup(title(), variables()));
    namesChanged = false;
}

void GroupBase::openEditor(const char* closedSlot) {
    if (Display_QD_Window)
        return;
    Display_QD_Window = true;
    if (!displayWindow)
        displayWindow = new QDWindow(nullptr);
    connect(displayWindow, SIGNAL(closed(QString)), this, closedSlot);
    displayWindow->show(readFrom);
}

void GroupBase::editorClosed(const QString& editedFile, const char* closedSlot) {
    if (!editedFile.isEmpty()) {
        initLayout = false;
        setFileName(editedFile == readFrom ? fileName : editedFile);
    }
    if (displayWindow)
        disconnect(displayWindow, SIGNAL(closed(QString)), this, closedSlot);
    Display_QD_Window = false;
}

bool GroupBase::findLogical(const QString& variable) {
    // No designer moves its store under a form, and nothing else has ticks there either.
    if (!inDesigner)
        reconfigurationWatch.start(watchPeriodMs);
    return switched->find(variable);
}

void GroupBase::forgetLogical() {
    reconfigurationWatch.stop();
    switched->forget();
}

// Kept from writing: what the variable says is nobody's wish.
void GroupBase::showVariable() {
    isShowingVariable = true;
    setChecked(switched->isOn());
    isShowingVariable = false;
}

void GroupBase::followStore() {
    const bool wasFound = switched->isFound();
    if (!switched->follow())
        return;
    if (!switched->isFound())
        valid_logi = false;
    else if (!wasFound)
        variableCame();
    else if (valid_logi)
        showVariable();
}

void GroupBase::variableCame() {
    valid_logi = true;
    showVariable();
}

void GroupBase::leadVariable() {
    valid_logi = true;
    writeToggle(isChecked());
    namesChanged = false;
}

void GroupBase::writeToggle(bool on) {
    if (isShowingVariable)
        return;
    // The record of the last look-up may be another variable's by now.
    if (switched->follow() && !switched->isFound())
        valid_logi = false;
    else if (!switched->store(on))
        showVariable();
}
