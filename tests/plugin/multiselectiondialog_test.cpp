// The table of variables, and the combo boxes that edit its cells.
#include "selection/multiselectiondialog.h"

#include <QCompleter>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QPointer>
#include <QTableWidget>

#include "qttests.h"
#include "selectiontest.h"

namespace {

QTableWidget* tableOf(const MultiSelectionDialog& dialog) {
    return dialog.findChild<QTableWidget*>("tableWidget");
}

// The editor of a cell, opened with a double click.
QComboBox* opened(QTableWidget* table, int row) {
    const QPoint place = table->visualItemRect(table->item(row, 0)).center();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    return table->viewport()->findChild<QComboBox*>();
}

}  // namespace

class MultiSelectionDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void theFormIsAsForUsersOfItsNames();
    void theColumnHasItsDelegate();
    void aCellIsEditedWithACompletingBox();
    void aTextThatIsNotInTheListSelectsNothing();
    void theButtonsAcceptAndReject_data();
    void theButtonsAcceptAndReject();
};

void MultiSelectionDialogTest::theFormIsAsForUsersOfItsNames() {
    const MultiSelectionDialog dialog(nullptr);
    QCOMPARE(dialog.objectName(), QString("MultiSelectionDialog"));
    QCOMPARE(dialog.windowTitle(), QString("Dialog"));
    QCOMPARE(dialog.size(), QSize(417, 262));
    const QDialog plain(nullptr, Qt::WindowFlags());
    QCOMPARE(dialog.windowFlags(), plain.windowFlags());
    const auto* table = tableOf(dialog);
    QCOMPARE(table->columnCount(), 1);
    QCOMPARE(table->rowCount(), 8);
    QCOMPARE(table->horizontalHeaderItem(0)->text(), QString("Variables"));
    QCOMPARE(table->horizontalHeader()->defaultSectionSize(), 150);
    QCOMPARE(table->verticalHeader()->defaultSectionSize(), 20);
    auto* grid = qobject_cast<QGridLayout*>(dialog.layout());
    QVERIFY(grid);
    QCOMPARE(grid->objectName(), QString("gridLayout"));
    QVERIFY(grid->indexOf(tableOf(dialog)) >= 0);
    QVERIFY(grid->indexOf(dialog.findChild<QDialogButtonBox*>("buttonBox")) >= 0);
}

void MultiSelectionDialogTest::theColumnHasItsDelegate() {
    auto dialog = std::make_unique<MultiSelectionDialog>(nullptr);
    const QPointer<ComboDelegate> delegate = qobject_cast<ComboDelegate*>(tableOf(*dialog)->itemDelegateForColumn(0));
    QVERIFY(delegate);
    QVERIFY(!delegate->parent());
    QComboBox box;
    box.addItems({"ONE", "TWO", "THREE"});
    QCOMPARE(delegate->sizeHint(QStyleOptionViewItem(), QModelIndex()), box.sizeHint());
    dialog.reset();
    QTRY_VERIFY(!delegate);
}

void MultiSelectionDialogTest::aCellIsEditedWithACompletingBox() {
    MultiSelectionDialog dialog(nullptr);
    auto* table = tableOf(dialog);
    table->setItem(2, 0, new QTableWidgetItem("TWO"));
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto* editor = opened(table, 2);
    QVERIFY(editor);
    QCOMPARE(itemsOf(editor), QStringList({"ONE", "TWO", "THREE"}));
    QVERIFY(editor->isEditable());
    QCOMPARE(editor->completer()->model(), editor->model());
    QCOMPARE(editor->currentIndex(), 1);
    retype(editor->lineEdit(), "own");
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(table->item(2, 0)->text(), QString("own"));
}

void MultiSelectionDialogTest::aTextThatIsNotInTheListSelectsNothing() {
    MultiSelectionDialog dialog(nullptr);
    auto* table = tableOf(dialog);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    int row = 0;
    for (const char* text : {"two", "TWO ", "TW", ""}) {
        table->setItem(row, 0, new QTableWidgetItem(text));
        auto* editor = opened(table, row);
        QVERIFY(editor);
        QCOMPARE(editor->currentIndex(), -1);
        QTest::keyClick(editor, Qt::Key_Escape);
        QTRY_VERIFY(!table->viewport()->findChild<QComboBox*>());
        ++row;
    }
}

void MultiSelectionDialogTest::theButtonsAcceptAndReject_data() {
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("result");
    QTest::newRow("Ok") << int{QDialogButtonBox::Ok} << int{QDialog::Accepted};
    QTest::newRow("Cancel") << int{QDialogButtonBox::Cancel} << int{QDialog::Rejected};
}

void MultiSelectionDialogTest::theButtonsAcceptAndReject() {
    QFETCH(int, button);
    QFETCH(int, result);
    MultiSelectionDialog dialog(nullptr);
    const Operator worker({[&](QWidget*) {
        auto* buttons = dialog.findChild<QDialogButtonBox*>("buttonBox");
        QTest::mouseClick(buttons->button(static_cast<QDialogButtonBox::StandardButton>(button)), Qt::LeftButton);
    }});
    QCOMPARE(dialog.exec(), result);
    QVERIFY(worker.isDone());
}

OSTREL_TEST(MultiSelectionDialogTest)
#include "multiselectiondialog_test.moc"
