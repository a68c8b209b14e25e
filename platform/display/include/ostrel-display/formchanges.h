// What became of a form's properties since the form was loaded. Every UIFileWriter of this library has one as a child:
// writer->findChild<FormChanges*>(); a writer of another make has none.
#ifndef OSTREL_DISPLAY_FORMCHANGES_H
#define OSTREL_DISPLAY_FORMCHANGES_H

#include <QHash>
#include <QObject>
#include <QString>
#include <QVariant>

// Class, object and property: what a value in a form belongs to.
struct FormKey {
    QString className;
    QString objectName;
    QString property;

    bool operator==(const FormKey&) const = default;
};

Q_DECL_EXPORT uint qHash(const FormKey& key, uint seed = 0);

// GUI thread only.
class Q_DECL_EXPORT FormChanges : public QObject {
    Q_OBJECT

public:
    explicit FormChanges(QObject* parent = nullptr);

    // The last value of a key wins. `live` is false for a value that the form itself set while it loaded: it is
    // remembered as the form's own and changes nothing.
    void remember(const FormKey& key, const QVariant& value, bool live);

    // True when a live value differs from what the form says as far as that is known.
    bool isDirty() const;

    // The last value, or an invalid one where none was remembered.
    QVariant value(const FormKey& key) const;

    // True when that key counts as a change of the form.
    bool isChanged(const FormKey& key) const;

Q_SIGNALS:
    void dirtyChanged(bool dirty);

private:
    struct Entry {
        QVariant own;  // what the form says; invalid where it said nothing
        QVariant last;
        bool changed = false;
    };

    QHash<FormKey, Entry> m_entries;
    int m_changed = 0;  // entries that count as changes
};

#endif
