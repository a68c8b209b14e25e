// A bar along a scale.
#ifndef OSTREL_DISPLAY_SLIDER_H
#define OSTREL_DISPLAY_SLIDER_H

#include <QColor>
#include <QString>
#include <QWidget>
#include <memory>

// Shows a value by the length of a bar; nobody can move it. The bar starts at the lower end of the scale, so a value
// there leaves it empty. A value beyond the scale leaves the bar at that end with an arrow, and one that is no number
// or infinite is shown as "----" without a bar.
//
// Whoever holds a slider writes the values below in place and then calls update(), after a change of the scale (all but
// Value and BarColor) render() first. As properties they are written with both done.
//
// The widget library knows this class by this header alone, so a site may bring a class of its own with the same
// members. GUI thread only.
class Q_DECL_EXPORT Slider : public QWidget {
    Q_OBJECT
    Q_PROPERTY(double Minimum MEMBER Minimum WRITE setMinimum)
    Q_PROPERTY(double Maximum MEMBER Maximum WRITE setMaximum)
    Q_PROPERTY(double Value MEMBER Value WRITE setValue)
    Q_PROPERTY(int MajorTicks MEMBER MajorTicks WRITE setMajorTicks)
    Q_PROPERTY(int MinorTicks MEMBER MinorTicks WRITE setMinorTicks)
    Q_PROPERTY(int Precision MEMBER Precision WRITE setPrecision)
    Q_PROPERTY(Qt::Orientation Orientation MEMBER Orientation WRITE setOrientation)
    Q_PROPERTY(QColor BarColor MEMBER BarColor WRITE setBarColor)
    Q_PROPERTY(QString Label READ label WRITE setLabel)
    Q_PROPERTY(bool LabelVisible READ isLabelVisible WRITE setLabelVisible)

public:
    // The ends of the scale. It starts on the left or below with the minimum, also with one above the maximum, where
    // the bar then grows from the right or from above. A scale with equal ends has no ticks and no bar.
    double Minimum = 0.0;
    double Maximum = 100.0;
    double Value = 0.0;

    // Ticks with a number, the ends among them, and ticks between each two of those. Numbers that would not fit beside
    // each other are left out, and so is one that its decimals would make another than the tick's value.
    int MajorTicks = 6;
    int MinorTicks = 4;

    // Decimals of the numbers.
    int Precision = 0;

    Qt::Orientation Orientation = Qt::Horizontal;
    QColor BarColor = QColor(47, 127, 208);

    explicit Slider(QWidget* parent = nullptr);
    ~Slider() override;

    // Rebuilds the picture of the scale from the values above; update() then shows it.
    void render();
    using QWidget::render;

    // From now on the slider shows neither value nor numbers but an empty pale scale that says so; there is no way
    // back.
    void set_remote();

    // A text over the bar, where it is visible; at first it is empty and is not. Whoever names the slider elsewhere
    // leaves it so: a form may hold a label that only its designer was to see.
    QString label() const;
    void setLabel(const QString& label);
    bool isLabelVisible() const;
    void setLabelVisible(bool visible);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void setMinimum(double minimum);
    void setMaximum(double maximum);
    void setValue(double value);
    void setMajorTicks(int ticks);
    void setMinorTicks(int ticks);
    void setPrecision(int precision);
    void setOrientation(Qt::Orientation orientation);
    void setBarColor(const QColor& color);

    struct Private;
    std::unique_ptr<Private> d;

    // The widget library allocates the object: room for the state of a site's own class.
    void* m_reserved[32] = {};
};

#endif
