// The tree of properties: its rows, its editors under mouse and keys, and who may die first.
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QImage>
#include <QSignalSpy>

#include "browserwindow.h"
#include "qttests.h"

Q_DECLARE_METATYPE(QtBrowserItem*)
Q_DECLARE_METATYPE(QtProperty*)

namespace {

// The row as it is painted, over both columns.
QImage picture(const Window& window, const QString& name) {
    QWidget* viewport = window.tree()->viewport();
    const QRect row = window.tree()->visualItemRect(window.row(name));
    return viewport->grab(QRect(0, row.top(), viewport->width(), row.height())).toImage();
}

// The colour in the middle of the row's right end, where no text stands.
QColor rightEnd(const Window& window, const QString& name) {
    const QImage row = picture(window, name);
    return row.pixelColor(row.width() - 4, row.height() / 2);
}

// How much of the picture is text.
int ink(const QImage& image) {
    int sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            sum += 255 - qGray(image.pixel(x, y));
    return sum;
}

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
    void propertiesAreInsertedFirstAndBehindOthers();
    void resizeModesAreThoseOfTheHeader_data();
    void resizeModesAreThoseOfTheHeader();
    void newRowsStandOpen();
    void expandingIsToldOnce();
    void aRowIsHidden();
    void aBackgroundColourIsInherited();
    void aBackgroundColourIsPainted();
    void aModifiedRowIsBold();
    void tipsStandInTheColumnsTheyBelongTo();
    void rowsWithoutAValueAreMarked();
    void aMarkedRowFoldsAtItsMark();
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

void TreeBrowserTest::propertiesAreInsertedFirstAndBehindOthers() {
    Window window;
    const auto shown = [&] {
        QStringList names;
        for (const QtBrowserItem* item : window.browser->topLevelItems())
            names.append(item->property()->propertyName());
        QStringList rows;
        for (int i = 0; i < window.tree()->topLevelItemCount(); ++i)
            rows.append(window.tree()->topLevelItem(i)->text(0));
        return rows == names ? names : QStringList{"rows that differ from the items"};
    };
    QtBrowserItem* first = window.browser->insertProperty(window.property("real"), nullptr);
    QVERIFY(first);
    QCOMPARE(first->property(), window.property("real"));
    QCOMPARE(shown(), QStringList({"real", "group"}));
    QVERIFY(window.browser->insertProperty(window.property("text"), window.property("real")));
    QCOMPARE(shown(), QStringList({"real", "text", "group"}));
    QVERIFY(window.browser->insertProperty(window.property("truth"), window.group));
    QCOMPARE(shown(), QStringList({"real", "text", "group", "truth"}));
    // Each stands there once.
    QVERIFY(!window.browser->insertProperty(window.property("real"), window.group));
    QVERIFY(!window.browser->insertProperty(nullptr, nullptr));
    QCOMPARE(shown(), QStringList({"real", "text", "group", "truth"}));
    QCOMPARE(window.browser->properties().size(), 4);
}

void TreeBrowserTest::resizeModesAreThoseOfTheHeader_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("ofHeader");
    QTest::newRow("interactive") << int{QtTreePropertyBrowser::Interactive} << int{QHeaderView::Interactive};
    QTest::newRow("stretch") << int{QtTreePropertyBrowser::Stretch} << int{QHeaderView::Stretch};
    QTest::newRow("fixed") << int{QtTreePropertyBrowser::Fixed} << int{QHeaderView::Fixed};
    QTest::newRow("contents") << int{QtTreePropertyBrowser::ResizeToContents} << int{QHeaderView::ResizeToContents};
}

