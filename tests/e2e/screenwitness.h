// A plug-in of the tests that looks at a program from inside and writes down what is on its screen.
#ifndef OSTREL_TESTS_E2E_SCREENWITNESS_H
#define OSTREL_TESTS_E2E_SCREENWITNESS_H

#include <QGenericPlugin>

// Qt loads it into every program with QT_QPA_GENERIC_PLUGINS=screenwitness. Again and again it replaces the file in
// OSTREL_WITNESS by a JSON object: "serial" counts, "active" and "focus" name the active window and what the keys go
// to, "globals" has what the display and the plug-in library agree on, "seen" what can be seen. Each thing seen has an
// "id", a "text" and the middle "at" which a mouse reaches it:
//   window:TITLE, widget:NAMES/OF/THE/PARENTS/NAME, button:TEXT, action:TEXT of a menu, cell:FIRST COLUMN:COLUMN for a
//   row of a list or tree.
// A widget is "whole" when its text has the room that it needs for itself; one of the collection has its "name" and
// "nameFontSize".
class ScreenWitness : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "screenwitness.json")

public:
    QObject* create(const QString& key, const QString& arguments) override;

private:
    void report();

    int m_serial = 0;
};

#endif
