// The box in which a variable is chosen, and its two look-ups without a screen.
#include <ostrel/store.h>

#include <QAbstractItemView>
#include <QCompleter>
#include <QMessageBox>
#include <QPointer>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <memory>

#include "qttests.h"
#include "selectiontest.h"
#include "widgets/zelvariableplugin.h"
#include "widgets/zelvariablewidget.h"

namespace {

QT_OSTREL_VAR_TYPE filter(int flags) {
    return QT_OSTREL_VAR_TYPE(QFlag(flags));
}

// A variable of each kind of section, and aliases of most.
void serveAllKinds() {
    scripted::Areas& areas = platform().areas();
    areas.serve();
    SYSTEM_ATTRIBUTES& attributes = areas.attributes();
    attributes.max_num_gu_real = attributes.max_num_gu_integer = attributes.max_num_gu_logical = 4;
    attributes.max_num_gu_string = attributes.max_num_gu_stat = attributes.max_array_real = 2;
    attributes.max_array_integer = attributes.max_array_string = attributes.max_array_logical = 2;
    scripted::put(areas.put<REAL_VARIABLE>(GU_REAL_MEM, 0, "SPEED").units, "RPM");
    scripted::put(areas.put<REAL_VARIABLE>(GU_REAL_MEM, 1, "power").units, "kW");
    scripted::put(areas.put<INTEGER_VARIABLE>(GU_INTEGER_MEM, 0, "COUNT").units, "");
    areas.put<LOGICAL_VARIABLE>(GU_LOGICAL_MEM, 0, "RUN");
    areas.put<STRING_VARIABLE>(GU_STRING_MEM, 0, "OPERATOR");
    areas.put<REAL_ARRAY_VARIABLE>(REAL_ARRAY_MEM, 0, "EXH");
    areas.put<INTEGER_ARRAY_VARIABLE>(INT_ARRAY_MEM, 0, "CODES");
    areas.put<STRING_ARRAY_VARIABLE>(STRING_ARRAY_MEM, 0, "STEPS");
    areas.put<LOGICAL_ARRAY_VARIABLE>(LOGI_ARRAY_MEM, 0, "DOORS");
    areas.put<STAT_VARIABLE>(GU_STAT_MEM, 0, "TRQ.");
    areas.put<COMP_VARIABLE>(PROPERTIES_MEM, 0, "GAS.");
    areas.put<PROP_VARIABLE>(PROPERTIES_MEM, 0, "AIR.", 70448);
    areas.put<EMIS_VARIABLE>(PROPERTIES_MEM, 0, "EMI.", 377648);
    platform().real("SPEED").units("RPM");
    platform().alias("N", "SPEED");
    platform().logical("RUN");
    platform().alias("ON", "RUN");
    platform().string("OPERATOR");
    platform().alias("WHO", "OPERATOR");
    scripted::put(platform().realArray("EXH")[0].units, "degC");
    platform().alias("T_EXH", "EXH");
    platform().logicalArray("DOORS");
    platform().alias("GATES", "DOORS");
    platform().statistics("TRQ.");
    platform().alias("TORQUE", "TRQ.");
}

// As a host has it, with the entries of these kinds.
struct Loaded {
    explicit Loaded(int flags, bool hideLabels = false) : widget(filter(0), nullptr, true, hideLabels) {
        widget.setVariableTypes(filter(flags));
    }
    QComboBox* box() const { return widget.comboBox(); }

    ZelVariable widget;
};

QStringList sortedKeys(const QHash<QString, QString>& table) {
    QStringList lines;
    for (auto entry = table.begin(); entry != table.end(); ++entry)
        lines.append(entry.key() + '=' + entry.value());
    lines.sort();
    return lines;
}

}  // namespace

class ZelVariableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void itsPluginStandsInNoCollection();
    void aNewOneIsEmpty();
    void itsSlotsAndItsSignal();
    void aFilterTakesItsKindsAndTheirArrays_data();
    void aFilterTakesItsKindsAndTheirArrays();
    void anEntryHasItsUnitsInBrackets();
    void namesAloneWhereLabelsAreHidden();
    void aVariableWithMembersHasAnEntryForEach();
    void onlyWhatIsActiveAsOneIsListed();
    void anAliasWithoutATextIsNoEntry();
    void withoutTheRealsNothingIsOfGeneralUse();
    void anAreaThatDoesNotLinkIsLeftOut();

    void theBoxIsSortedWithoutRegardToCase();
    void theListIsLoadedOnce();
    void anEntryIsSelectedByItsText();
    void whatIsTypedIsCompleted();
    void whatIsNoVariableIsNotPutIntoTheList();
    void aTypedEntryIsTakenWithTheReturnKey();

    void namesWithoutAScreen();
    void unitsWithoutAScreen();
    void aCopyHasTheEntries();
    void itsPlaceAndItsToolTip();
    void withoutAStoreTheProcessEnds();
    void withoutAStoreLaterItStaysEmpty();
};

void ZelVariableTest::init() {
    startAsHost();
    serveAllKinds();
}

void ZelVariableTest::itsPluginStandsInNoCollection() {
    ZelVariablePlugin plugin;
    QCOMPARE(plugin.name(), QString("ZelVariable"));
    QCOMPARE(plugin.group(), QString("Ostrel"));
    QCOMPARE(plugin.includeFile(), QString("zelvariablewidget.h"));
    QCOMPARE(plugin.domXml(), QString("<widget class=\"ZelVariable\" name=\"ZelVariable\">\n</widget>\n"));
    QCOMPARE(plugin.toolTip() + plugin.whatsThis(), QString());
    QVERIFY(plugin.icon().isNull());
    QVERIFY(!plugin.isContainer());
    QWidget form;
    auto* made = qobject_cast<ZelVariable*>(plugin.createWidget(&form));
    QVERIFY(made);
    QCOMPARE(made->parentWidget(), &form);
    QCOMPARE(made->variableTypes(), filter(QT_OSTREL_REAL_INTEGER));
    QCOMPARE(made->comboBox()->count(), 0);
    made->setVariableTypes(filter(QT_OSTREL_REAL));
    QVERIFY(made->variables().contains("power"));
}

void ZelVariableTest::aNewOneIsEmpty() {
    platform().forgetCalls();
    ZelVariable widget(filter(QT_OSTREL_LOGICAL), nullptr, true, false);
    QCOMPARE(platform().areas().links(SYS_ATTR_MEM), 1);
    QCOMPARE(widget.variableTypes(), filter(QT_OSTREL_LOGICAL));
    QCOMPARE(widget.variables(), QStringList());
    QCOMPARE(widget.variable(), QString());
    QCOMPARE(widget.comboBox()->parentWidget(), &widget);
    QCOMPARE(widget.comboBox()->count(), 0);
    QVERIFY(!widget.comboBox()->isEditable());
    const auto* layout = qobject_cast<QVBoxLayout*>(widget.layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->itemAt(0)->widget(), widget.comboBox());
}

void ZelVariableTest::itsSlotsAndItsSignal() {
    const QMetaObject& meta = ZelVariable::staticMetaObject;
    QCOMPARE(QByteArray(meta.superClass()->className()), QByteArray("QWidget"));
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(meta.method(i).methodSignature());
    QCOMPARE(methods, QStringList({"indexChanged(int)", "setSelectedText(QString)",
                                   "setVariableTypes(QT_OSTREL_VAR_TYPE)", "slotChangeIndex(int)"}));
}

void ZelVariableTest::aFilterTakesItsKindsAndTheirArrays_data() {
    QTest::addColumn<int>("flags");
    QTest::addColumn<QStringList>("names");
    const QStringList reals{"N", "SPEED", "power"};
    const QStringList arrays{"T_EXH", "EXH", "CODES"};
    QTest::newRow("none") << 0 << QStringList();
    QTest::newRow("array") << int{QT_OSTREL_ARRAY} << QStringList();
    QTest::newRow("real") << int{QT_OSTREL_REAL} << reals + arrays;
    QTest::newRow("integer") << int{QT_OSTREL_INTEGER} << QStringList({"COUNT"});
    QTest::newRow("real and integer") << int{QT_OSTREL_REAL_INTEGER} << reals + QStringList({"COUNT"}) + arrays;
    QTest::newRow("logical") << int{QT_OSTREL_LOGICAL} << QStringList({"ON", "RUN", "GATES", "DOORS"});
    QTest::newRow("string") << int{QT_OSTREL_STRING} << QStringList({"WHO", "OPERATOR", "STEPS"});
    QTest::newRow("channels") << int{QT_OSTREL_IO_MEM} << QStringList();
    QTest::newRow("property") << int{QT_OSTREL_PROP} << QStringList();
}

