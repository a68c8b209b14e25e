// Saving an operator's changes into a form file: what comes back through a form loader, and what stays as it was.
#include <sys/stat.h>
#include <unistd.h>

#include <QColor>
#include <QFile>
#include <QFont>
#include <QFrame>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUiLoader>
#include <QtTest>
#include <memory>

#include "kindswidget.h"
#include "ostrel-display/formchanges.h"
#include "ostrel-display/uifilewriter.h"
#include "qttests.h"

namespace {

const QByteArray plainForm = R"(<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0">
 <class>Form</class>
 <widget class="QWidget" name="Form">
  <!-- the places were agreed with the test bench crew -->
  <widget class="KindsWidget" name="kinds">
   <property name="title">
    <string notr="true" comment="shown large">Speed</string>
   </property>
   <property name="ticks">
    <number>5</number>
   </property>
   <property name="tint">
    <color>
     <red>10</red>
     <green>20</green>
     <blue>30</blue>
    </color>
   </property>
  </widget>
  <widget class="KindsWidget" name="other"/>
  <widget class="QLabel" name="title">
   <property name="text">
    <string><![CDATA[a < b]]></string>
   </property>
  </widget>
 </widget>
 <customwidgets>
  <customwidget>
   <class>KindsWidget</class>
   <extends>QWidget</extends>
   <header>kindswidget.h</header>
  </customwidget>
 </customwidgets>
 <resources/>
 <connections/>
</ui>
)";

class Loader : public QUiLoader {
public:
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        if (className != QLatin1String("KindsWidget"))
            return QUiLoader::createWidget(className, parent, name);
        auto* widget = new KindsWidget(parent);
        widget->setObjectName(name);
        return widget;
    }
};

// The lines that only one of two texts has, "-" and "+" before them.
QByteArray difference(const QByteArray& before, const QByteArray& after) {
    QList<QByteArray> old = before.split('\n');
    QList<QByteArray> now = after.split('\n');
    while (!old.isEmpty() && !now.isEmpty() && old.first() == now.first()) {
        old.removeFirst();
        now.removeFirst();
    }
    while (!old.isEmpty() && !now.isEmpty() && old.last() == now.last()) {
        old.removeLast();
        now.removeLast();
    }
    QByteArray lines;
    for (const QByteArray& line : qAsConst(old))
        lines += "-" + line + "\n";
    for (const QByteArray& line : qAsConst(now))
        lines += "+" + line + "\n";
    return lines;
}

}  // namespace

class FormSavingTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void changesOneTextAndNothingElse();
    void addsAPropertyBehindTheOthersWithTheirIndentation();
    void addsAPropertyToAWidgetWithoutAny();
    void addsToAFormInOneLine();
    void followsTabs();
    void keepsLineEndsOfWindows();
    void keepsCData();
    void keepsACommentInsideAValue();
    void keepsTheEncoding_data();
    void keepsTheEncoding();
    void keepsWhatTheFormSaysWhereNothingChanged();
    void everyKindComesBackThroughALoader_data();
    void everyKindComesBackThroughALoader();
    void writesKindsAsQtDesignerDoes_data();
    void writesKindsAsQtDesignerDoes();
    void replacesAFontPartByPart();
    void replacesTheKindOfAnElement();
    void findsAPropertyInOtherLetters();
    void takesANameOutOfAFont();
    void keyWithoutAPropertyIsNoChange();
    void statusColourIsNoChange();
    void objectOutsideTheFormIsNoChange();
    void partWithTheNameOfAWidgetIsNotTaken();
    void valueOfAWidgetThatStillLoadsIsAChangeOnceTheFormIsUp();
    void heldValuesAreNoChange();
    void valueThatTheFormSaysIsNoChange();
    void defaultThatTheFormLeavesOutIsNoChange();
    void savedIsNoChangeAnyMore();
    void formWithoutChangesIsNotTouched();
    void changesMadeOnTheDiskAreKept();
    void changeOfTheSamePropertyOnTheDiskIsTold();
    void sameChangeOnTheDiskIsNotTold();
    void changeOfAWidgetThatIsGoneIsToldAndKept();
    void brokenFormOnTheDiskIsNotReplaced();
    void charactersThatXmlHasNotAreRefusedAndKept_data();
    void charactersThatXmlHasNotAreRefusedAndKept();
    void nothingIsWrittenThatReadsAsAnotherForm();
    void formThatIsTooDeepIsNotReplaced();
    void changesThatAreTooDeepAreNotTakenOver();
    void strayTextInAPropertyGoesWithAnEditOfIt();
    void aPipeInThePlaceOfTheFormIsNotWaitedFor();
    void theFileKeepsModeOwnerAndGroup();
    void missingFileIsToldAndKept();
    void savesUnderAnotherName();
    void savesThroughALink();
    void packedChangesComeBack();
    void packedChangesThatWereSavedNameNothingMore();
    void packedChangesCountOnce();
    void packedElementsOfAnotherKindArePassedOver();
    void packedChangesTellForWhichForm();
    void changesAreNamedByVariableOrLabel();
    void formInBytesThatAreNoTextIsNotReplaced();
    void packedRubbishIsRefused();

