#include "livewidgets.h"

namespace {

bool goesBy(const QWidget* widget, const QString& className) {
    for (const QMetaObject* meta = widget->metaObject(); meta; meta = meta->superClass())
        if (className.endsWith(QLatin1String(meta->className())))
            return meta != &QWidget::staticMetaObject && meta != &QObject::staticMetaObject;
    return false;
}

}  // namespace

void LiveWidgets::setForm(QWidget* form) {
    m_form = form;
    m_found.clear();
    m_former.clear();
    QList<QWidget*> all = form->findChildren<QWidget*>();
    all.append(form);
    for (const QWidget* widget : qAsConst(all)) {
        const QMetaObject* meta = widget->metaObject();
        if (widget->objectName().isEmpty())
            continue;
        for (int i = QWidget::staticMetaObject.propertyCount(); i < meta->propertyCount(); ++i)
            m_former[widget].insert(QLatin1String(meta->property(i).name()), meta->property(i).read(widget));
    }
}

QWidget* LiveWidgets::widget(const QString& className, const QString& objectName) {
    QPointer<QWidget>& found = m_found[className + QLatin1Char('\n') + objectName];
    if (found || !m_form)
        return found;
    QList<QWidget*> named = m_form->findChildren<QWidget*>(objectName);
    if (m_form->objectName() == objectName)
        named.prepend(m_form);
    // Parts inside a widget may have a name that the form uses as well.
    for (QWidget* each : qAsConst(named))
        if (!found && goesBy(each, className))
            found = each;
    return found;
}

QMetaProperty LiveWidgets::property(const QWidget* widget, const QString& key) {
    const QMetaObject* meta = widget->metaObject();
    const int exact = meta->indexOfProperty(key.toLatin1().constData());
    if (exact >= 0)
        return meta->property(exact);
    for (int i = meta->propertyCount() - 1; i >= 0; --i)
        if (key.compare(QLatin1String(meta->property(i).name()), Qt::CaseInsensitive) == 0)
            return meta->property(i);
    return {};
}

bool LiveWidgets::isStatusColour(const QMetaProperty& property, const QString& className) {
    return qstrcmp(property.name(), "color") == 0 &&
           className != QLatin1String(property.enclosingMetaObject()->className());
}

QVariant LiveWidgets::former(const QWidget* widget, const QString& property) const {
    return m_former.value(widget).value(property);
}
