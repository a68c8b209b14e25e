// The toggle button: what it alone does.
#include "widgets/ZelToggleButton.h"

#include "logicalbuttontest.h"
#include "qttests.h"
#include "readouttest.h"

namespace {

// A switch in a shown window, on the variable PUMP.
struct Panel : Operated {
    explicit Panel(const QString& variable = QStringLiteral("PUMP")) : Operated(new ZelToggleButton) {
        toggle().setName(variable);
        platform().forgetCalls();
    }
    ZelToggleButton& toggle() const { return *static_cast<ZelToggleButton*>(widget); }
    QString skin() const { return button->property("skin").toString(); }
};

// What a subclass sees of it.
class Inside : public ZelToggleButton {
public:
    using OstrelBase::_llastValue;
    using OstrelBase::limitColorCode;
    using OstrelBase::updateFirst_;
};

}  // namespace

class ZelToggleButtonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void itsProperties_data();
    void itsProperties();
    void itsPropertiesAndSlotsStandInOrder();
    void itsEnumerations();
    void itsForm();
    void itsSkins();
    void itsNameMayBeDragged();
    void itsTipStandsOnItAlone();

    void theSwitchStandsAsTheVariable();
    void aClickWritesWhenItIsReleased();
    void thePointerThatLeavesWritesNothing();
    void aDoubleClickIsTwoClicks();
    void aRefusedWriteFlipsTheSwitchBack();
    void whoeverElseWritesMovesTheSwitch();
    void aClickWithoutAVariableOnlyLooksSo();
    void aDisabledSwitchTakesNoClick();
    void theStateOfADisabledSwitchDoesNotFlip();
    void aReboundSwitchFollowsAtOnce();
    void losingTheVariableKeepsTheEnableVariable();
    void theSlotOfTheClickFlips();
    void aRemoteDisplayIsNotConnected();
    void itsStatusColoursNothing();
    void theFirstSampleEndsTheLoading();
};

void ZelToggleButtonTest::init() {
    startAsHost();
    platform().logical("PUMP").value(1).states("RUNNING", "STOPPED");
    platform().logical("READY").value(1);
}

void ZelToggleButtonTest::itsProperties_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("btnType") << QByteArray("BtnType") << QVariant(0);
    QTest::newRow("name") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("nameFont") << QByteArray("QFont") << QVariant(QApplication::font());
    QTest::newRow("sampleRate") << QByteArray("int") << QVariant(1000);
    QTest::newRow("enableVariableName") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("toolTip") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("displayAlias") << QByteArray("bool") << QVariant(true);
}

void ZelToggleButtonTest::itsProperties() {
    QFETCH(QByteArray, type);
    QFETCH(QVariant, value);
    compareProperty(ZelToggleButton(), QTest::currentDataTag(), type, value);
}

void ZelToggleButtonTest::itsPropertiesAndSlotsStandInOrder() {
    const QMetaObject& meta = ZelToggleButton::staticMetaObject;
    QCOMPARE(QByteArray(meta.superClass()->className()), QByteArray("OstrelBase"));
    QCOMPARE(ownProperties(meta), QStringList({"btnType", "name", "nameFont", "sampleRate", "enableVariableName",
                                               "toolTip", "displayAlias"}));
    QCOMPARE(ownMethods(meta), QStringList({"ostrelTimerEvent(int)", "buttonClicked()", "sample(bool)", "sample()"}));
}

void ZelToggleButtonTest::itsEnumerations() {
    QCOMPARE(QMetaEnum::fromType<ZelToggleButton::BtnType>().keyCount(), 2);
    QCOMPARE(int{ZelToggleButton::Beryl}, 0);
    QCOMPARE(int{ZelToggleButton::BerylSquare}, 1);
}

void ZelToggleButtonTest::itsForm() {
    const Panel panel;
    QVERIFY(panel.button->isCheckable());
    QCOMPARE(panel.skin(), QString("Beryl"));
    QCOMPARE(panel.button->layoutDirection(), Qt::LeftToRight);
    QVERIFY(panel.button->testAttribute(Qt::WA_SetLayoutDirection));
}

