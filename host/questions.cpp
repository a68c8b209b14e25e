#include "questions.h"

#include <QCoreApplication>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

namespace {

constexpr int linesShown = 10;

QString words(const char* text) {
    return QCoreApplication::translate("Questions", text);
}

// One below the other, and no more than fit on any screen.
QString listed(const QStringList& lines) {
    QString text;
    for (const QString& line : lines.mid(0, linesShown))
        text += QStringLiteral("\n    ") + line;
    if (lines.size() > linesShown)
        text += QStringLiteral("\n    ") + words("and %1 more").arg(lines.size() - linesShown);
    return text;
}

QString moment(const QDateTime& time) {
    return QLocale().toString(time, words("d MMMM yyyy, HH:mm"));
}

class Question : public QMessageBox {
public:
    Question(QWidget* window, Icon icon, const char* name, const QString& text, const QString& explanation)
        : QMessageBox(icon, words("Form changes"), text, NoButton, window) {
        setObjectName(QLatin1String(name));
        setTextFormat(Qt::PlainText);
        setInformativeText(explanation);
    }

    QPushButton* add(const char* name, const QString& text, ButtonRole role) {
        QPushButton* button = addButton(text, role);
        button->setObjectName(QLatin1String(name));
        return button;
    }

    // The button that was pressed; `escape` where the question was put away.
    const QAbstractButton* ask(QPushButton* usual, QPushButton* escape) {
        setDefaultButton(usual);
        setEscapeButton(escape);
        exec();
        return clickedButton() ? clickedButton() : escape;
    }
};

// About staged values; there is nothing to choose.
void tellOfValues(QWidget* window, QMessageBox::Icon icon, const char* name, const QString& text,
                  const QString& explanation) {
    Question note(window, icon, name, text, explanation);
    note.setWindowTitle(words("Staged values"));
    auto* close = note.add("close", words("Close"), QMessageBox::RejectRole);
    note.ask(close, close);
}

}  // namespace

ClosingAnswer askClosing(QWidget* window, const QString& form, const QStringList& changes) {
    Question question(window, QMessageBox::Question, "closingQuestion",
                      words("Save the changes to \"%1\" before closing?").arg(form),
                      words("Not saved yet:") + listed(changes));
    auto* save = question.add("save", words("&Save"), QMessageBox::AcceptRole);
    auto* discard = question.add("discard", words("Close &without Saving"), QMessageBox::DestructiveRole);
    auto* cancel = question.add("cancel", words("Cancel"), QMessageBox::RejectRole);
    const auto* answer = question.ask(save, cancel);
    return answer == save ? ClosingAnswer::Save : answer == discard ? ClosingAnswer::Discard : ClosingAnswer::Cancel;
}

bool askRevert(QWidget* window, const QString& form, const QStringList& changes) {
    Question question(window, QMessageBox::Question, "revertQuestion",
                      words("Go back to \"%1\" as it was saved last?").arg(form),
                      words("These changes will be lost:") + listed(changes));
    auto* revert = question.add("revert", words("&Discard Changes"), QMessageBox::DestructiveRole);
    auto* cancel = question.add("cancel", words("Cancel"), QMessageBox::RejectRole);
    return question.ask(cancel, cancel) == revert;
}

RecoveryAnswer askRecovery(const RecoveryOffer& offer) {
    QString explanation =
        words("The display ended on %1 with these changes unsaved:").arg(moment(offer.written)) + listed(offer.changes);
    if (offer.formChanged.isValid())
        explanation += words(
                           "\n\nThe form itself was changed as well, on %1. The changes would be put into the form as "
                           "it is now.")
                           .arg(moment(offer.formChanged));
    if (!offer.unplaced.isEmpty())
        explanation += words("\n\nThe form has no such widgets any more for:") + listed(offer.unplaced);
    Question question(nullptr, QMessageBox::Question, "recoveryQuestion",
                      words("Restore the unsaved changes to \"%1\"?").arg(offer.form), explanation);
    auto* restore = question.add("restore", words("&Restore"), QMessageBox::AcceptRole);
    auto* discard = question.add("discard", words("&Discard Them"), QMessageBox::DestructiveRole);
    auto* later = question.add("later", words("Ask Me &Later"), QMessageBox::RejectRole);
    const auto* answer = question.ask(restore, later);
    return answer == restore   ? RecoveryAnswer::Restore
           : answer == discard ? RecoveryAnswer::Discard
                               : RecoveryAnswer::Later;
}

