// The properties of an object in a tree: which there are, under which names, and what an edit does.
#include "properties/objectcontroller.h"

#include <qttreepropertybrowser.h>
#include <qtvariantproperty.h>

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLayout>
#include <QPalette>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include "plugintest.h"
#include "properties/enumvalues.h"
#include "qttests.h"

// A base class whose name the unlocked and locked views tell apart.
class Instrument : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER m_name)
    Q_PROPERTY(QString units MEMBER m_units)
    Q_PROPERTY(QString group MEMBER m_group)
    Q_PROPERTY(int memCode MEMBER m_memCode)
    Q_PROPERTY(int memIndex MEMBER m_memIndex)

private:
    QString m_name = QStringLiteral("SPEED");
    QString m_units = QStringLiteral("RPM");
    QString m_group;
    int m_memCode = 3;
    int m_memIndex = 4;
};

class Dial : public Instrument {
    Q_OBJECT
    Q_PROPERTY(Shape shape READ shape WRITE setShape)
    Q_PROPERTY(Marks marks READ marks WRITE setMarks)
    Q_PROPERTY(QFont font MEMBER font)
    Q_PROPERTY(QColor color MEMBER color)
    Q_PROPERTY(QPalette palette MEMBER palette)
    Q_PROPERTY(int hidden WRITE setHidden)
    Q_PROPERTY(int serial READ serial)
    Q_PROPERTY(int secret READ serial WRITE setHidden DESIGNABLE false)
    Q_PROPERTY(int sealed READ serial DESIGNABLE false)
    Q_PROPERTY(double limit READ limit WRITE setLimit)
    Q_PROPERTY(double half READ half)
    Q_PROPERTY(bool lit MEMBER lit)
    Q_PROPERTY(QString label MEMBER label)

public:
    enum Shape { Round = 5, Circle = 5, Square = 2, Wide = 9 };
    Q_ENUM(Shape)
    enum Mark { None = 0, Fine = 2, Coarse = 8, Thin = 2, Both = 10, Text = 16 };
    Q_DECLARE_FLAGS(Marks, Mark)
    Q_FLAG(Marks)

    Shape shape() const { return m_shape; }
    void setShape(Shape shape) { m_shape = shape; }
    Marks marks() const { return m_marks; }
    void setMarks(Marks marks) { m_marks = marks; }
    int serial() const { return 7; }
    void setHidden(int number) { hidden = number; }
    double limit() const { return m_limit; }
    double half() const { return m_limit / 2; }
    void setLimit(double limit) { m_limit = qMin(limit, 100.0); }

    QFont font;
    QColor color = Qt::red;
    QPalette palette;
    int hidden = 0;
    bool lit = false;
    QString label = QStringLiteral("Oil");

private:
    Shape m_shape = Square;
    Marks m_marks = Marks(Fine | Text);
    double m_limit = 50;
};

// Properties that the browser shows in parts.
class Plate : public QObject {
    Q_OBJECT
    Q_PROPERTY(QColor paint MEMBER m_paint)
    Q_PROPERTY(QSize extent MEMBER m_extent)

private:
    QColor m_paint = Qt::red;
    QSize m_extent = QSize(3, 4);
};

namespace {

class Controller : public ObjectController {
public:
    Controller() : ObjectController(nullptr) {}

    QtTreePropertyBrowser* browser() const { return findChild<QtTreePropertyBrowser*>(); }
    QTreeWidget* tree() const { return findChild<QTreeWidget*>(); }
    QStringList groups() const { return namesOf(browser()->topLevelItems()); }
    QStringList propertiesOf(const QString& group) const {
        QtBrowserItem* item = find(group);
        return item ? namesOf(item->children()) : QStringList();
    }
    // The first item of that name, from the top.
    QtBrowserItem* find(const QString& name) const { return find(browser()->topLevelItems(), name); }
    QtVariantProperty* property(const QString& name) const {
        QtBrowserItem* item = find(name);
        return item ? dynamic_cast<QtVariantProperty*>(item->property()) : nullptr;
    }
    QString text(const QString& name) const { return property(name)->valueText(); }
    bool isExpanded(const QString& name) const { return browser()->isExpanded(find(name)); }
    void setExpanded(const QString& name, bool expanded) { browser()->setExpanded(find(name), expanded); }

