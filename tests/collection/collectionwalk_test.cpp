// Every widget of the collection from its making to its end, on a real store: on each kind of variable, through a form
// file, and with values of its properties that nobody would set.
#include <QApplication>
#include <QBuffer>
#include <QFileInfo>
#include <QFormBuilder>
#include <QMetaProperty>
#include <cmath>
#include <limits>
#include <memory>

#include "collection/ostrelplugins.h"
#include "core/ostrelbase.h"
#include "fabric/timermoderator.h"
#include "fabric/timerwidget.h"
#include "ostrel/storefixture.h"
#include "paths.h"

namespace {

// How often each widget lives. The sanitizers have more patience than the daily run.
constexpr int lives = COLLECTION_WALK_LIVES;

// Keeps the threads of the timers, which would be made anew for each widget.
class Anchor : public OstrelBase {
public:
    explicit Anchor(std::initializer_list<int> rates) {
        for (const int rate : rates)
            TimerModerator::requestTimer(this, rate);
    }
    ~Anchor() override { TimerModerator::releaseFromTimer(this); }
    void setName(const QString&) override {}
    void ostrelTimerEvent(int) override {}
};

std::string put(int area, int kind, const std::string& label) {
    return "put " + std::to_string(area) + " " + std::to_string(kind) + " " + label;
}

std::string putArray(int kind, const std::string& label) {
    return "array " + std::to_string(kind) + " " + label + " 4";
}

// One name for each kind of variable, and what is none.
const QStringList names{QStringLiteral("SPEED"),
                        QStringLiteral("COUNT"),
                        QStringLiteral("RUN"),
                        QStringLiteral("OPERATOR"),
                        QStringLiteral("TEMPS:1"),
                        QStringLiteral("CODES:1"),
                        QStringLiteral("STEPS:1"),
                        QStringLiteral("DOORS:1"),
                        QStringLiteral("TRQ.AV"),
                        QStringLiteral("GAS.H2"),
                        QStringLiteral("AIR.AT"),
                        QStringLiteral("EMI.MF_CO"),
                        QStringLiteral("N"),
                        QStringLiteral("CHANNEL_1"),
                        QStringLiteral("NOBODY"),
                        QStringLiteral("TEMPS:999"),
                        QString(),
                        QStringLiteral("not_set")};

bool isOfQt(const QMetaObject& meta) {
    return meta.className()[0] == 'Q';
}

// The properties that the classes of the library declare.
std::vector<QMetaProperty> ownProperties(const QObject& widget) {
    std::vector<QMetaProperty> properties;
    const QMetaObject* meta = widget.metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i)
        if (!isOfQt(*meta->property(i).enclosingMetaObject()))
            properties.push_back(meta->property(i));
    return properties;
}

// As an operator re-aims it; a channel is aimed by its place, and a staging editor by a property of its own.
void aim(QWidget& widget, const QString& name) {
    if (auto* bound = qobject_cast<OstrelBase*>(&widget))
        bound->setName(name);
    else
        widget.setProperty("name", name);
    if (widget.metaObject()->indexOfProperty("memIndex") >= 0)
        widget.setProperty("memIndex", name.size() % 3);
}

void tick(QWidget& widget) {
    if (auto* bound = qobject_cast<OstrelBase*>(&widget)) {
        bound->ostrelTimerEvent(bound->getSampleRate());
        bound->ostrelTimerEvent(498);
    }
}

// What a form file can tell of a value: no colour is black there.
std::string inAForm(const QVariant& value) {
    if (value.userType() == QMetaType::QColor)
        return value.value<QColor>().name(QColor::HexArgb).toStdString();
    if (value.userType() == QMetaType::QStringList)
        return value.toStringList().join(QLatin1Char('\n')).toStdString();
    return value.toString().toStdString();
}

template <class... Values>
std::vector<QVariant> junkOf(Values... values) {
    return {QVariant::fromValue(values)...};
}

