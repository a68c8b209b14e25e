// The group file: which variables stand in a group and where.
//
// A group file looks like XML and is none. It is Latin-1 text, read line by line:
//
//     <?xml version="1.0"?>
//     <title name="Oil"/>
//     <row>
//       <var name="OIL_TEMP"/>
//       <var name="OIL_PRES"/>
//     </row>
//
// The reader takes far more than the writer gives. `<row>` and `</row>` count only when nothing else stands on their
// line; the first steps to the next row, the second to the first column. A line that begins with `<title` or `<var`
// gives the text from its first double quote to its last; any other line is passed over. Nothing is escaped: a title
// with a double quote, and what is not Latin-1, does not come back.
//
// Compiled into the plug-in library and into the display library alike, since a site may bring a display library of its
// own.
#ifndef OSTREL_DISPLAY_GROUPFILE_GROUPFILE_H
#define OSTREL_DISPLAY_GROUPFILE_GROUPFILE_H

#include <QByteArray>
#include <QString>
#include <QVector>

// One variable of a group. Row -1 is before the first row, where a grid has no place.
struct GroupVariable {
    QString name;
    int row = -1;
    int column = 0;

    bool operator==(const GroupVariable&) const = default;
};

struct GroupContents {
    QString title;
    bool hasTitle = false;  // false: the file says nothing about it. Of several titles the last one counts.
    QVector<GroupVariable> variables;
};

// Something in a group file that a person may not have meant.
struct GroupRemark {
    int line = 0;  // from 1
    QString text;
};

// Reads any text; what is no group gives an empty one. `remarks` (may be null) receives what is odd about it, in the
// order of the lines.
GroupContents readGroup(const QByteArray& text, QVector<GroupRemark>* remarks = nullptr);

// The text of a group. Rows follow from each change of the row number, so a row without a variable is gone, and so are
// columns that were left out.
QByteArray writeGroup(const QString& title, const QVector<GroupVariable>& variables);

// Puts the text in the place of the file, whole or not at all: a full disk or the end of the process leaves the former
// file as it was. False when it could not be saved; *reason (may be null) says why.
bool saveGroup(const QString& path, const QByteArray& text, QString* reason = nullptr);

#endif
