// Editors that take the keys themselves: those of a shortcut, and one character. Their menu clears them.
#ifndef OSTREL_PROPERTYBROWSER_RECORDEREDITORS_H
#define OSTREL_PROPERTYBROWSER_RECORDEREDITORS_H

#include <QKeySequence>
#include <QLineEdit>

class RecorderEditor : public QLineEdit {
    Q_OBJECT

protected:
    RecorderEditor(const QString& clearText, QWidget* parent);
    virtual void record(const QKeyEvent& event) = 0;
    virtual void forget() = 0;

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    const QString m_clearText;
};

class KeySequenceEditor : public RecorderEditor {
    Q_OBJECT

public:
    explicit KeySequenceEditor(QWidget* parent);
    void setValue(const QKeySequence& keys);

Q_SIGNALS:
    void valueChanged(const QKeySequence& keys);

protected:
    void record(const QKeyEvent& event) override;
    void forget() override;

private:
    void change(const QKeySequence& keys);

    QKeySequence m_keys;
    int m_recorded = 0;  // keys since the editor opened; the first one starts anew
};

class CharEditor : public RecorderEditor {
    Q_OBJECT

public:
    explicit CharEditor(QWidget* parent);
    void setValue(QChar character);

Q_SIGNALS:
    void valueChanged(QChar character);

protected:
    void record(const QKeyEvent& event) override;
    void forget() override;

private:
    void change(QChar character);

    QChar m_character;
};

#endif
