// The read-out of an input or output channel, addressed by its place and not by its name.
#ifndef OSTREL_WIDGETS_ZEL_SIMPLEVALUECHANINDEX_H
#define OSTREL_WIDGETS_ZEL_SIMPLEVALUECHANINDEX_H

#include <QBitArray>
#include <memory>

#include "simplevaluebase.h"

class IndexUiManager;

// Shows whatever variable stands at an index of a memory area, and the index on a number display. It binds when both
// `memCode` and `memIndex` have been set, and from then on with every change of either.
class Q_DECL_EXPORT ZelSimpleValueChanIndex : public SimpleValueBase {
    Q_OBJECT
    Q_PROPERTY(QString units READ getUnits WRITE setUnits)
    Q_PROPERTY(int memCode READ getMemCode WRITE setMemCode DESIGNABLE false)
    Q_PROPERTY(int memIndex READ getMemIndex WRITE setMemIndex DESIGNABLE false)
    Q_PROPERTY(QFont valueFont READ getValueFont WRITE setValueFont)
    Q_PROPERTY(int sampleRate READ getSampleRate WRITE setSampleRate)
    Q_PROPERTY(bool hideName READ getHideName WRITE setHideName)
    Q_PROPERTY(QFont nameFont READ getNameFont WRITE setNameFont)
    Q_PROPERTY(bool hideUnits READ getHideUnits WRITE setHideUnits)
    Q_PROPERTY(QString group READ getGroup WRITE setGroup)
    Q_PROPERTY(bool readOnlyString READ getReadOnlyString WRITE setReadOnlyString)
    Q_PROPERTY(bool displayAlias READ displayAlias WRITE setDisplayAlias)
    Q_PROPERTY(Qt::Alignment nameAlignment READ getNameAlignment WRITE setNameAlignment)
    Q_PROPERTY(int nameMaxWidth READ getNameMaxWidth WRITE setNameMaxWidth)
    Q_PROPERTY(QString toolTip READ getToolTip WRITE setToolTipString)
    Q_PROPERTY(bool horizontal READ horizontal WRITE setHorizontal)
    Q_PROPERTY(SegmentStyle segmentStyle READ getSegmentStyle WRITE setSegmentStyle)

public:
    enum SegmentStyle : int { Outline, Filled, Flat };
    Q_ENUM(SegmentStyle)

    explicit ZelSimpleValueChanIndex(QWidget* parent = nullptr);
    ~ZelSimpleValueChanIndex() override;

    // Binds by place, whatever the name: the name comes from the store.
    void setName(const QString& name) override;
    // Binds by a label.
    void setNameChanIndex(const QString& name);
    // Reads the label of the variable that stands at the place now, and binds it.
    void setVariableInformation();

    // The area's SM_AREA_ID.
    int getMemCode() const { return _memCode; }
    void setMemCode(int sm_code);
    int getMemIndex() const { return _memIndex; }
    void setMemIndex(int sm_index);
    // How many channels the area has; 0 for an area without channels.
    int getLogicalNumVars(int sm_code) const;

    // Places the parts anew; the variable stays bound.
    void setHorizontal(bool horizontal);
    SegmentStyle getSegmentStyle() const { return m_segmentStyle; }
    // What is no style is shown as Flat.
    void setSegmentStyle(const SegmentStyle& style);

public Q_SLOTS:
    void ostrelTimerEvent(int interval) override;
    void changeEvent(QEvent* event) override;

Q_SIGNALS:
    void nameChanged(QString newName, int row, int col);

private Q_SLOTS:
    void sample(bool startup);
    void sample();
    // Lets the operator choose another channel.
    void changeChanIndex();

private:
    void tellName(const QString& name) override;
    void bound() override;
    void unbound() override;
    void bindWhenPlaced();
    QString labelAt(const void* address) const;

    QBitArray ba{2};  // 0: the area has been set, 1: the index has been set
    bool isInitialized = false;
    std::unique_ptr<IndexUiManager> ui;
    int _memCode = 0;
    int _memIndex = 0;
    int _memVariType = 0;
    QAction* changeChannelIndexAction = nullptr;
    QWidget* changeVar = nullptr;
    SegmentStyle m_segmentStyle = Flat;
};

#endif
