// Values, attributes and parts of variant properties, and what is told about them in which order.
#include <qtvariantproperty.h>

#include <QCursor>
#include <QFont>
#include <QSizePolicy>
#include <QTest>
#include <climits>

#include "qttests.h"

namespace {

// A manager that writes down what it says, by the names of the properties.
class Manager : public QtVariantPropertyManager {
public:
    Manager() {
        connect(this, &QtVariantPropertyManager::valueChanged, this,
                [this](QtProperty* property, const QVariant&) { told.append(property->propertyName()); });
        connect(this, &QtVariantPropertyManager::attributeChanged, this,
                [this](QtProperty* property, const QString& name, const QVariant&) {
                    told.append(property->propertyName() + ':' + name);
                });
    }
    QtVariantProperty* add(int type) {
        QtVariantProperty* property = addProperty(type, "p");
        told.clear();
        return property;
    }
    QtVariantProperty* part(const QtProperty* property, const QString& name) const {
        for (const QtProperty* part : property->subProperties()) {
            if (part->propertyName() == name)
                return variantProperty(part);
        }
        return nullptr;
    }
    static QStringList parts(const QtProperty* property) {
        QStringList names;
        for (const QtProperty* part : property->subProperties())
            names.append(part->propertyName());
        return names;
    }
    QStringList take() { return std::exchange(told, {}); }

    QStringList told;
};

}  // namespace

class VariantManagerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void supportedTypes();
    void valueTexts_data();
    void valueTexts();
    void partsOfComposites_data();
    void partsOfComposites();
    void aWholeTellsItsPartsFirstAPartItsWhole();
    void valuesAreConvertedOrIgnored();
    void aRangeTakesItsOtherEndAlongAndClampsTheValue();
    void partsOfAColourStayInRange();
    void anEnumStartsAnewWithOtherNames();
    void flagsAreAMaskWithABoxEach();
    void thirtyTwoFlagsFit();
    void aPartOfAFontChangesOnlyItself();
    void theCountriesFollowTheLanguage();
    void aTextThatDoesNotMatchIsRefused();
    void aRectangleStaysInItsConstraint();
    void aCompositeOutlivesAPart();
};

void VariantManagerTest::supportedTypes() {
    Manager manager;
    for (const int type :
         {QVariant::Int,   QVariant::Double,   QVariant::Bool,        QVariant::String,     QVariant::Date,
          QVariant::Time,  QVariant::DateTime, QVariant::KeySequence, QVariant::Char,       QVariant::Locale,
          QVariant::Point, QVariant::PointF,   QVariant::Size,        QVariant::SizeF,      QVariant::Rect,
          QVariant::RectF, QVariant::Color,    QVariant::Font,        QVariant::SizePolicy, QVariant::Cursor}) {
        QVERIFY(manager.isPropertyTypeSupported(type));
        QCOMPARE(manager.valueType(type), type);
        QVERIFY(manager.add(type));
    }
    QCOMPARE(manager.valueType(Manager::enumTypeId()), static_cast<int>(QVariant::Int));
    QVERIFY(!manager.add(Manager::groupTypeId())->hasValue());
    for (const int type :
         {static_cast<int>(QVariant::UInt), static_cast<int>(QVariant::LongLong),
          static_cast<int>(QVariant::StringList), static_cast<int>(QVariant::Pixmap), Manager::iconMapTypeId()}) {
        QVERIFY(!manager.isPropertyTypeSupported(type));
        QVERIFY(!manager.addProperty(type));
    }
}

void VariantManagerTest::valueTexts_data() {
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("int") << QVariant(-42) << "-42";
    QTest::newRow("true") << QVariant(true) << "True";
    QTest::newRow("string") << QVariant("oil") << "oil";
    QTest::newRow("char") << QVariant(QChar('x')) << "x";
    QTest::newRow("locale") << QVariant(QLocale("de_CH")) << "German, Switzerland";
    QTest::newRow("point") << QVariant(QPoint(3, 4)) << "(3, 4)";
    QTest::newRow("real point") << QVariant(QPointF(1.234, 5)) << "(1.23, 5.00)";
    QTest::newRow("size") << QVariant(QSize(10, 5)) << "10 x 5";
    QTest::newRow("rectangle") << QVariant(QRect(1, 2, 30, 40)) << "[(1, 2), 30 x 40]";
    QTest::newRow("colour") << QVariant(QColor(255, 20, 30)) << "[255, 20, 30] (255)";
    QTest::newRow("no colour") << QVariant(QColor()) << "[0, 0, 0] (255)";
    QTest::newRow("font") << QVariant(QFont("Nice", 14)) << "[Nice, 14]";
    QTest::newRow("size policy") << QVariant::fromValue(QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum))
                                 << "[Expanding, Minimum, 0, 0]";
    QTest::newRow("cursor") << QVariant::fromValue(QCursor(Qt::WaitCursor)) << "Wait";
    QTest::newRow("keys") << QVariant::fromValue(QKeySequence("Ctrl+S")) << "Ctrl+S";
}

