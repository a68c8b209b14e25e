// The editor window of a group file.
#ifndef OSTREL_DISPLAY_QDWINDOW_H
#define OSTREL_DISPLAY_QDWINDOW_H

#include <QMainWindow>
#include <QString>

class GroupEditor;

// Shows the group as the table that it is, with its title above it. Variables are added, removed, moved and renamed
// with the keyboard or the mouse; names are completed from the running store, and those that it does not have are
// marked. A file that is damaged is opened as far as it can be read, with a list of what is odd in which line. Nothing
// is written before the operator saves; the file is replaced whole or not at all.
//
// One window serves one file at a time and can be shown again after it was closed. The plug-in library makes it and
// calls the constructor, show() and the signal closed(); a site may bring a class of its own with these three. GUI
// thread only.
class Q_DECL_EXPORT QDWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit QDWindow(QWidget* parent);
    ~QDWindow() override;

    // Opens the editor for that file. An empty name starts a new group, and so does a name without a file.
    void show(QString fileName);

Q_SIGNALS:
    // The window closed. The name of the file that was edited, saved or not; empty for a group that never got one.
    void closed(QString fileName);

protected:
    // Asks about changes that were not saved.
    void closeEvent(QCloseEvent* event) override;

private:
    void addActions();
    void tellTitle();
    void openFile();
    bool saveFile();
    bool saveFileAs();
    bool maySave();
    bool mayLeave();

    GroupEditor* m_editor;

    // The plug-in allocates the object: room for the state of a site's own class.
    void* m_reserved[32] = {};
};

#endif
