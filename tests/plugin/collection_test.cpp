// The library as Qt's loaders see it: its name, its entry points, the collection, the palette's texts.
#include <elf.h>

#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QJsonObject>
#include <QPluginLoader>
#include <QTest>
#include <QUiLoader>
#include <QWidget>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <memory>

#include "paths.h"
#include "qttests.h"
#include "scripted/platform.h"

namespace {

template <class Record>
const Record* at(const QByteArray& file, quint64 offset) {
    return reinterpret_cast<const Record*>(file.constData() + offset);
}

// Where the contents of an address of the loaded library stand in its file.
quint64 fileOffset(const QByteArray& file, quint64 address) {
    const auto* header = at<Elf64_Ehdr>(file, 0);
    for (int i = 0; i < header->e_phnum; ++i) {
        const auto* segment = at<Elf64_Phdr>(file, header->e_phoff + static_cast<quint64>(i) * sizeof(Elf64_Phdr));
        if (segment->p_type == PT_LOAD && address >= segment->p_vaddr && address < segment->p_vaddr + segment->p_filesz)
            return address - segment->p_vaddr + segment->p_offset;
    }
    return 0;
}

QByteArray soname(const QByteArray& file) {
    const auto* header = at<Elf64_Ehdr>(file, 0);
    quint64 name = 0;
    quint64 strings = 0;
    for (int i = 0; i < header->e_phnum; ++i) {
        const auto* segment = at<Elf64_Phdr>(file, header->e_phoff + static_cast<quint64>(i) * sizeof(Elf64_Phdr));
        if (segment->p_type != PT_DYNAMIC)
            continue;
        for (auto* entry = at<Elf64_Dyn>(file, segment->p_offset); entry->d_tag != DT_NULL; ++entry) {
            if (entry->d_tag == DT_SONAME)
                name = entry->d_un.d_val;
            if (entry->d_tag == DT_STRTAB)
                strings = entry->d_un.d_ptr;
        }
    }
    return QByteArray(file.constData() + fileOffset(file, strings) + name);
}

QString named(const char* name) {
    return QStringLiteral(
               "<widget class=\"%1\" name=\"%1\">\n<property name=\"name\">\n<string>not_set</string>\n</property>\n"
               "</widget>\n")
        .arg(QLatin1String(name));
}

}  // namespace

class CollectionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void theLibraryHasItsName();
    void itsMetadataNameTheCollection();
    void theInstanceIsMadeOnceAndAgainWhenItIsGone();
    void theCollectionGivesACopyOfItsList();
    void theCollectionOwnsItsPlugins();
    void thePluginsStandInTheOrderOfThePalette();
    void whatStandsInNoCollectionIsNotThere();
    void valueDescribesItself();
    void theActionWidgetsDescribeThemselves_data();
    void theActionWidgetsDescribeThemselves();
    void initialisingTwiceIsInitialised();
    void everyPluginBuildsItsWidget();
    void theIconsAreCompiledIn_data();
    void theIconsAreCompiledIn();
    void qUiLoaderBuildsAForm();

private:
    QList<QDesignerCustomWidgetInterface*> widgets();
    QDesignerCustomWidgetInterface* plugin(const char* name);

    QPluginLoader m_loader{QString(paths::plugin)};
};

void CollectionTest::initTestCase() {
    QVERIFY2(m_loader.load(), qPrintable(m_loader.errorString()));
}

QList<QDesignerCustomWidgetInterface*> CollectionTest::widgets() {
    const auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(m_loader.instance());
    return collection ? collection->customWidgets() : QList<QDesignerCustomWidgetInterface*>();
}

QDesignerCustomWidgetInterface* CollectionTest::plugin(const char* name) {
    const auto all = widgets();
    for (auto* widget : all)
        if (widget->name() == QLatin1String(name))
            return widget;
    return nullptr;
}

void CollectionTest::theLibraryHasItsName() {
    QFile file(QString(paths::plugin));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QFileInfo(file).fileName(), QString("libQt5ostrelplugin.so.7"));
    QCOMPARE(soname(file.readAll()), QByteArray("libQt5ostrelplugin.so.7"));
}

void CollectionTest::itsMetadataNameTheCollection() {
    const QJsonObject metadata = m_loader.metaData();
    QCOMPARE(metadata.value("IID").toString(), QString("org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface"));
    QCOMPARE(metadata.value("className").toString(), QString("OstrelPlugins"));
}

