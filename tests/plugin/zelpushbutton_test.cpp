// The push button: what it alone does.
#include <QDialog>
#include <QMenu>
#include <QStackedWidget>

#include "logicalbuttontest.h"
#include "qttests.h"
#include "readouttest.h"
#include "widgets/zel_pushbutton.h"

namespace {

const QString pressed = QStringLiteral("set_logical_variable HORN 1 0 null");
const QString released = QStringLiteral("set_logical_variable HORN 0 0 null");

// A button in a shown window, on the variable HORN.
struct Panel : Operated {
    explicit Panel(ZelPushButton::ToggleType type = ZelPushButton::Toggle) : Operated(new ZelPushButton) {
        push().setName("HORN");
        push().setToggleType(type);
        platform().forgetCalls();
    }
    ZelPushButton& push() const { return *static_cast<ZelPushButton*>(widget); }
    QString skin() const { return button->property("skin").toString(); }
};

}  // namespace

class ZelPushButtonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void itsProperties_data();
    void itsProperties();
    void itsPropertiesAndSlotsStandInOrder();
    void itsEnumerations();
    void itsSkins();
    void aSkinThatIsNoneIsTheFirst();
    void theSameTypeAgainIsNotToldToTheForm();
    void anotherModeIsToldToTheForm();
    void nobodyDragsItsName();
    void itsTipStandsOnAllItsParts();

    void aPressFlips();
    void theSecondPressOfADoubleClickIsNone();
    void otherMouseButtonsFlipNothing();
    void aDisabledButtonIgnoresThePress();
    void theStateOfADisabledButtonFlips();
    void losingTheVariableForgetsTheEnableVariable();
    void noLimitColoursIt();
    void aRemoteDisplayHasAPicture();

    void aMomentaryButtonHoldsUntilTheRelease();
    void anyMouseButtonThatIsReleasedClears();
    void theStateOfAMomentaryButtonFlips();
    void aDoubleClickHoldsOnce();
    void aReleaseWithoutItsVariableWritesNothing();
    void aReleaseOnADisabledButtonWritesNothing();
    void aKeyHoldsIt();
    void aFingerHoldsIt();
    void twoQuickTapsFlipOnce();
    void thePointerThatLeavesHoldsOn();

    void itLetsGoWhenItLosesTheFocus();
    void aKeyLetsGoWhenItLosesTheFocus();
    void itLetsGoWhenItsWindowIsLeft();
    void itLetsGoWhenItIsDisabled();
    void itLetsGoWhenItsFormIsDisabled();
    void itLetsGoWhenItsEnableVariableFalls();
    void itLetsGoWhenItIsHidden();
    void itLetsGoWhenItsPageIsTurned();
    void itLetsGoWhenItIsDestroyed();
    void itLetsGoWhenADialogOpens();
    void itLetsGoWhenAMenuOpens();
    void itLetsGoWhenItGetsAnotherVariable();
    void itLetsGoWhenItGetsAnotherMode();
    void itLetsGoOfARecordThatTheStoreMoved();
    void itLetsGoOfAnAlias();
    void itLetsGoOfTheVariableThatWasPressedWhateverWasBoundBefore();
    void anotherNameForTheHeldVariableEndsNoHold();
    void aRefusedNameEndsNoHold();
    void aButtonThatIsNotHeldLetsNothingGo();

private:
    // The button has let go by itself. What the hand does afterwards is heard as ever.
    void hasLetGo(const Panel& panel);
};

void ZelPushButtonTest::init() {
    startAsHost();
    platform().logical("HORN").value(0).states("SOUNDING", "QUIET");
    platform().logical("READY").value(1);
}

void ZelPushButtonTest::itsProperties_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("btnType") << QByteArray("BtnType") << QVariant(1);
    QTest::newRow("name") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("nameFont") << QByteArray("QFont") << QVariant(QApplication::font());
    QTest::newRow("sampleRate") << QByteArray("int") << QVariant(1000);
    QTest::newRow("toggleType") << QByteArray("ToggleType") << QVariant(0);
    QTest::newRow("enableVariableName") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("toolTip") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("displayAlias") << QByteArray("bool") << QVariant(true);
    QTest::newRow("dragAndDropEnabled") << QByteArray("bool") << QVariant(false);
}

