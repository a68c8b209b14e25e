// From a name in a form to a record of the store: OstrelBase.
#include <QMetaProperty>

#include "plugintest.h"
#include "qttests.h"

class BindingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void theFirstWidgetMakesTheFormWriter();
    void aNewWidgetHasItsDefaults();
    void theDestructorLeavesAllTimers();

    void configuringAHandleKeepsThePointerOnAFailure();
    void configuringAHandleLinksArrays_data();
    void configuringAHandleLinksArrays();
    void configuringAHandleRemembersTheMember();

    void notSetUnbinds();
    void anEmptyNameIsGivenUpAtOnce();
    void anUnknownNameStaysWished();
    void anUnknownNameLeavesALoadedWidgetsWish();
    void aKnownNameBinds();
    void theSameNameAgainIsFound();
    void theVariablesOwnNameIsTriedNext();
    void noNameIsKnownAnyMore();
    void aDesignerLooksNoAliasUp();
    void aLabelIsCutAt79Characters();
    void theAliasIsShown();
    void anAliasBindsWhatItStandsFor();
    void theOwnNameIsShownWhereAliasesAreOff();
    void theLabelIsShownWhereTheOwnNameIsUnknown();
    void theLabelKeepsThePartAskedFor_data();
    void theLabelKeepsThePartAskedFor();
    void aliasesOfTwoPartsOfOneRecordAreTwoVariables();
    void aPartUnderItsAliasStaysTheSameVariable();
    void theSameVariableElsewhereKeepsItsUnits();
    void aFormKeepsItsUnitsInADesigner();
    void theAliasOfTheOwnNameIsTriedNext();
    void anAliasWithoutTextShowsTheName();
    void anotherMemberOfTheSameRecordIsAChange();
    void aRecordThatCannotBeReachedIsNotFound();
    void anotherVariableStartsInItsOwnUnits();

    void theFormLearnsTheName_data();
    void theFormLearnsTheName();
    void theFirstWriteIsRememberedForAKnownNameOnly();

    void settersTellTheFormWriter();
    void aliasesCanBeSwitched();
    void unitsAreCutAt15Characters();
    void theLabelOfARecord_data();
    void theLabelOfARecord();
    void theStatusOfARecord_data();
    void theStatusOfARecord();
    void clearingKeepsTheRealPointers();
    void aMovedRecordIsNoticed();
    void theUserLock_data();
    void theUserLock();
    void theSimpleAnswersOfTheBase();
};

void BindingTest::theFirstWidgetMakesTheFormWriter() {
    QVERIFY(!writer);
    qstrcpy(ParentUIFile, "screen.ui");
    platform().answer("openFile", {0});
    const DebugLines debug;
    Probe first;
    Probe second;
    QVERIFY(writer);
    QCOMPARE(platform().calls(),
             QStringList({"UIFileWriter screen.ui", "openFile", "get_private_shrd_mem reconfig_data 28",
                          "get_private_shrd_mem reconfig_data 28"}));
    QCOMPARE(debug.lines(), QStringList({"Error opening UI file outside of the designer"}));
    // In a designer a form that cannot be opened is passed over in silence.
    UIFileWriter* const made = writer;
    writer = nullptr;
    inDesigner = true;
    platform().answer("openFile", {0});
    Probe third;
    QVERIFY(writer);
    QCOMPARE(debug.lines().size(), 1);
    writer = made;
}

void BindingTest::aNewWidgetHasItsDefaults() {
    platform().reconfiguration().generic_reconfig_count = 4;
    Probe widget;
    QVERIFY(!widget.getColor().isValid());
    QVERIFY(!widget.getBColor().isValid());
    QCOMPARE(widget.getName(), QString());
    QCOMPARE(widget.getPreviousName(), QString());
    QCOMPARE(widget._backupName, QString("not_set"));
    QCOMPARE(widget.getRealName(), QString("not_set"));
    QCOMPARE(widget.getGroup(), QString("not_set"));
    QCOMPARE(widget.getUnits(), QString());
    QVERIFY(widget.updateFirst_);
    QVERIFY(widget._checkLimit);
    QVERIFY(widget.monitorLimits());
    QVERIFY(!widget.getInitFlag());
    QVERIFY(!widget.cfg_in_progress());
    QVERIFY(widget.displayAlias());
    QVERIFY(!widget.lockVariable());
    QVERIFY(!widget._requestedFlashTimer);
    QVERIFY(!widget.unitsChanged);
    QVERIFY(widget.dragAndDropEnabled());
    QVERIFY(!widget.ptr());
    QCOMPARE(int{widget.mem().code}, 0);
    QCOMPARE(int{widget.status()}, 0);
    QVERIFY(!widget.isPaused());
    QVERIFY(!widget.getChangeVariable());
    QVERIFY(widget._temp_ignore);
    QVERIFY(!widget._first_write);
    // The counter is taken over: nothing was reconfigured since.
    Ostrel_Plugins_Master_variables_dirty = false;
    widget.text();
    QVERIFY(!Ostrel_Plugins_Master_variables_dirty);
    for (const char* property : {"color", "monitorLimits", "lockedVariable"})
        QVERIFY2(OstrelBase::staticMetaObject.indexOfProperty(property) >= 0, property);
}

