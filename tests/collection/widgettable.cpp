#include "widgettable.h"

#include <ostrel/store.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMetaProperty>
#include <QStyle>
#include <cstdio>
#include <memory>

#include "collection/ostrelplugins.h"
#include "core/ostrelbase.h"
#include "paths.h"

namespace {

// A variable of the demo cell of each kind.
struct Kind {
    const char* name;
    const char* variable;
};
constexpr Kind kinds[] = {
    {"real", "ENGINE_SPEED"},
    {"integer", "CYCLE_COUNT"},
    {"logical", "BEACON"},
    {"string", "CELL_STATE"},
    {"element of a real array", "CYL_EXH_TEMP:0"},
    {"of an integer array", "FAULT_CODES:0"},
    {"of a logical array", "VALVES:0"},
    {"of a string array", "STEPS:0"},
    {"member of a statistics variable", "SPEED_STAT.AV"},
    {"of a composition", "EXHAUST_GAS.CO"},
    {"of a property variable", "AIR_PROP.AT"},
    {"of an emission variable", "RAW_EXHAUST.MF_CO"},
};

QString source(const char* path) {
    return QString(paths::sources) + QLatin1String(path);
}

// The widgets in the order of the palette, each class once.
std::vector<QDesignerCustomWidgetInterface*> widgetsOf(const OstrelPlugins& collection) {
    std::vector<QDesignerCustomWidgetInterface*> widgets;
    QStringList known;
    for (QDesignerCustomWidgetInterface* plugin : collection.customWidgets()) {
        if (!known.contains(plugin->name()))
            widgets.push_back(plugin);
        known.append(plugin->name());
    }
    return widgets;
}

QMap<QString, QString> readMeanings() {
    QMap<QString, QString> meanings;
    QFile file(source("/docs/properties.txt"));
    file.open(QIODevice::ReadOnly);
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const int colon = line.indexOf(QLatin1String(": "));
        if (!line.startsWith(QLatin1Char('#')) && colon > 0)
            meanings.insert(line.left(colon), line.mid(colon + 2));
    }
    return meanings;
}

// What follows the class comes before what every class has.
QString meaningOf(const QMap<QString, QString>& meanings, const QString& widget, const QString& property) {
    return meanings.value(widget + QLatin1Char('.') + property, meanings.value(property));
}

QString typeText(const QMetaProperty& property) {
    if (!property.isEnumType())
        return QLatin1String(property.typeName());
    const QMetaEnum values = property.enumerator();
    if (values.isFlag())
        return QLatin1String(property.typeName());
    QStringList keys;
    for (int i = 0; i < values.keyCount(); ++i)
        keys.append(QLatin1String(values.key(i)));
    return keys.join(QLatin1String(", "));
}

QString fontText(const QFont& font) {
    const QFont usual = QApplication::font();
    if (font.pointSize() == usual.pointSize() && font.bold() == usual.bold())
        return QStringLiteral("the application's");
    return QString::number(font.pointSize()) + QLatin1String(font.bold() ? " pt, bold" : " pt");
}

QString valueText(const QMetaProperty& property, const QVariant& value) {
    if (property.isEnumType()) {
        const QMetaEnum values = property.enumerator();
        return QString::fromLatin1(values.isFlag() ? values.valueToKeys(value.toInt())
                                                   : QByteArray(values.valueToKey(value.toInt())));
    }
    if (value.userType() == QMetaType::QFont)
        return fontText(value.value<QFont>());
    if (value.userType() == QMetaType::QColor) {
        const auto colour = value.value<QColor>();
        return colour.isValid() ? colour.name() : QStringLiteral("not set");
    }
    if (value.userType() == QMetaType::QStringList)
        return value.toStringList().join(QLatin1String(", "));
    const QString text = value.toString();
    return text.isEmpty() ? QStringLiteral("empty") : text;
}

bool isOfQt(const QMetaObject& meta) {
    return meta.className()[0] == 'Q';
}

QString inACell(QString text) {
    return text.replace(QLatin1Char('|'), QLatin1String("\\|"));
}

// Rows for the properties that classes declare from `first` on, as a new widget has them.
QString propertyRows(const QWidget& widget, bool ofTheBase, QStringList* withoutMeaning) {
    const QMap<QString, QString> meanings = readMeanings();
    const QString name = QLatin1String(widget.metaObject()->className());
    QString rows;
    for (int i = 0; i < widget.metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = widget.metaObject()->property(i);
        const QMetaObject& declaring = *property.enclosingMetaObject();
        const bool isOfTheBase = &declaring == &OstrelBase::staticMetaObject;
        if (isOfQt(declaring) || isOfTheBase != ofTheBase)
            continue;
        const QString meaning = meaningOf(meanings, name, QLatin1String(property.name()));
        if (meaning.isEmpty())
            withoutMeaning->append(name + QLatin1Char('.') + QLatin1String(property.name()));
        rows += QStringLiteral("| `%1` | %2 | %3 | %4 |\n")
                    .arg(QLatin1String(property.name()), typeText(property),
                         inACell(valueText(property, property.read(&widget))), inACell(meaning));
    }
    return rows;
}

