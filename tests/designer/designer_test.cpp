// The widget collection as a display builder meets it: without a store, and with a cell that Qt Designer serves itself.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QDomDocument>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRect>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QThread>
#include <QXmlStreamReader>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "paths.h"

namespace {

constexpr int limit = 60000;

// Aliases that stand for a member or an element, as the store has them.
constexpr std::pair<const char*, const char*> aliasesOfTheDemo[] = {{"N_MEAN", "SPEED_STAT.AV"},
                                                                    {"NOX_MEAN", "NOX_STAT.AV"},
                                                                    {"T_EXH_1", "CYL_EXH_TEMP:0"},
                                                                    {"P_CYL_1", "CYL_PRESSURE:0"}};

// What a form says of the variables of its widgets: their names and units, and those that enable them, by the widgets'
// names.
QStringList variablesIn(const QString& file) {
    QFile form(file);
    QStringList lines;
    if (!form.open(QIODevice::ReadOnly))
        return lines;
    QXmlStreamReader xml(&form);
    QStringList widgets;
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::EndElement && xml.name() == QLatin1String("widget"))
            widgets.removeLast();
        if (token != QXmlStreamReader::StartElement)
            continue;
        const QString name = xml.attributes().value(QLatin1String("name")).toString();
        if (xml.name() == QLatin1String("widget")) {
            widgets.append(name);
        } else if (xml.name() == QLatin1String("property") &&
                   (name == QLatin1String("name") || name == QLatin1String("units") ||
                    name == QLatin1String("enableVariableName") || name == QLatin1String("OstrelVariable"))) {
            xml.readNextStartElement();
            lines.append(widgets.last() + QLatin1Char('.') + name + QLatin1String(" = ") + xml.readElementText());
        }
    }
    lines.sort();
    return lines;
}

