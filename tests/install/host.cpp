// A host of a site's own with a widget of its own and one of the library's.
#include <QApplication>
#include <cstdio>

#include "readout.h"
#include "zel_value.h"

bool inDesigner = false;
bool InitializationDone = true;

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    Readout own;
    ZelValue value;
    own.setName(QStringLiteral("OIL_TEMP"));
    value.setName(QStringLiteral("OIL_TEMP"));
    if (own.text() != QLatin1String("90.0") || !value.ptr()) {
        std::fprintf(stderr, "host: OIL_TEMP reads '%s'\n", qPrintable(own.text()));
        return 1;
    }
    return 0;
}
