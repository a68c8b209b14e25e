// Unsaved changes of a form in a file beside it, so that they outlive a display that dies.
#ifndef OSTREL_HOST_RECOVERYFILE_H
#define OSTREL_HOST_RECOVERYFILE_H

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <optional>

// Each display has a file of its own, named after form, machine and process: ".FORM.ui.unsaved-MACHINE-PID-START".
class RecoveryFile {
public:
    explicit RecoveryFile(const QString& form);

    // False where it cannot be written: the folder is read-only or full.
    bool write(const QByteArray& changes) const;
    void remove() const;

private:
    QString m_path;
};

struct FoundRecovery {
    QString path;
    QDateTime written;
    QByteArray changes;
};

// What the display of this form left that died last, on this machine. Displays that live keep theirs.
std::optional<FoundRecovery> findRecovery(const QString& form);

#endif
