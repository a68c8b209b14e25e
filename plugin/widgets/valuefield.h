// The field of a value: a line edit that paints itself fast.
#ifndef OSTREL_WIDGETS_VALUEFIELD_H
#define OSTREL_WIDGETS_VALUEFIELD_H

#include <QLineEdit>

// A read-out is repainted on every sample that brings a new value, and hundreds of them stand on one screen. So the
// field is opaque (nothing behind it is painted again), has a plain frame and draws its text without shaping, which
// digits do not need. A text that does not fit ends in an ellipsis: cut digits would read as another number.
class Q_DECL_EXPORT ValueField : public QLineEdit {
    Q_OBJECT

public:
    explicit ValueField(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void takeFont();

    QFont m_paintFont;
};

#endif
