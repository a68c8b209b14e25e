// One display from its options to its end.
#ifndef OSTREL_HOST_DISPLAY_H
#define OSTREL_HOST_DISPLAY_H

struct Options;

// Opens the store, builds the form and runs until the window closes or the picture is written; the exit status. Throws
// Failure where that cannot begin; nothing has been on the screen then. Needs a QApplication.
int runDisplay(const Options& options);

#endif
