#include "fabric/forgottenthreads.h"

#include <QSet>
#include <QThread>

namespace {

// Never destroyed: threads outlive it at the end of the process.
QSet<QThread*>& ownThreads() {
    static auto* const threads = new QSet<QThread*>;
    return *threads;
}

QSet<QThread*>& forgottenThreads() {
    static auto* const threads = new QSet<QThread*>;
    return *threads;
}

// Behind all that they have sent to this thread, which may still read a buffer of theirs.
void sweep() {
    for (QThread* thread : qAsConst(forgottenThreads()))
        if (thread->isFinished())
            thread->deleteLater();
}

}  // namespace

void ownThread(QThread* thread) {
    ownThreads().insert(thread);
    QObject::connect(thread, &QObject::destroyed, [thread] {
        ownThreads().remove(thread);
        forgottenThreads().remove(thread);
    });
}

void forgetThread(QThread* thread) {
    sweep();
    if (ownThreads().contains(thread))
        forgottenThreads().insert(thread);
}
