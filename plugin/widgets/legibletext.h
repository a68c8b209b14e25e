// A text that cannot be read wrong: drawn whole or visibly not, and in a colour that its field does not swallow.
//
// For every widget that paints a variable's value; GUI thread only:
//
//     LegibleText m_text;                                                       // a member, one per text
//
//     painter.setPen(colour);                                                   // in paintEvent()
//     m_text.draw(painter, room, flags, text, plateFor(colour, fieldBehind(*this)));
//
//     if (event->type() == QEvent::ToolTip && m_text.showToolTip(*this, help))   // in event()
//         return true;
//
// All of it is painting: the widget's text, palette, tool tip and sizes stay what they are.
#ifndef OSTREL_WIDGETS_LEGIBLETEXT_H
#define OSTREL_WIDGETS_LEGIBLETEXT_H

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QSize>
#include <QString>
#include <memory>

class QHelpEvent;
class QPainter;
class QRect;
class QWidget;

// ---- Colours ----

// The contrast of two colours, from 1 for the same to 21 for black on white (WCAG 2, by relative luminance).
double contrast(const QColor& one, const QColor& other);

// The plate to draw behind a text where its colour cannot be read on `field` (a contrast below 3): dark or light,
// whichever shows it better. Invalid where there is no need of one, or one of the colours is invalid.
QColor plateFor(const QColor& text, const QColor& field);

// What stands behind a widget's text: the background of the nearest that paints one, of the widget and those around it.
// A gradient counts as its middle colour; a picture is not looked at.
QColor fieldBehind(const QWidget& widget);
// The same where the widget itself paints `background` first.
QColor fieldOn(const QBrush& background, const QWidget& widget);

// The colour that a value asks for, which wins over every style sheet.
struct StatusColour {
    QColor colour;          // invalid where the value asks for none: its palette or a style sheet decides
    bool isHiding = false;  // the dark phase of blinking, whose text stays unseen and gets no plate

    bool operator==(const StatusColour& other) const { return colour == other.colour && isHiding == other.isHiding; }
};

// What a value asks for when `widget` was told `colour` for it: nothing with the widget's own text colour. The dark
// phase of blinking is told by the colour of the widget's parent, in the `secondHalf` of a blink only.
StatusColour statusColour(const QWidget& widget, const QColor& colour, bool secondHalf);

// ---- Text ----

// Whether a part of the text would be another number: it is one itself, decimal or hexadecimal, also with sign,
// exponent and units ("1.5E+07", "-24[RPM]", "3 bar", "FF3A", "12:30").
bool isNumber(const QString& text);

class LegibleText {
public:
    // What becomes of a text that does not fit.
    enum class Kind {
        Value,  // a number gets smaller, down to two thirds of its size, and then a row of "#"; all else loses its end,
                // and a number at that end with it
        Words,  // loses its end
        Name    // loses its middle, where breaking it into lines does not help; smaller where it is too high
    };

    void setKind(Kind kind);
    Kind kind() const { return m_kind; }

    // Draws with the painter's font and pen. `flags` are those of QPainter::drawText(). `isPart` tells that the text is
    // the beginning of a longer one: then a number is not shown.
    void draw(QPainter& painter, const QRect& room, int flags, const QString& text, const QColor& plate,
              bool isPart = false);
    // Where the last drawing had to leave something out: shows all of the text, above the tool tip that stands there
    // otherwise. False where it had not, and nothing was done.
    bool showToolTip(QWidget& widget, const QHelpEvent& event) const;

private:
    enum class Fit { AsItIs, Smaller, Cut };

    struct Advances;

    // Shared by all texts of a font.
    static std::shared_ptr<Advances> advancesOf(const QFont& font);
    void takeFont(const QFont& font);
    // A quick and safe guess.
    bool surelyFits(const QString& text, int width) const;
    Fit fit(const QSize& room, int flags, const QString& text, bool isPart);
    Fit fitName(const QSize& room, const QString& text);
    Fit fitNumber(const QSize& room, int flags, const QString& text, int needed);
    Fit fillWithSigns(const QSize& room);

    Kind m_kind = Kind::Value;
    // The last drawing, which the next is mostly like.
    QFont m_font;
    QString m_text;
    QSize m_room;
    int m_flags = -1;
    bool m_isPart = false;
    Fit m_fit = Fit::AsItIs;
    // What was drawn where it did not fit as it is.
    QFont m_shownFont;
    QString m_shown;
    std::shared_ptr<Advances> m_advances;
};

#endif
