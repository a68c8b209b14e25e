// Widgets on a real store, which is served by a process of its own.
#include <QApplication>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <fstream>

#include "hostlink/globals.h"
#include "ostrel/storefixture.h"
#include "widgets/zelgroupwidget.h"
#include "widgets/zelgroupwidget_fl.h"

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
    void SetUp() override {
        inDesigner = false;
        RemoteDisplay = false;
        StoreTest::SetUp();
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

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
