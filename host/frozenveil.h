// The veil over values that are no longer fresh: a hatching that lets them be read but never be taken for good ones.
#ifndef OSTREL_HOST_FROZENVEIL_H
#define OSTREL_HOST_FROZENVEIL_H

#include <QWidget>

// Covers its parent and stays on top of it; lets mouse and keys through. While hidden it costs nothing.
class FrozenVeil : public QWidget {
    Q_OBJECT

public:
    explicit FrozenVeil(QWidget* covered);

    void setFrozen(bool frozen);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

#endif
