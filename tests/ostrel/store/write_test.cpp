// Writing variables, with the book-keeping of each write.
#include <ostrel/events.h>
#include <sys/wait.h>
#include <unistd.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>

#include "ostrel/storefixture.h"

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

char* text(const std::string& s) {
    return const_cast<char*>(s.c_str());
}

bool isNow(timespec time) {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return std::abs(now.tv_sec - time.tv_sec) <= 5;
}

class Write : public StoreTest {
protected:
    void SetUp() override {
        StoreTest::SetUp();
        configure({"put 54 1 REAL", "put 54 1 OTHER", "put 55 2 INT", "put 56 3 LOGI", "put 57 7 TEXT",
                   "array 15 REALS 3", "array 16 INTS 3", "array 17 TEXTS 3", "array 18 LOGIS 3"});
        real = record<REAL_VARIABLE>("REAL");
        integer = record<INTEGER_VARIABLE>("INT");
        logical = record<LOGICAL_VARIABLE>("LOGI");
        string = record<STRING_VARIABLE>("TEXT");
        ASSERT_TRUE(real && integer && logical && string);
    }

    // How often the event was raised so far.
    static unsigned long long raised(const std::string& name) {
        ostrel_event_info_t info{};
        for (int i = 0; ostrel_event_info(i, &info) == 0; ++i)
            if (name == info.name)
                return info.raised;
        return 0;
    }

    REAL_VARIABLE* real = nullptr;
    INTEGER_VARIABLE* integer = nullptr;
    LOGICAL_VARIABLE* logical = nullptr;
    STRING_VARIABLE* string = nullptr;
};

TEST_F(Write, ARealIsStoredWithItsBookKeeping) {
    set_real_variable(real, 1.5);
    set_real_variable(real, 2.5);
    EXPECT_EQ(+real->value, 2.5);
    EXPECT_EQ(+real->last_sampled_value, 2.5);
    EXPECT_EQ(+real->last_delta_value, 1.5);
    EXPECT_EQ(+real->update_count, 2u);
    EXPECT_EQ(+real->last_pid, getpid());
    EXPECT_EQ(std::string(real->last_process_name), std::string(program_invocation_short_name).substr(0, 23));
    EXPECT_EQ(+real->NAN_trapped, 0);
    EXPECT_TRUE(isNow(real->last_sampled_time));
    EXPECT_TRUE(isNow(real->last_delta_time));
}

TEST_F(Write, TheSameValueAgainIsASampleAndNoChange) {
    set_real_variable(real, 2.5);
    const timespec changed = real->last_delta_time;
    set_real_variable(real, 2.5);
    EXPECT_EQ(+real->update_count, 2u);
    EXPECT_EQ(+real->last_delta_value, 0);
    EXPECT_EQ(+real->last_delta_time.tv_sec, changed.tv_sec);
    EXPECT_EQ(+real->last_delta_time.tv_nsec, changed.tv_nsec);
}

TEST_F(Write, WhatIsNoNumberIsTrappedAndNotStored) {
    set_real_variable(real, 1.5);
    for (const double value : {noNumber, HUGE_VAL, -HUGE_VAL}) {
        set_real_variable(real, value);
        EXPECT_EQ(+real->value, 1.5);
        EXPECT_EQ(+real->NAN_trapped, 1);
        EXPECT_EQ(+real->update_count, 1u);
    }
    set_real_variable(real, 3);
    EXPECT_EQ(+real->NAN_trapped, 0);
}

TEST_F(Write, ANeighbourAtAnOddAddressIsWrittenWhole) {
    auto* other = record<REAL_VARIABLE>("OTHER");
    set_real_variable(other, -1.25e300);
    EXPECT_EQ(+other->value, -1.25e300);
    EXPECT_EQ(+real->value, 0);
    EXPECT_STREQ(other->label, "OTHER");
}

