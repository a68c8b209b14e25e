#include "stagedvalues.h"

#include <ostrel/store.h>
#include <ostrel/units.h>
#include <unistd.h>

#include <QFile>
#include <QSaveFile>
#include <optional>

#include "fabric/signalslotsingleton.h"
#include "failure.h"
#include "hostlink/globals.h"
#include "valuemanager/ValueManagerWidgetBase.h"
#include "variables/recordtext.h"

namespace {

const QString rootTag = QStringLiteral("staged-values");

SignalSlotSingleton& hub() {
    return SignalSlotSingleton::getInstance();
}

QDomDocument emptyDocument() {
    QDomDocument document;
    document.appendChild(document.createElement(rootTag));
    return document;
}

// What one editor would put into a file.
QDomElement stagedBy(ValueManagerWidgetBase* editor) {
    const QDomDocument document = emptyDocument();
    QMetaObject::invokeMethod(editor, "writeToFile", Qt::DirectConnection, Q_ARG(QDomDocument, document));
    return document.documentElement().firstChildElement();
}

// The first of the attributes that the element has; null for none.
QString attributeOf(const QDomElement& staged, std::initializer_list<const char*> names) {
    for (const char* name : names)
        if (staged.hasAttribute(QLatin1String(name)))
            return staged.attribute(QLatin1String(name)) + QLatin1String("");
    return QString();
}

// An editor's units stand with the value or, for a list of values, in the form.
QString unitsOf(const ValueManagerWidgetBase* editor, const QDomElement& staged) {
    return staged.hasAttribute(QStringLiteral("Units")) ? staged.attribute(QStringLiteral("Units"))
                                                        : editor->property("units").toString();
}

QString withUnits(const QString& number, const QString& units) {
    return units.isEmpty() || units == QLatin1String("NONE") ? number : number + QLatin1Char(' ') + units;
}

// A number as a commit would write it.
template <class Record>
double inUnitsOf(Record* record, double value, const QString& units) {
    double converted = 0.0;
    unitsConvert(value, units.toLatin1().data(), &converted, UnitKeyword(record->units).text());
    return converted;
}

StagedValue compared(const QString& live, const QString& written, const QString& typed, const QString& typedIn,
                     const QString& units) {
    StagedValue value;
    value.live = withUnits(live, units);
    value.staged = withUnits(written, units);
    bool isNumber = false;
    typed.toDouble(&isNumber);
    if (!isNumber)
        value.staged += QObject::tr(" (\"%1\" is no number)").arg(typed);
    else if (typed.toDouble() != written.toDouble())
        value.staged += QStringLiteral(" (%1)").arg(withUnits(typed, typedIn));
    return value;
}

// Six decimals are all that an editor shows of a real, so they are what can differ.
std::optional<StagedValue> stagedReal(REAL_VARIABLE* record, const QString& typed, const QString& units) {
    const QString live = QString::asprintf("%f", static_cast<double>(record->value));
    const QString written = QString::asprintf("%f", inUnitsOf(record, typed.toDouble(), units));
    if (typed.isNull() || written == live)
        return std::nullopt;
    return compared(live, written, typed, units, recordText(record->units));
}

std::optional<StagedValue> stagedInteger(INTEGER_VARIABLE* record, const QString& typed, const QString& units) {
    const double converted = inUnitsOf(record, typed.toInt(), units);
    if (typed.isNull() || !(converted > -2147483649.0 && converted < 2147483648.0))
        return std::nullopt;
    const QString live = QString::number(record->value);
    const QString written = QString::number(static_cast<int>(converted));
    if (written == live)
        return std::nullopt;
    return compared(live, written, typed, units, recordText(record->units));
}

std::optional<StagedValue> stagedState(const LOGICAL_VARIABLE* record, const QString& typed) {
    const bool state = typed.toInt() == 1;
    if (typed.isNull() || state == (record->value != 0))
        return std::nullopt;
    const auto text = [record](bool on) {
        const QString words = on ? recordText(record->true_state) : recordText(record->false_state);
        return words.isEmpty() ? QString::number(on) : words;
    };
    return StagedValue{{}, text(!state), text(state)};
}

std::optional<StagedValue> stagedText(const STRING_VARIABLE* record, const QString& typed) {
    const QString live = recordText(record->value);
    if (typed.isEmpty() || typed == live)
        return std::nullopt;
    return StagedValue{{}, live, typed};
}

std::optional<StagedValue> stagedIn(ValueManagerWidgetBase* editor) {
    void* record = editor->ptr();
    if (!record)
        return std::nullopt;
    const QDomElement staged = stagedBy(editor);
    const QString units = unitsOf(editor, staged);
    switch (editor->mem().vari_type) {
        case REAL_TYPE:
            return stagedReal(static_cast<REAL_VARIABLE*>(record), attributeOf(staged, {"RealValue"}), units);
        case INT_TYPE:
            return stagedInteger(static_cast<INTEGER_VARIABLE*>(record),
                                 attributeOf(staged, {"IntegerValue", "IntValue"}), units);
        case LOGI_TYPE:
            return stagedState(static_cast<LOGICAL_VARIABLE*>(record), attributeOf(staged, {"BooleanValue"}));
        case STRING_TYPE:
            return stagedText(static_cast<STRING_VARIABLE*>(record), attributeOf(staged, {"StringValue"}));
        default:
            return std::nullopt;
    }
}

// By its own name: an alias that comes or goes makes no other variable of it.
QString variableOf(const ValueManagerWidgetBase& editor) {
    SHARED_MEMORY mem = editor.mem();
    return editor.getNameFromShmem(&mem);
}

QString reasonOf(short refusal) {
    switch (refusal) {
        case OSTREL_NO_VALUE:
            return QObject::tr("no value that the variable can hold");
        case OSTREL_READ_ONLY:
            return QObject::tr("this display may not write to the store");
        case OSTREL_NOT_WRITABLE:
            return QObject::tr("the cell lets nobody write it");
        case OSTREL_OUTSIDE:
            return QObject::tr("outside of what the cell allows");
        default:
            return QObject::tr("the store has no such record");
    }
}

}  // namespace

