// Reading and replacing a form file as a whole.
#ifndef OSTREL_DISPLAY_FORMFILE_H
#define OSTREL_DISPLAY_FORMFILE_H

#include <QByteArray>
#include <QString>
#include <optional>

// Nothing, and a line of why, when it cannot be read.
std::optional<QByteArray> readFormFile(const QString& path, QString* fault);

// The file has the old or the new content whenever somebody looks, also after a power cut, and the mode, owner and
// group that it had. Empty, or a line of why the old content stays. `remark` (may be null) says what the file could not
// keep.
QString replaceFormFile(const QString& path, const QByteArray& content, QString* remark);

#endif
