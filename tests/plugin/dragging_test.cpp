// An operator's mouse on a real X server: names dragged from widget to widget and out of a list, the menu, double
// clicks.
#include <QApplication>
#include <QDrag>
#include <QListWidget>
#include <QMenu>
#include <QProcess>
#include <QTimer>
#include <functional>
#include <utility>

#include "plugintest.h"
#include "qttests.h"

namespace {

// A widget that tells what comes over it.
class Target : public Probe {
public:
    Target(const QString& name, const QPoint& place) {
        _name = name;
        setAcceptDrops(true);
        setGeometry(QRect(place, QSize(120, 60)));
        show();
    }
    bool allowsWriteAcess() override { return true; }
    void handleWriteValue(QObject*) override { ++asked; }

    int dragMoves = 0;
    int asked = 0;

protected:
    void dragMoveEvent(QDragMoveEvent* event) override {
        ++dragMoves;
        Probe::dragMoveEvent(event);
    }
};

QString atMiddle(const QWidget& widget) {
    const QPoint middle = widget.mapToGlobal(widget.rect().center());
    return QString("mousemove %1 %2").arg(middle.x()).arg(middle.y());
}

bool isDragging(const QObject& source) {
    return source.findChild<QDrag*>() != nullptr;
}

// The hand at mouse and keyboard: each step is given to the X server when what the former was for has come true. It
// goes on working while a drag or a menu runs.
class Hand {
public:
    using Condition = std::function<bool()>;

    Hand() {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { work(); });
        m_timer.start(2);
    }
    ~Hand() { QProcess::execute("xdotool", {"mouseup", "1", "keyup", "ctrl", "keyup", "shift"}); }

    // `command` is one of xdotool's; the step is over when the condition is true.
    void does(const QString& command, Condition until) { m_steps.append({command, std::move(until), false}); }
    // The same, giving the command again and again until then.
    void goesOn(const QString& command, Condition until) { m_steps.append({command, std::move(until), true}); }
    bool isDone() const { return m_steps.isEmpty(); }

    void drags(const QObject& source, const QWidget& from, Target& to, const QString& key = QString()) {
        const auto now = [] { return true; };
        does(atMiddle(from), now);
        does("mousedown 1", [] { return QApplication::mouseButtons() == Qt::LeftButton; });
        goesOn("mousemove_relative 4 0", [&] { return isDragging(source); });
        if (!key.isEmpty())
            does("keydown " + key, now);
        const auto isOverTarget = [&to] { return std::exchange(to.dragMoves, 0) > 0; };
        does(atMiddle(to), isOverTarget);
        does("mousemove_relative 4 0", isOverTarget);
        does("mouseup 1", [&] { return !isDragging(source); });
        if (!key.isEmpty())
            does("keyup " + key, now);
    }

private:
    struct Step {
        QString command;
        Condition isOver;
        bool isRepeated;
    };

    void work() {
        if (m_steps.isEmpty() || m_process.state() != QProcess::NotRunning)
            return;
        if (!m_isGiven) {
            m_isGiven = true;
            m_process.start("xdotool", m_steps.first().command.split(' '));
        } else if (m_steps.first().isOver()) {
            m_isGiven = false;
            m_steps.removeFirst();
        } else if (m_steps.first().isRepeated) {
            m_isGiven = false;
        }
    }

    QList<Step> m_steps;
    bool m_isGiven = false;
    QProcess m_process;
    QTimer m_timer;
};

}  // namespace

class DraggingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        if (QGuiApplication::platformName() != "xcb")
            QSKIP("needs an X server");
    }
    void init() { startAsHost(); }

    void aWidgetsNameIsDraggedToAnother();
    void withControlTwoWidgetsSwap();
    void withControlOntoItselfNothingChanges();
    void aNameIsDraggedOutOfAList_data();
    void aNameIsDraggedOutOfAList();
    void aLockedWidgetLetsNothingDropOnIt();
    void aWidgetWithoutDraggingIsStillATarget();
    void theMenuOpensWithTheRightButton();
    void aDoubleClickAsksForAValue();
};

void DraggingTest::aWidgetsNameIsDraggedToAnother() {
    Target from("SPEED", {50, 50});
    Target to("TORQUE", {400, 50});
    QVERIFY(QTest::qWaitForWindowExposed(&from) && QTest::qWaitForWindowExposed(&to));
    Hand hand;
    hand.drags(from, from, to);
    QTRY_VERIFY_WITH_TIMEOUT(hand.isDone(), 30000);
    QTRY_COMPARE(to.names, QStringList({"SPEED"}));
    QCOMPARE(from.names, QStringList());
}

