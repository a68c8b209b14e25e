#include "process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "celltest.h"

namespace {

std::string temporaryFile() {
    std::string path = (std::filesystem::temp_directory_path() / "celltest-out-XXXXXX").string();
    close(mkstemp(path.data()));
    return path;
}

std::string contents(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

}  // namespace

Process::Process(const std::vector<std::string>& command) : m_output(temporaryFile()), m_errors(temporaryFile()) {
    std::vector<char*> arguments;
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    m_pid = fork();
    if (m_pid == 0) {
        dup2(open(m_output.c_str(), O_WRONLY | O_TRUNC), STDOUT_FILENO);
        dup2(open(m_errors.c_str(), O_WRONLY | O_TRUNC), STDERR_FILENO);
        execv(arguments.front(), arguments.data());
        _exit(127);
    }
    m_running = m_pid > 0;
}

Process::~Process() {
    if (m_running) {
        kill(m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }
    std::error_code ignored;
    std::filesystem::remove(m_output, ignored);
    std::filesystem::remove(m_errors, ignored);
}

void Process::signal(int number) const {
    kill(m_pid, number);
}

bool Process::says(const std::string& text) {
    return eventually([&] { return output().find(text) != std::string::npos; });
}

bool Process::complains(const std::string& text) {
    return eventually([&] { return errors().find(text) != std::string::npos; });
}

int Process::wait() {
    int status = 0;
    if (!eventually([&] { return waitpid(m_pid, &status, WNOHANG) == m_pid; }))
        return -1;
    m_running = false;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::string Process::output() {
    return contents(m_output);
}

std::string Process::errors() {
    return contents(m_errors);
}
