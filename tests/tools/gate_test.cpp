// What the cell lets nobody write, the command says so and fails.
#include <fstream>
#include <sstream>

#include "toolstest.h"

namespace {

class Gate : public ToolsTest {
protected:
    void SetUp() override {
        ToolsTest::SetUp();
        std::ofstream(cellFile(), std::ios::app)
            << "[real.LIMITED]\nunits = \"rpm\"\nmin = 0\nmax = 6500\n[real.FIXED]\nvalue = 2\nwritable = false\n"
               "[integer.STEP]\nmin = 1\nmax = 9\nvalue = 1\n[logical.SEALED]\nwritable = false\n"
               "[string.PLATE]\nvalue = \"0417\"\nwritable = false\n"
               "[real_array.TRIM]\nsize = 2\nmin = -1\nmax = 1\n[string_array.WORDS]\nsize = 2\nwritable = false\n";
        ASSERT_EQ(ostrel({"reconfig"}).status, 0);
    }

    static std::string outside(const std::string& name, const std::string& value) {
        return name + ": '" + value + "' lies outside the least and the greatest value that the cell allows";
    }
};

}  // namespace

TEST_F(Gate, LetsThroughWhatIsAllowed) {
    EXPECT_EQ(ostrel({"set", "LIMITED", "6500"}).output, "LIMITED 6500.00 rpm\n");
    EXPECT_EQ(ostrel({"set", "STEP", "9"}).output, "STEP 9\n");
    EXPECT_EQ(ostrel({"set", "TRIM:1", "-1"}).output, "TRIM:1 -1.00\n");
}

TEST_F(Gate, RefusesWhatLiesOutside) {
    refuses({"set", "LIMITED", "6500.5"}, outside("LIMITED", "6500.5"));
    refuses({"set", "LIMITED", "-1"}, outside("LIMITED", "-1"));
    refuses({"set", "LIMITED", "200", "Hz"}, outside("LIMITED", "200"));
    refuses({"set", "STEP", "0"}, outside("STEP", "0"));
    refuses({"set", "TRIM:0", "1.5"}, outside("TRIM:0", "1.5"));
    EXPECT_EQ(value("LIMITED"), "LIMITED 0.00 rpm");
    EXPECT_EQ(value("STEP"), "STEP 1");
    EXPECT_EQ(value("TRIM:0"), "TRIM:0 0.00");
}

TEST_F(Gate, RefusesWhatNobodyMayWrite) {
    refuses({"set", "FIXED", "2"}, "FIXED: the cell lets nobody write it");
    refuses({"set", "SEALED", "1"}, "SEALED: the cell lets nobody write it");
    refuses({"set", "PLATE", "0418"}, "PLATE: the cell lets nobody write it");
    refuses({"set", "WORDS:1", "x"}, "WORDS:1: the cell lets nobody write it");
    EXPECT_EQ(value("PLATE"), "PLATE 0417");
}

// A write that is refused is told as such also where another write of the same variable was stored before.
TEST_F(Gate, TellsTheLastWriteAndNotAnEarlierOne) {
    EXPECT_EQ(ostrel({"set", "LIMITED", "100"}).status, 0);
    EXPECT_EQ(ostrel({"set", "LIMITED", "9999"}).status, 1);
    EXPECT_EQ(ostrel({"set", "LIMITED", "200"}).status, 0);
    EXPECT_EQ(value("LIMITED"), "LIMITED 200.00 rpm");
}

TEST_F(Gate, OpensAgainWithTheCellFile) {
    std::stringstream text;
    text << std::ifstream(cellFile()).rdbuf();
    std::string lines = text.str();
    const std::string rule = "value = 2\nwritable = false\n";
    lines.replace(lines.find(rule), rule.size(), "value = 2\n");
    std::ofstream(cellFile()) << lines;
    ASSERT_EQ(ostrel({"reconfig"}).status, 0);
    EXPECT_EQ(ostrel({"set", "FIXED", "3"}).output, "FIXED 3.00\n");
}
