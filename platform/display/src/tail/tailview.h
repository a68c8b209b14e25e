// The last lines of a text, as an operator reads them.
#ifndef OSTREL_DISPLAY_TAIL_TAILVIEW_H
#define OSTREL_DISPLAY_TAIL_TAILVIEW_H

#include <QPlainTextEdit>
#include <deque>

// Stays at the end if it is there, and otherwise with the lines that are being read, until they are too old to be kept.
class TailView : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit TailView(QWidget* parent);

    void append(const QStringList& lines);
    // Shows a line behind the others, in place of the former unfinished one; the next append() takes its place.
    void showUnfinished(const QString& line);
    void empty();

private:
    void put(const QStringList& lines);
    int dropOldest(QTextCursor* cursor);
    template <class Change>
    void keepingPlace(Change change);

    std::deque<int> m_sizes;  // characters of each line
    qint64 m_characters = 0;
    bool m_endsUnfinished = false;
    bool m_isAtEnd = true;
    bool m_isChanging = false;
};

#endif