private:
    QByteArray content() const;
    void build(const QByteArray& form);
    void set(const QString& property, const QVariant& value, const char* object = "kinds");
    KindsWidget* reloaded(const char* object = "kinds");

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
    std::unique_ptr<UIFileWriter> m_writer;
    FormChanges* m_changes = nullptr;
    std::unique_ptr<QWidget> m_form;
    std::unique_ptr<QWidget> m_again;
};

void FormSavingTest::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath("form.ui");
    build(plainForm);
}

void FormSavingTest::build(const QByteArray& form) {
    m_form.reset();
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(form);
    file.close();
    m_writer = std::make_unique<UIFileWriter>(m_path, nullptr);
    QVERIFY(m_writer->openFile());
    m_changes = m_writer->findChild<FormChanges*>();
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_form.reset(Loader().load(&file));
    QVERIFY(m_form);
    m_changes->formLoaded(m_form.get(), form);
}

QByteArray FormSavingTest::content() const {
    QFile file(m_path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

// As a setter of the widget does.
void FormSavingTest::set(const QString& property, const QVariant& value, const char* object) {
    if (value.userType() == QMetaType::QFont)
        m_writer->cachePropertyFont("KindsWidget", object, property, value.value<QFont>(), true);
    else
        m_writer->cacheProperty("KindsWidget", object, property, value, true);
}

KindsWidget* FormSavingTest::reloaded(const char* object) {
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    m_again.reset(Loader().load(&file));
    return m_again ? m_again->findChild<KindsWidget*>(QLatin1String(object)) : nullptr;
}

void FormSavingTest::changesOneTextAndNothingElse() {
    set("title", "Torque");
    QVERIFY(m_changes->isDirty());
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(difference(plainForm, content()),
             QByteArray("-    <string notr=\"true\" comment=\"shown large\">Speed</string>\n"
                        "+    <string notr=\"true\" comment=\"shown large\">Torque</string>\n"));
}

void FormSavingTest::addsAPropertyBehindTheOthersWithTheirIndentation() {
    set("limit", 2.5);
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(difference(plainForm, content()), QByteArray("+   <property name=\"limit\">\n"
                                                          "+    <double>2.500000000000000</double>\n"
                                                          "+   </property>\n"));
    QVERIFY(content().contains("   </property>\n   <property name=\"limit\">"));
}

void FormSavingTest::addsAPropertyToAWidgetWithoutAny() {
    set("title", "Torque", "other");
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(difference(plainForm, content()), QByteArray("-  <widget class=\"KindsWidget\" name=\"other\"/>\n"
                                                          "+  <widget class=\"KindsWidget\" name=\"other\">\n"
                                                          "+   <property name=\"title\">\n"
                                                          "+    <string>Torque</string>\n"
                                                          "+   </property>\n"
                                                          "+  </widget>\n"));
}

void FormSavingTest::addsToAFormInOneLine() {
    build(
        "<ui><widget class='QWidget' name='Form'><widget class='KindsWidget' name='kinds'><property name='ticks'>"
        "<number>5</number></property></widget></widget></ui>");
    set("title", "Torque");
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(content(), QByteArray("<ui><widget class='QWidget' name='Form'><widget class='KindsWidget' name='kinds'>"
                                   "<property name='ticks'><number>5</number></property><property name=\"title\">"
                                   "<string>Torque</string></property></widget></widget></ui>"));
}

void FormSavingTest::followsTabs() {
    const QByteArray tabbed =
        "<ui>\n\t<widget class=\"QWidget\" name=\"Form\">\n\t\t<widget class=\"KindsWidget\" "
        "name=\"kinds\">\n\t\t\t<property name=\"ticks\">\n\t\t\t\t<number>5</number>\n\t\t\t"
        "</property>\n\t\t</widget>\n\t</widget>\n</ui>\n";
    build(tabbed);
    set("title", "Torque");
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(difference(tabbed, content()), QByteArray("+\t\t\t<property name=\"title\">\n"
                                                       "+\t\t\t\t<string>Torque</string>\n"
                                                       "+\t\t\t</property>\n"));
}

void FormSavingTest::keepsLineEndsOfWindows() {
    QByteArray windows = plainForm;
    windows.replace("\n", "\r\n");
    build(windows);
    set("limit", 2.5);
    set("title", "Torque");
    QVERIFY(m_changes->save().isComplete());
    QByteArray saved = content();
    QCOMPARE(saved.count('\n'), windows.count('\n') + 3);
    QCOMPARE(saved.count("\r\n"), saved.count('\n'));
    QCOMPARE(reloaded()->property("limit").toDouble(), 2.5);
    QCOMPARE(reloaded()->property("title").toString(), QString("Torque"));
}

void FormSavingTest::keepsCData() {
    m_writer->cacheProperty("QLabel", "title", "text", "a & b", true);
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(difference(plainForm, content()), QByteArray("-    <string><![CDATA[a < b]]></string>\n"
                                                          "+    <string><![CDATA[a & b]]></string>\n"));
}

void FormSavingTest::keepsACommentInsideAValue() {
    QByteArray commented = plainForm;
    commented.replace("<number>5</number>", "<number><!-- as on the old bench -->5<!-- not more --></number>");
    build(commented);
    set("ticks", 7);
    QVERIFY(m_changes->save().isComplete());
    commented.replace("->5<", "->7<");
    QCOMPARE(content(), commented);
}

void FormSavingTest::keepsTheEncoding_data() {
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QByteArray>("mark");
    QTest::addColumn<QByteArray>("declared");
    QTest::newRow("UTF-8") << QByteArray("UTF-8") << QByteArray() << QByteArray("UTF-8");
    QTest::newRow("UTF-8, marked") << QByteArray("UTF-8") << QByteArray("\xef\xbb\xbf") << QByteArray("UTF-8");
    QTest::newRow("UTF-16LE, marked") << QByteArray("UTF-16LE") << QByteArray("\xff\xfe") << QByteArray("UTF-16");
    QTest::newRow("Latin-1") << QByteArray("ISO-8859-1") << QByteArray() << QByteArray("ISO-8859-1");
    QTest::newRow("Windows") << QByteArray("windows-1252") << QByteArray() << QByteArray("windows-1252");
}

void FormSavingTest::keepsTheEncoding() {
    QFETCH(QByteArray, codec);
    QFETCH(QByteArray, mark);
    QFETCH(QByteArray, declared);
    QString text = QString::fromUtf8(plainForm);
    text.replace("encoding=\"UTF-8\"", "encoding=\"" + declared + "\"").replace("places", QString::fromUtf8("Plätze"));
    const auto encoded = [&](const QString& plain) {
        QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
        return mark + QTextCodec::codecForName(codec)->fromUnicode(plain.constData(), plain.size(), &state);
    };
    build(encoded(text));
    const QString title = QString::fromUtf8("Größe Ω 𝄞");
    set("title", title);
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(reloaded()->property("title").toString(), title);
    if (!codec.startsWith("UTF"))  // what the encoding has no letter for stands as its number
        text.replace(">Speed<", QString::fromUtf8(">Größe &#937; &#119070;<"));
    else
        text.replace(">Speed<", ">" + title + "<");
    QCOMPARE(content(), encoded(text));
}

void FormSavingTest::keepsWhatTheFormSaysWhereNothingChanged() {
    set("tint", QColor(10, 20, 30));
    set("ticks", 5);
    QVERIFY(!m_changes->isDirty());
    set("ticks", 6);
    set("tint", QColor(10, 99, 30));
    QVERIFY(m_changes->save().isComplete());
    QByteArray expected = plainForm;
    expected.replace("<number>5</number>", "<number>6</number>").replace("<green>20<", "<green>99<");
    QCOMPARE(content(), expected);
}

void FormSavingTest::everyKindComesBackThroughALoader_data() {
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char* name, const char* property, const QVariant& value) {
        QTest::newRow(name) << QString(property) << value;
    };
    row("text with marks", "title", QString("a < b && \"c\" > 'd' ]]>"));
    row("text of lines", "title", QString("first\nsecond\n\n\tlast"));
    row("text with a carriage return", "title", QString("one\r\ntwo\r"));
    row("blanks around", "title", QString("  padded  "));
    row("blanks alone", "title", QString("   "));
    row("line break alone", "title", QString("\n"));
    row("empty text", "title", QString(""));
    row("other scripts", "title", QString::fromUtf8("Öl \xe6\xb8\xa9\xe5\xba\xa6 \xf0\x9d\x84\x9e"));
    row("number", "ticks", -2147483647);
    row("truth", "shown", true);
    row("small real", "limit", 1.25e-20);
    row("large real", "limit", -1.7976931348623157e308);
    row("plain real", "limit", 0.1);
    row("enumeration", "shape", QVariant::fromValue(KindsWidget::Square));
    row("enumeration as a number", "shape", int(KindsWidget::Triangle));
    row("enumeration of Qt", "direction", QVariant::fromValue(Qt::Vertical));
    row("flags", "place", QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignBottom)));
    row("no flag", "parts", QVariant::fromValue(KindsWidget::Parts()));
    row("own flags", "parts", QVariant::fromValue(KindsWidget::Parts(KindsWidget::Name | KindsWidget::Units)));
    row("colour", "tint", QColor(1, 2, 3));
    row("colour seen through", "tint", QColor(1, 2, 3, 77));
    row("size", "extent", QSize(-1, 640));
    row("point", "origin", QPoint(-5, 7));
    row("rectangle", "area", QRect(1, 2, 3, 4));
    row("texts", "choices", QStringList({"one", "t<w>o", "", "three"}));
    QFont font("DejaVu Sans Mono", 19, QFont::Black, true);
    font.setUnderline(true);
    font.setStrikeOut(true);
    font.setKerning(false);
    font.setStyleStrategy(QFont::NoAntialias);
    row("font", "face", font);
}

