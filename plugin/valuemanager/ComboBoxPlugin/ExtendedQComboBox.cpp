#include "valuemanager/ComboBoxPlugin/ExtendedQComboBox.h"

ExtendedQComboBox::ExtendedQComboBox(QObject* parent, QString between)
    : QComboBox(qobject_cast<QWidget*>(parent)), deliminator(between) {}

void ExtendedQComboBox::setContents(QStringList items) {
    clear();
    insertItems(count(), items);
}

void ExtendedQComboBox::setContents(QString text) {
    setContents(text.split(deliminator, Qt::KeepEmptyParts, Qt::CaseSensitive));
}

QStringList ExtendedQComboBox::contentsAsList() const {
    QStringList items;
    for (int i = 0; i < count(); ++i)
        items.append(itemText(i));
    return items;
}

QString ExtendedQComboBox::contents() const {
    return contentsAsList().join(deliminator);
}
