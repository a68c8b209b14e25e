// A list of commands, run one after the other beside the GUI.
#ifndef OSTREL_WIDGETS_CMD_THREAD_H
#define OSTREL_WIDGETS_CMD_THREAD_H

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QThread>

class QProcess;
class QWidget;

// Commands are parted by semicolons, their words by blanks; there are no quotes. For hosts: no widget uses it.
class Q_DECL_EXPORT CmdThread : public QThread {
    Q_OBJECT

public:
    // `parent` is the widget that is enabled when all commands have been run. A command that is not detached is killed
    // after `timeout` ms, never with -1.
    CmdThread(QString args, int timeout, bool detached, QObject* parent);
    // Waits for the commands.
    ~CmdThread() override;

    void run() override;

private:
    void execute();
    void runPiece();

    QProcess* m_qp = nullptr;  // while a command runs
    QStringList m_input;
    QStringList m_arguments;
    QString m_command;
    int m_timeout;
    bool m_detached;
    QPointer<QWidget> m_widget;
};

#endif
