// A value's colour reaches the operator, whatever style sheets say and whatever it stands on.
#include <QApplication>
#include <QVBoxLayout>
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

const QColor sheetColour(0, 0, 200);

struct Kind {
    const char* name;
    OstrelBase* (*make)(QWidget* parent);
};
const QVector<Kind> kinds{
    {"ZelValue", [](QWidget* parent) -> OstrelBase* { return new ZelValue(parent); }},
    {"ZelSimpleValue", [](QWidget* parent) -> OstrelBase* { return new ZelSimpleValue(parent); }},
    {"ZelSimpleValue_fl", [](QWidget* parent) -> OstrelBase* { return new ZelSimpleValue_fl(parent); }},
};

// A form with a read-out of SPEED.
class Form : public QWidget {
public:
    explicit Form(int kind) : m_speed(platform().real("SPEED").value(88888).format("%g")) {
        m_readout = kinds[kind].make(this);
        (new QVBoxLayout(this))->addWidget(m_readout);
        m_readout->setValueFont(plainFont(20));
        m_readout->setName("SPEED");
        resize(300, 150);
    }
    OstrelBase& readout() const { return *m_readout; }
    QWidget& value() const { return *m_readout->findChild<QWidget*>("value"); }
    void setStatus(short status) {
        m_speed.status(status);
        m_readout->ostrelTimerEvent(m_readout->getSampleRate());
    }
    void blink() const { m_readout->ostrelTimerEvent(498); }
    void open() {
        show();
        QVERIFY(QTest::qWaitForWindowExposed(this));
    }
    // With what stands behind it.
    QImage valuePicture() {
        const QImage all = picture(*this);
        return all.copy(QRect(value().mapTo(this, QPoint()), value().size()));
    }

private:
    scripted::Variable<REAL_VARIABLE> m_speed;
    OstrelBase* m_readout;
};

void kindsAnd(const char* column) {
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>(column);
}

constexpr int someInk = 40;

}  // namespace

class StatusColoursTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { startAsHost(); }
    void cleanup() { qApp->setStyleSheet(QString()); }

    void anAlarmWinsOverStyleSheets_data();
    void anAlarmWinsOverStyleSheets();
    void aSheetHoldsWhereThereIsNoAlarm_data();
    void aSheetHoldsWhereThereIsNoAlarm();
    void aSheetThatGoesLeavesNothing();
    void everyColourCanBeRead_data();
    void everyColourCanBeRead();
    void aColourThatCanBeReadHasNoPlate();
    void aDarkFieldOfASheet_data();
    void aDarkFieldOfASheet();
    void whiteOnAWhiteFieldIsWhite();
    void theDarkPhaseStaysUnseen_data();
    void theDarkPhaseStaysUnseen();
    void aDisabledLabelHasNoPlate();
    void aNameHasNoPlate();
};

void StatusColoursTest::anAlarmWinsOverStyleSheets_data() {
    kindsAnd("sheet");
    QTest::addColumn<bool>("ofApplication");
    const QStringList sheets{
        "* { color: #0000c8; }",
        "QLabel, QLineEdit { color: #0000c8; }",
        "QLabel { color: #0000c8 !important; } QLineEdit { color: #0000c8 !important; }",
        "QWidget { color: #0000c8; background-color: #f0f0f0; border: 1px solid gray; }",
    };
    for (int kind = 0; kind < kinds.size(); ++kind)
        for (int i = 0; i < sheets.size(); ++i)
            for (const bool ofApplication : {true, false})
                QTest::addRow("%s, sheet %d of the %s", kinds[kind].name, i, ofApplication ? "application" : "form")
                    << kind << sheets[i] << ofApplication;
}

void StatusColoursTest::anAlarmWinsOverStyleSheets() {
    QFETCH(int, kind);
    QFETCH(QString, sheet);
    QFETCH(bool, ofApplication);
    Form form(kind);
    form.setStatus(1024);
    if (ofApplication)
        qApp->setStyleSheet(sheet);
    else
        form.setStyleSheet(sheet);
    const auto isRed = [&] {
        const QImage image = form.valuePicture();
        return pixels(image, Qt::red) > someInk && pixels(image, sheetColour) == 0;
    };
    QVERIFY(isRed());
    form.open();
    QVERIFY(isRed());
    form.setStatus(1024);
    QVERIFY(isRed());
    form.setStatus(0);
    form.setStatus(1024);
    QVERIFY(isRed());
    // A sheet that comes while the alarm stands.
    form.setStyleSheet(sheet + " QLabel, QLineEdit { padding: 1px; }");
    QVERIFY(isRed());
    form.blink();
    QVERIFY(isRed());
}

