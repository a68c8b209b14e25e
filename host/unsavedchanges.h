// What an operator changed in a form and its groups and has not saved yet.
#ifndef OSTREL_HOST_UNSAVEDCHANGES_H
#define OSTREL_HOST_UNSAVEDCHANGES_H

#include <ostrel-display/formchanges.h>

#include <QObject>
#include <QTimer>

#include "groupbook.h"
#include "keptchanges.h"
#include "recoveryfile.h"

class DisplayControl;

// Of the process's form writer; null before there is one, and where a site's own writer does without.
FormChanges* formChanges();

struct Saving : FormSaving {
    QStringList groupFaults;  // a line for each group file that cannot be written

    bool isComplete() const { return FormSaving::isComplete() && groupFaults.isEmpty(); }
};

class UnsavedChanges : public QObject {
    Q_OBJECT

public:
    // `control` outlives this object.
    UnsavedChanges(const QString& form, DisplayControl* control, QObject* parent = nullptr);
    // What is unsaved then stays in the recovery file.
    ~UnsavedChanges() override;

    // The form that is on show is about to be replaced.
    void formLeaves();
    // The form was built from `text` with the changes of its widgets. Those of its groups are put into them now.
    void formLoaded(QWidget* form, const QByteArray& text, const KeptChanges& kept);

    bool any() const;
    int count() const;
    // A line for each change of a group, and for each other object that was changed.
    QStringList summary() const;
    // To be put into the form when it is built anew.
    KeptChanges kept() const;
    // Lines about those changes that the form and its groups have no place for any more.
    QStringList unplaced() const;

    // Writes them into the form and its groups.
    Saving save();
    Saving saveAs(const QString& form);
    // They are not wanted any more. What the widgets show stays.
    void discard();

    // Sees whether a group on the form has changed.
    void look();

Q_SIGNALS:
    void changed();
    // The recovery file cannot be written, or can again.
    void recoveryFailed(bool failed);

private:
    Saving saving(const FormSaving& form, const QStringList& groupFaults);
    QStringList saveGroups();
    void keep();

    QString m_form;
    DisplayControl* m_control;
    GroupBook m_groups;
    RecoveryFile m_recovery;
    QTimer m_timer;
    bool m_othersChanged = false;  // something that has a file of its own and is no group of this display
    bool m_discarded = false;
};

#endif
