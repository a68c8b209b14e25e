// A lamp.
#ifndef OSTREL_DISPLAY_QLED_H
#define OSTREL_DISPLAY_QLED_H

#include <QWidget>
#include <memory>

// Shows a truth as a lamp that shines in one colour and is dark in another. A shining lamp is full, bright in its
// middle and glows over its rim; a dark one is hollow: the two are apart in a grey picture and for an eye that does not
// tell their colours. The lamp is as large as the shorter side of the widget, in its middle; a disabled one is faint.
//
// The widget library knows this class by this header alone and calls ordinary members of a shared library, so a site
// may bring a class of its own with the same members. GUI thread only.
class Q_DECL_EXPORT QLed : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool value READ value WRITE setValue)
    Q_PROPERTY(ledColor onColor READ onColor WRITE setOnColor)
    Q_PROPERTY(ledColor offColor READ offColor WRITE setOffColor)
    Q_PROPERTY(ledShape shape READ shape WRITE setShape)

public:
    // Names and numbers stand in forms.
    enum ledColor : int { Red = 0, Green, Yellow, Grey, Orange, Purple, Blue };
    Q_ENUM(ledColor)
    // A triangle points up; the others of its kind are turned clockwise by so many degrees.
    enum ledShape : int { Circle = 0, Square, Triangle, Rounded, Triangle_90, Triangle_180, Triangle_270 };
    Q_ENUM(ledShape)

    explicit QLed(QWidget* parent = nullptr);
    ~QLed() override;

    // The value set last; false at first.
    bool value() const;
    // The colour while the value is true, at first Green.
    ledColor onColor() const;
    // The colour while the value is false, at first Red.
    ledColor offColor() const;
    // At first Circle.
    ledShape shape() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    // What is set already costs a comparison. A number that is no colour or no shape changes nothing.
    void setValue(bool value);
    void setOnColor(QLed::ledColor color);
    void setOffColor(QLed::ledColor color);
    void setShape(QLed::ledShape shape);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;

    // The widget library allocates the object: room for the state of a site's own class.
    void* m_reserved[32] = {};
};

#endif