void ZelVariableTest::aFilterTakesItsKindsAndTheirArrays() {
    QFETCH(int, flags);
    QFETCH(QStringList, names);
    QCOMPARE(Loaded(flags, true).widget.variables(), names);
}

void ZelVariableTest::anEntryHasItsUnitsInBrackets() {
    QStringList expected{"N [RPM]",       "SPEED [RPM]",    "power [kW]",        "COUNT []",       "ON [Logical]",
                         "RUN [Logical]", "WHO [String]",   "OPERATOR [String]", "T_EXH [degC]",   "EXH",
                         "CODES",         "STEPS [String]", "GATES [Logical]",   "DOORS [Logical]"};
    const QStringList all = Loaded(QT_OSTREL_ANY).widget.variables();
    QCOMPARE(all.mid(0, expected.size()), expected);
    // What has members has neither units nor brackets.
    QVERIFY(all.mid(expected.size()).filter("[").isEmpty());
}

void ZelVariableTest::namesAloneWhereLabelsAreHidden() {
    const QStringList all = Loaded(QT_OSTREL_ANY, true).widget.variables();
    QVERIFY(all.filter("[").isEmpty());
    QCOMPARE(all.first(), QString("N"));
}

void ZelVariableTest::aVariableWithMembersHasAnEntryForEach() {
    const QStringList statistics = Loaded(QT_OSTREL_STAT).widget.variables();
    QCOMPARE(statistics.size(), 1 + 33);
    QCOMPARE(statistics.mid(0, 3), QStringList({"TORQUE", "TRQ.AV", "TRQ.MN"}));
    QCOMPARE(statistics.last(), QString("TRQ.NR"));
    const QStringList fluids = Loaded(QT_OSTREL_COMP).widget.variables();
    QCOMPARE(fluids.size(), 49 + 47 + 57);
    QCOMPARE(fluids.first(), QString("GAS.H2"));
    QCOMPARE(fluids.at(49), QString("AIR.AT"));
    QCOMPARE(fluids.last(), QString("EMI.UT"));
}

void ZelVariableTest::onlyWhatIsActiveAsOneIsListed() {
    scripted::Areas& areas = platform().areas();
    areas.put<REAL_VARIABLE>(GU_REAL_MEM, 1, "RETIRED").active = 0;
    areas.put<REAL_VARIABLE>(GU_REAL_MEM, 2, "OTHERWISE").active = 2;
    areas.put<REAL_VARIABLE>(GU_REAL_MEM, 3, "LAST");
    areas.put<STAT_VARIABLE>(GU_STAT_MEM, 0, "TRQ.").active = 2;
    QCOMPARE(Loaded(QT_OSTREL_REAL, true).widget.variables().mid(0, 3), QStringList({"N", "SPEED", "LAST"}));
    QCOMPARE(Loaded(QT_OSTREL_STAT).widget.variables(), QStringList());
}

void ZelVariableTest::anAliasWithoutATextIsNoEntry() {
    platform().alwaysAnswer("find_alias_of_target", 0);
    QCOMPARE(Loaded(QT_OSTREL_INTEGER, true).widget.variables(), QStringList({"COUNT"}));
}

void ZelVariableTest::withoutTheRealsNothingIsOfGeneralUse() {
    platform().areas().refuse(GU_REAL_MEM);
    QCOMPARE(Loaded(QT_OSTREL_LOGICAL, true).widget.variables(), QStringList({"GATES", "DOORS"}));
}

void ZelVariableTest::anAreaThatDoesNotLinkIsLeftOut() {
    platform().areas().refuse(PROPERTIES_MEM);
    platform().areas().refuse(LOGI_ARRAY_MEM);
    QCOMPARE(Loaded(QT_OSTREL_COMP).widget.variables(), QStringList());
    QCOMPARE(Loaded(QT_OSTREL_LOGICAL, true).widget.variables(), QStringList({"ON", "RUN"}));
    // What the walk has linked is released.
    QCOMPARE(platform().areas().links(GU_REAL_MEM), 0);
}

