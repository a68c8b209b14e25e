// A host that knows the library by its file alone: it opens it and tells, a line each, which definitions the library
// uses. Built twice: with globals and a platform function of its own, and without.
#include <dlfcn.h>
#include <ostrel/records.h>

#include <QApplication>
#include <QDesignerCustomWidgetCollectionInterface>
#include <QPluginLoader>
#include <QWidget>
#include <cstdio>
#include <memory>

#include "paths.h"

#ifdef HAS_GLOBALS
bool inDesigner = false;
bool RemoteDisplay = true;
int RemoteUpdateRate = 777;
int UserInterfaceLock = 1;
char ParentUIFile[256] = "host.ui";
char OperatorDisplayDir[512] = "host";

extern "C" short int find_variable(char* label, SHARED_MEMORY*) {
    std::printf("find_variable of the host: %s\n", label);
    return -1;
}
#endif

namespace {

// What a reference of the library to that name is bound to.
template <class Type>
Type* used(const char* name) {
    return static_cast<Type*>(dlsym(RTLD_DEFAULT, name));
}

void tellGlobals() {
    std::printf("inDesigner %d\n", *used<bool>("inDesigner"));
    std::printf("RemoteDisplay %d\n", *used<bool>("RemoteDisplay"));
    std::printf("UserInterfaceLock %d\n", *used<int>("UserInterfaceLock"));
    std::printf("RemoteUpdateRate %d\n", *used<int>("RemoteUpdateRate"));
    for (const char* name : {"changeUnitsLk", "MainWindowClose", "InitializationDone", "propertiesChanged",
                             "Ostrel_Plugins_Master_variables_dirty"})
        std::printf("%s %d\n", name, *used<bool>(name));
    for (const char* name : {"UserSavePermission", "StripChartRemoteSampleRate"})
        std::printf("%s %d\n", name, *used<int>(name));
    for (const char* name : {"System_HighAlarm", "System_HighAbort", "System_HighEmergency", "System_LowAlarm",
                             "System_LowAbort", "System_LowEmergency", "System_Tmark"}) {
        const int* colour = used<int>(name);
        std::printf("%s %d %d %d\n", name, colour[0], colour[1], colour[2]);
    }
    for (const char* name : {"ParentUIFile", "OperatorDisplayDir"})
        std::printf("%s \"%s\"\n", name, used<char>(name));
    std::printf("writer %s\n", *used<void*>("writer") ? "made" : "none");
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (!dlopen(paths::plugin, RTLD_NOW | RTLD_GLOBAL)) {
        std::printf("%s\n", dlerror());
        return 1;
    }
    tellGlobals();
    QPluginLoader loader(QString(paths::plugin));
    const auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(loader.instance());
    if (!collection)
        return 1;
    for (auto* plugin : collection->customWidgets()) {
        if (plugin->name() != QLatin1String("ZelValue"))
            continue;
        const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
        std::printf("sampleRate %d\n", widget->property("sampleRate").toInt());
        std::printf("actions %d\n", widget->actions().size());
        std::fflush(stdout);
        widget->setProperty("name", "SPEED");
    }
    return 0;
}
