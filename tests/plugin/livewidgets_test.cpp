// Widgets on a real store, which is served by a process of its own.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTableWidget>
#include <cstring>
#include <fstream>

#include "core/glostrelbase.h"
#include "core/ostrel_logical_base.h"
#include "fabric/timermoderator.h"
#include "hostlink/globals.h"
#include "ostrel/storefixture.h"
#include "widgets/ZelToggleButton.h"
#include "widgets/zel_pushbutton.h"
#include "widgets/zel_simplevalue.h"
#include "widgets/zel_simplevalue_fl.h"
#include "widgets/zel_simplevaluechanindex.h"
#include "widgets/zel_value.h"
#include "widgets/zelgroupwidget.h"
#include "widgets/zelgroupwidget_fl.h"
#include "widgets/zeltable.h"
#include "widgets/zelvariablewidget.h"

namespace {

// Lets events and timers of this process run until the condition is true; false when it is not within 10 seconds.
bool happens(const std::function<bool()>& condition) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > 10000)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return true;
}

class LiveWidgets : public StoreTest {
protected:
    LiveWidgets() {
        inDesigner = false;
        RemoteDisplay = false;
    }

    // The next generation of the store, with these variables.
    void makeGeneration(const std::vector<std::string>& commands) {
        ASSERT_EQ(server.tell("room 54 1 25000"), "ok 1");
        configure(commands);
    }

    // Who wrote what since the last time, a line each.
    std::vector<std::string> writes() {
        const std::string file = testing::TempDir() + store + ".writes";
        EXPECT_EQ(server.tell("drain " + file), "ok");
        std::ifstream stream(file);
        std::vector<std::string> lines;
        for (std::string line; std::getline(stream, line);)
            lines.push_back(line);
        std::remove(file.c_str());
        return lines;
    }

    short logical(const std::string& label) { return record<LOGICAL_VARIABLE>(label)->value; }
};

template <class Group>
class CheckBox : public LiveWidgets {
protected:
    // A box that leads the variable RUN: from a second naming on any box does.
    void bind() {
        group.setCheckable(true);
        group.setChecked(false);
        group.setCheckBoxVarName("RUN");
        group.setCheckBoxVarName("RUN");
    }

    Group group;
};

using Groups = testing::Types<ZelGroup, ZelGroup_fl>;
TYPED_TEST_SUITE(CheckBox, Groups);

TYPED_TEST(CheckBox, WhatItStoresIsInTheListOfWrites) {
    this->configure({"put 56 3 RUN"});
    this->bind();
    this->writes();
    this->group.setChecked(true);
    EXPECT_EQ(this->logical("RUN"), 1);
    const auto writes = this->writes();
    ASSERT_EQ(writes.size(), 1u);
    EXPECT_NE(writes[0].find("RUN"), std::string::npos) << writes[0];
}

TYPED_TEST(CheckBox, ARefusedStateIsNotShown) {
    this->configure({"put 56 3 RUN"});
    this->bind();
    ASSERT_EQ(this->server.tell("rule RUN 0 - -"), "ok");
    this->group.setChecked(true);
    EXPECT_EQ(this->logical("RUN"), 0);
    EXPECT_FALSE(this->group.isChecked());
}

TYPED_TEST(CheckBox, ARemoteDisplayStoresNothing) {
    this->configure({"put 56 3 RUN"});
    this->bind();
    RemoteDisplay = true;
    this->writes();
    this->group.setChecked(true);
    EXPECT_EQ(this->logical("RUN"), 0);
    EXPECT_FALSE(this->group.isChecked());
    EXPECT_TRUE(this->writes().empty());
}

TYPED_TEST(CheckBox, ADesignerStoresNothing) {
    this->configure({"put 56 3 RUN"});
    inDesigner = true;
    this->bind();
    this->group.setChecked(true);
    EXPECT_EQ(this->logical("RUN"), 0);
    EXPECT_FALSE(this->group.isChecked());
    EXPECT_TRUE(this->writes().empty());
}

