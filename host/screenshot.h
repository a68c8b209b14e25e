// Pictures of the display.
#ifndef OSTREL_HOST_SCREENSHOT_H
#define OSTREL_HOST_SCREENSHOT_H

#include <QString>

class QWidget;

// Throws Failure when no picture can be written to that path: its folder or its kind of file.
void checkPicturePath(const QString& path);

// Writes what the window shows; throws Failure, and leaves no file half-written.
void writePicture(QWidget* window, const QString& path);

#endif
