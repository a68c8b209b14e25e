// The editors of the types: which there is for each, and how it is linked with its property.
#include <QComboBox>
#include <QCursor>
#include <QDateTimeEdit>
#include <QDoubleSpinBox>
#include <QKeySequence>
#include <QLineEdit>
#include <QRegExpValidator>
#include <QSpinBox>

#include "cursorshapes.h"
#include "dialogeditors.h"
#include "editorlink.h"
#include "propertytype.h"
#include "recordereditors.h"
#include "trutheditor.h"

namespace {

using Manager = QtVariantPropertyManager;

// A spin box of integers or of reals; typed text is applied when it is complete.
template <class SpinBox, class Number>
SpinBox* numberEditor(Manager* manager, QtProperty* property, QWidget* parent) {
    auto* editor = new SpinBox(parent);
    editor->setKeyboardTracking(false);
    auto* link = new EditorLink(manager, property, editor);
    link->showWith([=] {
        if constexpr (std::is_same_v<Number, double>)
            editor->setDecimals(link->attribute(attribute::decimals).toInt());
        editor->setRange(link->attribute(attribute::minimum).value<Number>(),
                         link->attribute(attribute::maximum).value<Number>());
        editor->setSingleStep(link->attribute(attribute::singleStep).value<Number>());
        editor->setReadOnly(link->attribute(attribute::readOnly).toBool());
        editor->setValue(link->value().value<Number>());
    });
    QObject::connect(editor, QOverload<Number>::of(&SpinBox::valueChanged), link,
                     [link](Number number) { link->apply(number); });
    return editor;
}

QWidget* textEditor(Manager* manager, QtProperty* property, QWidget* parent) {
    auto* editor = new QLineEdit(parent);
    auto* validator = new QRegExpValidator(editor);
    auto* link = new EditorLink(manager, property, editor);
    link->showWith([=] {
        const QRegExp allowed = link->attribute(attribute::regExp).toRegExp();
        const bool anything = allowed == QRegExp("*", Qt::CaseSensitive, QRegExp::Wildcard);
        validator->setRegExp(allowed);
        editor->setValidator(anything ? nullptr : validator);
        editor->setEchoMode(static_cast<QLineEdit::EchoMode>(link->attribute(attribute::echoMode).toInt()));
        editor->setReadOnly(link->attribute(attribute::readOnly).toBool());
        // Setting the same text again would move the cursor.
        if (editor->text() != link->value().toString())
            editor->setText(link->value().toString());
    });
    QObject::connect(editor, &QLineEdit::textChanged, link, [=](const QString& text) {
        if (editor->hasAcceptableInput())
            link->apply(text);
    });
    return editor;
}

QWidget* dateEditor(Manager* manager, QtProperty* property, QWidget* parent) {
    auto* editor = new QDateEdit(parent);
    editor->setCalendarPopup(true);
    auto* link = new EditorLink(manager, property, editor);
    link->showWith([=] {
        editor->setDateRange(link->attribute(attribute::minimum).toDate(),
                             link->attribute(attribute::maximum).toDate());
        editor->setDate(link->value().toDate());
    });
    QObject::connect(editor, &QDateEdit::dateChanged, link, [link](QDate date) { link->apply(date); });
    return editor;
}

QWidget* timeEditor(Manager* manager, QtProperty* property, QWidget* parent) {
    auto* editor = new QTimeEdit(parent);
    auto* link = new EditorLink(manager, property, editor);
    link->showWith([=] { editor->setTime(link->value().toTime()); });
    QObject::connect(editor, &QTimeEdit::timeChanged, link, [link](QTime time) { link->apply(time); });
    return editor;
}

QWidget* dateTimeEditor(Manager* manager, QtProperty* property, QWidget* parent) {
    auto* editor = new QDateTimeEdit(parent);
    auto* link = new EditorLink(manager, property, editor);
    link->showWith([=] { editor->setDateTime(link->value().toDateTime()); });
    QObject::connect(editor, &QDateTimeEdit::dateTimeChanged, link,
                     [link](const QDateTime& moment) { link->apply(moment); });
    return editor;
}

QComboBox* listEditor(QWidget* parent) {
    auto* editor = new QComboBox(parent);
    // A long list of names must not make the cell wider.
    editor->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    editor->setMinimumContentsLength(1);
    return editor;
}

QWidget* enumEditor(Manager* manager, QtProperty* property, QWidget* parent) {
    QComboBox* editor = listEditor(parent);
    auto* link = new EditorLink(manager, property, editor);
    link->showWith([=] {
        const QStringList names = link->attribute(attribute::enumNames).toStringList();
        const auto icons = link->attribute(attribute::enumIcons).value<QtIconMap>();
        QStringList shown;
        for (int i = 0; i < editor->count(); ++i)
            shown.append(editor->itemText(i));
        if (shown != names) {
            editor->clear();
            editor->addItems(names);
        }
        for (int i = 0; i < names.size(); ++i)
            editor->setItemIcon(i, icons.value(i));
        editor->setCurrentIndex(link->value().toInt());
    });
    QObject::connect(editor, QOverload<int>::of(&QComboBox::currentIndexChanged), link,
                     [link](int index) { link->apply(index); });
    return editor;
}

QWidget* cursorEditor(Manager* manager, QtProperty* property, QWidget* parent) {
    QComboBox* editor = listEditor(parent);
    for (int i = 0; i < cursorShapeCount(); ++i)
        editor->addItem(cursorShapeIcon(i), cursorShapeName(i));
    auto* link = new EditorLink(manager, property, editor);
    link->showWith([=] { editor->setCurrentIndex(cursorShapeIndex(link->value().value<QCursor>().shape())); });
    QObject::connect(editor, QOverload<int>::of(&QComboBox::currentIndexChanged), link, [link](int index) {
        if (index >= 0)
            link->apply(QVariant::fromValue(QCursor(cursorShapeAt(index))));
    });
    return editor;
}

QWidget* truthEditor(Manager* manager, QtProperty* property, QWidget* parent) {
    auto* editor = new TruthEditor(parent);
    auto* link = new EditorLink(manager, property, editor);
    link->showWith([=] {
        editor->setTextVisible(link->attribute(attribute::textVisible).toBool());
        editor->setValue(link->value().toBool());
    });
    QObject::connect(editor, &TruthEditor::toggled, link, [link](bool value) { link->apply(value); });
    return editor;
}

// An editor class with value(), setValue() and valueChanged().
template <class Editor, class Value>
QWidget* valueEditor(Manager* manager, QtProperty* property, QWidget* parent) {
    auto* editor = new Editor(parent);
    auto* link = new EditorLink(manager, property, editor);
    link->showWith([=] { editor->setValue(link->value().value<Value>()); });
    QObject::connect(editor, &Editor::valueChanged, link,
                     [link](const Value& value) { link->apply(QVariant::fromValue(value)); });
    return editor;
}

using MakeEditor = QWidget* (*)(Manager*, QtProperty*, QWidget*);

MakeEditor editorOf(int type) {
    static const QMap<int, MakeEditor> editors = {
        {QVariant::Int,
         [](Manager* manager, QtProperty* property, QWidget* parent) -> QWidget* {
             return numberEditor<QSpinBox, int>(manager, property, parent);
         }},
        {QVariant::Double,
         [](Manager* manager, QtProperty* property, QWidget* parent) -> QWidget* {
             return numberEditor<QDoubleSpinBox, double>(manager, property, parent);
         }},
        {QVariant::Bool, truthEditor},
        {QVariant::String, textEditor},
        {QVariant::Date, dateEditor},
        {QVariant::Time, timeEditor},
        {QVariant::DateTime, dateTimeEditor},
        {QVariant::KeySequence, valueEditor<KeySequenceEditor, QKeySequence>},
        {QVariant::Char, valueEditor<CharEditor, QChar>},
        {QVariant::Color, valueEditor<ColorEditor, QColor>},
        {QVariant::Font, valueEditor<FontEditor, QFont>},
        {QVariant::Cursor, cursorEditor},
        {enumPropertyType(), enumEditor},
    };
    return editors.value(type);
}

}  // namespace

struct QtVariantEditorFactory::Private {
    QSet<QObject*> editors;
};

QtVariantEditorFactory::QtVariantEditorFactory(QObject* parent)
    : QtAbstractEditorFactory<QtVariantPropertyManager>(parent), d(std::make_unique<Private>()) {}

QtVariantEditorFactory::~QtVariantEditorFactory() {
    const QSet<QObject*> editors = std::exchange(d->editors, {});
    qDeleteAll(editors);
}

QWidget* QtVariantEditorFactory::createEditor(QtVariantPropertyManager* manager, QtProperty* property,
                                              QWidget* parent) {
    const MakeEditor make = editorOf(manager->propertyType(property));
    QWidget* editor = make ? make(manager, property, parent) : nullptr;
    if (editor) {
        d->editors.insert(editor);
        connect(editor, &QObject::destroyed, this, [this](QObject* gone) { d->editors.remove(gone); });
    }
    return editor;
}

// Each editor follows its manager by itself.
void QtVariantEditorFactory::connectPropertyManager(QtVariantPropertyManager*) {}

void QtVariantEditorFactory::disconnectPropertyManager(QtVariantPropertyManager*) {}
