// "Change Variable" and "Change Units" in the menu of any bound widget.
#include <QDialogButtonBox>
#include <QMessageBox>
#include <algorithm>
#include <memory>

#include "qttests.h"
#include "selection/unitsdialog.h"
#include "selection/variableselectiondialog.h"
#include "selectiontest.h"

namespace {

// What an operator reads in a message box, which is closed then.
struct Message {
    QString title;
    QString text;
    QString details;
    QMessageBox::StandardButtons buttons;
};

Operator::Step readMessage(Message* message) {
    return [message](QWidget* dialog) {
        auto* box = qobject_cast<QMessageBox*>(dialog);
        QVERIFY(box);
        *message = {box->windowTitle(), box->text(), box->informativeText(), box->standardButtons()};
        QTest::keyClick(box, Qt::Key_Return);
    };
}

void press(QWidget* dialog, const char* button) {
    QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton);
}

Operator::Step typeVariable(const QString& name, const QString& member = QString()) {
    return [=](QWidget* dialog) {
        retype(dialog->findChild<QComboBox*>("variableComboBox")->lineEdit(), name);
        if (!member.isEmpty())
            retype(dialog->findChild<QComboBox*>("subComboBox")->lineEdit(), member);
        press(dialog, "OkButton");
    };
}

// Until the dialog is gone: the first Return key may only close the list of completions.
Operator::Step typeAndReturn(const QString& name) {
    return [=](QWidget* dialog) {
        auto* box = dialog->findChild<QComboBox*>("variableComboBox");
        retype(box->lineEdit(), name);
        for (int i = 0; dialog->isVisible() && i < 3; ++i) {
            QWidget* popup = QApplication::activePopupWidget();
            QTest::keyClick(popup ? popup : box->lineEdit(), Qt::Key_Return);
        }
    };
}

void pressStandard(QWidget* dialog, QDialogButtonBox::StandardButton button) {
    QTest::mouseClick(dialog->findChild<QDialogButtonBox*>("buttonBox")->button(button), Qt::LeftButton);
}

Operator::Step chooseUnits(const QString& units, QStringList* offered = nullptr) {
    return [=](QWidget* dialog) {
        auto* box = dialog->findChild<QComboBox*>("comboBox");
        if (offered)
            *offered = itemsOf(box);
        box->setCurrentIndex(box->findText(units));
        pressStandard(dialog, QDialogButtonBox::Ok);
    };
}

void trigger(QWidget& widget, const QString& text) {
    const QList<QAction*> actions = widget.actions();
    const auto found =
        std::find_if(actions.begin(), actions.end(), [&](const QAction* action) { return action->text() == text; });
    // The widget may be gone when it comes back.
    if (found != actions.end())
        (*found)->trigger();
}

// A widget on the screen, bound to SPEED.
std::unique_ptr<Probe> boundProbe() {
    auto widget = std::make_unique<Probe>();
    widget->_varType = QT_OSTREL_ANY;
    widget->setName("SPEED");
    widget->names.clear();
    widget->unitsAsked.clear();
    widget->unitsChanged = false;
    widget->setGeometry(50, 50, 120, 60);
    widget->show();
    return widget;
}

}  // namespace

class VariableChangeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        startAsHost();
        Ostrel_Plugins_Master_variables_dirty = true;
        serveSmallStore();
        platform().compatible("RPM", {"RPM", "RPS"});
    }

    void theChosenVariableIsBound();
    void aChosenMemberIsBound();
    void theDialogGetsTheWidgetsNameAndFilter();
    void aRejectionChangesNothing();
    void aNameThatTheListLacksIsRefusedWithAMessage();
    void theReturnKeyTakesWhatWasTyped();
    void theReturnKeyTakesNoNeighbour_data();
    void theReturnKeyTakesNoNeighbour();
    void aNameThatTheStoreLacksBindsTheFormerOne();
    void aLockedWidgetSaysThatItsVariableIsLocked_data();
    void aLockedWidgetSaysThatItsVariableIsLocked();
    void aWidgetThatGoesMeanwhileTakesItsDialogWithIt();
    void aWidgetThatGoesMeanwhileTakesItsRefusalWithIt();

    void theFittingUnitsAreOffered();
    void defaultIsOfferedOnceUnitsWereChosen();
    void defaultGivesTheVariablesOwnUnitsBack();
    void rejectedUnitsChangeNothing();
    void atMostThirtyUnitsAreOffered();
    void unitsOfAnIntegerAreItsOwn();
    void unitsWithoutDimensionOpenNothing();
    void anUnboundWidgetOpensNothing();
    void lockedUnitsSayThatTheyAreLocked_data();
    void lockedUnitsSayThatTheyAreLocked();
};