void BindingTest::theDestructorLeavesAllTimers() {
    Probe keeps;
    TimerModerator::requestTimer(&keeps, 31000);
    TimerModerator::requestTimer(&keeps, 31001);
    {
        Probe goes;
        TimerModerator::requestTimer(&goes, 31000);
        TimerModerator::requestTimer(&goes, 31001);
    }
    TimerModerator::releaseFromTimer(&keeps, 31000);
    TimerModerator::releaseFromTimer(&keeps, 31001);
    QCOMPARE(TimerModerator::timers->size(), 0);
}

void BindingTest::configuringAHandleKeepsThePointerOnAFailure() {
    platform().real("SPEED");
    Probe widget;
    char known[] = "SPEED";
    QCOMPARE(int{widget.configureSharedMem(known)}, 0);
    void* const record = widget.ptr();
    QVERIFY(record);
    platform().answer("find_variable", {-5});
    QCOMPARE(int{widget.configureSharedMem(known)}, -5);
    QCOMPARE(int{widget.status()}, -5);
    QCOMPARE(widget.ptr(), record);
    QCOMPARE(int{widget.mem().code}, 0);
}

void BindingTest::configuringAHandleLinksArrays_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("linked");
    QTest::newRow("real") << "REALS:2"
                          << "REALS";
    QTest::newRow("integer") << "INTEGERS:2"
                             << "INTEGERS";
    QTest::newRow("string") << "STRINGS:2"
                            << "STRINGS";
    QTest::newRow("logical") << "LOGICALS:2"
                             << "LOGICALS";
    QTest::newRow("cut at a question mark") << "REALS?2"
                                            << "REALS";
    QTest::newRow("no array") << "SPEED" << QString();
}

void BindingTest::configuringAHandleLinksArrays() {
    QFETCH(QString, name);
    QFETCH(QString, linked);
    platform().realArray("REALS");
    platform().integerArray("INTEGERS");
    platform().stringArray("STRINGS");
    platform().logicalArray("LOGICALS");
    platform().real("SPEED");
    platform().addName("REALS?2", platform().handle("REALS:2"));
    Probe widget;
    widget.configureSharedMem(name.toLatin1().data());
    QCOMPARE(platform().calls({"link_to_array_mem"}),
             linked.isEmpty() ? QStringList() : QStringList({"link_to_array_mem " + linked}));
    QCOMPARE(widget.mem().member_adr != nullptr, !linked.isEmpty());
    if (linked.isEmpty())
        return;
    // An element that the handle leads to already is not linked again.
    platform().handle(name).member_adr = &widget;
    widget.configureSharedMem(name.toLatin1().data());
    QCOMPARE(platform().calls({"link_to_array_mem"}).size(), 1);
}

void BindingTest::configuringAHandleRemembersTheMember() {
    platform().statistics("NOX.").member("A_MEMBER_WITH_A_LONG_NAME", 0, 1.0);
    platform().handle("NOX.A_MEMBER_WITH_A_LONG_NAME").member_adr = this;
    Probe widget;
    char name[] = "NOX.A_MEMBER_WITH_A_LONG_NAME";
    widget.configureSharedMem(name);
    QCOMPARE(QString(widget._varMember), QString("A_MEMBER_WITH_A_LON"));
    QCOMPARE(widget._member_adr, this);
}

void BindingTest::notSetUnbinds() {
    platform().real("SPEED");
    Probe widget;
    widget.setName("SPEED");
    TimerModerator::requestTimer(&widget, 498);
    platform().forgetCalls();
    QCOMPARE(widget.setupVariable("not_set"), VARIABLE_NOTFOUND);
    QCOMPARE(widget.getName(), QString("not_set"));
    QCOMPARE(widget.getPreviousName(), QString("SPEED"));
    QCOMPARE(widget._backupName, QString("not_set"));
    QVERIFY(!widget.ptr());
    QCOMPARE(int{widget.mem().code}, 0);
    QVERIFY(!TimerModerator::isRegistered(&widget, 498));
    QCOMPARE(platform().calls(), QStringList());
}

