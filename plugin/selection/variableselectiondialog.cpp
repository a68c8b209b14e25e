#include "selection/variableselectiondialog.h"

#include <ostrel/store.h>

#include <QCompleter>
#include <QLineEdit>
#include <QRegExpValidator>
#include <QRegularExpression>

#include "hostlink/globals.h"
#include "selection/memberextensions.h"
#include "selection/nameorder.h"
#include "selection/variablemaplist.h"
#include "ui_variableselectiondialog.h"
#include "variables/recordtext.h"

namespace {

using Catalogue = QMap<QString, QStringList>;

// The catalogue of the last dialog, and the filter that it was read with.
Catalogue* Master_variables = nullptr;
QT_OSTREL_VAR_TYPE VMLType;
// The members that were offered last.
QStringList* Master_subVariables = nullptr;

constexpr int drawer = 7;
constexpr int distanceBelowParent = 40;
constexpr int rowsOfDropDown = 10;

Catalogue* catalogueFor(QT_OSTREL_VAR_TYPE varType) {
    if (Ostrel_Plugins_Master_variables_dirty || varType != VMLType || !Master_variables) {
        auto* const fresh = new Catalogue;
        const VariableMapList reader(fresh, varType, nullptr);
        VMLType = varType;
        Ostrel_Plugins_Master_variables_dirty = false;
        delete Master_variables;
        Master_variables = fresh;
    }
    return Master_variables;
}

// A kind of variable with members: how its labels are known, and what its members are called.
struct MemberKind {
    QT_OSTREL_FLAGS flag;
    short (*find)(char* label, SHARED_MEMORY* mem);
    QStringList (*extensions)();
};

const MemberKind memberKinds[] = {
    {QT_OSTREL_COMP, find_comp_label, [] { return extensionList(comp_extenders); }},
    {QT_OSTREL_STAT, find_stat_label, [] { return extensionList(stat_extenders); }},
    {QT_OSTREL_PROP, find_prop_label, [] { return extensionList(prop_extenders); }},
    {QT_OSTREL_EMIS, find_emis_label, [] { return extensionList(emis_extenders); }},
};

}  // namespace

VariableSelectionDialog::VariableSelectionDialog(QWidget* parent, QT_OSTREL_VAR_TYPE type, const QString& inName)
    : QDialog(parent, Qt::WindowFlags(drawer)),
      ui(std::make_unique<Ui::VariableSelectionDialog>()),
      varType(type),
      origVarName_(QString::fromLatin1(inName.toLatin1())) {
    ui->setupUi(this);
    // The form's layout is wider than the dialog.
    ui->layoutWidget->setContentsMargins(0, 0,
                                         ui->layoutWidget->x() + ui->layoutWidget->geometry().right() + 1 - width(), 0);
    ui->OkButton->setDefault(true);
    setUpVariableBox();
    ui->groupComboBox->lineEdit()->setReadOnly(true);
    connectSlots();
    variables = catalogueFor(varType);
    if (Master_subVariables)
        subVariables.append(*Master_subVariables);
}

VariableSelectionDialog::~VariableSelectionDialog() = default;

