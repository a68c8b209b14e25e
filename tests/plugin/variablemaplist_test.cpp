// The catalogue of variables: what each filter lists, in which order, and how the areas are linked and left.
#include "selection/variablemaplist.h"

#include <ostrel/records.h>
#include <ostrel/store.h>

#include <QCoreApplication>
#include <QProcess>

#include "plugintest.h"
#include "qttests.h"

namespace {

using Groups = QMap<QString, QStringList>;
using scripted::Areas;

constexpr int any = QT_OSTREL_ANY;
constexpr int real = QT_OSTREL_REAL;
constexpr int integer = QT_OSTREL_INTEGER;
constexpr int realInteger = QT_OSTREL_REAL_INTEGER;
constexpr int logical = QT_OSTREL_LOGICAL;
constexpr int string = QT_OSTREL_STRING;
constexpr int array = QT_OSTREL_ARRAY;
constexpr int stat = QT_OSTREL_STAT;
constexpr int comp = QT_OSTREL_COMP;
constexpr int ioMem = QT_OSTREL_IO_MEM;

QT_OSTREL_VAR_TYPE filter(int flags) {
    return QT_OSTREL_VAR_TYPE(QFlag(flags));
}

Groups catalogue(int flags) {
    Groups groups{{QStringLiteral("left over"), {}}};
    const VariableMapList list(&groups, filter(flags), nullptr);
    return groups;
}

QMap<QString, QString> flatCatalogue(int flags) {
    QMap<QString, QString> names{{QStringLiteral("left over"), {}}};
    const VariableMapList list(&names, filter(flags), nullptr);
    return names;
}

// One section: where a record of it is put, and which filters list it.
struct Section {
    const char* label;
    void (*putFirstAndLast)(Areas& areas);
    QVector<int> takenBy;
};

// The first and the last slot of a section with a fixed number of slots.
template <class Record, int area, size_t start, int count>
void fixedSection(Areas& areas) {
    areas.put<Record>(static_cast<SM_AREA_ID>(area), 0, "FIRST", start);
    areas.put<Record>(static_cast<SM_AREA_ID>(area), count - 1, "LAST", start);
}

// Of one whose number of slots, here 3, is a system attribute.
template <class Record, int area, short SYSTEM_ATTRIBUTES::*used>
void growingSection(Areas& areas) {
    areas.attributes().*used = 3;
    areas.put<Record>(static_cast<SM_AREA_ID>(area), 0, "FIRST");
    areas.put<Record>(static_cast<SM_AREA_ID>(area), 2, "LAST");
    areas.put<Record>(static_cast<SM_AREA_ID>(area), 3, "BEHIND_THE_END");
}

using Attributes = SYSTEM_ATTRIBUTES;

const QVector<int> reals = {any, real, realInteger, real | ioMem};
const QVector<int> integers = {any, integer, realInteger};
const QVector<int> logicals = {any, logical};
const QVector<int> strings = {any, string};
const QVector<int> realArrays = {any, array | real, array | realInteger};

const Section sections[] = {
    {"General Use (real)", growingSection<REAL_VARIABLE, GU_REAL_MEM, &Attributes::max_num_gu_real>, reals},
    {"General Use (integer)", growingSection<INTEGER_VARIABLE, GU_INTEGER_MEM, &Attributes::max_num_gu_integer>,
     integers},
    {"General Use (logical)", growingSection<LOGICAL_VARIABLE, GU_LOGICAL_MEM, &Attributes::max_num_gu_logical>,
     logicals},
    {"General Use (string)", growingSection<STRING_VARIABLE, GU_STRING_MEM, &Attributes::max_num_gu_string>, strings},
    {"Analog Inputs", growingSection<REAL_VARIABLE, AI_REAL_MEM, &Attributes::logical_num_ai>, reals},
    {"Frequency Inputs (engineering units)", growingSection<REAL_VARIABLE, FI_REAL_MEM, &Attributes::logical_num_fi>,
     reals},
    {"Counter Inputs (engineering units)", growingSection<REAL_VARIABLE, CI_REAL_MEM, &Attributes::logical_num_ci>,
     reals},
    {"Real (array)", growingSection<REAL_ARRAY_VARIABLE, REAL_ARRAY_MEM, &Attributes::max_array_real>, realArrays},
    {"Integer (array)", growingSection<INTEGER_ARRAY_VARIABLE, INT_ARRAY_MEM, &Attributes::max_array_integer>,
     realArrays},
    {"Counter Inputs (counts)", growingSection<INTEGER_VARIABLE, CI_INTG_MEM, &Attributes::logical_num_ci>, integers},
    {"Engine Performance (real)", fixedSection<REAL_VARIABLE, ENGINE_PERF_MEM, 0, 100>, reals},
    {"Engine Performance (integer)", fixedSection<INTEGER_VARIABLE, ENGINE_PERF_MEM, 39000, 50>, integers},
    {"Engine Constants", fixedSection<REAL_VARIABLE, ENGINE_CONST_MEM, 0, 50>, reals},
    {"Engine/Cell (string)", fixedSection<STRING_VARIABLE, ENGINE_CONST_MEM, 19500, 32>, strings},
    {"Fuel Reading (real)", fixedSection<REAL_VARIABLE, FUEL_READING_MEM, 0, 152>, reals},
    {"Fuel Reading (integer)", fixedSection<INTEGER_VARIABLE, FUEL_READING_MEM, 59280, 16>, integers},
    {"Fuel Reading (string)", fixedSection<STRING_VARIABLE, FUEL_READING_MEM, 64560, 24>, strings},
    {"Control (real)", fixedSection<REAL_VARIABLE, CONTROL_MEM, 0, 893>, reals},
    {"Control (logical)", fixedSection<LOGICAL_VARIABLE, CONTROL_MEM, 348270, 301>, logicals},
    {"Control (integer)", fixedSection<INTEGER_VARIABLE, CONTROL_MEM, 495760, 4>, integers},
    {"Control (string)", fixedSection<STRING_VARIABLE, CONTROL_MEM, 497080, 298>, strings},
    {"Display (string)", fixedSection<STRING_VARIABLE, DISPLAY_STRINGS_MEM, 300, 100>, strings},
    {"String (array)",
     growingSection<STRING_ARRAY_VARIABLE, STRING_ARRAY_MEM, &Attributes::max_array_string>,
     {any, array | string}},
    {"General Purpose (logical)", fixedSection<LOGICAL_VARIABLE, LOGI_MEM, 0, 400>, logicals},
    {"Digital Input (logical)", growingSection<LOGICAL_VARIABLE, DI_LOGI_MEM, &Attributes::logical_num_di>, logicals},
    {"Digital Output (logical)", growingSection<LOGICAL_VARIABLE, DO_LOGI_MEM, &Attributes::num_do>, logicals},
    {"Limit (logical)", growingSection<LOGICAL_VARIABLE, LIMIT_LOGI_MEM, &Attributes::max_limit_logicals>, logicals},
    {"Logical (array)",
     growingSection<LOGICAL_ARRAY_VARIABLE, LOGI_ARRAY_MEM, &Attributes::max_array_logical>,
     {any, array | logical}},
    {"General Use (statistical)",
     growingSection<STAT_VARIABLE, GU_STAT_MEM, &Attributes::max_num_gu_stat>,
     {any, stat}},
    {"Datapoint (statistical)", growingSection<STAT_VARIABLE, DP_STAT_MEM, &Attributes::max_num_dp_stat>, {any, stat}},
    {"Gas/Fluid (composition)", fixedSection<COMP_VARIABLE, PROPERTIES_MEM, 0, 34>, {any, comp}},
    {"Gas/Fluid (property)", fixedSection<PROP_VARIABLE, PROPERTIES_MEM, 70448, 32>, {any, comp}},
    {"Emissions", fixedSection<EMIS_VARIABLE, PROPERTIES_MEM, 377648, 34>, {any, comp}},
};

// Filters that a section is asked with; each lists it or not.
const QVector<int> filters = {0,
                              any,
                              real,
                              integer,
                              realInteger,
                              logical,
                              string,
                              array,
                              array | real,
                              array | integer,
                              array | realInteger,
                              array | string,
                              array | logical,
                              stat,
                              comp,
                              QT_OSTREL_PROP,
                              QT_OSTREL_EMIS,
                              real | ioMem,
                              ioMem};

bool takes(const Section& section, int flags) {
    for (const int taken : section.takenBy)
        if (taken == flags || (taken != any && !(taken & array) && flags == (taken | array)))
            return true;
    return false;
}

void putEverything() {
    for (const Section& section : sections)
        section.putFirstAndLast(platform().areas());
}

// The areas of a walk in the order in which they are linked.
QStringList linkedAreas() {
    QStringList areas;
    for (const QString& call : platform().calls({"get_shrd_mem"}))
        areas.append(call.section(' ', 1, 1));
    return areas;
}

}  // namespace

class VariableMapListTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        startAsHost();
        platform().areas().serve();
        platform().forgetCalls();
    }

    void aSectionIsListedFromItsFirstToItsLastSlot_data();
    void aSectionIsListedFromItsFirstToItsLastSlot();
    void anyListsEverySectionInTheOrderOfTheLabels();
    void noKindGivesAnEmptyMapButNeedsTheStore_data();
    void noKindGivesAnEmptyMapButNeedsTheStore();
    void realIntegerListsRealsAndIntegersButNoArrays();

    void variablesStandInStoreOrderAndAliasesBehindThem();
    void statisticsHaveNoAliases();
    void aSectionWithNothingActiveLeavesNoKey();
    void aLabelThatFillsItsFieldIsReadToItsEnd();

    void inputsAndOutputsAreListedByPosition();
    void inputsAndOutputsWithAnythingElseAreNoSuchRequest();

    void aFlatCatalogueHasNamesWithTheGroupReadLast();
    void aFlatCatalogueOfInputsAndOutputsHasNamesToo();
    void aFlatCatalogueHasNoAliases();
    void onlyTheMapAskedForIsReplaced();

    void theAreasAreLinkedInTheOrderOfTheSections();
    void anAreaOfThisProcessStaysLinked();
    void anAreaThatDoesNotLinkIsLeftOut();
    void withoutTheRealsNoGeneralUseIsListedAndTheOthersStayLinked();
    void withoutAPlaceForItsAddressNoAreaIsLinked();
    void withoutAStoreTheProcessEnds();
};

