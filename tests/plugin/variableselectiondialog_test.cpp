// The dialog that chooses a variable: what it offers, what it opens with, and what follows the operator's hand.
#include "selection/variableselectiondialog.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFormLayout>
#include <QLabel>
#include <QSignalSpy>
#include <memory>

#include "qttests.h"
#include "selectiontest.h"

namespace {

QT_OSTREL_VAR_TYPE filter(int flags) {
    return QT_OSTREL_VAR_TYPE(QFlag(flags));
}

// A dialog with its boxes, below a widget at a known place.
class Opened {
public:
    explicit Opened(const QString& name = QString(), int flags = QT_OSTREL_ANY)
        : dialog(std::make_unique<VariableSelectionDialog>(&parent, filter(flags), name)),
          group(dialog->findChild<QComboBox*>("groupComboBox")),
          variable(dialog->findChild<QComboBox*>("variableComboBox")),
          member(dialog->findChild<QComboBox*>("subComboBox")) {
        parent.setGeometry(100, 80, 200, 100);
        parent.show();
        dialog->show();
    }

    void type(const QString& text) { retype(variable->lineEdit(), text); }
    bool offers(const QStringList& members) const {
        return itemsOf(member) == members && member->isEnabled() == !members.isEmpty();
    }

    QWidget parent;
    std::unique_ptr<VariableSelectionDialog> dialog;
    QComboBox* group;
    QComboBox* variable;
    QComboBox* member;
};

QStringList members(const char* texts) {
    return QString::fromLatin1(texts).split(' ');
}

const QStringList statMembers =
    members("AV MN MX RN SD C0 IV FV DL E0 CI I0 I5 I9 ME MD RM ST EN TN TX C1 IN IT RS CV E1 RA NM SE RC QF NR");
const QStringList compMembers = members(
    "H2 CO O2 WA C2 N2 NX AR AM ME EE PR NB IB NP IP HX HE OC NN HS H2S MTM ETM DMS IPM TBM MES NPM SBM DES THT NM OM "
    "HM CM NA OA HA CA NF OF HF CF FA OL SA UT MM");
const QStringList propMembers = members(
    "AT AP CP CV GM TH GC ER SR HV HU ET VS RE DD ID IR CM DW AH VP WD EA LM LV HM HH WL WH MR ML MT MO KE KT KP HC RD "
    "RW IE OT CU CI DS LH DE UT");
const QStringList emisMembers = members(
    "FUEL_MF_MEA AIR_MF_MEA EXH_MF_MEA EXH_CD_CO2_MEA EXH_CD_O2_MEA EXH_CD_CO_MEA EXH_CD_NOX_MEA EXH_CW_HC_MEA "
    "EXH_CW_NOX_MEA FUEL_MW AIR_MF_DRY CD_CO2_TH CD_O2_TH DRY_TO_WET_TH CW_CO2_G1 CW_CO_G1 CW_NOX_G1 CW_HC_G1 MF_CO2 "
    "MF_CO MF_NOX MF_HC MW_HC CBE CBE_CO2 AFDE_O2 AFDE_CO2 BSCO2_G1 BSCO_G1 BSNOX_G1 BSHC_G1 NOX_COR_G1 BSNOX_COR_G1 "
    "FSCO2_G1 FSCO_G1 FSNOX_G1 FSHC_G1 FA_WET DRY_WET_I1 EXH_CW_CO2_I1 EXH_CW_CO_I1 EXH_CW_NOX_I1 EXH_CW_HC_I1 "
    "EXH_MF_CO2_I1 EXH_MF_CO_I1 EXH_MF_NOX_I1 EXH_MF_HC_I1 BSCO2_I1 BSCO_I1 BSNOX_I1 BSHC_I1 NOX_COR_I1 BSNOX_COR_I1 "
    "PSEUDO_PHI CO2_ERR O2_ERR UT");
const QStringList everything = {"AIR.", "EMI.", "GAS.", "MAP", "N", "RUN", "SPEED", "TRQ.", "torque"};

int walks() {
    return platform().calls({"link_to_memory"}).size();
}

}  // namespace

class VariableSelectionDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        startAsHost();
        Ostrel_Plugins_Master_variables_dirty = true;
        serveSmallStore();
    }

    void aMemberNameWithNoMembersPublishedLeavesTheMemberBoxEmpty();
    void theFormIsAsForUsersOfItsNames();
    void theMetaObjectHasItsSignalsAndSlots();

    void itOpensBelowItsParentWithAllVariables();
    void itOpensBelowItsParentWhereverThatStands_data();
    void itOpensBelowItsParentWhereverThatStands();
    void itOpensWhereItStandsWithoutAParent();
    void aSecondShowingStartsAgain();
    void anEmptyNameShowsNothing();
    void anUnknownNameShowsNothing_data();
    void anUnknownNameShowsNothing();
    void aNameInTheListIsShown();
    void aNameWithIndexesIsShownWhole();
    void aNameWithMemberIsShownInTwoBoxes();

    void aGroupNarrowsTheListAndAllWidensIt();
    void theFirstGroupOfInputsStandsForAllOfThem();
    void theListIsSortedAgainAfterEachChoice();

    void typingOffersTheMembers_data();
    void typingOffersTheMembers();
    void aFilterWithoutMembersNeverOffersThem();
    void anEmptyBoxKeepsTheMembers();
    void underAnyTheUnitsAreAskedFor();
    void theKindsAreTriedInOrder();
    void textThatIsNoNameCannotBeTyped_data();
    void textThatIsNoNameCannotBeTyped();
    void theCompleterOffersMatchingNames();
    void theIndexIsThatOfTheNameBeforeItsColon_data();
    void theIndexIsThatOfTheNameBeforeItsColon();

    void okAcceptsWhateverTheText();
    void cancelAndClosingReject_data();
    void cancelAndClosingReject();

    void theCatalogueIsReadOncePerFilter();
    void aReconfigurationMakesTheNextDialogReadAgain();
    void theEndOfAnotherStateDoesNot();
    void withoutAStoreTheProcessEnds();
};

// The first case: nothing has published members in this process yet.
void VariableSelectionDialogTest::aMemberNameWithNoMembersPublishedLeavesTheMemberBoxEmpty() {
    const Opened opened("TRQ.AV");
    QCOMPARE(opened.variable->currentText(), QString("TRQ."));
    QVERIFY(opened.offers({}));
}

