// What the push button and the switch have in common: their looks, the keys, fingers, screen readers.
#include <ostrel-display/qtsvgbutton.h>
#include <ostrel-display/qtsvgtoggleswitch.h>

#include <QAccessible>
#include <functional>

#include "buttontest.h"
#include "drawn/contrast.h"
#include "picture.h"
#include "qttests.h"

namespace {

struct Kind {
    const char* name;
    std::function<QAbstractButton*()> make;
    QStringList skins;
};

const QVector<Kind>& kinds() {
    static const QVector<Kind> all{
        {"QtSvgButton", [] { return new QtSvgButton; }, {"Beryl", "BerylSquare", "MetallicBrush"}},
        {"QtSvgToggleSwitch", [] { return new QtSvgToggleSwitch; }, {"Beryl", "BerylSquare"}},
    };
    return all;
}

struct State {
    const char* name;
    bool isOn;
    std::function<void(QAbstractButton*)> enter;
};

const QVector<State>& states() {
    const auto atRest = [](QAbstractButton*) {};
    const auto hovered = [](QAbstractButton* button) { button->setAttribute(Qt::WA_UnderMouse); };
    const auto pressed = [](QAbstractButton* button) { button->setDown(true); };
    const auto disabled = [](QAbstractButton* button) { button->setEnabled(false); };
    static const QVector<State> all{
        {"off", false, atRest},
        {"off, hovered", false, hovered},
        {"off, pressed", false, pressed},
        {"off, disabled", false, disabled},
        {"on", true, atRest},
        {"on, hovered", true, hovered},
        {"on, pressed", true, pressed},
        {"on, disabled", true, disabled},
    };
    return all;
}

// How many pixels are plainly of another brightness, of a hundred that are drawn on.
double difference(const QImage& one, const QImage& other) {
    int apart = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            apart += contrast(one.pixelColor(x, y), other.pixelColor(x, y)) > 1.5;
    return 100.0 * apart / (one.width() * one.height());
}

}  // namespace

class DrawnButtonsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();

    void anySkinIsKeptAndKnownOnesDiffer();
    void anotherSkinPaintsOnce();
    void theirStatesAreApartWithoutColours();
    void theirEdgeStandsOutFromEveryWindow();
    void theFocusHasARing();
    void theyAreSharpAtRatioTwo();
    void theyAreInTheMiddleAndKeepTheirForm();
    void withoutRoomNothingIsDrawn();
    void aFingertipHasRoom();

    void aClickIsAClick();
    void thePointerThatLeavesCancels();
    void otherMouseButtonsAreNothing();
    void whatIsBesideBelongsToTheWidgetBehind();
    void aDisabledOneTakesNothing();
    void aFingerClicks();
    void aFingerThatSlidesOffCancels();
    void aFingerThatTheScreenLosesCancels();
    void aFingerOnAnotherLetsThisGo();
    void aSecondFingerOnTheSameIsNothing();
    void twoQuickTapsAreADoubleClick();
    void aDisabledOneTakesNoFinger();
    void tabReachesThem();
    void keysPressAsTheMouseDoes_data();
    void keysPressAsTheMouseDoes();
    void aKeyThatRepeatsPressesOnce();
    void aKeyPressesNothingThatIsHeldAlready();
    void whoLosesTheFocusLetsGo();
    void otherKeysPassOn();
    void aScreenReaderHearsAndPresses();

private:
    QAbstractButton* make() const { return m_kind.make(); }
    // In a state, with the first skin, as large as it likes to be.
    QImage picture(const State& state, const QString& skin, const QPalette& palette, double ratio = 1.0) const;

    Kind m_kind;
};

void DrawnButtonsTest::initTestCase_data() {
    QTest::addColumn<int>("kind");
    for (int i = 0; i < kinds().size(); ++i)
        QTest::newRow(kinds()[i].name) << i;
}

void DrawnButtonsTest::init() {
    QFETCH_GLOBAL(int, kind);
    m_kind = kinds()[kind];
}

