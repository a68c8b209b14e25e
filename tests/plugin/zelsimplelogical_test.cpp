// The name and the state of a logical variable as text.
#include <QLabel>
#include <QLayout>

#include "qttests.h"
#include "readouttest.h"
#include "widgets/zel_simplelogical.h"

namespace {

class Display : public ZelSimpleLogical {
public:
    Display() {
        setObjectName(QStringLiteral("display"));
        platform().forgetCalls();
    }
    QLabel* label() const { return findChild<QLabel*>("name"); }
    QLabel* state() const { return findChild<QLabel*>("state"); }
    void tick() { ostrelTimerEvent(getSampleRate()); }
    bool isSampled() { return TimerModerator::isRegistered(this, getSampleRate()); }

    using OstrelBase::_varType;
    using OstrelBase::limitColorCode;
};

const QStringList writes{"set_logical_variable"};

}  // namespace

class ZelSimpleLogicalTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void itsProperties_data();
    void itsProperties();
    void itsPropertiesAndSlotsStandInOrder();
    void itsForm();
    void aNewWidget();

    void theNameAndTheStateAreShown();
    void aTickShowsANewState();
    void whoAsksForTheTextHidesNoChange();
    void aStateThatRestsTouchesNoLabel();
    void blanksAreNotShownButCompared();
    void theStatusIsSampled();
    void theSameNameAgainChangesNothing();
    void anUnknownVariableShowsADash();
    void anotherKindLeavesTheTexts();
    void aMovedRecordLeavesTheTimer();
    void theOrderOfAFirstBinding();

    void aDoubleClickWritesTheOtherState();
    void whatIsWrittenFollowsTheLastSample();
    void noLockAndNoQuestionStandsBefore();
    void otherEventsReachTheLabel();
    void withoutItsVariableNothingIsWritten();
    void aRemoteDisplayWritesNothing();

    void theFontIsThatOfBothLabels();
};

void ZelSimpleLogicalTest::init() {
    startAsHost();
    platform().logical("PUMP").value(1).states("RUNNING", "STOPPED");
}

void ZelSimpleLogicalTest::itsProperties_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("name") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("nameFont") << QByteArray("QFont") << QVariant(QApplication::font());
    QTest::newRow("sampleRate") << QByteArray("int") << QVariant(1000);
    QTest::newRow("displayAlias") << QByteArray("bool") << QVariant(true);
}

void ZelSimpleLogicalTest::itsProperties() {
    QFETCH(QByteArray, type);
    QFETCH(QVariant, value);
    compareProperty(Display(), QTest::currentDataTag(), type, value);
}

void ZelSimpleLogicalTest::itsPropertiesAndSlotsStandInOrder() {
    const QMetaObject& meta = ZelSimpleLogical::staticMetaObject;
    QCOMPARE(ownProperties(meta), QStringList({"name", "nameFont", "sampleRate", "displayAlias"}));
    QCOMPARE(ownMethods(meta), QStringList({"ostrelTimerEvent(int)", "sample(bool)", "sample()"}));
}

void ZelSimpleLogicalTest::itsForm() {
    const Display widget;
    QCOMPARE(widget.windowTitle(), QString("Form"));
    QVERIFY(widget.findChild<QHBoxLayout*>("horizontalLayout"));
    QVERIFY(widget.findChild<QFrame*>("frame"));
    const auto* column = widget.findChild<QVBoxLayout*>("verticalLayout");
    QCOMPARE(column->spacing(), 0);
    QCOMPARE(column->contentsMargins(), QMargins());
    QCOMPARE(column->indexOf(widget.label()), 0);
    QCOMPARE(column->indexOf(widget.state()), 1);
    QCOMPARE(widget.label()->text(), QString("Name"));
    QCOMPARE(widget.state()->text(), QString("Value"));
    QCOMPARE(widget.label()->minimumSize(), QSize(69, 24));
    QCOMPARE(widget.state()->minimumSize(), QSize(64, 24));
    for (const QLabel* label : {widget.label(), widget.state()}) {
        QCOMPARE(label->maximumHeight(), 48);
        QCOMPARE(label->textFormat(), Qt::PlainText);
        QVERIFY(label->alignment() & Qt::AlignRight);
        QVERIFY(label->alignment() & Qt::AlignVCenter);
    }
}

void ZelSimpleLogicalTest::aNewWidget() {
    platform().forgetCalls();
    ZelSimpleLogical made;
    QCOMPARE(platform().calls({"cacheProperty", "cachePropertyFont"}), QStringList());
    const Display widget;
    QCOMPARE(widget.getPreviousName(), QString("not_set"));
    QCOMPARE(int{widget._varType}, 1);
    QStringList menu;
    for (const QAction* action : widget.actions())
        menu << action->text();
    QCOMPARE(menu, QStringList({"Change Variable", "Edit Properties", "Copy Variable Name", "Paste Variable Name",
                                "Disable Widget"}));
}

