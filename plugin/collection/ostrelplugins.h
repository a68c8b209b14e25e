// The entry point of the library: the collection of its widgets.
#ifndef OSTREL_COLLECTION_OSTRELPLUGINS_H
#define OSTREL_COLLECTION_OSTRELPLUGINS_H

#include <QList>
#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

// Makes the plug-in objects and destroys them; the widgets that they build belong to whoever asked for them.
class Q_DECL_EXPORT OstrelPlugins : public QObject, public QDesignerCustomWidgetCollectionInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit OstrelPlugins(QObject* parent = nullptr);
    ~OstrelPlugins() override;

    // In the order of the palette.
    QList<QDesignerCustomWidgetInterface*> customWidgets() const override;

private:
    QList<QDesignerCustomWidgetInterface*> m_widgets;
};

#endif
