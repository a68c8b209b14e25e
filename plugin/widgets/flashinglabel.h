// The label of the value widgets.
#ifndef OSTREL_WIDGETS_FLASHINGLABEL_H
#define OSTREL_WIDGETS_FLASHINGLABEL_H

#include <QLabel>
#include <QPalette>

#include "labelstyle.h"
#include "legibletext.h"

class Q_DECL_EXPORT FlashingLabel : public QLabel {
    Q_OBJECT

public:
    explicit FlashingLabel(QWidget* parent = nullptr);
    ~FlashingLabel() override;

    // What becomes of a text that does not fit; a new label shows a value. Only a value gets a plate behind colours
    // that cannot be read.
    void setTextKind(LegibleText::Kind kind);
    // The colour of the text whatever palette and style sheets say, until it is told again.
    void setStatusColour(const StatusColour& status);

protected:
    bool event(QEvent* event) override;

private:
    class Style;

    void drawText(QPainter& painter, const QRect& rect, int flags, const QColor& colour, const QString& text);

    LabelStyle* myStyle;  // owned
    QPalette myPalette;
    LegibleText m_text;
    StatusColour m_status;
};

#endif