std::vector<QVariant> junkFor(const QMetaProperty& property) {
    using Double = std::numeric_limits<double>;
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    // Those of Qt hold nothing else.
    if (property.isEnumType() && qstrcmp(property.enumerator().scope(), "Qt") == 0)
        return junkOf(0, 1, 2, 3);
    if (property.isEnumType())
        return junkOf(-1, 9999, least, most);
    switch (property.userType()) {
        case QMetaType::Bool:
            return junkOf(true, false);
        case QMetaType::Int:
            return junkOf(least, -1, 0, 1, 100000, most);
        case QMetaType::UInt:
            return junkOf(0u, 1u, std::numeric_limits<unsigned>::max());
        case QMetaType::Double:
            return junkOf(Double::quiet_NaN(), Double::infinity(), -Double::infinity(), Double::max(), -Double::max(),
                          Double::denorm_min(), 0.0, -0.0);
        case QMetaType::QString:
            return junkOf(QString(), QStringLiteral(" "), QString(10000, QLatin1Char('x')),
                          QStringLiteral("%n%s%d%1%2 [:.?] \n\t\"'<&>"), QString(300, QChar(0x00fc)),
                          QString::fromUtf8("\xf0\x9f\x94\xa5\xd7\xa9"), QString(3, QChar(0)), QStringLiteral("TEMPS:"),
                          QStringLiteral("TRQ."), QStringLiteral(":::::::::"), QStringLiteral("/nowhere/at/all"));
        case QMetaType::QStringList:
            return junkOf(QStringList(), QStringList({QString(), QString()}),
                          QStringList(QVector<QString>(500, QStringLiteral("%s")).toList()));
        case QMetaType::QColor:
            return junkOf(QColor(), QColor(0, 0, 0, 0), QColor(255, 255, 255));
        case QMetaType::QFont: {
            QFont tiny;
            tiny.setPointSizeF(0.1);
            QFont huge;
            huge.setPixelSize(2000);
            return junkOf(QFont(), tiny, huge, QFont(QStringLiteral("no such family")));
        }
        case QMetaType::QSize:
            return junkOf(QSize(), QSize(0, 0), QSize(-5, 7));
        case QMetaType::QRect:
            return junkOf(QRect(), QRect(0, 0, -5, 7));
        default:
            return {};
    }
}

// Saves widgets of the library without their parts, as Qt Designer does.
class Forms : public QFormBuilder {
protected:
    DomWidget* createDom(QWidget* widget, DomWidget* parent, bool recursive) override {
        return QFormBuilder::createDom(widget, parent, recursive && isOfQt(*widget->metaObject()));
    }
};

class CollectionWalk : public StoreTest {
protected:
    CollectionWalk() {
        inDesigner = false;
        RemoteDisplay = false;
        InitializationDone = true;
        m_builder.setPluginPath({QFileInfo(QString(paths::plugin)).absolutePath()});
    }

    void SetUp() override {
        StoreTest::SetUp();
        configure({put(GU_REAL_MEM, REAL_TYPE, "SPEED"), put(GU_INTEGER_MEM, INT_TYPE, "COUNT"),
                   put(GU_LOGICAL_MEM, LOGI_TYPE, "RUN"), put(GU_STRING_MEM, STRING_TYPE, "OPERATOR"),
                   put(AI_REAL_MEM, REAL_TYPE, "CHANNEL_1"), put(GU_STAT_MEM, STAT_TYPE, "TRQ."),
                   put(PROPERTIES_MEM, COMP_TYPE, "GAS."), put(PROPERTIES_MEM, PROP_TYPE, "AIR."),
                   put(PROPERTIES_MEM, EMIS_TYPE, "EMI."), putArray(REAL_ARRAY_TYPE, "TEMPS"),
                   putArray(INT_ARRAY_TYPE, "CODES"), putArray(STRING_ARRAY_TYPE, "STEPS"),
                   putArray(LOGI_ARRAY_TYPE, "DOORS"), "alias N SPEED 1"});
        m_anchor = std::make_unique<Anchor>(std::initializer_list<int>{498, 1000});
        m_widgetsBefore = QApplication::allWidgets().size();
    }