void ZelToggleButtonTest::itsSkins() {
    const Panel panel;
    panel.toggle().setBtnType(ZelToggleButton::Beryl);
    QCOMPARE(platform().calls(), QStringList());
    panel.toggle().setBtnType(ZelToggleButton::BerylSquare);
    QCOMPARE(panel.skin(), QString("BerylSquare"));
    panel.toggle().setBtnType(ZelToggleButton::BerylSquare);
    panel.toggle().setBtnType(ZelToggleButton::BtnType(2));
    QCOMPARE(panel.toggle().getBtnType(), ZelToggleButton::Beryl);
    QCOMPARE(panel.skin(), QString("Beryl"));
    QCOMPARE(platform().calls(), QStringList({"cacheProperty ZelToggleButton button btnType 1 loading",
                                              "cacheProperty ZelToggleButton button btnType 0 loading"}));
}

void ZelToggleButtonTest::itsNameMayBeDragged() {
    QVERIFY(Panel().toggle().dragAndDropEnabled());
}

void ZelToggleButtonTest::itsTipStandsOnItAlone() {
    const Panel panel;
    panel.toggle().setToolTipString("the pump");
    QCOMPARE(panel.widget->toolTip(), QString("the pump"));
    QCOMPARE(panel.button->toolTip(), QString());
    panel.toggle().setName("NOBODY");
    QCOMPARE(panel.widget->toolTip(), QString("VARIABLE NOT FOUND"));
    QCOMPARE(panel.button->toolTip(), QString());
    panel.toggle().setName("PUMP");
    QCOMPARE(panel.widget->toolTip(), QString("the pump"));
}

// ---- The switch ----

void ZelToggleButtonTest::theSwitchStandsAsTheVariable() {
    const auto pump = platform().logical("PUMP").value(-3);
    const Panel panel;
    QVERIFY(panel.button->isChecked());
    pump.value(0);
    panel.tick();
    QVERIFY(!panel.button->isChecked());
}

void ZelToggleButtonTest::aClickWritesWhenItIsReleased() {
    const Panel panel;
    panel.press();
    QCOMPARE(writes(), QStringList());
    panel.release();
    QCOMPARE(writes(), QStringList("set_logical_variable PUMP 0 0 null"));
    QVERIFY(!panel.button->isChecked());
    panel.tick();
    QVERIFY(!panel.button->isChecked());
}

void ZelToggleButtonTest::thePointerThatLeavesWritesNothing() {
    const Panel panel;
    panel.press();
    QTest::mouseRelease(panel.button, Qt::LeftButton, {}, QPoint(-50, -50));
    QCOMPARE(writes(), QStringList());
    QVERIFY(panel.button->isChecked());
}

void ZelToggleButtonTest::aDoubleClickIsTwoClicks() {
    const Panel panel;
    panel.click();
    QTest::mouseDClick(panel.button, Qt::LeftButton, {}, panel.middle());
    panel.release();
    QCOMPARE(writes(), QStringList({"set_logical_variable PUMP 0 0 null", "set_logical_variable PUMP 1 0 null"}));
    QVERIFY(panel.button->isChecked());
}

void ZelToggleButtonTest::aRefusedWriteFlipsTheSwitchBack() {
    const Panel panel;
    platform().alwaysAnswer("set_logical_variable", -1);
    panel.click();
    QVERIFY(!panel.button->isChecked());
    panel.tick();
    QVERIFY(panel.button->isChecked());
}

// What is written is the opposite of the record, whatever the switch shows.
void ZelToggleButtonTest::whoeverElseWritesMovesTheSwitch() {
    const auto pump = platform().logical("PUMP").value(1);
    const Panel panel;
    pump.value(0);
    QVERIFY(panel.button->isChecked());
    panel.click();
    QCOMPARE(writes(), QStringList("set_logical_variable PUMP 1 0 null"));
    panel.tick();
    QVERIFY(panel.button->isChecked());
}