void FormSavingTest::everyKindComesBackThroughALoader() {
    QFETCH(QString, property);
    QFETCH(QVariant, value);
    set(property, value, "other");
    set(property, value);
    QVERIFY(m_changes->save().isComplete());
    for (const char* object : {"kinds", "other"}) {
        const KindsWidget* widget = reloaded(object);
        QVERIFY(widget);
        // The widget converts as it did for the value itself.
        KindsWidget wanted(nullptr);
        QVERIFY(wanted.setProperty(property.toLatin1().constData(), value));
        QVariant has = widget->property(property.toLatin1().constData());
        QVariant wants = wanted.property(property.toLatin1().constData());
        if (has.userType() == QMetaType::QFont)
            QCOMPARE(has.value<QFont>().toString(), wants.value<QFont>().toString());
        else if (has.userType() == qMetaTypeId<Qt::Alignment>() || property == "parts")
            QCOMPARE(*static_cast<const int*>(has.constData()), *static_cast<const int*>(wants.constData()));
        else if (property == "shape" || property == "direction")
            QCOMPARE(has.toInt(), wants.toInt());
        else
            QCOMPARE(has, wants);
    }
}

void FormSavingTest::writesKindsAsQtDesignerDoes_data() {
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("element");
    QTest::newRow("enumeration") << "shape" << QVariant(int(KindsWidget::Square))
                                 << QByteArray("<enum>KindsWidget::Square</enum>");
    QTest::newRow("enumeration of Qt") << "direction" << QVariant(int(Qt::Vertical))
                                       << QByteArray("<enum>Qt::Vertical</enum>");
    QTest::newRow("flags") << "parts" << QVariant::fromValue(KindsWidget::Parts(KindsWidget::Name | KindsWidget::Value))
                           << QByteArray("<set>KindsWidget::Name|KindsWidget::Value</set>");
    QTest::newRow("truth") << "shown" << QVariant(true) << QByteArray("<bool>true</bool>");
    QTest::newRow("real") << "limit" << QVariant(0.25) << QByteArray("<double>0.250000000000000</double>");
    QTest::newRow("colour") << "tint" << QVariant(QColor(1, 2, 3, 4))
                            << QByteArray(
                                   "<color alpha=\"4\">\n     <red>1</red>\n     <green>2</green>\n     "
                                   "<blue>3</blue>\n    </color>");
    QTest::newRow("size") << "extent" << QVariant(QSize(3, 4))
                          << QByteArray("<size>\n     <width>3</width>\n     <height>4</height>\n    </size>");
    QTest::newRow("texts") << "choices" << QVariant(QStringList({"a", "b"}))
                           << QByteArray(
                                  "<stringlist>\n     <string>a</string>\n     <string>b</string>\n    "
                                  "</stringlist>");
    QFont font;
    font.setFamily("DejaVu Sans");
    font.setPointSize(14);
    font.setBold(true);
    QTest::newRow("font") << "face" << QVariant(font)
                          << QByteArray(
                                 "<font>\n     <family>DejaVu Sans</family>\n     <pointsize>14</pointsize>\n"
                                 "     <weight>75</weight>\n     <bold>true</bold>\n    </font>");
}

