// The dialog that chooses units.
#include "selection/unitsdialog.h"

#include <QCompleter>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLayout>

#include "qttests.h"
#include "selectiontest.h"

class UnitsDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void theFormIsAsForUsersOfItsNames();
    void theListIsReplacedAndItsFirstChosen();
    void nothingElseCanBeTyped();
    void theButtonsAcceptAndReject_data();
    void theButtonsAcceptAndReject();
};

void UnitsDialogTest::theFormIsAsForUsersOfItsNames() {
    UnitsDialog dialog(nullptr);
    QCOMPARE(dialog.objectName(), QString("UnitsDialog"));
    QCOMPARE(dialog.windowTitle(), QString("Enter Units"));
    QCOMPARE(int(dialog.windowFlags() & Qt::WindowType_Mask), 9);
    const QDialog popup(nullptr, Qt::WindowFlags(9));
    QCOMPARE(dialog.windowFlags(), popup.windowFlags());
    QCOMPARE(dialog.size(), QSize(198, 110));
    QCOMPARE(dialog.minimumSize(), QSize(178, 96));
    QCOMPARE(dialog.styleSheet(), QString("QDialog#UnitsDialog {\n  \tbackground-color: rgb(244, 244, 244);\n}"));
    QCOMPARE(dialog.layout()->objectName(), QString("verticalLayout_2"));
    QCOMPARE(dialog.findChild<QLayout*>("verticalLayout")->spacing(), 7);
    QCOMPARE(dialog.findChild<QLabel*>("label")->text(), QString("Enter new units:"));
    const auto* box = dialog.findChild<QComboBox*>("comboBox");
    QVERIFY(box->isEditable() && box->lineEdit()->isReadOnly());
    QCOMPARE(box->styleSheet(),
             QString("\nQComboBox#comboBox {\tbackground-color: rgb(232, 231, 230);}\nQComboBox#comboBox "
                     "QAbstractItemView {\n    selection-background-color: rgb(48, 140, 198);\n\tbackground-color: "
                     "rgb(232, 231, 230)\n}"));
    const auto* buttons = dialog.findChild<QDialogButtonBox*>("buttonBox");
    QCOMPARE(buttons->orientation(), Qt::Horizontal);
    QCOMPARE(buttons->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QVERIFY(dialog.metaObject()->indexOfSlot("setItems(QStringList)") >= 0);
}

void UnitsDialogTest::theListIsReplacedAndItsFirstChosen() {
    UnitsDialog dialog(nullptr);
    QCOMPARE(dialog.value(), QString());
    dialog.setItems({"RPM", "RPS"});
    dialog.setItems({"default", "N.m", "ft.lbf"});
    const auto* box = dialog.findChild<QComboBox*>("comboBox");
    QCOMPARE(itemsOf(box), QStringList({"default", "N.m", "ft.lbf"}));
    QCOMPARE(dialog.value(), QString("default"));
    QCOMPARE(box->completer()->model(), box->model());
}

void UnitsDialogTest::nothingElseCanBeTyped() {
    UnitsDialog dialog(nullptr);
    dialog.setItems({"N.m", "ft.lbf"});
    auto* box = dialog.findChild<QComboBox*>("comboBox");
    QTest::keyClicks(box->lineEdit(), "kg");
    QCOMPARE(dialog.value(), QString("N.m"));
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(dialog.value(), QString("ft.lbf"));
}

void UnitsDialogTest::theButtonsAcceptAndReject_data() {
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("result");
    QTest::newRow("Ok") << int{QDialogButtonBox::Ok} << int{QDialog::Accepted};
    QTest::newRow("Cancel") << int{QDialogButtonBox::Cancel} << int{QDialog::Rejected};
}

void UnitsDialogTest::theButtonsAcceptAndReject() {
    QFETCH(int, button);
    QFETCH(int, result);
    UnitsDialog dialog(nullptr);
    const Operator worker({[&](QWidget*) {
        auto* buttons = dialog.findChild<QDialogButtonBox*>("buttonBox");
        QTest::mouseClick(buttons->button(static_cast<QDialogButtonBox::StandardButton>(button)), Qt::LeftButton);
    }});
    QCOMPARE(dialog.exec(), result);
    QVERIFY(worker.isDone());
}

OSTREL_TEST(UnitsDialogTest)
#include "unitsdialog_test.moc"
