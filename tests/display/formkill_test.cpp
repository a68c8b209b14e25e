// The form file when saving is cut short: a process killed at any moment, a full disk, a folder without permission.
#include <unistd.h>

#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include "paths.h"
#include "qttests.h"

class FormKillTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void killedWhileSavingLeavesTheOldOrTheNewForm();
    void fullDiskKeepsTheOldFormAndTheChanges();
    void folderWithoutPermissionKeepsTheOldFormAndTheChanges();

private:
    QByteArray content() const {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QString saveOnce(const QString& how);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
    QByteArray m_original;
};

void FormKillTest::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath("form.ui");
    m_original = "<ui version=\"4.0\">\n <widget class=\"QWidget\" name=\"Form\">\n";
    for (int i = 0; i < 50; ++i)
        m_original += "  <widget class=\"QLabel\" name=\"label" + QByteArray::number(i) +
                      "\">\n   <property name=\"text\">\n    <string>" + QByteArray(2000, 'A') +
                      "</string>\n   </property>\n  </widget>\n";
    m_original += " </widget>\n</ui>\n";
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(m_original);
}

void FormKillTest::killedWhileSavingLeavesTheOldOrTheNewForm() {
    const int kills = 200;
    int saved = 0;
    for (int i = 0; i < kills; ++i) {
        const QByteArray before = content();
        QProcess saver;
        saver.start(paths::formSaver, {m_path});
        QVERIFY(saver.waitForReadyRead());
        QThread::usleep(QRandomGenerator::global()->bounded(20000));
        saver.kill();
        QVERIFY(saver.waitForFinished());
        QCOMPARE(saver.exitStatus(), QProcess::CrashExit);
        // Whole means: all fifty labels say the same letter.
        const QByteArray now = content();
        const int text = now.indexOf("<string>") + int(strlen("<string>"));
        const char letter = now.at(text);
        QCOMPARE(now, QByteArray(m_original).replace(QByteArray(2000, 'A'), QByteArray(2000, letter)));
        saved += now != before ? 1 : 0;
    }
    QVERIFY2(saved > 0, "no kill came after a first saving");
}

QString FormKillTest::saveOnce(const QString& how) {
    QProcess saver;
    saver.start(paths::formSaver, {m_path, how});
    saver.waitForFinished();
    return saver.exitCode() == 1 ? QString::fromLocal8Bit(saver.readAllStandardOutput()).trimmed()
                                 : QStringLiteral("exit status %1").arg(saver.exitCode());
}

void FormKillTest::fullDiskKeepsTheOldFormAndTheChanges() {
    const QString fault = saveOnce("50000");
    QVERIFY2(fault.startsWith(m_path + ": ") && fault.endsWith("; free the place or save the form under another name"),
             qPrintable(fault));
    QCOMPARE(content(), m_original);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList("form.ui"));
}

void FormKillTest::folderWithoutPermissionKeepsTheOldFormAndTheChanges() {
    if (geteuid() != 0)
        QSKIP("only root can become another user");
    QVERIFY(QFile::setPermissions(m_path, QFile::Permissions(0x6644)));
    QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7755)));
    const QString fault = saveOnce("nobody");
    QVERIFY2(fault.startsWith(m_path + ": "), qPrintable(fault));
    QCOMPARE(content(), m_original);
}

OSTREL_TEST_WITHOUT_SCREEN(FormKillTest)
#include "formkill_test.moc"
