#include "cursorshapes.h"

#include <QCoreApplication>
#include <QPainter>
#include <iterator>

namespace {

// The drawing is a list of lines on a grid of 16 by 16, "x1 y1 x2 y2" each.
struct Shape {
    Qt::CursorShape shape;
    const char* name;
    const char* drawing;
};

constexpr Shape shapes[] = {
    {Qt::ArrowCursor, "Arrow", "3 1 3 13;3 1 12 10;3 13 6 10;12 10 8 10;6 10 8 15;8 10 10 14"},
    {Qt::UpArrowCursor, "Up Arrow", "8 1 8 15;8 1 4 5;8 1 12 5"},
    {Qt::CrossCursor, "Cross", "8 1 8 15;1 8 15 8"},
    {Qt::WaitCursor, "Wait", "4 1 12 1;4 15 12 15;4 1 12 15;12 1 4 15"},
    {Qt::IBeamCursor, "IBeam", "8 2 8 14;5 1 8 2;8 2 11 1;5 15 8 14;8 14 11 15"},
    {Qt::SizeVerCursor, "Size Vertical", "8 1 8 15;8 1 5 4;8 1 11 4;8 15 5 12;8 15 11 12"},
    {Qt::SizeHorCursor, "Size Horizontal", "1 8 15 8;1 8 4 5;1 8 4 11;15 8 12 5;15 8 12 11"},
    {Qt::SizeBDiagCursor, "Size Backslash", "2 14 14 2;2 14 2 10;2 14 6 14;14 2 10 2;14 2 14 6"},
    {Qt::SizeFDiagCursor, "Size Slash", "2 2 14 14;2 2 6 2;2 2 2 6;14 14 10 14;14 14 14 10"},
    {Qt::SizeAllCursor, "Size All",
     "8 1 8 15;1 8 15 8;8 1 6 3;8 1 10 3;8 15 6 13;8 15 10 13;1 8 3 6;1 8 3 10;15 8 13 6;15 8 13 10"},
    {Qt::BlankCursor, "Blank", ""},
    {Qt::SplitVCursor, "Split Vertical", "1 7 15 7;1 9 15 9;8 1 8 7;8 9 8 15;8 1 6 3;8 1 10 3;8 15 6 13;8 15 10 13"},
    {Qt::SplitHCursor, "Split Horizontal", "7 1 7 15;9 1 9 15;1 8 7 8;9 8 15 8;1 8 3 6;1 8 3 10;15 8 13 6;15 8 13 10"},
    {Qt::PointingHandCursor, "Pointing Hand",
     "6 1 6 9;8 1 8 7;6 1 8 1;8 7 13 8;13 8 13 12;6 9 3 8;3 8 7 15;7 15 12 15;12 15 13 12"},
    {Qt::ForbiddenCursor, "Forbidden",
     "5 2 11 2;11 2 14 5;14 5 14 11;14 11 11 14;11 14 5 14;5 14 2 11;2 11 2 5;2 5 5 2;4 4 12 12"},
    {Qt::OpenHandCursor, "Open Hand",
     "4 8 4 4;6 8 6 2;8 8 8 1;10 8 10 2;12 8 12 4;4 8 2 9;2 9 6 15;6 15 11 15;11 15 12 8"},
    {Qt::ClosedHandCursor, "Closed Hand",
     "4 6 12 6;4 6 3 10;3 10 6 15;6 15 11 15;11 15 12 6;6 6 6 9;8 6 8 9;10 6 10 9"},
    {Qt::WhatsThisCursor, "What's This",
     "1 1 1 10;1 1 7 7;1 10 3 8;9 3 11 1;11 1 14 3;14 3 14 5;14 5 11 8;11 8 11 10;11 13 11 14"},
    {Qt::BusyCursor, "Busy", "1 1 1 10;1 1 7 7;1 10 3 8;9 7 15 7;9 15 15 15;9 7 15 15;15 7 9 15"},
};

bool isOffered(int index) {
    return index >= 0 && index < cursorShapeCount();
}

}  // namespace

int cursorShapeCount() {
    return static_cast<int>(std::size(shapes));
}

int cursorShapeIndex(Qt::CursorShape shape) {
    for (int i = 0; i < cursorShapeCount(); ++i) {
        if (shapes[i].shape == shape)
            return i;
    }
    return -1;
}

Qt::CursorShape cursorShapeAt(int index) {
    return isOffered(index) ? shapes[index].shape : Qt::ArrowCursor;
}

QString cursorShapeName(int index) {
    return isOffered(index) ? QCoreApplication::translate("QtCursorDatabase", shapes[index].name) : QString();
}

QIcon cursorShapeIcon(int index) {
    if (!isOffered(index))
        return QIcon();
    QPixmap pixmap(18, 18);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 1.4));
    painter.translate(1, 1);
    const QStringList lines = QString::fromLatin1(shapes[index].drawing).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const QStringList ends = line.split(QLatin1Char(' '));
        painter.drawLine(ends[0].toInt(), ends[1].toInt(), ends[2].toInt(), ends[3].toInt());
    }
    return QIcon(pixmap);
}