void VariableMapListTest::aSectionIsListedFromItsFirstToItsLastSlot_data() {
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("flags");
    for (int i = 0; i < static_cast<int>(std::size(sections)); ++i)
        for (const int flags : filters)
            QTest::addRow("%s, %d", sections[i].label, flags) << i << flags;
}

void VariableMapListTest::aSectionIsListedFromItsFirstToItsLastSlot() {
    QFETCH(int, number);
    QFETCH(int, flags);
    const Section& section = sections[number];
    section.putFirstAndLast(platform().areas());
    if (flags != ioMem)
        QCOMPARE(catalogue(flags), takes(section, flags) ? Groups({{section.label, {"FIRST", "LAST"}}}) : Groups());
    else
        QVERIFY(!catalogue(flags).value(section.label).contains("FIRST"));
}

void VariableMapListTest::anyListsEverySectionInTheOrderOfTheLabels() {
    putEverything();
    const QStringList labels = catalogue(any).keys();
    QCOMPARE(labels.size(), 33);
    QCOMPARE(labels.first(), QString("Analog Inputs"));
    QCOMPARE(labels.last(), QString("String (array)"));
    QCOMPARE(labels.indexOf("Control (integer)") + 1, labels.indexOf("Control (logical)"));
    QCOMPARE(labels.indexOf("Engine Performance (real)") + 1, labels.indexOf("Engine/Cell (string)"));
    for (const QStringList& names : catalogue(any))
        QCOMPARE(names, QStringList({"FIRST", "LAST"}));
}

