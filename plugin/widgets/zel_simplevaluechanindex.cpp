#include "widgets/zel_simplevaluechanindex.h"

#include <ostrel/store.h>

#include <QDebug>
#include <QPointer>
#include <array>
#include <utility>

#include "selection/channelindexselectiondialog.h"
#include "variables/recordtext.h"
#include "widgets/indexuimanager.h"

namespace {

constexpr int noChannel = -999;

// The groups of channels by their titles. Kept in capitals: the dialog shows its groups in mixed case, so a choice
// moves the index inside the present area only.
const std::array<std::pair<const char*, int>, 6> areas{{
    {"ANALOG INPUTS", AI_REAL_MEM},
    {"FREQUENCY INPUTS (engineering units)", FI_REAL_MEM},
    {"COUNTER INPUTS (engineering units)", CI_REAL_MEM},
    {"COUNTER INPUTS (counts)", CI_INTG_MEM},
    {"DIGITAL INPUT LOGICAL VARIABLES", DI_LOGI_MEM},
    {"DIGITAL OUTPUT LOGICAL VARIABLES", DO_LOGI_MEM},
}};

// The counts of channels, linked when first asked for, and again after each reconfiguration: the next generation of a
// store has counts of its own.
const SYSTEM_ATTRIBUTES* systemAttributes(int reconfigurations) {
    static SYSTEM_ATTRIBUTES* attributes = nullptr;
    static int linkedAt = 0;
    if (attributes && linkedAt == reconfigurations)
        return attributes;
    const bool wasLinked = attributes;
    void* base = nullptr;
    attributes = link_to_memory(SYS_ATTR_MEM, &base) == 0 ? static_cast<SYSTEM_ATTRIBUTES*>(base) : nullptr;
    linkedAt = reconfigurations;
    if (wasLinked)
        fre_shrd_mem(SYS_ATTR_MEM);
    return attributes;
}

}  // namespace

ZelSimpleValueChanIndex::ZelSimpleValueChanIndex(QWidget* parent)
    : SimpleValueBase(parent), ui(std::make_unique<IndexUiManager>(this)) {
    useParts(*ui);
    setHorizontal(false);
    startAs(QStringLiteral("ZelSimpleValueChanIndex"));
    _varType = QT_OSTREL_IO_MEM;
    if (!RemoteDisplay)
        for (QAction* action : {changeVariableAction, copyVariableName, pasteVariableName, disableAction})
            removeAction(action);
    changeChannelIndexAction = new QAction(tr("Change Channel Index"), this);
    connect(changeChannelIndexAction, &QAction::triggered, this, &ZelSimpleValueChanIndex::changeChanIndex);
    if (!RemoteDisplay)
        addAction(changeChannelIndexAction);
}

ZelSimpleValueChanIndex::~ZelSimpleValueChanIndex() = default;

// ---- The place ----

void ZelSimpleValueChanIndex::setMemCode(int sm_code) {
    switch (sm_code) {
        case AI_REAL_MEM:
        case FI_REAL_MEM:
        case CI_REAL_MEM:
            _memVariType = REAL_TYPE;
            break;
        case CI_INTG_MEM:
            _memVariType = INT_TYPE;
            break;
        case DI_LOGI_MEM:
        case DO_LOGI_MEM:
            _memVariType = LOGI_TYPE;
            break;
        default:
            break;
    }
    _memCode = sm_code;
    ba.setBit(0);
    remember("memCode", sm_code);
    bindWhenPlaced();
}

void ZelSimpleValueChanIndex::setMemIndex(int sm_index) {
    _memIndex = sm_index;
    ba.setBit(1);
    remember("memIndex", sm_index);
    bindWhenPlaced();
}

void ZelSimpleValueChanIndex::bindWhenPlaced() {
    if (ba.count(true) != ba.size())
        return;
    setVariableInformation();
    isInitialized = true;
}

int ZelSimpleValueChanIndex::getLogicalNumVars(int sm_code) const {
    const SYSTEM_ATTRIBUTES* attributes = systemAttributes(Reconfig_data->generic_reconfig_count);
    if (!attributes)
        return 0;
    switch (sm_code) {
        case AI_REAL_MEM:
            return attributes->logical_num_ai;
        case CI_INTG_MEM:
        case CI_REAL_MEM:
            return attributes->logical_num_ci;
        case FI_REAL_MEM:
            return attributes->logical_num_fi;
        case DI_LOGI_MEM:
            return attributes->logical_num_di;
        case DO_LOGI_MEM:
            return attributes->num_do;
        default:
            return 0;
    }
}

