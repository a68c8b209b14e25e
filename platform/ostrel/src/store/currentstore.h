// Which store this process uses: chosen by the program, else by the environment; see ostrel_store_open().
#ifndef OSTREL_STORE_CURRENTSTORE_H
#define OSTREL_STORE_CURRENTSTORE_H

#include <memory>
#include <string>

#include "store/attachment.h"

// The store in use, attaching to a running one, without serving a cell where none runs: for log lines, which may be
// written with locks held that the start of a cell would wait for.
Attachment* runningStore();

// The store in use without trying to attach; may be null or ended.
Attachment* knownAttachment();

// Makes a store that this process serves the one that it uses.
Attachment* useAttachment(std::unique_ptr<Attachment> served);

// The attachment, of the present store or an earlier one, that has a record of that kind there; and its place.
Attachment* ownerOfRecord(const void* record, int kind, RecordPlace& place);

// The attachment, present or earlier, that has this address in its memory of elements.
Attachment* ownerOfElement(const void* address, size_t size);

// Chooses the store. A null text leaves that to the environment. A problem that the next look finds is not logged where
// the caller tells it himself.
void chooseStore(const char* name, const char* cellFile, bool callerTells);

// Why the store of that name cannot be used though something is there; empty where it is in use or absent.
std::string problemOfStore();

// The name of the store that is used, or looked for.
std::string storeName();

// The address at which this process finds the RECONFIG_DATA of the store in use, whichever that is: the page behind it
// is exchanged when another store takes over, so that those who only poll the counters notice. Never null.
void* reconfigPage();

// Serves the cell of that file inside this process. 0, or another number with the reasons in `message`.
int embedCell(const std::string& cellFile, char* message, size_t messageSize);

#endif