void VariableSelectionDialog::setUpVariableBox() {
    QComboBox* const box = ui->variableComboBox;
    proxy_ = new NameOrder(box);
    const QRegExp name(QStringLiteral("[A-Za-z_][A-Za-z0-9_]*[\\.]?(\\:[A-Za-z0-9_]*){0,6}"), Qt::CaseSensitive);
    box->setValidator(new QRegExpValidator(name, this));
    box->setCompleter(new QCompleter(box->model(), this));
    prepareForManyNames(box);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

void VariableSelectionDialog::connectSlots() {
    connect(ui->OkButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->Cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &VariableSelectionDialog::closeDialog, this, &QDialog::reject);
    connect(this, &VariableSelectionDialog::mapParent, this, &VariableSelectionDialog::mapDialog);
    connect(ui->groupComboBox, SIGNAL(currentIndexChanged(QString)), this, SLOT(groupIndexChanged(QString)));
    connect(ui->variableComboBox, &QComboBox::editTextChanged, this, &VariableSelectionDialog::variableEditTextChanged);
    // As for the variables: the Return key takes no other member than was typed.
    disconnect(ui->subComboBox->lineEdit(), SIGNAL(returnPressed()), ui->subComboBox, nullptr);
}

QString VariableSelectionDialog::text() const {
    return ui->variableComboBox->currentText();
}

QString VariableSelectionDialog::subText() const {
    return ui->subComboBox->currentText();
}

int VariableSelectionDialog::indexOfSelectedVarName() const {
    const QString name = text().split(QRegularExpression(QStringLiteral("[:]"))).first();
    return ui->variableComboBox->findData(name, Qt::DisplayRole, Qt::MatchExactly | Qt::MatchCaseSensitive);
}

// Kept from QDialog: placing the window, which mapDialog() does here.
void VariableSelectionDialog::showEvent(QShowEvent*) {
    initializingClass = true;
    ui->groupComboBox->clear();
    if (varType & QT_OSTREL_ANY)
        ui->groupComboBox->insertItem(0, tr("All Variables"));
    ui->groupComboBox->insertItems(ui->groupComboBox->count(), variables->keys());
    ui->variableComboBox->clear();
    proxy_->fill(namesOfAllGroups());
    ui->variableComboBox->clearEditText();
    showOriginalName();
    initializingClass = false;
    emit mapParent();
}

void VariableSelectionDialog::hideEvent(QHideEvent*) {
    if (result() != QDialog::Accepted)
        emit closeDialog();
}

void VariableSelectionDialog::mapDialog() {
    const QPoint place = parentWidget() ? parentWidget()->mapToGlobal(pos()) : pos();
    QRect frame = geometry();
    frame.moveTopLeft(place + QPoint(0, distanceBelowParent));
    setGeometry(frame);
}

QStringList VariableSelectionDialog::namesOfAllGroups() const {
    QStringList names;
    for (const QStringList& group : qAsConst(*variables))
        names.append(group);
    return names;
}

bool VariableSelectionDialog::selectVariable(const QString& listed, const QString& shown) {
    const int row = ui->variableComboBox->findData(listed, Qt::DisplayRole, Qt::MatchCaseSensitive);
    if (row < 0)
        return false;
    ui->variableComboBox->setCurrentIndex(row);
    ui->variableComboBox->setEditText(shown);
    return true;
}

// The name may be one of the list, with array indexes behind it, or with a member behind its point.
void VariableSelectionDialog::showOriginalName() {
    if (origVarName_.isEmpty())
        return;
    if (selectVariable(origVarName_.split(QLatin1Char(':')).first(), origVarName_))
        return;
    const QStringList parts = origVarName_.split(QLatin1Char('.'));
    if (parts.size() < 2) {
        selectVariable(origVarName_, origVarName_);
        return;
    }
    const QString label = QStringLiteral("%1.").arg(parts.first());
    if (selectVariable(label, label))
        selectMember(parts.at(1));
}

void VariableSelectionDialog::selectMember(const QString& member) {
    if (ui->subComboBox->count() == 0)
        ui->subComboBox->insertItems(0, subVariables);
    const int row = ui->subComboBox->findData(member, Qt::DisplayRole, Qt::MatchCaseSensitive);
    if (row < 0)
        return;
    ui->subComboBox->setCurrentIndex(row);
    ui->subComboBox->setEditText(member);
    ui->subComboBox->setEnabled(true);
}

// The first group stands for all of them, also under a filter that has no "All Variables".
void VariableSelectionDialog::groupIndexChanged(QString item) {
    if (initializingClass)
        return;
    QComboBox* const box = ui->variableComboBox;
    box->clear();
    box->clearEditText();
    const bool isAll = ui->groupComboBox->currentIndex() == 0;
    proxy_->fill(isAll ? namesOfAllGroups() : variables->value(item));
    if (!isAll && !variables->isEmpty())
        box->setEnabled(true);
    box->setCurrentIndex(0);
    if (isAll)
        box->setMaxVisibleItems(rowsOfDropDown);
}

void VariableSelectionDialog::variableEditTextChanged(const QString& stext) {
    if (initializingClass || stext.isEmpty())
        return;
    if (varType == QT_OSTREL_VAR_TYPE(QT_OSTREL_ANY)) {
        SHARED_MEMORY mem{};
        if (find_variable(stext.toLocal8Bit().data(), &mem) == 0)
            copyText(default_units, get_variable_units(mem));
    }
    QStringList list;
    if (findMembers(stext, &list)) {
        offerMembers(list);
    } else if (stext.contains(QLatin1Char('.'))) {
        // NAME. and NAME.AV act as NAME does.
        variableEditTextChanged(stext.section(QLatin1Char('.'), 0, 0));
    } else {
        ui->subComboBox->clear();
        ui->subComboBox->setEnabled(false);
    }
}

bool VariableSelectionDialog::findMembers(const QString& stext, QStringList* list) const {
    for (const MemberKind& kind : memberKinds) {
        SHARED_MEMORY mem{};
        if ((varType & kind.flag) && kind.find(stext.toUtf8().data(), &mem) == 0) {
            *list = kind.extensions();
            return true;
        }
    }
    return false;
}

void VariableSelectionDialog::offerMembers(const QStringList& list) {
    ui->subComboBox->clear();
    ui->subComboBox->insertItems(0, list);
    if (!Master_subVariables)
        Master_subVariables = new QStringList;
    *Master_subVariables = list;
    ui->subComboBox->setEnabled(true);
}
