// Threads that nobody needs any more, and that still wait for the platform.
#ifndef OSTREL_FABRIC_FORGOTTENTHREADS_H
#define OSTREL_FABRIC_FORGOTTENTHREADS_H

class QThread;

// Tells of a thread that the fabric itself has made. One that a host made and registered stays the host's.
void ownThread(QThread* thread);

// Keeps the object of a thread that was told to end. It ends at its next event, which may never come, so it is not
// joined: to destroy the object of a running thread would end the process. Those of the fabric's own that have ended
// since go with the next one that is forgotten.
void forgetThread(QThread* thread);

#endif