void VariableSelectionDialogTest::theFormIsAsForUsersOfItsNames() {
    const Opened opened;
    VariableSelectionDialog& dialog = *opened.dialog;
    QCOMPARE(dialog.objectName(), QString("VariableSelectionDialog"));
    QCOMPARE(dialog.windowTitle(), QString("Variable Selection"));
    QCOMPARE(int(dialog.windowFlags() & Qt::WindowType_Mask), 7);
    const QDialog drawer(nullptr, Qt::WindowFlags(7));
    QCOMPARE(dialog.windowFlags(), drawer.windowFlags());
    QVERIFY(dialog.isModal());
    QVERIFY(!dialog.isSizeGripEnabled());
    QCOMPARE(dialog.size(), QSize(375, 162));
    QCOMPARE(dialog.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QCOMPARE(dialog.styleSheet(),
             QString("QDialog#VariableSelectionDialog {\n\tbackground-color: rgb(244, 244, 244);}"));
    QCOMPARE(dialog.findChild<QWidget*>("layoutWidget")->geometry(), QRect(9, 9, 369, 149));
    const auto* layout = dialog.findChild<QFormLayout*>("formLayout");
    QCOMPARE(layout->contentsMargins(), QMargins());
    const char* labels[][2] = {
        {"label_4", "Variable Selection:"}, {"label_3", "Group"}, {"label_2", "Variable"}, {"label", "SubVariable"}};
    for (int row = 0; row < 4; ++row) {
        auto* label = dialog.findChild<QLabel*>(labels[row][0]);
        QCOMPARE(label->text(), QString(labels[row][1]));
        int shownInRow = -1;
        QFormLayout::ItemRole role;
        layout->getWidgetPosition(label, &shownInRow, &role);
        QCOMPARE(shownInRow, row);
        QCOMPARE(role, row == 0 ? QFormLayout::SpanningRole : QFormLayout::LabelRole);
    }
    for (const QComboBox* box : {opened.group, opened.variable, opened.member}) {
        QVERIFY(box->isEditable());
        QCOMPARE(box->minimumWidth(), 150);
        QCOMPARE(box->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(box->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    }
    QCOMPARE(opened.group->insertPolicy(), QComboBox::NoInsert);
    QVERIFY(opened.group->lineEdit()->isReadOnly());
    QCOMPARE(opened.group->styleSheet(),
             QString("QComboBox#groupComboBox {\tbackground-color: rgb(232, 231, 230);}\nQComboBox#groupComboBox "
                     "QAbstractItemView {\n    selection-background-color: rgb(48, 140, 198);\n\tbackground-color: "
                     "rgb(232, 231, 230)\n}"));
    QCOMPARE(opened.variable->insertPolicy(), QComboBox::InsertAlphabetically);
    QCOMPARE(opened.member->insertPolicy(), QComboBox::InsertAlphabetically);
    QVERIFY(!opened.member->isEnabled());
    const auto* ok = dialog.findChild<QPushButton*>("OkButton");
    const auto* cancel = dialog.findChild<QPushButton*>("Cancel");
    QCOMPARE(ok->text(), QString("Ok"));
    QCOMPARE(cancel->text(), QString("Cancel"));
    QVERIFY(ok->isDefault() && !ok->autoDefault() && !cancel->autoDefault());
    auto* sorting = qobject_cast<QSortFilterProxyModel*>(opened.variable->model());
    QVERIFY(sorting && sorting->parent() == opened.variable && sorting->sourceModel()->parent() == sorting);
    QCOMPARE(sorting->filterCaseSensitivity(), Qt::CaseInsensitive);
    QCOMPARE(sorting->sortCaseSensitivity(), Qt::CaseSensitive);
    QVERIFY(sorting->filterRegExp().isEmpty());
}

void VariableSelectionDialogTest::theMetaObjectHasItsSignalsAndSlots() {
    const QMetaObject& meta = VariableSelectionDialog::staticMetaObject;
    for (const char* signal : {"closeDialog()", "mapParent()"})
        QVERIFY2(meta.indexOfSignal(signal) >= 0, signal);
    for (const char* slot : {"groupIndexChanged(QString)", "variableEditTextChanged(QString)", "mapDialog()"})
        QVERIFY2(meta.indexOfSlot(slot) >= 0, slot);
}

void VariableSelectionDialogTest::itOpensBelowItsParentWithAllVariables() {
    const Opened opened("SPEED");
    QCOMPARE(opened.dialog->geometry().topLeft(), opened.parent.mapToGlobal(QPoint(0, 40)));
    QCOMPARE(itemsOf(opened.group),
             QStringList({"All Variables", "Control (logical)", "Emissions", "Gas/Fluid (composition)",
                          "Gas/Fluid (property)", "General Use (real)", "General Use (statistical)"}));
    QCOMPARE(opened.group->currentText(), QString("All Variables"));
    QCOMPARE(itemsOf(opened.variable), everything);
}

void VariableSelectionDialogTest::itOpensBelowItsParentWhereverThatStands_data() {
    QTest::addColumn<QPoint>("window");
    QTest::addColumn<QPoint>("place");
    QTest::newRow("in the corner") << QPoint(0, 0) << QPoint(0, 0);
    QTest::newRow("inside a window") << QPoint(300, 250) << QPoint(120, 70);
    QTest::newRow("far off") << QPoint(900, 600) << QPoint(10, 0);
}

void VariableSelectionDialogTest::itOpensBelowItsParentWhereverThatStands() {
    QFETCH(QPoint, window);
    QFETCH(QPoint, place);
    QWidget form;
    form.setGeometry(QRect(window, QSize(400, 300)));
    QWidget value(&form);
    value.setGeometry(QRect(place, QSize(100, 40)));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    VariableSelectionDialog dialog(&value, filter(QT_OSTREL_ANY), "SPEED");
    const QSize size = dialog.size();
    dialog.show();
    QCOMPARE(dialog.geometry(), QRect(window + place + QPoint(0, 40), size));
}

void VariableSelectionDialogTest::itOpensWhereItStandsWithoutAParent() {
    VariableSelectionDialog dialog(nullptr, filter(QT_OSTREL_ANY), "SPEED");
    dialog.move(200, 100);
    dialog.show();
    QCOMPARE(dialog.geometry().topLeft(), QPoint(200, 140));
}

void VariableSelectionDialogTest::aSecondShowingStartsAgain() {
    Opened opened("SPEED");
    opened.group->setCurrentIndex(opened.group->findText("General Use (statistical)"));
    const QStringList groups = itemsOf(opened.group);
    opened.dialog->hide();
    platform().forgetCalls();
    opened.dialog->show();
    QCOMPARE(itemsOf(opened.group), groups);
    QCOMPARE(opened.group->currentText(), QString("All Variables"));
    QCOMPARE(itemsOf(opened.variable), everything);
    QCOMPARE(opened.variable->currentText(), QString("SPEED"));
    // What it fills its boxes with is what it read when it was made.
    QCOMPARE(platform().calls(), QStringList());
    // The hand of the operator is followed as before.
    opened.type("TRQ.");
    QVERIFY(opened.offers(statMembers));
}

void VariableSelectionDialogTest::anEmptyNameShowsNothing() {
    const Opened opened;
    QCOMPARE(opened.group->currentText(), QString("All Variables"));
    QCOMPARE(opened.dialog->text(), QString());
    QCOMPARE(opened.dialog->subText(), QString());
    QVERIFY(!opened.member->isEnabled());
}

void VariableSelectionDialogTest::anUnknownNameShowsNothing_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"not_set", "speed", "NOBODY:1", "NOBODY.AV", "SPEED.AV", "SPEED "})
        QTest::newRow(name) << QString(name);
}

