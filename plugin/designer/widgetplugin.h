// The shape of a widget's plug-in: what Qt Designer is told of it.
#ifndef OSTREL_DESIGNER_WIDGETPLUGIN_H
#define OSTREL_DESIGNER_WIDGETPLUGIN_H

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <array>

// A property that a widget has from the palette on.
struct PresetProperty {
    const char* name;
    const char* type;  // the element of the value: string, number, bool
    const char* value;
};
constexpr PresetProperty nameNotSet{"name", "string", "not_set"};

// Describes the widget that a plug-in builds. All texts are literals.
struct WidgetDescription {
    // How the form of a new widget ends; kept to the letter, since tools compare it.
    enum class Ending {
        Lines,    // each end tag on a line of its own
        Compact,  // the last property and the widget end on one line
        Grid,     // a grid layout inside, and no line feed at the end
    };

    const char* name;
    const char* icon;                         // between ":resources/" and ".png"; null for an empty icon
    const char* includeFile;                  // without its extension
    const char* objectName = nullptr;         // of a new widget; null for the class name
    std::array<PresetProperty, 3> presets{};  // ends with the first one that has no name
    Ending ending = Ending::Lines;
    const char* toolTip = "";
    const char* whatsThis = "";
    const char* group = "Ostrel";
    bool container = false;
};

// The form text of a new widget.
QString formText(const WidgetDescription& description);

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
