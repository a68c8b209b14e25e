// The two group boxes: what they have in common, each test for both, and then where they differ.
#include <ostrel-display/qdwindow.h>

#include <QAction>
#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QPointer>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <memory>

#include "plugintest.h"
#include "properties/mycontroller.h"
#include "qttests.h"
#include "readouttest.h"
#include "scripted/calls.h"
#include "widgets/zel_simplevalue.h"
#include "widgets/zel_simplevalue_fl.h"
#include "widgets/zelgroupwidget.h"
#include "widgets/zelgroupwidget_fl.h"

// The editor window: it shows nothing and tells what it was asked to show.
QDWindow::QDWindow(QWidget* parent) : QMainWindow(parent), m_editor(nullptr) {
    scripted::called("QDWindow", parent ? "parent" : "null");
}
QDWindow::~QDWindow() = default;
void QDWindow::show(QString fileName) {
    scripted::called("QDWindow::show", fileName);
}
void QDWindow::closeEvent(QCloseEvent*) {}

namespace {

// What a display gives its widgets to connect to.
class HostControl : public QObject {
    Q_OBJECT

Q_SIGNALS:
    void saveConfig();
};

const QByteArray oil =
    "<?xml version=\"1.0\"?>\n"
    "<title name=\"Oil\"/>\n"
    "<row>\n"
    "  <var name=\"OIL_TEMP\"/>\n"
    "  <var name=\"OIL_PRES\"/>\n"
    "</row>\n"
    "<row>\n"
    "  <var name=\"OIL_LEVEL\"/>\n"
    "</row>\n";

const QStringList writerCalls{"UIFileWriter", "openFile", "cacheProperty", "cachePropertyFont"};
const QStringList editorCalls{"QDWindow", "QDWindow::show"};

void call(QObject* object, const char* slot) {
    QVERIFY(QMetaObject::invokeMethod(object, slot, Qt::DirectConnection));
}

QList<OstrelBase*> valuesOf(const QWidget* group) {
    return group->findChildren<OstrelBase*>(QString(), Qt::FindDirectChildrenOnly);
}

// "NAME@row,column" of all read-outs in the grid.
QStringList gridOf(const QWidget* group) {
    QStringList cells;
    auto* grid = qobject_cast<QGridLayout*>(group->layout());
    for (int i = 0; grid && i < grid->count(); ++i) {
        int row = 0;
        int column = 0;
        int rows = 0;
        int columns = 0;
        grid->getItemPosition(i, &row, &column, &rows, &columns);
        auto* value = qobject_cast<OstrelBase*>(grid->itemAt(i)->widget());
        cells << QStringLiteral("%1@%2,%3").arg(value ? value->getName() : QString("?")).arg(row).arg(column);
    }
    return cells;
}

}  // namespace

class GroupBoxTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();
    void cleanup();

    void itsProperties_data();
    void itsProperties();
    void itsMetaObject();
    void itsForm();
    void itMakesTheFormWriterWhereThereIsNone();
    void itsMenu();
    void aRemoteDisplayHasNoMenu();
    void settersTellTheFormOnlyAfterEditProperties();
    void someSettersTellTheFormAlways();
    void editPropertiesOpensADialogEachTime();
    void theEventFilterHandsTheEventOn();

    void anEmptyFileNameNeedsNoFile();
    void theFileFillsTheGrid();
    void aFileThatCannotBeOpenedChangesNothing();
    void aFileThatCouldNotBeOpenedIsNotTriedAgainOnceOneWasLaidOut();
    void aMissingFileIsTriedAgainUntilOneWasLaidOut();
    void theSameFileAndOrientationLoadOnce();
    void anotherOrientationBuildsNewReadouts();
    void theOrientationBeforeTheFileCounts();
    void aTitleLineWithoutQuotesEmptiesTheTitle();
    void aFileWithoutATitleLeavesTheTitle();
    void rowsAndColumnsAreCounted();
    void anEndOfRowAloneResetsTheColumn();
    void aRowWithoutItsEndLetsTheColumnRunOn();
    void aVariableBeforeTheFirstRowStandsOutsideTheGrid();
    void aLayoutOfTheFormIsReplaced();
    void anUnknownVariableIsMarkedInItsPlace();

    void aRenamedReadoutIsRemembered();
    void aNameForAPlaceThatNobodyHasChangesNothing();
    void theFirstReadoutOfAPlaceGetsTheName();
    void savingWritesOnlyAChangedGroup();
    void savingTwiceGivesTheSameBytes();
    void savingWritesTheTitleOnTheScreen();
    void savingDropsWhatTheReaderIgnored();
    void aSaveThatFailsIsForgotten();
    void withoutAHostNobodySaves();
    void aReloadForgetsTheNames();
    void destroyingSavesNothing();

    void editDisplayOpensTheOneEditor();
    void onlyOneGroupEditsAtATime();
    void theEditedFileIsReadAgain();
    void anEditorWithoutAFileChangesNothing();
    void afterClosingTheEditorBelongsToTheNext();
    void aGroupThatDiesLeavesTheEditorOpen();

    void withoutACheckBoxNothingIsToggled();
    void anUnknownVariableIsNotWritten();
    void aVariableThatIsNoLogicalIsNotWritten();
    void anEmptyNameForgetsTheVariable();
    void aLaterNameIsLedByTheBox();

