#include "formsplice.h"

#include <QRegularExpression>
#include <algorithm>

namespace {

bool isBlank(QChar character) {
    return character == QLatin1Char(' ') || character == QLatin1Char('\t') || character == QLatin1Char('\n') ||
           character == QLatin1Char('\r');
}

QString cData(const QString& text) {
    return QStringLiteral("<![CDATA[%1]]>").arg(text);
}

bool fitsCData(const QString& text) {
    return !text.contains(QLatin1String("]]>")) && !text.contains(QLatin1Char('\r'));
}

}  // namespace

bool saysTheSame(const FormNode& node, const FormElement& wanted) {
    if (node.name != wanted.name || node.text != wanted.text ||
        node.children.size() != static_cast<size_t>(wanted.children.size()))
        return false;
    for (const FormAttribute& attribute : wanted.attributes) {
        const QString present = node.attributes.hasAttribute(attribute.name)
                                    ? node.attributes.value(attribute.name).toString()
                                    : attribute.whenAbsent;
        if (present != attribute.value)
            return false;
    }
    return std::equal(node.children.begin(), node.children.end(), wanted.children.begin(), saysTheSame);
}

QString leadAt(const QString& text, int position) {
    int begin = position;
    while (begin > 0 && (text.at(begin - 1) == QLatin1Char(' ') || text.at(begin - 1) == QLatin1Char('\t')))
        --begin;
    if (begin == 0 || (text.at(begin - 1) != QLatin1Char('\n') && text.at(begin - 1) != QLatin1Char('\r')))
        return QString();
    --begin;
    if (begin > 0 && text.at(begin) == QLatin1Char('\n') && text.at(begin - 1) == QLatin1Char('\r'))
        --begin;
    return text.mid(begin, position - begin);
}

void FormSplice::merge(const FormNode& node, const FormElement& wanted) {
    if (saysTheSame(node, wanted))
        return;
    for (const FormAttribute& attribute : wanted.attributes)
        mergeAttribute(node, attribute);
    if (wanted.children.isEmpty() && node.children.empty())
        mergeText(node, wanted.text);
    else
        mergeChildren(node, wanted);
}

void FormSplice::mergeAttribute(const FormNode& node, const FormAttribute& wanted) {
    if (!node.attributes.hasAttribute(wanted.name)) {
        if (wanted.value != wanted.whenAbsent)
            replace(node.begin + 1 + node.name.size(), node.begin + 1 + node.name.size(),
                    QStringLiteral(" %1=\"%2\"").arg(wanted.name, escapedAttribute(wanted.value)));
        return;
    }
    if (node.attributes.value(wanted.name) == wanted.value)
        return;
    const QRegularExpression pattern(
        QStringLiteral("\\s%1\\s*=\\s*(\"[^\"]*\"|'[^']*')").arg(QRegularExpression::escape(wanted.name)));
    const QRegularExpressionMatch match = pattern.match(m_text, node.begin);
    replace(match.capturedStart(1) + 1, match.capturedEnd(1) - 1, escapedAttribute(wanted.value));
}

void FormSplice::mergeText(const FormNode& node, const QString& wanted) {
    if (node.text == wanted)
        return;
    if (node.pieces.empty()) {
        fill(node, escapedText(wanted));
        return;
    }
    bool first = true;
    for (const FormTextPiece& piece : node.pieces) {
        const bool asCData = node.pieces.size() == 1 && piece.isCData && fitsCData(wanted);
        replace(piece.begin, piece.end, !first ? QString() : asCData ? cData(wanted) : escapedText(wanted));
        first = false;
    }
}

void FormSplice::fill(const FormNode& node, const QString& content) {
    if (node.isSelfClosed())
        replace(node.end - 2, node.end, QStringLiteral(">%1</%2>").arg(content, node.name));
    else
        replace(node.contentBegin, node.contentBegin, content);
}

void FormSplice::mergeChildren(const FormNode& node, const FormElement& wanted) {
    if (node.children.empty()) {
        const FormLayout inner{lead(node).isEmpty() ? QString() : lead(node) + unit(node), unit(node)};
        QString content;
        for (const FormElement& child : wanted.children)
            content += inner.lead + elementText(child, inner);
        fill(node, content + (blanksBefore(node.contentEnd) < node.contentEnd ? QString() : lead(node)));
        return;
    }
    removeText(node);
    std::vector<bool> kept(node.children.size(), false);
    const FormNode* anchor = nullptr;
    for (const FormElement& child : wanted.children) {
        size_t at = 0;
        while (at < node.children.size() && (kept[at] || node.children[at].name != child.name))
            ++at;
        if (at < node.children.size()) {
            kept[at] = true;
            anchor = &node.children[at];
            merge(*anchor, child);
        } else if (anchor) {
            insertBehind(*anchor, child);
        } else {
            insertFirst(node, child);
        }
    }
    for (size_t at = 0; at < kept.size(); ++at)
        if (!kept[at])
            remove(node.children[at]);
}

// Text beside children has no business in a value. The blanks around it are the form's.
void FormSplice::removeText(const FormNode& node) {
    for (const FormTextPiece& piece : node.pieces) {
        int begin = piece.begin;
        int end = piece.end;
        while (begin < end && isBlank(m_text.at(begin)))
            ++begin;
        while (end > begin && isBlank(m_text.at(end - 1)))
            --end;
        if (begin < end)
            replace(begin, end, QString());
    }
}

void FormSplice::remove(const FormNode& child) {
    replace(blanksBefore(child.begin), child.end, QString());
}

void FormSplice::insertFirst(const FormNode& node, const FormElement& element) {
    const FormNode& neighbour = node.children.front();
    const FormLayout layout{lead(neighbour), unit(neighbour)};
    replace(node.contentBegin, node.contentBegin, layout.lead + elementText(element, layout));
}

void FormSplice::insertBehind(const FormNode& sibling, const FormElement& element) {
    const FormLayout layout{lead(sibling), unit(sibling)};
    replace(sibling.end, sibling.end, layout.lead + elementText(element, layout));
}

void FormSplice::addProperty(const FormNode& widget, const FormElement& property) {
    const FormNode* last = nullptr;
    for (const FormNode& child : widget.children)
        if (child.name == QLatin1String("property"))
            last = &child;
    if (last)
        insertBehind(*last, property);
    else if (!widget.children.empty())
        insertFirst(widget, property);
    else
        mergeChildren(widget, {widget.name, {}, {}, {property}});
}

QString FormSplice::lead(const FormNode& node) const {
    return leadAt(m_text, node.begin);
}

// How far the form moves children in, seen at this element where it has some.
QString FormSplice::unit(const FormNode& node) const {
    const QString own = lead(node);
    if (own.isEmpty())
        return QString();
    const QString inner = node.children.empty() ? QString() : lead(node.children.front());
    return inner.size() > own.size() && inner.startsWith(own) ? inner.mid(own.size()) : m_usual;
}

int FormSplice::blanksBefore(int position) const {
    while (position > 0 && isBlank(m_text.at(position - 1)))
        --position;
    return position;
}

QString FormSplice::result() const {
    std::vector<Cut> cuts = m_cuts;
    std::stable_sort(cuts.begin(), cuts.end(), [](const Cut& one, const Cut& other) {
        return std::pair(one.position, one.length > 0) < std::pair(other.position, other.length > 0);
    });
    QString result;
    int from = 0;
    for (const Cut& cut : cuts) {
        result += m_text.midRef(from, cut.position - from) + cut.replacement;
        from = cut.position + cut.length;
    }
    return result + m_text.midRef(from);
}