TEST_F(Write, AnEventIsRaisedOnChangeOnly) {
    int eid = 0;
    ASSERT_EQ(ostrel_event_create("real_changed", &eid), 0);
    std::strcpy(real->event_name, "real_changed");
    set_real_variable(real, 1);
    EXPECT_EQ(raised("real_changed"), 0u);
    real->event_active = 1;
    set_real_variable(real, 2);
    set_real_variable(real, 2);
    EXPECT_EQ(raised("real_changed"), 1u);
    ASSERT_EQ(ostrel_event_create("int_changed", &eid), 0);
    std::strcpy(integer->event_name, "int_changed");
    integer->event_active = 1;
    set_integer(integer, 2);
    set_integer(integer, 2);
    EXPECT_EQ(raised("int_changed"), 1u);
}

TEST_F(Write, AnIntegerIsStoredWithItsBookKeeping) {
    EXPECT_EQ(set_integer(integer, INT_MIN), 0);
    EXPECT_EQ(set_integer(integer, 7), 0);
    EXPECT_EQ(+integer->value, 7);
    EXPECT_EQ(+integer->last_sampled_value, 7);
    EXPECT_EQ(+integer->last_delta_value, INT_MIN);
    EXPECT_EQ(+integer->last_pid, getpid());
    EXPECT_TRUE(isNow(integer->last_sampled_time));
    EXPECT_TRUE(isNow(integer->last_delta_time));
}

TEST_F(Write, AValueTakesBackTheMarkOfWhatWasNoNumber) {
    integer->NAN_trapped = 1;
    EXPECT_EQ(set_integer(integer, 3), 0);
    EXPECT_EQ(+integer->NAN_trapped, 0);
    for (const char* name : {"REALS:0", "INTS:0"}) {
        const SHARED_MEMORY element = handle(name);
        EXPECT_NE(ostrel_set_array_element(&element, noNumber, nullptr), 0);
        EXPECT_EQ(ostrel_set_array_element(&element, 1, nullptr), 0);
    }
    EXPECT_EQ(+static_cast<REAL_ARRAY_MEMBER*>(handle("REALS:0").member_adr)->NAN_trapped, 0);
    EXPECT_EQ(+static_cast<INTEGER_ARRAY_MEMBER*>(handle("INTS:0").member_adr)->NAN_trapped, 0);
}

TEST_F(Write, ALogicalRaisesTheEventOfTheStateItGoesTo) {
    int eid = 0;
    ASSERT_EQ(ostrel_event_create("went_on", &eid), 0);
    ASSERT_EQ(ostrel_event_create("went_off", &eid), 0);
    std::strcpy(logical->true_event_name, "went_on");
    std::strcpy(logical->false_event_name, "went_off");
    logical->signal_on_true = 1;
    EXPECT_EQ(set_logical(logical, 1), 0);
    EXPECT_EQ(set_logical(logical, 1), 0);
    EXPECT_EQ(set_logical(logical, 0), 0);
    EXPECT_EQ(raised("went_on"), 1u);
    EXPECT_EQ(raised("went_off"), 0u);
    logical->signal_on_false = 1;
    set_logical(logical, -5);
    EXPECT_EQ(+logical->value, 1);
    set_logical(logical, 0);
    EXPECT_EQ(raised("went_off"), 1u);
    EXPECT_EQ(+logical->last_pid, getpid());
    EXPECT_TRUE(isNow(logical->last_sampled_time));
}

TEST_F(Write, ALogicalTakesTheTimeOfItsSample) {
    timespec time{1000, 5};
    EXPECT_EQ(set_logical_variable(logical, 1, 0, &time), 0);
    EXPECT_EQ(+logical->last_sampled_time.tv_sec, 1000);
    EXPECT_EQ(+logical->last_sampled_time.tv_nsec, 5);
    EXPECT_EQ(set_logical_variable(logical, 0, 0, nullptr), 0);
    EXPECT_TRUE(isNow(logical->last_sampled_time));
    EXPECT_NE(set_logical_variable(logical, 1, 1, nullptr), 0);
    EXPECT_EQ(+logical->value, 0);
}

