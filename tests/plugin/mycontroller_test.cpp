// The dialog "Edit Properties": what an operator does in it with mouse and keys, and what reaches widget and form.
#include "properties/mycontroller.h"

#include <qttreepropertybrowser.h>

#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

#include "plugintest.h"
#include "properties/objectcontroller.h"
#include "qttests.h"
#include "widgets/zel_value.h"

namespace {

// What an operator sees of the dialog.
class Dialog {
public:
    explicit Dialog(MyController* dialog) : m_dialog(dialog) {}

    QtTreePropertyBrowser* browser() const { return m_dialog->findChild<QtTreePropertyBrowser*>(); }
    QTreeWidget* tree() const { return m_dialog->findChild<QTreeWidget*>(); }
    QTreeWidgetItem* row(const QString& name) const {
        return tree()->findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }
    QString text(const QString& name) const { return row(name)->text(1); }
    QStringList rowsOf(const QString& name) const {
        QStringList names;
        for (int i = 0; row(name) && i < row(name)->childCount(); ++i)
            names.append(row(name)->child(i)->text(0));
        return names;
    }
    bool isReady() const {
        m_dialog->resize(460, 700);
        m_dialog->activateWindow();
        return QTest::qWaitFor([this] { return QApplication::activeWindow() == m_dialog; });
    }
    QPoint place(const QString& name, int column) const {
        const QRect cell = tree()->visualItemRect(row(name));
        return QPoint(tree()->columnViewportPosition(column) + 40, cell.center().y());
    }
    void unfold(const QString& name) const {
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, place(name, 0));
        QTest::keyClick(tree(), Qt::Key_Right);
    }
    void click(const QString& name) const {
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, place(name, 1));
    }
    template <class Editor>
    Editor* editor() const {
        return tree()->viewport()->findChild<Editor*>();
    }
    // The keys go where the focus is.
    static void type(const QString& keys) { QTest::keyClicks(QApplication::focusWidget(), keys); }
    static void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    MyController* operator->() const { return m_dialog; }

private:
    MyController* const m_dialog;
};

class Display : public ZelValue {
public:
    Display() {
        setObjectName(QStringLiteral("display"));
        _initFlag = true;
    }
    Dialog editProperties() {
        viewPropertiesAction->trigger();
        return Dialog(findChildren<MyController*>().last());
    }
    // An open dialog that has the keys, and nothing cached so far.
    Dialog editing() {
        const Dialog dialog = editProperties();
        dialog.isReady();
        platform().forgetCalls();
        return dialog;
    }
    static QStringList cached() { return platform().calls({"cacheProperty", "cachePropertyFont"}); }
};

const QStringList valueProperties = {"units",      "name",         "nameFont", "backColor", "valueFont",
                                     "sampleRate", "displayAlias", "readOnly", "toolTip"};

}  // namespace

class MyControllerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void theMenuOpensADialogOnTheWidgetsOwnClass();
    void theDialogLooksPlain();
    void thePropertiesAreSeenAtOnce();
    void theHostsOwnFormShowsAllClasses();
    void aSecondDialogOpensBesideTheFirst();
    void dialogsSeeEachOthersEditsWithTheirNextOwn();
    void closeHidesTheDialogAndKeepsTheEdits();
    void theDialogGoesWithTheWidget();

    void lockOneHidesNameAndUnits();
    void locksTwoAndFourFollowTheWidgetsLock_data();
    void locksTwoAndFourFollowTheWidgetsLock();

    void textTypedIsCachedLetterByLetter();
    void aNumberIsCachedWhenItIsComplete();
    void aPartOfAFontIsCachedAsAFont();
    void aPartOfAColourIsCachedAsAColour();
    void aColourChosenInTheDialogIsCached();
    void aBoxIsTickedByASecondClick();
    void aNameTypedBindsTheWidget();
    void unitsTypedAreShownBesideTheValue();
    void unitsOfAPartUnderItsAliasAreShownToo();
    void aColourThatWasNotSetIsShownAsSuch();
    void theDialogTakesTheKeysAndEscapeClosesIt();
    void keysAloneAreEnough();
    void escapeInAnEditorKeepsTheDialogOpen();
    void aValueSetWhileTheFormLoadsIsMarkedAsSuch();
};

void MyControllerTest::theMenuOpensADialogOnTheWidgetsOwnClass() {
    Display display;
    const Dialog dialog = display.editProperties();
    QVERIFY(dialog->isVisible());
    QVERIFY(!dialog->isModal());
    QCOMPARE(dialog->parent(), &display);
    QCOMPARE(dialog->windowTitle(), QString("Edit Properties:"));
    QCOMPARE(dialog.tree()->topLevelItemCount(), 1);
    QCOMPARE(dialog.rowsOf("ZelValue"), QStringList({"units", "name", "nameFont", "backColor", "valueFont",
                                                     "sampleRate", "displayAlias", "readOnly", "toolTip"}));
}

