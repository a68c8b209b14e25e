// The read-out of free layout: the everyday read-out with more control over size, alignment and colour.
#ifndef OSTREL_WIDGETS_ZEL_SIMPLEVALUE_FL_H
#define OSTREL_WIDGETS_ZEL_SIMPLEVALUE_FL_H

#include <QColor>
#include <memory>

#include "simplevaluebase.h"

class UiManager_fl;

// Its frame stays inside the limits of its labels. Until `horizontal` or `lockMaxHeight` is set it stands as its form
// has it, and a double click does nothing.
class Q_DECL_EXPORT ZelSimpleValue_fl : public SimpleValueBase {
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
    Q_PROPERTY(Qt::Alignment valueAlignment READ getValueAlignment WRITE setValueAlignment)
    Q_PROPERTY(int nameMinWidth READ getNameMinWidth WRITE setNameMinWidth)
    Q_PROPERTY(int valueMinWidth READ getValueMinWidth WRITE setValueMinWidth)
    Q_PROPERTY(QColor nameColor READ getNameColor WRITE setNameColor)
    Q_PROPERTY(QColor color READ getColor WRITE setColor)

public:
    explicit ZelSimpleValue_fl(QWidget* parent = nullptr);
    ~ZelSimpleValue_fl() override;

    // Both place the labels anew and bind the variable again.
    void setHorizontal(bool horizontal);
    void setLockMaxHeight(bool lock);
    bool getLockMaxHeight() const { return m_lockMaxHeight != 0; }
    // The label gets the limit, then the frame follows both labels.
    void setNameMaxWidth(int width);
    void setNameMaxHeight(int height);
    void setValueMaxHeight(int height);
    int getNameMaxHeight() const { return m_nameMaxHeight; }
    int getValueMaxHeight() const { return m_valueMaxHeight; }
    void setNameMinWidth(int width);
    void setValueMinWidth(int width);
    int getNameMinWidth() const { return m_nameMinWidth; }
    int getValueMinWidth() const { return m_valueMinWidth; }
    // A name that is wider than its limit moves the limit.
    void setNameFont(const QFont& font);
    void setValueAlignment(Qt::Alignment alignment);
    Qt::Alignment getValueAlignment() const { return m_valueAlignment; }
    void setResolution(int decimals);
    int getResolution() const { return m_resolution; }
    // An invalid colour stands for the label's own.
    void setColor(const QColor& color) override;
    void setNameColor(const QColor& color);
    QColor getNameColor() const { return m_nameColor; }
    // Does nothing: sizes follow from each setter. Hosts may call it.
    void updateSizes() {}

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
    void stateChanged(bool on) override;
    void limitFrameWidth(int before);
    void limitFrameHeight(int before, int sumOfHeights);
    int sumOfHeights() const;
    bool showsColor(const QColor& asked, const QColor& shown) const;

    std::unique_ptr<UiManager_fl> ui;
    Qt::Alignment m_valueAlignment = Qt::AlignRight;
    int m_lockMaxHeight = 1;
    QColor m_nameColor;
    int m_valueMaxHeight = 12;
    int m_nameMaxHeight = 20;
    int m_nameMinWidth = 0;
    int m_valueMinWidth = 0;
    // What the value's style sheet was made from.
    QColor m_sheetColor;
    QString m_sheet;
};

#endif
