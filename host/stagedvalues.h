// What the editors of a form hold that the store does not: read, kept in a file, compared, and followed through a
// commit.
//
// The editors themselves are the only place of it. They are spoken to by SignalSlotSingleton and by the names of their
// slots, so that a site's own editors take part.
#ifndef OSTREL_HOST_STAGEDVALUES_H
#define OSTREL_HOST_STAGEDVALUES_H

#include <QDomDocument>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVector>

class QWidget;
class ValueManagerWidgetBase;

// A value that a commit would change.
struct StagedValue {
    QString variable;
    QString live;    // with the variable's own units, like the next
    QString staged;  // what would be written, and behind it what was typed where that reads differently
};

class StagedValues : public QObject {
    Q_OBJECT

public:
    // Before the widgets of any form, so that it hears of a commit before they do.
    explicit StagedValues(QObject* parent = nullptr);

    // The form whose editors count from now on, when it is built.
    void setForm(QWidget* form);
    bool hasEditors() const;

    // Those that differ, as an operator reads them.
    QVector<StagedValue> differing() const;

    // Fills the editors from the store; what was staged is gone.
    static void read();
    // Fills those that were not, or whose variable is another one since: a commit would write to it what stands there.
    void fillNew();

    // All that stands in the editors, and back into them.
    QDomDocument document() const;
    static void restore(QDomDocument document);

    // A file of staged values. Throws Failure for what is none.
    static QDomDocument readFile(const QString& path);
    // The names of the values that no editor of the form took.
    static QStringList restoreAll(QDomDocument document);
    // The file is the former one or the new one, whatever happens. Throws Failure where it cannot be written.
    void writeFile(const QString& path) const;

Q_SIGNALS:
    // An editor changed, or a commit has been.
    void changed();
    // The store refused some values of a commit; a line for each. The others are written.
    void refused(const QStringList& lines);

private:
    QList<ValueManagerWidgetBase*> editors() const;
    void noteFilled();
    void commitBegins();
    void commitEnded();

    QPointer<QWidget> m_form;
    QHash<const QObject*, QString> m_filled;  // editors, by the variable that they were filled from
    quint64 m_lastWrite = 0;                  // to the store, before the commit
    QMetaObject::Connection m_end;
};

#endif
