#include "formdocument.h"

#include <QRegularExpression>
#include <QSet>
#include <QTextCodec>
#include <algorithm>

#include "formnode.h"
#include "formsplice.h"

namespace {

// By its byte order mark, or else by what it declares.
QTextCodec* codecOf(const QByteArray& bytes) {
    if (QTextCodec* marked = QTextCodec::codecForUtfText(bytes, nullptr))
        return marked;
    static const QRegularExpression declaration(
        QStringLiteral("^\\s*<\\?xml[^>]*\\bencoding\\s*=\\s*[\"']([^\"']+)[\"']"));
    const QString name = declaration.match(QString::fromLatin1(bytes.left(256))).captured(1);
    return QTextCodec::codecForName(name.isEmpty() ? QByteArray("UTF-8") : name.toLatin1());
}

using Skipped = QSet<const FormNode*>;

// Children that have a say in it.
std::vector<const FormNode*> childrenOf(const FormNode& node, const Skipped& skipped) {
    std::vector<const FormNode*> children;
    for (const FormNode& child : node.children)
        if (!skipped.contains(&child))
            children.push_back(&child);
    return children;
}

bool isSameTree(const FormNode& one, const FormNode& other, const Skipped& skipped) {
    const auto children = childrenOf(one, skipped);
    const auto others = childrenOf(other, skipped);
    return one.name == other.name && one.attributes == other.attributes && one.text == other.text &&
           std::equal(children.begin(), children.end(), others.begin(), others.end(),
                      [&](const FormNode* child, const FormNode* same) { return isSameTree(*child, *same, skipped); });
}

}  // namespace

FormDocument::FormDocument() = default;
FormDocument::~FormDocument() = default;

std::unique_ptr<FormDocument> FormDocument::read(const QByteArray& bytes, QString* fault) {
    std::unique_ptr<FormDocument> document(new FormDocument);
    if (!document->decode(bytes)) {
        if (fault)
            *fault = QStringLiteral("is in an encoding that cannot be written");
        return nullptr;
    }
    return document->parse(fault) ? std::move(document) : nullptr;
}

// True only when encoding gives the same bytes again: what is not changed must stay.
bool FormDocument::decode(const QByteArray& bytes) {
    m_codec = codecOf(bytes);
    if (!m_codec)
        return false;
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    m_text = m_codec->toUnicode(bytes.constData(), bytes.size(), &state);
    m_marked = m_text.startsWith(QChar(QChar::ByteOrderMark));
    m_text.remove(0, m_marked ? 1 : 0);
    return encode(m_text) == bytes;
}

QByteArray FormDocument::encode(const QString& text) const {
    const bool holdsAll = m_codec->name().startsWith("UTF");
    QString written = m_marked ? QString(QChar(QChar::ByteOrderMark)) : QString();
    if (holdsAll)
        written += text;
    for (int i = 0; i < text.size() && !holdsAll; ++i) {
        const bool pair = text.at(i).isHighSurrogate() && i + 1 < text.size();
        const QString character = text.mid(i, pair ? 2 : 1);
        if (text.at(i).unicode() < 0x80 || m_codec->canEncode(character))
            written += character;
        else
            written += QStringLiteral("&#%1;").arg(character.toUcs4().at(0));
        i += pair ? 1 : 0;
    }
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return m_codec->fromUnicode(written.constData(), written.size(), &state);
}

bool FormDocument::parse(QString* fault) {
    m_root = std::make_unique<FormNode>();
    if (!readNodes(m_text, *m_root, fault))
        return false;
    if (m_root->name != QLatin1String("ui")) {
        if (fault)
            *fault = QStringLiteral("begins with <%1> and not with <ui>").arg(m_root->name);
        return false;
    }
    indexWidgets(*m_root);
    return true;
}

void FormDocument::indexWidgets(const FormNode& node) {
    if (node.name == QLatin1String("widget"))
        m_widgets.insert(node.attributes.value(QLatin1String("name")).toString(), &node);
    for (const FormNode& child : node.children)
        indexWidgets(child);
}

// A name stands once in a form that Qt Designer wrote; in others the class tells which is meant. A class that the
// widget's own was derived from goes by the name of the base first.
const FormNode* FormDocument::widget(const QString& className, const QString& objectName) const {
    const QList<const FormNode*> named = m_widgets.values(objectName);
    for (const FormNode* each : named)
        if (className.endsWith(each->attributes.value(QLatin1String("class"))))
            return each;
    return named.size() == 1 ? named.first() : nullptr;
}

bool FormDocument::hasWidget(const QString& className, const QString& objectName) const {
    return widget(className, objectName) != nullptr;
}

std::optional<FormElement> FormDocument::property(const QString& className, const QString& objectName,
                                                  const QString& name) const {
    const FormNode* found = widget(className, objectName);
    const FormNode* property = found ? found->property(name) : nullptr;
    return property ? std::optional(property->element()) : std::nullopt;
}

bool FormDocument::says(const FormEdit& edit) const {
    const FormNode* found = widget(edit.className, edit.objectName);
    const FormNode* property = found ? found->property(edit.propertyName()) : nullptr;
    return property && saysTheSame(*property, edit.property);
}

QByteArray FormDocument::with(const std::vector<FormEdit>& edits) const {
    const QString inner = m_root->children.empty() ? QString() : leadAt(m_text, m_root->children.front().begin);
    const QString blanks = inner.mid(inner.lastIndexOf(QLatin1Char('\n')) + 1);
    FormSplice splice(m_text, blanks.isEmpty() ? QStringLiteral(" ") : blanks);
    for (const FormEdit& edit : edits) {
        const FormNode* found = widget(edit.className, edit.objectName);
        if (const FormNode* property = found->property(edit.propertyName()))
            splice.merge(*property, edit.property);
        else
            splice.addProperty(*found, edit.property);
    }
    return encode(splice.result());
}

bool FormDocument::isWith(const QByteArray& bytes, const std::vector<FormEdit>& edits) const {
    const auto written = read(bytes);
    if (!written)
        return false;
    Skipped skipped;
    for (const FormEdit& edit : edits) {
        if (!written->says(edit))
            return false;
        for (const FormDocument* document : {this, static_cast<const FormDocument*>(written.get())})
            if (const FormNode* found = document->widget(edit.className, edit.objectName))
                skipped.insert(found->property(edit.propertyName()));
    }
    return isSameTree(*m_root, *written->m_root, skipped);
}