void FormSavingTest::writesKindsAsQtDesignerDoes() {
    QFETCH(QString, property);
    QFETCH(QVariant, value);
    QFETCH(QByteArray, element);
    set(property, value);
    QVERIFY(m_changes->save().isComplete());
    const QByteArray written =
        "   <property name=\"" + property.toLatin1() + "\">\n    " + element + "\n   </property>\n";
    QVERIFY2(content().contains(written), (written + "in\n" + content()).constData());
}

void FormSavingTest::replacesAFontPartByPart() {
    QByteArray form = plainForm;
    form.replace("   <property name=\"ticks\">",
                 "   <property name=\"face\">\n    <font>\n     <family>DejaVu Sans</family>\n     "
                 "<italic>true</italic>\n    </font>\n   </property>\n   <property name=\"ticks\">");
    build(form);
    QFont font;
    font.setFamily("DejaVu Sans");
    font.setPointSize(14);
    font.setUnderline(true);
    set("face", font);
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(difference(form, content()), QByteArray("-     <italic>true</italic>\n"
                                                     "+     <pointsize>14</pointsize>\n"
                                                     "+     <underline>true</underline>\n"));
}

void FormSavingTest::replacesTheKindOfAnElement() {
    QByteArray form = plainForm;
    form.replace("<number>5</number>", "<string>five</string>");
    build(form);
    set("ticks", 6);
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(difference(form, content()), QByteArray("-    <string>five</string>\n"
                                                     "+    <number>6</number>\n"));
}

