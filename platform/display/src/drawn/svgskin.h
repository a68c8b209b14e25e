// The look of a drawn widget as an SVG file, rendered once per size, colour and pixel ratio.
#ifndef OSTREL_DISPLAY_DRAWN_SVGSKIN_H
#define OSTREL_DISPLAY_DRAWN_SVGSKIN_H

#include <QByteArray>
#include <QColor>
#include <QPair>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <QVector>

class QPainter;

// What a skin shows in place of a colour of its file. The file has colours of its own, so that it can be looked at and
// edited as it is; those that a widget decides about are its key colours.
using SkinColour = QPair<QRgb, QRgb>;
using SkinColours = QVector<SkinColour>;

// The pixel ratio of what a painter paints on: of the screen, or of the picture that a widget is rendered into.
qreal pixelRatio(const QPainter& painter);

// A skin is a file whose elements, named by their id, are the states or the pieces of a widget: "circle-on", "face". An
// element fills the pixmap exactly, so a skin gives each of them a frame, a <rect fill="none">, as large as what is to
// be seen together with its margin.
//
// All skins share one store of pixmaps, bounded in bytes; the one that was not used for the longest time makes room. A
// pixmap that is larger than the bound is rendered whenever it is asked for. GUI thread only.
class SvgSkin {
public:
    explicit SvgSkin(QString file);

    bool hasElement(const QString& element) const;

    // The element in that many device-independent pixels. Null when the file cannot be read, has no such element or is
    // no SVG, and for a size without an area; a ratio that is no number above zero counts as 1.
    QPixmap pixmap(const QString& element, const QSize& size, qreal ratio, const SkinColours& colours = {}) const;

    // The file's text with the key colours replaced, each of them at the same time: two may change places.
    QByteArray text(const SkinColours& colours) const;

    // The bound of the store and what stands in it, in KiB. A new bound takes effect at once.
    static int cacheLimit();
    static void setCacheLimit(int kibibytes);
    static int cacheUse();

private:
    QPixmap render(const QString& element, const QSize& pixels, const SkinColours& colours) const;

    QString m_file;
    mutable QByteArray m_text;
};

#endif
