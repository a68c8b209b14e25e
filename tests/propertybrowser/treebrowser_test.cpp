// The tree of properties: its rows, its editors under mouse and keys, and who may die first.
#include <qttreepropertybrowser.h>
#include <qtvariantproperty.h>

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>
#include <QVBoxLayout>

Q_DECLARE_METATYPE(QtBrowserItem*)
Q_DECLARE_METATYPE(QtProperty*)

namespace {

// A browser with one property of each kind that the cases need, on the screen.
class Window : public QWidget {
public:
    Window() {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(browser);
        manager = new QtVariantPropertyManager(this);
        factory = new QtVariantEditorFactory(this);
        browser->setFactoryForManager(manager, factory);
        group = manager->addProperty(QtVariantPropertyManager::groupTypeId(), "group");
        for (const auto& [type, name] : std::initializer_list<std::pair<int, const char*>>{{QVariant::Double, "real"},
                                                                                           {QVariant::String, "text"},
                                                                                           {QVariant::Bool, "truth"},
                                                                                           {QVariant::Point, "point"}})
            group->addSubProperty(manager->addProperty(type, name));
        browser->addProperty(group);
        resize(400, 400);
    }
    bool isReady() {
        show();
        activateWindow();
        return QTest::qWaitForWindowActive(this);
    }
    QTreeWidget* tree() const { return browser->findChild<QTreeWidget*>(); }
    QTreeWidgetItem* row(const QString& name) const {
        return tree()->findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }
    QtVariantProperty* property(const QString& name) const {
        for (QtProperty* candidate : manager->properties()) {
            if (candidate->propertyName() == name)
                return manager->variantProperty(candidate);
        }
        return nullptr;
    }
    void click(const QString& name, int column) const {
        const QPoint place(tree()->columnViewportPosition(column) + 50, tree()->visualItemRect(row(name)).center().y());
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }
    template <class Editor>
    Editor* editor() const {
        return tree()->viewport()->findChild<Editor*>();
    }

    QtTreePropertyBrowser* browser = new QtTreePropertyBrowser;
    QtVariantPropertyManager* manager = nullptr;
    QtVariantEditorFactory* factory = nullptr;
    QtVariantProperty* group = nullptr;
};

}  // namespace

class TreeBrowserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // What a QSignalSpy keeps.
    void initTestCase() {
        qRegisterMetaType<QtBrowserItem*>();
        qRegisterMetaType<QtProperty*>();
    }

    void defaults();
    void rowsFollowTheProperties();
    void aPropertyMayStandTwice();
    void newRowsStandOpen();
    void aClickInTheNameColumnOnlySelects();
    void typedNumbersAreAppliedWithReturn();
    void aVisitWithoutAChangeKeepsTheWholeNumber();
    void tabGoesOnToTheNextEditor();
    void escapeClosesTheEditorAndLeavesTheRowCurrent();
    void aBoxIsTickedByTheSecondBlank();
    void aManagerWithoutFactoryHasNoEditors();
    void aDisabledGroupDisablesItsRowsAndRestoresThem();
    void aDisabledRowClosesItsEditor();
    void theCurrentItemGoesWithItsRow();
    void aDeletedPropertyTakesItsEditorAlong();
    void anyOrderOfDestructionIsSafe();
};

void TreeBrowserTest::defaults() {
    QtTreePropertyBrowser browser;
    auto* tree = browser.findChild<QTreeWidget*>();
    QCOMPARE(browser.focusProxy(), tree);
    QCOMPARE(tree->headerItem()->text(0), QString("Property"));
    QCOMPARE(tree->headerItem()->text(1), QString("Value"));
    QVERIFY(browser.rootIsDecorated());
    QVERIFY(browser.alternatingRowColors());
    QVERIFY(browser.isHeaderVisible());
    QCOMPARE(browser.resizeMode(), QtTreePropertyBrowser::Stretch);
    QVERIFY(!browser.propertiesWithoutValueMarked());
    browser.setResizeMode(QtTreePropertyBrowser::Interactive);
    browser.setSplitterPosition(70);
    QCOMPARE(browser.splitterPosition(), 70);
}

void TreeBrowserTest::rowsFollowTheProperties() {
    Window window;
    QVERIFY(window.row("group")->isFirstColumnSpanned());
    window.property("text")->setPropertyName("note");
    window.property("note")->setValue("oil");
    QCOMPARE(window.row("note")->text(1), QString("oil"));
    QCOMPARE(window.row("note")->toolTip(0), QString("note"));
    window.group->removeSubProperty(window.property("note"));
    QVERIFY(!window.row("note"));
    window.group->insertSubProperty(window.property("note"), nullptr);
    QCOMPARE(window.row("group")->child(0)->text(0), QString("note"));
    window.property("note")->addSubProperty(window.group);
    QVERIFY(window.property("note")->subProperties().isEmpty());
    QVERIFY(!window.browser->addProperty(window.group));
}

void TreeBrowserTest::aPropertyMayStandTwice() {
    Window window;
    window.browser->addProperty(window.property("real"));
    QCOMPARE(window.browser->items(window.property("real")).size(), 2);
    window.browser->removeProperty(window.property("real"));
    QCOMPARE(window.browser->items(window.property("real")).size(), 1);
    QVERIFY(!window.browser->topLevelItem(window.property("real")));
}

void TreeBrowserTest::newRowsStandOpen() {
    Window window;
    QtBrowserItem* item = window.browser->topLevelItem(window.group);
    QVERIFY(window.browser->isExpanded(item));
    QSignalSpy collapsed(window.browser, &QtTreePropertyBrowser::collapsed);
    window.browser->setExpanded(item, false);
    window.browser->setExpanded(item, false);
    QCOMPARE(collapsed.size(), 1);
    window.browser->setExpanded(nullptr, true);
    QVERIFY(!window.browser->isExpanded(nullptr));
}

