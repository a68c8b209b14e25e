// A view of the end of a text file that grows, as of a log.
#ifndef OSTREL_DISPLAY_TAILWIDGET_H
#define OSTREL_DISPLAY_TAILWIDGET_H

#include <QColor>
#include <QFont>
#include <QString>
#include <QWidget>
#include <memory>

// Shows the last lines of the file at once, however large it is, and then each line as it comes; the last one also
// before its end. It stays at the end if it is there; who has scrolled up goes on reading there. It keeps the latest
// 10,000 lines and at most 4 MiB of text; a line of more than 1,000 bytes is cut, and marked so. Bytes that are no
// UTF-8 are replaced, and control characters written as ^X.
//
// The file may be renamed and made anew, truncated, vanish and return, or not be there yet. Pipes, devices and folders
// are not followed. The file is read and lines are added in small portions, so that neither a file that grows fast nor
// a large one stops the program.
//
// The plug-in library makes it and calls the constructor and the seven operations below; a site may bring a class of
// its own with these. They are ordinary members of the shared library, so that the dynamic linker decides whose run.
// GUI thread only.
class Q_DECL_EXPORT TailWidget : public QWidget {
    Q_OBJECT

public:
    explicit TailWidget(QWidget* parent = nullptr);
    ~TailWidget() override;

    // Follows that file from now on, with an empty view; a pause goes on. Of a relative path the present folder counts.
    void setFileName(QString fileName);
    // Empties the view. What has come during a pause is not lost.
    void clearContents();
    // True: nothing on the screen changes, while lines are collected. False: those come that fit into the bounds, and
    // if there were more it is told how many were skipped.
    void pause(bool isPaused);
    // Whether long lines are wrapped; at first they are not.
    void setWrapText(bool isWrapped);
    // An invalid colour is that of the surroundings.
    void setTextColor(QColor color);
    void setgBackColor(QColor color);
    void setTextFont(QFont font);

protected:
    void showEvent(QShowEvent* event) override;

private:
    struct Private;

    void look();
    bool showLines();
    void tellSkipped();
    void setColour(int role, const QColor& color);

    std::unique_ptr<Private> d;

    // The plug-in allocates the object: room for the state of a site's own class.
    void* m_reserved[32] = {};
};

#endif
