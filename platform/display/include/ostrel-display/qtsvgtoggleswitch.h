// A switch.
#ifndef OSTREL_DISPLAY_QTSVGTOGGLESWITCH_H
#define OSTREL_DISPLAY_QTSVGTOGGLESWITCH_H

#include <QAbstractButton>
#include <QString>
#include <memory>

// Checkable. Its knob stands left, beside a ring, while it is off, and right, beside a bar, while it is on, whatever
// the direction of the layout. While somebody presses it, the knob is sunk and smaller; under the pointer it has a
// bright edge, with the keyboard's focus a ring around it, and disabled it is flat with a broken rim. So its states are
// apart in a grey picture too. It is twice as wide as high, as large as the widget has room for, in its middle; what
// the widget has beside it belongs to the widget behind. It shows no text.
//
// It switches when it is released: a pointer, or a finger, that leaves it first switches nothing. Space and the return
// keys press it too.
//
// The widget library knows this class by this header alone and calls ordinary members of a shared library, so a site
// may bring a class of its own with the same members. GUI thread only.
class Q_DECL_EXPORT QtSvgToggleSwitch : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QString skin READ skin WRITE setSkin)

public:
    explicit QtSvgToggleSwitch(QWidget* parent = nullptr);
    ~QtSvgToggleSwitch() override;

    // "Beryl", round, the one at first, or "BerylSquare". Any other name is kept and looks as the one at first.
    QString skin() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void setSkin(const QString& skin);

protected:
    bool event(QEvent* event) override;
    bool hitButton(const QPoint& position) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;

    // The widget library allocates the object: room for the state of a site's own class.
    void* m_reserved[32] = {};
};

#endif