void ZelPushButtonTest::itsProperties() {
    QFETCH(QByteArray, type);
    QFETCH(QVariant, value);
    compareProperty(ZelPushButton(), QTest::currentDataTag(), type, value);
}

void ZelPushButtonTest::itsPropertiesAndSlotsStandInOrder() {
    const QMetaObject& meta = ZelPushButton::staticMetaObject;
    QCOMPARE(QByteArray(meta.superClass()->className()), QByteArray("OstrelBase"));
    QCOMPARE(ownProperties(meta), QStringList({"btnType", "name", "nameFont", "sampleRate", "toggleType",
                                               "enableVariableName", "toolTip", "displayAlias", "dragAndDropEnabled"}));
    QCOMPARE(ownMethods(meta), QStringList({"ostrelTimerEvent(int)", "sample(bool)", "sample()"}));
}

void ZelPushButtonTest::itsEnumerations() {
    QCOMPARE(QMetaEnum::fromType<ZelPushButton::BtnType>().keyCount(), 3);
    QCOMPARE(int{ZelPushButton::Beryl}, 0);
    QCOMPARE(int{ZelPushButton::BerylSquare}, 1);
    QCOMPARE(int{ZelPushButton::MetallicBrush}, 2);
    QCOMPARE(QMetaEnum::fromType<ZelPushButton::ToggleType>().keyCount(), 2);
    QCOMPARE(int{ZelPushButton::Toggle}, 0);
    QCOMPARE(int{ZelPushButton::Momentary}, 1);
}

void ZelPushButtonTest::itsSkins() {
    const Panel panel;
    QCOMPARE(panel.skin(), QString("BerylSquare"));
    panel.push().setBtnType(ZelPushButton::MetallicBrush);
    QCOMPARE(panel.skin(), QString("MetallicBrush"));
    panel.push().setBtnType(ZelPushButton::Beryl);
    QCOMPARE(panel.skin(), QString("Beryl"));
    panel.push().setBtnType(ZelPushButton::BerylSquare);
    QCOMPARE(panel.skin(), QString("BerylSquare"));
    QCOMPARE(platform().calls(), QStringList({"cacheProperty ZelPushButton button btnType 2 loading",
                                              "cacheProperty ZelPushButton button btnType 0 loading",
                                              "cacheProperty ZelPushButton button btnType 1 loading"}));
}

void ZelPushButtonTest::aSkinThatIsNoneIsTheFirst() {
    const Panel panel;
    for (const int number : {3, -1}) {
        panel.push().setBtnType(ZelPushButton::MetallicBrush);
        panel.push().setBtnType(ZelPushButton::BtnType(number));
        QCOMPARE(panel.push().getBtnType(), ZelPushButton::Beryl);
        QCOMPARE(panel.skin(), QString("Beryl"));
        QCOMPARE(platform().calls().last(), QString("cacheProperty ZelPushButton button btnType 0 loading"));
    }
}

void ZelPushButtonTest::theSameTypeAgainIsNotToldToTheForm() {
    const Panel panel;
    panel.push().setBtnType(ZelPushButton::BerylSquare);
    panel.push().setToggleType(ZelPushButton::Toggle);
    QCOMPARE(platform().calls(), QStringList());
}

void ZelPushButtonTest::anotherModeIsToldToTheForm() {
    const Panel panel;
    panel.push().setToggleType(ZelPushButton::Momentary);
    QCOMPARE(panel.push().getToggleType(), ZelPushButton::Momentary);
    panel.push().setToggleType(ZelPushButton::ToggleType(2));
    QCOMPARE(panel.push().getToggleType(), ZelPushButton::Toggle);
    QCOMPARE(platform().calls(), QStringList({"cacheProperty ZelPushButton button toggleType 1 loading",
                                              "cacheProperty ZelPushButton button toggleType 0 loading"}));
}