void VariableSelectionDialogTest::anUnknownNameShowsNothing() {
    QFETCH(QString, name);
    const Opened opened(name);
    QCOMPARE(opened.variable->currentText(), QString());
    QVERIFY(!opened.member->isEnabled());
    QCOMPARE(opened.dialog->indexOfSelectedVarName(), -1);
}

void VariableSelectionDialogTest::aNameInTheListIsShown() {
    const Opened opened("torque");
    QCOMPARE(opened.variable->currentText(), QString("torque"));
    QCOMPARE(opened.variable->currentIndex(), 8);
    QCOMPARE(opened.dialog->indexOfSelectedVarName(), 8);
    QCOMPARE(opened.dialog->text() + opened.dialog->subText(), QString("torque"));
}

void VariableSelectionDialogTest::aNameWithIndexesIsShownWhole() {
    const Opened opened("MAP:3:cold");
    QCOMPARE(opened.variable->currentText(), QString("MAP:3:cold"));
    QCOMPARE(opened.variable->currentIndex(), 3);
    QCOMPARE(opened.dialog->indexOfSelectedVarName(), 3);
}

void VariableSelectionDialogTest::aNameWithMemberIsShownInTwoBoxes() {
    {
        Opened before;
        before.type("TRQ.");
    }
    const Opened opened("TRQ.SD");
    QCOMPARE(opened.variable->currentText(), QString("TRQ."));
    QCOMPARE(opened.member->currentText(), QString("SD"));
    QCOMPARE(opened.member->currentIndex(), 4);
    QVERIFY(opened.offers(statMembers));
    QCOMPARE(opened.dialog->text() + opened.dialog->subText(), QString("TRQ.SD"));
    // The members are those offered last, whatever the kind of the variable: another kind's are not found there.
    const Opened other("EMI.MF_CO");
    QCOMPARE(other.variable->currentText(), QString("EMI."));
    QCOMPARE(itemsOf(other.member), statMembers);
    QVERIFY(!other.member->isEnabled());
}

