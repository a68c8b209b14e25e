// A push button.
#ifndef OSTREL_DISPLAY_QTSVGBUTTON_H
#define OSTREL_DISPLAY_QTSVGBUTTON_H

#include <QAbstractButton>
#include <QString>
#include <memory>

// Stands out while nobody presses it and is sunk and smaller while somebody does; under the pointer it has a bright
// edge, with the keyboard's focus a ring around it, and disabled it is flat with a broken rim. One that is checkable
// and on bears a mark. So its states are apart in a grey picture too. It is as large as the shorter side of the widget,
// in its middle; what the widget has beside it belongs to the widget behind. It shows no text.
//
// For one who listens to its mouse events: it is pressed from a press to the release, wherever the pointer goes
// meanwhile, though only a release on it is a click. The second press of a double click is none. Space, the return keys
// and a screen reader press it as the left mouse button would, in its middle, and a finger where it is, so that they
// are heard too.
//
// The widget library knows this class by this header alone and calls ordinary members of a shared library, so a site
// may bring a class of its own with the same members. GUI thread only.
class Q_DECL_EXPORT QtSvgButton : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QString skin READ skin WRITE setSkin)

public:
    explicit QtSvgButton(QWidget* parent = nullptr);
    ~QtSvgButton() override;

    // "Beryl", round, the one at first; "BerylSquare"; "MetallicBrush", of brushed metal. Any other name is kept and
    // looks as the one at first.
    QString skin() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void setSkin(const QString& skin);

protected:
    bool event(QEvent* event) override;
    bool hitButton(const QPoint& position) const override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
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
