// What every widget that is bound to a variable promises. A widget takes part by an entry in boundWidgets().
#ifndef OSTREL_TESTS_PLUGIN_BOUNDWIDGETCONTRACT_H
#define OSTREL_TESTS_PLUGIN_BOUNDWIDGETCONTRACT_H

#include <QVector>
#include <QWidget>
#include <functional>

#include "core/ostrelbase.h"

// Occupies the place where a bound widget usually begins, as the other base of a class of a site's own may.
class OtherBase {
public:
    OtherBase() = default;
    virtual ~OtherBase() = default;
    OtherBase(const OtherBase&) = delete;
    OtherBase& operator=(const OtherBase&) = delete;

private:
    long m_room[4] = {};
};

struct BoundWidget {
    const char* name;
    QVector<SM_VARI_TYPE> kinds;  // that it shows; it refuses all others
    std::function<OstrelBase*(QWidget* parent)> make;
    std::function<OstrelBase*()> makeBehindAnotherBase;
    // What an operator sees of the value. It differs between the two states of a variable that the contract makes.
    std::function<QString(const OstrelBase&)> face;
    // The widgets that bear its tool tip and the words of its mark. Without any it has neither.
    std::function<QVector<QWidget*>(OstrelBase&)> tipOwners;
    bool flashes = true;         // follows the flash timer
    bool refuses = true;         // a variable of another kind leaves it as it is
    bool leavesTheTimer = true;  // when its variable is not there
    bool hasTimer = true;        // otherwise it reads its variable when SignalSlotSingleton::readFromOstrel() is raised

    bool hasMark() const { return static_cast<bool>(tipOwners); }
};

template <class Widget>
BoundWidget boundWidget(const char* name) {
    class Second : public OtherBase, public Widget {};
    BoundWidget entry{};
    entry.name = name;
    entry.make = [](QWidget* parent) -> OstrelBase* { return new Widget(parent); };
    entry.makeBehindAnotherBase = []() -> OstrelBase* { return new Second; };
    return entry;
}

// All that take part.
const QVector<BoundWidget>& boundWidgets();

#endif
