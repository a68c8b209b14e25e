// A form of five hundred widgets looks on while its cell is reloaded with other variables in other places.
#include <csignal>

#include "fabric/timermoderator.h"
#include "qttests.h"
#include "testcell.h"
#include "window.h"

namespace {

constexpr int widgets = 500;

QString variable(int i) {
    return QStringLiteral("CHANNEL_%1").arg(i);
}

QByteArray form() {
    QByteArray text =
        "<ui version=\"4.0\"><class>Many</class><widget class=\"QWidget\" name=\"Many\">"
        "<layout class=\"QGridLayout\" name=\"grid\">";
    for (int i = 0; i < widgets; ++i)
        text += QStringLiteral(
                    "<item row=\"%1\" column=\"%2\"><widget class=\"ZelValue\" name=\"w%3\"><property "
                    "name=\"name\"><string>%4</string></property><property name=\"sampleRate\"><number>50"
                    "</number></property></widget></item>")
                    .arg(i / 20)
                    .arg(i % 20)
                    .arg(i)
                    .arg(variable(i))
                    .toUtf8();
    return text +
           "</layout></widget><customwidgets><customwidget><class>ZelValue</class><extends>QWidget</extends>"
           "<header>zel_value.h</header></customwidget></customwidgets></ui>";
}

// The variables that `holds` tells, from the last to the first where they are to stand in other places; the value of
// each is its number and a thousand; one that it had before stays, which may be another by then.
QByteArray cellFile(bool reversed, bool (*holds)(int)) {
    QByteArray text = "[cell]\nname = \"many\"\nscan_ms = 20\n";
    for (int at = 0; at < widgets; ++at) {
        const int i = reversed ? widgets - 1 - at : at;
        if (holds(i))
            text +=
                QStringLiteral("[real.%1]\nvalue = %2\nformat = \"%.0f\"\n").arg(variable(i)).arg(1000 + i).toUtf8();
    }
    return text;
}

bool all(int) {
    return true;
}
bool odd(int i) {
    return i % 2 == 1;
}
bool notEveryThird(int i) {
    return i % 3 != 0;
}

}  // namespace

class ManyWidgetsTest : public QObject {
    Q_OBJECT

private slots:
    void everyWidgetFollowsEachReload();

private:
    // The first widget that does not show what the cell holds, and what it shows; empty when all do.
    QString firstWrong(Window& window, bool (*holds)(int)) {
        for (int i = 0; i < widgets; ++i) {
            const QByteArray name = "w" + QByteArray::number(i);
            const QString wanted = holds(i) ? QString::number(m_values[i]) : QStringLiteral("-");
            if (window.value(name.constData()) != wanted || window.isMarkedMissing(name.constData()) == holds(i))
                return QStringLiteral("%1 shows %2, not %3").arg(variable(i), window.value(name.constData()), wanted);
        }
        return QString();
    }
    int m_values[widgets] = {};
};

void ManyWidgetsTest::everyWidgetFollowsEachReload() {
    TestCell cell;
    const QString path = cell.file("many.ui");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(form());
    file.close();
    cell.write(cellFile(false, all));
    QVERIFY(cell.start());
    {
        Window window(path);
        for (int i = 0; i < widgets; ++i)
            m_values[i] = 1000 + i;
        BECOMES(firstWrong(window, all), "");
        const struct {
            bool reversed;
            bool (*holds)(int);
        } reloads[] = {{false, odd},          {true, all},  {false, notEveryThird},
                       {true, notEveryThird}, {false, odd}, {false, all}};
        for (const auto& reload : reloads) {
            cell.write(cellFile(reload.reversed, reload.holds));
            cell.signal(SIGHUP);
            BECOMES(firstWrong(window, reload.holds), "");
            // No widget shows a value left from before: it follows the variable in its new place.
            for (const int i : {1, 251, 499})
                if (reload.holds(i)) {
                    m_values[i] += 10000;
                    QVERIFY(cell.set(variable(i), QString::number(m_values[i])));
                }
            BECOMES(firstWrong(window, reload.holds), "");
            QVERIFY(!window.window().isWindowModified());
        }
        for (int i = 0; i < widgets; ++i)
            QVERIFY(!window.widget(("w" + QByteArray::number(i)).constData())->cfg_in_progress());
        BECOMES(window.field("bindingField"), "500 bound, 0 missing");
    }
    TimerModerator::shutDown();
}

OSTREL_TEST(ManyWidgetsTest)
#include "manywidgets_test.moc"
