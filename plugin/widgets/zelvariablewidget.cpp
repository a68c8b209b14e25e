#include "widgets/zelvariablewidget.h"

#include <ostrel/store.h>

#include <QComboBox>
#include <QCompleter>
#include <QMessageBox>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdlib>
#include <type_traits>

#include "selection/cataloguewalk.h"
#include "selection/memberextensions.h"
#include "selection/nameorder.h"
#include "variables/recordtext.h"

// The units of an entry, and whether it shows them.
struct ZelVariable::Units {
    QString text;
    bool isShown = true;
};

namespace {

template <class Record, class... Others>
constexpr bool isOneOf = (std::is_same_v<Record, Others> || ...);

template <class Record>
QStringList membersOf() {
    if constexpr (isOneOf<Record, STAT_VARIABLE>)
        return extensionList(stat_extenders);
    else if constexpr (isOneOf<Record, COMP_VARIABLE>)
        return extensionList(comp_extenders);
    else if constexpr (isOneOf<Record, PROP_VARIABLE>)
        return extensionList(prop_extenders);
    else if constexpr (isOneOf<Record, EMIS_VARIABLE>)
        return extensionList(emis_extenders);
    else
        return {};
}

// What the store tells of the variable behind an alias.
QString unitsBehind(const SHARED_MEMORY& alias) {
    const auto* record = static_cast<const ALIAS_VARIABLE*>(get_vrbl_adr(alias));
    const char* units = record ? get_variable_units(record->var.mem) : nullptr;
    return QString::fromUtf8(units);
}

}  // namespace

ZelVariable::ZelVariable(QT_OSTREL_VAR_TYPE vars, QWidget* parent, bool /*load*/, bool hideLabels)
    : QWidget(parent, Qt::WindowFlags()),
      m_comboBox(new QComboBox(this)),
      m_varTypes(vars),
      hashedVariables(std::make_unique<QHash<QString, QString>>()),
      m_hideLabels(hideLabels) {
    setUp();
}

ZelVariable::ZelVariable(ZelVariable* zelvar)
    : QWidget(nullptr, Qt::WindowFlags()),
      m_comboBox(new QComboBox(this)),
      m_varTypes(zelvar->m_varTypes),
      m_variables(zelvar->m_variables),
      hashedVariables(GetVariablesAndUnitsForType(m_varTypes)),
      m_loadedVariables(true) {
    setUp();
    fillBox();
}

ZelVariable::~ZelVariable() = default;

void ZelVariable::setUp() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_comboBox);
    void* attributes = nullptr;
    if (link_to_memory(SYS_ATTR_MEM, &attributes) != 0) {
        QMessageBox::critical(nullptr, tr("OSTREL Must Be Running"),
                              tr("Stripchart requires OSTREL to run.\n\nPlease start OSTREL and re-run Stripchart."),
                              QMessageBox::Ok);
        std::exit(-1);
    }
    connect(m_comboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ZelVariable::indexChanged);
    connect(m_comboBox, QOverload<int>::of(&QComboBox::activated), this, &ZelVariable::slotChangeIndex);
}

QString ZelVariable::variable() const {
    return m_comboBox->currentText();
}

// Neither of the two needs the box, which nobody sees.
QStringList ZelVariable::GetVariablesForType(QT_OSTREL_VAR_TYPE vars) {
    ZelVariable hidden(vars, nullptr, true, true);
    hidden.readCatalogue();
    return hidden.m_variables;
}

QHash<QString, QString>* ZelVariable::GetVariablesAndUnitsForType(QT_OSTREL_VAR_TYPE vars) {
    ZelVariable hidden(vars, nullptr, true, true);
    hidden.readCatalogue();
    return hidden.hashedVariables.release();
}

void ZelVariable::setRowColNum(int rowNum, int colNum) {
    rowNumOfWidget = rowNum;
    colNumOfWidget = colNum;
}

void ZelVariable::setSelectionToolTip(QString text) {
    m_comboBox->setToolTip(text);
}

void ZelVariable::setSelectedText(QString text) {
    const int row = m_comboBox->findData(text, Qt::DisplayRole, Qt::MatchCaseSensitive);
    if (row >= 0)
        m_comboBox->setCurrentIndex(row);
}

void ZelVariable::setVariableTypes(QT_OSTREL_VAR_TYPE vars) {
    m_varTypes = vars;
    loadVariables();
}