void VariantManagerTest::valueTexts() {
    QFETCH(QVariant, value);
    Manager manager;
    QtVariantProperty* property = manager.add(value.userType());
    property->setValue(value);
    QTEST(property->valueText(), "text");
    QVERIFY(property->hasValue());
}

void VariantManagerTest::partsOfComposites_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("parts");
    QTest::newRow("point") << static_cast<int>(QVariant::Point) << QStringList{"X", "Y"};
    QTest::newRow("size") << static_cast<int>(QVariant::SizeF) << QStringList{"Width", "Height"};
    QTest::newRow("rectangle") << static_cast<int>(QVariant::Rect) << QStringList{"X", "Y", "Width", "Height"};
    QTest::newRow("colour") << static_cast<int>(QVariant::Color) << QStringList{"Red", "Green", "Blue", "Alpha"};
    QTest::newRow("font") << static_cast<int>(QVariant::Font)
                          << QStringList{"Family", "Point Size", "Bold", "Italic", "Underline", "Strikeout", "Kerning"};
    QTest::newRow("size policy") << static_cast<int>(QVariant::SizePolicy)
                                 << QStringList{"Horizontal Policy", "Vertical Policy", "Horizontal Stretch",
                                                "Vertical Stretch"};
    QTest::newRow("locale") << static_cast<int>(QVariant::Locale) << QStringList{"Language", "Country"};
}

void VariantManagerTest::partsOfComposites() {
    QFETCH(int, type);
    Manager manager;
    QTEST(Manager::parts(manager.add(type)), "parts");
}

void VariantManagerTest::aWholeTellsItsPartsFirstAPartItsWhole() {
    Manager manager;
    QtVariantProperty* point = manager.add(QVariant::Point);
    point->setValue(QPoint(3, 4));
    QCOMPARE(manager.take(), QStringList({"X", "Y", "p"}));
    manager.part(point, "X")->setValue(9);
    QCOMPARE(manager.take(), QStringList({"p", "X"}));
    QCOMPARE(point->value().toPoint(), QPoint(9, 4));
    point->setValue(QPoint(9, 4));
    QCOMPARE(manager.take(), QStringList());
}

void VariantManagerTest::valuesAreConvertedOrIgnored() {
    Manager manager;
    QtVariantProperty* number = manager.add(QVariant::Int);
    number->setValue("42");
    QCOMPARE(number->value().toInt(), 42);
    number->setValue(2.7);
    QCOMPARE(number->value().toInt(), 3);
    number->setValue(QVariant());
    number->setValue(QVariant(QPoint(1, 1)));
    QCOMPARE(number->value().toInt(), 3);
    number->setValue("abc");
    QCOMPARE(number->value().toInt(), 0);
}

void VariantManagerTest::aRangeTakesItsOtherEndAlongAndClampsTheValue() {
    Manager manager;
    QtVariantProperty* number = manager.add(QVariant::Int);
    QCOMPARE(number->attributeValue("minimum").toInt(), -INT_MAX);
    number->setAttribute("minimum", 10);
    QCOMPARE(manager.take(), QStringList({"p:minimum", "p:maximum", "p"}));
    QCOMPARE(number->value().toInt(), 10);
    number->setAttribute("maximum", 5);
    QCOMPARE(number->attributeValue("minimum").toInt(), 5);
    QCOMPARE(number->value().toInt(), 5);
    manager.take();
    number->setValue(6);
    number->setAttribute("unknown", 1);
    number->setAttribute("minimum", "abc");
    QCOMPARE(manager.take(), QStringList());
    QtVariantProperty* real = manager.add(QVariant::Double);
    real->setAttribute("decimals", 99);
    QCOMPARE(real->attributeValue("decimals").toInt(), 13);
}

void VariantManagerTest::partsOfAColourStayInRange() {
    Manager manager;
    QtVariantProperty* color = manager.add(QVariant::Color);
    color->setValue(QColor(1, 2, 3));
    manager.part(color, "Red")->setValue(999);
    QCOMPARE(color->value().value<QColor>(), QColor(255, 2, 3));
    manager.take();
    manager.part(color, "Alpha")->setValue(300);
    QCOMPARE(manager.take(), QStringList());
}

