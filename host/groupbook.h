// The groups of a form: which of their read-outs show another variable than their file says, and saving that. The group
// boxes read and write their files by themselves; the book sees to it that nothing is lost on the way.
#ifndef OSTREL_HOST_GROUPBOOK_H
#define OSTREL_HOST_GROUPBOOK_H

#include <QLayout>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVector>

#include "groupfile/groupfile.h"
#include "widgets/groupbase.h"

class OstrelBase;

struct GroupChange {
    QString group;  // object name
    QString file;
    int row = 0;
    int column = 0;
    QString former;  // as the file says
    QString name;

    bool operator==(const GroupChange&) const = default;
};

// A line for people: "OIL_TEMP → CYCLES (oil.grp)".
QString lineOf(const GroupChange& change);

class GroupBook : public QObject {
    Q_OBJECT

public:
    explicit GroupBook(QObject* parent = nullptr);

    // The form is about to be replaced.
    void formLeaves();
    // The groups of this form have been read from their files: nothing is changed.
    void formLoaded(QWidget* form);

    // As of the last look(), in the order of the form; those without a place stand last.
    QVector<GroupChange> changes() const;
    // Those that no group of the form has a place for: the group, its file or the variable in that place is another.
    QVector<GroupChange> unplaced() const { return m_unplaced; }

    // Puts changes into the groups that they were made to.
    void put(const QVector<GroupChange>& changes);

    // Sees what the groups show now, and puts back what a group lost that was built anew. True when the changes are
    // others than before.
    bool look();

    // Writes each changed group into its file as it is on the disk now. A line for each file that cannot be written;
    // those groups stay changed.
    QStringList save();

Q_SIGNALS:
    // A read-out shows another variable.
    void renamed();

private Q_SLOTS:
    void tellRenamed();
    void closeEditor();

private:
    struct Group {
        QPointer<GroupBase> box;
        QPointer<QLayout> layout;        // another one once the group was built anew
        QVector<GroupVariable> read;     // what the file says
        QByteArray text;                 // the file
        QVector<GroupChange> changes{};  // as of the last look
    };

    void follow(Group& group);
    void readAgain(Group& group);
    QVector<GroupChange> changesOf(const Group& group) const;
    bool putInto(Group& group, const GroupChange& change);
    QString saveGroup(Group& group);
    void readAgainWhatOthersWrote();

    QVector<Group> m_groups;
    QVector<GroupChange> m_unplaced;
    // The group that the editor was open for when its form left; both empty without.
    QString m_editedGroup;
    QString m_editedFile;
};

#endif
