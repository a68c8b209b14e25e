// The form writer: it writes nothing and tells what it was asked to remember.
#include <ostrel-display/uifilewriter.h>

#include "scripted/calls.h"

using namespace scripted;

namespace {

QString shownFlag(bool flag) {
    return flag ? QStringLiteral("changed") : QStringLiteral("loading");
}

}  // namespace

struct UIFileWriter::Private {};

UIFileWriter::UIFileWriter(QString path, QObject* parent) : QObject(parent), d(nullptr) {
    called("UIFileWriter", path);
}

bool UIFileWriter::openFile() {
    called("openFile");
    short code = 1;
    answered("openFile", &code);
    return code != 0;
}

void UIFileWriter::cacheProperty(const QString& className, const QString& objectName, const QString& property,
                                 const QVariant& value, bool flag) {
    called("cacheProperty", className, objectName, property, value.toString(), shownFlag(flag));
}

void UIFileWriter::cachePropertyFont(const QString& className, const QString& objectName, const QString& property,
                                     const QFont& value, bool flag) {
    called("cachePropertyFont", className, objectName, property, value.family(), shownFlag(flag));
}
