// The log file on an operator's screen.
#include <ostrel-display/tailwidget.h>
#include <sys/stat.h>

#include <QAction>
#include <QFile>
#include <QGridLayout>
#include <QMenu>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <memory>

#include "plugintest.h"
#include "properties/mycontroller.h"
#include "qttests.h"
#include "readouttest.h"
#include "widgets/opntailwidget.h"

namespace {

// The widget, and what an operator sees of it.
class Tail : public ZelTail {
public:
    Tail() {
        setObjectName(QStringLiteral("log"));
        platform().forgetCalls();
    }
    QLabel* label() const { return findChild<QLabel*>("lblFilename"); }
    QPushButton* button() const { return findChild<QPushButton*>("btnPause"); }
    TailWidget* tail() const { return findChild<TailWidget*>("tailWidget"); }
    QPlainTextEdit* view() const { return tail()->findChild<QPlainTextEdit*>(); }
    QString text() const { return view()->toPlainText(); }
    void click() const { QTest::mouseClick(button(), Qt::LeftButton); }
    void choose(int entry) const { actions().at(entry)->trigger(); }
};

bool shows(const QPushButton* button, const char* icon) {
    const QSize size(16, 16);
    return button->icon().pixmap(size).toImage() == QIcon(QLatin1String(icon)).pixmap(size).toImage();
}

QStringList cached() {
    return platform().calls({"cacheProperty", "cachePropertyFont"});
}

}  // namespace

class ZelTailTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void itsProperties();
    void itsForm();
    void itMakesTheFormWriterWhereThereIsNone();
    void itsMenu();
    void theMenuOpensOverTheText();
    void someSettersTellTheFormOnlyAfterEditProperties();
    void someSettersTellTheFormAlways();
    void editPropertiesOpensADialog();

    void theFileIsFollowed();
    void anEmptyNameChangesNothing();
    void aFileThatCannotBeOpenedIsPassedOver_data();
    void aFileThatCannotBeOpenedIsPassedOver();
    void theSameFileBeginsAnew();
    void theButtonPausesAndResumes();
    void aPauseOutlivesAnotherFile();
    void clearEmptiesTheViewAndKeepsThePause();
    void itsLooks();
    void aRemoteDisplayMayPause();

private:
    QString path(const char* name = "a.log") const { return m_folder->filePath(name); }
    void append(const QByteArray& bytes, const char* name = "a.log") const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void ZelTailTest::init() {
    startAsHost();
    m_folder = std::make_unique<QTemporaryDir>();
}

void ZelTailTest::append(const QByteArray& bytes, const char* name) const {
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Append));
    QCOMPARE(file.write(bytes), bytes.size());
}

void ZelTailTest::itsProperties() {
    const ZelTail tail;
    QCOMPARE(ownProperties(ZelTail::staticMetaObject),
             QStringList({"TailFileName", "gBackColor", "TextColor", "TextFont", "showFileLabel", "wrapText"}));
    compareProperty(tail, "TailFileName", "QString", QString());
    compareProperty(tail, "gBackColor", "QColor", QColor());
    compareProperty(tail, "TextColor", "QColor", QColor());
    compareProperty(tail, "TextFont", "QFont", QApplication::font());
    compareProperty(tail, "showFileLabel", "bool", true);
    compareProperty(tail, "wrapText", "bool", false);
    QCOMPARE(tail.metaObject()->superClass(), &QWidget::staticMetaObject);
    for (const char* name : {"viewProperties()", "clearContents()", "on_btnPause_clicked()"}) {
        const QMetaObject& meta = ZelTail::staticMetaObject;
        QCOMPARE(meta.method(meta.indexOfSlot(name)).access(), QMetaMethod::Private);
    }
}

void ZelTailTest::itsForm() {
    const Tail tail;
    QCOMPARE(tail.minimumSize(), QSize(50, 67));
    QCOMPARE(tail.baseSize(), QSize(50, 67));
    QCOMPARE(tail.windowTitle(), QString("Form"));
    QVERIFY(tail.acceptDrops());
    QCOMPARE(tail.contextMenuPolicy(), Qt::ActionsContextMenu);
    auto* grid = qobject_cast<QGridLayout*>(tail.layout());
    QVERIFY(grid);
    QCOMPARE(grid->objectName(), QString("gridLayout"));
    QCOMPARE(grid->spacing(), 0);
    QCOMPARE(grid->contentsMargins(), QMargins());
    QCOMPARE(grid->itemAtPosition(0, 1)->widget(), tail.label());
    QCOMPARE(grid->itemAtPosition(0, 3)->widget(), tail.button());
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(grid->indexOf(tail.tail()), &row, &column, &rows, &columns);
    QCOMPARE(QList<int>({row, column, rows, columns}), QList<int>({2, 0, 1, 5}));
    QCOMPARE(tail.label()->font().pointSize(), 12);
    QCOMPARE(tail.label()->alignment(), Qt::AlignHCenter | Qt::AlignBottom);
    QCOMPARE(tail.button()->text(), QString("Pause"));
    QVERIFY(shows(tail.button(), ":/pause.png"));
    QVERIFY(!shows(tail.button(), ":/play.png"));
}

