// From a name to a record: the store's look-up, aliases, members, and what a reconfiguration changes.
#include <ostrel-display/uifilewriter.h>
#include <ostrel/store.h>

#include <QRegularExpression>
#include <cstring>
#include <utility>

#include "core/ostrelbase.h"
#include "fabric/timermoderator.h"
#include "variables/names.h"
#include "variables/recordtext.h"

namespace {

bool findVariable(const QString& name, SHARED_MEMORY* mem) {
    return find_variable(name.toLatin1().data(), mem) == 0;
}

bool findAliasOfTarget(const QString& target, char** alias) {
    SHARED_MEMORY mem{};
    return find_alias_of_target(target.toLatin1().data(), &mem, alias) == 0;
}

bool isArray(SM_VARI_TYPE kind) {
    return kind >= REAL_ARRAY_TYPE && kind <= LOGI_ARRAY_TYPE;
}

// Whether variables of that kind are named with a part of them behind their label.
bool hasParts(SM_VARI_TYPE kind) {
    return isArray(kind) || kind == STAT_TYPE || kind == COMP_TYPE || kind == PROP_TYPE || kind == EMIS_TYPE;
}

// What the store finds under that name, written out where it is an alias.
QString writtenOut(const QString& name) {
    SHARED_MEMORY mem{};
    short index = 0;
    if (find_alias_label(name.toLatin1().data(), &mem, &index) != 0 || mem.vari_type != ALIAS_TYPE)
        return name;
    const auto* alias = static_cast<const ALIAS_VARIABLE*>(get_vrbl_adr(mem));
    return alias ? recordText(alias->var.label) : name;
}

// The label with the member or the index behind it that the name has.
QString withPartOf(const QString& name, const QString& label) {
    static const QRegularExpression mark(QStringLiteral("[.:]"));
    const int part = name.indexOf(mark);
    if (part < 0)
        return label;
    return label.endsWith(name[part]) ? label + name.mid(part + 1) : label + name.mid(part);
}

bool isSamePart(const SHARED_MEMORY& one, const SHARED_MEMORY& other) {
    return one.offset == other.offset && one.member_adr == other.member_adr;
}

const QString noLabel = QStringLiteral("unsupported");

template <class Record>
const Record* recordAt(const void* address) {
    return static_cast<const Record*>(address);
}

}  // namespace

short OstrelBase::configureSharedMem(char* label) {
    _mem = SHARED_MEMORY{};
    _status = find_variable(label, &_mem);
    if (_status != 0)
        return _status;
    _ptr = get_vrbl_adr(_mem);
    if (isArray(_mem.vari_type) && _ptr && !_mem.member_adr) {
        QByteArray array(label, static_cast<int>(std::strcspn(label, ":?")));
        _mem.member_adr = link_to_array_mem(array.data(), nullptr);
    }
    if (const char* point = std::strchr(label, '.')) {
        _member_adr = _mem.member_adr;
        copyText(_varMember, QByteArray(point + 1));
    }
    return _status;
}