StagedValues::StagedValues(QObject* parent) : QObject(parent) {
    connect(&hub(), &SignalSlotSingleton::readFromOstrel, this, &StagedValues::noteFilled);
    connect(&hub(), &SignalSlotSingleton::commitToOstrel, this, &StagedValues::commitBegins);
    connect(&hub(), &SignalSlotSingleton::valueChanged, this, &StagedValues::changed);
}

void StagedValues::setForm(QWidget* form) {
    m_form = form;
    m_filled.clear();
    // Behind the widgets', so that all of them have written.
    disconnect(m_end);
    m_end = connect(&hub(), &SignalSlotSingleton::commitToOstrel, this, &StagedValues::commitEnded);
    emit changed();
}

QList<ValueManagerWidgetBase*> StagedValues::editors() const {
    return m_form ? m_form->findChildren<ValueManagerWidgetBase*>() : QList<ValueManagerWidgetBase*>();
}

bool StagedValues::hasEditors() const {
    return !editors().isEmpty();
}

QVector<StagedValue> StagedValues::differing() const {
    QVector<StagedValue> values;
    for (ValueManagerWidgetBase* editor : editors()) {
        if (std::optional<StagedValue> value = stagedIn(editor)) {
            value->variable = editor->getName();
            values.append(*value);
        }
    }
    return values;
}

void StagedValues::read() {
    emit hub().readFromOstrel();
}

void StagedValues::noteFilled() {
    for (const ValueManagerWidgetBase* editor : editors())
        if (editor->ptr())
            m_filled[editor] = variableOf(*editor);
}

void StagedValues::fillNew() {
    // Nothing is read before the store can be used.
    if (!InitializationDone)
        return;
    for (ValueManagerWidgetBase* editor : editors()) {
        if (!editor->ptr() || m_filled.value(editor) == variableOf(*editor))
            continue;
        m_filled[editor] = variableOf(*editor);
        QMetaObject::invokeMethod(editor, "sample", Qt::DirectConnection);
    }
}

QDomDocument StagedValues::document() const {
    QDomDocument document = emptyDocument();
    emit hub().writeToFile(document);
    return document;
}

void StagedValues::restore(QDomDocument document) {
    emit hub().readFromFile(document);
}

QStringList StagedValues::restoreAll(QDomDocument document) {
    restore(document);
    QStringList left;
    for (QDomElement e = document.documentElement().firstChildElement(); !e.isNull(); e = e.nextSiblingElement())
        left.append(e.tagName());
    return left;
}

QDomDocument StagedValues::readFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(tr("%1: %2; give a file of staged values").arg(path, file.errorString()));
    QDomDocument document;
    QString fault;
    int line = 0;
    if (!document.setContent(&file, &fault, &line))
        throw Failure(tr("%1:%2: %3; give a file of staged values").arg(path).arg(line).arg(fault));
    if (document.documentElement().tagName() != rootTag)
        throw Failure(tr("%1: begins with <%2>; a file of staged values begins with <%3>")
                          .arg(path, document.documentElement().tagName(), rootTag));
    return document;
}

void StagedValues::writeFile(const QString& path) const {
    constexpr int indent = 1;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(document().toByteArray(indent)) < 0 || !file.commit())
        throw Failure(tr("%1: %2").arg(path, file.errorString()));
}

void StagedValues::commitBegins() {
    ostrel_write write{};
    while (ostrel_next_write(m_lastWrite, &write) == 0)
        m_lastWrite = write.number;
}

void StagedValues::commitEnded() {
    QStringList lines;
    ostrel_write write{};
    while (ostrel_next_write(m_lastWrite, &write) == 0) {
        m_lastWrite = write.number;
        // Every editor writes. What is there already is no loss.
        if (write.pid == getpid() && write.refusal != OSTREL_STORED &&
            recordText(write.old_value) != recordText(write.new_value))
            lines.append(tr("%1 = %2: %3")
                             .arg(recordText(write.variable), recordText(write.new_value), reasonOf(write.refusal)));
    }
    emit changed();
    if (!lines.isEmpty())
        emit refused(lines);
}
