// A command line on an operator's screen.
#ifndef OSTREL_WIDGETS_CMDLINEWIDGET_H
#define OSTREL_WIDGETS_CMDLINEWIDGET_H

#include <QStringList>
#include <memory>

#include "core/ostrelbase.h"

namespace Ui {
class CmdLine;
}

// Starts what is typed as child processes of the host: commands are parted by semicolons and run side by side, words by
// blanks, tabs and commas. There is no shell, and nothing of the result is seen here.
//
// What was typed is recalled with Up and Down. It is kept in a settings file for each display and object name, if the
// form says so: the property must be set by the form to load the file.
class Q_DECL_EXPORT ZelCmdLine : public OstrelBase {
    Q_OBJECT
    Q_PROPERTY(bool shortcutEnabled READ isShortcutEnabled WRITE setShortcutEnabled)
    Q_PROPERTY(bool saveHistory READ isSaveHistory WRITE setSaveHistory)

public:
    explicit ZelCmdLine(QWidget* parent = nullptr);
    ~ZelCmdLine() override;

    bool eventFilter(QObject* obj, QEvent* event) override;
    // It is bound to no variable.
    void setName(const QString& name) override;

    // Whether Ctrl+L of the display brings the keyboard here. Takes effect when it is set, not by its default.
    bool isShortcutEnabled() const { return m_shortcutEnabled; }
    void setShortcutEnabled(const bool& enabled);
    // Whether the history is written when a command has ended and when the display saves.
    bool isSaveHistory() const { return m_saveHistory; }
    void setSaveHistory(const bool& save);

public Q_SLOTS:
    void ostrelTimerEvent(int interval) override;

private Q_SLOTS:
    void onReturnPressed();
    void onExecutePressed();
    void futureFinished();
    void setComboBoxFocus();
    void writeSettings();
    void readSettings();

private:
    void connectToDisplay(bool isOn, const char* signal, const char* slot);
    void browse(int step);

    std::unique_ptr<Ui::CmdLine> ui;
    QStringList history;  // the latest first
    int historyPos = -1;  // of Up and Down; -1: nobody is browsing
    bool m_shortcutEnabled = true;
    bool m_saveHistory = true;
};

#endif
