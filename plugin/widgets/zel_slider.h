// A number as a bar along a scale, its name above.
#ifndef OSTREL_WIDGETS_ZEL_SLIDER_H
#define OSTREL_WIDGETS_ZEL_SLIDER_H

#include <memory>

#include "core/ostrelbase.h"

class NotFoundMark;
class QSpacerItem;
namespace Ui {
class ZelSlider;
}

// Shows a real or an integer variable, whatever its name says: nobody can move it. The scale is in the variable's own
// units. A value beyond the scale stands at its end.
class Q_DECL_EXPORT ZelSlider : public OstrelBase {
    Q_OBJECT
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QFont NameFont READ getNameFont WRITE setNameFont)
    Q_PROPERTY(int sampleRate READ getSampleRate WRITE setSampleRate)
    Q_PROPERTY(double Minimum READ getMinimum WRITE setMinimum)
    Q_PROPERTY(double Maximum READ getMaximum WRITE setMaximum)
    Q_PROPERTY(int MajorTicks READ getMajorTicks WRITE setMajorTicks)
    Q_PROPERTY(int MinorTicks READ getMinorTicks WRITE setMinorTicks)
    Q_PROPERTY(bool DisplayAlias READ displayAlias WRITE setDisplayAlias)
    Q_PROPERTY(Qt::Orientation Orientation READ getOrientation WRITE setOrientation)
    Q_PROPERTY(QColor BarColor READ getBarColor WRITE setBarColor)
    Q_PROPERTY(int Precision READ getPrecision WRITE setPrecision)
    Q_PROPERTY(QString toolTip READ getToolTip WRITE setToolTipString)
    Q_PROPERTY(int leftSpacerWidth READ getLeftSpacerWidth WRITE setLeftSpacerWidth)
    Q_PROPERTY(int rightSpacerWidth READ getRightSpacerWidth WRITE setRightSpacerWidth)

public:
    explicit ZelSlider(QWidget* parent = nullptr);
    ~ZelSlider() override;

    bool eventFilter(QObject* obj, QEvent* event) override;
    void setName(const QString& name) override;

    // The font of a new widget: forms that were saved so rely on it. setNameFont() changes the label alone.
    QFont getNameFont() const { return m_nameFont; }
    void setNameFont(const QFont& font);

    // The scale: see Slider.
    double getMinimum() const;
    void setMinimum(double minimum);
    double getMaximum() const;
    void setMaximum(double maximum);
    int getMajorTicks() const;
    void setMajorTicks(int ticks);
    int getMinorTicks() const;
    void setMinorTicks(int ticks);
    Qt::Orientation getOrientation() const;
    void setOrientation(Qt::Orientation orientation);
    QColor getBarColor() const;
    void setBarColor(const QColor& color);
    int getPrecision() const;
    void setPrecision(int precision);

    QString getToolTip() const;
    void setToolTipString(const QString& toolTip);

    // The room beside the bar, in pixels: at most half of the greatest width that the slider has had, less 25.
    int getLeftSpacerWidth() const { return LspacerWidth; }
    void setLeftSpacerWidth(int width);
    int getRightSpacerWidth() const { return RspacerWidth; }
    void setRightSpacerWidth(int width);

    int getSliderMinimumWidth() const { return sliderMinWidth; }
    void setSliderMinimumWidth(int width);
    int getLabelMaximumWidth() const { return labelMaxWidth; }
    void setLabelMaximumWidth(int width);

public Q_SLOTS:
    void ostrelTimerEvent(int interval) override;

private Q_SLOTS:
    void sample(bool startup);
    void sample();

private:
    VariableAcceptance isValidVarType(const QString& name) const;
    VAR_FIND_STATUS rebind(VAR_FIND_STATUS status);
    void showNothing();
    template <class Record, class Value>
    void sampleRecord(Record* record, Value* last, short (*convert)(Value*, Record*, char*));
    double clamped(double value) const;
    void scaleChanged(const char* property, const QVariant& value);
    int allowedSpacer(int width);
    void placeSpacer(QSpacerItem* spacer, int width);

    std::unique_ptr<Ui::ZelSlider> ui;
    int RspacerWidth = 5;
    int LspacerWidth = 5;
    int sliderMinWidth = 70;
    int labelMaxWidth = 50;
    int maxslidersize = 0;  // the greatest width that the slider has had, and one
    QFont m_nameFont;
    std::unique_ptr<NotFoundMark> m_mark;
};

#endif