TYPED_TEST(CheckBox, SwitchesTheVariableOfTheNextGeneration) {
    this->configure({"put 56 3 RUN"});
    this->bind();
    auto* before = this->template record<LOGICAL_VARIABLE>("RUN");
    this->makeGeneration({"put 56 3 OTHER", "put 56 3 RUN"});
    this->group.setChecked(true);
    EXPECT_EQ(this->logical("RUN"), 1);
    EXPECT_EQ(this->logical("OTHER"), 0);
    EXPECT_EQ(+before->value, 0);
}

TYPED_TEST(CheckBox, LeavesTheVariableThatTookThePlaceOfItsOwn) {
    this->configure({"put 56 3 RUN"});
    this->bind();
    this->configure({"put 56 3 OTHER"});
    this->group.setChecked(true);
    EXPECT_EQ(this->logical("OTHER"), 0);
}

// Nobody has switched anything: the box takes the state from the variable.
TYPED_TEST(CheckBox, FindsAVariableThatComesLaterAndWritesNothing) {
    this->configure({"put 56 3 OTHER"});
    this->group.setCheckable(true);
    this->group.setChecked(false);
    this->group.setCheckBoxVarName("RUN");
    this->configure({"put 56 3 RUN", "put 56 3 OTHER"});
    set_logical(this->template record<LOGICAL_VARIABLE>("RUN"), 1);
    this->writes();
    EXPECT_TRUE(happens([this] { return this->group.isChecked(); }));
    EXPECT_TRUE(this->writes().empty());
    this->group.setChecked(false);
    EXPECT_EQ(this->logical("RUN"), 0);
}

TYPED_TEST(CheckBox, ShowsWhatAReconfigurationHasMadeOfItsVariable) {
    this->configure({"put 56 3 RUN"});
    this->bind();
    this->group.setChecked(true);
    ASSERT_EQ(this->logical("RUN"), 1);
    set_logical(this->template record<LOGICAL_VARIABLE>("RUN"), 0);
    this->writes();
    this->makeGeneration({"put 56 3 RUN"});
    EXPECT_TRUE(happens([this] { return !this->group.isChecked(); }));
    EXPECT_EQ(this->logical("RUN"), 0);
    EXPECT_TRUE(this->writes().empty());
}

// A display that was started before its cell.
TYPED_TEST(CheckBox, FindsTheVariableOfAStoreThatComesLater) {
    ASSERT_EQ(this->server.tell("close"), "ok");
    removeObjectsOf(this->store);
    this->group.setCheckable(true);
    this->group.setChecked(false);
    this->group.setCheckBoxVarName("RUN");
    ASSERT_EQ(this->server.tell("open " + this->store), "ok 0");
    this->configure({"put 56 3 RUN"});
    set_logical(this->template record<LOGICAL_VARIABLE>("RUN"), 1);
    EXPECT_TRUE(happens([this] { return this->group.isChecked(); }));
    this->group.setChecked(false);
    EXPECT_EQ(this->logical("RUN"), 0);
}

TEST_F(LiveWidgets, NamingTheVariableThatLeadsStoresNothing) {
    configure({"put 56 3 RUN"});
    set_logical(record<LOGICAL_VARIABLE>("RUN"), 1);
    writes();
    ZelGroup group;
    group.setCheckable(true);
    group.setChecked(false);
    group.setCheckBoxVarName("RUN");
    EXPECT_TRUE(group.isChecked());
    EXPECT_TRUE(writes().empty());
}

// A variable of each kind, each with the name that a widget has for it.
struct Variable {
    const char* kind;
    std::vector<std::string> configuration;
    std::vector<std::string> configurationAnew;
    std::string name;
};

void PrintTo(const Variable& variable, std::ostream* out) {
    *out << variable.kind;
}

