#include "options.h"

#include <QtTest>
#include <vector>

#include "qttests.h"

namespace {

std::optional<int> read(const QStringList& words, Options& options) {
    std::vector<QByteArray> kept{"ostrel-display"};
    for (const QString& word : words)
        kept.push_back(word.toLocal8Bit());
    std::vector<const char*> argv;
    for (const QByteArray& word : kept)
        argv.push_back(word.constData());
    return readOptions(static_cast<int>(argv.size()), argv.data(), options);
}

}  // namespace

class OptionsTest : public QObject {
    Q_OBJECT

private slots:
    void defaults();
    void everyOption();
    void place_data();
    void place();
    void wrongUsage_data();
    void wrongUsage();
    void helpAndVersionEndWithSuccess();
};

void OptionsTest::defaults() {
    Options options;
    QCOMPARE(read({"form.ui"}, options), std::optional<int>());
    QCOMPARE(options.form, std::string("form.ui"));
    QVERIFY(options.cell.empty() && options.store.empty() && options.screenshot.empty() && options.styleSheet.empty());
    QVERIFY(options.values.empty());
    QVERIFY(!options.remote && !options.lockUnits && !options.geometry);
    QCOMPARE(options.updateRate, 2000);
    QCOMPARE(options.lock, 3);
    QCOMPARE(options.after, 1500);
}

void OptionsTest::everyOption() {
    Options options;
    const QStringList words{"--store",       "cell-7",   "--remote",     "--update-rate",  "500",
                            "--lock",        "2",        "--lock-units", "--after",        "0",
                            "--screenshot",  "now.png",  "--geometry",   "800x600+10+-20", "form.ui",
                            "--style-sheet", "dark.qss", "--values",     "v.xml"};
    QCOMPARE(read(words, options), std::optional<int>());
    QCOMPARE(options.store, std::string("cell-7"));
    QCOMPARE(options.values, std::string("v.xml"));
    QVERIFY(options.remote && options.lockUnits);
    QCOMPARE(options.updateRate, 500);
    QCOMPARE(options.lock, 2);
    QCOMPARE(options.after, 0);
    QCOMPARE(options.screenshot, std::string("now.png"));
    QCOMPARE(options.styleSheet, std::string("dark.qss"));
    Options embedded;
    QCOMPARE(read({"--cell", "cell.toml", "form.ui"}, embedded), std::optional<int>());
    QCOMPARE(embedded.cell, std::string("cell.toml"));
}

void OptionsTest::place_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("placed");
    QTest::addColumn<QPoint>("position");
    QTest::newRow("size") << "800x600" << QSize(800, 600) << false << QPoint();
    QTest::newRow("corner") << "800x600+0+0" << QSize(800, 600) << true << QPoint(0, 0);
    QTest::newRow("screen on the left") << "1x2+-1600+30" << QSize(1, 2) << true << QPoint(-1600, 30);
}

void OptionsTest::place() {
    QFETCH(QString, text);
    Options options;
    QCOMPARE(read({"--geometry", text, "form.ui"}, options), std::optional<int>());
    QVERIFY(options.geometry);
    QTEST(QSize(options.geometry->width, options.geometry->height), "size");
    QTEST(options.geometry->x.has_value(), "placed");
    QTEST(QPoint(options.geometry->x.value_or(0), options.geometry->y.value_or(0)), "position");
}

void OptionsTest::wrongUsage_data() {
    QTest::addColumn<QStringList>("words");
    QTest::newRow("no form") << QStringList{};
    QTest::newRow("two forms") << QStringList{"one.ui", "two.ui"};
    QTest::newRow("unknown option") << QStringList{"--fullscren", "form.ui"};
    QTest::newRow("lock 0") << QStringList{"--lock", "0", "form.ui"};
    QTest::newRow("lock 5") << QStringList{"--lock", "5", "form.ui"};
    QTest::newRow("lock no number") << QStringList{"--lock", "all", "form.ui"};
    QTest::newRow("rate of a display that is not remote") << QStringList{"--update-rate", "500", "form.ui"};
    QTest::newRow("rate too fast") << QStringList{"--remote", "--update-rate", "9", "form.ui"};
    QTest::newRow("after without screenshot") << QStringList{"--after", "10", "form.ui"};
    QTest::newRow("two stores") << QStringList{"--cell", "cell.toml", "--store", "cell", "form.ui"};
    QTest::newRow("store with a slash") << QStringList{"--store", "a/b", "form.ui"};
    QTest::newRow("store without a name") << QStringList{"--store", "", "form.ui"};
    QTest::newRow("store too long") << QStringList{"--store", QString(64, 'a'), "form.ui"};
    QTest::newRow("no size") << QStringList{"--geometry", "0x600", "form.ui"};
    QTest::newRow("half a place") << QStringList{"--geometry", "800x600+5", "form.ui"};
    QTest::newRow("size in words") << QStringList{"--geometry", "large", "form.ui"};
}

void OptionsTest::wrongUsage() {
    QFETCH(QStringList, words);
    Options options;
    QCOMPARE(read(words, options), std::optional<int>(2));
}

void OptionsTest::helpAndVersionEndWithSuccess() {
    Options options;
    QCOMPARE(read({"--help"}, options), std::optional<int>(0));
    QCOMPARE(read({"--version"}, options), std::optional<int>(0));
}

OSTREL_TEST_WITHOUT_SCREEN(OptionsTest)
#include "options_test.moc"
