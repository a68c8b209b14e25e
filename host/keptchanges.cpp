#include "keptchanges.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace {

constexpr auto root = "unsaved";
constexpr auto formElement = "form";
constexpr auto groupElement = "group";

void write(QXmlStreamWriter& xml, const GroupChange& change) {
    xml.writeEmptyElement(groupElement);
    xml.writeAttribute("name", change.group);
    xml.writeAttribute("file", change.file);
    xml.writeAttribute("row", QString::number(change.row));
    xml.writeAttribute("column", QString::number(change.column));
    xml.writeAttribute("former", change.former);
    xml.writeAttribute("variable", change.name);
}

GroupChange read(const QXmlStreamAttributes& attributes) {
    const auto text = [&](const char* name) { return attributes.value(QLatin1String(name)).toString(); };
    return {text("name"), text("file"), text("row").toInt(), text("column").toInt(), text("former"), text("variable")};
}

}  // namespace

QByteArray KeptChanges::packed() const {
    QByteArray text;
    QXmlStreamWriter xml(&text);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(root);
    if (!form.isEmpty())
        xml.writeTextElement(formElement, QString::fromUtf8(form));
    for (const GroupChange& change : groups)
        write(xml, change);
    xml.writeEndDocument();
    return text;
}

KeptChanges KeptChanges::unpacked(const QByteArray& text) {
    KeptChanges kept;
    QXmlStreamReader xml(text);
    if (!xml.readNextStartElement() || xml.name() != QLatin1String(root))
        return {};
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String(formElement)) {
            kept.form = xml.readElementText().toUtf8();
            continue;
        }
        if (xml.name() == QLatin1String(groupElement))
            kept.groups.append(read(xml.attributes()));
        xml.skipCurrentElement();
    }
    return xml.hasError() ? KeptChanges() : kept;
}
