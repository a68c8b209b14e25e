#include "valuemanager/raisedevent.h"

#include <ostrel/events.h>

#include <QCoreApplication>
#include <QMessageBox>
#include <QPointer>

namespace {

// Kept in its words: it stands on the screen before the commit that it speaks of, and for a cancelled dialog too.
const char* const unknownEvent = QT_TRANSLATE_NOOP("ValueManager",
                                                   "The Event <%1> does not exist and was not set.\n\n"
                                                   "Make sure the event exists within gen_labels.\n\n"
                                                   "A commit of the values to OSTREL has been performed");
const char* const failedEvent = QT_TRANSLATE_NOOP("ValueManager",
                                                  "The <%1> Event was not set.\n\n"
                                                  "Make sure the event exists within gen_labels.\n\n"
                                                  "A commit of the values to OSTREL has been performed");

QString translated(const char* text) {
    return QCoreApplication::translate("ValueManager", text);
}

// A name in angle brackets may look like a tag. The form may be closed, and the box with it, while it is on the screen.
void tell(const char* text, const QString& name, QWidget* parent) {
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Information, translated(QT_TRANSLATE_NOOP("ValueManager", "Event Not Set")),
                        translated(text).arg(name), QMessageBox::Ok, parent);
    box->setTextFormat(Qt::PlainText);
    box->exec();
    delete box;
}

}  // namespace

void raiseNamedEvent(const QString& name, QWidget* parent) {
    if (name.isEmpty())
        return;
    int id = 0;
    if (event_get_id(name.toLatin1().data(), &id) != 0)
        tell(unknownEvent, name, parent);
    else if (event_set(id, nullptr, 0) != 0)
        tell(failedEvent, name, parent);
}
