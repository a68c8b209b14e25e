// Writes docs/widgets.md and its pictures anew: widgettable docs
#include <QApplication>
#include <QDir>
#include <QFile>
#include <cstdio>

#include "widgettable.h"

int main(int argc, char** argv) {
    prepareWidgetTable();
    const QApplication application(argc, argv);
    if (argc != 2 || !serveWidgetTable()) {
        std::fprintf(stderr, "usage: widgettable FOLDER\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    QFile page(folder.filePath(QStringLiteral("widgets.md")));
    QStringList withoutMeaning;
    const QByteArray text = widgetTable(&withoutMeaning).toUtf8();
    for (const QString& property : qAsConst(withoutMeaning))
        std::fprintf(stderr, "widgettable: properties.txt does not tell what %s means\n", qPrintable(property));
    if (!page.open(QIODevice::WriteOnly) || page.write(text) != text.size() ||
        !folder.mkpath(QStringLiteral("pictures/widgets")) || !drawWidgets(folder.filePath("pictures/widgets"))) {
        std::fprintf(stderr, "widgettable: %s cannot be written\n", qPrintable(folder.path()));
        return 1;
    }
    return withoutMeaning.isEmpty() ? 0 : 1;
}
