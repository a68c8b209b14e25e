// What the display asks and tells an operator about unsaved changes. Each waits for its answer.
#ifndef OSTREL_HOST_QUESTIONS_H
#define OSTREL_HOST_QUESTIONS_H

#include <QDateTime>
#include <QString>
#include <QStringList>

class QWidget;

enum class ClosingAnswer { Save, Discard, Cancel };
ClosingAnswer askClosing(QWidget* window, const QString& form, const QStringList& changes);

bool askRevert(QWidget* window, const QString& form, const QStringList& changes);

struct RecoveryOffer {
    QString form;
    QDateTime written;
    QStringList changes;
    QStringList unplaced;   // the form has no place for them any more
    QDateTime formChanged;  // valid when somebody has saved the form since
};
enum class RecoveryAnswer { Restore, Discard, Later };
RecoveryAnswer askRecovery(const RecoveryOffer& offer);

// True when the operator wants to save under another name instead.
bool tellSavingFailed(QWidget* window, const QString& fault);
// A line for each group.
void tellGroupsNotSaved(QWidget* window, const QStringList& faults);
// What saving or reloading could not do as everybody may expect; says nothing where there is nothing to say.
void tellMerged(QWidget* window, const QStringList& unplaced, const QStringList& overwritten,
                const QStringList& refused = {}, const QString& remark = {});
// Of a commit; a line for each value.
void tellRefused(QWidget* window, const QStringList& lines);
// What a file of staged values is wrong with, or has too much.
void tellValuesNotLoaded(QWidget* window, const QString& fault);
void tellValuesNotSaved(QWidget* window, const QString& fault);
void tellValuesLeft(QWidget* window, const QStringList& variables);
void tellNotBuilt(QWidget* window, const QString& fault);

#endif