void ZelSimpleLogicalTest::theNameAndTheStateAreShown() {
    Display widget;
    widget.setName("PUMP");
    QCOMPARE(widget.label()->text(), QString("PUMP"));
    QCOMPARE(widget.state()->text(), QString("RUNNING"));
    QVERIFY(widget.isSampled());
}

void ZelSimpleLogicalTest::aTickShowsANewState() {
    const auto valve = platform().logical("VALVE").value(0).states("OPEN", "SHUT");
    Display widget;
    widget.setName("VALVE");
    QCOMPARE(widget.state()->text(), QString("SHUT"));
    // Every number but zero is true.
    valve.value(-7);
    widget.tick();
    QCOMPARE(widget.state()->text(), QString("OPEN"));
}

// A host that asked for the text between two ticks was the last to see the new state: the label kept the former.
void ZelSimpleLogicalTest::whoAsksForTheTextHidesNoChange() {
    const auto pump = platform().logical("PUMP").value(1).states("RUNNING", "STOPPED");
    Display widget;
    widget.setName("PUMP");
    pump.value(0);
    const QString* text = widget.sampleReal(true);
    QVERIFY(text);
    QCOMPARE(*text, QString("STOPPED"));
    widget.tick();
    QCOMPARE(widget.state()->text(), QString("STOPPED"));
}

void ZelSimpleLogicalTest::aStateThatRestsTouchesNoLabel() {
    Display widget;
    widget.setName("PUMP");
    widget.state()->setText("scratched");
    widget.tick();
    QCOMPARE(widget.state()->text(), QString("scratched"));
}

void ZelSimpleLogicalTest::blanksAreNotShownButCompared() {
    const auto pump = platform().logical("BLANKS").value(1).states(" ON  ", " ON");
    Display widget;
    widget.setName("BLANKS");
    QCOMPARE(widget.state()->text(), QString("ON"));
    widget.state()->setText("scratched");
    widget.tick();
    QCOMPARE(widget.state()->text(), QString("scratched"));
    // The same word with other blanks is another state.
    pump.value(0);
    widget.tick();
    QCOMPARE(widget.state()->text(), QString("ON"));
}

void ZelSimpleLogicalTest::theStatusIsSampled() {
    const auto valve = platform().logical("VALVE").status(1024);
    Display widget;
    widget.setName("VALVE");
    QCOMPARE(int{widget.limitColorCode}, 1024);
    QCOMPARE(widget.getColor(), QColor(Qt::red));
    valve.status(512);
    widget.tick();
    QCOMPARE(widget.getColor(), QColor(Qt::green));
    // Of a variable of another kind the colour alone is looked at, not its status.
    platform().real("SPEED").status(256);
    widget.setName("SPEED");
    QCOMPARE(int{widget.limitColorCode}, 512);
}

void ZelSimpleLogicalTest::theSameNameAgainChangesNothing() {
    Display widget;
    widget.setName("PUMP");
    TimerModerator::releaseFromTimer(&widget);
    widget.label()->setText("scratched");
    widget.setName("PUMP");
    QCOMPARE(widget.label()->text(), QString("scratched"));
    QVERIFY(!widget.isSampled());
}

void ZelSimpleLogicalTest::anUnknownVariableShowsADash() {
    Display widget;
    widget.setName("PUMP");
    widget.setName("NOBODY");
    QCOMPARE(widget.label()->text(), QString("NOBODY"));
    QCOMPARE(widget.state()->text(), QString("-"));
    QVERIFY(!widget.ptr());
    // It stays on its timer, which brings nothing.
    QVERIFY(widget.isSampled());
    widget.tick();
    QCOMPARE(widget.state()->text(), QString("-"));
    widget.setName("PUMP");
    QCOMPARE(widget.label()->text(), QString("PUMP"));
    QCOMPARE(widget.state()->text(), QString("RUNNING"));
}

void ZelSimpleLogicalTest::anotherKindLeavesTheTexts() {
    platform().real("SPEED");
    Display widget;
    widget.setName("PUMP");
    platform().forgetCalls();
    widget.setName("SPEED");
    QCOMPARE(widget.label()->text(), QString("PUMP"));
    QCOMPARE(widget.state()->text(), QString("RUNNING"));
    QCOMPARE(widget.getName(), QString("SPEED"));
    QVERIFY(!widget.isSampled());
    QCOMPARE(platform().calls({"cacheProperty"}), QStringList());
    widget.setName("PUMP");
    QVERIFY(widget.isSampled());
}