    // Opens the editor of the row; null where none opens.
    template <class Editor>
    Editor* edit(const QString& name) {
        for (QtBrowserItem* item = find(name)->parent(); item; item = item->parent())
            browser()->setExpanded(item, true);
        browser()->editItem(find(name));
        return tree()->viewport()->findChild<Editor*>();
    }

private:
    static QStringList namesOf(const QList<QtBrowserItem*>& items) {
        QStringList names;
        for (const QtBrowserItem* item : items)
            names.append(item->property()->propertyName());
        return names;
    }
    static QtBrowserItem* find(const QList<QtBrowserItem*>& items, const QString& name) {
        for (QtBrowserItem* item : items) {
            if (item->property()->propertyName() == name)
                return item;
        }
        for (const QtBrowserItem* item : items) {
            if (QtBrowserItem* found = find(item->children(), name))
                return found;
        }
        return nullptr;
    }
};

const QStringList dialProperties = {"shape",
                                    "marks",
                                    "font",
                                    "color",
                                    "palette",
                                    "hidden",
                                    "serial",
                                    "secret (Non Designable)",
                                    "sealed (Non Designable)",
                                    "limit",
                                    "half",
                                    "lit",
                                    "label"};

}  // namespace

class ObjectControllerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void theBrowserIsATreeWithoutRootDecoration();
    void onlyTheClassToViewIsShown();
    void aClassOutsideTheAncestryShowsNothing();
    void theClassNameIsCaseSensitive();
    void allShowsEveryClassBaseClassesFirst();
    void theLockHidesNameAndUnits();
    void theOneArgumentPathHidesNoName();
    void theOneArgumentPathAtLockFourKeepsOneLinePerClass();
    void groupsAreCollapsedByTheStateThatNobodySaved();

    void displayNamesReplaceNamesOfPropertiesPartsAndClasses();
    void displayNamesOfColourAndSizeParts();
    void aFilteredPropertyIsGone();
    void aFilterSetToFalseHidesNothing();
    void aFilteredClassShowsItsPropertiesAtTopLevel();
    void aFilteredClassOnTheOneArgumentPath();
    void displayNamesAndFiltersAreAnswered();

    void anUnreadablePropertyIsNamedAsSuch();
    void anUnknownTypeIsShownDisabled();
    void aNonDesignablePropertyHasNoEditor();
    void aNonWritableDesignablePropertyCanBeEditedInVain();

    void anEnumShowsEachValueOnce();
    void theEnumIndexIsThePositionAmongDistinctValues();
    void aFlagOffersSingleBitsOnly();
    void aFlagBitIsWrittenAsTheObjectsFlag();
    void enumAndFlagConversions();

    void anEditGoesThroughTheSetter();
    void aRefusedValueIsPutBack();
    void aSetterThatChangesOthersUpdatesThem();
    void aPartOfAFontIsWrittenAsTheWholeFont();
    void anObjectsOwnChangeShowsWhenAsked();

    void theObjectOnShowIsNotShownAnew();
    void anotherObjectReplacesTheFormer();
    void nullShowsNothing();
    void theTreesStateCarriesOverToTheNextObject();
    void anEditAfterAChangeOfObjectReachesTheNewOne();
};

void ObjectControllerTest::theBrowserIsATreeWithoutRootDecoration() {
    Controller controller;
    QVERIFY(controller.browser());
    QVERIFY(!controller.browser()->rootIsDecorated());
    QVERIFY(controller.browser()->alternatingRowColors());
    QCOMPARE(controller.layout()->contentsMargins(), QMargins());
    QCOMPARE(controller.findChildren<QtVariantPropertyManager*>().size(), 2);
    QCOMPARE(controller.object(), nullptr);
}

