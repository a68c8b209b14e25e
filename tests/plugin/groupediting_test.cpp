// "Edit Display" from the operator's click to the group that shows the edited file, with the real editor.
#include <ostrel-display/qdwindow.h>

#include <QFile>
#include <QGridLayout>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QTemporaryDir>

#include "plugintest.h"
#include "qttests.h"
#include "readouttest.h"
#include "widgets/zelgroupwidget.h"
#include "widgets/zelgroupwidget_fl.h"

namespace {

QStringList namesIn(const QWidget& group) {
    QStringList names;
    const auto values = group.findChildren<OstrelBase*>();
    for (const OstrelBase* value : values)
        names << value->getName();
    return names;
}

// A press and a release as they come from the screen.
void click(QWindow* window, Qt::MouseButton button, const QPoint& place) {
    QTest::mouseClick(window, button, Qt::NoModifier, place);
}

// Clicks the entry of the menu that opens next. A menu has an event loop of its own.
void chooseFromMenu(const QString& text) {
    auto* watch = new QTimer(qApp);
    QObject::connect(watch, &QTimer::timeout, watch, [=] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        watch->deleteLater();
        const auto entries = menu->actions();
        for (QAction* entry : entries)
            if (entry->text() == text)
                click(menu->windowHandle(), Qt::LeftButton, menu->actionGeometry(entry).center());
    });
    watch->start(10);
}

}  // namespace

class GroupEditingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aClickOnEditDisplayLeadsToTheRebuiltGroup();
    void aNewGroupGetsItsFileFromTheEditor();

private:
    template <class Group>
    void edit();
    QByteArray read() {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_folder;
    QString m_path;
};

void GroupEditingTest::init() {
    startAsHost();
    runQtUIWindow = nullptr;
    Display_QD_Window = false;
    for (const char* name : {"SPEED", "TORQUE", "POWER"})
        platform().real(name).value(1).format("%g");
    m_path = m_folder.filePath(QStringLiteral("engine.grp"));
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<title \"Engine\"\n<row>\n<var \"SPEED\"\n</row>\n");
}

template <class Group>
void GroupEditingTest::edit() {
    Group group;
    group.setFileName(m_path);
    group.show();
    QVERIFY(QTest::qWaitForWindowExposed(&group));

    chooseFromMenu(QStringLiteral("Edit Display"));
    click(group.windowHandle(), Qt::RightButton, QPoint(5, group.height() - 5));
    QTRY_VERIFY(Display_QD_Window);
    QVERIFY(displayWindow);
    QVERIFY(QTest::qWaitForWindowActive(displayWindow));

    // The cell behind SPEED: its name is typed, Enter, Ctrl+S, Ctrl+W.
    auto* table = displayWindow->findChild<QTableView*>("groupTable");
    QWindow* window = displayWindow->windowHandle();
    const QPoint cell = table->visualRect(table->model()->index(0, 1)).center();
    click(window, Qt::LeftButton, table->viewport()->mapTo(displayWindow, cell));
    for (const char letter : QByteArray("TORQUE"))
        QTest::keyClick(window, letter);
    QVERIFY(table->findChild<QLineEdit*>("nameLine"));
    QTest::keyClick(window, Qt::Key_Return);
    QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(read().contains("TORQUE"));
    QCOMPARE(namesIn(group), QStringList{"SPEED"});
    QTest::keyClick(window, Qt::Key_W, Qt::ControlModifier);
    QTRY_VERIFY(!displayWindow->isVisible());

    QCOMPARE(namesIn(group), QStringList({"SPEED", "TORQUE"}));
    QCOMPARE(group.layout()->count(), 2);
    QVERIFY(!Display_QD_Window);
}

void GroupEditingTest::aClickOnEditDisplayLeadsToTheRebuiltGroup() {
    edit<ZelGroup>();
    init();
    edit<ZelGroup_fl>();
}

void GroupEditingTest::aNewGroupGetsItsFileFromTheEditor() {
    ZelGroup group;
    group.actions().at(1)->trigger();
    QVERIFY(QTest::qWaitForWindowActive(displayWindow));
    QVERIFY(displayWindow->windowTitle().startsWith("New group"));
    displayWindow->close();
    QVERIFY(!Display_QD_Window);
    QCOMPARE(group.getFileName(), QString());
}

OSTREL_TEST(GroupEditingTest)
#include "groupediting_test.moc"
