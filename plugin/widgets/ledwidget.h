// A logical variable as a lamp, its name above and its state below.
#ifndef OSTREL_WIDGETS_LEDWIDGET_H
#define OSTREL_WIDGETS_LEDWIDGET_H

#include <QPoint>
#include <memory>

#include "core/ostrelbase.h"

class NotFoundMark;
namespace Ui {
class ZelLed;
}

// It only reads. Its colours are the form's: no alarm changes them.
class Q_DECL_EXPORT ZelLed : public OstrelBase {
    Q_OBJECT
    Q_PROPERTY(ledColor onColor READ onColor WRITE setOnColor)
    Q_PROPERTY(ledColor offColor READ offColor WRITE setOffColor)
    Q_PROPERTY(ledShape shape READ shape WRITE setShape)
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QFont nameFont READ getNameFont WRITE setNameFont)
    Q_PROPERTY(bool unitsVis READ getUnitsVis WRITE setUnitsVis)
    Q_PROPERTY(int sampleRate READ getSampleRate WRITE setSampleRate)
    Q_PROPERTY(QString toolTip READ getToolTip WRITE setToolTipString)
    Q_PROPERTY(bool displayAlias READ displayAlias WRITE setDisplayAlias)
    Q_PROPERTY(bool hideName READ getHideName WRITE setHideName)

public:
    // Forms hold the names, the lamp is told the numbers.
    enum ledColor : int { Red = 0, Green, Yellow, Grey, Orange, Purple, Blue };
    Q_ENUM(ledColor)
    enum ledShape : int { Circle = 0, Square, Triangle, Rounded, Triangle_90, Triangle_180, Triangle_270 };
    Q_ENUM(ledShape)

    explicit ZelLed(QWidget* parent = nullptr);
    ~ZelLed() override;

    void setName(const QString& name) override;
    void setColor(const QColor& color) override;

    // The colours while the variable is true and false.
    ledColor onColor() const { return m_onColor; }
    void setOnColor(ledColor color);
    ledColor offColor() const { return m_offColor; }
    void setOffColor(ledColor color);
    ledShape shape() const { return m_shape; }
    void setShape(ledShape shape);
    QFont getNameFont() const;
    void setNameFont(const QFont& font);
    // Shows the state as text too; from the next sample on.
    void setUnitsVis(bool visible);
    QString getToolTip() const;
    void setToolTipString(const QString& toolTip);
    bool getHideName() const { return m_hideName; }
    void setHideName(bool hide);

    // What the lamp shows, until the next sample finds another value.
    bool value() const;
    void setValue(bool value);

public Q_SLOTS:
    void ostrelTimerEvent(int interval) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private Q_SLOTS:
    void ZelLed_customContextMenuRequested(QPoint position);
    void sample(bool startup);
    void sample();

private:
    VariableAcceptance isValidVarType(const QString& name) const;
    void rebind(VAR_FIND_STATUS status);
    void showNothing();
    void showState();

    std::unique_ptr<Ui::ZelLed> ui;
    std::unique_ptr<NotFoundMark> m_mark;
    ledColor m_onColor = Green;
    ledColor m_offColor = Red;
    ledShape m_shape = Circle;
    bool m_unitsVisChanged = false;  // the lamp is to be set once more
    bool m_hideName = false;
};

#endif