void ObjectControllerTest::onlyTheClassToViewIsShown() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    QCOMPARE(controller.groups(), QStringList{"Dial"});
    QCOMPARE(controller.propertiesOf("Dial"), dialProperties);
    QCOMPARE(controller.object(), &dial);
}

void ObjectControllerTest::aClassOutsideTheAncestryShowsNothing() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "QWidget", false);
    QCOMPARE(controller.groups(), QStringList());
}

void ObjectControllerTest::theClassNameIsCaseSensitive() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "dial", false);
    QCOMPARE(controller.groups(), QStringList());
}

void ObjectControllerTest::allShowsEveryClassBaseClassesFirst() {
    QWidget widget;
    Controller controller;
    controller.setObject(&widget, "ALL", false);
    QCOMPARE(controller.groups(), QStringList({"QObject", "QWidget"}));
    Dial dial;
    Controller ofDial;
    ofDial.setObject(&dial, "ALL", false);
    QCOMPARE(ofDial.groups(), QStringList({"QObject", "Instrument", "Dial"}));
}

void ObjectControllerTest::theLockHidesNameAndUnits() {
    Instrument instrument;
    Controller locked;
    locked.setObject(&instrument, "Instrument", true);
    QCOMPARE(locked.propertiesOf("Instrument"), QStringList());
    Controller open;
    open.setObject(&instrument, "Instrument", false);
    QCOMPARE(open.propertiesOf("Instrument"), QStringList({"name", "units"}));
    Dial dial;
    Controller all;
    all.setObject(&dial, "ALL", true);
    QCOMPARE(all.propertiesOf("Dial"), dialProperties);
}

void ObjectControllerTest::theOneArgumentPathHidesNoName() {
    Instrument instrument;
    Controller controller;
    static_cast<ObjectController&>(controller).setObject(&instrument);
    QCOMPARE(controller.groups(), QStringList({"QObject", "Instrument"}));
    QCOMPARE(controller.propertiesOf("Instrument"), QStringList({"name", "units", "group", "memCode", "memIndex"}));
}

void ObjectControllerTest::theOneArgumentPathAtLockFourKeepsOneLinePerClass() {
    UserInterfaceLock = 4;
    Probe probe;
    Controller controller;
    static_cast<ObjectController&>(controller).setObject(&probe);
    QCOMPARE(controller.groups(), QStringList({"QObject", "QWidget", "OstrelBase", "Probe"}));
}

void ObjectControllerTest::groupsAreCollapsedByTheStateThatNobodySaved() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    QVERIFY(!controller.isExpanded("Dial"));
    QVERIFY(!controller.isExpanded("font"));
}

void ObjectControllerTest::displayNamesReplaceNamesOfPropertiesPartsAndClasses() {
    Dial dial;
    Controller controller;
    controller.setDisplayName("Dial", "The dial");
    controller.setDisplayName("font", "Letters");
    controller.setDisplayName("font.Point Size", "Height");
    controller.setObject(&dial, "Dial", false);
    QCOMPARE(controller.groups(), QStringList{"The dial"});
    QVERIFY(!controller.find("font"));
    QCOMPARE(controller.propertiesOf("Letters").value(1), QString("Height"));
}

