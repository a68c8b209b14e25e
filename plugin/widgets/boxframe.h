// The box around a read-out.
#ifndef OSTREL_WIDGETS_BOXFRAME_H
#define OSTREL_WIDGETS_BOXFRAME_H

#include <QFrame>

// Draws a plain box as four filled bars. A frame of hundreds of read-outs is most of what their first picture costs
// when its lines are stroked one by one.
class Q_DECL_EXPORT BoxFrame : public QFrame {
    Q_OBJECT

public:
    using QFrame::QFrame;

protected:
    void paintEvent(QPaintEvent* event) override;
};

#endif