void VariableSelectionDialogTest::aGroupNarrowsTheListAndAllWidensIt() {
    const Opened opened("SPEED");
    opened.group->setCurrentIndex(opened.group->findText("General Use (real)"));
    QCOMPARE(itemsOf(opened.variable), QStringList({"MAP", "N", "SPEED", "torque"}));
    QCOMPARE(opened.variable->currentText(), QString("MAP"));
    opened.group->setCurrentIndex(opened.group->findText("General Use (statistical)"));
    QCOMPARE(opened.variable->currentText(), QString("TRQ."));
    QVERIFY(opened.offers(statMembers));
    opened.variable->setMaxVisibleItems(4);
    opened.group->setCurrentIndex(0);
    QCOMPARE(itemsOf(opened.variable), everything);
    QCOMPARE(opened.variable->currentText(), QString("AIR."));
    QCOMPARE(opened.variable->maxVisibleItems(), 10);
}

void VariableSelectionDialogTest::theFirstGroupOfInputsStandsForAllOfThem() {
    scripted::Areas& areas = platform().areas();
    areas.attributes().logical_num_ai = 3;
    areas.attributes().num_do = 1;
    areas.put<REAL_VARIABLE>(AI_REAL_MEM, 2, "T_OIL");
    areas.put<LOGICAL_VARIABLE>(DO_LOGI_MEM, 0, "FAN");
    const Opened opened("2", QT_OSTREL_IO_MEM);
    QCOMPARE(itemsOf(opened.group), QStringList({"Analog Inputs", "Digital Output (logical)"}));
    QCOMPARE(opened.variable->currentText(), QString("2"));
    opened.group->setCurrentIndex(1);
    QCOMPARE(itemsOf(opened.variable), QStringList({"0"}));
    opened.group->setCurrentIndex(0);
    QCOMPARE(itemsOf(opened.variable), QStringList({"0", "2"}));
}

void VariableSelectionDialogTest::theListIsSortedAgainAfterEachChoice() {
    const Opened opened;
    for (const int group : {5, 0, 5, 6, 0}) {
        opened.group->setCurrentIndex(group);
        QStringList sorted = itemsOf(opened.variable);
        std::sort(sorted.begin(), sorted.end());
        QCOMPARE(itemsOf(opened.variable), sorted);
        QCOMPARE(opened.variable->currentIndex(), 0);
    }
}

void VariableSelectionDialogTest::typingOffersTheMembers_data() {
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("offered");
    const int any = QT_OSTREL_ANY;
    QTest::newRow("statistics") << any << "TRQ" << statMembers;
    QTest::newRow("with its point") << any << "TRQ." << statMembers;
    QTest::newRow("with an unknown member") << any << "TRQ.:1" << statMembers;
    QTest::newRow("composition") << any << "GAS." << compMembers;
    QTest::newRow("property") << any << "AIR." << propMembers;
    QTest::newRow("emission") << any << "EMI." << emisMembers;
    QTest::newRow("a real") << any << "SPEED" << QStringList();
    QTest::newRow("a real with a point") << any << "SPEED." << QStringList();
    QTest::newRow("nobody") << any << "X" << QStringList();
    QTest::newRow("statistics alone") << int{QT_OSTREL_STAT} << "TRQ." << statMembers;
    QTest::newRow("composition alone") << int{QT_OSTREL_COMP} << "GAS." << compMembers;
    QTest::newRow("a property under composition") << int{QT_OSTREL_COMP} << "AIR." << QStringList();
    QTest::newRow("property alone") << int{QT_OSTREL_PROP} << "AIR." << propMembers;
    QTest::newRow("emission alone") << int{QT_OSTREL_EMIS} << "EMI." << emisMembers;
}

void VariableSelectionDialogTest::typingOffersTheMembers() {
    QFETCH(int, flags);
    QFETCH(QString, text);
    QFETCH(QStringList, offered);
    Opened opened("SPEED", flags);
    opened.type(text);
    QCOMPARE(opened.variable->currentText(), text);
    QVERIFY(opened.offers(offered));
    // What the operator types next is followed as well.
    opened.type("SPEED");
    QVERIFY(opened.offers({}));
}

