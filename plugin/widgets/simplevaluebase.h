// What the simple read-outs share: a name label and a value label bound to one variable.
#ifndef OSTREL_WIDGETS_SIMPLEVALUEBASE_H
#define OSTREL_WIDGETS_SIMPLEVALUEBASE_H

#include <memory>

#include "core/ostrelbase.h"
#include "readoutparts.h"

class NotFoundMark;

// It has no meta-object of its own: the meta-object of each read-out derives from OstrelBase's directly. Properties,
// signals and slots are declared by the read-outs, which differ in them.
class Q_DECL_EXPORT SimpleValueBase : public OstrelBase {
public:
    QFont getValueFont() const;
    QFont getNameFont() const;
    void setNameFont(const QFont& font);
    bool getHideName() const { return m_hideName; }
    void setHideName(bool hide);
    bool getHideUnits() const { return m_hideUnits; }
    void setHideUnits(bool hide);
    // A read-only value ignores a double click. A new widget is read-only.
    bool getReadOnlyString() const { return _readOnlyString; }
    void setReadOnlyString(bool readOnly);
    bool horizontal() const { return m_horizontal; }
    Qt::Alignment getNameAlignment() const { return m_nameAlignment; }
    void setNameAlignment(Qt::Alignment alignment);
    int getNameMaxWidth() const { return m_nameMaxWidth; }
    void setNameMaxWidth(int width);
    // The operator's help. Without one a number tells its name and units.
    QString getToolTip() const;
    void setToolTipString(const QString& toolTip);

    // The text on the screen.
    QString getValue() const;
    bool flashing() const { return flashOn; }
    // The widget's place in a table, told with nameChanged(); -1 outside one.
    void setRowCol(int row, int col);
    // The colour to swap with where two would meet; an invalid one where there is nothing to swap.
    QColor switchColor(const QColor& textC) const;

    bool eventFilter(QObject* obj, QEvent* event) override;
    void setName(const QString& name) override;
    void setColor(const QColor& color) override;
    void setValueFont(const QFont& font) override;
    void set_custom_toolTip(QString& text) override;
    void handleWriteValue(QObject* source) override;

protected:
    explicit SimpleValueBase(QWidget* parent);
    ~SimpleValueBase() override;

    void resizeEvent(QResizeEvent* event) override;

    // The form of the widget; told before anything else.
    void useParts(const ReadoutParts& parts);
    // The end of a construction: from now on the widget is known as `name` to the form writer.
    void startAs(const QString& name);

    void bind(const QString& name);
    void sampleValue(bool startup);
    void takeTick(int interval);
    // Of two heights, for which a form may ask anything.
    static int sumOf(int one, int other);
    // Takes the decimals that a number is shown with, and shows it with them.
    void showResolution(int decimals);

    VariableAcceptance isValidVarType(const QString& name) const;
    void showToolTip();
    // Shows a text in the value's label, without the spaces around it.
    void showValue(const QString& text);
    // Prepares the value for double clicks, and the next setName() for a new binding. Called when the parts were
    // placed.
    void placed();

    // Steps that one of the read-outs adds: the widget found its variable, or lost it; a logical variable changed.
    virtual void bound() {}
    virtual void unbound() {}
    virtual void stateChanged(bool) {}
    // Raises nameChanged().
    virtual void tellName(const QString& name) = 0;

    bool m_hideName = false;
    bool m_hideUnits = true;
    bool m_horizontal = false;
    int m_row = -1;
    int m_col = -1;
    Qt::Alignment m_nameAlignment = Qt::AlignRight;
    int m_nameMaxWidth = 700;
    QString myUnits;
    std::unique_ptr<NotFoundMark> m_mark;
    int m_resolution = 0;  // decimals forced on a number; 0 for the variable's own format

private:
    VAR_FIND_STATUS rebind(VAR_FIND_STATUS status);
    void showFirst();
    void showMissing(const QString& asked);
    bool isLogical() const;
    bool memberIsTrue() const;
    QString nameUnit() const;
    void sampleState();
    template <size_t length>
    void sampleText(short statusWord, const char (&text)[length]);
    void sampleNumber();

    const ReadoutParts* m_parts = nullptr;
};

#endif
