// The value manager on a real store, which is served by a process of its own: real windows, keys and clicks.
#include <ostrel/events.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>
#include <algorithm>
#include <cstring>
#include <fstream>
#include <memory>

#include "fabric/signalslotsingleton.h"
#include "hostlink/globals.h"
#include "ostrel/store/fuzzinputs.h"
#include "ostrel/storefixture.h"
#include "valuemanager/ComboBoxPlugin/ExtendedQComboBox.h"
#include "valuemanager/ComboBoxPlugin/ValManComboBoxWidget.h"
#include "valuemanager/FilePlugin/ValManFileWidget.h"
#include "valuemanager/LogicalPlugin/ValManLogicalWidget.h"
#include "valuemanager/NumericPlugin/ValManNumericWidget.h"
#include "valuemanager/StringPlugin/ValManStringWidget.h"
#include "valuemanager/VMPushButtonCancelPlugin/ValManCancelWidget.h"
#include "valuemanager/ValManOK/ValManOKWidget.h"
#include "whenopened.h"

void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

const std::vector<std::string> oneOfEachKind = {"put 54 1 REAL",  "put 55 2 COUNT", "put 56 3 ON",     "put 57 7 TEXT",
                                                "put 58 9 STAT.", "put 54 1 OTHER", "array 15 FIELD 3"};

SignalSlotSingleton& hub() {
    return SignalSlotSingleton::getInstance();
}

void read() {
    emit hub().readFromOstrel();
}

void commit() {
    emit hub().commitToOstrel();
}

QDomDocument saved() {
    QDomDocument document;
    document.appendChild(document.createElement("values"));
    emit hub().writeToFile(document);
    return document;
}

// What stands inside of the root, with its attributes in their alphabetical order.
QString contentsOf(const QDomDocument& document) {
    QStringList elements;
    for (QDomElement e = document.documentElement().firstChildElement(); !e.isNull(); e = e.nextSiblingElement()) {
        QStringList words;
        for (int i = 0; i < e.attributes().count(); ++i) {
            const QDomAttr attribute = e.attributes().item(i).toAttr();
            words.append(attribute.name() + '=' + attribute.value());
        }
        words.sort();
        words.prepend(e.tagName());
        elements.append(words.join(' '));
    }
    return elements.join('\n');
}

QDomDocument document(const char* elements) {
    QDomDocument made;
    EXPECT_TRUE(made.setContent(QString("<values>%1</values>").arg(elements)));
    return made;
}

class ValueManager : public StoreTest {
protected:
    ValueManager() {
        inDesigner = false;
        RemoteDisplay = false;
    }

    void SetUp() override {
        StoreTest::SetUp();
        configure(oneOfEachKind);
        std::strcpy(real()->units, "mm");
        std::strcpy(integer()->units, "mm");
        new QVBoxLayout(&form);
        writes();
    }

    template <class Widget>
    Widget* add(const char* name = nullptr) {
        auto* widget = new Widget(&form);
        form.layout()->addWidget(widget);
        if (name)
            widget->setProperty("OstrelVariable", QString(name));
        return widget;
    }

    void show() {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    }

    static QLineEdit* line(QWidget* widget) { return widget->findChild<QLineEdit*>("value"); }
    static QCheckBox* box(QWidget* widget) { return widget->findChild<QCheckBox*>("value"); }
    static QComboBox* units(QWidget* widget) { return widget->findChild<QComboBox*>("unitSelect"); }
    static QComboBox* list(QWidget* widget) { return widget->findChild<QComboBox*>("comboBox"); }
    static QString label(QWidget* widget) { return widget->findChild<QLabel*>("ostrelVarLabel")->text(); }

    // As an operator does, instead of what stands there.
    static void type(QLineEdit* field, const char* text) {
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
    }
    static void type(QWidget* widget, const char* text) { type(line(widget), text); }

    REAL_VARIABLE* real() { return record<REAL_VARIABLE>("REAL"); }
    INTEGER_VARIABLE* integer() { return record<INTEGER_VARIABLE>("COUNT"); }
    LOGICAL_VARIABLE* logical() { return record<LOGICAL_VARIABLE>("ON"); }
    STRING_VARIABLE* string() { return record<STRING_VARIABLE>("TEXT"); }

    // Who wrote what since the last time, a line each.
    std::vector<std::string> writes() {
        const std::string file = testing::TempDir() + store + ".writes";
        EXPECT_EQ(server.tell("drain " + file), "ok");
        std::ifstream stream(file);
        std::vector<std::string> lines;
        for (std::string written; std::getline(stream, written);)
            lines.push_back(written);
        std::remove(file.c_str());
        return lines;
    }

    static void reconfigureWidget(OstrelBase* widget) {
        widget->globalConfigEvent(1, -1);
        widget->globalConfigEvent(0, -1);
    }

    QWidget form;
};

// ---- the family ----

TEST_F(ValueManager, ReadsWritesAndFilesAllWidgetsAtOnce) {
    auto* number = add<ValManNumericWidget>("REAL");
    auto* count = add<ValManNumericWidget>("COUNT");
    auto* text = add<ValManStringWidget>("TEXT");
    auto* state = add<ValManLogicalWidget>("ON");
    set_real_variable(real(), 2.5);
    set_integer(integer(), 7);
    set_string_variable(string(), const_cast<char*>("cold"));
    set_logical(logical(), 1);
    EXPECT_EQ(line(number)->text(), "");
    read();
    EXPECT_EQ(line(number)->text(), "2.500000");
    EXPECT_EQ(line(count)->text(), "7");
    EXPECT_EQ(line(text)->text(), "cold");
    EXPECT_TRUE(box(state)->isChecked());
    show();
    type(number, "3.75");
    type(count, "8");
    type(text, "warm");
    QTest::mouseClick(box(state), Qt::LeftButton, {}, QPoint(8, box(state)->height() / 2));
    EXPECT_EQ(+real()->value, 2.5);
    commit();
    EXPECT_EQ(+real()->value, 3.75);
    EXPECT_EQ(+integer()->value, 8);
    EXPECT_STREQ(string()->value, "warm");
    EXPECT_EQ(+logical()->value, 0);
}

