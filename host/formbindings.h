// The bound widgets of a form: how many have their variable, and telling them that the store has changed.
#ifndef OSTREL_HOST_FORMBINDINGS_H
#define OSTREL_HOST_FORMBINDINGS_H

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include "cellstate.h"

class OstrelBase;
class OstrelGblConfigEvent;

struct BindingCount {
    int bound = 0;
    QStringList missing;       // names that the store does not know, one entry for each widget
    QStringList missingFiles;  // group files that cannot be read, one entry for each group
};

class FormBindings : public QObject {
    Q_OBJECT

public:
    // `built` is the state of the cell in which the form's widgets looked for their variables.
    FormBindings(QWidget* form, const CellState& built, QObject* parent = nullptr);

    // Another form takes the place of the former one.
    void setForm(QWidget* form, const CellState& built);

    // Gives widgets, by object name, the units that the form asks for. A widget takes its variable's own units whenever
    // it binds to another variable, also while its form loads, so the form's units come after the form.
    void applyUnits(const QHash<QString, QString>& unitsOfObjects);

    BindingCount count() const;

    // Lets the timers and events of the form run once there is a store, and binds every widget again when the store was
    // configured anew or another one has taken its place.
    void follow(const CellState& state);

Q_SIGNALS:
    // There is a store, for the first time.
    void storeUsable();

private:
    QList<OstrelBase*> widgets() const;
    void useStore();
    void bindAgain();
    void pause(short area);

    QPointer<QWidget> m_form;
    CellState m_bound;  // the state in which the widgets were bound last
    OstrelGblConfigEvent* m_reconfigurations = nullptr;
};

#endif
