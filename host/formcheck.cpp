#include "formcheck.h"

#include <QXmlStreamReader>
#include <string>
#include <vector>

#include "ground/nearestnames.h"

namespace {

class Outliner {
public:
    Outliner(QIODevice* device, QString form, const QSet<QString>& known)
        : m_xml(device), m_form(std::move(form)), m_known(known) {}

    FormOutline outline() {
        if (!m_xml.readNextStartElement() || m_xml.name() != QLatin1String("ui"))
            addFault(m_xml.hasError() ? notXml() : noForm());
        else
            readTree();
        return m_outline;
    }

private:
    void readTree() {
        while (!m_xml.atEnd()) {
            m_xml.readNext();
            if (m_xml.isStartElement())
                enter();
            else if (m_xml.isEndElement() && m_xml.name() == QLatin1String("widget") && !m_objects.isEmpty())
                m_objects.removeLast();
        }
        if (m_xml.hasError())
            addFault(notXml());
        else if (m_widgets == 0)
            addFault(QStringLiteral("the form holds no widget; save it with Qt Designer"));
    }

    void enter() {
        if (m_xml.name() == QLatin1String("widget"))
            enterWidget();
        else if (m_xml.name() == QLatin1String("property") && !m_objects.isEmpty() &&
                 m_xml.attributes().value(QLatin1String("name")) == QLatin1String("units"))
            readUnits();
        else if (m_xml.name() == QLatin1String("customwidgets"))
            m_xml.skipCurrentElement();
    }

    void enterWidget() {
        ++m_widgets;
        const QString className = m_xml.attributes().value(QLatin1String("class")).toString();
        const QString object = m_xml.attributes().value(QLatin1String("name")).toString();
        m_objects.append(object);
        if (m_known.contains(className))
            return;
        const QString nearest = nearestName(className, m_known);
        addFault(QStringLiteral("line %1: widget '%2' is of the unknown class '%3'; %4")
                     .arg(m_xml.lineNumber())
                     .arg(object, className,
                          nearest.isEmpty() ? QStringLiteral("use a class that this display knows")
                                            : QStringLiteral("did you mean '%1'?").arg(nearest)));
    }

    void readUnits() {
        if (m_xml.readNextStartElement() && m_xml.name() == QLatin1String("string"))
            m_outline.units.insert(m_objects.last(), m_xml.readElementText().trimmed());
    }

    QString notXml() const {
        return QStringLiteral("line %1: %2; give a form saved with Qt Designer")
            .arg(m_xml.lineNumber())
            .arg(m_xml.errorString().trimmed().remove(QRegExp(QStringLiteral("\\.$"))));
    }

    QString noForm() const {
        return QStringLiteral(
                   "line %1: the file begins with <%2> and not with <ui>; give a form saved with Qt Designer")
            .arg(m_xml.lineNumber())
            .arg(m_xml.name());
    }

    void addFault(const QString& fault) { m_outline.faults.append(m_form + QStringLiteral(": ") + fault); }

    QXmlStreamReader m_xml;
    QString m_form;
    const QSet<QString>& m_known;
    QStringList m_objects;  // names of the widgets around the present element
    int m_widgets = 0;
    FormOutline m_outline;
};

}  // namespace

FormOutline outlineForm(QIODevice* device, const QString& form, const QSet<QString>& known) {
    return Outliner(device, form, known).outline();
}

QString nearestName(const QString& wrong, const QSet<QString>& known) {
    std::vector<std::string> names;
    for (const QString& name : known)
        names.push_back(name.toStdString());
    const std::vector<std::string> nearest = nearestNames(wrong.toStdString(), names);
    return nearest.empty() ? QString() : QString::fromStdString(nearest.front());
}
