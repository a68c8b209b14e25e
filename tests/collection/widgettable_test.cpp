// The page of the widgets tells what the library has.
#include "widgettable.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QImage>

#include "paths.h"

namespace {

std::string text(const char* path) {
    QFile file(QString(paths::sources) + QLatin1String(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return file.readAll().toStdString();
}

TEST(WidgetTable, IsAsTheLibraryMakesIt) {
    QStringList withoutMeaning;
    const std::string made = widgetTable(&withoutMeaning).toStdString();
    EXPECT_EQ(withoutMeaning.join(QStringLiteral(", ")).toStdString(), "")
        << "docs/properties.txt does not tell of these";
    EXPECT_EQ(text("/docs/widgets.md"), made) << "make it anew with: widgettable docs";
}

TEST(WidgetTable, HasAPictureOfEachWidget) {
    const QStringList names = widgetPictures();
    EXPECT_GE(names.size(), 14);
    for (const QString& name : names)
        EXPECT_FALSE(QImage(QString(paths::sources) + QLatin1String("/docs/pictures/widgets/") + name).isNull())
            << qPrintable(name);
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    prepareWidgetTable();
    const QApplication application(argc, argv);
    return serveWidgetTable() ? RUN_ALL_TESTS() : 1;
}