void BindingTest::anEmptyNameIsGivenUpAtOnce() {
    Probe widget;
    widget._oldName = "untouched";
    QCOMPARE(widget.setupVariable(""), VARIABLE_NOTFOUND);
    QCOMPARE(widget.getPreviousName(), QString("untouched"));
    QCOMPARE(widget._backupName, QString());
    QCOMPARE(int{widget.mem().code}, 0);
    QCOMPARE(platform().calls({"find_variable"}), QStringList({"find_variable "}));
}

void BindingTest::anUnknownNameStaysWished() {
    Probe widget;
    platform().forgetCalls();
    QCOMPARE(widget.setupVariable("NOBODY"), VARIABLE_NOTFOUND);
    QCOMPARE(platform().calls(), QStringList({"find_variable NOBODY"}));
    QCOMPARE(widget.getName(), QString("NOBODY"));
    // The widget still loads: the wish stands before the binding looks back at the former name.
    QCOMPARE(widget.getPreviousName(), QString("NOBODY"));
    QCOMPARE(widget._backupName, QString("NOBODY"));
    QCOMPARE(int{widget.mem().code}, -1);
    QVERIFY(!widget.ptr());
}

void BindingTest::anUnknownNameLeavesALoadedWidgetsWish() {
    Probe widget;
    widget.setInitFlag(true);
    widget._name = "FORMER";
    widget.setupVariable("NOBODY");
    QCOMPARE(widget.getPreviousName(), QString("FORMER"));
    QCOMPARE(widget.getName(), QString("NOBODY"));
}

void BindingTest::aKnownNameBinds() {
    const auto speed = platform().real("SPEED");
    Probe widget;
    platform().forgetCalls();
    QCOMPARE(widget.setupVariable("SPEED"), VARIABLE_CHANGED);
    QCOMPARE(platform().calls({"find_variable", "find_alias_label", "find_alias_of_target", "get_vrbl_adr"}),
             QStringList({"find_variable SPEED", "find_alias_label SPEED", "find_alias_of_target SPEED",
                          "find_variable SPEED", "get_vrbl_adr SPEED"}));
    QCOMPARE(widget.getRealName(), QString("SPEED"));
    QCOMPARE(widget.getName(), QString("SPEED"));
    QCOMPARE(widget._backupName, QString("SPEED"));
    QCOMPARE(widget.ptr(), static_cast<void*>(speed.operator->()));
}

void BindingTest::theSameNameAgainIsFound() {
    platform().real("SPEED");
    Probe widget;
    widget.setupVariable("SPEED");
    QCOMPARE(widget.setupVariable("SPEED"), VARIABLE_FOUND);
}

void BindingTest::theVariablesOwnNameIsTriedNext() {
    platform().real("SPEED");
    Probe widget;
    widget._real_name = "SPEED";
    platform().forgetCalls();
    QCOMPARE(widget.setupVariable("FORMER_ALIAS"), VARIABLE_NOTFOUND);
    // The name itself is bound in the end, with its aliases looked up by both names.
    QCOMPARE(platform().calls(),
             QStringList({"find_variable FORMER_ALIAS", "find_variable SPEED", "find_alias_of_target FORMER_ALIAS",
                          "find_alias_of_target SPEED", "find_variable FORMER_ALIAS"}));
}

void BindingTest::noNameIsKnownAnyMore() {
    Probe widget;
    widget._real_name = "SPEED";
    platform().forgetCalls();
    QCOMPARE(widget.setupVariable("FORMER_ALIAS"), VARIABLE_NOTFOUND);
    QCOMPARE(platform().calls(), QStringList({"find_variable FORMER_ALIAS", "find_variable SPEED"}));
    QCOMPARE(widget.getPreviousName(), QString("SPEED"));
    QCOMPARE(widget.getName(), QString("FORMER_ALIAS"));
    QCOMPARE(widget._backupName, QString("FORMER_ALIAS"));
    QCOMPARE(int{widget.mem().code}, -1);
}

void BindingTest::aDesignerLooksNoAliasUp() {
    inDesigner = true;
    platform().real("SPEED");
    platform().alias("RPM_NOW", "SPEED");
    Probe widget;
    platform().forgetCalls();
    QCOMPARE(widget.setupVariable("SPEED"), VARIABLE_CHANGED);
    QCOMPARE(
        platform().calls({"find_variable", "find_alias_label", "find_alias_of_target", "get_vrbl_adr"}),
        QStringList({"find_variable SPEED", "find_alias_label SPEED", "find_variable SPEED", "get_vrbl_adr SPEED"}));
    QCOMPARE(widget.getRealName(), QString("not_set"));
    QCOMPARE(widget.getName(), QString("SPEED"));
}

void BindingTest::aLabelIsCutAt79Characters() {
    const QByteArray longName(100, 'A');
    platform().real(longName.constData());
    platform().answer("find_alias_of_target", {0});
    Probe widget;
    widget.setupVariable(longName);
    QCOMPARE(widget.getName(), QString(79, 'A'));
}