const QString tableHead = QStringLiteral("| Property | Type | Default | Meaning |\n|---|---|---|---|\n");

// Which kinds it can be bound to; asked of the widget itself.
QString kindsOf(QDesignerCustomWidgetInterface& plugin) {
    QStringList taken;
    for (const Kind& kind : kinds) {
        const std::unique_ptr<QWidget> widget(plugin.createWidget(nullptr));
        auto* const bound = qobject_cast<OstrelBase*>(widget.get());
        if (!bound)
            return QString();
        bound->setName(QLatin1String(kind.variable));
        if (bound->ptr())
            taken.append(QLatin1String(kind.name));
    }
    return taken.join(QLatin1String(", "));
}

QString pictureName(const QString& widget) {
    return widget + QLatin1String(".png");
}

QString section(QDesignerCustomWidgetInterface& plugin, QStringList* withoutMeaning) {
    const std::unique_ptr<QWidget> widget(plugin.createWidget(nullptr));
    QString text =
        QStringLiteral("## %1\n\n![%1](pictures/widgets/%2)\n\n").arg(plugin.name(), pictureName(plugin.name()));
    text += QStringLiteral("Group \"%1\" of the widget box, header `%2`").arg(plugin.group(), plugin.includeFile());
    if (plugin.isContainer())
        text += QStringLiteral(", takes other widgets");
    text += QStringLiteral(".\n\n");
    const QString taken = kindsOf(plugin);
    if (!taken.isEmpty())
        text += QStringLiteral("Variables: %1.\n\n").arg(taken);
    const QString rows = propertyRows(*widget, false, withoutMeaning);
    if (!rows.isEmpty())
        text += tableHead + rows + QLatin1Char('\n');
    if (qobject_cast<OstrelBase*>(widget.get()))
        text += QStringLiteral("And [those of every bound widget](#every-bound-widget).\n\n");
    return text;
}

// As it looks on a display: on a variable that it takes, with a file that it reads.
void dress(QWidget& widget) {
    widget.setProperty("maximum", 2500);
    widget.setProperty("Maximum", 2500);
    widget.setProperty("memCode", int{AI_REAL_MEM});
    widget.setProperty("memIndex", 1);
    widget.setProperty("FileName", source("/demo-cell/groups/dyno.grp"));
    widget.setProperty("TailFileName", QStringLiteral("LICENSE"));
    if (auto* const bound = qobject_cast<OstrelBase*>(&widget))
        for (const char* variable : {"ENGINE_SPEED", "BEACON", "CELL_STATE"}) {
            bound->setName(QLatin1String(variable));
            if (bound->ptr())
                break;
        }
}

}  // namespace

void prepareWidgetTable() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setAttribute(Qt::AA_Use96Dpi);
    QApplication::setStyle(QStringLiteral("fusion"));
}

bool serveWidgetTable() {
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    QApplication::setPalette(QApplication::style()->standardPalette());
    char message[500] = "";
    if (ostrel_store_open(nullptr, source("/demo-cell/cell.toml").toUtf8().constData(), message, sizeof message) == 0)
        return true;
    std::fprintf(stderr, "%s\n", message);
    return false;
}

QString widgetTable(QStringList* withoutMeaning) {
    const OstrelPlugins collection;
    QString page = QStringLiteral(
        "# The widgets\n\n"
        "What Qt Designer offers, with what each widget can be told. [Building a display](display-builder.md) tells "
        "how\n"
        "they are used. This page is made by `widgettable docs`; what the properties mean stands in "
        "`properties.txt`.\n\n");
    QString ofTheBase;
    for (QDesignerCustomWidgetInterface* plugin : widgetsOf(collection)) {
        page += section(*plugin, withoutMeaning);
        const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
        if (ofTheBase.isEmpty())
            ofTheBase = propertyRows(*widget, true, withoutMeaning);
    }
    return page + QStringLiteral("## Every bound widget\n\n") + tableHead + ofTheBase;
}

QStringList widgetPictures() {
    const OstrelPlugins collection;
    QStringList names;
    for (QDesignerCustomWidgetInterface* plugin : widgetsOf(collection))
        names.append(pictureName(plugin->name()));
    return names;
}

bool drawWidgets(const QString& folder) {
    const QString target = QDir(folder).absolutePath();
    // No picture shows the path of a checkout.
    QDir::setCurrent(QString(paths::sources));
    const OstrelPlugins collection;
    for (QDesignerCustomWidgetInterface* plugin : widgetsOf(collection)) {
        const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
        dress(*widget);
        widget->resize(widget->sizeHint().expandedTo(widget->minimumSize()).expandedTo(QSize(40, 24)));
        widget->show();
        QCoreApplication::processEvents();
        if (!widget->grab().save(QDir(target).filePath(pictureName(plugin->name()))))
            return false;
    }
    return true;
}
