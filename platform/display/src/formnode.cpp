#include "formnode.h"

namespace {

class NodeReader {
public:
    explicit NodeReader(const QString& text) : m_text(text), m_xml(text) {}

    bool read(FormNode& root, QString* fault) {
        while (!m_xml.atEnd() && next() != QXmlStreamReader::StartElement) {
        }
        if (!m_xml.hasError())
            readNode(root);
        while (!m_xml.atEnd())
            m_xml.readNext();
        if (m_xml.hasError() && fault)
            *fault = QStringLiteral("line %1: %2").arg(m_xml.lineNumber()).arg(m_xml.errorString().trimmed());
        return !m_xml.hasError();
    }

private:
    QXmlStreamReader::TokenType next() {
        m_begin = m_end;
        const QXmlStreamReader::TokenType type = m_xml.readNext();
        m_end = static_cast<int>(m_xml.characterOffset());
        // The reader looks one character ahead to see that a text is at its end.
        if (type == QXmlStreamReader::Characters && !m_xml.isCDATA() && m_end > m_begin &&
            m_text.at(m_end - 1) == QLatin1Char('<'))
            --m_end;
        return type;
    }

    void readNode(FormNode& node, int depth = 1) {
        if (depth > deepestElement) {
            m_xml.raiseError(QStringLiteral("elements stand in each other more than %1 deep").arg(deepestElement));
            return;
        }
        node.name = m_xml.name().toString();
        node.attributes = m_xml.attributes();
        node.contentBegin = m_end;
        node.begin = m_text.lastIndexOf(QLatin1Char('<'), m_end - 1);
        while (!m_xml.atEnd()) {
            const QXmlStreamReader::TokenType type = next();
            if (type == QXmlStreamReader::StartElement) {
                node.children.emplace_back();
                readNode(node.children.back(), depth + 1);
            } else if (type == QXmlStreamReader::Characters) {
                node.pieces.push_back({m_begin, m_end, m_xml.isCDATA()});
                if (!m_xml.isWhitespace())
                    node.text += m_xml.text();
            } else if (type == QXmlStreamReader::EndElement) {
                node.end = m_end;
                // An empty element passes its end twice.
                node.contentEnd =
                    m_end == node.contentBegin ? m_end : m_text.lastIndexOf(QLatin1String("</"), m_end - 1);
                return;
            }
        }
    }

    const QString& m_text;
    QXmlStreamReader m_xml;
    int m_begin = 0;  // of the present token
    int m_end = 0;
};

}  // namespace

const FormNode* FormNode::property(const QString& wanted) const {
    for (const FormNode& child : children)
        if (child.name == QLatin1String("property") && child.attributes.value(QLatin1String("name")) == wanted)
            return &child;
    return nullptr;
}

FormElement FormNode::element() const {
    FormElement element{name, text, {}, {}};
    for (const QXmlStreamAttribute& attribute : attributes)
        element.attributes.append({attribute.name().toString(), attribute.value().toString(), {}});
    for (const FormNode& child : children)
        element.children.append(child.element());
    return element;
}

bool readNodes(const QString& text, FormNode& root, QString* fault) {
    return NodeReader(text).read(root, fault);
}
