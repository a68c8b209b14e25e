// The list of staged values, for an operator to read before they are committed.
#ifndef OSTREL_HOST_STAGEDLIST_H
#define OSTREL_HOST_STAGEDLIST_H

#include <QDialog>

class QLabel;
class QTableWidget;
struct StagedValue;

// Leaves the form at hand: it stands beside it.
class StagedList : public QDialog {
    Q_OBJECT

public:
    explicit StagedList(QWidget* parent);

    void setValues(const QVector<StagedValue>& values);

private:
    QTableWidget* m_table;
    QLabel* m_nothing;
};

#endif
