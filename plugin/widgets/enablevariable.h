// The logical variable that enables a button and disables it.
#ifndef OSTREL_WIDGETS_ENABLEVARIABLE_H
#define OSTREL_WIDGETS_ENABLEVARIABLE_H

#include <ostrel/records.h>

#include <QString>

class QWidget;

// It holds a pointer into the store from one reconfiguration to the next. A name that the store does not know, or whose
// variable is no logical one, leaves the button as it is and the former variable in force: Kept, forms rely on it.
class EnableVariable {
public:
    // Enables `button`; keeps its name in `name`. All outlive it, the counters are the store's.
    EnableVariable(QWidget* button, QString* name, const RECONFIG_DATA* counters);

    // An empty name enables the button for good. False where the store does not know the name.
    bool setName(const QString& name);
    // No variable, and no name.
    void forget();
    // Enables the button by the variable's present value. A name whose record the store may have moved or taken away
    // meanwhile is looked up again.
    void follow();

private:
    bool find();
    void findInForce();
    void apply();

    QWidget* m_button;
    QString* m_name;
    const RECONFIG_DATA* m_counters;
    int m_count = 0;  // of reconfigurations at the last look-up
    SHARED_MEMORY m_handle{};
    const LOGICAL_VARIABLE* m_record = nullptr;
    QString m_inForce;  // name of the variable of m_record, which is not always that of the name
};

#endif