VAR_FIND_STATUS OstrelBase::setupVariable(const QString& name) {
    QString shownName = name;   // what _name becomes
    QString wantedName = name;  // what _backupName becomes
    QString localName = name;   // what is looked up
    VAR_FIND_STATUS result = VARIABLE_NOTFOUND;
    const bool wasUnbound = !_ptr;

    const auto finish = [&] {
        _backupName = wantedName;
        _oldName = _name;
        _name = shownName;
        // A form gives the units first, and then the name of the variable that is to be shown in them. A host gives the
        // units once more; a designer would save the form without them.
        m_unitsOfForm = inDesigner && wasUnbound && result == VARIABLE_CHANGED ? getUnits() : QString();
        // A new variable starts in its own units.
        if (_oldName != _name && result == VARIABLE_CHANGED)
            setUnits(QString());
        return result;
    };
    const auto keepWish = [&] {
        if (_backupName != notSet)
            wantedName = _backupName;
    };

    if (name == notSet) {
        _mem = SHARED_MEMORY{};
        clearOstrelPtrs();
        TimerModerator::releaseFromTimer(this, flashInterval);
        return finish();
    }

    SHARED_MEMORY found{};
    if (findVariable(name, &found)) {
        short index = 0;
        SHARED_MEMORY alias{};
        if (find_alias_label(name.toLatin1().data(), &alias, &index) != 0 && !inDesigner)
            _real_name = name;
    } else if (_real_name == notSet || !findVariable(_real_name, &found)) {
        if (_real_name != notSet)
            localName = _real_name;
        if (!_initFlag) {
            _name = localName;
            _backupName = localName;
        }
        if (localName.isEmpty())
            return VARIABLE_NOTFOUND;
        // Such a handle belongs to no area, so only a change of the aliases or of everything concerns it.
        _mem.code = static_cast<SM_AREA_ID>(-1);
        return finish();
    }

    // Names longer than a label cannot come from the store.
    const QByteArray ownName = localName.toLatin1().left(79);
    if (!_displayAlias) {
        if (findVariable(shownName, &found)) {
            if (_real_name != notSet)
                shownName = localName = _real_name;
            else
                shownName = ownNameOf(shownName, &found);
            keepWish();
        }
    } else if (!inDesigner) {
        char* alias = nullptr;
        const auto aliasOr = [&](const QByteArray& other) {
            const int length = alias ? static_cast<int>(strnlen(alias, sizeof(ALIAS_VARIABLE::alias))) : 0;
            return alias ? QString::fromUtf8(alias, length) : QString::fromLatin1(other);
        };
        if (findAliasOfTarget(localName, &alias)) {
            shownName = aliasOr(ownName);
            keepWish();
            if (localName != shownName) {
                _real_name = localName;
                localName = shownName;
            }
        } else if (localName != _real_name && findAliasOfTarget(_real_name, &alias)) {
            shownName = aliasOr(ownName);
            localName = _real_name;
            keepWish();
        }
    }

    const void* oldptr = _ptr;
    const SHARED_MEMORY oldmem = _mem;
    if (configureSharedMem(localName.toLatin1().data()) == 0 && _ptr) {
        // Two parts of one record share its address: handles and names tell them apart. The same part under the same
        // name is no other variable, whatever its own name is.
        const bool isSame = isSamePart(_mem, oldmem);
        const bool changed = _ptr != oldptr || !isSame || (_name != shownName && namesDifferInMember());
        result = changed ? VARIABLE_CHANGED : VARIABLE_FOUND;
    }
    return finish();
}

// A form that is being designed is saved with this name, so it must lead to the same part again.
QString OstrelBase::ownNameOf(const QString& name, SHARED_MEMORY* mem) const {
    const QString label = getNameFromShmem(mem);
    if (!hasParts(mem->vari_type))
        return label;
    return label == noLabel ? name : withPartOf(writtenOut(name), label);
}

bool OstrelBase::namesDifferInMember() const {
    static const QRegularExpression separator(QStringLiteral("[.:]"));
    QStringList shown = _name.split(separator);
    QStringList own = _real_name.split(separator);
    shown.removeFirst();
    own.removeFirst();
    return shown != own;
}

void OstrelBase::updateUIName(VAR_FIND_STATUS status, const QString& name, bool FORCE) {
    if (_name == _oldName || name.isEmpty())
        return;
    if (!(FORCE && !_first_write) && status != VARIABLE_CHANGED && name != notSet)
        return;
    remember("name", name);
    SHARED_MEMORY found{};
    if (!_first_write && findVariable(name, &found))
        _first_write = true;
}