QImage DrawnButtonsTest::picture(const State& state, const QString& skin, const QPalette& palette, double ratio) const {
    const std::unique_ptr<QAbstractButton> button(make());
    button->setPalette(palette);
    button->setProperty("skin", skin);
    button->setCheckable(true);
    button->setChecked(state.isOn);
    button->resize(button->sizeHint());
    state.enter(button.get());
    return pictureOf(*button, ratio);
}

void DrawnButtonsTest::anySkinIsKeptAndKnownOnesDiffer() {
    const std::unique_ptr<QAbstractButton> button(make());
    QCOMPARE(button->property("skin").toString(), QString("Beryl"));
    QVERIFY(button->setProperty("skin", "Marble"));
    QCOMPARE(button->property("skin").toString(), QString("Marble"));
    const auto look = [&](const QString& skin) { return picture(states().first(), skin, lightPalette()); };
    QCOMPARE(look("Marble"), look("Beryl"));
    for (const QString& one : m_kind.skins)
        for (const QString& other : m_kind.skins)
            QVERIFY2(one == other || difference(look(one), look(other)) > 5.0, qPrintable(one + " and " + other));
}

void DrawnButtonsTest::anotherSkinPaintsOnce() {
    ButtonPanel panel(make());
    PaintWitness paints(panel.button);
    paints.forget();
    panel.button->setProperty("skin", "Beryl");
    QCOMPARE(paints.countAfterEvents(), 0);
    panel.button->setProperty("skin", "BerylSquare");
    QCOMPARE(paints.countAfterEvents(), 1);
}

// Also for one who sees no hues, and for one who does not tell red from green.
void DrawnButtonsTest::theirStatesAreApartWithoutColours() {
    for (const QString& skin : m_kind.skins)
        for (const QPalette& palette : {lightPalette(), darkPalette()})
            for (const auto eye : {withoutHue, withoutRedAndGreen})
                for (const State& one : states())
                    for (const State& other : states()) {
                        const double seen = &one == &other ? 100.0
                                                           : difference(seenBy(picture(one, skin, palette), eye),
                                                                        seenBy(picture(other, skin, palette), eye));
                        QVERIFY2(
                            seen > 1.5,
                            qPrintable(QStringLiteral("%1: %2 and %3: %4").arg(skin, one.name, other.name).arg(seen)));
                    }
}

void DrawnButtonsTest::theirEdgeStandsOutFromEveryWindow() {
    for (const QString& skin : m_kind.skins) {
        for (const QPalette& palette : {lightPalette(), darkPalette()}) {
            for (const State& state : states()) {
                const QImage seen = picture(state, skin, palette);
                double best = 1.0;
                for (int y = 0; y < seen.height() / 2; ++y)
                    best =
                        std::max(best, contrast(seen.pixelColor(seen.width() / 2, y), palette.color(QPalette::Window)));
                // A disabled one is to be faint.
                QVERIFY2(best >= (QByteArray(state.name).contains("disabled") ? 1.3 : 3.0), state.name);
            }
        }
    }
}

void DrawnButtonsTest::theFocusHasARing() {
    ButtonPanel panel(make());
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        panel.window.setPalette(palette);
        for (const QString& skin : m_kind.skins) {
            panel.button->setProperty("skin", skin);
            panel.other.setFocus();
            const QImage without = pictureOf(*panel.button);
            panel.button->setFocus();
            QVERIFY2(difference(without, pictureOf(*panel.button)) > 1.5, qPrintable(skin));
        }
    }
}

void DrawnButtonsTest::theyAreSharpAtRatioTwo() {
    const State& state = states().last();
    for (const QString& skin : m_kind.skins) {
        const std::unique_ptr<QAbstractButton> large(make());
        large->setPalette(lightPalette());
        large->setProperty("skin", skin);
        large->setCheckable(true);
        large->setChecked(state.isOn);
        large->resize(large->sizeHint() * 2);
        state.enter(large.get());
        QImage twice = picture(state, skin, lightPalette(), 2.0);
        twice.setDevicePixelRatio(1.0);
        QCOMPARE(twice, pictureOf(*large));
    }
}

