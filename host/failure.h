// How the display ends without a window: with one line for people, "culprit: what is wrong; what would be right".
#ifndef OSTREL_HOST_FAILURE_H
#define OSTREL_HOST_FAILURE_H

#include <QString>
#include <stdexcept>

class Failure : public std::runtime_error {
public:
    explicit Failure(const QString& line) : std::runtime_error(line.toStdString()) {}
};

#endif