void ZelPushButtonTest::nobodyDragsItsName() {
    const Panel panel;
    QVERIFY(!panel.push().dragAndDropEnabled());
    panel.push().setProperty("dragAndDropEnabled", true);
    QVERIFY(panel.push().dragAndDropEnabled());
    QCOMPARE(platform().calls(), QStringList("cacheProperty ZelPushButton button dragAndDropEnabled true loading"));
}

void ZelPushButtonTest::itsTipStandsOnAllItsParts() {
    const Panel panel;
    const auto tips = [&] {
        QStringList all;
        for (const QWidget* part : QVector<QWidget*>{&panel.push(), panel.name(), panel.button, panel.value()})
            all << part->toolTip();
        return all.join('/');
    };
    panel.push().setToolTipString("the horn");
    QCOMPARE(tips(), QString("the horn/the horn/the horn/the horn"));
    QCOMPARE(platform().calls(), QStringList("cacheProperty ZelPushButton button toolTip the horn loading"));
    panel.push().setName("NOBODY");
    const QString lost = "VARIABLE NOT FOUND/VARIABLE NOT FOUND/VARIABLE NOT FOUND/VARIABLE NOT FOUND";
    QCOMPARE(tips(), lost);
    panel.push().setToolTipString("another");
    QCOMPARE(tips(), lost);
    panel.push().setName("HORN");
    QCOMPARE(tips(), QString("another/another/another/another"));
}

// ---- Toggle ----

void ZelPushButtonTest::aPressFlips() {
    const Panel panel;
    panel.press();
    QCOMPARE(writes(), QStringList(pressed));
    panel.release();
    QCOMPARE(writes(), QStringList(pressed));
}

void ZelPushButtonTest::theSecondPressOfADoubleClickIsNone() {
    const Panel panel;
    panel.press();
    panel.release();
    QTest::mouseDClick(panel.button, Qt::LeftButton, {}, panel.middle());
    QCOMPARE(writes(), QStringList(pressed));
}

void ZelPushButtonTest::otherMouseButtonsFlipNothing() {
    const Panel panel;
    for (const Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton}) {
        panel.press(other);
        panel.release(other);
    }
    QCOMPARE(writes(), QStringList());
}

void ZelPushButtonTest::aDisabledButtonIgnoresThePress() {
    platform().logical("READY").value(0);
    const Panel panel;
    panel.setEnableVariable("READY");
    panel.click();
    QTest::keyClick(panel.button, Qt::Key_Space);
    panel.push().setToggleType(ZelPushButton::Momentary);
    panel.click();
    QCOMPARE(writes(), QStringList());
}

void ZelPushButtonTest::theStateOfADisabledButtonFlips() {
    platform().logical("READY").value(0);
    const Panel panel;
    panel.setEnableVariable("READY");
    QVERIFY(!panel.button->isEnabled());
    panel.doubleClickState();
    QCOMPARE(writes(), QStringList(pressed));
}

void ZelPushButtonTest::losingTheVariableForgetsTheEnableVariable() {
    platform().logical("READY").value(0);
    for (const char* gone : {"not_set", "NOBODY"}) {
        const Panel panel;
        panel.setEnableVariable("READY");
        QVERIFY(!panel.button->isEnabled());
        panel.push().setName(gone);
        QVERIFY(panel.button->isEnabled());
        QCOMPARE(panel.enableVariable(), QString());
        panel.push().setName("HORN");
        panel.tick();
        QVERIFY(panel.button->isEnabled());
    }
}

void ZelPushButtonTest::noLimitColoursIt() {
    platform().logical("HORN").status(1025).states("SOUNDING", "QUIET");
    const Panel panel;
    panel.tick();
    QVERIFY(!panel.push().getColor().isValid());
    QVERIFY(!TimerModerator::isRegistered(&panel.push(), 498));
    // Its first loading never ends by itself: the host tells when it has.
    QVERIFY(!panel.push().getInitFlag());
}

void ZelPushButtonTest::aRemoteDisplayHasAPicture() {
    RemoteDisplay = true;
    const Panel panel(ZelPushButton::Momentary);
    panel.press();
    QVERIFY(panel.button->isDown());
    panel.release();
    panel.push().hide();
    QCOMPARE(writes(), QStringList());
}

