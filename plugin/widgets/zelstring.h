// A string variable with its name in front, in one line.
#ifndef OSTREL_WIDGETS_ZELSTRING_H
#define OSTREL_WIDGETS_ZELSTRING_H

#include <memory>

#include "core/ostrelbase.h"

class NotFoundMark;
namespace Ui {
class ZelString;
}

// Where the form cleared `readOnlyString` a double click on the text asks for a new one and writes it.
class Q_DECL_EXPORT ZelString : public OstrelBase {
    Q_OBJECT
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QFont nameFont READ getNameFont WRITE setNameFont)
    Q_PROPERTY(QColor backColor READ getBackColor WRITE setBackColor)
    Q_PROPERTY(QFont valueFont READ getValueFont WRITE setValueFont)
    Q_PROPERTY(int sampleRate READ getSampleRate WRITE setSampleRate)
    Q_PROPERTY(bool readOnlyString READ getReadOnlyString WRITE setReadOnlyString)
    Q_PROPERTY(bool displayAlias READ displayAlias WRITE setDisplayAlias)
    Q_PROPERTY(QString toolTip READ getToolTip WRITE setToolTipString)

public:
    explicit ZelString(QWidget* parent = nullptr);
    ~ZelString() override;

    bool eventFilter(QObject* obj, QEvent* event) override;
    void setName(const QString& name) override;
    // The colour of the text.
    void setColor(const QColor& color) override;
    void setValueFont(const QFont& font) override;
    void handleWriteValue(QObject* source) override;

    QFont getNameFont() const;
    void setNameFont(const QFont& font);
    QFont getValueFont() const;
    // The background of the text; invalid for that of the form.
    QColor getBackColor() const { return _bcolor; }
    void setBackColor(const QColor& color);
    // A new widget is read-only. The field takes no typing in any case.
    bool getReadOnlyString() const { return _readOnlyString; }
    void setReadOnlyString(bool readOnly);
    QString getToolTip() const;
    void setToolTipString(const QString& toolTip);

public Q_SLOTS:
    void ostrelTimerEvent(int interval) override;
    void changeEvent(QEvent* event) override;

private Q_SLOTS:
    void sample(bool startup);
    void sample();

private:
    VariableAcceptance isValidVarType(const QString& name) const;
    VAR_FIND_STATUS rebind(VAR_FIND_STATUS status);
    void showNothing();
    void showText(const QString& text);

    std::unique_ptr<Ui::ZelString> ui;
    std::unique_ptr<NotFoundMark> m_mark;
    bool backColorSet = false;  // setColor() has run once
};

#endif
