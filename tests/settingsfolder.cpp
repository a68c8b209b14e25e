#include "settingsfolder.h"

#include <dlfcn.h>

#include <QSettings>

QStringList settingsFoldersAsked;

void QSettings::setPath(Format format, Scope scope, const QString& path) {
    settingsFoldersAsked.append(QStringLiteral("%1 %2 %3").arg(format).arg(scope).arg(path));
    using Function = void (*)(Format, Scope, const QString&);
    static const auto real =
        reinterpret_cast<Function>(dlsym(RTLD_NEXT, "_ZN9QSettings7setPathENS_6FormatENS_5ScopeERK7QString"));
    real(format, scope, qEnvironmentVariable(settingsFolderVariable));
}
