#include "stagedlist.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

#include "stagedvalues.h"

StagedList::StagedList(QWidget* parent) : QDialog(parent), m_table(new QTableWidget(0, 3)), m_nothing(new QLabel) {
    setObjectName(QStringLiteral("stagedList"));
    setWindowTitle(tr("Staged Values"));
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    m_table->setHorizontalHeaderLabels({tr("Variable"), tr("Now"), tr("After a commit")});
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->verticalHeader()->hide();
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionMode(QAbstractItemView::NoSelection);
    m_table->setFocusPolicy(Qt::NoFocus);
    m_nothing->setText(tr("A commit would change nothing."));
    m_nothing->setAlignment(Qt::AlignCenter);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_table);
    column->addWidget(m_nothing);
    const int line = fontMetrics().height();
    resize(32 * line, 14 * line);
}

void StagedList::setValues(const QVector<StagedValue>& values) {
    m_table->setRowCount(values.size());
    for (int row = 0; row < values.size(); ++row) {
        const QString texts[] = {values[row].variable, values[row].live, values[row].staged};
        for (int column = 0; column < 3; ++column) {
            if (!m_table->item(row, column))
                m_table->setItem(row, column, new QTableWidgetItem);
            m_table->item(row, column)->setText(texts[column]);
            m_table->item(row, column)->setToolTip(texts[column]);
        }
    }
    m_table->resizeColumnToContents(0);
    m_table->resizeColumnToContents(1);
    m_table->setVisible(!values.isEmpty());
    m_nothing->setVisible(values.isEmpty());
}