TEST_F(Write, APlainStoreOfALogicalChangesTheValueAlone) {
    std::strcpy(logical->true_event_name, "WENT_TRUE");
    logical->signal_on_true = 1;
    ASSERT_EQ(ostrel_event_create("WENT_TRUE", nullptr), 0);
    LOGICAL_VARIABLE expected = *logical;
    expected.value = 1;
    EXPECT_EQ(ostrel_store_logical(logical, 2), OSTREL_STORED);
    EXPECT_EQ(std::memcmp(logical, &expected, sizeof expected), 0);
    EXPECT_EQ(raised("WENT_TRUE"), 0u);
    EXPECT_EQ(ostrel_store_logical(logical, 0), OSTREL_STORED);
    EXPECT_EQ(+logical->value, 0);
    EXPECT_EQ(ostrel_store_logical(nullptr, 1), OSTREL_NO_RECORD);
    EXPECT_EQ(ostrel_store_logical(reinterpret_cast<LOGICAL_VARIABLE*>(integer), 1), OSTREL_NO_RECORD);
    EXPECT_EQ(+integer->value, 0);
}

TEST_F(Write, AStringIsCutAtItsField) {
    EXPECT_EQ(set_string_variable(string, text("warm up")), 0);
    EXPECT_STREQ(string->value, "warm up");
    EXPECT_EQ(+string->last_pid, getpid());
    EXPECT_EQ(set_string_variable(string, text(std::string(100, 'x'))), 0);
    EXPECT_EQ(std::string(string->value, 80), std::string(80, 'x'));
    EXPECT_STREQ(string->label, "TEXT");
    EXPECT_EQ(set_string_variable(string, text("")), 0);
    EXPECT_EQ(std::string(string->value, 80), std::string(80, '\0'));
    EXPECT_NE(set_string_variable(string, nullptr), 0);
}

TEST_F(Write, ElementsAreStoredByTheirHandle) {
    const auto set = [&](const char* name, double number, const char* value) {
        const SHARED_MEMORY mem = handle(name);
        return ostrel_set_array_element(&mem, number, value);
    };
    EXPECT_EQ(set("REALS:1", 2.5, nullptr), 0);
    const auto* element = static_cast<REAL_ARRAY_MEMBER*>(handle("REALS:1").member_adr);
    EXPECT_EQ(+element->value, 2.5);
    EXPECT_EQ(+element->last_pid, getpid());
    EXPECT_TRUE(isNow(element->last_sampled_time));
    EXPECT_NE(set("REALS:1", noNumber, nullptr), 0);
    EXPECT_EQ(+element->value, 2.5);
    EXPECT_EQ(+element->NAN_trapped, 1);

    EXPECT_EQ(set("INTS:2", -3.4, nullptr), 0);
    const auto* whole = static_cast<INTEGER_ARRAY_MEMBER*>(handle("INTS:2").member_adr);
    EXPECT_EQ(+whole->value, -3);
    for (const int outermost : {INT_MIN, INT_MAX}) {
        EXPECT_EQ(set("INTS:2", outermost, nullptr), 0);
        EXPECT_EQ(+whole->value, outermost);
    }
    EXPECT_EQ(set("INTS:2", -3, nullptr), 0);
    for (const double value : {noNumber, 1e10, -1e10})
        EXPECT_NE(set("INTS:2", value, nullptr), 0);
    EXPECT_EQ(+whole->value, -3);

    EXPECT_EQ(set("LOGIS:0", 4, nullptr), 0);
    EXPECT_EQ(+static_cast<LOGICAL_ARRAY_MEMBER*>(handle("LOGIS:0").member_adr)->value, 1);

    EXPECT_EQ(set("TEXTS:0", 0, std::string(300, 'y').c_str()), 0);
    const auto* note = static_cast<STRING_ARRAY_MEMBER*>(handle("TEXTS:0").member_adr);
    EXPECT_EQ(std::string(note->value), std::string(255, 'y'));
    EXPECT_NE(set("TEXTS:0", 0, nullptr), 0);
}