void BindingTest::theAliasIsShown() {
    platform().real("SPEED");
    platform().alias("RPM_NOW", "SPEED");
    Probe widget;
    platform().forgetCalls();
    QCOMPARE(widget.setupVariable("SPEED"), VARIABLE_CHANGED);
    QCOMPARE(platform().calls({"find_variable", "find_alias_label", "find_alias_of_target", "get_vrbl_adr"}),
             QStringList({"find_variable SPEED", "find_alias_label SPEED", "find_alias_of_target SPEED",
                          "find_variable RPM_NOW", "get_vrbl_adr SPEED"}));
    QCOMPARE(widget.getName(), QString("RPM_NOW"));
    QCOMPARE(widget.getRealName(), QString("SPEED"));
    QCOMPARE(widget._backupName, QString("SPEED"));
    // What the form asked for stays the wish.
    widget.setupVariable("SPEED");
    QCOMPARE(widget._backupName, QString("SPEED"));
}

void BindingTest::anAliasBindsWhatItStandsFor() {
    const auto speed = platform().real("SPEED");
    platform().alias("RPM_NOW", "SPEED");
    Probe widget;
    QCOMPARE(widget.setupVariable("RPM_NOW"), VARIABLE_CHANGED);
    QCOMPARE(widget.ptr(), static_cast<void*>(speed.operator->()));
    QCOMPARE(widget.getName(), QString("RPM_NOW"));
    QCOMPARE(widget.getRealName(), QString("not_set"));
    // "not_set" is asked for as it stands.
    QCOMPARE(platform().calls({"find_alias_of_target"}),
             QStringList({"find_alias_of_target RPM_NOW", "find_alias_of_target not_set"}));
}

void BindingTest::theOwnNameIsShownWhereAliasesAreOff() {
    platform().real("SPEED");
    platform().alias("RPM_NOW", "SPEED");
    Probe widget;
    widget.setupVariable("SPEED");
    widget.setDisplayAlias(false);
    platform().forgetCalls();
    QCOMPARE(widget.setupVariable("RPM_NOW"), VARIABLE_FOUND);
    QCOMPARE(platform().calls(), QStringList({"find_variable RPM_NOW", "find_alias_label RPM_NOW",
                                              "find_variable RPM_NOW", "find_variable SPEED", "get_vrbl_adr SPEED"}));
    QCOMPARE(widget.getName(), QString("SPEED"));
    QCOMPARE(widget._backupName, QString("SPEED"));
}

void BindingTest::theLabelIsShownWhereTheOwnNameIsUnknown() {
    platform().real("SPEED");
    platform().alias("RPM_NOW", "SPEED");
    Probe widget;
    widget.setDisplayAlias(false);
    platform().forgetCalls();
    widget._backupName = "ASKED_FOR";
    QCOMPARE(widget.setupVariable("RPM_NOW"), VARIABLE_CHANGED);
    QCOMPARE(platform().calls({"find_variable", "find_alias_label", "find_alias_of_target", "get_vrbl_adr"}),
             QStringList({"find_variable RPM_NOW", "find_alias_label RPM_NOW", "find_variable RPM_NOW",
                          "get_vrbl_adr SPEED", "find_variable RPM_NOW", "get_vrbl_adr SPEED"}));
    QCOMPARE(widget.getName(), QString("SPEED"));
    QCOMPARE(widget._backupName, QString("ASKED_FOR"));
}

void BindingTest::theLabelKeepsThePartAskedFor_data() {
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("shown");
    QTest::newRow("member") << "SPEED_STAT.SD"
                            << "SPEED_STAT.SD";
    QTest::newRow("alias of a member") << "SPREAD"
                                       << "SPEED_STAT.SD";
    QTest::newRow("label of all members") << "SPEED_STAT."
                                          << "SPEED_STAT.";
    QTest::newRow("member of a gas") << "AIR.O2"
                                     << "AIR.O2";
    QTest::newRow("property") << "FLOW.DD"
                              << "FLOW.DD";
    QTest::newRow("emission") << "EXHAUST.MF_CO"
                              << "EXHAUST.MF_CO";
    QTest::newRow("element") << "TEMP:1"
                             << "TEMP:1";
    QTest::newRow("alias of an element") << "T_1"
                                         << "TEMP:1";
    QTest::newRow("whole array") << "TEMP"
                                 << "TEMP";
    QTest::newRow("integer element") << "CODES:2"
                                     << "CODES:2";
    QTest::newRow("string element") << "STEPS:3"
                                    << "STEPS:3";
    // The record of a logical array has no label that is known.
    QTest::newRow("logical element") << "VALVES:1"
                                     << "VALVES:1";
    QTest::newRow("alias of a logical element") << "INLET"
                                                << "INLET";
    QTest::newRow("real") << "SPEED"
                          << "SPEED";
    QTest::newRow("alias of a real") << "RPM_NOW"
                                     << "SPEED";
}

