// The editors of the types: which there is for each, and what the operator does with it.
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFontDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>

#include "browserwindow.h"
#include "qttests.h"
#include "whenopened.h"

Q_DECLARE_METATYPE(QtProperty*)

namespace {

// The window with one property more, of that type, whose editor is open where there is one.
class Edited : public Window {
public:
    explicit Edited(int type, const QVariant& value = QVariant()) : property(manager->addProperty(type, "edited")) {
        browser->addProperty(property);
        property->setValue(value);
    }
    bool open() {
        if (!isReady())
            return false;
        browser->editItem(browser->topLevelItem(property));
        return true;
    }
    QWidget* any() const {
        for (QObject* child : tree()->viewport()->children())
            if (auto* widget = qobject_cast<QWidget*>(child))
                return widget;
        return nullptr;
    }

    QtVariantProperty* const property;
};

void press(const QDialog& dialog, QDialogButtonBox::StandardButton button) {
    QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
}

// Chooses the only entry of the widget's menu; its text.
QString chooseFromMenu(QWidget& widget) {
    QString text;
    whenOpened<QMenu>([&text](QMenu* menu) {
        QAction* action = menu->actions().value(0);
        if (action && menu->actions().size() == 1)
            text = action->text();
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(action).center());
    });
    const QPoint place = widget.rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &event);
    return text;
}

}  // namespace

class EditorsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<QtProperty*>(); }

    void eachTypeHasItsEditor_data();
    void eachTypeHasItsEditor();
    void typesWithoutAnEditor_data();
    void typesWithoutAnEditor();

    void aDateIsSteppedAtOnce();
    void aTimeIsSteppedAtOnce();
    void aMomentIsSteppedAtOnce();
    void anEnumIsChosen();
    void aCursorIsChosen();
    void keysAreRecordedAndCleared();
    void aCharacterIsRecordedAndCleared();
    void aFontIsChosenInADialog();
    void aFontDialogThatIsCancelledChangesNothing();
    void aColourIsChosenInADialog();
    void aColourDialogThatIsCancelledChangesNothing();
    void aSecretIsNotShown();
    void anOpenEditorBecomesReadOnly_data();
    void anOpenEditorBecomesReadOnly();
};

void EditorsTest::eachTypeHasItsEditor_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("editor");
    const auto row = [](const char* name, int type, const char* editor) {
        QTest::newRow(name) << type << QByteArray(editor);
    };
    row("integer", QVariant::Int, "QSpinBox");
    row("real", QVariant::Double, "QDoubleSpinBox");
    row("truth", QVariant::Bool, "QCheckBox");
    row("text", QVariant::String, "QLineEdit");
    row("date", QVariant::Date, "QDateEdit");
    row("time", QVariant::Time, "QTimeEdit");
    row("moment", QVariant::DateTime, "QDateTimeEdit");
    row("keys", QVariant::KeySequence, "QLineEdit");
    row("character", QVariant::Char, "QLineEdit");
    row("colour", QVariant::Color, "QToolButton");
    row("font", QVariant::Font, "QToolButton");
    row("cursor", QVariant::Cursor, "QComboBox");
    row("enum", QtVariantPropertyManager::enumTypeId(), "QComboBox");
}

void EditorsTest::eachTypeHasItsEditor() {
    QFETCH(int, type);
    QFETCH(QByteArray, editor);
    Edited window(type);
    QVERIFY(window.open());
    QWidget* shown = window.any();
    QVERIFY(shown);
    // The editor itself, or what it holds.
    QWidget* found = shown->inherits(editor) ? shown : nullptr;
    for (QWidget* inside : shown->findChildren<QWidget*>())
        if (!found && inside->inherits(editor))
            found = inside;
    QVERIFY(found);
    if (type == QVariant::Date)
        QVERIFY(static_cast<QDateEdit*>(found)->calendarPopup());
    if (type == QVariant::KeySequence || type == QVariant::Char)
        QVERIFY(static_cast<QLineEdit*>(found)->isReadOnly());
    if (editor == "QToolButton")
        QCOMPARE(static_cast<QToolButton*>(found)->text(), QString("..."));
    // It fills its cell, but for the line at the bottom.
    const QRect cell = window.tree()->visualItemRect(window.row("edited"));
    QCOMPARE(shown->geometry().left(), window.tree()->columnViewportPosition(1));
    QCOMPARE(shown->geometry().bottom(), cell.bottom() - 1);
}