TEST_F(ValueManager, ACommitWithoutVariablesWritesNothingAndSaysNothing) {
    for (const char* name : {"NOBODY", "not_set", ""}) {
        type(add<ValManNumericWidget>(name), "4");
        type(add<ValManStringWidget>(name), "four");
        box(add<ValManLogicalWidget>(name))->setChecked(true);
        line(add<ValManFileWidget>(name))->setText("/four");
        add<ValManComboBoxWidget>(name)->setProperty("comboBoxContents", "4;5");
    }
    add<ValManNumericWidget>();
    bool hasTold = false;
    QTimer::singleShot(0, [&] { hasTold = QApplication::activeModalWidget() != nullptr; });
    commit();
    QCoreApplication::processEvents();
    EXPECT_FALSE(hasTold);
    EXPECT_TRUE(writes().empty());
}

TEST_F(ValueManager, AnEmptiedTextLeavesTheVariable) {
    set_string_variable(string(), const_cast<char*>("kept"));
    auto* text = add<ValManStringWidget>("TEXT");
    read();
    type(text, "");
    writes();
    commit();
    EXPECT_STREQ(string()->value, "kept");
    EXPECT_TRUE(writes().empty());
}

TEST_F(ValueManager, ACommitBeforeAnyReadWritesTheTextOfTheForm) {
    line(add<ValManNumericWidget>("REAL"))->setText("41");
    commit();
    EXPECT_EQ(+real()->value, 41.0);
}

TEST_F(ValueManager, TheWidgetThatWasMadeLastWritesLast) {
    auto* first = add<ValManStringWidget>("TEXT");
    auto* second = add<ValManStringWidget>("TEXT");
    type(second, "second");
    type(first, "first");
    writes();
    commit();
    EXPECT_STREQ(string()->value, "second");
    EXPECT_EQ(writes().size(), 2u);
}

TEST_F(ValueManager, OnlyTheNextReadTakesAnEditBack) {
    set_real_variable(real(), 1);
    auto* number = add<ValManNumericWidget>("REAL");
    read();
    type(number, "9");
    set_real_variable(real(), 2);
    number->ostrelTimerEvent(number->getSampleRate());
    EXPECT_EQ(line(number)->text(), "9");
    read();
    EXPECT_EQ(line(number)->text(), "2.000000");
}

// ---- what becomes of the former variable ----

TEST_F(ValueManager, ATextFollowsNoVariableOfAnotherKindAndWritesToItsFormerOne) {
    auto* text = add<ValManStringWidget>("TEXT");
    type(text, "before");
    text->setName("REAL");
    EXPECT_EQ(label(text), "REAL");
    commit();
    EXPECT_STREQ(string()->value, "before");
    type(text, "after");
    text->disable();
    commit();
    EXPECT_STREQ(string()->value, "after");
    EXPECT_EQ(+real()->value, 0.0);
}

TEST_F(ValueManager, AFileAndAStateDoSoToo) {
    auto* file = add<ValManFileWidget>("TEXT");
    auto* state = add<ValManLogicalWidget>("ON");
    line(file)->setText("/data");
    box(state)->setChecked(true);
    file->setName("COUNT");
    state->disable();
    commit();
    EXPECT_STREQ(string()->value, "/data");
    EXPECT_EQ(+logical()->value, 1);
    EXPECT_EQ(+integer()->value, 0);
}

TEST_F(ValueManager, ANumberFollowsTheNewKindAtOnce) {
    auto* number = add<ValManNumericWidget>("REAL");
    auto* choice = add<ValManComboBoxWidget>("OTHER");
    type(number, "12");
    choice->setProperty("comboBoxContents", "13;14");
    number->setName("COUNT");
    choice->setName("TEXT");
    commit();
    EXPECT_EQ(+real()->value, 0.0);
    EXPECT_EQ(+integer()->value, 12);
    EXPECT_STREQ(string()->value, "13");
    EXPECT_EQ(+record<REAL_VARIABLE>("OTHER")->value, 0.0);
    writes();
    number->disable();
    choice->setName("NOBODY");
    commit();
    EXPECT_TRUE(writes().empty());
}

TEST_F(ValueManager, ANameThatIsNotThereIsNeitherReadNorWritten) {
    set_real_variable(real(), 3);
    auto* number = add<ValManNumericWidget>("REAL");
    read();
    number->setName("NOBODY");
    EXPECT_FALSE(number->ptr());
    EXPECT_EQ(label(number), "NOBODY");
    type(number, "5");
    read();
    EXPECT_EQ(line(number)->text(), "5");
    commit();
    EXPECT_EQ(+real()->value, 3.0);
}

TEST_F(ValueManager, AVariableThatMovedIsReadAndWrittenWhereItIs) {
    auto* number = add<ValManNumericWidget>("REAL");
    auto* state = add<ValManLogicalWidget>("ON");
    type(number, "6");
    ASSERT_EQ(server.tell("room 54 1 25000"), "ok 1");
    auto* before = real();
    configure({"put 54 1 NEIGHBOUR", "put 54 1 REAL", "put 56 3 FLAG", "put 56 3 ON"});
    reconfigureWidget(number);
    reconfigureWidget(state);
    ASSERT_NE(real(), before);
    EXPECT_EQ(line(number)->text(), "6") << "the staged value survives";
    box(state)->setChecked(true);
    commit();
    EXPECT_EQ(+real()->value, 6.0);
    EXPECT_EQ(+logical()->value, 1);
    EXPECT_EQ(+before->value, 0.0);
    EXPECT_EQ(+record<REAL_VARIABLE>("NEIGHBOUR")->value, 0.0);
    set_real_variable(real(), 7);
    read();
    EXPECT_EQ(line(number)->text(), "7.000000");
}