void FormSavingTest::findsAPropertyInOtherLetters() {
    set("TICKS", 6);
    QVERIFY(m_changes->isChanged({"KindsWidget", "kinds", "ticks"}));
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(difference(plainForm, content()), QByteArray("-    <number>5</number>\n+    <number>6</number>\n"));
}

void FormSavingTest::takesANameOutOfAFont() {
    set("title", QFont("OIL_TEMP"));
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(reloaded()->property("title").toString(), QString("OIL_TEMP"));
}

void FormSavingTest::keyWithoutAPropertyIsNoChange() {
    set("colourOfNothing", 6);
    QVERIFY(!m_changes->isDirty());
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(content(), plainForm);
}

void FormSavingTest::statusColourIsNoChange() {
    set("color", QColor(Qt::red));
    QVERIFY(!m_changes->isDirty());
    // A class that declares it itself offers it to the operator.
    m_writer->cacheProperty("KindsBase", "kinds", "color", QColor(Qt::red), true);
    QVERIFY(m_changes->isDirty());
}

void FormSavingTest::objectOutsideTheFormIsNoChange() {
    set("title", "Torque", "");
    set("title", "Torque", "elsewhere");
    QVERIFY(!m_changes->isDirty());
}

void FormSavingTest::partWithTheNameOfAWidgetIsNotTaken() {
    // A part of "kinds" is a label of the name "other", and stands before the widget of that name.
    QVERIFY(m_form->findChild<KindsWidget*>("kinds")->findChild<QLabel*>("other"));
    set("title", "Torque", "other");
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(reloaded("other")->property("title").toString(), QString("Torque"));
}

void FormSavingTest::valueOfAWidgetThatStillLoadsIsAChangeOnceTheFormIsUp() {
    m_writer->cacheProperty("KindsWidget", "kinds", "title", "Torque", false);
    QVERIFY(m_changes->isDirty());
}

void FormSavingTest::heldValuesAreNoChange() {
    set("title", "Torque");
    {
        const FormChanges::Hold hold(m_changes);
        set("title", "Power");
        set("ticks", 9);
    }
    QCOMPARE(m_changes->summary(), QStringList("Speed: title"));
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(reloaded()->property("title").toString(), QString("Torque"));
}

void FormSavingTest::valueThatTheFormSaysIsNoChange() {
    QSignalSpy dirty(m_changes, &FormChanges::dirtyChanged);
    set("title", "Speed");
    QCOMPARE(dirty.count(), 0);
    set("title", "Torque");
    QCOMPARE(dirty.takeLast(), QVariantList({true}));
    set("title", "Speed");
    QCOMPARE(dirty.takeLast(), QVariantList({false}));
    QVERIFY(!m_changes->isDirty());
}

void FormSavingTest::defaultThatTheFormLeavesOutIsNoChange() {
    set("shown", true);
    QVERIFY(m_changes->isDirty());
    set("shown", false);
    QVERIFY(!m_changes->isDirty());
}

