#include "screenwitness.h"

#include <dlfcn.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QSaveFile>
#include <QTimer>
#include <algorithm>

namespace {

QString pathOf(const QWidget* widget) {
    QString path = widget->objectName();
    for (const QWidget* parent = widget->parentWidget(); parent; parent = parent->parentWidget())
        path.prepend(parent->objectName() + QLatin1Char('/'));
    return path;
}

QString textOf(const QWidget* widget) {
    if (const auto* box = qobject_cast<const QComboBox*>(widget))
        return box->currentText();
    return widget->property("text").toString();
}

QJsonObject thing(const QString& id, const QString& text, const QPoint& at) {
    return {{"id", id}, {"text", text}, {"at", QJsonArray{at.x(), at.y()}}};
}

QString withoutMnemonic(QString text) {
    return text.remove(QLatin1Char('&'));
}

void addActions(const QMenu* menu, QJsonArray* seen) {
    const auto actions = menu->actions();
    for (QAction* action : actions)
        seen->append(thing(QStringLiteral("action:") + withoutMnemonic(action->text()), action->text(),
                           menu->mapToGlobal(menu->actionGeometry(action).center())));
}

void addRows(const QAbstractItemView* view, const QModelIndex& parent, QJsonArray* seen) {
    const QAbstractItemModel* model = view->model();
    for (int row = 0; model && row < model->rowCount(parent); ++row) {
        const QModelIndex first = model->index(row, 0, parent);
        for (int column = 0; column < model->columnCount(parent); ++column) {
            const QModelIndex index = model->index(row, column, parent);
            const QRect place = view->visualRect(index) & view->viewport()->rect();
            if (!place.isEmpty())
                seen->append(thing(QStringLiteral("cell:%1:%2").arg(first.data().toString()).arg(column),
                                   index.data().toString(), view->viewport()->mapToGlobal(place.center())));
        }
        if (!view->visualRect(first).isEmpty())
            addRows(view, first, seen);
    }
}

// What a form keeps of a widget of the collection.
void addProperties(const QWidget* widget, QJsonObject* entry) {
    if (!widget->inherits("OstrelBase"))
        return;
    entry->insert("name", widget->property("name").toString());
    entry->insert("nameFontSize", widget->property("nameFont").value<QFont>().pointSize());
}

// Its text has the room that it needs, and nothing beside it lies across.
bool isWhole(const QWidget* widget) {
    if (widget->visibleRegion().boundingRect().width() < widget->sizeHint().width())
        return false;
    const QWidget* parent = widget->parentWidget();
    const auto neighbours =
        parent ? parent->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly) : QList<QWidget*>();
    return std::none_of(neighbours.begin(), neighbours.end(), [widget](const QWidget* other) {
        return other != widget && other->isVisible() && other->geometry().intersects(widget->geometry());
    });
}

void addWidget(QWidget* widget, QJsonArray* seen) {
    if (!widget->isVisible())
        return;
    QJsonObject entry = thing(QStringLiteral("widget:") + pathOf(widget), textOf(widget),
                              widget->mapToGlobal(widget->visibleRegion().boundingRect().center()));
    entry.insert("whole", isWhole(widget));
    addProperties(widget, &entry);
    seen->append(entry);
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        seen->append(thing(QStringLiteral("button:") + withoutMnemonic(button->text()), button->text(),
                           button->mapToGlobal(button->rect().center())));
    if (const auto* menu = qobject_cast<const QMenu*>(widget))
        addActions(menu, seen);
    if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
        addRows(view, QModelIndex(), seen);
}

QJsonArray seenNow() {
    QJsonArray seen;
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (!window->isVisible())
            continue;
        seen.append(thing(QStringLiteral("window:") + window->windowTitle(), window->windowTitle(),
                          window->mapToGlobal(window->rect().center())));
        addWidget(window, &seen);
        const auto widgets = window->findChildren<QWidget*>();
        for (QWidget* widget : widgets)
            if (widget->window() == window)
                addWidget(widget, &seen);
    }
    return seen;
}

template <class Type>
void addGlobal(const char* name, QJsonObject* globals) {
    if (const auto* value = static_cast<const Type*>(dlsym(RTLD_DEFAULT, name)))
        globals->insert(QLatin1String(name), *value);
}

}  // namespace

QObject* ScreenWitness::create(const QString&, const QString&) {
    auto* timer = new QTimer;
    connect(timer, &QTimer::timeout, this, &ScreenWitness::report);
    timer->start(50);
    return timer;
}

void ScreenWitness::report() {
    QJsonObject globals;
    addGlobal<int>("UserInterfaceLock", &globals);
    addGlobal<bool>("changeUnitsLk", &globals);
    const QWidget* active = QApplication::activeWindow();
    const QWidget* focus = QApplication::focusWidget();
    const QJsonObject all{{"serial", ++m_serial},
                          {"active", active ? active->windowTitle() : QString()},
                          {"focus", focus ? pathOf(focus) : QString()},
                          {"globals", globals},
                          {"seen", seenNow()}};
    QSaveFile file(qEnvironmentVariable("OSTREL_WITNESS"));
    if (file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(all).toJson(QJsonDocument::Compact)) > 0)
        file.commit();
}
