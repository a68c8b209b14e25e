// The smaller bases, and the probe of the OpenGL driver. The driver's list of extensions is this program's own.
#include "core/glostrelbase.h"

#include <dlfcn.h>

#include "core/gltest.h"
#include "core/ostrel_logical_base.h"
#include "plugintest.h"
#include "qttests.h"

namespace {

QByteArray extensions;
int timesAsked = 0;

}  // namespace

extern "C" const GLubyte* glGetString(GLenum name) {
    using Function = const GLubyte* (*)(GLenum);
    static const auto driver = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "glGetString"));
    ++timesAsked;
    return name == GL_EXTENSIONS ? reinterpret_cast<const GLubyte*>(extensions.constData()) : driver(name);
}

namespace {

class GLProbe : public GLOstrelBase {
public:
    void ostrelTimerEvent(int) override {}
    using GLOstrelBase::_member_adr;
    using GLOstrelBase::_varMember;
    using GLOstrelBase::configureSharedMem;
};

class LogicalProbe : public ostrel_logical_base {
public:
    void sample() override { ++samples; }
    int samples = 0;
    using ostrel_logical_base::lptr;
    using ostrel_logical_base::svalue;
    using OstrelBase::_updateRate;
};

class DriverProbe : public GLTest {
public:
    using GLTest::initializeGL;
    using GLTest::paintGL;
    using GLTest::resizeGL;
};

bool isSupported(QByteArray name) {
    return IsExtensionSupported(name.data());
}

}  // namespace

class GLOstrelBaseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void theFirstWidgetMakesTheFormWriter();
    void aNewWidgetIsUnbound();
    void itsSlotsAndItsSignal();
    void aVariableIsFoundByName();
    void aFailureKeepsHandleAndPointer();
    void arraysOfNumbersAreLinkedByTheWholeName_data();
    void arraysOfNumbersAreLinkedByTheWholeName();
    void theMemberIsRemembered();
    void aDestroyedWidgetStaysSubscribed();

    void aLogicalFrameSamplesAtItsOwnRate();
    void aLogicalFrameDoesNothingByItself();

    void anExtensionIsAWholeWord_data();
    void anExtensionIsAWholeWord();
    void wrongNamesAreAnsweredWithoutTheDriver();
    void theProbeAsksForBufferObjects();
};

void GLOstrelBaseTest::theFirstWidgetMakesTheFormWriter() {
    QVERIFY(!writer);
    qstrcpy(ParentUIFile, "screen.ui");
    platform().answer("openFile", {0});
    const DebugLines debug;
    const GLProbe first;
    const GLProbe second;
    QVERIFY(writer);
    QCOMPARE(platform().calls(), QStringList({"UIFileWriter screen.ui", "openFile"}));
    QVERIFY(debug.lines().contains("Error opening UI file outside of the designer"));
}

void GLOstrelBaseTest::aNewWidgetIsUnbound() {
    GLProbe widget;
    QVERIFY(!widget.ptr());
    QCOMPARE(int{widget.status()}, 0);
    QVERIFY(widget.okToRun());
    widget.closing(true);
}

void GLOstrelBaseTest::itsSlotsAndItsSignal() {
    const QMetaObject& meta = GLOstrelBase::staticMetaObject;
    QVERIFY(meta.indexOfSlot("ostrelTimerEvent(int)") >= 0);
    QVERIFY(meta.indexOfSlot("closing(bool)") >= 0);
    QVERIFY(meta.indexOfSignal("saveUIfile()") >= 0);
    QCOMPARE(QByteArray(meta.superClass()->className()), QByteArray("QGLWidget"));
}

void GLOstrelBaseTest::aVariableIsFoundByName() {
    const auto speed = platform().real("SPEED");
    GLProbe widget;
    char name[] = "SPEED";
    platform().forgetCalls();
    QCOMPARE(int{widget.configureSharedMem(name)}, 0);
    QCOMPARE(widget.ptr(), static_cast<void*>(speed.operator->()));
    QCOMPARE(int{widget.mem().vari_type}, int{REAL_TYPE});
    QCOMPARE(platform().calls(), QStringList({"find_variable SPEED", "get_vrbl_adr SPEED"}));
}

void GLOstrelBaseTest::aFailureKeepsHandleAndPointer() {
    platform().real("SPEED");
    GLProbe widget;
    char name[] = "SPEED";
    widget.configureSharedMem(name);
    void* const record = widget.ptr();
    platform().answer("find_variable", {-5});
    QCOMPARE(int{widget.configureSharedMem(name)}, -5);
    QCOMPARE(int{widget.status()}, -5);
    QCOMPARE(widget.ptr(), record);
    QCOMPARE(int{widget.mem().code}, int{GU_REAL_MEM});
}

void GLOstrelBaseTest::arraysOfNumbersAreLinkedByTheWholeName_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("linked");
    QTest::newRow("real") << QByteArray("REALS:2") << true;
    QTest::newRow("integer") << QByteArray("INTEGERS:2") << true;
    QTest::newRow("string") << QByteArray("STRINGS:2") << false;
    QTest::newRow("logical") << QByteArray("LOGICALS:2") << false;
}

