// A skin as pixmaps: sizes, ratios, key colours, what it does without a file, and the bound of what is kept.
#include "drawn/svgskin.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "qttests.h"

namespace {

// A red block in the left half of "left", a green one all over "all".
const QByteArray twoBlocks =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 40 20\">"
    "<g id=\"left\"><rect width=\"20\" height=\"20\" fill=\"none\"/><rect width=\"10\" height=\"20\" "
    "fill=\"#ff0000\"/></g>"
    "<g id=\"all\"><rect x=\"20\" width=\"20\" height=\"20\" fill=\"#00FF00\"/></g></svg>";

constexpr QRgb red = 0xffff0000;
constexpr QRgb green = 0xff00ff00;
constexpr QRgb blue = 0xff0000ff;

QRgb pixel(const QPixmap& pixmap, int x, int y) {
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32).pixel(x, y);
}

}  // namespace

class SvgSkinTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void anElementFillsThePixmapWithItsFrame();
    void thePixmapIsSharpAtEachRatio();
    void aRatioThatIsNoneCountsAsOne();
    void keyColoursAreReplaced();
    void keyColoursMayChangePlaces();
    void theSamePictureIsRenderedOnce();
    void everyDifferenceIsAnotherPicture();
    void whatIsKeptIsBounded();
    void whatIsTooLargeToKeepIsStillDrawn();
    void nothingIsDrawnWithoutASize();
    void nothingIsDrawnWithoutFileOrElement();
    void aDamagedFileDrawsNothing();

private:
    QString write(const QString& name, const QByteArray& text) const;

    QTemporaryDir m_folder;
    int m_limit = 0;
};

void SvgSkinTest::init() {
    m_limit = SvgSkin::cacheLimit();
    SvgSkin::setCacheLimit(0);
    SvgSkin::setCacheLimit(m_limit);
    write(QStringLiteral("blocks.svg"), twoBlocks);
}

void SvgSkinTest::cleanup() {
    SvgSkin::setCacheLimit(m_limit);
}

QString SvgSkinTest::write(const QString& name, const QByteArray& text) const {
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("%s cannot be written", qPrintable(file.fileName()));
    return file.fileName();
}

void SvgSkinTest::anElementFillsThePixmapWithItsFrame() {
    const SvgSkin skin(m_folder.filePath(QStringLiteral("blocks.svg")));
    QVERIFY(skin.hasElement(QStringLiteral("left")));
    QVERIFY(!skin.hasElement(QStringLiteral("right")));
    const QPixmap left = skin.pixmap(QStringLiteral("left"), QSize(40, 30), 1.0);
    QCOMPARE(left.size(), QSize(40, 30));
    QCOMPARE(pixel(left, 1, 1), red);
    QCOMPARE(pixel(left, 18, 28), red);
    QCOMPARE(qAlpha(pixel(left, 22, 15)), 0);
    QCOMPARE(pixel(skin.pixmap(QStringLiteral("all"), QSize(8, 8), 1.0), 0, 7), green);
}

void SvgSkinTest::thePixmapIsSharpAtEachRatio() {
    const SvgSkin skin(m_folder.filePath(QStringLiteral("blocks.svg")));
    const QPixmap left = skin.pixmap(QStringLiteral("left"), QSize(20, 20), 2.5);
    QCOMPARE(left.size(), QSize(50, 50));
    QCOMPARE(left.devicePixelRatio(), 2.5);
    QCOMPARE(pixel(left, 24, 25), red);
    QCOMPARE(qAlpha(pixel(left, 25, 25)), 0);
}

void SvgSkinTest::aRatioThatIsNoneCountsAsOne() {
    const SvgSkin skin(m_folder.filePath(QStringLiteral("blocks.svg")));
    for (const double ratio : {0.0, -1.0, qQNaN(), qInf()})
        QCOMPARE(skin.pixmap(QStringLiteral("all"), QSize(5, 5), ratio).size(), QSize(5, 5));
}

void SvgSkinTest::keyColoursAreReplaced() {
    const SvgSkin skin(m_folder.filePath(QStringLiteral("blocks.svg")));
    QCOMPARE(pixel(skin.pixmap(QStringLiteral("left"), QSize(9, 9), 1.0, {{red, blue}}), 1, 1), blue);
    // The file writes it in capitals.
    QCOMPARE(pixel(skin.pixmap(QStringLiteral("all"), QSize(9, 9), 1.0, {{green, blue}}), 1, 1), blue);
    QCOMPARE(pixel(skin.pixmap(QStringLiteral("left"), QSize(9, 9), 1.0, {{blue, green}}), 1, 1), red);
}

void SvgSkinTest::keyColoursMayChangePlaces() {
    const SvgSkin skin(m_folder.filePath(QStringLiteral("blocks.svg")));
    const SkinColours exchange = {{red, green}, {green, red}};
    QCOMPARE(pixel(skin.pixmap(QStringLiteral("left"), QSize(9, 9), 1.0, exchange), 1, 1), green);
    QCOMPARE(pixel(skin.pixmap(QStringLiteral("all"), QSize(9, 9), 1.0, exchange), 1, 1), red);
}