void TreeBrowserTest::aClickInTheNameColumnOnlySelects() {
    Window window;
    QVERIFY(window.isReady());
    window.click("text", 0);
    QCOMPARE(window.browser->currentItem()->property()->propertyName(), QString("text"));
    QVERIFY(window.row("text")->isSelected());
    QVERIFY(!window.editor<QLineEdit>());
    window.browser->setCurrentItem(nullptr);
    QVERIFY(window.tree()->selectedItems().isEmpty());
}

void TreeBrowserTest::typedNumbersAreAppliedWithReturn() {
    Window window;
    QVERIFY(window.isReady());
    QSignalSpy changes(window.manager, &QtVariantPropertyManager::valueChanged);
    window.click("real", 1);
    QTest::keyClicks(QApplication::focusWidget(), "2.5");
    QCOMPARE(changes.size(), 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(window.property("real")->value().toDouble(), 2.5);
    QTRY_VERIFY(!window.editor<QDoubleSpinBox>());
    QCOMPARE(QApplication::focusWidget(), window.tree());
}

void TreeBrowserTest::aVisitWithoutAChangeKeepsTheWholeNumber() {
    Window window;
    QVERIFY(window.isReady());
    window.property("real")->setValue(1.23456);
    QSignalSpy changes(window.manager, &QtVariantPropertyManager::valueChanged);
    window.click("real", 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(changes.size(), 0);
    QCOMPARE(window.property("real")->value().toDouble(), 1.23456);
}

void TreeBrowserTest::tabGoesOnToTheNextEditor() {
    Window window;
    QVERIFY(window.isReady());
    window.click("real", 1);
    QTest::keyClicks(QApplication::focusWidget(), "7");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(window.property("real")->value().toDouble(), 7.0);
    QTest::keyClicks(QApplication::focusWidget(), "ab");
    QCOMPARE(window.property("text")->value().toString(), QString("ab"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(window.browser->currentItem()->property(), window.property("real"));
}

void TreeBrowserTest::escapeClosesTheEditorAndLeavesTheRowCurrent() {
    Window window;
    QVERIFY(window.isReady());
    window.click("real", 1);
    QTest::keyClicks(QApplication::focusWidget(), "9");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QTRY_VERIFY(!window.editor<QDoubleSpinBox>());
    QCOMPARE(window.browser->currentItem()->property(), window.property("real"));
}

void TreeBrowserTest::aBoxIsTickedByTheSecondBlank() {
    Window window;
    QVERIFY(window.isReady());
    window.click("truth", 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QVERIFY(!window.property("truth")->value().toBool());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QVERIFY(window.property("truth")->value().toBool());
    QCOMPARE(window.row("truth")->text(1), QString("True"));
}

void TreeBrowserTest::aManagerWithoutFactoryHasNoEditors() {
    Window window;
    window.browser->unsetFactoryForManager(window.manager);
    QVERIFY(window.isReady());
    window.click("text", 1);
    QVERIFY(!window.editor<QLineEdit>());
    QVERIFY(window.factory->propertyManagers().isEmpty());
}

void TreeBrowserTest::aDisabledGroupDisablesItsRowsAndRestoresThem() {
    Window window;
    window.group->setEnabled(false);
    QVERIFY(window.row("X")->isDisabled());
    QVERIFY(window.property("X")->isEnabled());
    window.property("Y")->setEnabled(false);
    window.group->setEnabled(true);
    QVERIFY(!window.row("X")->isDisabled());
    QVERIFY(window.row("Y")->isDisabled());
}

void TreeBrowserTest::aDisabledRowClosesItsEditor() {
    Window window;
    QVERIFY(window.isReady());
    window.click("text", 1);
    QVERIFY(window.editor<QLineEdit>());
    window.property("text")->setEnabled(false);
    QTRY_VERIFY(!window.editor<QLineEdit>());
    window.property("text")->setValue("shown");
    QCOMPARE(window.row("text")->text(1), QString("shown"));
}

void TreeBrowserTest::theCurrentItemGoesWithItsRow() {
    Window window;
    window.browser->setCurrentItem(window.browser->items(window.property("X")).first());
    QSignalSpy changes(window.browser, &QtAbstractPropertyBrowser::currentItemChanged);
    delete window.group;
    QVERIFY(!window.browser->currentItem());
    QCOMPARE(changes.size(), 1);
    QVERIFY(window.browser->topLevelItems().isEmpty());
}

void TreeBrowserTest::aDeletedPropertyTakesItsEditorAlong() {
    Window window;
    QVERIFY(window.isReady());
    window.click("real", 1);
    QTest::keyClicks(QApplication::focusWidget(), "9");
    delete window.manager;
    QTRY_VERIFY(!window.editor<QDoubleSpinBox>());
    QVERIFY(window.browser->topLevelItems().isEmpty());
}

void TreeBrowserTest::anyOrderOfDestructionIsSafe() {
    QVector<int> order = {0, 1, 2};
    do {
        Window window;
        QVERIFY(window.isReady());
        window.click("text", 1);
        QVERIFY(window.editor<QLineEdit>());
        QObject* const objects[] = {window.browser, window.manager, window.factory};
        for (const int which : qAsConst(order))
            delete objects[which];
    } while (std::next_permutation(order.begin(), order.end()));
}

QTEST_MAIN(TreeBrowserTest)
#include "treebrowser_test.moc"