void DrawnButtonsTest::theyAreInTheMiddleAndKeepTheirForm() {
    ButtonPanel panel(make());
    const int aspect = panel.button->sizeHint().width() / panel.button->sizeHint().height();
    for (const QSize& size : {QSize(240, 60), QSize(60, 180)}) {
        panel.button->resize(size);
        const QRect face = panel.button->mask().boundingRect();
        QCOMPARE(face.width(), face.height() * aspect);
        QVERIFY(face.height() == size.height() || face.width() == size.width());
        QVERIFY((face.center() - panel.button->rect().center()).manhattanLength() <= 2);
    }
}

void DrawnButtonsTest::withoutRoomNothingIsDrawn() {
    const std::unique_ptr<QAbstractButton> button(make());
    button->setPalette(lightPalette());
    for (const QSize& size : {QSize(1, 1), QSize(1, 20), QSize(20, 1)}) {
        button->resize(size);
        QVERIFY(drawnRect(pictureOf(*button), lightPalette().color(QPalette::Window)).height() <= 1);
    }
}

void DrawnButtonsTest::aFingertipHasRoom() {
    const std::unique_ptr<QAbstractButton> button(make());
    QVERIFY(button->sizeHint().height() >= 44);
    QVERIFY(button->minimumSizeHint().height() < button->sizeHint().height());
    QFont font = button->font();
    font.setPointSize(60);
    const QSize before = button->sizeHint();
    button->setFont(font);
    QVERIFY(button->sizeHint().height() > before.height());
}

void DrawnButtonsTest::aClickIsAClick() {
    ButtonPanel panel(make());
    panel.press();
    QVERIFY(panel.button->isDown());
    QCOMPARE(panel.clicks->count(), 0);
    panel.release();
    QVERIFY(!panel.button->isDown());
    QCOMPARE(panel.clicks->count(), 1);
}

void DrawnButtonsTest::thePointerThatLeavesCancels() {
    ButtonPanel panel(make());
    panel.press();
    QTest::mouseMove(panel.button, QPoint(-30, 10));
    QTest::mouseRelease(panel.button, Qt::LeftButton, {}, QPoint(-30, 10));
    QVERIFY(!panel.button->isDown());
    QCOMPARE(panel.clicks->count(), 0);
}

void DrawnButtonsTest::otherMouseButtonsAreNothing() {
    ButtonPanel panel(make());
    for (const Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mousePress(panel.button, other, {}, panel.middle());
        QVERIFY(!panel.button->isDown());
        QTest::mouseRelease(panel.button, other, {}, panel.middle());
    }
    QCOMPARE(panel.clicks->count(), 0);
}

void DrawnButtonsTest::whatIsBesideBelongsToTheWidgetBehind() {
    ButtonPanel panel(make());
    panel.button->resize(180, 40);
    QCOMPARE(panel.window.childAt(panel.button->geometry().center()), panel.button);
    QVERIFY(!panel.window.childAt(panel.button->pos() + QPoint(5, 20)));
    QVERIFY(!panel.window.childAt(panel.button->pos() + QPoint(175, 20)));
}

void DrawnButtonsTest::aDisabledOneTakesNothing() {
    ButtonPanel panel(make());
    panel.button->setEnabled(false);
    panel.press();
    QVERIFY(!panel.button->isDown());
    panel.release();
    QTest::keyClick(panel.button, Qt::Key_Space);
    QCOMPARE(panel.clicks->count(), 0);
    QVERIFY(!panel.button->isChecked());
}

void DrawnButtonsTest::aFingerClicks() {
    ButtonPanel panel(make());
    panel.touch(panel.button->geometry().center());
    QVERIFY(panel.button->isDown() && panel.button->hasFocus());
    panel.lift(panel.button->geometry().center());
    QVERIFY(!panel.button->isDown());
    QCOMPARE(panel.clicks->count(), 1);
}

void DrawnButtonsTest::aFingerThatSlidesOffCancels() {
    ButtonPanel panel(make());
    const QPoint off(20, 150);
    panel.touch(panel.button->geometry().center());
    QVERIFY(panel.button->isDown());
    panel.slide(off);
    panel.lift(off);
    QVERIFY(!panel.button->isDown());
    QCOMPARE(panel.clicks->count(), 0);
}

