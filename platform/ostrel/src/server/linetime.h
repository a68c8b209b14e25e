// What the lines of the server's files have in common.
#ifndef OSTREL_SERVER_LINETIME_H
#define OSTREL_SERVER_LINETIME_H

#include <cstdint>
#include <ctime>
#include <string>

// "2026-04-01T12:00:00.123+0200"
std::string lineTime(const timespec& time);

// A line, with its line feed, that tells of so many writes or lines that are not in the file.
std::string missingLines(uint64_t count, const std::string& what);

#endif