void VariableMapListTest::noKindGivesAnEmptyMapButNeedsTheStore_data() {
    QTest::addColumn<int>("flags");
    for (const int flags : {0, array, int{QT_OSTREL_PROP}, int{QT_OSTREL_EMIS}})
        QTest::addRow("%d", flags) << flags;
}

void VariableMapListTest::noKindGivesAnEmptyMapButNeedsTheStore() {
    QFETCH(int, flags);
    putEverything();
    QCOMPARE(catalogue(flags), Groups());
    QCOMPARE(platform().calls({"link_to_memory"}), QStringList({"link_to_memory 1"}));
}

void VariableMapListTest::realIntegerListsRealsAndIntegersButNoArrays() {
    putEverything();
    QCOMPARE(catalogue(realInteger).keys(),
             QStringList({"Analog Inputs", "Control (integer)", "Control (real)", "Counter Inputs (counts)",
                          "Counter Inputs (engineering units)", "Engine Constants", "Engine Performance (integer)",
                          "Engine Performance (real)", "Frequency Inputs (engineering units)", "Fuel Reading (integer)",
                          "Fuel Reading (real)", "General Use (integer)", "General Use (real)"}));
}

void VariableMapListTest::variablesStandInStoreOrderAndAliasesBehindThem() {
    Areas& areas = platform().areas();
    areas.attributes().max_num_gu_real = 4;
    areas.put<REAL_VARIABLE>(GU_REAL_MEM, 0, "ZETA");
    areas.put<REAL_VARIABLE>(GU_REAL_MEM, 1, "RETIRED").active = 0;
    // Any number that is not zero counts as active here.
    areas.put<REAL_VARIABLE>(GU_REAL_MEM, 2, "BETA").active = 2;
    areas.put<REAL_VARIABLE>(GU_REAL_MEM, 3, "ALPHA");
    platform().alias("A_BETA", "BETA");
    platform().alias("Z_ZETA", "ZETA");
    platform().alias("OF_RETIRED", "RETIRED");
    QCOMPARE(catalogue(real), Groups({{"General Use (real)", {"ZETA", "BETA", "ALPHA", "Z_ZETA", "A_BETA"}}}));
    QCOMPARE(platform().calls({"find_alias_of_target"}),
             QStringList({"find_alias_of_target ZETA", "find_alias_of_target BETA", "find_alias_of_target ALPHA"}));
}

void VariableMapListTest::statisticsHaveNoAliases() {
    Areas& areas = platform().areas();
    areas.attributes().max_num_gu_stat = 1;
    areas.put<STAT_VARIABLE>(GU_STAT_MEM, 0, "TORQUE.");
    platform().alias("T.", "TORQUE.");
    QCOMPARE(catalogue(stat), Groups({{"General Use (statistical)", {"TORQUE."}}}));
    QCOMPARE(platform().calls({"find_alias_of_target"}), QStringList());
}

void VariableMapListTest::aSectionWithNothingActiveLeavesNoKey() {
    Areas& areas = platform().areas();
    areas.attributes().logical_num_ai = 2;
    areas.put<REAL_VARIABLE>(AI_REAL_MEM, 1, "RETIRED").active = 0;
    QCOMPARE(catalogue(real), Groups());
    QCOMPARE(catalogue(ioMem), Groups());
}

void VariableMapListTest::aLabelThatFillsItsFieldIsReadToItsEnd() {
    const QByteArray longest(80, 'X');
    platform().areas().attributes().logical_num_ai = 1;
    platform().areas().put<REAL_VARIABLE>(AI_REAL_MEM, 0, longest.constData());
    QCOMPARE(catalogue(real).value("Analog Inputs"), QStringList({QString::fromLatin1(longest)}));
}

void VariableMapListTest::inputsAndOutputsAreListedByPosition() {
    putEverything();
    for (const char* name : {"FIRST", "LAST"})
        platform().alias((QByteArray("ALIAS_OF_") + name).constData(), name);
    const QStringList positions = {"0", "2"};
    QCOMPARE(catalogue(ioMem), Groups({{"Analog Inputs", positions},
                                       {"Frequency Inputs (engineering units)", positions},
                                       {"Counter Inputs (engineering units)", positions},
                                       {"Counter Inputs (counts)", positions},
                                       {"Digital Input (logical) ", positions},
                                       {"Digital Output (logical)", positions}}));
    QCOMPARE(linkedAreas().mid(linkedAreas().size() - 6), QStringList({"6", "22", "24", "8", "27", "28"}));
}

