#include "ostrel-display/uifilewriter.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "ostrel-display/formchanges.h"
#include "qttests.h"

namespace {

const FormKey units{"OstrelBaseZelValue", "speed", "units"};

}  // namespace

class UIFileWriterTest : public QObject {
    Q_OBJECT

private slots:
    void opensOnlyAForm_data();
    void opensOnlyAForm();
    void refusesAMissingFile();
    void lastValueWins();
    void keepsObjectsAndPropertiesApart();
    void valueOfTheLoadingFormIsNoChange();
    void liveValueIsAChange();
    void valueThatTheFormHasAlreadyIsNoChange();
    void goingBackToTheFormsValueIsNoChangeAnyMore();
    void remembersAFont();
    void remembersWithoutAFile();

private:
    FormChanges* changesOf(UIFileWriter& writer) { return writer.findChild<FormChanges*>(); }
    void cacheUnits(UIFileWriter& writer, const QString& value, bool live) {
        writer.cacheProperty(units.className, units.objectName, units.property, value, live);
    }

    QTemporaryDir m_folder;
};

void UIFileWriterTest::opensOnlyAForm_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("opens");
    QTest::newRow("form") << QByteArray("<?xml version=\"1.0\"?><ui version=\"4.0\"><widget/></ui>") << true;
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("other XML") << QByteArray("<uic><widget/></uic>") << false;
    QTest::newRow("cut off") << QByteArray("<ui version=\"4.0\"><widget>") << false;
    QTest::newRow("text") << QByteArray("units = degC\n") << false;
}

void UIFileWriterTest::opensOnlyAForm() {
    QFETCH(QByteArray, content);
    const QString path = m_folder.filePath("form.ui");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    UIFileWriter writer(path, nullptr);
    QTEST(writer.openFile(), "opens");
}

void UIFileWriterTest::refusesAMissingFile() {
    UIFileWriter missing(m_folder.filePath("missing.ui"), nullptr);
    QVERIFY(!missing.openFile());
    UIFileWriter nameless(QString(), nullptr);
    QVERIFY(!nameless.openFile());
    UIFileWriter folder(m_folder.path(), nullptr);
    QVERIFY(!folder.openFile());
}

void UIFileWriterTest::lastValueWins() {
    UIFileWriter writer(QString(), nullptr);
    QVERIFY(!changesOf(writer)->value(units).isValid());
    cacheUnits(writer, "degC", true);
    cacheUnits(writer, "degF", true);
    QCOMPARE(changesOf(writer)->value(units), QVariant("degF"));
}

void UIFileWriterTest::keepsObjectsAndPropertiesApart() {
    UIFileWriter writer(QString(), nullptr);
    cacheUnits(writer, "degC", true);
    writer.cacheProperty(units.className, "torque", "units", "Nm", true);
    writer.cacheProperty(units.className, "speed", "group", "engine", false);
    writer.cacheProperty("OstrelBaseZelLed", "speed", "units", "1", false);
    QCOMPARE(changesOf(writer)->value(units), QVariant("degC"));
    QVERIFY(changesOf(writer)->isChanged({units.className, "torque", "units"}));
    QVERIFY(!changesOf(writer)->isChanged({units.className, "speed", "group"}));
    QVERIFY(!changesOf(writer)->isChanged({"OstrelBaseZelLed", "speed", "units"}));
}

void UIFileWriterTest::valueOfTheLoadingFormIsNoChange() {
    UIFileWriter writer(QString(), nullptr);
    cacheUnits(writer, "degC", false);
    cacheUnits(writer, "degF", false);
    QVERIFY(!changesOf(writer)->isDirty());
    QCOMPARE(changesOf(writer)->value(units), QVariant("degF"));
}

void UIFileWriterTest::liveValueIsAChange() {
    UIFileWriter writer(QString(), nullptr);
    QSignalSpy dirty(changesOf(writer), &FormChanges::dirtyChanged);
    cacheUnits(writer, "degC", false);
    QCOMPARE(dirty.count(), 0);
    cacheUnits(writer, "degF", true);
    QVERIFY(changesOf(writer)->isDirty());
    QVERIFY(changesOf(writer)->isChanged(units));
    QCOMPARE(dirty.count(), 1);
}

void UIFileWriterTest::valueThatTheFormHasAlreadyIsNoChange() {
    UIFileWriter writer(QString(), nullptr);
    cacheUnits(writer, "degC", false);
    cacheUnits(writer, "degC", true);
    QVERIFY(!changesOf(writer)->isDirty());
}

void UIFileWriterTest::goingBackToTheFormsValueIsNoChangeAnyMore() {
    UIFileWriter writer(QString(), nullptr);
    cacheUnits(writer, "degC", false);
    cacheUnits(writer, "degF", true);
    cacheUnits(writer, "degC", true);
    QVERIFY(!changesOf(writer)->isDirty());
}

void UIFileWriterTest::remembersAFont() {
    UIFileWriter writer(QString(), nullptr);
    const QFont font("DejaVu Sans", 17);
    writer.cachePropertyFont("OstrelBaseZelValue", "speed", "valueFont", font, true);
    const FormKey key{"OstrelBaseZelValue", "speed", "valueFont"};
    QCOMPARE(changesOf(writer)->value(key).value<QFont>(), font);
    QVERIFY(changesOf(writer)->isChanged(key));
}

void UIFileWriterTest::remembersWithoutAFile() {
    UIFileWriter writer(m_folder.filePath("missing.ui"), nullptr);
    QVERIFY(!writer.openFile());
    cacheUnits(writer, "degC", true);
    QCOMPARE(changesOf(writer)->value(units), QVariant("degC"));
}

OSTREL_TEST(UIFileWriterTest)
#include "uifilewriter_test.moc"
