#include "toolstest.h"

#include <unistd.h>

#include <atomic>
#include <csignal>
#include <thread>

#include "paths.h"

Folder::Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "ostrel-tools-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no folder for the test");
    m_path = name;
}

Folder::~Folder() {
    std::filesystem::remove_all(m_path);
}

std::string freshStoreName() {
    static std::atomic<int> count{0};
    return "tools-" + std::to_string(getpid()) + "-" + std::to_string(++count);
}

bool eventually(const std::function<bool()>& condition) {
    for (const auto end = std::chrono::steady_clock::now() + patience; std::chrono::steady_clock::now() < end;) {
        if (condition())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

void ToolsTest::SetUp() {
    unsetenv("OSTREL_STORE");
    unsetenv("OSTREL_CELL");
    std::filesystem::copy_file(std::string(paths::sources) + "/tests/tools/cell.toml", cellFile());
    startCell();
}

void ToolsTest::TearDown() {
    m_cell->signal(SIGTERM);
    EXPECT_EQ(m_cell->finish().status, 0) << "the cell did not end cleanly";
}

void ToolsTest::startCell() {
    m_cell = std::make_unique<Program>(Arguments{paths::cell, cellFile().string(), "--store", m_store});
    // The store is there a moment before its names are, and the names of a server that died are there before the next.
    ASSERT_TRUE(eventually([&] {
        return ostrel({"status"}).status == 0 && ostrel({"get", "CYCLES"}).status == 0;
    })) << ostrel({"get", "CYCLES"}).errors;
}

Arguments ToolsTest::command(const Arguments& words) const {
    Arguments all{paths::command, "--store", m_store};
    all.insert(all.end(), words.begin(), words.end());
    return all;
}

QJsonDocument ToolsTest::json(const Arguments& words, int status) const {
    Arguments all{"--json"};
    all.insert(all.end(), words.begin(), words.end());
    const Outcome outcome = ostrel(all);
    EXPECT_EQ(outcome.status, status) << outcome.errors;
    QJsonParseError error{};
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(outcome.output), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << outcome.output;
    return document;
}

std::string ToolsTest::value(const std::string& name) const {
    const Outcome outcome = ostrel({"get", name});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    return outcome.lines().empty() ? std::string() : outcome.lines().front();
}

void ToolsTest::refuses(const Arguments& words, const std::string& message) const {
    const Outcome outcome = ostrel(words);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "ostrel: " + message + "\n");
}
