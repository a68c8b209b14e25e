// The value manager's widgets by themselves: properties, forms, calls of the platform, and what ends the process.
#include <QCheckBox>
#include <QFrame>
#include <QLayout>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QSignalSpy>
#include <cstdio>
#include <memory>

#include "collection/ostrelplugins.h"
#include "fabric/signalslotsingleton.h"
#include "plugintest.h"
#include "qttests.h"
#include "readouttest.h"
#include "valuemanager/ComboBoxPlugin/ValManComboBoxWidget.h"
#include "valuemanager/FilePlugin/ValManFileWidget.h"
#include "valuemanager/LogicalPlugin/ValManLogicalWidget.h"
#include "valuemanager/NumericPlugin/ValManNumericWidget.h"
#include "valuemanager/StringPlugin/ValManStringWidget.h"
#include "valuemanager/VMPushButtonCancelPlugin/ValManCancelWidget.h"
#include "valuemanager/ValManOK/ValManOKWidget.h"

namespace {

// What a derived class of a site's own sees of the base.
class Opened : public ValueManagerWidgetBase {
public:
    Opened() : ValueManagerWidgetBase(nullptr, false) {}
    using OstrelBase::_lastValue;
    using OstrelBase::_oldName;
    using OstrelBase::_smartTicks;
    using OstrelBase::_unitsVis;
    using ValueManagerWidgetBase::iptr;
    using ValueManagerWidgetBase::lptr;
    using ValueManagerWidgetBase::rptr;
    using ValueManagerWidgetBase::sptr;
};

QWidget* made(const QString& name) {
    const OstrelPlugins collection;
    for (QDesignerCustomWidgetInterface* plugin : collection.customWidgets())
        if (plugin->name() == name)
            return plugin->createWidget(nullptr);
    return nullptr;
}

QStringList writes() {
    return platform().calls({"set_real_variable", "set_integer", "set_logical", "set_string_variable"});
}

const QString unknown = QStringLiteral(
    "The Event <%1> does not exist and was not set.\n\nMake sure the event exists "
    "within gen_labels.\n\nA commit of the values to OSTREL has been performed");
const QString failed = QStringLiteral(
    "The <%1> Event was not set.\n\nMake sure the event exists within gen_labels.\n\n"
    "A commit of the values to OSTREL has been performed");

}  // namespace

class ValManWidgetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void theBaseStartsUnbound();
    void theBaseDoesNothingWithFilesAndCommits();
    void itsInterface();
    void theProperties();
    void theForms_data();
    void theForms();
    void whatEachEditorHas();
    void aLongNameIsCutInItsMiddle();
    void aPlainChangeOfVariableIsNoChangeOfTheForm();
    void nobodyAsksForATimer();
    void theOrderOfTheSignals();
    void aPlaceThatAnotherVariableTookIsLeftToIt();
    void aRecordWithAnotherLabelIsReadOnceItIsNamedAgain();

    void anEventThatCannotBeRaisedIsTold();
    void theButtonsTalkToTheEventServiceFirst();
    void whatEndsTheProcess_data();
    void whatEndsTheProcess();
};

void ValManWidgetsTest::theBaseStartsUnbound() {
    const Opened widget;
    QVERIFY(!widget.sptr && !widget.iptr && !widget.rptr && !widget.lptr);
    QCOMPARE(widget._unitsVis, true);
    QCOMPARE(widget._smartTicks, false);
    QCOMPARE(widget.getSampleRate(), 1000);
    QCOMPARE(widget._lastValue, -99999.0);
    QCOMPARE(widget._oldName, QString("not_set"));
    QCOMPARE(widget.getOstrelVariable(), QString());
}

void ValManWidgetsTest::theBaseDoesNothingWithFilesAndCommits() {
    Opened widget;
    platform().real("REAL").value(3);
    widget.setName("REAL");
    QVERIFY(widget.rptr);
    QDomDocument document;
    document.setContent(QString("<values><REAL/></values>"));
    const QString before = document.toString();
    platform().forgetCalls();
    emit SignalSlotSingleton::getInstance().commitToOstrel();
    emit SignalSlotSingleton::getInstance().writeToFile(document);
    emit SignalSlotSingleton::getInstance().readFromFile(document);
    QCOMPARE(document.toString(), before);
    QCOMPARE(platform().calls(), QStringList());
}

