// A host of a site's own that uses each class of the library that is meant for hosts, for the code that forms are
// compiled to, or as a base.
#include <ostrel/store.h>

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QVector>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "ExtendedQComboBox.h"
#include "ValManCancelWidget.h"
#include "ValManComboBoxWidget.h"
#include "ValManFileWidget.h"
#include "ValManLogicalWidget.h"
#include "ValManNumericWidget.h"
#include "ValManOKWidget.h"
#include "ValManStringWidget.h"
#include "ZelToggleButton.h"
#include "cmd_thread.h"
#include "cmdlinewidget.h"
#include "core/glostrelbase.h"
#include "core/gltest.h"
#include "core/ostrel_logical_base.h"
#include "dialgauge.h"
#include "fabric/ostrel_event_moderator.h"
#include "fabric/ostrelgblreconfigevent.h"
#include "fabric/signalslotsingleton.h"
#include "fabric/timermoderator.h"
#include "fabric/timerwidgetplugin.h"
#include "flashinglabel.h"
#include "hostlink/globals.h"
#include "labelstyle.h"
#include "ledwidget.h"
#include "opntailwidget.h"
#include "properties/mycontroller.h"
#include "properties/objectcontroller.h"
#include "selection/channelindexselectiondialog.h"
#include "selection/combodelegate.h"
#include "selection/multiselectiondialog.h"
#include "selection/simpletokenizer.h"
#include "selection/unitsdialog.h"
#include "selection/variablemaplist.h"
#include "selection/variableselectiondialog.h"
#include "zel_cmdbutton.h"
#include "zel_eventbutton.h"
#include "zel_pushbutton.h"
#include "zel_simplelogical.h"
#include "zel_simplevalue.h"
#include "zel_simplevalue_fl.h"
#include "zel_simplevaluechanindex.h"
#include "zel_slider.h"
#include "zel_value.h"
#include "zelgroupwidget.h"
#include "zelgroupwidget_fl.h"
#include "zelsimplelogicalplugin.h"
#include "zelsimplevaluechanindexplugin.h"
#include "zelsimplevalueplugin_fl.h"
#include "zelstring.h"
#include "zeltable.h"
#include "zelvariableplugin.h"
#include "zelvariablewidget.h"

bool inDesigner = false;
bool InitializationDone = true;

namespace {

int faults = 0;

void expect(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "classes: %s\n", what);
    ++faults;
}

template <class Widget>
void useWidget(const char* name) {
    const std::unique_ptr<Widget> widget = std::make_unique<Widget>();
    expect(std::strcmp(widget->metaObject()->className(), name) == 0, name);
    widget->setProperty("name", QStringLiteral("OIL_TEMP"));
    widget->resize(100, 60);
    expect(!widget->grab().isNull(), name);
}

template <class Plugin>
void usePlugin(const char* name) {
    Plugin plugin;
    plugin.initialize(nullptr);
    expect(plugin.isInitialized() && plugin.name() == QLatin1String(name), name);
    const std::unique_ptr<QWidget> widget(plugin.createWidget(nullptr));
    expect(widget && widget->inherits(name), name);
}

void useWidgets() {
    useWidget<ZelValue>("ZelValue");
    useWidget<ZelSimpleValue>("ZelSimpleValue");
    useWidget<ZelSimpleValue_fl>("ZelSimpleValue_fl");
    useWidget<ZelSimpleValueChanIndex>("ZelSimpleValueChanIndex");
    useWidget<ZelSimpleLogical>("ZelSimpleLogical");
    useWidget<ZelLed>("ZelLed");
    useWidget<ZelDialGauge>("ZelDialGauge");
    useWidget<ZelSlider>("ZelSlider");
    useWidget<ZelString>("ZelString");
    useWidget<ZelTail>("ZelTail");
    useWidget<ZelCmdLine>("ZelCmdLine");
    useWidget<ZelCmdButton>("ZelCmdButton");
    useWidget<ZelEventButton>("ZelEventButton");
    useWidget<ZelPushButton>("ZelPushButton");
    useWidget<ZelToggleButton>("ZelToggleButton");
    useWidget<ValManNumericWidget>("ValManNumericWidget");
    useWidget<ValManStringWidget>("ValManStringWidget");
    useWidget<ValManLogicalWidget>("ValManLogicalWidget");
    useWidget<ValManFileWidget>("ValManFileWidget");
    useWidget<ValManComboBoxWidget>("ValManComboBoxWidget");
    useWidget<ExtendedQComboBox>("ExtendedQComboBox");
    useWidget<ValManOKWidget>("ValManOKWidget");
    useWidget<ValManCancelWidget>("ValManCancelWidget");
    useWidget<ZelGroup>("ZelGroup");
    useWidget<ZelGroup_fl>("ZelGroup_fl");
    useWidget<FlashingLabel>("FlashingLabel");
    useWidget<TimerModerator>("TimerModerator");
    useWidget<OstrelEventModerator>("OstrelEventModerator");
}

// Those that stand in no collection.
void usePlugins() {
    usePlugin<ZelHorizontalValuePlugin_fl>("ZelSimpleValue_fl");
    usePlugin<ZelHorizontalChanIndexPlugin>("ZelSimpleValueChanIndex");
    usePlugin<ZelSimpleLogicalPlugin>("ZelSimpleLogical");
    usePlugin<ZelVariablePlugin>("ZelVariable");
    usePlugin<TimerWidgetPlugin>("TimerModerator");
}

class OwnPicture : public GLOstrelBase {
public:
    ~OwnPicture() override { TimerModerator::releaseFromTimer(this); }
    void ostrelTimerEvent(int) override {}
    bool bind(QByteArray name) { return configureSharedMem(name.data()) == 0; }
};

