// A round dial.
#ifndef OSTREL_DISPLAY_QTSVGDIALGAUGE_H
#define OSTREL_DISPLAY_QTSVGDIALGAUGE_H

#include <QColor>
#include <QString>
#include <QWidget>
#include <memory>

// A colour by its parts from 0.0 to 1.0.
struct color3 {
    double red;
    double green;
    double blue;
};

// A coloured piece along the scale, from one value of it to another; made by QtSvgDialGauge::makeArc().
struct arc {
    int visible;
    double start;
    double end;
    color3 color;
};

// Shows a value by a needle and as a number, on a scale that spans a part of a circle or all of it, with up to six
// coloured arcs at its rim. The dial is as large as the shorter side of the widget, in its middle. Face, scale and arcs
// are kept as pictures: a new value repaints the needle, and the number where its text changes.
//
// A value beyond the scale leaves the needle pinned a little beyond its end, and the number, which tells the value as
// it is, stands reversed with an arrow. A value that is no number or infinite is shown as "----" without a needle.
//
// The widget library knows this class by this header alone and calls ordinary members of a shared library, so a site
// may bring a class of its own with the same members. Numbers that are none are refused by every setter but setValue(),
// and what is set already costs a comparison. GUI thread only.
class Q_DECL_EXPORT QtSvgDialGauge : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString skin READ skin WRITE setSkin)
    Q_PROPERTY(double value READ value WRITE setValue)
    Q_PROPERTY(double minimum READ minimum WRITE setMinimum)
    Q_PROPERTY(double maximum READ maximum WRITE setMaximum)
    Q_PROPERTY(int precision READ precision WRITE setPrecision)
    Q_PROPERTY(double startAngle READ startAngle WRITE setStartAngle)
    Q_PROPERTY(double endAngle READ endAngle WRITE setEndAngle)
    Q_PROPERTY(int ticks READ ticks WRITE setTicks)
    Q_PROPERTY(bool smartTicks READ smartTicks WRITE setSmartTicks)
    Q_PROPERTY(QColor backColor READ getBackColor WRITE setBackColor)
    Q_PROPERTY(QColor borderColor READ getBorderColor WRITE setBorderColor)
    Q_PROPERTY(QColor textColor READ getTextColor WRITE setTextColor)
    Q_PROPERTY(QString label READ label WRITE setLabel)

public:
    using color3 = ::color3;
    using arc = ::arc;

    explicit QtSvgDialGauge(QWidget* parent = nullptr);
    ~QtSvgDialGauge() override;

    // The value set last, in the units of the scale, also where the dial cannot show it; at first 0.
    double value() const;

    // The ends of the scale, at first 0 and 100. It starts with the minimum, also with one above the maximum. A scale
    // with equal ends has no ticks, and its needle stands at the start.
    double minimum() const;
    double maximum() const;

    // Decimals of the scale's numbers, from 0 to 12, at first 0. The value has as many, or as many more as it takes to
    // tell a hundredth of the scale.
    int precision() const;

    // Where the scale starts and ends, in degrees clockwise from the top, at first -135 and 135. With the end below the
    // start it runs anticlockwise. It spans one turn at most.
    double startAngle() const;
    double endAngle() const;

    // Ticks with a number, from 0 to 101, the ends among them; at first 11. Numbers that would not fit beside each
    // other are left out. With smartTicks(), at first false, the dial puts about as many at round numbers instead.
    int ticks() const;
    bool smartTicks() const;

    // Where none is set, or an invalid one, a colour follows the palette; what is told is the colour shown.
    QColor getBackColor() const;
    QColor getBorderColor() const;
    QColor getTextColor() const;

    // "Speedometer1", flat; "Speedometer2", with a black rim; "Speedometer3", the one at first, with a polished rim.
    // Any other name is kept and looks as the one at first.
    QString skin() const;

    // The text on the face. Units in brackets behind a name stand in a line of their own. At first empty.
    QString label() const;

    // The arc of a limit: with `side` 0, of a low limit, from the lower end of the scale up to the limit, else from the
    // limit up to the upper end. It never leaves the scale: a limit beyond one end gives an arc of no length or one of
    // the whole scale. With `visible` 0, or a limit that is no number, nothing is drawn of it.
    arc makeArc(int visible, color3 color, int side, double limit);

    // Replaces all six arcs, low alarm, abort, emergency, high alarm, abort, emergency. Where they overlap the shorter
    // one is on top. Arcs that are the same as before cost a comparison.
    void setAllArcs(arc lowAlarm, arc lowAbort, arc lowEmergency, arc highAlarm, arc highAbort, arc highEmergency);

    // A note that the dial keeps for its owner; at first false. Once true it stays true.
    bool getInitFinished() const;
    void setInitFinished(bool finished);

    // From now on the dial shows no value, no numbers and no arcs but a pale face that says so; there is no way back.
    // Values and arcs are still taken and told.
    void set_remote();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void setValue(double value);
    void setMinimum(double minimum);
    void setMaximum(double maximum);
    void setPrecision(int precision);
    void setStartAngle(double angle);
    void setEndAngle(double angle);
    void setTicks(int ticks);
    void setSmartTicks(bool smart);
    void setBackColor(const QColor& color);
    void setBorderColor(const QColor& color);
    void setTextColor(const QColor& color);
    void setSkin(const QString& skin);
    void setLabel(QString label);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;

    // The widget library allocates the object: room for the state of a site's own class.
    void* m_reserved[32] = {};
};

#endif