void VariableMapListTest::inputsAndOutputsWithAnythingElseAreNoSuchRequest() {
    putEverything();
    QCOMPARE(catalogue(ioMem | real), catalogue(real));
    QCOMPARE(catalogue(ioMem | real).value("Analog Inputs"), QStringList({"FIRST", "LAST"}));
}

void VariableMapListTest::aFlatCatalogueHasNamesWithTheGroupReadLast() {
    Areas& areas = platform().areas();
    areas.attributes().max_num_gu_real = 1;
    areas.attributes().logical_num_ai = 2;
    areas.put<REAL_VARIABLE>(GU_REAL_MEM, 0, "TWICE");
    areas.put<REAL_VARIABLE>(AI_REAL_MEM, 0, "TWICE");
    areas.put<REAL_VARIABLE>(AI_REAL_MEM, 1, "ONCE");
    areas.put<PROP_VARIABLE>(PROPERTIES_MEM, 0, "AIR.", 70448);
    QCOMPARE(flatCatalogue(any),
             (QMap<QString, QString>(
                 {{"TWICE", "Analog Inputs"}, {"ONCE", "Analog Inputs"}, {"AIR.", "Gas/Fluid (property)"}})));
}

void VariableMapListTest::aFlatCatalogueOfInputsAndOutputsHasNamesToo() {
    Areas& areas = platform().areas();
    areas.attributes().logical_num_ai = 3;
    areas.attributes().logical_num_di = 1;
    areas.attributes().max_num_gu_real = 1;
    areas.put<REAL_VARIABLE>(AI_REAL_MEM, 0, "OIL_TEMP");
    areas.put<REAL_VARIABLE>(AI_REAL_MEM, 2, "AIR_TEMP");
    areas.put<LOGICAL_VARIABLE>(DI_LOGI_MEM, 0, "DOOR");
    areas.put<REAL_VARIABLE>(GU_REAL_MEM, 0, "SPEED");
    platform().alias("T", "OIL_TEMP");
    QCOMPARE(flatCatalogue(ioMem), (QMap<QString, QString>({{"OIL_TEMP", "Analog Inputs"},
                                                            {"AIR_TEMP", "Analog Inputs"},
                                                            {"DOOR", "Digital Input (logical) "}})));
}

void VariableMapListTest::aFlatCatalogueHasNoAliases() {
    Areas& areas = platform().areas();
    areas.attributes().max_num_gu_real = 1;
    areas.put<REAL_VARIABLE>(GU_REAL_MEM, 0, "SPEED");
    platform().alias("N", "SPEED");
    QCOMPARE(flatCatalogue(real), (QMap<QString, QString>({{"SPEED", "General Use (real)"}})));
}

void VariableMapListTest::onlyTheMapAskedForIsReplaced() {
    putEverything();
    QVERIFY(!catalogue(any).contains("left over"));
    QVERIFY(!flatCatalogue(any).contains("left over"));
}

