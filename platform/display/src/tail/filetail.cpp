#include "filetail.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFileInfo>
#include <algorithm>

namespace {

constexpr int sliceBytes = 256 * 1024;
// Of a file that is there already: more than any screen shows.
constexpr qint64 firstBytes = sliceBytes;
// From a file that got more than this since the last look, lines are only counted: far more than a view keeps.
constexpr qint64 mostUnread = 64LL * 1024 * 1024;
// To see that a file was written anew. Logs seldom repeat themselves with a time in each line.
constexpr int latestBytes = 64;

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

bool findRegular(const QString& path, struct stat* found) {
    return stat(QFile::encodeName(path).constData(), found) == 0 && S_ISREG(found->st_mode);
}

}  // namespace

void FileTail::follow(const QString& path) {
    m_path = QFileInfo(path).absoluteFilePath();
    m_file.close();
    m_skippedLines = 0;
    m_beginsAtEnd = true;
    open();
    m_beginsAtEnd = false;
}

// Takes the file that has the name now. What is no regular file by its name is not even opened: that alone may block,
// or wake who writes into a pipe.
bool FileTail::open() {
    struct stat found {};
    if (!findRegular(m_path, &found))
        return false;
    const int fd = ::open(QFile::encodeName(m_path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd == -1)
        return false;
    if (fstat(fd, &found) != 0 || !S_ISREG(found.st_mode)) {
        ::close(fd);
        return false;
    }
    m_file.close();
    m_file.open(fd, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
    m_position = m_beginsAtEnd ? std::max<qint64>(found.st_size - firstBytes, 0) : 0;
    m_beginsInside = m_position > 0;
    m_latest.clear();
    return true;
}

// True when another file has the name and is not empty: who has begun to write there writes no more to this one.
bool FileTail::hasSuccessor() const {
    struct stat named {};
    struct stat followed {};
    return findRegular(m_path, &named) && fstat(m_file.handle(), &followed) == 0 && named.st_size > 0 &&
           (named.st_ino != followed.st_ino || named.st_dev != followed.st_dev);
}

bool FileTail::wasWrittenAnew(qint64 size) {
    if (size < m_position)
        return true;
    m_file.seek(m_position - m_latest.size());
    const QByteArray found = m_file.read(m_latest.size());
    return found.size() == m_latest.size() && found != m_latest;
}

TailPiece FileTail::read() {
    TailPiece piece;
    if (!m_file.isOpen())
        piece.startsAnew = open();
    if (!m_file.isOpen())
        return piece;
    // Looked for before the size is: so nothing that the former file got before its successor is missed.
    const bool isReplaced = hasSuccessor();
    struct stat now {};
    if (fstat(m_file.handle(), &now) != 0)
        return piece;
    if (wasWrittenAnew(now.st_size)) {
        m_position = 0;
        m_beginsInside = false;
        m_latest.clear();
        piece.startsAnew = true;
    }
    const qint64 former = m_position;
    if (now.st_size > m_position)
        passOver(now.st_size - m_position, &piece);
    if (m_position > former) {
        piece.isFollowed = isReplaced || m_position < now.st_size;
        return piece;
    }
    // At its end, or it cannot be read any further.
    piece.isFollowed = isReplaced && open();
    piece.startsAnew = piece.startsAnew || piece.isFollowed;
    return piece;
}

// Reads a slice, and gives what a view may want of it.
void FileTail::passOver(qint64 unread, TailPiece* piece) {
    piece->bytes = readBytes();
    if (unread > mostUnread) {
        m_skippedLines += piece->bytes.count('\n');
        m_beginsInside = true;
        piece->bytes.clear();
    } else if (m_beginsInside) {
        beginInside(piece);
    }
}

// Drops the end of a line whose begin is not known. Where that is all there is, it is better than nothing.
void FileTail::beginInside(TailPiece* piece) {
    m_beginsInside = false;
    piece->skippedLines = m_skippedLines;
    m_skippedLines = 0;
    QByteArray& bytes = piece->bytes;
    const int end = bytes.indexOf('\n');
    if (end >= 0 && end + 1 < bytes.size()) {
        bytes.remove(0, end + 1);
        piece->skippedLines += piece->skippedLines > 0 ? 1 : 0;
        return;
    }
    piece->isCut = true;
    int begin = 0;
    while (begin < std::min(bytes.size(), 3) && isContinuation(bytes[begin]))
        ++begin;
    bytes.remove(0, begin);
}

QByteArray FileTail::readBytes() {
    m_file.seek(m_position);
    const QByteArray bytes = m_file.read(sliceBytes);
    m_position += bytes.size();
    m_latest = (m_latest + bytes.right(latestBytes)).right(latestBytes);
    return bytes;
}
