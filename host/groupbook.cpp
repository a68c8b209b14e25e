#include "groupbook.h"

#include <ostrel-display/qdwindow.h>

#include <QFile>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <algorithm>

#include "core/ostrelbase.h"
#include "hostlink/globals.h"

namespace {

constexpr auto editorCloses = SIGNAL(closed(QString));
constexpr auto groupReads = SLOT(windowClosed(QString));

// What this book does to a group is nobody's edit of it.
class QuietChange {
public:
    QuietChange() : m_former(propertiesChanged) {}
    ~QuietChange() { propertiesChanged = m_former; }
    QuietChange(const QuietChange&) = delete;
    QuietChange& operator=(const QuietChange&) = delete;

private:
    bool m_former;
};

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString placeOf(const QString& path) {
    return QFileInfo(path).absoluteFilePath();
}

QStringList namesOf(const QVector<GroupVariable>& variables) {
    QStringList names;
    for (const GroupVariable& variable : variables)
        names.append(variable.name);
    return names;
}

// The slots of the group boxes, which are reached by their names alone.
void tellName(GroupBase* box, const GroupChange& change) {
    QMetaObject::invokeMethod(box, "varNameChange", Q_ARG(QString, change.name), Q_ARG(int, change.row),
                              Q_ARG(int, change.column));
}

bool detachEditor(GroupBase* box) {
    return displayWindow && QObject::disconnect(displayWindow, editorCloses, box, groupReads);
}

}  // namespace

QString lineOf(const GroupChange& change) {
    return QStringLiteral("%1 → %2 (%3)").arg(change.former, change.name, QFileInfo(change.file).fileName());
}

GroupBook::GroupBook(QObject* parent) : QObject(parent) {}

void GroupBook::formLeaves() {
    for (const Group& group : qAsConst(m_groups)) {
        if (!group.box || !detachEditor(group.box))
            continue;
        m_editedGroup = group.box->objectName();
        m_editedFile = placeOf(group.box->filePath());
    }
    m_groups.clear();
    m_unplaced.clear();
}

// The editor goes on with the group that has taken the place of the former one.
void GroupBook::formLoaded(QWidget* form) {
    const auto boxes = form->findChildren<QGroupBox*>();
    bool stays = false;
    for (QGroupBox* each : boxes) {
        auto* box = dynamic_cast<GroupBase*>(each);
        if (!box)
            continue;
        Group group{box, {}, {}, {}};
        follow(group);
        m_groups.append(group);
        if (!m_editedGroup.isEmpty() && box->objectName() == m_editedGroup && placeOf(box->filePath()) == m_editedFile)
            stays = connect(displayWindow, editorCloses, box, groupReads);
    }
    if (!m_editedGroup.isEmpty() && !stays)
        connect(displayWindow, editorCloses, this, SLOT(closeEditor()));
    m_editedGroup.clear();
    m_editedFile.clear();
}

// Its group is gone; another one may be edited now.
void GroupBook::closeEditor() {
    disconnect(displayWindow, editorCloses, this, nullptr);
    Display_QD_Window = false;
}

void GroupBook::follow(Group& group) {
    group.layout = group.box->layout();
    group.read = group.box->variables();
    group.text = contentOf(group.box->filePath());
    group.changes.clear();
    const auto values = group.box->findChildren<OstrelBase*>(QString(), Qt::FindDirectChildrenOnly);
    int place = 0;
    for (OstrelBase* value : values) {
        // All read-outs have the name that Qt Designer gives to the first of their class: the form writer would take
        // their changes for those of a widget of that name.
        value->setObjectName(QStringLiteral("%1/%2").arg(group.box->objectName()).arg(++place));
        connect(value, SIGNAL(nameChanged(QString, int, int)), this, SLOT(tellRenamed()));
    }
}

// As after its editor, and without taking the editor from whoever has it.
void GroupBook::readAgain(Group& group) {
    const bool open = Display_QD_Window;
    const bool edited = detachEditor(group.box);
    QMetaObject::invokeMethod(group.box, "windowClosed", Q_ARG(QString, group.box->filePath()));
    Display_QD_Window = open;
    if (edited)
        connect(displayWindow, editorCloses, group.box, groupReads);
    follow(group);
}