void CollectionTest::theInstanceIsMadeOnceAndAgainWhenItIsGone() {
    QObject* first = m_loader.instance();
    QVERIFY(first);
    QCOMPARE(QByteArray(first->metaObject()->className()), QByteArray("OstrelPlugins"));
    QVERIFY(!first->parent());
    QCOMPARE(m_loader.instance(), first);
    delete first;
    QObject* second = m_loader.instance();
    QVERIFY(second);
    QVERIFY(!widgets().isEmpty());
}

void CollectionTest::theCollectionGivesACopyOfItsList() {
    auto list = widgets();
    const auto count = list.size();
    list.clear();
    QCOMPARE(widgets().size(), count);
}

void CollectionTest::theCollectionOwnsItsPlugins() {
    const auto all = widgets();
    for (auto* widget : all) {
        auto* object = dynamic_cast<QObject*>(widget);
        QVERIFY(object);
        QCOMPARE(object->parent(), m_loader.instance());
        const bool isOfTheValueManager = widget->group() == QLatin1String("ValueManager");
        QCOMPARE(QByteArray(object->metaObject()->superClass()->className()),
                 QByteArray(isOfTheValueManager ? "ValueManagerPluginBase" : "QObject"));
    }
}

void CollectionTest::thePluginsStandInTheOrderOfThePalette() {
    const QStringList palette{"ValManFilePlugin",     "ValManStringPlugin",      "ValManLogicalPlugin",
                              "ValManComboBoxPlugin", "ValManNumericPlugin",     "ValManOKPlugin",
                              "ValManCancelPlugin",   "ZelValuePlugin",          "ZelHorizontalValuePlugin",
                              "ZelLedPlugin",         "ZelTailPlugin",           "dialgaugePlugin",
                              "ZelCmdLinePlugin",     "zel_stringPlugin",        "ZelSliderPlugin",
                              "ZelSimpleValuePlugin", "ZelSimpleValuePlugin_fl", "ZelSimpleValueChanIndexPlugin",
                              "ZelPushButtonPlugin",  "ZelToggleButtonPlugin",   "ZelGroupPlugin",
                              "ZelGroupPlugin_fl",    "ZelCmdButtonPlugin",      "ZelEventButtonPlugin"};
    int last = -1;
    const auto all = widgets();
    QCOMPARE(all.size(), palette.size());
    QCOMPARE(palette.size(), 24);
    for (auto* widget : all) {
        const QString plugin = dynamic_cast<QObject*>(widget)->metaObject()->className();
        const int place = palette.indexOf(plugin);
        QVERIFY2(place > last, qPrintable(plugin));
        last = place;
    }
}

void CollectionTest::whatStandsInNoCollectionIsNotThere() {
    for (const char* name : {"ZelSimpleLogical", "ZelVariable", "TimerModerator"})
        QVERIFY2(!plugin(name), name);
}

void CollectionTest::valueDescribesItself() {
    const auto* value = plugin("ZelValue");
    QVERIFY(value);
    QCOMPARE(value->group(), QString("Ostrel"));
    QCOMPARE(value->includeFile(), QString("zel_value.h"));
    QCOMPARE(value->domXml(), named("ZelValue"));
    QCOMPARE(value->toolTip(),
             QString("ZelValue: Used to display, monitor, and modify Ostrel Real and Integer variables."));
    QCOMPARE(value->whatsThis(), QString("ZelValue is used to display Ostrel Real,Integer and Logical Variables"));
    QVERIFY(!value->isContainer());
    QVERIFY(!value->icon().isNull());
}

void CollectionTest::theActionWidgetsDescribeThemselves_data() {
    QTest::addColumn<QString>("includeFile");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QString>("domXml");
    const auto row = [](const char* name, const char* includeFile, const char* icon, const char* contents) {
        QTest::newRow(name) << includeFile << icon
                            << QStringLiteral("<widget class=\"%1\" name=\"%1\">\n%2</widget>\n")
                                   .arg(QLatin1String(name), QLatin1String(contents));
    };
    row("ZelTail", "opntailwidget.h", "zeltail", "<property name=\"name\">\n<string>not_set</string>\n</property>");
    row("ZelPushButton", "zel_pushbutton.h", "zelpushbutton",
        "<property name=\"name\">\n<string>not_set</string>\n</property>");
    row("ZelToggleButton", "ZelToggleButton.h", "zeltogglebutton",
        "<property name=\"name\">\n<string>not_set</string>\n</property>");
    row("ZelCmdLine", "cmdlinewidget.h", "cmdline",
        "<property name=\"shortcutEnabled\">\n<bool>true</bool>\n</property>\n"
        "<property name=\"saveHistory\">\n<bool>true</bool>\n</property>\n");
    row("ZelCmdButton", "zel_cmdbutton.h", "zelcmdbutton", "");
    row("ZelEventButton", "zel_eventbutton.h", "zelcmdeventbutton", "");
}

