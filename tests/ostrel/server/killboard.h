// What the processes of the test of kills tell each other, in a file that all of them map: it outlives each of them.
#ifndef OSTREL_TESTS_OSTREL_SERVER_KILLBOARD_H
#define OSTREL_TESTS_OSTREL_SERVER_KILLBOARD_H

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <new>
#include <string>

constexpr int clientCount = 6;  // with the witnesses
constexpr int witnesses = 2;    // the first clients, which are never killed
constexpr double lockedValue = 42;

// What one client wrote, by number: before it writes n it sets `intent`, afterwards `done`.
struct ClientRow {
    std::atomic<uint64_t> intent;
    std::atomic<uint64_t> done;
    std::atomic<uint64_t> progress;
    std::atomic<uint64_t> events;  // received
    std::atomic<uint64_t> ticks;   // of a timer
};

struct KillBoard {
    std::array<ClientRow, clientCount> clients;
    ClientRow server;
    std::atomic<uint64_t> servers;   // that came to serving
    std::atomic<uint64_t> adopted;   // of them
    std::atomic<uint64_t> stop;      // 1: everybody shall come to an end
    std::atomic<uint64_t> failures;  // things that must not be
    char firstFailure[200];
};

inline KillBoard& mapBoard(const std::string& file) {
    const int fd = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd < 0 || ftruncate(fd, sizeof(KillBoard)) != 0)
        std::terminate();
    void* memory = mmap(nullptr, sizeof(KillBoard), PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
    close(fd);
    if (memory == MAP_FAILED)
        std::terminate();
    return *static_cast<KillBoard*>(memory);
}

// The variables of client `id`, and what write number `n` of it puts there.
inline std::string realName(int id) {
    return "C" + std::to_string(id) + "_REAL";
}
inline std::string integerName(int id) {
    return "C" + std::to_string(id) + "_INT";
}
inline std::string textName(int id) {
    return "C" + std::to_string(id) + "_TEXT";
}
inline std::string elementName(int id) {
    return "FIELD:" + std::to_string(id);
}
inline double realOf(uint64_t n) {
    return static_cast<double>(n) + 0.5;
}
inline int integerOf(uint64_t n) {
    return static_cast<int>(n);
}
inline std::string textOf(uint64_t n) {
    return std::string(70, static_cast<char>('a' + n % 26)) + std::to_string(n % 1000000);
}

#endif
