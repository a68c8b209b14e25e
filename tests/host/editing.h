// An operator who changes a form and answers what the display asks.
#ifndef OSTREL_TESTS_HOST_EDITING_H
#define OSTREL_TESTS_HOST_EDITING_H

#include <ostrel-display/uifilewriter.h>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "hostlink/globals.h"
#include "window.h"

inline QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

// For people who want to see what the tests see.
inline void keepPicture(QWidget* widget, const QString& name) {
    const QString folder = qEnvironmentVariable("OSTREL_TEST_PICTURES");
    if (!folder.isEmpty())
        widget->grab().save(QStringLiteral("%1/%2.png").arg(folder, name));
}

// Presses a button of the next question of that name, and keeps what it said.
class Operator : public QObject {
public:
    Operator(const char* question, const char* button) : m_question(question), m_button(button) {
        connect(&m_timer, &QTimer::timeout, this, &Operator::look);
        m_timer.start(20);
    }
    const QString& read() const { return m_read; }
    bool wasAsked() const { return !m_read.isEmpty(); }

private:
    void look() {
        auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!question || question->objectName() != m_question)
            return;
        m_timer.stop();
        m_read = question->text() + '\n' + question->informativeText();
        keepPicture(question, m_question);
        QTest::mouseClick(question->findChild<QPushButton*>(m_button), Qt::LeftButton);
    }

    QString m_question;
    QString m_button;
    QString m_read;
    QTimer m_timer;
};

// Names a file in the next dialog that asks for one.
class PersonAtFileDialog : public QObject {
public:
    explicit PersonAtFileDialog(const QString& file) {
        connect(&m_timer, &QTimer::timeout, this, [this, file] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            m_timer.stop();
            auto* line = dialog->findChild<QLineEdit*>("fileNameEdit");
            line->setText(file);
            QTest::keyClick(line, Qt::Key_Return);
        });
        m_timer.start(20);
    }

private:
    QTimer m_timer;
};

// A display as a process of its own would have it: with a writer of its own.
inline void openAnew(std::unique_ptr<Window>& window, const QString& form, Manners manners = Manners::Asks) {
    window.reset();
    delete writer;
    writer = nullptr;
    qstrcpy(ParentUIFile, QFile::encodeName(form).constData());
    window = std::make_unique<Window>(form, manners);
}

// The unsaved changes that lie beside a form.
inline QStringList leftBesideForm(const QString& form) {
    const QFileInfo file(form);
    return QDir(file.path()).entryList({"." + file.fileName() + ".unsaved-*"}, QDir::Files | QDir::Hidden);
}

// Ends a display with unsaved changes as if it had been killed: the process of its name is gone. Gives what it left.
inline QString dieWith(std::unique_ptr<Window>& window, const QString& form) {
    const QDir folder = QFileInfo(form).dir();
    if (!QTest::qWaitFor([&] { return leftBesideForm(form).size() == 1; }, patience))
        return QString();
    const QString own = folder.filePath(leftBesideForm(form).first());
    const QByteArray changes = contentOf(own);
    const QString process = QString::number(QCoreApplication::applicationPid());
    const QString left = QString(own).replace("-" + process + "-", "-999999999-");
    window.reset();
    QFile::remove(own);
    write(left, changes);
    return left;
}

#endif
