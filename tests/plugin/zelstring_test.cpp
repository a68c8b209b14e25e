// A string variable with its name in front, in one line.
#include "widgets/zelstring.h"

#include <QLayout>
#include <QLineEdit>

#include "qttests.h"
#include "readouttest.h"
#include "selectiontest.h"

namespace {

class Display : public ZelString {
public:
    explicit Display(QWidget* parent = nullptr) : ZelString(parent) {
        setObjectName(QStringLiteral("display"));
        platform().forgetCalls();
    }
    QLineEdit* value() const { return findChild<QLineEdit*>("value"); }
    QLabel* label() const { return findChild<QLabel*>("name"); }
    QString shown() const { return value()->text(); }
    void tick() { ostrelTimerEvent(getSampleRate()); }
    bool isSampled() { return TimerModerator::isRegistered(this, getSampleRate()); }

    using OstrelBase::_lastPreFlashColor;
    using OstrelBase::_slastValue;
    using OstrelBase::_varType;
    using OstrelBase::limitColorCode;
};

bool holds(const QImage& picture, const QColor& color) {
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, y) == color)
                return true;
    return false;
}

}  // namespace

class ZelStringTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void itsProperties_data();
    void itsProperties();
    void itsPropertiesAndSlotsStandInOrder();
    void itsForm();
    void aNewWidget();
    void aRemoteDisplayKeepsNoFilterAndNoMenu();

    void theNameAndTheTextAreShown();
    void aTickShowsANewText();
    void blanksAreNotShownButKept();
    void aTextThatFillsItsFieldIsShownWhole();
    void aLongTextIsSeenFromItsBeginning();
    void theStatusColoursTheText();
    void anUnknownVariableShowsADash();
    void afterADashTheSameTextIsShownAgain();
    void theSameNameAgainWritesTheNameOnly();
    void theNameIsNotToldForOtherKinds();
    void aMovedRecordIsBoundAnew();
    void theOrderOfAFirstBinding();

    void theColourIsThatOfTheText();
    void theFirstColourTellsTheFormTheBackground();
    void theColourIsSeenOnAnyBackground();
    void theBackground();
    void itBlinks();
    void aPaletteChangeTakesTheParentsColour();

    void theFormLearnsEachProperty();
    void readOnlyReachesTheField();

    void aDoubleClickWritesTheNewText();
    void acceptedTextIsWrittenAsLatin1();
    void aCancelledDialogWritesNothing();
    void aRefusedWriteLeavesTheText();
    void aReadOnlyFieldIsNotWritten();
    void aDoubleClickWithoutAVariableIsAnError();
    void aWidgetReaimedWhileItAsksWritesNothing();
    void aRemoteDisplayWritesNothing();
    void otherEventsReachTheField();
};

void ZelStringTest::init() {
    startAsHost();
    platform().string("MODE").text("IDLE");
}

void ZelStringTest::itsProperties_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("name") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("nameFont") << QByteArray("QFont") << QVariant(QApplication::font());
    QTest::newRow("backColor") << QByteArray("QColor") << QVariant(QColor());
    QTest::newRow("valueFont") << QByteArray("QFont") << QVariant(QApplication::font());
    QTest::newRow("sampleRate") << QByteArray("int") << QVariant(1000);
    QTest::newRow("readOnlyString") << QByteArray("bool") << QVariant(true);
    QTest::newRow("displayAlias") << QByteArray("bool") << QVariant(true);
    QTest::newRow("toolTip") << QByteArray("QString") << QVariant(QString());
}

void ZelStringTest::itsProperties() {
    QFETCH(QByteArray, type);
    QFETCH(QVariant, value);
    compareProperty(Display(), QTest::currentDataTag(), type, value);
}

void ZelStringTest::itsPropertiesAndSlotsStandInOrder() {
    const QMetaObject& meta = ZelString::staticMetaObject;
    QCOMPARE(ownProperties(meta), QStringList({"name", "nameFont", "backColor", "valueFont", "sampleRate",
                                               "readOnlyString", "displayAlias", "toolTip"}));
    QCOMPARE(ownMethods(meta),
             QStringList({"ostrelTimerEvent(int)", "changeEvent(QEvent*)", "sample(bool)", "sample()"}));
}