private:
    std::unique_ptr<GroupBase> make(QWidget* parent = nullptr);
    std::unique_ptr<GroupBase> makeFilled();
    QString write(const char* name, const QByteArray& text);
    QByteArray read(const QString& path);
    void rename(GroupBase* group, const char* name, int row, int column);
    bool isFlexible() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    HostControl m_host;
};

void GroupBoxTest::initTestCase_data() {
    QTest::addColumn<QString>("className");
    QTest::newRow("ZelGroup") << "ZelGroup";
    QTest::newRow("ZelGroup_fl") << "ZelGroup_fl";
}

void GroupBoxTest::init() {
    startAsHost();
    propertiesChanged = false;
    runQtUIWindow = &m_host;
    delete displayWindow;
    displayWindow = nullptr;
    Display_QD_Window = false;
    m_folder = std::make_unique<QTemporaryDir>();
    for (const char* name : {"OIL_TEMP", "OIL_PRES", "OIL_LEVEL", "OTHER"})
        platform().real(name).value(1).format("%g");
}

void GroupBoxTest::cleanup() {
    runQtUIWindow = nullptr;
}

bool GroupBoxTest::isFlexible() const {
    QFETCH_GLOBAL(QString, className);
    return className == QLatin1String("ZelGroup_fl");
}

std::unique_ptr<GroupBase> GroupBoxTest::make(QWidget* parent) {
    std::unique_ptr<GroupBase> group;
    if (isFlexible())
        group = std::make_unique<ZelGroup_fl>(parent);
    else
        group = std::make_unique<ZelGroup>(parent);
    group->setObjectName(QStringLiteral("group"));
    return group;
}

std::unique_ptr<GroupBase> GroupBoxTest::makeFilled() {
    std::unique_ptr<GroupBase> group = make();
    group->setFileName(write("oil.grp", oil));
    platform().forgetCalls();
    return group;
}

QString GroupBoxTest::write(const char* name, const QByteArray& text) {
    const QString path = m_folder->filePath(QLatin1String(name));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("%s cannot be written", qPrintable(path));
    return path;
}

QByteArray GroupBoxTest::read(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

void GroupBoxTest::rename(GroupBase* group, const char* name, int row, int column) {
    QVERIFY(QMetaObject::invokeMethod(group, "varNameChange", Q_ARG(QString, QString::fromLatin1(name)),
                                      Q_ARG(int, row), Q_ARG(int, column)));
}

void GroupBoxTest::itsProperties_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("title") << QByteArray("QString") << QVariant("GroupBox");
    QTest::newRow("grpFont") << QByteArray("QFont") << QVariant(QApplication::font("QGroupBox"));
    QTest::newRow("gBackColor") << QByteArray("QColor") << QVariant(QColor());
    QTest::newRow("textColor") << QByteArray("QColor") << QVariant(QColor());
    QTest::newRow("FileName") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("SimpleValueOrientation") << QByteArray("Qt::Orientation") << QVariant(Qt::Horizontal);
    QTest::newRow("toolTip") << QByteArray("QString") << QVariant(QString());
    QTest::newRow("checkboxVarName") << QByteArray("QString") << QVariant(QString());
}

void GroupBoxTest::itsProperties() {
    QFETCH(QByteArray, type);
    QFETCH(QVariant, value);
    compareProperty(*make(), QTest::currentDataTag(), type, value);
}

