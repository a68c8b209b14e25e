#include "drawn/svgskin.h"

#include <QCache>
#include <QDebug>
#include <QFile>
#include <QPaintEngine>
#include <QPainter>
#include <QSvgRenderer>
#include <cmath>

namespace {

struct Key {
    QString file;
    QString element;
    QSize pixels;
    qreal ratio;
    SkinColours colours;

    bool operator==(const Key& other) const = default;
};

uint qHash(const Key& key, uint seed) {
    QtPrivate::QHashCombine combine;
    seed = combine(seed, key.file);
    seed = combine(seed, key.element);
    seed = combine(seed, key.pixels.width());
    seed = combine(seed, key.pixels.height());
    seed = combine(seed, key.ratio);
    for (const SkinColour& colour : key.colours)
        seed = combine(seed, colour.second);
    return seed;
}

// Two faces of a dial that fills a screen, or some thousand lamps.
constexpr int defaultLimit = 32 * 1024;

QCache<Key, QPixmap>& cache() {
    static QCache<Key, QPixmap> pixmaps(defaultLimit);
    return pixmaps;
}

int cost(const QSize& pixels) {
    const qint64 bytes = qint64(pixels.width()) * pixels.height() * 4;
    return int(std::min<qint64>(bytes / 1024 + 1, std::numeric_limits<int>::max()));
}

}  // namespace

qreal pixelRatio(const QPainter& painter) {
    return painter.paintEngine()->paintDevice()->devicePixelRatioF();
}

SvgSkin::SvgSkin(QString file) : m_file(std::move(file)) {}

bool SvgSkin::hasElement(const QString& element) const {
    return QSvgRenderer(text({})).elementExists(element);
}

QPixmap SvgSkin::pixmap(const QString& element, const QSize& size, qreal ratio, const SkinColours& colours) const {
    const qreal usedRatio = std::isfinite(ratio) && ratio > 0.0 ? ratio : 1.0;
    const QSize pixels(qRound(size.width() * usedRatio), qRound(size.height() * usedRatio));
    if (pixels.isEmpty())
        return {};
    const Key key{m_file, element, pixels, usedRatio, colours};
    if (const QPixmap* cached = cache().object(key))
        return *cached;
    QPixmap picture = render(element, pixels, colours);
    if (picture.isNull())
        return {};
    picture.setDevicePixelRatio(usedRatio);
    cache().insert(key, new QPixmap(picture), cost(pixels));
    return picture;
}

QPixmap SvgSkin::render(const QString& element, const QSize& pixels, const SkinColours& colours) const {
    QSvgRenderer renderer(text(colours));
    if (!renderer.elementExists(element)) {
        qDebug() << "Skin" << m_file << "has no element" << element;
        return {};
    }
    QPixmap picture(pixels);
    if (picture.isNull())
        return {};
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, element, QRectF(QPointF(0.0, 0.0), pixels));
    return picture;
}

QByteArray SvgSkin::text(const SkinColours& colours) const {
    if (m_text.isEmpty()) {
        QFile file(m_file);
        if (file.open(QIODevice::ReadOnly))
            m_text = file.readAll();
        else
            qDebug() << "Skin" << m_file << "cannot be read:" << file.errorString();
    }
    QByteArray replaced = m_text;
    constexpr int length = 7;
    for (int at = replaced.indexOf('#'); at >= 0; at = replaced.indexOf('#', at + 1)) {
        const QByteArray name = replaced.mid(at, length).toLower();
        for (const SkinColour& colour : colours)
            if (name == QColor(colour.first).name().toLatin1())
                replaced.replace(at, length, QColor(colour.second).name().toLatin1());
    }
    return replaced;
}

int SvgSkin::cacheLimit() {
    return cache().maxCost();
}

void SvgSkin::setCacheLimit(int kibibytes) {
    cache().setMaxCost(kibibytes);
}

int SvgSkin::cacheUse() {
    return cache().totalCost();
}