void ZelStringTest::itsForm() {
    const Display widget;
    QCOMPARE(widget.windowTitle(), QString("Form"));
    QCOMPARE(widget.contextMenuPolicy(), Qt::ActionsContextMenu);
    QVERIFY(widget.acceptDrops());
    QCOMPARE(widget.layout()->objectName(), QString("verticalLayout"));
    QCOMPARE(widget.layout()->contentsMargins(), QMargins());
    const auto* frame = widget.findChild<QFrame*>("frame");
    QCOMPARE(frame->frameShape(), QFrame::Box);
    QCOMPARE(frame->lineWidth(), 3);
    QCOMPARE(frame->layout()->objectName(), QString("verticalLayout_2"));
    QCOMPARE(frame->layout()->contentsMargins(), QMargins());
    const auto* background = frame->findChild<QFrame*>("frame_bcolor");
    QCOMPARE(background->styleSheet(), QString("background-color: rgb(246, 246, 246);"));
    const auto* row = qobject_cast<QHBoxLayout*>(background->layout());
    QCOMPARE(row->objectName(), QString("horizontalLayout"));
    QCOMPARE(row->spacing(), 0);
    QCOMPARE(row->contentsMargins(), QMargins());
    const auto* icon = widget.findChild<QLabel*>("iconLabel");
    QCOMPARE(row->itemAt(0)->widget(), widget.label());
    QCOMPARE(row->itemAt(1)->widget(), icon);
    QCOMPARE(row->itemAt(2)->widget(), widget.value());
    QCOMPARE(widget.label()->text(), QString("TextLabel"));
    QCOMPARE(widget.label()->textFormat(), Qt::PlainText);
    QCOMPARE(widget.label()->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(widget.label()->maximumWidth(), 128);
    QCOMPARE(icon->maximumSize(), QSize(62, 15));
    QVERIFY(icon->isHidden());
    QCOMPARE(widget.value()->focusPolicy(), Qt::NoFocus);
    QCOMPARE(widget.value()->contextMenuPolicy(), Qt::ActionsContextMenu);
    QCOMPARE(widget.value()->maxLength(), 80);
    QVERIFY(widget.value()->isReadOnly());
}

void ZelStringTest::aNewWidget() {
    platform().forgetCalls();
    const ZelString made;
    QCOMPARE(platform().calls({"cacheProperty", "cachePropertyFont"}), QStringList());
    const Display widget;
    QCOMPARE(widget.getPreviousName(), QString("not_set"));
    QCOMPARE(int{widget._varType}, 2);
    QVERIFY(widget.getUnitsVis());
    QVERIFY(!widget.smartTicks());
    QStringList menu;
    for (const QAction* action : widget.actions())
        menu << action->text();
    QCOMPARE(menu, QStringList({"Change Variable", "Edit Properties", "Copy Variable Name", "Paste Variable Name",
                                "Disable Widget"}));
}

void ZelStringTest::aRemoteDisplayKeepsNoFilterAndNoMenu() {
    RemoteDisplay = true;
    const Display widget;
    QVERIFY(widget.actions().isEmpty());
}

void ZelStringTest::theNameAndTheTextAreShown() {
    Display widget;
    widget.setName("MODE");
    QCOMPARE(widget.label()->text(), QString("MODE"));
    QCOMPARE(widget.shown(), QString("IDLE"));
    QVERIFY(widget.isSampled());
}

void ZelStringTest::aTickShowsANewText() {
    const auto mode = platform().string("MODE").text("IDLE");
    Display widget;
    widget.setName("MODE");
    // Capitals make another text.
    mode.text("Idle");
    widget.tick();
    QCOMPARE(widget.shown(), QString("Idle"));
    widget.value()->setText("scratched");
    widget.tick();
    QCOMPARE(widget.shown(), QString("scratched"));
}

void ZelStringTest::blanksAreNotShownButKept() {
    platform().string("MODE").text("  IDLE  ");
    Display widget;
    widget.setName("MODE");
    QCOMPARE(widget.shown(), QString("IDLE"));
    QCOMPARE(widget._slastValue, QString("  IDLE  "));
    // So it rests: the text is not set again at each tick.
    widget.value()->setText("scratched");
    widget.tick();
    QCOMPARE(widget.shown(), QString("scratched"));
}

void ZelStringTest::aTextThatFillsItsFieldIsShownWhole() {
    const auto mode = platform().string("MODE");
    std::memset(mode->value, 'x', sizeof(mode->value));
    Display widget;
    widget.setName("MODE");
    QCOMPARE(widget.shown(), QString(80, 'x'));
}

void ZelStringTest::aLongTextIsSeenFromItsBeginning() {
    platform().string("MODE").text("a text that is much longer than its field is wide");
    Display widget;
    widget.resize(160, 40);
    widget.setName("MODE");
    QCOMPARE(widget.value()->cursorPosition(), 0);
}

void ZelStringTest::theStatusColoursTheText() {
    const auto mode = platform().string("MODE").status(1024);
    Display widget;
    widget.setName("MODE");
    QCOMPARE(int{widget.limitColorCode}, 1024);
    QCOMPARE(widget.value()->palette().color(QPalette::Text), QColor(Qt::red));
    mode.status(0);
    widget.tick();
    QCOMPARE(widget.value()->palette().color(QPalette::Text), widget.palette().color(QPalette::Text));
}

void ZelStringTest::anUnknownVariableShowsADash() {
    Display widget;
    widget.setName("MODE");
    widget.setName("NOBODY");
    QCOMPARE(widget.label()->text(), QString("NOBODY"));
    QCOMPARE(widget.shown(), QString("-"));
    QVERIFY(widget._slastValue.isNull());
}

void ZelStringTest::afterADashTheSameTextIsShownAgain() {
    platform().string("EMPTY").text("");
    Display widget;
    for (const auto& [name, text] : {std::pair("MODE", "IDLE"), std::pair("EMPTY", "")}) {
        widget.setName(name);
        widget.setName("not_set");
        QCOMPARE(widget.shown(), QString("-"));
        widget.setName(name);
        QCOMPARE(widget.shown(), QString(text));
    }
}

void ZelStringTest::theSameNameAgainWritesTheNameOnly() {
    Display widget;
    widget.setName("MODE");
    TimerModerator::releaseFromTimer(&widget);
    widget.label()->setText("scratched");
    widget.setName("MODE");
    QCOMPARE(widget.label()->text(), QString("MODE"));
    QVERIFY(!widget.isSampled());
}

void ZelStringTest::theNameIsNotToldForOtherKinds() {
    platform().real("SPEED");
    Display widget;
    widget.setName("MODE");
    platform().forgetCalls();
    widget.setName("SPEED");
    QCOMPARE(widget.label()->text(), QString("MODE"));
    QCOMPARE(platform().calls({"cacheProperty"}), QStringList());
}

void ZelStringTest::aMovedRecordIsBoundAnew() {
    const auto mode = platform().string("MODE").text("IDLE");
    Display widget;
    widget.setName("MODE");
    platform().move("MODE");
    TimerModerator::releaseFromTimer(&widget);
    widget.globalConfigEvent(1, -1);
    widget.globalConfigEvent(0, -1);
    QVERIFY(widget.isSampled());
    mode.text("RUN");
    widget.tick();
    QCOMPARE(widget.shown(), QString("RUN"));
}

void ZelStringTest::theOrderOfAFirstBinding() {
    Display widget;
    widget.setName("MODE");
    QCOMPARE(platform().calls(), QStringList({"find_variable MODE", "find_variable MODE", "find_alias_label MODE",
                                              "find_alias_of_target MODE", "find_variable MODE", "get_vrbl_adr MODE",
                                              "cacheProperty ZelString display name MODE loading", "find_variable MODE",
                                              "cacheProperty ZelString display backColor #000000 loading"}));
    QVERIFY(!widget.getInitFlag());
    widget.tick();
    QVERIFY(widget.getInitFlag());
}

void ZelStringTest::theColourIsThatOfTheText() {
    Display widget;
    widget.setColor(Qt::darkGreen);
    QCOMPARE(widget.getColor(), QColor(Qt::darkGreen));
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        QCOMPARE(widget.value()->palette().color(group, QPalette::Text), QColor(Qt::darkGreen));
}

void ZelStringTest::theFirstColourTellsTheFormTheBackground() {
    Display widget;
    widget.setBackColor(Qt::yellow);
    widget.setColor(Qt::red);
    widget.setColor(Qt::green);
    const QString line = "cacheProperty ZelString display backColor #ffff00 loading";
    // Once as the background, once with the first colour.
    QCOMPARE(platform().calls(), QStringList({line, line}));
}

void ZelStringTest::theColourIsSeenOnAnyBackground() {
    platform().string("MODE").text("WWWWWWWW").status(1024);
    Display widget;
    widget.setValueFont(QFont("Sans", 20, QFont::Bold));
    widget.setName("MODE");
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QVERIFY(holds(widget.value()->grab().toImage(), Qt::red));
    QVERIFY(holds(widget.value()->grab().toImage(), QColor(246, 246, 246)));
    widget.setBackColor(QColor(1, 2, 3));
    QVERIFY(holds(widget.value()->grab().toImage(), Qt::red));
    QVERIFY(holds(widget.value()->grab().toImage(), QColor(1, 2, 3)));
}

void ZelStringTest::theBackground() {
    Display widget;
    widget.setBackColor(QColor(10, 20, 30));
    QCOMPARE(widget.getBackColor(), QColor(10, 20, 30));
    QCOMPARE(widget.value()->styleSheet(), QString("background-color: rgb(10, 20, 30);"));
    widget.value()->setStyleSheet(QString());
    widget.setBackColor(QColor(10, 20, 30));
    QCOMPARE(widget.value()->styleSheet(), QString());
    QCOMPARE(platform().calls().size(), 2);
}

void ZelStringTest::itBlinks() {
    const auto mode = platform().string("MODE").text("IDLE").status(1024);
    QWidget form;
    QPalette colours = form.palette();
    colours.setColor(QPalette::Window, QColor(9, 9, 9));
    form.setPalette(colours);
    Display widget(&form);
    widget.setName("MODE");
    mode.status(1025);
    widget.tick();
    QVERIFY(TimerModerator::isRegistered(&widget, 498));
    widget.ostrelTimerEvent(498);
    QCOMPARE(widget.value()->palette().color(QPalette::Text), QColor(Qt::red));
    widget.ostrelTimerEvent(498);
    QCOMPARE(widget.value()->palette().color(QPalette::Text), QColor(9, 9, 9));
}

void ZelStringTest::aPaletteChangeTakesTheParentsColour() {
    QWidget form;
    Display widget(&form);
    widget.setColor(Qt::red);
    QPalette colours = form.palette();
    colours.setColor(QPalette::Text, Qt::blue);
    form.setPalette(colours);
    QCOMPARE(widget.getColor(), QColor(Qt::blue));
    QCOMPARE(widget._lastPreFlashColor, QColor(Qt::blue));
    QCOMPARE(widget.value()->palette().color(QPalette::Text), QColor(Qt::red));
    // The next colour is set, also where it is the one that the widget has by now.
    widget.setColor(Qt::blue);
    QCOMPARE(widget.value()->palette().color(QPalette::Text), QColor(Qt::blue));
}

void ZelStringTest::theFormLearnsEachProperty() {
    Display widget;
    const QFont font("Courier");
    widget.setNameFont(font);
    widget.setValueFont(font);
    widget.setBackColor(Qt::blue);
    widget.setReadOnlyString(false);
    widget.setToolTipString("tip");
    QCOMPARE(platform().calls(), QStringList({"cachePropertyFont ZelString display nameFont Courier loading",
                                              "cachePropertyFont ZelString display valueFont Courier loading",
                                              "cacheProperty ZelString display backColor #0000ff loading",
                                              "cacheProperty ZelString display readOnlyString false loading",
                                              "cacheProperty ZelString display toolTip tip loading"}));
    QCOMPARE(widget.label()->font().family(), QString("Courier"));
    QCOMPARE(widget.value()->font().family(), QString("Courier"));
    QCOMPARE(widget.getNameFont().family(), QString("Courier"));
    QCOMPARE(widget.getValueFont().family(), QString("Courier"));
    QCOMPARE(widget.getToolTip(), QString("tip"));
    QCOMPARE(widget.toolTip(), QString("tip"));
}

void ZelStringTest::readOnlyReachesTheField() {
    Display widget;
    widget.setReadOnlyString(false);
    QVERIFY(!widget.value()->isReadOnly());
    QVERIFY(!widget.getReadOnlyString());
    widget.setReadOnlyString(true);
    QVERIFY(widget.value()->isReadOnly());
}

void ZelStringTest::aDoubleClickWritesTheNewText() {
    platform().string("MODE").text("IDLE  ");
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("MODE");
    platform().forgetCalls();
    QString title;
    QString prompt;
    QString start;
    QLineEdit::EchoMode echo = QLineEdit::NoEcho;
    whenOpened<QInputDialog>([&](QInputDialog* dialog) {
        title = dialog->windowTitle();
        prompt = dialog->labelText();
        start = dialog->textValue();
        echo = dialog->textEchoMode();
        dialog->setTextValue("RUN");
        dialog->accept();
    });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(title, QString("Enter new string for MODE"));
    QCOMPARE(prompt, QString("Enter a new string for MODE."));
    QCOMPARE(start, QString("IDLE  "));
    QCOMPARE(echo, QLineEdit::Normal);
    QCOMPARE(platform().calls(), QStringList({"set_string_variable MODE RUN"}));
    widget.tick();
    QCOMPARE(widget.shown(), QString("RUN"));
}

void ZelStringTest::acceptedTextIsWrittenAsLatin1() {
    const auto mode = platform().string("MODE");
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("MODE");
    whenOpened<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue(QString::fromUtf8("20 °"));
        dialog->accept();
    });
    widget.handleWriteValue(nullptr);
    QCOMPARE(QByteArray(mode->value), QByteArray("20 \xb0"));
}

