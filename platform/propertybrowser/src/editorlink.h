// Keeps an open editor and its property in step.
#ifndef OSTREL_PROPERTYBROWSER_EDITORLINK_H
#define OSTREL_PROPERTYBROWSER_EDITORLINK_H

#include <QPointer>
#include <QVariant>
#include <functional>

#include "qtvariantproperty.h"

// A child of the editor. Once the property is gone, nothing is shown and applied any more.
class EditorLink : public QObject {
    Q_OBJECT

public:
    EditorLink(QtVariantPropertyManager* manager, QtProperty* property, QWidget* editor);

    QVariant value() const;
    QVariant attribute(const QString& name) const;
    void apply(const QVariant& value);
    // `show` brings value and attributes into the editor: now, and whenever one of them changed. The editor is quiet
    // meanwhile, so that nothing comes back.
    void showWith(std::function<void()> show);

private:
    void refresh();

    QPointer<QtVariantPropertyManager> m_manager;
    QtProperty* m_property;
    QWidget* const m_editor;
    std::function<void()> m_show;
};

#endif
