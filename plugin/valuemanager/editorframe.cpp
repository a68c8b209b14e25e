#include "valuemanager/editorframe.h"

#include <QBoxLayout>

#include "ui_editorframe.h"
#include "widgets/namelabel.h"

EditorFrame::EditorFrame(QWidget* widget) : m_widget(widget) {
    Ui::EditorFrame form;
    form.setupUi(widget);
    m_frame = form.frame;
    m_field = form.frame_bcolor;
}

void EditorFrame::takeSizeOfField() {
    m_widget->resize(m_field->size());
}

void EditorFrame::addLabel(const QString& text) {
    constexpr int widest = 128;
    m_label = new NameLabel(m_field);
    m_label->setObjectName(QStringLiteral("ostrelVarLabel"));
    m_label->setMaximumWidth(widest);
    m_label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // A name is shown as it is written.
    m_label->setTextFormat(Qt::PlainText);
    m_label->setText(text);
    static_cast<QBoxLayout*>(m_field->layout())->insertWidget(0, m_label);
    m_widget->setAcceptDrops(true);
}

namespace {

// Anything can be pasted for a variable's name. Whether that is a tag is for the reader of a file to say.
bool isTag(const QString& name) {
    QDomDocument document;
    return document.setContent(QStringLiteral("<%1/>").arg(name)) && document.documentElement().tagName() == name;
}

}  // namespace

QDomElement addStagedValue(QDomDocument document, const QString& variable) {
    QDomElement root = document.documentElement();
    if (root.isNull() || !isTag(variable))
        return QDomElement();
    QDomElement element = document.createElement(variable);
    root.appendChild(element);
    return element;
}

void setStagedText(QDomElement& element, const char* attribute, const QString& text) {
    QString kept;
    for (const uint character : text.toUcs4()) {
        const bool isSurrogate = character >= 0xd800 && character < 0xe000;
        const bool isControl = character < 0x20 && character != '\t';
        if (!isSurrogate && !isControl && character != 0xfffe && character != 0xffff)
            kept += QString::fromUcs4(&character, 1);
    }
    element.setAttribute(QLatin1String(attribute), kept);
}

void takeStagedValue(QDomDocument document, const QString& variable,
                     const std::function<void(const QDomElement&)>& restore) {
    QDomElement root = document.documentElement();
    QDomElement staged = root.firstChildElement();
    // Not by firstChildElement(variable), for which an empty name is any name.
    while (!staged.isNull() && staged.tagName() != variable)
        staged = staged.nextSiblingElement();
    if (staged.isNull())
        return;
    restore(staged);
    root.removeChild(staged);
}