// ---- Momentary ----

void ZelPushButtonTest::aMomentaryButtonHoldsUntilTheRelease() {
    const Panel panel(ZelPushButton::Momentary);
    panel.press();
    QCOMPARE(writes(), QStringList(pressed));
    panel.tick();
    QCOMPARE(panel.shown(), QString("SOUNDING"));
    QCOMPARE(writes(), QStringList(pressed));
    panel.release();
    QCOMPARE(writes(), QStringList({pressed, released}));
    QVERIFY(!panel.button->isDown());
}

void ZelPushButtonTest::anyMouseButtonThatIsReleasedClears() {
    const Panel panel(ZelPushButton::Momentary);
    panel.press(Qt::RightButton);
    QCOMPARE(writes(), QStringList());
    panel.release(Qt::RightButton);
    QCOMPARE(writes(), QStringList(released));
}

void ZelPushButtonTest::theStateOfAMomentaryButtonFlips() {
    const Panel panel(ZelPushButton::Momentary);
    panel.doubleClickState();
    QCOMPARE(writes(), QStringList(pressed));
}

void ZelPushButtonTest::aDoubleClickHoldsOnce() {
    const Panel panel(ZelPushButton::Momentary);
    panel.press();
    panel.release();
    QTest::mouseDClick(panel.button, Qt::LeftButton, {}, panel.middle());
    QVERIFY(!panel.button->isDown());
    panel.release();
    QCOMPARE(writes().count(pressed), 1);
    QCOMPARE(writes().last(), released);
}

void ZelPushButtonTest::aReleaseWithoutItsVariableWritesNothing() {
    const Panel panel(ZelPushButton::Momentary);
    panel.press();
    platform().remove("HORN");
    panel.push().globalConfigEvent(1, -1);
    panel.push().globalConfigEvent(0, -1);
    QVERIFY(!panel.push().ptr());
    panel.release();
    panel.push().hide();
    QCOMPARE(writes(), QStringList(pressed));
}

void ZelPushButtonTest::aReleaseOnADisabledButtonWritesNothing() {
    const Panel panel(ZelPushButton::Momentary);
    panel.button->setEnabled(false);
    panel.release();
    QCOMPARE(writes(), QStringList());
}

void ZelPushButtonTest::aKeyHoldsIt() {
    const Panel panel(ZelPushButton::Momentary);
    panel.button->setFocus();
    QTest::keyPress(panel.button, Qt::Key_Space);
    QCOMPARE(writes(), QStringList(pressed));
    QTest::keyRelease(panel.button, Qt::Key_Space);
    QCOMPARE(writes(), QStringList({pressed, released}));
}

void ZelPushButtonTest::aFingerHoldsIt() {
    Panel panel(ZelPushButton::Momentary);
    QTouchDevice* const screen = QTest::createTouchDevice();
    const QPoint on = panel.button->mapTo(&panel.window, panel.middle());
    QTest::touchEvent(&panel.window, screen).press(0, on, &panel.window);
    QCOMPARE(writes(), QStringList(pressed));
    const QPoint off(5, 190);
    QTest::touchEvent(&panel.window, screen).move(0, off, &panel.window);
    QCOMPARE(writes(), QStringList(pressed));
    QTest::touchEvent(&panel.window, screen).release(0, off, &panel.window);
    QCOMPARE(writes(), QStringList({pressed, released}));
}

void ZelPushButtonTest::twoQuickTapsFlipOnce() {
    Panel panel(ZelPushButton::Toggle);
    QTouchDevice* const screen = QTest::createTouchDevice();
    const QPoint on = panel.button->mapTo(&panel.window, panel.middle());
    for (int i = 0; i < 2; ++i) {
        QTest::touchEvent(&panel.window, screen).press(0, on, &panel.window);
        QTest::touchEvent(&panel.window, screen).release(0, on, &panel.window);
    }
    QCOMPARE(writes(), QStringList(pressed));
}

