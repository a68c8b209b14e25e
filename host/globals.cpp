// The display's own definitions of what it agrees on with the plug-in library. They are exported, so that the dynamic
// linker takes them in place of the library's.
#include "hostlink/globals.h"

#include "displaycontrol.h"

#define OSTREL_HOST_GLOBAL __attribute__((visibility("default")))

OSTREL_HOST_GLOBAL bool inDesigner = false;
OSTREL_HOST_GLOBAL bool RemoteDisplay = false;
OSTREL_HOST_GLOBAL int UserInterfaceLock = 3;
OSTREL_HOST_GLOBAL bool changeUnitsLk = false;
OSTREL_HOST_GLOBAL int UserSavePermission = 3;
OSTREL_HOST_GLOBAL int StripChartRemoteSampleRate = 100;
OSTREL_HOST_GLOBAL int RemoteUpdateRate = 2000;
OSTREL_HOST_GLOBAL bool MainWindowClose = false;
OSTREL_HOST_GLOBAL bool InitializationDone = false;
OSTREL_HOST_GLOBAL char ParentUIFile[256] = "";
OSTREL_HOST_GLOBAL bool propertiesChanged = false;
OSTREL_HOST_GLOBAL UIFileWriter* writer = nullptr;

OSTREL_HOST_GLOBAL QObject* runQtUIWindow = nullptr;
OSTREL_HOST_GLOBAL char OperatorDisplayDir[512] = "";
