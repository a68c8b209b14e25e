// From the bytes of a followed file to lines for a view.
#ifndef OSTREL_DISPLAY_TAIL_TAILLINES_H
#define OSTREL_DISPLAY_TAIL_TAILLINES_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <deque>

struct TailPiece;

// How much is kept, of lines that wait and of lines that a view shows.
struct TailBound {
    static constexpr int lines = 10000;
    static constexpr int bytes = 4 * 1024 * 1024;
    static constexpr int lineBytes = 1000;  // what is longer is cut
};

// The lines that nobody has seen yet. When more come than the bound allows the oldest are dropped, and counted.
class TailLines {
public:
    void add(const TailPiece& piece);
    void clear();

    bool isEmpty() const { return m_finished.empty(); }
    // The oldest finished lines, made fit to be seen: bytes that are no UTF-8 are replaced, control characters written
    // as ^X, and what was cut off is marked.
    QStringList take(int most);
    // How many were dropped before the oldest; then none.
    qint64 takeSkipped();
    // The last line as far as it has come; null before its first byte.
    QString unfinished() const;

private:
    // A line as the file has it, without its end.
    struct Line {
        QByteArray bytes;
        bool isCutBefore = false;
        bool isCutBehind = false;
    };

    static QString shown(const Line& line);
    void extend(const char* bytes, int size);
    void finish();

    std::deque<Line> m_finished;
    qint64 m_bytes = 0;  // of the finished lines
    qint64 m_skipped = 0;
    Line m_open;
    bool m_isOpen = false;
};

#endif
