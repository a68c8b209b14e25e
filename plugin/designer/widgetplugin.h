// The shape of a widget's plug-in: what Qt Designer is told of it.
#ifndef OSTREL_DESIGNER_WIDGETPLUGIN_H
#define OSTREL_DESIGNER_WIDGETPLUGIN_H

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

// Describes the widget that a plug-in builds. All texts are literals.
struct WidgetDescription {
    enum class Form {
        Plain,         // the bare widget
        Named,         // with the property `name` preset to "not_set"
        NamedCompact,  // the same, no line feed before the end tag
        Container,     // named, with a grid layout inside
    };

    const char* name;
    const char* icon;         // between ":resources/" and ".png"; null for an empty icon
    const char* includeFile;  // without its extension
    Form form;
    const char* toolTip = "";
    const char* whatsThis = "";
    bool container = false;
};

// A plug-in derives from it, adds its meta-object and createWidget(). It has none of its own, so that the meta-object
// of a plug-in derives from QObject's directly.
class Q_DECL_EXPORT WidgetPlugin : public QObject, public QDesignerCustomWidgetInterface {
public:
    WidgetPlugin(const WidgetDescription& description, QObject* parent);

    bool isContainer() const override;
    bool isInitialized() const override;
    QIcon icon() const override;
    QString domXml() const override;
    QString group() const override;
    QString includeFile() const override;
    QString name() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QWidget* createWidget(QWidget* parent) override = 0;
    void initialize(QDesignerFormEditorInterface* core) override;

private:
    const WidgetDescription& m_description;
    bool m_initialized = false;
};

#endif