void FormSavingTest::savedIsNoChangeAnyMore() {
    QSignalSpy dirty(m_changes, &FormChanges::dirtyChanged);
    set("title", "Torque");
    set("limit", 2.0);
    QCOMPARE(m_changes->count(), 2);
    QVERIFY(m_changes->save().isComplete());
    QVERIFY(!m_changes->isDirty());
    QCOMPARE(m_changes->count(), 0);
    QCOMPARE(dirty.takeLast(), QVariantList({false}));
    set("title", "Torque");
    QVERIFY(!m_changes->isDirty());
    set("title", "Speed");
    QVERIFY(m_changes->isDirty());
    set("limit", 3.0);
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(reloaded()->property("title").toString(), QString("Speed"));
    QCOMPARE(reloaded()->property("limit").toDouble(), 3.0);
}

void FormSavingTest::formWithoutChangesIsNotTouched() {
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QDateTime longAgo(QDate(2001, 2, 3), QTime(4, 5));
    QVERIFY(file.setFileTime(longAgo, QFileDevice::FileModificationTime));
    file.close();
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(QFileInfo(m_path).lastModified(), longAgo);
}

void FormSavingTest::changesMadeOnTheDiskAreKept() {
    set("title", "Torque");
    QByteArray designed = plainForm;
    designed.replace("<number>5</number>", "<number>50</number>").replace("<!-- the", "<!-- by chance the");
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(designed);
    file.close();
    const FormSaving saving = m_changes->save();
    QVERIFY(saving.isComplete());
    QVERIFY(saving.overwritten.isEmpty());
    QCOMPARE(content(), designed.replace(">Speed<", ">Torque<"));
}

void FormSavingTest::changeOfTheSamePropertyOnTheDiskIsTold() {
    set("title", "Torque");
    QByteArray designed = plainForm;
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(designed.replace(">Speed<", ">Power<"));
    file.close();
    const FormSaving saving = m_changes->save();
    QVERIFY(saving.isComplete());
    QCOMPARE(saving.overwritten, QStringList("Speed: title"));
    QCOMPARE(content(), designed.replace(">Power<", ">Torque<"));
}

void FormSavingTest::sameChangeOnTheDiskIsNotTold() {
    set("title", "Torque");
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(plainForm).replace(">Speed<", ">Torque<"));
    file.close();
    const FormSaving saving = m_changes->save();
    QVERIFY(saving.isComplete());
    QCOMPARE(saving.overwritten, QStringList());
}

void FormSavingTest::changeOfAWidgetThatIsGoneIsToldAndKept() {
    set("title", "Torque");
    set("title", "Power", "other");
    QByteArray designed = plainForm;
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(designed.replace("name=\"kinds\"", "name=\"renamed\""));
    file.close();
    const FormSaving saving = m_changes->save();
    QVERIFY(!saving.isComplete());
    QCOMPARE(saving.fault, QString());
    QCOMPARE(saving.unplaced, QStringList("Speed: title"));
    QCOMPARE(reloaded("other")->property("title").toString(), QString("Power"));
    QCOMPARE(m_changes->summary(), QStringList("Speed: title"));
}

void FormSavingTest::brokenFormOnTheDiskIsNotReplaced() {
    set("title", "Torque");
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(plainForm.left(plainForm.size() / 2));
    file.close();
    const FormSaving saving = m_changes->save();
    QVERIFY2(saving.fault.startsWith(m_path + ": line "), qPrintable(saving.fault));
    QCOMPARE(content(), plainForm.left(plainForm.size() / 2));
    QVERIFY(m_changes->isDirty());
}

void FormSavingTest::charactersThatXmlHasNotAreRefusedAndKept_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("vertical tabulator") << "\v  ";
    QTest::newRow("form feed") << "  \f";
    QTest::newRow("zero") << QString(QChar(0));
    QTest::newRow("half a pair") << QString(QChar(0xd83d)) + "x";
    QTest::newRow("other half of a pair") << QString(QChar(0xde80));
    QTest::newRow("no character") << QString(QChar(0xffff));
}

void FormSavingTest::charactersThatXmlHasNotAreRefusedAndKept() {
    QFETCH(QString, text);
    for (const char* encoding : {"UTF-8", "ISO-8859-1"}) {
        const QByteArray form = QByteArray(plainForm).replace("UTF-8", encoding);
        build(form);
        set("title", text);
        set("ticks", 7);
        const FormSaving saving = m_changes->save();
        QCOMPARE(saving.fault, QString());
        QCOMPARE(saving.refused.size(), 1);
        QVERIFY(!saving.isComplete());
        QCOMPARE(difference(form, content()), QByteArray("-    <number>5</number>\n+    <number>7</number>\n"));
        QCOMPARE(m_changes->count(), 1);
        QVERIFY(m_changes->isDirty());
        // Under another name too.
        m_path = m_folder->filePath("copy.ui");
        QCOMPARE(m_changes->saveAs(m_path).refused.size(), 1);
        QVERIFY(content().contains(">Speed</string>"));
        set("title", "Torque");
        QVERIFY(m_changes->save().isComplete());
    }
}

