// From the text of a command to a child process of the host.
#ifndef OSTREL_WIDGETS_COMMANDLAUNCHER_H
#define OSTREL_WIDGETS_COMMANDLAUNCHER_H

#include <QFuture>
#include <QStringList>
#include <cstddef>
#include <memory>

class QObject;

// The argument vector of one command. Copies share it: who starts a command and who remembers it both hold it.
typedef struct _buttons_args {
    std::shared_ptr<char*[]> args;  // as execvp() takes it: ends in a null entry
    size_t num_args = 0;            // entries with the null; 0: there is none
} BUTTON_ARGS;

// The commands of a text, between its semicolons. Quotes do not protect a semicolon.
QStringList commandPieces(const QString& text);

// The words of a command, up to the first that is empty.
QStringList commandWords(const QString& piece);

enum class Allocated { All, NoVector, NoWord };
// Fills `vector` with the words as UTF-8. Without memory it stays filled as far as it went.
Allocated fillArguments(const QStringList& words, BUTTON_ARGS* vector);

// What becomes of a child when its task in the thread pool has started it.
enum class Child {
    Forgotten,   // SIGCHLD is ignored from now on, in the whole process, and nobody waits
    Awaited,     // the task waits for a child to end, whichever it is
    AllAwaited,  // SIGCHLD is ignored from now on, so that waiting ends when no child is left at all
};
// Starts a program on a thread of the global pool, without a shell, and with the host's streams and folder. Where it
// cannot be executed only the child's standard error says so. Commands beyond the number of threads wait for their
// turn.
QFuture<void> startCommand(const BUTTON_ARGS& vector, Child child);

// Calls a slot of the receiver once the future has finished, if the receiver still lives. `piece` tells those who look
// at the watchers which command of a text it is.
void tellWhenFinished(const QFuture<void>& future, int piece, QObject* receiver, const char* slot);

#endif
