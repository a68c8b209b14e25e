// What the tests of the drawn indicators have in common.
#ifndef OSTREL_TESTS_PLUGIN_INDICATORTEST_H
#define OSTREL_TESTS_PLUGIN_INDICATORTEST_H

#include <QAction>
#include <QLayout>
#include <functional>

#include "readouttest.h"
#include "selectiontest.h"

// Called whenever a drawn lamp is set: what else happens at that moment.
extern std::function<void()> lampIsSet;

// An indicator of any of the classes, and what a test sees of it.
template <class Widget>
class Indicator : public Widget {
public:
    explicit Indicator(QWidget* parent = nullptr) : Widget(parent) {
        this->setObjectName(QStringLiteral("lamp"));
        platform().forgetCalls();
    }

    template <class Part>
    Part* part(const char* name) const {
        return this->template findChild<Part*>(QLatin1String(name));
    }
    QLabel* icon() const { return part<QLabel>("iconLabel"); }
    QStringList menu() const {
        QStringList texts;
        for (const QAction* action : this->actions())
            texts << action->text();
        return texts;
    }
    void tick() { this->ostrelTimerEvent(this->getSampleRate()); }
    bool isSampled() { return TimerModerator::isRegistered(this, this->getSampleRate()); }
    // Goes on as if the form had been loaded.
    void finishLoading() {
        this->_first_write = true;
        this->setInitFlag(true);
    }

    using OstrelBase::_checkLimit;
    using OstrelBase::_first_write;
    using OstrelBase::_ilastValue;
    using OstrelBase::_lastValue;
    using OstrelBase::_monitorLimit;
    using OstrelBase::_varType;
    using OstrelBase::limit_status;
    using OstrelBase::limitColorCode;
    using OstrelBase::svalue;
};

// Starts and ends a reconfiguration of everything.
inline void reconfigure(OstrelBase& widget) {
    widget.globalConfigEvent(1, -1);
    widget.globalConfigEvent(0, -1);
}

// An operator answers the dialog that the slot opens with that name; where it is empty, by closing it.
inline void chooseBySlot(OstrelBase* widget, const char* slot, const QString& name) {
    const Operator worker({[name](QWidget* dialog) {
        if (name.isEmpty()) {
            dialog->close();
            return;
        }
        retype(dialog->findChild<QComboBox*>("variableComboBox")->lineEdit(), name);
        QTest::mouseClick(dialog->findChild<QPushButton*>("OkButton"), Qt::LeftButton);
    }});
    QVERIFY(QMetaObject::invokeMethod(widget, slot, Q_ARG(QPoint, QPoint())));
    QVERIFY(worker.isDone());
}

#endif
