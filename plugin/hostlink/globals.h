// What the display host and the library agree on, process-wide.
//
// Each is a weak definition in the library: a host that defines one of the same name brings its own. The host sets them
// before it builds widgets. GUI thread only, but for InitializationDone, which waiting threads poll.
#ifndef OSTREL_HOSTLINK_GLOBALS_H
#define OSTREL_HOSTLINK_GLOBALS_H

class QObject;
class UIFileWriter;

extern bool inDesigner;                 // true: forms are being built, no ticks and no events reach a widget
extern bool RemoteDisplay;              // sample rates are forced, no context menu, no writing
extern int UserInterfaceLock;           // 1 locks every widget; 2 and 4 those with lockedVariable; others none
extern bool changeUnitsLk;              // forbids changing units
extern int UserSavePermission;          // for the host
extern int StripChartRemoteSampleRate;  // ms, for the host
extern int RemoteUpdateRate;            // ms, sample period of every widget of a remote display
extern bool MainWindowClose;            // for the host
extern bool InitializationDone;         // the store can be used; threads that wait on it hold back until then
extern char ParentUIFile[256];          // path of the form file, for the form writer
extern bool propertiesChanged;          // a variable name inside a group changed
extern UIFileWriter* writer;            // the one form writer, made by the first widget that needs it
extern QObject* runQtUIWindow;          // signals ctrlLPressed() and saveConfig(), slot closeEvent(); null without
extern char OperatorDisplayDir[512];    // the display's name, under which command lines keep their history

// Limit colours as red, green, blue; for the host.
extern int System_HighAlarm[3];
extern int System_HighAbort[3];
extern int System_HighEmergency[3];
extern int System_LowAlarm[3];
extern int System_LowAbort[3];
extern int System_LowEmergency[3];
extern int System_Tmark[3];

extern bool Ostrel_Plugins_Master_variables_dirty;  // the store's contents changed: the catalogue must be read again

#endif