void ValManWidgetsTest::itsInterface() {
    QCOMPARE(ownProperties(ValueManagerWidgetBase::staticMetaObject), QStringList{"OstrelVariable"});
    QCOMPARE(
        ownMethods(ValueManagerWidgetBase::staticMetaObject),
        QStringList({"valueChanged(QString)", "valueChanged(bool)", "unitsChanged(QString)", "commitValue(QString)",
                     "commitValue(bool)", "commitValue(double,QString)", "commitValue(int,QString)", "sample()",
                     "commitValue()", "readFromFile(QDomDocument)", "writeToFile(QDomDocument)"}));
    for (const QMetaObject* meta : {&ValManNumericWidget::staticMetaObject, &ValManStringWidget::staticMetaObject,
                                    &ValManLogicalWidget::staticMetaObject, &ValManFileWidget::staticMetaObject,
                                    &ValManComboBoxWidget::staticMetaObject, &ValManOKWidget::staticMetaObject,
                                    &ValManCancelWidget::staticMetaObject})
        QCOMPARE(meta->superClass(), &ValueManagerWidgetBase::staticMetaObject);
}

void ValManWidgetsTest::theProperties() {
    QCOMPARE(ownProperties(ValManNumericWidget::staticMetaObject), QStringList());
    QCOMPARE(ownProperties(ValManStringWidget::staticMetaObject), QStringList());
    QCOMPARE(ownProperties(ValManLogicalWidget::staticMetaObject), QStringList());
    const ValManFileWidget file;
    QCOMPARE(ownProperties(ValManFileWidget::staticMetaObject), QStringList({"StartDirectory", "FileFilter"}));
    compareProperty(file, "OstrelVariable", "QString", QString());
    compareProperty(file, "StartDirectory", "QString", QString());
    compareProperty(file, "FileFilter", "QString", QString());
    const ValManComboBoxWidget box;
    QCOMPARE(ownProperties(ValManComboBoxWidget::staticMetaObject),
             QStringList({"editable", "comboBoxContents", "units"}));
    compareProperty(box, "editable", "bool", true);
    compareProperty(box, "comboBoxContents", "QString", QString());
    compareProperty(box, "units", "QString", QString());
    const ValManOKWidget ok;
    QCOMPARE(ownProperties(ValManOKWidget::staticMetaObject), QStringList({"EventName", "exitOnClick"}));
    compareProperty(ok, "EventName", "QString", QString());
    compareProperty(ok, "exitOnClick", "bool", false);
    const ValManCancelWidget cancel;
    QCOMPARE(ownProperties(ValManCancelWidget::staticMetaObject), QStringList({"EventName"}));
    compareProperty(cancel, "EventName", "QString", QString());
}

void ValManWidgetsTest::theForms_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QStringList>("contents");
    const auto row = [](const char* name, QSize size, const char* label, const QStringList& contents) {
        QTest::newRow(name) << size << QString(label) << contents;
    };
    row("ValManNumericWidget", {731, 35}, "TextLabel", {"ostrelVarLabel", "value", "unitSelect"});
    row("ValManStringWidget", {731, 32}, "default_ostrel_variable", {"ostrelVarLabel", "value"});
    row("ValManLogicalWidget", {107, 35}, "TextLabel", {"ostrelVarLabel", "value"});
    row("ValManFileWidget", {731, 33}, "OSTREL Variable Label Here", {"ostrelVarLabel", "value", "browseButton"});
    row("ValManComboBoxWidget", {731, 33}, "TextLabel", {"ostrelVarLabel", "comboBox"});
    row("ValManOKWidget", {83, 33}, "", {"okButton"});
    row("ValManCancelWidget", {91, 33}, "", {"cancelButton"});
}