    void TearDown() override {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(QApplication::allWidgets().size(), m_widgetsBefore);
        m_anchor.reset();
        StoreTest::TearDown();
    }

    // No timer knows an object that is gone.
    static void expectNoTimerOf(OstrelBase* gone) {
        for (const TimerWidget* timer : qAsConst(*TimerModerator::timers))
            EXPECT_FALSE(timer->hasPlugin(gone)) << timer->interval();
    }

    void live(QDesignerCustomWidgetInterface& plugin);
    std::unique_ptr<QWidget> savedAndLoaded(QWidget& form);

    const OstrelPlugins m_collection;

private:
    Forms m_builder;
    std::unique_ptr<Anchor> m_anchor;
    int m_widgetsBefore = 0;
};

std::unique_ptr<QWidget> CollectionWalk::savedAndLoaded(QWidget& form) {
    QBuffer file;
    file.open(QIODevice::ReadWrite);
    m_builder.save(&file, &form);
    file.seek(0);
    return std::unique_ptr<QWidget>(m_builder.load(&file));
}

void CollectionWalk::live(QDesignerCustomWidgetInterface& plugin) {
    QWidget form;
    form.resize(300, 200);
    QWidget* const widget = plugin.createWidget(&form);
    widget->setObjectName(QStringLiteral("made"));
    form.show();
    widget->setObjectName(QStringLiteral("renamed"));
    for (const QString& name : names) {
        aim(*widget, name);
        tick(*widget);
        QCoreApplication::processEvents();
    }
    aim(*widget, QStringLiteral("SPEED"));

    const std::unique_ptr<QWidget> again = savedAndLoaded(form);
    ASSERT_TRUE(again);
    auto* const loaded = again->findChild<QWidget*>(QStringLiteral("renamed"));
    ASSERT_TRUE(loaded);
    EXPECT_STREQ(loaded->metaObject()->className(), widget->metaObject()->className());
    for (const QMetaProperty& property : ownProperties(*widget)) {
        if (!property.isStored(widget) || !property.isWritable())
            continue;
        EXPECT_EQ(inAForm(property.read(loaded)), inAForm(property.read(widget))) << property.name();
    }
    again->show();
    tick(*loaded);

    auto* const bound = qobject_cast<OstrelBase*>(widget);
    delete widget;
    if (bound)
        expectNoTimerOf(bound);
}

TEST_F(CollectionWalk, EveryWidgetLivesAndLeavesNothing) {
    for (QDesignerCustomWidgetInterface* plugin : m_collection.customWidgets()) {
        SCOPED_TRACE(dynamic_cast<QObject*>(plugin)->metaObject()->className());
        for (int i = 0; i < lives && !HasFailure(); ++i)
            live(*plugin);
    }
}

TEST_F(CollectionWalk, EveryPropertyTakesAnything) {
    for (QDesignerCustomWidgetInterface* plugin : m_collection.customWidgets()) {
        const std::unique_ptr<QWidget> pattern(plugin->createWidget(nullptr));
        for (const QMetaProperty& property : ownProperties(*pattern)) {
            SCOPED_TRACE(std::string(pattern->metaObject()->className()) + "." + property.name());
            if (!property.isWritable())
                continue;
            const std::vector<QVariant> junk = junkFor(property);
            EXPECT_FALSE(junk.empty()) << property.typeName() << " has no values here";
            const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
            widget->resize(160, 120);
            aim(*widget, QStringLiteral("SPEED"));
            for (const QVariant& value : junk) {
                property.write(widget.get(), value);
                property.read(widget.get());
                tick(*widget);
                widget->grab();
                aim(*widget, QStringLiteral("RUN"));
                QCoreApplication::processEvents();
            }
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
