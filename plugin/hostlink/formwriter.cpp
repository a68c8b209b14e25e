#include "hostlink/formwriter.h"

#include <ostrel-display/uifilewriter.h>

#include <QDebug>

#include "hostlink/globals.h"

void ensureFormWriter() {
    if (writer)
        return;
    writer = new UIFileWriter(QString::fromLocal8Bit(ParentUIFile), nullptr);
    if (!writer->openFile() && !inDesigner)
        qDebug("Error opening UI file outside of the designer");
}
