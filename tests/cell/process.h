// A program that a test starts, and its output.
#ifndef OSTREL_TESTS_CELL_PROCESS_H
#define OSTREL_TESTS_CELL_PROCESS_H

#include <sys/types.h>

#include <string>
#include <vector>

class Process {
public:
    explicit Process(const std::vector<std::string>& command);
    ~Process();  // kills it where it still runs
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void signal(int number) const;
    bool says(const std::string& text);  // within a limit, on standard output
    bool complains(const std::string& text);
    int wait();  // its exit status, 128 and more for a signal, -1 where it does not end

    std::string output();
    std::string errors();
    pid_t pid() const { return m_pid; }

private:
    pid_t m_pid = -1;
    bool m_running = false;
    std::string m_output;  // paths
    std::string m_errors;
};

#endif