void SvgSkinTest::theSamePictureIsRenderedOnce() {
    const QString file = m_folder.filePath(QStringLiteral("blocks.svg"));
    const QPixmap first = SvgSkin(file).pixmap(QStringLiteral("left"), QSize(12, 12), 1.0, {{red, blue}});
    const QPixmap second = SvgSkin(file).pixmap(QStringLiteral("left"), QSize(12, 12), 1.0, {{red, blue}});
    QCOMPARE(second.cacheKey(), first.cacheKey());
}

void SvgSkinTest::everyDifferenceIsAnotherPicture() {
    const SvgSkin skin(m_folder.filePath(QStringLiteral("blocks.svg")));
    const SvgSkin other(write(QStringLiteral("other.svg"), twoBlocks));
    const auto left = QStringLiteral("left");
    const QVector<QPixmap> pictures = {
        skin.pixmap(left, QSize(12, 12), 1.0),
        skin.pixmap(left, QSize(12, 13), 1.0),
        skin.pixmap(left, QSize(6, 6), 2.0),
        skin.pixmap(left, QSize(12, 12), 1.0, {{red, blue}}),
        skin.pixmap(left, QSize(12, 12), 1.0, {{red, green}}),
        skin.pixmap(left, QSize(12, 12), 1.0, {{green, blue}}),
        skin.pixmap(QStringLiteral("all"), QSize(12, 12), 1.0),
        other.pixmap(left, QSize(12, 12), 1.0),
    };
    for (int i = 0; i < pictures.size(); ++i)
        for (int j = 0; j < i; ++j)
            QVERIFY2(pictures[i].cacheKey() != pictures[j].cacheKey(),
                     qPrintable(QStringLiteral("%1 %2").arg(i).arg(j)));
}

void SvgSkinTest::whatIsKeptIsBounded() {
    SvgSkin::setCacheLimit(100);
    const SvgSkin skin(m_folder.filePath(QStringLiteral("blocks.svg")));
    const qint64 first = skin.pixmap(QStringLiteral("all"), QSize(64, 64), 1.0).cacheKey();
    QVERIFY(SvgSkin::cacheUse() >= 16);
    QCOMPARE(skin.pixmap(QStringLiteral("all"), QSize(64, 64), 1.0).cacheKey(), first);
    for (int width = 65; width < 100; ++width) {
        QVERIFY(!skin.pixmap(QStringLiteral("all"), QSize(width, 64), 1.0).isNull());
        QVERIFY2(SvgSkin::cacheUse() <= 100, qPrintable(QString::number(SvgSkin::cacheUse())));
    }
    QVERIFY(SvgSkin::cacheUse() > 50);
    QVERIFY(skin.pixmap(QStringLiteral("all"), QSize(64, 64), 1.0).cacheKey() != first);
}

void SvgSkinTest::whatIsTooLargeToKeepIsStillDrawn() {
    SvgSkin::setCacheLimit(10);
    const SvgSkin skin(m_folder.filePath(QStringLiteral("blocks.svg")));
    QCOMPARE(pixel(skin.pixmap(QStringLiteral("all"), QSize(100, 100), 1.0), 99, 99), green);
    QVERIFY(SvgSkin::cacheUse() <= 10);
}

void SvgSkinTest::nothingIsDrawnWithoutASize() {
    const SvgSkin skin(m_folder.filePath(QStringLiteral("blocks.svg")));
    for (const QSize& size : {QSize(), QSize(0, 10), QSize(10, 0), QSize(-5, 5)})
        QVERIFY(skin.pixmap(QStringLiteral("all"), size, 1.0).isNull());
}

void SvgSkinTest::nothingIsDrawnWithoutFileOrElement() {
    const SvgSkin none(m_folder.filePath(QStringLiteral("nowhere.svg")));
    QVERIFY(none.pixmap(QStringLiteral("all"), QSize(5, 5), 1.0).isNull());
    QVERIFY(!none.hasElement(QStringLiteral("all")));
    const SvgSkin skin(m_folder.filePath(QStringLiteral("blocks.svg")));
    QVERIFY(skin.pixmap(QStringLiteral("nobody"), QSize(5, 5), 1.0).isNull());
    QVERIFY(skin.pixmap(QString(), QSize(5, 5), 1.0).isNull());
    QCOMPARE(SvgSkin::cacheUse(), 0);
}

void SvgSkinTest::aDamagedFileDrawsNothing() {
    for (int length = 0; length < twoBlocks.size() - 1; length += 7) {
        const SvgSkin skin(write(QStringLiteral("cut%1.svg").arg(length), twoBlocks.left(length)));
        QVERIFY2(skin.pixmap(QStringLiteral("all"), QSize(5, 5), 1.0).isNull(), qPrintable(QString::number(length)));
    }
    const SvgSkin noise(write(QStringLiteral("noise.svg"), "#ff0 this is no SVG #"));
    QVERIFY(noise.pixmap(QStringLiteral("all"), QSize(5, 5), 1.0, {{red, blue}}).isNull());
}

OSTREL_TEST(SvgSkinTest)

#include "svgskin_test.moc"
