// The catalogue of variables: which ones the store has now, by group.
#ifndef OSTREL_SELECTION_VARIABLEMAPLIST_H
#define OSTREL_SELECTION_VARIABLEMAPLIST_H

#include <ostrel/records.h>

#include <QMap>
#include <QObject>
#include <QStringList>

#include "selection/arealinks.h"
#include "variables/kinds.h"

struct CatalogueSection;

// The constructor does all the work: it fills a map of the caller's, which replaces what the map held. Without a
// running store it prints a message and ends the process with status 0.
class Q_DECL_EXPORT VariableMapList : public QObject {
    Q_OBJECT

public:
    // Group label to the names in it: the variables in the order of the store, then their aliases. With the filter
    // QT_OSTREL_IO_MEM alone: to the positions of the channels in use, as decimal text.
    VariableMapList(QMap<QString, QStringList>* variables, QT_OSTREL_VAR_TYPE varType, QObject* parent);
    // Variable name to group label, without aliases. A name in two groups has the one that was read last.
    VariableMapList(QMap<QString, QString>* variables, QT_OSTREL_VAR_TYPE varType, QObject* parent);

private:
    void retrieveData(bool useKeys, QT_OSTREL_VAR_TYPE varType);
    void retrieveChannels(const SYSTEM_ATTRIBUTES& attributes, bool useKeys);
    void retrieveSection(const CatalogueSection& section, void* base, short n, const char* label, bool useKeys,
                         bool useIndexNumber);
    bool local_link_to_memory(SM_AREA_ID memcode, void** addr) { return m_areas.local_link_to_memory(memcode, addr); }
    void local_fre_shrd_mem(SM_AREA_ID memcode) { m_areas.local_fre_shrd_mem(memcode); }
    template <class T>
    void x_label(const T* ptr, short n, const char* section_label, bool useKeys, bool useIndexNumber);
    template <class T>
    void other_label(const T* ptr, short n, const char* section_label, bool useKeys);
    template <class T>
    QStringList activeEntries(const T* ptr, short n, const QString& group, bool useKeys, bool useIndexNumber);
    template <class T>
    void appendAliases(const T* ptr, short n, const QString& group, bool useKeys, QStringList* list);

    QMap<QString, QStringList>* m_variables_keys = nullptr;
    QMap<QString, QString>* m_variables = nullptr;
    AreaLinks m_areas;
};

#endif