void VariableSelectionDialogTest::aFilterWithoutMembersNeverOffersThem() {
    Opened opened("SPEED", QT_OSTREL_REAL);
    platform().forgetCalls();
    opened.member->setEnabled(true);
    opened.type("TRQ.AV");
    QVERIFY(opened.offers({}));
    QCOMPARE(platform().calls(), QStringList());
    opened.member->setEnabled(true);
    opened.member->addItem("AV");
    opened.type("a.");
    QVERIFY(opened.offers({}));
    // No keyboard types it, a host may set it.
    opened.member->setEnabled(true);
    opened.member->addItem("AV");
    opened.variable->setEditText("a.b");
    QVERIFY(opened.offers({}));
}

void VariableSelectionDialogTest::anEmptyBoxKeepsTheMembers() {
    Opened opened;
    opened.type("TRQ.");
    opened.variable->lineEdit()->selectAll();
    QTest::keyClick(opened.variable->lineEdit(), Qt::Key_Delete);
    QCOMPARE(opened.variable->currentText(), QString());
    QVERIFY(opened.offers(statMembers));
}

void VariableSelectionDialogTest::underAnyTheUnitsAreAskedFor() {
    Opened opened;
    platform().forgetCalls();
    opened.type("MAP");
    QCOMPARE(platform().calls({"find_variable"}),
             QStringList({"find_variable M", "find_variable MA", "find_variable MAP"}));
    QCOMPARE(platform().calls({"get_variable_units"}), QStringList({"get_variable_units MAP"}));
}

void VariableSelectionDialogTest::theKindsAreTriedInOrder() {
    Opened opened;
    platform().forgetCalls();
    opened.type("X");
    QCOMPARE(platform().calls(), QStringList({"find_variable X", "find_comp_label X", "find_stat_label X",
                                              "find_prop_label X", "find_emis_label X"}));
    opened.variable->setEditText("");
    platform().forgetCalls();
    opened.variable->setEditText("GAS.");
    QCOMPARE(platform().calls({"find_comp_label", "find_stat_label", "find_prop_label", "find_emis_label"}),
             QStringList({"find_comp_label GAS."}));
}

void VariableSelectionDialogTest::textThatIsNoNameCannotBeTyped_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stands");
    QTest::newRow("a leading digit") << "1A"
                                     << "A";
    QTest::newRow("a blank") << "A B"
                             << "AB";
    QTest::newRow("two points") << "A.."
                                << "A.";
    QTest::newRow("a word behind the point") << "A.B"
                                             << "A.";
    QTest::newRow("six suffixes") << "A:1:2:3:4:5:6"
                                  << "A:1:2:3:4:5:6";
    QTest::newRow("a seventh suffix") << "A:1:2:3:4:5:6:"
                                      << "A:1:2:3:4:5:6";
    QTest::newRow("an underscore") << "_a9.:x"
                                   << "_a9.:x";
}

void VariableSelectionDialogTest::textThatIsNoNameCannotBeTyped() {
    QFETCH(QString, typed);
    QFETCH(QString, stands);
    Opened opened;
    opened.type(typed);
    QCOMPARE(opened.variable->currentText(), stands);
}

void VariableSelectionDialogTest::theCompleterOffersMatchingNames() {
    Opened opened;
    QCompleter* completer = opened.variable->completer();
    QCOMPARE(completer->model(), opened.variable->model());
    QCOMPARE(completer->completionMode(), QCompleter::PopupCompletion);
    QCOMPARE(completer->caseSensitivity(), Qt::CaseSensitive);
    opened.dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(opened.dialog.get()));
    opened.variable->setFocus();
    opened.type("S");
    QVERIFY(completer->popup()->isVisible());
    QCOMPARE(completer->completionCount(), 1);
    QCOMPARE(completer->currentCompletion(), QString("SPEED"));
    QTest::keyClick(completer->popup(), Qt::Key_Down);
    QTest::keyClick(completer->popup(), Qt::Key_Enter);
    QCOMPARE(opened.variable->currentText(), QString("SPEED"));
}

void VariableSelectionDialogTest::theIndexIsThatOfTheNameBeforeItsColon_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("row");
    QTest::newRow("a name") << "SPEED" << 6;
    QTest::newRow("with suffixes") << "SPEED:1:2" << 6;
    QTest::newRow("another case") << "Speed" << -1;
    QTest::newRow("a part") << "SPEE" << -1;
    QTest::newRow("with a point") << "TRQ." << 7;
    QTest::newRow("without the point") << "TRQ" << -1;
}

