#include "designerwitness.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDesignerFormEditorInterface>
#include <QDesignerFormWindowInterface>
#include <QDesignerFormWindowManagerInterface>
#include <QDesignerTaskMenuExtension>
#include <QDesignerWidgetBoxInterface>
#include <QExtensionManager>
#include <QFile>
#include <QIcon>
#include <QMdiSubWindow>
#include <QMenu>
#include <QSaveFile>
#include <QScreen>
#include <QScrollBar>
#include <QTextStream>
#include <QTimer>
#include <QTreeWidget>
#include <QUndoStack>
#include <QWidget>

namespace {

QString position(QWidget* widget, QPoint inside) {
    const QPoint point = widget->mapToGlobal(inside);
    return QStringLiteral("%1 %2").arg(point.x()).arg(point.y());
}

const QStringList ourGroups{QStringLiteral("Ostrel"), QStringLiteral("ValueManager")};

// Brings the upper left corner of a form that is larger than its place in the program into view.
void scrollToCorner(QWidget* form) {
    while (form && !qobject_cast<QMdiSubWindow*>(form))
        form = form->parentWidget();
    if (form && (form->x() < 0 || form->y() < 0))
        form->move(0, 0);
}

// "click-TEXT X Y" for what an open menu or dialog offers.
void tellOpened(QTextStream& out) {
    const auto tell = [&](const QString& text, QWidget* widget, QPoint inside) {
        out << "click-" << QString(text).remove(QLatin1Char('&')) << " " << position(widget, inside) << "\n";
    };
    if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
        for (QAction* action : menu->actions())
            tell(action->text(), menu, menu->actionGeometry(action).center());
    QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog)
        return;
    out << "dialog " << dialog->windowTitle() << "\n";
    for (QAbstractButton* button : dialog->findChildren<QAbstractButton*>())
        if (button->isVisible() && button->isEnabled())
            tell(button->text(), button, button->rect().center());
    if (QApplication::focusWidget() && dialog->isAncestorOf(QApplication::focusWidget()))
        out << "focus " << QApplication::focusWidget()->metaObject()->className() << "\n";
}

}  // namespace

QIcon DesignerWitness::icon() const {
    return QIcon();
}

QWidget* DesignerWitness::createWidget(QWidget* parent) {
    return new QWidget(parent);
}

void DesignerWitness::initialize(QDesignerFormEditorInterface* core) {
    m_core = core;
    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &DesignerWitness::report);
    timer->start(200);
}

QStringList DesignerWitness::paletteEntries(const QStringList& groups) const {
    QStringList entries;
    const QDesignerWidgetBoxInterface* box = m_core->widgetBox();
    for (int i = 0; box && i < box->categoryCount(); ++i) {
        const auto category = box->category(i);
        for (int j = 0; groups.contains(category.name()) && j < category.widgetCount(); ++j)
            entries.append(category.widget(j).name());
    }
    return entries;
}

// The widget box is a tree whose groups hold a list view each. The entry is brought into view.
QString DesignerWitness::paletteEntryPosition(const QString& wanted) const {
    QWidget* box = m_core->widgetBox();
    auto* tree = box ? box->findChild<QTreeWidget*>() : nullptr;
    int number = 0;
    for (int i = 0; tree && i < tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* group = tree->topLevelItem(i);
        group->setExpanded(ourGroups.contains(group->text(0)));
        auto* list =
            group->childCount() > 0 ? qobject_cast<QAbstractItemView*>(tree->itemWidget(group->child(0), 0)) : nullptr;
        if (!list || !group->isExpanded())
            continue;
        for (int row = 0; row < list->model()->rowCount(); ++row, ++number) {
            const QModelIndex index = list->model()->index(row, 0);
            if (wanted != index.data().toString() && wanted != QString::number(number))
                continue;
            const QPoint middle = list->visualRect(index).center();
            const int below = list->viewport()->mapTo(tree->viewport(), middle).y() - tree->viewport()->height() / 2;
            tree->verticalScrollBar()->setValue(tree->verticalScrollBar()->value() + below);
            return position(list->viewport(), middle);
        }
    }
    return QString();
}

// The entry that a test asks for, by its name or its number. Such a test needs room for many widgets.
QString DesignerWitness::wantedEntry() const {
    QFile file(qEnvironmentVariable("OSTREL_WITNESS") + QLatin1String(".wanted"));
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("ZelValue");
    QWidget* const program = m_core->widgetBox()->window();
    program->setGeometry(program->screen()->geometry());
    return QString::fromUtf8(file.readAll());
}

void DesignerWitness::tellWidget(QTextStream& out, QWidget* widget) const {
    const QString name = widget->objectName();
    out << "placed " << widget->metaObject()->className() << " " << name << "\n"
        << "at-" << name << " " << position(widget, widget->rect().center()) << "\n";
    if (widget->property("comboBoxContents").isValid())
        out << "list-" << name << " " << widget->property("comboBoxContents").toString() << "\n";
    if (auto* menu = qt_extension<QDesignerTaskMenuExtension*>(m_core->extensionManager(), widget))
        for (const QAction* action : menu->taskActions())
            out << "task-" << name << " " << action->text() << "\n";
}

void DesignerWitness::report() {
    QDesignerFormWindowInterface* form = m_core->formWindowManager()->activeFormWindow();
    if (!form && m_core->formWindowManager()->formWindowCount() > 0)
        form = m_core->formWindowManager()->formWindow(0);
    if (!form || !form->mainContainer())
        return;
    scrollToCorner(form);
    QSaveFile file(qEnvironmentVariable("OSTREL_WITNESS"));
    if (!file.open(QIODevice::WriteOnly))
        return;
    QTextStream out(&file);
    out << "palette " << paletteEntries(ourGroups).join(QLatin1Char(' ')) << "\n";
    out << "valuemanager " << paletteEntries({ourGroups.last()}).join(QLatin1Char(' ')) << "\n";
    const QString wanted = wantedEntry();
    out << "entry " << paletteEntryPosition(wanted) << "\n";
    out << "wanted " << wanted << "\n";
    out << "form " << position(form->mainContainer(), form->mainContainer()->rect().center()) << "\n";
    for (QWidget* child : form->mainContainer()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (form->isManaged(child))
            tellWidget(out, child);
    const QUndoStack* history = form->commandHistory();
    out << "commands " << history->index() << " of " << history->count() << ": " << history->undoText() << "\n";
    tellOpened(out);
    out << (form->isDirty() ? "edited" : "saved") << " " << form->fileName() << "\n";
    out.flush();
    file.commit();
}
