// What becomes of a text that does not fit into its place.
#include <QApplication>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QLabel>
#include <QPainter>
#include <QToolTip>
#include <memory>

#include "pictures.h"
#include "plugintest.h"
#include "qttests.h"
#include "widgets/flashinglabel.h"
#include "widgets/valuefield.h"
#include "widgets/zel_simplevalue.h"
#include "widgets/zel_simplevalue_fl.h"
#include "widgets/zel_value.h"

namespace {

constexpr int fontSize = 24;
constexpr int fieldHeight = 30;
const QString ellipsis(QChar(0x2026));

// Both widgets that paint values, as a screen shows them: white, with the text at the right.
class Place {
public:
    explicit Place(bool isField) : m_isField(isField) {
        if (isField) {
            auto* field = new ValueField;
            field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_widget.reset(field);
        } else {
            auto* label = new FlashingLabel;
            label->setTextFormat(Qt::PlainText);
            label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            label->setAutoFillBackground(true);
            m_widget.reset(label);
        }
        QPalette palette(Qt::white);
        palette.setColor(QPalette::Base, Qt::white);
        palette.setColor(QPalette::Window, Qt::white);
        palette.setColor(QPalette::Text, Qt::black);
        m_widget->setPalette(palette);
        setFont(plainFont(fontSize));
        setRoom(100);
    }
    void setFont(const QFont& font) { m_widget->setFont(font); }
    // How wide a text may be.
    void setRoom(int width, int height = fieldHeight) {
        m_room = width;
        m_widget->resize(m_isField ? width + 8 : width, height);
    }
    void setText(const QString& text) { m_widget->setProperty("text", text); }
    QWidget& widget() const { return *m_widget; }
    QImage shown(const QString& text) {
        setText(text);
        return picture(*m_widget);
    }
    // The same place with another text, or font, which fits there.
    QImage showing(const QString& text, int size = fontSize) const {
        Place other(m_isField);
        other.setFont(plainFont(size));
        other.setRoom(m_room, m_widget->height());
        return other.shown(text);
    }
    // As many as have room.
    QImage full(int size = fontSize) const {
        const double width = QFontMetricsF(plainFont(size)).horizontalAdvance('#');
        return showing(QString(int(m_room / width), '#'), size);
    }

    static int widthOf(const QString& text, int size = fontSize) {
        return QFontMetrics(plainFont(size)).horizontalAdvance(text);
    }

private:
    bool m_isField;
    int m_room = 0;
    std::unique_ptr<QWidget> m_widget;
};

void bothPlaces() {
    QTest::addColumn<bool>("isField");
    QTest::newRow("field") << true;
    QTest::newRow("label") << false;
}

void textsInBothPlaces(const QStringList& texts) {
    QTest::addColumn<bool>("isField");
    QTest::addColumn<QString>("text");
    for (const QString& text : texts) {
        QTest::newRow(qPrintable("field, " + text)) << true << text;
        QTest::newRow(qPrintable("label, " + text)) << false << text;
    }
}

// The tool tip that an operator gets by pointing at the widget.
QString tipAt(QWidget& widget) {
    QToolTip::hideText();
    const QPoint middle = widget.rect().center();
    QHelpEvent event(QEvent::ToolTip, middle, widget.mapToGlobal(middle));
    QApplication::sendEvent(&widget, &event);
    return QToolTip::text();
}

}  // namespace

class LegibleTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }

    void aNumberThatFitsIsDrawnInItsFont_data();
    void aNumberThatFitsIsDrawnInItsFont();
    void aNumberGetsSmaller_data();
    void aNumberGetsSmaller();
    void noPartOfANumberIsShown_data();
    void noPartOfANumberIsShown();
    void aTextLosesItsEnd_data();
    void aTextLosesItsEnd();
    void aNumberInATextIsLeftOutWhole_data();
    void aNumberInATextIsLeftOutWhole();
    void noDigitIsCutAboveAndBelow_data();
    void noDigitIsCutAboveAndBelow();
    void aTextThatTheFieldCutIsNoNumber();
    void itFollowsTextFontAndRoom_data();
    void itFollowsTextFontAndRoom();
    void theToolTipTellsAll_data();
    void theToolTipTellsAll();
    void textsThatLookLikeMarkupAreTold();

    void aReadoutsNameLosesItsMiddle();
    void aReadoutsValueIsNeverAPart_data();
    void aReadoutsValueIsNeverAPart();
    void aNameThatWrapsIsWhole();
    void aLowNameKeepsItsUnderline();
    void unitsLoseTheirEnd();
    void theNameAboveAFieldLosesItsMiddle();
};

