// A widget of a site's own.
#ifndef OSTREL_TESTS_INSTALL_READOUT_H
#define OSTREL_TESTS_INSTALL_READOUT_H

#include <QLabel>
#include <QVBoxLayout>

#include "core/ostrelbase.h"

class Readout : public OstrelBase {
    Q_OBJECT
    Q_PROPERTY(QString name READ getName WRITE setName)

public:
    explicit Readout(QWidget* parent = nullptr) : OstrelBase(parent), m_label(new QLabel) {
        (new QVBoxLayout(this))->addWidget(m_label);
    }

    void setName(const QString& name) override {
        const VAR_FIND_STATUS status = setupVariable(name);
        if (status != VARIABLE_NOTFOUND)
            rptr = static_cast<REAL_VARIABLE*>(ptr());
        updateUIName(status, name, false);
        show();
    }
    QString text() const { return m_label->text(); }

public Q_SLOTS:
    void ostrelTimerEvent(int) override { show(); }

private:
    void show() {
        if (const QString* text = ptr() ? sampleReal(true) : nullptr)
            m_label->setText(*text);
    }

    QLabel* m_label;
};

#endif
