// The dialog that chooses an input or output channel.
#include "selection/channelindexselectiondialog.h"

#include <QFormLayout>
#include <QLabel>

#include "qttests.h"
#include "selectiontest.h"

namespace {

// Analog inputs 0, 1 and 12, digital inputs 4 and 5.
void serveChannels() {
    scripted::Areas& areas = platform().areas();
    areas.serve();
    areas.attributes().logical_num_ai = 20;
    areas.attributes().logical_num_di = 6;
    for (const int slot : {0, 1, 12})
        areas.put<REAL_VARIABLE>(AI_REAL_MEM, slot, "AI");
    for (const int slot : {4, 5})
        areas.put<LOGICAL_VARIABLE>(DI_LOGI_MEM, slot, "DI");
}

struct Opened {
    explicit Opened(const QString& name = QString(), QT_OSTREL_FLAGS flags = QT_OSTREL_IO_MEM)
        : dialog(nullptr, flags, name) {
        dialog.show();
    }

    ChannelIndexSelectionDialog dialog;
    QComboBox* group = dialog.findChild<QComboBox*>("groupComboBox");
    QComboBox* index = dialog.findChild<QComboBox*>("indexComboBox");
};

}  // namespace

class ChannelIndexSelectionDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        startAsHost();
        serveChannels();
    }

    void theFormIsAsForUsersOfItsNames();
    void itOpensWithTheFirstGroup();
    void anIndexOfTheFirstGroupIsShown();
    void anIndexThatTheFirstGroupLacksKeepsRowZero();
    void anotherGroupHasIndexesOfItsOwn();
    void eachShowingReadsTheStore();
    void anEmptyCatalogueLeavesItEmpty();
    void theButtonsAcceptAndReject_data();
    void theButtonsAcceptAndReject();
    void withoutAStoreTheProcessEnds();
};

