#include "groupcell.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QStringListModel>

#include "storenames.h"

GroupCell::GroupCell(const StoreNames* names, QObject* parent) : QStyledItemDelegate(parent), m_names(names) {}

QWidget* GroupCell::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const {
    auto* line = new QLineEdit(parent);
    line->setObjectName(QStringLiteral("nameLine"));
    line->setFrame(false);
    line->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[\\x20-\\x21\\x23-\\x7E\\xA0-\\xFF]*")), line));
    auto* completer = new QCompleter(line);
    completer->setModel(new QStringListModel(m_names->all(), completer));
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    completer->setMaxVisibleItems(12);
    completer->popup()->setMinimumWidth(260);
    line->setCompleter(completer);
    // A name that was chosen from the list needs no second Enter.
    auto* self = const_cast<GroupCell*>(this);
    connect(completer, QOverload<const QString&>::of(&QCompleter::activated), line, [self, line](const QString& name) {
        line->setText(name);
        emit self->commitData(line);
        emit self->closeEditor(line);
    });
    return line;
}