// The second widget of a name is another one than the first: what is written to the one must not read as the other's.
void FormSavingTest::nothingIsWrittenThatReadsAsAnotherForm() {
    const QString pair = QString(QChar(0xd83d)) + QChar(0xde80);
    for (const QString& text : {QString("  "), QString(" a "), QString("]]>"), QString("<&>\r\n\t\""), pair}) {
        build(plainForm);
        set("title", text);
        QVERIFY2(m_changes->save().isComplete(), qPrintable(text));
        QCOMPARE(reloaded()->property("title").toString(), text);
    }
}

void FormSavingTest::formThatIsTooDeepIsNotReplaced() {
    set("title", "Torque");
    QByteArray deep = plainForm;
    deep.replace(" <resources/>", QByteArray("<a>").repeated(300'000) + QByteArray("</a>").repeated(300'000));
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(deep);
    file.close();
    const FormSaving saving = m_changes->save();
    QVERIFY2(saving.fault.contains("more than 200 deep"), qPrintable(saving.fault));
    QCOMPARE(content(), deep);
    QVERIFY(m_changes->isDirty());
}

void FormSavingTest::changesThatAreTooDeepAreNotTakenOver() {
    const QByteArray deep = "<changes>" + QByteArray("<a>").repeated(300'000) + QByteArray("</a>").repeated(300'000);
    FormChanges later;
    QVERIFY(!later.takeOver(deep + "</changes>", plainForm, nullptr));
}

void FormSavingTest::strayTextInAPropertyGoesWithAnEditOfIt() {
    build(QByteArray(plainForm).replace("<property name=\"ticks\">", "<property name=\"ticks\">stray <!-- kept -->"));
    set("ticks", 7);
    QVERIFY(m_changes->save().isComplete());
    QVERIFY2(!content().contains("stray"), content());
    QVERIFY2(content().contains("<!-- kept -->"), content());
    QCOMPARE(reloaded()->property("ticks").toInt(), 7);
}

void FormSavingTest::aPipeInThePlaceOfTheFormIsNotWaitedFor() {
    set("title", "Torque");
    QVERIFY(QFile::remove(m_path));
    QCOMPARE(mkfifo(QFile::encodeName(m_path).constData(), 0600), 0);
    QCOMPARE(m_changes->save().fault, m_path + ": is no regular file; save the form under another name");
    QVERIFY(m_changes->isDirty());
}

