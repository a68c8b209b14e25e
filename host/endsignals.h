// SIGTERM and SIGINT end the display as the closing of its window does.
#ifndef OSTREL_HOST_ENDSIGNALS_H
#define OSTREL_HOST_ENDSIGNALS_H

#include <QObject>

class QSocketNotifier;

// One per process. The signals stay unblocked, so that programs which a form starts can be ended by them.
class EndSignals : public QObject {
    Q_OBJECT

public:
    explicit EndSignals(QObject* parent = nullptr);

Q_SIGNALS:
    void endAsked();
};

#endif
