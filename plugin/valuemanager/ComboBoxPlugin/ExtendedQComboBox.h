// A combo box whose items are also one text.
#ifndef OSTREL_VALUEMANAGER_COMBOBOXPLUGIN_EXTENDEDQCOMBOBOX_H
#define OSTREL_VALUEMANAGER_COMBOBOXPLUGIN_EXTENDEDQCOMBOBOX_H

#include <QComboBox>
#include <QStringList>

class Q_DECL_EXPORT ExtendedQComboBox : public QComboBox {
    Q_OBJECT

public:
    // The delimiter stands between the items in their one text, and so in no item for long. Only a widget is a parent.
    explicit ExtendedQComboBox(QObject* parent = nullptr, QString deliminator = QStringLiteral(";"));

    // Replace all items. A text has one item more than delimiters, which may be empty.
    void setContents(QStringList items);
    void setContents(QString text);
    QStringList contentsAsList() const;
    QString contents() const;
    QString getDeliminator() const { return deliminator; }

private:
    const QString deliminator;
};

#endif