void VariantManagerTest::anEnumStartsAnewWithOtherNames() {
    Manager manager;
    QtVariantProperty* choice = manager.add(Manager::enumTypeId());
    choice->setValue(1);
    QCOMPARE(choice->value().toInt(), -1);
    choice->setAttribute("enumNames", QStringList({"A", "B"}));
    QCOMPARE(manager.take(), QStringList({"p:enumNames", "p"}));
    choice->setValue(1);
    choice->setValue(2);
    QCOMPARE(choice->valueText(), QString("B"));
    manager.take();
    choice->setAttribute("enumNames", QStringList({"A", "B"}));
    QCOMPARE(manager.take(), QStringList());
    choice->setAttribute("enumNames", QStringList({"C"}));
    QCOMPARE(choice->valueText(), QString("C"));
}

void VariantManagerTest::flagsAreAMaskWithABoxEach() {
    Manager manager;
    QtVariantProperty* flags = manager.add(Manager::flagTypeId());
    flags->setAttribute("flagNames", QStringList({"A", "B", "C"}));
    QCOMPARE(Manager::parts(flags), QStringList({"A", "B", "C"}));
    flags->setValue(5);
    QCOMPARE(flags->valueText(), QString("A|C"));
    flags->setValue(8);
    QCOMPARE(flags->value().toInt(), 5);
    manager.part(flags, "B")->setValue(true);
    QCOMPARE(flags->value().toInt(), 7);
    flags->setAttribute("flagNames", QStringList({"D"}));
    QCOMPARE(Manager::parts(flags), QStringList({"D"}));
    QCOMPARE(manager.properties().size(), 2);
}

void VariantManagerTest::thirtyTwoFlagsFit() {
    QStringList names;
    for (int i = 0; i < 32; ++i)
        names.append(QString::number(i));
    Manager manager;
    QtVariantProperty* flags = manager.add(Manager::flagTypeId());
    flags->setAttribute("flagNames", names);
    manager.part(flags, "31")->setValue(true);
    QCOMPARE(flags->valueText(), QString("31"));
}

void VariantManagerTest::aPartOfAFontChangesOnlyItself() {
    Manager manager;
    QtVariantProperty* property = manager.add(QVariant::Font);
    QFont font = property->value().value<QFont>();
    font.setItalic(true);
    font.setPointSize(17);
    property->setValue(font);
    QCOMPARE(manager.part(property, "Point Size")->value().toInt(), 17);
    manager.part(property, "Underline")->setValue(true);
    font.setUnderline(true);
    QCOMPARE(property->value().value<QFont>(), font);
    font.setPixelSize(20);
    property->setValue(font);
    QVERIFY(property->valueText().endsWith(", -1]"));
    QCOMPARE(manager.part(property, "Point Size")->value().toInt(), 1);
}

void VariantManagerTest::theCountriesFollowTheLanguage() {
    Manager manager;
    QtVariantProperty* locale = manager.add(QVariant::Locale);
    locale->setValue(QLocale("de_CH"));
    const QtVariantProperty* country = manager.part(locale, "Country");
    QCOMPARE(country->valueText(), QString("Switzerland"));
    QtVariantProperty* language = manager.part(locale, "Language");
    language->setValue(language->attributeValue("enumNames").toStringList().indexOf("French"));
    QCOMPARE(locale->valueText(), QString("French, Switzerland"));
    language->setValue(language->attributeValue("enumNames").toStringList().indexOf("Japanese"));
    QCOMPARE(country->valueText(), QString("Japan"));
}

void VariantManagerTest::aTextThatDoesNotMatchIsRefused() {
    Manager manager;
    QtVariantProperty* text = manager.add(QVariant::String);
    text->setAttribute("regExp", QRegExp("[0-9]+"));
    text->setValue("12");
    text->setValue("12x");
    QCOMPARE(text->value().toString(), QString("12"));
}

void VariantManagerTest::aRectangleStaysInItsConstraint() {
    Manager manager;
    QtVariantProperty* rect = manager.add(QVariant::Rect);
    rect->setValue(QRect(50, 50, 300, 20));
    rect->setAttribute("constraint", QRect(0, 0, 100, 100));
    QCOMPARE(rect->value().toRect(), QRect(0, 50, 100, 20));
    rect->setValue(QRect(90, 90, 40, 5));
    QCOMPARE(rect->value().toRect(), QRect(90, 90, 10, 5));
    manager.part(rect, "Width")->setValue(30);
    QCOMPARE(rect->value().toRect(), QRect(70, 90, 30, 5));
}

void VariantManagerTest::aCompositeOutlivesAPart() {
    Manager manager;
    QtVariantProperty* size = manager.add(QVariant::Size);
    delete manager.part(size, "Width");
    size->setValue(QSize(3, 4));
    QCOMPARE(manager.part(size, "Height")->value().toInt(), 4);
    delete size;
    QCOMPARE(manager.properties().size(), 0);
}

OSTREL_TEST(VariantManagerTest)
#include "variantmanager_test.moc"