void ZelTailTest::itMakesTheFormWriterWhereThereIsNone() {
    writer = nullptr;
    platform().answer("openFile", {0});
    const DebugLines debug;
    const ZelTail tail;
    QVERIFY(writer);
    QCOMPARE(debug.count("Error opening UI file outside of the designer"), 1);
}

void ZelTailTest::itsMenu() {
    const Tail tail;
    QCOMPARE(tail.actions().size(), 2);
    QCOMPARE(tail.actions().at(0)->text(), QString("Edit Properties"));
    QCOMPARE(tail.actions().at(1)->text(), QString("Clear"));
    QCOMPARE(tail.actions().at(1)->parent(), &tail);
}

void ZelTailTest::theMenuOpensOverTheText() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    tail.resize(300, 200);
    tail.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tail));
    QTRY_COMPARE(tail.text(), QString("1"));
    whenOpened<QMenu>([](QMenu* menu) {
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(menu->actions().at(1)).center());
    });
    const QPoint place = tail.view()->viewport()->mapTo(&tail, tail.view()->viewport()->rect().center());
    QTest::mouseClick(tail.windowHandle(), Qt::RightButton, Qt::NoModifier, place);
    QTRY_COMPARE(tail.text(), QString());
}

void ZelTailTest::someSettersTellTheFormOnlyAfterEditProperties() {
    Tail tail;
    const auto set = [&] {
        tail.setgBackColor(QColor("#102030"));
        tail.setTextColor(QColor("#a0b0c0"));
        tail.setTextFont(QFont("Courier"));
    };
    set();
    QCOMPARE(cached(), QStringList());
    tail.choose(0);
    platform().forgetCalls();
    set();
    QCOMPARE(cached(), QStringList({"cacheProperty ZelTail log gBackColor #102030 changed",
                                    "cacheProperty ZelTail log TextColor #a0b0c0 changed",
                                    "cacheProperty ZelTail log TextFont " + QFont("Courier").toString() + " changed"}));
}

void ZelTailTest::someSettersTellTheFormAlways() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    tail.setFileLabelShown(false);
    tail.setWrapText(true);
    tail.choose(0);
    tail.setFileName(path());
    tail.setFileLabelShown(true);
    tail.setWrapText(false);
    QCOMPARE(cached(), QStringList({"cacheProperty ZelTail log TailFileName " + path() + " loading",
                                    "cacheProperty ZelTail log showFileLabel false loading",
                                    "cacheProperty ZelTail log wrapText true loading",
                                    "cacheProperty ZelTail log TailFileName " + path() + " changed",
                                    "cacheProperty ZelTail log showFileLabel true changed",
                                    "cacheProperty ZelTail log wrapText false changed"}));
}

void ZelTailTest::editPropertiesOpensADialog() {
    Tail tail;
    tail.choose(0);
    QCOMPARE(tail.findChildren<MyController*>().size(), 1);
    QVERIFY(tail.findChild<MyController*>()->isVisible());
}

void ZelTailTest::theFileIsFollowed() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    tail.show();
    QCOMPARE(tail.label()->text(), path());
    QCOMPARE(tail.getFileName(), path());
    QTRY_COMPARE(tail.text(), QString("1"));
    append("2\n");
    QTRY_COMPARE(tail.text(), QString("1\n2"));
}

void ZelTailTest::anEmptyNameChangesNothing() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    tail.show();
    QTRY_COMPARE(tail.text(), QString("1"));
    platform().forgetCalls();
    tail.setFileName("");
    QCOMPARE(tail.getFileName(), QString());
    QCOMPARE(tail.label()->text(), path());
    QCOMPARE(cached(), QStringList());
    append("2\n");
    QTRY_COMPARE(tail.text(), QString("1\n2"));
}

void ZelTailTest::aFileThatCannotBeOpenedIsPassedOver_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("not there") << "none.log";
    QTest::newRow("a folder") << ".";
    // Opening it would wait for somebody who writes.
    QTest::newRow("a pipe") << "pipe";
}