TEST_F(Write, AnElementRaisesTheEventOfTheStateItGoesTo) {
    ASSERT_EQ(ostrel_event_create("el_on", nullptr), 0);
    ASSERT_EQ(ostrel_event_create("el_off", nullptr), 0);
    auto* array = static_cast<LOGICAL_ARRAY_VARIABLE*>(get_vrbl_adr(handle("LOGIS")));
    std::strcpy(array->true_event_name, "el_on");
    std::strcpy(array->false_event_name, "el_off");
    array->signal_on_true = 1;
    const SHARED_MEMORY element = handle("LOGIS:1");
    const auto set = [&](double value, unsigned long long on, unsigned long long off) {
        EXPECT_EQ(ostrel_set_array_element(&element, value, nullptr), 0);
        EXPECT_EQ(raised("el_on"), on) << value;
        EXPECT_EQ(raised("el_off"), off) << value;
    };
    set(0, 0, 0);
    set(1, 1, 0);
    set(2, 1, 0);
    set(0, 1, 0);
    array->signal_on_true = 0;
    array->signal_on_false = 1;
    set(0, 1, 0);
    set(1, 1, 0);
    set(0, 1, 1);
    EXPECT_NE(ostrel_set_array_element(&element, noNumber, nullptr), 0);
}

TEST_F(Write, AForkedChildSignsWithItsOwnPid) {
    set_real_variable(real, 1);
    const pid_t child = fork();
    if (child == 0) {
        set_real_variable(real, 2);
        _exit(0);
    }
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    EXPECT_EQ(+real->value, 2);
    EXPECT_EQ(+real->last_pid, child);
    ostrel_write last{};
    for (uint64_t after = 0; ostrel_next_write(after, &last) == 0;)
        after = last.number;
    EXPECT_EQ(last.pid, child);
    set_real_variable(real, 3);
    EXPECT_EQ(+real->last_pid, getpid());
}

TEST_F(Write, WhatIsNoElementIsRefused) {
    EXPECT_NE(ostrel_set_array_element(nullptr, 1, nullptr), 0);
    SHARED_MEMORY mem = handle("REALS");
    EXPECT_NE(ostrel_set_array_element(&mem, 1, nullptr), 0);
    mem = handle("REAL");
    EXPECT_NE(ostrel_set_array_element(&mem, 1, nullptr), 0);
    mem = handle("REALS:0");
    mem.member_adr = static_cast<char*>(mem.member_adr) + 1;
    EXPECT_NE(ostrel_set_array_element(&mem, 1, nullptr), 0);
    mem = handle("REALS:2");
    mem.member_adr = static_cast<char*>(mem.member_adr) + sizeof(REAL_ARRAY_MEMBER);
    EXPECT_NE(ostrel_set_array_element(&mem, 1, nullptr), 0);
    mem.member_adr = &mem;
    EXPECT_NE(ostrel_set_array_element(&mem, 1, nullptr), 0);
}

TEST_F(Write, WhatIsNoRecordOfTheStoreIsRefused) {
    REAL_VARIABLE outside{};
    set_real_variable(&outside, 5);
    EXPECT_EQ(outside.value, 0);
    set_real_variable(nullptr, 5);
    INTEGER_VARIABLE integerOutside{};
    EXPECT_NE(set_integer(&integerOutside, 5), 0);
    EXPECT_NE(set_integer(nullptr, 5), 0);
    EXPECT_NE(set_integer(reinterpret_cast<INTEGER_VARIABLE*>(real), 5), 0);
    EXPECT_NE(set_integer(reinterpret_cast<INTEGER_VARIABLE*>(reinterpret_cast<char*>(integer) + 2), 5), 0);
    EXPECT_NE(set_integer(integer + 1, 5), 0);
    EXPECT_NE(set_integer(integer - 1, 5), 0);
    EXPECT_NE(set_logical(nullptr, 1), 0);
    EXPECT_NE(set_string_variable(nullptr, text("x")), 0);
    EXPECT_EQ(+integer->value, 0);
}

TEST_F(Write, ARecordOfAnEndedStoreStillTakesValues) {
    server.tell("close");
    EXPECT_EQ(set_integer(integer, 8), 0);
    EXPECT_EQ(+integer->value, 8);
}

}  // namespace
