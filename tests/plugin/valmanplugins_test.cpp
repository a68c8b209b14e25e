// What Qt Designer is told of the value manager's widgets, and the task menus that it gets for them.
#include <QAction>
#include <QDesignerFormEditorInterface>
#include <QDesignerTaskMenuExtension>
#include <QExtensionManager>
#include <QIcon>
#include <memory>

#include "collection/ostrelplugins.h"
#include "plugintest.h"
#include "qttests.h"
#include "valuemanager/ComboBoxPlugin/ComboBoxContentsCommand.h"
#include "valuemanager/ComboBoxPlugin/ValManComboBoxTaskMenu.h"
#include "valuemanager/ComboBoxPlugin/ValManComboBoxWidget.h"
#include "valuemanager/ValueManagerPluginBase.h"
#include "valuemanager/ValueManagerWidgetBase.h"

namespace {

const QString taskMenu = QStringLiteral("org.qt-project.Qt.Designer.TaskMenu");

class Manager : public QExtensionManager {
public:
    void registerExtensions(QAbstractExtensionFactory* factory, const QString& iid) override {
        registered.append(iid);
        factories.append(factory);
        QExtensionManager::registerExtensions(factory, iid);
    }
    QStringList registered;
    QList<QAbstractExtensionFactory*> factories;
};

class Editor : public QDesignerFormEditorInterface {
public:
    explicit Editor(QExtensionManager* manager) { setExtensionManager(manager); }
};

const QStringList editors{"ValManFileWidget", "ValManStringWidget", "ValManLogicalWidget", "ValManComboBoxWidget",
                          "ValManNumericWidget"};

}  // namespace

class ValManPluginsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        startAsHost();
        m_collection = std::make_unique<OstrelPlugins>();
    }

    void theyComeFirst();
    void eachDescribesItself_data();
    void eachDescribesItself();
    void theBaseGivesBackWhatItWasGiven();
    void aHostInitialisesNothing();
    void eachEditorRegistersItsMenuOnce();
    void theButtonsRegisterNothing();
    void aMenuHasOneEntryWhichIsPreferred();
    void anEntryWithoutAFormDoesNothing();
    void otherInterfacesAndWidgetsHaveNoMenu();

private:
    QDesignerCustomWidgetInterface* plugin(const QString& name) const {
        for (QDesignerCustomWidgetInterface* each : m_collection->customWidgets())
            if (each->name() == name)
                return each;
        return nullptr;
    }

    std::unique_ptr<OstrelPlugins> m_collection;
};

void ValManPluginsTest::theyComeFirst() {
    QStringList names;
    for (QDesignerCustomWidgetInterface* each : m_collection->customWidgets().mid(0, 8))
        names.append(each->name());
    QCOMPARE(names, editors + QStringList({"ValManOKWidget", "ValManCancelWidget", "ZelValue"}));
}

void ValManPluginsTest::eachDescribesItself_data() {
    QTest::addColumn<QString>("whatsThis");
    QTest::newRow("ValManLogicalWidget") << "ValManLogicalWidget is used to display the value of logical variable, and "
                                            "provide interaction through a checkbox.";
    QTest::newRow("ValManStringWidget") << "ValManStringWidget is used to display the value of String variable, and "
                                           "provide interaction through a checkbox.";
    QTest::newRow("ValManNumericWidget") << "ValManNumericWidget is used to display the value of Numeric variable, and "
                                            "provide interaction through a text input box.";
    QTest::newRow("ValManFileWidget")
        << "ValManFileWidget is used to display the value of a string variable and select "
           "new values through a file browser";
    QTest::newRow("ValManComboBoxWidget")
        << "ValManComboBoxWidget is used to display the value of a ostrel variable and "
           "select new values through a combobox";
    QTest::newRow("ValManOKWidget")
        << "ValManOKWidget is used to set an event if the event name has been specified and "
           "commit values to ostrel ";
    QTest::newRow("ValManCancelWidget")
        << "ValManCancelWidget is used to exit the value manager dialog and set a specified event";
}

void ValManPluginsTest::eachDescribesItself() {
    QFETCH(QString, whatsThis);
    const QString name = QTest::currentDataTag();
    auto* described = plugin(name);
    QVERIFY(described);
    QCOMPARE(described->whatsThis(), whatsThis);
    QCOMPARE(described->toolTip(), QString("A ValueManager widget"));
    QCOMPARE(described->group(), QString("ValueManager"));
    QCOMPARE(described->includeFile(), name + ".h");
    QCOMPARE(described->domXml(), QString("<widget class=\"%1\" name=\"%1\">\n</widget>\n").arg(name));
    QVERIFY(!described->isContainer());
    const QPixmap expected(":/resources/" + name.toLower() + ".png");
    QVERIFY(!expected.isNull());
    QCOMPARE(described->icon().pixmap(expected.size()).toImage(), QIcon(expected).pixmap(expected.size()).toImage());
    QWidget form;
    const QWidget* built = described->createWidget(&form);
    QCOMPARE(QString(built->metaObject()->className()), name);
    QCOMPARE(built->parentWidget(), &form);
}

