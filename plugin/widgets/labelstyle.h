// The style of labels whose text follows the palette, whatever the application's style or style sheet says.
#ifndef OSTREL_WIDGETS_LABELSTYLE_H
#define OSTREL_WIDGETS_LABELSTYLE_H

#include <QCommonStyle>

class Q_DECL_EXPORT LabelStyle : public QCommonStyle {
    Q_OBJECT

public:
    // Paints in the palette's text colour; `textRole` is ignored, so that limit colours and blinking work through that
    // one role. A disabled label is black and not grey: a read-out stays legible.
    void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& pal, bool enabled,
                      const QString& text, QPalette::ColorRole textRole = QPalette::NoRole) const override;

protected:
    static QColor textColour(const QPalette& pal, bool enabled);
};

#endif