std::vector<Variable> variables() {
    const auto same = [](const char* kind, const char* put, const char* name) {
        return Variable{kind, {put}, {put}, name};
    };
    return {
        same("real", "put 54 1 V", "V"),
        same("integer", "put 55 2 V", "V"),
        same("logical", "put 56 3 V", "V"),
        same("string", "put 57 7 V", "V"),
        same("statistics", "put 58 9 V.", "V.SD"),
        same("composition", "put 53 10 V.", "V.O2"),
        same("property", "put 53 11 V.", "V.DD"),
        same("emission", "put 53 12 V.", "V.MF_CO"),
        same("real_element", "array 15 V 3", "V:1"),
        same("integer_element", "array 16 V 3", "V:1"),
        same("string_element", "array 17 V 3", "V:1"),
        same("logical_element", "array 18 V 3", "V:1"),
        {"grown_real_array", {"array 15 V 3"}, {"array 15 V 70"}, "V:1"},
        {"grown_integer_array", {"array 16 V 3"}, {"array 16 V 70"}, "V:1"},
        {"grown_string_array", {"array 17 V 3"}, {"array 17 V 70"}, "V:1"},
        {"grown_logical_array", {"array 18 V 3"}, {"array 18 V 70"}, "V:1"},
        {"alias", {"put 55 2 V", "alias NICK V 1"}, {"put 55 2 V", "alias NICK V 1"}, "NICK"},
        {"alias_of_an_element", {"array 16 V 3", "alias NICK V:1 1"}, {"array 16 V 70", "alias NICK V:1 1"}, "NICK"},
    };
}

// Writes a digit into the variable, wherever it stands now, with the formats and texts that show it as that digit.
void write(const std::string& name, int digit) {
    SHARED_MEMORY mem{};
    ASSERT_EQ(find_variable(const_cast<char*>(name.c_str()), &mem), 0) << name;
    void* record = get_vrbl_adr(mem);
    std::string text = std::to_string(digit);
    const auto states = [digit](auto* logical) {
        snprintf(logical->true_state, sizeof logical->true_state, "%i", digit);
        snprintf(logical->false_state, sizeof logical->false_state, "%i", digit);
    };
    switch (mem.vari_type) {
        case REAL_TYPE:
            std::strcpy(static_cast<REAL_VARIABLE*>(record)->display_format, "%.0f");
            set_real_variable(static_cast<REAL_VARIABLE*>(record), digit);
            break;
        case INT_TYPE:
            std::strcpy(static_cast<INTEGER_VARIABLE*>(record)->display_format, "%i");
            set_integer(static_cast<INTEGER_VARIABLE*>(record), digit);
            break;
        case LOGI_TYPE:
            states(static_cast<LOGICAL_VARIABLE*>(record));
            break;
        case STRING_TYPE:
            set_string_variable(static_cast<STRING_VARIABLE*>(record), text.data());
            break;
        case STAT_TYPE:
            static_cast<STAT_VARIABLE*>(record)->stat[mem.stat_member].value = digit;
            break;
        case COMP_TYPE:
            static_cast<COMP_VARIABLE*>(record)->fraction[mem.comp_member].value = digit;
            break;
        case PROP_TYPE:
            static_cast<PROP_VARIABLE*>(record)->properties[mem.prop_member].value = digit;
            break;
        case EMIS_TYPE:
            static_cast<EMIS_VARIABLE*>(record)->emission[mem.emis_member].value = digit;
            break;
        case LOGI_ARRAY_TYPE:
            states(static_cast<LOGICAL_ARRAY_VARIABLE*>(record));
            EXPECT_EQ(ostrel_set_array_element(&mem, digit % 2, nullptr), 0);
            break;
        default:
            if (mem.vari_type == REAL_ARRAY_TYPE)
                std::strcpy(static_cast<REAL_ARRAY_VARIABLE*>(record)->display_format, "%.0f");
            if (mem.vari_type == INT_ARRAY_TYPE)
                std::strcpy(static_cast<INTEGER_ARRAY_VARIABLE*>(record)->display_format, "%i");
            EXPECT_EQ(ostrel_set_array_element(&mem, digit, text.data()), 0);
    }
}

