#include "ostrel-display/formchanges.h"

#include <QCryptographicHash>
#include <QHash>
#include <QWidget>
#include <QXmlStreamReader>
#include <algorithm>

#include "formdocument.h"
#include "formfile.h"
#include "formwords.h"
#include "livewidgets.h"

uint qHash(const FormKey& key, uint seed) {
    return qHash(key.className, qHash(key.objectName, qHash(key.property, seed)));
}

namespace {

struct Entry {
    QVariant own;  // what the form set while it loaded; invalid where it set nothing
    QVariant last;
    bool changed = false;
    FormElement element;  // of a change: <property> as it is to be
    QString called;       // of a change that was packed before: what it was made to
};

QString hashOf(const QByteArray& text) {
    return QString::fromLatin1(QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex());
}

QString attributeOf(const FormElement& element, const char* name) {
    for (const FormAttribute& attribute : element.attributes)
        if (attribute.name == QLatin1String(name))
            return attribute.value;
    return QString();
}

// Those of `edits` that have no widget in `document`; they are taken out.
std::vector<FormEdit> takeUnplaced(std::vector<FormEdit>& edits, const FormDocument& document) {
    const auto first = std::stable_partition(edits.begin(), edits.end(), [&](const FormEdit& edit) {
        return document.hasWidget(edit.className, edit.objectName);
    });
    std::vector<FormEdit> unplaced(first, edits.end());
    edits.erase(first, edits.end());
    return unplaced;
}

// Those of `edits` that no form can hold; they are taken out.
std::vector<FormEdit> takeRefused(std::vector<FormEdit>& edits, const FormDocument& document) {
    const auto fits = [&](const FormEdit& edit) {
        return canStandInXml(edit.property) && document.isWith(document.with({edit}), {edit});
    };
    const auto first = std::stable_partition(edits.begin(), edits.end(), fits);
    std::vector<FormEdit> refused(first, edits.end());
    edits.erase(first, edits.end());
    return refused;
}

}  // namespace

struct FormChanges::Private {
    QString path;
    QByteArray text;  // of the form as the changes know it
    bool opened = false;
    std::unique_ptr<FormDocument> document;  // of `text`, once it is wanted
    QHash<FormKey, Entry> entries;
    LiveWidgets widgets;
    int holds = 0;
    int changed = 0;  // entries that count as changes

    const FormDocument* form() {
        if (!document && opened)
            document = FormDocument::read(text);
        return document.get();
    }
    void setText(const QByteArray& read) {
        text = read;
        document.reset();
        opened = true;
    }
    std::vector<FormEdit> edits() const;
    QString called(const FormEdit& edit);
    QStringList linesOf(const std::vector<FormEdit>& edits, bool together);
    bool judge(const FormKey& key, Entry& entry, bool live);
    bool isNews(const FormEdit& edit, const FormElement& own);
    void settle(const std::vector<FormEdit>& saved);
    QStringList changedMeanwhile(const FormDocument& now, const std::vector<FormEdit>& placed);
};

// In the order of their names, so that a file comes out the same each time.
std::vector<FormEdit> FormChanges::Private::edits() const {
    std::vector<FormEdit> edits;
    for (auto at = entries.begin(); at != entries.end(); ++at)
        if (at->changed)
            edits.push_back({at.key().className, at.key().objectName, at->element});
    std::sort(edits.begin(), edits.end(), [](const FormEdit& one, const FormEdit& other) {
        return std::tuple(one.objectName, one.propertyName(), one.className) <
               std::tuple(other.objectName, other.propertyName(), other.className);
    });
    return edits;
}

QString FormChanges::Private::called(const FormEdit& edit) {
    const QString packed = entries.value({edit.className, edit.objectName, edit.propertyName()}).called;
    return packed.isEmpty() ? calledIn(form(), edit) : packed;
}

// For people. `together`: one line for each object.
QStringList FormChanges::Private::linesOf(const std::vector<FormEdit>& edits, bool together) {
    QStringList lines;
    for (auto first = edits.begin(); first != edits.end();) {
        const auto other = std::find_if(first, edits.end(), [&](const FormEdit& edit) {
            return edit.objectName != first->objectName || edit.className != first->className;
        });
        const auto end = together ? other : first + 1;
        ChangedObject object{called(*first), QString(), {}};
        for (; first != end; ++first) {
            if (isNameOfVariable(*first))
                object = {called(*first), variableOf(*first), object.properties};
            else
                object.properties.append(wordsOf(first->propertyName()));
        }
        lines.append(lineOf(object));
    }
    return lines;
}