void LegibleTextTest::aNumberThatFitsIsDrawnInItsFont_data() {
    textsInBothPlaces({"0", "-1.23457E+14", "1500.00[RPM]"});
}

void LegibleTextTest::aNumberThatFitsIsDrawnInItsFont() {
    QFETCH(bool, isField);
    QFETCH(QString, text);
    Place place(isField);
    place.setRoom(Place::widthOf(text));
    QImage plain(place.widget().size(), QImage::Format_RGB32);
    plain.fill(Qt::white);
    QPainter painter(&plain);
    painter.setFont(plainFont(fontSize));
    painter.drawText(plain.rect(), Qt::AlignCenter, text);
    QVERIFY(pixels(plain, Qt::black) > 20);
    QCOMPARE(pixels(place.shown(text), Qt::black), pixels(plain, Qt::black));
}

void LegibleTextTest::aNumberGetsSmaller_data() {
    textsInBothPlaces({"1.23457E+14", "-240000", "1500.00[RPM]", "3F2A91C4", "12:30:45"});
}

void LegibleTextTest::aNumberGetsSmaller() {
    QFETCH(bool, isField);
    QFETCH(QString, text);
    Place place(isField);
    place.setRoom(Place::widthOf(text) * 8 / 10);
    int size = fontSize;
    while (Place::widthOf(text, size) > Place::widthOf(text) * 8 / 10)
        --size;
    QVERIFY(size >= fontSize * 2 / 3);
    QVERIFY(size < fontSize);
    QCOMPARE(place.shown(text), place.showing(text, size));
}

void LegibleTextTest::noPartOfANumberIsShown_data() {
    textsInBothPlaces({"1.23457E+14", "-240000", "+.000012", "1500.00[RPM]", "1500.00 [RPM]", "24000000 V",
                       "0x3F2A91C4", "3F2A91C4", "FACADE", "a1f30c[-]", "12:30:45.123", "2031-05-17", "-1e-300",
                       "-inf[BAR]"});
}

void LegibleTextTest::noPartOfANumberIsShown() {
    QFETCH(bool, isField);
    QFETCH(QString, text);
    Place place(isField);
    place.setRoom(Place::widthOf(text) * 11 / 20);
    QCOMPARE(place.shown(text), place.full());
    QCOMPARE(place.widget().property("text").toString(), text);
    // Even where not one sign fits.
    place.setRoom(6);
    QVERIFY(pixels(place.shown(text), Qt::black) > 0);
    QCOMPARE(place.shown(text), place.shown("-1"));
}

void LegibleTextTest::aTextLosesItsEnd_data() {
    textsInBothPlaces({"RUNNING UP", "stopped by hand", "Zähler läuft", "-a-long-word", "CALIBRATION"});
}

void LegibleTextTest::aTextLosesItsEnd() {
    QFETCH(bool, isField);
    QFETCH(QString, text);
    Place place(isField);
    const QString begin = text.left(6).trimmed() + ellipsis;
    place.setRoom(Place::widthOf(begin) + 2);
    QCOMPARE(place.shown(text), place.showing(begin));
}

void LegibleTextTest::aNumberInATextIsLeftOutWhole_data() {
    QTest::addColumn<bool>("isField");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("room");
    QTest::addColumn<QString>("shown");
    for (const bool isField : {true, false}) {
        const QByteArray place = isField ? "field, " : "label, ";
        QTest::newRow(place + "in it") << isField << "Pump at 1500 rpm"
                                       << "Pump at 15"
                                       << "Pump at";
        QTest::newRow(place + "behind it") << isField << "Pump 15 running"
                                           << "Pump 15"
                                           << "Pump";
        QTest::newRow(place + "with a name") << isField << "N=1500 and more"
                                             << "N=15"
                                             << "";
        QTest::newRow(place + "before it") << isField << "3 pumps running"
                                           << "3 pumps"
                                           << "3 pumps";
        QTest::newRow(place + "alone") << isField << "12.5 13.5 14.5"
                                       << "12.5"
                                       << "";
    }
}

void LegibleTextTest::aNumberInATextIsLeftOutWhole() {
    QFETCH(bool, isField);
    QFETCH(QString, text);
    QFETCH(QString, room);
    QFETCH(QString, shown);
    Place place(isField);
    place.setRoom(Place::widthOf(room + ellipsis) + 2);
    QCOMPARE(place.shown(text), place.showing(shown + ellipsis));
}

