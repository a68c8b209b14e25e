// The writer of a form file: it remembers property values of live widgets and saves them into the form.
#ifndef OSTREL_DISPLAY_UIFILEWRITER_H
#define OSTREL_DISPLAY_UIFILEWRITER_H

#include <QFont>
#include <QObject>
#include <QString>
#include <QVariant>

// One per process. The plug-in library makes it and calls the four operations below; a site may bring a class of its
// own with these four. They are ordinary members of the shared library, so that the dynamic linker decides whose run.
// GUI thread only.
class Q_DECL_EXPORT UIFileWriter : public QObject {
public:
    UIFileWriter(QString path, QObject* parent);

    // True when the form file could be opened and is a form.
    bool openFile();

    // Remembers the value of one property of one object; the last value wins. `flag` is false while the form loads:
    // such a value is what the form says already, and never makes it dirty.
    void cacheProperty(const QString& className, const QString& objectName, const QString& property,
                       const QVariant& value, bool flag);
    void cachePropertyFont(const QString& className, const QString& objectName, const QString& property,
                           const QFont& value, bool flag);

private:
    struct Private;
    Private* d;

    // The plug-in allocates the object: room for the state of a site's own class.
    void* m_reserved[32] = {};
};

#endif
