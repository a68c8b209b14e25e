#include "unsavedchanges.h"

#include <ostrel-display/uifilewriter.h>

#include "hostlink/formwriter.h"
#include "hostlink/globals.h"

namespace {

// An operator who drags a slider in a dialog makes many changes a second.
constexpr int keepAfter = 200;  // ms

}  // namespace

FormChanges* formChanges() {
    return writer ? writer->findChild<FormChanges*>() : nullptr;
}

UnsavedChanges::UnsavedChanges(const QString& form, QObject* parent) : QObject(parent), m_form(form), m_recovery(form) {
    m_timer.setSingleShot(true);
    m_timer.setInterval(keepAfter);
    connect(&m_timer, &QTimer::timeout, this, &UnsavedChanges::keep);
}

UnsavedChanges::~UnsavedChanges() {
    if (m_timer.isActive())
        keep();
}

void UnsavedChanges::formLoaded(QWidget* form, const QByteArray& text, const QByteArray& packed) {
    ensureFormWriter();  // a form of Qt's own widgets alone has not made it
    propertiesChanged = m_groupsChanged = false;
    m_discarded = false;
    FormChanges* changes = formChanges();
    if (!changes)
        return;
    changes->formLoaded(form, text);
    if (!packed.isEmpty())
        changes->takeOver(packed);
    connect(changes, &FormChanges::changed, this, &UnsavedChanges::changed, Qt::UniqueConnection);
    connect(changes, &FormChanges::changed, &m_timer, qOverload<>(&QTimer::start), Qt::UniqueConnection);
    keep();
    emit changed();
}

bool UnsavedChanges::any() const {
    return count() > 0;
}

int UnsavedChanges::count() const {
    const FormChanges* changes = formChanges();
    return m_discarded ? 0 : (changes ? changes->count() : 0) + (propertiesChanged ? 1 : 0);
}

QStringList UnsavedChanges::summary() const {
    const FormChanges* changes = formChanges();
    QStringList lines = changes ? changes->summary() : QStringList();
    if (propertiesChanged)
        lines.append(tr("variables in a group"));
    return lines;
}

FormSaving UnsavedChanges::save() {
    propertiesChanged = false;
    FormChanges* changes = formChanges();
    const FormSaving saving = changes ? changes->save() : FormSaving();
    keep();
    look();
    return saving;
}

FormSaving UnsavedChanges::saveAs(const QString& form) {
    FormChanges* changes = formChanges();
    if (!changes)
        return {tr("%1: this site's form writer saves under the form's own name only").arg(form), {}, {}};
    const FormSaving saving = changes->saveAs(form);
    if (!saving.fault.isEmpty())
        return saving;
    m_recovery.remove();
    m_form = form;
    m_recovery = RecoveryFile(form);
    keep();
    return saving;
}

void UnsavedChanges::discard() {
    m_discarded = true;
    keep();
    emit changed();
}

void UnsavedChanges::look() {
    if (m_groupsChanged == propertiesChanged)
        return;
    m_groupsChanged = propertiesChanged;
    emit changed();
}

void UnsavedChanges::keep() {
    m_timer.stop();
    const FormChanges* changes = formChanges();
    if (changes && changes->isDirty() && !m_discarded) {
        emit recoveryFailed(!m_recovery.write(changes->packed()));
    } else {
        m_recovery.remove();
        emit recoveryFailed(false);
    }
}