void EditorsTest::typesWithoutAnEditor_data() {
    QTest::addColumn<int>("type");
    QTest::newRow("locale") << int{QVariant::Locale};
    QTest::newRow("point") << int{QVariant::Point};
    QTest::newRow("real point") << int{QVariant::PointF};
    QTest::newRow("size") << int{QVariant::Size};
    QTest::newRow("real size") << int{QVariant::SizeF};
    QTest::newRow("rectangle") << int{QVariant::Rect};
    QTest::newRow("real rectangle") << int{QVariant::RectF};
    QTest::newRow("size policy") << int{QVariant::SizePolicy};
    QTest::newRow("flag") << QtVariantPropertyManager::flagTypeId();
    QTest::newRow("group") << QtVariantPropertyManager::groupTypeId();
}

void EditorsTest::typesWithoutAnEditor() {
    QFETCH(int, type);
    Edited window(type);
    QVERIFY(window.open());
    QVERIFY(!window.any());
}

// ---- Steps and choices ----

void EditorsTest::aDateIsSteppedAtOnce() {
    Edited window(QVariant::Date, QDate(2020, 5, 17));
    QVERIFY(window.open());
    auto* editor = window.editor<QDateEdit>();
    QCOMPARE(editor->date(), QDate(2020, 5, 17));
    editor->setCurrentSection(QDateTimeEdit::YearSection);
    const QSignalSpy changes(window.manager, &QtVariantPropertyManager::valueChanged);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    QCOMPARE(window.property->value().toDate(), QDate(2021, 5, 17));
    QCOMPARE(changes.size(), 1);
    // What changes it from elsewhere is shown at once as well, and comes back from nowhere.
    window.property->setValue(QDate(2022, 1, 2));
    QCOMPARE(editor->date(), QDate(2022, 1, 2));
    window.property->setAttribute("minimum", QDate(2023, 1, 1));
    QCOMPARE(editor->minimumDate(), QDate(2023, 1, 1));
    QCOMPARE(editor->date(), QDate(2023, 1, 1));
    QCOMPARE(changes.size(), 3);
}

void EditorsTest::aTimeIsSteppedAtOnce() {
    Edited window(QVariant::Time, QTime(8, 30));
    QVERIFY(window.open());
    auto* editor = window.editor<QTimeEdit>();
    QCOMPARE(editor->time(), QTime(8, 30));
    editor->setCurrentSection(QDateTimeEdit::MinuteSection);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QCOMPARE(window.property->value().toTime(), QTime(8, 29));
    window.property->setValue(QTime(9, 0));
    QCOMPARE(editor->time(), QTime(9, 0));
}

void EditorsTest::aMomentIsSteppedAtOnce() {
    const QDateTime moment(QDate(2020, 5, 17), QTime(8, 30));
    Edited window(QVariant::DateTime, moment);
    QVERIFY(window.open());
    auto* editor = window.editor<QDateTimeEdit>();
    QCOMPARE(editor->dateTime(), moment);
    editor->setCurrentSection(QDateTimeEdit::DaySection);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    QCOMPARE(window.property->value().toDateTime(), moment.addDays(1));
    window.property->setValue(moment);
    QCOMPARE(editor->dateTime(), moment);
}

void EditorsTest::anEnumIsChosen() {
    Edited window(QtVariantPropertyManager::enumTypeId());
    window.property->setAttribute("enumNames", QStringList({"Low", "Middle", "High"}));
    QVERIFY(window.open());
    auto* editor = window.editor<QComboBox>();
    QCOMPARE(editor->count(), 3);
    QCOMPARE(editor->currentText(), QString("Low"));
    QTest::keyClick(editor, Qt::Key_Down);
    QCOMPARE(window.property->value().toInt(), 1);
    QCOMPARE(window.row("edited")->text(1), QString("Middle"));
    window.property->setAttribute("enumNames", QStringList({"On", "Off"}));
    QCOMPARE(editor->count(), 2);
    QCOMPARE(editor->currentText(), QString("On"));
}

