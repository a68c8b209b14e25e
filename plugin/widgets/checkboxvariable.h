// The logical variable that the check box of a group switches.
#ifndef OSTREL_WIDGETS_CHECKBOXVARIABLE_H
#define OSTREL_WIDGETS_CHECKBOXVARIABLE_H

#include <ostrel/records.h>

#include <QString>

// It holds a pointer into the store from one reconfiguration to the next.
class CheckBoxVariable {
public:
    // Looks the name up; false, and no variable from then on, where the store has no logical one of that name.
    bool find(const QString& name);
    // No variable, and no name.
    void forget();
    // Looks the name up again where the store was reconfigured since, or where it had no such variable. True if it did.
    bool follow();

    bool isFound() const { return m_record; }
    bool isOn() const { return m_record && m_record->value != 0; }
    // Stores the state plainly: no time, no event. False where nothing was stored: without a variable, and where the
    // platform library keeps the store and the cell's rule, a read-only mapping, a remote display or a designer forbid
    // it.
    bool store(bool on);

private:
    QString m_name;
    LOGICAL_VARIABLE* m_record = nullptr;
    const RECONFIG_DATA* m_counters = nullptr;
    int m_count = 0;  // of reconfigurations at the last look-up
};

#endif