bool FormChanges::Private::isNews(const FormEdit& edit, const FormElement& own) {
    const FormDocument* known = form();
    if (!known)
        return edit.property != own;
    if (!known->hasWidget(edit.className, edit.objectName) || known->says(edit))
        return false;
    return edit.property != own || known->property(edit.className, edit.objectName, edit.propertyName()).has_value();
}

// Whether the entry's last value is a change.
bool FormChanges::Private::judge(const FormKey& key, Entry& entry, bool live) {
    const QWidget* widget = widgets.widget(key.className, key.objectName);
    const QMetaProperty property = widget ? LiveWidgets::property(widget, key.property) : QMetaProperty();
    if (!live || (widgets.hasForm() && !property.isValid()))
        return false;
    const std::optional<FormElement> value = elementOfValue(property, entry.last);
    if (!value)
        return false;
    entry.element = propertyElement(key.property, *value);
    const QVariant own = entry.own.isValid() || !widget ? entry.own : widgets.former(widget, key.property);
    const std::optional<FormElement> former = own.isValid() ? elementOfValue(property, own) : std::nullopt;
    return isNews({key.className, key.objectName, entry.element},
                  former ? propertyElement(key.property, *former) : FormElement());
}

void FormChanges::Private::settle(const std::vector<FormEdit>& saved) {
    for (const FormEdit& edit : saved) {
        Entry& entry = entries[{edit.className, edit.objectName, edit.propertyName()}];
        changed -= entry.changed ? 1 : 0;
        entry.changed = false;
        entry.own = entry.last;
        entry.called.clear();
    }
}

QStringList FormChanges::Private::changedMeanwhile(const FormDocument& now, const std::vector<FormEdit>& placed) {
    std::vector<FormEdit> changedToo;
    for (const FormEdit& edit : placed) {
        const auto said = form() ? form()->property(edit.className, edit.objectName, edit.propertyName())
                                 : std::optional<FormElement>();
        const auto says = now.property(edit.className, edit.objectName, edit.propertyName());
        if (said != says && !now.says(edit))
            changedToo.push_back(edit);
    }
    return linesOf(changedToo, false);
}

FormChanges::Hold::Hold(FormChanges* changes) : m_changes(changes) {
    if (m_changes)
        ++m_changes->d->holds;
}

FormChanges::Hold::~Hold() {
    if (m_changes)
        --m_changes->d->holds;
}

FormChanges::FormChanges(QObject* parent) : QObject(parent), d(std::make_unique<Private>()) {}

FormChanges::~FormChanges() = default;

void FormChanges::remember(const FormKey& key, const QVariant& value, bool live) {
    FormKey known = key;
    if (d->holds > 0)
        return;
    if (const QWidget* widget = d->widgets.widget(key.className, key.objectName)) {
        const QMetaProperty property = LiveWidgets::property(widget, key.property);
        if (property.isValid() && LiveWidgets::isStatusColour(property, key.className))
            return;
        if (property.isValid())
            known.property = QLatin1String(property.name());
    }
    const bool wasDirty = isDirty();
    Entry& entry = d->entries[known];
    const bool wasChanged = entry.changed;
    entry.last = value;
    if (!live && !d->widgets.hasForm())
        entry.own = value;
    entry.changed = d->judge(known, entry, live || d->widgets.hasForm());
    d->changed += (entry.changed ? 1 : 0) - (wasChanged ? 1 : 0);
    if (isDirty() != wasDirty)
        emit dirtyChanged(isDirty());
    if (entry.changed || wasChanged)
        emit changed();
}

bool FormChanges::isDirty() const {
    return d->changed > 0;
}

int FormChanges::count() const {
    return d->changed;
}

QStringList FormChanges::summary() const {
    return d->linesOf(d->edits(), true);
}

QVariant FormChanges::value(const FormKey& key) const {
    return d->entries.value(key).last;
}

bool FormChanges::isChanged(const FormKey& key) const {
    return d->entries.value(key).changed;
}

QString FormChanges::path() const {
    return d->path;
}

void FormChanges::setPath(const QString& path) {
    d->path = path;
}

bool FormChanges::open() {
    if (d->path.isEmpty())  // as in Qt Designer, where Qt would complain about a file without a name
        return false;
    const std::optional<QByteArray> read = readFormFile(d->path, nullptr);
    if (!read || !FormDocument::read(*read))
        return false;
    d->setText(*read);
    return true;
}

