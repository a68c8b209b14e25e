// What the tests of the cell share: a folder of their own, a store name of their own, and waiting for a condition.
#ifndef OSTREL_TESTS_CELL_CELLTEST_H
#define OSTREL_TESTS_CELL_CELLTEST_H

#include <gtest/gtest.h>
#include <ostrel/store.h>

#include <functional>
#include <string>

// Tries until `condition` holds, for at most 20 seconds.
bool eventually(const std::function<bool()>& condition);

std::string uniqueStoreName();

class CellTest : public testing::Test {
protected:
    CellTest();
    ~CellTest() override;

    // Writes the file and gives its path. A table [cell] is put before it where `text` has none.
    std::string write(const std::string& text);
    std::string path(const std::string& name) const { return m_folder + "/" + name; }

private:
    std::string m_folder;
};

// Reading the store in use by name, as any client does. Failing look-ups fail the test.
SHARED_MEMORY handleOf(const std::string& name);
bool exists(const std::string& name);
double number(const std::string& name);
std::string text(const std::string& name);
// Records are packed: a field goes into EXPECT_EQ as a copy, `+p.value`, since no reference may be bound to it.
template <typename Record>
Record& record(const std::string& name) {
    static Record nothing{};
    void* address = get_vrbl_adr(handleOf(name));
    EXPECT_NE(address, nullptr) << name;
    return address != nullptr ? *static_cast<Record*>(address) : nothing;
}

#endif