void ZelTailTest::aFileThatCannotBeOpenedIsPassedOver() {
    QFETCH(QString, name);
    const QString wrong = m_folder->path() + '/' + name;
    if (name == "pipe")
        QCOMPARE(mkfifo(QFile::encodeName(wrong).constData(), 0600), 0);
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    tail.show();
    QTRY_COMPARE(tail.text(), QString("1"));
    platform().forgetCalls();
    const DebugLines debug;
    tail.setFileName(wrong);
    QCOMPARE(tail.getFileName(), wrong);
    QCOMPARE(tail.label()->text(), path());
    QCOMPARE(tail.text(), QString("1"));
    QCOMPARE(cached(), QStringList());
    QCOMPARE(debug.lines(), QStringList());
    append("2\n");
    QTRY_COMPARE(tail.text(), QString("1\n2"));
}

void ZelTailTest::theSameFileBeginsAnew() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    tail.show();
    QTRY_COMPARE(tail.text(), QString("1"));
    tail.choose(1);
    QCOMPARE(tail.text(), QString());
    tail.setFileName(path());
    QCOMPARE(tail.text(), QString());
    QTRY_COMPARE(tail.text(), QString("1"));
}

void ZelTailTest::theButtonPausesAndResumes() {
    append("1\n");
    Tail tail;
    Tail witness;
    for (Tail* each : {&tail, &witness}) {
        each->setFileName(path());
        each->show();
        QTRY_COMPARE(each->text(), QString("1"));
    }
    tail.click();
    QCOMPARE(tail.button()->text(), QString("Play"));
    QVERIFY(shows(tail.button(), ":/play.png"));
    for (const char* line : {"2", "3"}) {
        append(QByteArray(line) + '\n');
        QTRY_VERIFY(witness.text().endsWith(line));
    }
    QCOMPARE(tail.text(), QString("1"));
    tail.click();
    QCOMPARE(tail.button()->text(), QString("Pause"));
    QVERIFY(shows(tail.button(), ":/pause.png"));
    QTRY_COMPARE(tail.text(), QString("1\n2\n3"));
}

void ZelTailTest::aPauseOutlivesAnotherFile() {
    append("1\n");
    append("x\n", "b.log");
    Tail tail;
    tail.show();
    tail.click();
    tail.setFileName(path());
    tail.setFileName(path("b.log"));
    QCOMPARE(tail.button()->text(), QString("Play"));
    Tail witness;
    witness.setFileName(path("b.log"));
    witness.show();
    QTRY_COMPARE(witness.text(), QString("x"));
    QCOMPARE(tail.text(), QString());
    tail.click();
    QTRY_COMPARE(tail.text(), QString("x"));
}

void ZelTailTest::clearEmptiesTheViewAndKeepsThePause() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    tail.show();
    QTRY_COMPARE(tail.text(), QString("1"));
    tail.click();
    tail.choose(1);
    QCOMPARE(tail.text(), QString());
    QCOMPARE(tail.button()->text(), QString("Play"));
    QCOMPARE(QFile(path()).size(), qint64(2));
    append("2\n");
    tail.click();
    QTRY_COMPARE(tail.text(), QString("2"));
}

void ZelTailTest::itsLooks() {
    Tail tail;
    tail.setgBackColor(QColor("#102030"));
    tail.setTextColor(QColor("#a0b0c0"));
    tail.setTextFont(QFont("Courier", 17));
    QCOMPARE(tail.getgBackColor(), QColor("#102030"));
    QCOMPARE(tail.getTextColor(), QColor("#a0b0c0"));
    QCOMPARE(tail.getTextFont(), QFont("Courier", 17));
    QCOMPARE(tail.view()->palette().color(QPalette::Base), QColor("#102030"));
    QCOMPARE(tail.view()->palette().color(QPalette::Text), QColor("#a0b0c0"));
    QCOMPARE(tail.view()->font().pointSize(), 17);
    QVERIFY(!tail.label()->isHidden());
    tail.setFileLabelShown(false);
    QVERIFY(tail.label()->isHidden() && !tail.getFileLabelShown());
    tail.setFileLabelShown(true);
    QVERIFY(!tail.label()->isHidden() && tail.getFileLabelShown());
    tail.setWrapText(true);
    QVERIFY(tail.getWrapText());
    QCOMPARE(tail.view()->lineWrapMode(), QPlainTextEdit::WidgetWidth);
}

void ZelTailTest::aRemoteDisplayMayPause() {
    RemoteDisplay = true;
    append("1\n");
    Tail tail;
    QVERIFY(tail.actions().isEmpty());
    tail.setFileName(path());
    tail.show();
    QTRY_COMPARE(tail.text(), QString("1"));
    tail.click();
    QCOMPARE(tail.button()->text(), QString("Play"));
}

OSTREL_TEST(ZelTailTest)
#include "zeltail_test.moc"