// Qt Designer reads the name back when it saves the form.
void BindingTest::theLabelKeepsThePartAskedFor() {
    QFETCH(QString, asked);
    QFETCH(QString, shown);
    inDesigner = true;
    platform().statistics("SPEED_STAT.").member("AV", 0, 1).member("SD", 4, 2);
    platform().composition("AIR.").member("O2", 2, 20);
    platform().property("FLOW.").member("DD", 24, 3);
    platform().emission("EXHAUST.").member("MF_CO", 19, 4);
    platform().realArray("TEMP");
    platform().integerArray("CODES");
    platform().stringArray("STEPS");
    platform().logicalArray("VALVES");
    platform().real("SPEED");
    platform().alias("SPREAD", "SPEED_STAT.SD");
    platform().alias("T_1", "TEMP:1");
    platform().alias("INLET", "VALVES:0");
    platform().alias("RPM_NOW", "SPEED");
    Probe widget;
    widget.setName(asked);
    widget.setDisplayAlias(false);
    QCOMPARE(widget.getName(), shown);
    QVERIFY(widget.ptr());
    const SHARED_MEMORY bound = widget.mem();
    widget.setName(widget.getName());
    QCOMPARE(widget.getName(), shown);
    QCOMPARE(short(widget.mem().offset), short(bound.offset));
}

void BindingTest::aliasesOfTwoPartsOfOneRecordAreTwoVariables() {
    auto array = platform().realArray("TEMP");
    array[0].value = 401;
    array[1].value = 402;
    for (int i : {0, 1}) {
        SHARED_MEMORY& element = platform().handle(QStringLiteral("TEMP:%1").arg(i));
        element.member_adr = &array[size_t(i)];
    }
    platform().alias("T_0", "TEMP:0");
    platform().alias("T_1", "TEMP:1");
    Probe widget;
    widget.setDisplayAlias(false);
    QCOMPARE(widget.setupVariable("T_0"), VARIABLE_CHANGED);
    QCOMPARE(widget.setupVariable("T_1"), VARIABLE_CHANGED);
    QCOMPARE(widget.setupVariable("T_1"), VARIABLE_FOUND);
    QCOMPARE(widget.mem().member_adr, static_cast<void*>(&array[1]));
}

// The units that an operator has chosen for it are not those of another variable.
void BindingTest::aPartUnderItsAliasStaysTheSameVariable() {
    platform().statistics("SPEED_STAT.").member("AV", 0, 1).member("SD", 4, 2);
    platform().alias("N_MEAN", "SPEED_STAT.AV");
    Probe widget;
    QCOMPARE(widget.setupVariable("SPEED_STAT.AV"), VARIABLE_CHANGED);
    QCOMPARE(widget.getName(), QString("N_MEAN"));
    QCOMPARE(widget.setupVariable("N_MEAN"), VARIABLE_FOUND);
}

void BindingTest::theSameVariableElsewhereKeepsItsUnits() {
    platform().real("SPEED").units("RPM");
    Probe widget;
    widget.setupVariable("SPEED");
    widget.setUnits("RAD/S");
    widget.clearMem();
    QCOMPARE(widget.setupVariable("SPEED"), VARIABLE_CHANGED);
    QCOMPARE(widget.getUnits(), QString("RAD/S"));
}

// It gives them before the name, as Qt Designer writes them.
void BindingTest::aFormKeepsItsUnitsInADesigner() {
    platform().real("SPEED").units("RPM");
    platform().real("TORQUE").units("NM");
    for (bool designer : {true, false}) {
        inDesigner = designer;
        Probe widget;
        widget.setUnits("RAD/S");
        widget.setName("SPEED");
        QCOMPARE(widget.getUnits(), QString(designer ? "RAD/S" : ""));
        widget.setUnits("HZ");
        widget.setName("TORQUE");
        QCOMPARE(widget.getUnits(), QString());
    }
}

void BindingTest::theAliasOfTheOwnNameIsTriedNext() {
    platform().real("SPEED");
    platform().alias("RPM_NOW", "SPEED");
    Probe widget;
    widget._real_name = "SPEED";
    widget._backupName = "ASKED_FOR";
    platform().forgetCalls();
    widget.setupVariable("RPM_NOW");
    QCOMPARE(platform().calls({"find_variable", "find_alias_label", "find_alias_of_target"}),
             QStringList({"find_variable RPM_NOW", "find_alias_label RPM_NOW", "find_alias_of_target RPM_NOW",
                          "find_alias_of_target SPEED", "find_variable SPEED"}));
    QCOMPARE(widget.getName(), QString("RPM_NOW"));
    QCOMPARE(widget.getRealName(), QString("SPEED"));
    QCOMPARE(widget._backupName, QString("ASKED_FOR"));
}