void StatusColoursTest::aSheetHoldsWhereThereIsNoAlarm_data() {
    kindsAnd("sheet");
    // The flexible read-out has a sheet of its own, in the colour of its own palette.
    for (int kind = 0; kind < kinds.size(); ++kind) {
        QTest::addRow("%s, all", kinds[kind].name) << kind << "* { color: #0000c8; }";
        if (kind < 2)
            QTest::addRow("%s, fields", kinds[kind].name) << kind << "QLabel, QLineEdit { color: #0000c8; }";
    }
}

void StatusColoursTest::aSheetHoldsWhereThereIsNoAlarm() {
    QFETCH(int, kind);
    QFETCH(QString, sheet);
    Form form(kind);
    form.setStyleSheet(sheet);
    form.open();
    const auto isTheSheets = [&] {
        const QImage image = form.valuePicture();
        return pixels(image, sheetColour) > someInk && pixels(image, Qt::red) == 0;
    };
    form.setStatus(0);
    QVERIFY(isTheSheets());
    form.setStatus(1024);
    form.setStatus(0);
    QVERIFY(isTheSheets());
}

void StatusColoursTest::aSheetThatGoesLeavesNothing() {
    for (int kind = 0; kind < kinds.size(); ++kind) {
        Form form(kind);
        form.open();
        form.setStyleSheet("* { color: #0000c8; }");
        form.setStatus(0);
        form.setStyleSheet(QString());
        form.setStatus(0);
        form.setStatus(1024);
        form.setStatus(0);
        QCOMPARE(pixels(form.valuePicture(), sheetColour), 0);
        QVERIFY(pixels(form.valuePicture(), Qt::black) > someInk);
    }
}

void StatusColoursTest::everyColourCanBeRead_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<short>("status");
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<QColor>("field");
    const QVector<QPair<short, QColor>> statuses{{256, Qt::blue},  {512, Qt::green},    {768, Qt::cyan},
                                                 {1024, Qt::red},  {1280, Qt::magenta}, {1536, Qt::yellow},
                                                 {1792, Qt::white}};
    for (int kind = 0; kind < kinds.size(); ++kind)
        for (const auto& [status, colour] : statuses)
            for (const char* field : {"#fafafa", "#c0c0c0", "#202020"})
                QTest::addRow("%s, %d on %s", kinds[kind].name, status, field)
                    << kind << status << colour << QColor(field);
}

void StatusColoursTest::everyColourCanBeRead() {
    QFETCH(int, kind);
    QFETCH(short, status);
    QFETCH(QColor, colour);
    QFETCH(QColor, field);
    Form form(kind);
    QPalette palette = form.palette();
    palette.setColor(QPalette::Window, field);
    palette.setColor(QPalette::Base, field);
    form.setPalette(palette);
    if (kind == 0) {
        palette = form.value().palette();
        palette.setColor(QPalette::Base, field);
        form.value().setPalette(palette);
    }
    form.open();
    form.setStatus(status);
    const QImage image = form.valuePicture();
    QVERIFY(pixels(image, colour) > someInk);
    QVERIFY(pixels(image, field) > someInk);
    QVERIFY2(leastContrast(image, colour) >= 3.0, qPrintable(QString::number(leastContrast(image, colour))));
    QCOMPARE(form.value().palette().color(QPalette::Text), colour);
    QCOMPARE(form.readout().getColor(), colour);
}

void StatusColoursTest::aColourThatCanBeReadHasNoPlate() {
    for (int kind = 0; kind < kinds.size(); ++kind) {
        Form form(kind);
        QPalette palette = form.palette();
        palette.setColor(QPalette::Window, Qt::white);
        form.setPalette(palette);
        form.setStatus(1024);
        const auto found = colours(form.valuePicture());
        // A field has a frame.
        QCOMPARE(found.size(), kind == 0 ? 3 : 2);
        QVERIFY(found.contains(QColor(Qt::white).rgb()));
    }
}

