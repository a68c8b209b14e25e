// The place of the form in the window: scrolls where the window is too small for it.
#ifndef OSTREL_HOST_FORMAREA_H
#define OSTREL_HOST_FORMAREA_H

#include <QScrollArea>

class FrozenVeil;

class FormArea : public QScrollArea {
    Q_OBJECT

public:
    // Takes the form over.
    explicit FormArea(QWidget* form, QWidget* parent = nullptr);

    void setFrozen(bool frozen);

    // The size that the form was designed with, where its contents fit into that.
    QSize sizeHint() const override;

private:
    QSize m_designed;
    FrozenVeil* m_veil;
};

#endif