void LegibleTextTest::noDigitIsCutAboveAndBelow_data() {
    bothPlaces();
}

void LegibleTextTest::noDigitIsCutAboveAndBelow() {
    QFETCH(bool, isField);
    Place place(isField);
    const int frame = isField ? 2 : 0;
    const int digits = QFontMetrics(plainFont(fontSize)).capHeight();
    const auto isSmallerThanItsFont = [&](int height) {
        place.setRoom(200, height + frame);
        const QImage image = place.shown("8888");
        if (image == place.full())
            return false;
        for (int size = fontSize - 1; size >= fontSize * 2 / 3; --size)
            if (image == place.showing("8888", size))
                return true;
        return false;
    };
    place.setRoom(200, digits + 6 + frame);
    QVERIFY(place.shown("8888") != place.full());
    QVERIFY(isSmallerThanItsFont(digits - 3));
    place.setRoom(200, digits / 2 + frame);
    QCOMPARE(place.shown("8888"), place.full());
}

// A field takes 32 characters; what came behind is gone.
void LegibleTextTest::aTextThatTheFieldCutIsNoNumber() {
    Place place(true);
    place.setRoom(1000);
    place.widget().setProperty("maxLength", 32);
    QCOMPARE(place.shown(QString(41, '1')), place.full());
    QCOMPARE(tipAt(place.widget()), QString(32, '1') + ellipsis);
    place.setText("1500");
    QVERIFY(picture(place.widget()) != place.full());
}

void LegibleTextTest::itFollowsTextFontAndRoom_data() {
    bothPlaces();
}

void LegibleTextTest::itFollowsTextFontAndRoom() {
    QFETCH(bool, isField);
    Place place(isField);
    const QString text("1.23457E+14");
    const int width = Place::widthOf(text);
    place.setRoom(width / 2);
    QCOMPARE(place.shown(text), place.full());
    QCOMPARE(place.shown("15"), place.showing("15"));
    place.setText(text);
    place.setRoom(width);
    QCOMPARE(picture(place.widget()), place.showing(text));
    place.setFont(plainFont(2 * fontSize));
    QCOMPARE(picture(place.widget()), place.full(2 * fontSize));
    place.setFont(plainFont(fontSize));
    QCOMPARE(picture(place.widget()), place.showing(text));
}

void LegibleTextTest::theToolTipTellsAll_data() {
    bothPlaces();
}

void LegibleTextTest::theToolTipTellsAll() {
    QFETCH(bool, isField);
    QWidget frame;
    frame.setToolTip("SPEED[RPM]");
    Place place(isField);
    QWidget& widget = place.widget();
    widget.setParent(&frame);
    const QString text("1.23457E+14");
    place.setRoom(Place::widthOf(text) / 2);
    place.shown(text);
    QCOMPARE(tipAt(widget), text + "\nSPEED[RPM]");
    QCOMPARE(widget.toolTip(), QString());
    widget.setToolTip("the field's own");
    QCOMPARE(tipAt(widget), text + "\nthe field's own");
    QCOMPARE(widget.toolTip(), QString("the field's own"));
    widget.setToolTip(QString());
    place.shown("15");
    QCOMPARE(tipAt(widget), QString("SPEED[RPM]"));
    // Smaller is not cut.
    place.setRoom(Place::widthOf(text) * 8 / 10);
    place.shown(text);
    QCOMPARE(tipAt(widget), QString("SPEED[RPM]"));
    widget.setParent(nullptr);
}

void LegibleTextTest::textsThatLookLikeMarkupAreTold() {
    Place place(false);
    place.setRoom(40);
    place.shown("<b>bold</b> & more");
    QCOMPARE(tipAt(place.widget()), QString("<p>&lt;b&gt;bold&lt;/b&gt; &amp; more</p>"));
    place.shown("RUNNING UP & DOWN");
    place.widget().setToolTip("<i>help</i>");
    QCOMPARE(tipAt(place.widget()), QString("<p>RUNNING UP &amp; DOWN</p><i>help</i>"));
}

