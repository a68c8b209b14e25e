// The editor of one group file: its title, its table, and what is odd about the file.
#ifndef OSTREL_DISPLAY_GROUPEDITOR_H
#define OSTREL_DISPLAY_GROUPEDITOR_H

#include <QTableView>
#include <QVector>
#include <QWidget>

#include "grouptable.h"
#include "storenames.h"

class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
struct GroupRemark;

class GroupEditor : public QWidget {
    Q_OBJECT

public:
    explicit GroupEditor(QWidget* parent);

    // Reads the file as far as that is possible. A file that is not there makes a new group.
    void open(const QString& path);
    // False when it could not be saved; *reason says why. From then on that is the group's file.
    bool save(const QString& path, QString* reason);
    const QString& path() const { return m_path; }
    bool isModified() const;
    // Nothing is to be saved any more.
    void discard();
    // True when somebody else changed the file since it was read or saved here.
    bool changedOnDisk() const;

    QList<QAction*> editActions() const { return m_editActions; }
    QList<QAction*> rowActions() const { return m_rowActions; }
    // What is most used, for a tool bar.
    QList<QAction*> chiefActions() const { return m_chiefActions; }

    // Takes over what is being typed.
    void finishEditing();

Q_SIGNALS:
    void modifiedChanged();
    void summaryChanged(QString summary);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void layOut();
    void makeHistoryActions();
    void makeVariableActions();
    void makeRowActions();
    template <class Operation>
    QAction* action(const QString& text, const QList<QKeySequence>& keys, Operation operation);
    void goTo(const QModelIndex& cell);
    void addVariable();
    void addRow();
    void arrange();
    void copy();
    void paste();
    void move(int rows, int columns);
    void tell();
    void showRemarks(const QVector<GroupRemark>& remarks);
    void lookAtStore();

    StoreNames m_names;
    GroupTable* m_table;
    QLineEdit* m_title;
    QTableView* m_view;
    QLabel* m_remarksLabel;
    QListWidget* m_remarks;
    QList<QAction*> m_editActions;
    QList<QAction*> m_rowActions;
    QList<QAction*> m_chiefActions;
    QString m_path;
    QByteArray m_onDisk;  // what was read or saved last
};

#endif
