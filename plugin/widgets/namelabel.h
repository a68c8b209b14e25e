// The label of a name above a value field.
#ifndef OSTREL_WIDGETS_NAMELABEL_H
#define OSTREL_WIDGETS_NAMELABEL_H

#include <QLabel>

#include "widgets/legibletext.h"

// A plain label, but for a name that does not fit: that loses its middle, and is told in the tool tip.
class Q_DECL_EXPORT NameLabel : public QLabel {
    Q_OBJECT

public:
    explicit NameLabel(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    LegibleText m_text;
};

#endif
