#include "widgets/cmd_thread.h"

#include <QProcess>
#include <QWidget>

CmdThread::CmdThread(QString args, int timeout, bool detached, QObject* parent)
    : QThread(parent),
      m_input(args.split(QLatin1Char(';'), Qt::SkipEmptyParts)),
      m_timeout(timeout),
      m_detached(detached),
      m_widget(qobject_cast<QWidget*>(parent)) {}

// A thread that is destroyed while it runs ends the process.
CmdThread::~CmdThread() {
    wait();
}

// The widget belongs to another thread, which is asked to enable it.
void CmdThread::run() {
    execute();
    if (m_widget)
        QMetaObject::invokeMethod(m_widget, "setEnabled", Q_ARG(bool, true));
}

void CmdThread::execute() {
    for (const QString& piece : qAsConst(m_input)) {
        m_arguments = piece.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (!m_arguments.isEmpty())
            runPiece();
    }
}

void CmdThread::runPiece() {
    m_command = m_arguments.takeFirst();
    if (m_detached) {
        QProcess::startDetached(m_command, m_arguments);
        return;
    }
    m_qp = new QProcess;
    m_qp->start(m_command, m_arguments, QIODevice::ReadWrite);
    m_qp->waitForFinished(m_timeout);
    delete m_qp;
    m_qp = nullptr;
}
