#include "groupfile/groupfile.h"

#include <QFileInfo>
#include <QSaveFile>
#include <QSet>

namespace {

const QLatin1Char quote('"');

QString quotedText(const QString& line) {
    const int first = line.indexOf(quote);
    const int last = line.lastIndexOf(quote);
    if (first == last)
        return QString();
    return line.mid(first, last - first).remove(quote).trimmed();
}

class GroupReader {
public:
    explicit GroupReader(QVector<GroupRemark>* remarks) : m_remarks(remarks) {}

    GroupContents read(const QByteArray& text) {
        for (int start = 0; start < text.size();) {
            const int feed = text.indexOf('\n', start);
            const int end = feed < 0 ? text.size() : feed;
            ++m_line;
            readLine(text.mid(start, end - start));
            start = end + 1;
        }
        if (m_rowOpen)
            remark("the last <row> is not closed; write </row> behind it");
        return m_contents;
    }

private:
    void readLine(QByteArray bytes) {
        const int zero = bytes.indexOf('\0');
        if (zero >= 0) {
            remark("a zero byte; what follows it on this line is left out");
            bytes.truncate(zero);
        }
        const QString line = QString::fromLatin1(bytes).trimmed();
        if (line == QLatin1String("<row>"))
            startRow();
        else if (line == QLatin1String("</row>"))
            endRow();
        else if (line.startsWith(QLatin1String("<title")))
            readTitle(line);
        else if (line.startsWith(QLatin1String("<var")))
            readVariable(line);
        else if (!line.isEmpty() && !line.startsWith(QLatin1String("<?xml")))
            remark("'%1' is no part of a group and is left out when it is saved", line);
    }

    void startRow() {
        if (m_rowOpen)
            remark("the row before this <row> is not closed; what follows stands further to the right");
        ++m_row;
        m_rowOpen = true;
        m_rowHasVariable = false;
    }

    void endRow() {
        if (!m_rowOpen)
            remark("</row> without a <row>");
        else if (!m_rowHasVariable)
            remark("a row without a variable; it is left out when the group is saved");
        m_column = 0;
        m_rowOpen = false;
    }

    void readTitle(const QString& line) {
        if (m_contents.hasTitle)
            remark("another title; of several the last one counts");
        m_contents.title = quotedText(line);
        m_contents.hasTitle = true;
        if (line.count(quote) < 2)
            remark("no title in double quotes, so it is empty; write <title name=\"TITLE\"/>");
    }

    void readVariable(const QString& line) {
        const GroupVariable variable{quotedText(line), m_row, m_column++};
        m_contents.variables.append(variable);
        m_rowHasVariable = true;
        if (m_remarks)
            remarkOn(variable, line);
    }

    void remarkOn(const GroupVariable& variable, const QString& line) {
        if (variable.name.isEmpty())
            remark("no name in double quotes; write <var name=\"NAME\"/>");
        else if (line.count(quote) > 2)
            remark("more than one text in double quotes; '%1' is taken as the name", variable.name);
        const QPair<int, int> place(variable.row, variable.column);
        if (variable.row < 0)
            remark("'%1' stands before the first <row> and so outside the table", variable.name);
        else if (m_taken.contains(place))
            remark("'%1' stands on the place of another variable; write <row> before it", variable.name);
        m_taken.insert(place);
    }

    void remark(const char* text, const QString& what = QString()) {
        if (!m_remarks)
            return;
        const QString pattern = QString::fromLatin1(text);
        m_remarks->append({m_line, pattern.contains(QLatin1String("%1")) ? pattern.arg(what) : pattern});
    }

    QVector<GroupRemark>* m_remarks;
    GroupContents m_contents;
    int m_line = 0;
    int m_row = -1;
    int m_column = 0;
    // For remarks only.
    bool m_rowOpen = false;
    bool m_rowHasVariable = false;
    QSet<QPair<int, int>> m_taken;
};

// A device or a pipe cannot be replaced by a file; what is written to it is gone in any case.
bool saveInto(QFile&& target, const QByteArray& text, QString* reason) {
    const bool done = target.open(QIODevice::WriteOnly) && target.write(text) == text.size() && target.flush();
    if (!done && reason)
        *reason = target.errorString();
    return done;
}

}  // namespace

GroupContents readGroup(const QByteArray& text, QVector<GroupRemark>* remarks) {
    return GroupReader(remarks).read(text);
}

QByteArray writeGroup(const QString& title, const QVector<GroupVariable>& variables) {
    QString text = QStringLiteral("<?xml version=\"1.0\"?>\n<title name=\"%1\"/>\n<row>\n").arg(title);
    int row = 0;
    for (const GroupVariable& variable : variables) {
        if (variable.row != row)
            text += QLatin1String("</row>\n<row>\n");
        row = variable.row;
        text += QStringLiteral("  <var name=\"%1\"/>\n").arg(variable.name);
    }
    text += QLatin1String("</row>\n");
    return text.toLatin1();
}

bool saveGroup(const QString& path, const QByteArray& text, QString* reason) {
    const QFileInfo former(path);
    if (former.exists() && !former.isFile())
        return saveInto(QFile(path), text, reason);
    QSaveFile file(path);
    // A file that may be written in a folder that may not: the only way is into the file itself.
    file.setDirectWriteFallback(true);
    const bool done = file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
    if (!done && reason)
        *reason = file.errorString();
    return done;
}
