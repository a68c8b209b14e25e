// The button that raises an event.
#include <QAction>
#include <QMetaMethod>
#include <QSignalSpy>

#include "plugintest.h"
#include "properties/mycontroller.h"
#include "qttests.h"
#include "readouttest.h"
#include "scripted/calls.h"
#include "widgets/zel_eventbutton.h"

namespace {

// A display that tells when it is asked to close.
class HostControl : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void closeEvent() { scripted::called("closeEvent"); }
};

class Button : public ZelEventButton {
public:
    int listeners() const { return receivers(SIGNAL(clicked())); }
};

void click(QWidget* button) {
    QTest::mouseClick(button, Qt::LeftButton);
}

QStringList cached() {
    return platform().calls({"cacheProperty", "cachePropertyFont"});
}

const QString raised = QStringLiteral("event_set_name START null 0");

}  // namespace

class ZelEventButtonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { runQtUIWindow = nullptr; }

    void itsProperties();
    void aNewOneIsAPlainButton();
    void itMakesTheFormWriterWhereThereIsNone();
    void someSettersTellTheFormOnlyAfterEditProperties();
    void someSettersTellTheFormAlways();
    void signalAndCommitNeverReachTheForm();
    void editPropertiesOpensADialog();

    void aClickRaisesTheEvent();
    void withoutAnEventNothingIsRaised();
    void aFailureIsNotSeen();
    void withoutSignalCommitDoesNothing();
    void commitIsEmittedBeforeTheEvent();
    void eachCommitConnectsOnceMore();
    void withoutCommitTheButtonClosesAndThenTheDisplay();
    void withoutADisplayOnlyTheEventIsRaised();
    void itIsDisabledWhileItWorks();
    void aRemoteDisplayRaisesNothing();
    void formsMayNameTheOtherSlots();

private:
    HostControl m_host;
};

void ZelEventButtonTest::init() {
    startAsHost();
    runQtUIWindow = nullptr;
}

void ZelEventButtonTest::itsProperties() {
    ZelEventButton button;
    QCOMPARE(ownProperties(ZelEventButton::staticMetaObject),
             QStringList({"event", "label", "cmdFont", "detached", "signal", "commit"}));
    compareProperty(button, "event", "QString", QString());
    compareProperty(button, "label", "QString", "ButtonA");
    compareProperty(button, "cmdFont", "QFont", QApplication::font());
    compareProperty(button, "detached", "bool", true);
    compareProperty(button, "signal", "bool", false);
    compareProperty(button, "commit", "bool", false);
    QCOMPARE(button.getTimeout(), 30000);
    QVERIFY(button.metaObject()->superClass() == &QPushButton::staticMetaObject);

    button.setProperty("label", "Start");
    button.setProperty("cmdFont", QFont("Courier", 20));
    button.setProperty("signal", true);
    button.setProperty("commit", true);
    button.setProperty("detached", false);
    QCOMPARE(button.text(), QString("Start"));
    QCOMPARE(button.font().family(), QString("Courier"));
    QVERIFY(button.getSignal() && button.getCommit() && !button.getDetached());
}

void ZelEventButtonTest::aNewOneIsAPlainButton() {
    const Button button;
    QCOMPARE(button.objectName(), QString("zel_eventbutton"));
    QCOMPARE(button.size(), QSize(93, 25));
    QCOMPARE(button.windowTitle(), QString("Form"));
    QCOMPARE(button.actions().size(), 1);
    QCOMPARE(button.actions().first()->text(), QString("Edit Properties"));
    QCOMPARE(button.contextMenuPolicy(), Qt::ActionsContextMenu);
    QCOMPARE(button.listeners(), 1);
}

void ZelEventButtonTest::itMakesTheFormWriterWhereThereIsNone() {
    writer = nullptr;
    platform().answer("openFile", {0});
    const DebugLines debug;
    const ZelEventButton button;
    QVERIFY(writer);
    QCOMPARE(debug.count("Error opening UI file outside of the designer"), 1);
}

void ZelEventButtonTest::someSettersTellTheFormOnlyAfterEditProperties() {
    ZelEventButton button;
    const auto set = [&] {
        button.setEvent("START");
        button.setLabel("Start");
        button.setCmdFont(QFont("Courier"));
    };
    platform().forgetCalls();
    set();
    QCOMPARE(cached(), QStringList());
    button.actions().first()->trigger();
    set();
    QCOMPARE(cached(), QStringList({"cacheProperty ZelEventButton zel_eventbutton event START changed",
                                    "cacheProperty ZelEventButton zel_eventbutton label Start changed",
                                    "cachePropertyFont ZelEventButton zel_eventbutton cmdFont Courier changed"}));
}

void ZelEventButtonTest::someSettersTellTheFormAlways() {
    ZelEventButton button;
    platform().forgetCalls();
    button.setDetached(false);
    button.setTimeout(7);
    QCOMPARE(button.getTimeout(), 7);
    QCOMPARE(cached(), QStringList({"cacheProperty ZelEventButton zel_eventbutton detached false loading",
                                    "cacheProperty ZelEventButton zel_eventbutton timeout 7 loading"}));
}

void ZelEventButtonTest::signalAndCommitNeverReachTheForm() {
    ZelEventButton button;
    button.actions().first()->trigger();
    platform().forgetCalls();
    button.setSignal(true);
    button.setCommit(true);
    QCOMPARE(cached(), QStringList());
}

void ZelEventButtonTest::editPropertiesOpensADialog() {
    ZelEventButton button;
    button.actions().first()->trigger();
    QCOMPARE(button.findChildren<MyController*>().size(), 1);
    QVERIFY(button.findChild<MyController*>()->isVisible());
}