void BindingTest::anAliasWithoutTextShowsTheName() {
    platform().real("SPEED");
    platform().answer("find_alias_of_target", {0});
    Probe widget;
    QCOMPARE(widget.setupVariable("SPEED"), VARIABLE_CHANGED);
    QCOMPARE(widget.getName(), QString("SPEED"));
}

void BindingTest::anotherMemberOfTheSameRecordIsAChange() {
    platform().statistics("NOX.").member("AV", AV, 1.0).member("SD", SD, 2.0);
    Probe widget;
    QCOMPARE(widget.setupVariable("NOX.AV"), VARIABLE_CHANGED);
    void* const record = widget.ptr();
    QCOMPARE(widget.setupVariable("NOX.SD"), VARIABLE_CHANGED);
    QCOMPARE(widget.ptr(), record);
    QCOMPARE(widget.setupVariable("NOX.SD"), VARIABLE_FOUND);
    platform().realArray("TEMPS");
    widget.setupVariable("TEMPS:1");
    QCOMPARE(widget.setupVariable("TEMPS:2"), VARIABLE_CHANGED);
    QCOMPARE(widget.setupVariable("TEMPS:2"), VARIABLE_FOUND);
}

void BindingTest::aRecordThatCannotBeReachedIsNotFound() {
    platform().real("SPEED");
    platform().alwaysAnswer("get_vrbl_adr", 0);
    Probe widget;
    QCOMPARE(widget.setupVariable("SPEED"), VARIABLE_NOTFOUND);
    QVERIFY(!widget.ptr());
    QCOMPARE(widget.getName(), QString("SPEED"));
}

void BindingTest::anotherVariableStartsInItsOwnUnits() {
    platform().real("SPEED");
    platform().real("TORQUE");
    Probe widget;
    widget.setupVariable("SPEED");
    QCOMPARE(widget.unitsAsked, QStringList({""}));
    widget.setUnits("HZ");
    widget.unitsAsked.clear();
    widget.setupVariable("SPEED");
    QCOMPARE(widget.unitsAsked, QStringList());
    widget.setupVariable("TORQUE");
    QCOMPARE(widget.unitsAsked, QStringList({""}));
    QCOMPARE(widget.getUnits(), QString());
}

void BindingTest::theFormLearnsTheName_data() {
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("force");
    QTest::addColumn<bool>("firstWrite");
    QTest::addColumn<bool>("told");
    QTest::newRow("changed") << int{VARIABLE_CHANGED} << "SPEED" << false << true << true;
    QTest::newRow("found") << int{VARIABLE_FOUND} << "SPEED" << false << false << false;
    QTest::newRow("found, forced") << int{VARIABLE_FOUND} << "SPEED" << true << false << true;
    QTest::newRow("found, forced again") << int{VARIABLE_FOUND} << "SPEED" << true << true << false;
    QTest::newRow("not found") << int{VARIABLE_NOTFOUND} << "SPEED" << false << false << false;
    QTest::newRow("no variable") << int{VARIABLE_NOTFOUND} << "not_set" << false << true << true;
    QTest::newRow("no name") << int{VARIABLE_CHANGED} << "" << true << false << false;
}

void BindingTest::theFormLearnsTheName() {
    QFETCH(int, status);
    QFETCH(QString, name);
    QFETCH(bool, force);
    QFETCH(bool, firstWrite);
    QFETCH(bool, told);
    Probe widget;
    widget._name = "NEW";
    widget._oldName = "OLD";
    widget._first_write = firstWrite;
    widget.updateUIName(static_cast<VAR_FIND_STATUS>(status), name, force);
    QCOMPARE(platform().calls({"cacheProperty"}),
             told ? QStringList({"cacheProperty Probe probe name " + name + " loading"}) : QStringList());
    // The same name as before is nothing to tell.
    platform().forgetCalls();
    widget._oldName = "NEW";
    widget.updateUIName(static_cast<VAR_FIND_STATUS>(status), name, force);
    QCOMPARE(platform().calls({"cacheProperty"}), QStringList());
}

void BindingTest::theFirstWriteIsRememberedForAKnownNameOnly() {
    platform().real("SPEED");
    Probe widget;
    widget._name = "NEW";
    widget._oldName = "OLD";
    widget.updateUIName(VARIABLE_CHANGED, "NOBODY", false);
    QVERIFY(!widget._first_write);
    widget.setInitFlag(true);
    platform().forgetCalls();
    widget.updateUIName(VARIABLE_CHANGED, "SPEED", false);
    QVERIFY(widget._first_write);
    QCOMPARE(platform().calls(), QStringList({"cacheProperty Probe probe name SPEED changed", "find_variable SPEED"}));
    platform().forgetCalls();
    widget.updateUIName(VARIABLE_CHANGED, "SPEED", false);
    QCOMPARE(platform().calls({"find_variable"}), QStringList());
}

