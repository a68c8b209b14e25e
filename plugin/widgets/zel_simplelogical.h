// The name and the state of a logical variable as text.
#ifndef OSTREL_WIDGETS_ZEL_SIMPLELOGICAL_H
#define OSTREL_WIDGETS_ZEL_SIMPLELOGICAL_H

#include <memory>

#include "core/ostrelbase.h"

namespace Ui {
class ZelSimpleLogical;
}

// A double click on the state writes the other one at once, with no question asked. It has no mark: without its
// variable it shows "-".
class Q_DECL_EXPORT ZelSimpleLogical : public OstrelBase {
    Q_OBJECT
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QFont nameFont READ getNameFont WRITE setNameFont)
    Q_PROPERTY(int sampleRate READ getSampleRate WRITE setSampleRate)
    Q_PROPERTY(bool displayAlias READ displayAlias WRITE setDisplayAlias)

public:
    explicit ZelSimpleLogical(QWidget* parent = nullptr);
    ~ZelSimpleLogical() override;

    bool eventFilter(QObject* obj, QEvent* event) override;
    // A variable that is no logical one leaves the texts of the former, which is no longer written.
    void setName(const QString& name) override;
    // Writes the state that was not shown last.
    void handleWriteValue(QObject* source) override;

    // The font of both labels.
    QFont getNameFont() const;
    void setNameFont(const QFont& font);

public Q_SLOTS:
    void ostrelTimerEvent(int interval) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private Q_SLOTS:
    void sample(bool startup);
    void sample();

private:
    VAR_FIND_STATUS rebind(VAR_FIND_STATUS status);
    void showNothing();

    std::unique_ptr<Ui::ZelSimpleLogical> ui;
    QString svalue;  // what the label shows; the base's is that of whoever asks for the text
};

#endif