std::string shownBy(const OstrelBase& widget) {
    const auto* field = widget.findChild<QLineEdit*>("value");
    const QString text = field ? field->text() : widget.findChild<QLabel*>("value")->text();
    return text.trimmed().toStdString();
}

template <class Widget>
OstrelBase* make() {
    return new Widget;
}

struct Readout {
    const char* name;
    OstrelBase* (*make)();
    bool showsTexts;
};

void PrintTo(const Readout& readout, std::ostream* out) {
    *out << readout.name;
}

constexpr Readout readouts[] = {{"ZelValue", make<ZelValue>, false},
                                {"ZelSimpleValue", make<ZelSimpleValue>, true},
                                {"ZelSimpleValue_fl", make<ZelSimpleValue_fl>, true}};

// What a host tells its widgets when the store has changed.
void announce(OstrelBase& widget) {
    widget.globalConfigEvent(1, -1);
    widget.globalConfigEvent(0, -1);
}

class MovedVariable : public LiveWidgets, public testing::WithParamInterface<std::tuple<Readout, Variable>> {
protected:
    void SetUp() override {
        LiveWidgets::SetUp();
        const auto& [readout, variable] = GetParam();
        configure(variable.configuration);
        write(variable.name, 3);
        widget.reset(readout.make());
        widget->setName(QString::fromStdString(variable.name));
        ASSERT_EQ(shownBy(*widget), "3");
    }

    void expectToBeFollowed() {
        announce(*widget);
        const std::string& name = std::get<1>(GetParam()).name;
        for (int digit : {4, 5}) {
            write(name, digit);
            widget->ostrelTimerEvent(widget->getSampleRate());
            EXPECT_EQ(shownBy(*widget), std::to_string(digit));
        }
        EXPECT_EQ(widget->getName().toStdString(), name);
    }

    std::unique_ptr<OstrelBase> widget;
};

TEST_P(MovedVariable, IsFollowedIntoTheNextGeneration) {
    makeGeneration(std::get<1>(GetParam()).configurationAnew);
    expectToBeFollowed();
}

TEST_P(MovedVariable, IsFollowedWithinItsGeneration) {
    configure(std::get<1>(GetParam()).configurationAnew);
    expectToBeFollowed();
}

TEST_P(MovedVariable, IsFollowedWhenItWasAwayForAWhile) {
    const std::vector<std::string> others{"put 54 1 ANOTHER", "put 55 2 MORE",  "put 56 3 LOGIC",   "put 57 7 TEXT",
                                          "put 58 9 STAT.",   "put 53 10 GAS.", "put 53 11 FLUID.", "put 53 12 SMOKE."};
    configure(others);
    announce(*widget);
    EXPECT_EQ(shownBy(*widget), "-");
    std::vector<std::string> commands = others;
    const auto& own = std::get<1>(GetParam()).configurationAnew;
    commands.insert(commands.end(), own.begin(), own.end());
    makeGeneration(commands);
    expectToBeFollowed();
}

std::vector<std::tuple<Readout, Variable>> readoutsOfVariables() {
    std::vector<std::tuple<Readout, Variable>> all;
    for (const Readout& readout : readouts)
        for (const Variable& variable : variables())
            if (readout.showsTexts || std::string(variable.kind).find("string") == std::string::npos)
                all.emplace_back(readout, variable);
    return all;
}

INSTANTIATE_TEST_SUITE_P(Readouts, MovedVariable, testing::ValuesIn(readoutsOfVariables()), [](const auto& test) {
    return std::string(std::get<0>(test.param).name) + "_" + std::get<1>(test.param).kind;
});

