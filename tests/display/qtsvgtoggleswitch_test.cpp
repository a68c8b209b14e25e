// The switch: what it alone does.
#include <ostrel-display/qtsvgtoggleswitch.h>

#include <QAccessible>

#include "buttontest.h"
#include "picture.h"
#include "qttests.h"

namespace {

// Whether the knob, the largest bright thing on it, stands right.
bool isKnobRight(QAbstractButton& button) {
    const QImage seen = pictureOf(button);
    const QRect left(seen.width() / 8, seen.height() * 3 / 8, seen.width() / 4, seen.height() / 4);
    return meanLuminance(seen, left.translated(seen.width() / 2, 0)) > meanLuminance(seen, left);
}

}  // namespace

class QtSvgToggleSwitchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itIsACheckableButton();
    void aClickSwitches();
    void whoeverSetsItIsNotToldOfAClick();
    void theKnobShowsTheState();
    void thePointerThatComesBackSwitches();
    void itIsACheckBoxToAScreenReader();
};

void QtSvgToggleSwitchTest::itIsACheckableButton() {
    QtSvgToggleSwitch button;
    QVERIFY(button.isCheckable());
    QVERIFY(!button.isChecked());
}

void QtSvgToggleSwitchTest::aClickSwitches() {
    ButtonPanel panel(new QtSvgToggleSwitch);
    panel.press();
    QVERIFY(!panel.button->isChecked());
    panel.release();
    QVERIFY(panel.button->isChecked());
    panel.button->setFocus();
    QTest::keyClick(panel.button, Qt::Key_Return);
    QVERIFY(!panel.button->isChecked());
    QCOMPARE(panel.clicks->count(), 2);
}

void QtSvgToggleSwitchTest::whoeverSetsItIsNotToldOfAClick() {
    ButtonPanel panel(new QtSvgToggleSwitch);
    panel.button->setChecked(true);
    QVERIFY(panel.button->isChecked());
    QCOMPARE(panel.clicks->count(), 0);
}

void QtSvgToggleSwitchTest::theKnobShowsTheState() {
    for (const char* skin : {"Beryl", "BerylSquare"}) {
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            for (const QPalette& palette : {lightPalette(), darkPalette()}) {
                QtSvgToggleSwitch button;
                button.setPalette(palette);
                button.setSkin(skin);
                button.setLayoutDirection(direction);
                button.resize(button.sizeHint());
                QVERIFY(!isKnobRight(button));
                button.setChecked(true);
                QVERIFY(isKnobRight(button));
            }
        }
    }
}

void QtSvgToggleSwitchTest::thePointerThatComesBackSwitches() {
    ButtonPanel panel(new QtSvgToggleSwitch);
    const auto moveTo = [&](const QPoint& place) {
        QMouseEvent move(QEvent::MouseMove, place, Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(panel.button, &move);
    };
    panel.press();
    moveTo(QPoint(-30, 10));
    QVERIFY(!panel.button->isDown());
    moveTo(panel.middle());
    QVERIFY(panel.button->isDown());
    panel.release();
    QVERIFY(panel.button->isChecked());
}

void QtSvgToggleSwitchTest::itIsACheckBoxToAScreenReader() {
    QtSvgToggleSwitch button;
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&button);
    QCOMPARE(spoken->role(), QAccessible::CheckBox);
    QVERIFY(spoken->state().checkable && !spoken->state().checked);
    QCOMPARE(spoken->text(QAccessible::Value), QString("off"));
    spoken->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QVERIFY(button.isChecked());
    QVERIFY(spoken->state().checked);
    QCOMPARE(spoken->text(QAccessible::Value), QString("on"));
}

OSTREL_TEST(QtSvgToggleSwitchTest)

#include "qtsvgtoggleswitch_test.moc"
