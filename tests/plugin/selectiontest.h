// What the tests of the selection dialogs have in common: a small store with a catalogue, and an operator at its
// dialogs.
#ifndef OSTREL_TESTS_PLUGIN_SELECTIONTEST_H
#define OSTREL_TESTS_PLUGIN_SELECTIONTEST_H

#include <ostrel/records.h>

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "plugintest.h"

// A store with these variables, which can be found and are in the catalogue:
//     General Use (real)         SPEED torque MAP, with the alias N for torque
//     Control (logical)          RUN
//     General Use (statistical)  TRQ.      Gas/Fluid (composition)  GAS.
//     Gas/Fluid (property)       AIR.      Emissions                EMI.
inline void serveSmallStore() {
    scripted::Areas& areas = platform().areas();
    areas.serve();
    areas.attributes().max_num_gu_real = 3;
    areas.attributes().max_num_gu_stat = 1;
    int slot = 0;
    for (const char* name : {"SPEED", "torque", "MAP"}) {
        areas.put<REAL_VARIABLE>(GU_REAL_MEM, slot++, name);
        platform().real(name).units("RPM");
    }
    platform().alias("N", "torque");
    areas.put<LOGICAL_VARIABLE>(CONTROL_MEM, 0, "RUN", 348270);
    platform().logical("RUN");
    areas.put<STAT_VARIABLE>(GU_STAT_MEM, 0, "TRQ.");
    platform().statistics("TRQ.").member("AV", AV, 1).member("SD", SD, 2);
    areas.put<COMP_VARIABLE>(PROPERTIES_MEM, 0, "GAS.");
    platform().composition("GAS.").member("H2", H2, 1);
    areas.put<PROP_VARIABLE>(PROPERTIES_MEM, 0, "AIR.", 70448);
    platform().property("AIR.").member("AT", AT, 1);
    areas.put<EMIS_VARIABLE>(PROPERTIES_MEM, 0, "EMI.", 377648);
    platform().emission("EMI.").member("MF_CO", MF_CO, 1);
    platform().forgetCalls();
}

inline QStringList itemsOf(const QComboBox* box) {
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items.append(box->itemText(i));
    return items;
}

// Works on each modal dialog in turn, as soon as it is there; each step must end its dialog. The dialogs are those that
// run while this lives.
class Operator {
public:
    using Step = std::function<void(QWidget* dialog)>;

    explicit Operator(QList<Step> steps) : m_steps(std::move(steps)) {
        m_elapsed.start();
        QObject::connect(&m_timer, &QTimer::timeout, [this] { look(); });
        m_timer.start(2);
    }
    bool isDone() const { return m_steps.isEmpty(); }

private:
    void look() {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog)
            dialog = QApplication::activePopupWidget();
        if (m_elapsed.elapsed() > 10000 && dialog)
            dialog->close();
        if (!dialog || dialog == m_last || !dialog->isVisible())
            return;
        m_last = dialog;
        if (m_steps.isEmpty()) {
            dialog->close();
            QFAIL("a dialog that was not expected");
        }
        m_steps.takeFirst()(dialog);
    }

    QList<Step> m_steps;
    QTimer m_timer;
    QElapsedTimer m_elapsed;
    QWidget* m_last = nullptr;
};

// Runs another part of this program, without a store: what it writes, once it has ended by itself with status 0.
inline QByteArray outputWithoutAStore(const QString& part) {
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {part});
    if (!child.waitForFinished() || child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0)
        return "it did not end with status 0";
    return child.readAllStandardOutput();
}

// Types into a line edit in place of what stands there.
inline void retype(QLineEdit* edit, const QString& text) {
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

#endif