void LegibleTextTest::aReadoutsNameLosesItsMiddle() {
    platform().real("CYLINDER_PRESSURE_12");
    ZelSimpleValue widget;
    widget.setNameFont(plainFont(16));
    widget.setName("CYLINDER_PRESSURE_12");
    auto* label = widget.findChild<FlashingLabel*>("name");
    label->setFixedSize(100, 24);
    const QImage cut = picture(*label);
    QCOMPARE(tipAt(*label), "CYLINDER_PRESSURE_12\n" + widget.findChild<QFrame*>("frame")->toolTip());
    const QString shown = QFontMetrics(plainFont(16)).elidedText("CYLINDER_PRESSURE_12", Qt::ElideMiddle, 100);
    QVERIFY(shown.startsWith("CYL") && shown.endsWith("_12"));
    label->setText(shown);
    QCOMPARE(cut, picture(*label));
}

void LegibleTextTest::aReadoutsValueIsNeverAPart_data() {
    QTest::addColumn<int>("kind");
    QTest::newRow("ZelValue") << 0;
    QTest::newRow("ZelSimpleValue") << 1;
    QTest::newRow("ZelSimpleValue_fl") << 2;
}

void LegibleTextTest::aReadoutsValueIsNeverAPart() {
    QFETCH(int, kind);
    platform().real("SPEED").value(1.23457e14).format("%g");
    std::unique_ptr<OstrelBase> widget;
    if (kind == 0)
        widget = std::make_unique<ZelValue>();
    else if (kind == 1)
        widget = std::make_unique<ZelSimpleValue>();
    else
        widget = std::make_unique<ZelSimpleValue_fl>();
    widget->setValueFont(plainFont(16));
    widget->setName("SPEED");
    auto* value = widget->findChild<QWidget*>("value");
    value->setFixedSize(60, 24);
    const QImage cut = picture(*value);
    QCOMPARE(tipAt(*value).section('\n', 0, 0), QString("1.23457e+14"));
    const int room = value->contentsRect().width() - (kind == 0 ? 8 : 0);
    value->setProperty("text", QString(room / 14, '#'));
    QCOMPARE(cut, picture(*value));
}

void LegibleTextTest::aNameThatWrapsIsWhole() {
    ZelSimpleValue widget;
    widget.setNameFont(plainFont(16));
    auto* label = widget.findChild<FlashingLabel*>("name");
    label->setText("oil pressure");
    label->setFixedSize(Place::widthOf("pressure", 16) + 10, 60);
    const QImage wrapped = picture(*label);
    QCOMPARE(tipAt(*label), widget.findChild<QFrame*>("frame")->toolTip());
    label->setText("oil\npressure");
    QCOMPARE(wrapped, picture(*label));
}

void LegibleTextTest::aLowNameKeepsItsUnderline() {
    ZelSimpleValue widget;
    widget.setNameFont(plainFont(20));
    auto* label = widget.findChild<FlashingLabel*>("name");
    label->setText("___");
    label->setFixedSize(200, 16);
    QVERIFY(pixels(picture(*label), label->palette().color(QPalette::Text)) > 15);
    // One of no width still says that there is one.
    label->setText("A_1");
    label->setFixedSize(16, 30);
    QVERIFY(pixels(picture(*label), label->palette().color(QPalette::Text)) > 2);
}

// "1/MIN" begins as a number does.
void LegibleTextTest::unitsLoseTheirEnd() {
    ZelValue widget;
    widget.setNameFont(plainFont(16));
    auto* label = widget.findChild<FlashingLabel*>("units_label");
    for (const QString& begin : {QString("REV"), QString("1/M")}) {
        label->setText(begin + "INUTE");
        label->setFixedSize(Place::widthOf(begin + ellipsis, 16) + 4, 24);
        const QImage cut = picture(*label);
        label->setText(begin + ellipsis);
        QCOMPARE(cut, picture(*label));
    }
}

void LegibleTextTest::theNameAboveAFieldLosesItsMiddle() {
    platform().real("CYLINDER_PRESSURE_12");
    ZelValue widget;
    widget.setNameFont(plainFont(16));
    widget.setName("CYLINDER_PRESSURE_12");
    widget.setToolTip("help");
    auto* label = widget.findChild<QLabel*>("name");
    label->setFixedSize(100, 24);
    const QImage cut = picture(*label);
    QCOMPARE(tipAt(*label), QString("CYLINDER_PRESSURE_12\nhelp"));
    label->setText(QFontMetrics(plainFont(16)).elidedText("CYLINDER_PRESSURE_12", Qt::ElideMiddle, 100));
    QCOMPARE(cut, picture(*label));
    QCOMPARE(tipAt(*label), QString("help"));
}

OSTREL_TEST(LegibleTextTest)
#include "legibletext_test.moc"
