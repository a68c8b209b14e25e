// A cell in a process of its own, for one test, with a store that nobody else knows.
#ifndef OSTREL_TESTS_HOST_TESTCELL_H
#define OSTREL_TESTS_HOST_TESTCELL_H

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

class TestCell {
public:
    // Names the store, and makes it the one of this process and of all that it starts.
    TestCell();
    // Leaves nothing behind in the shared memory.
    ~TestCell();
    TestCell(const TestCell&) = delete;
    TestCell& operator=(const TestCell&) = delete;

    const QString& store() const { return m_store; }
    QString file(const QString& name) const { return m_folder.filePath(name); }

    // What start() serves from then on.
    void write(const QByteArray& cellFile);
    // True once the store can be asked.
    bool start();
    void signal(int number);
    // Waits for the end.
    bool hasEnded();
    // By the command line, as a person would.
    bool set(const QString& variable, const QString& value);
    // True when a thread of some program waits for that event of the store.
    bool isAttached(const QString& event);

private:
    QTemporaryDir m_folder;
    QString m_store;
    QProcess m_process;
};

#endif