void EditorsTest::aCursorIsChosen() {
    Edited window(QVariant::Cursor);
    QVERIFY(window.open());
    auto* editor = window.editor<QComboBox>();
    QCOMPARE(editor->count(), 19);
    QCOMPARE(editor->currentText(), QString("Arrow"));
    QCOMPARE(editor->itemText(17), QString("What's This"));
    QTest::keyClick(editor, Qt::Key_Down);
    QCOMPARE(window.property->value().value<QCursor>().shape(), Qt::UpArrowCursor);
    QCOMPARE(window.row("edited")->text(1), QString("Up Arrow"));
}

// ---- Recorders ----

void EditorsTest::keysAreRecordedAndCleared() {
    Edited window(QVariant::KeySequence);
    QVERIFY(window.open());
    auto* editor = window.editor<QLineEdit>();
    QTest::keyClick(editor, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(window.property->value().value<QKeySequence>(), QKeySequence("Ctrl+S"));
    QTest::keyClick(editor, Qt::Key_F5);
    QCOMPARE(window.property->value().value<QKeySequence>(), QKeySequence("Ctrl+S, F5"));
    QCOMPARE(editor->text(), QKeySequence("Ctrl+S, F5").toString(QKeySequence::NativeText));
    QCOMPARE(chooseFromMenu(*editor), QString("Clear Shortcut"));
    QVERIFY(window.property->value().value<QKeySequence>().isEmpty());
    QCOMPARE(editor->text(), QString());
    // These steer the view.
    QTest::keyClick(editor, Qt::Key_Escape);
    QTRY_VERIFY(!window.editor<QLineEdit>());
    QVERIFY(window.property->value().value<QKeySequence>().isEmpty());
}

void EditorsTest::aCharacterIsRecordedAndCleared() {
    Edited window(QVariant::Char);
    QVERIFY(window.open());
    auto* editor = window.editor<QLineEdit>();
    QTest::keyClicks(editor, "ab");
    QCOMPARE(window.property->value().toChar(), QChar('b'));
    QCOMPARE(editor->text(), QString("b"));
    QTest::keyClick(editor, Qt::Key_F5);
    QCOMPARE(window.property->value().toChar(), QChar('b'));
    QCOMPARE(chooseFromMenu(*editor), QString("Clear Char"));
    QVERIFY(window.property->value().toChar().isNull());
    QCOMPARE(editor->text(), QString());
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_VERIFY(!window.editor<QLineEdit>());
}

// ---- Dialogs ----

void EditorsTest::aFontIsChosenInADialog() {
    QFont font("Nice", 11);
    font.setUnderline(true);
    Edited window(QVariant::Font, font);
    QVERIFY(window.open());
    const QPointer<QWidget> editor = window.any();
    int told = 0;
    connect(window.manager, &QtVariantPropertyManager::valueChanged, &window,
            [&](const QtProperty* changed) { told += changed == window.property; });
    QString title;
    QFont start;
    whenOpened<QFontDialog>([&](QFontDialog* dialog) {
        title = dialog->windowTitle();
        start = dialog->currentFont();
        QFont chosen = start;
        chosen.setPointSize(18);
        dialog->setCurrentFont(chosen);
        press(*dialog, QDialogButtonBox::Ok);
    });
    QTest::mouseClick(window.editor<QToolButton>(), Qt::LeftButton);
    QCOMPARE(title, QString("Select Font"));
    QCOMPARE(start.pointSize(), 11);
    QVERIFY(start.underline());
    const auto now = window.property->value().value<QFont>();
    QCOMPARE(now.pointSize(), 18);
    // What was not changed in the dialog stays.
    QVERIFY(now.underline());
    QCOMPARE(told, 1);
    QCOMPARE(window.row("edited")->text(1), window.property->valueText());
    QVERIFY(editor);
}

void EditorsTest::aFontDialogThatIsCancelledChangesNothing() {
    Edited window(QVariant::Font, QFont("Nice", 11));
    QVERIFY(window.open());
    const QSignalSpy changes(window.manager, &QtVariantPropertyManager::valueChanged);
    whenOpened<QFontDialog>([](QFontDialog* dialog) {
        dialog->setCurrentFont(QFont("Nice", 18));
        press(*dialog, QDialogButtonBox::Cancel);
    });
    QTest::mouseClick(window.editor<QToolButton>(), Qt::LeftButton);
    QVERIFY(changes.isEmpty());
    QCOMPARE(window.property->value().value<QFont>(), QFont("Nice", 11));
}

void EditorsTest::aColourIsChosenInADialog() {
    Edited window(QVariant::Color, QColor(10, 20, 30));
    QVERIFY(window.open());
    const QPointer<QWidget> editor = window.any();
    QColor start;
    bool hasAlpha = false;
    whenOpened<QColorDialog>([&](QColorDialog* dialog) {
        start = dialog->currentColor();
        hasAlpha = dialog->testOption(QColorDialog::ShowAlphaChannel);
        dialog->setCurrentColor(QColor(1, 2, 3, 4));
        press(*dialog, QDialogButtonBox::Ok);
    });
    QTest::mouseClick(window.editor<QToolButton>(), Qt::LeftButton);
    QCOMPARE(start, QColor(10, 20, 30));
    QVERIFY(hasAlpha);
    QCOMPARE(window.property->value().value<QColor>(), QColor(1, 2, 3, 4));
    QCOMPARE(window.row("edited")->text(1), QString("[1, 2, 3] (4)"));
    QVERIFY(editor);
}

void EditorsTest::aColourDialogThatIsCancelledChangesNothing() {
    Edited window(QVariant::Color, QColor(10, 20, 30));
    QVERIFY(window.open());
    const QPointer<QWidget> editor = window.any();
    const QSignalSpy changes(window.manager, &QtVariantPropertyManager::valueChanged);
    whenOpened<QColorDialog>([](QColorDialog* dialog) {
        dialog->setCurrentColor(Qt::red);
        press(*dialog, QDialogButtonBox::Cancel);
    });
    QTest::mouseClick(window.editor<QToolButton>(), Qt::LeftButton);
    QVERIFY(changes.isEmpty());
    QCOMPARE(window.property->value().value<QColor>(), QColor(10, 20, 30));
    QVERIFY(editor);
}

// ---- Attributes ----

void EditorsTest::aSecretIsNotShown() {
    Edited window(QVariant::String, "oil");
    QCOMPARE(window.row("edited")->text(1), QString("oil"));
    window.property->setAttribute("echoMode", int{QLineEdit::Password});
    const QString masked = window.row("edited")->text(1);
    QCOMPARE(masked.size(), 3);
    for (const QChar letter : QString("oil"))
        QVERIFY(!masked.contains(letter));
    QCOMPARE(window.property->value().toString(), QString("oil"));
    QVERIFY(window.open());
    auto* editor = window.editor<QLineEdit>();
    QCOMPARE(editor->echoMode(), QLineEdit::Password);
    QCOMPARE(editor->displayText(), masked);
    window.property->setAttribute("echoMode", int{QLineEdit::NoEcho});
    QCOMPARE(editor->echoMode(), QLineEdit::NoEcho);
    QCOMPARE(window.row("edited")->text(1), QString());
    window.property->setAttribute("echoMode", int{QLineEdit::Normal});
    QCOMPARE(editor->echoMode(), QLineEdit::Normal);
    QCOMPARE(window.row("edited")->text(1), QString("oil"));
}

void EditorsTest::anOpenEditorBecomesReadOnly_data() {
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("other");
    QTest::newRow("text") << QVariant("oil") << QVariant("air");
    QTest::newRow("integer") << QVariant(5) << QVariant(6);
    QTest::newRow("real") << QVariant(5.5) << QVariant(6.5);
}

void EditorsTest::anOpenEditorBecomesReadOnly() {
    QFETCH(QVariant, value);
    QFETCH(QVariant, other);
    Edited window(static_cast<int>(value.type()), value);
    QVERIFY(window.open());
    QWidget* editor = window.any();
    const auto isReadOnly = [editor] { return editor->property("readOnly").toBool(); };
    QVERIFY(!isReadOnly());
    window.property->setAttribute("readOnly", true);
    QVERIFY(isReadOnly());
    QTest::keyClicks(QApplication::focusWidget(), "7");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    QCOMPARE(window.property->value(), value);
    // It holds for the operator alone.
    window.property->setValue(other);
    QCOMPARE(window.property->value(), other);
    QCOMPARE(editor->property(value.type() == QVariant::String ? "text" : "value"), other);
    window.property->setAttribute("readOnly", false);
    QVERIFY(!isReadOnly());
}

OSTREL_TEST(EditorsTest)
#include "editors_test.moc"