void ZelEventButtonTest::aClickRaisesTheEvent() {
    ZelEventButton button;
    button.setEvent("START");
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    platform().forgetCalls();
    QTest::mouseClick(button.windowHandle(), Qt::LeftButton, Qt::NoModifier, button.rect().center());
    QCOMPARE(platform().calls(), QStringList({raised}));
    QVERIFY(button.isEnabled() && button.isVisible());
}

void ZelEventButtonTest::withoutAnEventNothingIsRaised() {
    ZelEventButton button;
    platform().forgetCalls();
    const DebugLines debug;
    click(&button);
    QCOMPARE(platform().calls(), QStringList());
    QCOMPARE(debug.lines(), QStringList());
    QVERIFY(button.isEnabled());
}

void ZelEventButtonTest::aFailureIsNotSeen() {
    ZelEventButton button;
    button.setEvent("START");
    platform().answer("event_set_name", {-1});
    platform().forgetCalls();
    const DebugLines debug;
    click(&button);
    QCOMPARE(platform().calls(), QStringList({raised}));
    QCOMPARE(debug.lines(), QStringList());
    QVERIFY(button.isEnabled());
}

void ZelEventButtonTest::withoutSignalCommitDoesNothing() {
    runQtUIWindow = &m_host;
    Button button;
    button.setEvent("START");
    button.setCommit(true);
    button.show();
    const QSignalSpy committed(&button, &ZelEventButton::commitToOstrel);
    platform().forgetCalls();
    click(&button);
    click(&button);
    QCOMPARE(platform().calls(), QStringList({raised, raised}));
    QCOMPARE(committed.size(), 0);
    QCOMPARE(button.listeners(), 1);
    QVERIFY(button.isVisible());
}

void ZelEventButtonTest::commitIsEmittedBeforeTheEvent() {
    runQtUIWindow = &m_host;
    ZelEventButton button;
    button.setEvent("START");
    button.setSignal(true);
    button.setCommit(true);
    button.show();
    platform().forgetCalls();
    // With nobody listening.
    click(&button);
    QCOMPARE(platform().calls(), QStringList({raised}));
    connect(&button, &ZelEventButton::commitToOstrel, this, [] { scripted::called("committed"); });
    const QSignalSpy read(&button, &ZelEventButton::readFromOstrel);
    click(&button);
    QCOMPARE(platform().calls(), QStringList({raised, "committed", raised}));
    QCOMPARE(read.size(), 0);
    QVERIFY(button.isVisible() && button.isEnabled());
}

void ZelEventButtonTest::eachCommitConnectsOnceMore() {
    Button button;
    button.setSignal(true);
    button.setCommit(true);
    const QSignalSpy committed(&button, &ZelEventButton::commitToOstrel);
    click(&button);
    click(&button);
    QCOMPARE(button.listeners(), 3);
    QCOMPARE(committed.size(), 2);
}

void ZelEventButtonTest::withoutCommitTheButtonClosesAndThenTheDisplay() {
    runQtUIWindow = &m_host;
    Button button;
    button.setEvent("START");
    button.setSignal(true);
    button.show();
    platform().forgetCalls();
    click(&button);
    QVERIFY(!button.isVisible());
    QVERIFY(button.isEnabled());
    QCOMPARE(platform().calls(), QStringList({raised}));
    button.show();
    click(&button);
    QCOMPARE(platform().calls(), QStringList({raised, raised, "closeEvent"}));
    QCOMPARE(button.listeners(), 3);
}

void ZelEventButtonTest::withoutADisplayOnlyTheEventIsRaised() {
    Button button;
    button.setEvent("START");
    button.setSignal(true);
    button.show();
    platform().forgetCalls();
    click(&button);
    QCOMPARE(platform().calls(), QStringList({raised}));
    QVERIFY(button.isVisible());
    QCOMPARE(button.listeners(), 1);
}

void ZelEventButtonTest::itIsDisabledWhileItWorks() {
    ZelEventButton button;
    button.setSignal(true);
    button.setCommit(true);
    bool wasEnabled = true;
    connect(&button, &ZelEventButton::commitToOstrel, this, [&] { wasEnabled = button.isEnabled(); });
    click(&button);
    QVERIFY(!wasEnabled);
    QVERIFY(button.isEnabled());
}

void ZelEventButtonTest::aRemoteDisplayRaisesNothing() {
    RemoteDisplay = true;
    Button button;
    button.setEvent("START");
    button.setSignal(true);
    button.setCommit(true);
    const QSignalSpy committed(&button, &ZelEventButton::commitToOstrel);
    platform().forgetCalls();
    click(&button);
    QCOMPARE(platform().calls(), QStringList());
    QCOMPARE(committed.size(), 0);
    QVERIFY(button.actions().isEmpty());
    QCOMPARE(button.listeners(), 0);
}

void ZelEventButtonTest::formsMayNameTheOtherSlots() {
    ZelEventButton button;
    const DebugLines debug;
    button.closethefreakingthing();
    button.commitToOstrelSlot();
    QCOMPARE(debug.lines(), QStringList({"Where am I?"}));
    const QMetaObject& meta = ZelEventButton::staticMetaObject;
    for (const char* name : {"commitToOstrelSlot()", "closethefreakingthing()"})
        QCOMPARE(meta.method(meta.indexOfSlot(name)).access(), QMetaMethod::Public);
    for (const char* name : {"ZelEventButton_clicked()", "viewProperties()", "futureFinished()"})
        QCOMPARE(meta.method(meta.indexOfSlot(name)).access(), QMetaMethod::Private);
}

OSTREL_TEST(ZelEventButtonTest)
#include "zeleventbutton_test.moc"
