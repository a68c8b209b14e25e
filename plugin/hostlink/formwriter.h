// The one form writer of the process.
#ifndef OSTREL_HOSTLINK_FORMWRITER_H
#define OSTREL_HOSTLINK_FORMWRITER_H

// Makes `writer` for the form file in ParentUIFile, once. A file that cannot be opened is no obstacle: the writer stays
// set, and only outside of a designer, where a form is always a file, does a debug line say so.
void ensureFormWriter();

#endif
