// Where the two group boxes differ: which side leads at the check box, and how far colours and fonts reach.
#include <QFile>
#include <QTemporaryDir>

#include "plugintest.h"
#include "qttests.h"
#include "readouttest.h"
#include "widgets/zel_simplevalue.h"
#include "widgets/zel_simplevalue_fl.h"
#include "widgets/zelgroupwidget.h"
#include "widgets/zelgroupwidget_fl.h"

namespace {

const QColor ink("#203040");

QColor textOf(const QWidget* widget) {
    return widget->palette().color(QPalette::Text);
}

QLabel* label(QWidget* value, const char* name) {
    return value->findChild<QLabel*>(QLatin1String(name));
}

}  // namespace

class GroupRulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theFirstVariableLeadsThePlainBox();
    void aFirstVariableThatIsFalseIsNeverWritten();
    void aFirstVariableThatIsMissingLetsTheNextBeLed();
    void anyNumberThatIsNotZeroIsTrue();
    void theFlexibleBoxLeadsFromTheStart();
    void theFlexibleBoxWritesWithoutAnyFoundFlag();

    void aPlainTextColourReachesDirectChildren();
    void aPlainColourMayBeInvalid();
    void aFlexibleTextColourReachesItsReadouts();
    void aFlexibleTextColourLeavesOthersAlone();
    void anInvalidFlexibleColourIsThePalettes();
    void readoutsThatComeLaterKeepTheirColours();
    void aFlexibleFontAppliesTheTextColourAgain();
    void aFontReachesTheReadoutsByInheritance();

private:
    template <class Group>
    void fill(Group& group) {
        group.setObjectName(QStringLiteral("group"));
        group.setFileName(m_path);
    }

    QTemporaryDir m_folder;
    QString m_path;
};

void GroupRulesTest::init() {
    startAsHost();
    runQtUIWindow = nullptr;
    platform().real("SPEED").value(1500).format("%g");
    m_path = m_folder.filePath(QStringLiteral("a.grp"));
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<row>\n<var \"SPEED\"\n</row>\n");
}

void GroupRulesTest::theFirstVariableLeadsThePlainBox() {
    auto heater = platform().logical("HEATER").value(1);
    ZelGroup group;
    group.setCheckable(true);
    group.setChecked(false);
    group.setCheckBoxVarName("HEATER");
    QVERIFY(group.isChecked());
    QCOMPARE(int(heater->value), 1);
    group.setChecked(false);
    QCOMPARE(int(heater->value), 0);
    group.setChecked(true);
    QCOMPARE(int(heater->value), 1);
}

void GroupRulesTest::aFirstVariableThatIsFalseIsNeverWritten() {
    auto heater = platform().logical("HEATER").value(0);
    ZelGroup group;
    group.setCheckable(true);
    group.setCheckBoxVarName("HEATER");
    QVERIFY(!group.isChecked());
    group.setChecked(true);
    QCOMPARE(int(heater->value), 0);
    // Named again, it is led.
    group.setCheckBoxVarName("HEATER");
    QCOMPARE(int(heater->value), 1);
    group.setChecked(false);
    QCOMPARE(int(heater->value), 0);
}

void GroupRulesTest::aFirstVariableThatIsMissingLetsTheNextBeLed() {
    auto heater = platform().logical("HEATER").value(0);
    ZelGroup group;
    group.setCheckable(true);
    group.setCheckBoxVarName("");
    group.setCheckBoxVarName("NONE");
    QVERIFY(group.isChecked());
    group.setCheckBoxVarName("HEATER");
    QVERIFY(group.isChecked());
    QCOMPARE(int(heater->value), 1);
}

void GroupRulesTest::anyNumberThatIsNotZeroIsTrue() {
    auto heater = platform().logical("HEATER").value(5);
    ZelGroup group;
    group.setCheckable(true);
    group.setCheckBoxVarName("HEATER");
    QVERIFY(group.isChecked());
    QCOMPARE(int(heater->value), 5);
}

void GroupRulesTest::theFlexibleBoxLeadsFromTheStart() {
    auto heater = platform().logical("HEATER").value(0);
    ZelGroup_fl group;
    group.setCheckable(true);
    group.setCheckBoxVarName("HEATER");
    QVERIFY(group.isChecked());
    QCOMPARE(int(heater->value), 1);
    group.setChecked(false);
    QCOMPARE(int(heater->value), 0);
}

void GroupRulesTest::theFlexibleBoxWritesWithoutAnyFoundFlag() {
    auto heater = platform().logical("HEATER").value(1);
    ZelGroup_fl group;
    group.setCheckable(true);
    group.setCheckBoxVarName("HEATER");
    group.setCheckBoxVarName("NONE");
    group.setChecked(false);
    QCOMPARE(int(heater->value), 1);
    // The variable of before is gone with an empty name, though nothing says that the box is not valid.
    group.setCheckBoxVarName("HEATER");
    group.setCheckBoxVarName("");
    group.setChecked(true);
    QCOMPARE(int(heater->value), 0);
}

