// Programs as a user runs them: start with arguments, see lines and exit status.
#ifndef OSTREL_TESTS_TOOLS_PROGRAM_H
#define OSTREL_TESTS_TOOLS_PROGRAM_H

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

using Arguments = std::vector<std::string>;

// How long anything may take before a test gives up; nothing is expected to come near it.
constexpr std::chrono::seconds patience{30};

struct Outcome {
    int status = -1;  // exit status; 128 and the signal's number for one that a signal ended; -1 for one that hung
    std::string output;
    std::string errors;

    std::vector<std::string> lines() const;  // of the output
};

// A program that runs beside the test. Killed with it, and by the destructor where it has not ended.
class Program {
public:
    explicit Program(const Arguments& command);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    pid_t pid() const { return m_pid; }
    void signal(int number) const;

    // Reads what it has printed until `lines` lines are there; false where it ends or is too slow.
    bool prints(size_t lines);

    // Waits for the end.
    Outcome finish();

private:
    bool pump(std::chrono::milliseconds limit);  // false when both streams have ended
    int waitStatus();

    pid_t m_pid = -1;
    int m_output = -1;
    int m_errors = -1;
    Outcome m_outcome;
};

Outcome run(const Arguments& command);

#endif