TEST_F(ValueManager, AVariableThatComesLaterIsFound) {
    configure({"put 54 1 OTHER"});
    auto* choice = add<ValManComboBoxWidget>("REAL");
    choice->setProperty("units", "cm");
    choice->setProperty("comboBoxContents", "2;3");
    configure({"put 54 1 OTHER", "put 54 1 REAL"});
    std::strcpy(real()->units, "mm");
    reconfigureWidget(choice);
    EXPECT_EQ(choice->property("units").toString(), "cm");
    commit();
    EXPECT_EQ(+real()->value, 20.0);
}

TEST_F(ValueManager, AVariableOfAnotherKindChangesNothing) {
    for (const char* name : {"STAT.AV", "FIELD:1"}) {
        auto* number = add<ValManNumericWidget>(name);
        auto* text = add<ValManStringWidget>(name);
        auto* state = add<ValManLogicalWidget>(name);
        auto* choice = add<ValManComboBoxWidget>(name);
        ASSERT_TRUE(number->ptr() && choice->ptr()) << name;
        line(number)->setText("1");
        line(text)->setText("word");
        box(state)->setChecked(true);
        choice->setProperty("comboBoxContents", "5");
        writes();
        read();
        EXPECT_EQ(line(number)->text(), "1");
        EXPECT_EQ(units(number)->count(), 0);
        EXPECT_EQ(line(text)->text(), "word");
        EXPECT_TRUE(box(state)->isChecked());
        EXPECT_EQ(list(choice)->currentText(), "5");
        commit();
        EXPECT_TRUE(writes().empty()) << name;
    }
}

TEST_F(ValueManager, ARemoteDisplayReadsAndWritesNothing) {
    RemoteDisplay = true;
    auto* number = add<ValManNumericWidget>("REAL");
    auto* count = add<ValManNumericWidget>("COUNT");
    auto* text = add<ValManStringWidget>("TEXT");
    auto* state = add<ValManLogicalWidget>("ON");
    EXPECT_TRUE(number->actions().isEmpty());
    set_real_variable(real(), 1);
    read();
    EXPECT_EQ(line(number)->text(), "1.000000");
    writes();
    type(number, "2");
    type(count, "2");
    type(text, "two");
    box(state)->setChecked(true);
    commit();
    EXPECT_TRUE(writes().empty());
}

// ---- which editor goes with which kind ----

TEST_F(ValueManager, ANumberShowsATextAndWritesNone) {
    set_string_variable(string(), const_cast<char*>("words"));
    auto* number = add<ValManNumericWidget>("TEXT");
    auto* onLogical = add<ValManNumericWidget>("ON");
    set_logical(logical(), 1);
    writes();
    read();
    EXPECT_EQ(line(number)->text(), "words");
    EXPECT_EQ(line(onLogical)->text(), "");
    type(number, "5");
    type(onLogical, "0");
    commit();
    EXPECT_STREQ(string()->value, "words");
    EXPECT_EQ(+logical()->value, 1);
    EXPECT_TRUE(writes().empty());
}

TEST_F(ValueManager, ATextShowsANumberAndWritesNone) {
    set_real_variable(real(), 1.5);
    set_integer(integer(), 4);
    set_logical(logical(), 1);
    auto* onReal = add<ValManStringWidget>("REAL");
    auto* onInteger = add<ValManFileWidget>("COUNT");
    auto* onLogical = add<ValManStringWidget>("ON");
    writes();
    read();
    EXPECT_EQ(line(onReal)->text(), "1.500000");
    EXPECT_EQ(line(onInteger)->text(), "4");
    EXPECT_EQ(line(onLogical)->text(), "");
    type(onReal, "2");
    type(onLogical, "0");
    commit();
    EXPECT_TRUE(writes().empty());
}

TEST_F(ValueManager, ABoxShowsAndWritesNothingButStates) {
    for (const char* name : {"REAL", "COUNT", "TEXT"}) {
        auto* state = add<ValManLogicalWidget>(name);
        box(state)->setChecked(true);
        read();
        EXPECT_TRUE(box(state)->isChecked());
    }
    writes();
    commit();
    EXPECT_TRUE(writes().empty());
}

TEST_F(ValueManager, AListShowsAndWritesNoState) {
    set_logical(logical(), 1);
    auto* choice = add<ValManComboBoxWidget>("ON");
    choice->setProperty("comboBoxContents", "0;1");
    writes();
    read();
    EXPECT_EQ(list(choice)->currentText(), "0");
    commit();
    EXPECT_EQ(+logical()->value, 1);
    EXPECT_TRUE(writes().empty());
    EXPECT_EQ(contentsOf(saved()), "ON");
}

// ---- numbers and their units ----

TEST_F(ValueManager, ARealIsShownWithSixDecimalsWhateverItsFormat) {
    std::strcpy(real()->display_format, "%.1f");
    set_real_variable(real(), 1.0 / 3);
    auto* number = add<ValManNumericWidget>("REAL");
    read();
    EXPECT_EQ(line(number)->text(), "0.333333");
}

TEST_F(ValueManager, ANumberIsConvertedFromTheChosenUnit) {
    auto* number = add<ValManNumericWidget>("REAL");
    auto* count = add<ValManNumericWidget>("COUNT");
    read();
    EXPECT_EQ(units(number)->currentText().toLower(), "mm");
    type(number, "2.5");
    type(count, "3");
    for (QWidget* widget : {static_cast<QWidget*>(number), static_cast<QWidget*>(count)}) {
        const int place = units(widget)->findText("cm", Qt::MatchFixedString);
        ASSERT_GE(place, 0);
        units(widget)->setCurrentIndex(place);
    }
    EXPECT_EQ(line(number)->text(), "2.5") << "the text stays as it was typed";
    commit();
    EXPECT_DOUBLE_EQ(+real()->value, 25);
    EXPECT_EQ(+integer()->value, 30);
    read();
    EXPECT_EQ(line(number)->text(), "25.000000");
    EXPECT_EQ(units(number)->currentText().toLower(), "mm");
}