void ZelVariable::slotChangeIndex(int index) {
    m_comboBox->setCurrentIndex(index);
}

void ZelVariable::loadVariables() {
    if (m_loadedVariables || !readCatalogue())
        return;
    fillBox();
    m_loadedVariables = true;
}

// False without a running store.
bool ZelVariable::readCatalogue() {
    const SYSTEM_ATTRIBUTES* attributes = linkSystemAttributes();
    if (!attributes)
        return false;
    m_variables.clear();
    hashedVariables->clear();
    walkCatalogue(
        m_areas, [this](const CatalogueSection& section) { return isTaken(section); },
        [&](const CatalogueSection& section, void* base) {
            visitRecords(section, base, [&](const auto* records) { takeSection(records, section.count(*attributes)); });
        });
    return true;
}

// Unlike in the selection dialog, arrays need no flag of their own.
bool ZelVariable::isTaken(const CatalogueSection& section) const {
    return m_varTypes == QT_OSTREL_VAR_TYPE(QT_OSTREL_ANY) || (m_varTypes & section.opensFor);
}

template <class Record>
ZelVariable::Units ZelVariable::unitsOf(const Record& record) {
    if constexpr (isOneOf<Record, REAL_VARIABLE, INTEGER_VARIABLE>)
        return {recordText(record.units)};
    else if constexpr (isOneOf<Record, STRING_VARIABLE, STRING_ARRAY_VARIABLE>)
        return {QStringLiteral("String")};
    else if constexpr (isOneOf<Record, LOGICAL_VARIABLE, LOGICAL_ARRAY_VARIABLE>)
        return {QStringLiteral("Logical")};
    else
        return {QStringLiteral("NONE"), false};
}

template <class Record>
void ZelVariable::takeSection(const Record* records, int count) {
    for (int i = 0; i < count; ++i) {
        // Kept: one that is active in another way is listed by the selection dialog alone.
        if (records[i].active != 1)
            continue;
        const QString label = recordText(records[i].label);
        takeAlias(records[i], label);
        takeRecord(records[i], label);
    }
}

// The alias stands before its variable. One of a variable with members has none.
template <class Record>
void ZelVariable::takeAlias(const Record& record, const QString& label) {
    SHARED_MEMORY mem{};
    char* alias = nullptr;
    if (find_alias_of_target(label.toUtf8().data(), &mem, &alias) != 0 || !alias)
        return;
    const QString name = QString::fromUtf8(alias);
    if constexpr (isOneOf<Record, REAL_VARIABLE, INTEGER_VARIABLE, REAL_ARRAY_VARIABLE, INTEGER_ARRAY_VARIABLE>)
        take(name, {unitsBehind(mem)});
    else
        take(name, unitsOf(record));
}

template <class Record>
void ZelVariable::takeRecord(const Record& record, const QString& label) {
    static const QStringList members = membersOf<Record>();
    if (members.isEmpty())
        return take(label, unitsOf(record));
    for (const QString& member : members)
        m_variables.append(label + member);
    hashedVariables->insert(label, unitsOf(record).text);
}

void ZelVariable::take(const QString& name, const Units& units) {
    const bool isNameAlone = m_hideLabels || !units.isShown;
    m_variables.append(isNameAlone ? name : name + QLatin1String(" [") + units.text + QLatin1Char(']'));
    hashedVariables->insert(name, units.text);
}

void ZelVariable::fillBox() {
    m_proxy = new NameOrder(m_comboBox);
    m_proxy->setSortCaseSensitivity(Qt::CaseInsensitive);
    m_comboBox->clear();
    m_comboBox->setEditable(true);
    m_comboBox->setInsertPolicy(QComboBox::InsertAlphabetically);
    auto* completer = new QCompleter(m_comboBox->model(), m_comboBox);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    connect(completer, QOverload<const QString&>::of(&QCompleter::activated), this, &ZelVariable::setSelectedText);
    m_comboBox->setCompleter(completer);
    prepareForManyNames(m_comboBox);
    // As wide as the longest entry, without measuring all of them.
    int longest = 0;
    for (const QString& entry : qAsConst(m_variables))
        longest = std::max(longest, entry.size());
    m_comboBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_comboBox->setMinimumContentsLength(longest);
    m_proxy->fill(QStringList(QString()) + m_variables);
    if (!m_variables.isEmpty())
        m_comboBox->setEnabled(true);
}