void ZelVariableTest::theBoxIsSortedWithoutRegardToCase() {
    const Loaded loaded(QT_OSTREL_REAL);
    QCOMPARE(itemsOf(loaded.box()),
             QStringList({"", "CODES", "EXH", "N [RPM]", "power [kW]", "SPEED [RPM]", "T_EXH [degC]"}));
    QCOMPARE(loaded.box()->currentIndex(), 0);
    QCOMPARE(loaded.widget.variable(), QString());
    QVERIFY(loaded.box()->isEditable());
    QCOMPARE(loaded.box()->insertPolicy(), QComboBox::InsertAlphabetically);
    QVERIFY(loaded.box()->isEnabled());
}

void ZelVariableTest::theListIsLoadedOnce() {
    Loaded loaded(QT_OSTREL_REAL);
    const QStringList before = itemsOf(loaded.box());
    loaded.widget.setVariableTypes(filter(QT_OSTREL_LOGICAL));
    QCOMPARE(loaded.widget.variableTypes(), filter(QT_OSTREL_LOGICAL));
    QCOMPARE(itemsOf(loaded.box()), before);
}

void ZelVariableTest::anEntryIsSelectedByItsText() {
    Loaded loaded(QT_OSTREL_REAL);
    const QSignalSpy changes(&loaded.widget, &ZelVariable::indexChanged);
    loaded.widget.setSelectedText("power [kW]");
    QCOMPARE(loaded.widget.variable(), QString("power [kW]"));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).toInt(), 4);
    for (const char* unknown : {"power", "POWER [kW]", "NOBODY"})
        loaded.widget.setSelectedText(unknown);
    QCOMPARE(loaded.box()->currentIndex(), 4);
    QCOMPARE(changes.count(), 1);
    // Chosen by hand.
    emit loaded.box()->activated(1);
    QCOMPARE(loaded.widget.variable(), QString("CODES"));
    Loaded bare(QT_OSTREL_REAL, true);
    emit bare.box()->activated(bare.box()->findText("power"));
    QCOMPARE(bare.widget.variable(), QString("power"));
}

void ZelVariableTest::whatIsTypedIsCompleted() {
    Loaded loaded(QT_OSTREL_REAL);
    loaded.widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&loaded.widget));
    loaded.box()->lineEdit()->setFocus();
    QCOMPARE(loaded.box()->completer()->caseSensitivity(), Qt::CaseInsensitive);
    QCOMPARE(loaded.box()->completer()->model(), loaded.box()->model());
    retype(loaded.box()->lineEdit(), "POW");
    QAbstractItemView* list = loaded.box()->completer()->popup();
    QTRY_VERIFY(list->isVisible());
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(loaded.widget.variable(), QString("power [kW]"));
    QCOMPARE(loaded.box()->currentIndex(), 4);
}

// The box would put it at its place in the alphabet, by overwriting the entry that it finds there.
void ZelVariableTest::whatIsNoVariableIsNotPutIntoTheList() {
    Loaded loaded(QT_OSTREL_REAL);
    const QStringList before = itemsOf(loaded.box());
    loaded.widget.setSelectedText("CODES");
    retype(loaded.box()->lineEdit(), "NOBODY");
    QTest::keyClick(loaded.box()->lineEdit(), Qt::Key_Return);
    QCOMPARE(itemsOf(loaded.box()), before);
    QCOMPARE(loaded.widget.variable(), QString("NOBODY"));
    QCOMPARE(loaded.box()->currentIndex(), 1);
}

void ZelVariableTest::aTypedEntryIsTakenWithTheReturnKey() {
    Loaded loaded(QT_OSTREL_REAL);
    retype(loaded.box()->lineEdit(), "EXH");
    QTest::keyClick(loaded.box()->lineEdit(), Qt::Key_Return);
    QCOMPARE(loaded.box()->currentIndex(), 2);
}

void ZelVariableTest::namesWithoutAScreen() {
    const int widgets = QApplication::allWidgets().size();
    QCOMPARE(ZelVariable::GetVariablesForType(filter(QT_OSTREL_LOGICAL)), QStringList({"ON", "RUN", "GATES", "DOORS"}));
    QCOMPARE(QApplication::allWidgets().size(), widgets);
}

