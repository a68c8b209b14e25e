// How a command of `ostrel` fails: with one line for people, "culprit: what is wrong; what would be right". The program
// name is put before it where it is printed.
#ifndef OSTREL_TOOLS_FAILURE_H
#define OSTREL_TOOLS_FAILURE_H

#include <stdexcept>

class Failure : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

#endif
