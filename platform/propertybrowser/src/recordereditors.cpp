#include "recordereditors.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

namespace {

constexpr int mostKeys = 4;

bool isModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_AltGr ||
           key == Qt::Key_Meta || key == Qt::Key_unknown || key == 0;
}

// Shift that is needed to type a sign at all is no part of the shortcut.
int withModifiers(const QKeyEvent& event) {
    Qt::KeyboardModifiers modifiers =
        event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const QChar sign = event.text().isEmpty() ? QChar() : event.text().at(0);
    if (sign.isPrint() && !sign.isLetterOrNumber() && !sign.isSpace())
        modifiers &= ~Qt::KeyboardModifiers(Qt::ShiftModifier);
    return event.key() | static_cast<int>(modifiers);
}

}  // namespace

RecorderEditor::RecorderEditor(const QString& clearText, QWidget* parent) : QLineEdit(parent), m_clearText(clearText) {
    setReadOnly(true);
}

// Keys that are shortcuts of the window are recorded like others.
bool RecorderEditor::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void RecorderEditor::keyPressEvent(QKeyEvent* event) {
    event->accept();
    if (!isModifier(event->key()))
        record(*event);
}

void RecorderEditor::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    connect(menu.addAction(m_clearText), &QAction::triggered, this, [this] { forget(); });
    menu.exec(event->globalPos());
}

KeySequenceEditor::KeySequenceEditor(QWidget* parent) : RecorderEditor(tr("Clear Shortcut"), parent) {}

void KeySequenceEditor::setValue(const QKeySequence& keys) {
    m_keys = keys;
    setText(keys.toString(QKeySequence::NativeText));
}

void KeySequenceEditor::record(const QKeyEvent& event) {
    if (m_recorded == mostKeys)
        m_recorded = 0;
    int keys[mostKeys] = {};
    for (int i = 0; i < m_recorded; ++i)
        keys[i] = m_keys[static_cast<uint>(i)];
    keys[m_recorded++] = withModifiers(event);
    change(QKeySequence(keys[0], keys[1], keys[2], keys[3]));
}

void KeySequenceEditor::forget() {
    m_recorded = 0;
    change(QKeySequence());
}

void KeySequenceEditor::change(const QKeySequence& keys) {
    if (keys == m_keys)
        return;
    setValue(keys);
    Q_EMIT valueChanged(keys);
}

CharEditor::CharEditor(QWidget* parent) : RecorderEditor(tr("Clear Char"), parent) {}

void CharEditor::setValue(QChar character) {
    m_character = character;
    setText(character.isNull() ? QString() : QString(character));
}

void CharEditor::record(const QKeyEvent& event) {
    if (event.text().size() == 1 && event.text().at(0).isPrint())
        change(event.text().at(0));
}

void CharEditor::forget() {
    change(QChar());
}

void CharEditor::change(QChar character) {
    if (character == m_character)
        return;
    setValue(character);
    Q_EMIT valueChanged(character);
}
