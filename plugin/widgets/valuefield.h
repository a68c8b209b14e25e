// The field of a value: a line edit that paints itself fast.
#ifndef OSTREL_WIDGETS_VALUEFIELD_H
#define OSTREL_WIDGETS_VALUEFIELD_H

#include <QLineEdit>

#include "widgets/legibletext.h"

// A read-out is repainted on every sample that brings a new value, and hundreds of them stand on one screen. So the
// field is opaque (nothing behind it is painted again), has a plain frame and draws its text without shaping, which
// digits do not need.
class Q_DECL_EXPORT ValueField : public QLineEdit {
    Q_OBJECT

public:
    explicit ValueField(QWidget* parent = nullptr);

    // The colour of the text whatever palette and style sheets say, until it is told again. Where the value asks for
    // none, the text has the colour that a style sheet gave to the field, else the palette's.
    void setStatusColour(const StatusColour& status);
    // As setPalette(), for the value's own use: its text colour is none that a style sheet wants.
    void setToldPalette(const QPalette& palette);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void takeFont();
    void takePalette();
    QColor textColour() const;

    QFont m_paintFont;
    LegibleText m_text;
    StatusColour m_status;
    // The palette's text colour as the value wanted it last, as it was without a style sheet, and as one wants it,
    // which is invalid where none does.
    QColor m_told;
    QColor m_plain;
    QColor m_sheet;
    bool m_isTelling = false;
};

#endif
