// What the drawn buttons tell to a screen reader, and what it can do to them.
#ifndef OSTREL_DISPLAY_DRAWN_ACCESSIBLEBUTTON_H
#define OSTREL_DISPLAY_DRAWN_ACCESSIBLEBUTTON_H

#include <QAbstractButton>
#include <QAccessibleWidget>

class AccessibleButton : public QAccessibleWidget {
public:
    // `kind` is its name where the form gives none.
    AccessibleButton(QAbstractButton* button, QAccessible::Role role, QString kind);

    QString text(QAccessible::Text part) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& action) override;

private:
    QAbstractButton* button() const;
    QString pressing() const;

    QString m_kind;
};

#endif