void ValManPluginsTest::theBaseGivesBackWhatItWasGiven() {
    QPixmap picture(4, 4);
    picture.fill(Qt::red);
    QObject parent;
    auto* base =
        new ValueManagerPluginBase(&parent, "dom", "include", "name", "what", "group", "tip", QIcon(picture), true);
    QCOMPARE(base->domXml(), QString("dom"));
    QCOMPARE(base->includeFile(), QString("include"));
    QCOMPARE(base->name(), QString("name"));
    QCOMPARE(base->whatsThis(), QString("what"));
    QCOMPARE(base->group(), QString("group"));
    QCOMPARE(base->toolTip(), QString("tip"));
    QVERIFY(base->isContainer());
    QCOMPARE(base->icon().pixmap(4, 4).toImage().pixelColor(1, 1), QColor(Qt::red));
    QVERIFY(!base->isInitialized());
    base->initialize(nullptr);
    QVERIFY(base->isInitialized());
    const std::unique_ptr<QWidget> widget(base->createWidget(nullptr));
    QCOMPARE(QString(widget->metaObject()->className()), QString("ValueManagerWidgetBase"));
    QCOMPARE(widget->actions().size(), 3);
}

void ValManPluginsTest::aHostInitialisesNothing() {
    for (const QString& name : editors) {
        delete plugin(name)->createWidget(nullptr);
        QVERIFY2(!plugin(name)->isInitialized(), qPrintable(name));
    }
}

void ValManPluginsTest::eachEditorRegistersItsMenuOnce() {
    for (const QString& name : editors) {
        Manager manager;
        Editor editor(&manager);
        plugin(name)->initialize(&editor);
        QCOMPARE(manager.registered, QStringList{taskMenu});
        QCOMPARE(dynamic_cast<QObject*>(manager.factories[0])->parent(), &manager);
        QVERIFY(plugin(name)->isInitialized());
        plugin(name)->initialize(&editor);
        QCOMPARE(manager.registered.size(), 1);
    }
}

void ValManPluginsTest::theButtonsRegisterNothing() {
    for (const char* name : {"ValManOKWidget", "ValManCancelWidget"}) {
        Manager manager;
        Editor editor(&manager);
        plugin(name)->initialize(&editor);
        QVERIFY(plugin(name)->isInitialized());
        QCOMPARE(manager.registered, QStringList());
    }
}

void ValManPluginsTest::aMenuHasOneEntryWhichIsPreferred() {
    for (const QString& name : editors) {
        Manager manager;
        Editor editor(&manager);
        plugin(name)->initialize(&editor);
        const std::unique_ptr<QWidget> widget(plugin(name)->createWidget(nullptr));
        QObject* extension = manager.extension(widget.get(), taskMenu);
        QVERIFY2(extension, qPrintable(name));
        QCOMPARE(QString(extension->metaObject()->className()), QString(name).replace("Widget", "TaskMenu"));
        QCOMPARE(QString(extension->metaObject()->superClass()->className()), QString("ValueManagerTaskMenuBase"));
        auto* menu = qobject_cast<QDesignerTaskMenuExtension*>(extension);
        QVERIFY(menu);
        QCOMPARE(menu->taskActions().size(), 1);
        QCOMPARE(menu->taskActions()[0]->text(), QString("Edit State..."));
        QCOMPARE(menu->preferredEditAction(), menu->taskActions()[0]);
        QCOMPARE(menu->taskActions()[0]->parent(), extension);
    }
}

void ValManPluginsTest::anEntryWithoutAFormDoesNothing() {
    for (const QString& name : editors) {
        Manager manager;
        Editor editor(&manager);
        plugin(name)->initialize(&editor);
        const std::unique_ptr<QWidget> widget(plugin(name)->createWidget(nullptr));
        widget->setProperty("comboBoxContents", "a;b");
        auto* menu = qobject_cast<QDesignerTaskMenuExtension*>(manager.extension(widget.get(), taskMenu));
        menu->preferredEditAction()->trigger();
        QVERIFY(!QApplication::activeModalWidget());
    }
    ValManComboBoxWidget widget(nullptr);
    widget.setProperty("comboBoxContents", "a;b");
    ComboBoxContentsCommand command(&widget, "a;b", "c");
    command.redo();
    QCOMPARE(widget.property("comboBoxContents").toString(), QString("a;b"));
    widget.setProperty("comboBoxContents", "d");
    command.undo();
    QCOMPARE(widget.property("comboBoxContents").toString(), QString("d"));
}

void ValManPluginsTest::otherInterfacesAndWidgetsHaveNoMenu() {
    for (const QString& name : editors) {
        Manager manager;
        Editor editor(&manager);
        plugin(name)->initialize(&editor);
        const std::unique_ptr<QWidget> widget(plugin(name)->createWidget(nullptr));
        const QString other = name == editors.first() ? editors.last() : editors.first();
        const std::unique_ptr<QWidget> stranger(plugin(other)->createWidget(nullptr));
        QAbstractExtensionFactory* factory = manager.factories[0];
        QVERIFY(!factory->extension(stranger.get(), taskMenu));
        QVERIFY(!factory->extension(&manager, taskMenu));
        QVERIFY(!factory->extension(widget.get(), "org.qt-project.Qt.Designer.MemberSheet"));
        QVERIFY(factory->extension(widget.get(), taskMenu));
    }
}

OSTREL_TEST(ValManPluginsTest)
#include "valmanplugins_test.moc"
