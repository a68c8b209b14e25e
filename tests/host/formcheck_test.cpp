#include "formcheck.h"

#include <QBuffer>
#include <QtTest>

#include "qttests.h"

namespace {

const QSet<QString> known{"QWidget", "QLabel", "QGroupBox", "ZelValue", "ZelLed"};

FormOutline outline(const QByteArray& content) {
    QBuffer buffer;
    buffer.setData(content);
    buffer.open(QIODevice::ReadOnly);
    return outlineForm(&buffer, "engine.ui", known);
}

QByteArray form(const QByteArray& widgets, const QByteArray& behind = QByteArray()) {
    return "<?xml version=\"1.0\"?>\n<ui version=\"4.0\">\n<widget class=\"QWidget\" name=\"Form\">\n" + widgets +
           "</widget>\n" + behind + "</ui>\n";
}

}  // namespace

class FormCheckTest : public QObject {
    Q_OBJECT

private slots:
    void goodFormHasNoFault();
    void faults_data();
    void faults();
    void namesEveryUnknownWidget();
    void tellsTheUnitsOfEachWidget();
    void findsTheNearestName_data();
    void findsTheNearestName();
};

void FormCheckTest::goodFormHasNoFault() {
    const QByteArray box =
        "<widget class=\"QGroupBox\" name=\"box\">\n<widget class=\"ZelValue\" name=\"speed\"/>\n"
        "</widget>\n";
    QCOMPARE(outline(form(box)).faults, QStringList());
}

void FormCheckTest::faults_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("fault");
    QTest::newRow("misspelt class") << form("<widget class=\"ZelVlaue\" name=\"speed\"/>\n")
                                    << "engine.ui: line 4: widget 'speed' is of the unknown class 'ZelVlaue'; did you "
                                       "mean 'ZelValue'?";
    QTest::newRow("foreign class") << form("<widget class=\"SpectrumPlot\" name=\"plot\"/>\n")
                                   << "engine.ui: line 4: widget 'plot' is of the unknown class 'SpectrumPlot'; use a "
                                      "class that this display knows";
    // What it extends would stand on the screen in its place, without a word.
    QTest::newRow("class that is only declared")
        << form("<widget class=\"Lamp\" name=\"lamp\"/>\n",
                "<customwidgets><customwidget><class>Lamp</class><extends>QLabel</extends></customwidget>"
                "</customwidgets>\n")
        << "engine.ui: line 4: widget 'lamp' is of the unknown class 'Lamp'; use a class that this display knows";
    QTest::newRow("text") << QByteArray("speed = 12\n")
                          << "engine.ui: line 1: Start tag expected; give a form saved with Qt Designer";
    QTest::newRow("other XML") << QByteArray("<html>\n</html>\n")
                               << "engine.ui: line 1: the file begins with <html> and not with <ui>; give a form saved "
                                  "with Qt Designer";
    QTest::newRow("no widget") << QByteArray("<ui version=\"4.0\"></ui>")
                               << "engine.ui: the form holds no widget; save it with Qt Designer";
    QTest::newRow("empty") << QByteArray()
                           << "engine.ui: line 1: Premature end of document; give a form saved with Qt Designer";
    QTest::newRow("cut off") << QByteArray("<ui version=\"4.0\">\n<widget class=\"QWidget\" name=\"Form\">\n")
                             << "engine.ui: line 3: Premature end of document; give a form saved with Qt Designer";
}

void FormCheckTest::faults() {
    QFETCH(QByteArray, content);
    QFETCH(QString, fault);
    QCOMPARE(outline(content).faults, QStringList(fault));
}

void FormCheckTest::namesEveryUnknownWidget() {
    const FormOutline twice =
        outline(form("<widget class=\"Foo\" name=\"one\"/>\n<widget class=\"Foo\" name=\"two\"/>\n"));
    QCOMPARE(twice.faults.size(), 2);
    QVERIFY(twice.faults[0].contains("line 4: widget 'one'"));
    QVERIFY(twice.faults[1].contains("line 5: widget 'two'"));
}

void FormCheckTest::tellsTheUnitsOfEachWidget() {
    const QByteArray units = "<property name=\"units\"><string>degF</string></property>";
    const QByteArray none = "<property name=\"units\"><string></string></property>";
    const FormOutline form1 = outline(form("<widget class=\"ZelValue\" name=\"oil\">" + units + "</widget>\n" +
                                           "<widget class=\"QGroupBox\" name=\"box\"><widget class=\"ZelValue\" "
                                           "name=\"water\">" +
                                           none + "</widget>" + units + "</widget>\n"));
    QCOMPARE(form1.units.value("oil"), QString("degF"));
    QCOMPARE(form1.units.value("water"), QString());
    QCOMPARE(form1.units.value("box"), QString("degF"));
}

void FormCheckTest::findsTheNearestName_data() {
    QTest::addColumn<QString>("wrong");
    QTest::addColumn<QString>("nearest");
    QTest::newRow("case") << "zelvalue"
                          << "ZelValue";
    QTest::newRow("a letter short") << "ZelLe"
                                    << "ZelLed";
    QTest::newRow("two letters swapped") << "ZelVlaue"
                                         << "ZelValue";
    QTest::newRow("nothing like it") << "SpectrumPlot"
                                     << "";
    QTest::newRow("empty") << ""
                           << "";
}

void FormCheckTest::findsTheNearestName() {
    QFETCH(QString, wrong);
    QTEST(nearestName(wrong, known), "nearest");
}

OSTREL_TEST_WITHOUT_SCREEN(FormCheckTest)
#include "formcheck_test.moc"
