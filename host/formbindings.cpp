#include "formbindings.h"

#include <atomic>

#include "core/ostrelbase.h"
#include "fabric/ostrelgblreconfigevent.h"
#include "hostlink/globals.h"
#include "unsavedchanges.h"
#include "widgets/groupbase.h"

namespace {

constexpr short started = 1;
constexpr short ended = 0;
constexpr short allAreas = -1;

bool wantsVariable(const OstrelBase* widget) {
    return !widget->getName().isEmpty() && widget->getName() != QLatin1String("not_set");
}

}  // namespace

FormBindings::FormBindings(QWidget* form, const CellState& built, QObject* parent)
    : QObject(parent), m_form(form), m_bound(built) {}

void FormBindings::setForm(QWidget* form, const CellState& built) {
    m_form = form;
    m_bound = built;
}

QList<OstrelBase*> FormBindings::widgets() const {
    if (!m_form)
        return {};
    QList<OstrelBase*> all = m_form->findChildren<OstrelBase*>();
    if (auto* itself = qobject_cast<OstrelBase*>(m_form.data()))
        all.prepend(itself);
    return all;
}

void FormBindings::applyUnits(const QHash<QString, QString>& unitsOfObjects) {
    for (OstrelBase* widget : widgets()) {
        const QString units = unitsOfObjects.value(widget->objectName());
        if (units.isEmpty())
            continue;
        // Still part of loading: what the form says itself is no change of it.
        const bool live = widget->getInitFlag();
        widget->setInitFlag(false);
        widget->setUnits(units);
        widget->setName(widget->getName());
        widget->setInitFlag(live);
    }
}

BindingCount FormBindings::count() const {
    BindingCount count;
    for (const OstrelBase* widget : widgets()) {
        if (widget->ptr())
            ++count.bound;
        else if (wantsVariable(widget))
            count.missing.append(widget->getName());
    }
    if (m_form)
        for (const QGroupBox* box : m_form->findChildren<QGroupBox*>())
            if (const auto* group = dynamic_cast<const GroupBase*>(box); group && !group->missingFile().isEmpty())
                count.missingFiles.append(group->missingFile());
    return count;
}

void FormBindings::follow(const CellState& state) {
    if (!state.found())
        return;
    const bool isNew = !InitializationDone;
    if (isNew)
        useStore();
    if (!sameConfiguration(state, m_bound))
        bindAgain();
    m_bound = state;
    if (isNew)
        emit storeUsable();
}

void FormBindings::useStore() {
    // Threads that wait for the store read it.
    std::atomic_ref<bool>(InitializationDone).store(true, std::memory_order_release);
    m_reconfigurations = new OstrelGblConfigEvent(static_cast<SM_AREA_ID>(allAreas), nullptr);
    // The widgets are not connected one by one: the thread's queue holds one announcement, so that an end may come
    // without its start, and such an end alone would bind nothing.
    connect(m_reconfigurations, &OstrelGblConfigEvent::gblConfigEvent, this, [this](short state, short area) {
        if (state == started)
            pause(area);
        else
            bindAgain();
    });
    m_reconfigurations->start();
}

void FormBindings::pause(short area) {
    for (OstrelBase* widget : widgets())
        widget->globalConfigEvent(started, area);
}

void FormBindings::bindAgain() {
    // A name or units that a widget takes over from the new store are nobody's edit of the form.
    const FormChanges::Hold hold(formChanges());
    for (OstrelBase* widget : widgets()) {
        widget->globalConfigEvent(started, allAreas);
        widget->globalConfigEvent(ended, allAreas);
    }
}
