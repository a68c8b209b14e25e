// The everyday read-out: a name label and a value label.
#ifndef OSTREL_WIDGETS_ZEL_SIMPLEVALUE_H
#define OSTREL_WIDGETS_ZEL_SIMPLEVALUE_H

#include <memory>

#include "simplevaluebase.h"

class UiManager;

// Shows every kind of variable, the name above the value or beside it. A double click on the value writes it where the
// form cleared `readOnlyString`.
class Q_DECL_EXPORT ZelSimpleValue : public SimpleValueBase {
    Q_OBJECT
    Q_PROPERTY(QString units READ getUnits WRITE setUnits)
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QFont valueFont READ getValueFont WRITE setValueFont)
    Q_PROPERTY(int sampleRate READ getSampleRate WRITE setSampleRate)
    Q_PROPERTY(bool hideName READ getHideName WRITE setHideName)
    Q_PROPERTY(QFont nameFont READ getNameFont WRITE setNameFont)
    Q_PROPERTY(bool hideUnits READ getHideUnits WRITE setHideUnits)
    Q_PROPERTY(QString group READ getGroup WRITE setGroup)
    Q_PROPERTY(bool readOnlyString READ getReadOnlyString WRITE setReadOnlyString)
    Q_PROPERTY(bool displayAlias READ displayAlias WRITE setDisplayAlias)
    Q_PROPERTY(bool horizontal READ horizontal WRITE setHorizontal)
    Q_PROPERTY(Qt::Alignment nameAlignment READ getNameAlignment WRITE setNameAlignment)
    Q_PROPERTY(int nameMaxWidth READ getNameMaxWidth WRITE setNameMaxWidth)
    Q_PROPERTY(QString toolTip READ getToolTip WRITE setToolTipString)
    Q_PROPERTY(int nameMaxHeight READ getNameMaxHeight WRITE setNameMaxHeight)
    Q_PROPERTY(int valueMaxHeight READ getValueMaxHeight WRITE setValueMaxHeight)
    Q_PROPERTY(int resolution READ getResolution WRITE setResolution)
    Q_PROPERTY(bool lockMaxHeight READ getLockMaxHeight WRITE setLockMaxHeight)

public:
    explicit ZelSimpleValue(QWidget* parent = nullptr);
    ~ZelSimpleValue() override;

    // Both place the labels anew and bind the variable again.
    void setHorizontal(bool horizontal);
    void setLockMaxHeight(bool lock);
    bool getLockMaxHeight() const { return m_lockMaxHeight != 0; }
    // The frame becomes as high as both labels may be.
    void setNameMaxHeight(int height);
    void setValueMaxHeight(int height);
    int getNameMaxHeight() const { return m_nameMaxHeight; }
    int getValueMaxHeight() const { return m_valueMaxHeight; }
    void setResolution(int decimals);
    int getResolution() const { return m_resolution; }

public Q_SLOTS:
    void ostrelTimerEvent(int interval) override;
    void changeEvent(QEvent* event) override;

Q_SIGNALS:
    void nameChanged(QString newName, int row, int col);

private Q_SLOTS:
    void sample(bool startup);
    void sample();

private:
    void tellName(const QString& name) override;
    void place();
    void limitFrame();

    std::unique_ptr<UiManager> ui;
    int m_valueMaxHeight = 30;
    int m_nameMaxHeight = 30;
    int m_lockMaxHeight = 1;
};

#endif