QString OstrelBase::getNameFromShmem(SHARED_MEMORY* mem) const {
    const void* record = get_vrbl_adr(*mem);
    if (!record)
        return noLabel;
    switch (mem->vari_type) {
        case REAL_TYPE:
            return recordText(recordAt<REAL_VARIABLE>(record)->label);
        case INT_TYPE:
            return recordText(recordAt<INTEGER_VARIABLE>(record)->label);
        case LOGI_TYPE:
            return recordText(recordAt<LOGICAL_VARIABLE>(record)->label);
        case STRG_TYPE:
        case STRING_TYPE:
            return recordText(recordAt<STRING_VARIABLE>(record)->label);
        case SIGNAL_TYPE:
            return recordText(*reinterpret_cast<const char(*)[80]>(recordAt<char>(record) + 2));
        case STAT_TYPE:
            return recordText(recordAt<STAT_VARIABLE>(record)->label);
        case COMP_TYPE:
            return recordText(recordAt<COMP_VARIABLE>(record)->label);
        case PROP_TYPE:
            return recordText(recordAt<PROP_VARIABLE>(record)->label);
        case EMIS_TYPE:
            return recordText(recordAt<EMIS_VARIABLE>(record)->label);
        case ALIAS_TYPE:
            return recordText(recordAt<ALIAS_VARIABLE>(record)->alias);
        case REAL_ARRAY_TYPE:
        case INT_ARRAY_TYPE:
        case STRING_ARRAY_TYPE:
            return recordText(recordAt<REAL_ARRAY_VARIABLE>(record)->label);
        default:
            return noLabel;
    }
}

void OstrelBase::clearOstrelPtrs() {
    _ptr = nullptr;
    m_viewedRecord = nullptr;
    sptr = nullptr;
    eptr = nullptr;
    cptr = nullptr;
    iptr = nullptr;
    lptr = nullptr;
    strptr = nullptr;
    raptr = nullptr;
    iaptr = nullptr;
    saptr = nullptr;
    laptr = nullptr;
    prptr = nullptr;
    iamptr = nullptr;
    samptr = nullptr;
    lamptr = nullptr;
}

void OstrelBase::clearMem() {
    _mem = SHARED_MEMORY{};
    clearOstrelPtrs();
}

bool OstrelBase::ptrToOstrelVarChanged() const {
    if (!rptr)
        return false;
    switch (_mem.vari_type) {
        case REAL_TYPE:
            return rptr != _ptr;
        case INT_TYPE:
            return iptr != _ptr;
        case LOGI_TYPE:
            return lptr != _ptr;
        case STRING_TYPE:
            return strptr != _ptr;
        case STAT_TYPE:
            // Kept the other way round: a statistics variable binds anew each time it is named again.
            return sptr == _ptr;
        case COMP_TYPE:
            return cptr != _ptr;
        case PROP_TYPE:
            return prptr != _ptr;
        case EMIS_TYPE:
            return eptr != _ptr;
        case REAL_ARRAY_TYPE:
            return static_cast<void*>(ramptr) != _ptr;
        case INT_ARRAY_TYPE:
            return static_cast<void*>(iamptr) != _ptr;
        case STRING_ARRAY_TYPE:
            return static_cast<void*>(samptr) != _ptr;
        case LOGI_ARRAY_TYPE:
            return static_cast<void*>(lamptr) != _ptr;
        default:
            return false;
    }
}

bool OstrelBase::isBoundElsewhere() const {
    return ptrToOstrelVarChanged() || _ptr != m_viewedRecord || !isSamePart(_mem, m_viewedPart);
}

void OstrelBase::takeMemberFormat(const char* format) {
    if (format)
        copyText(formatString, QByteArray(format, static_cast<int>(strnlen(format, sizeof(formatString)))));
}

