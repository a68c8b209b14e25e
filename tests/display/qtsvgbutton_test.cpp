// The push button: what it alone does.
#include <ostrel-display/qtsvgbutton.h>

#include <QAccessible>

#include "buttontest.h"
#include "qttests.h"

class QtSvgButtonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itIsPressedUntilItIsReleased();
    void aDoubleClickIsOneClick();
    void escapeDoesNotLetItGo();
    void itIsAButtonToAScreenReader();
};

// Whoever acts at the press goes on until the release: it must look so.
void QtSvgButtonTest::itIsPressedUntilItIsReleased() {
    auto* button = new QtSvgButton;
    ButtonPanel panel(button);
    panel.press();
    QTest::mouseMove(button, QPoint(-30, 10));
    QMouseEvent move(QEvent::MouseMove, QPointF(-30, 10), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(button, &move);
    QVERIFY(button->isDown());
    QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(-30, 10));
    QVERIFY(!button->isDown());
}

void QtSvgButtonTest::aDoubleClickIsOneClick() {
    auto* button = new QtSvgButton;
    ButtonPanel panel(button);
    panel.press();
    panel.release();
    QTest::mouseDClick(button, Qt::LeftButton, {}, panel.middle());
    QVERIFY(!button->isDown());
    panel.release();
    QCOMPARE(panel.clicks->count(), 1);
}

void QtSvgButtonTest::escapeDoesNotLetItGo() {
    auto* button = new QtSvgButton;
    ButtonPanel panel(button);
    panel.press();
    QTest::keyClick(button, Qt::Key_Escape);
    QVERIFY(button->isDown());
    panel.release();
    QCOMPARE(panel.clicks->count(), 1);
}

void QtSvgButtonTest::itIsAButtonToAScreenReader() {
    QtSvgButton button;
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&button);
    QCOMPARE(spoken->role(), QAccessible::Button);
    QVERIFY(!spoken->state().checkable);
    QCOMPARE(spoken->text(QAccessible::Value), QString());
    QCOMPARE(spoken->actionInterface()->actionNames().first(), QAccessibleActionInterface::pressAction());
}

OSTREL_TEST(QtSvgButtonTest)

#include "qtsvgbutton_test.moc"