void ZelStringTest::aCancelledDialogWritesNothing() {
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("MODE");
    platform().forgetCalls();
    whenOpened<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue("RUN");
        dialog->reject();
    });
    widget.handleWriteValue(nullptr);
    QCOMPARE(platform().calls(), QStringList());
}

void ZelStringTest::aRefusedWriteLeavesTheText() {
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("MODE");
    platform().answer("set_string_variable", {4});
    whenOpened<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue("RUN");
        dialog->accept();
    });
    widget.handleWriteValue(nullptr);
    QVERIFY(!QApplication::activeModalWidget());
    widget.tick();
    QCOMPARE(widget.shown(), QString("IDLE"));
}

void ZelStringTest::aReadOnlyFieldIsNotWritten() {
    Display widget;
    widget.setName("MODE");
    // No dialog is expected, and one that comes all the same is closed.
    const Operator worker({});
    QEvent click(QEvent::MouseButtonDblClick);
    QVERIFY(widget.eventFilter(widget.value(), &click));
}

void ZelStringTest::aDoubleClickWithoutAVariableIsAnError() {
    Display widget;
    widget.setReadOnlyString(false);
    QString title;
    QString text;
    whenOpened<QMessageBox>([&](QMessageBox* box) {
        title = box->windowTitle();
        text = box->text();
        box->accept();
    });
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    QCOMPARE(title, QString("Error"));
    QCOMPARE(text, QString("Please select a variable first."));
}