// ---- Binding ----

void ZelSimpleValueChanIndex::setName(const QString&) {
    setVariableInformation();
}

void ZelSimpleValueChanIndex::setVariableInformation() {
    _mem.code = static_cast<SM_AREA_ID>(_memCode);
    _mem.index = static_cast<short>(_memIndex);
    _mem.vari_type = static_cast<SM_VARI_TYPE>(_memVariType);
    const void* address = get_vrbl_adr(_mem);
    const int limit = getLogicalNumVars(_mem.code);
    if (_memVariType != REAL_TYPE && _memVariType != INT_TYPE && _memVariType != LOGI_TYPE)
        qDebug("NOT FOUND LABEL");
    const QString label = address && _mem.index < limit ? labelAt(address) : QString();
    ui->name->setText(label);
    unitsChanged = true;
    setNameChanIndex(label);
}

QString ZelSimpleValueChanIndex::labelAt(const void* address) const {
    switch (_memVariType) {
        case REAL_TYPE:
            return recordText(static_cast<const REAL_VARIABLE*>(address)->label);
        case INT_TYPE:
            return recordText(static_cast<const INTEGER_VARIABLE*>(address)->label);
        case LOGI_TYPE:
            return recordText(static_cast<const LOGICAL_VARIABLE*>(address)->label);
        default:
            return QString();
    }
}

void ZelSimpleValueChanIndex::setNameChanIndex(const QString& name) {
    bind(name);
}

void ZelSimpleValueChanIndex::bound() {
    // Kept: states and texts show no limits here.
    if (_mem.vari_type == LOGI_TYPE || _mem.vari_type == STRING_ARRAY_TYPE || _mem.vari_type == LOGI_ARRAY_TYPE)
        limit_status = nullptr;
    ui->lcdNumber->display(_memIndex);
}

void ZelSimpleValueChanIndex::unbound() {
    ui->lcdNumber->display(noChannel);
}

// ---- Looks ----

void ZelSimpleValueChanIndex::setHorizontal(bool horizontal) {
    m_horizontal = horizontal;
    ui->setupUi(horizontal);
    remember("horizontal", horizontal);
    placed();
}

void ZelSimpleValueChanIndex::setSegmentStyle(const SegmentStyle& style) {
    if (style == m_segmentStyle)
        return;
    m_segmentStyle = style;
    switch (style) {
        case Outline:
            ui->lcdNumber->setSegmentStyle(QLCDNumber::Outline);
            break;
        case Filled:
            ui->lcdNumber->setSegmentStyle(QLCDNumber::Filled);
            break;
        default:
            ui->lcdNumber->setSegmentStyle(QLCDNumber::Flat);
            break;
    }
    remember("segmentStyle", static_cast<int>(style));
}

void ZelSimpleValueChanIndex::changeChanIndex() {
    // The dialog goes with the widget, should the form be closed under it.
    const QPointer<ChannelIndexSelectionDialog> dialog = new ChannelIndexSelectionDialog(this, _varType, _name);
    changeVar = dialog;
    const bool isAccepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return;
    const QString group = dialog->getSelectedVariableTypeText();
    bool isChannel = false;
    const int index = dialog->getSelectedChannelIndexNumber().toInt(&isChannel);
    delete dialog;
    // A catalogue without channels leaves nothing to choose.
    if (!isAccepted || group.isEmpty() || !isChannel)
        return;
    for (const auto& [title, code] : areas)
        if (group == QLatin1String(title))
            setMemCode(code);
    setMemIndex(index);
    setVariableInformation();
}

void ZelSimpleValueChanIndex::changeEvent(QEvent* event) {
    takeParentColor(event);
}

// ---- Sampling ----

void ZelSimpleValueChanIndex::ostrelTimerEvent(int interval) {
    takeTick(interval);
}

void ZelSimpleValueChanIndex::sample(bool startup) {
    sampleValue(startup);
}

void ZelSimpleValueChanIndex::sample() {
    sampleValue(false);
}

void ZelSimpleValueChanIndex::tellName(const QString& name) {
    Q_EMIT nameChanged(name, m_row, m_col);
}
