// What became of a form's properties since the form was loaded, and putting it into the form file. Every UIFileWriter
// of this library has one as a child: writer->findChild<FormChanges*>(); a writer of another make has none.
#ifndef OSTREL_DISPLAY_FORMCHANGES_H
#define OSTREL_DISPLAY_FORMCHANGES_H

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

class QWidget;

// Class, object and property: what a value in a form belongs to.
struct FormKey {
    QString className;
    QString objectName;
    QString property;

    bool operator==(const FormKey& other) const {
        return className == other.className && objectName == other.objectName && property == other.property;
    }
};

Q_DECL_EXPORT uint qHash(const FormKey& key, uint seed = 0);

// Where people read of changes they are named "BSFC: units", or "BSFC → NOX" for another variable. An object without a
// variable goes by its label, and without that by its name in the form.
struct FormSaving {
    QString fault;            // one line, empty when the file holds what it is to hold
    QStringList unplaced;     // the form has no such widget any more; they stay unsaved
    QStringList refused;      // no form can hold them; they stay unsaved
    QString remark;           // what the saved file could not keep, such as its owner; empty where nothing
    QStringList overwritten;  // somebody else had changed them too; the file now has this display's value

    bool isComplete() const { return fault.isEmpty() && unplaced.isEmpty() && refused.isEmpty(); }
};

// GUI thread only.
//
// A change is an operator's edit, and two kinds of values are none, whatever their flag says:
// - `color` where it comes from a base of the class that the widget edits as: no operator can reach it, it is the
// colour
//   of the variable's status.
// - a key that no property of the live widget has: a form could not give it back.
class Q_DECL_EXPORT FormChanges : public QObject {
    Q_OBJECT

public:
    explicit FormChanges(QObject* parent = nullptr);
    ~FormChanges() override;

    // While one lives, nothing is remembered: widgets that are built or bound again set their properties by themselves.
    class Q_DECL_EXPORT Hold {
    public:
        explicit Hold(FormChanges* changes);
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        FormChanges* m_changes;  // may be null
    };

    // The last value of a key wins. `live` is false for a value that the form itself set while it loaded: it is
    // remembered as the form's own and changes nothing. Once formLoaded() was called all values are live: a widget
    // without a variable goes on saying that it loads, and can be edited all the same.
    void remember(const FormKey& key, const QVariant& value, bool live);

    // True when a live value differs from what the form says as far as that is known.
    bool isDirty() const;
    int count() const;
    // A line for each changed object: "BSFC → NOX: units".
    QStringList summary() const;

    // The last value, or an invalid one where none was remembered.
    QVariant value(const FormKey& key) const;

    // True when that key counts as a change of the form.
    bool isChanged(const FormKey& key) const;

    // The form file. Empty in a designer.
    QString path() const;
    void setPath(const QString& path);
    // Reads the file; true when it is a form.
    bool open();

    // The form was built from `text`, with the changes that takeOver() brings, if any: what its widgets have now is no
    // change. Forgets all changes. `form` may die before this object.
    void formLoaded(QWidget* form, const QByteArray& text);
    // The text that the form was loaded from or saved as last.
    QByteArray text() const;

    // Puts the changes into the form file as it is on the disk now, all at once or not at all; every byte that says
    // something else stays. Where nothing is to be changed, the file is not touched.
    FormSaving save();
    // Writes the form as this display knows it to another file, which is the form file from then on.
    FormSaving saveAs(const QString& path);

    // `form` with the changes in it; those that have no place in it are added to `unplaced`. As it is when it is no
    // form.
    QByteArray appliedTo(const QByteArray& form, QStringList* unplaced = nullptr) const;

    // The changes as a text that outlives the process, and which form they were made to.
    QByteArray packed() const;
    // Adds packed changes to those that there are; false when it is no such text. `madeFor` gets whether they were made
    // to a form of exactly the text `form`.
    bool takeOver(const QByteArray& packed, const QByteArray& form = {}, bool* madeFor = nullptr);

Q_SIGNALS:
    void dirtyChanged(bool dirty);
    // After each change of what is unsaved.
    void changed();

private:
    friend class Hold;
    struct Private;
    std::unique_ptr<Private> d;
};

#endif
