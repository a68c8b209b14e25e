// The plain display of one variable: its name above a value field and a units label, inside a frame.
#ifndef OSTREL_WIDGETS_ZEL_VALUE_H
#define OSTREL_WIDGETS_ZEL_VALUE_H

#include <memory>

#include "core/ostrelbase.h"

class NotFoundMark;
namespace Ui {
class ZelValue;
}

// Shows every kind of variable but strings. A double click on the value writes it, unless the widget is read-only;
// one on the name writes in any case.
class Q_DECL_EXPORT ZelValue : public OstrelBase {
    Q_OBJECT
    Q_PROPERTY(QString units READ getUnits WRITE setUnits)
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QFont nameFont READ getNameFont WRITE setNameFont)
    Q_PROPERTY(QColor backColor READ getBackColor WRITE setBColor)
    Q_PROPERTY(QFont valueFont READ getValueFont WRITE setValueFont)
    Q_PROPERTY(int sampleRate READ getSampleRate WRITE setSampleRate)
    Q_PROPERTY(QString group READ getGroup WRITE setGroup)
    Q_PROPERTY(bool displayAlias READ displayAlias WRITE setDisplayAlias)
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly)
    Q_PROPERTY(QString toolTip READ getToolTip WRITE setToolTip)

public:
    explicit ZelValue(QWidget* parent = nullptr);
    ~ZelValue() override;

    void setName(const QString& name) override;
    // The value's colour; an invalid one gives it the field's own. A colour that could not be read on the field's
    // background is replaced by black or white.
    void setColor(const QColor& color) override;
    void setBColor(QColor color) override;
    void setMyFont(const QFont& font) override;
    void setValueFont(const QFont& font) override;
    bool eventFilter(QObject* obj, QEvent* event) override;
    bool allowsWriteAcess() override;
    void handleWriteValue(QObject* source) override;

    void setNameFont(const QFont& font);
    QFont getNameFont() const;
    QFont getValueFont() const;
    QColor getBackColor() const { return _bcolor; }
    bool isReadOnly() const { return m_readOnly; }
    void setReadOnly(bool readOnly);
    QString getToolTip() const;
    void setToolTip(const QString& toolTip);

public Q_SLOTS:
    void ostrelTimerEvent(int interval) override;
    // Reads the variable and shows what changed; `startup` is true for the one call at the end of setName().
    void sample(bool startup);
    void sample();

Q_SIGNALS:
    void closing(bool closed);

private:
    VariableAcceptance isValidVarType(const QString& name) const;
    VAR_FIND_STATUS rebind(VAR_FIND_STATUS status);
    QColor readableOnField(const QColor& color) const;
    void showNothing();
    void showNameAndUnits(const RecordView& view);

    std::unique_ptr<Ui::ZelValue> ui;
    std::unique_ptr<NotFoundMark> m_mark;
    bool m_readOnly = false;
};

#endif