void FormSavingTest::theFileKeepsModeOwnerAndGroup() {
    constexpr uid_t somebody = 65534;
    const QByteArray path = QFile::encodeName(m_path);
    const bool isRoot = geteuid() == 0;
    QCOMPARE(chmod(path.constData(), 0664), 0);
    if (isRoot)
        QCOMPARE(chown(path.constData(), somebody, somebody), 0);
    set("title", "Torque");
    const FormSaving saving = m_changes->save();
    QVERIFY(saving.isComplete());
    QCOMPARE(saving.remark, QString());
    struct stat status {};
    QCOMPARE(stat(path.constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777U, mode_t(0664));
    QCOMPARE(status.st_uid, isRoot ? somebody : geteuid());
    QCOMPARE(status.st_gid, isRoot ? gid_t(somebody) : getegid());
}

void FormSavingTest::missingFileIsToldAndKept() {
    set("title", "Torque");
    QVERIFY(QFile::remove(m_path));
    const FormSaving saving = m_changes->save();
    QCOMPARE(saving.fault, m_path + ": No such file or directory; save the form under another name");
    QVERIFY(m_changes->isDirty());
    m_path = m_folder->filePath("rescued.ui");
    QVERIFY(m_changes->saveAs(m_path).isComplete());
    QCOMPARE(reloaded()->property("title").toString(), QString("Torque"));
}

void FormSavingTest::savesUnderAnotherName() {
    set("title", "Torque");
    const QString copy = m_folder->filePath("copy.ui");
    QVERIFY(m_changes->saveAs(copy).isComplete());
    QCOMPARE(content(), plainForm);
    QCOMPARE(m_changes->path(), copy);
    QVERIFY(!m_changes->isDirty());
    m_path = copy;
    QCOMPARE(content(), QByteArray(plainForm).replace(">Speed<", ">Torque<"));
    set("title", "Power");
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(content(), QByteArray(plainForm).replace(">Speed<", ">Power<"));
}

void FormSavingTest::savesThroughALink() {
    const QString link = m_folder->filePath("link.ui");
    QVERIFY(QFile::link(m_path, link));
    QVERIFY(QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    const auto before = QFile::permissions(m_path);
    m_changes->setPath(link);
    set("title", "Torque");
    QVERIFY(m_changes->save().isComplete());
    QVERIFY(QFileInfo(link).isSymLink());
    QCOMPARE(content(), QByteArray(plainForm).replace(">Speed<", ">Torque<"));
    QCOMPARE(QFile::permissions(m_path), before);
}

void FormSavingTest::packedChangesComeBack() {
    set("title", "a <\"&\n b");
    set("tint", QColor(9, 9, 9, 9));
    const QByteArray packed = m_changes->packed();
    QVERIFY(m_changes->save().isComplete());
    const QByteArray saved = content();
    build(plainForm);
    QVERIFY(m_changes->takeOver(packed));
    FormChanges withoutForm;
    QVERIFY(withoutForm.takeOver(packed));
    QCOMPARE(withoutForm.summary(), m_changes->summary());
    QCOMPARE(m_changes->summary(), QStringList("Speed: tint, title"));
    QCOMPARE(m_changes->appliedTo(plainForm), saved);
    QVERIFY(m_changes->save().isComplete());
    QCOMPARE(content(), saved);
}

void FormSavingTest::packedChangesThatWereSavedNameNothingMore() {
    set("title", "Torque");
    const QByteArray packed = m_changes->packed();
    build(plainForm);
    QVERIFY(m_changes->takeOver(packed));
    QVERIFY(m_changes->save().isComplete());
    set("title", "Power");
    QCOMPARE(m_changes->summary(), QStringList("Torque: title"));
}

void FormSavingTest::packedChangesCountOnce() {
    set("title", "Torque");
    const QByteArray packed = m_changes->packed();
    build(plainForm);
    QVERIFY(m_changes->takeOver(packed));
    QVERIFY(m_changes->takeOver(packed));
    QCOMPARE(m_changes->count(), 1);
}

void FormSavingTest::packedElementsOfAnotherKindArePassedOver() {
    set("title", "Torque");
    QByteArray packed = m_changes->packed();
    packed.replace("<change ", "<note ").replace("</change>", "</note>");
    FormChanges later;
    QVERIFY(later.takeOver(packed));
    QCOMPARE(later.summary(), QStringList());
}

void FormSavingTest::changesAreNamedByVariableOrLabel() {
    const auto widget = [](const char* name, const char* texts) {
        return QStringLiteral("<widget class=\"KindsWidget\" name=\"%1\">%2</widget>")
            .arg(name, QString(texts)
                           .replace("=", "\"><string>")
                           .replace("[", "<property name=\"")
                           .replace("]", "</string></property>"));
    };
    build(("<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\">" +
           widget("a", "[name=BSFC][label=Fuel]") + widget("b", "[name=not_set][label=Fuel]") +
           widget("c", "[title=Two\nlines]") + widget("d", "[name=not_set]") + "</widget></ui>")
              .toUtf8());
    for (const char* object : {"a", "b", "c", "d"}) {
        set("FileName", "new.grp", object);
        set("ticks", 9, object);
    }
    set("name", "NOX", "a");
    set("name", "CO", "d");
    QCOMPARE(m_changes->summary(), QStringList({"BSFC → NOX: file name, ticks", "Fuel: file name, ticks",
                                                "Two lines: file name, ticks", "no variable → CO: file name, ticks"}));
}

void FormSavingTest::formInBytesThatAreNoTextIsNotReplaced() {
    set("title", "Torque");
    const QByteArray broken = QByteArray(plainForm).replace("bench", "b\xffnch");
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(broken);
    file.close();
    QVERIFY(m_changes->save().fault.contains("encoding"));
    QCOMPARE(content(), broken);
    QVERIFY(m_changes->isDirty());
}

void FormSavingTest::packedChangesTellForWhichForm() {
    set("title", "Torque");
    FormChanges later;
    bool same = false;
    QVERIFY(later.takeOver(m_changes->packed(), plainForm, &same));
    QVERIFY(same);
    QVERIFY(later.takeOver(m_changes->packed(), plainForm + " ", &same));
    QVERIFY(!same);
}

void FormSavingTest::packedRubbishIsRefused() {
    set("title", "Torque");
    const QByteArray packed = m_changes->packed();
    FormChanges later;
    QVERIFY(!later.takeOver(QByteArray()));
    QVERIFY(!later.takeOver("<ui/>"));
    QVERIFY(!later.takeOver(packed.left(packed.size() / 2)));
    QVERIFY(!later.isDirty());
}

OSTREL_TEST(FormSavingTest)
#include "formsaving_test.moc"