void VariableChangeTest::theChosenVariableIsBound() {
    const auto widget = boundProbe();
    const Operator worker({typeVariable("MAP")});
    trigger(*widget, "Change Variable");
    QVERIFY(worker.isDone());
    QCOMPARE(widget->names, QStringList({"MAP"}));
    QCOMPARE(widget->getName(), QString("MAP"));
    QVERIFY(widget->ptr());
    // The dialog is gone, and the widget still tells which one it was.
    QVERIFY(widget->getChangeVariable());
    QVERIFY(widget->findChildren<VariableSelectionDialog*>().isEmpty());
}

void VariableChangeTest::aChosenMemberIsBound() {
    const auto widget = boundProbe();
    const Operator worker({typeVariable("TRQ.", "SD")});
    trigger(*widget, "Change Variable");
    QVERIFY(worker.isDone());
    QCOMPARE(widget->names, QStringList({"TRQ.SD"}));
    QCOMPARE(int{widget->mem().stat_member}, int{SD});
}

void VariableChangeTest::theDialogGetsTheWidgetsNameAndFilter() {
    const auto widget = boundProbe();
    widget->_varType = QT_OSTREL_REAL;
    const Operator worker({[&](QWidget* dialog) {
        QCOMPARE(dialog, widget->getChangeVariable());
        QCOMPARE(dialog->parentWidget(), widget.get());
        QCOMPARE(dialog->findChild<QComboBox*>("variableComboBox")->currentText(), QString("SPEED"));
        QCOMPARE(itemsOf(dialog->findChild<QComboBox*>("groupComboBox")),
                 QStringList({"All Variables", "General Use (real)"}));
        press(dialog, "OkButton");
    }});
    trigger(*widget, "Change Variable");
    QVERIFY(worker.isDone());
    QCOMPARE(widget->names, QStringList({"SPEED"}));
}

void VariableChangeTest::aRejectionChangesNothing() {
    const auto widget = boundProbe();
    const Operator worker({[](QWidget* dialog) {
        retype(dialog->findChild<QComboBox*>("variableComboBox")->lineEdit(), "MAP");
        press(dialog, "Cancel");
    }});
    trigger(*widget, "Change Variable");
    QVERIFY(worker.isDone());
    QCOMPARE(widget->names, QStringList());
    QVERIFY(widget->findChildren<VariableSelectionDialog*>().isEmpty());
}

void VariableChangeTest::aNameThatTheListLacksIsRefusedWithAMessage() {
    const auto widget = boundProbe();
    Message message;
    const Operator worker({typeVariable("NOBODY"), readMessage(&message)});
    trigger(*widget, "Change Variable");
    QVERIFY(worker.isDone());
    QCOMPARE(message.title, QString("Invalid Variable"));
    QCOMPARE(message.text,
             QString("An invalid variable name was entered.\n\nThe previous variable name will be used."));
    QCOMPARE(widget->names, QStringList({"SPEED"}));
}

void VariableChangeTest::theReturnKeyTakesWhatWasTyped() {
    const auto widget = boundProbe();
    const Operator worker({typeAndReturn("MAP")});
    trigger(*widget, "Change Variable");
    QVERIFY(worker.isDone());
    QCOMPARE(widget->names, QStringList({"MAP"}));
}