RecordView OstrelBase::viewRecord() {
    RecordView view;
    view.known = true;
    m_viewedRecord = _ptr;
    m_viewedPart = _mem;
    if (!m_unitsOfForm.isEmpty())
        setUnits(std::exchange(m_unitsOfForm, QString()));
    switch (_mem.vari_type) {
        case REAL_TYPE:
            rptr = static_cast<REAL_VARIABLE*>(_ptr);
            view.units = &rptr->units;
            view.limits = &rptr->limit_status;
            break;
        case INT_TYPE:
            iptr = static_cast<INTEGER_VARIABLE*>(_ptr);
            view.units = &iptr->units;
            view.limits = &iptr->limit_status;
            break;
        case LOGI_TYPE:
            lptr = static_cast<LOGICAL_VARIABLE*>(_ptr);
            view.limits = &lptr->limit_status;
            break;
        case STRING_TYPE:
            strptr = static_cast<STRING_VARIABLE*>(_ptr);
            break;
        case STAT_TYPE:
            sptr = static_cast<STAT_VARIABLE*>(_ptr);
            view.limits = &sptr->limit_status;
            takeMemberFormat(get_stat_format(sptr, _mem.stat_member));
            break;
        case COMP_TYPE:
            cptr = static_cast<COMP_VARIABLE*>(_ptr);
            view.limits = &cptr->limit_status;
            takeMemberFormat(get_comp_format(cptr, _mem.comp_member));
            break;
        case PROP_TYPE:
            prptr = static_cast<PROP_VARIABLE*>(_ptr);
            view.limits = &prptr->limit_status;
            takeMemberFormat(get_prop_format(prptr, _mem.prop_member));
            break;
        case EMIS_TYPE:
            eptr = static_cast<EMIS_VARIABLE*>(_ptr);
            view.limits = &eptr->limit_status;
            takeMemberFormat(get_emis_format(eptr, _mem.emis_member));
            break;
        case REAL_ARRAY_TYPE:
            raptr = static_cast<REAL_ARRAY_VARIABLE*>(_ptr);
            ramptr = get_real_array_adr(raptr, &_mem);
            if (ramptr) {
                view.units = &ramptr->units;
                view.limits = &ramptr->limit_status;
            }
            break;
        case INT_ARRAY_TYPE:
            iaptr = static_cast<INTEGER_ARRAY_VARIABLE*>(_ptr);
            iamptr = get_integer_array_adr(iaptr, &_mem);
            if (iamptr) {
                view.units = &iamptr->units;
                view.limits = &iamptr->limit_status;
            }
            break;
        case STRING_ARRAY_TYPE:
            saptr = static_cast<STRING_ARRAY_VARIABLE*>(_ptr);
            samptr = get_string_array_adr(saptr, &_mem);
            view.limits = samptr ? &samptr->limit_status : nullptr;
            break;
        case LOGI_ARRAY_TYPE:
            laptr = static_cast<LOGICAL_ARRAY_VARIABLE*>(_ptr);
            lamptr = get_logical_array_adr(laptr, &_mem);
            view.limits = lamptr ? &lamptr->limit_status : nullptr;
            break;
        default:
            view.known = false;
            break;
    }
    return view;
}

void OstrelBase::globalConfigEvent(short newState, short memCode) {
    if (newState == 1) {
        const short area = static_cast<short>(_mem.code);
        if (area == UNDEFINED || area == memCode || memCode == ALIAS_MEM || memCode == -1)
            _cfg_in_progress = true;
    } else if (newState == 0) {
        Ostrel_Plugins_Master_variables_dirty = true;
        if (_cfg_in_progress)
            endReconfiguration();
    }
}

void OstrelBase::endReconfiguration() {
    const QString name = _real_name.isEmpty() || _real_name == notSet ? _name : _real_name;
    const bool wasUnbound = !_ptr;
    const QString unitsAskedFor = getUnits();
    const bool cameBack = setupVariable(name) != VARIABLE_NOTFOUND && wasUnbound;
    // The widget must rebuild what setName() rebuilds for a new variable, and keep the units that the form asked for:
    // they go where the variable comes back under its alias, having been missed under its own name.
    if (cameBack) {
        if (getUnits() != unitsAskedFor)
            setUnits(unitsAskedFor);
        unitsChanged = true;
    }
    setName(name);
    if (cameBack && followsTimer && _ptr && !TimerModerator::isRegistered(this, getSampleRate())) {
        updateFirst_ = true;
        TimerModerator::requestTimer(this, getSampleRate());
    }
    _cfg_in_progress = false;
}
