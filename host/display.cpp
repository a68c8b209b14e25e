#include "display.h"

#include <ostrel/store.h>

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QTimer>
#include <cstdio>
#include <cstring>

#include "cellwatch.h"
#include "displaycontrol.h"
#include "endsignals.h"
#include "fabric/signalslotsingleton.h"
#include "fabric/timermoderator.h"
#include "failure.h"
#include "formbindings.h"
#include "hostlink/globals.h"
#include "mainwindow.h"
#include "options.h"
#include "screenshot.h"

namespace {

void openStore(const Options& options) {
    char message[4096] = "";
    const int result =
        ostrel_store_open(options.store.empty() ? nullptr : options.store.c_str(),
                          options.cell.empty() ? nullptr : options.cell.c_str(), message, sizeof(message));
    if (result != 0 && result != 1)
        throw Failure(QString::fromLocal8Bit(message).trimmed());
}

// Widgets read these while they are built.
void setGlobals(const Options& options) {
    const QByteArray path =
        QFile::encodeName(QFileInfo(QString::fromLocal8Bit(options.form.c_str())).absoluteFilePath());
    if (path.size() >= static_cast<int>(sizeof(ParentUIFile)))
        throw Failure(QStringLiteral("%1: the path is longer than 255 bytes; use a shorter one")
                          .arg(QString::fromLocal8Bit(options.form.c_str())));
    std::strcpy(ParentUIFile, path.constData());
    const QByteArray name = QFileInfo(QFile::decodeName(path)).completeBaseName().toUtf8();
    std::strncpy(OperatorDisplayDir, name.constData(), sizeof(OperatorDisplayDir) - 1);
    RemoteDisplay = options.remote;
    RemoteUpdateRate = options.updateRate;
    UserInterfaceLock = options.lock;
    changeUnitsLk = options.lockUnits;
}

void applyStyleSheet(const QString& path) {
    if (path.isEmpty())
        return;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(QStringLiteral("%1: %2; give a Qt style sheet").arg(path, file.errorString()));
    qApp->setStyleSheet(QString::fromUtf8(file.readAll()));
}

void takePictureLater(MainWindow* window, CellWatch* watch, const QString& path, int after) {
    QTimer::singleShot(after, window, [=] {
        watch->look();
        try {
            writePicture(window, path);
            QCoreApplication::exit(0);
        } catch (const Failure& failure) {
            std::fprintf(stderr, "ostrel-display: %s\n", failure.what());
            QCoreApplication::exit(1);
        }
    });
}

}  // namespace

int runDisplay(const Options& options) {
    const QString form = QString::fromLocal8Bit(options.form.c_str());
    const QString picture = QString::fromLocal8Bit(options.screenshot.c_str());
    if (!picture.isEmpty())
        checkPicturePath(picture);
    applyStyleSheet(QString::fromLocal8Bit(options.styleSheet.c_str()));
    setGlobals(options);
    openStore(options);

    EndSignals endSignals;
    bool ended = false;  // a question before the window is up has its own loop, which takes the quit for itself
    QObject::connect(&endSignals, &EndSignals::endAsked, qApp, [&ended] {
        ended = true;
        QCoreApplication::quit();
    });
    CellWatch watch;
    const bool silent = options.kiosk || !picture.isEmpty();
    auto window = std::make_unique<MainWindow>(form, &watch, silent ? Manners::Silent : Manners::Asks);
    if (!options.values.empty())
        window->stage(QString::fromLocal8Bit(options.values.c_str()));
    window->takePlace(options);
    if (!picture.isEmpty()) {
        window->setAttribute(Qt::WA_DontShowOnScreen);
        takePictureLater(window.get(), &watch, picture, options.after);
    }
    window->setWindowState(options.kiosk ? Qt::WindowFullScreen : Qt::WindowNoState);
    if (!ended)
        window->show();
    const int status = ended ? 0 : QCoreApplication::exec();
    MainWindowClose = true;
    window.reset();
    TimerModerator::shutDown();
    return status;
}
