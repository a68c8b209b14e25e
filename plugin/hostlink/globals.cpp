#include "hostlink/globals.h"

#define OSTREL_WEAK __attribute__((weak, visibility("default")))

OSTREL_WEAK bool inDesigner = true;
OSTREL_WEAK bool RemoteDisplay = false;
OSTREL_WEAK int UserInterfaceLock = 3;
OSTREL_WEAK bool changeUnitsLk = false;
OSTREL_WEAK int UserSavePermission = 3;
OSTREL_WEAK int StripChartRemoteSampleRate = 100;
OSTREL_WEAK int RemoteUpdateRate = 2000;
OSTREL_WEAK bool MainWindowClose = false;
OSTREL_WEAK bool InitializationDone = false;
OSTREL_WEAK char ParentUIFile[256] = "";
OSTREL_WEAK bool propertiesChanged = false;
OSTREL_WEAK UIFileWriter* writer = nullptr;
OSTREL_WEAK QObject* runQtUIWindow = nullptr;
OSTREL_WEAK char OperatorDisplayDir[512] = "";
OSTREL_WEAK int System_HighAlarm[3] = {255, 0, 0};
OSTREL_WEAK int System_HighAbort[3] = {255, 127, 0};
OSTREL_WEAK int System_HighEmergency[3] = {255, 255, 0};
OSTREL_WEAK int System_LowAlarm[3] = {0, 255, 255};
OSTREL_WEAK int System_LowAbort[3] = {0, 127, 255};
OSTREL_WEAK int System_LowEmergency[3] = {0, 0, 255};
OSTREL_WEAK int System_Tmark[3] = {255, 255, 255};
OSTREL_WEAK bool Ostrel_Plugins_Master_variables_dirty = true;
