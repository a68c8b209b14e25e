// What the tests of the widgets that start commands have in common: programs that tell what they were given, and what
// this process has left of its children.
#ifndef OSTREL_TESTS_PLUGIN_COMMANDTEST_H
#define OSTREL_TESTS_PLUGIN_COMMANDTEST_H

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThreadPool>
#include <csignal>

#include "plugintest.h"

// Texts of commands, and what their programs leave in a folder.
class Commands {
public:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    // Writes the words that follow it in the text, each in brackets.
    QString tell(const QString& name) const {
        return QStringLiteral("sh -c 'printf \"[%s]\" \"$@\" >%1.part && mv %1.part %1' sh").arg(path(name));
    }
    // Creates its own file, then waits for the others. So such commands end only if they run side by side; at last they
    // end with the folder.
    QString meet(const QString& name, const QStringList& others) const {
        QString script = QStringLiteral("touch %1\n").arg(path(name));
        for (const QString& other : others)
            script += QStringLiteral("until [ -e %1 ] || ! [ -d %2 ]; do sleep 0.01; done\n")
                          .arg(path(other), m_folder.path());
        QFile file(path(name + ".sh"));
        return file.open(QIODevice::WriteOnly) && file.write(script.toUtf8()) > 0 ? "sh " + file.fileName() : QString();
    }

    bool exists(const QString& name) const { return QFile::exists(path(name)); }
    void create(const QString& name) const { QVERIFY(QFile(path(name)).open(QIODevice::WriteOnly)); }
    QByteArray contents(const QString& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(nothing)");
    }
    // What a program has told, as soon as it has.
    QByteArray told(const QString& name) const {
        return QTest::qWaitFor([&] { return exists(name); }, 20000) ? contents(name) : QByteArray("(not told)");
    }

private:
    QTemporaryDir m_folder;
};

// The states of this process's children, a letter each as in ps; Z for a zombie.
inline QByteArray childStates() {
    QByteArray states;
    const auto processes = QDir("/proc").entryList({"[0-9]*"}, QDir::Dirs);
    for (const QString& process : processes) {
        QFile file(QStringLiteral("/proc/%1/stat").arg(process));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray line = file.readAll();
        const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
        if (fields.value(1).toInt() == getpid())
            states += fields.value(0);
    }
    return states;
}

// Waits until this process has no child left, and takes those that nobody has taken.
inline bool allChildrenEnd() {
    return QTest::qWaitFor([] { return waitpid(-1, nullptr, WNOHANG) == -1; }, 30000);
}

inline int openDescriptors() {
    return QDir("/proc/self/fd").entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size();
}

inline bool ignoresChildren() {
    struct sigaction action {};
    sigaction(SIGCHLD, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

// While it lives, this process and its children complain into a file.
class Complaints {
public:
    Complaints() : m_stderr(dup(STDERR_FILENO)) {
        const int file = open(QFile::encodeName(path()).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        dup2(file, STDERR_FILENO);
        close(file);
    }
    ~Complaints() {
        dup2(m_stderr, STDERR_FILENO);
        close(m_stderr);
    }
    QByteArray text() const {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QString path() const { return m_folder.filePath("stderr"); }

    QTemporaryDir m_folder;
    int m_stderr;
};

// The pool has room for as many commands at once, until the test ends.
inline void makeRoomForCommands(int number) {
    QThreadPool::globalInstance()->setMaxThreadCount(number);
}

inline bool allTasksEnd() {
    return QTest::qWaitFor([] { return QThreadPool::globalInstance()->activeThreadCount() == 0; }, 30000);
}

#endif
