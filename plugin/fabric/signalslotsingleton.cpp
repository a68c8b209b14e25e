#include "fabric/signalslotsingleton.h"

SignalSlotSingleton& SignalSlotSingleton::getInstance() {
    static SignalSlotSingleton instance;
    return instance;
}