void GroupBoxTest::itsMetaObject() {
    const auto group = make();
    const QMetaObject& meta = *group->metaObject();
    QFETCH_GLOBAL(QString, className);
    QCOMPARE(QString(meta.className()), className);
    QCOMPARE(QString(meta.superClass()->className()), QString("QGroupBox"));
    QCOMPARE(ownProperties(meta), QStringList({"title", "grpFont", "gBackColor", "textColor", "FileName",
                                               "SimpleValueOrientation", "toolTip", "checkboxVarName"}));
    QCOMPARE(ownMethods(meta),
             QStringList({"passAlongName(QString)", "viewProperties()", "viewDisplayWindow()", "saveConfigSettings()",
                          "checkToggleStatus(bool)", "varNameChange(QString,int,int)", "windowClosed(QString)"}));
}

void GroupBoxTest::itsForm() {
    const auto group = make();
    QCOMPARE(group->size(), QSize(400, 300));
    QCOMPARE(group->minimumSize(), QSize(100, 100));
    QVERIFY(group->autoFillBackground());
    QCOMPARE(int(group->alignment()), 132);
    QVERIFY(group->isFlat());
    QVERIFY(!group->isCheckable());
    QCOMPARE(group->title(), QString("GroupBox"));
    QCOMPARE(group->windowTitle(), QString("GroupBox"));
    QVERIFY(!group->layout());
    const QSizePolicy policy = group->sizePolicy();
    const auto expected = isFlexible() ? QSizePolicy::Minimum : QGroupBox().sizePolicy().verticalPolicy();
    QCOMPARE(policy.horizontalPolicy(), expected);
    QCOMPARE(policy.verticalPolicy(), expected);
}

void GroupBoxTest::itMakesTheFormWriterWhereThereIsNone() {
    UIFileWriter* const former = writer;
    writer = nullptr;
    platform().answer("openFile", {0});
    const DebugLines debug;
    make();
    QCOMPARE(platform().calls(writerCalls), QStringList({"UIFileWriter ", "openFile"}));
    QCOMPARE(debug.count("Error opening UI file outside of the designer"), 1);
    make();
    QCOMPARE(platform().calls({"UIFileWriter"}).size(), 1);
    if (former)
        writer = former;
}

void GroupBoxTest::itsMenu() {
    const auto group = make();
    QStringList entries;
    for (const QAction* action : group->actions())
        entries << action->text();
    QCOMPARE(entries, QStringList({"Edit Properties", "Edit Display"}));
    QCOMPARE(group->contextMenuPolicy(), Qt::ActionsContextMenu);
}

void GroupBoxTest::aRemoteDisplayHasNoMenu() {
    RemoteDisplay = true;
    const auto group = make();
    QVERIFY(group->actions().isEmpty());
    QCOMPARE(group->contextMenuPolicy(), Qt::DefaultContextMenu);
}

void GroupBoxTest::settersTellTheFormOnlyAfterEditProperties() {
    QFETCH_GLOBAL(QString, className);
    const QString name = className;
    const auto box = make();
    const auto setAll = [&] {
        platform().forgetCalls();
        box->setProperty("title", "T");
        box->setProperty("toolTip", "tip");
        box->setProperty("gBackColor", QColor("#102030"));
        box->setProperty("textColor", QColor("#405060"));
        box->setProperty("grpFont", QFont("Sans", 14));
        box->setName("N");
        return platform().calls(writerCalls);
    };
    QCOMPARE(setAll(), QStringList());
    call(box.get(), "viewProperties");
    QCOMPARE(setAll(), QStringList({"cacheProperty " + name + " group title T changed",
                                    "cacheProperty " + name + " group toolTip tip changed",
                                    "cacheProperty " + name + " group gBackColor #102030 changed",
                                    "cacheProperty " + name + " group textColor #405060 changed",
                                    "cachePropertyFont " + name + " group grpFont Sans changed",
                                    "cachePropertyFont " + name + " group name N changed"}));
    QCOMPARE(box->title(), QString("T"));
    QCOMPARE(box->toolTip(), QString("tip"));
    QCOMPARE(box->font().pointSize(), 14);
    QCOMPARE(box->getName(), QString("N"));
    QCOMPARE(box->palette().color(QPalette::Disabled, QPalette::Window), QColor("#102030"));
    QCOMPARE(box->palette().color(QPalette::Inactive, QPalette::Text), QColor("#405060"));
}

