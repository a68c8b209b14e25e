// Where the build has put what the tests run and read. A file of its own defines them, so that no other one changes
// with the folder of the checkout.
#ifndef OSTREL_TESTS_PATHS_H
#define OSTREL_TESTS_PATHS_H

namespace paths {

extern const char* const sources;  // the top of the checkout
extern const char* const cell;     // the programs
extern const char* const display;
extern const char* const command;
extern const char* const designer;
extern const char* const plugin;  // the widget library
extern const char* const storeServer;
extern const char* const storeWorker;
extern const char* const formSaver;
extern const char* const plainHost;
extern const char* const globalsHost;
extern const char* const preloadedPlatform;
extern const char* const hangingDisk;
extern const char* const designerWitness;
extern const char* const screenWitness;
extern const char* const settingsFolder;

extern const char* const version;  // of the project

}  // namespace paths

#endif
