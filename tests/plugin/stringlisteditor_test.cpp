// The dialog that edits a list of texts.
#include "valuemanager/StringListEditor/StringListEditor.h"

#include <QDialogButtonBox>
#include <QFrame>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolButton>
#include <memory>

#include "qttests.h"

class StringListEditorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_dialog.reset(); }

    void itsForm();
    void itShowsTheTextsAndTheFirstIsCurrent();
    void newStandsBehindTheCurrentOne();
    void newInAnEmptyListIsTheFirst();
    void newIsTypedInItsPlace();
    void onlyNewOnesCanBeTyped();
    void deleteMakesTheNextOneCurrent();
    void deletingTheOnlyOneLeavesNothingToDo();
    void upAndDownStopAtTheEnds();
    void selectingFromOutsideTellsNobody();
    void theKeysOfTheDialog();
    void asAPartOfAWindowItLeavesKeysToTheWindow();

private:
    void open(QStringList texts) {
        m_dialog = std::make_unique<StringListEditor>(&texts, nullptr);
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
    }
    QToolButton* button(const char* name) const { return m_dialog->findChild<QToolButton*>(name); }
    void click(const char* name) const { QTest::mouseClick(button(name), Qt::LeftButton); }
    QString enabled() const {
        QString letters;
        for (const char* name : {"deleteListItemButton", "moveListItemUpButton", "moveListItemDownButton"})
            letters += button(name)->isEnabled() ? button(name)->text().remove('&').at(0) : QLatin1Char('-');
        return letters;
    }
    void select(int row) const { m_dialog->listWidget()->setCurrentRow(row); }
    int current() const { return m_dialog->listWidget()->currentRow(); }

    std::unique_ptr<StringListEditor> m_dialog;
};

void StringListEditorTest::itsForm() {
    open({"a"});
    QCOMPARE(m_dialog->windowTitle(), QString("Edit Combobox"));
    QVERIFY(!(m_dialog->windowFlags() & Qt::WindowContextHelpButtonHint));
    QCOMPARE(m_dialog->listWidget()->toolTip(), QString("Items List"));
    QStringList texts;
    for (const char* name :
         {"newListItemButton", "deleteListItemButton", "moveListItemUpButton", "moveListItemDownButton"})
        texts.append(button(name)->text() + '|' + button(name)->toolTip());
    QCOMPARE(texts, QStringList({"&New|New Item", "&Delete|Delete Item", "U|Move Item Up", "D|Move Item Down"}));
    bool hasLine = false;
    for (const QFrame* frame : m_dialog->findChildren<QFrame*>(QString(), Qt::FindDirectChildrenOnly))
        hasLine = hasLine || frame->frameStyle() == 52;
    QVERIFY(hasLine);
    QCOMPARE(m_dialog->findChild<QDialogButtonBox*>()->standardButtons(),
             QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QCOMPARE(m_dialog->newItemText(), QString("New Item"));
}

void StringListEditorTest::itShowsTheTextsAndTheFirstIsCurrent() {
    QStringList texts{"b", "", "a", "b"};
    m_dialog = std::make_unique<StringListEditor>(&texts, nullptr);
    QCOMPARE(m_dialog->contents(), texts);
    QCOMPARE(current(), 0);
    QCOMPARE(enabled(), QString("D-D"));
    open({});
    QCOMPARE(m_dialog->contents(), QStringList());
    QCOMPARE(enabled(), QString("---"));
}

void StringListEditorTest::newStandsBehindTheCurrentOne() {
    open({"a", "b"});
    m_dialog->setNewItemText("fresh");
    QSignalSpy inserted(m_dialog.get(), &StringListEditor::itemInserted);
    click("newListItemButton");
    QCOMPARE(m_dialog->contents(), QStringList({"a", "fresh", "b"}));
    QCOMPARE(inserted.takeFirst().at(0).toInt(), 1);
    QCOMPARE(current(), 1);
    QCOMPARE(m_dialog->listWidget()->item(1)->data(27).toString(), QString("fresh"));
    select(2);
    click("newListItemButton");
    QCOMPARE(m_dialog->contents(), QStringList({"a", "fresh", "b", "fresh"}));
    QCOMPARE(inserted.takeFirst().at(0).toInt(), 3);
}

void StringListEditorTest::newInAnEmptyListIsTheFirst() {
    open({});
    QSignalSpy inserted(m_dialog.get(), &StringListEditor::itemInserted);
    click("newListItemButton");
    QCOMPARE(m_dialog->contents(), QStringList{"New Item"});
    QCOMPARE(inserted.takeFirst().at(0).toInt(), 0);
    QCOMPARE(enabled(), QString("D--"));
}

void StringListEditorTest::newIsTypedInItsPlace() {
    open({"a"});
    QSignalSpy changed(m_dialog.get(), &StringListEditor::itemChanged);
    click("newListItemButton");
    auto* field = m_dialog->listWidget()->findChild<QLineEdit*>();
    QVERIFY(field);
    QTest::keyClicks(field, "typed");
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_COMPARE(m_dialog->contents(), QStringList({"a", "typed"}));
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed[0].at(0).toInt(), 1);
    QCOMPARE(changed[0].at(1).toInt(), 27);
    QCOMPARE(changed[0].at(2).toString(), QString("typed"));
}

