#include "program.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void become(const Arguments& command, int output, int errors) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int nothing = open("/dev/null", O_RDONLY);
    dup2(nothing, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    dup2(errors, STDERR_FILENO);
    std::vector<char*> words;
    for (const std::string& word : command)
        words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    execv(words[0], words.data());
    _exit(127);
}

// Takes what is there; closes and forgets a stream that has ended.
void take(int& stream, std::string& text) {
    char buffer[4096];
    const ssize_t size = read(stream, buffer, sizeof buffer);
    if (size > 0) {
        text.append(buffer, static_cast<size_t>(size));
        return;
    }
    close(stream);
    stream = -1;
}

}  // namespace

std::vector<std::string> Outcome::lines() const {
    std::vector<std::string> result;
    std::istringstream stream(output);
    for (std::string line; std::getline(stream, line);)
        result.push_back(line);
    return result;
}

Program::Program(const Arguments& command) {
    int output[2], errors[2];
    if (pipe2(output, O_CLOEXEC) != 0 || pipe2(errors, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    m_pid = fork();
    if (m_pid == 0)
        become(command, output[1], errors[1]);
    close(output[1]);
    close(errors[1]);
    m_output = output[0];
    m_errors = errors[0];
}

Program::~Program() {
    for (const int stream : {m_output, m_errors}) {
        if (stream >= 0)
            close(stream);
    }
    if (m_pid > 0) {
        kill(m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }
}

void Program::signal(int number) const {
    kill(m_pid, number);
}

bool Program::pump(std::chrono::milliseconds limit) {
    pollfd streams[] = {{m_output, POLLIN, 0}, {m_errors, POLLIN, 0}};
    if (m_output < 0 && m_errors < 0)
        return false;
    poll(streams, 2, static_cast<int>(limit.count()));
    if (streams[0].revents != 0)
        take(m_output, m_outcome.output);
    if (streams[1].revents != 0)
        take(m_errors, m_outcome.errors);
    return true;
}

bool Program::prints(size_t lines) {
    const auto end = Clock::now() + patience;
    const auto count = [&] { return std::count(m_outcome.output.begin(), m_outcome.output.end(), '\n'); };
    while (static_cast<size_t>(count()) < lines) {
        if (Clock::now() > end || !pump(std::chrono::milliseconds(100)))
            return false;
    }
    return true;
}

int Program::waitStatus() {
    for (const auto end = Clock::now() + patience; Clock::now() < end;) {
        int status = 0;
        if (waitpid(m_pid, &status, WNOHANG) == m_pid) {
            m_pid = -1;
            return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return -1;
}

Outcome Program::finish() {
    const auto end = Clock::now() + patience;
    while (Clock::now() < end && pump(std::chrono::milliseconds(100))) {
    }
    m_outcome.status = waitStatus();
    return m_outcome;
}

Outcome run(const Arguments& command) {
    return Program(command).finish();
}