void ObjectControllerTest::displayNamesOfColourAndSizeParts() {
    Plate plate;
    Controller controller;
    // The key of a part starts with the declared name of its property, whatever name that is shown under.
    controller.setDisplayName("paint", "Lacquer");
    controller.setDisplayName("paint.Red", "Warm");
    controller.setDisplayName("paint.Alpha", "Cover");
    controller.setDisplayName("Lacquer.Green", "Never seen");
    controller.setDisplayName("Red", "Nor this");
    controller.setDisplayName("extent.Height", "Length");
    controller.setObject(&plate, "Plate", false);
    QCOMPARE(controller.propertiesOf("Lacquer"), QStringList({"Warm", "Green", "Blue", "Cover"}));
    QCOMPARE(controller.propertiesOf("extent"), QStringList({"Width", "Length"}));
    // The parts work under their new names.
    controller.property("Length")->setValue(9);
    QCOMPARE(plate.property("extent").toSize(), QSize(3, 9));
    controller.property("Warm")->setValue(12);
    QCOMPARE(plate.property("paint").value<QColor>(), QColor(12, 0, 0));
}

void ObjectControllerTest::aFilteredPropertyIsGone() {
    Dial dial;
    Controller controller;
    controller.setFilter("palette", true);
    controller.setObject(&dial, "Dial", false);
    QVERIFY(!controller.find("palette"));
    QCOMPARE(controller.propertiesOf("Dial").size(), dialProperties.size() - 1);
}

void ObjectControllerTest::aFilterSetToFalseHidesNothing() {
    Dial dial;
    Controller controller;
    controller.setFilter("palette", false);
    controller.setFilter("Dial", false);
    controller.setObject(&dial, "Dial", false);
    QCOMPARE(controller.propertiesOf("Dial"), dialProperties);
    QVERIFY(controller.browser()->isItemVisible(controller.find("Dial")));
}

void ObjectControllerTest::aFilteredClassShowsItsPropertiesAtTopLevel() {
    Dial dial;
    Controller controller;
    controller.setFilter("Dial", true);
    controller.setObject(&dial, "Dial", false);
    QCOMPARE(controller.groups(), dialProperties + QStringList{"Dial"});
    QVERIFY(!controller.browser()->isItemVisible(controller.find("Dial")));
    QVERIFY(controller.browser()->isItemVisible(controller.find("font")));
    QVERIFY(!controller.isExpanded("font"));
    controller.property("label")->setValue("Water");
    QCOMPARE(dial.label, QString("Water"));
}

void ObjectControllerTest::aFilteredClassOnTheOneArgumentPath() {
    Dial dial;
    Controller controller;
    controller.setFilter("Instrument", true);
    controller.setFilter("units", true);
    static_cast<ObjectController&>(controller).setObject(&dial);
    QCOMPARE(controller.groups(),
             QStringList({"QObject", "name", "group", "memCode", "memIndex", "Instrument", "Dial"}));
    QVERIFY(!controller.browser()->isItemVisible(controller.find("Instrument")));
    QCOMPARE(controller.propertiesOf("Instrument"), QStringList());
    for (const char* shown : {"QObject", "name", "memIndex", "Dial"})
        QVERIFY2(controller.browser()->isItemVisible(controller.find(shown)), shown);
    QCOMPARE(controller.propertiesOf("Dial"), dialProperties);
    // The properties beside the hidden line are edited like any others.
    controller.property("name")->setValue("TORQUE");
    QCOMPARE(dial.property("name").toString(), QString("TORQUE"));
}

void ObjectControllerTest::displayNamesAndFiltersAreAnswered() {
    Controller controller;
    QCOMPARE(controller.getDisplayName("x"), QString());
    QVERIFY(!controller.getFilter("x"));
    controller.setDisplayName("x", "one");
    controller.setDisplayName("x", "two");
    controller.setFilter("x", true);
    QCOMPARE(controller.getDisplayName("x"), QString("two"));
    QVERIFY(controller.getFilter("x"));
    controller.setFilter("x", false);
    QVERIFY(!controller.getFilter("x"));
}

void ObjectControllerTest::anUnreadablePropertyIsNamedAsSuch() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    QCOMPARE(controller.text("hidden"), QString("< Non Readable >"));
    QVERIFY(!controller.edit<QWidget>("hidden"));
}

