#include "fabric/forgottenthreads.h"

#include <QVector>

void forgetThread(QThread* thread) {
    static auto* const forgotten = new QVector<QThread*>;
    forgotten->append(thread);
}