void FormChanges::formLoaded(QWidget* form, const QByteArray& text) {
    const bool wasDirty = isDirty();
    d->entries.clear();
    d->changed = 0;
    d->setText(text);
    d->widgets.setForm(form);
    if (wasDirty)
        emit dirtyChanged(false);
    emit changed();
}

QByteArray FormChanges::text() const {
    return d->text;
}

FormSaving FormChanges::save() {
    FormSaving saving;
    const std::optional<QByteArray> now = readFormFile(d->path, &saving.fault);
    if (!now)
        return saving;
    QString reason;
    const auto document = FormDocument::read(*now, &reason);
    if (!document) {
        saving.fault = QStringLiteral("%1: %2; save the form under another name").arg(d->path, reason);
        return saving;
    }
    std::vector<FormEdit> placed = d->edits();
    const std::vector<FormEdit> unplaced = takeUnplaced(placed, *document);
    saving.unplaced = d->linesOf(unplaced, false);
    saving.refused = d->linesOf(takeRefused(placed, *document), false);
    if (*now != d->text)
        saving.overwritten = d->changedMeanwhile(*document, placed);
    const QByteArray written = document->with(placed);
    // A form that was broken by a save is worth less than changes that are not saved.
    if (!document->isWith(written, placed)) {
        saving.fault = QStringLiteral("%1: would not be the same form any more; nothing was written").arg(d->path);
        return saving;
    }
    if (written != *now)
        saving.fault = replaceFormFile(d->path, written, &saving.remark);
    if (!saving.fault.isEmpty())
        return saving;
    const bool wasDirty = isDirty();
    // The form that is known from now on has no name for them.
    for (const FormEdit& edit : unplaced)
        d->entries[{edit.className, edit.objectName, edit.propertyName()}].called = d->called(edit);
    d->setText(written);
    d->settle(placed);
    if (isDirty() != wasDirty)
        emit dirtyChanged(isDirty());
    emit changed();
    return saving;
}

FormSaving FormChanges::saveAs(const QString& path) {
    FormSaving saving;
    const QByteArray written = appliedTo(d->text, &saving.unplaced);
    saving.fault = replaceFormFile(path, written, &saving.remark);
    if (!saving.fault.isEmpty())
        return saving;
    d->path = path;
    const FormSaving rest = save();
    saving.fault = rest.fault;
    saving.refused = rest.refused;
    saving.remark += rest.remark;
    return saving;
}

QByteArray FormChanges::appliedTo(const QByteArray& form, QStringList* unplaced) const {
    const auto document = FormDocument::read(form);
    if (!document)
        return form;
    std::vector<FormEdit> placed = d->edits();
    const std::vector<FormEdit> lost = takeUnplaced(placed, *document);
    if (unplaced)
        *unplaced += d->linesOf(lost, false);
    takeRefused(placed, *document);
    return document->with(placed);
}

QByteArray FormChanges::packed() const {
    QString text =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<changes form=\"%1\">\n").arg(hashOf(d->text));
    for (const FormEdit& edit : d->edits())
        text += QStringLiteral(" <change class=\"%1\" object=\"%2\" called=\"%3\">%4</change>\n")
                    .arg(escapedAttribute(edit.className), escapedAttribute(edit.objectName),
                         escapedAttribute(d->called(edit)), elementText(edit.property, {}));
    return (text + QStringLiteral("</changes>\n")).toUtf8();
}

bool FormChanges::takeOver(const QByteArray& packed, const QByteArray& form, bool* madeFor) {
    QXmlStreamReader xml(packed);
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("changes"))
        return false;
    const FormElement changes = readElement(xml);
    if (xml.hasError())
        return false;
    if (madeFor)
        *madeFor = changes.attributes.contains({QStringLiteral("form"), hashOf(form), {}});
    const bool wasDirty = isDirty();
    for (const FormElement& change : changes.children) {
        if (change.name != QLatin1String("change") || change.children.size() != 1)
            continue;
        const FormElement& property = change.children.first();
        if (attributeOf(property, "name").isEmpty())
            continue;
        Entry& entry =
            d->entries[{attributeOf(change, "class"), attributeOf(change, "object"), attributeOf(property, "name")}];
        d->changed += entry.changed ? 0 : 1;
        entry.changed = true;
        entry.element = property;
        entry.called = attributeOf(change, "called");
    }
    if (isDirty() != wasDirty)
        emit dirtyChanged(isDirty());
    emit changed();
    return true;
}
