#include <unistd.h>

#include <csignal>
#include <fstream>

#include "paths.h"
#include "toolstest.h"

using Status = ToolsTest;

TEST_F(Status, TellsTheStoreItsServerAndItsEvents) {
    const QJsonObject status = json({"status"}).object();
    EXPECT_EQ(status["store"].toString().toStdString(), store());
    EXPECT_EQ(status["alive"], QJsonValue(true));
    EXPECT_EQ(status["server_pid"].toInt(), cell().pid());
    EXPECT_EQ(status["cell_file"].toString().toStdString(), cellFile().string());
    EXPECT_EQ(status["variables"].toInt(), 18);
    EXPECT_GE(status["heartbeat_age_s"].toDouble(), 0);
    QStringList names;
    for (const QJsonValue& event : status["events"].toArray())
        names << event.toObject()["name"].toString();
    EXPECT_TRUE(names.contains("PURGE"));
    EXPECT_TRUE(names.contains("config"));
}

TEST_F(Status, IsALineAFactForPeople) {
    const Outcome outcome = ostrel({"status"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.lines()[0], "store            " + store());
    EXPECT_EQ(outcome.lines()[1], "alive            yes");
}

TEST_F(Status, TellsHowFullEachAreaIs) {
    QJsonObject reals;
    int variables = 0;
    for (const QJsonValue& area : json({"status"}).object()["areas"].toArray()) {
        variables += area["variables"].toInt();
        if (area["section"] == QJsonValue("gu-real"))
            reals = area.toObject();
    }
    EXPECT_EQ(reals["title"], QJsonValue("General Use (real)"));
    EXPECT_EQ(reals["kind"], QJsonValue("real"));
    EXPECT_EQ(reals["variables"], QJsonValue(5));
    EXPECT_GE(reals["room"].toInt(), 5);
    EXPECT_EQ(variables, 18) << "15 variables and 3 aliases";
    const Outcome outcome = ostrel({"status"});
    EXPECT_NE(outcome.output.find("\n  General Use (real): 5 of "), std::string::npos) << outcome.output;
}

TEST_F(Status, TellsWhoIsAttachedAndWhatWasDropped) {
    Program waits(command({"event", "wait", "PURGE"}));
    const auto purge = [&] {
        for (const QJsonValue& event : json({"status"}).object()["events"].toArray())
            if (event["name"] == QJsonValue("PURGE"))
                return event.toObject();
        return QJsonObject();
    };
    ASSERT_TRUE(eventually([&] { return purge()["attached"] == QJsonValue(1); }));
    EXPECT_EQ(purge()["dropped"], QJsonValue(0));
    ostrel({"event", "raise", "PURGE"});
    EXPECT_EQ(waits.finish().status, 0);
    EXPECT_EQ(purge()["raised"], QJsonValue(1));
    EXPECT_EQ(purge()["attached"], QJsonValue(0));
}

TEST_F(Status, FailsWhenTheServerHasDied) {
    cell().signal(SIGKILL);
    cell().finish();
    const Outcome outcome = ostrel({"status"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.lines()[1], "alive            no");
    EXPECT_EQ(outcome.errors, "ostrel: store '" + store() +
                                  "': its server has died and the values stand still; start ostrel-cell again to go on "
                                  "with them\n");
    EXPECT_EQ(ostrel({"get", "CYCLES"}).output, "CYCLES 42\n");
    startCell();
    EXPECT_EQ(ostrel({"status"}).status, 0);
}

// The heartbeat is two seconds old at the least when a stopped cell is told from one that lives.
TEST_F(Status, TellsAStoppedCellFromALivingOne) {
    EXPECT_EQ(json({"status"}).object()["state"], QJsonValue("alive"));
    Program watch(command({"watch", "CYCLES", "--rate", "50"}));
    ASSERT_TRUE(watch.prints(1));
    cell().signal(SIGSTOP);
    ASSERT_TRUE(eventually([&] { return ostrel({"status"}).status == 1; }));
    EXPECT_EQ(json({"status"}, 1).object()["state"], QJsonValue("stopped"));
    const std::string told = "the cell has been silent for ";
    const Outcome get = ostrel({"get", "CYCLES"});
    EXPECT_EQ(get.status, 0);
    EXPECT_EQ(get.output, "CYCLES 42\n");
    EXPECT_NE(get.errors.find(told), std::string::npos) << get.errors;
    const Outcome set = ostrel({"set", "CYCLES", "43"});
    EXPECT_EQ(set.status, 1);
    EXPECT_NE(set.errors.find("nothing was written, --force writes all the same"), std::string::npos) << set.errors;
    EXPECT_EQ(ostrel({"get", "CYCLES"}).output, "CYCLES 42\n");
    EXPECT_EQ(ostrel({"set", "CYCLES", "43", "--force"}).status, 0);
    EXPECT_EQ(ostrel({"get", "CYCLES"}).output, "CYCLES 43\n");
    watch.signal(SIGINT);
    const std::string errors = watch.finish().errors;
    EXPECT_EQ(errors.find(told), errors.rfind(told)) << errors;
    EXPECT_NE(errors.find(told), std::string::npos) << errors;
    cell().signal(SIGCONT);
    ASSERT_TRUE(eventually([&] { return ostrel({"status"}).status == 0; }));
    EXPECT_EQ(ostrel({"set", "CYCLES", "44"}).errors, "");
}

TEST_F(Status, RefusesToWriteToADeadCell) {
    cell().signal(SIGKILL);
    cell().finish();
    EXPECT_EQ(json({"status"}, 1).object()["state"], QJsonValue("dead"));
    EXPECT_EQ(ostrel({"set", "CYCLES", "43"}).status, 1);
    EXPECT_EQ(ostrel({"get", "CYCLES"}).output, "CYCLES 42\n");
    startCell();
}

TEST_F(Status, SaysWhatToDoWithoutAStore) {
    const std::string name = freshStoreName();
    for (const Arguments& words : {Arguments{"status"},
                                   {"list"},
                                   {"get", "A"},
                                   {"set", "A", "1"},
                                   {"watch", "A"},
                                   {"info", "A"},
                                   {"event", "raise", "A"},
                                   {"event", "wait", "A"}}) {
        Arguments all{paths::command, "--store", name};
        all.insert(all.end(), words.begin(), words.end());
        const Outcome outcome = run(all);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.errors, "ostrel: no store named '" + name +
                                      "' is running; start one with ostrel-cell FILE.toml --store " + name + "\n");
    }
}

TEST_F(Status, TakesTheStoreFromTheEnvironment) {
    setenv("OSTREL_STORE", store().c_str(), 1);
    const Outcome outcome = run({paths::command, "get", "CYCLES"});
    unsetenv("OSTREL_STORE");
    EXPECT_EQ(outcome.output, "CYCLES 42\n");
}

// A client that may read the store and not write to it. Only root can become somebody else.
TEST_F(Status, TellsAReaderThatEventsAreNotForHim) {
    const std::string name = freshStoreName();
    std::string lines = "[cell]\nname = \"readable\"\nmode = \"0644\"\nevents = [\"PURGE\"]\n[real.A]\nvalue = 2\n";
    const std::filesystem::path file = cellFile().parent_path() / "readable.toml";
    std::ofstream(file) << lines;
    Program served({paths::cell, file, "--store", name});
    ASSERT_TRUE(served.prints(1));
    const auto reader = [&](const Arguments& words) {
        Arguments all{paths::command, "--store", name};
        all.insert(all.begin(), {"/usr/bin/setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"});
        all.insert(all.end(), words.begin(), words.end());
        return run(all);
    };
    const bool startable = geteuid() == 0 && reader({"--version"}).status == 0;
    if (!startable)
        GTEST_SKIP() << "the program cannot be started as somebody else here";
    EXPECT_EQ(reader({"get", "A"}).output, "A 2.00\n");
    EXPECT_EQ(reader({"set", "A", "3"}).errors, "ostrel: A: you may read this store but not write to it\n");
    for (const char* verb : {"raise", "wait"})
        EXPECT_EQ(reader({"event", verb, "PURGE"}).errors,
                  "ostrel: PURGE: you may read this store but not use its events\n");
    EXPECT_NE(reader({"status"}).output.find("\nevents           not for this user, who may read the store only\n"),
              std::string::npos);
    EXPECT_NE(reader({"--json", "status"}).output.find("\"events\":null"), std::string::npos);
    served.signal(SIGTERM);
    EXPECT_EQ(served.finish().status, 0);
}

TEST_F(Status, TellsWhatIsThereInThePlaceOfAStore) {
    const std::string name = freshStoreName();
    const std::string object = "/dev/shm/ostrel-" + name;
    std::ofstream(object) << std::string(100, 'x');
    EXPECT_EQ(run({paths::command, "--store", name, "get", "A"}).errors, "ostrel: '" + name + "': is cut short\n");
    std::filesystem::remove(object);
}

// The store that is used where none is named runs, and is left alone.
TEST_F(Status, RefusesWhatIsNoNameOfAStore) {
    const std::string why = ": is no name for a store; use 1 to 63 letters, digits, points, hyphens and underscores\n";
    setenv("OSTREL_STORE", store().c_str(), 1);
    for (const std::string& name : {std::string("a b"), std::string(), std::string(64, 'x'), std::string("a/b")}) {
        const Outcome outcome = run({paths::command, "--store", name, "set", "CYCLES", "1"});
        EXPECT_EQ(outcome.status, 1) << name;
        EXPECT_EQ(outcome.errors, "ostrel: '" + name + "'" + why);
        EXPECT_EQ(run({paths::command, "--store", name, "event", "raise", "PURGE"}).status, 1) << name;
    }
    setenv("OSTREL_STORE", "a b", 1);
    EXPECT_EQ(run({paths::command, "get", "CYCLES"}).errors, "ostrel: 'a b'" + why);
    const Outcome cell = run({paths::cell, cellFile()});
    EXPECT_EQ(cell.status, 1);
    EXPECT_EQ(cell.errors, "ostrel-cell: store a b" + why);
    unsetenv("OSTREL_STORE");
    EXPECT_EQ(value("CYCLES"), "CYCLES 42");
}

TEST_F(Status, ForgetsAStoreThatEndedCleanly) {
    cell().signal(SIGTERM);
    EXPECT_EQ(cell().finish().status, 0);
    EXPECT_EQ(ostrel({"get", "CYCLES"}).status, 1);
    startCell();
}