void VariableMapListTest::theAreasAreLinkedInTheOrderOfTheSections() {
    catalogue(0);
    QStringList expected = {"link_to_memory 1"};
    const auto link = [&](int area) {
        expected << QString("shrd_mem_in_use %1").arg(area) << QString("get_shrd_mem %1 0").arg(area);
    };
    const auto release = [&](int area) { expected << QString("fre_shrd_mem %1").arg(area); };
    for (const SM_AREA_ID area : {GU_INTEGER_MEM, GU_LOGICAL_MEM, GU_STRING_MEM, GU_REAL_MEM})
        link(area);
    for (const SM_AREA_ID area : {GU_REAL_MEM, GU_INTEGER_MEM, GU_LOGICAL_MEM, GU_STRING_MEM})
        release(area);
    for (const SM_AREA_ID area :
         {AI_REAL_MEM,         FI_REAL_MEM,      CI_REAL_MEM,      REAL_ARRAY_MEM,   INT_ARRAY_MEM,
          CI_INTG_MEM,         ENGINE_PERF_MEM,  ENGINE_CONST_MEM, FUEL_READING_MEM, CONTROL_MEM,
          DISPLAY_STRINGS_MEM, STRING_ARRAY_MEM, LOGI_MEM,         DI_LOGI_MEM,      DO_LOGI_MEM,
          LIMIT_LOGI_MEM,      LOGI_ARRAY_MEM,   GU_STAT_MEM,      DP_STAT_MEM,      PROPERTIES_MEM}) {
        link(area);
        release(area);
    }
    QCOMPARE(platform().calls(), expected);
    QCOMPARE(platform().areas().links(SYS_ATTR_MEM), 1);
    QCOMPARE(platform().areas().links(GU_REAL_MEM), 0);
}

void VariableMapListTest::anAreaOfThisProcessStaysLinked() {
    get_shrd_mem(GU_REAL_MEM, 0);
    get_shrd_mem(CONTROL_MEM, 0);
    platform().forgetCalls();
    catalogue(real);
    QVERIFY(platform().areas().links(GU_REAL_MEM) > 0);
    QVERIFY(platform().areas().links(CONTROL_MEM) > 0);
    QVERIFY(!platform().calls().contains("fre_shrd_mem 54"));
    QVERIFY(!platform().calls().contains("fre_shrd_mem 9"));
    QCOMPARE(platform().areas().links(ENGINE_PERF_MEM), 0);
}

void VariableMapListTest::anAreaThatDoesNotLinkIsLeftOut() {
    putEverything();
    platform().areas().refuse(CONTROL_MEM);
    platform().areas().refuse(GU_INTEGER_MEM);
    Groups expected = catalogue(any);
    QVERIFY(!expected.contains("Control (real)"));
    QVERIFY(!expected.contains("Control (logical)"));
    QVERIFY(!expected.contains("Control (integer)"));
    QVERIFY(!expected.contains("Control (string)"));
    QVERIFY(!expected.contains("General Use (integer)"));
    QCOMPARE(expected.size(), 28);
    QVERIFY(!platform().calls().contains("fre_shrd_mem 9"));
    platform().areas().refuse(DI_LOGI_MEM);
    QCOMPARE(catalogue(ioMem).size(), 5);
}

void VariableMapListTest::withoutTheRealsNoGeneralUseIsListedAndTheOthersStayLinked() {
    putEverything();
    platform().areas().refuse(GU_REAL_MEM);
    const Groups groups = catalogue(any);
    QCOMPARE(groups.size(), 29);
    for (const char* group :
         {"General Use (real)", "General Use (integer)", "General Use (logical)", "General Use (string)"})
        QVERIFY2(!groups.contains(group), group);
    for (const SM_AREA_ID area : {GU_INTEGER_MEM, GU_LOGICAL_MEM, GU_STRING_MEM})
        QCOMPARE(platform().areas().links(area), 1);
    QCOMPARE(platform().areas().links(AI_REAL_MEM), 0);
}

void VariableMapListTest::withoutAPlaceForItsAddressNoAreaIsLinked() {
    platform().forgetCalls();
    AreaLinks links;
    QVERIFY(!links.local_link_to_memory(GU_REAL_MEM, nullptr));
    QCOMPARE(platform().calls(), QStringList());
}

void VariableMapListTest::withoutAStoreTheProcessEnds() {
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {"walkWithoutAStore"});
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    QCOMPARE(child.exitCode(), 0);
    QCOMPARE(child.readAllStandardOutput(), QByteArray("\n Ostrel must be running to use this command\n"));
}

static int walkWithoutAStore(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    catalogue(any);
    return 3;
}

OSTREL_TEST_CHILD(walkWithoutAStore)
OSTREL_TEST_WITHOUT_SCREEN(VariableMapListTest)
#include "variablemaplist_test.moc"
