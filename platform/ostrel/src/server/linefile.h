// A file that grows by lines, written on a thread of its own: a disk may be slow, full or hang, and nobody waits for
// it.
#ifndef OSTREL_SERVER_LINEFILE_H
#define OSTREL_SERVER_LINEFILE_H

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

class LineFile {
public:
    // What a line tells, for the one that tells how many were dropped: "write".
    explicit LineFile(std::string what);
    // Waits for what was given, three seconds at most.
    ~LineFile();
    LineFile(const LineFile&) = delete;
    LineFile& operator=(const LineFile&) = delete;

    // The file, for what was not written yet too. One that has grown to so many bytes becomes PATH.1, PATH.1 becomes
    // PATH.2, and so on to PATH.9; 0 for a file that grows for ever.
    void setPlace(const std::string& path, size_t mostBytes);

    // Appends `count` lines, which end in a line feed each; `written` is called from the thread when they are in the
    // file. Where the file has not taken 4 MiB yet the lines are dropped; how many went so is told in the file when it
    // takes some again.
    void append(std::string lines, uint64_t count, std::function<void()> written);

    // Why the last try failed; empty where it did not.
    std::string problem() const;

    // Waits until everything is in the file or a try has failed, so long at most. Whether everything is.
    bool flush(std::chrono::milliseconds limit);

private:
    struct State;
    std::shared_ptr<State> m_state;  // the thread's too: one that hangs in a write outlives this
};

#endif
