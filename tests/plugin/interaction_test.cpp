// What an operator does to any bound widget: its menu, dragging names, double clicks.
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDrag>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTimer>
#include <memory>

#include "qttests.h"
#include "readouttest.h"
#include "widgets/zel_value.h"

namespace {

// The base's own manners: the probe writes nothing.
class Writing : public Probe {
public:
    bool allowsWriteAcess() override { return writes; }
    void handleWriteValue(QObject* source) override {
        ++asked;
        lastSource = source;
    }
    bool writes = true;
    int asked = 0;
    QObject* lastSource = nullptr;
};

// Tells which looks were chosen for it.
class Painted : public Probe {
public:
    void setColor(const QColor& color) override { chosen.append({"color", color}); }
    void setBColor(QColor color) override { chosen.append({"background", color}); }
    void setMyFont(const QFont& font) override { chosen.append({"font", font}); }
    void setValueFont(const QFont& font) override { chosen.append({"value font", font}); }
    QList<QPair<QString, QVariant>> chosen;
};

void press(const QDialog& dialog, QDialogButtonBox::StandardButton button) {
    QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
}

// What is seen of a value that cannot find its variable.
bool isMarkedMissing(const ZelValue& value) {
    return !value.findChild<QLabel*>("iconLabel")->isHidden() &&
           value.findChild<QFrame*>("frame")->toolTip() == QLatin1String("VARIABLE NOT FOUND") &&
           value.findChild<QLineEdit*>("value")->text() == QLatin1String("-");
}

QStringList menuTexts(const QWidget& widget) {
    QStringList texts;
    for (const QAction* action : widget.actions())
        texts.append(action->text());
    return texts;
}

void trigger(const QWidget& widget, const QString& text) {
    for (QAction* action : widget.actions())
        if (action->text() == text)
            action->trigger();
}

std::unique_ptr<QMimeData> textData(const QString& text) {
    auto data = std::make_unique<QMimeData>();
    data->setText(text);
    return data;
}

// What Qt's item views put into a drag.
std::unique_ptr<QMimeData> itemData(const QString& text) {
    QStandardItemModel model;
    model.appendRow(new QStandardItem(text));
    model.appendRow(new QStandardItem("ANOTHER"));
    return std::unique_ptr<QMimeData>(model.mimeData({model.index(0, 0), model.index(1, 0)}));
}

bool enters(QWidget& widget, const QMimeData& data) {
    QDragEnterEvent event(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

void drop(QWidget& widget, const QMimeData& data, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    widget.setAcceptDrops(true);
    QVERIFY(enters(widget, data));
    QDropEvent event(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, modifiers);
    QApplication::sendEvent(&widget, &event);
}

}  // namespace

class InteractionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void theMenuHasItsEntriesInOrder();
    void aRemoteDisplayHasNoMenu();
    void aDesignerHasTheMenu();
    void theNameIsCopied();
    void theNameIsPasted();
    void aLockedWidgetTakesNoPaste();
    void theWidgetIsSwitchedOff();
    void theSlotsForColoursAndFontsExist();
    void aColourIsChosen_data();
    void aColourIsChosen();
    void aFontIsChosen_data();
    void aFontIsChosen();
    void aPasteOfAnUnknownNameIsMarked();

    void textAndItemsMayEnter();
    void aDropBindsTheName_data();
    void aDropBindsTheName();
    void aDropOfAnUnknownNameIsMarked();
    void aLockedWidgetTakesNoDrop();
    void aDropWithControlSwapsTwoWidgets();
    void aDropWithControlFromElsewhereChangesNothing_data();
    void aDropWithControlFromElsewhereChangesNothing();
    void aDragStartsBehindTheStartDistance_data();
    void aDragStartsBehindTheStartDistance();

    void aDoubleClickAsksForAValue();
};

void InteractionTest::theMenuHasItsEntriesInOrder() {
    Probe widget;
    QCOMPARE(widget.contextMenuPolicy(), Qt::ActionsContextMenu);
    QCOMPARE(menuTexts(widget), QStringList({"Change Variable", "Change Units", "Edit Properties", "Copy Variable Name",
                                             "Paste Variable Name", "Disable Widget"}));
    // A lock changes nothing in the menu.
    UserInterfaceLock = 2;
    Probe locked;
    locked.setLockVariable(true);
    QCOMPARE(menuTexts(locked).size(), 6);
}

void InteractionTest::aRemoteDisplayHasNoMenu() {
    RemoteDisplay = true;
    Probe widget;
    QCOMPARE(menuTexts(widget), QStringList());
    QVERIFY(widget.contextMenuPolicy() != Qt::ActionsContextMenu);
}

void InteractionTest::aDesignerHasTheMenu() {
    inDesigner = true;
    Probe widget;
    QCOMPARE(menuTexts(widget).size(), 6);
}

void InteractionTest::theNameIsCopied() {
    UserInterfaceLock = 1;
    Probe widget;
    widget._name = "SPEED";
    trigger(widget, "Copy Variable Name");
    QCOMPARE(QApplication::clipboard()->text(), QString("SPEED"));
}

void InteractionTest::theNameIsPasted() {
    QApplication::clipboard()->setText("TORQUE");
    Probe widget;
    trigger(widget, "Paste Variable Name");
    QCOMPARE(widget.names, QStringList({"TORQUE"}));
    // A name that nobody knows is taken all the same.
    QCOMPARE(widget.getName(), QString("TORQUE"));
}

void InteractionTest::aLockedWidgetTakesNoPaste() {
    QApplication::clipboard()->setText("TORQUE");
    UserInterfaceLock = 1;
    Probe widget;
    trigger(widget, "Paste Variable Name");
    QCOMPARE(widget.names, QStringList());
}

void InteractionTest::theWidgetIsSwitchedOff() {
    UserInterfaceLock = 1;
    Probe widget;
    trigger(widget, "Disable Widget");
    QCOMPARE(widget.names, QStringList({"not_set"}));
}

void InteractionTest::theSlotsForColoursAndFontsExist() {
    const QMetaObject& meta = OstrelBase::staticMetaObject;
    for (const char* slot :
         {"changeColor()", "changeBColor()", "changeFont()", "changeValueFont()", "groupProperties()",
          "changeVariable()", "changeUnits()", "viewProperties()", "copyVarName()", "pasteVarName()", "disable()",
          "flash()", "ostrelTimerEvent(int)", "ostrelEvent(int,const char*,size_t)", "globalConfigEvent(short,short)"})
        QVERIFY2(meta.indexOfSlot(slot) >= 0, slot);
    QVERIFY(meta.indexOfSignal("saveUIfile()") >= 0);
    Probe widget;
    platform().forgetCalls();
    widget.groupProperties();
    QCOMPARE(platform().calls(), QStringList());
    QCOMPARE(widget.names, QStringList());
}

void InteractionTest::aColourIsChosen_data() {
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QString>("look");
    QTest::addColumn<bool>("accept");
    QTest::newRow("colour") << QByteArray("changeColor") << "color" << true;
    QTest::newRow("colour, cancelled") << QByteArray("changeColor") << "color" << false;
    QTest::newRow("background") << QByteArray("changeBColor") << "background" << true;
    QTest::newRow("background, cancelled") << QByteArray("changeBColor") << "background" << false;
}

void InteractionTest::aColourIsChosen() {
    QFETCH(QByteArray, slot);
    QFETCH(QString, look);
    QFETCH(bool, accept);
    Painted widget;
    QColor start;
    const QObject* parent = &widget;
    whenOpened<QColorDialog>([&](QColorDialog* dialog) {
        start = dialog->currentColor();
        parent = dialog->parent();
        dialog->setCurrentColor(Qt::red);
        press(*dialog, accept ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel);
    });
    QVERIFY(QMetaObject::invokeMethod(&widget, slot));
    QCOMPARE(start, QColor(Qt::white));
    QVERIFY(!parent);
    QCOMPARE(widget.chosen.size(), 1);
    QCOMPARE(widget.chosen.first().first, look);
    // The invalid colour after a cancel is what gives a widget its own colour back.
    QCOMPARE(widget.chosen.first().second.value<QColor>(), accept ? QColor(Qt::red) : QColor());
}

void InteractionTest::aFontIsChosen_data() {
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QString>("look");
    QTest::addColumn<bool>("accept");
    QTest::newRow("font") << QByteArray("changeFont") << "font" << true;
    QTest::newRow("font, cancelled") << QByteArray("changeFont") << "font" << false;
    QTest::newRow("font of the value") << QByteArray("changeValueFont") << "value font" << true;
    QTest::newRow("font of the value, cancelled") << QByteArray("changeValueFont") << "value font" << false;
}

void InteractionTest::aFontIsChosen() {
    QFETCH(QByteArray, slot);
    QFETCH(QString, look);
    QFETCH(bool, accept);
    Painted widget;
    const QObject* parent = nullptr;
    whenOpened<QFontDialog>([&](QFontDialog* dialog) {
        parent = dialog->parent();
        QFont font = dialog->currentFont();
        font.setPointSize(24);
        dialog->setCurrentFont(font);
        press(*dialog, accept ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel);
    });
    QVERIFY(QMetaObject::invokeMethod(&widget, slot));
    QCOMPARE(parent, &widget);
    QCOMPARE(widget.chosen.size(), accept ? 1 : 0);
    if (accept) {
        QCOMPARE(widget.chosen.first().first, look);
        QCOMPARE(widget.chosen.first().second.value<QFont>().pointSize(), 24);
    }
}

void InteractionTest::aPasteOfAnUnknownNameIsMarked() {
    platform().real("SPEED").value(1).format("%g");
    ZelValue widget;
    widget.setName("SPEED");
    QVERIFY(!isMarkedMissing(widget));
    QApplication::clipboard()->setText("NOBODY");
    trigger(widget, "Paste Variable Name");
    QVERIFY(isMarkedMissing(widget));
    QCOMPARE(widget.getName(), QString("NOBODY"));
}

void InteractionTest::textAndItemsMayEnter() {
    Probe widget;
    widget.setAcceptDrops(true);
    QVERIFY(enters(widget, *textData("SPEED")));
    QVERIFY(enters(widget, *itemData("SPEED")));
    QMimeData picture;
    picture.setData("image/png", "x");
    QVERIFY(!enters(widget, picture));
}

void InteractionTest::aDropBindsTheName_data() {
    QTest::addColumn<bool>("fromList");
    QTest::newRow("text") << false;
    QTest::newRow("an item of a list") << true;
}

void InteractionTest::aDropBindsTheName() {
    QFETCH(bool, fromList);
    Probe widget;
    // Drops stay possible where dragging is off.
    widget.setDDEnabled(false);
    drop(widget, fromList ? *itemData("SPEED") : *textData("SPEED"));
    QCOMPARE(widget.names, QStringList({"SPEED"}));
}

void InteractionTest::aDropOfAnUnknownNameIsMarked() {
    platform().real("SPEED").value(1).format("%g");
    ZelValue widget;
    widget.setName("SPEED");
    drop(widget, *textData("NOBODY"));
    QVERIFY(isMarkedMissing(widget));
    QCOMPARE(widget.getName(), QString("NOBODY"));
    drop(widget, *itemData("SPEED"));
    QVERIFY(!isMarkedMissing(widget));
    QCOMPARE(widget.getName(), QString("SPEED"));
}

void InteractionTest::aLockedWidgetTakesNoDrop() {
    UserInterfaceLock = 4;
    Probe widget;
    widget.setLockVariable(true);
    drop(widget, *textData("SPEED"));
    QCOMPARE(widget.names, QStringList());
    widget.setLockVariable(false);
    drop(widget, *textData("SPEED"));
    QCOMPARE(widget.names, QStringList({"SPEED"}));
}
namespace {

// Presses and moves the left button on the widget. While a drag runs, `meanwhile` is called; returns what is dragged.
template <class Action>
QString dragOut(QWidget& widget, int distance, Action meanwhile, Qt::MouseButton button = Qt::LeftButton) {
    QString dragged;
    QTimer::singleShot(0, &widget, [&] {
        if (const auto* drag = widget.findChild<QDrag*>()) {
            dragged = drag->mimeData()->text();
            meanwhile();
        }
        QDrag::cancel();
    });
    const QPoint start(5, 5);
    QMouseEvent press(QEvent::MouseButtonPress, start, button, button, Qt::NoModifier);
    QApplication::sendEvent(&widget, &press);
    QMouseEvent move(QEvent::MouseMove, start + QPoint(distance, 0), Qt::NoButton, button, Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
    QCoreApplication::processEvents();
    return dragged;
}

QString dragOut(QWidget& widget, int distance, Qt::MouseButton button = Qt::LeftButton) {
    return dragOut(
        widget, distance, [] {}, button);
}

void show(QWidget& widget) {
    widget.resize(100, 40);
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
}

}  // namespace

void InteractionTest::aDropWithControlSwapsTwoWidgets() {
    Probe from;
    Probe to;
    from._name = "SPEED";
    to._name = "TORQUE";
    show(from);
    const QString dragged = dragOut(from, 100, [&] { drop(to, *textData("SPEED"), Qt::ControlModifier); });
    QCOMPARE(dragged, QString("SPEED"));
    QCOMPARE(from.names, QStringList({"TORQUE"}));
    QCOMPARE(to.names, QStringList({"SPEED"}));
}

void InteractionTest::aDropWithControlFromElsewhereChangesNothing_data() {
    QTest::addColumn<bool>("ontoItself");
    QTest::newRow("onto itself") << true;
    QTest::newRow("from a list") << false;
}

void InteractionTest::aDropWithControlFromElsewhereChangesNothing() {
    QFETCH(bool, ontoItself);
    Probe widget;
    widget._name = "SPEED";
    show(widget);
    if (ontoItself) {
        const auto ontoSelf = [&] { drop(widget, *textData("SPEED"), Qt::ControlModifier); };
        QCOMPARE(dragOut(widget, 100, ontoSelf), QString("SPEED"));
    } else {
        drop(widget, *itemData("TORQUE"), Qt::ControlModifier);
    }
    QCOMPARE(widget.names, QStringList());
    // With another key as well it is a plain drop.
    drop(widget, *textData("TORQUE"), Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(widget.names, QStringList({"TORQUE"}));
}

void InteractionTest::aDragStartsBehindTheStartDistance_data() {
    QTest::addColumn<int>("distance");
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("lock");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("starts");
    const int enough = QApplication::startDragDistance();
    QTest::newRow("far enough") << enough << int{Qt::LeftButton} << 3 << true << true;
    QTest::newRow("too near") << enough - 1 << int{Qt::LeftButton} << 3 << true << false;
    QTest::newRow("right button") << enough << int{Qt::RightButton} << 3 << true << false;
    QTest::newRow("locked") << enough << int{Qt::LeftButton} << 1 << true << false;
    QTest::newRow("switched off") << enough << int{Qt::LeftButton} << 3 << false << false;
}

void InteractionTest::aDragStartsBehindTheStartDistance() {
    QFETCH(int, distance);
    QFETCH(int, button);
    QFETCH(int, lock);
    QFETCH(bool, enabled);
    QFETCH(bool, starts);
    Probe widget;
    widget._name = "SPEED";
    show(widget);
    widget.setDDEnabled(enabled);
    UserInterfaceLock = lock;
    const QString dragged = dragOut(widget, distance, static_cast<Qt::MouseButton>(button));
    QCOMPARE(dragged, starts ? QString("SPEED") : QString());
}

void InteractionTest::aDoubleClickAsksForAValue() {
    Writing widget;
    QTest::mouseDClick(&widget, Qt::LeftButton);
    QCOMPARE(widget.asked, 1);
    QVERIFY(!widget.lastSource);
    QTest::mouseDClick(&widget, Qt::RightButton);
    QCOMPARE(widget.asked, 1);
    widget.writes = false;
    QTest::mouseDClick(&widget, Qt::LeftButton);
    QCOMPARE(widget.asked, 1);
}

OSTREL_TEST(InteractionTest)
#include "interaction_test.moc"