void GroupBoxTest::someSettersTellTheFormAlways() {
    QFETCH_GLOBAL(QString, className);
    const QString start = "cacheProperty " + className + " group ";
    const QString path = write("oil.grp", oil);
    const auto box = make();
    platform().forgetCalls();
    box->setFileName(path);
    box->setProperty("SimpleValueOrientation", Qt::Horizontal);
    box->setProperty("checkboxVarName", "NONE");
    box->setProperty("checkboxVarName", QString());
    QStringList own = platform().calls(writerCalls).filter(start);
    QCOMPARE(own, QStringList({start + "FileName " + path + " loading", start + "SimpleValueOrientation 1 loading",
                               start + "checkboxVarName NONE loading"}));
    call(box.get(), "viewProperties");
    platform().forgetCalls();
    box->setProperty("SimpleValueOrientation", Qt::Vertical);
    own = platform().calls(writerCalls).filter(start);
    QCOMPARE(own, QStringList({start + "SimpleValueOrientation 2 changed", start + "FileName " + path + " changed"}));
}

void GroupBoxTest::editPropertiesOpensADialogEachTime() {
    const auto group = make();
    group->actions().at(0)->trigger();
    group->actions().at(0)->trigger();
    const auto dialogs = group->findChildren<MyController*>();
    QCOMPARE(dialogs.size(), 2);
    QVERIFY(dialogs.at(0)->isVisible() && dialogs.at(1)->isVisible());
}

void GroupBoxTest::theEventFilterHandsTheEventOn() {
    class Target : public QObject {
    public:
        bool event(QEvent* event) override {
            seen = event->type();
            return answer;
        }
        QEvent::Type seen = QEvent::None;
        bool answer = true;
    } target;
    const auto group = make();
    QEvent event(QEvent::User);
    QVERIFY(group->eventFilter(&target, &event));
    QCOMPARE(target.seen, QEvent::User);
    target.answer = false;
    QVERIFY(!group->eventFilter(&target, &event));
}

void GroupBoxTest::anEmptyFileNameNeedsNoFile() {
    const auto group = make();
    group->setFileName(QString());
    QVERIFY(!group->layout());
    QVERIFY(valuesOf(group.get()).isEmpty());
    QCOMPARE(group->getFileName(), QString());
}

void GroupBoxTest::theFileFillsTheGrid() {
    const auto group = makeFilled();
    QCOMPARE(group->title(), QString("Oil"));
    QCOMPARE(gridOf(group.get()), QStringList({"OIL_TEMP@0,0", "OIL_PRES@0,1", "OIL_LEVEL@1,0"}));
    for (OstrelBase* value : valuesOf(group.get())) {
        QVERIFY(value->inherits(isFlexible() ? "ZelSimpleValue_fl" : "ZelSimpleValue"));
        QVERIFY(value->property("horizontal").toBool());
        QVERIFY(TimerModerator::isRegistered(value, 1000));
    }
    QCOMPARE(group->size(), QSize(400, 300));
}

void GroupBoxTest::aFileThatCannotBeOpenedChangesNothing() {
    const auto group = makeFilled();
    const QString former = group->getFileName();
    const auto values = valuesOf(group.get());
    group->setFileName(m_folder->filePath("none.grp"));
    QCOMPARE(group->getFileName(), former);
    QCOMPARE(valuesOf(group.get()), values);
    QCOMPARE(platform().calls(writerCalls), QStringList());
}

void GroupBoxTest::aFileThatCouldNotBeOpenedIsNotTriedAgainOnceOneWasLaidOut() {
    const auto group = makeFilled();
    const QString path = m_folder->filePath("late.grp");
    group->setFileName(path);
    write("late.grp", "<row>\n<var \"OTHER\"\n</row>\n");
    group->setFileName(path);
    QCOMPARE(gridOf(group.get()).size(), 3);
    // Another name in between, and it is read.
    group->setFileName(m_folder->filePath("oil.grp"));
    group->setFileName(path);
    QCOMPARE(gridOf(group.get()), QStringList{"OTHER@0,0"});
}

