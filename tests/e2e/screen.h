// A program on a real screen: what is to be seen of it, and the mouse and the keys that an operator has.
#ifndef OSTREL_TESTS_E2E_SCREEN_H
#define OSTREL_TESTS_E2E_SCREEN_H

#include <QJsonObject>
#include <QPoint>
#include <QProcess>
#include <QTemporaryDir>
#include <optional>

// All that waits does so up to a limit, and returns false when that has passed. Things are named by a regular
// expression for their whole id (see screenwitness.h).
class Screen {
public:
    Screen();
    // Ends the program.
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    // Into the programs started from then on, beside the witness: a library for Qt Designer.
    bool install(const QString& designerLibrary);
    // For the programs started from then on.
    void setVariable(const QString& name, const QString& value);
    bool start(const QString& program, const QStringList& words);
    // Waits until it has ended by itself with that exit code.
    bool endsWith(int code);
    // As a power cut would.
    void kill();

    // The first such thing as it was seen last; empty where there is none.
    QJsonObject seen(const QString& id) const;
    bool shows(const QString& id) const;
    bool hides(const QString& id) const;
    // What it says, or null.
    bool says(const QString& id, const QString& text) const;
    // True once all of its text has room.
    bool showsWhole(const QString& id) const;
    QJsonValue global(const QString& name) const;

    // Waits until the thing has come to rest, then clicks into its middle: button 1 left, 3 right.
    bool click(const QString& id, int button = 1, int times = 1) const;
    // The left button, held until it is released wherever the pointer is by then.
    bool press(const QString& id) const;
    bool release() const;
    // Where the thing has come to rest.
    bool pointAt(const QString& id) const;
    // A click gives no window the keys at once: waits until what has them matches.
    bool focus(const QString& id) const;
    bool activate(const QString& id, const QString& window) const;
    bool type(const QString& text) const;
    bool key(const QString& name) const;

    // For people: everything in the last report, and what the program said.
    QString toText();

private:
    QJsonObject report() const;
    std::optional<QPoint> restingPlace(const QString& id) const;

    QTemporaryDir m_folder;
    QProcess m_process;
};

#endif