void DrawnButtonsTest::aFingerThatTheScreenLosesCancels() {
    ButtonPanel panel(make());
    panel.touch(panel.button->geometry().center());
    QTouchEvent cancel(QEvent::TouchCancel, touchScreen());
    QApplication::sendEvent(panel.button, &cancel);
    QVERIFY(!panel.button->isDown());
    QCOMPARE(panel.clicks->count(), 0);
    QCOMPARE(panel.mouse->heard, QStringList({"press 1", "release 1"}));
    panel.lift(panel.button->geometry().center());
}

void DrawnButtonsTest::aFingerOnAnotherLetsThisGo() {
    ButtonPanel panel(make());
    QAbstractButton* second = make();
    second->setParent(&panel.window);
    second->setGeometry(100, 120, 120, 60);
    second->show();
    const QPoint first = panel.button->geometry().center();
    const QPoint below = second->geometry().center();
    QTest::touchEvent(&panel.window, touchScreen()).press(0, first, &panel.window);
    QTest::touchEvent(&panel.window, touchScreen()).stationary(0).press(1, below, &panel.window);
    QVERIFY(second->isDown() && second->hasFocus());
    QVERIFY(!panel.button->isDown());
    QTest::touchEvent(&panel.window, touchScreen()).release(0, first, &panel.window).stationary(1);
    QVERIFY(second->isDown());
    QCOMPARE(panel.clicks->count(), 0);
    QTest::touchEvent(&panel.window, touchScreen()).release(1, below, &panel.window);
    QVERIFY(!second->isDown());
    QCOMPARE(panel.mouse->heard, QStringList({"press 1", "release 1"}));
}

void DrawnButtonsTest::aSecondFingerOnTheSameIsNothing() {
    ButtonPanel panel(make());
    const QPoint on = panel.button->geometry().center();
    QTest::touchEvent(&panel.window, touchScreen()).press(0, on, &panel.window);
    QTest::touchEvent(&panel.window, touchScreen()).stationary(0).press(1, on + QPoint(8, 8), &panel.window);
    QTest::touchEvent(&panel.window, touchScreen()).stationary(0).release(1, on + QPoint(8, 8), &panel.window);
    QVERIFY(panel.button->isDown());
    QCOMPARE(panel.mouse->heard, QStringList("press 1"));
    QTest::touchEvent(&panel.window, touchScreen()).release(0, on, &panel.window);
    QCOMPARE(panel.clicks->count(), 1);
}

void DrawnButtonsTest::twoQuickTapsAreADoubleClick() {
    ButtonPanel panel(make());
    const QPoint on = panel.button->geometry().center();
    for (int i = 0; i < 2; ++i) {
        panel.touch(on);
        panel.lift(on);
    }
    QCOMPARE(panel.mouse->heard, QStringList({"press 1", "release 1", "release 1"}));
    QVERIFY(!panel.button->isDown());
}

void DrawnButtonsTest::aDisabledOneTakesNoFinger() {
    ButtonPanel panel(make());
    panel.button->setEnabled(false);
    panel.touch(panel.button->geometry().center());
    QVERIFY(!panel.button->isDown());
    panel.lift(panel.button->geometry().center());
    QCOMPARE(panel.clicks->count(), 0);
    QCOMPARE(panel.mouse->heard, QStringList());
}

void DrawnButtonsTest::tabReachesThem() {
    ButtonPanel panel(make());
    QTest::keyClick(&panel.window, Qt::Key_Tab);
    QVERIFY(panel.button->hasFocus());
    QTest::keyClick(&panel.window, Qt::Key_Tab);
    QVERIFY(panel.other.hasFocus());
}

void DrawnButtonsTest::keysPressAsTheMouseDoes_data() {
    QTest::addColumn<int>("key");
    QTest::newRow("space") << int(Qt::Key_Space);
    QTest::newRow("return") << int(Qt::Key_Return);
    QTest::newRow("enter") << int(Qt::Key_Enter);
    QTest::newRow("select") << int(Qt::Key_Select);
}

