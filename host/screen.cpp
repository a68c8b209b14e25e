#include "screen.h"

#include <QtGlobal>
#include <cstdio>
#include <cstdlib>

#include "failure.h"

namespace {

constexpr const char* whatToDo = "start it on a desktop, set DISPLAY, or ask for --screenshot";

QtMessageHandler formerHandler = nullptr;
bool opening = false;

[[noreturn]] void endWithoutDisplay() {
    const QByteArray display = qgetenv(qEnvironmentVariableIsSet("DISPLAY") ? "DISPLAY" : "WAYLAND_DISPLAY");
    std::fprintf(stderr, "ostrel-display: display '%s': cannot be opened; %s\n", display.constData(), whatToDo);
    std::_Exit(EXIT_FAILURE);
}

void onMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (opening && type == QtFatalMsg)
        endWithoutDisplay();
    if (opening)  // whatever Qt has to say is summed up by that line, should it come to that
        return;
    if (text.contains(QLatin1String("propagateSizeHints")))  // said for each window that is rendered off-screen
        return;
    formerHandler(type, context, text);
}

bool isSet(const char* variable) {
    return !qEnvironmentVariableIsEmpty(variable);
}

}  // namespace

void chooseScreen(bool screenshot) {
    if (isSet("DISPLAY") || isSet("WAYLAND_DISPLAY"))
        return;
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (screenshot && (platform.isEmpty() || platform == "xcb" || platform == "wayland"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    else if (platform.isEmpty() || platform == "xcb" || platform == "wayland")
        throw Failure(QStringLiteral("no display: neither DISPLAY nor WAYLAND_DISPLAY is set; ") +
                      QLatin1String(whatToDo));
}

ScreenFailureGuard::ScreenFailureGuard() {
    if (!formerHandler)
        formerHandler = qInstallMessageHandler(onMessage);
    opening = true;
}

ScreenFailureGuard::~ScreenFailureGuard() {
    opening = false;
}
