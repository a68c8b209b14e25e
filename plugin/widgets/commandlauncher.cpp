#include "widgets/commandlauncher.h"

#include <sys/wait.h>
#include <unistd.h>

#include <QFutureWatcher>
#include <QtConcurrentRun>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include "selection/simpletokenizer.h"

namespace {

// The entries end in a null one, also where the vector was filled in part.
void freeArguments(char** args) {
    for (char** word = args; *word; ++word)
        std::free(*word);
    std::free(args);
}

// Between fork() and execvp() only what needs no lock may be called: a thread of the host may hold any of them.
[[noreturn]] void becomeProgram(char* const* args, const QByteArray& complaint) {
    execvp(args[0], args);
    (void)!write(STDERR_FILENO, complaint.constData(), static_cast<size_t>(complaint.size()));
    _exit(-1);
}

// Kept: any child that ends will do, which matters where several commands run at once.
void waitForChild() {
    int status = 0;
    while (wait(&status) == -1 && errno == EINTR) {
    }
}

void runCommand(const BUTTON_ARGS& vector, Child child) {
    if (child != Child::Awaited)
        std::signal(SIGCHLD, SIG_IGN);
    const QByteArray complaint = QByteArray("Unable to execute ").append(vector.args[0]).append('\n');
    const pid_t pid = fork();
    if (pid == -1)
        return;
    if (pid == 0)
        becomeProgram(vector.args.get(), complaint);
    if (child != Child::Forgotten)
        waitForChild();
}

}  // namespace

QStringList commandPieces(const QString& text) {
    return text.split(QLatin1Char(';'), Qt::SkipEmptyParts, Qt::CaseSensitive);
}

QStringList commandWords(const QString& piece) {
    SimpleTokenizer tokenizer(piece);
    tokenizer.setRetainQuotes(false);
    QStringList words;
    for (QString word = tokenizer.nextToken(); !word.isEmpty(); word = tokenizer.nextToken())
        words.append(word);
    // Kept: they are counted with 16 bits and a sign, and 32768 of them are no command.
    return static_cast<short>(words.size()) > 0 ? words : QStringList();
}

Allocated fillArguments(const QStringList& words, BUTTON_ARGS* vector) {
    const size_t entries = static_cast<size_t>(words.size()) + 1;
    *vector = BUTTON_ARGS();
    auto** args = static_cast<char**>(std::calloc(entries, sizeof(char*)));
    if (!args)
        return Allocated::NoVector;
    vector->args = std::shared_ptr<char*[]>(args, freeArguments);
    vector->num_args = entries;
    for (const QString& word : words) {
        const QByteArray text = word.toUtf8();
        *args = static_cast<char*>(std::calloc(static_cast<size_t>(text.size()) + 1, 1));
        if (!*args)
            return Allocated::NoWord;
        std::memcpy(*args++, text.constData(), static_cast<size_t>(text.size()));
    }
    return Allocated::All;
}

QFuture<void> startCommand(const BUTTON_ARGS& vector, Child child) {
    return QtConcurrent::run(runCommand, vector, child);
}

void tellWhenFinished(const QFuture<void>& future, int piece, QObject* receiver, const char* slot) {
    auto* watcher = new QFutureWatcher<void>;
    watcher->setProperty("index", piece);
    QObject::connect(watcher, SIGNAL(finished()), receiver, slot);
    QObject::connect(watcher, &QFutureWatcherBase::finished, watcher, &QObject::deleteLater);
    watcher->setFuture(future);
}
