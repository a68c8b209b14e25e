#include "widgets/logicalbutton.h"

#include <ostrel/store.h>

#include <QLabel>

#include "fabric/timermoderator.h"
#include "variables/logicalstate.h"
#include "variables/namechoice.h"
#include "variables/names.h"
#include "variables/notfoundmark.h"
#include "variables/recordtext.h"
#include "widgets/enablevariable.h"

LogicalButton::LogicalButton(QWidget* parent) : OstrelBase(parent) {}

LogicalButton::~LogicalButton() = default;

void LogicalButton::startAs(const QString& name, const Parts& parts) {
    m_parts = parts;
    m_mark = std::make_unique<NotFoundMark>(parts.icon, parts.tipOwners);
    m_enable = std::make_unique<EnableVariable>(parts.button, &_enableVariableName, Reconfig_data);
    _initFlag = false;
    _updateRate = 1000;
    _llastValue = false;
    _oldName = notSet;
    _varType = QT_OSTREL_LOGICAL;
    className.append(name);
    if (!RemoteDisplay)
        removeAction(changeUnitsAction);
}

// ---- Binding ----

LogicalButton::Binding LogicalButton::bind(const QString& name) {
    const NameChoice choice = chooseName(name, _name, acceptVariable(name, {LOGI_TYPE}));
    m_mark->show(choice.isMissing);
    m_boundAt = Reconfig_data->generic_reconfig_count;
    const VAR_FIND_STATUS status = setupVariable(choice.name);
    const LOGICAL_VARIABLE* const bound = status == VARIABLE_NOTFOUND ? nullptr : record();
    m_variable = bound ? recordText(bound->label) : QString();
    const bool isRebound = status == VARIABLE_CHANGED || (status == VARIABLE_FOUND && lptr != _ptr);
    if (isRebound)
        rebind();
    else
        m_parts.name->setText(_name);
    return {status, choice.name, isRebound};
}

void LogicalButton::rebind() {
    TimerModerator::releaseFromTimer(this);
    if (const LOGICAL_VARIABLE* const bound = record()) {
        viewRecord();
        m_parts.name->setText(_name);
        _llastValue = bound->value != 0;
        svalue = stateText(*bound, _llastValue);
        m_parts.value->setText(svalue.trimmed());
    } else {
        // The name has become that of a variable of another kind, which has no state.
        m_parts.value->setText(QStringLiteral("-"));
    }
    TimerModerator::requestTimer(this, getSampleRate());
}

void LogicalButton::showNothing() {
    m_parts.value->setText(QStringLiteral("-"));
}

void LogicalButton::showBinding(const Binding& binding) {
    updateUIName(binding.status, binding.name, false);
    resize(size());
}

// ---- The variable ----

LOGICAL_VARIABLE* LogicalButton::record() const {
    return _mem.vari_type == LOGI_TYPE ? static_cast<LOGICAL_VARIABLE*>(_ptr) : nullptr;
}

LOGICAL_VARIABLE* LogicalButton::recordToWrite() {
    lptr = record();
    return lptr && m_boundAt != Reconfig_data->generic_reconfig_count ? recordOf(m_variable) : lptr;
}

LOGICAL_VARIABLE* LogicalButton::recordOf(const QString& variable) {
    SHARED_MEMORY mem{};
    if (find_variable(variable.toLatin1().data(), &mem) != 0 || mem.vari_type != LOGI_TYPE)
        return nullptr;
    return static_cast<LOGICAL_VARIABLE*>(get_vrbl_adr(mem));
}

void LogicalButton::showState(const LOGICAL_VARIABLE& record) {
    const bool on = record.value != 0;
    if (takeStateText(record, on, &svalue))
        m_parts.value->setText(svalue.trimmed());
    _llastValue = on;
}

void LogicalButton::handleWriteValue(QObject*) {
    if (LOGICAL_VARIABLE* const bound = recordToWrite())
        set_logical_variable(bound, bound->value != 0 ? 0 : 1, 0, nullptr);
}

// ---- What the form gives ----

QFont LogicalButton::getNameFont() const {
    return m_parts.name->font();
}

void LogicalButton::setNameFont(const QFont& font) {
    m_parts.name->setFont(font);
    m_parts.value->setFont(font);
    rememberFont("nameFont", font);
}

void LogicalButton::setEnableVariableName(const QString& name) {
    if (m_enable->setName(name))
        remember("enableVariableName", name);
}

QString LogicalButton::getToolTip() const {
    return m_mark->toolTip();
}

void LogicalButton::setToolTipString(const QString& toolTip) {
    _toolTip = toolTip;
    m_mark->setToolTip(toolTip);
    remember("toolTip", toolTip);
}
