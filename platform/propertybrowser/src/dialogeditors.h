// Editors of values that are chosen in a dialog: a picture and a text of the value, and a button that opens the dialog.
#ifndef OSTREL_PROPERTYBROWSER_DIALOGEDITORS_H
#define OSTREL_PROPERTYBROWSER_DIALOGEDITORS_H

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QWidget>

class QLabel;

class DialogEditor : public QWidget {
    Q_OBJECT

public:
    explicit DialogEditor(QWidget* parent);

protected:
    virtual void choose() = 0;
    void show(const QIcon& icon, const QString& text);

private:
    QLabel* const m_icon;
    QLabel* const m_text;
};

class ColorEditor : public DialogEditor {
    Q_OBJECT

public:
    using DialogEditor::DialogEditor;
    void setValue(const QColor& color);

Q_SIGNALS:
    void valueChanged(const QColor& color);

protected:
    void choose() override;

private:
    QColor m_color;
};

class FontEditor : public DialogEditor {
    Q_OBJECT

public:
    using DialogEditor::DialogEditor;
    void setValue(const QFont& font);

Q_SIGNALS:
    void valueChanged(const QFont& font);

protected:
    void choose() override;

private:
    QFont m_font;
};

#endif
