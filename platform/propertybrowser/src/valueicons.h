// The small pictures and texts of colours and fonts, the same in rows and in editors.
#ifndef OSTREL_PROPERTYBROWSER_VALUEICONS_H
#define OSTREL_PROPERTYBROWSER_VALUEICONS_H

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QString>

QString colorText(const QColor& color);
QIcon colorIcon(const QColor& color);
QString fontText(const QFont& font);
QIcon fontIcon(const QFont& font);

#endif