void MyControllerTest::theDialogLooksPlain() {
    Display display;
    const Dialog dialog = display.editProperties();
    const QString plain = "background-color: #f4f4f4; color: #000000;";
    QCOMPARE(dialog->styleSheet(), plain);
    QCOMPARE(dialog->minimumWidth(), 320);
    QCOMPARE(dialog->windowType(), Qt::Drawer);
    auto* buttons = dialog->findChild<QDialogButtonBox*>();
    QCOMPARE(buttons->styleSheet(), plain);
    QCOMPARE(buttons->standardButtons(), QDialogButtonBox::Close);
    QCOMPARE(dialog->layout()->indexOf(buttons), 1);
}

void MyControllerTest::thePropertiesAreSeenAtOnce() {
    Display display;
    const Dialog dialog = display.editProperties();
    QVERIFY(dialog.isReady());
    QVERIFY(dialog.row("ZelValue")->isExpanded());
    QVERIFY(!dialog.tree()->visualItemRect(dialog.row("toolTip")).isEmpty());
    // The parts of a property are not.
    QVERIFY(!dialog.row("nameFont")->isExpanded());
}

void MyControllerTest::theHostsOwnFormShowsAllClasses() {
    Display display;
    MyController controller(&display);
    const Dialog dialog(&controller);
    QStringList classes;
    for (int i = 0; i < dialog.tree()->topLevelItemCount(); ++i)
        classes.append(dialog.tree()->topLevelItem(i)->text(0));
    QCOMPARE(classes, QStringList({"QObject", "QWidget", "OstrelBase", "ZelValue"}));
    for (const QString& name : classes)
        QVERIFY(dialog.row(name)->isExpanded());
    QCOMPARE(dialog->styleSheet(), QString());
    QCOMPARE(dialog->minimumWidth(), 0);
}

void MyControllerTest::aSecondDialogOpensBesideTheFirst() {
    Display display;
    const Dialog first = display.editProperties();
    const Dialog second = display.editProperties();
    QVERIFY(first.operator->() != second.operator->());
    QVERIFY(first->isVisible());
    QVERIFY(second->isVisible());
}

void MyControllerTest::dialogsSeeEachOthersEditsWithTheirNextOwn() {
    Display display;
    const Dialog first = display.editing();
    const Dialog second = display.editing();
    second.click("toolTip");
    second.type("x");
    QCOMPARE(second.text("toolTip"), QString("x"));
    QCOMPARE(first.text("toolTip"), QString());
    QVERIFY(first.isReady());
    first.click("readOnly");
    first.press(Qt::Key_Space);
    QVERIFY(display.isReadOnly());
    QCOMPARE(first.text("toolTip"), QString("x"));
}

void MyControllerTest::closeHidesTheDialogAndKeepsTheEdits() {
    Display display;
    const Dialog dialog = display.editing();
    QSignalSpy rejected(dialog.operator->(), SIGNAL(finished(int)));
    dialog.click("toolTip");
    dialog.type("oil");
    QTest::mouseClick(dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Close), Qt::LeftButton);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(rejected.value(0).value(0).toInt(), static_cast<int>(QDialog::Rejected));
    QCOMPARE(display.getToolTip(), QString("oil"));
    QCOMPARE(display.findChildren<MyController*>().size(), 1);
}

void MyControllerTest::theDialogGoesWithTheWidget() {
    auto display = std::make_unique<Display>();
    const QPointer<MyController> dialog = display->editing().operator->();
    Dialog(dialog).click("toolTip");
    display.reset();
    QVERIFY(!dialog);
}

void MyControllerTest::lockOneHidesNameAndUnits() {
    UserInterfaceLock = 1;
    Display display;
    QCOMPARE(display.editProperties().rowsOf("ZelValue"), QStringList(valueProperties.mid(2)));
}

void MyControllerTest::locksTwoAndFourFollowTheWidgetsLock_data() {
    QTest::addColumn<int>("lock");
    QTest::addColumn<bool>("lockedVariable");
    QTest::addColumn<bool>("hides");
    QTest::newRow("2, locked") << 2 << true << true;
    QTest::newRow("2, open") << 2 << false << false;
    QTest::newRow("4, locked") << 4 << true << true;
    QTest::newRow("4, open") << 4 << false << false;
    QTest::newRow("3, locked") << 3 << true << false;
}