void ZelVariableTest::unitsWithoutAScreen() {
    const std::unique_ptr<QHash<QString, QString>> table(
        ZelVariable::GetVariablesAndUnitsForType(filter(QT_OSTREL_ANY)));
    QCOMPARE(sortedKeys(*table),
             QStringList({"AIR.=NONE", "CODES=NONE", "COUNT=", "DOORS=Logical", "EMI.=NONE", "EXH=NONE", "GAS.=NONE",
                          "GATES=Logical", "N=RPM", "ON=Logical", "OPERATOR=String", "RUN=Logical", "SPEED=RPM",
                          "STEPS=String", "TORQUE=NONE", "TRQ.=NONE", "T_EXH=degC", "WHO=String", "power=kW"}));
    const std::unique_ptr<QHash<QString, QString>> other(
        ZelVariable::GetVariablesAndUnitsForType(filter(QT_OSTREL_ANY)));
    QVERIFY(table != other);
}

void ZelVariableTest::aCopyHasTheEntries() {
    Loaded source(QT_OSTREL_REAL);
    ZelVariable copy(&source.widget);
    QCOMPARE(copy.variables(), source.widget.variables());
    QCOMPARE(copy.variableTypes(), filter(QT_OSTREL_REAL));
    QCOMPARE(itemsOf(copy.comboBox()), itemsOf(source.box()));
    QVERIFY(!copy.parentWidget());
    copy.setVariableTypes(filter(QT_OSTREL_LOGICAL));
    QCOMPARE(copy.variables(), source.widget.variables());
    const QSignalSpy changes(&copy, &ZelVariable::indexChanged);
    copy.setSelectedText("EXH");
    QCOMPARE(changes.count(), 1);
    QCOMPARE(source.widget.variable(), QString());
}

void ZelVariableTest::itsPlaceAndItsToolTip() {
    Loaded loaded(QT_OSTREL_REAL);
    loaded.widget.setRowColNum(3, 4);
    loaded.widget.setSelectionToolTip("of the first axis");
    QCOMPARE(loaded.box()->toolTip(), QString("of the first axis"));
}

static int makeAVariableBoxWithoutAStore(int argc, char** argv) {
    const QApplication application(argc, argv);
    startAsHost();
    const Operator witness({[](QWidget* dialog) {
        auto* message = qobject_cast<QMessageBox*>(dialog);
        std::puts(qPrintable(message->windowTitle() + '|' + message->text()));
        std::fflush(stdout);
        message->button(QMessageBox::Ok)->click();
    }});
    const ZelVariable widget(filter(QT_OSTREL_ANY), nullptr, false, false);
    return 3;
}

void ZelVariableTest::withoutAStoreTheProcessEnds() {
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {"makeAVariableBoxWithoutAStore"});
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    QCOMPARE(child.exitCode(), 255);
    QCOMPARE(child.readAllStandardOutput(),
             QByteArray("OSTREL Must Be Running|Stripchart requires OSTREL to run.\n\nPlease start OSTREL and re-run "
                        "Stripchart.\n"));
}

static int loadAVariableBoxWithoutAStore(int argc, char** argv) {
    const QApplication application(argc, argv);
    startAsHost();
    serveAllKinds();
    ZelVariable widget(filter(QT_OSTREL_ANY), nullptr, false, false);
    platform().areas().refuse(SYS_ATTR_MEM);
    widget.setVariableTypes(filter(QT_OSTREL_REAL));
    if (widget.comboBox()->count() != 0)
        return 4;
    // It loads when there is a store.
    startAsHost();
    serveAllKinds();
    widget.setVariableTypes(filter(QT_OSTREL_INTEGER));
    return widget.variables() == QStringList("COUNT []") ? 0 : 5;
}

void ZelVariableTest::withoutAStoreLaterItStaysEmpty() {
    QCOMPARE(outputWithoutAStore("loadAVariableBoxWithoutAStore"),
             QByteArray("\n Ostrel must be running to use this command\n"));
}

OSTREL_TEST_CHILD(makeAVariableBoxWithoutAStore)
namespace later {
OSTREL_TEST_CHILD(loadAVariableBoxWithoutAStore)
}
OSTREL_TEST(ZelVariableTest)
#include "zelvariable_test.moc"
