// The editor of a truth value: a check box that can be hit anywhere in the cell.
#ifndef OSTREL_PROPERTYBROWSER_TRUTHEDITOR_H
#define OSTREL_PROPERTYBROWSER_TRUTHEDITOR_H

#include <QWidget>

class QCheckBox;

class TruthEditor : public QWidget {
    Q_OBJECT

public:
    explicit TruthEditor(QWidget* parent);

    void setValue(bool value);
    void setTextVisible(bool visible);

Q_SIGNALS:
    void toggled(bool value);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void showText();

    QCheckBox* const m_box;
    bool m_textVisible = true;
};

#endif