void GroupBoxTest::aMissingFileIsTriedAgainUntilOneWasLaidOut() {
    const auto group = make();
    const QString path = m_folder->filePath("late.grp");
    group->setFileName(path);
    QCOMPARE(group->getFileName(), QString());
    QCOMPARE(dynamic_cast<const GroupBase*>(group.get())->missingFile(), path);
    write("late.grp", "<row>\n<var \"OTHER\"\n</row>\n");
    group->setFileName(path);
    QCOMPARE(gridOf(group.get()), QStringList{"OTHER@0,0"});
    QCOMPARE(dynamic_cast<const GroupBase*>(group.get())->missingFile(), QString());
}

void GroupBoxTest::theSameFileAndOrientationLoadOnce() {
    const auto group = makeFilled();
    const auto values = valuesOf(group.get());
    write("oil.grp", "<row>\n<var \"OTHER\"\n</row>\n");
    group->setFileName(group->getFileName());
    QCOMPARE(valuesOf(group.get()), values);
    QCOMPARE(platform().calls(writerCalls), QStringList());
}

void GroupBoxTest::anotherOrientationBuildsNewReadouts() {
    const auto group = makeFilled();
    QList<QPointer<OstrelBase>> former;
    for (OstrelBase* value : valuesOf(group.get()))
        former << value;
    group->setOrientation(Qt::Vertical);
    for (const auto& value : former)
        QVERIFY(!value);
    QCOMPARE(gridOf(group.get()), QStringList({"OIL_TEMP@0,0", "OIL_PRES@0,1", "OIL_LEVEL@1,0"}));
    for (OstrelBase* value : valuesOf(group.get()))
        QVERIFY(!value->property("horizontal").toBool());
    const auto values = valuesOf(group.get());
    group->setOrientation(Qt::Vertical);
    QCOMPARE(valuesOf(group.get()), values);
}

void GroupBoxTest::theOrientationBeforeTheFileCounts() {
    const auto group = make();
    group->setOrientation(Qt::Vertical);
    QVERIFY(!group->layout());
    group->setFileName(write("oil.grp", oil));
    QVERIFY(!valuesOf(group.get()).first()->property("horizontal").toBool());
}

void GroupBoxTest::aTitleLineWithoutQuotesEmptiesTheTitle() {
    const auto group = make();
    group->setFileName(write("a.grp", "<title name=Oil/>\n"));
    QCOMPARE(group->title(), QString());
}

void GroupBoxTest::aFileWithoutATitleLeavesTheTitle() {
    const auto group = make();
    group->setMyTitle("Mine");
    group->setFileName(write("a.grp", "<row>\n</row>\n"));
    QCOMPARE(group->title(), QString("Mine"));
    QVERIFY(group->layout());
}

void GroupBoxTest::rowsAndColumnsAreCounted() {
    const auto group = make();
    group->setFileName(write("a.grp",
                             "<row>\n<var \"OIL_TEMP\"\n<var \"OIL_PRES\"\n</row>\n<row>\n</row>\n"
                             "<row>\n<var \"OIL_LEVEL\"\n</row>\n"));
    QCOMPARE(gridOf(group.get()), QStringList({"OIL_TEMP@0,0", "OIL_PRES@0,1", "OIL_LEVEL@2,0"}));
}

void GroupBoxTest::anEndOfRowAloneResetsTheColumn() {
    const auto group = make();
    group->setFileName(write("a.grp", "<row>\n<var \"OIL_TEMP\"\n</row>\n<var \"OIL_PRES\"\n"));
    QCOMPARE(gridOf(group.get()), QStringList({"OIL_TEMP@0,0", "OIL_PRES@0,0"}));
}

void GroupBoxTest::aRowWithoutItsEndLetsTheColumnRunOn() {
    const auto group = make();
    group->setFileName(write("a.grp", "<row>\n<var \"OIL_TEMP\"\n<row>\n<var \"OIL_PRES\"\n"));
    QCOMPARE(gridOf(group.get()), QStringList({"OIL_TEMP@0,0", "OIL_PRES@1,1"}));
}

void GroupBoxTest::aVariableBeforeTheFirstRowStandsOutsideTheGrid() {
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^QGridLayout: Cannot add .* at row -1 column 0$"));
    const auto group = make();
    group->setFileName(write("a.grp", "<var \"OIL_TEMP\"\n<row>\n<var \"OIL_PRES\"\n</row>\n"));
    QCOMPARE(gridOf(group.get()), QStringList{"OIL_PRES@0,1"});
    QCOMPARE(valuesOf(group.get()).size(), 2);
    // It stands in the lists: a save has it.
    rename(group.get(), "OTHER", -1, 0);
    emit m_host.saveConfig();
    QCOMPARE(read(group->getFileName()),
             QByteArray("<?xml version=\"1.0\"?>\n<title name=\"GroupBox\"/>\n<row>\n</row>\n<row>\n"
                        "  <var name=\"OTHER\"/>\n</row>\n<row>\n  <var name=\"OIL_PRES\"/>\n</row>\n"));
}