TEST_F(ValueManager, ChoosingAnotherUnitTellsNobody) {
    auto* number = add<ValManNumericWidget>("REAL");
    QSignalSpy edits(&hub(), &SignalSlotSingleton::valueChanged);
    ASSERT_GT(units(number)->count(), 1);
    units(number)->setCurrentIndex(units(number)->count() - 1);
    EXPECT_EQ(edits.count(), 0);
    type(number, "1");
    EXPECT_EQ(edits.count(), 1);
}

TEST_F(ValueManager, AnIntegerLosesItsFraction) {
    auto* count = add<ValManNumericWidget>("COUNT");
    read();
    std::strcpy(integer()->units, "cm");
    for (const auto& [typed, stored] : {std::pair{"19", 1}, {"-19", -1}}) {
        type(count, typed);
        commit();
        EXPECT_EQ(+integer()->value, stored);
    }
}

TEST_F(ValueManager, WhatIsNoIntegerAnyMoreIsNotWritten) {
    auto* count = add<ValManNumericWidget>("COUNT");
    read();
    set_integer(integer(), 5);
    units(count)->setCurrentIndex(units(count)->findText("km", Qt::MatchFixedString));
    ASSERT_EQ(units(count)->currentText().toLower(), "km");
    type(count, "2147483647");
    commit();
    EXPECT_EQ(+integer()->value, 5);
}

TEST_F(ValueManager, WhatIsNoNumberIsWrittenAsZero) {
    auto* number = add<ValManNumericWidget>("REAL");
    auto* count = add<ValManNumericWidget>("COUNT");
    auto* choice = add<ValManComboBoxWidget>("OTHER");
    choice->setProperty("comboBoxContents", "high");
    read();
    for (const char* text : {"full", "1,5", ""}) {
        set_real_variable(real(), 8);
        set_integer(integer(), 8);
        set_real_variable(record<REAL_VARIABLE>("OTHER"), 8);
        type(number, text);
        type(count, text);
        list(choice)->setCurrentIndex(0);
        commit();
        EXPECT_EQ(+real()->value, 0.0) << text;
        EXPECT_EQ(+integer()->value, 0) << text;
        EXPECT_EQ(+record<REAL_VARIABLE>("OTHER")->value, 0.0) << text;
    }
    set_integer(integer(), 8);
    type(count, "2.5");
    commit();
    EXPECT_EQ(+integer()->value, 0);
}

TEST_F(ValueManager, WhatDoesNotConvertIsWrittenAsZero) {
    auto* choice = add<ValManComboBoxWidget>("REAL");
    choice->setProperty("comboBoxContents", "5");
    for (const char* unit : {"kg", "furlongs"}) {
        choice->setProperty("units", unit);
        set_real_variable(real(), 8);
        commit();
        EXPECT_EQ(+real()->value, 0.0) << unit;
    }
}

TEST_F(ValueManager, EachBindingAddsTheUnitsOnceMore) {
    auto* number = add<ValManNumericWidget>("REAL");
    const int once = units(number)->count();
    ASSERT_GT(once, 1);
    number->setName("REAL");
    EXPECT_EQ(units(number)->count(), 2 * once);
    number->setName("NOBODY");
    EXPECT_EQ(units(number)->count(), 2 * once);
}

TEST_F(ValueManager, UnitsThatNobodyKnowsGiveNoChoice) {
    std::strcpy(real()->units, "furlongs");
    auto* number = add<ValManNumericWidget>("REAL");
    EXPECT_EQ(units(number)->count(), 0);
    read();
    EXPECT_EQ(units(number)->currentText(), "");
    EXPECT_EQ(contentsOf(saved()), "REAL RealValue=0.000000 Units=");
}

TEST_F(ValueManager, AUnitThatIsNotInTheListLeavesTheChoice) {
    auto* number = add<ValManNumericWidget>("REAL");
    units(number)->setCurrentIndex(1);
    const QString chosen = units(number)->currentText();
    static_cast<OstrelBase*>(number)->setUnits("kg");
    EXPECT_EQ(units(number)->currentText(), chosen);
    static_cast<OstrelBase*>(number)->setUnits("furlongs");
    EXPECT_EQ(units(number)->currentText(), chosen);
    static_cast<OstrelBase*>(number)->setUnits("MM");
    EXPECT_EQ(units(number)->currentText().toLower(), "mm");
}

// ---- typing, clicking, browsing ----

TEST_F(ValueManager, ATextHasAtMostEightyCharacters) {
    const QByteArray typed(90, 'x');
    auto* text = add<ValManStringWidget>("TEXT");
    auto* number = add<ValManNumericWidget>("REAL");
    type(text, typed.constData());
    type(number, QByteArray(90, '1').constData());
    EXPECT_EQ(line(text)->text().size(), 80);
    EXPECT_EQ(line(number)->text().size(), 80);
    QDomDocument file = document(("<TEXT StringValue=\"" + QByteArray(90, 'y') + "\"/>").constData());
    emit hub().readFromFile(file);
    EXPECT_EQ(line(text)->text(), QString(80, 'y'));
}