void ZelStringTest::aWidgetReaimedWhileItAsksWritesNothing() {
    platform().string("OTHER").text("KEEP");
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("MODE");
    platform().forgetCalls();
    whenOpened<QInputDialog>([&widget](QInputDialog* dialog) {
        widget.setName("OTHER");
        dialog->accept();
    });
    widget.handleWriteValue(nullptr);
    QCOMPARE(platform().calls({"set_string_variable"}), QStringList());
}

void ZelStringTest::aRemoteDisplayWritesNothing() {
    RemoteDisplay = true;
    Display widget;
    widget.setReadOnlyString(false);
    widget.setName("MODE");
    platform().forgetCalls();
    QTest::mouseDClick(widget.value(), Qt::LeftButton);
    widget.handleWriteValue(nullptr);
    QCOMPARE(platform().calls(), QStringList());
    QVERIFY(!QApplication::activeModalWidget());
}

void ZelStringTest::otherEventsReachTheField() {
    Display widget;
    QEvent click(QEvent::MouseButtonDblClick);
    QEvent press(QEvent::MouseButtonPress);
    QVERIFY(!widget.eventFilter(widget.value(), &press));
    QVERIFY(!widget.eventFilter(widget.label(), &click));
}

OSTREL_TEST(ZelStringTest)
#include "zelstring_test.moc"