void MyControllerTest::locksTwoAndFourFollowTheWidgetsLock() {
    QFETCH(int, lock);
    QFETCH(bool, lockedVariable);
    QFETCH(bool, hides);
    UserInterfaceLock = lock;
    Display display;
    display.setLockVariable(lockedVariable);
    QCOMPARE(display.editProperties().rowsOf("ZelValue"), QStringList(valueProperties.mid(hides ? 2 : 0)));
}

void MyControllerTest::textTypedIsCachedLetterByLetter() {
    Display display;
    const Dialog dialog = display.editing();
    dialog.click("toolTip");
    dialog.type("oil");
    QCOMPARE(Display::cached(), QStringList({"cacheProperty ZelValue display toolTip o changed",
                                             "cacheProperty ZelValue display toolTip oi changed",
                                             "cacheProperty ZelValue display toolTip oil changed"}));
    QCOMPARE(display.getToolTip(), QString("oil"));
}

void MyControllerTest::aNumberIsCachedWhenItIsComplete() {
    Display display;
    const Dialog dialog = display.editing();
    dialog.click("sampleRate");
    QVERIFY(dialog.editor<QSpinBox>());
    dialog.type("250");
    QCOMPARE(Display::cached(), QStringList());
    dialog.press(Qt::Key_Return);
    QCOMPARE(Display::cached(), QStringList{"cacheProperty ZelValue display sampleRate 250 changed"});
    QCOMPARE(display.getSampleRate(), 250);
    QVERIFY(dialog->isVisible());
}

void MyControllerTest::aPartOfAFontIsCachedAsAFont() {
    Display display;
    const Dialog dialog = display.editing();
    dialog.unfold("nameFont");
    dialog.click("Point Size");
    dialog.type("21");
    dialog.press(Qt::Key_Tab);
    QCOMPARE(display.getNameFont().pointSize(), 21);
    const QString line = "cachePropertyFont ZelValue display nameFont " + display.getNameFont().family() + " changed";
    // Twice: the label completes the font from its surroundings, and that counts as another font.
    QStringList cached = Display::cached();
    cached.removeDuplicates();
    QCOMPARE(cached, QStringList{line});
    // The next row is open: its box is ticked with the blank.
    dialog.press(Qt::Key_Space);
    QVERIFY(display.getNameFont().bold());
    QCOMPARE(display.getNameFont().pointSize(), 21);
}

void MyControllerTest::aPartOfAColourIsCachedAsAColour() {
    Display display;
    display.setBColor(QColor(10, 20, 30));
    const Dialog dialog = display.editing();
    dialog.unfold("backColor");
    dialog.click("Green");
    dialog.press(Qt::Key_Up);
    QCOMPARE(display.getBackColor(), QColor(10, 21, 30));
    QCOMPARE(Display::cached(), QStringList{"cacheProperty ZelValue display backColor #0a151e changed"});
}

void MyControllerTest::aColourChosenInTheDialogIsCached() {
    Display display;
    const Dialog dialog = display.editing();
    dialog.click("backColor");
    auto* button = dialog.editor<QToolButton>();
    QVERIFY(button);
    QTimer watch;
    connect(&watch, &QTimer::timeout, [&watch] {
        if (auto* chooser = qobject_cast<QColorDialog*>(QApplication::activeModalWidget())) {
            watch.stop();
            chooser->setCurrentColor(QColor(1, 2, 3));
            chooser->accept();
        }
    });
    watch.start(10);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(display.getBackColor(), QColor(1, 2, 3));
    QCOMPARE(Display::cached(), QStringList{"cacheProperty ZelValue display backColor #010203 changed"});
    QVERIFY(dialog.editor<QToolButton>());
}

void MyControllerTest::aBoxIsTickedByASecondClick() {
    Display display;
    const Dialog dialog = display.editing();
    dialog.click("readOnly");
    QVERIFY(!display.isReadOnly());
    auto* box = dialog.editor<QCheckBox>();
    QVERIFY(box);
    QTest::mouseClick(box->parentWidget(), Qt::LeftButton, Qt::NoModifier, QPoint(120, 8));
    QVERIFY(display.isReadOnly());
    QCOMPARE(dialog.text("readOnly"), QString("True"));
    QCOMPARE(Display::cached(), QStringList{"cacheProperty ZelValue display readOnly true changed"});
}

void MyControllerTest::aNameTypedBindsTheWidget() {
    platform().real("SPEED").value(12.5).units("RPM").format("%4.1f");
    Display display;
    const Dialog dialog = display.editing();
    dialog.click("name");
    dialog.type("SPEED");
    QCOMPARE(display.getName(), QString("SPEED"));
    QVERIFY(display.ptr());
    QVERIFY(Display::cached().contains("cacheProperty ZelValue display name SPEED changed"));
}