void GroupRulesTest::aPlainTextColourReachesDirectChildren() {
    ZelGroup group;
    fill(group);
    auto* button = new QLabel(&group);
    auto* deeper = new QLabel(new QWidget(&group));
    deeper->setPalette(QPalette(Qt::white, Qt::gray));
    const QColor deep = textOf(deeper);
    group.setTextColor(ink);
    QCOMPARE(textOf(&group), ink);
    QCOMPARE(textOf(button), ink);
    QCOMPARE(textOf(group.findChild<ZelSimpleValue*>()), ink);
    QCOMPARE(textOf(deeper), deep);
    QCOMPARE(group.getTextColor(), ink);
    QVERIFY(group.palette().color(QPalette::WindowText) != ink);
}

void GroupRulesTest::aPlainColourMayBeInvalid() {
    ZelGroup group;
    group.setgBackColor(Qt::red);
    group.setTextColor(ink);
    group.setgBackColor(QColor());
    group.setTextColor(QColor());
    QVERIFY(!group.getgBackColor().isValid());
    QVERIFY(!group.getTextColor().isValid());
    QVERIFY(group.palette().color(QPalette::Window) != QColor(Qt::red));
}

void GroupRulesTest::aFlexibleTextColourReachesItsReadouts() {
    ZelGroup_fl group;
    fill(group);
    auto* value = group.findChild<ZelSimpleValue_fl*>();
    auto* deeper = new ZelSimpleValue_fl(new QWidget(&group));
    group.setTextColor(ink);
    QCOMPARE(textOf(&group), ink);
    QCOMPARE(group.palette().color(QPalette::Disabled, QPalette::WindowText), ink);
    for (ZelSimpleValue_fl* each : {value, deeper}) {
        QCOMPARE(each->getNameColor(), ink);
        QCOMPARE(each->getColor(), ink);
        QCOMPARE(label(each, "value")->styleSheet(), QString("QLabel { color: rgb(32,48,64);}"));
        QCOMPARE(label(each, "name")->styleSheet(), QString("QLabel{ color: rgb(32,48,64);}"));
    }
}

void GroupRulesTest::aFlexibleTextColourLeavesOthersAlone() {
    ZelGroup_fl group;
    auto* other = new ZelSimpleValue(&group);
    other->setPalette(QPalette(Qt::white, Qt::gray));
    const QColor before = textOf(other);
    group.setTextColor(ink);
    QCOMPARE(textOf(other), before);
}

void GroupRulesTest::anInvalidFlexibleColourIsThePalettes() {
    ZelGroup_fl group;
    const QColor window = group.palette().color(QPalette::Window);
    const QColor text = textOf(&group);
    group.setgBackColor(QColor());
    group.setTextColor(QColor());
    QCOMPARE(group.getgBackColor(), window);
    QCOMPARE(group.getTextColor(), text);
}

void GroupRulesTest::readoutsThatComeLaterKeepTheirColours() {
    ZelGroup_fl group;
    group.setTextColor(ink);
    fill(group);
    auto* value = group.findChild<ZelSimpleValue_fl*>();
    QVERIFY(!value->getNameColor().isValid());
    QCOMPARE(label(value, "name")->styleSheet(), QString());
}

void GroupRulesTest::aFlexibleFontAppliesTheTextColourAgain() {
    ZelGroup_fl group;
    fill(group);
    auto* value = group.findChild<ZelSimpleValue_fl*>();
    group.setTextColor(ink);
    value->setColor(Qt::red);
    group.setGrpFont(QFont("Sans", 15));
    QCOMPARE(value->getColor(), ink);

    ZelGroup_fl plain;
    fill(plain);
    value = plain.findChild<ZelSimpleValue_fl*>();
    const QColor own = value->getColor();
    QVERIFY(!value->getNameColor().isValid());
    plain.setGrpFont(QFont("Sans", 15));
    QCOMPARE(value->getColor(), own);
    // The name was given the invalid colour too, which is its palette's.
    QCOMPARE(value->getNameColor(), label(value, "name")->palette().text().color());
    QCOMPARE(label(value, "value")->styleSheet(), QString("QLabel { color: rgb(0,0,0);}"));
}

void GroupRulesTest::aFontReachesTheReadoutsByInheritance() {
    ZelGroup group;
    fill(group);
    group.setGrpFont(QFont("Sans", 15));
    QCOMPARE(group.getGrpFont().pointSize(), 15);
    QCOMPARE(label(group.findChild<ZelSimpleValue*>(), "value")->font().pointSize(), 15);
}

OSTREL_TEST(GroupRulesTest)
#include "grouprules_test.moc"