TEST_F(ValueManager, ABoxTellsOfClicksAlone) {
    auto* state = add<ValManLogicalWidget>("ON");
    show();
    QSignalSpy edits(&hub(), &SignalSlotSingleton::valueChanged);
    set_logical(logical(), 1);
    read();
    EXPECT_TRUE(box(state)->isChecked());
    EXPECT_EQ(edits.count(), 0);
    emit hub().readFromFile(document("<ON BooleanValue=\"0\"/>"));
    EXPECT_FALSE(box(state)->isChecked());
    EXPECT_EQ(edits.count(), 0);
    QTest::mouseClick(box(state), Qt::LeftButton, {}, QPoint(8, box(state)->height() / 2));
    EXPECT_TRUE(box(state)->isChecked());
    EXPECT_EQ(edits.count(), 1);
}

TEST_F(ValueManager, ATextTellsOfEachChangeThatReadsMakeToo) {
    auto* text = add<ValManStringWidget>("TEXT");
    QSignalSpy edits(&hub(), &SignalSlotSingleton::valueChanged);
    type(text, "ab");
    EXPECT_EQ(edits.count(), 2);
    set_string_variable(string(), const_cast<char*>("other"));
    read();
    EXPECT_EQ(edits.count(), 3);
}

TEST_F(ValueManager, APathIsChosenAndNotTyped) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("cycle.csv");
    std::ofstream(path.toStdString()) << "1";
    auto* file = add<ValManFileWidget>("TEXT");
    file->setProperty("StartDirectory", folder.path());
    file->setProperty("FileFilter", "Tables (*.csv)");
    show();
    QTest::keyClicks(line(file), "typed");
    EXPECT_EQ(line(file)->text(), "");
    QString title;
    QString place;
    QStringList filters;
    whenOpened<QFileDialog>([&](QFileDialog* dialog) {
        title = dialog->windowTitle();
        place = dialog->directory().absolutePath();
        filters = dialog->nameFilters();
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(path);
        QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    });
    QTest::mouseClick(file->findChild<QPushButton*>("browseButton"), Qt::LeftButton);
    EXPECT_EQ(title, "Open File");
    EXPECT_EQ(place, folder.path());
    EXPECT_EQ(filters.join('|'), "Tables (*.csv)");
    EXPECT_EQ(line(file)->text(), path);
    commit();
    EXPECT_EQ(QString(string()->value), path);
}

