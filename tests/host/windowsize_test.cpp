// The size that a display takes by itself: the form with nothing cut off, and the status below it.
#include <QScreen>
#include <QScrollBar>
#include <QStatusBar>
#include <QTemporaryDir>

#include "editing.h"
#include "fabric/timermoderator.h"
#include "formarea.h"
#include "options.h"
#include "qttests.h"
#include "testcell.h"

namespace {

// Without a layout, with something in the last corner.
QByteArray freeForm(int width, int height) {
    return QStringLiteral(
               "<ui version=\"4.0\"><class>Free</class><widget class=\"QWidget\" name=\"Free\"><property "
               "name=\"geometry\"><rect><x>0</x><y>0</y><width>%1</width><height>%2</height></rect></property>"
               "<widget class=\"QLabel\" name=\"corner\"><property name=\"geometry\"><rect><x>%3</x><y>%4</y>"
               "<width>40</width><height>20</height></rect></property></widget></widget></ui>")
        .arg(width)
        .arg(height)
        .arg(width - 40)
        .arg(height - 20)
        .toUtf8();
}

}  // namespace

Q_DECLARE_METATYPE(Manners)

class WindowSizeTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void nothingIsCutOff_data();
    void nothingIsCutOff();
    void formLargerThanTheScreenScrolls();
    void changesShownLaterAreNotCutOff();

private:
    MainWindow* open(const QByteArray& form, Manners manners = Manners::Asks);
    bool scrolls() {
        const auto* area = m_window->findChild<FormArea*>();
        return area->horizontalScrollBar()->isVisible() || area->verticalScrollBar()->isVisible();
    }
    // The names of the fields that have not all the room of their text.
    QStringList cutFields() {
        QStringList cut;
        for (const QLabel* field : m_window->statusBar()->findChildren<QLabel*>())
            if (field->isVisible() && field->width() < field->sizeHint().width())
                cut.append(field->objectName());
        return cut;
    }

    std::unique_ptr<TestCell> m_cell;
    std::unique_ptr<CellWatch> m_watch;
    std::unique_ptr<MainWindow> m_window;
    QTemporaryDir m_folder;
};

void WindowSizeTest::initTestCase() {
    m_cell = std::make_unique<TestCell>();
    QVERIFY(m_cell->start());
    m_watch = std::make_unique<CellWatch>();
}

void WindowSizeTest::cleanupTestCase() {
    m_window.reset();
    m_watch.reset();
    TimerModerator::shutDown();
    m_cell.reset();
}

MainWindow* WindowSizeTest::open(const QByteArray& form, Manners manners) {
    const QString path = m_folder.filePath("free.ui");
    write(path, form);
    m_window.reset();
    m_watch->look();
    m_window = std::make_unique<MainWindow>(path, m_watch.get(), manners);
    m_window->takePlace(Options());
    m_window->show();
    if (!QTest::qWaitForWindowExposed(m_window.get()))
        return nullptr;
    return m_window.get();
}

void WindowSizeTest::nothingIsCutOff_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<Manners>("manners");
    for (const QSize size : {QSize(100, 80), QSize(400, 300), QSize(900, 300), QSize(1200, 900)})
        for (const Manners manners : {Manners::Asks, Manners::Silent})
            QTest::addRow("%d x %d%s", size.width(), size.height(), manners == Manners::Asks ? "" : ", silent")
                << size << manners;
}

void WindowSizeTest::nothingIsCutOff() {
    QFETCH(QSize, size);
    QFETCH(Manners, manners);
    QVERIFY(open(freeForm(size.width(), size.height()), manners));
    keepPicture(m_window.get(), QTest::currentDataTag());
    QVERIFY(!scrolls());
    QCOMPARE(cutFields(), QStringList());
    const auto* form = m_window->findChild<QWidget*>("Free");
    QVERIFY(form->width() >= size.width() && form->height() >= size.height());
}

void WindowSizeTest::formLargerThanTheScreenScrolls() {
    const QSize screen = QApplication::primaryScreen()->availableSize();
    QVERIFY(open(freeForm(2 * screen.width(), 2 * screen.height())));
    QVERIFY(scrolls());
    QVERIFY(m_window->width() <= screen.width() && m_window->height() <= screen.height());
}

void WindowSizeTest::changesShownLaterAreNotCutOff() {
    QVERIFY(open(freeForm(400, 300)));
    propertiesChanged = true;
    EVENTUALLY(m_window->isWindowModified());
    QCoreApplication::processEvents();
    // The other fields give way.
    QVERIFY(!cutFields().contains("changesField"));
    QVERIFY(!scrolls());
}

OSTREL_TEST(WindowSizeTest)
#include "windowsize_test.moc"
