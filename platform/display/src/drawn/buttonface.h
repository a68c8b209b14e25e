// What the drawn buttons share: their skins, and the keys that press them.
#ifndef OSTREL_DISPLAY_DRAWN_BUTTONFACE_H
#define OSTREL_DISPLAY_DRAWN_BUTTONFACE_H

#include <QRect>
#include <QString>
#include <QStringList>

#include "drawn/svgskin.h"

class QAbstractButton;
class QKeyEvent;

// The names of a button's skins, and their files' name before the skin's.
struct ButtonSkins {
    QString files;
    QStringList names;  // the first also stands for every name that is none of them
    int aspect;         // how many times wider than high
};

// It belongs to its button.
class ButtonFace {
public:
    ButtonFace(QAbstractButton* button, ButtonSkins skins);

    const QString& skin() const { return m_name; }
    void setSkin(const QString& name);

    QRect rect() const;
    QSize sizeHint() const;
    QSize minimumSizeHint() const;
    // Leaves what stands beside the face to the widget behind.
    void fitMask();
    void paint() const;

    // Presses and releases the button by mouse events, for the keys that do so. False for another key.
    bool keyPressed(const QKeyEvent& event);
    bool keyReleased(const QKeyEvent& event);

private:
    QStringList elements() const;

    QAbstractButton* m_button;
    ButtonSkins m_skins;
    QString m_name;
    SvgSkin m_skin;
    int m_key = 0;  // that holds the button
};

// Presses and releases the button's middle as the left mouse button does.
void clickAsMouse(QAbstractButton* button);

#endif