void StatusColoursTest::aDarkFieldOfASheet_data() {
    kindsAnd("sheet");
    for (int kind = 0; kind < kinds.size(); ++kind) {
        QTest::addRow("%s, plain", kinds[kind].name) << kind << "QWidget { background-color: #101010; }";
        QTest::addRow("%s, below", kinds[kind].name)
            << kind << "QLineEdit { background: #101010; } QWidget#form { background: #101010; }";
        QTest::addRow("%s, veiled", kinds[kind].name)
            << kind
            << "QLineEdit, QLabel { background: rgba(255, 255, 255, 40); } QWidget#form { background: #101010; }";
        QTest::addRow("%s, shaded", kinds[kind].name)
            << kind
            << "QWidget { background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #101010, stop:1 #202020); }";
    }
}

void StatusColoursTest::aDarkFieldOfASheet() {
    QFETCH(int, kind);
    QFETCH(QString, sheet);
    Form form(kind);
    form.setObjectName("form");
    form.setAttribute(Qt::WA_StyledBackground);
    form.setStyleSheet(sheet);
    form.open();
    form.setStatus(256);
    const QImage image = form.valuePicture();
    QVERIFY(pixels(image, Qt::blue) > someInk);
    QVERIFY2(leastContrast(image, Qt::blue) >= 3.0, qPrintable(QString::number(leastContrast(image, Qt::blue))));
    // Yellow stands well on the dark.
    form.setStatus(1536);
    QCOMPARE(pixels(form.valuePicture(), QColor(246, 246, 246)), 0);
}

// The palette has black there, which would look like a value within its limits.
void StatusColoursTest::whiteOnAWhiteFieldIsWhite() {
    Form form(0);
    form.setStatus(1792);
    QCOMPARE(form.value().palette().color(QPalette::Text), QColor(Qt::black));
    const QImage image = form.valuePicture();
    QVERIFY(leastContrast(image, Qt::white) >= 1.2);
    QVERIFY(pixels(image, QColor(32, 32, 32)) > someInk);
    QCOMPARE(pixels(image, Qt::black), 0);
}

void StatusColoursTest::theDarkPhaseStaysUnseen_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<QColor>("window");
    for (int kind = 0; kind < kinds.size(); ++kind)
        for (const char* window : {"#f0f0f0", "#ffffff", "#202020"})
            QTest::addRow("%s, on %s", kinds[kind].name, window) << kind << QColor(window);
}

void StatusColoursTest::theDarkPhaseStaysUnseen() {
    QFETCH(int, kind);
    QFETCH(QColor, window);
    Form form(kind);
    QPalette palette = form.palette();
    palette.setColor(QPalette::Window, window);
    form.setPalette(palette);
    form.setStatus(1537);
    form.blink();
    QVERIFY(pixels(form.valuePicture(), Qt::yellow) > someInk);
    form.blink();
    const auto found = colours(form.valuePicture());
    QVERIFY(!found.contains(QColor(Qt::yellow).rgb()));
    if (kind > 0) {
        QCOMPARE(found.size(), 1);
        return;
    }
    // The field, its frame, and the text in the colour of the window; black where that is the field's.
    QCOMPARE(found.size(), 3);
    QVERIFY(found.contains((window == Qt::white ? QColor(Qt::black) : window).rgb()));
}

void StatusColoursTest::aDisabledLabelHasNoPlate() {
    for (int kind = 1; kind < kinds.size(); ++kind) {
        Form form(kind);
        QPalette palette = form.palette();
        palette.setColor(QPalette::Window, QColor(32, 32, 32));
        form.setPalette(palette);
        form.setStatus(256);
        form.value().setEnabled(false);
        const auto found = colours(form.valuePicture());
        QCOMPARE(found.size(), 2);
        QVERIFY(found.contains(QColor(Qt::black).rgb()));
    }
}

// Its colour is the form's own, and no status.
void StatusColoursTest::aNameHasNoPlate() {
    Form form(2);
    QPalette palette = form.palette();
    palette.setColor(QPalette::Window, Qt::white);
    form.setPalette(palette);
    static_cast<ZelSimpleValue_fl&>(form.readout()).setNameFont(plainFont(20));
    static_cast<ZelSimpleValue_fl&>(form.readout()).setNameColor(Qt::yellow);
    auto* name = form.readout().findChild<QWidget*>("name");
    QCOMPARE(colours(picture(*name)).size(), 2);
}

OSTREL_TEST(StatusColoursTest)
#include "statuscolours_test.moc"