void DraggingTest::withControlTwoWidgetsSwap() {
    Target from("SPEED", {50, 50});
    Target to("TORQUE", {400, 50});
    QVERIFY(QTest::qWaitForWindowExposed(&from) && QTest::qWaitForWindowExposed(&to));
    Hand hand;
    hand.drags(from, from, to, "ctrl");
    QTRY_VERIFY_WITH_TIMEOUT(hand.isDone(), 30000);
    QTRY_COMPARE(to.names, QStringList({"SPEED"}));
    QCOMPARE(from.names, QStringList({"TORQUE"}));
}

void DraggingTest::withControlOntoItselfNothingChanges() {
    Target widget("SPEED", {50, 50});
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    Hand hand;
    hand.drags(widget, widget, widget, "ctrl");
    QTRY_VERIFY_WITH_TIMEOUT(hand.isDone(), 30000);
    QCOMPARE(widget.names, QStringList());
}

void DraggingTest::aNameIsDraggedOutOfAList_data() {
    QTest::addColumn<QString>("key");
    QTest::addColumn<QStringList>("bound");
    QTest::newRow("plain") << QString() << QStringList({"LAMBDA"});
    QTest::newRow("with control") << "ctrl" << QStringList();
}

void DraggingTest::aNameIsDraggedOutOfAList() {
    QFETCH(QString, key);
    QFETCH(QStringList, bound);
    QListWidget list;
    list.addItem("LAMBDA");
    list.setDragEnabled(true);
    list.setGeometry(50, 200, 200, 100);
    list.show();
    Target to("TORQUE", {400, 50});
    QVERIFY(QTest::qWaitForWindowExposed(&list) && QTest::qWaitForWindowExposed(&to));
    QWidget item(list.viewport());
    item.setAttribute(Qt::WA_TransparentForMouseEvents);
    item.setGeometry(list.visualItemRect(list.item(0)));
    item.show();
    Hand hand;
    hand.drags(list, item, to, key);
    QTRY_VERIFY_WITH_TIMEOUT(hand.isDone(), 30000);
    QTRY_COMPARE(to.names, bound);
}

void DraggingTest::aLockedWidgetLetsNothingDropOnIt() {
    UserInterfaceLock = 2;
    Target from("SPEED", {50, 50});
    Target to("TORQUE", {400, 50});
    to.setLockVariable(true);
    QVERIFY(QTest::qWaitForWindowExposed(&from) && QTest::qWaitForWindowExposed(&to));
    Hand hand;
    hand.drags(from, from, to);
    QTRY_VERIFY_WITH_TIMEOUT(hand.isDone(), 30000);
    QCOMPARE(to.names, QStringList());
}

void DraggingTest::aWidgetWithoutDraggingIsStillATarget() {
    Target from("SPEED", {50, 50});
    Target to("TORQUE", {400, 50});
    to.setDDEnabled(false);
    QVERIFY(QTest::qWaitForWindowExposed(&from) && QTest::qWaitForWindowExposed(&to));
    Hand hand;
    hand.drags(from, from, to);
    QTRY_VERIFY_WITH_TIMEOUT(hand.isDone(), 30000);
    QTRY_COMPARE(to.names, QStringList({"SPEED"}));
}

void DraggingTest::theMenuOpensWithTheRightButton() {
    Target widget("SPEED", {50, 50});
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QStringList shown;
    Hand hand;
    hand.does(atMiddle(widget), [] { return true; });
    hand.does("click 3", [&] {
        const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return false;
        for (const QAction* action : menu->actions())
            shown.append(action->text());
        return true;
    });
    // The last entry switches the widget off.
    hand.does("key Up", [&] {
        const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        return menu && menu->activeAction() && menu->activeAction()->text() == "Disable Widget";
    });
    hand.does("key Return", [&] { return !widget.names.isEmpty(); });
    QTRY_VERIFY_WITH_TIMEOUT(hand.isDone(), 30000);
    QCOMPARE(shown, QStringList({"Change Variable", "Change Units", "Edit Properties", "Copy Variable Name",
                                 "Paste Variable Name", "Disable Widget"}));
    QCOMPARE(widget.names, QStringList({"not_set"}));
}

void DraggingTest::aDoubleClickAsksForAValue() {
    Target widget("SPEED", {50, 50});
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    Hand hand;
    hand.does(atMiddle(widget), [] { return true; });
    hand.does("click --repeat 2 --delay 20 1", [&] { return widget.asked > 0; });
    QTRY_VERIFY_WITH_TIMEOUT(hand.isDone(), 30000);
    QCOMPARE(widget.asked, 1);
}

OSTREL_TEST(DraggingTest)
#include "dragging_test.moc"