void BindingTest::settersTellTheFormWriter() {
    Probe widget;
    platform().forgetCalls();
    widget.setGroup("not_set");
    widget.setGroup("left");
    widget.setDDEnabled(false);
    widget.setLockVariable(true);
    widget.setInitFlag(true);
    widget.setDisplayAlias(false);
    QCOMPARE(platform().calls(), QStringList({"cacheProperty Probe probe group left loading",
                                              "cacheProperty Probe probe dragAndDropEnabled false loading",
                                              "cacheProperty Probe probe lockedVariable true loading",
                                              "cacheProperty Probe probe displayAlias false changed"}));
    QCOMPARE(widget.getGroup(), QString("left"));
    QVERIFY(!widget.dragAndDropEnabled());
    QVERIFY(widget.lockVariable());
}

void BindingTest::aliasesCanBeSwitched() {
    platform().real("SPEED");
    platform().alias("RPM_NOW", "SPEED");
    Probe widget;
    widget.setDisplayAlias(true);
    QCOMPARE(widget.names, QStringList());
    widget.setName("SPEED");
    widget.setDisplayAlias(false);
    QCOMPARE(widget.names, QStringList({"SPEED", "RPM_NOW"}));
    QCOMPARE(widget.getName(), QString("SPEED"));
    widget.setDisplayAlias(true);
    QCOMPARE(widget.getName(), QString("RPM_NOW"));
}

void BindingTest::unitsAreCutAt15Characters() {
    Probe widget;
    platform().forgetCalls();
    widget.setUnits("0123456789ABCDEFGH");
    QCOMPARE(widget.getUnits(), QString("0123456789ABCDE"));
    QVERIFY(widget.unitsChanged);
    widget.setUnits("HZ");
    QCOMPARE(widget.getUnits(), QString("HZ"));
    widget.unitsChanged = false;
    widget.setUnits("HZ");
    QVERIFY(!widget.unitsChanged);
    QCOMPARE(platform().calls(), QStringList({"cacheProperty Probe probe units 0123456789ABCDEFGH loading",
                                              "cacheProperty Probe probe units HZ loading"}));
}

void BindingTest::theLabelOfARecord_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("offset");
    const QMap<int, int> offsets{{REAL_TYPE, 64},     {INT_TYPE, 80},        {LOGI_TYPE, 56},  {STRG_TYPE, 128},
                                 {STRING_TYPE, 128},  {SIGNAL_TYPE, 2},      {STAT_TYPE, 0},   {COMP_TYPE, 1960},
                                 {PROP_TYPE, 9400},   {EMIS_TYPE, 2280},     {ALIAS_TYPE, 58}, {REAL_ARRAY_TYPE, 0},
                                 {INT_ARRAY_TYPE, 0}, {STRING_ARRAY_TYPE, 0}};
    for (int kind = UNDEFINED_VAR_TYPE; kind <= LOGI_ARRAY_TYPE; ++kind)
        QTest::addRow("kind %i", kind) << kind << offsets.value(kind, -1);
}

void BindingTest::theLabelOfARecord() {
    QFETCH(int, kind);
    QFETCH(int, offset);
    scripted::Slot& slot = platform().other("ANY", static_cast<SM_VARI_TYPE>(kind), 10000);
    if (offset >= 0)
        qstrcpy(slot.record() + offset, "THE_LABEL");
    Probe widget;
    QCOMPARE(widget.getNameFromShmem(&slot.mem), offset >= 0 ? QString("THE_LABEL") : QString("unsupported"));
}

void BindingTest::theStatusOfARecord_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("status");
    QTest::newRow("real") << "REAL" << 1;
    QTest::newRow("integer") << "INTEGER" << 2;
    QTest::newRow("logical") << "LOGICAL" << 3;
    QTest::newRow("string") << "STRING" << 7;
    QTest::newRow("statistics") << "STAT.AV" << 9;
    QTest::newRow("composition") << "COMP.H2" << 10;
    QTest::newRow("emission") << "EMIS.CBE" << 12;
    QTest::newRow("property") << "PROP.AT" << -1;
    QTest::newRow("real array") << "REALS:1" << 15;
    QTest::newRow("integer array") << "INTEGERS:1" << 16;
    QTest::newRow("string array") << "STRINGS:1" << 17;
    QTest::newRow("logical array") << "LOGICALS:1" << 18;
    QTest::newRow("another kind") << "BLANK" << -1;
    QTest::newRow("unbound") << "not_set" << -1;
}