void StringListEditorTest::onlyNewOnesCanBeTyped() {
    open({"a"});
    click("newListItemButton");
    const QListWidget* list = m_dialog->listWidget();
    QVERIFY(!(list->item(0)->flags() & Qt::ItemIsEditable));
    QVERIFY(list->item(1)->flags() & Qt::ItemIsEditable);
}

void StringListEditorTest::deleteMakesTheNextOneCurrent() {
    open({"a", "b", "c"});
    QSignalSpy deleted(m_dialog.get(), &StringListEditor::itemDeleted);
    select(1);
    click("deleteListItemButton");
    QCOMPARE(m_dialog->contents(), QStringList({"a", "c"}));
    QCOMPARE(current(), 1);
    click("deleteListItemButton");
    QCOMPARE(m_dialog->contents(), QStringList{"a"});
    QCOMPARE(current(), 0);
    QCOMPARE(enabled(), QString("D--"));
    QCOMPARE(deleted.count(), 2);
    QCOMPARE(deleted[1].at(0).toInt(), 1);
    open({"a", "b", "c"});
    select(0);
    click("deleteListItemButton");
    QCOMPARE(current(), 0);
    QCOMPARE(enabled(), QString("D-D"));
}

void StringListEditorTest::deletingTheOnlyOneLeavesNothingToDo() {
    open({"a"});
    click("deleteListItemButton");
    QCOMPARE(m_dialog->contents(), QStringList());
    QCOMPARE(enabled(), QString("---"));
}

void StringListEditorTest::upAndDownStopAtTheEnds() {
    open({"a", "b", "c"});
    QSignalSpy up(m_dialog.get(), &StringListEditor::itemMovedUp);
    QSignalSpy down(m_dialog.get(), &StringListEditor::itemMovedDown);
    QCOMPARE(enabled(), QString("D-D"));
    click("moveListItemUpButton");
    QCOMPARE(m_dialog->contents(), QStringList({"a", "b", "c"}));
    click("moveListItemDownButton");
    QCOMPARE(m_dialog->contents(), QStringList({"b", "a", "c"}));
    QCOMPARE(current(), 1);
    QCOMPARE(down.takeFirst().at(0).toInt(), 0);
    QCOMPARE(enabled(), QString("DUD"));
    click("moveListItemDownButton");
    QCOMPARE(current(), 2);
    QCOMPARE(enabled(), QString("DU-"));
    click("moveListItemDownButton");
    QCOMPARE(m_dialog->contents(), QStringList({"b", "c", "a"}));
    click("moveListItemUpButton");
    QCOMPARE(m_dialog->contents(), QStringList({"b", "a", "c"}));
    QCOMPARE(up.count(), 1);
    QCOMPARE(up[0].at(0).toInt(), 2);
}

void StringListEditorTest::selectingFromOutsideTellsNobody() {
    open({"a", "b", "c"});
    QSignalSpy indices(m_dialog.get(), &StringListEditor::indexChanged);
    m_dialog->setCurrentIndex(2);
    QCOMPARE(current(), 2);
    QCOMPARE(indices.count(), 0);
    QCOMPARE(enabled(), QString("DU-"));
    select(1);
    QCOMPARE(indices.count(), 1);
    QCOMPARE(indices[0].at(0).toInt(), 1);
}

void StringListEditorTest::theKeysOfTheDialog() {
    open({"a"});
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    open({"a"});
    QTest::mouseClick(m_dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
}

void StringListEditorTest::asAPartOfAWindowItLeavesKeysToTheWindow() {
    QStringList texts{"a"};
    QWidget window;
    auto* part = new StringListEditor(&texts, &window);
    part->setWindowFlags(Qt::Widget);
    window.show();
    part->show();
    QTest::keyClick(part, Qt::Key_Escape);
    QVERIFY(part->isVisible());
}

OSTREL_TEST(StringListEditorTest)
#include "stringlisteditor_test.moc"
