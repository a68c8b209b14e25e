// The thread that hears of reconfigurations of the store. A host makes it and connects its widgets.
#ifndef OSTREL_FABRIC_OSTRELGBLRECONFIGEVENT_H
#define OSTREL_FABRIC_OSTRELGBLRECONFIGEVENT_H

#include <ostrel/records.h>

#include "fabric/ostrel_event.h"

// Emits gblConfigEvent(): a start for the areas that it reports, an end for any. The areas are set on the GUI thread.
class Q_DECL_EXPORT OstrelGblConfigEvent : public OstrelEvent {
    Q_OBJECT

public:
    // Reports the area, or all of them with -1.
    explicit OstrelGblConfigEvent(SM_AREA_ID memcode, QObject* parent = nullptr);

    // Connects gblConfigEvent() to the slot globalConfigEvent(short, short) and reports that area too, or all with -1;
    // the alias area as well, but for a widget that draws with OpenGL. Null is ignored.
    void addCallGRC(OstrelBase* plugin, SM_AREA_ID memcode);
    void addCallGRC(QWidget* plugin, SM_AREA_ID memcode);
    void addCallGRC(GLOstrelBase* plugin, SM_AREA_ID memcode);
    // The same, once per object.
    void addCallGRC(OstrelVariableDataInput* plugin, SM_AREA_ID memcode);

protected:
    void execute() override;

private:
    void report(SM_AREA_ID memcode);
    bool reports(int memcode) const;
    void subscribe(QObject* plugin);
    void passOn(const GLOBAL_CONFIG_EVENT& event);

    mutable short int mem_handles[MAX_NUM_SHRD_MEM];  // 1: that area is reported
    short int Config_going_on[MAX_NUM_SHRD_MEM];
    short int Some_config;
    short int Shmem_link_needed;
    SM_AREA_ID mem_code;
};

#endif