void GLOstrelBaseTest::arraysOfNumbersAreLinkedByTheWholeName() {
    QFETCH(QByteArray, name);
    QFETCH(bool, linked);
    platform().realArray("REALS");
    platform().integerArray("INTEGERS");
    platform().stringArray("STRINGS");
    platform().logicalArray("LOGICALS");
    GLProbe widget;
    widget.configureSharedMem(name.data());
    QCOMPARE(platform().calls({"_MEMORY_LINK_SIZE", "link_to_array_mem"}),
             linked ? QStringList({"_MEMORY_LINK_SIZE " + name}) : QStringList());
    QCOMPARE(widget.mem().member_adr != nullptr, linked);
}

void GLOstrelBaseTest::theMemberIsRemembered() {
    platform().statistics("NOX.").member("A_MEMBER_WITH_A_LONG_NAME", 0, 1.0);
    GLProbe widget;
    char name[] = "NOX.A_MEMBER_WITH_A_LONG_NAME";
    widget.configureSharedMem(name);
    QCOMPARE(QString(widget._varMember), QString("A_MEMBER_WITH_A_LON"));
}

void GLOstrelBaseTest::aDestroyedWidgetStaysSubscribed() {
    alignas(GLProbe) char place[sizeof(GLProbe)];
    GLProbe* widget = new (place) GLProbe;
    TimerModerator::requestTimer(widget, 1234);
    widget->~GLProbe();
    QVERIFY(TimerModerator::isRegistered(widget, 1234));
    TimerModerator::forgetFormerOwner(widget);
}

void GLOstrelBaseTest::aLogicalFrameSamplesAtItsOwnRate() {
    LogicalProbe widget;
    widget._updateRate = 700;
    widget.ostrelTimerEvent(700);
    QCOMPARE(widget.samples, 1);
    widget.ostrelTimerEvent(498);
    widget.setPaused(true);
    widget.ostrelTimerEvent(700);
    widget.setPaused(false);
    widget.set_cfg_in_progress();
    widget.ostrelTimerEvent(700);
    QCOMPARE(widget.samples, 1);
}

void GLOstrelBaseTest::aLogicalFrameDoesNothingByItself() {
    ostrel_logical_base widget;
    platform().forgetCalls();
    widget.setName("PUMP");
    widget.sample();
    QCOMPARE(platform().calls(), QStringList());
    QVERIFY(!widget.ptr());
    const LogicalProbe probe;
    QVERIFY(!probe.lptr);
    QVERIFY(probe.svalue.isEmpty());
    QVERIFY(ostrel_logical_base::staticMetaObject.indexOfSlot("sample()") >= 0);
}

void GLOstrelBaseTest::anExtensionIsAWholeWord_data() {
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("supported");
    QTest::newRow("only the longer one") << QByteArray("GL_ARB_vertex_buffer_object") << QByteArray("GL_ARB_vertex")
                                         << false;
    QTest::newRow("alone") << QByteArray("GL_A") << QByteArray("GL_A") << true;
    QTest::newRow("first") << QByteArray("GL_A GL_B") << QByteArray("GL_A") << true;
    QTest::newRow("last") << QByteArray("GL_A GL_B") << QByteArray("GL_B") << true;
    QTest::newRow("behind the longer one") << QByteArray("GL_AB GL_A ") << QByteArray("GL_A") << true;
    QTest::newRow("end of another") << QByteArray("X_GL_A") << QByteArray("GL_A") << false;
    QTest::newRow("none") << QByteArray("") << QByteArray("GL_A") << false;
}

void GLOstrelBaseTest::anExtensionIsAWholeWord() {
    QFETCH(QByteArray, list);
    QFETCH(QByteArray, name);
    QFETCH(bool, supported);
    extensions = list;
    QCOMPARE(isSupported(name), supported);
}

void GLOstrelBaseTest::wrongNamesAreAnsweredWithoutTheDriver() {
    extensions = "GL_A GL_B ";
    timesAsked = 0;
    QVERIFY(!isSupported(""));
    QVERIFY(!isSupported("GL_A GL_B"));
    QCOMPARE(timesAsked, 0);
}

void GLOstrelBaseTest::theProbeAsksForBufferObjects() {
    QVERIFY(!VBOS_ENABLED);
    DriverProbe probe;
    extensions = "GL_ARB_vertex_buffer_object";
    probe.initializeGL();
    QVERIFY(VBOS_ENABLED);
    extensions = "GL_ARB_vertex_buffer";
    probe.initializeGL();
    QVERIFY(!VBOS_ENABLED);
    timesAsked = 0;
    probe.resizeGL(10, 10);
    probe.paintGL();
    QCOMPARE(timesAsked, 0);
}

OSTREL_TEST(GLOstrelBaseTest)
#include "glostrelbase_test.moc"
