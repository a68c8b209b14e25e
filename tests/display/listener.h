// A screen reader, as far as the drawn widgets know of one.
#ifndef OSTREL_TESTS_DISPLAY_LISTENER_H
#define OSTREL_TESTS_DISPLAY_LISTENER_H

#include <QtGui/private/qguiapplication_p.h>
#include <QtGui/qpa/qplatformaccessibility.h>
#include <QtGui/qpa/qplatformintegration.h>

#include <QAccessible>
#include <QApplication>
#include <QStringList>

// Hears of values and of lamps while it lives.
class Listener {
public:
    Listener() : m_former(QAccessible::installUpdateHandler(hear)), m_wasActive(QAccessible::isActive()) {
        platform().setActive(true);
        s_heard.clear();
    }
    ~Listener() {
        platform().setActive(m_wasActive);
        QAccessible::installUpdateHandler(m_former);
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    // What was heard since the last time, once all is painted.
    static QStringList heardAfterEvents() {
        QApplication::processEvents();
        QStringList heard;
        heard.swap(s_heard);
        return heard;
    }

private:
    // Somebody who listens is known to the platform alone.
    static QPlatformAccessibility& platform() {
        return *QGuiApplicationPrivate::platformIntegration()->accessibility();
    }

    static void hear(QAccessibleEvent* event) {
        if (event->type() == QAccessible::ValueChanged) {
            const auto& change = static_cast<const QAccessibleValueChangeEvent&>(*event);
            s_heard.append(QStringLiteral("value ") + change.value().toString());
        } else if (event->type() == QAccessible::StateChanged &&
                   static_cast<const QAccessibleStateChangeEvent&>(*event).changedStates().checked) {
            s_heard.append(event->accessibleInterface()->state().checked ? QStringLiteral("checked")
                                                                         : QStringLiteral("not checked"));
        }
    }

    static inline QStringList s_heard;
    QAccessible::UpdateHandler m_former;
    bool m_wasActive;
};

#endif