void DrawnButtonsTest::keysPressAsTheMouseDoes() {
    QFETCH(int, key);
    ButtonPanel panel(make());
    panel.button->setFocus();
    QKeyEvent press(QEvent::KeyPress, key, {});
    QApplication::sendEvent(panel.button, &press);
    QVERIFY(panel.button->isDown());
    QCOMPARE(panel.mouse->heard, QStringList("press 1"));
    QKeyEvent release(QEvent::KeyRelease, key, {});
    QApplication::sendEvent(panel.button, &release);
    QVERIFY(!panel.button->isDown());
    QCOMPARE(panel.mouse->heard, QStringList({"press 1", "release 1"}));
    QCOMPARE(panel.clicks->count(), 1);
}

void DrawnButtonsTest::aKeyThatRepeatsPressesOnce() {
    ButtonPanel panel(make());
    panel.button->setFocus();
    QTest::keyPress(panel.button, Qt::Key_Space);
    for (int i = 0; i < 3; ++i) {
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_Space, {}, " ", true);
        QApplication::sendEvent(panel.button, &up);
        QKeyEvent again(QEvent::KeyPress, Qt::Key_Space, {}, " ", true);
        QApplication::sendEvent(panel.button, &again);
    }
    QCOMPARE(panel.mouse->heard, QStringList("press 1"));
    QTest::keyRelease(panel.button, Qt::Key_Space);
    QCOMPARE(panel.clicks->count(), 1);
}

void DrawnButtonsTest::aKeyPressesNothingThatIsHeldAlready() {
    ButtonPanel panel(make());
    panel.button->setFocus();
    panel.press();
    QTest::keyClick(panel.button, Qt::Key_Space);
    QVERIFY(panel.button->isDown());
    QCOMPARE(panel.mouse->heard, QStringList("press 1"));
    panel.release();
    QCOMPARE(panel.clicks->count(), 1);
}

void DrawnButtonsTest::whoLosesTheFocusLetsGo() {
    ButtonPanel panel(make());
    panel.button->setFocus();
    QTest::keyPress(panel.button, Qt::Key_Space);
    panel.other.setFocus();
    QVERIFY(!panel.button->isDown());
    // The key is let go elsewhere. The next one to come up here is another's.
    panel.button->setFocus();
    panel.press();
    QTest::keyRelease(panel.button, Qt::Key_Space);
    QVERIFY(panel.button->isDown());
    panel.release();
    QCOMPARE(panel.clicks->count(), 1);
}

void DrawnButtonsTest::otherKeysPassOn() {
    ButtonPanel panel(make());
    panel.button->setFocus();
    for (const int key : {Qt::Key_A, Qt::Key_F5, Qt::Key_Escape}) {
        QKeyEvent event(QEvent::KeyPress, key, {});
        QApplication::sendEvent(panel.button, &event);
        QVERIFY(!event.isAccepted());
    }
    QCOMPARE(panel.mouse->heard, QStringList());
}

void DrawnButtonsTest::aScreenReaderHearsAndPresses() {
    ButtonPanel panel(make());
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(panel.button);
    QVERIFY(spoken);
    QVERIFY(!spoken->text(QAccessible::Name).isEmpty());
    panel.button->setText("Horn");
    QCOMPARE(spoken->text(QAccessible::Name), QString("Horn"));
    panel.button->setAccessibleName("Signal horn");
    QCOMPARE(spoken->text(QAccessible::Name), QString("Signal horn"));
    QVERIFY(spoken->state().focusable);
    panel.press();
    QVERIFY(spoken->state().pressed);
    panel.release();
    QVERIFY(!spoken->state().pressed);
    QAccessibleActionInterface* actions = spoken->actionInterface();
    QVERIFY(actions);
    panel.mouse->heard.clear();
    actions->doAction(actions->actionNames().first());
    QCOMPARE(panel.mouse->heard, QStringList({"press 1", "release 1"}));
    QCOMPARE(panel.clicks->count(), 2);
    panel.button->setEnabled(false);
    QVERIFY(actions->actionNames().isEmpty());
    actions->doAction(QAccessibleActionInterface::pressAction());
    actions->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(panel.clicks->count(), 2);
}

OSTREL_TEST(DrawnButtonsTest)

#include "drawnbuttons_test.moc"
