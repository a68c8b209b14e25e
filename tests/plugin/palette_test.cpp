// What Qt Designer is told of each widget of the collection, to the letter: forms and tools know these texts.
#include <QIcon>
#include <QMap>

#include "collection/ostrelplugins.h"
#include "plugintest.h"
#include "qttests.h"

namespace {

// The form text of a new widget, before its class and its name are put in.
constexpr const char* plain = "<widget class=\"%1\" name=\"%2\">\n</widget>\n";
constexpr const char* named =
    "<widget class=\"%1\" name=\"%2\">\n<property name=\"name\">\n<string>not_set</string>\n</property>\n</widget>\n";
constexpr const char* compact =
    "<widget class=\"%1\" name=\"%2\">\n<property name=\"name\">\n<string>not_set</string>\n</property></widget>\n";
constexpr const char* grid =
    "<widget class=\"%1\" name=\"%2\">\n<property name=\"name\">\n<string>not_set</string>\n</property>\n"
    "<layout class=\"QGridLayout\" name=\"gridLayout\">\n</layout>\n</widget>";
constexpr const char* inARow =
    "<widget class=\"%1\" name=\"%2\">\n<property name=\"name\">\n<string>not_set</string>\n</property>\n"
    "<property name=\"horizontal\">\n<bool>true</bool>\n</property>\n</widget>\n";
constexpr const char* channel =
    "<widget class=\"%1\" name=\"%2\">\n<property name=\"memCode\">\n<number>6</number>\n</property>\n"
    "<property name=\"memIndex\">\n<number>1</number>\n</property>\n</widget>\n";
constexpr const char* commandLine =
    "<widget class=\"%1\" name=\"%2\">\n<property name=\"shortcutEnabled\">\n<bool>true</bool>\n</property>\n"
    "<property name=\"saveHistory\">\n<bool>true</bool>\n</property>\n</widget>\n";

struct Entry {
    const char* plugin;
    const char* name;
    const char* icon;
    const char* includeFile;
    const char* form = compact;
    const char* objectName = nullptr;  // null for the name
    const char* toolTip = "";
    const char* whatsThis = "";
    const char* group = "Ostrel";
    bool container = false;
};

constexpr const char* staging = "A ValueManager widget";

// In the order of the palette.
constexpr Entry palette[] = {
    {"ValManFilePlugin", "ValManFileWidget", "valmanfilewidget", "ValManFileWidget", plain, nullptr, staging,
     "ValManFileWidget is used to display the value of a string variable and select new values through a file browser",
     "ValueManager"},
    {"ValManStringPlugin", "ValManStringWidget", "valmanstringwidget", "ValManStringWidget", plain, nullptr, staging,
     "ValManStringWidget is used to display the value of String variable, and provide interaction through a checkbox.",
     "ValueManager"},
    {"ValManLogicalPlugin", "ValManLogicalWidget", "valmanlogicalwidget", "ValManLogicalWidget", plain, nullptr,
     staging,
     "ValManLogicalWidget is used to display the value of logical variable, and provide interaction through a "
     "checkbox.",
     "ValueManager"},
    {"ValManComboBoxPlugin", "ValManComboBoxWidget", "valmancomboboxwidget", "ValManComboBoxWidget", plain, nullptr,
     staging,
     "ValManComboBoxWidget is used to display the value of a ostrel variable and select new values through a combobox",
     "ValueManager"},
    {"ValManNumericPlugin", "ValManNumericWidget", "valmannumericwidget", "ValManNumericWidget", plain, nullptr,
     staging,
     "ValManNumericWidget is used to display the value of Numeric variable, and provide interaction through a text "
     "input box.",
     "ValueManager"},
    {"ValManOKPlugin", "ValManOKWidget", "valmanokwidget", "ValManOKWidget", plain, nullptr, staging,
     "ValManOKWidget is used to set an event if the event name has been specified and commit values to ostrel ",
     "ValueManager"},
    {"ValManCancelPlugin", "ValManCancelWidget", "valmancancelwidget", "ValManCancelWidget", plain, nullptr, staging,
     "ValManCancelWidget is used to exit the value manager dialog and set a specified event", "ValueManager"},
    {"ZelValuePlugin", "ZelValue", "zelvalue", "zel_value", named, nullptr,
     "ZelValue: Used to display, monitor, and modify Ostrel Real and Integer variables.",
     "ZelValue is used to display Ostrel Real,Integer and Logical Variables"},
    {"ZelHorizontalValuePlugin", "ZelSimpleValue", "zelsimplevalue", "zel_simplevalue", inARow, "ZelSimpleValueH"},
    {"ZelLedPlugin", "ZelLed", "zelled", "ledwidget"},
    {"ZelTailPlugin", "ZelTail", "zeltail", "opntailwidget"},
    {"dialgaugePlugin", "ZelDialGauge", "zeldialgauge", "dialgauge", compact, "dialgauge"},
    {"ZelCmdLinePlugin", "ZelCmdLine", "cmdline", "cmdlinewidget", commandLine},
    {"zel_stringPlugin", "ZelString", "zelstring", "zelstring", compact, nullptr, "",
     "ZelString is used to display Ostrel String Variables"},
    {"ZelSliderPlugin", "ZelSlider", "zelslider", "zel_slider", compact, nullptr,
     "ZelSlider is used with Real and Interger Variables."},
    {"ZelSimpleValuePlugin", "ZelSimpleValue", "zelsimplevalue", "zel_simplevalue"},
    {"ZelSimpleValuePlugin_fl", "ZelSimpleValue_fl", "zelsimplevalue", "zel_simplevalue_fl"},
    {"ZelSimpleValueChanIndexPlugin", "ZelSimpleValueChanIndex", "zelchannelindex", "zel_simplevaluechanindex",
     channel},
    {"ZelPushButtonPlugin", "ZelPushButton", "zelpushbutton", "zel_pushbutton"},
    {"ZelToggleButtonPlugin", "ZelToggleButton", "zeltogglebutton", "ZelToggleButton"},
    {"ZelGroupPlugin", "ZelGroup", "zelgroup", "zelgroupwidget", grid, nullptr, "", "", "Ostrel", true},
    {"ZelGroupPlugin_fl", "ZelGroup_fl", "zelgroup", "zelgroupwidget_fl", grid, nullptr, "", "", "Ostrel", true},
    {"ZelCmdButtonPlugin", "ZelCmdButton", "zelcmdbutton", "zel_cmdbutton", plain},
    {"ZelEventButtonPlugin", "ZelEventButton", "zelcmdeventbutton", "zel_eventbutton", plain},
};

QByteArray classOf(QDesignerCustomWidgetInterface* plugin) {
    return dynamic_cast<QObject*>(plugin)->metaObject()->className();
}

}  // namespace

class PaletteTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }
    void everyPluginStandsAtItsPlace();
    void aWidgetIsDescribed_data();
    void aWidgetIsDescribed();

private:
    OstrelPlugins m_collection;
};

void PaletteTest::everyPluginStandsAtItsPlace() {
    QList<QByteArray> known;
    for (const Entry& entry : palette)
        known.append(entry.plugin);
    int last = -1;
    for (auto* plugin : m_collection.customWidgets()) {
        const int place = known.indexOf(classOf(plugin));
        QVERIFY2(place > last, classOf(plugin).constData());
        last = place;
    }
}

void PaletteTest::aWidgetIsDescribed_data() {
    QTest::addColumn<int>("place");
    for (int i = 0; i < m_collection.customWidgets().size(); ++i)
        QTest::newRow(classOf(m_collection.customWidgets().at(i)).constData()) << i;
}

void PaletteTest::aWidgetIsDescribed() {
    QFETCH(int, place);
    auto* plugin = m_collection.customWidgets().at(place);
    const Entry* entry = palette;
    while (classOf(plugin) != entry->plugin)
        ++entry;
    const char* const objectName = entry->objectName ? entry->objectName : entry->name;
    QCOMPARE(plugin->name(), QString(entry->name));
    QCOMPARE(plugin->group(), QString(entry->group));
    QCOMPARE(plugin->includeFile(), QString(entry->includeFile) + ".h");
    QCOMPARE(plugin->domXml(), QString(entry->form).arg(entry->name, objectName));
    QCOMPARE(plugin->toolTip(), QString(entry->toolTip));
    QCOMPARE(plugin->whatsThis(), QString(entry->whatsThis));
    QCOMPARE(plugin->isContainer(), entry->container);
    const QPixmap icon(QStringLiteral(":/resources/%1.png").arg(QLatin1String(entry->icon)));
    QVERIFY(!icon.isNull());
    QCOMPARE(plugin->icon().pixmap(icon.size()).toImage(), QIcon(icon).pixmap(icon.size()).toImage());
    QWidget form;
    const QWidget* widget = plugin->createWidget(&form);
    QCOMPARE(QString(widget->metaObject()->className()), plugin->name());
    QCOMPARE(widget->parentWidget(), &form);
}

OSTREL_TEST(PaletteTest)
#include "palette_test.moc"
