#include "formloader.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QWidget>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include "failure.h"
#include "formcheck.h"

// The entry point of the plug-in library. Asking it directly makes sure that one copy of the library serves the form,
// whatever Qt finds in its own plug-in folders.
extern "C" QObject* qt_plugin_instance();

FormLoader::FormLoader() {
    const auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(qt_plugin_instance());
    const auto plugins = collection->customWidgets();
    for (QDesignerCustomWidgetInterface* plugin : plugins)
        m_collection.insert(plugin->name(), plugin);
}

QSet<QString> FormLoader::knownClasses() const {
    const QStringList ofQt = availableWidgets();
    const QStringList ours = m_collection.keys();
    return QSet<QString>(ofQt.begin(), ofQt.end()) + QSet<QString>(ours.begin(), ours.end());
}

QByteArray FormLoader::readForm(const QString& path) {
    QFile file(path);
    if (QFileInfo(path).isDir())
        throw Failure(path + QStringLiteral(": is a folder; give a form made with Qt Designer"));
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(QStringLiteral("%1: %2; give a form made with Qt Designer").arg(path, file.errorString()));
    return file.readAll();
}

LoadedForm FormLoader::loadForm(const QString& path, const QByteArray& text) {
    QBuffer buffer;
    buffer.setData(text);
    buffer.open(QIODevice::ReadOnly);
    FormOutline outline = outlineForm(&buffer, path, knownClasses());
    if (!outline.faults.isEmpty())
        throw Failure(outline.faults.join('\n'));
    buffer.seek(0);
    setWorkingDirectory(QFileInfo(path).absoluteDir());
    LoadedForm form{std::unique_ptr<QWidget>(load(&buffer)), std::move(outline.units)};
    if (!form.widget)
        throw Failure(QStringLiteral("%1: %2; save it again with Qt Designer").arg(path, errorString()));
    return form;
}

QWidget* FormLoader::createWidget(const QString& className, QWidget* parent, const QString& name) {
    auto* const plugin = m_collection.value(className);
    if (!plugin)
        return QUiLoader::createWidget(className, parent, name);
    QWidget* widget = plugin->createWidget(parent);
    widget->setObjectName(name);
    return widget;
}
