// The page that lists the widgets with their properties, docs/widgets.md, made from the library itself.
#ifndef OSTREL_TESTS_COLLECTION_WIDGETTABLE_H
#define OSTREL_TESTS_COLLECTION_WIDGETTABLE_H

#include <QMap>
#include <QStringList>

// Makes the same page on each machine: font, style and store, which is the demo cell. Before an application is made.
void prepareWidgetTable();
// False, with a line on the standard error, where the demo cell is not served. With an application.
bool serveWidgetTable();

// The page; properties whose meaning docs/properties.txt does not tell go into `withoutMeaning`.
QString widgetTable(QStringList* withoutMeaning);

// Writes a picture of each widget into the folder, under the name that the page asks for.
bool drawWidgets(const QString& folder);
// The names of those files.
QStringList widgetPictures();

#endif