class Channel : public LiveWidgets {
protected:
    void bind(int index) {
        widget.setMemCode(AI_REAL_MEM);
        widget.setMemIndex(index);
    }
    std::string label() { return widget.findChild<QLabel*>("name")->text().toStdString(); }

    ZelSimpleValueChanIndex widget;
};

TEST_F(Channel, ShowsWhatStandsAtItsPlaceInTheNextGeneration) {
    configure({"put 6 1 CH_A", "put 6 1 CH_B"});
    write("CH_B", 3);
    bind(1);
    EXPECT_EQ(label(), "CH_B");
    EXPECT_EQ(shownBy(widget), "3");
    makeGeneration({"put 6 1 CH_A", "put 6 1 CH_B"});
    announce(widget);
    write("CH_B", 4);
    widget.ostrelTimerEvent(widget.getSampleRate());
    EXPECT_EQ(shownBy(widget), "4");
}

// The counts of channels are those of the store in use.
TEST_F(Channel, FindsAPlaceThatOnlyTheNextGenerationHas) {
    configure({"put 6 1 CH_A"});
    bind(1);
    EXPECT_EQ(shownBy(widget), "-");
    makeGeneration({"put 6 1 CH_A", "put 6 1 CH_B"});
    announce(widget);
    write("CH_B", 4);
    widget.ostrelTimerEvent(widget.getSampleRate());
    EXPECT_EQ(label(), "CH_B");
    EXPECT_EQ(shownBy(widget), "4");
}

TEST_F(Channel, LosesAPlaceThatTheNextGenerationHasNot) {
    configure({"put 6 1 CH_A", "put 6 1 CH_B"});
    bind(1);
    EXPECT_EQ(label(), "CH_B");
    makeGeneration({"put 6 1 CH_A"});
    announce(widget);
    EXPECT_EQ(label(), "");
    EXPECT_EQ(shownBy(widget), "-");
}

// ---- Buttons ----