void CollectionTest::theActionWidgetsDescribeThemselves() {
    QFETCH(QString, includeFile);
    QFETCH(QString, icon);
    QFETCH(QString, domXml);
    auto* widget = plugin(QTest::currentDataTag());
    QVERIFY(widget);
    QCOMPARE(widget->group(), QString("Ostrel"));
    QCOMPARE(widget->includeFile(), includeFile);
    QCOMPARE(widget->domXml(), domXml);
    QCOMPARE(widget->toolTip(), QString());
    QCOMPARE(widget->whatsThis(), QString());
    QVERIFY(!widget->isContainer());
    const QPixmap expected(":/resources/" + icon + ".png");
    QVERIFY(!expected.isNull());
    QCOMPARE(widget->icon().pixmap(expected.size()).toImage(), QIcon(expected).pixmap(expected.size()).toImage());
}

void CollectionTest::initialisingTwiceIsInitialised() {
    auto* value = plugin("ZelValue");
    QVERIFY(!value->isInitialized());
    value->initialize(nullptr);
    QVERIFY(value->isInitialized());
    value->initialize(nullptr);
    QVERIFY(value->isInitialized());
}

void CollectionTest::everyPluginBuildsItsWidget() {
    QWidget form;
    const auto all = widgets();
    for (auto* widget : all) {
        QWidget* built = widget->createWidget(&form);
        QVERIFY2(built, qPrintable(widget->name()));
        QCOMPARE(built->parentWidget(), &form);
        QVERIFY2(built->inherits(qPrintable(widget->name())), qPrintable(widget->name()));
    }
}

void CollectionTest::theIconsAreCompiledIn_data() {
    QTest::addColumn<QString>("path");
    for (const char* name : {"valmancancelwidget",
                             "cmdline",
                             "zelsimplevalue",
                             "play",
                             "zelled",
                             "valmancomboboxwidget",
                             "zelpushbutton",
                             "zelknob",
                             "zeltail",
                             "valmanokwidget",
                             "zelchannelindex",
                             "zelcmdeventbutton",
                             "valmanstringwidget",
                             "zelgroup",
                             "pause",
                             "zelstring",
                             "valmanfilewidget",
                             "valmanlogicalwidget",
                             "zelstripchart",
                             "zeldialgauge",
                             "zeltogglebutton",
                             "zelslider",
                             "valmannumericwidget",
                             "zelvalue",
                             "zelcmdbutton",
                             "zelsimplelogical",
                             "stripchart"})
        QTest::newRow(name) << QStringLiteral(":/resources/%1.png").arg(QLatin1String(name));
}

void CollectionTest::theIconsAreCompiledIn() {
    QFETCH(QString, path);
    QVERIFY(QFile::exists(path));
    QVERIFY(!QPixmap(path).isNull());
}

void CollectionTest::qUiLoaderBuildsAForm() {
    scripted::platform().real("SPEED").value(1500).format("%g");
    QUiLoader loader;
    loader.clearPluginPaths();
    loader.addPluginPath(QFileInfo(QString(paths::plugin)).absolutePath());
    QVERIFY(loader.availableWidgets().contains("ZelValue"));
    QFile form(QString(paths::sources) + "/tests/plugin/speed.ui");
    QVERIFY(form.open(QIODevice::ReadOnly));
    const std::unique_ptr<QWidget> built(loader.load(&form));
    QVERIFY(built);
    auto* speed = built->findChild<QWidget*>("speed");
    QVERIFY(speed);
    QVERIFY(speed->inherits("ZelValue"));
    QCOMPARE(speed->property("name").toString(), QString("SPEED"));
    QCOMPARE(speed->property("sampleRate").toInt(), 250);
    QCOMPARE(speed->findChild<QWidget*>("value")->property("text").toString(), QString("1500"));
}

OSTREL_TEST(CollectionTest)
#include "collection_test.moc"
