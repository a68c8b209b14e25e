#include "unsavedchanges.h"

#include <ostrel-display/uifilewriter.h>

#include "displaycontrol.h"
#include "hostlink/formwriter.h"
#include "hostlink/globals.h"

namespace {

// An operator who drags a slider in a dialog makes many changes a second.
constexpr int keepAfter = 200;  // ms

QStringList linesOf(const QVector<GroupChange>& changes) {
    QStringList lines;
    for (const GroupChange& change : changes)
        lines.append(lineOf(change));
    return lines;
}

}  // namespace

FormChanges* formChanges() {
    return writer ? writer->findChild<FormChanges*>() : nullptr;
}

UnsavedChanges::UnsavedChanges(const QString& form, DisplayControl* control, QObject* parent)
    : QObject(parent), m_form(form), m_control(control), m_recovery(form) {
    m_timer.setSingleShot(true);
    m_timer.setInterval(keepAfter);
    connect(&m_timer, &QTimer::timeout, this, &UnsavedChanges::keep);
    connect(&m_groups, &GroupBook::renamed, this, &UnsavedChanges::look);
}

UnsavedChanges::~UnsavedChanges() {
    if (m_timer.isActive())
        keep();
}

void UnsavedChanges::formLeaves() {
    m_groups.formLeaves();
}

void UnsavedChanges::formLoaded(QWidget* form, const QByteArray& text, const KeptChanges& kept) {
    ensureFormWriter();  // a form of Qt's own widgets alone has not made it
    propertiesChanged = m_othersChanged = m_discarded = false;
    m_groups.formLoaded(form);
    m_groups.put(kept.groups);
    if (FormChanges* changes = formChanges()) {
        changes->formLoaded(form, text);
        if (!kept.form.isEmpty())
            changes->takeOver(kept.form);
        connect(changes, &FormChanges::changed, this, &UnsavedChanges::changed, Qt::UniqueConnection);
        connect(changes, &FormChanges::changed, &m_timer, qOverload<>(&QTimer::start), Qt::UniqueConnection);
    }
    keep();
    emit changed();
}

bool UnsavedChanges::any() const {
    return count() > 0;
}

int UnsavedChanges::count() const {
    const FormChanges* changes = formChanges();
    return m_discarded ? 0 : (changes ? changes->count() : 0) + m_groups.changes().size() + (m_othersChanged ? 1 : 0);
}

QStringList UnsavedChanges::summary() const {
    const FormChanges* changes = formChanges();
    QStringList lines = (changes ? changes->summary() : QStringList()) + linesOf(m_groups.changes());
    if (m_othersChanged)
        lines.append(tr("a widget with a file of its own"));
    return lines;
}

KeptChanges UnsavedChanges::kept() const {
    const FormChanges* changes = formChanges();
    return {changes && changes->isDirty() ? changes->packed() : QByteArray(), m_groups.changes()};
}

QStringList UnsavedChanges::unplaced() const {
    QStringList lines;
    if (const FormChanges* changes = formChanges())
        changes->appliedTo(changes->text(), &lines);
    return lines + linesOf(m_groups.unplaced());
}

// The groups are saved one by one, so that it is known how each went, and then hear of the saving as all others do.
QStringList UnsavedChanges::saveGroups() {
    const QStringList faults = m_groups.save();
    emit m_control->saveConfig();
    m_groups.look();
    propertiesChanged = m_othersChanged = false;
    return faults;
}

Saving UnsavedChanges::saving(const FormSaving& form, const QStringList& groupFaults) {
    Saving saving{form, groupFaults};
    saving.unplaced += linesOf(m_groups.unplaced());
    keep();
    emit changed();
    return saving;
}

Saving UnsavedChanges::save() {
    const QStringList faults = saveGroups();
    FormChanges* changes = formChanges();
    return saving(changes ? changes->save() : FormSaving(), faults);
}

Saving UnsavedChanges::saveAs(const QString& form) {
    FormChanges* changes = formChanges();
    if (!changes)
        return {{tr("%1: this site's form writer saves under the form's own name only").arg(form), {}, {}, {}, {}}, {}};
    const FormSaving written = changes->saveAs(form);
    if (!written.fault.isEmpty())
        return {written, {}};
    m_recovery.remove();
    m_form = form;
    m_recovery = RecoveryFile(form);
    return saving(written, saveGroups());
}

void UnsavedChanges::discard() {
    m_discarded = true;
    keep();
    emit changed();
}

void UnsavedChanges::look() {
    const bool groups = m_groups.look();
    const bool others = propertiesChanged && !groups && !m_othersChanged;
    m_othersChanged = m_othersChanged || others;
    propertiesChanged = false;
    if (!groups && !others)
        return;
    m_timer.start();
    emit changed();
}

void UnsavedChanges::keep() {
    m_timer.stop();
    const KeptChanges changes = kept();
    if (!changes.isEmpty() && !m_discarded) {
        emit recoveryFailed(!m_recovery.write(changes.packed()));
    } else {
        m_recovery.remove();
        emit recoveryFailed(false);
    }
}