void GroupBoxTest::aLayoutOfTheFormIsReplaced() {
    const auto group = make();
    auto* former = new QGridLayout(group.get());
    QPointer<QWidget> placed = new QWidget;
    former->addWidget(placed);
    former->addItem(new QSpacerItem(1, 1), 1, 0);
    group->setFileName(write("oil.grp", oil));
    QVERIFY(!placed);
    QCOMPARE(gridOf(group.get()).size(), 3);
}

void GroupBoxTest::anUnknownVariableIsMarkedInItsPlace() {
    const auto group = make();
    group->setFileName(write("a.grp", "<row>\n<var \"NONE\"\n<var \"OIL_PRES\"\n</row>\n"));
    QCOMPARE(gridOf(group.get()), QStringList({"NONE@0,0", "OIL_PRES@0,1"}));
    QVERIFY(!valuesOf(group.get()).first()->findChild<QLabel*>("iconLabel")->isHidden());
}

void GroupBoxTest::aRenamedReadoutIsRemembered() {
    const auto group = makeFilled();
    QVERIFY(!propertiesChanged);
    valuesOf(group.get()).at(1)->setName("OTHER");
    QVERIFY(propertiesChanged);
    emit m_host.saveConfig();
    QCOMPARE(read(group->getFileName()), QByteArray(oil).replace("OIL_PRES", "OTHER"));
}

void GroupBoxTest::aNameForAPlaceThatNobodyHasChangesNothing() {
    const auto group = makeFilled();
    rename(group.get(), "OTHER", 1, 1);
    rename(group.get(), "OTHER", 2, 0);
    QVERIFY(!propertiesChanged);
    const QByteArray foreign = oil + "<!-- still here -->\n";
    write("oil.grp", foreign);
    emit m_host.saveConfig();
    QCOMPARE(read(group->getFileName()), foreign);
}

void GroupBoxTest::theFirstReadoutOfAPlaceGetsTheName() {
    const auto group = make();
    group->setFileName(write("a.grp", "<title \"T\"\n<row>\n<var \"OIL_TEMP\"\n</row>\n<var \"OIL_PRES\"\n"));
    valuesOf(group.get()).at(1)->setName("OTHER");
    emit m_host.saveConfig();
    QCOMPARE(read(group->getFileName()), QByteArray("<?xml version=\"1.0\"?>\n<title name=\"T\"/>\n<row>\n"
                                                    "  <var name=\"OTHER\"/>\n  <var name=\"OIL_PRES\"/>\n</row>\n"));
}

void GroupBoxTest::savingWritesOnlyAChangedGroup() {
    const auto empty = make();
    rename(empty.get(), "OTHER", 0, 0);
    const auto group = makeFilled();
    write("oil.grp", "changed by hand");
    emit m_host.saveConfig();
    QCOMPARE(read(group->getFileName()), QByteArray("changed by hand"));
    rename(group.get(), "OTHER", 0, 0);
    emit m_host.saveConfig();
    QCOMPARE(read(group->getFileName()), QByteArray(oil).replace("OIL_TEMP", "OTHER"));
    write("oil.grp", "changed by hand");
    emit m_host.saveConfig();
    QCOMPARE(read(group->getFileName()), QByteArray("changed by hand"));
}

void GroupBoxTest::savingTwiceGivesTheSameBytes() {
    const auto group = make();
    group->setFileName(write("a.grp", "<title \"\xD6l\"\n# a\n<row>\n<var \"OIL_TEMP\"\n<row>\n<var \"OIL_PRES\"\n"));
    rename(group.get(), "OIL_TEMP", 0, 0);
    emit m_host.saveConfig();
    const QByteArray once = read(group->getFileName());
    QVERIFY(once.contains("\xD6l"));
    const auto again = make();
    again->setFileName(group->getFileName());
    QCOMPARE(gridOf(again.get()), QStringList({"OIL_TEMP@0,0", "OIL_PRES@1,0"}));
    rename(again.get(), "OIL_TEMP", 0, 0);
    emit m_host.saveConfig();
    QCOMPARE(read(group->getFileName()), once);
}