void mouse(QWidget* widget, QEvent::Type type) {
    QMouseEvent event(type, widget->rect().center(), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

template <class Button>
class Buttons : public LiveWidgets {
protected:
    void bind() { button.setName("RUN"); }
    QWidget* drawn() { return button.template findChild<QAbstractButton*>(); }
    void click() {
        mouse(drawn(), QEvent::MouseButtonPress);
        mouse(drawn(), QEvent::MouseButtonRelease);
    }

    Button button;
};

using ButtonTypes = testing::Types<ZelPushButton, ZelToggleButton>;
TYPED_TEST_SUITE(Buttons, ButtonTypes);

TYPED_TEST(Buttons, WhatTheyWriteIsInTheListOfWrites) {
    this->configure({"put 56 3 RUN"});
    this->bind();
    this->writes();
    this->click();
    EXPECT_EQ(this->logical("RUN"), 1);
    const auto writes = this->writes();
    ASSERT_EQ(writes.size(), 1u);
    EXPECT_NE(writes[0].find("RUN"), std::string::npos) << writes[0];
}

TYPED_TEST(Buttons, ARefusedWriteLeavesTheState) {
    this->configure({"put 56 3 RUN"});
    this->bind();
    ASSERT_EQ(this->server.tell("rule RUN 0 - -"), "ok");
    this->click();
    this->button.ostrelTimerEvent(1000);
    EXPECT_EQ(this->logical("RUN"), 0);
    auto* drawn = this->button.template findChild<QAbstractButton*>();
    EXPECT_FALSE(drawn->isChecked());
}

// The operator may be faster than the news.
TYPED_TEST(Buttons, LeaveTheVariableThatTookThePlaceOfTheirOwn) {
    this->configure({"put 56 3 RUN"});
    this->bind();
    this->configure({"put 56 3 OTHER"});
    this->click();
    EXPECT_EQ(this->logical("OTHER"), 0);
}

TYPED_TEST(Buttons, SwitchTheVariableOfTheNextGeneration) {
    this->configure({"put 56 3 RUN"});
    this->bind();
    auto* before = this->template record<LOGICAL_VARIABLE>("RUN");
    this->makeGeneration({"put 56 3 OTHER", "put 56 3 RUN"});
    this->click();
    EXPECT_EQ(this->logical("RUN"), 1);
    EXPECT_EQ(this->logical("OTHER"), 0);
    EXPECT_EQ(+before->value, 0);
}

TYPED_TEST(Buttons, FollowTheEnableVariableOfTheNextGeneration) {
    this->configure({"put 56 3 RUN", "put 56 3 READY"});
    this->bind();
    this->button.setEnableVariableName("READY");
    EXPECT_FALSE(this->drawn()->isEnabled());
    this->makeGeneration({"put 56 3 RUN", "put 56 3 OTHER", "put 56 3 READY"});
    this->template record<LOGICAL_VARIABLE>("READY")->value = 1;
    this->button.ostrelTimerEvent(1000);
    EXPECT_TRUE(this->drawn()->isEnabled());
}

class HeldButton : public LiveWidgets {
protected:
    void hold() {
        configure({"put 56 3 HORN"});
        button.setName("HORN");
        button.setToggleType(ZelPushButton::Momentary);
        mouse(button.findChild<QAbstractButton*>(), QEvent::MouseButtonPress);
        ASSERT_EQ(logical("HORN"), 1);
    }

    ZelPushButton button;
};

TEST_F(HeldButton, LetsTheVariableOfTheNextGenerationGo) {
    hold();
    makeGeneration({"put 56 3 OTHER", "put 56 3 HORN"});
    record<LOGICAL_VARIABLE>("HORN")->value = 1;
    record<LOGICAL_VARIABLE>("OTHER")->value = 1;
    button.setEnabled(false);
    EXPECT_EQ(logical("HORN"), 0);
    EXPECT_EQ(logical("OTHER"), 1);
}

TEST_F(HeldButton, ReleasesTheVariableOfTheNextGeneration) {
    hold();
    makeGeneration({"put 56 3 OTHER", "put 56 3 HORN"});
    record<LOGICAL_VARIABLE>("HORN")->value = 1;
    record<LOGICAL_VARIABLE>("OTHER")->value = 1;
    mouse(button.findChild<QAbstractButton*>(), QEvent::MouseButtonRelease);
    EXPECT_EQ(logical("HORN"), 0);
    EXPECT_EQ(logical("OTHER"), 1);
}

TEST_F(HeldButton, LeavesTheVariableThatTookThePlaceOfItsOwn) {
    hold();
    configure({"put 56 3 OTHER"});
    record<LOGICAL_VARIABLE>("OTHER")->value = 1;
    mouse(button.findChild<QAbstractButton*>(), QEvent::MouseButtonRelease);
    button.setEnabled(false);
    EXPECT_EQ(logical("OTHER"), 1);
}

// Widgets of a site's own, on the smaller bases.

constexpr int ownRate = 100;

class OwnLogical : public ostrel_logical_base {
public:
    OwnLogical() { _updateRate = ownRate; }
    void setName(const QString& name) override {
        if (setupVariable(name) == VARIABLE_NOTFOUND)
            return;
        lptr = static_cast<LOGICAL_VARIABLE*>(ptr());
        TimerModerator::requestTimer(this, getSampleRate());
    }
    void sample() override { svalue = lptr->value != 0 ? QStringLiteral("on") : QStringLiteral("off"); }
    QString shown() const { return svalue; }
};

class OwnPicture : public GLOstrelBase {
public:
    ~OwnPicture() override { TimerModerator::releaseFromTimer(this); }
    void ostrelTimerEvent(int interval) override {
        if (interval == ownRate)
            m_height = static_cast<const REAL_VARIABLE*>(ptr())->value;
    }
    bool bind(QByteArray name) {
        return configureSharedMem(name.data()) == 0 && TimerModerator::requestTimer(this, ownRate);
    }
    double height() const { return m_height; }

private:
    double m_height = 0.0;
};

// A table that its subclass fills, which the base does not.
class OwnTable : public zelTable {
public:
    OwnTable() {
        auto* cells = findChild<QTableWidget*>(QStringLiteral("tableWidget"));
        cells->setItem(0, 0, new QTableWidgetItem(QStringLiteral("SPEED")));
        setNames({QStringLiteral("SPEED")});
    }
};

class SitesOwn : public LiveWidgets {
protected:
    SitesOwn() { InitializationDone = true; }
};

TEST_F(SitesOwn, LogicalFollowsItsVariable) {
    configure({"put 56 3 RUN"});
    OwnLogical widget;
    widget.setName(QStringLiteral("RUN"));
    EXPECT_TRUE(happens([&] { return widget.shown() == QLatin1String("off"); }));
    record<LOGICAL_VARIABLE>("RUN")->value = 1;
    EXPECT_TRUE(happens([&] { return widget.shown() == QLatin1String("on"); }));
}

TEST_F(SitesOwn, PictureFollowsItsVariable) {
    configure({"put 54 1 LEVEL"});
    OwnPicture widget;
    EXPECT_FALSE(widget.bind("NOBODY"));
    EXPECT_NE(widget.status(), 0);
    ASSERT_TRUE(widget.bind("LEVEL"));
    EXPECT_EQ(widget.status(), 0);
    record<REAL_VARIABLE>("LEVEL")->value = 12.5;
    EXPECT_TRUE(happens([&] { return widget.height() == 12.5; }));
}

TEST_F(SitesOwn, TableHoldsWhatItsSubclassPutsIn) {
    const OwnTable table;
    const auto* cells = table.findChild<QTableWidget*>(QStringLiteral("tableWidget"));
    EXPECT_EQ(cells->item(0, 0)->text(), QStringLiteral("SPEED"));
    EXPECT_EQ(cells->rowCount(), 3);
    EXPECT_TRUE(table.getNames().isEmpty());
}

class VariableBox : public LiveWidgets {
protected:
    static QStringList sorted(QStringList list) {
        list.sort();
        return list;
    }
};

TEST_F(VariableBox, ListsWhatTheStoreHas) {
    configure({"put 54 1 SPEED", "put 56 3 RUN", "array 15 EXH 4", "alias N SPEED 1"});
    std::strcpy(record<REAL_VARIABLE>("SPEED")->units, "RPM");
    ZelVariable box(QT_OSTREL_ANY, nullptr, false, false);
    box.setVariableTypes(QT_OSTREL_REAL | QT_OSTREL_LOGICAL);
    EXPECT_EQ(sorted(box.variables()).join('|').toStdString(), "EXH|N [RPM]|RUN [Logical]|SPEED [RPM]");
    EXPECT_EQ(box.comboBox()->count(), 5);
}

TEST_F(VariableBox, LooksUpNamesAndUnits) {
    configure({"put 54 1 SPEED", "put 56 3 RUN", "alias N SPEED 1"});
    std::strcpy(record<REAL_VARIABLE>("SPEED")->units, "RPM");
    EXPECT_EQ(ZelVariable::GetVariablesForType(QT_OSTREL_REAL_INTEGER).join('|').toStdString(), "N|SPEED");
    const std::unique_ptr<QHash<QString, QString>> units(ZelVariable::GetVariablesAndUnitsForType(QT_OSTREL_ANY));
    EXPECT_EQ(units->size(), 3);
    EXPECT_EQ(units->value(QStringLiteral("N")), QStringLiteral("RPM"));
    EXPECT_EQ(units->value(QStringLiteral("RUN")), QStringLiteral("Logical"));
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
