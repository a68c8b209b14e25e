// What an operator sees in the display's window, for tests to read as statements.
#ifndef OSTREL_TESTS_HOST_WINDOW_H
#define OSTREL_TESTS_HOST_WINDOW_H

#include <QLabel>
#include <QLineEdit>
#include <QtTest>
#include <memory>

#include "banner.h"
#include "cellwatch.h"
#include "core/ostrelbase.h"
#include "frozenveil.h"
#include "mainwindow.h"
#include "paths.h"

class Window {
public:
    explicit Window(const QString& form = QString(paths::sources) + "/tests/host/forms/live.ui",
                    Manners manners = Manners::Asks)
        : m_window(form, &m_watch, manners) {
        m_window.resize(420, 640);
        m_window.show();
    }

    MainWindow& window() { return m_window; }
    CellWatch& watch() { return m_watch; }
    OstrelBase* widget(const char* name) { return m_window.findChild<OstrelBase*>(QLatin1String(name)); }
    QString value(const char* name) { return widget(name)->findChild<QLineEdit*>(QStringLiteral("value"))->text(); }
    QString units(const char* name) { return label(widget(name), "units_label"); }
    bool isMarkedMissing(const char* name) {
        return widget(name)->findChild<QLabel*>(QStringLiteral("iconLabel"))->isVisible();
    }
    QString field(const char* name) { return label(&m_window, name); }

    // Empty while there is no banner.
    QString banner() {
        const auto* banner = m_window.findChild<Banner*>();
        return banner->isVisible() ? banner->accessibleName() : QString();
    }
    bool isVeiled() { return m_window.findChild<FrozenVeil*>()->isVisible(); }
    // No banner, no veil, and the status bar says so.
    bool looksGood() {
        return banner().isEmpty() && !isVeiled() && field("storeField").endsWith(QLatin1String(": running"));
    }

private:
    static QString label(QWidget* parent, const char* name) {
        return parent->findChild<QLabel*>(QLatin1String(name))->text();
    }

    CellWatch m_watch;
    MainWindow m_window;
};

// Limits for what other processes and threads do.
constexpr int patience = 20000;  // ms

#define BECOMES(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, QString(expected), patience)
#define EVENTUALLY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, patience)

#endif