void GroupBoxTest::savingWritesTheTitleOnTheScreen() {
    const auto group = makeFilled();
    group->setMyTitle("Oil \"1\"");
    rename(group.get(), "OIL_TEMP", 0, 0);
    emit m_host.saveConfig();
    QCOMPARE(read(group->getFileName()), QByteArray(oil).replace("\"Oil\"", "\"Oil \"1\"\""));
    // The quotes do not come back.
    const auto again = make();
    again->setFileName(group->getFileName());
    QCOMPARE(again->title(), QString("Oil 1"));
}

void GroupBoxTest::savingDropsWhatTheReaderIgnored() {
    const auto group = make();
    group->setFileName(write(
        "a.grp", "<!-- by hand -->\n" + QByteArray(oil).replace("</row>\n<row>", "</row>\n<row>\n</row>\n<row>")));
    QCOMPARE(gridOf(group.get()).last(), QString("OIL_LEVEL@2,0"));
    rename(group.get(), "OIL_TEMP", 0, 0);
    emit m_host.saveConfig();
    QCOMPARE(read(group->getFileName()), oil);
}

void GroupBoxTest::aSaveThatFailsIsForgotten() {
    const auto group = makeFilled();
    const QString path = group->getFileName();
    rename(group.get(), "OTHER", 0, 0);
    QVERIFY(QFile::remove(path) && QDir().mkdir(path));
    const DebugLines debug;
    emit m_host.saveConfig();
    QCOMPARE(debug.lines(), QStringList());
    QVERIFY(QDir().rmdir(path));
    emit m_host.saveConfig();
    QVERIFY(!QFile::exists(path));
}

void GroupBoxTest::withoutAHostNobodySaves() {
    runQtUIWindow = nullptr;
    const auto group = makeFilled();
    rename(group.get(), "OTHER", 0, 0);
    emit m_host.saveConfig();
    QCOMPARE(read(group->getFileName()), oil);
}

void GroupBoxTest::aReloadForgetsTheNames() {
    const auto group = makeFilled();
    rename(group.get(), "OTHER", 0, 0);
    group->setOrientation(Qt::Vertical);
    emit m_host.saveConfig();
    QCOMPARE(read(group->getFileName()), oil);
    QCOMPARE(gridOf(group.get()).first(), QString("OIL_TEMP@0,0"));
}

void GroupBoxTest::destroyingSavesNothing() {
    auto group = makeFilled();
    const QString path = group->getFileName();
    rename(group.get(), "OTHER", 0, 0);
    group.reset();
    emit m_host.saveConfig();
    QCOMPARE(read(path), oil);
}

void GroupBoxTest::editDisplayOpensTheOneEditor() {
    const auto group = makeFilled();
    group->actions().at(1)->trigger();
    QVERIFY(Display_QD_Window);
    QCOMPARE(platform().calls(editorCalls), QStringList({"QDWindow null", "QDWindow::show " + group->getFileName()}));
    group->actions().at(1)->trigger();
    QCOMPARE(platform().calls(editorCalls).size(), 2);
}

void GroupBoxTest::onlyOneGroupEditsAtATime() {
    const auto group = makeFilled();
    const ZelGroup plain(nullptr);
    const ZelGroup_fl flexible(nullptr);
    group->actions().at(1)->trigger();
    platform().forgetCalls();
    plain.actions().at(1)->trigger();
    flexible.actions().at(1)->trigger();
    QCOMPARE(platform().calls(editorCalls), QStringList());
}

void GroupBoxTest::theEditedFileIsReadAgain() {
    const auto group = makeFilled();
    group->actions().at(1)->trigger();
    write("oil.grp", QByteArray(oil).replace("OIL_TEMP", "OTHER"));
    emit displayWindow->closed(group->getFileName());
    QCOMPARE(gridOf(group.get()).first(), QString("OTHER@0,0"));
    QVERIFY(!Display_QD_Window);
    // Another file that was chosen in the editor is the group's from then on.
    group->actions().at(1)->trigger();
    const QString other = write("other.grp", "<row>\n<var \"OTHER\"\n</row>\n");
    emit displayWindow->closed(other);
    QCOMPARE(group->getFileName(), other);
}

