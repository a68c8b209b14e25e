// What Qt Designer is told of the widgets.
#include <QIcon>
#include <QTest>
#include <QWidget>
#include <memory>

#include "qttests.h"
#include "widgets/dialgaugeplugin.h"
#include "widgets/zel_stringplugin.h"
#include "widgets/zelledplugin.h"
#include "widgets/zelsimplelogicalplugin.h"
#include "widgets/zelsimplevaluechanindexplugin.h"
#include "widgets/zelsimplevalueplugin.h"
#include "widgets/zelsimplevalueplugin_fl.h"
#include "widgets/zelsliderplugin.h"

namespace {

QString inARow(const char* widgetClass, const char* name) {
    return QStringLiteral(
               "<widget class=\"%1\" name=\"%2\">\n<property name=\"name\">\n<string>not_set</string>\n</property>\n"
               "<property name=\"horizontal\">\n<bool>true</bool>\n</property>\n</widget>\n")
        .arg(QLatin1String(widgetClass), QLatin1String(name));
}

QString compact(const char* widgetClass, const char* name) {
    return QStringLiteral(
               "<widget class=\"%1\" name=\"%2\">\n<property name=\"name\">\n<string>not_set</string>\n"
               "</property></widget>\n")
        .arg(QLatin1String(widgetClass), QLatin1String(name));
}

QString compact(const char* name) {
    return compact(name, name);
}

QString channel(const char* name, const char* more = "") {
    return QStringLiteral(
               "<widget class=\"ZelSimpleValueChanIndex\" name=\"%1\">\n<property name=\"memCode\">\n<number>6</number>"
               "\n</property>\n<property name=\"memIndex\">\n<number>1</number>\n</property>\n%2</widget>\n")
        .arg(QLatin1String(name), QLatin1String(more));
}

using Plugin = std::shared_ptr<QDesignerCustomWidgetInterface>;

}  // namespace

Q_DECLARE_METATYPE(Plugin)

class WidgetPluginsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void description_data();
    void description();
};

void WidgetPluginsTest::description_data() {
    QTest::addColumn<Plugin>("plugin");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QString>("includeFile");
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("whatsThis");
    QTest::newRow("ZelSimpleValuePlugin") << Plugin(new ZelSimpleValuePlugin) << "ZelSimpleValue"
                                          << "zelsimplevalue"
                                          << "zel_simplevalue.h" << compact("ZelSimpleValue") << QString() << QString();
    QTest::newRow("ZelHorizontalValuePlugin")
        << Plugin(new ZelHorizontalValuePlugin) << "ZelSimpleValue"
        << "zelsimplevalue"
        << "zel_simplevalue.h" << inARow("ZelSimpleValue", "ZelSimpleValueH") << QString() << QString();
    QTest::newRow("ZelSimpleValuePlugin_fl")
        << Plugin(new ZelSimpleValuePlugin_fl) << "ZelSimpleValue_fl"
        << "zelsimplevalue"
        << "zel_simplevalue_fl.h" << compact("ZelSimpleValue_fl") << QString() << QString();
    QTest::newRow("ZelHorizontalValuePlugin_fl")
        << Plugin(new ZelHorizontalValuePlugin_fl) << "ZelSimpleValue_fl"
        << "zelsimplevalue"
        << "zel_simplevalue_fl.h" << inARow("ZelSimpleValue_fl", "ZelSimpleValueH_fl") << QString() << QString();
    QTest::newRow("ZelSimpleValueChanIndexPlugin")
        << Plugin(new ZelSimpleValueChanIndexPlugin) << "ZelSimpleValueChanIndex"
        << "zelchannelindex"
        << "zel_simplevaluechanindex.h" << channel("ZelSimpleValueChanIndex") << QString() << QString();
    QTest::newRow("ZelHorizontalChanIndexPlugin")
        << Plugin(new ZelHorizontalChanIndexPlugin) << "ZelSimpleValueChanIndex"
        << "zelchannelindex"
        << "zel_simplevaluechanindex.h"
        << channel("ZelSimpleValueChanIndexH", "<property name=\"horizontal\">\n<bool>true</bool>\n</property>\n")
        << QString() << QString();
    QTest::newRow("ZelSimpleLogicalPlugin")
        << Plugin(new ZelSimpleLogicalPlugin) << "ZelSimpleLogical"
        << "zelsimplelogical"
        << "zel_simplelogical.h" << compact("ZelSimpleLogical") << QString() << QString();
    QTest::newRow("ZelLedPlugin") << Plugin(new ZelLedPlugin) << "ZelLed"
                                  << "zelled"
                                  << "ledwidget.h" << compact("ZelLed") << QString() << QString();
    QTest::newRow("dialgaugePlugin") << Plugin(new dialgaugePlugin) << "ZelDialGauge"
                                     << "zeldialgauge"
                                     << "dialgauge.h" << compact("ZelDialGauge", "dialgauge") << QString() << QString();
    QTest::newRow("ZelSliderPlugin") << Plugin(new ZelSliderPlugin) << "ZelSlider"
                                     << "zelslider"
                                     << "zel_slider.h" << compact("ZelSlider")
                                     << QString("ZelSlider is used with Real and Interger Variables.") << QString();
    QTest::newRow("zel_stringPlugin") << Plugin(new zel_stringPlugin) << "ZelString"
                                      << "zelstring"
                                      << "zelstring.h" << compact("ZelString") << QString()
                                      << QString("ZelString is used to display Ostrel String Variables");
}

void WidgetPluginsTest::description() {
    QFETCH(Plugin, plugin);
    QFETCH(QString, name);
    QFETCH(QString, icon);
    QFETCH(QString, includeFile);
    QFETCH(QString, form);
    QFETCH(QString, toolTip);
    QFETCH(QString, whatsThis);
    QCOMPARE(plugin->name(), name);
    QCOMPARE(plugin->group(), QString("Ostrel"));
    QCOMPARE(plugin->includeFile(), includeFile);
    QCOMPARE(plugin->domXml(), form);
    QCOMPARE(plugin->toolTip(), toolTip);
    QCOMPARE(plugin->whatsThis(), whatsThis);
    QVERIFY(!plugin->isContainer());
    QCOMPARE(plugin->icon().pixmap(16).toImage(),
             QIcon(QStringLiteral(":resources/%1.png").arg(icon)).pixmap(16).toImage());
    QVERIFY(!plugin->icon().isNull());
    QVERIFY(!plugin->isInitialized());
    plugin->initialize(nullptr);
    QVERIFY(plugin->isInitialized());
    const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
    QCOMPARE(QString(widget->metaObject()->className()), name);
}

OSTREL_TEST(WidgetPluginsTest)
#include "widgetplugins_test.moc"
