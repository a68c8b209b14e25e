// The mark of a widget whose variable the store does not know.
#ifndef OSTREL_VARIABLES_NOTFOUNDMARK_H
#define OSTREL_VARIABLES_NOTFOUNDMARK_H

#include <QLabel>
#include <QString>

// Shows or hides the mark, and the words for it as tool tip of `tipOwner`, in place of the form's own. Its picture is
// the one that the site installed where forms expect it, else the library's own.
void showNotFoundMark(bool show, QLabel* iconLabel, QWidget* tipOwner, const QString& toolTip);

// The tool tip alone.
void showNotFoundToolTip(bool show, QWidget* tipOwner, const QString& toolTip);

#endif
