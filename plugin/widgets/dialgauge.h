// A number on a round dial, with an arc for each of its limits.
#ifndef OSTREL_WIDGETS_DIALGAUGE_H
#define OSTREL_WIDGETS_DIALGAUGE_H

#include <QPoint>
#include <memory>

#include "core/ostrelbase.h"

class NotFoundMark;
namespace Ui {
class dialgauge;
}

// Shows a real or an integer variable, and only reads it. The limits are read at every sample, so that an arc moves
// with its limit. Scale and looks are those of the dial.
class Q_DECL_EXPORT ZelDialGauge : public OstrelBase {
    Q_OBJECT
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(bool unitsVis READ getUnitsVis WRITE setUnitsVis)
    Q_PROPERTY(bool smartTicks READ smartTicks WRITE setSmartTicks)
    Q_PROPERTY(int sampleRate READ getSampleRate WRITE setSampleRate)
    Q_PROPERTY(double minimum READ minimum WRITE setMinimum)
    Q_PROPERTY(double maximum READ maximum WRITE setMaximum)
    Q_PROPERTY(int precision READ precision WRITE setPrecision)
    Q_PROPERTY(double startAngle READ startAngle WRITE setStartAngle)
    Q_PROPERTY(double endAngle READ endAngle WRITE setEndAngle)
    Q_PROPERTY(int ticks READ ticks WRITE setTicks)
    Q_PROPERTY(QColor backColor READ getBackColor WRITE setBackColor)
    Q_PROPERTY(QColor borderColor READ getBorderColor WRITE setBorderColor)
    Q_PROPERTY(QColor textColor READ getTextColor WRITE setTextColor)
    Q_PROPERTY(bool displayAlias READ displayAlias WRITE setDisplayAlias)
    Q_PROPERTY(QString units READ getUnits WRITE setUnits)
    Q_PROPERTY(QString toolTip READ getToolTip WRITE setToolTipString)

public:
    explicit ZelDialGauge(QWidget* parent = nullptr);
    ~ZelDialGauge() override;

    void setName(const QString& name) override;

    // The units behind the name on the face. A bound dial shows them, or not, from the next new value on.
    void setUnitsVis(bool visible);

    // The dial's own: see QtSvgDialGauge.
    bool smartTicks() const;
    void setSmartTicks(bool smart);
    double minimum() const;
    void setMinimum(double minimum);
    double maximum() const;
    void setMaximum(double maximum);
    int precision() const;
    void setPrecision(int precision);
    double startAngle() const;
    void setStartAngle(double angle);
    double endAngle() const;
    void setEndAngle(double angle);
    int ticks() const;
    void setTicks(int ticks);
    QColor getBackColor() const;
    void setBackColor(const QColor& color);
    QColor getBorderColor() const;
    void setBorderColor(const QColor& color);
    QColor getTextColor() const;
    void setTextColor(const QColor& color);
    QString skin() const;
    // Not kept in the form.
    void setSkin(const QString& skin);
    // Where the pointer stands.
    double getValue() const;

    QString getToolTip() const;
    void setToolTipString(const QString& toolTip);

    // The widget's parts; they belong to it.
    Ui::dialgauge* getDial() const { return ui.get(); }

public Q_SLOTS:
    void ostrelTimerEvent(int interval) override;
    // A closed dial is sampled no more.
    void closeEvent(QCloseEvent* event) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private Q_SLOTS:
    void dialgauge_customContextMenuRequested(QPoint position);
    void sample(bool startup);
    void sample();

private:
    VariableAcceptance isValidVarType(const QString& name) const;
    VAR_FIND_STATUS rebind(VAR_FIND_STATUS status, const QString& nameUsed);
    bool asksForUnits() const;
    void setLabelUnits(const QString& label, const QString& units);
    template <class Record, class Value>
    void sampleRecord(const Record& record, Value* last);
    template <class Record, class Value>
    void showValue(const Record& record, Value value);
    void updateArcs(const char (&recordUnits)[16]);
    void convert_limit_values(const char (&recordUnits)[16]);

    bool unitsVisDirty = false;  // the label is to be set with the next new value
    double new_limit_array[7] = {};
    std::unique_ptr<Ui::dialgauge> ui;
    QString tooltip;  // the value as text
    std::unique_ptr<NotFoundMark> m_mark;
};

#endif