void ObjectControllerTest::anUnknownTypeIsShownDisabled() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    QCOMPARE(controller.text("palette"), QString("< Unknown Type >"));
    QVERIFY(!controller.property("palette")->isEnabled());
}

void ObjectControllerTest::aNonDesignablePropertyHasNoEditor() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    QCOMPARE(controller.text("secret (Non Designable)"), QString("7"));
    QVERIFY(!controller.edit<QWidget>("secret (Non Designable)"));
    QVERIFY(!controller.edit<QWidget>("sealed (Non Designable)"));
}

void ObjectControllerTest::aNonWritableDesignablePropertyCanBeEditedInVain() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    auto* editor = controller.edit<QSpinBox>("serial");
    QVERIFY(editor);
    editor->setValue(8);
    QCOMPARE(controller.text("serial"), QString("7"));
    // The one that says so stays behind without a place in the tree.
    QVERIFY(!controller.find("serial (Non Writable)"));
    int leftBehind = 0;
    for (const auto* manager : controller.findChildren<QtVariantPropertyManager*>()) {
        for (const QtProperty* property : manager->properties())
            leftBehind += property->propertyName() == "serial (Non Writable)";
    }
    QCOMPARE(leftBehind, 1);
}

void ObjectControllerTest::anEnumShowsEachValueOnce() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    QCOMPARE(controller.property("shape")->propertyType(), QtVariantPropertyManager::enumTypeId());
    QCOMPARE(controller.property("shape")->attributeValue("enumNames").toStringList(),
             QStringList({"Round", "Square", "Wide"}));
}

void ObjectControllerTest::theEnumIndexIsThePositionAmongDistinctValues() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    QCOMPARE(controller.property("shape")->value().toInt(), 1);
    auto* editor = controller.edit<QComboBox>("shape");
    QVERIFY(editor);
    QTest::keyClick(editor, Qt::Key_Down);
    QCOMPARE(dial.shape(), Dial::Wide);
    QTest::keyClick(editor, Qt::Key_Home);
    QCOMPARE(dial.shape(), Dial::Round);
}

void ObjectControllerTest::aFlagOffersSingleBitsOnly() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    QCOMPARE(controller.propertiesOf("marks"), QStringList({"Fine", "Coarse", "Text"}));
    QCOMPARE(controller.text("marks"), QString("Fine|Text"));
    dial.setMarks(Dial::Both);
    controller.updateObject();
    QCOMPARE(controller.text("marks"), QString("Fine|Coarse"));
}

void ObjectControllerTest::aFlagBitIsWrittenAsTheObjectsFlag() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    controller.property("Coarse")->setValue(true);
    QCOMPARE(dial.marks(), Dial::Marks(Dial::Both | Dial::Text));
    controller.property("Fine")->setValue(false);
    QCOMPARE(dial.marks(), Dial::Marks(Dial::Coarse | Dial::Text));
}

void ObjectControllerTest::enumAndFlagConversions() {
    const auto shapes = QMetaEnum::fromType<Dial::Shape>();
    QCOMPARE(enumToInt(shapes, 9), 2);
    QCOMPARE(enumToInt(shapes, 4), -1);
    QCOMPARE(intToEnum(shapes, 0), 5);
    QCOMPARE(intToEnum(shapes, 3), -1);
    QCOMPARE(intToEnum(shapes, -1), -1);
    const auto marks = QMetaEnum::fromType<Dial::Marks>();
    QCOMPARE(flagToInt(marks, 0), 0);
    QCOMPARE(flagToInt(marks, 10), 3);
    QCOMPARE(intToFlag(marks, 0), 0);
    QCOMPARE(intToFlag(marks, 5), 18);
    QCOMPARE(intToFlag(marks, 8), -1);
    QVERIFY(!isPowerOf2(0));
    QVERIFY(isPowerOf2(1));
    QVERIFY(!isPowerOf2(6));
    QVERIFY(isSubValue(10, 2));
    QVERIFY(isSubValue(10, 10));
    QVERIFY(!isSubValue(10, 18));
}

