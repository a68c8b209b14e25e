// The labels of the value widgets, and the table that is a shell.
#include "widgets/flashinglabel.h"

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QMetaProperty>
#include <QPainter>
#include <QScopeGuard>
#include <QTableWidget>
#include <QTest>
#include <memory>

#include "qttests.h"
#include "widgets/zeltable.h"

namespace {

// How many pixels of the picture have that colour.
int pixels(const QImage& image, QColor colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == colour;
    return count;
}

QImage picture(QWidget& label) {
    return label.grab().toImage();
}

void paletteColour(QWidget& widget, QPalette::ColorRole role, QColor colour) {
    QPalette palette = widget.palette();
    palette.setColor(role, colour);
    widget.setPalette(palette);
}

class Readout : public FlashingLabel {
public:
    Readout() {
        setText("MMMM");
        QFont font = this->font();
        font.setPixelSize(40);
        font.setStyleStrategy(QFont::NoAntialias);
        setFont(font);
        resize(sizeHint());
        paletteColour(*this, QPalette::Window, Qt::white);
        paletteColour(*this, QPalette::WindowText, Qt::blue);
        setAutoFillBackground(true);
    }
};

}  // namespace

class FlashingLabelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itPaintsInThePalettesTextColour();
    void aPaletteChangeShowsAtTheNextRepaint();
    void aStyleSheetBesideThePalette_data();
    void aStyleSheetBesideThePalette();
    void aDisabledLabelIsBlack();
    void itsStyleIsItsOwn();
    void theStyleIgnoresTheRole();
    void theTableIsAShell();
};

void FlashingLabelTest::itPaintsInThePalettesTextColour() {
    Readout label;
    paletteColour(label, QPalette::Text, Qt::red);
    QVERIFY(pixels(picture(label), Qt::red) > 50);
    QCOMPARE(pixels(picture(label), Qt::blue), 0);
}

void FlashingLabelTest::aPaletteChangeShowsAtTheNextRepaint() {
    Readout label;
    paletteColour(label, QPalette::Text, Qt::red);
    picture(label);
    paletteColour(label, QPalette::Text, Qt::green);
    QVERIFY(pixels(picture(label), Qt::green) > 50);
    QCOMPARE(pixels(picture(label), Qt::red), 0);
}

void FlashingLabelTest::aStyleSheetBesideThePalette_data() {
    QTest::addColumn<bool>("ofApplication");
    QTest::newRow("of the form") << false;
    QTest::newRow("of the application") << true;
}

// Sheets for the looks of a screen; the colour of a value's text is not theirs.
void FlashingLabelTest::aStyleSheetBesideThePalette() {
    QFETCH(bool, ofApplication);
    const QString sheet("QWidget { background-color: white; border: 1px solid gray; } QPushButton { color: blue; }");
    const auto reset = qScopeGuard([] { qApp->setStyleSheet(QString()); });
    QWidget form;
    if (ofApplication)
        qApp->setStyleSheet(sheet);
    else
        form.setStyleSheet(sheet);
    Readout label;
    label.setParent(&form);
    paletteColour(label, QPalette::Text, Qt::red);
    QVERIFY(pixels(picture(label), Qt::red) > 50);
    QCOMPARE(pixels(picture(label), Qt::blue), 0);
    // A limit colour that comes later shows as it does without the sheet.
    paletteColour(label, QPalette::Text, Qt::green);
    QVERIFY(pixels(picture(label), Qt::green) > 50);
    QCOMPARE(pixels(picture(label), Qt::red), 0);
}

void FlashingLabelTest::aDisabledLabelIsBlack() {
    Readout label;
    paletteColour(label, QPalette::Text, Qt::red);
    label.setEnabled(false);
    QVERIFY(pixels(picture(label), Qt::black) > 50);
    QCOMPARE(pixels(picture(label), Qt::red), 0);
}

void FlashingLabelTest::itsStyleIsItsOwn() {
    FlashingLabel first;
    FlashingLabel second(&first);
    const QLabel plain(&first);
    QCOMPARE(second.windowFlags(), plain.windowFlags());
    QVERIFY(qobject_cast<LabelStyle*>(first.style()));
    QVERIFY(first.style() != second.style());
}

void FlashingLabelTest::theStyleIgnoresTheRole() {
    LabelStyle style;
    QImage image(200, 60, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPalette palette;
    palette.setColor(QPalette::Active, QPalette::Text, Qt::red);
    palette.setColor(QPalette::Inactive, QPalette::Text, Qt::green);
    palette.setColor(QPalette::WindowText, Qt::blue);
    palette.setCurrentColorGroup(QPalette::Inactive);
    QPainter painter(&image);
    QFont font = painter.font();
    font.setPixelSize(40);
    font.setStyleStrategy(QFont::NoAntialias);
    painter.setFont(font);
    style.drawItemText(&painter, image.rect(), Qt::AlignCenter, palette, true, "MMMM", QPalette::WindowText);
    painter.end();
    QVERIFY(pixels(image, Qt::red) > 50);
    QCOMPARE(pixels(image, Qt::blue) + pixels(image, Qt::green), 0);
}

void FlashingLabelTest::theTableIsAShell() {
    zelTable widget;
    QCOMPARE(widget.objectName(), QString("zelTable"));
    QCOMPARE(widget.size(), QSize(455, 113));
    QVERIFY(widget.setProperty("names", QStringList({"SPEED", "TORQUE"})));
    QVERIFY(widget.setProperty("unitsVis", true));
    QCOMPARE(widget.property("names").toStringList(), QStringList());
    QCOMPARE(widget.property("unitsVis").toBool(), false);
    const auto* table = widget.findChild<QTableWidget*>("tableWidget");
    QCOMPARE(table->rowCount(), 3);
    QCOMPARE(table->columnCount(), 3);
    QStringList headers;
    for (int i = 0; i < 3; ++i)
        headers << table->horizontalHeaderItem(i)->text() << table->verticalHeaderItem(i)->text();
    QCOMPARE(headers, QStringList({"Name", "1", "Value", "2", "Units", "3"}));
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            QVERIFY(!table->item(row, column) || table->item(row, column)->text().isEmpty());
    QVERIFY(table->horizontalHeader()->cascadingSectionResizes());
    QVERIFY(table->horizontalHeader()->isSortIndicatorShown());
    QVERIFY(table->horizontalHeader()->stretchLastSection());
    QVERIFY(!table->verticalHeader()->cascadingSectionResizes());
    QVERIFY(table->verticalHeader()->highlightSections());
    QVERIFY(table->verticalHeader()->stretchLastSection());
}

OSTREL_TEST(FlashingLabelTest)
#include "flashinglabel_test.moc"
