// The text of a form file: where its widgets and their properties stand in it, and changing single ones of them while
// every other byte stays.
#ifndef OSTREL_DISPLAY_FORMDOCUMENT_H
#define OSTREL_DISPLAY_FORMDOCUMENT_H

#include <QByteArray>
#include <QMultiHash>
#include <QString>
#include <memory>
#include <optional>
#include <vector>

#include "formelement.h"

class QTextCodec;
struct FormNode;

// A change of one property of a widget.
struct FormEdit {
    QString className;
    QString objectName;
    FormElement property;

    QString propertyName() const { return property.attributes.first().value; }
};

class FormDocument {
public:
    // Null when `bytes` is no form; `fault` then says why.
    static std::unique_ptr<FormDocument> read(const QByteArray& bytes, QString* fault = nullptr);
    ~FormDocument();

    bool hasWidget(const QString& className, const QString& objectName) const;
    // What the form says about a property: nothing where it says nothing, or where it has no such widget.
    std::optional<FormElement> property(const QString& className, const QString& objectName, const QString& name) const;

    // True when the edit would change nothing.
    bool says(const FormEdit& edit) const;

    // The form with `edits`, each of a widget that it has. It need not be one any more: see isWith().
    QByteArray with(const std::vector<FormEdit>& edits) const;

    // Whether these bytes are this form with `edits`: they read as the same tree but for the edited properties, and
    // those say what was wanted.
    bool isWith(const QByteArray& bytes, const std::vector<FormEdit>& edits) const;

private:
    FormDocument();

    bool decode(const QByteArray& bytes);
    QByteArray encode(const QString& text) const;
    bool parse(QString* fault);
    void indexWidgets(const FormNode& node);
    const FormNode* widget(const QString& className, const QString& objectName) const;

    QString m_text;
    QTextCodec* m_codec = nullptr;
    bool m_marked = false;  // with a byte order mark
    std::unique_ptr<FormNode> m_root;
    QMultiHash<QString, const FormNode*> m_widgets;
};

#endif