void GroupBoxTest::anEditorWithoutAFileChangesNothing() {
    const auto group = makeFilled();
    const auto values = valuesOf(group.get());
    group->actions().at(1)->trigger();
    emit displayWindow->closed(QString());
    QCOMPARE(valuesOf(group.get()), values);
    QVERIFY(!Display_QD_Window);
}

void GroupBoxTest::afterClosingTheEditorBelongsToTheNext() {
    const auto group = makeFilled();
    const auto other = make();
    group->actions().at(1)->trigger();
    QDWindow* const window = displayWindow;
    emit window->closed(group->getFileName());
    const auto values = valuesOf(group.get());
    other->actions().at(1)->trigger();
    QCOMPARE(displayWindow, window);
    QCOMPARE(platform().calls({"QDWindow"}).size(), 1);
    emit window->closed(group->getFileName());
    QCOMPARE(other->getFileName(), group->getFileName());
    QCOMPARE(valuesOf(group.get()), values);
}

void GroupBoxTest::aGroupThatDiesLeavesTheEditorOpen() {
    auto group = makeFilled();
    group->actions().at(1)->trigger();
    group.reset();
    emit displayWindow->closed("any.grp");
    QVERIFY(Display_QD_Window);
}

void GroupBoxTest::withoutACheckBoxNothingIsToggled() {
    auto heater = platform().logical("HEATER").value(1);
    const auto group = make();
    group->setProperty("checkboxVarName", "HEATER");
    QVERIFY(!group->isChecked());
    group->setChecked(true);
    QVERIFY(!group->isChecked());
    // The flexible group leads from the start, and a box that is not there is not checked.
    QCOMPARE(int(heater->value), isFlexible() ? 0 : 1);
    group->setProperty("checkboxVarName", "HEATER");
    QCOMPARE(int(heater->value), 0);
    QCOMPARE(platform().calls({"set_logical", "set_logical_variable"}), QStringList());
}

void GroupBoxTest::anUnknownVariableIsNotWritten() {
    const auto group = make();
    group->setCheckable(true);
    const DebugLines debug;
    group->setProperty("checkboxVarName", "NONE");
    group->setChecked(false);
    group->setChecked(true);
    QCOMPARE(group->property("checkboxVarName").toString(), QString("NONE"));
    QCOMPARE(debug.lines(), QStringList());
}

void GroupBoxTest::aVariableThatIsNoLogicalIsNotWritten() {
    auto speed = platform().real("SPEED").value(7);
    auto heater = platform().logical("HEATER").value(1);
    const auto group = make();
    group->setCheckable(true);
    group->setProperty("checkboxVarName", "HEATER");
    group->setProperty("checkboxVarName", "SPEED");
    group->setChecked(!group->isChecked());
    QCOMPARE(double(speed->value), 7.0);
    QCOMPARE(int(heater->value), 1);
}

void GroupBoxTest::anEmptyNameForgetsTheVariable() {
    auto heater = platform().logical("HEATER").value(1);
    const auto group = make();
    group->setCheckable(true);
    group->setProperty("checkboxVarName", "HEATER");
    platform().forgetCalls();
    group->setProperty("checkboxVarName", "");
    QCOMPARE(platform().calls(), QStringList());
    QCOMPARE(group->property("checkboxVarName").toString(), QString());
    group->setChecked(false);
    group->setChecked(true);
    group->setChecked(false);
    QCOMPARE(int(heater->value), 1);
}

void GroupBoxTest::aLaterNameIsLedByTheBox() {
    platform().logical("HEATER").value(1);
    auto pump = platform().logical("PUMP").value(1);
    auto fan = platform().logical("FAN").value(0);
    const auto group = makeFilled();
    group->setCheckable(true);
    group->setProperty("checkboxVarName", "HEATER");
    group->setChecked(false);
    rename(group.get(), "OTHER", 0, 0);
    group->setProperty("checkboxVarName", "PUMP");
    QCOMPARE(int(pump->value), 0);
    // Kept: the renamed read-out is not saved.
    emit m_host.saveConfig();
    QCOMPARE(read(group->getFileName()), oil);
    group->setChecked(true);
    QCOMPARE(int(pump->value), 1);
    group->setProperty("checkboxVarName", "FAN");
    QCOMPARE(int(fan->value), 1);
    group->setChecked(false);
    QCOMPARE(int(fan->value), 0);
    QCOMPARE(int(pump->value), 1);
}

OSTREL_TEST(GroupBoxTest)
#include "groupbox_test.moc"