void GroupBook::tellRenamed() {
    emit renamed();
}

QVector<GroupChange> GroupBook::changesOf(const Group& group) const {
    QVector<GroupChange> changes;
    const QVector<GroupVariable> shown = group.box->variables();
    for (int i = 0; i < qMin(shown.size(), group.read.size()); ++i)
        if (shown[i].name != group.read[i].name)
            changes.append({group.box->objectName(), placeOf(group.box->filePath()), shown[i].row, shown[i].column,
                            group.read[i].name, shown[i].name});
    return changes;
}

QVector<GroupChange> GroupBook::changes() const {
    QVector<GroupChange> all;
    for (const Group& group : m_groups)
        all += group.changes;
    return all + m_unplaced;
}

bool GroupBook::putInto(Group& group, const GroupChange& change) {
    const auto* grid = qobject_cast<QGridLayout*>(group.layout);
    if (!grid || change.row < 0 || group.box->objectName() != change.group ||
        placeOf(group.box->filePath()) != change.file)
        return false;
    QLayoutItem* item = grid->itemAtPosition(change.row, change.column);
    auto* value = item ? qobject_cast<OstrelBase*>(item->widget()) : nullptr;
    if (!value || !group.read.contains(GroupVariable{change.former, change.row, change.column}))
        return false;
    value->setName(change.name);
    // A read-out whose variable the cell does not have now tells nothing.
    tellName(group.box, change);
    return true;
}

void GroupBook::put(const QVector<GroupChange>& changes) {
    const QuietChange quiet;
    for (const GroupChange& change : changes) {
        const bool done = std::any_of(m_groups.begin(), m_groups.end(),
                                      [&](Group& group) { return group.box && putInto(group, change); });
        if (!done)
            m_unplaced.append(change);
    }
    for (Group& group : m_groups)
        if (group.box)
            group.changes = changesOf(group);
}

bool GroupBook::look() {
    const QVector<GroupChange> former = changes();
    for (Group& group : m_groups) {
        if (!group.box)
            continue;
        if (group.layout == group.box->layout()) {
            group.changes = changesOf(group);
            continue;
        }
        const QVector<GroupChange> lost = group.changes;
        follow(group);
        put(lost);
    }
    return changes() != former;
}

QStringList GroupBook::save() {
    const QuietChange quiet;
    look();
    QStringList faults;
    for (Group& group : m_groups) {
        if (!group.box || group.changes.isEmpty())
            continue;
        const QString fault = saveGroup(group);
        if (!fault.isEmpty())
            faults.append(fault);
    }
    readAgainWhatOthersWrote();
    return faults;
}

// Empty when the file holds what the group shows.
QString GroupBook::saveGroup(Group& group) {
    const QString path = group.box->filePath();
    if (QFileInfo(path).isFile() && contentOf(path) != group.text) {
        const QVector<GroupChange> kept = group.changes;
        readAgain(group);
        put(kept);
    }
    if (group.changes.isEmpty())  // there is no place for them any more
        return QString();
    QMetaObject::invokeMethod(group.box, "saveConfigSettings");
    // It does not say how that went, and writes nothing where it believes that it was saved.
    const QVector<GroupVariable> shown = group.box->variables();
    const auto isSaved = [&] { return namesOf(readGroup(contentOf(path)).variables) == namesOf(shown); };
    QString reason = tr("the file cannot hold these names");
    if (!isSaved() && (!::saveGroup(path, writeGroup(group.box->title(), shown), &reason) || !isSaved()))
        return QStringLiteral("%1: %2").arg(placeOf(path), reason);
    group.read = shown;
    group.text = contentOf(path);
    group.changes.clear();
    return QString();
}

// Several groups may show one file.
void GroupBook::readAgainWhatOthersWrote() {
    for (Group& group : m_groups) {
        if (!group.box || !group.changes.isEmpty())
            continue;
        const bool written = std::any_of(m_groups.begin(), m_groups.end(), [&](const Group& other) {
            return other.box && other.box != group.box && other.text != group.text &&
                   placeOf(other.box->filePath()) == placeOf(group.box->filePath());
        });
        if (written)
            readAgain(group);
    }
}