bool tellSavingFailed(QWidget* window, const QString& fault) {
    Question question(window, QMessageBox::Warning, "savingFailed", words("The changes are not saved."),
                      fault + words(".\n\nThey stay in this display."));
    auto* other = question.add("saveAs", words("Save &As…"), QMessageBox::AcceptRole);
    auto* close = question.add("close", words("Close"), QMessageBox::RejectRole);
    return question.ask(close, close) == other;
}

void tellGroupsNotSaved(QWidget* window, const QStringList& faults) {
    Question note(
        window, QMessageBox::Warning, "groupsNotSaved", words("Changes of a group are not saved."),
        words("These files cannot be written:") + listed(faults) + words("\n\nThe changes stay in this display."));
    auto* close = note.add("close", words("Close"), QMessageBox::RejectRole);
    note.ask(close, close);
}

void tellMerged(QWidget* window, const QStringList& unplaced, const QStringList& overwritten,
                const QStringList& refused, const QString& remark) {
    if (unplaced.isEmpty() && overwritten.isEmpty() && refused.isEmpty() && remark.isEmpty())
        return;
    QStringList parts;
    if (!unplaced.isEmpty())
        parts.append(words("There is no place for these changes any more. They stay unsaved:") + listed(unplaced));
    if (!refused.isEmpty())
        parts.append(words("No form can hold the characters of these changes. They stay unsaved:") + listed(refused));
    if (!overwritten.isEmpty())
        parts.append(words("Changed here and on the disk alike. The form now has the values of this display:") +
                     listed(overwritten));
    if (!remark.isEmpty())
        parts.append(remark);
    const bool isMerged = !unplaced.isEmpty() || !overwritten.isEmpty();
    Question note(window, QMessageBox::Information, "mergeNote",
                  isMerged            ? words("The form or a group of it was changed on the disk as well.")
                  : refused.isEmpty() ? words("The form was saved.")
                                      : words("Some changes were not saved."),
                  parts.join(QStringLiteral("\n\n")));
    auto* close = note.add("close", words("Close"), QMessageBox::RejectRole);
    note.ask(close, close);
}

void tellRefused(QWidget* window, const QStringList& lines) {
    tellOfValues(window, QMessageBox::Warning, "refused", words("Some values were refused. The others are written."),
                 words("Not written:") + listed(lines));
}

void tellValuesNotLoaded(QWidget* window, const QString& fault) {
    tellOfValues(window, QMessageBox::Warning, "valuesNotLoaded", words("No values are loaded."), fault);
}

void tellValuesNotSaved(QWidget* window, const QString& fault) {
    tellOfValues(window, QMessageBox::Warning, "valuesNotSaved", words("The values are not saved."), fault);
}

void tellValuesLeft(QWidget* window, const QStringList& variables) {
    tellOfValues(window, QMessageBox::Information, "valuesLeft", words("The file has more values than this form."),
                 words("No editor for:") + listed(variables));
}

void tellNotBuilt(QWidget* window, const QString& fault) {
    Question note(window, QMessageBox::Warning, "notBuilt", words("The form cannot be shown as it is on the disk now."),
                  fault + words(".\n\nThis display goes on with the form that it has."));
    auto* close = note.add("close", words("Close"), QMessageBox::RejectRole);
    note.ask(close, close);
}
