// What the drawn buttons share: their skins, and the keys and fingers that press them.
#ifndef OSTREL_DISPLAY_DRAWN_BUTTONFACE_H
#define OSTREL_DISPLAY_DRAWN_BUTTONFACE_H

#include <QElapsedTimer>
#include <QRect>
#include <QString>
#include <QStringList>

#include "drawn/svgskin.h"

class QAbstractButton;
class QKeyEvent;
class QTouchEvent;

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
    // The same for one finger, whatever the others do. One that the screen loses clicks nothing.
    void touched(const QTouchEvent& event);

private:
    QStringList elements() const;
    void fingerDown(const QPointF& place);
    void fingerUp(const QPointF& place);

    QAbstractButton* m_button;
    ButtonSkins m_skins;
    QString m_name;
    SvgSkin m_skin;
    int m_key = 0;      // that holds the button
    int m_finger = -1;  // the same
    QElapsedTimer m_sinceTouch;
};

// Presses and releases the button's middle as the left mouse button does.
void clickAsMouse(QAbstractButton* button);

#endif