void VariableChangeTest::theReturnKeyTakesNoNeighbour_data() {
    QTest::addColumn<QString>("typed");
    // Before the first, between two, behind the last, and the beginning of one.
    for (const char* typed : {"AAA", "MAQ", "NO_SUCH", "ZZZ", "SPEE", "map"})
        QTest::newRow(typed) << typed;
}

// It was seen to put the name into the list and to take the one behind it.
void VariableChangeTest::theReturnKeyTakesNoNeighbour() {
    QFETCH(QString, typed);
    const auto widget = boundProbe();
    Message message;
    const Operator worker({typeAndReturn(typed), readMessage(&message)});
    trigger(*widget, "Change Variable");
    QVERIFY(worker.isDone());
    QCOMPARE(message.title, QString("Invalid Variable"));
    QVERIFY(message.details.contains('"' + typed + '"'));
    QCOMPARE(widget->getName(), QString("SPEED"));
    QCOMPARE(widget->names, QStringList({"SPEED"}));
}

void VariableChangeTest::aNameThatTheStoreLacksBindsTheFormerOne() {
    const auto widget = boundProbe();
    platform().remove("MAP");
    const Operator worker({typeVariable("MAP")});
    trigger(*widget, "Change Variable");
    QVERIFY(worker.isDone());
    QCOMPARE(widget->names, QStringList({"SPEED"}));
}

void VariableChangeTest::aLockedWidgetSaysThatItsVariableIsLocked_data() {
    QTest::addColumn<int>("lock");
    for (const int lock : {1, 2, 4})
        QTest::addRow("lock %d", lock) << lock;
}

void VariableChangeTest::aLockedWidgetSaysThatItsVariableIsLocked() {
    QFETCH(int, lock);
    const auto widget = boundProbe();
    widget->setLockVariable(true);
    UserInterfaceLock = lock;
    QCOMPARE(widget->actions().size(), 6);
    Message message;
    const Operator worker({readMessage(&message)});
    trigger(*widget, "Change Variable");
    QVERIFY(worker.isDone());
    QCOMPARE(message.title, QString("ChangeVariable"));
    QCOMPARE(message.text, QString("variable selection is disabled for this widget"));
    QCOMPARE(message.buttons, QMessageBox::Ok);
    QCOMPARE(widget->names, QStringList());
    QVERIFY(!widget->getChangeVariable());
}

void VariableChangeTest::aWidgetThatGoesMeanwhileTakesItsDialogWithIt() {
    auto widget = boundProbe();
    const Operator worker({[&](QWidget*) { widget.reset(); }});
    trigger(*widget, "Change Variable");
    QVERIFY(worker.isDone());
    QVERIFY(!widget);
}

// While the box stands that tells of a name that is none.
void VariableChangeTest::aWidgetThatGoesMeanwhileTakesItsRefusalWithIt() {
    auto widget = boundProbe();
    const Operator worker({typeVariable("NO_SUCH"), [&](QWidget*) { widget.reset(); }});
    trigger(*widget, "Change Variable");
    QVERIFY(worker.isDone());
    QVERIFY(!widget);
}

void VariableChangeTest::theFittingUnitsAreOffered() {
    const auto widget = boundProbe();
    platform().forgetCalls();
    QStringList offered;
    const Operator worker({chooseUnits("RPS", &offered)});
    trigger(*widget, "Change Units");
    QVERIFY(worker.isDone());
    QCOMPARE(platform().calls({"LV_get_units2"}), QStringList({"LV_get_units2 RPM 30"}));
    QCOMPARE(offered, QStringList({"RPM", "RPS"}));
    QCOMPARE(widget->unitsAsked, QStringList({"RPS"}));
    QCOMPARE(widget->names, QStringList({"SPEED"}));
    QCOMPARE(widget->getUnits(), QString("RPS"));
    QVERIFY(widget->unitsChanged);
}