void ChannelIndexSelectionDialogTest::theFormIsAsForUsersOfItsNames() {
    ChannelIndexSelectionDialog dialog(nullptr, QT_OSTREL_IO_MEM, QString());
    QCOMPARE(dialog.objectName(), QString("ChannelIndexSelectionDialog"));
    QCOMPARE(dialog.windowTitle(), QString("Variable Selection"));
    // No flags of its own: a dialog as any other.
    QCOMPARE(dialog.windowFlags(), QDialog(nullptr, Qt::WindowFlags()).windowFlags());
    QCOMPARE(dialog.size(), QSize(416, 105));
    QCOMPARE(dialog.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QCOMPARE(dialog.styleSheet(), QString("background-color: rgb(244, 244, 244);\ncolor: rgb(0, 0, 0);"));
    QCOMPARE(dialog.layout()->objectName(), QString("horizontalLayout_5"));
    for (const char* layout : {"verticalLayout_3", "formLayout", "verticalLayout", "horizontalLayout"})
        QVERIFY2(dialog.findChild<QLayout*>(layout), layout);
    QCOMPARE(dialog.findChild<QLabel*>("label_3")->text(), QString("Group:"));
    QCOMPARE(dialog.findChild<QLabel*>("label_2")->text(), QString("Channel Index:"));
    const auto* group = dialog.findChild<QComboBox*>("groupComboBox");
    const auto* index = dialog.findChild<QComboBox*>("indexComboBox");
    for (const QComboBox* box : {group, index}) {
        QVERIFY(!box->isEditable());
        QCOMPARE(box->minimumWidth(), 150);
        QCOMPARE(box->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    }
    QCOMPARE(group->insertPolicy(), QComboBox::NoInsert);
    QCOMPARE(index->insertPolicy(), QComboBox::InsertAlphabetically);
    QCOMPARE(dialog.findChild<QPushButton*>("OkButton")->text(), QString("Ok"));
    QCOMPARE(dialog.findChild<QPushButton*>("Cancel")->text(), QString("Cancel"));
    QVERIFY(dialog.metaObject()->indexOfSlot("groupIndexChanged(QString)") >= 0);
}

void ChannelIndexSelectionDialogTest::itOpensWithTheFirstGroup() {
    const Opened opened;
    QCOMPARE(itemsOf(opened.group), QStringList({"Analog Inputs", "Digital Input (logical) "}));
    QCOMPARE(itemsOf(opened.index), QStringList({"0", "1", "12"}));
    QCOMPARE(opened.dialog.getSelectedVariableTypeText(), QString("Analog Inputs"));
    QCOMPARE(opened.dialog.getSelectedChannelIndexNumber(), QString("0"));
}

void ChannelIndexSelectionDialogTest::anIndexOfTheFirstGroupIsShown() {
    const Opened opened("12");
    QCOMPARE(opened.dialog.getSelectedChannelIndexNumber(), QString("12"));
}

void ChannelIndexSelectionDialogTest::anIndexThatTheFirstGroupLacksKeepsRowZero() {
    const Opened opened("5");
    QCOMPARE(opened.index->currentIndex(), 0);
    QCOMPARE(opened.dialog.getSelectedVariableTypeText(), QString("Analog Inputs"));
}

void ChannelIndexSelectionDialogTest::anotherGroupHasIndexesOfItsOwn() {
    const Opened opened("12");
    opened.group->setFocus();
    QTest::keyClick(opened.group, Qt::Key_Down);
    QCOMPARE(opened.dialog.getSelectedVariableTypeText(), QString("Digital Input (logical) "));
    QCOMPARE(itemsOf(opened.index), QStringList({"4", "5"}));
    QCOMPARE(opened.dialog.getSelectedChannelIndexNumber(), QString("4"));
    QTest::keyClick(opened.group, Qt::Key_Up);
    QCOMPARE(itemsOf(opened.index), QStringList({"0", "1", "12"}));
}

void ChannelIndexSelectionDialogTest::eachShowingReadsTheStore() {
    Opened opened;
    opened.dialog.hide();
    platform().areas().put<REAL_VARIABLE>(AI_REAL_MEM, 3, "AI");
    platform().forgetCalls();
    opened.dialog.show();
    QCOMPARE(platform().calls({"link_to_memory"}).size(), 1);
    QCOMPARE(itemsOf(opened.group).size(), 2);
    QCOMPARE(itemsOf(opened.index), QStringList({"0", "1", "3", "12"}));
}

void ChannelIndexSelectionDialogTest::anEmptyCatalogueLeavesItEmpty() {
    const Opened opened("12", QT_OSTREL_ARRAY);
    QCOMPARE(opened.group->count() + opened.index->count(), 0);
    QCOMPARE(opened.dialog.getSelectedVariableTypeText(), QString());
    QCOMPARE(opened.dialog.getSelectedChannelIndexNumber(), QString());
}

void ChannelIndexSelectionDialogTest::theButtonsAcceptAndReject_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("result");
    QTest::newRow("Ok") << "OkButton" << int{QDialog::Accepted};
    QTest::newRow("Cancel") << "Cancel" << int{QDialog::Rejected};
}

void ChannelIndexSelectionDialogTest::theButtonsAcceptAndReject() {
    QFETCH(QString, button);
    QFETCH(int, result);
    ChannelIndexSelectionDialog dialog(nullptr, QT_OSTREL_IO_MEM, QString());
    const Operator worker(
        {[&](QWidget*) { QTest::mouseClick(dialog.findChild<QPushButton*>(button), Qt::LeftButton); }});
    QCOMPARE(dialog.exec(), result);
    QVERIFY(worker.isDone());
}

void ChannelIndexSelectionDialogTest::withoutAStoreTheProcessEnds() {
    QCOMPARE(outputWithoutAStore("chooseAnIndexWithoutAStore"),
             QByteArray("\n Ostrel must be running to use this command\n"));
}

static int chooseAnIndexWithoutAStore(int argc, char** argv) {
    const QApplication application(argc, argv);
    startAsHost();
    ChannelIndexSelectionDialog dialog(nullptr, QT_OSTREL_IO_MEM, QString());
    dialog.show();
    return 3;
}

OSTREL_TEST_CHILD(chooseAnIndexWithoutAStore)
OSTREL_TEST(ChannelIndexSelectionDialogTest)
#include "channelindexselectiondialog_test.moc"
