#include "banner.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

#include "frozenveil.h"
#include "qttests.h"

namespace {

const QString headline = "NO DATA SINCE 14:03:27 (12 s)";
const QString reason = "the cell 'cell' is not running. Values below are frozen.";

bool isAlarmRed(const QColor& colour) {
    return colour.red() > 120 && colour.green() < 60 && colour.blue() < 60;
}

}  // namespace

class BannerTest : public QObject {
    Q_OBJECT

private slots:
    void hiddenUntilThereIsSomethingToTell();
    void showsWhatItTells();
    void takesItselfBack();
    void staysRedUnderAnyStyleSheet();
    void growsWhereTheWindowIsNarrow();
    void veilLetsTheMouseThrough();
    void veilChangesEveryPartOfTheForm();
    void veilFollowsTheSize();
};

void BannerTest::hiddenUntilThereIsSomethingToTell() {
    QWidget window;
    Banner banner(&window);
    window.show();
    QVERIFY(!banner.isVisible());
}

void BannerTest::showsWhatItTells() {
    QWidget window;
    Banner banner(&window);
    window.show();
    banner.tell(headline, reason);
    QVERIFY(banner.isVisible());
    QCOMPARE(banner.accessibleName(), headline + ": " + reason);
}

void BannerTest::takesItselfBack() {
    QWidget window;
    Banner banner(&window);
    window.show();
    banner.tell(headline, reason);
    banner.tell({}, {});
    QVERIFY(!banner.isVisible());
    QCOMPARE(banner.accessibleName(), QString());
}

void BannerTest::staysRedUnderAnyStyleSheet() {
    Banner banner;
    banner.setStyleSheet("* { background: white; color: white; }");
    banner.resize(800, banner.heightForWidth(800));
    banner.tell(headline, reason);
    const QImage picture = banner.grab().toImage();
    for (int x : {1, picture.width() / 2, picture.width() - 2})
        for (int y : {1, picture.height() - 2})
            QVERIFY(isAlarmRed(picture.pixelColor(x, y)));
}

void BannerTest::growsWhereTheWindowIsNarrow() {
    Banner banner;
    banner.tell(headline, reason);
    QVERIFY(banner.heightForWidth(150) > banner.heightForWidth(1500));
    QFont large = banner.font();
    large.setPointSize(2 * large.pointSize());
    const int before = banner.heightForWidth(1500);
    banner.setFont(large);
    QVERIFY(banner.heightForWidth(1500) > before);
}

void BannerTest::veilLetsTheMouseThrough() {
    QWidget form;
    QPushButton button("Stop", &form);
    FrozenVeil veil(&form);
    form.resize(200, 100);
    form.show();
    veil.setFrozen(true);
    QVERIFY(veil.isVisible());
    QCOMPARE(form.childAt(button.geometry().center()), &button);
}

void BannerTest::veilChangesEveryPartOfTheForm() {
    QWidget form;
    form.resize(300, 200);
    FrozenVeil veil(&form);
    const QImage before = form.grab().toImage();
    veil.setFrozen(true);
    const QImage frozen = form.grab().toImage();
    for (int x = 0; x < frozen.width(); x += 10)
        for (int y = 0; y < frozen.height(); y += 10)
            QVERIFY(frozen.pixelColor(x, y) != before.pixelColor(x, y));
    veil.setFrozen(false);
    QCOMPARE(form.grab().toImage(), before);
}

void BannerTest::veilFollowsTheSize() {
    QWidget form;
    form.resize(100, 100);
    form.show();
    FrozenVeil veil(&form);
    veil.setFrozen(true);
    form.resize(400, 300);
    QCOMPARE(veil.size(), QSize(400, 300));
}

OSTREL_TEST(BannerTest)
#include "banner_test.moc"