void VariableSelectionDialogTest::theIndexIsThatOfTheNameBeforeItsColon() {
    QFETCH(QString, text);
    QFETCH(int, row);
    Opened opened;
    opened.type(text);
    QCOMPARE(opened.dialog->indexOfSelectedVarName(), row);
}

void VariableSelectionDialogTest::okAcceptsWhateverTheText() {
    Opened opened;
    opened.dialog->hide();
    const Operator worker({[&](QWidget* dialog) {
        opened.type("NOBODY");
        QTest::mouseClick(dialog->findChild<QPushButton*>("OkButton"), Qt::LeftButton);
    }});
    QCOMPARE(opened.dialog->exec(), int{QDialog::Accepted});
    QVERIFY(worker.isDone());
    QCOMPARE(opened.dialog->text(), QString("NOBODY"));
}

void VariableSelectionDialogTest::cancelAndClosingReject_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("the button") << 0;
    QTest::newRow("closing") << 1;
    QTest::newRow("hiding") << 2;
    QTest::newRow("the escape key") << 3;
}

void VariableSelectionDialogTest::cancelAndClosingReject() {
    QFETCH(int, way);
    Opened opened("SPEED");
    opened.dialog->hide();
    const QSignalSpy closes(opened.dialog.get(), &VariableSelectionDialog::closeDialog);
    const Operator worker({[&](QWidget* dialog) {
        if (way == 0)
            QTest::mouseClick(dialog->findChild<QPushButton*>("Cancel"), Qt::LeftButton);
        else if (way == 1)
            dialog->close();
        else if (way == 2)
            dialog->hide();
        else
            QTest::keyClick(dialog, Qt::Key_Escape);
    }});
    QCOMPARE(opened.dialog->exec(), int{QDialog::Rejected});
    QVERIFY(worker.isDone());
    QVERIFY(!closes.isEmpty());
}

void VariableSelectionDialogTest::theCatalogueIsReadOncePerFilter() {
    { const Opened first("SPEED", QT_OSTREL_ANY); }
    QCOMPARE(walks(), 1);
    QVERIFY(!Ostrel_Plugins_Master_variables_dirty);
    { const Opened second("SPEED", QT_OSTREL_ANY); }
    QCOMPARE(walks(), 1);
    { const Opened other("SPEED", QT_OSTREL_REAL); }
    QCOMPARE(walks(), 2);
    { const Opened again("SPEED", QT_OSTREL_ANY); }
    QCOMPARE(walks(), 3);
}

void VariableSelectionDialogTest::aReconfigurationMakesTheNextDialogReadAgain() {
    { const Opened first; }
    platform().areas().attributes().max_num_gu_real = 2;
    Probe widget;
    widget.globalConfigEvent(1, GU_REAL_MEM);
    widget.globalConfigEvent(0, GU_REAL_MEM);
    const Opened second;
    QCOMPARE(walks(), 2);
    QVERIFY(!itemsOf(second.variable).contains("MAP"));
}

void VariableSelectionDialogTest::theEndOfAnotherStateDoesNot() {
    { const Opened first; }
    Probe widget;
    widget.globalConfigEvent(1, GU_REAL_MEM);
    { const Opened second; }
    QCOMPARE(walks(), 1);
}

void VariableSelectionDialogTest::withoutAStoreTheProcessEnds() {
    QCOMPARE(outputWithoutAStore("chooseAVariableWithoutAStore"),
             QByteArray("\n Ostrel must be running to use this command\n"));
}

static int chooseAVariableWithoutAStore(int argc, char** argv) {
    const QApplication application(argc, argv);
    startAsHost();
    const VariableSelectionDialog dialog(nullptr, filter(QT_OSTREL_ANY), "SPEED");
    return 3;
}

OSTREL_TEST_CHILD(chooseAVariableWithoutAStore)
OSTREL_TEST(VariableSelectionDialogTest)
#include "variableselectiondialog_test.moc"