void ZelSimpleLogicalTest::aMovedRecordLeavesTheTimer() {
    const auto pump = platform().logical("MOVING").value(1).states("RUNNING", "STOPPED");
    Display widget;
    widget.setName("MOVING");
    platform().move("MOVING");
    pump.value(0);
    widget.globalConfigEvent(1, -1);
    widget.globalConfigEvent(0, -1);
    QCOMPARE(widget.state()->text(), QString("STOPPED"));
    QVERIFY(!widget.isSampled());
}

void ZelSimpleLogicalTest::theOrderOfAFirstBinding() {
    Display widget;
    widget.setName("PUMP");
    QCOMPARE(platform().calls(),
             QStringList({"find_variable PUMP", "find_alias_label PUMP", "find_alias_of_target PUMP",
                          "find_variable PUMP", "get_vrbl_adr PUMP",
                          "cacheProperty ZelSimpleLogical display name PUMP loading", "find_variable PUMP"}));
    QVERIFY(!widget.getInitFlag());
    widget.tick();
    QVERIFY(widget.getInitFlag());
}

void ZelSimpleLogicalTest::aDoubleClickWritesTheOtherState() {
    Display widget;
    widget.setName("PUMP");
    platform().forgetCalls();
    QTest::mouseDClick(widget.state(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList({"set_logical_variable PUMP 0 0 null"}));
    widget.tick();
    QCOMPARE(widget.state()->text(), QString("STOPPED"));
    QTest::mouseDClick(widget.state(), Qt::LeftButton);
    QCOMPARE(platform().calls(writes).last(), QString("set_logical_variable PUMP 1 0 null"));
    platform().forgetCalls();
    QTest::mouseDClick(widget.label(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList());
}

void ZelSimpleLogicalTest::whatIsWrittenFollowsTheLastSample() {
    const auto valve = platform().logical("VALVE").value(1).states("OPEN", "SHUT");
    Display widget;
    widget.setName("VALVE");
    valve.value(0);
    platform().forgetCalls();
    QTest::mouseDClick(widget.state(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList({"set_logical_variable VALVE 0 0 null"}));
}

void ZelSimpleLogicalTest::noLockAndNoQuestionStandsBefore() {
    UserInterfaceLock = 1;
    Display widget;
    widget.setName("PUMP");
    QVERIFY(!widget.allowsWriteAcess());
    platform().forgetCalls();
    QTest::mouseDClick(widget.state(), Qt::LeftButton);
    QCOMPARE(platform().calls(writes).size(), 1);
    QVERIFY(!QApplication::activeModalWidget());
}

void ZelSimpleLogicalTest::otherEventsReachTheLabel() {
    Display widget;
    widget.setName("PUMP");
    QEvent click(QEvent::MouseButtonDblClick);
    QEvent press(QEvent::MouseButtonPress);
    QVERIFY(widget.eventFilter(widget.state(), &click));
    QVERIFY(!widget.eventFilter(widget.state(), &press));
    QVERIFY(!widget.eventFilter(widget.label(), &click));
}

void ZelSimpleLogicalTest::withoutItsVariableNothingIsWritten() {
    platform().real("SPEED");
    Display widget;
    const auto written = [&] {
        platform().forgetCalls();
        QTest::mouseDClick(widget.state(), Qt::LeftButton);
        return platform().calls(writes);
    };
    QCOMPARE(written(), QStringList());
    // Neither what is missing nor what is of another kind leaves the former variable to be written.
    for (const char* other : {"NOBODY", "SPEED", "not_set"}) {
        widget.setName("PUMP");
        widget.setName(other);
        QCOMPARE(written(), QStringList());
    }
}

void ZelSimpleLogicalTest::aRemoteDisplayWritesNothing() {
    RemoteDisplay = true;
    Display widget;
    widget.setName("PUMP");
    platform().forgetCalls();
    QTest::mouseDClick(widget.state(), Qt::LeftButton);
    QCOMPARE(platform().calls(), QStringList());
}

void ZelSimpleLogicalTest::theFontIsThatOfBothLabels() {
    Display widget;
    widget.setNameFont(QFont("Courier", 17));
    QCOMPARE(platform().calls(), QStringList({"cachePropertyFont ZelSimpleLogical display nameFont Courier loading"}));
    QCOMPARE(widget.label()->font().pointSize(), 17);
    QCOMPARE(widget.state()->font().pointSize(), 17);
    QCOMPARE(widget.getNameFont().pointSize(), 17);
}

OSTREL_TEST(ZelSimpleLogicalTest)
#include "zelsimplelogical_test.moc"
