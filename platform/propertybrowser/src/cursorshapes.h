// The shapes of the mouse cursor that a property can have, in the order in which they are offered.
#ifndef OSTREL_PROPERTYBROWSER_CURSORSHAPES_H
#define OSTREL_PROPERTYBROWSER_CURSORSHAPES_H

#include <QIcon>
#include <QString>

int cursorShapeCount();
// -1 for a shape that is not offered, such as a bitmap; name and icon of -1 are empty.
int cursorShapeIndex(Qt::CursorShape shape);
Qt::CursorShape cursorShapeAt(int index);
QString cursorShapeName(int index);
QIcon cursorShapeIcon(int index);

#endif
