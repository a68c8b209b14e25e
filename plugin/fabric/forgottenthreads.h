// Threads that nobody needs any more, and that still wait for the platform.
#ifndef OSTREL_FABRIC_FORGOTTENTHREADS_H
#define OSTREL_FABRIC_FORGOTTENTHREADS_H

class QThread;

// Keeps the object of a thread that was told to end. It ends at its next event, which may never come, so it is neither
// joined nor deleted: to destroy the object of a running thread would end the process.
void forgetThread(QThread* thread);

#endif
