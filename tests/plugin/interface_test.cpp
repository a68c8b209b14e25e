// What programs outside rely on without a header: the order of the base's virtual operations, and the meta-objects of
// all widgets, which forms, hosts and scripts know by their names.
#include <cxxabi.h>
#include <dlfcn.h>
#include <link.h>

#include <QDir>
#include <QFile>
#include <QMetaEnum>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <cstdlib>
#include <memory>

#include "collection/ostrelplugins.h"
#include "core/glostrelbase.h"
#include "core/ostrel_logical_base.h"
#include "paths.h"
#include "plugintest.h"
#include "qttests.h"
#include "widgets/zel_simplelogical.h"
#include "widgets/zeltable.h"
#include "widgets/zelvariablewidget.h"

namespace {

QString nameOfFunction(const void* address) {
    Dl_info info{};
    if (!dladdr(address, &info) || !info.dli_sname)
        return QStringLiteral("(unknown)");
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(info.dli_sname, nullptr, nullptr, &status), &std::free);
    return QString::fromLatin1(status == 0 ? name.get() : info.dli_sname);
}

// The functions of a class's table of virtual operations, those of its first base before its own.
QStringList virtualFunctions(const char* table) {
    void* const* const start = static_cast<void* const*>(dlsym(RTLD_DEFAULT, table));
    Dl_info info{};
    const ElfW(Sym)* symbol = nullptr;
    if (!start || !dladdr1(start, &info, reinterpret_cast<void**>(const_cast<ElfW(Sym)**>(&symbol)), RTLD_DL_SYMENT))
        return {};
    // Behind them stands the table of the next base, which begins with its distance from the object's start, a negative
    // number. An abstract class has no destructors in its own.
    QStringList names;
    for (size_t i = 2; i < symbol->st_size / sizeof(void*) && reinterpret_cast<intptr_t>(start[i]) >= 0; ++i)
        names.append(nameOfFunction(start[i]));
    return names;
}

void describe(const QMetaObject& meta, QStringList* lines) {
    lines->append(QString("class %1 : %2").arg(meta.className(), meta.superClass()->className()));
    for (int i = meta.enumeratorOffset(); i < meta.enumeratorCount(); ++i) {
        const QMetaEnum values = meta.enumerator(i);
        QStringList keys;
        for (int k = 0; k < values.keyCount(); ++k)
            keys.append(QString("%1=%2").arg(values.key(k)).arg(values.value(k)));
        lines->append(QString("  enum %1 { %2 }").arg(values.name(), keys.join(", ")));
    }
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        lines->append(QString("  property %1 %2").arg(meta.property(i).typeName(), meta.property(i).name()));
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const char* const access[] = {"private", "protected", "public"};
        lines->append(QString("  %1 %2 %3")
                          .arg(access[method.access()], method.methodType() == QMetaMethod::Signal ? "signal" : "slot",
                               QString::fromLatin1(method.methodSignature())));
    }
}

bool isOurs(const QMetaObject& meta) {
    const QByteArray name = meta.className();
    return name != "QObject" && !name.startsWith("Q");
}

}  // namespace

class InterfaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }
    void theVirtualOperationsOfTheBaseStandInTheirOrder();
    void soDoThoseOfTheValueManager();
    void theMetaObjectsAreAsWrittenDown();
};

void InterfaceTest::theVirtualOperationsOfTheBaseStandInTheirOrder() {
    const QStringList ofTheBase = virtualFunctions("_ZTV10OstrelBase");
    const int first = virtualFunctions("_ZTV7QWidget").size();
    QVERIFY(first > 0);
    const QStringList expected{"__cxa_pure_virtual",
                               "OstrelBase::setColor(QColor const&)",
                               "OstrelBase::setBColor(QColor)",
                               "OstrelBase::setMyFont(QFont const&)",
                               "OstrelBase::setValueFont(QFont const&)",
                               "OstrelBase::setUnits(QString const&)",
                               "OstrelBase::updateUIName(VAR_FIND_STATUS, QString const&, bool)",
                               "OstrelBase::setSampleRate(int)",
                               "OstrelBase::sampleReal(bool)",
                               "OstrelBase::getGroup() const",
                               "OstrelBase::setGroup(QString const&)",
                               "OstrelBase::okToRun()",
                               "OstrelBase::setDDEnabled(bool const&)",
                               "OstrelBase::allowsWriteAcess()",
                               "OstrelBase::set_custom_toolTip(QString&)",
                               "OstrelBase::handleWriteValue(QObject*)",
                               "__cxa_pure_virtual",
                               "OstrelBase::initContextMenu()"};
    QCOMPARE(ofTheBase.mid(first).join('\n'), expected.join('\n'));
}

void InterfaceTest::soDoThoseOfTheValueManager() {
    const int first = virtualFunctions("_ZTV10OstrelBase").size();
    QVERIFY(first > 0);
    const QStringList expected{"ValueManagerWidgetBase::setOstrelVariable(QString const&)",
                               "ValueManagerWidgetBase::commitValue()",
                               "ValueManagerWidgetBase::readFromFile(QDomDocument)"};
    const QStringList own = virtualFunctions("_ZTV22ValueManagerWidgetBase").mid(first);
    QCOMPARE(own.mid(0, 3).join('\n'), expected.join('\n'));
    // Writing a file is as empty here as reading one, and stands at the same address where the compiler shares it.
    QCOMPARE(own.size(), 4);
    QVERIFY2(own.last().endsWith("File(QDomDocument)"), qPrintable(own.last()));
}

void InterfaceTest::theMetaObjectsAreAsWrittenDown() {
    QMap<QString, QStringList> classes;
    const auto add = [&](const QMetaObject* meta) {
        for (; meta && isOurs(*meta); meta = meta->superClass())
            if (!classes.contains(meta->className()))
                describe(*meta, &classes[meta->className()]);
    };
    const OstrelPlugins collection;
    for (QDesignerCustomWidgetInterface* plugin : collection.customWidgets()) {
        const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
        add(widget->metaObject());
    }
    add(&GLOstrelBase::staticMetaObject);
    add(&ostrel_logical_base::staticMetaObject);
    add(&ZelSimpleLogical::staticMetaObject);
    add(&ZelVariable::staticMetaObject);
    add(&zelTable::staticMetaObject);
    QStringList lines;
    for (const QStringList& description : qAsConst(classes))
        lines += description;

    const QString page = QString(paths::sources) + "/tests/plugin/metaobjects.txt";
    QFile file(page);
    const QString written = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    const QString found = lines.join('\n') + '\n';
    if (found == written)
        return;
    const QString copy = QDir::temp().filePath("metaobjects.txt");
    QFile output(copy);
    QVERIFY(output.open(QIODevice::WriteOnly) && output.write(found.toUtf8()) > 0);
    QFAIL(qPrintable("forms and hosts know these names: " + page + " differs from what " + copy + " holds"));
}

OSTREL_TEST(InterfaceTest)
#include "interface_test.moc"