void ZelToggleButtonTest::aClickWithoutAVariableOnlyLooksSo() {
    const Panel panel("NOBODY");
    QVERIFY(!panel.button->isChecked());
    panel.click();
    QVERIFY(panel.button->isChecked());
    panel.tick();
    QVERIFY(panel.button->isChecked());
    QCOMPARE(writes(), QStringList());
    platform().logical("LATER").value(0);
    panel.toggle().setName("LATER");
    QVERIFY(!panel.button->isChecked());
}

void ZelToggleButtonTest::aDisabledSwitchTakesNoClick() {
    platform().logical("READY").value(0);
    const Panel panel;
    panel.setEnableVariable("READY");
    panel.click();
    QTest::keyClick(panel.button, Qt::Key_Space);
    QCOMPARE(writes(), QStringList());
    QVERIFY(panel.button->isChecked());
}

void ZelToggleButtonTest::theStateOfADisabledSwitchDoesNotFlip() {
    const auto ready = platform().logical("READY").value(0);
    const Panel panel;
    panel.setEnableVariable("READY");
    panel.doubleClickState();
    QCOMPARE(writes(), QStringList());
    QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(2, 2), Qt::LeftButton, Qt::LeftButton, {});
    QVERIFY(!panel.toggle().eventFilter(panel.value(), &twice));
    ready.value(1);
    panel.tick();
    panel.doubleClickState();
    QCOMPARE(writes(), QStringList("set_logical_variable PUMP 0 0 null"));
}

void ZelToggleButtonTest::aReboundSwitchFollowsAtOnce() {
    platform().logical("FAN").value(1);
    const Panel panel;
    panel.button->setChecked(false);
    panel.toggle().setName("FAN");
    QVERIFY(panel.button->isChecked());
    // Also where the store has moved the record, and the value is the one of before.
    panel.button->setChecked(false);
    platform().move("FAN");
    panel.toggle().globalConfigEvent(1, -1);
    panel.toggle().globalConfigEvent(0, -1);
    panel.tick();
    QVERIFY(panel.button->isChecked());
}

void ZelToggleButtonTest::losingTheVariableKeepsTheEnableVariable() {
    const auto ready = platform().logical("READY").value(0);
    for (const char* gone : {"not_set", "NOBODY"}) {
        ready.value(0);
        const Panel panel;
        panel.setEnableVariable("READY");
        panel.toggle().setName(gone);
        QVERIFY(!panel.button->isEnabled());
        QCOMPARE(panel.enableVariable(), QString("READY"));
        // It is read at the end of setName() too.
        ready.value(1);
        panel.toggle().setName(gone);
        QVERIFY(panel.button->isEnabled());
    }
}

void ZelToggleButtonTest::theSlotOfTheClickFlips() {
    const Panel panel;
    QVERIFY(QMetaObject::invokeMethod(panel.widget, "buttonClicked"));
    QCOMPARE(writes(), QStringList("set_logical_variable PUMP 0 0 null"));
}

void ZelToggleButtonTest::aRemoteDisplayIsNotConnected() {
    RemoteDisplay = true;
    const Panel panel;
    panel.click();
    QVERIFY(!panel.button->isChecked());
    QCOMPARE(writes(), QStringList());
    panel.tick();
    QVERIFY(panel.button->isChecked());
    panel.doubleClickState();
    QCOMPARE(writes(), QStringList());
}

// The record's status is not asked: there is no colour but the palette's.
void ZelToggleButtonTest::itsStatusColoursNothing() {
    platform().logical("PUMP").value(1).status(1025);
    Inside toggle;
    toggle.setName("PUMP");
    toggle.ostrelTimerEvent(1000);
    QCOMPARE(int{toggle.limitColorCode}, 0);
    QCOMPARE(toggle.getColor(), toggle.palette().text().color());
    QVERIFY(!TimerModerator::isRegistered(&toggle, 498));
}

void ZelToggleButtonTest::theFirstSampleEndsTheLoading() {
    Inside toggle;
    toggle.setName("PUMP");
    QVERIFY(!toggle.updateFirst_);
    QVERIFY(toggle._llastValue);
    toggle.ostrelTimerEvent(1000);
    QVERIFY(toggle.getInitFlag());
}

OSTREL_TEST(ZelToggleButtonTest)
#include "zeltogglebutton_test.moc"
