// A thin frame for widgets of logical variables.
#ifndef OSTREL_CORE_OSTREL_LOGICAL_BASE_H
#define OSTREL_CORE_OSTREL_LOGICAL_BASE_H

#include "core/ostrelbase.h"

// A subclass supplies setName() and sample(), which do nothing here.
class Q_DECL_EXPORT ostrel_logical_base : public OstrelBase {
    Q_OBJECT

public:
    explicit ostrel_logical_base(QWidget* parent = nullptr);

    void setName(const QString& name) override;

    // Declared for subclasses, which define them.
    void setNameFont(const QFont& font);
    QFont getNameFont() const;

public Q_SLOTS:
    void ostrelTimerEvent(int interval) override;
    virtual void sample();

protected:
    LOGICAL_VARIABLE* lptr = nullptr;
    QString svalue;
};

#endif
