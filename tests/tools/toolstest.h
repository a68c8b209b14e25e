// The command `ostrel` against a cell that really runs: each test has a store of its own.
#ifndef OSTREL_TESTS_TOOLS_TOOLSTEST_H
#define OSTREL_TESTS_TOOLS_TOOLSTEST_H

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "program.h"

// A folder for one test, gone with it.
class Folder {
public:
    Folder();
    ~Folder();
    std::filesystem::path path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

// A store name that no other test and no other run has.
std::string freshStoreName();

// Calls `condition` until it holds; false where it never does.
bool eventually(const std::function<bool()>& condition);

class ToolsTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Runs `ostrel --store STORE WORDS...`.
    Outcome ostrel(const Arguments& words) const { return run(command(words)); }
    Arguments command(const Arguments& words) const;

    // The JSON that `ostrel --json WORDS...` prints; fails the test where it is none.
    QJsonDocument json(const Arguments& words, int status = 0) const;

    // What `ostrel get NAME` prints.
    std::string value(const std::string& name) const;

    // The command fails with status 1, says exactly this, and prints nothing.
    void refuses(const Arguments& words, const std::string& message) const;

    void startCell();
    // The cell's own copy of cell.toml.
    std::filesystem::path cellFile() const { return m_folder.path() / "cell.toml"; }
    const std::string& store() const { return m_store; }
    Program& cell() { return *m_cell; }

private:
    Folder m_folder;
    std::string m_store = freshStoreName();
    std::unique_ptr<Program> m_cell;
};

#endif
