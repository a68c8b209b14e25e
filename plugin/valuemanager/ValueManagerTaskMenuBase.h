// The task menu that an editor has in Qt Designer: one entry, which does nothing but where an editor says what.
#ifndef OSTREL_VALUEMANAGER_VALUEMANAGERTASKMENUBASE_H
#define OSTREL_VALUEMANAGER_VALUEMANAGERTASKMENUBASE_H

#include <QAction>
#include <QDesignerFormWindowInterface>
#include <QDesignerTaskMenuExtension>
#include <QPointer>

class Q_DECL_EXPORT ValueManagerTaskMenuBase : public QObject, public QDesignerTaskMenuExtension {
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    explicit ValueManagerTaskMenuBase(QObject* parent);

    QList<QAction*> taskActions() const override;
    QAction* preferredEditAction() const override;

private Q_SLOTS:
    virtual void editState();

protected:
    QAction* editStateAction;
    QPointer<QDesignerFormWindowInterface> m_formWindow;
};

#endif
