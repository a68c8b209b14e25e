// A subscriber that is no widget.
#ifndef OSTREL_FABRIC_OSTRELVARIABLEDATAINPUT_H
#define OSTREL_FABRIC_OSTRELVARIABLEDATAINPUT_H

#include <QObject>

// The library knows it only as an object to connect to. A host that feeds variables derives from it and declares the
// slots it wants: ostrelEvent(int, const char*, size_t), globalConfigEvent(short, short).
class OstrelVariableDataInput : public QObject {
public:
    using QObject::QObject;
};

#endif
