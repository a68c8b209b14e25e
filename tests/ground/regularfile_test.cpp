#include "ground/regularfile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace {

class RegularFile : public testing::Test {
protected:
    RegularFile() { std::filesystem::create_directory(folder); }
    ~RegularFile() override { std::filesystem::remove_all(folder); }

    std::string file(const std::string& name, const std::string& text) const {
        std::ofstream(folder + "/" + name) << text;
        return folder + "/" + name;
    }

    std::string problemOf(const std::string& path, Trust trust, int flags = O_RDONLY) {
        std::string why;
        const int fd = openRegularFile(path, flags, 0600, trust, why);
        EXPECT_EQ(fd < 0, !why.empty());
        if (fd >= 0)
            close(fd);
        return why;
    }

    const std::string folder = testing::TempDir() + "regular-" + std::to_string(getpid());
    std::string problem;
};

TEST_F(RegularFile, IsReadWhole) {
    std::string text(200'000, 'x');
    text += "end";
    EXPECT_EQ(readRegularFile(file("one", text), Trust::Own, problem), text);
    EXPECT_EQ(problem, "");
    EXPECT_EQ(readRegularFile(file("empty", ""), Trust::Any, problem), "");
    EXPECT_EQ(problem, "");
    EXPECT_EQ(readRegularFile(folder + "/none", Trust::Any, problem), "");
    EXPECT_EQ(problem, "No such file or directory");
}

TEST_F(RegularFile, IsNoPipeNoFolderAndNoDevice) {
    ASSERT_EQ(mkfifo((folder + "/pipe").c_str(), 0600), 0);
    for (const int flags : {O_RDONLY, O_WRONLY | O_APPEND, O_RDWR})
        EXPECT_EQ(problemOf(folder + "/pipe", Trust::Any, flags), "is no regular file");
    EXPECT_EQ(problemOf("/dev/zero", Trust::Any), "is no regular file");
    EXPECT_EQ(problemOf(folder, Trust::Any), "Is a directory");
}

TEST_F(RegularFile, MayBeALinkWhereAnyIsTrusted) {
    std::filesystem::create_symlink(file("one", "text"), folder + "/link");
    EXPECT_EQ(problemOf(folder + "/link", Trust::Any), "");
    EXPECT_EQ(problemOf(folder + "/link", Trust::Own), "is a link");
    EXPECT_EQ(problemOf(folder + "/link", Trust::Own, O_WRONLY | O_CREAT), "is a link");
}

TEST_F(RegularFile, MayBeSomebodyElsesWhereAnyIsTrusted) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can give files away";
    const std::string path = file("one", "text");
    ASSERT_EQ(chown(path.c_str(), 65534, static_cast<gid_t>(-1)), 0);
    EXPECT_EQ(problemOf(path, Trust::Any), "");
    EXPECT_EQ(problemOf(path, Trust::Own), "belongs to another user");
}

}  // namespace
