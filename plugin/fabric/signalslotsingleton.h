// The one object through which widgets of a form that do not know each other talk.
#ifndef OSTREL_FABRIC_SIGNALSLOTSINGLETON_H
#define OSTREL_FABRIC_SIGNALSLOTSINGLETON_H

#include <QDomDocument>
#include <QObject>

// GUI thread only; whoever wants to emits its signals.
class Q_DECL_EXPORT SignalSlotSingleton : public QObject {
    Q_OBJECT

public:
    // The instance, made at the first call; it ends with the process.
    static SignalSlotSingleton& getInstance();

Q_SIGNALS:
    void readFromOstrel();                 // read current values from the store
    void commitToOstrel();                 // write staged values into the store
    void readFromFile(QDomDocument file);  // load values from the document
    void writeToFile(QDomDocument file);   // put values into the document
    void valueChanged();                   // some staged value changed

private:
    SignalSlotSingleton() = default;
    ~SignalSlotSingleton() override = default;
    Q_DISABLE_COPY(SignalSlotSingleton)
};

#endif