// A value and the units beside it are of the same units at each moment.
void MyControllerTest::unitsTypedAreShownBesideTheValue() {
    platform().real("P_OIL").value(4).units("BAR").format("%.1f");
    platform().converts("BAR", "KPA", 100);
    Display display;
    display.setName("P_OIL");
    const auto shown = [&display] {
        display.ostrelTimerEvent(display.getSampleRate());
        return display.findChild<QLineEdit*>("value")->text() + ' ' + display.findChild<QLabel*>("units_label")->text();
    };
    QCOMPARE(shown(), QString("4.0 BAR"));
    const Dialog dialog = display.editing();
    dialog.click("units");
    dialog.type("KP");
    QCOMPARE(shown(), QString("4.0 BAR"));
    dialog.type("A");
    QCOMPARE(shown(), QString("400.0 KPA"));
    QCOMPARE(display.getUnits(), QString("KPA"));
    for (int i = 0; i < 3; ++i)
        dialog.press(Qt::Key_Backspace);
    QCOMPARE(shown(), QString("4.0 BAR"));
    QCOMPARE(display.getName(), QString("P_OIL"));
    QCOMPARE(display.getUnits(), QString());
}

void MyControllerTest::unitsOfAPartUnderItsAliasAreShownToo() {
    platform().statistics("P_STAT.").member("AV", 0, 4, "BAR", "%.1f");
    platform().alias("P_MEAN", "P_STAT.AV");
    platform().converts("BAR", "KPA", 100);
    Display display;
    display.setName("P_STAT.AV");
    QCOMPARE(display.getName(), QString("P_MEAN"));
    const Dialog dialog = display.editing();
    dialog.click("units");
    dialog.type("KPA");
    QCOMPARE(display.findChild<QLineEdit*>("value")->text(), QString("400.0"));
    QCOMPARE(display.findChild<QLabel*>("units_label")->text(), QString("KPA"));
}

void MyControllerTest::aColourThatWasNotSetIsShownAsSuch() {
    Display display;
    const Dialog dialog = display.editing();
    QVERIFY(!display.getBackColor().isValid());
    QCOMPARE(dialog.text("backColor"), QString("not set"));
    QVERIFY(dialog.row("backColor")->icon(1).isNull());
    display.setBColor(Qt::black);
    dialog->findChild<ObjectController*>()->updateObject();
    QCOMPARE(dialog.text("backColor"), QString("[0, 0, 0] (255)"));
    QVERIFY(!dialog.row("backColor")->icon(1).isNull());
}

void MyControllerTest::theDialogTakesTheKeysAndEscapeClosesIt() {
    Display display;
    display.show();
    display.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&display));
    const Dialog dialog = display.editProperties();
    QTRY_COMPARE(QApplication::activeWindow(), static_cast<QWidget*>(dialog.operator->()));
    QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget*>(dialog.tree()));
    QSignalSpy finished(dialog.operator->(), SIGNAL(finished(int)));
    dialog.press(Qt::Key_Escape);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(finished.count(), 1);
}

void MyControllerTest::keysAloneAreEnough() {
    Display display;
    const Dialog dialog = display.editProperties();
    QVERIFY(dialog.isReady());
    platform().forgetCalls();
    for (int i = 0; i < valueProperties.indexOf("sampleRate") + 1; ++i)
        dialog.press(Qt::Key_Down);
    dialog.press(Qt::Key_Return);
    QVERIFY(dialog.editor<QSpinBox>());
    dialog.type("500");
    dialog.press(Qt::Key_Enter);
    QCOMPARE(display.getSampleRate(), 500);
    dialog.press(Qt::Key_F2);
    dialog.press(Qt::Key_Up);
    QCOMPARE(display.getSampleRate(), 501);
}

void MyControllerTest::escapeInAnEditorKeepsTheDialogOpen() {
    Display display;
    const Dialog dialog = display.editing();
    dialog.click("toolTip");
    dialog.type("a");
    dialog.press(Qt::Key_Escape);
    QTRY_VERIFY(!dialog.editor<QLineEdit>());
    QVERIFY(dialog->isVisible());
    QCOMPARE(display.getToolTip(), QString("a"));
}

void MyControllerTest::aValueSetWhileTheFormLoadsIsMarkedAsSuch() {
    Display display;
    display.setInitFlag(false);
    platform().forgetCalls();
    display.setToolTip("oil");
    QCOMPARE(Display::cached(), QStringList{"cacheProperty ZelValue display toolTip oil loading"});
}

OSTREL_TEST(MyControllerTest)
#include "mycontroller_test.moc"