class Designer : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_folder.isValid());
        ASSERT_TRUE(QDir(m_folder.path()).mkpath(QStringLiteral("plugins/designer")));
        install(QString(paths::plugin));
        install(QString(paths::designerWitness));
        write(QStringLiteral("blank.ui"),
              "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\"><property "
              "name=\"geometry\"><rect><x>0</x><y>0</y><width>400</width><height>300</height></rect></property>"
              "</widget></ui>");
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_PLUGIN_PATH"), path(QStringLiteral("plugins")));
        environment.insert(QStringLiteral("HOME"), m_folder.path());
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), path(QStringLiteral("config")));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
        environment.insert(QStringLiteral("OSTREL_WITNESS"), path(QStringLiteral("witness.txt")));
        environment.insert(QStringLiteral("OSTREL_STORE"),
                           QStringLiteral("designer-%1").arg(QCoreApplication::applicationPid()));
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        m_designer.setProcessEnvironment(environment);
        m_designer.setProcessChannelMode(QProcess::MergedChannels);
    }

    // Serves the demo cell inside of Qt Designer.
    void embedDemoCell() {
        QProcessEnvironment environment = m_designer.processEnvironment();
        environment.insert(QStringLiteral("OSTREL_CELL"),
                           QString(paths::sources) + QStringLiteral("/demo-cell/cell.toml"));
        m_designer.setProcessEnvironment(environment);
    }

    // A copy of the file with one more label in its upper left corner, outside of all layouts and as narrow as their
    // margin.
    void copyWithLabel(const QString& from, const QString& name) {
        QFile original(from);
        ASSERT_TRUE(original.open(QIODevice::ReadOnly)) << qPrintable(from);
        QByteArray text = original.readAll();
        const int end = text.lastIndexOf("</widget>");
        ASSERT_GT(end, 0);
        text.insert(end,
                    "<widget class=\"QLabel\" name=\"mover\"><property name=\"geometry\"><rect><x>0</x><y>0</y>"
                    "<width>60</width><height>8</height></rect></property></widget>");
        write(name, text.constData());
    }

    // As a display builder does, with a click and an arrow key.
    void moveLabelAndSave() {
        ASSERT_TRUE(comesToRest(QStringLiteral("at-mover")));
        const QStringList at = told(QStringLiteral("at-mover")).split(' ');
        mouse({"mousemove", at[0], at[1], "click", "1"});
        ASSERT_TRUE(comesTrue([this] {
            mouse({"key", "Right"});
            QThread::msleep(400);
            return !told(QStringLiteral("edited")).isEmpty();
        }));
        mouse({"key", "ctrl+s"});
        ASSERT_TRUE(comesTrue([this] { return !told(QStringLiteral("saved")).isEmpty(); }));
    }

    // What the witness tells of it stays the same for a while.
    bool comesToRest(const QString& key) {
        QString rested;
        return comesTrue([&] {
            const QString before = rested;
            rested = told(key);
            QThread::msleep(400);
            return !rested.isEmpty() && rested == before;
        });
    }

    void TearDown() override {
        m_designer.kill();
        m_designer.waitForFinished();
        if (HasFailure())
            printf("designer said:\n%s\nwitness said:\n%s\n", said().toUtf8().constData(),
                   witness().join('\n').toUtf8().constData());
    }

    QString path(const QString& name) const { return m_folder.filePath(name); }

    void install(const QString& library) {
        const QString link = path(QStringLiteral("plugins/designer/") + QFileInfo(library).fileName());
        ASSERT_TRUE(QFile::link(library, link));
    }

    void write(const QString& name, const char* text) {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    void open(const QString& form) {
        m_designer.start(QString(paths::designer), {path(form)});
        ASSERT_TRUE(m_designer.waitForStarted());
    }

    // What it has written so far.
    QString said() {
        m_designer.waitForReadyRead(0);
        m_said += QString::fromUtf8(m_designer.readAll());
        return m_said;
    }

    QStringList witness() const {
        QFile file(path(QStringLiteral("witness.txt")));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    }

    // The rest of the line that begins with `key`.
    QString told(const QString& key) const {
        for (const QString& line : witness())
            if (line.startsWith(key + QLatin1Char(' ')))
                return line.mid(key.size() + 1);
        return QString();
    }

    QStringList allTold(const QString& key) const { return witness().filter(QRegularExpression("^" + key + " ")); }

    // Asks the witness for an entry of the palette, and waits until it knows.
    void want(const QString& entry) {
        QSaveFile file(path(QStringLiteral("witness.txt.wanted")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(entry.toUtf8());
        ASSERT_TRUE(file.commit());
        ASSERT_TRUE(comesTrue([&] { return told(QStringLiteral("wanted")) == entry; }));
    }

    // The form on a display with the demo cell.
    QImage displayed(const QString& form) {
        QProcess display;
        QProcessEnvironment environment = m_designer.processEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        display.setProcessEnvironment(environment);
        const QString picture = path(QStringLiteral("picture.png"));
        display.start(QString(paths::display),
                      {"--cell", QString(paths::sources) + QStringLiteral("/demo-cell/cell.toml"), "--screenshot",
                       picture, path(form)});
        EXPECT_TRUE(display.waitForFinished(limit));
        EXPECT_EQ(display.exitCode(), 0) << display.readAllStandardError().constData();
        return QImage(picture);
    }

    bool comesTrue(const std::function<bool()>& condition) const {
        QElapsedTimer timer;
        timer.start();
        while (!condition()) {
            if (timer.elapsed() > limit)
                return false;
            QThread::msleep(50);
        }
        return true;
    }

    void mouse(const QStringList& command) {
        ASSERT_EQ(QProcess::execute(QStringLiteral("xdotool"), command), 0) << qPrintable(command.join(' '));
    }

    void drag(const QString& from, const QString& to) {
        const QStringList start = from.split(' ');
        const QStringList end = to.split(' ');
        mouse({"mousemove", start[0], start[1], "mousedown", "1"});
        // A drag begins with a move of some pixels, and a drop wants to be announced by moves over its target.
        for (int step = 1; step <= 20; ++step) {
            const auto between = [&](int i) {
                return QString::number(start[i].toInt() + (end[i].toInt() - start[i].toInt()) * step / 20);
            };
            mouse({"mousemove", between(0), between(1), "sleep", "0.02"});
        }
        mouse({"mousemove", QString::number(end[0].toInt() + 2), end[1], "sleep", "0.2", "mouseup", "1"});
    }

private:
    QTemporaryDir m_folder;
    QProcess m_designer;
    QString m_said;
};

TEST_F(Designer, OffersTheWidgetsInItsPalette) {
    open(QStringLiteral("blank.ui"));
    EXPECT_TRUE(comesTrue([this] { return told(QStringLiteral("palette")).contains(QLatin1String("ZelValue")); }));
}

TEST_F(Designer, LetsAZelValueBeDraggedOntoAForm) {
    open(QStringLiteral("blank.ui"));
    ASSERT_TRUE(comesTrue(
        [this] { return !told(QStringLiteral("entry")).isEmpty() && !told(QStringLiteral("form")).isEmpty(); }));
    // The palette scrolls while its groups open and close: its entry must have come to rest.
    QString rested;
    ASSERT_TRUE(comesTrue([&] {
        const QString before = rested;
        rested = told(QStringLiteral("entry")) + told(QStringLiteral("form"));
        QThread::msleep(400);
        return rested == before;
    }));
    drag(told(QStringLiteral("entry")), told(QStringLiteral("form")));
    EXPECT_TRUE(comesTrue([this] { return told(QStringLiteral("placed")).startsWith(QLatin1String("ZelValue")); }));
}

TEST_F(Designer, ShowsAFormWithAZelValueAsTheRealWidget) {
    write(QStringLiteral("value.ui"),
          "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\"><widget class=\"ZelValue\" "
          "name=\"speed\"><property name=\"name\"><string>ENGINE_SPEED</string></property></widget></widget>"
          "<customwidgets><customwidget><class>ZelValue</class><extends>QWidget</extends><header>zel_value.h</header>"
          "</customwidget></customwidgets></ui>");
    open(QStringLiteral("value.ui"));
    EXPECT_TRUE(comesTrue([this] { return told(QStringLiteral("placed")) == QLatin1String("ZelValue speed"); }));
}

// The widgets that a form has outside of others: class and place.
struct Placed {
    QString widget;
    QRect place;
};

std::vector<Placed> widgetsIn(const QString& file) {
    QFile form(file);
    std::vector<Placed> widgets;
    if (!form.open(QIODevice::ReadOnly))
        return widgets;
    QDomDocument document;
    document.setContent(&form);
    const QDomElement top = document.documentElement().firstChildElement(QStringLiteral("widget"));
    for (QDomElement widget = top.firstChildElement(QStringLiteral("widget")); !widget.isNull();
         widget = widget.nextSiblingElement(QStringLiteral("widget"))) {
        const QDomElement rect =
            widget.firstChildElement(QStringLiteral("property")).firstChildElement(QStringLiteral("rect"));
        const auto number = [&](const char* name) {
            return rect.firstChildElement(QLatin1String(name)).text().toInt();
        };
        widgets.push_back({widget.attribute(QStringLiteral("class")),
                           QRect(number("x"), number("y"), number("width"), number("height"))});
    }
    return widgets;
}

bool isBlank(const QImage& picture) {
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixel(x, y) != picture.pixel(0, 0))
                return false;
    return true;
}

// A display builder drags one of each onto a form and saves it; the display then shows them where they were put.
TEST_F(Designer, PlacesEveryWidgetAndADisplayShowsThem) {
    constexpr int columns = 5;
    const QSize cell(110, 90);
    write(QStringLiteral("all.ui"),
          "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\"><property "
          "name=\"geometry\"><rect><x>0</x><y>0</y><width>600</width><height>500</height></rect></property>"
          "</widget></ui>");
    open(QStringLiteral("all.ui"));
    ASSERT_TRUE(comesToRest(QStringLiteral("palette")));
    const QStringList palette = told(QStringLiteral("palette")).split(' ');
    ASSERT_GE(palette.size(), 14);
    // What takes other widgets comes last, where nothing is dropped onto it.
    std::vector<int> order;
    for (const bool takesOthers : {false, true})
        for (int i = 0; i < palette.size(); ++i)
            if (palette[i].startsWith(QLatin1String("ZelGroup")) == takesOthers)
                order.push_back(i);
    QPoint at(cell.width() / 2, cell.height() / 2);
    for (size_t i = 0; i < order.size(); ++i) {
        want(QString::number(order[i]));
        ASSERT_TRUE(comesToRest(QStringLiteral("entry")));
        const QStringList middle = told(QStringLiteral("form")).split(' ');
        const QPoint corner(middle[0].toInt() - 300, middle[1].toInt() - 250);
        const QPoint target = corner + at + QPoint(int(i) % columns * cell.width(), int(i) / columns * cell.height());
        drag(told(QStringLiteral("entry")), QStringLiteral("%1 %2").arg(target.x()).arg(target.y()));
        ASSERT_TRUE(comesTrue([&] { return allTold(QStringLiteral("placed")).size() == int(i) + 1; }))
            << qPrintable(palette[order[i]]);
    }
    mouse({"key", "ctrl+s"});
    ASSERT_TRUE(comesTrue([this] { return !told(QStringLiteral("saved")).isEmpty(); }));

    const auto placed = widgetsIn(path(QStringLiteral("all.ui")));
    QStringList expected;
    QStringList saved;
    for (const int entry : order)
        expected.append(palette[entry]);
    for (const Placed& widget : placed)
        saved.append(widget.widget);
    EXPECT_EQ(saved.join(' ').toStdString(), expected.join(' ').toStdString());
    const QImage picture = displayed(QStringLiteral("all.ui"));
    ASSERT_FALSE(picture.isNull());
    for (const Placed& widget : placed)
        EXPECT_FALSE(isBlank(picture.copy(widget.place & picture.rect()))) << qPrintable(widget.widget);
}

// Ctrl+R opens a window with the form's widgets as they will be. Nothing in it is out of order.
TEST_F(Designer, PreviewsTheIndicatorsWithoutAComplaint) {
    embedDemoCell();
    copyWithLabel(QString(paths::sources) + QStringLiteral("/demo-cell/forms/indicators.ui"),
                  QStringLiteral("form.ui"));
    open(QStringLiteral("form.ui"));
    ASSERT_TRUE(comesToRest(QStringLiteral("at-mover")));
    const QStringList at = told(QStringLiteral("at-mover")).split(' ');
    mouse({"mousemove", at[0], at[1], "click", "1"});
    ASSERT_TRUE(comesTrue([this] {
        mouse({"key", "ctrl+r"});
        QThread::msleep(400);
        return QProcess::execute(QStringLiteral("xdotool"), {"search", "--name", "Preview"}) == 0;
    }));
    QStringList complaints = said().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    // Of the witness itself.
    complaints = complaints.filter(QRegularExpression(QStringLiteral("^(?!.*DesignerWitness)")));
    EXPECT_EQ(complaints.join(QLatin1Char('\n')).toStdString(), "");
}

TEST_F(Designer, OffersTheValueManagerInAGroupOfItsOwn) {
    open(QStringLiteral("blank.ui"));
    EXPECT_TRUE(comesTrue([this] {
        QStringList entries = told(QStringLiteral("valuemanager")).split(' ');
        entries.sort();
        return entries.join(' ') == QLatin1String(
                                        "ValManCancelWidget ValManComboBoxWidget ValManFileWidget "
                                        "ValManLogicalWidget ValManNumericWidget ValManOKWidget "
                                        "ValManStringWidget");
    }));
}

// The list of an editor is edited with the mouse and the keyboard, as a display builder does.
class ListOfValues : public Designer {
protected:
    void SetUp() override {
        Designer::SetUp();
        write(QStringLiteral("list.ui"),
              "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\"><property "
              "name=\"geometry\"><rect><x>0</x><y>0</y><width>400</width><height>300</height></rect></property>"
              "<widget class=\"ValManComboBoxWidget\" name=\"mode\"><property name=\"geometry\"><rect><x>20</x>"
              "<y>20</y><width>300</width><height>33</height></rect></property><property name=\"comboBoxContents\">"
              "<string>low;;high</string></property></widget></widget><customwidgets><customwidget>"
              "<class>ValManComboBoxWidget</class><extends>QWidget</extends><header>ValManComboBoxWidget.h</header>"
              "</customwidget></customwidgets></ui>");
        open(QStringLiteral("list.ui"));
        ASSERT_TRUE(comesToRest(QStringLiteral("at-mode")));
        EXPECT_EQ(told(QStringLiteral("task-mode")).toStdString(), "Edit State...");
    }

    void click(const QString& what) {
        ASSERT_TRUE(comesToRest(QStringLiteral("click-") + what)) << qPrintable(what);
        const QStringList at = told(QStringLiteral("click-") + what).split(' ');
        mouse({"mousemove", at[0], at[1], "click", "1"});
    }

    void openList() {
        const QStringList at = told(QStringLiteral("at-mode")).split(' ');
        mouse({"mousemove", at[0], at[1], "click", "1", "sleep", "0.2", "click", "3"});
        click(QStringLiteral("Edit State..."));
        ASSERT_TRUE(comesTrue([this] { return told(QStringLiteral("dialog")) == QLatin1String("Edit Combobox"); }));
    }

    void closeList(const char* button) {
        click(QLatin1String(button));
        ASSERT_TRUE(comesTrue([this] { return told(QStringLiteral("dialog")).isEmpty(); }));
    }

    // Nothing gives the keyboard back where a dialog was closed on a screen without a window manager.
    void giveFormTheKeyboard(const char* clicked) {
        const QStringList at = told(QLatin1String(clicked)).split(' ');
        // Beside the editor's own field, which would take the keys.
        constexpr int toTheLeft = 140;
        mouse({"mousemove", QString::number(at[0].toInt() - toTheLeft), at[1], "click", "1"});
    }

    bool listBecomes(const char* list) {
        return comesTrue([this, list] { return told(QStringLiteral("list-mode")) == QLatin1String(list); });
    }

    bool commandsBecome(const char* commands) {
        return comesTrue([this, commands] { return told(QStringLiteral("commands")) == QLatin1String(commands); });
    }
};

TEST_F(ListOfValues, IsChangedByOneCommandAndSaved) {
    openList();
    click(QStringLiteral("New"));
    ASSERT_TRUE(comesTrue([this] { return told(QStringLiteral("focus")) == QLatin1String("QExpandingLineEdit"); }));
    mouse({"type", "middle"});
    mouse({"key", "Return"});
    ASSERT_TRUE(comesTrue([this] { return told(QStringLiteral("focus")) == QLatin1String("QListWidget"); }));
    closeList("OK");
    EXPECT_TRUE(listBecomes("low;middle;;high"));
    EXPECT_TRUE(commandsBecome("1 of 1: Change Combobox Contents"));
    // The editor is selected, and then it is not.
    for (const char* clicked : {"at-mode", "form"}) {
        giveFormTheKeyboard(clicked);
        mouse({"key", "ctrl+z"});
        EXPECT_TRUE(listBecomes("low;;high"));
        EXPECT_TRUE(commandsBecome("0 of 1: "));
        mouse({"key", "ctrl+shift+z"});
        EXPECT_TRUE(listBecomes("low;middle;;high"));
        EXPECT_TRUE(commandsBecome("1 of 1: Change Combobox Contents"));
    }
    mouse({"key", "ctrl+s"});
    ASSERT_TRUE(comesTrue([this] { return !told(QStringLiteral("saved")).isEmpty(); }));
    QFile form(path(QStringLiteral("list.ui")));
    ASSERT_TRUE(form.open(QIODevice::ReadOnly));
    EXPECT_TRUE(form.readAll().contains("<string>low;middle;;high</string>"));
}

TEST_F(ListOfValues, StaysWhereNothingOfItChanged) {
    openList();
    closeList("OK");
    openList();
    click(QStringLiteral("Delete"));
    closeList("Cancel");
    EXPECT_TRUE(commandsBecome("0 of 0: "));
    EXPECT_TRUE(listBecomes("low;;high"));
    EXPECT_FALSE(told(QStringLiteral("saved")).isEmpty());
}

// A form is opened, edited and saved while the cell is there, so that its widgets are bound to variables. What they
// have made of the names must not become what the form says.
class DesignerWithCell : public Designer, public testing::WithParamInterface<std::string> {};

TEST_P(DesignerWithCell, SavesNamesAndUnits) {
    embedDemoCell();
    const QString original = QString(paths::sources) + QString::fromStdString(GetParam());
    copyWithLabel(original, QStringLiteral("form.ui"));
    open(QStringLiteral("form.ui"));
    moveLabelAndSave();
    QStringList expected = variablesIn(original);
    // Where aliases are not to be shown, a variable has its own name.
    if (original.endsWith(QLatin1String("parts.ui")))
        for (const auto& [alias, name] : aliasesOfTheDemo)
            expected.replaceInStrings(QLatin1String(" = ") + QLatin1String(alias),
                                      QLatin1String(" = ") + QLatin1String(name));
    const QStringList saved = variablesIn(path(QStringLiteral("form.ui")));
    EXPECT_EQ(expected.join('\n').toStdString(), saved.join('\n').toStdString());
}

// Every form of the demo, and one with what no form of the demo has.
std::vector<std::string> forms() {
    std::vector<std::string> all{"/tests/designer/parts.ui"};
    const QString folder = QStringLiteral("/demo-cell/forms/");
    const auto names = QDir(QString(paths::sources) + folder).entryList({QStringLiteral("*.ui")});
    for (const QString& name : names)
        all.push_back((folder + name).toStdString());
    return all;
}

INSTANTIATE_TEST_SUITE_P(Forms, DesignerWithCell, testing::ValuesIn(forms()), [](const auto& form) {
    return QFileInfo(QString::fromStdString(form.param)).baseName().toStdString();
});

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
