// Following a file that grows.
#ifndef OSTREL_DISPLAY_TAIL_FILETAIL_H
#define OSTREL_DISPLAY_TAIL_FILETAIL_H

#include <QByteArray>
#include <QFile>
#include <QString>

struct stat;

// What a followed file has got.
struct TailPiece {
    QByteArray bytes;
    bool startsAnew = false;  // it begins another file, or the same one written anew: the line before it has ended
    bool isCut = false;       // it begins inside a line
    qint64 skippedLines = 0;  // lines before it that nobody will see
    bool isFollowed = false;  // more can be read at once
};

// Begins with the end of the file, and goes with its name: when another file takes it, the former one is followed until
// the other has something to say. A file that was truncated, or written anew, is read from its start. It need not be
// there yet, and may come back. Only regular files are opened: nothing else can make a caller wait.
//
// Polled: notifications come once for each write, thousands in a second, and not at all from a file server. Without new
// bytes a look costs two calls of the system.
class FileTail {
public:
    // A relative path is one of the present folder, also if that changes later.
    void follow(const QString& path);
    // The next bytes, not more than a quarter of a MiB of them. Does not wait.
    TailPiece read();

private:
    bool open();
    bool hasSuccessor() const;
    bool wasWrittenAnew(qint64 size);
    void passOver(qint64 unread, TailPiece* piece);
    void beginInside(TailPiece* piece);
    QByteArray readBytes();

    QString m_path;
    QFile m_file;
    qint64 m_position = 0;
    QByteArray m_latest;  // the bytes before the position
    bool m_beginsAtEnd = false;
    bool m_beginsInside = false;
    qint64 m_skippedLines = 0;
};

#endif
