// Opening files that are what they seem to be. A pipe in the place of a file would hold a program up for ever, and a
// link that somebody else put there would have it write where he wants.
#ifndef OSTREL_GROUND_REGULARFILE_H
#define OSTREL_GROUND_REGULARFILE_H

#include <sys/types.h>

#include <string>

enum class Trust {
    Any,  // a link is followed, and anybody's file is good
    Own   // no link, and a file of this user or of root
};

// Opens the regular file of that name as open() does, without ever waiting for it. -1 where that cannot be: `problem`
// then says why, and errno is set.
int openRegularFile(const std::string& path, int flags, mode_t mode, Trust trust, std::string& problem);

// The whole of a file; empty, with the problem, where it cannot be read.
std::string readRegularFile(const std::string& path, Trust trust, std::string& problem);

// Writes all of it: 0, or an errno.
int writeAll(int fd, const std::string& text);

#endif