class OwnLogical : public ostrel_logical_base {
public:
    void setName(const QString& name) override { setupVariable(name); }
    void sample() override { ++samples; }
    int samples = 0;
};

class OwnProbe : public GLTest {};

class OwnTable : public zelTable {
public:
    int rows() const { return findChild<QTableWidget*>(QStringLiteral("tableWidget"))->rowCount(); }
};

class OwnStyle : public LabelStyle {};

void useBases() {
    OwnPicture picture;
    expect(picture.bind("OIL_TEMP") && picture.ptr(), "GLOstrelBase");
    expect(TimerModerator::requestTimer(&picture, 100) && TimerModerator::isRegistered(&picture, 100),
           "TimerModerator");
    OwnLogical logical;
    logical.setName(QStringLiteral("OIL_TEMP"));
    logical.ostrelTimerEvent(logical.getSampleRate());
    expect(logical.ptr() && logical.samples == 1, "ostrel_logical_base");
    const OwnProbe probe;
    char noExtension[] = "";
    expect(!VBOS_ENABLED && !IsExtensionSupported(noExtension), "GLTest");
    expect(OwnTable().rows() == 3, "zelTable");
    expect(OwnStyle().inherits("LabelStyle"), "LabelStyle");
}

void useVariables() {
    ZelVariable box(QT_OSTREL_REAL, nullptr, true, false);
    box.setVariableTypes(QT_OSTREL_REAL);
    expect(box.variables().contains(QStringLiteral("OIL_TEMP [degC]")), "ZelVariable");
    expect(ZelVariable(&box).comboBox()->count() == box.comboBox()->count(), "ZelVariable's copy");
    expect(ZelVariable::GetVariablesForType(QT_OSTREL_ANY).contains(QStringLiteral("OIL_TEMP")), "GetVariablesForType");
    const std::unique_ptr<QHash<QString, QString>> units(ZelVariable::GetVariablesAndUnitsForType(QT_OSTREL_ANY));
    expect(units->value(QStringLiteral("OIL_TEMP")) == QLatin1String("degC"), "GetVariablesAndUnitsForType");
    QMap<QString, QStringList> groups;
    const VariableMapList catalogue(&groups, QT_OSTREL_ANY, nullptr);
    expect(groups.contains(QStringLiteral("General Use (real)")), "VariableMapList");
}

void useDialogs() {
    QWidget window;
    VariableSelectionDialog variables(&window, QT_OSTREL_REAL, QStringLiteral("OIL_TEMP"));
    variables.show();
    expect(variables.text() == QLatin1String("OIL_TEMP") && variables.indexOfSelectedVarName() >= 0,
           "VariableSelectionDialog");
    UnitsDialog units(&window);
    units.setItems({QStringLiteral("degC"), QStringLiteral("degF")});
    expect(units.value() == QLatin1String("degC"), "UnitsDialog");
    ChannelIndexSelectionDialog channels(&window, QT_OSTREL_IO_MEM, QStringLiteral("not_set"));
    channels.show();
    expect(channels.getSelectedChannelIndexNumber().isEmpty(), "ChannelIndexSelectionDialog");
    MultiSelectionDialog table(&window);
    expect(table.findChild<QTableWidget*>() && table.findChild<QDialogButtonBox*>(), "MultiSelectionDialog");
    ComboDelegate delegate({QStringLiteral("ONE")}, nullptr);
    const std::unique_ptr<QWidget> editor(delegate.createEditor(&window, {}, {}));
    expect(qobject_cast<QComboBox*>(editor.get()), "ComboDelegate");
    const MyController controller(&window);
    expect(controller.findChild<ObjectController*>(), "MyController");
    ObjectController properties;
    properties.setObject(&window);
    expect(properties.object() == &window, "ObjectController");
}

// A thread that runs, and has ended when its time is up.
void useCommands() {
    SimpleTokenizer words(QStringLiteral("true 'a b',c"));
    expect(words.nextToken() == QLatin1String("true") && words.nextToken() == QLatin1String("a b") &&
               words.nextToken() == QLatin1String("c") && words.nextToken().isNull(),
           "SimpleTokenizer");
    QWidget window;
    window.setEnabled(false);
    CmdThread command(QStringLiteral("true"), -1, false, &window);
    command.start();
    QElapsedTimer timer;
    timer.start();
    while (!window.isEnabled() && timer.elapsed() < 10000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    expect(window.isEnabled(), "CmdThread");
}

void useEvents() {
    bool isHeard = false;
    QObject::connect(&SignalSlotSingleton::getInstance(), &SignalSlotSingleton::commitToOstrel,
                     [&] { isHeard = true; });
    emit SignalSlotSingleton::getInstance().commitToOstrel();
    expect(isHeard, "SignalSlotSingleton");
    const OstrelEvent event("start", 0, 1);
    expect(event.getName() == "start", "OstrelEvent");
    OwnLogical logical;
    OstrelGblConfigEvent reconfigurations(static_cast<SM_AREA_ID>(-1));
    reconfigurations.addCallGRC(&logical, static_cast<SM_AREA_ID>(-1));
    expect(reconfigurations.hasPlugin(&logical), "OstrelGblConfigEvent");
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    useWidgets();
    usePlugins();
    useBases();
    useVariables();
    useDialogs();
    useCommands();
    useEvents();
    TimerModerator::shutDown();
    std::fflush(stderr);
    // Threads that wait for a tick go on waiting.
    std::_Exit(faults == 0 ? 0 : 1);
}