// The hand has not let go, and the button looks so.
void ZelPushButtonTest::thePointerThatLeavesHoldsOn() {
    const Panel panel(ZelPushButton::Momentary);
    panel.press();
    QMouseEvent move(QEvent::MouseMove, QPointF(-200, -200), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(panel.button, &move);
    QCOMPARE(writes(), QStringList(pressed));
    QVERIFY(panel.button->isDown());
    QTest::mouseRelease(panel.button, Qt::LeftButton, {}, QPoint(-200, -200));
    QCOMPARE(writes(), QStringList({pressed, released}));
    QVERIFY(!panel.button->isDown());
}

// ---- It never stays pressed ----

void ZelPushButtonTest::hasLetGo(const Panel& panel) {
    QCOMPARE(writes(), QStringList({pressed, released}));
    panel.tick();
    panel.release();
    QVERIFY(!writes().mid(2).contains(pressed));
}

void ZelPushButtonTest::itLetsGoWhenItLosesTheFocus() {
    Panel panel(ZelPushButton::Momentary);
    panel.press();
    QVERIFY(panel.button->hasFocus());
    panel.other.setFocus();
    hasLetGo(panel);
    QVERIFY(!panel.button->isDown());
}

void ZelPushButtonTest::aKeyLetsGoWhenItLosesTheFocus() {
    Panel panel(ZelPushButton::Momentary);
    panel.button->setFocus();
    QTest::keyPress(panel.button, Qt::Key_Return);
    panel.other.setFocus();
    hasLetGo(panel);
}

void ZelPushButtonTest::itLetsGoWhenItsWindowIsLeft() {
    const Panel panel(ZelPushButton::Momentary);
    QWidget second;
    second.show();
    panel.press();
    QApplication::setActiveWindow(&second);
    hasLetGo(panel);
}

void ZelPushButtonTest::itLetsGoWhenItIsDisabled() {
    const Panel panel(ZelPushButton::Momentary);
    panel.press();
    panel.button->setEnabled(false);
    hasLetGo(panel);
}

void ZelPushButtonTest::itLetsGoWhenItsFormIsDisabled() {
    Panel panel(ZelPushButton::Momentary);
    panel.press();
    panel.window.setEnabled(false);
    hasLetGo(panel);
}

void ZelPushButtonTest::itLetsGoWhenItsEnableVariableFalls() {
    const auto ready = platform().logical("READY").value(1);
    const Panel panel(ZelPushButton::Momentary);
    panel.setEnableVariable("READY");
    panel.press();
    ready.value(0);
    QCOMPARE(writes(), QStringList(pressed));
    panel.tick();
    QVERIFY(!panel.button->isEnabled());
    hasLetGo(panel);
    QCOMPARE(writes().size(), 2);
}

void ZelPushButtonTest::itLetsGoWhenItIsHidden() {
    const Panel panel(ZelPushButton::Momentary);
    panel.press();
    panel.push().hide();
    hasLetGo(panel);
}

void ZelPushButtonTest::itLetsGoWhenItsPageIsTurned() {
    const Panel panel(ZelPushButton::Momentary);
    QStackedWidget book;
    book.addWidget(panel.widget);
    book.addWidget(new QWidget);
    book.show();
    QVERIFY(QTest::qWaitForWindowExposed(&book));
    panel.press();
    book.setCurrentIndex(1);
    hasLetGo(panel);
    panel.widget->setParent(const_cast<QWidget*>(&panel.window));
}

void ZelPushButtonTest::itLetsGoWhenItIsDestroyed() {
    const Panel panel(ZelPushButton::Momentary);
    panel.press();
    delete panel.widget;
    QCOMPARE(writes(), QStringList({pressed, released}));
}

void ZelPushButtonTest::itLetsGoWhenADialogOpens() {
    Panel panel(ZelPushButton::Momentary);
    // Without the focus: the dialog takes the pointer alone.
    panel.button->setFocusPolicy(Qt::NoFocus);
    panel.press();
    QDialog dialog(&panel.window);
    dialog.open();
    hasLetGo(panel);
    dialog.close();
}

void ZelPushButtonTest::itLetsGoWhenAMenuOpens() {
    const Panel panel(ZelPushButton::Momentary);
    panel.press();
    QMenu menu;
    menu.addAction("Something");
    menu.popup(QPoint(10, 10));
    hasLetGo(panel);
    menu.close();
}

// What is held is the variable that was there when it was pressed.
void ZelPushButtonTest::itLetsGoWhenItGetsAnotherVariable() {
    platform().logical("LIGHT").value(1);
    for (const char* next : {"LIGHT", "NOBODY", "not_set"}) {
        const Panel panel(ZelPushButton::Momentary);
        panel.press();
        panel.push().setName(next);
        QCOMPARE(writes(), QStringList({pressed, released}));
    }
}

void ZelPushButtonTest::itLetsGoWhenItGetsAnotherMode() {
    const Panel panel(ZelPushButton::Momentary);
    panel.press();
    panel.push().setToggleType(ZelPushButton::Toggle);
    QCOMPARE(writes(), QStringList({pressed, released}));
    panel.release();
    QCOMPARE(writes().size(), 2);
}

void ZelPushButtonTest::itLetsGoOfARecordThatTheStoreMoved() {
    const auto horn = platform().logical("HORN").value(0);
    const Panel panel(ZelPushButton::Momentary);
    panel.press();
    QCOMPARE(int{horn->value}, 1);
    platform().move("HORN");
    panel.push().hide();
    QCOMPARE(int{horn->value}, 0);
}

void ZelPushButtonTest::itLetsGoOfAnAlias() {
    platform().alias("SIGNAL", "HORN");
    const Panel panel(ZelPushButton::Momentary);
    panel.push().setName("SIGNAL");
    panel.press();
    panel.push().hide();
    QCOMPARE(writes(), QStringList({pressed, released}));
}

void ZelPushButtonTest::itLetsGoOfTheVariableThatWasPressedWhateverWasBoundBefore() {
    platform().logical("LIGHT").value(0);
    platform().alias("LAMP", "LIGHT");
    for (const char* between : {"LAMP", "not_set"}) {
        const Panel panel(ZelPushButton::Momentary);
        panel.push().setName("HORN");
        panel.push().setName(between);
        panel.push().setName("LAMP");
        platform().forgetCalls();
        panel.press();
        panel.push().hide();
        QCOMPARE(writes(), QStringList({"set_logical_variable LIGHT 1 0 null", "set_logical_variable LIGHT 0 0 null"}));
    }
}

// As at the end of a reconfiguration, which names a variable by its own name where it was shown by its alias.
void ZelPushButtonTest::anotherNameForTheHeldVariableEndsNoHold() {
    platform().alias("SIGNAL", "HORN");
    const Panel panel(ZelPushButton::Momentary);
    panel.push().setName("SIGNAL");
    panel.press();
    platform().forgetCalls();
    panel.push().setName("HORN");
    panel.push().setName("SIGNAL");
    QCOMPARE(writes(), QStringList());
    panel.push().hide();
    QCOMPARE(writes(), QStringList{released});
}

void ZelPushButtonTest::aRefusedNameEndsNoHold() {
    platform().real("SPEED");
    const Panel panel(ZelPushButton::Momentary);
    panel.press();
    platform().forgetCalls();
    panel.push().setName("SPEED");
    QCOMPARE(writes(), QStringList());
}

void ZelPushButtonTest::aButtonThatIsNotHeldLetsNothingGo() {
    Panel panel(ZelPushButton::Momentary);
    panel.button->setFocus();
    panel.other.setFocus();
    panel.push().hide();
    panel.push().show();
    panel.window.setEnabled(false);
    panel.push().setName("READY");
    QCOMPARE(writes(), QStringList());
    Panel toggle(ZelPushButton::Toggle);
    toggle.press();
    toggle.other.setFocus();
    toggle.push().hide();
    QCOMPARE(writes(), QStringList(pressed));
}

OSTREL_TEST(ZelPushButtonTest)
#include "zelpushbutton_test.moc"