void TreeBrowserTest::resizeModesAreThoseOfTheHeader() {
    QFETCH(int, mode);
    QFETCH(int, ofHeader);
    Window window;
    window.browser->setResizeMode(static_cast<QtTreePropertyBrowser::ResizeMode>(mode));
    QCOMPARE(int{window.browser->resizeMode()}, mode);
    for (const int column : {0, 1})
        QCOMPARE(int{window.tree()->header()->sectionResizeMode(column)}, ofHeader);
    const QMetaObject& meta = QtTreePropertyBrowser::staticMetaObject;
    QCOMPARE(meta.enumerator(meta.indexOfEnumerator("ResizeMode")).valueToKey(mode),
             QTest::currentDataTag() == QByteArray("contents") ? "ResizeToContents"
             : mode == 0                                       ? "Interactive"
             : mode == 1                                       ? "Stretch"
                                                               : "Fixed");
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

void TreeBrowserTest::expandingIsToldOnce() {
    Window window;
    QVERIFY(window.isReady());
    QtBrowserItem* item = window.browser->topLevelItem(window.group);
    QSignalSpy expanded(window.browser, &QtTreePropertyBrowser::expanded);
    window.browser->setExpanded(item, true);
    QCOMPARE(expanded.size(), 0);
    window.browser->setExpanded(item, false);
    window.browser->setExpanded(item, true);
    window.browser->setExpanded(item, true);
    QCOMPARE(expanded.size(), 1);
    QCOMPARE(expanded.first().first().value<QtBrowserItem*>(), item);
    // And by keys.
    window.browser->setCurrentItem(item);
    QTest::keyClick(window.tree(), Qt::Key_Left);
    QVERIFY(!window.browser->isExpanded(item));
    QTest::keyClick(window.tree(), Qt::Key_Right);
    QVERIFY(window.browser->isExpanded(item));
    QCOMPARE(expanded.size(), 2);
}

void TreeBrowserTest::aRowIsHidden() {
    Window window;
    QtBrowserItem* item = window.browser->topLevelItem(window.group);
    QtBrowserItem* child = window.browser->items(window.property("text")).first();
    QVERIFY(window.browser->isItemVisible(item));
    window.browser->setItemVisible(item, false);
    QVERIFY(!window.browser->isItemVisible(item));
    QVERIFY(window.row("group")->isHidden());
    // The row's own state, whatever stands above it.
    QVERIFY(window.browser->isItemVisible(child));
    window.browser->setItemVisible(child, false);
    window.browser->setItemVisible(item, true);
    QVERIFY(window.browser->isItemVisible(item));
    QVERIFY(!window.row("group")->isHidden());
    QVERIFY(window.row("text")->isHidden());
    window.browser->setItemVisible(nullptr, true);
    QVERIFY(!window.browser->isItemVisible(nullptr));
}

void TreeBrowserTest::aBackgroundColourIsInherited() {
    Window window;
    QtTreePropertyBrowser& browser = *window.browser;
    QtBrowserItem* group = browser.topLevelItem(window.group);
    QtBrowserItem* point = browser.items(window.property("point")).first();
    QtBrowserItem* x = browser.items(window.property("X")).first();
    QVERIFY(!browser.calculatedBackgroundColor(x).isValid());
    browser.setBackgroundColor(group, Qt::red);
    QCOMPARE(browser.backgroundColor(group), QColor(Qt::red));
    QVERIFY(!browser.backgroundColor(x).isValid());
    QCOMPARE(browser.calculatedBackgroundColor(x), QColor(Qt::red));
    browser.setBackgroundColor(point, Qt::blue);
    QCOMPARE(browser.calculatedBackgroundColor(x), QColor(Qt::blue));
    browser.setBackgroundColor(x, Qt::green);
    QCOMPARE(browser.calculatedBackgroundColor(x), QColor(Qt::green));
    browser.setBackgroundColor(x, QColor());
    browser.setBackgroundColor(point, QColor());
    QVERIFY(!browser.backgroundColor(point).isValid());
    QCOMPARE(browser.calculatedBackgroundColor(x), QColor(Qt::red));
}

void TreeBrowserTest::aBackgroundColourIsPainted() {
    Window window;
    QVERIFY(window.isReady());
    window.browser->setAlternatingRowColors(false);
    const QColor colour(200, 100, 50);
    window.browser->setBackgroundColor(window.browser->items(window.property("point")).first(), colour);
    QVERIFY(rightEnd(window, "text") != colour);
    for (const char* row : {"point", "X", "Y"})
        QCOMPARE(rightEnd(window, row), colour);
    window.browser->setAlternatingRowColors(true);
    const QColor lighter = colour.lighter(112);
    const bool isFirstLighter = rightEnd(window, "X") == lighter;
    QCOMPARE(rightEnd(window, "X"), isFirstLighter ? lighter : colour);
    QCOMPARE(rightEnd(window, "Y"), isFirstLighter ? colour : lighter);
}

void TreeBrowserTest::aModifiedRowIsBold() {
    Window window;
    QVERIFY(window.isReady());
    for (const char* name : {"truth", "group"}) {
        const QImage before = picture(window, name);
        window.property(name)->setModified(true);
        const QImage modified = picture(window, name);
        QVERIFY2(ink(modified) > ink(before), name);
        window.property(name)->setModified(false);
        QCOMPARE(picture(window, name), before);
    }
    // The value is as before, and so is the font that others see.
    window.property("text")->setValue("oil");
    const int width = window.tree()->columnViewportPosition(1);
    const auto value = [&] { return picture(window, "text").copy(width, 0, width, 100); };
    const QImage before = value();
    window.property("text")->setModified(true);
    QCOMPARE(value(), before);
    QVERIFY(!window.row("text")->font(0).bold());
}

void TreeBrowserTest::tipsStandInTheColumnsTheyBelongTo() {
    Window window;
    QtVariantProperty* text = window.property("text");
    text->setToolTip("what the gauge is called");
    text->setStatusTip("status");
    text->setWhatsThis("this is");
    QCOMPARE(window.row("text")->toolTip(0), QString("text"));
    QCOMPARE(window.row("text")->toolTip(1), QString("what the gauge is called"));
    QCOMPARE(window.row("text")->statusTip(0), QString("status"));
    QCOMPARE(window.row("text")->whatsThis(0), QString("this is"));
    text->setToolTip(QString());
    QVERIFY(window.row("text")->toolTip(1) != "what the gauge is called");
}

void TreeBrowserTest::rowsWithoutAValueAreMarked() {
    Window window;
    QVERIFY(window.isReady());
    window.browser->setAlternatingRowColors(false);
    const QColor dark(window.tree()->palette().color(QPalette::Dark).rgb());
    const QColor plain(window.tree()->palette().color(QPalette::Base).rgb());
    QCOMPARE(rightEnd(window, "group"), plain);
    window.browser->setPropertiesWithoutValueMarked(true);
    QVERIFY(window.browser->propertiesWithoutValueMarked());
    QCOMPARE(rightEnd(window, "group"), dark);
    QCOMPARE(rightEnd(window, "text"), plain);
    window.browser->setPropertiesWithoutValueMarked(false);
    QCOMPARE(rightEnd(window, "group"), plain);
}

void TreeBrowserTest::aMarkedRowFoldsAtItsMark() {
    Window window;
    QVERIFY(window.isReady());
    QtBrowserItem* item = window.browser->topLevelItem(window.group);
    const auto clickAt = [&](int x) {
        const QPoint place(x, window.tree()->visualItemRect(window.row("group")).center().y());
        QTest::mouseClick(window.tree()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    };
    window.browser->setRootIsDecorated(false);
    clickAt(10);
    QVERIFY(window.browser->isExpanded(item));
    const QImage unmarked = picture(window, "group");
    window.browser->setPropertiesWithoutValueMarked(true);
    QVERIFY(picture(window, "group") != unmarked);
    clickAt(40);
    QVERIFY(window.browser->isExpanded(item));
    clickAt(10);
    QVERIFY(!window.browser->isExpanded(item));
    clickAt(10);
    QVERIFY(window.browser->isExpanded(item));
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

OSTREL_TEST(TreeBrowserTest)
#include "treebrowser_test.moc"
