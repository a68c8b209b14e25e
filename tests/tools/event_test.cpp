#include <csignal>

#include "toolstest.h"

class Event : public ToolsTest {
protected:
    QJsonObject event(const QString& name) const {
        for (const QJsonValue& each : json({"status"})["events"].toArray()) {
            if (each.toObject()["name"] == name)
                return each.toObject();
        }
        return {};
    }

    // A waiting command attaches after its start, so raising has to wait for that.
    bool isAttached(const QString& name) const {
        return eventually([&] { return event(name)["attached"].toInt() == 1; });
    }
};

TEST_F(Event, RaisedHereArrivesThere) {
    Program wait(command({"event", "wait", "PURGE"}));
    ASSERT_TRUE(isAttached("PURGE"));
    EXPECT_EQ(ostrel({"event", "raise", "PURGE"}).output, "PURGE\n");
    const Outcome outcome = wait.finish();
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(outcome.output, "PURGE\n");
    EXPECT_EQ(event("PURGE")["raised"].toInt(), 1);
    EXPECT_EQ(event("PURGE")["attached"].toInt(), 0);
}

TEST_F(Event, CarriesItsPayload) {
    Program wait(command({"--json", "event", "wait", "PURGE", "--count", "2"}));
    ASSERT_TRUE(isAttached("PURGE"));
    ostrel({"event", "raise", "PURGE", "--payload", "line \"3\""});
    ostrel({"event", "raise", "PURGE"});
    const auto lines = wait.finish().lines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(QJsonDocument::fromJson(lines[0].c_str()).object(),
              (QJsonObject{{"event", "PURGE"}, {"payload", "line \"3\""}}));
    EXPECT_EQ(QJsonDocument::fromJson(lines[1].c_str()).object()["payload"], QJsonValue(""));
}

TEST_F(Event, IsNotConfusedWithAnother) {
    Program wait(command({"event", "wait", "PURGE_DONE"}));
    ASSERT_TRUE(isAttached("PURGE_DONE"));
    ostrel({"event", "raise", "PURGE", "--payload", "other"});
    ostrel({"event", "raise", "PURGE_DONE", "--payload", "mine"});
    EXPECT_EQ(wait.finish().output, "PURGE_DONE mine\n");
}

TEST_F(Event, WaitingGivesUpWhenToldTo) {
    const Outcome outcome = ostrel({"event", "wait", "PURGE", "--timeout", "1"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "ostrel: PURGE: did not come within 1 s\n");
}

TEST_F(Event, WaitingEndsCleanlyWhenInterrupted) {
    Program wait(command({"event", "wait", "PURGE"}));
    ASSERT_TRUE(isAttached("PURGE"));
    wait.signal(SIGINT);
    const Outcome outcome = wait.finish();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(event("PURGE")["attached"].toInt(), 0);
}

TEST_F(Event, NamesTheNearestOfAnUnknownName) {
    refuses({"event", "raise", "PURGEE"}, "PURGEE: no such event; did you mean PURGE?");
    refuses({"event", "wait", "ZZZZZZ"}, "ZZZZZZ: no such event; 'ostrel status' lists all");
}

TEST_F(Event, RefusesAPayloadThatIsTooLong) {
    EXPECT_EQ(ostrel({"event", "raise", "PURGE", "--payload", std::string(256, 'x')}).status, 0);
    refuses({"event", "raise", "PURGE", "--payload", std::string(257, 'x')},
            "PURGE: the payload has 257 bytes; an event carries at most 256");
}
