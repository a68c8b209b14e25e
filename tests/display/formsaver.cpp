// Saves a form again and again, each time with other values, until it is killed: "formsaver FORM". With a limit in
// bytes behind it saves once under that limit of a file's size; with "nobody" once as a user who may write nothing
// there. Says "saving" once it has begun, or the fault of the one time.
#include <sys/resource.h>
#include <unistd.h>

#include <QCoreApplication>
#include <csignal>
#include <cstdio>

#include "ostrel-display/formchanges.h"

namespace {

bool change(FormChanges& changes, int round) {
    const QString text = QString(2000, QChar('a' + round % 26));
    for (int i = 0; i < 50; ++i)
        changes.remember({"QLabel", QStringLiteral("label%1").arg(i), "text"}, text, true);
    return changes.isDirty();
}

bool restrict(const QByteArray& how) {
    if (how == "nobody")
        return setuid(65534) == 0;
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{how.toULong(), how.toULong()};
    return setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    FormChanges changes;
    changes.setPath(QString::fromLocal8Bit(argv[1]));
    if (argc < 2 || !changes.open())
        return 2;
    if (argc > 2) {
        if (!change(changes, 1) || !restrict(argv[2]))
            return 3;
        const FormSaving saving = changes.save();
        std::printf("%s\n", qPrintable(saving.fault));
        return changes.isDirty() ? 1 : 0;
    }
    for (int round = 0;; ++round) {
        if (change(changes, round) && !changes.save().isComplete())
            return 1;
        if (round == 0)
            std::puts("saving");
        std::fflush(stdout);
    }
}
