// The files of the store's server: a line each for what clients wrote and for what programs have to say.
#include "server/linefile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

constexpr std::chrono::seconds patience{20};

class Lines : public testing::Test {
protected:
    Lines() { std::filesystem::create_directory(folder); }
    ~Lines() override { std::filesystem::remove_all(folder); }

    std::string at(const std::string& name) const { return folder + "/" + name; }

    static std::string contents(const std::string& path) {
        std::ostringstream text;
        text << std::ifstream(path).rdbuf();
        return text.str();
    }

    static void append(LineFile& file, const std::string& text, int* written = nullptr) {
        file.append(text, 1, [written] {
            if (written)
                ++*written;
        });
    }

    const std::string folder = testing::TempDir() + "lines-" + std::to_string(getpid());
    const std::string path = at("log");
};

TEST_F(Lines, AreAppended) {
    std::ofstream(path) << "before\n";
    int written = 0;
    {
        LineFile file("line");
        file.setPlace(path, 0);
        append(file, "one\n", &written);
        append(file, "two\n", &written);
        EXPECT_TRUE(file.flush(patience));
        EXPECT_EQ(contents(path), "before\none\ntwo\n");
        EXPECT_EQ(file.problem(), "");
        append(file, "at the end\n", &written);
    }
    EXPECT_EQ(contents(path), "before\none\ntwo\nat the end\n");
    EXPECT_EQ(written, 3);
}

TEST_F(Lines, WaitUntilTheFileTakesThem) {
    LineFile file("line");
    int written = 0;
    file.setPlace(at("none/log"), 0);
    append(file, "one\n", &written);
    append(file, "two\n", &written);
    EXPECT_FALSE(file.flush(patience));
    EXPECT_EQ(file.problem(), "No such file or directory");
    EXPECT_EQ(written, 0);
    file.setPlace(path, 0);
    EXPECT_TRUE(file.flush(patience));
    EXPECT_EQ(contents(path), "one\ntwo\n");
    EXPECT_EQ(written, 2);
    EXPECT_EQ(file.problem(), "");
}

TEST_F(Lines, ThatFoundNoRoomAreCountedInTheFile) {
    LineFile file("write");
    file.setPlace(at("none/log"), 0);
    std::string megabyte((1 << 20) - 1, 'x');
    megabyte += '\n';
    for (int i = 0; i < 7; ++i)
        append(file, megabyte);
    file.setPlace(path, 0);
    ASSERT_TRUE(file.flush(patience));
    const std::string text = contents(path);
    const size_t first = text.find('\n');
    EXPECT_NE(text.substr(0, first).find(" 3 writes are missing here"), std::string::npos) << text.substr(0, first);
    EXPECT_EQ(text.size(), first + 1 + 4 * megabyte.size());
}

TEST_F(Lines, BeginAnotherFileWhereTheirsIsLarge) {
    LineFile file("line");
    file.setPlace(path, 10);
    for (int i = 0; i < 13; ++i) {
        append(file, "line " + std::to_string(i) + "\n");
        ASSERT_TRUE(file.flush(patience));
    }
    EXPECT_EQ(contents(path), "line 12\n");
    EXPECT_EQ(contents(path + ".1"), "line 11\n");
    EXPECT_EQ(contents(path + ".9"), "line 3\n");
    EXPECT_FALSE(std::filesystem::exists(path + ".10"));
}

TEST_F(Lines, FollowNoLinkAndHangOnNoPipe) {
    std::ofstream(at("target")) << "precious\n";
    std::filesystem::create_symlink(at("target"), at("link"));
    ASSERT_EQ(mkfifo(at("pipe").c_str(), 0600), 0);
    LineFile file("line");
    append(file, "one\n");
    for (const auto& [name, why] : {std::pair("link", "is a link"), {"pipe", "is no regular file"}}) {
        file.setPlace(at(name), 0);
        EXPECT_FALSE(file.flush(patience)) << name;
        EXPECT_EQ(file.problem(), why);
    }
    EXPECT_EQ(contents(at("target")), "precious\n");
    if (geteuid() == 0) {
        std::ofstream(at("foreign")) << "";
        ASSERT_EQ(chown(at("foreign").c_str(), 65534, static_cast<gid_t>(-1)), 0);
        file.setPlace(at("foreign"), 0);
        EXPECT_FALSE(file.flush(patience));
        EXPECT_EQ(file.problem(), "belongs to another user");
    }
}

}  // namespace
