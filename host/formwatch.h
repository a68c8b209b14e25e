// Sees when somebody saves the form that is on show.
#ifndef OSTREL_HOST_FORMWATCH_H
#define OSTREL_HOST_FORMWATCH_H

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

class FormWatch : public QObject {
    Q_OBJECT

public:
    explicit FormWatch(QObject* parent = nullptr);

    // From then on `form` is watched, and `text` is what it is known to hold.
    void follow(const QString& form, const QByteArray& text);

Q_SIGNALS:
    // The file holds another form now. Not told of a file that is gone, or that is no whole form yet.
    void formChanged(const QByteArray& text);
    // After each look at the file, whatever came of it.
    void looked();

private:
    void look();

    QFileSystemWatcher m_watcher;
    QTimer m_timer;
    QString m_form;
    QByteArray m_known;
};

#endif