TEST_F(ValueManager, LeavingTheBrowserEmptiesThePathAndKeepsTheVariable) {
    set_string_variable(string(), const_cast<char*>("/kept"));
    auto* file = add<ValManFileWidget>("TEXT");
    read();
    EXPECT_EQ(line(file)->text(), "/kept");
    show();
    whenOpened<QFileDialog>([](QFileDialog* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    QTest::mouseClick(file->findChild<QPushButton*>("browseButton"), Qt::LeftButton);
    EXPECT_EQ(line(file)->text(), "");
    commit();
    EXPECT_STREQ(string()->value, "/kept");
}

TEST_F(ValueManager, ANameCanBePastedAndSwitchedOff) {
    auto* number = add<ValManNumericWidget>("REAL");
    QStringList entries;
    for (const QAction* action : number->actions())
        entries.append(action->text());
    EXPECT_EQ(entries.join('|'), "Copy Variable Name|Paste Variable Name|Disable Widget");
    QApplication::clipboard()->setText("COUNT");
    number->actions()[1]->trigger();
    EXPECT_EQ(label(number), "COUNT");
    EXPECT_EQ(number->property("OstrelVariable").toString(), "COUNT");
    number->actions()[2]->trigger();
    EXPECT_EQ(label(number), "not_set");
    EXPECT_FALSE(number->ptr());
    for (QWidget* button :
         {static_cast<QWidget*>(add<ValManOKWidget>()), static_cast<QWidget*>(add<ValManCancelWidget>())})
        EXPECT_TRUE(button->actions().isEmpty());
}

// ---- files ----

TEST_F(ValueManager, AFileHasAnElementOfEachEditor) {
    auto* number = add<ValManNumericWidget>("REAL");
    auto* count = add<ValManNumericWidget>("COUNT");
    auto* text = add<ValManStringWidget>("TEXT");
    auto* state = add<ValManLogicalWidget>("ON");
    auto* onText = add<ValManNumericWidget>("TEXT");
    read();
    type(number, "1.5");
    type(count, "2");
    type(text, "a < b & \"c\"");
    box(state)->setChecked(true);
    add<ValManOKWidget>();
    const QString mm = units(number)->currentText();
    const QString expected = "REAL RealValue=1.5 Units=" + mm + "\nCOUNT IntegerValue=2 Units=" + mm +
                             "\nTEXT StringValue=a < b & \"c\"\nON BooleanValue=1\nTEXT Units=";
    EXPECT_EQ(contentsOf(saved()), expected);
    QDomDocument again;
    ASSERT_TRUE(again.setContent(saved().toString()));
    read();
    box(state)->setChecked(false);
    onText->hide();
    writes();
    emit hub().readFromFile(again);
    EXPECT_EQ(line(number)->text(), "1.5");
    EXPECT_EQ(line(count)->text(), "2");
    EXPECT_EQ(line(text)->text(), "a < b & \"c\"");
    EXPECT_TRUE(box(state)->isChecked());
    EXPECT_EQ(contentsOf(again), "") << "a read takes out what it uses";
    EXPECT_TRUE(writes().empty()) << "a file is not the store";
}

TEST_F(ValueManager, ANumberWithoutAVariableFilesUnitsAlone) {
    auto* number = add<ValManNumericWidget>("NOBODY");
    type(number, "4");
    EXPECT_EQ(units(number)->count(), 0);
    writes();
    commit();
    EXPECT_TRUE(writes().empty());
    EXPECT_EQ(contentsOf(saved()), "NOBODY Units=");
}

TEST_F(ValueManager, AFileWithoutItsElementLeavesAnEditor) {
    auto* number = add<ValManNumericWidget>("REAL");
    auto* choice = add<ValManComboBoxWidget>("COUNT");
    choice->setProperty("comboBoxContents", "4");
    add<ValManNumericWidget>("");
    type(number, "4");
    const QDomDocument file = document("<OTHER RealValue='5'/><real RealValue='6'/><in><REAL RealValue='7'/></in>");
    const QString before = file.toString();
    emit hub().readFromFile(file);
    EXPECT_EQ(line(number)->text(), "4");
    EXPECT_EQ(list(choice)->currentText(), "4");
    EXPECT_EQ(file.toString(), before);
}

TEST_F(ValueManager, TwoEditorsOfAVariableGetTheirOwnValuesBack) {
    auto* first = add<ValManStringWidget>("TEXT");
    auto* second = add<ValManStringWidget>("TEXT");
    type(first, "one");
    type(second, "two");
    const QDomDocument file = saved();
    read();
    emit hub().readFromFile(file);
    EXPECT_EQ(line(first)->text(), "one");
    EXPECT_EQ(line(second)->text(), "two");
    EXPECT_TRUE(file.documentElement().firstChildElement().isNull());
}

TEST_F(ValueManager, AnElementWithoutTheAttributeEmptiesAnEditor) {
    auto* number = add<ValManNumericWidget>("REAL");
    auto* text = add<ValManStringWidget>("TEXT");
    auto* state = add<ValManLogicalWidget>("ON");
    type(number, "4");
    type(text, "four");
    for (const char* value : {"2", "true", "", "0x1"}) {
        box(state)->setChecked(true);
        emit hub().readFromFile(document(QByteArray("<ON BooleanValue=\"").append(value).append("\"/>").constData()));
        EXPECT_FALSE(box(state)->isChecked()) << value;
    }
    emit hub().readFromFile(document("<REAL IntegerValue='5'/><TEXT/>"));
    EXPECT_EQ(line(number)->text(), "");
    EXPECT_EQ(line(text)->text(), "");
}

TEST_F(ValueManager, ANameThatIsNoTagSpoilsNoFile) {
    type(add<ValManStringWidget>("TEXT"), "kept");
    for (const char* name : {"two words", "<b", "a=\"1\" b", "1ST", "\xc3\x84RGER"})
        type(add<ValManStringWidget>(name), "lost");
    QDomDocument again;
    ASSERT_TRUE(again.setContent(saved().toString()));
    EXPECT_TRUE(contentsOf(again).startsWith("TEXT StringValue=kept"));
    QDomDocument empty;
    emit hub().writeToFile(empty);
    emit hub().readFromFile(empty);
    EXPECT_TRUE(empty.documentElement().isNull());
}

// ---- the list ----

class ComboBox : public ValueManager {
protected:
    static QStringList items(ValManComboBoxWidget* choice) { return choice->getComboBoxContentsAsList(); }
};

TEST_F(ComboBox, ItsListIsOneText) {
    auto* choice = add<ValManComboBoxWidget>();
    EXPECT_TRUE(choice->isEditable());
    EXPECT_EQ(choice->getDeliminator(), ";");
    EXPECT_TRUE(items(choice).isEmpty());
    EXPECT_EQ(choice->property("comboBoxContents").toString(), "");
    choice->setProperty("comboBoxContents", "");
    EXPECT_EQ(items(choice), QStringList{""});
    choice->setProperty("comboBoxContents", ";;");
    EXPECT_EQ(items(choice), (QStringList{"", "", ""}));
    choice->setProperty("comboBoxContents", "a;b c;;D");
    EXPECT_EQ(items(choice), (QStringList{"a", "b c", "", "D"}));
    EXPECT_EQ(choice->property("comboBoxContents").toString(), "a;b c;;D");
    choice->setComboBoxContents(QStringList{"x;y", "z"});
    EXPECT_EQ(choice->getComboBox()->count(), 2);
    choice->setProperty("comboBoxContents", choice->property("comboBoxContents"));
    EXPECT_EQ(items(choice), (QStringList{"x", "y", "z"}));
}

TEST_F(ComboBox, AnotherDelimiterIsGivenOnce) {
    ExtendedQComboBox box(&form, "--");
    box.setContents(QString("a--b-c--"));
    EXPECT_EQ(box.contentsAsList(), (QStringList{"a", "b-c", ""}));
    EXPECT_EQ(box.contents(), "a--b-c--");
    EXPECT_EQ(box.getDeliminator(), "--");
    EXPECT_EQ(box.parent(), &form);
}

TEST_F(ComboBox, AValueIsAddedOnce) {
    auto* choice = add<ValManComboBoxWidget>("REAL");
    choice->setProperty("comboBoxContents", "1;2.000000");
    set_real_variable(real(), 1);
    read();
    EXPECT_EQ(list(choice)->currentText(), "1.000000");
    EXPECT_EQ(choice->property("comboBoxContents").toString(), "1;2.000000;1.000000");
    set_real_variable(real(), 2);
    read();
    EXPECT_EQ(list(choice)->currentIndex(), 1);
    set_real_variable(real(), 1);
    read();
    EXPECT_EQ(list(choice)->currentIndex(), 2);
    EXPECT_EQ(list(choice)->count(), 3);
}

TEST_F(ComboBox, CapitalsAreOtherLetters) {
    auto* choice = add<ValManComboBoxWidget>("TEXT");
    choice->setProperty("comboBoxContents", "Low;High");
    set_string_variable(string(), const_cast<char*>("low"));
    read();
    EXPECT_EQ(items(choice), (QStringList{"Low", "High", "low"}));
    EXPECT_EQ(list(choice)->currentIndex(), 2);
}

TEST_F(ComboBox, AFixedListShowsNothingOfAStranger) {
    set_string_variable(string(), const_cast<char*>("stranger"));
    set_integer(integer(), 9);
    auto* word = add<ValManComboBoxWidget>("TEXT");
    auto* number = add<ValManComboBoxWidget>("COUNT");
    for (ValManComboBoxWidget* choice : {word, number}) {
        choice->setProperty("editable", false);
        choice->setProperty("comboBoxContents", "1;2");
    }
    read();
    EXPECT_EQ(list(word)->currentIndex(), -1);
    EXPECT_EQ(list(word)->currentText(), "");
    EXPECT_EQ(list(word)->count(), 2);
    commit();
    EXPECT_STREQ(string()->value, "stranger");
    EXPECT_EQ(+integer()->value, 0);
}

TEST_F(ComboBox, ANewListForgetsTheChoiceAndTellsSo) {
    auto* choice = add<ValManComboBoxWidget>("TEXT");
    choice->setProperty("comboBoxContents", "a;b");
    list(choice)->setCurrentIndex(1);
    QSignalSpy edits(&hub(), &SignalSlotSingleton::valueChanged);
    choice->setProperty("comboBoxContents", "c;b");
    EXPECT_EQ(list(choice)->currentText(), "c");
    EXPECT_EQ(edits.count(), 2);
}

TEST_F(ComboBox, TheListsNumbersAreInItsUnits) {
    auto* choice = add<ValManComboBoxWidget>("REAL");
    auto* count = add<ValManComboBoxWidget>("COUNT");
    for (ValManComboBoxWidget* widget : {choice, count}) {
        widget->setProperty("units", "cm");
        widget->setProperty("comboBoxContents", "1;2");
        list(widget)->setCurrentIndex(1);
    }
    commit();
    EXPECT_EQ(+real()->value, 20.0);
    EXPECT_EQ(+integer()->value, 20);
    read();
    EXPECT_EQ(choice->property("units").toString(), "cm");
}

TEST_F(ComboBox, AnAliasEmptiesItsUnits) {
    configure({"put 54 1 REAL", "alias NICK REAL 1"});
    auto* choice = add<ValManComboBoxWidget>();
    choice->setProperty("units", "cm");
    choice->setProperty("OstrelVariable", "REAL");
    EXPECT_EQ(choice->property("units").toString(), "");
    choice->setProperty("units", "cm");
    choice->setProperty("OstrelVariable", "NICK");
    EXPECT_EQ(choice->property("units").toString(), "cm");
}

TEST_F(ComboBox, ATypedValueIsWritten) {
    auto* choice = add<ValManComboBoxWidget>("TEXT");
    choice->setProperty("comboBoxContents", "a;b");
    show();
    type(list(choice)->lineEdit(), "typed");
    commit();
    EXPECT_STREQ(string()->value, "typed");
}

TEST_F(ComboBox, AFileHasItsTextUnderTheNameOfItsKind) {
    auto* real = add<ValManComboBoxWidget>("REAL");
    auto* count = add<ValManComboBoxWidget>("COUNT");
    auto* text = add<ValManComboBoxWidget>("TEXT");
    add<ValManComboBoxWidget>("NOBODY");
    for (ValManComboBoxWidget* choice : {real, count, text})
        choice->setProperty("comboBoxContents", "1;2");
    EXPECT_EQ(contentsOf(saved()), "REAL RealValue=1\nCOUNT IntValue=1\nTEXT StringValue=1\nNOBODY");
    QDomDocument file = document(
        "<REAL RealValue='2'/><COUNT IntegerValue='2' IntValue='5'/><TEXT StringValue='new'/><NOBODY IntValue='1'/>");
    emit hub().readFromFile(file);
    EXPECT_EQ(list(real)->currentIndex(), 1);
    EXPECT_EQ(list(count)->currentText(), "5");
    EXPECT_EQ(items(text), (QStringList{"1", "2", "new"}));
    EXPECT_EQ(contentsOf(file), "");
}

// ---- the buttons ----

class Buttons : public ValueManager {
protected:
    static QPushButton* button(QWidget* widget) { return widget->findChild<QPushButton*>(); }
};

TEST_F(Buttons, OkCommitsAndStays) {
    auto* number = add<ValManNumericWidget>("REAL");
    auto* ok = add<ValManOKWidget>();
    show();
    read();
    type(number, "5");
    QTest::mouseClick(button(ok), Qt::LeftButton);
    EXPECT_EQ(+real()->value, 5.0);
    EXPECT_TRUE(form.isVisible());
    type(number, "6");
    QTest::keyClick(button(ok), Qt::Key_Space);
    EXPECT_EQ(+real()->value, 6.0);
}

TEST_F(Buttons, OkRaisesItsEventBeforeItCommits) {
    int event = 0;
    ASSERT_EQ(ostrel_event_create("START", nullptr), 0);
    ASSERT_EQ(event_attach("START", 4, &event), 0);
    int raised = -1;
    double atThatTime = -1;
    const auto connection = QObject::connect(&hub(), &SignalSlotSingleton::commitToOstrel, &form, [&] {
        char payload[256];
        event_wait(payload, sizeof payload, &raised);
        atThatTime = real()->value;
    });
    auto* number = add<ValManNumericWidget>("REAL");
    auto* ok = add<ValManOKWidget>();
    ok->setProperty("EventName", "START");
    show();
    read();
    type(number, "5");
    QTest::mouseClick(button(ok), Qt::LeftButton);
    event_detach(event);
    QObject::disconnect(connection);
    EXPECT_EQ(raised, event);
    EXPECT_EQ(atThatTime, 0.0);
    EXPECT_EQ(+real()->value, 5.0);
}

TEST_F(Buttons, OkTellsOfAnEventThatIsNotThereAndThenCommits) {
    auto* number = add<ValManNumericWidget>("REAL");
    auto* ok = add<ValManOKWidget>();
    ok->setProperty("EventName", "B");
    show();
    read();
    type(number, "5");
    QString title;
    QString text;
    QString shown;
    double atThatTime = -1;
    whenOpened<QMessageBox>([&](QMessageBox* box) {
        title = box->windowTitle();
        text = box->text();
        shown = box->findChild<QLabel*>("qt_msgbox_label")->textFormat() == Qt::PlainText ? "plain" : "rich";
        atThatTime = real()->value;
        QTest::keyClick(box, Qt::Key_Return);
    });
    QTest::mouseClick(button(ok), Qt::LeftButton);
    EXPECT_EQ(title, "Event Not Set");
    EXPECT_EQ(text,
              "The Event <B> does not exist and was not set.\n\nMake sure the event exists within gen_labels.\n\nA "
              "commit of the values to OSTREL has been performed");
    EXPECT_EQ(shown, "plain");
    EXPECT_EQ(atThatTime, 0.0);
    EXPECT_EQ(+real()->value, 5.0);
}

TEST_F(Buttons, AFormThatIsClosedUnderTheMessageIsGone) {
    auto other = std::make_unique<QWidget>();
    auto* ok = new ValManOKWidget(other.get());
    ok->setEventName("NOBODY");
    QSignalSpy commits(&hub(), &SignalSlotSingleton::commitToOstrel);
    whenOpened<QMessageBox>([&](QMessageBox*) { other.reset(); });
    button(ok)->click();
    EXPECT_FALSE(other);
    EXPECT_EQ(commits.count(), 0);
}

// ---- files that nobody would write ----

class Files {
public:
    explicit Files(uint64_t seed) : m_random(seed) {}

    QByteArray next() {
        QByteArray text = m_random.below(8) == 0 ? "<!DOCTYPE v [<!ENTITY e 'entity'>]><values>" : "<values>";
        for (size_t count = m_random.below(6); count > 0; --count)
            text += element(2);
        text += "</values>";
        if (m_random.below(3) == 0)
            m_random.spoil(text.data(), static_cast<size_t>(text.size()));
        return text;
    }

private:
    template <size_t count>
    const char* oneOf(const char* const (&words)[count]) {
        return words[m_random.below(count)];
    }

    QByteArray element(int depth) {
        const QByteArray name =
            oneOf({"REAL", "COUNT", "TEXT", "ON", "STAT.AV", "FIELD:1", "NOBODY", "OTHER", "not_set", "values", "x"});
        QByteArray text = "<" + name;
        for (const char* attribute : {"RealValue", "IntegerValue", "IntValue", "StringValue", "BooleanValue", "Units"})
            if (m_random.below(3) == 0)
                text += ' ' + QByteArray(attribute) + "=\"" + value() + '"';
        text += '>';
        while (depth > 0 && m_random.below(4) == 0)
            text += element(depth - 1);
        return text + oneOf({"", "text", "<!-- comment -->", "<![CDATA[<REAL/>]]>", "<?do it?>"}) + "</" + name + ">";
    }

    QByteArray value() {
        switch (m_random.below(5)) {
            case 0:
                return QByteArray(static_cast<int>(m_random.below(300)), static_cast<char>('!' + m_random.below(5) * 9))
                    .replace('&', '+')
                    .replace('<', '-')
                    .replace('"', '_');
            case 1:
                return QByteArray::number(static_cast<qlonglong>(m_random()));
            default:
                return oneOf({"0", "1", "-1.5", "1e999", "nan", "2147483648", "mm", "CM", "NONE", "&e;", "&#10;",
                              "&#x10FFFF;", "\xc3\xa4", "a;b;;", "", "%n%s", "&lt;REAL/&gt;",
                              "furlongs_and_more_than_sixteen"});
        }
    }

    FuzzInputs m_random;
};

// With the sanitisers as many as it takes to trust it; OSTREL_TEST_INPUTS=N takes N times as many.
int filesToRead() {
#ifdef __SANITIZE_ADDRESS__
    return FuzzInputs::scaled(100000);
#else
    return FuzzInputs::scaled(4000);
#endif
}

TEST_F(ValueManager, NoFileHarmsAnEditor) {
    auto* number = add<ValManNumericWidget>("REAL");
    auto* count = add<ValManNumericWidget>("COUNT");
    auto* text = add<ValManStringWidget>("TEXT");
    auto* state = add<ValManLogicalWidget>("ON");
    auto* choice = add<ValManComboBoxWidget>("OTHER");
    for (const char* name : {"STAT.AV", "FIELD:1", "NOBODY", "TEXT", "COUNT", "not_set"}) {
        add<ValManFileWidget>(name);
        add<ValManComboBoxWidget>(name);
    }
    const auto choices = form.findChildren<ValManComboBoxWidget*>();
    const auto lines = form.findChildren<QLineEdit*>("value");
    writes();
    Files files(20);
    int accepted = 0;
    for (int i = filesToRead(); i > 0; --i) {
        QDomDocument file;
        if (!file.setContent(files.next()))
            continue;
        ++accepted;
        emit hub().readFromFile(file);
        for (const QLineEdit* field : lines)
            ASSERT_LE(field->text().size(), field->maxLength());
        if (i % 64 == 0) {
            QDomDocument again;
            QString why;
            ASSERT_TRUE(again.setContent(saved().toString(), &why))
                << why.toStdString() << saved().toByteArray().constData();
            for (ValManComboBoxWidget* each : choices)
                each->setProperty("comboBoxContents", "1;2");
        }
    }
    EXPECT_GT(accepted, filesToRead() / 2);
    EXPECT_TRUE(writes().empty());
    emit hub().readFromFile(
        document("<REAL RealValue='1' Units='CM'/><COUNT IntegerValue='2'/><TEXT StringValue='3'/>"
                 "<ON BooleanValue='1'/><OTHER RealValue='5'/>"));
    EXPECT_EQ(line(number)->text(), "1");
    EXPECT_EQ(line(count)->text(), "2");
    EXPECT_EQ(line(text)->text(), "3");
    EXPECT_TRUE(box(state)->isChecked());
    EXPECT_EQ(list(choice)->currentText(), "5");
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // The build asks for the names of the tests, and has no screen.
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
