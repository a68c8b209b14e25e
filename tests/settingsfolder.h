// Settings of the system in a folder of a test's own. The source takes the place of QSettings::setPath() in the program
// that it is compiled into, or as a library of its own in one that is started with it in LD_PRELOAD.
#ifndef OSTREL_TESTS_SETTINGSFOLDER_H
#define OSTREL_TESTS_SETTINGSFOLDER_H

#include <QStringList>

// Names the folder, for this program and for those that it starts.
constexpr auto settingsFolderVariable = "OSTREL_TEST_SETTINGS";

// The folders that the program under test asked for: format, scope, path.
extern QStringList settingsFoldersAsked;

#endif
