#include "formwatch.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

namespace {

// Programs write a file in several steps.
constexpr int settleTime = 200;  // ms

bool isWhole(const QByteArray& text) {
    QXmlStreamReader xml(text);
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("ui"))
        return false;
    while (!xml.atEnd())
        xml.readNext();
    return !xml.hasError();
}

}  // namespace

FormWatch::FormWatch(QObject* parent) : QObject(parent) {
    m_timer.setSingleShot(true);
    m_timer.setInterval(settleTime);
    connect(&m_timer, &QTimer::timeout, this, &FormWatch::look);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_timer, qOverload<>(&QTimer::start));
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_timer, qOverload<>(&QTimer::start));
}

void FormWatch::follow(const QString& form, const QByteArray& text) {
    m_known = text;
    if (form == m_form)
        return;
    if (!m_form.isEmpty())
        m_watcher.removePaths(m_watcher.files() + m_watcher.directories());
    m_form = form;
    // The folder too: a file that is replaced is another one, whose watch begins anew.
    m_watcher.addPath(QFileInfo(form).absolutePath());
    m_watcher.addPath(form);
}

void FormWatch::look() {
    if (!m_watcher.files().contains(m_form) && QFile::exists(m_form))
        m_watcher.addPath(m_form);
    QFile file(m_form);
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (text != m_known && isWhole(text)) {
        m_known = text;
        emit formChanged(text);
    }
    emit looked();
}
