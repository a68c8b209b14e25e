#include "taillines.h"

#include <algorithm>
#include <cstring>

#include "filetail.h"

namespace {

const QString cutMark = QStringLiteral("...");

// Whether a text view takes the character as one of a line. It has some of its own for the ends of blocks and frames.
bool isPlain(QChar c) {
    const ushort code = c.unicode();
    if (code < 0x7F)
        return code >= 0x20 || code == '\t';
    return code >= 0xA0 && code != 0x2028 && code != 0x2029 && code != 0xFFFC && !c.isNonCharacter();
}

// Control characters as caret and letter: every font has those.
QString writtenOut(const QString& text) {
    QString plain;
    plain.reserve(text.size() + text.size() / 4);
    for (const QChar c : text) {
        if (isPlain(c))
            plain += c;
        else if (c.unicode() <= 0x7F)
            plain += QLatin1Char('^') + QChar(c.unicode() ^ 0x40);
        else
            plain += QChar(QChar::ReplacementCharacter);
    }
    return plain;
}

}  // namespace

void TailLines::clear() {
    *this = TailLines();
}

void TailLines::add(const TailPiece& piece) {
    if (piece.startsAnew && m_isOpen)
        finish();
    m_skipped += piece.skippedLines;
    if (piece.isCut)
        m_open.isCutBefore = true;
    const char* at = piece.bytes.constData();
    const char* const end = at + piece.bytes.size();
    while (at < end) {
        const auto* feed = static_cast<const char*>(std::memchr(at, '\n', static_cast<size_t>(end - at)));
        extend(at, static_cast<int>((feed ? feed : end) - at));
        if (!feed)
            return;
        finish();
        at = feed + 1;
    }
}

void TailLines::extend(const char* bytes, int size) {
    m_isOpen = true;
    const int room = TailBound::lineBytes - m_open.bytes.size();
    m_open.bytes.append(bytes, std::min(size, room));
    m_open.isCutBehind = m_open.isCutBehind || size > room;
}

void TailLines::finish() {
    if (!m_open.isCutBehind && m_open.bytes.endsWith('\r'))
        m_open.bytes.chop(1);
    m_bytes += m_open.bytes.size();
    m_finished.push_back(std::move(m_open));
    m_open = Line();
    m_isOpen = false;
    while (m_finished.size() > TailBound::lines || m_bytes > TailBound::bytes) {
        m_bytes -= m_finished.front().bytes.size();
        m_finished.pop_front();
        ++m_skipped;
    }
}

QStringList TailLines::take(int most) {
    QStringList lines;
    for (; most > 0 && !m_finished.empty(); --most) {
        m_bytes -= m_finished.front().bytes.size();
        lines.append(shown(m_finished.front()));
        m_finished.pop_front();
    }
    return lines;
}

qint64 TailLines::takeSkipped() {
    return std::exchange(m_skipped, 0);
}

QString TailLines::unfinished() const {
    return m_isOpen ? shown(m_open) : QString();
}

QString TailLines::shown(const Line& line) {
    QString text = writtenOut(QString::fromUtf8(line.bytes.constData(), line.bytes.size()));
    if (line.isCutBefore)
        text.prepend(cutMark + QLatin1Char(' '));
    if (line.isCutBehind)
        text += QLatin1Char(' ') + cutMark + QStringLiteral(" [cut]");
    return text;
}
