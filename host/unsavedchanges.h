// What an operator changed in a form and has not saved yet.
#ifndef OSTREL_HOST_UNSAVEDCHANGES_H
#define OSTREL_HOST_UNSAVEDCHANGES_H

#include <ostrel-display/formchanges.h>

#include <QObject>
#include <QTimer>

#include "recoveryfile.h"

// Of the process's form writer; null before there is one, and where a site's own writer does without.
FormChanges* formChanges();

class UnsavedChanges : public QObject {
    Q_OBJECT

public:
    explicit UnsavedChanges(const QString& form, QObject* parent = nullptr);
    // What is unsaved then stays in the recovery file.
    ~UnsavedChanges() override;

    // The form was built from `text` and, if there are any, the packed changes.
    void formLoaded(QWidget* form, const QByteArray& text, const QByteArray& packed);

    bool any() const;
    int count() const;
    // A line for each object that was changed.
    QStringList summary() const;

    // Writes them into the form; widgets with a file of their own must have written theirs already.
    FormSaving save();
    FormSaving saveAs(const QString& form);
    // They are not wanted any more. What the widgets show stays.
    void discard();

    // Sees whether a group on the form has changed.
    void look();

Q_SIGNALS:
    void changed();
    // The recovery file cannot be written, or can again.
    void recoveryFailed(bool failed);

private:
    void keep();

    QString m_form;
    RecoveryFile m_recovery;
    QTimer m_timer;
    bool m_groupsChanged = false;
    bool m_discarded = false;
};

#endif
