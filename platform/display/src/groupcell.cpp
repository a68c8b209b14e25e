#include "groupcell.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QStringListModel>
#include <functional>
#include <utility>

#include "storenames.h"

namespace {

// While the list of completions is open its keys reach the line without passing the delegate's filter: Enter and the
// tabulator end the typing here, so that a name needs one Enter whether the list is open or not.
class NameLine : public QLineEdit {
public:
    using Hint = QAbstractItemDelegate::EndEditHint;

    NameLine(QWidget* parent, std::function<void(QWidget*, Hint)> done) : QLineEdit(parent), m_done(std::move(done)) {}

    bool event(QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return QLineEdit::event(event);
        switch (static_cast<QKeyEvent*>(event)->key()) {
            case Qt::Key_Return:
            case Qt::Key_Enter:
                return finish(QAbstractItemDelegate::NoHint);
            case Qt::Key_Tab:
                return finish(QAbstractItemDelegate::EditNextItem);
            case Qt::Key_Backtab:
                return finish(QAbstractItemDelegate::EditPreviousItem);
            default:
                return QLineEdit::event(event);
        }
    }

    bool finish(Hint hint) {
        completer()->popup()->hide();
        m_done(this, hint);
        return true;
    }

private:
    std::function<void(QWidget*, Hint)> m_done;
};

}  // namespace

GroupCell::GroupCell(const StoreNames* names, QObject* parent) : QStyledItemDelegate(parent), m_names(names) {}

QWidget* GroupCell::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const {
    auto* self = const_cast<GroupCell*>(this);
    auto* line = new NameLine(parent, [self](QWidget* editor, EndEditHint hint) {
        emit self->commitData(editor);
        emit self->closeEditor(editor, hint);
    });
    line->setObjectName(QStringLiteral("nameLine"));
    line->setFrame(false);
    line->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[\\x20-\\x21\\x23-\\x7E\\xA0-\\xFF]*")), line));
    auto* completer = new QCompleter(line);
    completer->setModel(new QStringListModel(m_names->all(), completer));
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    completer->setMaxVisibleItems(12);
    completer->popup()->setMinimumWidth(line->fontMetrics().averageCharWidth() * 40);
    line->setCompleter(completer);
    connect(completer, QOverload<const QString&>::of(&QCompleter::activated), line, [line](const QString& name) {
        line->setText(name);
        line->finish(NoHint);
    });
    return line;
}
