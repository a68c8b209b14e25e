// A cell inside the process that uses it. libostrel finds the engine itself.
#include <filesystem>

#include "celltest.h"

namespace {

class Embedding : public CellTest {};

TEST_F(Embedding, TellsTheMistakesOfTheFile) {
    const std::string file = write("[real.A]\nunit = 5\n[real.B]\nexpr = \"C\"\n");
    char message[4096] = "";
    EXPECT_NE(ostrel_store_open(nullptr, file.c_str(), message, sizeof message), 0);
    EXPECT_NE(std::string(message).find(file + ":5: real.A: unknown key \"unit\""), std::string::npos) << message;
    EXPECT_NE(std::string(message).find(file + ":7: real.B: expr: there is no variable \"C\""), std::string::npos)
        << message;
    EXPECT_FALSE(exists("A"));
}

// A process has one private store, so what belongs to it is tested in one go, and last.
TEST_F(Embedding, ServesTheProcessAlone) {
    const std::string file =
        write("[real.SP]\n[real.Y]\nexpr = \"SP * 2\"\n[real.CLOCK]\nexpr = \"t\"\nwritable = false\nmax = 0\n");
    char message[4096] = "";
    ASSERT_EQ(ostrel_store_open(nullptr, file.c_str(), message, sizeof message), 0) << message;
    EXPECT_TRUE(eventually([] { return number("CLOCK") > 0.05; })) << "it scans by itself";
    set_real_variable(&record<REAL_VARIABLE>("SP"), 21);
    EXPECT_TRUE(eventually([] { return number("Y") == 42; }));
    const double before = number("CLOCK");
    set_real_variable(&record<REAL_VARIABLE>("CLOCK"), -1);
    EXPECT_GE(number("CLOCK"), before) << "the rule is for the program, not for the cell inside it";
    EXPECT_TRUE(eventually([before] { return number("CLOCK") > before; }));
    ostrel_store_status status{};
    ASSERT_EQ(ostrel_store_get_status(&status), 1);
    EXPECT_EQ(status.embedded, 1);
    EXPECT_EQ(status.variables, 3);
    EXPECT_FALSE(std::filesystem::exists(path(".audit"))) << "a private store leaves no files";
}

}  // namespace