void ObjectControllerTest::anEditGoesThroughTheSetter() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    auto* editor = controller.edit<QDoubleSpinBox>("limit");
    QVERIFY(editor);
    QTest::keyClick(editor, Qt::Key_Up);
    QCOMPARE(dial.limit(), 51.0);
    editor->selectAll();
    QTest::keyClicks(editor, "12.5");
    QCOMPARE(dial.limit(), 51.0);
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(dial.limit(), 12.5);
}

void ObjectControllerTest::aRefusedValueIsPutBack() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    controller.property("limit")->setValue(500.0);
    QCOMPARE(dial.limit(), 100.0);
    QCOMPARE(controller.property("limit")->value().toDouble(), 100.0);
}

void ObjectControllerTest::aSetterThatChangesOthersUpdatesThem() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    controller.property("limit")->setValue(80.0);
    QCOMPARE(controller.property("half")->value().toDouble(), 40.0);
}

void ObjectControllerTest::aPartOfAFontIsWrittenAsTheWholeFont() {
    Dial dial;
    dial.font.setItalic(true);
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    controller.property("Point Size")->setValue(23);
    QCOMPARE(dial.font.pointSize(), 23);
    QVERIFY(dial.font.italic());
    controller.property("Blue")->setValue(255);
    QCOMPARE(dial.color, QColor(255, 0, 255));
}

void ObjectControllerTest::anObjectsOwnChangeShowsWhenAsked() {
    Dial dial;
    Controller controller;
    controller.updateObject();
    controller.setObject(&dial, "Dial", false);
    dial.label = "Fuel";
    QCOMPARE(controller.text("label"), QString("Oil"));
    controller.updateObject();
    QCOMPARE(controller.text("label"), QString("Fuel"));
}

void ObjectControllerTest::theObjectOnShowIsNotShownAnew() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    const QtProperty* shown = controller.property("label");
    controller.setObject(&dial, "Instrument", true);
    QCOMPARE(controller.groups(), QStringList{"Dial"});
    QCOMPARE(controller.property("label"), shown);
}

void ObjectControllerTest::anotherObjectReplacesTheFormer() {
    Dial dial;
    Instrument instrument;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    controller.setObject(&instrument, "Instrument", false);
    QCOMPARE(controller.groups(), QStringList{"Instrument"});
    QCOMPARE(controller.object(), &instrument);
}

void ObjectControllerTest::nullShowsNothing() {
    Dial dial;
    Controller controller;
    controller.setObject(&dial, "Dial", false);
    controller.setObject(nullptr, "Dial", false);
    QCOMPARE(controller.groups(), QStringList());
    QCOMPARE(controller.object(), nullptr);
    controller.updateObject();
}

void ObjectControllerTest::theTreesStateCarriesOverToTheNextObject() {
    Dial first;
    Dial second;
    Controller controller;
    controller.setObject(&first, "Dial", false);
    controller.setExpanded("Dial", true);
    controller.setExpanded("font", true);
    controller.browser()->setCurrentItem(controller.find("Bold"));
    controller.setObject(&second, "Dial", false);
    QVERIFY(controller.isExpanded("Dial"));
    QVERIFY(controller.isExpanded("font"));
    QVERIFY(!controller.isExpanded("color"));
    QCOMPARE(controller.browser()->currentItem(), controller.find("Bold"));
}

void ObjectControllerTest::anEditAfterAChangeOfObjectReachesTheNewOne() {
    Dial first;
    Dial second;
    Controller controller;
    controller.setObject(&first, "Dial", false);
    controller.setObject(&second, "Dial", false);
    controller.property("label")->setValue("Air");
    QCOMPARE(first.label, QString("Oil"));
    QCOMPARE(second.label, QString("Air"));
}

OSTREL_TEST(ObjectControllerTest)
#include "objectcontroller_test.moc"