void VariableChangeTest::defaultIsOfferedOnceUnitsWereChosen() {
    const auto widget = boundProbe();
    widget->useUnits("RPS");
    QStringList offered;
    const Operator worker({chooseUnits("RPM", &offered)});
    trigger(*widget, "Change Units");
    QVERIFY(worker.isDone());
    QCOMPARE(offered, QStringList({"default", "RPM", "RPS"}));
    QCOMPARE(widget->getUnits(), QString("RPM"));
}

void VariableChangeTest::defaultGivesTheVariablesOwnUnitsBack() {
    const auto widget = boundProbe();
    widget->useUnits("RPS");
    const Operator worker({chooseUnits("default")});
    trigger(*widget, "Change Units");
    QVERIFY(worker.isDone());
    QCOMPARE(widget->unitsAsked, QStringList({""}));
    QCOMPARE(widget->getUnits(), QString());
    QCOMPARE(widget->names, QStringList({"SPEED"}));
    QVERIFY(widget->unitsChanged);
}

void VariableChangeTest::rejectedUnitsChangeNothing() {
    const auto widget = boundProbe();
    const Operator worker({[](QWidget* dialog) { pressStandard(dialog, QDialogButtonBox::Cancel); }});
    trigger(*widget, "Change Units");
    QVERIFY(worker.isDone());
    QCOMPARE(widget->unitsAsked + widget->names, QStringList());
    QVERIFY(!widget->unitsChanged);
}

void VariableChangeTest::atMostThirtyUnitsAreOffered() {
    QStringList many;
    for (int i = 0; i < 40; ++i)
        many.append(QString("KEYWORD_OF_16_%1").arg(i, 2, 10, QLatin1Char('0')));
    platform().compatible("RPM", many);
    const auto widget = boundProbe();
    QStringList offered;
    const Operator worker({chooseUnits(many.first(), &offered)});
    trigger(*widget, "Change Units");
    QVERIFY(worker.isDone());
    QCOMPARE(offered, many.mid(0, 30));
}

void VariableChangeTest::unitsOfAnIntegerAreItsOwn() {
    platform().integer("COUNT").units("RPS");
    platform().compatible("RPS", {"RPS"});
    const auto widget = boundProbe();
    widget->setName("COUNT");
    QStringList offered;
    const Operator worker({chooseUnits("RPS", &offered)});
    trigger(*widget, "Change Units");
    QVERIFY(worker.isDone());
    QCOMPARE(offered, QStringList({"RPS"}));
}

void VariableChangeTest::unitsWithoutDimensionOpenNothing() {
    const auto widget = boundProbe();
    platform().answer("LV_get_units2", {-1});
    const Operator nobody({});
    trigger(*widget, "Change Units");
    QCOMPARE(widget->unitsAsked + widget->names, QStringList());
}

void VariableChangeTest::anUnboundWidgetOpensNothing() {
    Probe widget;
    platform().forgetCalls();
    const Operator nobody({});
    trigger(widget, "Change Units");
    QCOMPARE(platform().calls(), QStringList());
    QCOMPARE(widget.unitsAsked + widget.names, QStringList());
}

void VariableChangeTest::lockedUnitsSayThatTheyAreLocked_data() {
    QTest::addColumn<int>("lock");
    QTest::addColumn<bool>("unitsLock");
    QTest::newRow("the widget") << 2 << false;
    QTest::newRow("the units") << 3 << true;
}

void VariableChangeTest::lockedUnitsSayThatTheyAreLocked() {
    QFETCH(int, lock);
    QFETCH(bool, unitsLock);
    const auto widget = boundProbe();
    widget->setLockVariable(true);
    UserInterfaceLock = lock;
    changeUnitsLk = unitsLock;
    Message message;
    const Operator worker({readMessage(&message)});
    trigger(*widget, "Change Units");
    QVERIFY(worker.isDone());
    QCOMPARE(message.title, QString("ChangeUnits"));
    QCOMPARE(message.text, QString("units selection is disabled for this widget"));
    QCOMPARE(message.buttons, QMessageBox::Ok);
    QCOMPARE(widget->unitsAsked + widget->names, QStringList());
}

OSTREL_TEST(VariableChangeTest)
#include "variablechange_test.moc"