void ValManWidgetsTest::theForms() {
    QFETCH(QSize, size);
    QFETCH(QString, label);
    QFETCH(QStringList, contents);
    const std::unique_ptr<QWidget> widget(made(QTest::currentDataTag()));
    QCOMPARE(widget->size(), size);
    QCOMPARE(widget->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(widget->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(widget->layout()->contentsMargins(), QMargins());
    auto* frame = widget->findChild<QFrame*>("frame", Qt::FindDirectChildrenOnly);
    QVERIFY(frame);
    QCOMPARE(frame->frameShape(), QFrame::Box);
    QCOMPARE(frame->lineWidth(), 3);
    QCOMPARE(frame->layout()->contentsMargins(), QMargins());
    auto* field = frame->findChild<QFrame*>("frame_bcolor", Qt::FindDirectChildrenOnly);
    QVERIFY(field);
    QCOMPARE(field->styleSheet(), QString("background-color: rgb(246, 246, 246);"));
    const QLayout* row = field->layout();
    QCOMPARE(row->objectName(), QString("horizontalLayout_2"));
    QCOMPARE(row->contentsMargins(), QMargins(1, 1, 1, 1));
    QStringList names;
    for (int i = 0; i < row->count(); ++i)
        names.append(row->itemAt(i)->widget()->objectName());
    QCOMPARE(names, contents);
    auto* name = field->findChild<QLabel*>("ostrelVarLabel");
    QCOMPARE(name ? name->text() : QString(), label);
    if (!name)
        return;
    QCOMPARE(name->maximumWidth(), 128);
    QCOMPARE(name->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(name->sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred, QSizePolicy::Label));
    QVERIFY(widget->acceptDrops());
}

void ValManWidgetsTest::whatEachEditorHas() {
    const ValManNumericWidget number;
    const ValManStringWidget text;
    const ValManFileWidget file;
    for (const QWidget* widget : std::initializer_list<const QWidget*>{&number, &text, &file}) {
        const auto* line = widget->findChild<QLineEdit*>("value");
        QCOMPARE(line->maxLength(), 80);
        QCOMPARE(line->isReadOnly(), widget == &file);
        QCOMPARE(line->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(line->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
    }
    const auto* browse = file.findChild<QPushButton*>("browseButton");
    QCOMPARE(browse->text(), QString("Browse"));
    QCOMPARE(browse->toolTip(), QString("Browse for a file."));
    QCOMPARE(file.findChild<QLabel*>("ostrelVarLabel")->textInteractionFlags(), Qt::NoTextInteraction);
    const ValManLogicalWidget state;
    QCOMPARE(state.findChild<QCheckBox*>("value")->text(), QString());
    const ValManOKWidget ok;
    QCOMPARE(ok.findChild<QPushButton*>("okButton")->text(), QString("OK"));
    QCOMPARE(ok.findChild<QPushButton*>("okButton")->toolTip(), QString("Commit changes to OSTREL."));
    const ValManCancelWidget cancel;
    QCOMPARE(cancel.findChild<QPushButton*>("cancelButton")->text(), QString("Cancel"));
    QCOMPARE(cancel.findChild<QPushButton*>("cancelButton")->toolTip(), QString("Exit"));
}

void ValManWidgetsTest::aLongNameIsCutInItsMiddle() {
    ValManStringWidget widget;
    widget.setName("A_NAME_THAT_HAS_NO_ROOM_IN_ITS_LABEL_1");
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    auto* label = widget.findChild<QLabel*>("ostrelVarLabel");
    const QImage first = label->grab().toImage();
    label->setText("B_NAME_THAT_HAS_NO_ROOM_IN_ITS_LABEL_1");
    QVERIFY(label->grab().toImage() != first);
}

void ValManWidgetsTest::aPlainChangeOfVariableIsNoChangeOfTheForm() {
    platform().real("REAL").value(1);
    platform().integer("COUNT").value(1);
    ValManNumericWidget widget;
    widget.setObjectName("number");
    widget.setProperty("OstrelVariable", "REAL");
    widget.setInitFlag(true);
    platform().forgetCalls();
    widget.setName("COUNT");
    QCOMPARE(platform().calls({"cacheProperty"}), QStringList());
    // A name that is replaced by an alias is another one for the form.
    platform().alias("NICK", "REAL");
    widget.setName("REAL");
    QCOMPARE(widget.getOstrelVariable(), QString("NICK"));
    QCOMPARE(platform().calls({"cacheProperty"}).size(), 1);
    QVERIFY(platform().calls({"cacheProperty"}).first().startsWith("cacheProperty ValManNumericWidget number name"));
}

void ValManWidgetsTest::nobodyAsksForATimer() {
    platform().real("REAL").value(1);
    ValManNumericWidget widget;
    widget.setName("REAL");
    QVERIFY(!TimerModerator::isRegistered(&widget, widget.getSampleRate()));
    QCOMPARE(platform().calls({"find_ms_timer"}), QStringList());
}

void ValManWidgetsTest::theOrderOfTheSignals() {
    platform().real("REAL").value(1).units("RPM");
    ValManNumericWidget widget;
    widget.setName("REAL");
    QStringList order;
    connect(&widget, QOverload<QString>::of(&ValueManagerWidgetBase::valueChanged), this,
            [&](const QString& text) { order.append("value " + text); });
    connect(&widget, &ValueManagerWidgetBase::unitsChanged, this,
            [&](const QString& units) { order.append("units " + units); });
    emit SignalSlotSingleton::getInstance().readFromOstrel();
    QCOMPARE(order, QStringList({"value 1.000000", "units RPM"}));
}

// As where an alias leads to a variable that took the former one's place.
void ValManWidgetsTest::aRecordWithAnotherLabelIsReadOnceItIsNamedAgain() {
    const auto real = platform().real("REAL").value(1);
    ValManNumericWidget number;
    number.setName("REAL");
    scripted::put(real->label, "SUCCESSOR");
    real->value = 2;
    number.setName("REAL");
    emit SignalSlotSingleton::getInstance().readFromOstrel();
    platform().forgetCalls();
    emit SignalSlotSingleton::getInstance().commitToOstrel();
    QCOMPARE(platform().calls({"set_real_variable"}).size(), 1);
    QCOMPARE(number.findChild<QLineEdit*>()->text(), QString("2.000000"));
}

void ValManWidgetsTest::aPlaceThatAnotherVariableTookIsLeftToIt() {
    const auto real = platform().real("REAL").value(1);
    const auto integer = platform().integer("COUNT").value(1);
    const auto logical = platform().logical("ON").value(1);
    const auto string = platform().string("TEXT").text("old");
    ValManNumericWidget number;
    ValManNumericWidget count;
    ValManLogicalWidget state;
    ValManStringWidget text;
    number.setName("REAL");
    count.setName("COUNT");
    state.setName("ON");
    text.setName("TEXT");
    emit SignalSlotSingleton::getInstance().readFromOstrel();
    const auto give = [](char(&label)[80]) { scripted::put(label, "STRANGER"); };
    give(real->label);
    give(integer->label);
    give(logical->label);
    give(string->label);
    real.value(2);
    string.text("new");
    platform().forgetCalls();
    emit SignalSlotSingleton::getInstance().readFromOstrel();
    QCOMPARE(number.findChild<QLineEdit*>("value")->text(), QString("1.000000"));
    QCOMPARE(text.findChild<QLineEdit*>("value")->text(), QString("old"));
    text.disable();
    emit SignalSlotSingleton::getInstance().commitToOstrel();
    QCOMPARE(writes(), QStringList());
}

void ValManWidgetsTest::anEventThatCannotBeRaisedIsTold() {
    platform().real("REAL").value(1);
    ValManNumericWidget number;
    number.setName("REAL");
    ValManOKWidget ok;
    ok.setEventName("START");
    platform().answer("event_get_id", {0});
    platform().answer("event_set", {-3});
    platform().forgetCalls();
    QString title;
    QString text;
    QStringList before;
    whenOpened<QMessageBox>([&](QMessageBox* box) {
        title = box->windowTitle();
        text = box->text();
        before = writes();
        box->button(QMessageBox::Ok)->click();
    });
    ok.findChild<QPushButton*>()->click();
    QCOMPARE(title, QString("Event Not Set"));
    QCOMPARE(text, failed.arg("START"));
    QCOMPARE(before, QStringList());
    QCOMPARE(writes().size(), 1);
}

void ValManWidgetsTest::theButtonsTalkToTheEventServiceFirst() {
    platform().integer("COUNT").value(1);
    ValManNumericWidget number;
    number.setName("COUNT");
    ValManOKWidget ok;
    platform().forgetCalls();
    ok.findChild<QPushButton*>()->click();
    QCOMPARE(platform().calls({"event_get_id", "event_set"}), QStringList());
    ok.setEventName("START");
    platform().answer("event_get_id", {0});
    platform().answer("event_set", {0});
    platform().forgetCalls();
    ok.findChild<QPushButton*>()->click();
    const QStringList calls = platform().calls({"event_get_id", "event_set", "set_integer"});
    QCOMPARE(calls.size(), 3);
    QCOMPARE(calls[0], QString("event_get_id START"));
    QVERIFY(calls[1].startsWith("event_set "));
    QVERIFY(calls[1].endsWith(" null 0"));
    QVERIFY(calls[2].startsWith("set_integer"));
}

void ValManWidgetsTest::whatEndsTheProcess_data() {
    QTest::addColumn<QStringList>("form");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("said");
    QTest::newRow("ok stays") << QStringList{"ok", "", "stay"} << 3 << "commit\nleft\n";
    QTest::newRow("ok exits") << QStringList{"ok", "", "exit"} << 0 << "commit\n";
    QTest::newRow("ok tells, commits and exits")
        << QStringList{"ok", "NONE", "exit"} << 0 << unknown.arg("NONE") + "\ncommit\n";
    QTest::newRow("cancel exits") << QStringList{"cancel", "", ""} << 0 << "";
    QTest::newRow("cancel tells and exits") << QStringList{"cancel", "NONE", ""} << 0 << unknown.arg("NONE") + "\n";
    QTest::newRow("cancel raises and exits") << QStringList{"cancel", "KNOWN", ""} << 0 << "";
    QTest::newRow("cancel tells of a refusal and exits")
        << QStringList{"cancel", "REFUSED", ""} << 0 << failed.arg("REFUSED") + "\n";
}

void ValManWidgetsTest::whatEndsTheProcess() {
    QFETCH(QStringList, form);
    QFETCH(int, code);
    QFETCH(QString, said);
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), QStringList{"clickTheButton"} + form);
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    QCOMPARE(child.exitCode(), code);
    QCOMPARE(QString::fromUtf8(child.readAllStandardOutput()), said);
}

static int clickTheButton(int argc, char** argv) {
    QApplication application(argc, argv);
    startAsHost();
    const QByteArray event = argv[2];
    platform().alwaysAnswer("event_get_id", event == "NONE" ? -251 : 0);
    platform().alwaysAnswer("event_set", event == "REFUSED" ? -3 : 0);
    platform().string("TEXT").text("before");
    ValManStringWidget text;
    text.setName("TEXT");
    text.findChild<QLineEdit*>()->setText("after");
    const auto say = [](const QString& words) {
        printf("%s\n", qPrintable(words));
        fflush(stdout);
    };
    QObject::connect(&SignalSlotSingleton::getInstance(), &SignalSlotSingleton::commitToOstrel, &application,
                     [&] { say(writes().isEmpty() ? "nothing written" : "commit"); });
    std::unique_ptr<QWidget> button;
    if (QByteArray(argv[1]) == "ok")
        button = std::make_unique<ValManOKWidget>();
    else
        button = std::make_unique<ValManCancelWidget>();
    button->setProperty("EventName", argv[2]);
    button->setProperty("exitOnClick", QByteArray(argv[3]) == "exit");
    button->show();
    whenOpened<QMessageBox>([&](QMessageBox* box) {
        say(box->text());
        QTest::keyClick(box, Qt::Key_Return);
    });
    QTest::mouseClick(button->findChild<QPushButton*>(), Qt::LeftButton);
    say("left");
    return 3;
}

OSTREL_TEST_CHILD(clickTheButton)
OSTREL_TEST(ValManWidgetsTest)
#include "valmanwidgets_test.moc"