void BindingTest::theStatusOfARecord() {
    QFETCH(QString, name);
    QFETCH(int, status);
    platform().real("REAL").status(1);
    platform().integer("INTEGER").status(2);
    platform().logical("LOGICAL").status(3);
    platform().string("STRING").status(7);
    platform().statistics("STAT.").status(9).member("AV", AV, 0);
    platform().composition("COMP.").status(10).member("H2", H2, 0);
    platform().property("PROP.").status(11).member("AT", AT, 0);
    platform().emission("EMIS.").status(12).member("CBE", CBE, 0);
    platform().realArray("REALS")[1].status = 15;
    platform().integerArray("INTEGERS")[1].status = 16;
    platform().stringArray("STRINGS")[1].status = 17;
    platform().logicalArray("LOGICALS")[1].status = 18;
    platform().other("BLANK", BLANK_TYPE, 512);
    Probe widget;
    widget.setName(name);
    QCOMPARE(int{widget.getStatus()}, status);
}

void BindingTest::clearingKeepsTheRealPointers() {
    platform().real("SPEED");
    platform().realArray("TEMPS");
    platform().integer("COUNT");
    Probe widget;
    widget.setName("SPEED");
    widget.setName("TEMPS:1");
    widget.setName("COUNT");
    widget.clearMem();
    QVERIFY(widget.rptr);
    QVERIFY(widget.ramptr);
    QVERIFY(!widget.iptr);
    QVERIFY(!widget.ptr());
    QCOMPARE(int{widget.mem().vari_type}, 0);
}

void BindingTest::aMovedRecordIsNoticed() {
    platform().integer("COUNT");
    platform().real("SPEED");
    platform().statistics("NOX.").member("AV", AV, 1.0);
    Probe widget;
    // Without a real pointer nothing is noticed, whatever the kind.
    widget.setName("COUNT");
    widget.bindsTypedPointers = false;
    platform().move("COUNT");
    widget.setName("COUNT");
    QVERIFY(!widget.ptrToOstrelVarChanged());
    widget.bindsTypedPointers = true;
    widget.setName("SPEED");
    QVERIFY(!widget.ptrToOstrelVarChanged());
    widget.bindsTypedPointers = false;
    platform().move("SPEED");
    widget.setName("SPEED");
    QVERIFY(widget.ptrToOstrelVarChanged());
    widget.setName("COUNT");
    QVERIFY(widget.ptrToOstrelVarChanged());
    // Statistics the other way round.
    widget.bindsTypedPointers = true;
    widget.setName("NOX.AV");
    QVERIFY(widget.ptrToOstrelVarChanged());
    widget.bindsTypedPointers = false;
    platform().move("NOX.");
    widget.setName("NOX.AV");
    QVERIFY(!widget.ptrToOstrelVarChanged());
    widget._mem.vari_type = BLANK_TYPE;
    QVERIFY(!widget.ptrToOstrelVarChanged());
}

void BindingTest::theUserLock_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("whenUnlocked");
    QTest::addColumn<bool>("whenLocked");
    QTest::newRow("0") << 0 << false << false;
    QTest::newRow("1") << 1 << true << true;
    QTest::newRow("2") << 2 << false << true;
    QTest::newRow("3") << 3 << false << false;
    QTest::newRow("4") << 4 << false << true;
    QTest::newRow("5") << 5 << false << false;
}

void BindingTest::theUserLock() {
    QFETCH(int, level);
    QFETCH(bool, whenUnlocked);
    QFETCH(bool, whenLocked);
    UserInterfaceLock = level;
    Probe widget;
    QCOMPARE(widget.userInterfaceLock(), whenUnlocked);
    widget.setLockVariable(true);
    QCOMPARE(widget.userInterfaceLock(), whenLocked);
}

void BindingTest::theSimpleAnswersOfTheBase() {
    Probe widget;
    QVERIFY(widget.okToRun());
    QVERIFY(!widget.OstrelBase::allowsWriteAcess());
    widget.handleWriteValue(nullptr);
    QString tip = "a tip";
    widget.set_custom_toolTip(tip);
    QCOMPARE(widget.toolTip(), QString("a tip"));
    changeUnitsLk = true;
    QVERIFY(widget.changeUnitsLock());
    widget.setBColor(Qt::red);
    QCOMPARE(widget.getBColor(), QColor(Qt::red));
    RemoteDisplay = true;
    QCOMPARE(widget.getSampleRate(), 2000);
    RemoteDisplay = false;
    QCOMPARE(widget.getSampleRate(), 1000);
}

OSTREL_TEST(BindingTest)
#include "binding_test.moc"
